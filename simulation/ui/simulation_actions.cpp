#include "simulation/ui/simulation_actions.h"

#include <QMainWindow>
#include <QPointer>

#include "context/program.h"
#include "market/history.h"
#include "position/equitymanager_actions.h"
#include "simulation/frame_commands.h"
#include "simulation/ui/results_view.h"
#include "simulation/ui/run_progress.h"

namespace ostravel {

namespace {

template <class Command>
void onFrame(Program& program, QMainWindow* frame, Command&& command) {
    {
        RunProgress progress(program, frame);
        command(program);
    }
    program.frame().showChanges();
    if (frame)
        for (SimulationResultsView* results : frame->findChildren<SimulationResultsView*>()) results->refresh();
}

}  // namespace

void runSimulationOnFrame(Program& program, QMainWindow* frame) {
    onFrame(program, frame, cdmrunsimulation_Click);
}

void getHistoryOnFrame(Program& program, QMainWindow* frame) {
    onFrame(program, frame, Command1_Click);
}

void runAgainOnFrame(Program& program, QMainWindow* frame) {
    onFrame(program, frame, runsimulation);
}

void installSimulationRequests(Program& program, QMainWindow* frame) {
    const QPointer<QMainWindow> window(frame);
    SimulationRequests& requests = program.module<SimulationRequests>();
    requests.cdmrunsimulation = [&program, window] { runSimulationOnFrame(program, window); };
    requests.runsimulation = [&program, window] { runAgainOnFrame(program, window); };
    program.module<HistoryState>().Command1_Click = [&program, window] { getHistoryOnFrame(program, window); };
}

}  // namespace ostravel
