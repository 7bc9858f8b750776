#include "market/historical_data.h"

#include <QDate>
#include <algorithm>

#include "context/program.h"
#include "market/history.h"
#include "market/load_history.h"

namespace ostravel {

namespace {

const QString kDay = QStringLiteral("dd/MM/yyyy");

QString price(double value) {
    return QString::number(value, 'f', 2);
}

}  // namespace

HistoricalData historicalData(Program& program) {
    HistoryState& h = program.module<HistoryState>();
    const bool current = h.LastIdx >= 0 && h.DataFile == historyFilePath(program.frame());
    HistoricalData data;
    if ((!current && !LoadHistoryFile(program)) || h.StockData.empty()) {
        data.note = QStringLiteral("No history is loaded for %1.").arg(historySymbol(program.frame()));
        return data;
    }
    const auto last = std::min<std::size_t>(std::size_t(h.LastIdx), h.StockData.size() - 1);
    data.note = QStringLiteral("%1 days from %2").arg(last + 1).arg(h.DataFile);
    std::vector<const StockRecord*> days;
    for (std::size_t i = 0; i <= last; ++i) days.push_back(&h.StockData[i]);
    // Newest first by the day itself, whichever way the file ran.
    std::stable_sort(days.begin(), days.end(), [](const StockRecord* a, const StockRecord* b) {
        return QDate::fromString(a->Date, kDay) > QDate::fromString(b->Date, kDay);
    });
    for (const StockRecord* r : days)
        data.rows.push_back(
            {r->Date, price(r->Open), price(r->High), price(r->Low), price(r->Close), QString::number(r->Volume)});
    return data;
}

}  // namespace ostravel
