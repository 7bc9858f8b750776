#include "market/history.h"

#include "context/program.h"
#include "market/doevents.h"
#include "market/getfrominet.h"
#include "market/hosts.h"
#include "market/parse_history.h"
#include "position/equitymanager.h"
#include "runtime/apppath.h"
#include "runtime/trap.h"
#include "runtime/vbdate.h"
#include "runtime/vbmath.h"

namespace ostravel {

namespace {

const QString kUrlPlace = QStringLiteral("(Module) Module3::Sub ConstructURL");
const QString kFetchPlace = QStringLiteral("(Module) Module3::Sub getinternetdata");

QString number(int value) {
    return QString::number(value);
}

}  // namespace

QString historySymbol(const MainFrame& frame) {
    return QString(frame.cmbequity).replace(QStringLiteral(".NS"), QString());
}

QString historyFilePath(const MainFrame& frame) {
    return appFile(QStringLiteral("history/daily/") + historySymbol(frame) + QStringLiteral(".csv"));
}

void ConstructURL(Program& program) {
    HistoryState& h = program.module<HistoryState>();
    ErrorReporter& reporter = program.reporter();
    QString tail;
    double historyDL = 0;
    trapped(reporter, kUrlPlace,
            [&] { historyDL = program.store().users->field(QStringLiteral("HistoryDL")).toDouble(); });
    if (historyDL == 0) {
        trapped(reporter, kUrlPlace, [&] {
            h.HistoryBaseURL = serviceBase(QStringLiteral("history")) + QStringLiteral("/table.csv?s=") +
                               historySymbol(program.frame()) + QStringLiteral(".NS");
            const EquityManager& screen = program.module<EquityManager>();
            const QDate begin = serialToDate(screen.dtbdate);
            const QDate end = serialToDate(screen.dtedate);
            tail = QStringLiteral("&a=") + number(begin.month() - 1) + QStringLiteral("&b=") + number(begin.day()) +
                   QStringLiteral("&c=") + number(begin.year()) + QStringLiteral("&d=") + number(end.month() - 1) +
                   QStringLiteral("&e=") + number(end.day()) + QStringLiteral("&f=") + number(end.year()) +
                   QStringLiteral("&g=d&z=66&y=") + number(h.HistoryOffset) + QStringLiteral("&ignore=.csv");
        });
    }
    h.HistoryURL = h.HistoryBaseURL + tail;
}

void getinternetdata(Program& program) {
    HistoryState& h = program.module<HistoryState>();
    ErrorReporter& reporter = program.reporter();
    const EquityManager& screen = program.module<EquityManager>();
    int pages = 0;
    trapped(reporter, kFetchPlace, [&] {
        h.HistoryDays = screen.dtedate - screen.dtbdate;
        pages = toInteger(Round(divide(h.HistoryDays, 200)));
    });

    h.HistoryOffset = 0;
    ConstructURL(program);
    h.DataBuffer = GetFromInet(program, h.HistoryURL);
    // The loop starts at 2: with the request above, 0 or 1 pages make one request.
    for (h.HistoryPageNo = 2; h.HistoryPageNo <= pages; ++h.HistoryPageNo) {
        h.HistoryOffset += 200;
        DoEvents(program);
        ConstructURL(program);
        DoEvents(program);
        h.DataBuffer += GetFromInet(program, h.HistoryURL);
    }

    DoEvents(program);
    if (h.DataBuffer.size() < 20) {
        program.frame().caption = kLengthBelow20;
        program.frame().showChanges();
        return;
    }
    ParseAndSaveData(program);
}

}  // namespace ostravel
