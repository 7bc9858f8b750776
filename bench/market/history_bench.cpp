// Market data's heavy steps beside a floor measured in the same run: LoadHistoryFile of
// RELIANCE's 6811 days against a bare SQLite insert of the same rows in one transaction;
// ParseAndSaveData of an 8-page answer (1600 rows); one exchange day file into the store.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <QFile>
#include <QTemporaryDir>

#include "context/program.h"
#include "market/day_store.h"
#include "market/history.h"
#include "market/load_history.h"
#include "market/parse_history.h"
#include "market/update_history.h"
#include "runtime/apppath.h"
#include "runtime/scripted_prompt.h"
#include "store/database.h"

namespace ostravel {
namespace {

QByteArray dataFile(const char* relative) {
    QFile file(QStringLiteral(OSTRAVEL_TEST_DATA "/") + QLatin1String(relative));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The program on a folder of its own, with RELIANCE's history file in place.
struct Folder {
    Folder() {
        setAppPath(dir.path());
        program.store().connection();
        program.frame().cmbequity = QStringLiteral("RELIANCE.NS");
        program.module<HistoryState>().DataBuffer = "HTTP/1.1 200 OK\r\n\r\n" + dataFile("history/RELIANCE.csv");
        ParseAndSaveData(program);
    }
    QTemporaryDir dir;
    ScriptedPrompt prompt;
    Program program{prompt};
};

Folder& folder() {
    static Folder f;
    return f;
}

void LoadHistoryFile6811(benchmark::State& state) {
    Program& program = folder().program;
    for (auto _ : state)
        if (!LoadHistoryFile(program))
            state.SkipWithError("the history did not load");
    if (program.module<HistoryState>().LastIdx != 6810)
        state.SkipWithError("not 6811 days");
}
BENCHMARK(LoadHistoryFile6811)->Unit(benchmark::kMillisecond);

// The floor: the same rows, already parsed, by plain SQLite in one transaction.
void PlainInsert6811(benchmark::State& state) {
    const std::vector<StockRecord> rows = folder().program.module<HistoryState>().StockData;
    sqlite3* db = nullptr;
    sqlite3_open_v2(QFile::encodeName(folder().dir.filePath(QStringLiteral("database/ostravel.mdb"))).constData(), &db,
                    SQLITE_OPEN_READWRITE, nullptr);
    sqlite3_stmt* insert = nullptr;
    sqlite3_prepare_v2(db,
                       "insert into simulation (date, Open, High, Low, Close, Volume, EquitySymbol) values "
                       "(?, ?, ?, ?, ?, ?, 'RELIANCE')",
                       -1, &insert, nullptr);
    for (auto _ : state) {
        sqlite3_exec(db, "BEGIN IMMEDIATE; delete from simulation", nullptr, nullptr, nullptr);
        for (const StockRecord& r : rows) {
            sqlite3_reset(insert);
            const QByteArray date = r.Date.toLatin1();
            sqlite3_bind_text(insert, 1, date.constData(), static_cast<int>(date.size()), SQLITE_TRANSIENT);
            const double values[] = {r.Open, r.High, r.Low, r.Close, static_cast<double>(r.Volume)};
            for (int i = 0; i < 5; ++i) sqlite3_bind_double(insert, i + 2, values[i]);
            sqlite3_step(insert);
        }
        sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
    }
    sqlite3_finalize(insert);
    sqlite3_close(db);
}
BENCHMARK(PlainInsert6811)->Unit(benchmark::kMillisecond);

// Eight answers of 200 rows each, newest first, each with its status line and headers.
QByteArray eightPages() {
    const QList<QByteArray> lines = dataFile("history/RELIANCE.csv").split('\n');
    QByteArray answer;
    for (int page = 0; page < 8; ++page) {
        answer +=
            "HTTP/1.1 200 OK\r\nDate: Mon, 16 Jan 2023 10:00:00 GMT\r\nP3P: policyref=\"x\", CP=\"CAO\"\r\n"
            "Content-Type: text/csv\r\n\r\nDate,Open,High,Low,Close,Volume,Adj Close\n";
        for (int row = 0; row < 200; ++row) answer += lines.at(lines.size() - 1 - page * 200 - row) + '\n';
    }
    return answer;
}

void ParseAndSaveData8Pages(benchmark::State& state) {
    Program& program = folder().program;
    const QByteArray answer = eightPages();
    program.frame().cmbequity = QStringLiteral("PAGES");
    for (auto _ : state) {
        program.module<HistoryState>().DataBuffer = answer;
        ParseAndSaveData(program);
    }
    program.frame().cmbequity = QStringLiteral("RELIANCE.NS");
}
BENCHMARK(ParseAndSaveData8Pages)->Unit(benchmark::kMillisecond);

// The same without the file: the parse alone.
void HistoryFileBytes8Pages(benchmark::State& state) {
    const QByteArray answer = eightPages();
    for (auto _ : state) benchmark::DoNotOptimize(historyFileBytes(answer));
}
BENCHMARK(HistoryFileBytes8Pages)->Unit(benchmark::kMillisecond);

void DayFileIntoStore(benchmark::State& state) {
    const QByteArray text = dataFile("bhav/cm23MAR2021bhav.csv");
    static int round = 0;  // the function runs more than once: each round a new file
    for (auto _ : state) {
        state.PauseTiming();
        const auto store = openSqliteDayStore(folder().dir.filePath(QStringLiteral("day%1.mdb").arg(round++)));
        state.ResumeTiming();
        const long long added = loadDayText(*store, text).added;
        if (added != 2033) {
            state.SkipWithError(QStringLiteral("the day loaded %1 rows, not 2033").arg(added).toStdString().c_str());
            break;
        }
    }
}
BENCHMARK(DayFileIntoStore)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ostravel

BENCHMARK_MAIN();
