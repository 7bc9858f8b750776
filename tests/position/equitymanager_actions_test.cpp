#include "position/equitymanager_actions.h"

#include "context/screens.h"
#include "ledger/ledger_requests.h"
#include "ledger/newholding.h"
#include "ledger/trade.h"
#include "position/equitymanager.h"
#include "position_fixture.h"

namespace ostravel {

namespace {

const QString kSimulation = QStringLiteral("Simulation");

template <class Case>
std::string caseName(const ::testing::TestParamInfo<Case>& tested) {
    return tested.param.name;
}

class EquityManagerActionsTest : public PositionTest {
protected:
    // The buttons lead into the ledger's screens as the program wires them at start-up.
    EquityManagerActionsTest() {
        setRule({});
        installLedgerRequests(m_program);
    }

    EquityManagerActions& actions() { return m_program.module<EquityManagerActions>(); }
    EquityManager& em() { return m_program.module<EquityManager>(); }
    const QStringList& shown() { return m_program.module<Screens>().shown(); }
};

struct ActivateCase {
    const char* name;
    bool holding;      // a holding exists in some portfolio
    bool portfolio;    // a portfolio row exists
    QString selected;  // the main frame's portfolio
    std::vector<Answer> answers;
    QStringList questions;  // the texts asked, in order
    QStringList screens;    // the screens shown
};

const QString kNoEquity = QStringLiteral("You do not have any Equity holding , Do you want to Create new holding");
const QString kNoPortfolio = QStringLiteral("You Need to Create Portfolio to Hold Equity");

class FormActivateTest : public EquityManagerActionsTest, public ::testing::WithParamInterface<ActivateCase> {};

TEST_P(FormActivateTest, OffersTheWayToAHoldingOnlyWhenThereIsNone) {
    const ActivateCase& c = GetParam();
    if (c.holding)
        addHolding({});
    else if (c.portfolio)
        execute(QStringLiteral("insert into portfolio (fkUserID, PortfolioName) values (1, 'Growth')"));
    m_program.frame().cmbportfolio.text = c.selected;
    for (Answer answer : c.answers) m_prompt.answer(answer);

    actions().Form_Activate();

    EXPECT_EQ(m_prompt.messages(), c.questions);
    for (const Asked& asked : m_prompt.asked()) {
        const bool noEquity = asked.text == kNoEquity;
        EXPECT_EQ(asked.title, noEquity ? QStringLiteral("No Equity Exist") : QStringLiteral("Add PortFolio"));
        EXPECT_EQ(asked.buttons, noEquity ? Buttons::YesNo : Buttons::OKCancel);
    }
    EXPECT_TRUE(m_prompt.allAnswered());
    EXPECT_EQ(shown(), c.screens);
    // Newholding opens on its option "New holding".
    EXPECT_EQ(m_program.module<NewHolding>().Option1, c.screens == QStringList{"Newholding"});
    // Run Simulation belongs to "Simulation" alone, and the rule's settings are always loaded.
    EXPECT_EQ(em().Command3.enabled, c.selected == kSimulation);
    EXPECT_EQ(em().txtmtbuy.text, QStringLiteral("1000"));
    EXPECT_EQ(em().txtsellres.text, QStringLiteral("10"));
}

INSTANTIATE_TEST_SUITE_P(
    Paths, FormActivateTest,
    ::testing::Values(
        ActivateCase{"HoldingExists", true, true, "Growth", {}, {}, {}},
        ActivateCase{"SimulationAsksNothing", false, false, "Simulation", {}, {}, {}},
        ActivateCase{"NoRefused", false, false, "Growth", {Answer::No}, {kNoEquity}, {}},
        ActivateCase{"NoPortfolioCreate",
                     false,
                     false,
                     "Growth",
                     {Answer::Yes, Answer::OK},
                     {kNoEquity, kNoPortfolio},
                     {"Create"}},
        ActivateCase{
            "NoPortfolioCancel", false, false, "Growth", {Answer::Yes, Answer::Cancel}, {kNoEquity, kNoPortfolio}, {}},
        ActivateCase{"PortfolioNewholding", false, true, "Growth", {Answer::Yes}, {kNoEquity}, {"Newholding"}}),
    caseName<ActivateCase>);

TEST_F(EquityManagerActionsTest, RecalculateAdvisesAndNamesTheCompany) {
    const HoldingRow row;
    addHolding(row);
    select(row);
    em().cmdaddtrade.enabled = false;

    EXPECT_EQ(actions().Command5_Click(), EquityManagerActions::Recalculated::Done);

    EXPECT_TRUE(m_prompt.messages().isEmpty());
    EXPECT_EQ(em().lbladvise.caption, QStringLiteral("HOLD"));
    EXPECT_EQ(stored(row, QStringLiteral("nextsellprice")), QStringLiteral("122.22"));
    EXPECT_EQ(em().caption, QStringLiteral("Infosys Limited"));
    EXPECT_EQ(em().Label17_2.caption, QStringLiteral("Actual Trade"));
    EXPECT_TRUE(em().cmdaddtrade.enabled);
    EXPECT_TRUE(em().Frame4Visible);
    EXPECT_TRUE(em().Command5.enabled);
}

TEST_F(EquityManagerActionsTest, RecalculateOnACodeOutsideTheSymbolListSaysSelectTheEquity) {
    const HoldingRow row{.symbol = QStringLiteral("ZZNOCODE")};
    addHolding(row);
    select(row);

    EXPECT_EQ(actions().Command5_Click(), EquityManagerActions::Recalculated::SelectEquity);

    ASSERT_EQ(m_prompt.asked().size(), 1);
    EXPECT_EQ(m_prompt.asked()[0].text, QStringLiteral("Select the Equity"));
    EXPECT_EQ(m_prompt.asked()[0].title, QStringLiteral("Select Equity"));
    // The advice before the lookup stands, and the button is usable again.
    EXPECT_EQ(stored(row, QStringLiteral("nextbuyprice")), QStringLiteral("81.82"));
    EXPECT_TRUE(em().Command5.enabled);
    EXPECT_EQ(em().caption, EquityManager::kCaption);
}

TEST_F(EquityManagerActionsTest, RecalculateUnderSimulationAdvisesNothingAndTakesAddTradeAway) {
    const HoldingRow row;
    addHolding(row);
    select(row);
    m_program.frame().cmbportfolio.text = kSimulation;

    EXPECT_EQ(actions().Command5_Click(), EquityManagerActions::Recalculated::Done);

    EXPECT_FALSE(em().cmdaddtrade.enabled);
    EXPECT_FALSE(em().Frame4Visible);
    EXPECT_EQ(em().Label17_2.caption, EquityManager::kRecommendedTrade);
    EXPECT_EQ(stored(row, QStringLiteral("nextsellprice")), QStringLiteral("0"));
    EXPECT_EQ(em().caption, QStringLiteral("Infosys Limited"));
}

struct WhatIfCase {
    const char* name;
    QString portfolio;
    std::optional<QString> price;  // the answer typed, if asked
    bool asked;
    QString lbladvise;
    QString nextbuyprice;  // "0": not advised
};

class WhatIfTest : public EquityManagerActionsTest, public ::testing::WithParamInterface<WhatIfCase> {};

TEST_P(WhatIfTest, ShowsTheAdviceAndAsksForAPriceOnlyForARealPortfolio) {
    const WhatIfCase& c = GetParam();
    const HoldingRow row;
    addHolding(row);
    select(row);
    m_program.frame().cmbportfolio.text = c.portfolio;
    if (c.asked)
        m_prompt.answerText(c.price);

    actions().cmdwhatif_Click();

    EXPECT_TRUE(em().Frame4Visible);
    EXPECT_TRUE(m_prompt.allAnswered());
    ASSERT_EQ(m_prompt.asked().size(), c.asked ? 1 : 0);
    if (c.asked) {
        EXPECT_EQ(m_prompt.asked()[0].text, QStringLiteral("Enter the Price"));
        EXPECT_EQ(m_prompt.asked()[0].title, QStringLiteral("What if analysis"));
    }
    EXPECT_EQ(em().lbladvise.caption, c.lbladvise);
    EXPECT_EQ(stored(row, QStringLiteral("nextbuyprice")), c.nextbuyprice);
}

INSTANTIATE_TEST_SUITE_P(Portfolios, WhatIfTest,
                         ::testing::Values(WhatIfCase{"Simulation", kSimulation, std::nullopt, false, "", "0"},
                                           WhatIfCase{"PortfolioAt75", "Growth", "75", true, "BUY", "75"},
                                           WhatIfCase{"PortfolioCancelled", "Growth", std::nullopt, true, "", "0"}),
                         caseName<WhatIfCase>);

struct AddTradeCase {
    const char* name;
    QString advice;
    QString shares, price;  // what the trade screen gets
    QString method;
};

class AddTradeTest : public EquityManagerActionsTest, public ::testing::WithParamInterface<AddTradeCase> {};

TEST_P(AddTradeTest, FillsTheTradeScreenFromTheAdvisedSide) {
    const AddTradeCase& c = GetParam();
    const HoldingRow row;
    addHolding(row);
    addTrade(row, 100, 100, QStringLiteral("Buy"));
    select(row);
    m_program.frame().caption = QStringLiteral("Infosys Limited");
    em().lbladvise.caption = c.advice;
    em().txtnextsell.text = QStringLiteral("19");
    em().txtnextsellshare.text = QStringLiteral("140");
    em().txtnextbuy.text = QStringLiteral("23");
    em().txtnextbuyshare.text = QStringLiteral("75");

    EXPECT_EQ(actions().cmdaddtrade_Click(), EquityManagerActions::TradeStart::Shown);

    const Trade& trade = m_program.module<Trade>();
    EXPECT_TRUE(trade.loaded);
    EXPECT_EQ(trade.txtshare.text, c.shares);
    EXPECT_EQ(trade.txtprice.text, c.price);
    EXPECT_EQ(trade.cmbmethod.text, c.method);
    EXPECT_FALSE(trade.Option1);
    EXPECT_EQ(trade.caption, QStringLiteral("Trade Details of  Infosys Limited"));
    EXPECT_EQ(shown(), QStringList{"trade"});
    EXPECT_TRUE(m_prompt.asked().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Advice, AddTradeTest,
                         ::testing::Values(AddTradeCase{"Sell", "SELL", "19", "140", "Sell"},
                                           AddTradeCase{"Buy", "BUY", "23", "75", "Buy"},
                                           AddTradeCase{"Hold", "HOLD", "23", "75", "Buy"}),
                         caseName<AddTradeCase>);

TEST_F(EquityManagerActionsTest, AddTradeForAHoldingWithoutTradesInThePortfolioIsRefused) {
    const HoldingRow row;
    addHolding(row);
    addTrade({.portfolio = QStringLiteral("Other")}, 10, 100, QStringLiteral("Buy"));
    select(row);

    EXPECT_EQ(actions().cmdaddtrade_Click(), EquityManagerActions::TradeStart::NotInPortfolio);

    EXPECT_EQ(m_prompt.messages(), QStringList{"INFY.NS is not in your portfolio"});
    EXPECT_TRUE(shown().isEmpty());
    EXPECT_FALSE(m_program.module<Trade>().loaded);
}

}  // namespace

}  // namespace ostravel
