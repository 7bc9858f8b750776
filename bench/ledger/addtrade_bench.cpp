// Add Trade on a portfolio of 500 holdings with 20 trades each: the trade written, the advice
// run and the overview refilled, as a click on "Add Trade" does. Beside it, in the same run, the
// overview's refill alone and the floor of writing the same two rows by plain SQLite.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <QFile>

#include "bench/ledger/add_trades.h"
#include "bench/support/bench_folder.h"
#include "ledger/portfolioexplorer.h"
#include "ledger/trade.h"
#include "store/database.h"

namespace ostravel {
namespace {

constexpr int kHoldings = 500;
constexpr int kTradesPerHolding = 20;
const QString kPortfolio = QStringLiteral("Large");

// One program folder for the whole run, filled once.
class LargePortfolio {
public:
    QString databasePath() const { return m_folder.databasePath(); }
    const QString& symbol() const { return m_symbol; }

private:
    void fill(Database& db) {
        bench::addPortfolio(db, kPortfolio);
        const auto symbols = db.openRecordset(QStringLiteral("select ticker from qoutense"));
        for (int h = 1; h <= kHoldings; ++h, symbols->moveNext()) {
            const QString symbol = symbols->field(0).toString();
            if (h == 1)
                m_symbol = symbol;
            // Cash enough for every buy of the run, so that no question stops one.
            db.execute(QStringLiteral(
                           "insert into equity (fkPortfolioID, EquitySymbol, portname, VealieFlag, OriginalPrice, "
                           "OriginalShares, OriginalCash, CurrentShares, CurrentQuotePrice, CurrentCash, PortControl, "
                           "cps, peratio, eps, div, volume) values (1, '%1', '%2', 1, 100, 200, 20000, 200, %3, "
                           "1000000000, 20000, 100, 101.25, 98.5, 150000, 120000)")
                           .arg(symbol, kPortfolio)
                           .arg(80 + h % 50));
            for (int t = 0; t < kTradesPerHolding; ++t)
                bench::addTrade(db, h, symbol, kPortfolio, {.commission = 8.45});
        }
    }

    QString m_symbol;
    bench::BenchFolder m_folder{[this](Database& db) { fill(db); }};
};

LargePortfolio& portfolio() {
    static LargePortfolio large;
    return large;
}

void AddTrade(benchmark::State& state) {
    bench::RunningProgram run(kPortfolio, portfolio().symbol());
    Trade& trade = run.program.module<Trade>();
    bench::addTrades(state, trade);
    if (trade.cmdadd.enabled || !run.prompt.asked().isEmpty() ||
        run.program.module<PortfolioExplorer>().MSFlexGrid1.rows() != kHoldings + 2)
        state.SkipWithError("the trade did not go through cleanly");
}
BENCHMARK(AddTrade)->Unit(benchmark::kMillisecond);

// The overview's refill alone, which Add Trade ends with.
void SelectPortfolio(benchmark::State& state) {
    bench::RunningProgram run(kPortfolio, portfolio().symbol());
    for (auto _ : state) {
        selectportfolio(run.program);
        benchmark::DoNotOptimize(run.program.module<PortfolioExplorer>().MSFlexGrid1.rows());
    }
}
BENCHMARK(SelectPortfolio)->Unit(benchmark::kMillisecond);

// The floor: the trade row and the holding's new figures by plain SQLite in one transaction.
void PlainTradeWrite(benchmark::State& state) {
    const QByteArray path = QFile::encodeName(portfolio().databasePath());
    const QByteArray symbol = portfolio().symbol().toUtf8();
    sqlite3* handle = nullptr;
    sqlite3_open_v2(path.constData(), &handle, SQLITE_OPEN_READWRITE, nullptr);
    sqlite3_exec(handle, "PRAGMA synchronous=FULL", nullptr, nullptr, nullptr);
    const QByteArray insert =
        "insert into trades (fkequityid, EquitySymbol, portname, TradeDate, Tradedshares, "
        "PricePerShare, Commission, Buyselltype, TradeQuotePrice) values (1, '" +
        symbol + "', 'Large', '2024-01-03', 3, 101.5, 2.59, 'Buy', 101.5)";
    const QByteArray update =
        "update equity set LastTradePrice=CurrentQuotePrice, CurrentQuotePrice=101.5, "
        "CurrentShares=CurrentShares+3, CurrentCash=CurrentCash-304.5, "
        "PortControl=PortControl+152.25 where EquitySymbol='" +
        symbol + "' and portname='Large'";
    for (auto _ : state) {
        sqlite3_exec(handle, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        sqlite3_exec(handle, insert.constData(), nullptr, nullptr, nullptr);
        sqlite3_exec(handle, update.constData(), nullptr, nullptr, nullptr);
        if (sqlite3_exec(handle, "COMMIT", nullptr, nullptr, nullptr) != SQLITE_OK)
            state.SkipWithError("the plain write failed");
    }
    sqlite3_close(handle);
}
BENCHMARK(PlainTradeWrite)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ostravel

BENCHMARK_MAIN();
