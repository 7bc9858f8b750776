// The main frame's simulation commands: "Run Simulation" with its narrative, "Get History"
// without it, and mainprocedures, which brings the history in and runs the rule over it.
#pragma once

#include "context/controls.h"
#include "simulation/simulation_run.h"

namespace ostravel {

class Program;

inline const QString kStockCodeWrong = QStringLiteral("Stock Code is Wrong");

// The frame's two buttons of the simulation, which a run enables and disables.
struct SimulationButtons {
    Button Command1{QStringLiteral("Get History")};
    Button cdmrunsimulation{QStringLiteral("Run Simulation")};
};

// The history of the stock in work (from the service when online and HistoryDL is 0, else from
// its file), then a run over it. NotRun when the download failed, or when nothing was loaded
// and simulation still holds an earlier history, which may be another stock's.
RunOutcome mainprocedures(Program& program);

// "Run Simulation": equitymanager arranged for a simulation, the rule's settings, the history
// and the run, the company's name in the frame's caption, the narrative in lblsimulation.
RunOutcome cdmrunsimulation_Click(Program& program);

// "Get History": the same without the narrative.
RunOutcome Command1_Click(Program& program);

}  // namespace ostravel
