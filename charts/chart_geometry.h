// The chart's geometry as plain rules on pixels: the price grid's step, the pane splits that
// SetMargins keeps, the bands a divider may be dragged in, the snap of the crosshair to bars,
// and what the mouse label reads.
#pragma once

#include <QList>
#include <QString>
#include <cstdint>
#include <vector>

#include "market/history.h"

namespace ostravel {

// The step of the price grid: the first row of the table whose upper bound holds the range.
double priceStep(double priceRange);

// SetMargins' rules on the splits for a chart bottom, in order; each split that one of them
// changes is written at once, so the numbers (1 or 2) of the writes are returned in order.
QList<int> keepSplits(float& split1, float& split2, std::int32_t chartBottom);

// The pointer rests on a divider: strictly within 3 pixels of its split.
bool onSplit(double y, float split);

// A drag of divider 1 or 2 stays strictly inside its band: the first between half the chart
// bottom and 10 above the second split, the second between 10 below the first and 50 above the
// chart bottom.
bool inDragBand(int divider, double y, float split1, float split2, std::int32_t chartBottom);

// Bars that the width holds at a spacing: the whole part of chartRight / spacing, plus 1.
std::int32_t visibleBarsFor(float chartRight, float barSpacing);

// The x of the nearest bar, a tie going to the one on the left.
std::int32_t SnapToBar(double x, float chartRight, float barSpacing);

// What MouseLabel shows at (x, y).
struct MouseLabelInput {
    const std::vector<StockRecord>* bars = nullptr;
    std::int32_t LastIdx = -1;
    float ChartRight = 0;
    float BarSpacing = 0;
    bool ShowBarData = false;
    double HighPrice = 0;
    double PriceRange = 0;
    float WindowSplit1 = 0;
};
// Kept: the bar is counted from the last one with no regard to the scroll offset, so a
// scrolled chart names another bar than the one under the pointer. A bar beyond the history
// shows no bar data.
QString mouseLabelText(const MouseLabelInput& in, double x, double y);

}  // namespace ostravel
