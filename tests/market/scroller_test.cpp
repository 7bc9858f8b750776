// The ticker's ring as logic: layout, the redraw's runs round the ring, the hot spots and their
// limit, the hit test in the text band, panning through the period; then the main frame's
// ticker on the loopback service, and the news bar's run.
#include <QFile>

#include "context/screens.h"
#include "market/clsstockquote.h"
#include "market/newsbar.h"
#include "market/scroller/msgscroller.h"
#include "market/ticker.h"
#include "runtime/apppath.h"
#include "tests/market/market_fixture.h"

namespace ostravel::test {
namespace {

// Ten pixels a character, a text ten high, in a strip 200 wide and 20 high.
MsgScroller ring(const QStringList& items, const QString& seperator = QStringLiteral("*")) {
    MsgScroller r;
    r.measure = [](const QString& text) { return int(text.size()) * 10; };
    r.textHeight = 10;
    r.setClient(200, 20);
    r.setSeperator(seperator);
    for (const QString& item : items) r.AddItem(item);
    return r;
}

QStringList texts(const std::vector<MsgScroller::TextRun>& runs) {
    QStringList out;
    for (const auto& run : runs) out << QStringLiteral("%1@%2").arg(run.text).arg(run.x);
    return out;
}

TEST(MsgScrollerTest, SeparatorGetsBlanksOnlyWhenItHoldsMoreThanBlanks) {
    const std::pair<const char*, const char*> cases[] = {{"", " "}, {" ", " "}, {"  ", "  "}, {"*", " * "}};
    for (const auto& [given, made] : cases) EXPECT_EQ(ring({}, QString::fromLatin1(given)).SeparatorText, made);
    MsgScroller r = ring({"AB", "CDE"});
    EXPECT_EQ(r.item(1).Right, 50);
    EXPECT_EQ(r.item(2).Left, 50);
    EXPECT_EQ(r.TotalWidth, 80);  // no separator after the last item
}

TEST(MsgScrollerTest, RedrawRunsRoundTheRingOrStandsStill) {
    struct Case {
        const char* name;
        QStringList items;
        bool autoScroll, scroll;
        int scrollPos;
        QStringList runs;
    };
    const Case cases[] = {
        {"an empty ring repeats the placeholder",
         {},
         false,
         false,
         0,
         {"Message Scroller * @0", "Message Scroller * @190"}},
        {"narrower than the strip it stands", {"AB", "CDE"}, true, false, 0, {"AB@0", " * @20", "CDE@50"}},
        {"scrolling, the ring closes",
         {"AB", "CDE"},
         false,
         true,
         70,
         {"CDE@-20", " * @10", "AB@40", " * @60", "CDE@90", " * @120", "AB@150", " * @170"}},
        {"a position past the period wraps", {"AB", "CDE"}, false, true, 70 + 3 * 110, {"CDE@-20", " * @10"}},
    };
    for (const Case& c : cases) {
        MsgScroller r = ring(c.items);
        r.setAutoScroll(c.autoScroll);
        r.setScroll(c.scroll);
        EXPECT_EQ(r.timerEnabled, c.scroll) << c.name;
        r.ScrollPos = c.scrollPos;
        EXPECT_EQ(texts(r.Redraw()).mid(0, c.runs.size()), c.runs) << c.name;
    }
}

TEST(MsgScrollerTest, HitTestFindsTheItemInTheTextBandOnly) {
    MsgScroller r = ring({"AB", "CDE"});
    r.setScroll(true);
    r.ScrollPos = 70;
    r.Redraw();
    EXPECT_EQ(r.TextTop, 6);
    EXPECT_EQ(r.TextBottom, 14);
    const std::tuple<int, int, int> cases[] = {{45, 10, 1}, {0, 10, 2}, {15, 10, -1}, {45, 3, -1}, {45, 15, -1}};
    for (const auto& [x, y, item] : cases) EXPECT_EQ(r.HitTest(x, y), item) << x << "," << y;
    EXPECT_EQ(r.MouseMove(95, 8), 2);
    EXPECT_EQ(r.Click(), 2);
}

TEST(MsgScrollerTest, HotSpotsStopAt1024AndTheDrawGoesOn) {
    MsgScroller r = ring({"A", "B"}, QString());
    r.setClient(30000, 20);
    r.setScroll(true);
    r.Redraw();
    EXPECT_EQ(r.HotSpots.size(), 1024u);
    EXPECT_EQ(r.runs().size(), 3000u);
}

TEST(MsgScrollerTest, PanningWrapsThroughThePeriodAndGivesTheTimerBack) {
    MsgScroller r = ring({"AB", "CDE"});
    r.setScroll(true);
    r.ScrollPos = 70;
    r.MouseDown(true, 100);
    EXPECT_TRUE(r.Panning);
    EXPECT_FALSE(r.timerEnabled);
    r.MouseMove(300, 10);
    EXPECT_EQ(r.ScrollPos, 70 - 200 + 220);
    r.MouseMove(-200, 10);
    EXPECT_EQ(r.ScrollPos, 370 - 330);
    r.MouseUp(-200, 10);
    EXPECT_FALSE(r.Panning);
    EXPECT_TRUE(r.timerEnabled);
    r.setScrollSpeed(0);
    EXPECT_EQ(r.ScrollSpeed(), 3);
}

TEST(MsgScrollerTest, ItemsAreFoundInUpperCaseAndKeysAreUnique) {
    MsgScroller r = ring({});
    EXPECT_TRUE(r.AddItem(QStringLiteral("Reliance 10"), QStringLiteral("Reliance")));
    EXPECT_TRUE(r.AddItem(QStringLiteral("   ")));
    EXPECT_TRUE(r.AddItem(QStringLiteral("Infosys 20"), QStringLiteral("Infosys"), 1));
    EXPECT_FALSE(r.AddItem(QStringLiteral("again"), QStringLiteral("RELIANCE")));
    EXPECT_EQ(r.ListCount(), 2);
    EXPECT_EQ(r.FindItem(QStringLiteral("RELIANCE 10")), 2);
    EXPECT_EQ(r.FindKey(QStringLiteral("infosys")), 1);
    EXPECT_EQ(r.FindKey(QStringLiteral("TCS")), 0);
}

class TickerTest : public MarketTest {
protected:
    TickerTest() { holdGrowth({{QStringLiteral("RELIANCE"), 2000, 10, 5000, 10, 2100, 5000}}); }
    Ticker& ticker() { return m_program.module<Ticker>(); }
};

TEST_F(TickerTest, TheTickerShowsThePortfolioInRedAndGreenAndAClickOpensTheStock) {
    cmdticker_Click(m_program);
    EXPECT_EQ(ticker().cmdticker, Ticker::kRunning);
    EXPECT_EQ(ticker().symbols, QStringLiteral("^NSEI+RELIANCE.NS"));
    const MsgScroller& r = ticker().MsgScroller1;
    ASSERT_EQ(r.ListCount(), 2);
    EXPECT_EQ(r.List(2), QStringLiteral("Reliance Industries Limited 2444.10 -23.50"));
    EXPECT_EQ(r.ItemColor(2), 255);
    EXPECT_EQ(r.ItemColor(1), 65280);  // the index, with no name and no minus
    EXPECT_EQ(r.BackColor, 0u);
    EXPECT_EQ(r.ScrollInterval, 50);

    MsgScroller1_HotSpotClick(m_program, 1);  // the index's line opens nothing
    EXPECT_TRUE(m_prompt.messages().isEmpty());
    MsgScroller1_HotSpotClick(m_program, 2);
    EXPECT_EQ(m_program.frame().cmbequity, QStringLiteral("RELIANCE"));
    EXPECT_EQ(m_program.frame().panel6, QStringLiteral("Intra Day Price Chart of RELIANCE"));
    EXPECT_EQ(ticker().browserAddress.section(QLatin1Char('/'), -1), QStringLiteral("b?s=reliance"));
    EXPECT_EQ(m_program.module<Screens>().shown().back(), QStringLiteral("frmBrowser"));

    cmdticker_Click(m_program);
    EXPECT_EQ(ticker().cmdticker, Ticker::kTicker);
    EXPECT_FALSE(ticker().MsgScroller1Visible);
    EXPECT_EQ(ticker().Timer1Interval, 0);
}

TEST_F(TickerTest, KeptTickerRefreshesOnTheMinuteNumberAlone) {
    cmdticker_Click(m_program);
    const std::tuple<int, int, bool> cases[] = {{0, 1, false}, {0, 2, true}, {57, 59, true}, {59, 0, false}};
    for (const auto& [last, minute, refreshed] : cases) {
        ticker().lastRefreshMinute = last;
        const std::size_t before = m_service.requests().size();
        Timer1_Timer(m_program, minute);
        EXPECT_EQ(m_service.requests().size() > before, refreshed) << last << " " << minute;
        EXPECT_TRUE(ticker().MsgScroller1.Scroll());
    }
    // Update All Prices leaves the row count of its own request; the refresh sizes the table again.
    m_program.module<QuoteTables>().QuoteRows = 0;
    RefreshTicker(m_program);
    EXPECT_EQ(ticker().MsgScroller1.ListCount(), 2);
    EXPECT_TRUE(m_prompt.messages().isEmpty());
    // A quote that fails leaves the ring as it was.
    writeHosts({QStringLiteral("quote=")});
    RefreshTicker(m_program);
    EXPECT_EQ(ticker().MsgScroller1.ListCount(), 2);
}

TEST_F(TickerTest, TheNewsComesFromItsHostOrItsFileAndRunsOffTheLeftOnce) {
    EXPECT_EQ(newsText(), QString());
    QFile file(appFile(kNewsFile));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("Markets open\nhigher");
    file.close();
    EXPECT_EQ(newsText(), QStringLiteral("Markets open higher"));
    m_service.route(QStringLiteral("/news.txt"),
                    [](const ServiceRequest&) { return ServiceReply{httpAnswer(200, "text/plain", "From the host")}; });
    writeHosts({QStringLiteral("news=") + m_service.hostPort()});
    EXPECT_EQ(newsText(), QStringLiteral("From the host"));

    NewsBar bar;
    bar.Form_Load(100, 8);
    int ticks = 0;
    while (bar.Timer1_Timer()) ++ticks;
    EXPECT_EQ(ticks, 27);
    EXPECT_EQ(bar.Label1Left, -8);
    EXPECT_TRUE(bar.closed);
}

}  // namespace
}  // namespace ostravel::test
