// A whole simulation run over RELIANCE's 6811 days, from the loaded table to the narrative:
// every day's figures written as text and read back, simtrades and compare written, as the
// program runs it. Beside it the floor, measured in the same run: the same rule on plain
// doubles, with neither text nor tables. Then the heap in use during the day loop, sampled
// as the run goes, for a run of a quarter of the days and for the whole: flat means that it
// does not grow with the days.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <QTemporaryDir>
#include <cmath>
#include <cstdio>
#include <vector>

#include "context/program.h"
#include "market/history.h"
#include "market/history_import.h"
#include "market/load_history.h"
#include "position/equitymanager.h"
#include "runtime/apppath.h"
#include "runtime/scripted_prompt.h"
#include "runtime/vbdate.h"
#include "runtime/vberror.h"
#include "simulation/narrative.h"
#include "simulation/simulation_run.h"

namespace ostravel {
namespace {

// The program on a folder of its own, with RELIANCE's history loaded into simulation.
struct Folder {
    Folder() {
        setAppPath(dir.path());
        program.store().connection();
        importHistoryFile(QStringLiteral(OSTRAVEL_TEST_DATA "/history/RELIANCE.csv"), QStringLiteral("RELIANCE"));
        program.frame().cmbequity = QStringLiteral("RELIANCE.NS");
        LoadHistoryFile(program);
        EquityManager& em = program.module<EquityManager>();
        em.load();
        for (const StockRecord& day : program.module<HistoryState>().StockData) closes.push_back(day.Close);
    }
    // A run from the first day to `end` (a day serial), with its narrative.
    std::int64_t run(double end) {
        EquityManager& em = program.module<EquityManager>();
        em.dtbdate = 0;
        em.dtedate = end;
        runsimulation(program);
        benchmark::DoNotOptimize(
            narrative(program, QStringLiteral("Reliance Industries Limited"), [](const VbError&) {}));
        return program.module<SimulationRun>().daysDone;
    }
    QTemporaryDir dir;
    ScriptedPrompt prompt;
    Program program{prompt};
    std::vector<double> closes;
};

Folder& folder() {
    static Folder f;
    return f;
}

constexpr double kLastDay = 100000;  // a day serial beyond every history

void perDay(benchmark::State& state, std::int64_t days) {
    state.counters["days"] = double(days);
    state.counters["per_day"] =
        benchmark::Counter(double(days), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void RunSimulation6811(benchmark::State& state) {
    Folder& f = folder();
    std::int64_t days = 0;
    for (auto _ : state) days = f.run(kLastDay);
    if (days != 6800 || !f.prompt.asked().isEmpty())
        state.SkipWithError("the run did not make its 6800 steps in silence");
    perDay(state, days);
}
BENCHMARK(RunSimulation6811)->Unit(benchmark::kMillisecond);

// The floor: the rule of a simulated day and both investors' profits, on plain numbers.
struct PlainRun {
    double control = 0, control0 = 0, cash = 0, cps = 0;
    long shares = 0, trades = 0;
    std::vector<double> profits;

    void run(const std::vector<double>& closes) {
        const double first = closes.front();
        const long beginShares = std::lround(50000 / first);
        shares = beginShares;
        cash = first * double(beginShares);
        control = control0 = cash;
        cps = first;
        const double beginTotal = 2 * cash;
        const double resist = 10;
        profits.assign(2 * (closes.size() - 1), 0);
        for (std::size_t day = 0; day + 1 < closes.size(); ++day) {
            const double price = closes[day];
            const double value = price * double(shares);
            const double threshold = control / control0 * 1000;
            const double sell = (value - control) - value * resist / 100;
            const double buy = (control - value) - value * resist / 100;
            if (threshold < sell) {
                const long n = std::lround(sell / price);
                cash += price * double(n);
                cps = shares - n != 0 ? (cps * double(shares) - price * double(n)) / double(shares - n) : cps;
                shares -= n;
                ++trades;
            } else if (threshold < buy && cash > buy) {
                const long n = std::lround(buy / price);
                cash -= price * double(n);
                control += price * double(n) / 2;
                cps = (cps * double(shares) + price * double(n)) / double(shares + n);
                shares += n;
                ++trades;
            }
            profits[2 * day] = (price - first) * double(beginShares) * 2;
            profits[2 * day + 1] = cash + value - beginTotal;
        }
    }
};

void PlainRule6811(benchmark::State& state) {
    const std::vector<double>& closes = folder().closes;
    PlainRun run;
    for (auto _ : state) {
        run.run(closes);
        benchmark::DoNotOptimize(run.profits.data());
    }
    perDay(state, std::int64_t(closes.size()) - 1);
}
BENCHMARK(PlainRule6811)->Unit(benchmark::kMicrosecond);

// The heap in use (glibc's count of allocated bytes) at each progress call of a run.
struct HeapDuringRun {
    std::size_t first = 0;
    std::size_t most = 0;
    std::size_t last = 0;
    std::int64_t days = 0;
};

HeapDuringRun heapDuring(double end) {
    Folder& f = folder();
    HeapDuringRun heap;
    f.program.module<SimulationRun>().progress = [&heap](std::int64_t, std::int64_t) {
        const std::size_t used = mallinfo2().uordblks;
        if (heap.first == 0)
            heap.first = used;
        heap.most = std::max(heap.most, used);
        heap.last = used;
        return true;
    };
    heap.days = f.run(end);
    f.program.module<SimulationRun>().progress = {};
    return heap;
}

void printHeap() {
    Folder& f = folder();
    const std::vector<StockRecord>& days = f.program.module<HistoryState>().StockData;
    const double quarter = parseDate(days[days.size() / 4].Date).value_or(0);
    std::printf("\nHeap in use during the day loop, from its first progress call on (bytes):\n");
    for (const double end : {quarter, kLastDay}) {
        const HeapDuringRun heap = heapDuring(end);
        std::printf("  %5lld days: at the first call %zu, the most %zu (+%zd), at the last call %zu (+%zd)\n",
                    static_cast<long long>(heap.days), heap.first, heap.most,
                    static_cast<std::ptrdiff_t>(heap.most - heap.first), heap.last,
                    static_cast<std::ptrdiff_t>(heap.last - heap.first));
    }
}

}  // namespace
}  // namespace ostravel

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    ostravel::printHeap();
    benchmark::Shutdown();
    return 0;
}
