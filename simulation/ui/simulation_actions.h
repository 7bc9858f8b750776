// The simulation's commands on the screen: each runs with its progress on the main frame, and
// the results page shows the new run afterwards.
#pragma once

class QMainWindow;

namespace ostravel {

class Program;

// "Run Simulation", "Get History", and a run over the history as it stands ("Recalculate"
// under "Simulation").
void runSimulationOnFrame(Program& program, QMainWindow* frame);
void getHistoryOnFrame(Program& program, QMainWindow* frame);
void runAgainOnFrame(Program& program, QMainWindow* frame);

// The hooks by which lower screens reach these: the equity manager's "Run Simulation" and
// "Recalculate", and "Get History All", which runs "Get History" for each stock.
void installSimulationRequests(Program& program, QMainWindow* frame);

}  // namespace ostravel
