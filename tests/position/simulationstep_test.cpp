#include "position/advice.h"
#include "position/equitymanager.h"
#include "position/pcaresult.h"
#include "position_fixture.h"
#include "store/row_appender.h"

namespace ostravel {
namespace {

class SimulationStepTest : public PositionTest {
protected:
    void loadHistory(const std::vector<double>& closes) {
        execute(QStringLiteral("delete from simulation"));
        for (std::size_t day = 0; day < closes.size(); ++day)
            execute(QStringLiteral(
                        "insert into simulation ([date], [Close], EquitySymbol) values ('2021-01-%1', %2, 'INFY')")
                        .arg(day + 1, 2, 10, QLatin1Char('0'))
                        .arg(closes[day]));
        store().simulation = store().database().openRecordset(QStringLiteral("select * from simulation order by date"));
        values().simtrades = std::make_shared<RowAppender>(store().database(), QStringLiteral("simtrades"));
        values().simportcontrol = 0;
        m_program.frame().cmbequity = QStringLiteral("INFY.NS");
        em().clearcolor();
    }
    void nextDay() {
        simulationstep(m_program);
        store().simulation->moveNext();
    }
    EquityManager& em() { return m_program.module<EquityManager>(); }
    SimulationValues& values() { return m_program.module<SimulationValues>(); }
    AdviceValues& advice() { return m_program.module<AdviceValues>(); }
};

// Half the money in 500 shares at 100, half in cash; both resistances 10.
TEST_F(SimulationStepTest, DaysOfARun) {
    struct Day {
        const char* name;
        double close;
        // Expected after the day.
        QString verdict;
        float simcash;
        int simshares;
        float simcps;
        float simportcontrol;
        int sells, buys;
        QString nextsell, nextsellshare, nextbuy, nextbuyshare;
    };
    const Day days[] = {
        // Nothing to do: the next sell at 113.33 for 9 shares, the next buy at 89.09 for 11.
        {"Hold", 100, "HOLD", 50000, 500, 100, 50000, 0, 0, "9", "113", "11", "89"},
        // 8500 over the margin: 65.38 shares, rounded to 65.
        {"KeptCostCutToItsText", 130, "SELL", 58450, 435, 95.52f, 50000, 1, 0, "65", "130", "10", "102"},
        // 11720 under: 146.5 shares, rounded to the even 146; PortControl up by half the amount.
        {"KeptSharesRoundHalvesToEven", 80, "BUY", 46770, 581, 91.62f, 55840, 1, 1, "8", "130", "146", "80"},
        // The threshold has grown to 1116.8, and nothing reaches it; the next trades are on 1000.
        {"KeptNextTradesOnAFixed1000", 90, "BUY", 46770, 581, 91.62f, 55840, 1, 1, "9", "109", "12", "86"},
    };
    loadHistory({100, 130, 80, 90});
    em().txtbegcash.text = QStringLiteral("50000");
    for (const Day& d : days) {
        SCOPED_TRACE(d.name);
        nextDay();
        EXPECT_EQ(em().lbladvise.caption, d.verdict);
        EXPECT_EQ(values().simcash, d.simcash);
        EXPECT_EQ(values().simshares, d.simshares);
        EXPECT_EQ(values().simcps, d.simcps);
        EXPECT_EQ(values().simportcontrol, d.simportcontrol);
        EXPECT_EQ(advice().sellcount.toLong(), d.sells);
        EXPECT_EQ(advice().buycount, d.buys);
        EXPECT_EQ(em().txtnextsell.text, d.nextsell);
        EXPECT_EQ(em().txtnextsellshare.text, d.nextsellshare);
        EXPECT_EQ(em().txtnextbuy.text, d.nextbuy);
        EXPECT_EQ(em().txtnextbuyshare.text, d.nextbuyshare);
        EXPECT_EQ(values().simlastprice, float(d.close));
    }
    EXPECT_EQ(em().lbladvise.fontName, QStringLiteral("24"));

    auto trades = store().database().openRecordset(QStringLiteral("select * from simtrades"));
    const struct {
        const char* date;
        double price, shareqty, buysell;
    } expected[] = {{"02/01/2021", 130, -65, 435}, {"03/01/2021", 80, 146, 581}};
    ASSERT_EQ(trades->recordCount(), 2);
    for (const auto& e : expected) {
        EXPECT_EQ(trades->field(0).toString(), QString::fromLatin1(e.date));
        EXPECT_EQ(trades->field(1).toDouble(), e.price);
        EXPECT_EQ(trades->field(2).toDouble(), e.shareqty);
        EXPECT_EQ(trades->field(3).toDouble(), e.buysell);
        EXPECT_EQ(trades->field(6).toString(), QStringLiteral("INFY"));
        trades->moveNext();
    }
    EXPECT_TRUE(m_prompt.asked().isEmpty());
}

TEST_F(SimulationStepTest, CashThatDoesNotReachIsShownButNotTraded) {
    loadHistory({100, 80});
    em().txtbegcash.text = QStringLiteral("0");
    nextDay();
    nextDay();
    // 6000 would be bought; with no cash, nothing is.
    EXPECT_EQ(values().simbuyamount, 0.0f);
    EXPECT_EQ(values().simshares, 500);
    EXPECT_EQ(advice().buycount, 0);
    EXPECT_EQ(em().txtnextbuy.text, QStringLiteral("0"));
    EXPECT_EQ(em().txtnextbuy.foreColour, kWhite);
    EXPECT_EQ(store().database().rowCount(QStringLiteral("simtrades")), 0);
}

TEST_F(SimulationStepTest, NoSharesFailSilently) {
    execute(QStringLiteral("update users set BeginningShares=0"));
    loadHistory({200000, 210000, 150000});
    em().txtbegcash.text = QStringLiteral("0");
    for (int day = 0; day < 3; ++day) nextDay();
    EXPECT_EQ(values().simshares, 0);
    EXPECT_EQ(store().database().rowCount(QStringLiteral("simtrades")), 0);
    EXPECT_TRUE(m_prompt.asked().isEmpty());
}

// Half of the beginning money is in 1000 shares.
TEST_F(SimulationStepTest, ResultsOfBothInvestors) {
    struct Case {
        const char* name;
        QString begtotal, currprice, currtotal;
        bool simulationRow;
        QString bhprofit, bhpercentage, pcaresult, pcaresultper;
    };
    const Case cases[] = {
        {"price up by 30", " 200000", "130", "230000", true, "60000", "30%", "30000", "15%"},
        {"price where it began", " 200000", "100", "200000", true, "0", "0%", "0", "0%"},
        {"a real holding, with no simulation row", " 200000", "120", "210000", false, "40000", "20%", "10000", "5%"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        loadHistory(c.simulationRow ? std::vector<double>{100} : std::vector<double>{});
        execute(QStringLiteral("delete from compare"));
        em().txtbegprice.text = QStringLiteral("100");
        em().txtbegshare.text = QStringLiteral("1000");
        em().txtbegtotal.text = c.begtotal;
        em().txtcurrprice.text = c.currprice;
        em().txtcurrtotal.text = c.currtotal;
        advice().sellcount = 2;
        advice().buycount = 3;

        pcaresult(m_program);

        EXPECT_EQ(em().lblbhprofit.caption, c.bhprofit);
        EXPECT_EQ(em().lblbhpersentage.caption, c.bhpercentage);
        EXPECT_EQ(em().lblpcaresult.caption, c.pcaresult);
        EXPECT_EQ(em().lblpcaresultper.caption, c.pcaresultper);
        EXPECT_EQ(em().lblsell.caption, QStringLiteral("2"));
        EXPECT_EQ(em().lblbuy.caption, QStringLiteral("3"));
        // The day's row, attempted also without a simulation row: then it has no date.
        auto compare = store().database().openRecordset(QStringLiteral("select * from compare"));
        ASSERT_EQ(compare->recordCount(), 1);
        EXPECT_EQ(compare->field(QStringLiteral("date")).isNull(), !c.simulationRow);
        EXPECT_EQ(compare->field(QStringLiteral("BuyHoldValue")).toDouble(), c.bhprofit.toDouble());
        EXPECT_EQ(compare->field(QStringLiteral("ControlValue")).toDouble(), c.pcaresult.toDouble());
        EXPECT_EQ(compare->field(QStringLiteral("EquitySymbol")).toString(), QStringLiteral("INFY"));
    }
    EXPECT_TRUE(m_prompt.asked().isEmpty());
}

TEST_F(SimulationStepTest, ResultsWithoutABeginningLeaveThePercentages) {
    loadHistory({100});
    em().txtbegprice.text = QStringLiteral("0");
    em().txtbegtotal.text = QStringLiteral("0");
    em().txtcurrprice.text = QStringLiteral("100");
    em().txtcurrtotal.text = QStringLiteral("100");
    em().lblbhpersentage.caption = QStringLiteral("before");
    em().lblpcaresultper.caption = QStringLiteral("before");
    pcaresult(m_program);
    EXPECT_EQ(em().lblbhpersentage.caption, QStringLiteral("before"));
    EXPECT_EQ(em().lblpcaresultper.caption, QStringLiteral("before"));
    EXPECT_EQ(em().lblpcaresult.caption, QStringLiteral("100"));
    EXPECT_TRUE(m_prompt.asked().isEmpty());
}

}  // namespace
}  // namespace ostravel
