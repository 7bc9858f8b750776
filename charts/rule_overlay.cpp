#include "charts/rule_overlay.h"

#include <QFontMetricsF>
#include <QHash>
#include <QPolygonF>

#include "charts/chart_settings.h"
#include "charts/frmmain.h"
#include "context/program.h"
#include "runtime/trap.h"
#include "runtime/vbformat.h"
#include "store/sqltext.h"

namespace ostravel {

namespace {

constexpr std::int32_t kBuyColour = 0x00C000;   // green
constexpr std::int32_t kSellColour = 0x3030FF;  // red
constexpr int kBandHalf = 2;
constexpr int kMarkSize = 6;

QString dayText(const Variant& date) {
    return formatDate(date.toDate(), QStringLiteral("dd/mm/yyyy"));
}

// A stored price; 0 or Null is no advice.
std::optional<double> advicePrice(const Variant& value) {
    if (value.isNull() || value.toDouble() == 0)
        return std::nullopt;
    return value.toDouble();
}

}  // namespace

RuleOverlayData ruleOverlayData(Program& program, const std::vector<StockRecord>& bars) {
    RuleOverlayData data;
    const MainFrame& frame = program.frame();
    const QString symbol = sqlText(historySymbol(frame));
    const QString portfolio = sqlText(frame.cmbportfolio.text);
    const bool simulation = frame.cmbportfolio.text == MainFrame::kSimulation;
    Database& database = program.store().database();

    QHash<QString, std::int32_t> barOfDay;
    for (std::size_t i = 0; i < bars.size(); ++i) barOfDay.insert(bars[i].Date, static_cast<std::int32_t>(i));
    const auto addMark = [&](const Variant& date, double price, bool sell) {
        const auto found = barOfDay.constFind(dayText(date));
        if (found != barOfDay.constEnd())
            data.marks.push_back({*found, price, sell});
    };

    // A missing table or value leaves that part of the overlay out; the chart goes on.
    if (simulation) {
        passedOver([&] {
            for (auto rs = database.openRecordset(QStringLiteral("select date, price, shareqty from simtrades where "
                                                                 "EquitySymbol='") +
                                                  symbol + QLatin1Char('\''));
                 !rs->eof(); rs->moveNext())
                passedOver([&] { addMark(rs->field(0), rs->field(1).toDouble(), rs->field(2).toDouble() < 0); });
        });
        return data;
    }
    const QString holding = QStringLiteral(" where EquitySymbol='") + symbol + QStringLiteral("' and portname='") +
                            portfolio + QLatin1Char('\'');
    passedOver([&] {
        auto rs = database.openRecordset(QStringLiteral("select NextBuyPrice, NextSellPrice from equity") + holding);
        if (rs->eof())
            return;
        data.nextBuy = advicePrice(rs->field(0));
        data.nextSell = advicePrice(rs->field(1));
    });
    passedOver([&] {
        for (auto rs = database.openRecordset(
                 QStringLiteral("select TradeDate, PricePerShare, Buyselltype, Tradedshares from trades") + holding);
             !rs->eof(); rs->moveNext())
            passedOver([&] {
                const bool sell = rs->field(2).toString().compare(QLatin1String("Sell"), Qt::CaseInsensitive) == 0 ||
                                  rs->field(3).toDouble() < 0;
                addMark(rs->field(0), rs->field(1).toDouble(), sell);
            });
    });
    return data;
}

void drawRuleOverlay(FrmMain& chart) {
    const ChartSettings& settings = chart.settings();
    const HistoryState& history = chart.history();
    const RuleOverlayData data = ruleOverlayData(chart.program(), history.StockData);
    PictureBox& box = chart.ChartBox;
    QPainter& painter = box.painter();
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    const double top = 4;
    const double bottom = settings.WindowSplit1 - 4;
    const auto y = [&](double price) { return (chart.HighPrice - price) * static_cast<double>(chart.PixPerUnit) + 4; };

    // Each band lies across the price pane; a price beyond the pane shows as its label at the
    // edge it lies beyond.
    const std::pair<std::optional<double>, std::pair<const char*, std::int32_t>> bands[] = {
        {data.nextBuy, {"Next Buy Rs. ", kBuyColour}}, {data.nextSell, {"Next Sell Rs. ", kSellColour}}};
    for (const auto& [price, look] : bands) {
        if (!price)
            continue;
        const double at = y(*price);
        const double shown = std::clamp(at, top, bottom);
        QColor colour = programColour(look.second);
        if (at == shown) {
            colour.setAlpha(90);
            painter.fillRect(QRectF(0, at - kBandHalf, chart.ScaleRight, 2 * kBandHalf + 1), colour);
            colour.setAlpha(255);
        }
        const QString text = QString::fromLatin1(look.first) + formatNumber(*price, QStringLiteral("0.00")) +
                             (at < top      ? QStringLiteral(" ^")
                              : at > bottom ? QStringLiteral(" v")
                                            : QString());
        // The label sits on a patch of the background, so that the bars under it don't hide it.
        const QRectF label = QFontMetricsF(painter.font()).boundingRect(text).translated(4, shown - kBandHalf - 2);
        painter.fillRect(label.adjusted(-2, 0, 2, 0), programColour(settings.BackColor));
        painter.setPen(colour);
        painter.drawText(QPointF(4, shown - kBandHalf - 2), text);
    }

    // A buy's mark points up at its price from below, a sell's down at it from above.
    const float spacing = settings.BarSpacing;
    for (const RuleMark& mark : data.marks) {
        if (mark.bar > chart.LastBar || mark.bar <= chart.LastBar - chart.BarsDrawn)
            continue;
        const double x = chart.ChartRight - static_cast<double>(chart.LastBar - mark.bar) * spacing;
        const double tip = y(mark.price);
        const double base = mark.sell ? tip - kMarkSize * 2 : tip + kMarkSize * 2;
        const QPolygonF triangle({QPointF(x, tip), QPointF(x - kMarkSize, base), QPointF(x + kMarkSize, base)});
        painter.setPen(Qt::NoPen);
        painter.setBrush(programColour(mark.sell ? kSellColour : kBuyColour));
        painter.drawPolygon(triangle);
    }
    painter.setBrush(Qt::NoBrush);
}

}  // namespace ostravel
