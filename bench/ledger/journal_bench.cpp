// What the journal of changes costs: Add Trade on a holding of a database with its journal,
// beside the same on a copy whose journal is taken out, in the same run; and the bytes the
// journal adds to the file for each 1,000 trades.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <QFile>
#include <QFileInfo>

#include "bench/ledger/add_trades.h"
#include "bench/support/bench_folder.h"
#include "ledger/trade.h"
#include "store/database.h"
#include "store/journal.h"
#include "store/store.h"

namespace ostravel {
namespace {

const QString kPortfolio = QStringLiteral("Journal");
const QString kSymbol = QStringLiteral("INFY");

void execute(const QString& path, const QString& sql) {
    sqlite3* handle = nullptr;
    sqlite3_open_v2(QFile::encodeName(path).constData(), &handle, SQLITE_OPEN_READWRITE, nullptr);
    sqlite3_exec(handle, sql.toUtf8().constData(), nullptr, nullptr, nullptr);
    sqlite3_close(handle);
}

// Takes the journal's triggers and tables out of a closed file.
void removeJournal(const QString& path) {
    QString drop;
    for (const QString& table : journaledTables()) {
        for (const char* event : {"insert", "update", "delete"})
            drop += QStringLiteral("DROP TRIGGER journal_%1_%2;").arg(table, QString::fromLatin1(event));
        drop += QStringLiteral("DROP TABLE journal_%1;").arg(table);
    }
    execute(path, drop + QStringLiteral("DROP TABLE journal; DROP TABLE journal_now;"));
}

// The file's size once compacted, with or without its journal.
qint64 compactedSize(const QString& path, bool withJournal) {
    const QString copy = path + QStringLiteral(".measured");
    QFile::remove(copy);
    execute(path, QStringLiteral("VACUUM INTO '") + copy + QLatin1Char('\''));
    if (!withJournal) {
        removeJournal(copy);
        execute(copy, QStringLiteral("VACUUM"));
    }
    const qint64 size = QFileInfo(copy).size();
    QFile::remove(copy);
    return size;
}

void AddTradeOnAHolding(benchmark::State& state, bool journaled) {
    bench::BenchFolder folder([](Database& db) {
        bench::addPortfolio(db, kPortfolio);
        db.execute(
            QStringLiteral("insert into equity (fkPortfolioID, EquitySymbol, portname, VealieFlag, "
                           "OriginalPrice, OriginalShares, OriginalCash, CurrentShares, CurrentQuotePrice, "
                           "CurrentCash, PortControl) values (1, 'INFY', 'Journal', 1, 100, 200, 20000, 200, "
                           "100, 1000000000, 20000)"));
    });
    const QString path = folder.databasePath();
    const qint64 before = compactedSize(path, true) - compactedSize(path, false);
    {
        bench::RunningProgram run(kPortfolio, kSymbol);
        if (!journaled) {
            // The live file gets its journal whenever the program opens it: taken out behind it.
            run.program.store().closeDatabase();
            removeJournal(path);
            run.program.store().database().open(path);
            run.program.store().connection();
        }
        Trade& trade = run.program.module<Trade>();
        bench::addTrades(state, trade);
        if (trade.cmdadd.enabled || !run.prompt.asked().isEmpty())
            state.SkipWithError("the trade did not go through cleanly");
    }
    if (journaled)
        state.counters["journal_bytes_per_1000_trades"] =
            double(compactedSize(path, true) - compactedSize(path, false) - before) * 1000.0 /
            double(state.iterations());
}

void AddTradeJournaled(benchmark::State& state) {
    AddTradeOnAHolding(state, true);
}
BENCHMARK(AddTradeJournaled)->Unit(benchmark::kMillisecond)->Iterations(1000);

// The reference: the same trades on a file without its journal.
void AddTradeUnjournaled(benchmark::State& state) {
    AddTradeOnAHolding(state, false);
}
BENCHMARK(AddTradeUnjournaled)->Unit(benchmark::kMillisecond)->Iterations(1000);

}  // namespace
}  // namespace ostravel

BENCHMARK_MAIN();
