// One run of the rule over the history in the table simulation: runsimulation and its day loop
// daily, with Module3's values of a run. The trades go to simtrades, the days to compare, the
// figures to equitymanager.
#pragma once

#include <QString>
#include <cstdint>
#include <functional>

#include "simulation/run_reporter.h"

namespace ostravel {

class Program;
class Recordset;

inline const QString kHistoryNotComplete = QStringLiteral("History is not Complete for the Selected Period");

// How a run ended; NotRun when nothing was there to run on.
enum class RunOutcome { NotRun, Completed, Stopped, NotComplete };

struct SimulationRun {
    explicit SimulationRun(Program& program);

    std::int64_t simrows = 0;  // the rows of simulation, then those from the first day on
    double simbegin = 0;       // the period, from dtbdate and dtedate
    double simend = 0;

    // Set by the screens for a run: called every so many days with the days done and the most
    // days the run can make; false stops the run, which then ends cleanly on the days done.
    std::function<bool(std::int64_t done, std::int64_t most)> progress;

    // The last run: how it ended and the days it simulated.
    RunOutcome outcome = RunOutcome::NotRun;
    std::int64_t daysDone = 0;
    std::int64_t daysMost = 0;

    // The errors of the run's days, each shown once a run.
    RunReporter reporter;

    // The day the run stands on: the current row of the store's simulation recordset.
    Recordset& day();

private:
    Program& m_program;
};

// One run over what simulation holds, from dtbdate to dtedate of equitymanager; its writes go
// in as one unit. NotComplete when no day lies on or after the begin date: the message has
// been shown, and the screen keeps the figures of the last run.
RunOutcome runsimulation(Program& program);

}  // namespace ostravel
