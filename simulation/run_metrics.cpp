#include "simulation/run_metrics.h"

#include <cmath>

#include "context/program.h"
#include "position/equitymanager.h"
#include "runtime/vbdate.h"
#include "runtime/vbformat.h"
#include "runtime/vbmath.h"
#include "simulation/simulation_run.h"
#include "store/database.h"

namespace ostravel {

namespace {

constexpr double kDaysAYear = 365.25;

struct Trade {
    double date;
    double price;
    double shares;
    double held;  // shares held after it
};

std::vector<Trade> runTrades(Database& db) {
    std::vector<Trade> trades;
    const auto rows = db.openSnapshot(QStringLiteral("select date, price, shareqty, buysell from simtrades"));
    for (; !rows->eof(); rows->moveNext())
        trades.push_back(
            {rows->field(0).toDate(), rows->field(1).toDouble(), rows->field(2).toDouble(), rows->field(3).toDouble()});
    return trades;
}

// The deepest fall from a peak, by its share of the peak, and the days it ran between.
void drawdown(InvestorMetrics& m, const std::vector<WealthDay>& days, double WealthDay::*investor) {
    double peak = days.front().*investor;
    double peakDay = days.front().date;
    for (const WealthDay& day : days) {
        const double wealth = day.*investor;
        if (wealth > peak) {
            peak = wealth;
            peakDay = day.date;
        }
        if (peak <= 0)
            continue;
        const double share = (peak - wealth) / peak;
        if (share > m.maxDrawdownShare) {
            m.maxDrawdownShare = share;
            m.maxDrawdown = peak - wealth;
            m.peakDay = peakDay;
            m.troughDay = day.date;
        }
    }
}

void totals(InvestorMetrics& m, double begin, const std::vector<WealthDay>& days, double WealthDay::*investor) {
    m.finalValue = days.back().*investor;
    m.profit = m.finalValue - begin;
    const double years = (days.back().date - days.front().date) / kDaysAYear;
    if (years > 0 && begin > 0)
        m.cagr = m.finalValue > 0 ? std::pow(m.finalValue / begin, 1 / years) - 1 : -1.0;
    drawdown(m, days, investor);
}

QString money(double value) {
    return fixedDecimalText(value, 2, Tie::AwayFromZero);
}

QString percent(double share) {
    return fixedDecimalText(share * 100, 2, Tie::AwayFromZero);
}

QString day(const std::optional<double>& serial) {
    return serial ? formatDate(*serial, QStringLiteral("dd/mm/yyyy")) : QString();
}

}  // namespace

std::optional<RunMetrics> runMetrics(Program& program) {
    const SimulationRun& run = program.module<SimulationRun>();
    const EquityManager& em = program.module<EquityManager>();
    Database& db = program.store().database();
    if (run.daysDone <= 0)
        return std::nullopt;

    RunMetrics metrics;
    metrics.begin = Val(em.txtbegtotal.text);
    const double beginShares = Val(em.txtbegshare.text);
    const std::vector<Trade> trades = runTrades(db);

    const auto compare = db.openSnapshot(QStringLiteral("select date, BuyHoldValue, ControlValue from compare"));
    const long skipped = compare->recordCount() - static_cast<long>(run.daysDone);
    if (skipped < 0)
        return std::nullopt;
    for (long i = 0; i < skipped; ++i) compare->moveNext();

    double held = beginShares;
    double cash = Val(em.txtbegcash.text);
    std::size_t next = 0;
    for (; !compare->eof(); compare->moveNext()) {
        WealthDay wealth{compare->field(0).toDate(), metrics.begin + compare->field(1).toDouble(),
                         metrics.begin + compare->field(2).toDouble()};
        double traded = 0;
        for (; next < trades.size() && trades[next].date <= wealth.date; ++next) {
            const Trade& t = trades[next];
            traded += t.shares * t.price;
            held = t.held;
            // A trade of no shares (an amount under half a share's price) is no trade here.
            if (t.shares == 0)
                continue;
            metrics.rule.buys += t.shares > 0 ? 1 : 0;
            metrics.rule.sells += t.shares < 0 ? 1 : 0;
            metrics.trades.push_back({t.date, t.shares, t.price, 0});
        }
        cash -= traded;
        wealth.rule += traded;
        for (auto mark = metrics.trades.rbegin(); mark != metrics.trades.rend() && mark->date == wealth.date; ++mark)
            mark->wealth = wealth.rule;
        metrics.rule.daysInMarket += held > 0 ? 1 : 0;
        metrics.buyHold.daysInMarket += beginShares > 0 ? 1 : 0;
        metrics.days.push_back(wealth);
    }
    if (metrics.days.empty())
        return std::nullopt;

    totals(metrics.rule, metrics.begin, metrics.days, &WealthDay::rule);
    totals(metrics.buyHold, metrics.begin, metrics.days, &WealthDay::buyHold);
    if (metrics.rule.finalValue > 0)
        metrics.rule.cashShare = cash / metrics.rule.finalValue;
    return metrics;
}

QList<QPair<QString, QString>> metricFields(const RunMetrics& metrics) {
    QList<QPair<QString, QString>> fields = {
        {QStringLiteral("days"), QString::number(metrics.days.size())},
        {QStringLiteral("first_day"), day(metrics.days.front().date)},
        {QStringLiteral("last_day"), day(metrics.days.back().date)},
        {QStringLiteral("begin_value"), money(metrics.begin)},
    };
    const std::pair<const char*, const InvestorMetrics*> investors[] = {{"rule", &metrics.rule},
                                                                        {"buyhold", &metrics.buyHold}};
    for (const auto& [name, m] : investors) {
        const QString prefix = QString::fromLatin1(name) + QLatin1Char('.');
        fields += {
            {prefix + QStringLiteral("final_value"), money(m->finalValue)},
            {prefix + QStringLiteral("profit"), money(m->profit)},
            {prefix + QStringLiteral("cagr_percent"), m->cagr ? percent(*m->cagr) : QString()},
            {prefix + QStringLiteral("max_drawdown"), money(m->maxDrawdown)},
            {prefix + QStringLiteral("max_drawdown_percent"), percent(m->maxDrawdownShare)},
            {prefix + QStringLiteral("max_drawdown_peak"), day(m->peakDay)},
            {prefix + QStringLiteral("max_drawdown_trough"), day(m->troughDay)},
            {prefix + QStringLiteral("days_in_market"), QString::number(m->daysInMarket)},
            {prefix + QStringLiteral("buys"), QString::number(m->buys)},
            {prefix + QStringLiteral("sells"), QString::number(m->sells)},
            {prefix + QStringLiteral("cash_share_percent"), percent(m->cashShare)},
        };
    }
    return fields;
}

QByteArray wealthCsv(const RunMetrics& metrics) {
    QByteArray csv = "Date,Buy and Hold,Ostravel,Shares traded,Price\n";
    auto trade = metrics.trades.begin();
    for (const WealthDay& d : metrics.days) {
        csv += formatDate(d.date, QStringLiteral("yyyy-mm-dd")).toLatin1() + ',' + money(d.buyHold).toLatin1() + ',' +
               money(d.rule).toLatin1();
        // A day of two trades shows them on two lines.
        bool first = true;
        for (; trade != metrics.trades.end() && trade->date == d.date; ++trade) {
            if (!first)
                csv += '\n' + formatDate(d.date, QStringLiteral("yyyy-mm-dd")).toLatin1() + ",,";
            csv += ',' + numberToText(trade->shares).toLatin1() + ',' + numberToText(trade->price).toLatin1();
            first = false;
        }
        if (first)
            csv += ",,";
        csv += '\n';
    }
    return csv;
}

}  // namespace ostravel
