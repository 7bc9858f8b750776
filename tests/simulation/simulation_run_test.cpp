// runsimulation on made-up days, one rule a case; the figures after a run; the trade history.
#include "simulation/simulation_run.h"

#include <QFile>

#include "position/advice.h"
#include "runtime/vbdate.h"
#include "simulation/frmtradehistory.h"
#include "simulation/narrative.h"
#include "simulation/run_metrics.h"
#include "store/database.h"
#include "tests/simulation/simulation_fixture.h"
#include "tests/support/store_rows.h"

namespace ostravel::test {
namespace {

const QDate kLongAfter(2030, 1, 1);

class SimulationRunTest : public SimulationTest {
protected:
    RunOutcome run() { return runsimulation(m_program); }
    // A run over the days of these closes, from the first on.
    RunOutcome runOn(const std::vector<double>& closes) {
        days(closes);
        period(day(1), kLongAfter);
        return run();
    }
    QString narrativeText() {
        return narrative(m_program, QStringLiteral("Test Limited"), [](const VbError&) {});
    }
    QStringList column(const QString& sql) {
        QStringList values;
        for (auto rs = m_program.store().database().openRecordset(sql); !rs->eof(); rs->moveNext())
            values << rs->field(0).toString();
        return values;
    }
};

TEST_F(SimulationRunTest, OneRuleACase) {
    struct Case {
        const char* name;
        std::vector<double> closes;
        QDate from, to;
        RunOutcome outcome;
        int beginningShares, days, trades;
        QDate firstDay, lastDay;  // the pickers after the run
        std::vector<std::pair<const char*, QString>> figures;
    };
    const Case cases[] = {
        {"a stock at 40,000 starts with one share",
         {40000, 40000, 40000},
         day(1),
         kLongAfter,
         RunOutcome::Completed,
         1,
         2,
         0,
         day(1),
         day(3),
         {{"txtbegcash", "40000"}, {"txtbegtotal", " 80000"}, {"lblpcaresult", "0"}, {"lblbhpersentage", "0%"}}},
        // Every day fails its percentages, which stay as they were.
        {"a stock at 200,000 starts with none",
         {200000, 210000, 150000},
         day(1),
         kLongAfter,
         RunOutcome::Completed,
         0,
         2,
         0,
         day(1),
         day(3),
         {{"txtbegcash", "0"},
          {"txtbegtotal", " 0"},
          {"txtcurrshare", "0"},
          {"txtcashper", ""},
          {"lblbhprofit", "0"},
          {"lblbhpersentage", "5%"}}},
        // The sale's cost per share divides by 0 shares and stays.
        {"a sale down to no shares keeps the cost",
         {40000, 200000, 200000},
         day(1),
         kLongAfter,
         RunOutcome::Completed,
         1,
         2,
         1,
         day(1),
         day(3),
         {{"txtcurrshare", "0"}, {"txtcurrcps", "40000"}, {"txtcurrcash", "240000"}, {"lblsell", "1"}}},
        {"buy and hold makes twice the rise on the rule's shares",
         {50, 65, 65},
         day(1),
         kLongAfter,
         RunOutcome::Completed,
         1000,
         2,
         1,
         day(1),
         day(3),
         {{"lblbhprofit", "30000"}, {"lblbhpersentage", "30%"}}},
        {"a begin date before the first day starts on it",
         {100, 100, 100},
         QDate(2020, 6, 1),
         kLongAfter,
         RunOutcome::Completed,
         500,
         2,
         0,
         day(1),
         day(3),
         {}},
        {"the end date's own day is simulated",
         {100, 100, 100, 100, 100},
         day(1),
         day(3),
         RunOutcome::Completed,
         500,
         3,
         0,
         day(1),
         day(5),
         {}},
        {"one day from the begin date on makes no step",
         {100, 100, 100},
         day(3),
         kLongAfter,
         RunOutcome::Completed,
         500,
         0,
         0,
         day(3),
         day(3),
         {}},
    };
    // The boxes of the 200,000 stock's failures.
    m_prompt.answer(Answer::OK);
    m_prompt.answer(Answer::OK);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        m_program.store().database().execute(QStringLiteral("delete from simtrades"));
        m_program.store().database().execute(QStringLiteral("delete from compare"));
        em().unload();
        days(c.closes);
        period(c.from, c.to);

        EXPECT_EQ(run(), c.outcome);
        EXPECT_EQ(field(QStringLiteral("BeginningShares")), QString::number(c.beginningShares));
        EXPECT_EQ(rows(QStringLiteral("compare")), c.days);
        EXPECT_EQ(rows(QStringLiteral("simtrades")), c.trades);
        EXPECT_EQ(serialToDate(em().dtbdate), c.firstDay);
        EXPECT_EQ(serialToDate(em().dtedate), c.lastDay);
        EXPECT_TRUE(em().Command6.enabled);
        for (const auto& [name, text] : c.figures) EXPECT_EQ(field(QString::fromLatin1(name)), text) << name;
    }
    // Of the 200,000 stock's days, each failure showed once and every one went to the log.
    EXPECT_EQ(m_prompt.messages().size(), 2);
    QFile log(m_folder.file(QStringLiteral("ErrorLog.txt")));
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    EXPECT_EQ(log.readAll().count("Module3::Sub equitycurrent"), 6);
}

TEST_F(SimulationRunTest, ABeginDateAfterTheLastDayKeepsTheLastRun) {
    runOn({50, 65, 40});
    const QString profit = field(QStringLiteral("lblpcaresult"));
    period(day(4), kLongAfter);
    EXPECT_EQ(run(), RunOutcome::NotComplete);
    EXPECT_EQ(m_prompt.messages(), QStringList{kHistoryNotComplete});
    EXPECT_FALSE(em().Command6.enabled);
    EXPECT_EQ(field(QStringLiteral("lblpcaresult")), profit);
    EXPECT_EQ(serialToDate(em().dtbdate), day(4));
}

TEST_F(SimulationRunTest, ASecondRunStartsAfresh) {
    days({50, 65, 40, 45, 70, 30, 30});
    period(day(1), kLongAfter);
    const auto tables = [&] {
        return column(
                   QStringLiteral("select date || ' ' || price || ' ' || shareqty || ' ' || buysell from simtrades")) +
               column(QStringLiteral("select date || ' ' || BuyHoldValue || ' ' || ControlValue from compare"));
    };
    run();
    const QStringList first = tables();
    const QString narrativeOfFirst = narrativeText();
    ASSERT_GT(rows(QStringLiteral("simtrades")), 1);
    period(day(1), kLongAfter);
    run();
    EXPECT_EQ(tables(), first);
    EXPECT_EQ(narrativeText(), narrativeOfFirst);
}

TEST_F(SimulationRunTest, StoppedRunEndsOnTheDaysDone) {
    std::vector<double> closes;
    for (int i = 0; i < 300; ++i) closes.push_back(100 + 30 * std::sin(i / 10.0));
    days(closes);
    period(day(1), kLongAfter);
    m_program.module<SimulationRun>().progress = [](std::int64_t, std::int64_t) { return false; };
    EXPECT_EQ(run(), RunOutcome::Stopped);
    const SimulationRun& state = m_program.module<SimulationRun>();
    EXPECT_EQ(state.daysDone, 128);
    EXPECT_EQ(state.daysMost, 299);
    EXPECT_EQ(rows(QStringLiteral("compare")), 128);
    EXPECT_EQ(serialToDate(em().dtedate), day(128));
    EXPECT_TRUE(em().Command6.enabled);
}

TEST_F(SimulationRunTest, KeptLastDayOfTheTableNeverSimulated) {
    runOn({100, 100, 100});
    EXPECT_EQ(column(QStringLiteral("select date from compare")),
              (QStringList{QStringLiteral("01/01/2021"), QStringLiteral("02/01/2021")}));
}

TEST_F(SimulationRunTest, KeptCompareAddsUpAfterARunWithoutTrades) {
    runOn({100, 100, 100});
    run();
    EXPECT_EQ(rows(QStringLiteral("compare")), 4);
}

TEST_F(SimulationRunTest, KeptBeginningSharesOverwrittenByEachRun) {
    m_program.store().database().execute(QStringLiteral("update users set BeginningShares = 777"));
    runOn({100, 100});
    EXPECT_EQ(scalar(m_program.store().database(), QStringLiteral("select BeginningShares from users")).toInt(), 500);
}

TEST_F(SimulationRunTest, KeptSamplingChoiceWalksEveryDay) {
    days({100, 100, 100, 100, 100, 100, 100, 100, 100});
    period(day(1), kLongAfter);
    em().Combo1.text = EquityManager::kWeekly;
    run();
    EXPECT_EQ(rows(QStringLiteral("compare")), 8);
}

// The cost per share rose here, and the share in stock ends in its per cent sign.
TEST_F(SimulationRunTest, KeptNarrativeWordsWhicheverWayTheFiguresGo) {
    em().load();
    em().dtbdate = dateSerial(day(1));
    em().dtedate = dateSerial(day(9));
    const std::pair<TextBox*, const char*> boxes[] = {
        {&em().txtbegtotal, " 100000"}, {&em().txtbegcash, "50000"}, {&em().txtbegstockvalue, "50000"},
        {&em().txtbegshare, "500"},     {&em().txtbegcps, "100"},    {&em().txtcurrcps, "120.5"},
        {&em().txtcashrisk, "40.5%"},   {&em().txtcurrshare, "410"},
    };
    for (const auto& [box, text] : boxes) box->text = QString::fromLatin1(text);
    em().lblpcaresult.caption = QStringLiteral("-250");
    em().lblbhprofit.caption = QStringLiteral("1200");
    EXPECT_EQ(narrativeText(),
              " Test Limited\r\n\r\n"
              "On 01/01/2021 Ostravel Invested Rs  100000 with Rs. 50000  In cash And Rs. 50000 in Equity By Buying "
              "500 Qty of Stock  Buy and Hold Invester Invested  100000 by Buying 1000 Qty of Stock \r\n\r\n"
              "As on 09/01/2021 Ostravel Investor Made a Profit of Rs -250 While  Buy and Hold Investor invested All "
              "his Amount is Stock  and Made a Profit of  Rs. 1200\r\n\r\n"
              " Cost Per Share is Reduced from Rs. 100 to Rs. 120.5\r\n\r\n"
              " Ostravel investor is currently  having 40.5% Percentage of cash at Risk While Buy and Hold Investor "
              "Have 100 % Cash at risk\r\n\r\n"
              " Ostravel Invester now Have 410 Qty of Stock Campare to Buy and Hold Investor of 1000");
    // A piece whose figure is no number is left out.
    em().txtbegshare.text.clear();
    EXPECT_FALSE(narrativeText().contains(QStringLiteral("On 01/01/2021")));
}

// The trades of DaysOfARun of the rule's own tests: a sale of 65 at 130, a purchase of 146 at 80.
TEST_F(SimulationRunTest, FiguresOfBothInvestorsAndTheTradeHistoryAfterARun) {
    runOn({100, 130, 80, 90, 90});
    const std::optional<RunMetrics> m = runMetrics(m_program);
    ASSERT_TRUE(m);
    // The rule's wealth after each day's trade: 100000, 58450 + 435 x 130, 46770 + 581 x 80, and
    // 46770 + 581 x 90; buy and hold's is 1000 shares at the day's price.
    ASSERT_EQ(m->days.size(), 4u);
    const double rule[] = {100000, 115000, 93250, 99060};
    const double hold[] = {100000, 130000, 80000, 90000};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(m->days[i].rule, rule[i]);
        EXPECT_EQ(m->days[i].buyHold, hold[i]);
    }
    EXPECT_EQ(m->rule.profit, -940);
    EXPECT_EQ(m->rule.maxDrawdown, 21750);
    EXPECT_EQ(serialToDate(*m->rule.peakDay), day(2));
    EXPECT_EQ(serialToDate(*m->rule.troughDay), day(3));
    EXPECT_EQ(m->buyHold.maxDrawdown, 50000);
    EXPECT_NEAR(m->buyHold.maxDrawdownShare, 50000.0 / 130000, 1e-12);
    EXPECT_NEAR(m->rule.cashShare, 46770.0 / 99060, 1e-12);
    // 99060 / 100000 over 3 days of a year of 365.25.
    EXPECT_NEAR(*m->rule.cagr, std::pow(0.9906, 365.25 / 3) - 1, 1e-12);
    EXPECT_EQ(std::tuple(m->rule.buys, m->rule.sells, m->rule.daysInMarket), std::tuple(1L, 1L, 4L));
    EXPECT_EQ(std::tuple(m->buyHold.buys, m->buyHold.sells, m->buyHold.cashShare), std::tuple(0L, 0L, 0.0));
    EXPECT_TRUE(
        wealthCsv(*m).startsWith("Date,Buy and Hold,Ostravel,Shares traded,Price\n"
                                 "2021-01-01,100000.00,100000.00,,\n"
                                 "2021-01-02,130000.00,115000.00,-65,130\n"));

