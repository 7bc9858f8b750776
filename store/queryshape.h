// What a recordset is opened on: a table by its name, or a query. A query over one table with
// no aggregate, distinct or join can write its rows back, as the engine's dynasets can.
#pragma once

#include <QString>

namespace ostravel {

struct QueryShape {
    bool isTable = false;
    bool updatable = false;
    QString table;       // the table written to, without brackets or quotes
    QString source;      // the table as written, with its alias
    QString qualifier;   // what qualifies rowid: the alias, else the table as written
    QString columns;     // the column list as written; "*" for a table
    QString fromClause;  // from "from" to the end
};

// sql is in SQLite's dialect already (see jetToSqlite).
QueryShape analyseSource(const QString& tableNameOrSql);

// A table name in double quotes for SQLite, its own quotes doubled.
QString quotedName(const QString& name);

}  // namespace ostravel
