// connection on a grown database (500 holdings, 10,000 trades) beside the bare cost of
// opening the file and counting the rows of each table with SQLite alone.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <QFile>

#include "bench/support/bench_folder.h"
#include "runtime/reporterror.h"
#include "runtime/scripted_prompt.h"
#include "store/database.h"
#include "store/store.h"

namespace ostravel {
namespace {

constexpr int kPortfolios = 10;
constexpr int kHoldings = 500;
constexpr int kTradesPerHolding = 20;

void fillGrownFolder(Database& db) {
    for (int p = 1; p <= kPortfolios; ++p) bench::addPortfolio(db, QStringLiteral("Portfolio %1").arg(p));
    const auto symbols = db.openRecordset(QStringLiteral("select ticker from qoutense"));
    for (int h = 1; h <= kHoldings; ++h, symbols->moveNext()) {
        const int portfolio = (h - 1) % kPortfolios + 1;
        const QString symbol = symbols->field(0).toString();
        db.execute(QStringLiteral("insert into equity (fkPortfolioID, fkUserID, EquitySymbol, portname, "
                                  "OriginalPrice, OriginalShares, CurrentShares, EquityStartDate, VealieFlag) "
                                  "values (%1, 1, '%2', 'Portfolio %1', 100, 50, 50, #1/3/2005#, 1)")
                       .arg(portfolio)
                       .arg(symbol));
        for (int t = 0; t < kTradesPerHolding; ++t)
            bench::addTrade(db, h, symbol, QStringLiteral("Portfolio %1").arg(portfolio), {.quoted = true});
    }
}

// One program folder for the whole run, filled once.
bench::BenchFolder& folder() {
    static bench::BenchFolder grown(fillGrownFolder);
    return grown;
}

void Connection(benchmark::State& state) {
    folder();
    ScriptedPrompt prompt;
    ErrorReporter reporter(prompt);
    for (auto _ : state) {
        Store store(reporter);
        store.connection();
        benchmark::DoNotOptimize(store.users->field(0));
        store.closeDatabase();
    }
    if (!prompt.asked().isEmpty())
        state.SkipWithError("connection reported an error");
}
BENCHMARK(Connection)->Unit(benchmark::kMillisecond);

// The floor: open the file and count every table's rows, nothing checked or kept open.
void BareOpenAndCount(benchmark::State& state) {
    const QByteArray path = QFile::encodeName(folder().databasePath());
    const char* tables[] = {"users",        "portfolio",  "trades",  "equity",     "qoutense", "NiftyQuote",
                            "currentprice", "simulation", "compare", "NiftyQuote", "bank",     "\"transaction\""};
    for (auto _ : state) {
        sqlite3* handle = nullptr;
        sqlite3_open_v2(path.constData(), &handle, SQLITE_OPEN_READWRITE, nullptr);
        for (const char* table : tables) {
            sqlite3_stmt* statement = nullptr;
            const QByteArray sql = QByteArray("select count(*) from ") + table;
            sqlite3_prepare_v2(handle, sql.constData(), -1, &statement, nullptr);
            sqlite3_step(statement);
            benchmark::DoNotOptimize(sqlite3_column_int64(statement, 0));
            sqlite3_finalize(statement);
        }
        sqlite3_close(handle);
    }
}
BENCHMARK(BareOpenAndCount)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ostravel

BENCHMARK_MAIN();
