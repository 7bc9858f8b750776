#include "context/screens.h"
#include "ledger/create.h"
#include "ledger/datecaption.h"
#include "ledger/frmnewsymbol.h"
#include "ledger/frmportwizard.h"
#include "ledger/newholding.h"
#include "ledger/portfolioexplorer.h"
#include "ledger/trade.h"
#include "runtime/vbdate.h"
#include "tests/ledger/holdings.h"
#include "tests/ledger/wizard_rows.h"
#include "tests/support/program_test.h"

namespace ostravel {
namespace {

struct Question {
    QString text;
    QString title;
    Icon icon = Icon::None;
    Buttons buttons = Buttons::OK;
    bool operator==(const Question&) const = default;
};

QString tomorrowCaption() {
    return pickedDateCaption(today() + 1);
}

class WizardTest : public test::ProgramTest {
protected:
    Database& db() { return m_program.store().database(); }
    QStringList rows(const QString& sql) { return tableRows(db(), sql); }
    // The frame as it opens: "Simulation" and the portfolios in its list.
    void openFrame() { m_program.frame().MDIForm_Load(); }
    const QStringList& shown() { return m_program.module<Screens>().shown(); }

    void expectAsked(const QList<Question>& expected) {
        const QList<Asked>& asked = m_prompt.asked();
        ASSERT_EQ(asked.size(), expected.size()) << m_prompt.messages().join(QLatin1Char('/')).toStdString();
        for (int i = 0; i < asked.size(); ++i) {
            EXPECT_EQ(asked[i].text, expected[i].text);
            EXPECT_EQ(asked[i].title, expected[i].title);
            EXPECT_EQ(asked[i].icon, expected[i].icon) << expected[i].text.toStdString();
            EXPECT_EQ(asked[i].buttons, expected[i].buttons) << expected[i].text.toStdString();
        }
    }
};

// ---- Create -------------------------------------------------------------------------------

class CreateTest : public WizardTest {
protected:
    CreateTest() : m_wizard(m_program.module<PortfolioWizard>()) {}
    PortfolioWizard& m_wizard;
};

TEST_F(CreateTest, AddRefusesInTheOrderOfItsChecks) {
    addPortfolio(db(), QStringLiteral("Growth"));
    const Question noName{"Portfolio Name is required", "PortFolio", Icon::Exclamation};
    const Question future{"You cannot create Portfolio in future date", "Future date", Icon::Information};
    const Question duplicate{"Duplicate Portfolio Name", "Duplicate portfolio", Icon::Critical};
    struct Case {
        const char* label;
        QString name;
        QString date;
        Question refusal;
        QString focus;
        QString nameAfter;
        QString dateAfter;
    };
    const QString today = todayCaption();
    const Case cases[] = {
        {"no name", "", today, noName, "Text1", "", today},
        {"no name comes before a future date", "", tomorrowCaption(), noName, "Text1", "", tomorrowCaption()},
        {"future date", "Income", tomorrowCaption(), future, "cmddate", "Income", today},
        {"future date comes before a duplicate", "Growth", tomorrowCaption(), future, "cmddate", "Growth", today},
        {"duplicate", "Growth", today, duplicate, "Text1", "", today},
        {"duplicate by the store's comparison", "GROWTH", today, duplicate, "Text1", "", today},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        m_wizard.unload();
        m_wizard.load();
        m_prompt.clear();
        m_wizard.Text1.text = c.name;
        m_wizard.cmddate.caption = c.date;
        m_wizard.cmdadd_Click();
        expectAsked({c.refusal});
        EXPECT_EQ(m_wizard.focus, c.focus);
        EXPECT_EQ(m_wizard.Text1.text, c.nameAfter);
        EXPECT_EQ(m_wizard.cmddate.caption, c.dateAfter);
        EXPECT_EQ(rows(QStringLiteral("select PortfolioName from portfolio")), QStringList{"Growth"});
        EXPECT_EQ(m_wizard.MSFlexGrid1.rows(), 2);  // the grid as it was
        EXPECT_TRUE(m_wizard.cmdclose.enabled);
    }
}

TEST_F(CreateTest, KeptAddWritesThePortfolioAndLeavesOnlyForward) {
    openFrame();
    m_wizard.load();
    EXPECT_EQ(m_wizard.cmddate.caption, todayCaption());
    EXPECT_FALSE(m_wizard.cmddelete.enabled);
    EXPECT_FALSE(m_wizard.cmdupdate.enabled);

    m_wizard.Text1.text = QStringLiteral("Dr. Reddy's Picks");
    m_wizard.cmddate_Click();
    EXPECT_TRUE(m_wizard.DatePicker1Visible);
    m_wizard.DatePicker1_OK(dateSerial(QDate(2024, 1, 15)));
    EXPECT_EQ(m_wizard.cmddate.caption, QStringLiteral("15/Jan/2024"));
    m_wizard.cmdadd_Click();
    // Today is no future date.
    m_wizard.Text1.text = QStringLiteral("Today");
    m_wizard.cmddate.caption = todayCaption();
    m_wizard.cmdadd_Click();

    EXPECT_TRUE(m_prompt.asked().isEmpty());
    EXPECT_EQ(
        rows(QStringLiteral("select fkUserID, PortfolioName, PortStartDate from portfolio order by pkPortfolioID")),
        (QStringList{"1|Dr. Reddy's Picks|15/01/2024", "1|Today|" + dateToString(today())}));
    EXPECT_EQ(m_wizard.MSFlexGrid1.textMatrix(1, 1), QStringLiteral("Dr. Reddy's Picks"));
    EXPECT_EQ(m_wizard.MSFlexGrid1.textMatrix(1, 2), QStringLiteral("15/01/2024"));
    EXPECT_EQ(m_wizard.MSFlexGrid1.textMatrix(2, 0), QStringLiteral("2"));
    EXPECT_EQ(m_program.frame().cmbportfolio.items, (QStringList{"Simulation", "Dr. Reddy's Picks", "Today"}));
    EXPECT_FALSE(m_wizard.cmdclose.enabled);
    EXPECT_TRUE(m_wizard.cmdnext.enabled);

    m_wizard.cmdnext_Click();
    EXPECT_EQ(shown(), QStringList{"Newholding"});
    EXPECT_FALSE(m_wizard.loaded);
    EXPECT_TRUE(m_program.module<NewHolding>().loaded);
    EXPECT_TRUE(m_program.module<NewHolding>().Option1);
}

TEST_F(CreateTest, NextWithoutANameSendsTheUserToTheGrid) {
    m_wizard.load();
    m_wizard.cmdnext_Click();
    expectAsked({{" Select Portfolio from Grid", "Ostravel"}});
    EXPECT_TRUE(shown().isEmpty());
    EXPECT_TRUE(m_wizard.loaded);
}

TEST_F(CreateTest, TheGridsSecondEventDisablesNext) {
    addPortfolio(db(), QStringLiteral("Growth"));
    m_wizard.load();
    m_wizard.MSFlexGrid1_Click(1, 2);
    EXPECT_EQ(m_wizard.Text1.text, QStringLiteral("02/01/2024"));  // the date column's text
    EXPECT_EQ(m_wizard.cmddate.caption, QStringLiteral("02/01/2024"));
    EXPECT_TRUE(m_wizard.cmddelete.enabled && m_wizard.cmdupdate.enabled);
    EXPECT_TRUE(m_wizard.cmdnext.enabled);
    m_wizard.MSFlexGrid1_DblClick(1, 1);
    EXPECT_EQ(m_wizard.Text1.text, QStringLiteral("Growth"));
    EXPECT_FALSE(m_wizard.cmdnext.enabled);
}

TEST_F(CreateTest, KeptRenameLeavesTheHoldingsUnderTheOldName) {
    addPortfolio(db(), QStringLiteral("Growth"));
    addKeyedHolding(db(), {"Growth", "INFY"});
    openFrame();
    m_wizard.load();

    // A cell that names no portfolio asks nothing.
    m_wizard.MSFlexGrid1_Click(1, 2);
    m_wizard.cmdupdate_Click();
    EXPECT_TRUE(m_prompt.asked().isEmpty());

    m_wizard.MSFlexGrid1_Click(1, 1);
    m_prompt.answerText(std::nullopt);  // Cancel: nothing happens
    m_wizard.cmdupdate_Click();
    EXPECT_EQ(rows(QStringLiteral("select PortfolioName from portfolio")), QStringList{"Growth"});

    m_prompt.clear();
    m_prompt.answerText(QStringLiteral("Value's"));
    m_wizard.cmdupdate_Click();
    ASSERT_EQ(m_prompt.asked().size(), 1);
    EXPECT_EQ(m_prompt.asked().front().kind, Asked::Kind::Input);
    EXPECT_EQ(m_prompt.asked().front().text, QStringLiteral("Input the new portfolio Name for Growth"));
    EXPECT_EQ(m_prompt.asked().front().title, QStringLiteral("Update the portfolio name"));
    EXPECT_EQ(rows(QStringLiteral("select PortfolioName from portfolio")), QStringList{"Value's"});
    EXPECT_EQ(rows(QStringLiteral("select portname from equity")), QStringList{"Growth"});
    EXPECT_EQ(m_wizard.Text1.text, QStringLiteral("Value's"));
    EXPECT_EQ(m_wizard.MSFlexGrid1.textMatrix(1, 1), QStringLiteral("Value's"));
    // The old name stays in the frame's list until the list is made again.
    EXPECT_EQ(m_program.frame().cmbportfolio.items, (QStringList{"Simulation", "Growth", "Value's"}));
}

TEST_F(CreateTest, DeleteTakesThePortfoliosHoldingsAndTradesWithIt) {
    addPortfolio(db(), QStringLiteral("Growth"));
    addPortfolio(db(), QStringLiteral("Dr. Reddy's"));
    const KeyedHolding infy{"Growth", "INFY"};
    const KeyedHolding tcs{"Growth", "TCS"};
    const KeyedHolding wipro{"Dr. Reddy's", "WIPRO"};
    for (const KeyedHolding& h : {infy, tcs, wipro}) addKeyedTrade(db(), addKeyedHolding(db(), h), h);
    openFrame();
    m_wizard.load();

    m_wizard.cmddelete_Click();  // no name: no question
    EXPECT_TRUE(m_prompt.asked().isEmpty());

    m_wizard.MSFlexGrid1_Click(2, 1);
    m_prompt.answer(Answer::No);
    m_wizard.cmddelete_Click();
    expectAsked({{"Deleting Portfolio (Dr. Reddy's) will delete all equity under the portfolio, You want to proceed",
                  "Ostravel", Icon::None, Buttons::YesNo}});
    EXPECT_EQ(db().rowCount(QStringLiteral("equity")), 3);

    m_prompt.answer(Answer::Yes);
    m_wizard.cmddelete_Click();
    EXPECT_EQ(rows(QStringLiteral("select PortfolioName from portfolio")), QStringList{"Growth"});
    EXPECT_EQ(rows(QStringLiteral("select EquitySymbol from equity order by pkEquityID")),
              (QStringList{"INFY", "TCS"}));
    EXPECT_EQ(rows(QStringLiteral("select EquitySymbol from trades order by pktradeid")), (QStringList{"INFY", "TCS"}));
    EXPECT_EQ(m_program.frame().cmbportfolio.items, (QStringList{"Simulation", "Growth"}));
    EXPECT_EQ(m_program.frame().cmbportfolio.text, QStringLiteral("Simulation"));

    m_wizard.MSFlexGrid1_Click(1, 1);
    m_prompt.answer(Answer::Yes);
    m_wizard.cmddelete_Click();
    EXPECT_EQ(db().rowCount(QStringLiteral("portfolio")), 0);
    EXPECT_EQ(db().rowCount(QStringLiteral("equity")), 0);
    EXPECT_EQ(db().rowCount(QStringLiteral("trades")), 0);
}

// The grid isn't cleared before it is filled: the deleted line stays until the next load.
TEST_F(CreateTest, KeptStaleGridLineAfterADelete) {
    addPortfolio(db(), QStringLiteral("Growth"));
    addPortfolio(db(), QStringLiteral("Value"));
    m_wizard.load();
    m_wizard.MSFlexGrid1_Click(2, 1);
    m_prompt.answer(Answer::Yes);
    m_wizard.cmddelete_Click();
    EXPECT_EQ(rows(QStringLiteral("select PortfolioName from portfolio")), QStringList{"Growth"});
    EXPECT_EQ(m_wizard.MSFlexGrid1.textMatrix(2, 1), QStringLiteral("Value"));
}

// ---- frmportwizard ------------------------------------------------------------------------

class PortfolioManagerTest : public WizardTest {
protected:
    PortfolioManagerTest() : m_manager(m_program.module<PortfolioManager>()) {
        addPortfolio(db(), QStringLiteral("Growth"));
        addPortfolio(db(), QStringLiteral("Value"));
        addKeyedHolding(db(), {"Growth", "INFY", "2024-01-02", 12.5});
        addKeyedHolding(db(), {"Growth", "TCS", "2024-01-05"});
        addKeyedHolding(db(), {"Value", "INFY", "2024-02-01"});
        openFrame();
    }
    // A row of the grid's texts; row 0 holds the headings.
    QStringList gridRow(int row) const {
        QStringList texts;
        for (int c = 0; c < m_manager.MSFlexGrid1.cols(); ++c) texts << m_manager.MSFlexGrid1.textMatrix(row, c);
        return texts;
    }
    PortfolioManager& m_manager;
};

TEST_F(PortfolioManagerTest, KeptLoadAndChoiceFillTheGridUnderTheirOwnHeadings) {
    m_manager.load();
    EXPECT_EQ(m_manager.Combo1.items, (QStringList{"Growth", "Value"}));
    EXPECT_EQ(m_manager.Combo1.text, QStringLiteral("Growth"));
    EXPECT_EQ(gridRow(0).last(), QStringLiteral("Equity Start Date"));
    EXPECT_EQ(m_manager.MSFlexGrid1.colWidth(6), 1200);
    EXPECT_EQ(m_manager.MSFlexGrid1.colWidth(7), 1500);
    EXPECT_EQ(gridRow(1), (QStringList{"1", "INFY", "100", "10", "1000", "120", "12.5", "02/01/2024"}));
    EXPECT_EQ(gridRow(2).mid(0, 2), (QStringList{"2", "TCS"}));
    EXPECT_EQ(gridRow(2).at(6), QString());  // a cost of 0 shows nothing
    EXPECT_FALSE(m_manager.Frame2Visible);
    EXPECT_FALSE(m_manager.cmdtwizard.enabled);

    m_manager.Combo1.text = QStringLiteral("Value");
    m_manager.Combo1_Click();
    EXPECT_EQ(gridRow(0), (QStringList{"Nos", "Symbol", "Initial Price", "Initial shares", "Initial cash",
                                       "Current Price", "Cost Per share", "Traded Date"}));
    EXPECT_EQ(m_manager.MSFlexGrid1.colWidth(7), 1200);
    EXPECT_EQ(m_manager.MSFlexGrid1.rows(), 2);
    EXPECT_EQ(gridRow(1).at(7), QStringLiteral("01/02/2024"));

    m_manager.MSFlexGrid1_Click(1, 4);
    EXPECT_TRUE(m_manager.Frame2Visible && m_manager.Frame2Enabled);
    EXPECT_TRUE(m_manager.cmdtwizard.enabled);
    EXPECT_EQ(m_manager.col, 1);
    EXPECT_EQ(m_manager.Text1.text, QStringLiteral("INFY"));
    EXPECT_EQ(m_manager.Text2.text, QStringLiteral("INFY"));
    EXPECT_EQ(m_manager.cmdestartdate.caption, QStringLiteral("01/02/2024"));
    EXPECT_TRUE(m_prompt.asked().isEmpty());
}

TEST_F(PortfolioManagerTest, KeptUpdateChangesTheFirstHoldingOfTheSymbolWhateverItsPortfolio) {
    m_manager.load();
    m_manager.Combo1.text = QStringLiteral("Value");
    m_manager.Combo1_Click();
    m_manager.MSFlexGrid1_Click(1, 1);
    m_manager.Text1.text = QStringLiteral("INFY2");
    m_manager.cmdestartdate_Click();
    EXPECT_EQ(m_manager.DatePicker1Value, dateSerial(QDate(2024, 2, 1)));
    m_manager.DatePicker1_OK(dateSerial(QDate(2024, 3, 4)));
    EXPECT_EQ(m_manager.cmdestartdate.caption, QStringLiteral("04/Mar/2024"));
    m_manager.cmdupdate_Click();

    EXPECT_EQ(rows(QStringLiteral("select portname, EquitySymbol, EquityStartDate from equity order by pkEquityID")),
              (QStringList{"Growth|INFY2|04/03/2024", "Growth|TCS|05/01/2024", "Value|INFY|01/02/2024"}));
    EXPECT_EQ(m_manager.Text2.text, QStringLiteral("INFY2"));
    EXPECT_EQ(m_manager.MSFlexGrid1.textMatrix(0, 7), QStringLiteral("Traded Date"));
}

TEST_F(PortfolioManagerTest, KeptDeleteAsksAndRemovesTheFirstHoldingOfTheSymbol) {
    m_manager.load();
    m_manager.Combo1.text = QStringLiteral("Value");
    m_manager.Combo1_Click();
    m_manager.MSFlexGrid1_Click(1, 1);

    m_prompt.answer(Answer::No);
    m_manager.cmddelete_Click();
    expectAsked({{"ARE YOU SURE", "Confirmation", Icon::Critical, Buttons::YesNo}});
    EXPECT_EQ(db().rowCount(QStringLiteral("equity")), 3);

    m_prompt.answer(Answer::Yes);
    m_manager.cmddelete_Click();
    EXPECT_EQ(rows(QStringLiteral("select portname, EquitySymbol from equity order by pkEquityID")),
              (QStringList{"Growth|TCS", "Value|INFY"}));
}

TEST_F(PortfolioManagerTest, TradeWizardHandsTheSelectionToTheFrame) {
    m_manager.load();
    m_manager.MSFlexGrid1_Click(2, 3);
    m_manager.cmdtwizard_Click();
    EXPECT_EQ(m_program.frame().cmbequity, QStringLiteral("TCS"));
    EXPECT_EQ(m_program.frame().cmbportfolio.text, QStringLiteral("Growth"));
    m_manager.cmdpwizard_Click();
    m_manager.cmdadd_Click();
    EXPECT_EQ(shown(), (QStringList{"trade", "Create", "Newholding"}));
    m_manager.cmdclose_Click();
    EXPECT_FALSE(m_manager.loaded);
}

// The manager, the overview's grid click and the trade screen's delete report under the name
// of another form or procedure.
TEST_F(PortfolioManagerTest, KeptErrorsReportUnderAnotherProceduresName) {
    m_manager.load();
    m_manager.MSFlexGrid1_Click(1, 1);
    m_manager.cmdestartdate.caption = QStringLiteral("no date");
    for (int i = 0; i < 3; ++i) m_prompt.answer(Answer::OK);
    m_manager.cmdupdate_Click();
    m_program.module<PortfolioExplorer>().MSFlexGrid1_Click(9);
    m_program.module<Trade>().cmddelete_Click();
    QStringList places;
    for (const QString& shown : m_prompt.messages())
        places << shown.section(QStringLiteral(" in "), 1).section(QLatin1Char('\n'), 0, 0);
    EXPECT_EQ(places, (QStringList{"(Form) Create::Sub cmdadd_Click", "(Form) Portfoliomanager::Sub MSflexgrid1",
                                   "(Form) trade::Sub cmdadd_Click"}));
}

class PortfolioManagerEmpty : public test::ProgramTest {};

TEST_F(PortfolioManagerEmpty, LoadWithoutPortfoliosIsQuiet) {
    PortfolioManager& manager = m_program.module<PortfolioManager>();
    manager.load();
    EXPECT_TRUE(manager.Combo1.items.isEmpty());
    EXPECT_TRUE(m_prompt.asked().isEmpty());
}

// ---- Newholding ---------------------------------------------------------------------------

class NewHoldingTest : public WizardTest {
protected:
    NewHoldingTest() : m_holding(m_program.module<NewHolding>()) {
        addPortfolio(db(), QStringLiteral("Growth"));  // starts 02/01/2024
        addPortfolio(db(), QStringLiteral("Value"));
        addKeyedHolding(db(), {"Growth", "INFY"});
        openFrame();
    }
    NewHolding& m_holding;
};

TEST_F(NewHoldingTest, LoadFillsTheListsAndPicksTheFirstCompany) {
    m_holding.load();
    EXPECT_EQ(m_holding.Command1.caption, todayCaption());
    EXPECT_EQ(m_holding.cmbport.items, (QStringList{"Growth", "Value"}));
    EXPECT_EQ(m_program.frame().cmbportfolio.text, QStringLiteral("Growth"));
    EXPECT_TRUE(m_holding.optnsebse[NewHolding::kNSE]);
    EXPECT_FALSE(m_holding.optnsebse[NewHolding::kBSE]);
    EXPECT_EQ(m_holding.Combo1.items.size(), db().rowCount(QStringLiteral("qoutense")));
    EXPECT_EQ(m_holding.Combo1.text, QStringLiteral("20 Microns Limited"));
    EXPECT_EQ(m_holding.txtequitysymbol.text, QStringLiteral("20MICRONS"));
    EXPECT_EQ(m_program.frame().cmbequity, QStringLiteral("20MICRONS"));

    m_holding.cmbport.text = QStringLiteral("Value");
    m_holding.cmbport_Click();
    EXPECT_EQ(m_program.frame().cmbportfolio.text, QStringLiteral("Value"));
    EXPECT_TRUE(m_prompt.asked().isEmpty());
}

TEST_F(NewHoldingTest, KeptBothExchangesListTheSameCompanies) {
    db().execute(QStringLiteral("update qoutense set symbol='500209' where ticker='INFY'"));
    m_holding.load();
    struct Case {
        int exchange;
        QString code;
    };
    for (const Case& c : {Case{NewHolding::kBSE, "500209"}, Case{NewHolding::kNSE, "INFY"}}) {
        m_holding.optnsebse_Click(c.exchange);
        EXPECT_EQ(m_holding.Combo1.items.size(), db().rowCount(QStringLiteral("qoutense")));
        m_holding.Combo1.text = QStringLiteral("Infosys Limited");
        m_holding.Combo1_Click();
        EXPECT_EQ(m_holding.txtequitysymbol.text, c.code);
        EXPECT_EQ(m_program.frame().cmbequity, c.code);
    }
    // A ticker typed brings its company; half a ticker leaves the company as it was.
    m_holding.txtequitysymbol.text = QStringLiteral("TCS");
    m_holding.txtequitysymbol_Change();
    EXPECT_EQ(m_holding.Combo1.text, QStringLiteral("Tata Consultancy Services Limited"));
    m_holding.txtequitysymbol.text = QStringLiteral("TC");
    m_holding.txtequitysymbol_Change();
    EXPECT_EQ(m_holding.Combo1.text, QStringLiteral("Tata Consultancy Services Limited"));
    EXPECT_TRUE(m_prompt.asked().isEmpty());
}

TEST_F(NewHoldingTest, ConfirmRefusesInTheOrderOfItsChecks) {
    const Question noSymbol{"You have not Entered the Equity Symbol", "Ostravel"};
    const Question noPortfolio{"You have not Selected the Portfolio", "Select PortFolio", Icon::Critical};
    const Question early{"You cannot have Equity Start Date before Portfolio Start Date", "Wrong date",
                         Icon::Information};
    const Question sure{"Are You sure you have selected the Right Code", "Confirmation", Icon::None, Buttons::YesNo};
    const Question held{"The Current Equity already exists in your Portfolio, Select Different Equity", "Ostravel"};
    struct Case {
        const char* label;
        QString symbol;
        QString portfolio;
        QString date;
        QList<Question> asked;
        QString focus;
    };
    const Case cases[] = {
        {"no symbol", "", "Growth", "02/Jan/2024", {noSymbol}, "txtequitysymbol"},
        {"no symbol comes before Simulation", "", "Simulation", "02/Jan/2024", {noSymbol}, "txtequitysymbol"},
        {"Simulation", "TCS", "Simulation", "02/Jan/2024", {noPortfolio}, "cmbport"},
        {"no portfolio", "TCS", "", "02/Jan/2024", {noPortfolio}, "cmbport"},
        {"a portfolio that doesn't exist", "TCS", "Nowhere", "02/Jan/2024", {noPortfolio}, "cmbport"},
        {"no portfolio comes before an early date", "TCS", "", "01/Jan/2020", {noPortfolio}, "cmbport"},
        {"start before the portfolio", "TCS", "Growth", "01/Jan/2024", {early}, "Command1"},
        {"a caption that is no date", "TCS", "Growth", "Date", {{"Please Enter Numeric Value", "Ostravel"}}, ""},
        {"answered No", "TCS", "Growth", "02/Jan/2024", {sure}, "Combo1"},
        {"already held", "INFY", "Growth", "02/Jan/2024", {sure, held}, "Combo1"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        m_holding.unload();
        m_holding.load();
        m_prompt.clear();
        m_holding.txtequitysymbol.text = c.symbol;
        m_holding.cmbport.text = c.portfolio;
        m_holding.Command1.caption = c.date;
        if (c.asked.contains(sure))
            m_prompt.answer(c.asked.size() == 1 ? Answer::No : Answer::Yes);
        m_holding.cmdok_Click();
        expectAsked(c.asked);
        EXPECT_EQ(m_holding.focus, c.focus);
        EXPECT_EQ(db().rowCount(QStringLiteral("equity")), 1);
        EXPECT_TRUE(m_holding.loaded);
        EXPECT_TRUE(shown().isEmpty());
        // Only the refusal of an early start puts today on the date button.
        EXPECT_EQ(m_holding.Command1.caption, c.asked.front() == early ? todayCaption() : c.date);
    }
}

TEST_F(NewHoldingTest, ConfirmWritesTheHoldingsIdentityAndHandsOverToTheSettingTrade) {
    m_holding.load();
    m_holding.txtequitysymbol.text = QStringLiteral("TCS");
    m_holding.txtequitysymbol_Change();
    m_holding.Command1_Click();
    m_holding.DatePicker1_OK(dateSerial(QDate(2024, 1, 2)));  // the portfolio's own date
    m_prompt.answer(Answer::Yes);
    m_holding.cmdok_Click();

    expectAsked({{"Are You sure you have selected the Right Code", "Confirmation", Icon::None, Buttons::YesNo}});
    // The columns of the holding's identity, and every other column at the store's default.
    EXPECT_EQ(rows(QStringLiteral("select * from equity where EquitySymbol='TCS'")),
              QStringList{"2|1|1|TCS|0|0|0|Growth|0|02/01/2024|0|0|0|0|0|0|0|0|0|Null|0|0|0|1|0"});
    EXPECT_EQ(m_program.frame().cmbequity, QStringLiteral("TCS"));
    const Trade& trade = m_program.module<Trade>();
    EXPECT_EQ(trade.txtequity.text, QStringLiteral("TCS"));
    EXPECT_EQ(trade.caption, QStringLiteral("Setting Trade for Tata Consultancy Services Limited"));
    EXPECT_TRUE(trade.Option1);
    EXPECT_EQ(shown(), QStringList{"trade"});
    EXPECT_FALSE(m_holding.loaded);
}

TEST_F(NewHoldingTest, TheSameSymbolInAnotherPortfolioIsANewHolding) {
    m_holding.load();
    m_holding.txtequitysymbol.text = QStringLiteral("INFY");
    m_holding.cmbport.text = QStringLiteral("Value");
    m_holding.Command1.caption = tomorrowCaption();  // a start in the future passes
    m_prompt.answer(Answer::Yes);
    m_holding.cmdok_Click();
    EXPECT_EQ(rows(QStringLiteral(
                  "select portname, EquitySymbol, fkPortfolioID, VealieFlag from equity order by pkEquityID")),
              (QStringList{"Growth|INFY|1|1", "Value|INFY|2|1"}));
}

TEST_F(NewHoldingTest, NewAndCancelUnloadTheWizard) {
    m_holding.load();
    m_holding.cmdnew_Click();
    EXPECT_FALSE(m_holding.loaded);
    EXPECT_EQ(shown(), QStringList{"frmnewsymbol"});
    m_holding.load();
    m_holding.cmdclose_Click();
    EXPECT_FALSE(m_holding.loaded);
}

// ---- frmnewsymbol -------------------------------------------------------------------------

TEST_F(WizardTest, NewSymbolRefusesEmptyFieldsAndListedSymbols) {
    NewSymbol& symbol = m_program.module<NewSymbol>();
    const long long listed = db().rowCount(QStringLiteral("qoutense"));
    struct Case {
        const char* label;
        QString ticker;
        QString name;
        QString quoteCode;
        QString message;
        QString tickerAfter;
    };
    const Case cases[] = {
        {"no symbol", "", "New Co", "NEWCO.NS", "Please Fill All Field", ""},
        {"no quote code", "newco", "New Co", "", "Please Fill All Field", "newco"},
        {"listed, typed in lower case", "infy", "", "INFY.NS",
         "The Current Symbol already in stock list, Select symbol which cannot find in the list", "INFY"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        m_prompt.clear();
        symbol.txtnewsymbol.text = c.ticker;
        symbol.txtnewstock.text = c.name;
        symbol.Text1.text = c.quoteCode;
        symbol.cmdadd_Click();
        expectAsked({{c.message, "Ostravel"}});
        EXPECT_EQ(symbol.focus, QStringLiteral("txtnewsymbol"));
        EXPECT_EQ(symbol.txtnewsymbol.text, c.tickerAfter);
        EXPECT_EQ(db().rowCount(QStringLiteral("qoutense")), listed);
    }
    EXPECT_FALSE(symbol.Command1.enabled);
}

TEST_F(WizardTest, NewSymbolJoinsTheSymbolList) {
    NewSymbol& symbol = m_program.module<NewSymbol>();
    symbol.txtnewsymbol.text = QStringLiteral("newco");
    symbol.txtnewstock.text = QStringLiteral("New Co's Limited");
    symbol.Text1.text = QStringLiteral("NEWCO.NS");
    symbol.cmdadd_Click();
    expectAsked({{"New stocksysmbol added", "Added", Icon::Information}});
    EXPECT_EQ(rows(QStringLiteral("select ticker, name, yahoonse, symbol from qoutense where ticker='NEWCO'")),
              QStringList{"NEWCO|New Co's Limited|NEWCO.NS|Null"});
}

// ---- the overview's buttons ---------------------------------------------------------------

TEST_F(WizardTest, AddNewHoldingWithoutAPortfolioLeadsToThePortfolioWizard) {
    PortfolioExplorer& explorer = m_program.module<PortfolioExplorer>();
    explorer.cmdadd_Click();
    expectAsked({{"Please create Portfolio for holding equity", "Create portfolio"}});
    EXPECT_EQ(shown(), QStringList{"Create"});
    EXPECT_FALSE(m_program.module<NewHolding>().loaded);
}

TEST_F(WizardTest, AddNewHoldingOpensTheWizardOnTheCurrentPortfolio) {
    addPortfolio(db(), QStringLiteral("Growth"));
    addPortfolio(db(), QStringLiteral("Value"));
    openFrame();
    m_program.frame().cmbportfolio.text = QStringLiteral("Value");
    PortfolioExplorer& explorer = m_program.module<PortfolioExplorer>();
    explorer.cmdadd_Click();
    explorer.cmdcreate_Click();
    EXPECT_EQ(shown(), (QStringList{"Newholding", "Create"}));
    EXPECT_EQ(m_program.module<NewHolding>().cmbport.text, QStringLiteral("Value"));
    EXPECT_TRUE(m_prompt.asked().isEmpty());
}

}  // namespace

}  // namespace ostravel
