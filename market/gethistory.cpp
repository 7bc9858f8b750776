#include "market/gethistory.h"

#include "context/program.h"
#include "market/doevents.h"
#include "market/getfrominet.h"
#include "market/history.h"
#include "market/load_history.h"
#include "position/equitymanager.h"
#include "runtime/trap.h"
#include "runtime/vbdate.h"

namespace ostravel {

namespace {

const QString kGetAllPlace = QStringLiteral("(Form) MDIForm1::Sub mnugethistory_Click");
const QString kOnlinePlace = QStringLiteral("(Form) MDIForm1::Sub cmdonlinestatus_Click");

}  // namespace

namespace {

HistoryLoad loadFile(Program& program) {
    return LoadHistoryFile(program) ? HistoryLoad::Loaded : HistoryLoad::NotLoaded;
}

}  // namespace

HistoryLoad historyIntoSimulation(Program& program) {
    MainFrame& frame = program.frame();
    const QString symbol = historySymbol(frame);
    double historyDl = 1;
    trapped(program.reporter(), QStringLiteral("(Module) Module3::Sub mainprocedures"),
            [&] { historyDl = program.store().users->field(QStringLiteral("HistoryDl")).toDouble(); });
    if (historyDl == 0 && frame.OnlineFlag) {
        frame.caption = QStringLiteral("Getting history of ") + symbol;
        frame.showChanges();
        getinternetdata(program);
        // The download's outcome is its caption: only "Ready" goes on.
        if (frame.caption != kReady)
            return HistoryLoad::DownloadFailed;
        frame.caption = QStringLiteral("Got history of ") + symbol;
        frame.showChanges();
        return loadFile(program);
    }
    frame.caption = QStringLiteral("Getting history of ") + symbol + QStringLiteral(" From file");
    frame.showChanges();
    return loadFile(program);
}

void mnugethistory_Click(Program& program, const std::function<void()>& command1, const std::function<bool()>& stop) {
    Store& store = program.store();
    EquityManager& screen = program.module<EquityManager>();
    trapped(program.reporter(), kGetAllPlace, [&] {
        Recordset& names = *store.niftyquote;
        // Kept: niftyquote holds the company names since the frame's load, so each name goes into
        // cmbequity as the stock's code.
        for (names.moveFirst(); !names.eof(); names.moveNext()) {
            if (stop && stop())
                return;
            program.frame().cmbequity = names.field(0).toString();
            program.frame().cmbequity_Change();
            screen.load();
            screen.dtbdate = now() - 1500;
            screen.dtedate = now();
            command1();
            DoEvents(program);
        }
    });
}

QString cmdonlinestatus_Click(Program& program, const QString& caption) {
    const bool goOffline = caption == QLatin1String("Online Mode");
    trapped(program.reporter(), kOnlinePlace, [&] {
        Recordset& users = *program.store().users;
        users.edit();
        users.setField(QStringLiteral("QuoteDL"), Variant(goOffline ? 1 : 0));
        users.setField(QStringLiteral("HistoryDL"), Variant(goOffline ? 1 : 0));
        users.update();
    });
    program.frame().OnlineFlag = !goOffline;
    return goOffline ? QStringLiteral("Offline Mode") : QStringLiteral("Online Mode");
}

}  // namespace ostravel
