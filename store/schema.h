// The tables of ostravel.mdb, each column at the position the program reads it by, and the
// making of a new file's content: every table, the one users row, the symbol list.
#pragma once

#include <QString>
#include <vector>

namespace ostravel {

class SqliteConnection;

enum class ColumnType { AutoNumber, Integer, Real, Text, Date };

struct ColumnShape {
    QString name;
    ColumnType type;
    QString defaultValue;  // an SQL literal; empty for none
    QString references;    // "table(column)" of a parent whose delete takes this row along
};

struct TableShape {
    QString name;
    std::vector<ColumnShape> columns;  // in the order of their positions
    QString constraints;               // table constraints, such as a unique name
    std::vector<QString> indexes;      // column lists the program looks rows up by
};

const std::vector<TableShape>& schemaTables();

QString createTableSql(const TableShape& table);

// Builds every table and index, the users row of defaults and the symbol list, inside the
// caller's transaction.
void createSchema(SqliteConnection& connection);

}  // namespace ostravel
