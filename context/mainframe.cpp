#include "context/mainframe.h"

#include "context/program.h"
#include "runtime/apppath.h"
#include "runtime/trap.h"
#include "store/compaction.h"
#include "store/sqltext.h"

namespace ostravel {

namespace {

const QString kLoadPlace = QStringLiteral("(Form) MDIForm1::Sub MDIForm_Load");

}  // namespace

MainFrame::MainFrame(Program& program) : m_program(program) {}

QString MainFrame::equitySymbol() const {
    QString symbol = cmbequity;
    symbol.replace(QStringLiteral(".NS"), QString(), Qt::CaseInsensitive);
    return symbol;
}

void MainFrame::MDIForm_Load() {
    ErrorReporter& reporter = m_program.reporter();
    Store& store = m_program.store();

    trapped(reporter, kLoadPlace, [&] { store.database().execute(QStringLiteral("Delete * from simulation")); });

    cmbportfolio.items = {kSimulation};
    trapped(reporter, kLoadPlace, [&] {
        Recordset& portfolio = *store.portfolio;
        if (portfolio.recordCount() == 0)
            return;
        for (portfolio.moveFirst(); !portfolio.eof(); portfolio.moveNext())
            cmbportfolio.items << portfolio.field(QStringLiteral("PortfolioName")).toString();
    });

    trapped(reporter, kLoadPlace, [&] {
        store.niftyquote = store.database().openRecordset(QStringLiteral("Select distinct name from qoutense"));
        Cmbequityname.items.clear();
        for (; !store.niftyquote->eof(); store.niftyquote->moveNext())
            Cmbequityname.items << store.niftyquote->field(0).toString();
        store.niftyquote->moveFirst();
    });

    // Selecting the first entry of each list runs its click, as choosing it by hand would.
    cmbportfolio.text = cmbportfolio.items.front();
    cmbportfolio_Change();
    if (!Cmbequityname.items.isEmpty()) {
        Cmbequityname.text = Cmbequityname.items.front();
        Cmbequityname_Click();
    }
}

void MainFrame::cmbportfolio_Change() {
    if (!selectportfolio)
        return;
    trapped(selectportfolio, [&](const VbError& e) {
        // Events that set each other's boxes can run out of stack; that is passed over.
        if (e.number() != err::OutOfStack)
            m_program.reporter().report(e, QStringLiteral("(Module) Mdiform1::Sub cmbportfolio_change"));
    });
}

void MainFrame::Cmbequityname_Click() {
    // A name that isn't in the symbol list leaves the code as it was.
    const bool found = passedOver([&] {
        auto rs =
            m_program.store().database().openRecordset(QStringLiteral("select ticker from qoutense where name='") +
                                                       sqlText(Cmbequityname.text) + QStringLiteral("';"));
        cmbequity = rs->field(0).toString() + QStringLiteral(".NS");
    });
    if (found)
        cmbequity_Change();
}

void MainFrame::cmbequity_Change() {
    // A code that isn't in the symbol list gives a blank name.
    QString name;
    passedOver([&] {
        auto rs =
            m_program.store().database().openRecordset(QStringLiteral("select name from qoutense where ticker='") +
                                                       sqlText(equitySymbol()) + QStringLiteral("';"));
        if (!rs->eof())
            name = rs->field(0).toString();
    });
    caption = name;
    Cmbequityname.text = name;
    historyFileName = appFile(QStringLiteral("history/daily/") + equitySymbol() + QStringLiteral(".csv"));
}

bool MainFrame::MDIForm_QueryUnload(bool fromExit) {
    if (fromExit)
        return true;
    m_program.prompt().message(QStringLiteral("Please Close from File- Exit"), Buttons::OK, Icon::Information,
                               QStringLiteral("Close Ostravel"));
    return false;
}

bool MainFrame::Exit() {
    Store& store = m_program.store();
    // Every step passes its errors over: the exit question comes whatever happened before it.
    passedOver([&] { store.database().execute(QStringLiteral("delete * from simulation")); });
    store.closeDatabase();
    // A compaction that can't be done leaves the live file as it was.
    passedOver([&] { compactDatabase(appFile(kLiveDatabase)); });

    // Kept: the question comes after the compaction, so that No goes on with a compacted
    // database and freshly opened recordsets.
    const Answer answer =
        m_program.prompt().message(QStringLiteral("Do you really want to exit program?"), Buttons::YesNo,
                                   Icon::Question, QStringLiteral("Exiting Program..."));
    if (answer == Answer::Yes)
        return true;
    store.connection();
    return false;
}

}  // namespace ostravel
