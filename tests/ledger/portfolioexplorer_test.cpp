#include "ledger/portfolioexplorer.h"

#include "context/screens.h"
#include "ledger/trade.h"
#include "position/equitymanager.h"
#include "tests/ledger/holdings.h"
#include "tests/support/program_test.h"

namespace ostravel {
namespace {

constexpr std::uint32_t kRed = 255;
constexpr std::uint32_t kGreen = 65280;
const QString kPortfolio = QStringLiteral("Growth");

class PortfolioExplorerTest : public test::ProgramTest {
protected:
    void SetUp() override {
        addPortfolio(db(), kPortfolio);
        m_program.frame().cmbportfolio.text = kPortfolio;
    }
    Database& db() { return m_program.store().database(); }
    PortfolioExplorer& explorer() { return m_program.module<PortfolioExplorer>(); }
    const FlexGridData& grid1() { return explorer().MSFlexGrid1; }
    QStringList line(int row) {
        QStringList cells;
        for (int col = 0; col < grid1().cols(); ++col) cells << grid1().textMatrix(row, col);
        return cells;
    }
    // One holding whose raw profit is `profit`: one share at that price, nothing at the start.
    void holdingWithProfit(const QString& symbol, double profit) {
        addHolding(db(), kPortfolio, {symbol, 0, 0, 0, 1, profit, 0});
    }
};

TEST_F(PortfolioExplorerTest, SmallPortfolioWorkedByHand) {
    // Profit 607.5 shows as 608 before its commission of 12.75 is taken off.
    addHolding(db(), kPortfolio, {QStringLiteral("INFY"), 100, 10, 1000, 12, 150.55, 800.9});
    addTrade(db(), kPortfolio, QStringLiteral("INFY"), 10.25);
    addTrade(db(), kPortfolio, QStringLiteral("INFY"), 2.5);
    // No trades: the commission is Null and the line keeps its profit without it.
    addHolding(db(), kPortfolio, {QStringLiteral("TCS"), 200, 5, 500, 5, 180.2, 500});
    // Profit 0 with a commission of 0: no number to compute with, so 0 in the default colour.
    addHolding(db(), kPortfolio, {QStringLiteral("SBIN"), 50, 20, 0, 20, 50, 0});
    addTrade(db(), kPortfolio, QStringLiteral("SBIN"), 0);

    selectportfolio(m_program);

    EXPECT_EQ(line(0),
              (QStringList{"Nos", "Symbol", "Shares", "Price", "Cash", "Commission", "Stock Value", "Profit/Loss"}));
    EXPECT_EQ(line(1), (QStringList{"1", "INFY", "12", "Rs.150.55", "Rs.800.9", "Rs.12.75", "1,806.6", "Rs.595.25"}));
    EXPECT_EQ(line(2), (QStringList{"2", "TCS", "5", "Rs.180.2", "Rs.500", "Rs.", "901", "Rs.-99"}));
    EXPECT_EQ(line(3), (QStringList{"3", "SBIN", "20", "Rs.50", "Rs.", "Rs.", "1,000", "Rs.0"}));
    EXPECT_EQ(line(4), (QStringList{"", "Total", "", "", "Rs.1,300.9", "Rs.12.75", "Rs.3,707.6", "Rs.496.25"}));
    EXPECT_EQ(grid1().rows(), 5);

    EXPECT_EQ(grid1().cellForeColour(1, 7), kGreen);
    EXPECT_EQ(grid1().cellForeColour(2, 7), kRed);
    EXPECT_EQ(grid1().cellForeColour(3, 7), std::nullopt);
    EXPECT_EQ(grid1().cellForeColour(4, 7), kGreen);
    EXPECT_EQ(grid1().cellForeColour(1, 6), std::nullopt);

    const FlexGridData& grid2 = explorer().MSFlexGrid2;
    EXPECT_EQ(grid2.rows(), 5);
    EXPECT_EQ(grid2.textMatrix(0, 1), QStringLiteral("50 Day's DMA"));
    EXPECT_EQ(grid2.textMatrix(2, 0), QStringLiteral("TCS"));
    EXPECT_EQ(grid2.textMatrix(2, 1), QStringLiteral("101.5"));
    EXPECT_EQ(grid2.textMatrix(2, 4), QStringLiteral("7000"));

    // The list comes in the order the store gives; its first entry is selected.
    QStringList symbols = explorer().cmbequity.items;
    ASSERT_EQ(symbols.size(), 3);
    EXPECT_EQ(explorer().cmbequity.text, symbols.front());
    symbols.sort();
    EXPECT_EQ(symbols, (QStringList{"INFY", "SBIN", "TCS"}));
    EXPECT_EQ(m_program.frame().panel6, QStringLiteral("Equities of Portfolio Growth is open"));
    EXPECT_TRUE(m_prompt.asked().isEmpty());
}

TEST_F(PortfolioExplorerTest, KeptProfitLosesItsDecimalsBeforeTheCommission) {
    struct Case {
        double profit;
        std::optional<double> commission;
        const char* shown;
        std::optional<std::uint32_t> colour;
    };
    const Case cases[] = {
        {1234.6, 0.35, "Rs.1234.65", kGreen},      // 1235 less .35
        {123456.4, 10.1, "Rs.123445.9", kGreen},   // "1,23456": the grouping comma is no obstacle
        {-50.5, 1.25, "Rs.-52.25", kRed},          // halves round away from zero: -51
        {0.4, 1.5, "Rs.-1.5", kRed},               // no profit text: the commission alone
        {10, 0.0, "Rs.0", std::nullopt},           // a commission of 0 formats to nothing: 0
        {-7.2, std::nullopt, "Rs.-7", kRed},       // a Null commission leaves the profit text
        {0.2, std::nullopt, "Rs.", std::nullopt},  // neither: the empty text, then 0
    };
    for (const Case& c : cases) {
        db().execute(QStringLiteral("delete * from equity"));
        db().execute(QStringLiteral("delete * from trades"));
        holdingWithProfit(QStringLiteral("ABC"), c.profit);
        addTrade(db(), kPortfolio, QStringLiteral("ABC"), c.commission);
        selectportfolio(m_program);
        SCOPED_TRACE(c.profit);
        EXPECT_EQ(grid1().textMatrix(1, 7), QString::fromUtf8(c.shown));
        EXPECT_EQ(grid1().cellForeColour(1, 7), c.colour);
    }
}

TEST_F(PortfolioExplorerTest, GridGrowsRowByRowWithTheTotalLast) {
    for (int i = 1; i <= 6; ++i) holdingWithProfit(QStringLiteral("S%1").arg(i), 100 * i);
    selectportfolio(m_program);
    ASSERT_EQ(grid1().rows(), 8);
    EXPECT_EQ(explorer().MSFlexGrid2.rows(), 8);
    for (int row = 1; row <= 6; ++row) {
        EXPECT_EQ(grid1().textMatrix(row, 0), QString::number(row));
        EXPECT_EQ(grid1().textMatrix(row, 1), QStringLiteral("S%1").arg(row));
    }
    EXPECT_EQ(grid1().textMatrix(7, 1), QStringLiteral("Total"));
    EXPECT_EQ(grid1().textMatrix(7, 7), QStringLiteral("Rs.2100"));

    // A smaller portfolio afterwards starts again from two rows: its total is again the last line.
    addPortfolio(db(), QStringLiteral("Small"));
    addHolding(db(), QStringLiteral("Small"), {QStringLiteral("ONE"), 0, 0, 0, 1, 5, 0});
    m_program.frame().cmbportfolio.text = QStringLiteral("Small");
    selectportfolio(m_program);
    EXPECT_EQ(grid1().rows(), 3);
    EXPECT_EQ(grid1().textMatrix(2, 1), QStringLiteral("Total"));
    EXPECT_EQ(grid1().cellForeColour(1, 7), kGreen);
}

TEST_F(PortfolioExplorerTest, LargeProfitSumShowsAsA32BitFloat) {
    holdingWithProfit(QStringLiteral("BIG"), 12345678);
    holdingWithProfit(QStringLiteral("SMALL"), 0.6);  // "1"
    selectportfolio(m_program);
    EXPECT_EQ(grid1().textMatrix(3, 7), QStringLiteral("Rs.1.234568E+07"));
}

TEST_F(PortfolioExplorerTest, PortfolioWithoutHoldingsSaysSoAndClearsTheGrid) {
    holdingWithProfit(QStringLiteral("ABC"), 10);
    selectportfolio(m_program);
    addPortfolio(db(), QStringLiteral("Empty"));
    m_program.frame().cmbportfolio.text = QStringLiteral("Empty");
    m_program.frame().panel6.clear();
    selectportfolio(m_program);
    EXPECT_EQ(m_prompt.messages(),
              QStringList{"You do not have any Equity under Empty Portfolio, create equity or delete the portfolio"});
    EXPECT_EQ(grid1().textMatrix(1, 1), QString());
    EXPECT_EQ(grid1().textMatrix(0, 1), QString());
    EXPECT_EQ(m_program.frame().panel6, QString());
    EXPECT_EQ(explorer().cmbequity.items, QStringList{"ABC"});  // the symbol list is left as it was
}

TEST_F(PortfolioExplorerTest, SimulationClearsTheGridAndAsksNothing) {
    holdingWithProfit(QStringLiteral("ABC"), 10);
    selectportfolio(m_program);
    m_program.frame().cmbportfolio.text = QStringLiteral("Simulation");
    selectportfolio(m_program);
    EXPECT_EQ(grid1().textMatrix(1, 1), QString());
    EXPECT_EQ(grid1().rows(), 2);
    EXPECT_TRUE(m_prompt.asked().isEmpty());
}

TEST_F(PortfolioExplorerTest, GridClickShowsTheStoredRecommendation) {
    holdingWithProfit(QStringLiteral("INFY"), 10);
    holdingWithProfit(QStringLiteral("TCS"), 10);
    setAdvice(db(), kPortfolio, QStringLiteral("TCS"), 95.5, 10, 120.25, 8, QStringLiteral("2024-03-05"));
    selectportfolio(m_program);

    struct Case {
        int row;
        const char* symbol;
        const char* advise;  // none: the line names no holding, and nothing is shown or reported
    };
    const Case cases[] = {
        {1, "INFY", " No Advise Created , Kindly Run the Get Advise"},
        {2, "TCS", "Recommendation:  Buy 10 at Rs. 95.5 and  Sell 8 at Rs. 120.25 Last Updated on 05/03/2024"},
        {3, "Total", nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.symbol);
        explorer().lbladvise = {};
        explorer().Timer1 = {};
        explorer().MSFlexGrid1_Click(c.row);
        EXPECT_EQ(m_program.frame().cmbequity, QString::fromUtf8(c.symbol));
        if (c.advise) {
            EXPECT_EQ(explorer().cmbequity.text, QString::fromUtf8(c.symbol));
        }
        EXPECT_EQ(explorer().lbladvise.caption, QString::fromUtf8(c.advise));
        EXPECT_EQ(explorer().lbladvise.visible, c.advise != nullptr);
        EXPECT_EQ(explorer().Timer1.interval, 50000);
        EXPECT_TRUE(explorer().Timer1.enabled);
    }
    EXPECT_EQ(explorer().lbladvise.width, 5000);

    explorer().Timer1_Timer();
    EXPECT_FALSE(explorer().lbladvise.visible);
    EXPECT_FALSE(explorer().Timer1.enabled);
    EXPECT_TRUE(m_prompt.asked().isEmpty());
}

TEST_F(PortfolioExplorerTest, DoubleClickOpensTheTradeOnTheLinesSymbolAndPrice) {
    addHolding(db(), kPortfolio, {QStringLiteral("INFY"), 100, 10, 1000, 12, 150.55, 800.9});
    selectportfolio(m_program);
    explorer().MSFlexGrid1_DblClick(2);  // the total line
    EXPECT_TRUE(m_program.module<Screens>().shown().isEmpty());

    explorer().MSFlexGrid1_DblClick(1);
    EXPECT_EQ(m_program.module<Screens>().shown(), QStringList{QStringLiteral("trade")});
    EXPECT_EQ(m_program.frame().cmbequity, QStringLiteral("INFY"));
    const Trade& trade = m_program.module<Trade>();
    EXPECT_EQ(trade.txtprice.text, QStringLiteral("150.55"));
    EXPECT_EQ(trade.txtequity.text, QStringLiteral("INFY"));
    EXPECT_EQ(trade.caption, QStringLiteral("Trade Details of  Infosys Limited"));
    EXPECT_TRUE(m_prompt.asked().isEmpty());
}

TEST_F(PortfolioExplorerTest, GetAdviseUnderSimulationAsksForAPortfolio) {
    m_program.frame().cmbportfolio.text = QStringLiteral("Simulation");
    EXPECT_EQ(explorer().Command1_Click(), PortfolioExplorer::AdviseStart::ChoosePortfolio);
    ASSERT_EQ(m_prompt.asked().size(), 1);
    EXPECT_EQ(m_prompt.asked().front().text, QStringLiteral("Select your portfolio"));
    EXPECT_EQ(m_prompt.asked().front().title, QStringLiteral("Select portfolio"));
    EXPECT_FALSE(m_program.module<EquityManager>().loaded);
}

TEST_F(PortfolioExplorerTest, GetAdviseSetsUpTheEquityManagerAndAdvises) {
    addHolding(db(), kPortfolio, {QStringLiteral("INFY"), 100, 100, 10000, 100, 130, 10000});
    selectportfolio(m_program);
    EquityManager& manager = m_program.module<EquityManager>();
    manager.cmdaddtrade.enabled = false;
    manager.Frame2_0Visible = false;

    EXPECT_EQ(explorer().Command1_Click(), PortfolioExplorer::AdviseStart::Advised);
    EXPECT_TRUE(manager.loaded);
    EXPECT_EQ(m_program.module<Screens>().shown(), QStringList{"equitymanager"});
    EXPECT_TRUE(manager.cmdaddtrade.enabled);
    EXPECT_TRUE(manager.Frame2_0Visible);
    EXPECT_TRUE(manager.Frame4Visible);
    EXPECT_EQ(manager.Label17_2.caption, QStringLiteral("Actual Trade"));
    EXPECT_EQ(m_program.frame().cmbequity, QStringLiteral("INFY"));
    EXPECT_EQ(manager.txtmtbuy.text, QStringLiteral("1000"));  // the settings were loaded
    // The advice ran to its end on the holding.
    EXPECT_TRUE((QStringList{"BUY", "SELL", "HOLD"}).contains(manager.lbladvise.caption))
        << qPrintable(manager.lbladvise.caption);
    EXPECT_TRUE(m_prompt.asked().isEmpty());
}

}  // namespace
}  // namespace ostravel
