#include "safety/restore_check.h"

#include <sqlite3.h>

#include <QSet>

#include "store/database.h"
#include "store/schema.h"
#include "store/sqliteconnection.h"

namespace ostravel {

namespace {

QSet<QString> columnsOf(SqliteConnection& connection, const QString& table) {
    Statement statement = connection.prepare(QStringLiteral("select name from pragma_table_info(?1)"));
    const QByteArray name = table.toUtf8();
    sqlite3_bind_text(statement.get(), 1, name.constData(), static_cast<int>(name.size()), SQLITE_TRANSIENT);
    QSet<QString> columns;
    while (statement.step())
        columns << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), 0))).toLower();
    return columns;
}

}  // namespace

void checkRestoredDatabase(const QString& path) {
    Database copy;
    copy.open(path);  // refuses a file that is no database, or a damaged one
    SqliteConnection& connection = *copy.connection();
    for (const TableShape& table : schemaTables()) {
        const QSet<QString> columns = columnsOf(connection, table.name);
        if (columns.isEmpty())
            throw DatabaseUnusable(path, QStringLiteral("the table '%1' is missing").arg(table.name));
        for (const ColumnShape& column : table.columns) {
            if (!columns.contains(column.name.toLower()))
                throw DatabaseUnusable(
                    path, QStringLiteral("the table '%1' has no column '%2'").arg(table.name, column.name));
        }
    }
}

}  // namespace ostravel
