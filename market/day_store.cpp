#include "market/day_store.h"

#include <QDir>
#include <set>

#include "market/hosts.h"
#include "runtime/apppath.h"
#include "runtime/trap.h"
#include "runtime/vbdate.h"

namespace ostravel {

DayStoreSettings dayStoreSettings() {
    const QString section = QStringLiteral("DayStore");
    return {hostsIniValue(section, QStringLiteral("host")), hostsIniValue(section, QStringLiteral("port")),
            hostsIniValue(section, QStringLiteral("database")), hostsIniValue(section, QStringLiteral("user"))};
}

QString dayFileFolder() {
    QString folder = hostsIniValue(QStringLiteral("DayStore"), QStringLiteral("folder"));
    if (folder.isEmpty())
        folder = QStringLiteral("history/bhav");
    return QDir::isAbsolutePath(folder) ? QDir::cleanPath(folder) : appFile(folder);
}

std::unique_ptr<DayStore> openDayStore() {
    const DayStoreSettings settings = dayStoreSettings();
    if (settings.host.isEmpty())
        return openSqliteDayStore(appFile(kDayStoreFile));
    return openPostgresDayStore(settings);
}

namespace {

QString createYearTableSql(int year) {
    return QStringLiteral(
               "create table if not exists \"%1\" (SYMBOL text not null, SERIES text not null, OPEN double precision, "
               "HIGH double precision, LOW double precision, CLOSE double precision, LAST double precision, "
               "PREVCLOSE double precision, TOTTRDQTY double precision, TOTTRDVAL double precision, "
               "TIMESTAMP text not null, unique (SYMBOL, SERIES, TIMESTAMP))")
        .arg(year);
}

}  // namespace

std::optional<QDate> DayStore::lastDay() {
    const int year = latestYear();
    if (year == 0)
        return std::nullopt;
    std::optional<QDate> last;
    for (const QString& text : timestamps(year))
        if (const auto serial = parseDate(text); serial && (!last || serialToDate(*serial) > *last))
            last = serialToDate(*serial);
    return last;
}

void DayStore::indexDays(int year) {
    execute(QStringLiteral("create index if not exists \"%1_day\" on \"%1\" (TIMESTAMP)").arg(year));
}

std::map<QString, DayStore::Close> DayStore::latestCloses(const QStringList& symbols) {
    std::map<QString, Close> found;
    if (symbols.isEmpty())
        return found;
    QStringList quoted;
    for (const QString& symbol : symbols)
        quoted << QLatin1Char('\'') + QString(symbol).replace(QLatin1Char('\''), QStringLiteral("''")) +
                      QLatin1Char('\'');
    std::map<QString, bool> fromEq;
    const int latest = latestYear();
    for (int year = latest; year > 0 && year >= latest - 1 && found.size() < std::size_t(symbols.size()); --year) {
        if (!hasYear(year))
            continue;
        const Rows rows = select(QStringLiteral("select SYMBOL, SERIES, CLOSE, TOTTRDQTY, TIMESTAMP from \"%1\" where "
                                                "SYMBOL in (%2)")
                                     .arg(year)
                                     .arg(quoted.join(QLatin1Char(','))));
        std::map<QString, Close> ofYear;
        for (const auto& row : rows) {
            const auto serial = parseDate(row[4].toString());
            if (!serial)
                continue;
            const QString symbol = row[0].toString();
            const bool eq = row[1].toString() == QLatin1String("EQ");
            const QDate day = serialToDate(*serial);
            auto it = ofYear.find(symbol);
            if (it == ofYear.end() || day > it->second.day || (day == it->second.day && eq && !fromEq[symbol])) {
                ofYear[symbol] =
                    Close{row[2].isNull() ? 0 : row[2].toDouble(), row[3].isNull() ? 0 : row[3].toDouble(), day};
                fromEq[symbol] = eq;
            }
        }
        for (auto& [symbol, close] : ofYear) found.try_emplace(symbol, close);
    }
    return found;
}

long long DayStore::load(const DayFile& day) {
    std::set<int> years;
    for (const DayRow& row : day.rows) years.insert(row.day.year());
    execute(QStringLiteral("begin"));
    long long added = 0;
    const bool done = trapped(
        [&] {
            for (const int year : years) {
                execute(createYearTableSql(year));
                indexDays(year);
                added += insertYear(day, year);
            }
            execute(QStringLiteral("commit"));
        },
        [&](const VbError& e) {
            passedOver([&] { execute(QStringLiteral("rollback")); });
            throw e;
        });
    return done ? added : 0;
}

}  // namespace ostravel
