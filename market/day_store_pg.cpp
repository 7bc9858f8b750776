// The day-file store on a PostgreSQL server, through libpq. The password comes from the user's
// PostgreSQL password file, as libpq reads it.
#include <libpq-fe.h>

#include <QRegularExpression>
#include <memory>

#include "market/day_store.h"
#include "runtime/vberror.h"
#include "store/dberrors.h"

namespace ostravel {

namespace {

struct ResultDeleter {
    void operator()(PGresult* result) const { PQclear(result); }
};
using Result = std::unique_ptr<PGresult, ResultDeleter>;

// The server's type numbers of int2, int4, int8, float4, float8 and numeric.
bool isNumberType(Oid type) {
    return type == 20 || type == 21 || type == 23 || type == 700 || type == 701 || type == 1700;
}

class PostgresDayStore : public DayStore {
public:
    explicit PostgresDayStore(const DayStoreSettings& settings) {
        QString info = QStringLiteral("connect_timeout=10 application_name=Ostravel");
        const auto add = [&info](const char* key, const QString& value) {
            if (!value.isEmpty())
                info += QStringLiteral(" %1='%2'")
                            .arg(QLatin1String(key), QString(value).replace(QLatin1Char('\''), QStringLiteral("\\'")));
        };
        add("host", settings.host);
        add("port", settings.port);
        add("dbname", settings.database);
        add("user", settings.user);
        m_connection = PQconnectdb(info.toUtf8().constData());
        if (PQstatus(m_connection) != CONNECTION_OK)
            fail();
    }
    ~PostgresDayStore() override { PQfinish(m_connection); }

    Rows select(const QString& sql) override {
        // The statements name a year's table as [2021], which the server writes "2021".
        static const QRegularExpression bracketed(QStringLiteral("\\[(\\w+)\\]"));
        const Result result =
            exec(QString(sql).replace(bracketed, QStringLiteral("\"\\1\"")).toUtf8(), PGRES_TUPLES_OK);
        PGresult* r = result.get();
        Rows rows(std::size_t(PQntuples(r)));
        const int columns = PQnfields(r);
        for (int i = 0; i < PQntuples(r); ++i) {
            for (int c = 0; c < columns; ++c) {
                const QByteArray value(PQgetvalue(r, i, c));
                if (PQgetisnull(r, i, c))
                    rows[std::size_t(i)].push_back(Variant::null());
                else if (isNumberType(PQftype(r, c)))
                    rows[std::size_t(i)].emplace_back(value.toDouble());
                else
                    rows[std::size_t(i)].emplace_back(QString::fromUtf8(value));
            }
        }
        return rows;
    }

    bool hasYear(int year) override {
        const Result table = exec(QStringLiteral("select 1 from information_schema.tables where table_schema = "
                                                 "current_schema() and table_name = '%1'")
                                      .arg(year)
                                      .toUtf8(),
                                  PGRES_TUPLES_OK);
        return PQntuples(table.get()) > 0;
    }

protected:
    void execute(const QString& sql) override { exec(sql.toUtf8(), PGRES_COMMAND_OK); }

    int latestYear() override {
        const Result tables = exec(
            "select max(table_name::int) from information_schema.tables where table_schema = current_schema() "
            "and table_name ~ '^[0-9]{4}$'",
            PGRES_TUPLES_OK);
        return PQgetisnull(tables.get(), 0, 0) ? 0 : QByteArray(PQgetvalue(tables.get(), 0, 0)).toInt();
    }

    QStringList timestamps(int year) override {
        const Result days =
            exec(QStringLiteral("select distinct TIMESTAMP from \"%1\"").arg(year).toUtf8(), PGRES_TUPLES_OK);
        QStringList texts;
        for (int i = 0; i < PQntuples(days.get()); ++i) texts << QString::fromUtf8(PQgetvalue(days.get(), i, 0));
        return texts;
    }

    // The year's rows in one statement: eleven parallel arrays, unnested.
    long long insertYear(const DayFile& day, int year) override {
        std::array<QByteArray, 11> arrays;
        for (QByteArray& array : arrays) array = "{";
        const auto text = [](const QString& value) {
            QByteArray quoted = value.toUtf8();
            quoted.replace("\\", "\\\\").replace("\"", "\\\"");
            return '"' + quoted + '"';
        };
        for (const DayRow& row : day.rows) {
            if (row.day.year() != year)
                continue;
            const bool first = arrays[0].size() == 1;
            const auto append = [&](std::size_t column, const QByteArray& value) {
                arrays[column] += (first ? "" : ",") + value;
            };
            append(0, text(row.SYMBOL));
            append(1, text(row.SERIES));
            for (std::size_t i = 0; i < 8; ++i) append(i + 2, QByteArray::number(row.numbers[i], 'g', 17));
            append(10, text(row.TIMESTAMP));
        }
        for (QByteArray& array : arrays) array += '}';
        const QByteArray sql =
            QStringLiteral(
                "insert into \"%1\" (SYMBOL, SERIES, OPEN, HIGH, LOW, CLOSE, LAST, PREVCLOSE, TOTTRDQTY, TOTTRDVAL, "
                "TIMESTAMP) select * from unnest($1::text[], $2::text[], $3::float8[], $4::float8[], $5::float8[], "
                "$6::float8[], $7::float8[], $8::float8[], $9::float8[], $10::float8[], $11::text[]) "
                "on conflict do nothing")
                .arg(year)
                .toUtf8();
        std::array<const char*, 11> values{};
        for (std::size_t i = 0; i < arrays.size(); ++i) values[i] = arrays[i].constData();
        const Result result(
            PQexecParams(m_connection, sql.constData(), 11, nullptr, values.data(), nullptr, nullptr, 0));
        check(result.get(), PGRES_COMMAND_OK);
        return QByteArray(PQcmdTuples(result.get())).toLongLong();
    }

private:
    Result exec(const QByteArray& sql, ExecStatusType wanted) {
        Result result(PQexec(m_connection, sql.constData()));
        check(result.get(), wanted);
        return result;
    }

    void check(PGresult* result, ExecStatusType wanted) {
        if (PQresultStatus(result) != wanted)
            fail();
    }

    [[noreturn]] void fail() {
        raise(dberr::CannotOpen,
              QStringLiteral("The day-file store: ") + QString::fromUtf8(PQerrorMessage(m_connection)).trimmed());
    }

    PGconn* m_connection = nullptr;
};

}  // namespace

std::unique_ptr<DayStore> openPostgresDayStore(const DayStoreSettings& settings) {
    return std::make_unique<PostgresDayStore>(settings);
}

}  // namespace ostravel
