// The day-file store in an SQLite file.
#include <sqlite3.h>

#include <QDir>
#include <QFileInfo>

#include "market/day_store.h"
#include "store/fieldvalue.h"
#include "store/sqliteconnection.h"

namespace ostravel {

namespace {

class SqliteDayStore : public DayStore {
public:
    explicit SqliteDayStore(const QString& path)
        : m_db(openSqliteHandle(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE), path) {
        m_db.run(QStringLiteral("pragma busy_timeout = 5000"));
    }

    Rows select(const QString& sql) override {
        Rows rows;
        Statement query = m_db.prepare(sql);
        sqlite3_stmt* s = query.get();
        const int columns = sqlite3_column_count(s);
        while (query.step()) {
            std::vector<Variant>& row = rows.emplace_back();
            row.reserve(std::size_t(columns));
            for (int i = 0; i < columns; ++i) {
                switch (sqlite3_column_type(s, i)) {
                    case SQLITE_NULL:
                        row.push_back(Variant::null());
                        break;
                    case SQLITE_INTEGER:
                    case SQLITE_FLOAT:
                        row.emplace_back(sqlite3_column_double(s, i));
                        break;
                    default:
                        row.emplace_back(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(s, i)),
                                                           sqlite3_column_bytes(s, i)));
                }
            }
        }
        return rows;
    }

    bool hasYear(int year) override {
        Statement table =
            m_db.prepare(QStringLiteral("select 1 from sqlite_master where type = 'table' and name = '%1'").arg(year));
        return table.step();
    }

protected:
    void execute(const QString& sql) override { m_db.run(sql); }

    int latestYear() override {
        Statement tables = m_db.prepare(
            QStringLiteral("select max(cast(name as integer)) from sqlite_master where type = 'table' and name glob "
                           "'[0-9][0-9][0-9][0-9]'"));
        return tables.step() ? sqlite3_column_int(tables.get(), 0) : 0;
    }

    QStringList timestamps(int year) override {
        QStringList texts;
        Statement days = m_db.prepare(QStringLiteral("select distinct TIMESTAMP from \"%1\"").arg(year));
        while (days.step())
            texts << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(days.get(), 0)));
        return texts;
    }

    long long insertYear(const DayFile& day, int year) override {
        Statement insert =
            m_db.prepare(QStringLiteral("insert or ignore into \"%1\" (SYMBOL, SERIES, OPEN, HIGH, LOW, "
                                        "CLOSE, LAST, PREVCLOSE, TOTTRDQTY, TOTTRDVAL, TIMESTAMP) values "
                                        "(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)")
                             .arg(year));
        sqlite3_stmt* s = insert.get();
        long long added = 0;
        for (const DayRow& row : day.rows) {
            if (row.day.year() != year)
                continue;
            sqlite3_reset(s);
            bindField(s, 1, Variant(row.SYMBOL));
            bindField(s, 2, Variant(row.SERIES));
            for (int i = 0; i < 8; ++i) sqlite3_bind_double(s, i + 3, row.numbers[static_cast<std::size_t>(i)]);
            bindField(s, 11, Variant(row.TIMESTAMP));
            insert.step();
            added += sqlite3_changes(m_db.handle());
        }
        m_db.noteWrite();
        return added;
    }

private:
    SqliteConnection m_db;
};

}  // namespace

std::unique_ptr<DayStore> openSqliteDayStore(const QString& path) {
    QDir().mkpath(QFileInfo(path).absolutePath());
    return std::make_unique<SqliteDayStore>(path);
}

}  // namespace ostravel
