// The chart's geometry without a display: the price grid's step, the splits SetMargins keeps,
// the divider's hit and drag bands, the crosshair's snap, the mouse label, and the drawing
// tools' lines, boxes, ellipses, Fibonacci levels and pane bands.
#include <gtest/gtest.h>

#include <cmath>

#include "charts/chart_geometry.h"
#include "charts/drawing_geometry.h"
#include "runtime/vberror.h"
#include "tests/support/qstring_printer.h"

namespace ostravel::test {
namespace {

TEST(ChartGeometry, PriceStepIsTheFirstRowThatHoldsTheRange) {
    const std::pair<double, double> rows[] = {{0, 0.05}, {1, 0.05},    {1.01, 0.1}, {4, 0.25}, {9.99, 0.5},
                                              {20, 1},   {20.5, 2},    {70, 4},     {150, 6},  {250, 8},
                                              {300, 9},  {300.01, 10}, {5000, 10}};
    for (const auto& [range, step] : rows) EXPECT_EQ(priceStep(range), step) << range;
}

TEST(ChartGeometry, SplitsKeepThePanesAndSayWhichToWrite) {
    struct Row {
        float split1, split2;
        std::int32_t bottom;
        float want1, want2;
        QList<int> writes;
    };
    const Row rows[] = {
        {430, 480, 700, 430, 480, {}},       // the defaults fit
        {300, 480, 700, 350, 480, {1}},      // the price pane takes at least half
        {430, 480, 1000, 470, 480, {1, 1}},  // and stays above the second split
        {430, 480, 500, 430, 450, {2}},      // the indicator pane keeps 50 pixels
        {430, 480, 400, 340, 350, {2, 1}},   // and the first split follows
        {100, 90, 160, 80, 90, {1}},         // a pair saved out of order
    };
    for (const Row& row : rows) {
        float split1 = row.split1;
        float split2 = row.split2;
        EXPECT_EQ(keepSplits(split1, split2, row.bottom), row.writes) << row.bottom;
        EXPECT_EQ(std::pair(split1, split2), std::pair(row.want1, row.want2)) << row.bottom;
    }
}

TEST(ChartGeometry, DividerHitsWithinThreePixelsAndDragsInsideItsBand) {
    EXPECT_TRUE(onSplit(432.9, 430));
    EXPECT_FALSE(onSplit(433, 430));
    EXPECT_FALSE(onSplit(427, 430));
    // Divider 1 strictly between half the bottom (300) and 10 above the second split; divider 2
    // between 10 below the first and 50 above the bottom.
    const std::tuple<int, double, bool> rows[] = {{1, 300, false}, {1, 301, true}, {1, 469, true}, {1, 470, false},
                                                  {2, 440, false}, {2, 441, true}, {2, 549, true}, {2, 550, false}};
    for (const auto& [divider, y, inside] : rows) EXPECT_EQ(inDragBand(divider, y, 430, 480, 600), inside) << y;
    // A bottom whose half reaches 10 above the second split leaves divider 1 no room at all.
    for (double y = 460; y <= 480; ++y) EXPECT_FALSE(inDragBand(1, y, 430, 480, 940)) << y;
}

TEST(ChartGeometry, CrosshairSnapsToTheNearestBarTheLeftOneOnATie) {
    const std::tuple<double, float, std::int32_t> rows[] = {{900, 5, 900}, {898, 5, 900}, {897, 5, 895}, {902, 5, 900},
                                                            {904, 5, 900}, {896, 4, 896}, {898, 4, 896}};
    for (const auto& [x, spacing, snapped] : rows) EXPECT_EQ(SnapToBar(x, 900, spacing), snapped) << x;
    EXPECT_EQ(visibleBarsFor(900, 5), 181);
    EXPECT_EQ(visibleBarsFor(899, 7), 129);
}

TEST(ChartGeometry, MouseLabelReadsThePriceAndOnAQuickSecondPressTheBar) {
    std::vector<StockRecord> bars(3);
    bars[2] = {QStringLiteral("19/10/2021"), {}, 512.45, 517.4, 476.05, 481.9, 57428637};
    bars[1] = {QStringLiteral("18/10/2021"), {}, 500, 510, 490, 505, 1000};
    MouseLabelInput in{&bars, 2, 900, 5, false, 120, 40, 430};
    EXPECT_EQ(mouseLabelText(in, 900, 4), QStringLiteral("120.00"));
    EXPECT_EQ(mouseLabelText(in, 900, 215), QStringLiteral("100.00"));
    EXPECT_EQ(mouseLabelText(in, 900, 430), QString());  // below the price pane
    in.ShowBarData = true;
    EXPECT_EQ(mouseLabelText(in, 901, 4),
              QStringLiteral("19/10/2021\n      \nO: 512.45\nH: 517.4\nL: 476.05\nC: 481.9\nV: 57428637\n120.00"));
    EXPECT_TRUE(mouseLabelText(in, 895, 4).startsWith(QStringLiteral("18/10/2021")));
    EXPECT_EQ(mouseLabelText(in, 960, 4), QStringLiteral("120.00"));  // beyond the last bar
}

TEST(DrawingGeometry, ExtendCarriesALineToTheEdgesOnItsSlope) {
    struct Row {
        QPointF a, b;
        std::int16_t extend;
        QLineF line;
    };
    const Row rows[] = {
        {{300, 200}, {100, 100}, 0, {{100, 100}, {300, 200}}},             // the segment, left point first
        {{100, 100}, {300, 200}, kExtendLeft, {{0, 50}, {300, 200}}},      // to x 0
        {{100, 100}, {300, 200}, kExtendRight, {{100, 100}, {800, 450}}},  // to the picture's width
        {{100, 100}, {300, 200}, 3, {{0, 50}, {800, 450}}},
        {{100, 40}, {300, 40}, 3, {{0, 40}, {800, 40}}},        // a level line too
        {{200, 300}, {200, 100}, 3, {{200, 300}, {200, 100}}},  // a vertical one stays
    };
    for (const Row& row : rows) EXPECT_EQ(extendedLine(row.a, row.b, row.extend, 800), row.line) << row.extend;
}

TEST(DrawingGeometry, SquaresAndEllipsesTakeTheirSizeFromThePoints) {
    const std::tuple<QPointF, QPointF> squares[] = {{{10, 10}, {50, 20}}, {{10, 10}, {50, -90}}, {{10, 10}, {-30, 10}}};
    const QPointF corners[] = {{50, 50}, {50, -30}, {-30, 50}};
    for (std::size_t i = 0; i < std::size(squares); ++i)
        EXPECT_EQ(squareCorner(std::get<0>(squares[i]), std::get<1>(squares[i])), corners[i]) << i;

    struct Row {
        bool useOrigin, circle;
        QRectF box;
    };
    const QPointF first(100, 100), last(130, 140);
    const Row rows[] = {
        {false, false, {100, 100, 30, 40}},  // the box of opposite points
        {false, true, {100, 105, 30, 30}},   // a circle as wide as they are apart
        {true, true, {50, 50, 100, 100}},    // the rim 50 away from the origin
    };
    for (const Row& row : rows) EXPECT_EQ(ellipseBox(first, last, row.useOrigin, row.circle), row.box) << row.circle;
    // From the origin the ellipse keeps the points' ratio and runs through the second one.
    const QRectF box = ellipseBox(first, last, true, false);
    EXPECT_EQ(box.center(), first);
    EXPECT_DOUBLE_EQ(box.height() / box.width(), 40.0 / 30.0);
    EXPECT_NEAR(std::pow(30 / (box.width() / 2), 2) + std::pow(40 / (box.height() / 2), 2), 1, 1e-12);
}

TEST(DrawingGeometry, FibonacciLevelsUseSinglePrecisionFactors) {
    const FibLevels levels = fibLevels({410.7, 1100}, {20.2, 100});
    EXPECT_EQ(levels.left, 20);
    EXPECT_EQ(levels.y[0], 100);
    EXPECT_EQ(levels.y[2], 600);
    EXPECT_EQ(levels.y[4], 1100);
    // 0.618 and 0.382 as 32-bit floats lie just below their decimals.
    EXPECT_NEAR(levels.y[1], 717.99997091, 1e-8);
    EXPECT_NEAR(levels.y[3], 481.99999928, 1e-8);
}

TEST(DrawingGeometry, KeptFibBandShiftTakesTheSlopeInDegreesAsRadians) {
    const double slope = fibSlope({0, 0}, {100, 100});
    EXPECT_NEAR(slope, 45, 1e-6);
    const QLineF shifted = shiftedDiagonal({0, 0}, {100, 100}, slope);
    // sin(45) and cos(45) of radians: less than a pixel, not the half root of two of degrees.
    EXPECT_NEAR(shifted.x1(), 0.8509, 1e-4);
    EXPECT_NEAR(shifted.y1(), 0.5253, 1e-4);
    EXPECT_EQ(shifted.p2() - shifted.p1(), QPointF(100, 100));
    EXPECT_THROW(fibSlope({5, 0}, {5, 100}), VbError);
}

TEST(DrawingGeometry, ThePointerStaysInThePaneOfTheFirstClick) {
    const std::tuple<double, QRect> rows[] = {
        {100, QRect(QPoint(0, 0), QPoint(799, 430))},    // price, above the first split
        {430, QRect(QPoint(0, 432), QPoint(799, 480))},  // volume, from 2 below the first split
        {481, QRect(QPoint(0, 482), QPoint(799, 599))},  // indicator, from 2 below the second
    };
    for (const auto& [y, band] : rows) EXPECT_EQ(paneBand(y, 430, 480, 800, 600), band) << y;
    EXPECT_EQ(confinedPoint(QRect(QPoint(0, 432), QPoint(799, 480)), QPoint(900, 10)), QPoint(799, 432));
}

}  // namespace
}  // namespace ostravel::test
