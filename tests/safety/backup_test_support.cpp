#include "tests/safety/backup_test_support.h"

#include <sqlite3.h>

#include <QFile>
#include <stdexcept>

namespace ostravel::test {

namespace {

// A read-only handle for looking at a file the program may have open.
class Reader {
public:
    explicit Reader(const QString& path) {
        if (sqlite3_open_v2(QFile::encodeName(path).constData(), &m_handle, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK)
            throw std::runtime_error("can't open " + path.toStdString());
    }
    ~Reader() { sqlite3_close(m_handle); }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    // Each row as one text: the values with their storage classes, joined.
    QStringList rows(const QString& sql) const {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(m_handle, sql.toUtf8().constData(), -1, &statement, nullptr) != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(m_handle));
        QStringList rows;
        while (sqlite3_step(statement) == SQLITE_ROW) {
            QStringList values;
            for (int column = 0; column < sqlite3_column_count(statement); ++column) {
                const int type = sqlite3_column_type(statement, column);
                const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
                values << QString::number(type) + QLatin1Char(':') + QString::fromUtf8(text ? text : "");
            }
            rows << values.join(QLatin1Char('|'));
        }
        sqlite3_finalize(statement);
        return rows;
    }

private:
    sqlite3* m_handle = nullptr;
};

}  // namespace

QStringList tablesOf(const QString& databasePath) {
    QStringList names;
    for (const QString& row :
         Reader(databasePath).rows(QStringLiteral("select name from sqlite_master where type='table' order by name")))
        names << row.section(QLatin1Char(':'), 1);
    return names;
}

QStringList tableRows(const QString& databasePath, const QString& table) {
    QString quoted = table;
    quoted.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return Reader(databasePath).rows(QStringLiteral("select * from \"%1\" order by rowid").arg(quoted));
}

}  // namespace ostravel::test
