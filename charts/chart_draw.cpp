// ChartBoxDraw: one redraw of the chart into the hidden picture, then the picture shown. A step
// that fails is passed over and the next one runs, so a flat history is drawn without a scale.
#include <algorithm>

#include "charts/chart_geometry.h"
#include "charts/chart_settings.h"
#include "charts/frmmain.h"
#include "charts/midicators.h"
#include "charts/rule_overlay.h"
#include "market/history.h"
#include "runtime/trap.h"
#include "runtime/vbformat.h"
#include "runtime/vbmath.h"

namespace ostravel {

namespace {

constexpr std::int32_t kRed = 255;

const StockRecord& bar(const HistoryState& history, std::int32_t index) {
    if (index < 0 || index >= static_cast<std::int32_t>(history.StockData.size()))
        raise(err::SubscriptOutOfRange);
    return history.StockData[static_cast<std::size_t>(index)];
}

}  // namespace

void FrmMain::UpdateCaption() {
    passedOver([&] {
        const StockRecord& last = bar(m_history, m_history.LastIdx);
        // Kept: "   L:" has no blank after its colon.
        Caption = last.Date + QStringLiteral("  ") + last.Time + QStringLiteral("   O: ") + numberToText(last.Open) +
                  QStringLiteral("   H: ") + numberToText(last.High) + QStringLiteral("   L:") +
                  numberToText(last.Low) + QStringLiteral("   C: ") + numberToText(last.Close) +
                  QStringLiteral("   V: ") + QString::number(last.Volume);
    });
}

double FrmMain::priceY(double price) const {
    return (HighPrice - price) * static_cast<double>(PixPerUnit) + 4;
}

void FrmMain::ChartBoxDraw() {
    UpdateCaption();
    if (!DataReady || DrawBusy)
        return;
    DrawBusy = true;
    PictureBox& box = ChartBox;
    box.begin();
    box.Cls();
    const int keepStyle = box.DrawStyle;
    const int keepWidth = box.DrawWidth;
    const int keepMode = box.DrawMode;
    box.DrawMode = kCopyPen;

    LastBar = m_history.LastIdx - ScrollOffset;
    FirstBar = LastBar - VisibleBars >= 1 ? LastBar - VisibleBars : 0;
    HighPrice = 0;
    LowPrice = 999999;
    MaxVolume = 1;
    for (std::int32_t i = std::max(FirstBar, 0); i <= LastBar && i <= m_history.LastIdx; ++i) {
        const StockRecord& b = m_history.StockData[static_cast<std::size_t>(i)];
        HighPrice = std::max(HighPrice, b.High);
        // A low of 0 is no price and doesn't pull the scale down.
        if (b.Low > 0)
            LowPrice = std::min(LowPrice, b.Low);
        MaxVolume = std::max(MaxVolume, static_cast<double>(b.Volume));
    }
    PriceRange = HighPrice - LowPrice;
    BarsDrawn = 0;
    passedOver([&] { PixPerUnit = toSingleChecked(divide(m_settings.WindowSplit1 - 8.0, PriceRange)); });
    VolPaneHeight = static_cast<double>(m_settings.WindowSplit2) - m_settings.WindowSplit1 - 8;

    passedOver([&] { drawPriceAxis(); });
    passedOver([&] { drawVolumeAxis(); });
    passedOver([&] { drawBars(); });
    passedOver([&] { drawVolumeLabel(); });
    m_indicators.PlotAvg(*this);
    m_indicators.PlotIndicator(*this);
    if (m_ruleOverlay)
        passedOver([&] { drawRuleOverlay(*this); });

    box.DrawStyle = kSolid;
    box.DrawWidth = 1;
    for (const float split : {m_settings.WindowSplit1, m_settings.WindowSplit2})
        box.Line(0, split, box.ScaleWidth() + 5, split, kRed);

    box.DrawMode = keepMode;
    box.DrawStyle = keepStyle;
    box.DrawWidth = keepWidth;
    box.end();
    ChartBoxV = box.image();
    DrawBusy = false;
    ZoomLock = false;
}

void FrmMain::drawPriceAxis() {
    PictureBox& box = ChartBox;
    const double r = box.ScaleWidth() - box.TextWidth(formatNumber(HighPrice, QStringLiteral("##.00"))) - 5;
    ScaleRight = toLongInteger(r - 3);
    box.DrawStyle = kDot;
    const double step = priceStep(PriceRange);
    // A flat view has no price per pixel, and a step of less than a hundredth of a pixel would
    // fill the pane: the picture goes without its scale.
    if (!(PriceRange > 0) || !(step * PixPerUnit >= 0.01))
        return;
    const auto p0 = static_cast<double>(static_cast<float>(Round(HighPrice - step, 1)));
    const double y0 = priceY(p0);
    const double split1 = m_settings.WindowSplit1;
    const auto gridLine = [&](double y, double price) {
        box.Line(0, y, r, y, m_settings.GridColor);
        box.Print(r, y - TextH / 2.0 + 1, formatNumber(price, QStringLiteral("##.00")));
    };
    double y = std::nearbyint(y0);
    for (int k = 0; y < split1 - TextH; ++k) {
        gridLine(y, p0 - k * step);
        if (k == 0 && y0 - step * PixPerUnit > 4) {
            for (double m = 1, previous = y0; previous > 3 * TextH; ++m) {
                previous = ((HighPrice - p0) - m * step) * PixPerUnit + 4;
                gridLine(previous, p0 + m * step);
            }
        }
        y = ((HighPrice - p0) + (k + 1) * step) * PixPerUnit + 4;
    }
}

void FrmMain::drawVolumeAxis() {
    PictureBox& box = ChartBox;
    box.DrawStyle = kDot;
    box.DrawWidth = 1;
    const double r = box.ScaleWidth() - box.TextWidth(numberToText(MaxVolume)) - 10;
    const double split2 = m_settings.WindowSplit2;
    for (double y = split2 - VolPaneHeight; y <= split2; y += 20) {
        box.Line(0, y, r, y, m_settings.GridColor);
        const double printY = y - TextH / 2.0 + 1;
        if (printY < split2 - TextH)
            passedOver([&] {
                box.Print(r, printY, numberToText(Round(divide(split2 - y, divide(VolPaneHeight, MaxVolume)))));
            });
    }
}

void FrmMain::drawBars() {
    PictureBox& box = ChartBox;
    ChartSettings& s = m_settings;
    const double split2 = s.WindowSplit2;
    float x = ChartRight;
    std::int32_t i = LastBar;
    for (; x > 0 && i > 0; --i, x -= s.BarSpacing) {
        const StockRecord& b = bar(m_history, i);
        box.DrawStyle = kSolid;
        box.DrawWidth = 1;
        const bool falling = b.Close - b.Open < 0;
        switch (s.TicType) {
            case 1:
                box.Line(x - s.BarSpacing, priceY(bar(m_history, i - 1).Close), x, priceY(b.Close), s.CloseColor);
                break;
            case 2:
                // Kept: the stem's colour is written into TicColor itself, and the next save of
                // the settings stores the last one drawn.
                s.TicColor = falling ? s.TicCandleDnColor : s.TicCandleUpColor;
                box.Line(x, priceY(b.High), x, priceY(b.Low), s.TicColor);
                box.Line(x - 2, priceY(b.Open), x + 1, priceY(b.Open), s.OpenColor);
                box.Line(x, priceY(b.Close), x + 3, priceY(b.Close), s.CloseColor);
                break;
            case 3: {
                const std::int32_t c = falling ? s.TicCandleDnColor : s.TicCandleUpColor;
                const double half = s.BarSpacing > 6 ? 2 : 1;
                box.Box(x - half, priceY(b.Open), x + (s.BarSpacing > 6 ? 3 : 1), priceY(b.Close), c);
                box.Line(x, priceY(b.High), x, priceY(b.Low), c);
                break;
            }
            default:
                break;
        }
        box.DrawWidth = 2;
        box.Line(x, split2 - 1, x, split2 - (VolPaneHeight / MaxVolume) * b.Volume, s.VolColor);
        ++BarsDrawn;
    }
    m_volumeLabelBar = i;
}

void FrmMain::drawVolumeLabel() {
    PictureBox& box = ChartBox;
    // The label names the volume of the bar where the drawing stopped, the first one left out.
    const QString text = QStringLiteral("Volume: ") + QString::number(bar(m_history, m_volumeLabelBar).Volume);
    const double top = m_settings.WindowSplit1 + 3;
    box.Box(1, top, 1 + box.TextWidth(text), top + box.TextHeight(text), m_settings.BackColor);
    box.Print(1, top, text);
}

}  // namespace ostravel
