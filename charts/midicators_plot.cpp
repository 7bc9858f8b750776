// PlotAvg and PlotIndicator: the three price averages over the price pane, and the current
// indicator with its scale, zero line, trigger lines and legend in the indicator pane.
#include <algorithm>
#include <cmath>

#include "charts/chart_settings.h"
#include "charts/frmmain.h"
#include "charts/indicators/cci.h"
#include "charts/indicators/macd.h"
#include "charts/indicators/rocpercent.h"
#include "charts/indicators/rsi.h"
#include "charts/indicators/stoch.h"
#include "charts/midicators.h"
#include "context/program.h"
#include "runtime/trap.h"
#include "runtime/vbformat.h"
#include "runtime/vbmath.h"

namespace ostravel {

namespace {

// RGB(0, 0, 160), the zero and trigger lines.
constexpr std::int32_t kNavy = 160 << 16;

struct PlotLine {
    std::int32_t colour;
    bool histogram;
};

// What step 1 prepares for the current indicator.
struct IndicatorPlan {
    QString title;
    float upper = 0;
    float lower = 0;
    std::vector<PlotLine> lines;
    // The trigger lines' values and texts, upper first; none for MACD, which has no triggers.
    std::vector<std::pair<double, QString>> triggers;
};

QString title(const char* name, std::initializer_list<int> numbers) {
    QStringList parts;
    for (int n : numbers) parts << QString::number(n);
    return QString::fromLatin1(name) + QLatin1Char('(') + parts.join(QLatin1Char(',')) + QLatin1Char(')');
}

template <class T>
std::vector<std::pair<double, QString>> triggersOf(T upper, T lower) {
    const auto text = [](T v) {
        if constexpr (std::is_same_v<T, float>)
            return singleText(v);
        else
            return QString::number(v);
    };
    return {{static_cast<double>(upper), text(upper)}, {static_cast<double>(lower), text(lower)}};
}

}  // namespace

void MIdicators::PlotAvg(FrmMain& chart) {
    ErrorReporter& reporter = m_program.reporter();
    const QString where = QStringLiteral("(Module) MIdicators::Sub PlotAvg");
    const std::vector<StockRecord>& bars = m_program.module<HistoryState>().StockData;
    std::vector<double> closes(bars.size());
    for (std::size_t i = 0; i < bars.size(); ++i) closes[i] = bars[i].Close;

    PictureBox& box = chart.ChartBox;
    const int keepStyle = box.DrawStyle;
    const int keepWidth = box.DrawWidth;
    box.DrawStyle = kSolid;
    const float spacing = m_settings.BarSpacing;
    const auto y = [&](double v) {
        return toInteger(divide((chart.HighPrice - v) * (m_settings.WindowSplit1 - 8), chart.PriceRange) + 4);
    };
    for (std::size_t k = 0; k < 3; ++k) {
        box.DrawWidth = AvgWidth[k];
        AvgObj.AvgLen = AvgLen[k];
        trapped(reporter, where, [&] { AvgObj.Calculate(closes); });
        chart.ChartRight = static_cast<float>(box.ScaleWidth() - m_settings.BlankSpace * 10);
        // One average that can't be placed is reported once, and the next one is drawn.
        trapped(reporter, where, [&] {
            float x = chart.ChartRight;
            for (std::int32_t i = chart.LastBar; x >= 0 && i >= 2; --i, x -= spacing) {
                const double a = AvgObj.RetVal(i);
                const double before = AvgObj.RetVal(i - 1);
                if (a != 0 && before != 0)
                    box.Line(x, y(a), x - spacing, y(before), AvgColor[k]);
            }
        });
    }
    box.DrawStyle = keepStyle;
    box.DrawWidth = keepWidth;
}

void MIdicators::PlotIndicator(FrmMain& chart) {
    ErrorReporter& reporter = m_program.reporter();
    const QString where = QStringLiteral("(Module) MIdicators::Sub PlotIndicator");
    IndicatorPlan plan;
    std::int32_t plotWidth = 1;
    if (MACDInd) {
        LoadDblArray();
        const MACD& m = *MACDInd;
        plan = {title("MACD", {m.MACDLen1, m.MACDLen2, m.MACDLen3}),
                0,
                99999,
                {{m.MACDColor1, false}, {m.MACDColor2, false}, {m.MACDColor3, true}},
                {}};
        plotWidth = m.PlotWidth;
    } else if (CCIInd) {
        LoadStockDataArray();
        const CCI& c = *CCIInd;
        plan = {title("CCI", {c.CciLen, c.CciAvgLen}),
                static_cast<float>(c.UpperTrig),
                static_cast<float>(c.LowerTrig),
                {{c.CciColor, false}, {c.CciAvgColor, false}},
                triggersOf(c.UpperTrig, c.LowerTrig)};
        plotWidth = c.PlotWidth;
    } else if (ROCInd) {
        LoadDblArray();
        const ROCPercent& r = *ROCInd;
        plan = {title("ROC%", {r.ROCLen}),
                r.UpperTrig,
                r.LowerTrig,
                {{r.ROCColor, true}},
                triggersOf(r.UpperTrig, r.LowerTrig)};
        plotWidth = r.PlotWidth;
    } else if (RSIInd) {
        LoadDblArray();
        const RSI& r = *RSIInd;
        plan = {title("RSI", {r.RsiLen}), 100, 0, {{r.RsiColor, false}}, triggersOf(r.UpperTrig, r.LowerTrig)};
        plotWidth = r.PlotWidth;
    } else if (STOCHInd) {
        LoadStockDataArray();
        const Stoch& s = *STOCHInd;
        plan = {title("STOCH", {s.KPeriod, s.DPeriod}),
                s.UpperTrig,
                s.LowerTrig,
                {{s.StochSlow ? s.StochKSlowColor : s.StochKColor, false},
                 {s.StochSlow ? s.StochDColor : s.StochKSlowColor, false}},
                triggersOf(s.UpperTrig, s.LowerTrig)};
        plotWidth = s.PlotWidth;
    } else {
        return;  // a name that is none of the five: no indicator is shown
    }

    PictureBox& box = chart.ChartBox;
    const ChartSettings& settings = m_settings;
    const double top = settings.WindowSplit2;
    const double h = chart.ChartBottom - top - 15;
    const double width = box.ScaleWidth();
    const double halfText = chart.TextH / 2.0;

    // The scale takes every value of every line on the visible bars, in single precision.
    float upper = plan.upper;
    float lower = plan.lower;
    trapped(reporter, where, [&] {
        for (std::size_t j = 0; j < plan.lines.size(); ++j)
            for (std::int32_t i = std::max(chart.LastBar - chart.BarsDrawn, 0); i <= chart.LastBar; ++i) {
                const auto v = static_cast<float>(IndArray(i, j));
                upper = std::max(upper, v);
                lower = std::min(lower, v);
            }
    });
    const float range = upper - lower;

    const int keepStyle = box.DrawStyle;
    const int keepWidth = box.DrawWidth;
    const int keepMode = box.DrawMode;
    box.DrawWidth = 1;
    box.DrawStyle = kDot;
    box.DrawMode = kCopyPen;

    // A range of 0 fails the scale's division: reported once, and the pane keeps only its legend.
    double z = 0;
    double perUnit = 0;
    const bool scaled = trapped(reporter, where, [&] {
        perUnit = divide(h, range);
        z = toLongInteger(upper * perUnit + top + 4);
    });
    const auto y = [&](double v) { return (upper - v) * perUnit + top + 4; };
    if (scaled) {
        const double step = h / 5;
        double widest = 0;
        const auto mark = [&](const QString& text, double printY) {
            const double textWidth = box.TextWidth(text);
            box.Print(width - textWidth - 10, printY, text);
            widest = std::max(widest, textWidth);
        };
        const auto gridLine = [&](double at, const QString& text) {
            box.Line(0, at, width - box.TextWidth(text) - 20, at, settings.GridColor);
        };
        // The marks run from the zero line by whole steps; those that can't reach the picture
        // are passed by, so a zero line far off the pane costs no time.
        const auto firstStep = [&](double distance) { return std::max(1.0, std::ceil(distance / step)); };
        trapped(reporter, where, [&] {
            if (step <= 0)
                return;
            if (lower <= 0) {
                for (double k = firstStep(top - step - z); z + k * step <= chart.ChartBottom - 10; ++k) {
                    const double at = z + k * step;
                    const double value = (z - at) / perUnit;
                    const QString text =
                        value < -10 ? numberToText(Round(value)) : formatNumber(value, QStringLiteral("##.##"));
                    if (at - halfText < chart.ChartBottom - chart.TextH)
                        mark(text, at - halfText);
                    gridLine(at, text);
                }
            }
            for (double k = firstStep(z - chart.ChartBottom - step); z - k * step >= top + 4; ++k) {
                const double at = z - k * step;
                const double value = (z - at) / perUnit;
                const QString text =
                    value <= 10 ? formatNumber(value, QStringLiteral("##.##")) : numberToText(Round(value));
                // Near the pane's top the text goes below its line, so that it stays in the pane.
                mark(text, at - halfText < top + chart.TextH ? at : at - halfText);
                gridLine(at, text);
            }
        });

        box.DrawStyle = kSolid;
        const std::int32_t zeroColour = current && current->ZeroLinePlot() ? kNavy : settings.GridColor;
        const double zeroWidth = box.TextWidth(QStringLiteral("0"));
        box.Line(0, z, width - zeroWidth - 20, z, zeroColour);
        box.Print(width - zeroWidth - 10, z - halfText, QStringLiteral("0"));

        box.DrawWidth = plotWidth;
        if (current && current->PlotTriggerLines()) {
            for (std::size_t t = 0; t < plan.triggers.size(); ++t) {
                const auto& [value, text] = plan.triggers[t];
                const double at = std::nearbyint(y(value));
                const double w = box.TextWidth(text) + widest + 3;
                box.Line(0, at, width - w - 20, at, kNavy);
                box.Print(width - w - 10, at - halfText + (t == 0 ? 3 : 0), text);
            }
        }

        for (std::size_t j = 0; j < plan.lines.size(); ++j) {
            trapped(reporter, where, [&] {
                double prevX = 0;
                double prevY = 0;
                float x = chart.ChartRight;
                for (std::int32_t index = chart.LastBar; !(x <= 0 || index < 0); --index, x -= settings.BarSpacing) {
                    const double at = y(IndArray(index, j));
                    if (prevX != 0) {
                        if (plan.lines[j].histogram)
                            box.Line(x, z, x, at, plan.lines[j].colour);
                        else
                            box.Line(prevX, prevY, x, at, plan.lines[j].colour);
                    }
                    prevX = x;
                    prevY = at;
                }
            });
        }
    }

    // Kept: the legend shows the last bar of the whole array, so it doesn't change while scrolling.
    QStringList values;
    for (std::size_t j = 0; j < plan.lines.size(); ++j) {
        QString text;
        trapped(reporter, where, [&] { text = formatNumber(IndArray(IndArray.hi, j), QStringLiteral("##.00")); });
        values << text;
    }
    box.DrawWidth = keepWidth;
    box.DrawStyle = keepStyle;
    box.DrawMode = keepMode;
    const QString legend = plan.title + QStringLiteral(": ") + values.join(QStringLiteral("; "));
    box.Box(1, top + 3, 1 + box.TextWidth(legend), top + 3 + box.TextHeight(legend), settings.BackColor);
    box.Print(1, top + 3, legend);
}

}  // namespace ostravel