    // The trade history shows the run under Simulation.
    m_program.frame().cmbportfolio.text = MainFrame::kSimulation;
    FrmTradeHistory& view = m_program.module<FrmTradeHistory>();
    view.load();
    EXPECT_EQ(view.MSFlexGrid1.formatString(), FrmTradeHistory::kTradesFormat);
    const QStringList sale = {QStringLiteral(" 1"), QStringLiteral("02/01/2021"), QStringLiteral("-65"),
                              QStringLiteral("130"), QStringLiteral("435")};
    for (int c = 0; c < 5; ++c) EXPECT_EQ(view.MSFlexGrid1.textMatrix(1, c), sale[c]);
    EXPECT_EQ(view.MSFlexGrid2.textMatrix(5, 5), QStringLiteral("90"));
    EXPECT_EQ(m_program.frame().panel6, QStringLiteral("Trade details of ") + m_program.frame().caption);
    // A run unloads the screen, whose next load shows the new run.
    period(day(3), kLongAfter);
    run();
    EXPECT_FALSE(view.loaded);
}

TEST_F(SimulationRunTest, KeptTradeHistoryGrowsBothGrids) {
    runOn({100, 100, 100});
    m_program.frame().cmbportfolio.text = MainFrame::kSimulation;
    FrmTradeHistory& view = m_program.module<FrmTradeHistory>();
    view.load();
    // No trade: the left grid has nothing, but as many rows as the right one.
    EXPECT_EQ(view.MSFlexGrid2.textMatrix(3, 1), QStringLiteral("03/01/2021"));
    EXPECT_EQ(view.MSFlexGrid1.rows(), view.MSFlexGrid2.rows());
    for (int r = 1; r < view.MSFlexGrid1.rows(); ++r) EXPECT_EQ(view.MSFlexGrid1.textMatrix(r, 1), QString());
    EXPECT_TRUE(m_prompt.asked().isEmpty());
}

}  // namespace
}  // namespace ostravel::test
