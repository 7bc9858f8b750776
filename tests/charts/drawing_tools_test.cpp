// The drawing tools on the chart window without a display: each tool's prompts and clicks, the
// rubber band over the shown picture with the chart beneath untouched, the figure at the last
// click, the pane the pointer stays in, the cancel, the menus that wait, and the zoom that takes
// the figures away.
#include <functional>

#include "charts/drawing_geometry.h"
#include "charts/picture_box.h"
#include "tests/charts/chart_fixture.h"

namespace ostravel::test {
namespace {

constexpr std::int32_t kMagenta = 16711935;

class DrawingTools : public ChartWindow {
protected:
    DrawingTools() {
        tools().Timer = [this] { return m_now; };
    }
    CDrawingToolschart& tools() { return chart.DrawingTools; }
    // Each act of the mouse a fifth of a second after the last, so that the live figure follows.
    void move(double x, double y) {
        m_now += 0.2;
        chart.MouseMove(false, x, y);
    }
    void press(double x, double y) {
        move(x, y);
        chart.MouseDown(x, y, m_now);
        chart.MouseUp();
    }
    QRgb pixel(int x, int y) const { return chart.ChartBoxV.pixel(x, y) & 0xFFFFFF; }

    double m_now = 1000;
};

TEST_F(DrawingTools, EachToolPromptsBandsOverTheShownPictureAndDrawsAtItsLastClick) {
    struct Case {
        const char* name;
        std::function<void(CDrawingToolschart&)> start;
        QStringList prompts;
        QList<QPoint> clicks;
    };
    const Case cases[] = {
        {"TrendLine",
         [](CDrawingToolschart& t) { t.TrendLine(); },
         {"Pick 1st Pt.", "Pick Last Pt."},
         {{100, 100}, {400, 200}}},
        {"Parallel",
         [](CDrawingToolschart& t) { t.TrendLine(true); },
         {"Pick 1st Pt.", "Pick Last Pt.", "Place Parallel Line"},
         {{100, 100}, {400, 200}, {400, 300}}},
        {"Rectangle",
         [](CDrawingToolschart& t) { t.RectAndSquareTool(); },
         {"Pick 1st Corner Pt.", "Pick Last Corner Pt."},
         {{100, 100}, {300, 200}}},
        {"Ellipse",
         [](CDrawingToolschart& t) { t.CircleElipseTool(true); },
         {"Pick Origin", "Pick Last Pt."},
         {{300, 200}, {350, 250}}},
        {"Fib",
         [](CDrawingToolschart& t) { t.FibRetrace(); },
         {"Pick 1st Extreme.", "Pick Opposite Extreme"},
         {{100, 50}, {400, 300}}},
    };
    const QImage before = chart.ChartBoxV;
    for (const Case& c : cases) {
        const QImage atStart = chart.ChartBoxV;
        c.start(tools());
        EXPECT_TRUE(chart.DrawBusy && chart.txtDrawInstruct.Visible) << c.name;
        EXPECT_EQ(chart.MousePointer, Pointer::Custom);
        QStringList shown{chart.txtDrawInstruct.Text};
        for (qsizetype i = 0; i + 1 < c.clicks.size(); ++i) {
            press(c.clicks[i].x(), c.clicks[i].y());
            shown << chart.txtDrawInstruct.Text;
            move(c.clicks[i].x() + 50, c.clicks[i].y() + 30);
            EXPECT_FALSE(tools().RubberBand().empty()) << c.name;
            // The band lies over the pictures, which stay as they were; the zoom waits.
            chart.mnuincrease_Click();
            EXPECT_EQ(chart.settings().BarSpacing, 5);
            EXPECT_TRUE(chart.ChartBoxV == atStart && chart.ChartBox.image() == atStart) << c.name;
        }
        EXPECT_EQ(shown, c.prompts);
        const ChartSettings& s = chart.settings();
        EXPECT_EQ(tools().CursorClip(), paneBand(c.clicks[0].y(), s.WindowSplit1, s.WindowSplit2, 800, 600));
        press(c.clicks.back().x(), c.clicks.back().y());
        EXPECT_FALSE(tools().Active() || chart.DrawBusy || chart.txtDrawInstruct.Visible) << c.name;
        EXPECT_TRUE(tools().RubberBand().empty() && !tools().CursorClip());
        EXPECT_EQ(chart.MousePointer, Pointer::Default);
        EXPECT_NE(chart.ChartBoxV, atStart) << c.name;
        EXPECT_EQ(chart.ChartBoxV, chart.ChartBox.image());
    }
    // A zoom redraws the chart: every figure is gone.
    chart.mnuincrease_Click();
    chart.mnudec_Click();
    EXPECT_EQ(chart.ChartBoxV, before);
}

TEST_F(DrawingTools, ExtendCarriesTheLineToTheEdgesAndTheFigureTakesTheToolsPen) {
    tools().ToolColor = kMagenta;
    for (const std::int16_t extend : {std::int16_t{0}, std::int16_t{3}}) {
        tools().Extend = extend;
        tools().TrendLine();
        press(300, 60);
        press(500, 60);
        EXPECT_EQ(pixel(400, 60), 0xFF00FFu);
        EXPECT_EQ(pixel(2, 60) == 0xFF00FFu && pixel(797, 60) == 0xFF00FFu, extend == 3) << extend;
        chart.ChartBoxDraw();
    }
    // A box filled solid in the fill colour; the picture's own pen comes back afterwards.
    tools().ToolFillStyle = kFillSolid;
    tools().ToolFillColor = 8388736;
    tools().ToolWidth = 3;
    tools().RectAndSquareTool(true);
    press(200, 100);
    press(260, 300);
    EXPECT_EQ(pixel(230, 130), 0x800080u);  // inside the square
    EXPECT_NE(pixel(230, 200), 0x800080u);  // below it: the height took the width
    EXPECT_EQ(std::tuple(chart.ChartBox.DrawWidth, chart.ChartBox.FillStyle), std::tuple(1, kFillTransparent));
}

TEST_F(DrawingTools, CancelEndsWithNoFigureAndAPressAnywhereCounts) {
    const QImage before = chart.ChartBoxV;
    tools().FibRetrace();
    press(-40, 5000);  // beyond the picture
    EXPECT_EQ(chart.txtDrawInstruct.Text, QStringLiteral("Pick Opposite Extreme"));
    EXPECT_FALSE(chart.ChLine1.Visible);  // the tool took the press, not the crosshair
    chart.mnuPuCancelDrawing_Click();
    EXPECT_FALSE(tools().Active() || chart.DrawBusy);
    EXPECT_EQ(chart.ChartBoxV, before);
    // The next tool starts clear of the cancel.
    tools().TrendLine();
    press(100, 100);
    EXPECT_TRUE(tools().Active());
    // A resize ends it, and the chart is drawn anew, its red divider and all.
    chart.Form_Resize(700, 500);
    EXPECT_FALSE(tools().Active());
    EXPECT_EQ(pixel(10, static_cast<int>(chart.settings().WindowSplit1)), 0xFF0000u);
}

TEST_F(DrawingTools, TheLiveFigureKeepsItsPaceAndTheLoopBeatsOnceASecond) {
    tools().TrendLine();
    press(100, 100);
    move(300, 150);
    EXPECT_EQ(tools().RubberBand().front().points.p2(), QPointF(300, 150));
    chart.MouseMove(false, 350, 150);  // at once: the picture waits
    EXPECT_EQ(tools().RubberBand().front().points.p2(), QPointF(300, 150));
    const bool beat = chart.DrawLoopBeat;
    m_now += 1.0;
    tools().DoLoop();  // the window's pass between the mouse's events
    EXPECT_EQ(tools().RubberBand().front().points.p2(), QPointF(350, 150));
    EXPECT_NE(chart.DrawLoopBeat, beat);
}

}  // namespace
}  // namespace ostravel::test
