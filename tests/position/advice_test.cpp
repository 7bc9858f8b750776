#include "position/advice.h"

#include "position/equitymanager.h"
#include "position_fixture.h"

namespace ostravel {
namespace {

const QString kNoShares = QStringLiteral("You have either your Shareqty= 0 or the price = 0 for the stock INFY");
const QString kNotHeld = QStringLiteral("Please select the stock available in your portfolio ");

struct AdviceCase {
    const char* name;
    HoldingRow holding;
    RuleSettings rule;
    QString currtotal;  // the screen's figures left by the previous run
    QString currcash;
    // Expected.
    QString verdict;
    QString nextsellprice, nextsellshares, nextbuyprice, nextbuyshares;
    QString sellAmount;  // txtnextsellamount
    QString message;     // the one message box, if any
};

HoldingRow at(double price, double cash = 5000, std::optional<double> portControl = 10000, double shares = 100) {
    HoldingRow row;
    row.price = price;
    row.cash = cash;
    row.portControl = portControl;
    row.shares = shares;
    return row;
}

// A holding at 120 in the portfolio named.
HoldingRow in(const QString& portfolio) {
    HoldingRow row;
    row.portfolio = portfolio;
    return row;
}

RuleSettings rule(double minTradeSell, double minTradeBuy = 1000, double minSellSh = 1, double minBuySh = 1,
                  double resistSell = 10) {
    return {minTradeSell, minTradeBuy, minSellSh, minBuySh, resistSell, 10};
}

const AdviceCase kCases[] = {
    {"price 120 holds", at(120), {}, "", "", "HOLD", "122.22", "8", "81.82", "12", "1000", ""},
    {"portfolio Kumar's", in(QStringLiteral("Kumar's")), {}, "", "", "HOLD", "122.22", "8", "81.82", "12", "1000", ""},
    {"KeptSaleAmountOfUnroundedShares", at(140), {}, "19000", "5000", "SELL", "140", "19", "81.82", "12", "2600", ""},
    {"KeptVealieReadsTheBoxesAndChangesNothing",
     at(140),
     {},
     "19000",
     "7000",
     "HOLD",
     "122.22",
     "8",
     "81.82",
     "12",
     "1000",
     ""},
    {"KeptBuySetsFontName24", at(75), {}, "", "", "BUY", "122.22", "8", "75", "23", "1000", ""},
    {"KeptNoCashStoresNoBuy", at(75, 0), {}, "", "", "HOLD", "122.22", "8", "0", "0", "1000", ""},
    {"KeptBuyBeyondTheCash", at(75, 100), {}, "", "", "BUY", "122.22", "8", "75", "23", "1000", ""},
    {"dear share sells on the share gate", at(1100, 5000, 97000), rule(5000), "", "", "SELL", "1100", "2", "872.73",
     "1", "2000", ""},
    {"a price just above 1000 opens the share gate", at(1000.5, 5000, 88045), rule(5000), "", "", "SELL", "1000.5", "2",
     "791.32", "1", "2000", ""},
    {"KeptShareGateShutAtExactly1000", at(1000, 5000, 88000), rule(5000), "", "", "HOLD", "1033.33", "5", "790.91", "1",
     "5000", ""},
    {"dear share buys on the share gate, next sell raised to the share minimum", at(1100, 5000, 123000),
     rule(1000, 5000), "", "", "BUY", "1377.78", "1", "1100", "2", "1377.78", ""},
    {"KeptNextTradeShareMinimumAbove1000", at(120), rule(1000, 1000, 10, 20), "", "", "HOLD", "122.22", "8", "81.82",
     "12", "1000", ""},
    {"share minimum makes the sale bigger than its amount", at(50, 5000, 4400), rule(50, 1000, 5), "", "", "SELL", "50",
     "5", "30.91", "32", "250", ""},
    {"empty PortControl counts as 0",
     at(120, 5000, std::nullopt),
     {},
     "",
     "",
     "SELL",
     "120",
     "90",
     "-9.09",
     "-110",
     "10800",
     ""},
    {"next buy price of 0 is tried again with 500",
     at(120, 5000, 1000),
     {},
     "",
     "",
     "SELL",
     "120",
     "82",
     "4.55",
     "110",
     "9800",
     ""},
    {"KeptSecondZeroEndsTheNextBuyRetry", at(120, 5000, 500), rule(1000, 500), "", "", "SELL", "120", "86", "0", "0",
     "10300", kNoShares},
    {"no shares", at(120, 5000, 10000, 0), {}, "", "", "", "0", "0", "0", "0", "", kNoShares},
    {"price 0", at(0), {}, "", "", "", "0", "0", "0", "0", "", kNoShares},
    {"sell resistance of 100", at(120), rule(1000, 1000, 1, 1, 100), "", "", "", "0", "0", "0", "0", "", kNoShares},
};

class AdviceTest : public PositionTest {};

TEST_F(AdviceTest, WorkedExamples) {
    for (const AdviceCase& c : kCases) {
        SCOPED_TRACE(c.name);
        execute(QStringLiteral("delete from equity"));
        setRule(c.rule);
        addHolding(c.holding);
        select(c.holding);
        EquityManager& em = m_program.module<EquityManager>();
        em.unload();
        em.txtcurrtotal.text = c.currtotal;
        em.txtcurrcash.text = c.currcash;
        m_prompt.clear();
        int overviews = 0;
        m_program.module<AdviceValues>().showPortfolioexplorer = [&] { ++overviews; };

        const AdviceOutcome outcome = advise(m_program);

        EXPECT_EQ(em.lbladvise.caption, c.verdict);
        EXPECT_EQ(stored(c.holding, QStringLiteral("NextSellPrice")), c.nextsellprice);
        EXPECT_EQ(stored(c.holding, QStringLiteral("NextSellShares")), c.nextsellshares);
        EXPECT_EQ(stored(c.holding, QStringLiteral("NextBuyPrice")), c.nextbuyprice);
        EXPECT_EQ(stored(c.holding, QStringLiteral("NextBuyShares")), c.nextbuyshares);
        EXPECT_EQ(em.txtnextsellamount.text, c.sellAmount);
        EXPECT_EQ(m_prompt.messages(), c.message.isEmpty() ? QStringList() : QStringList{c.message});
        EXPECT_EQ(outcome, c.message.isEmpty() ? AdviceOutcome::Advised : AdviceOutcome::NoSharesOrPrice);
        // A run that ends on no shares or no price brings up the overview.
        EXPECT_EQ(overviews, c.message.isEmpty() ? 0 : 1);
        // Only the buy branch sets the font, by its name.
        EXPECT_EQ(em.lbladvise.fontName == QStringLiteral("24"), c.verdict == QStringLiteral("BUY"));
        EXPECT_EQ(m_program.module<AdviceValues>().adviseprice, 0.0f);
    }
}

TEST_F(AdviceTest, ScreenShowsBothSidesInTheirColours) {
    const HoldingRow buying = at(75);
    addHolding(buying);
    select(buying);
    advise(m_program);
    const EquityManager& em = m_program.module<EquityManager>();
    // The buy side in green, the shares and prices in the boxes whose names say otherwise.
    EXPECT_EQ(em.txtnextbuy.text, QStringLiteral("23"));
    EXPECT_EQ(em.txtnextbuyshare.text, QStringLiteral("75"));
    EXPECT_EQ(em.txtnextbuyamount.text, QStringLiteral("1750"));
    for (const TextBox* box : {&em.txtnextbuy, &em.txtnextbuyshare, &em.txtnextbuyamount})
        EXPECT_EQ(box->foreColour, kGreen);
    // The sell side is a future price, left white.
    EXPECT_EQ(em.txtnextsell.text, QStringLiteral("8"));
    EXPECT_EQ(em.txtnextsellshare.text, QStringLiteral("122.22"));
    for (const TextBox* box : {&em.txtnextsell, &em.txtnextsellshare, &em.txtnextsellamount})
        EXPECT_EQ(box->foreColour, kWhite);
    EXPECT_EQ(em.txtcurrcps.text, QStringLiteral("100"));
    EXPECT_FALSE(stored(buying, QStringLiteral("LastUpdated")).isEmpty());
}

TEST_F(AdviceTest, CountsTheLedgersSellsAndBuys) {
    const HoldingRow row = at(120);
    addHolding(row);
    HoldingRow other = row;
    other.portfolio = QStringLiteral("Other");
    addHolding(other);
    addTrade(row, 10, 100, QStringLiteral("Buy"));
    addTrade(row, 10, 100, QStringLiteral("Buy"));
    addTrade(row, 10, 110, QStringLiteral("Buy"));
    addTrade(row, -5, 120, QStringLiteral("Sell"));
    addTrade(other, -5, 120, QStringLiteral("Sell"));
    select(row);
    advise(m_program);
    EXPECT_EQ(m_program.module<EquityManager>().lblsell.caption, QStringLiteral("1"));
    EXPECT_EQ(m_program.module<EquityManager>().lblbuy.caption, QStringLiteral("3"));
}

TEST_F(AdviceTest, HoldingNotInThePortfolioAsksForAnother) {
    addHolding(at(120));
    HoldingRow elsewhere = at(120);
    elsewhere.portfolio = QStringLiteral("Elsewhere");
    select(elsewhere);
    int focused = 0;
    m_program.module<AdviceValues>().focusCmbequityname = [&] { ++focused; };
    EXPECT_EQ(advise(m_program), AdviceOutcome::NotInPortfolio);
    EXPECT_EQ(m_prompt.messages(), QStringList{kNotHeld});
    EXPECT_EQ(focused, 1);
}

TEST_F(AdviceTest, OtherErrorsAreLoggedAndTheNextStatementRuns) {
    const HoldingRow row = at(120);
    addHolding(row);
    execute(QStringLiteral("update users set ResistSell='abc'"));
    select(row);
    m_prompt.answer(Answer::OK);
    m_prompt.answer(Answer::OK);
    // The sell amount and then the next sell price fail; the next sell price stays 0, and the
    // division by it ends the run.
    EXPECT_EQ(advise(m_program), AdviceOutcome::NoSharesOrPrice);
    const QStringList shown = m_prompt.messages();
    ASSERT_EQ(shown.size(), 3);
    for (int i = 0; i < 2; ++i)
        EXPECT_TRUE(shown[i].startsWith(QStringLiteral("Error 13 in (Module) Module1::Sub getadvise\n")))
            << shown[i].toStdString();
    EXPECT_EQ(shown[2], kNoShares);
}

TEST_F(AdviceTest, KeptWhatIfAdviceStoredButItsPriceForgotten) {
    const HoldingRow row = at(120);
    addHolding(row);
    select(row);
    m_prompt.answerText(QStringLiteral("75"));
    EXPECT_EQ(advisewhatif(m_program), AdviceOutcome::Advised);
    ASSERT_EQ(m_prompt.asked().size(), 1);
    EXPECT_EQ(m_prompt.asked().front().kind, Asked::Kind::Input);
    EXPECT_EQ(m_prompt.asked().front().text, QStringLiteral("Enter the Price"));
    EXPECT_EQ(m_prompt.asked().front().title, QStringLiteral("What if analysis"));
    EXPECT_EQ(m_program.module<EquityManager>().lbladvise.caption, QStringLiteral("BUY"));
    EXPECT_EQ(stored(row, QStringLiteral("NextBuyPrice")), QStringLiteral("75"));
    EXPECT_EQ(m_program.module<AdviceValues>().adviseprice, 0.0f);

    // Recalculate afterwards advises at the stored quote again.
    advise(m_program);
    EXPECT_EQ(m_program.module<EquityManager>().lbladvise.caption, QStringLiteral("HOLD"));
    EXPECT_EQ(stored(row, QStringLiteral("NextBuyPrice")), QStringLiteral("81.82"));
}

TEST_F(AdviceTest, WhatIfWithoutAPriceDoesNothing) {
    const HoldingRow row = at(120);
    addHolding(row);
    select(row);
    for (const std::optional<QString>& answer :
         {std::optional<QString>(), std::optional<QString>(QStringLiteral("abc")),
          std::optional<QString>(QStringLiteral("0"))}) {
        m_prompt.clear();
        m_prompt.answerText(answer);
        EXPECT_EQ(advisewhatif(m_program), AdviceOutcome::NotRun);
        EXPECT_EQ(m_prompt.messages(), QStringList());
        EXPECT_EQ(stored(row, QStringLiteral("NextSellPrice")), QStringLiteral("0"));
    }
}

}  // namespace
}  // namespace ostravel
