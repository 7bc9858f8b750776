#include "ledger/create.h"

#include <optional>

#include "context/program.h"
#include "context/screens.h"
#include "ledger/datecaption.h"
#include "ledger/newholding.h"
#include "ledger/portfolioexplorer.h"
#include "position/holding.h"
#include "runtime/trap.h"
#include "runtime/vbdate.h"
#include "store/sqltext.h"

namespace ostravel {

namespace {

QString place(const char* procedure) {
    return QStringLiteral("(Form) Create::Sub ") + QString::fromLatin1(procedure);
}

}  // namespace

PortfolioWizard::PortfolioWizard(Program& program) : FormState(program) {}

void PortfolioWizard::Form_Load() {
    cmddate.caption = todayCaption();
    cmddelete.enabled = false;
    cmdupdate.enabled = false;
    DatePicker1Value = today();
    DatePicker1Visible = false;
    addgrid();
}

void PortfolioWizard::addgrid() {
    ErrorReporter& reporter = m_program->reporter();
    const auto statement = [&](auto&& body) {
        trappedGrowing([&] { MSFlexGrid1.addRow(); }, body,
                       [&](const VbError& e) { reporter.report(e, place("addgrid")); });
    };
    statement([&] { MSFlexGrid1.setFormatString(kGridFormat); });
    statement([&] { MSFlexGrid1.setColWidth(1, kColWidth); });
    statement([&] { MSFlexGrid1.setColWidth(2, kColWidth); });

    std::shared_ptr<Recordset> rows;
    statement([&] {
        rows = m_program->store().database().openRecordset(
            QStringLiteral("select portfolioname,portstartdate from portfolio"));
    });
    if (!rows)
        return;
    // Kept: the grid isn't cleared first, so that after a delete the last line stays until the
    // form is opened again.
    int i = 0;
    for (; !rows->eof(); rows->moveNext()) {
        ++i;
        statement([&] { MSFlexGrid1.setTextMatrix(i, 0, QString::number(i)); });
        statement([&] { MSFlexGrid1.setTextMatrix(i, 1, rows->field(0).toString()); });
        statement([&] { MSFlexGrid1.setTextMatrix(i, 2, rows->field(1).toString()); });
    }
    rows->close();
}

QString PortfolioWizard::generatesql() const {
    return QStringLiteral("portfolioname='") + sqlText(Text1.text) + QLatin1Char('\'');
}

void PortfolioWizard::selectCell(int newRow, int newCol) {
    row = newRow;
    col = newCol;
}

void PortfolioWizard::MSFlexGrid1_Click(int newRow, int newCol) {
    ErrorReporter& reporter = m_program->reporter();
    selectCell(newRow, newCol);
    cmddelete.enabled = true;
    cmdupdate.enabled = true;
    trapped(reporter, place("MSFlexGrid1_Click"), [&] { Text1.text = MSFlexGrid1.textMatrix(row, col); });
    trapped(reporter, place("MSFlexGrid1_Click"), [&] { cmddate.caption = MSFlexGrid1.textMatrix(row, kDateCol); });
}

void PortfolioWizard::MSFlexGrid1_DblClick(int newRow, int newCol) {
    selectCell(newRow, newCol);
    trapped(m_program->reporter(), place("MSFlexGrid1_DblClick"),
            [&] { Text1.text = MSFlexGrid1.textMatrix(row, col); });
    cmdnext.enabled = false;
}

void PortfolioWizard::cmdadd_Click() {
    Prompt& prompt = m_program->prompt();
    ErrorReporter& reporter = m_program->reporter();
    Store& store = m_program->store();
    const auto statement = [&](auto&& body) { return trapped(reporter, place("cmdadd_Click"), body); };

    if (Text1.text.isEmpty()) {
        prompt.message(QStringLiteral("Portfolio Name is required"), Buttons::OK, Icon::Exclamation,
                       QStringLiteral("PortFolio"));
        Text1.text.clear();
        focus = QStringLiteral("Text1");
        return;
    }
    const std::optional<double> startDate = parseDate(cmddate.caption);
    if (!startDate) {
        // The caption is the program's own, today or a pick of the calendar: anything else is a fault.
        reporter.report(VbError(err::TypeMismatch), place("cmdadd_Click"));
        return;
    }
    if (*startDate > today()) {
        prompt.message(QStringLiteral("You cannot create Portfolio in future date"), Buttons::OK, Icon::Information,
                       QStringLiteral("Future date"));
        cmddate.caption = todayCaption();
        focus = QStringLiteral("cmddate");
        return;
    }

    bool duplicate = false;
    statement([&] { store.portfolio = store.database().openRecordset(QStringLiteral("select * from portfolio")); });
    statement([&] {
        Recordset& portfolio = currentRow(store.portfolio);
        portfolio.findFirst(generatesql());
        duplicate = !portfolio.noMatch();
    });
    if (duplicate) {
        prompt.message(QStringLiteral("Duplicate Portfolio Name"), Buttons::OK, Icon::Critical,
                       QStringLiteral("Duplicate portfolio"));
        Text1.text.clear();
        focus = QStringLiteral("Text1");
        return;
    }

    std::optional<Transaction> work;
    statement([&] { work.emplace(store.database(), QStringLiteral("Create Portfolio")); });
    statement([&] { currentRow(store.portfolio).addNew(); });
    statement([&] {
        currentRow(store.portfolio)
            .setField(QStringLiteral("fkUserID"), currentRow(store.users).field(QStringLiteral("pkUserID")));
    });
    statement([&] { currentRow(store.portfolio).setField(QStringLiteral("PortfolioName"), Text1.text); });
    statement([&] { currentRow(store.portfolio).setField(QStringLiteral("PortStartDate"), cmddate.caption); });
    statement([&] { currentRow(store.portfolio).update(); });
    if (work)
        statement([&] { work->commit(); });

    addgrid();
    statement([&] { selectportfolio(*m_program); });
    m_program->frame().cmbportfolio.items << Text1.text;
    // Kept: from here on the wizard can only be left forward, into the holding wizard.
    cmdclose.enabled = false;
    cmdnext.enabled = true;
}

void PortfolioWizard::cmdupdate_Click() {
    ErrorReporter& reporter = m_program->reporter();
    Store& store = m_program->store();
    const auto statement = [&](auto&& body) { return trapped(reporter, place("cmdupdate_Click"), body); };

    QString oldName;
    statement([&] { oldName = MSFlexGrid1.textMatrix(row, col); });
    bool found = false;
    statement([&] {
        Recordset& portfolio = currentRow(store.portfolio);
        portfolio.findFirst(QStringLiteral("portfolioname='") + sqlText(oldName) + QLatin1Char('\''));
        found = !portfolio.noMatch();
    });
    // A cell that names no portfolio (a date, a number) leaves every row as it is.
    if (!found)
        return;

    const QString newName = m_program->prompt()
                                .input(QStringLiteral("Input the new portfolio Name for ") + oldName,
                                       QStringLiteral("Update the portfolio name"), oldName)
                                .value_or(QString());
    if (newName.isEmpty())
        return;
    Text1.text = newName;
    // Kept: the holdings keep the old name in portname, and the old name stays in the frame's
    // list. A name already taken fails in the store.
    std::optional<Transaction> work;
    statement([&] { work.emplace(store.database(), QStringLiteral("Rename Portfolio")); });
    statement([&] { currentRow(store.portfolio).edit(); });
    statement([&] { currentRow(store.portfolio).setField(QStringLiteral("PortfolioName"), newName); });
    statement([&] { currentRow(store.portfolio).update(); });
    if (work)
        statement([&] { work->commit(); });
    m_program->frame().cmbportfolio.items << newName;
    addgrid();
}

void PortfolioWizard::cmddelete_Click() {
    if (Text1.text.isEmpty())
        return;
    const Answer answer = m_program->prompt().message(
        QStringLiteral("Deleting Portfolio (") + Text1.text +
            QStringLiteral(") will delete all equity under the portfolio, You want to proceed"),
        Buttons::YesNo, Icon::None, QStringLiteral("Ostravel"));
    if (answer != Answer::Yes)
        return;

    ErrorReporter& reporter = m_program->reporter();
    Database& db = m_program->store().database();
    const auto statement = [&](auto&& body) { return trapped(reporter, place("cmddelete_Click"), body); };
    {
        // The portfolio's holdings and their trades go with its row, by the store's keys: all
        // of them or, should the program stop half-way, none.
        std::optional<Transaction> work;
        statement([&] { work.emplace(db, QStringLiteral("Delete Portfolio")); });
        statement([&] {
            db.execute(QStringLiteral("delete * from portfolio where portfolioname='") + sqlText(Text1.text) +
                       QStringLiteral("';"));
        });
        if (work)
            statement([&] { work->commit(); });
    }
    addgrid();
    statement([&] { selectportfolio(*m_program); });
    rebuildPortfolioList();
}

void PortfolioWizard::rebuildPortfolioList() {
    ErrorReporter& reporter = m_program->reporter();
    Store& store = m_program->store();
    MainFrame& frame = m_program->frame();
    const auto statement = [&](auto&& body) { return trapped(reporter, place("cmddelete_Click"), body); };

    statement([&] { store.portfolio = store.database().openRecordset(QStringLiteral("select * from portfolio")); });
    frame.cmbportfolio.items.clear();
    frame.cmbportfolio.items << MainFrame::kSimulation;
    frame.cmbportfolio.text = MainFrame::kSimulation;
    statement([&] {
        for (Recordset& portfolio = currentRow(store.portfolio); !portfolio.eof(); portfolio.moveNext())
            frame.cmbportfolio.items << portfolio.field(QStringLiteral("PortfolioName")).toString();
    });
    frame.cmbportfolio.text = frame.cmbportfolio.items.front();
    frame.cmbportfolio_Change();
}

void PortfolioWizard::cmdnext_Click() {
    if (Text1.text.isEmpty()) {
        m_program->prompt().inform(QStringLiteral(" Select Portfolio from Grid"));
        return;
    }
    Program& program = *m_program;
    unload();
    NewHolding& holding = program.module<NewHolding>();
    holding.load();
    holding.Option1 = true;
    program.module<Screens>().show(QStringLiteral("Newholding"));
}

void PortfolioWizard::cmdhelp_Click() {
    helpShown = cmdhelp.caption == kHelp;
    cmdhelp.caption = helpShown ? kClose : kHelp;
}

void PortfolioWizard::cmdclose_Click() {
    unload();
}

void PortfolioWizard::cmddate_Click() {
    DatePicker1Value = today();
    DatePicker1Visible = true;
}

void PortfolioWizard::DatePicker1_OK(double serial) {
    DatePicker1Visible = false;
    cmddate.caption = pickedDateCaption(serial);
}

void PortfolioWizard::DatePicker1_Cancel() {
    DatePicker1Visible = false;
}

void PortfolioWizard::Form_Click() {
    DatePicker1Visible = false;
}

}  // namespace ostravel
