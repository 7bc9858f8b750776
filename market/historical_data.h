// Reports - "Historical Data": the loaded daily bars of the stock in work as a grid, newest
// day first, with the file they came from.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace ostravel {

class Program;

struct HistoricalData {
    static inline const QStringList kHeadings = {QStringLiteral("Date"),  QStringLiteral("Open"),
                                                 QStringLiteral("High"),  QStringLiteral("Low"),
                                                 QStringLiteral("Close"), QStringLiteral("Volume")};
    QString note;  // where the bars came from, or why there are none
    std::vector<QStringList> rows;
};

// The bars of StockData; when they belong to another stock, or none are loaded, the history
// file of cmbequity is loaded first, as the chart loads it.
HistoricalData historicalData(Program& program);

}  // namespace ostravel
