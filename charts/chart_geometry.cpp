#include "charts/chart_geometry.h"

#include <cmath>

#include "runtime/vbformat.h"
#include "runtime/vbmath.h"

namespace ostravel {

namespace {

struct StepRow {
    double upTo;
    double step;
};
constexpr StepRow kSteps[] = {{1, 0.05}, {2, 0.1}, {4, 0.25}, {10, 0.5}, {20, 1},  {30, 2}, {50, 3},
                              {70, 4},   {100, 5}, {150, 6},  {200, 7},  {250, 8}, {300, 9}};
constexpr double kStepAbove = 10;

}  // namespace

double priceStep(double priceRange) {
    for (const StepRow& row : kSteps)
        if (priceRange <= row.upTo)
            return row.step;
    return kStepAbove;
}

QList<int> keepSplits(float& split1, float& split2, std::int32_t chartBottom) {
    QList<int> writes;
    const double half = chartBottom / 2.0;
    if (half > split1) {
        split1 = static_cast<float>(half);
        writes << 1;
    }
    if (split2 > static_cast<double>(chartBottom - 50)) {
        split2 = static_cast<float>(chartBottom - 50);
        writes << 2;
    }
    if (split1 > split2) {
        split1 = split2 - 10;
        writes << 1;
    }
    if (split2 < split1) {
        split2 = split1 + 10;
        writes << 2;
    }
    return writes;
}

bool onSplit(double y, float split) {
    return y > split - 3 && y < split + 3;
}

bool inDragBand(int divider, double y, float split1, float split2, std::int32_t chartBottom) {
    if (divider == 1)
        return y > chartBottom / 2.0 && y < split2 - 10;
    return y > split1 + 10 && y < chartBottom - 50;
}

std::int32_t visibleBarsFor(float chartRight, float barSpacing) {
    return static_cast<std::int32_t>(std::floor(static_cast<double>(chartRight) / barSpacing)) + 1;
}

std::int32_t SnapToBar(double x, float chartRight, float barSpacing) {
    const std::int32_t spacing = toLongInteger(barSpacing);
    if (spacing == 0)
        return toLongInteger(x);
    const std::int32_t r = toLongInteger(chartRight - x) % spacing;
    const double hi = x + r;
    const double lo = std::nearbyint(hi - barSpacing);
    return toLongInteger(x - lo <= hi - x ? lo : hi);
}

QString mouseLabelText(const MouseLabelInput& in, double x, double y) {
    if (y >= in.WindowSplit1)
        return {};
    const double price = Round(in.HighPrice - ((y - 4) * in.PriceRange) / (in.WindowSplit1 - 8), 2);
    const QString priceText = formatNumber(price, QStringLiteral("0.00"));
    if (!in.ShowBarData)
        return priceText;
    const std::int32_t index = toLongInteger(in.LastIdx - (in.ChartRight - x) / in.BarSpacing);
    if (!in.bars || index < 0 || index >= static_cast<std::int32_t>(in.bars->size()))
        return priceText;
    const StockRecord& bar = (*in.bars)[static_cast<std::size_t>(index)];
    return bar.Date + QStringLiteral("\n      ") + bar.Time + QStringLiteral("\nO: ") + numberToText(bar.Open) +
           QStringLiteral("\nH: ") + numberToText(bar.High) + QStringLiteral("\nL: ") + numberToText(bar.Low) +
           QStringLiteral("\nC: ") + numberToText(bar.Close) + QStringLiteral("\nV: ") + QString::number(bar.Volume) +
           QLatin1Char('\n') + priceText;
}

}  // namespace ostravel
