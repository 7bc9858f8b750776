#include "simulation/frame_commands.h"

#include "context/program.h"
#include "context/screens.h"
#include "market/doevents.h"
#include "market/gethistory.h"
#include "market/history.h"
#include "position/equitymanager.h"
#include "runtime/trap.h"
#include "simulation/narrative.h"
#include "store/sqltext.h"

namespace ostravel {

namespace {

const QString kMainPlace = QStringLiteral("(Module) Module3::Sub mainprocedures");
// Kept: "Run Simulation" reports under the name of "Get History", with blanks after it.
const QString kRunPlace = QStringLiteral("(Form) MDIForm1::Sub Command1_Click             ");
const QString kGetHistoryPlace = QStringLiteral("(Form) MDIForm1::Sub Command1_Click");
const QString kEnterEquity = QStringLiteral("Enter Equity");
constexpr int kYields = 3;

// equitymanager as a simulation shows it: the run's button, no settings, no trade to add, the
// current position beside the beginning, and with a narrative its label.
void arrangeForSimulation(EquityManager& em, bool narrative) {
    em.load();
    em.Command3.enabled = true;
    em.Frame2_0Visible = false;
    em.cmdaddtrade.enabled = false;
    em.Frame2_1BesideFrame1 = true;
    if (narrative)
        em.lblsimulation.visible = true;
}

// The company of the stock in work; a code that is not in the list raises 3021.
QString companyName(Program& program) {
    const auto names =
        program.store().database().openRecordset(QStringLiteral("select name from qoutense where ticker='") +
                                                 sqlText(program.frame().equitySymbol()) + QStringLiteral("';"));
    return names->field(0).toString();
}

void chooseSimulation(MainFrame& frame) {
    frame.cmbportfolio.text = MainFrame::kSimulation;
    frame.cmbportfolio_Change();
}

// The screen comes forward and the status bar names the simulation, and says when the run
// was stopped before its end.
void showSimulation(Program& program, RunOutcome outcome) {
    program.module<Screens>().show(QStringLiteral("equitymanager"));
    MainFrame& frame = program.frame();
    frame.panel6 = QStringLiteral("Simulation of ") + frame.caption;
    if (outcome == RunOutcome::Stopped) {
        const SimulationRun& run = program.module<SimulationRun>();
        frame.panel6 += QStringLiteral(" - stopped after %1 of %2 days; simtrades and compare hold the days done")
                            .arg(run.daysDone)
                            .arg(run.daysMost);
    }
    frame.showChanges();
}

// Whether simulation holds rows of another stock than the one in work.
bool holdsAnotherStock(Program& program) {
    const auto first = program.store().database().openRecordset(QStringLiteral("select EquitySymbol from simulation"));
    return !first->eof() && first->field(0).toString() != program.frame().equitySymbol();
}

}  // namespace

RunOutcome mainprocedures(Program& program) {
    RunOutcome outcome = RunOutcome::NotRun;
    trapped(program.reporter(), kMainPlace, [&] {
        const HistoryLoad load = historyIntoSimulation(program);
        // A download that failed says so in the caption, and nothing more happens.
        if (load == HistoryLoad::DownloadFailed)
            return;
        // With nothing loaded, an earlier stock's history must not run under this one's name.
        if (load == HistoryLoad::NotLoaded && holdsAnotherStock(program))
            return;
        outcome = runsimulation(program);
        program.frame().showChanges();
    });
    return outcome;
}

RunOutcome cdmrunsimulation_Click(Program& program) {
    MainFrame& frame = program.frame();
    if (frame.cmbequity == kEnterEquity)
        return RunOutcome::NotRun;
    EquityManager& em = program.module<EquityManager>();
    const auto failed = [&](const VbError& e) {
        switch (e.number()) {
            case err::TypeMismatch:
                return;
            case err::NoCurrentRecord: {
                // The narrative is still written, under the caption as it was.
                program.prompt().inform(kStockCodeWrong);
                const HistoryState& history = program.module<HistoryState>();
                if (history.focusCmbequity)
                    history.focusCmbequity();
                return;
            }
            default:
                program.reporter().report(e, kRunPlace);
        }
    };
    const auto statement = [&](auto&& body) { trapped(body, failed); };

    statement([&] { arrangeForSimulation(em, true); });
    loadusersetting(program);
    const RunOutcome outcome = mainprocedures(program);
    em.lblsimulation.caption.clear();
    statement([&] { chooseSimulation(frame); });
    statement([&] { frame.caption = companyName(program); });
    em.lblsimulation.caption = narrative(program, frame.caption, failed);
    em.lblsimulation.enabled = true;
    showSimulation(program, outcome);
    program.module<SimulationButtons>().Command1.enabled = true;
    frame.showChanges();
    return outcome;
}

RunOutcome Command1_Click(Program& program) {
    MainFrame& frame = program.frame();
    if (frame.cmbequity == kEnterEquity || frame.cmbequity.isEmpty())
        return RunOutcome::NotRun;
    SimulationButtons& buttons = program.module<SimulationButtons>();
    const auto statement = [&](auto&& body) { trapped(program.reporter(), kGetHistoryPlace, body); };

    statement([&] { arrangeForSimulation(program.module<EquityManager>(), false); });
    statement([&] { chooseSimulation(frame); });
    buttons.cdmrunsimulation.enabled = false;
    frame.showChanges();
    const RunOutcome outcome = mainprocedures(program);
    for (int i = 0; i < kYields; ++i) DoEvents(program);
    statement([&] { frame.caption = companyName(program); });
    showSimulation(program, outcome);
    buttons.cdmrunsimulation.enabled = true;
    frame.showChanges();
    return outcome;
}

}  // namespace ostravel
