// The figures an investor asks for after a run, for the rule's investor and the buy-and-hold
// investor: derived from compare, simtrades and the beginning figures, never written back.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <optional>
#include <vector>

namespace ostravel {

class Program;

// One investor's wealth: the beginning total and the day's profit from compare. On a day with
// a trade compare holds the cash after the trade beside the stock before it, so the wealth
// adds the day's trade back and is the day's wealth after its trade.
struct WealthDay {
    double date = 0;  // a day serial
    double buyHold = 0;
    double rule = 0;
};

struct TradeMark {
    double date = 0;
    double shares = 0;  // negative for a sale
    double price = 0;
    double wealth = 0;  // the rule's wealth that day
};

struct InvestorMetrics {
    double finalValue = 0;
    double profit = 0;
    std::optional<double> cagr;  // a fraction a year; none for a period of no days
    double maxDrawdown = 0;      // the deepest fall from a peak (by its share of the peak), rupees
    double maxDrawdownShare = 0;
    std::optional<double> peakDay, troughDay;
    long daysInMarket = 0;  // days that end with shares held
    long buys = 0;          // trades after the first day's purchase, of one share or more
    long sells = 0;
    double cashShare = 0;  // of the final value
};

struct RunMetrics {
    double begin = 0;  // each investor's beginning total
    std::vector<WealthDay> days;
    std::vector<TradeMark> trades;
    InvestorMetrics rule;
    InvestorMetrics buyHold;
};

// The last run's figures: its days are the last rows of compare (a run that traded nothing
// adds to the days of the run before), its trades those of simtrades. None without a day.
std::optional<RunMetrics> runMetrics(Program& program);

// The figures as "metric.NAME=value" lines: money and per cents with two decimals, dates as
// dd/mm/yyyy.
QList<QPair<QString, QString>> metricFields(const RunMetrics& metrics);

// Each day of the run as a CSV line under its header: the date (yyyy-mm-dd), both investors'
// wealth, and the shares and price of the day's trade when there was one; line ends LF.
QByteArray wealthCsv(const RunMetrics& metrics);

}  // namespace ostravel
