// selectportfolio over a portfolio of 500 holdings with 20 trades each, beside the floor of
// reading the same rows, commissions summed, by one plain SQLite query.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <QFile>

#include "bench/support/bench_folder.h"
#include "ledger/portfolioexplorer.h"
#include "store/database.h"

namespace ostravel {
namespace {

constexpr int kHoldings = 500;
constexpr int kTradesPerHolding = 20;
const QString kPortfolio = QStringLiteral("Large");

void fillLargePortfolio(Database& db) {
    bench::addPortfolio(db, kPortfolio);
    const auto symbols = db.openRecordset(QStringLiteral("select ticker from qoutense"));
    for (int h = 1; h <= kHoldings; ++h, symbols->moveNext()) {
        const QString symbol = symbols->field(0).toString();
        // Prices spread so that profits fall on both sides of 0.
        db.execute(QStringLiteral("insert into equity (fkPortfolioID, fkUserID, EquitySymbol, portname, OriginalPrice, "
                                  "OriginalShares, OriginalCash, CurrentShares, CurrentQuotePrice, CurrentCash, "
                                  "peratio, eps, div, volume) values (1, 1, '%1', '%2', 100, 50, 10000, 250, %3, "
                                  "9000.5, 101.25, 98.5, 150000, 120000)")
                       .arg(symbol, kPortfolio)
                       .arg(80 + h % 50));
        for (int t = 0; t < kTradesPerHolding; ++t) bench::addTrade(db, h, symbol, kPortfolio, {.commission = 8.45});
    }
}

// One program folder for the whole run, filled once.
bench::BenchFolder& portfolio() {
    static bench::BenchFolder large(fillLargePortfolio);
    return large;
}

void SelectPortfolio(benchmark::State& state) {
    portfolio();
    bench::RunningProgram run(kPortfolio);
    Program& program = run.program;
    for (auto _ : state) {
        selectportfolio(program);
        benchmark::DoNotOptimize(program.module<PortfolioExplorer>().MSFlexGrid1.rows());
    }
    if (program.module<PortfolioExplorer>().MSFlexGrid1.rows() != kHoldings + 2 || !run.prompt.asked().isEmpty())
        state.SkipWithError("the overview was not filled cleanly");
}
BENCHMARK(SelectPortfolio)->Unit(benchmark::kMillisecond);

// The floor: the holdings with their commission sums in one statement, every column read.
void PlainQuery(benchmark::State& state) {
    const QByteArray path = QFile::encodeName(portfolio().databasePath());
    sqlite3* handle = nullptr;
    sqlite3_open_v2(path.constData(), &handle, SQLITE_OPEN_READONLY, nullptr);
    const char* sql =
        "select e.portname, e.EquitySymbol, e.CurrentShares, e.CurrentQuotePrice, e.CurrentCash, e.OriginalPrice, "
        "e.OriginalShares, e.OriginalCash, e.NextBuyPrice, e.NextBuyShares, e.NextSellPrice, e.NextSellShares, "
        "e.peratio, e.eps, e.div, e.volume, (select sum(Commission) from trades t where t.EquitySymbol = "
        "e.EquitySymbol and t.portname = e.portname) from equity e where e.portname = 'Large'";
    for (auto _ : state) {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(handle, sql, -1, &statement, nullptr);
        int rows = 0;
        while (sqlite3_step(statement) == SQLITE_ROW) {
            for (int col = 0; col < sqlite3_column_count(statement); ++col)
                benchmark::DoNotOptimize(sqlite3_column_text(statement, col));
            ++rows;
        }
        sqlite3_finalize(statement);
        if (rows != kHoldings)
            state.SkipWithError("the plain query missed rows");
    }
    sqlite3_close(handle);
}
BENCHMARK(PlainQuery)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ostravel

BENCHMARK_MAIN();
