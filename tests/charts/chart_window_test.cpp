// The chart window without a display: its picture against a golden one, each indicator in its
// pane, the dividers, zoom, scroll and crosshair, the pop-up prompts, the menu entry's refusals,
// and the rule on the chart.
#include <gtest/gtest.h>

#include <QDir>
#include <QImage>

#include "charts/chart_geometry.h"
#include "charts/indicators/cci.h"
#include "charts/indicators/macd.h"
#include "charts/midicators.h"
#include "charts/rule_overlay.h"
#include "store/database.h"
#include "tests/charts/chart_fixture.h"
#include "tests/support/store_rows.h"

namespace ostravel::test {
namespace {

// Pixels of two pictures that differ by more than a shade, as a share of all.
double differingShare(const QImage& a, const QImage& b) {
    if (a.size() != b.size())
        return 1;
    qint64 differing = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            if (std::abs(qRed(p) - qRed(q)) > 48 || std::abs(qGreen(p) - qGreen(q)) > 48 ||
                std::abs(qBlue(p) - qBlue(q)) > 48)
                ++differing;
        }
    return static_cast<double>(differing) / (a.width() * a.height());
}

TEST_F(ChartWindow, DrawsThePictureOfTheGoldenOne) {
    ASSERT_TRUE(chart.DataReady);
    const QString golden = testData(QStringLiteral("charts/tatamotors_800x600.png"));
    if (qEnvironmentVariableIsSet("OSTRAVEL_WRITE_GOLDEN"))
        chart.ChartBoxV.save(golden);
    EXPECT_LT(differingShare(chart.ChartBoxV.convertToFormat(QImage::Format_RGB32),
                             QImage(golden).convertToFormat(QImage::Format_RGB32)),
              0.005);
}

TEST_F(ChartWindow, EachIndicatorFillsItsPaneAndAnUnknownNameNone) {
    MIdicators& indicators = m_program.module<MIdicators>();
    for (const char* name : {"CCI", "MACD", "ROC%", "RSI", "STOCH"}) {
        indicators.SetCurrentIndicator(QString::fromLatin1(name));
        chart.ChartBoxDraw();
        EXPECT_FALSE(paneIsBlank()) << name;
    }
    indicators.SetCurrentIndicator(QStringLiteral("ADX"));
    chart.ChartBoxDraw();
    EXPECT_TRUE(paneIsBlank());
    EXPECT_TRUE(m_prompt.asked().isEmpty());
}

TEST_F(ChartWindow, KeptCaptionHasNoBlankAfterL) {
    EXPECT_EQ(chart.Caption, QStringLiteral("18/10/2022     O: 401   H: 406.7   L:400.7   C: 404.25   V: 14215544"));
}

TEST_F(ChartWindow, KeptResizeShowsFivePixelsABarAndTheFileKeepsItsSpacingUntilAZoom) {
    EXPECT_EQ(std::pair(chart.settings().BarSpacing, ini("BarSpacing")), std::pair(5.0f, QStringLiteral("3")));
    chart.mnuincrease_Click();
    EXPECT_EQ(std::tuple(ini("BarSpacing"), chart.VisibleBars, chart.ZoomLock),
              std::tuple(QStringLiteral("6"), visibleBarsFor(chart.ChartRight, 6), false));
    // The pop-up's spacing is shown but neither saved nor counted into the visible bars.
    m_prompt.answerText(QStringLiteral("9"));
    chart.mnuPuBarSpacing_Click();
    EXPECT_EQ(std::tuple(chart.settings().BarSpacing, ini("BarSpacing"), chart.VisibleBars),
              std::tuple(9.0f, QStringLiteral("6"), visibleBarsFor(chart.ChartRight, 6)));
}

TEST_F(ChartWindow, DividersWriteWhereTheyAreDroppedAndADragOutOfItsBandEnds) {
    // The window is shorter than the saved splits: they moved and were written at load.
    const float split1 = chart.settings().WindowSplit1;
    EXPECT_EQ(ini("WindowSplit1"), QString::number(split1));
    chart.MouseMove(false, 400, split1 + 1);
    EXPECT_EQ(chart.MousePointer, Pointer::Divider);
    chart.MouseDown(400, split1 + 1, 100);
    EXPECT_TRUE(chart.Divider[0].Visible);
    chart.MouseMove(true, 400, split1 - 20);
    chart.MouseUp();
    EXPECT_EQ(ini("WindowSplit1"), QString::number(split1 - 20));
    EXPECT_FALSE(chart.Divider[0].Visible);

    // A drag that leaves its band ends there: the split moved so far isn't written.
    chart.MouseMove(false, 400, split1 - 20);
    chart.MouseDown(400, split1 - 20, 200);
    chart.MouseMove(true, 400, split1 - 25);
    chart.MouseMove(true, 400, 5);
    EXPECT_EQ(chart.MousePointer, Pointer::Default);
    chart.MouseUp();
    EXPECT_EQ(ini("WindowSplit1"), QString::number(split1 - 20));
}

TEST_F(ChartWindow, KeptCtrlArrowsAndPagesOnlyRedrawWhileTheWheelEndAndHomeScroll) {
    const std::int32_t oldest = chart.history().LastIdx - chart.VisibleBars;
    chart.MouseWheel1_WheelRotate(10, false);
    EXPECT_EQ(chart.ScrollOffset, std::max(0, std::min(10, oldest)));
    chart.MouseWheel1_WheelRotate(100000, true);  // with a key: nothing
    chart.MouseWheel1_WheelRotate(-100000, false);
    EXPECT_EQ(chart.ScrollOffset, 0);
    chart.controlKey(FrmMain::ScrollKey::Left);
    EXPECT_EQ(chart.ScrollOffset, 0);
    chart.controlKey(FrmMain::ScrollKey::Home);
    EXPECT_EQ(chart.ScrollOffset, std::max(0, oldest));
}

TEST_F(ChartWindow, CrosshairSnapsAndAQuickSecondPressShowsTheBar) {
    chart.MouseMove(false, 403, 100);
    chart.MouseDown(403, 100, 50000.2);
    EXPECT_EQ(chart.ChLine2.X1, SnapToBar(403, chart.ChartRight, chart.settings().BarSpacing));
    EXPECT_TRUE(chart.ChLine1.Visible && chart.SystemCursorHidden && chart.lblMousePrice.Visible);
    EXPECT_FALSE(chart.lblMousePrice.Caption.contains(QLatin1Char('/')));
    chart.MouseUp();
    EXPECT_FALSE(chart.ChLine1.Visible || chart.lblMousePrice.Visible || chart.SystemCursorHidden);
    chart.MouseDown(chart.ChartRight, 100, 50001.1);
    EXPECT_TRUE(chart.lblMousePrice.Caption.startsWith(QStringLiteral("18/10/2022\n")));
}

TEST_F(ChartWindow, KeptMouseLabelNamesTheBarCountedFromTheLastOnAScrolledChart) {
    chart.MouseWheel1_WheelRotate(30, false);
    ASSERT_GT(chart.ScrollOffset, 0);
    chart.MouseMove(false, chart.ChartRight, 100);
    chart.MouseDown(chart.ChartRight, 100, 50000);
    chart.MouseUp();
    chart.MouseDown(chart.ChartRight, 100, 50001);
    EXPECT_TRUE(chart.lblMousePrice.Caption.startsWith(QStringLiteral("18/10/2022\n")));
}

TEST_F(ChartWindow, KeptHlocBarsWriteTheirColourIntoTicColorWhichTheNextSaveStores) {
    ChartSettings& s = chart.settings();
    s.TicType = 2;
    s.TicColor = 1;
    chart.ChartBoxDraw();
    const StockRecord& lastDrawn = chart.history().StockData[chart.LastBar - chart.BarsDrawn + 1];
    const std::int32_t expected = lastDrawn.Close < lastDrawn.Open ? s.TicCandleDnColor : s.TicCandleUpColor;
    EXPECT_EQ(s.TicColor, expected);
    s.SaveIniSettings(QStringLiteral("tatamotors"));
    EXPECT_EQ(ini("TicColor"), QString::number(expected));
}

TEST_F(ChartWindow, AZeroLowDoesntPullTheScaleDown) {
    const double low = chart.LowPrice;
    chart.history().StockData[chart.LastBar].Low = 0;
    chart.ChartBoxDraw();
    EXPECT_GE(chart.LowPrice, low);
}

TEST_F(ChartWindow, KeptCciPlotsTheAverageOfItsAverageAndItselfButNotItsAverage) {
    MIdicators& indicators = m_program.module<MIdicators>();
    indicators.SetCurrentIndicator(QStringLiteral("CCI"));
    indicators.LoadStockDataArray();
    const IndicatorLines& lines = indicators.IndArray;
    ASSERT_EQ(lines.lines.size(), 2u);
    for (std::int32_t i = lines.lo; i <= lines.hi; ++i)
        ASSERT_EQ(std::pair(lines(i, 0), lines(i, 1)),
                  std::pair(indicators.CCIInd->RetValAvgAvg(i), indicators.CCIInd->RetVal(i)));
}

TEST_F(ChartWindow, KeptLegendShowsTheLastBarOfTheArrayWhileScrolling) {
    // MACD's legend, the title and its three values at the last bar, is the same picture scrolled.
    const int top = static_cast<int>(chart.settings().WindowSplit2) + 3;
    const QRect legend(1, top, 200, chart.TextH);
    const QImage newest = chart.ChartBoxV.copy(legend);
    chart.MouseWheel1_WheelRotate(60, false);
    ASSERT_GT(chart.ScrollOffset, 0);
    EXPECT_EQ(chart.ChartBoxV.copy(legend), newest);
}

TEST_F(ChartWindow, PopUpPromptsIgnoreWhatIsNoNumberOrTooSmall) {
    const float right = chart.ChartRight;
    for (const char* answer : {"abc", "", "9"}) {
        m_prompt.answerText(QString::fromLatin1(answer));
        chart.mnuPuBlankSpace_Click();
    }
    EXPECT_EQ(chart.ChartRight, right);
    m_prompt.answerText(QStringLiteral("20"));
    chart.mnuPuBlankSpace_Click();
    EXPECT_EQ(chart.ChartRight, right - 100);
    EXPECT_EQ(m_prompt.asked().at(0).text,
              QStringLiteral("Enter Right side of chart 'Blank Space'....10 Minimum. \nCurrent Setting: 10"));
    EXPECT_EQ(m_prompt.asked().at(0).title, QStringLiteral("Settings Change"));
    m_prompt.answerText(QStringLiteral("7"));
    chart.mnuPuCrossHairMode_Click();
    m_prompt.answerText(QStringLiteral("17"));
    chart.mnuPuCrossHairMode_Click();
    EXPECT_EQ(chart.crossHairMode(), 7);
}

TEST_F(ChartWindow, IndicatorSettingsGoBackToTheirKeysAndAnOddOneIsReported) {
    MIdicators& indicators = m_program.module<MIdicators>();
    indicators.AvgLen[0] = 30;
    indicators.MACDInd->MACDLen1 = 12;
    indicators.SaveIndicatorSettings();
    const QString file = appFile(QStringLiteral("Chart.INI"));
    EXPECT_EQ(GetIni(file, QStringLiteral("AvgSettings"), QStringLiteral("AvgLen1")), QStringLiteral("30"));
    EXPECT_EQ(GetIni(file, QStringLiteral("MACDSettings"), QStringLiteral("MACDLen1")), QStringLiteral("12"));
    WriteIni(file, QStringLiteral("AvgSettings"), QStringLiteral("AvgWidth2"), QStringLiteral("70000"));
    m_prompt.answer(Answer::OK);
    indicators.GetIndicatorSettings();
    EXPECT_EQ(indicators.AvgLen[2], 200);  // the keys after the odd one still read
    ASSERT_EQ(m_prompt.messages().size(), 1);
    EXPECT_TRUE(m_prompt.messages().front().contains(QStringLiteral("(Module) MIdicators::Sub GetIndicatorSettings")));
}

TEST_F(ChartWindow, TheMenuEntryRefusesWithoutAStockOrASimulation) {
    MainFrame& frame = m_program.frame();
    Database& db = m_program.store().database();
    db.execute(QStringLiteral("delete * from simulation"));
    const std::tuple<QString, QString, bool, QString> rows[] = {
        {QStringLiteral("Enter Symbol"), QStringLiteral("Long Term"), false,
         QStringLiteral("Please Enter The Equity Symbol")},
        {QStringLiteral("TATAMOTORS.NS"), MainFrame::kSimulation, false,
         QStringLiteral("Run Simulation Before Running Charts")},
        {QStringLiteral("TATAMOTORS.NS"), QStringLiteral("Long Term"), true, QString()},
    };
    for (const auto& [code, portfolio, opens, message] : rows) {
        m_prompt.clear();
        frame.cmbequity = code;
        frame.cmbportfolio.text = portfolio;
        EXPECT_EQ(StockPriceChart_Click(m_program), opens);
        EXPECT_EQ(m_prompt.messages(), message.isEmpty() ? QStringList() : QStringList{message});
    }
}

TEST_F(ChartWindow, TheRuleOnTheChartShowsTheHoldingAndLeavesNoTraceWhenOff) {
    Database& db = m_program.store().database();
    addPortfolio(db, QStringLiteral("Long Term"), QStringLiteral("2021-01-01"));
    db.execute(
        QStringLiteral("insert into equity (fkPortfolioID, EquitySymbol, portname, NextBuyPrice, NextSellPrice) "
                       "values (1, 'TATAMOTORS', 'Long Term', 380.5, 470)"));
    db.execute(
        QStringLiteral("insert into trades (fkequityid, EquitySymbol, portname, TradeDate, Tradedshares, "
                       "PricePerShare, Buyselltype) values (1, 'TATAMOTORS', 'Long Term', '2021-10-20', 10, "
                       "486.9, 'Buy'), (1, 'TATAMOTORS', 'Long Term', '2021-10-23', -5, 500, 'Sell')"));
    const RuleOverlayData data = ruleOverlayData(m_program, chart.history().StockData);
    EXPECT_EQ(std::pair(data.nextBuy, data.nextSell), std::pair(std::optional(380.5), std::optional(470.0)));
    ASSERT_EQ(data.marks.size(), 1u);  // the 23rd was a Saturday: no bar
    EXPECT_EQ(std::tuple(data.marks[0].bar, data.marks[0].price, data.marks[0].sell), std::tuple(1, 486.9, false));

    const QImage before = chart.ChartBoxV;
    chart.setRuleOverlay(true);
    EXPECT_NE(chart.ChartBoxV, before);
    chart.setRuleOverlay(false);
    EXPECT_EQ(chart.ChartBoxV, before);

    m_program.frame().cmbportfolio.text = MainFrame::kSimulation;
    db.execute(
        QStringLiteral("insert into simtrades (date, price, shareqty, EquitySymbol) values ('2022-10-13', "
                       "399.5, -20, 'TATAMOTORS')"));
    const RuleOverlayData simulated = ruleOverlayData(m_program, chart.history().StockData);
    EXPECT_FALSE(simulated.nextBuy);
    ASSERT_EQ(simulated.marks.size(), 1u);
    EXPECT_TRUE(simulated.marks[0].sell);
}

}  // namespace
}  // namespace ostravel::test
