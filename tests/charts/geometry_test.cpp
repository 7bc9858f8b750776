// The chart's geometry without a display: the price grid's step, the splits SetMargins keeps,
// the divider's hit and drag bands, the crosshair's snap and the mouse label.
#include <gtest/gtest.h>

#include "charts/chart_geometry.h"
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

}  // namespace
}  // namespace ostravel::test
