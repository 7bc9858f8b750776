// The day-file store: one table a year ([2021]) of the exchange's day files, in the SQLite file
// database/NSEHISTORY.mdb, or on a PostgreSQL server when hosts.ini's [DayStore] names one.
// A day loads in one transaction, and loading it again adds nothing.
#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "market/day_file.h"
#include "runtime/variant.h"

namespace ostravel {

inline const QString kDayStoreFile = QStringLiteral("database/NSEHISTORY.mdb");

class DayStore {
public:
    virtual ~DayStore() = default;
    // The latest TIMESTAMP that the store holds, in its latest year's table.
    std::optional<QDate> lastDay();
    // Adds the rows, each to its year's table; a row of the same SYMBOL, SERIES and TIMESTAMP
    // that is already there is passed over. Returns the rows added. Raises on failure, and then
    // nothing of the call is kept.
    long long load(const DayFile& day);

    // The rows of a query, numbers as doubles, texts as texts, missing values as Null.
    using Rows = std::vector<std::vector<Variant>>;
    virtual Rows select(const QString& sql) = 0;
    virtual bool hasYear(int year) = 0;
    // The index by day that the screeners' statements want; the load makes it for a new table.
    void indexDays(int year);

    // Each symbol's latest close in the store, the day's EQ row before another series; a symbol
    // the last two years' tables don't hold is left out.
    struct Close {
        double close = 0;
        double volume = 0;  // TOTTRDQTY
        QDate day;
    };
    std::map<QString, Close> latestCloses(const QStringList& symbols);

protected:
    // The engine's part: a statement, the year of the latest year's table (0: none), the
    // distinct TIMESTAMP texts of a year's table, and one year's rows of a day file.
    virtual void execute(const QString& sql) = 0;
    virtual int latestYear() = 0;
    virtual QStringList timestamps(int year) = 0;
    virtual long long insertYear(const DayFile& day, int year) = 0;
};

// PostgreSQL connection values from [DayStore]; host empty: the SQLite file.
struct DayStoreSettings {
    QString host;
    QString port;
    QString database;
    QString user;
};
DayStoreSettings dayStoreSettings();

// Where downloaded day files are kept: [DayStore] folder, below the program's folder unless
// absolute; history/bhav by default.
QString dayFileFolder();

std::unique_ptr<DayStore> openSqliteDayStore(const QString& path);
std::unique_ptr<DayStore> openPostgresDayStore(const DayStoreSettings& settings);
// The store that the deployment configures. Raises 3049 (with the server's words) when it
// can't be opened.
std::unique_ptr<DayStore> openDayStore();

}  // namespace ostravel
