#include "ledger/newholding.h"

#include <optional>

#include "context/program.h"
#include "context/screens.h"
#include "ledger/datecaption.h"
#include "ledger/trade.h"
#include "position/holding.h"
#include "runtime/trap.h"
#include "runtime/vbdate.h"
#include "store/sqltext.h"

namespace ostravel {

namespace {

QString place(const char* procedure) {
    return QStringLiteral("(Form) Newholding::Sub ") + QString::fromLatin1(procedure);
}

}  // namespace

NewHolding::NewHolding(Program& program) : FormState(program) {}

void NewHolding::Form_Load() {
    Command1.caption = todayCaption();
    trapped(m_program->reporter(), place("Form_Load"), [&] {
        Recordset& portfolio = currentRow(m_program->store().portfolio);
        if (portfolio.recordCount() == 0)
            return;
        for (portfolio.moveFirst(); !portfolio.eof(); portfolio.moveNext())
            cmbport.items << portfolio.field(QStringLiteral("PortfolioName")).toString();
    });
    if (!cmbport.items.isEmpty()) {
        cmbport.text = cmbport.items.front();
        cmbport_Click();
    }
    DatePicker1Visible = false;
    DatePicker1Value = today();
    optnsebse_Click(kNSE);
}

void NewHolding::optnsebse_Click(int index) {
    ErrorReporter& reporter = m_program->reporter();
    optnsebse = {};
    optnsebse[static_cast<std::size_t>(index)] = true;

    std::shared_ptr<Recordset> names;
    trapped(reporter, place("optnsebse_Click"),
            [&] { names = m_program->store().database().openRecordset(QStringLiteral("select *  from qoutense ")); });
    Combo1 = ComboBox();
    txtequitysymbol.text.clear();
    txtequitysymbol_Change();
    // Kept: both exchanges list the same companies; they differ in the code a pick yields.
    for (; names && !names->eof(); names->moveNext()) {
        trapped(reporter, place("optnsebse_Click"),
                [&] { Combo1.items << names->field(QStringLiteral("name")).toString(); });
    }
    if (!Combo1.items.isEmpty()) {
        Combo1.text = Combo1.items.front();
        Combo1_Click();
    }
}

void NewHolding::Combo1_Click() {
    const QString column = optnsebse[kBSE] ? QStringLiteral("symbol") : QStringLiteral("ticker");
    QString code;
    const bool found = trapped(m_program->reporter(), place("Combo1_Click"), [&] {
        auto rows = m_program->store().database().openRecordset(QStringLiteral("select ") + column +
                                                                QStringLiteral(" from qoutense where name='") +
                                                                sqlText(Combo1.text) + QStringLiteral("';"));
        code = rows->field(0).toString();
    });
    if (!found)
        return;
    txtequitysymbol.text = code;
    txtequitysymbol_Change();
    MainFrame& frame = m_program->frame();
    frame.cmbequity = code;
    frame.cmbequity_Change();
}

void NewHolding::txtequitysymbol_Change() {
    // A ticker that isn't in the list (one typed half-way) leaves the company as it was.
    trapped(m_program->reporter(), place("txtequitysymbol_Change"), [&] {
        auto rows =
            m_program->store().database().openRecordset(QStringLiteral("select name from qoutense where ticker='") +
                                                        sqlText(txtequitysymbol.text) + QStringLiteral("';"));
        if (!rows->eof())
            Combo1.text = rows->field(0).toString();
    });
}

void NewHolding::cmbport_Click() {
    MainFrame& frame = m_program->frame();
    if (frame.cmbportfolio.text == cmbport.text)
        return;
    frame.cmbportfolio.text = cmbport.text;
    frame.cmbportfolio_Change();
}

QString NewHolding::generatesql() const {
    return QStringLiteral("equitysymbol='") + sqlText(txtequitysymbol.text) + QLatin1Char('\'');
}

void NewHolding::cmdok_Click() {
    Prompt& prompt = m_program->prompt();
    ErrorReporter& reporter = m_program->reporter();
    Store& store = m_program->store();
    Database& db = store.database();
    const auto statement = [&](auto&& body) { return trapped(reporter, place("cmdOK_Click"), body); };
    const QString symbol = txtequitysymbol.text;
    const QString portname = cmbport.text;

    if (symbol.isEmpty()) {
        prompt.inform(QStringLiteral("You have not Entered the Equity Symbol"));
        focus = QStringLiteral("txtequitysymbol");
        return;
    }
    const auto refusePortfolio = [&] {
        prompt.message(QStringLiteral("You have not Selected the Portfolio"), Buttons::OK, Icon::Critical,
                       QStringLiteral("Select PortFolio"));
        focus = QStringLiteral("cmbport");
    };
    if (portname.isEmpty() || portname == MainFrame::kSimulation) {
        refusePortfolio();
        return;
    }
    const std::optional<double> startDate = parseDate(Command1.caption);
    if (!startDate) {
        prompt.inform(QStringLiteral("Please Enter Numeric Value"));
        return;
    }
    bool known = false;
    Variant portfolioStart;
    statement([&] {
        auto rows = db.openRecordset(QStringLiteral("select PortStartDate from [portfolio] where PortfolioName='") +
                                     sqlText(portname) + QStringLiteral("';"));
        known = !rows->eof();
        if (known)
            portfolioStart = rows->field(0);
        rows->close();
    });
    // A name that no portfolio has would leave the holding without its portfolio.
    if (!known) {
        refusePortfolio();
        return;
    }
    // The portfolio's own date is accepted, and a start in the future too.
    if (!portfolioStart.isNull() && portfolioStart.toDate() > *startDate) {
        prompt.message(QStringLiteral("You cannot have Equity Start Date before Portfolio Start Date"), Buttons::OK,
                       Icon::Information, QStringLiteral("Wrong date"));
        Command1.caption = todayCaption();
        focus = QStringLiteral("Command1");
        return;
    }
    if (prompt.message(QStringLiteral("Are You sure you have selected the Right Code"), Buttons::YesNo, Icon::None,
                       QStringLiteral("Confirmation")) != Answer::Yes) {
        focus = QStringLiteral("Combo1");
        return;
    }

    std::shared_ptr<Recordset> portfolio;
    statement([&] {
        portfolio = db.openRecordset(QStringLiteral("select * from portfolio where PortfolioName='") +
                                     sqlText(portname) + QStringLiteral("';"));
    });
    bool held = false;
    statement([&] {
        store.equity = db.openRecordset(QStringLiteral("select * from equity where portname ='") + sqlText(portname) +
                                        QStringLiteral("';"));
        store.equity->findFirst(generatesql());
        held = !store.equity->noMatch();
    });
    if (held) {
        prompt.inform(QStringLiteral("The Current Equity already exists in your Portfolio, Select Different Equity"));
        focus = QStringLiteral("Combo1");
        return;
    }

    // The row's identity alone: the first position comes with the setting trade.
    std::optional<Transaction> work;
    statement([&] { work.emplace(db, QStringLiteral("Create New Holding")); });
    statement([&] { currentRow(store.equity).addNew(); });
    statement([&] {
        currentRow(store.equity)
            .setField(QStringLiteral("fkPortfolioID"), currentRow(portfolio).field(QStringLiteral("pkPortfolioID")));
    });
    statement([&] {
        currentRow(store.equity)
            .setField(QStringLiteral("fkUserID"), currentRow(store.users).field(QStringLiteral("pkUserID")));
    });
    statement([&] { currentRow(store.equity).setField(QStringLiteral("EquitySymbol"), symbol); });
    statement([&] { currentRow(store.equity).setField(QStringLiteral("EquityStartDate"), Command1.caption); });
    statement([&] { currentRow(store.equity).setField(QStringLiteral("portname"), portname); });
    statement([&] { currentRow(store.equity).setField(QStringLiteral("VealieFlag"), 1); });
    statement([&] { currentRow(store.equity).update(); });
    if (work)
        statement([&] { work->commit(); });
    statement([&] { currentRow(store.equity).close(); });
    statement([&] { currentRow(portfolio).close(); });

    Program& program = *m_program;
    MainFrame& frame = program.frame();
    frame.cmbequity = symbol;
    frame.cmbequity_Change();
    Trade& trade = program.module<Trade>();
    statement([&] { trade.load(); });
    trade.txtequity.text = symbol;
    trade.caption = Trade::kSettingCaption + frame.caption;
    trade.Option1 = true;
    unload();
    program.module<Screens>().show(QStringLiteral("trade"));
}

void NewHolding::cmdnew_Click() {
    Program& program = *m_program;
    unload();
    program.module<Screens>().show(QStringLiteral("frmnewsymbol"));
}

void NewHolding::cmdclose_Click() {
    unload();
}

void NewHolding::cmdhelp_Click() {
    helpShown = cmdhelp.caption == kHelp;
    cmdhelp.caption = helpShown ? kClose : kHelp;
}

void NewHolding::Command1_Click() {
    DatePicker1Visible = true;
}

void NewHolding::DatePicker1_OK(double serial) {
    DatePicker1Visible = false;
    Command1.caption = pickedDateCaption(serial);
}

void NewHolding::DatePicker1_Cancel() {
    DatePicker1Visible = false;
}

void NewHolding::Form_Click() {
    DatePicker1Visible = false;
}

}  // namespace ostravel
