// advise on one holding of a grown folder (50 holdings, 20 trades each), statements and writes
// included, beside two floors measured in the same run: selecting that holding's row with
// SQLite alone, and storing one figure in it durably. advise stores its result, so that on a
// disk its time is that of one durable commit and its own work; the second figure of advise
// is that work alone, with the flushes to the disk turned off.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <QFile>

#include "bench/support/bench_folder.h"
#include "position/advice.h"
#include "store/database.h"

namespace ostravel {
namespace {

constexpr int kHoldings = 50;
constexpr int kTradesPerHolding = 20;
// Each advice adds a row to compare, which it reads whole; a simulation run empties it. The
// benchmark empties it as often, so that it measures a compare of at most this many rows.
constexpr int kCompareRows = 500;

const QString kPortfolio = QStringLiteral("Growth");

void fillGrownFolder(Database& db) {
    bench::addPortfolio(db, kPortfolio);
    for (int h = 1; h <= kHoldings; ++h) {
        const QString symbol = QStringLiteral("S%1").arg(h);
        db.execute(QStringLiteral("insert into equity (fkPortfolioID, fkUserID, EquitySymbol, portname, "
                                  "OriginalPrice, OriginalShares, OriginalCash, CurrentQuotePrice, CurrentCash, "
                                  "CurrentShares, PortControl, VealieFlag) "
                                  "values (1, 1, '%1', '%2', 100, 100, 4000, 120, 5000, 100, 10000, 1)")
                       .arg(symbol, kPortfolio));
        for (int t = 0; t < kTradesPerHolding; ++t)
            bench::addTrade(db, h, symbol, kPortfolio,
                            {.kind = t % 4 == 0 ? QStringLiteral("Sell") : QStringLiteral("Buy")});
    }
}

bench::BenchFolder& folder() {
    static bench::BenchFolder grown(fillGrownFolder);
    return grown;
}

void adviseRepeatedly(benchmark::State& state, bool flushed) {
    folder();
    bench::RunningProgram run(kPortfolio, QStringLiteral("S25"));
    Program& program = run.program;
    if (!flushed) {
        program.store().database().connection()->run(QStringLiteral("PRAGMA journal_mode=MEMORY"));
        program.store().database().connection()->run(QStringLiteral("PRAGMA synchronous=OFF"));
    }
    int sinceEmptied = 0;
    for (auto _ : state) {
        if (++sinceEmptied == kCompareRows) {
            state.PauseTiming();
            program.store().database().execute(QStringLiteral("delete * from compare"));
            sinceEmptied = 0;
            state.ResumeTiming();
        }
        benchmark::DoNotOptimize(advise(program));
    }
    if (!run.prompt.asked().isEmpty())
        state.SkipWithError("advise asked or reported something");
}

void Advise(benchmark::State& state) {
    adviseRepeatedly(state, true);
}
BENCHMARK(Advise)->Unit(benchmark::kMicrosecond);

void AdviseWithoutFlushes(benchmark::State& state) {
    adviseRepeatedly(state, false);
}
BENCHMARK(AdviseWithoutFlushes)->Unit(benchmark::kMicrosecond);

// The floor: one select of the holding row, by its symbol and portfolio, with SQLite alone.
void BareSelectOfTheHolding(benchmark::State& state) {
    const QByteArray path = QFile::encodeName(folder().databasePath());
    sqlite3* handle = nullptr;
    sqlite3_open_v2(path.constData(), &handle, SQLITE_OPEN_READWRITE, nullptr);
    for (auto _ : state) {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(handle, "select * from equity where EquitySymbol='S25' and portname = 'Growth'", -1,
                           &statement, nullptr);
        sqlite3_step(statement);
        benchmark::DoNotOptimize(sqlite3_column_double(statement, 0));
        sqlite3_finalize(statement);
    }
    sqlite3_close(handle);
}
BENCHMARK(BareSelectOfTheHolding)->Unit(benchmark::kMicrosecond);

// The floor of storing anything: one figure into the holding row, committed as durably as the
// store commits (rollback journal, full sync), with SQLite alone.
void BareDurableUpdateOfTheHolding(benchmark::State& state) {
    const QByteArray path = QFile::encodeName(folder().databasePath());
    sqlite3* handle = nullptr;
    sqlite3_open_v2(path.constData(), &handle, SQLITE_OPEN_READWRITE, nullptr);
    sqlite3_exec(handle, "PRAGMA journal_mode=DELETE; PRAGMA synchronous=FULL", nullptr, nullptr, nullptr);
    double price = 100;
    for (auto _ : state) {
        const QByteArray sql = QStringLiteral(
                                   "BEGIN IMMEDIATE; update equity set NextSellPrice=%1 "
                                   "where EquitySymbol='S25' and portname = 'Growth'; COMMIT")
                                   .arg(price += 0.01)
                                   .toUtf8();
        sqlite3_exec(handle, sql.constData(), nullptr, nullptr, nullptr);
    }
    sqlite3_close(handle);
}
BENCHMARK(BareDurableUpdateOfTheHolding)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace ostravel

BENCHMARK_MAIN();
