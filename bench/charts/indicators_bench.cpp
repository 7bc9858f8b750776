// The seven calculators of the chart over 30,000 bars, repeated, beside a plain textbook C++
// implementation of the same indicators with the same periods, measured in the same run. The
// target: the chart's arithmetic within 1.2 times the textbook's time.
#include <QString>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <functional>
#include <random>
#include <vector>

#include "charts/indicators/cci.h"
#include "charts/indicators/expmovavg.h"
#include "charts/indicators/macd.h"
#include "charts/indicators/movavg.h"
#include "charts/indicators/rocpercent.h"
#include "charts/indicators/rsi.h"
#include "charts/indicators/stoch.h"

namespace {

using ostravel::StockRecord;
using Series = std::vector<double>;

constexpr std::size_t kBars = 30000;
constexpr int kRounds = 40;

// A random walk of daily bars with prices to the paisa, the same in every run.
std::vector<StockRecord> walk() {
    std::mt19937 random(20240601);
    std::normal_distribution<double> change(0, 0.015);
    std::uniform_real_distribution<double> spread(0, 0.02);
    std::vector<StockRecord> bars(kBars);
    double close = 250;
    for (StockRecord& bar : bars) {
        const double open = close;
        close = std::max(1.0, close * (1 + change(random)));
        bar.Open = std::round(open * 100) / 100;
        bar.Close = std::round(close * 100) / 100;
        bar.High = std::round(std::max(open, close) * (1 + spread(random)) * 100) / 100;
        bar.Low = std::round(std::min(open, close) * (1 - spread(random)) * 100) / 100;
    }
    return bars;
}

// --- the textbook: double precision, running sums, Wilder's smoothing, windows scanned. Like
// the chart's, its lines are kept from one round to the next, so neither pays for memory. ---

void sma(const Series& x, std::size_t n, Series& out) {
    out.assign(x.size(), 0.0);
    double sum = 0;
    for (std::size_t i = 0; i < x.size(); ++i) {
        sum += x[i];
        if (i >= n)
            sum -= x[i - n];
        if (i + 1 >= n)
            out[i] = sum / static_cast<double>(n);
    }
}

void ema(const Series& x, std::size_t n, Series& out) {
    out.assign(x.size(), 0.0);
    const double alpha = 2.0 / (static_cast<double>(n) + 1);
    out[0] = x[0];
    for (std::size_t i = 1; i < x.size(); ++i) out[i] = alpha * x[i] + (1 - alpha) * out[i - 1];
}

void cci(const std::vector<StockRecord>& bars, std::size_t n, Series& tp, Series& mean, Series& out) {
    tp.resize(bars.size());
    for (std::size_t i = 0; i < bars.size(); ++i) tp[i] = (bars[i].High + bars[i].Low + bars[i].Close) / 3;
    sma(tp, n, mean);
    out.assign(bars.size(), 0.0);
    for (std::size_t i = n - 1; i < bars.size(); ++i) {
        double deviation = 0;
        for (std::size_t j = i + 1 - n; j <= i; ++j) deviation += std::fabs(tp[j] - mean[i]);
        deviation /= static_cast<double>(n);
        out[i] = deviation == 0 ? 0 : (tp[i] - mean[i]) / (0.015 * deviation);
    }
}

void rsi(const Series& x, std::size_t n, Series& out) {
    out.assign(x.size(), 0.0);
    double up = 0;
    double down = 0;
    for (std::size_t i = 1; i <= n && i < x.size(); ++i) {
        const double change = x[i] - x[i - 1];
        (change > 0 ? up : down) += std::fabs(change);
    }
    up /= static_cast<double>(n);
    down /= static_cast<double>(n);
    for (std::size_t i = n; i < x.size(); ++i) {
        if (i > n) {
            const double change = x[i] - x[i - 1];
            up = (up * static_cast<double>(n - 1) + std::max(change, 0.0)) / static_cast<double>(n);
            down = (down * static_cast<double>(n - 1) + std::max(-change, 0.0)) / static_cast<double>(n);
        }
        out[i] = down == 0 ? 100 : 100 - 100 / (1 + up / down);
    }
}

void roc(const Series& x, std::size_t n, Series& out) {
    out.assign(x.size(), 0.0);
    for (std::size_t i = n; i < x.size(); ++i) out[i] = (x[i] - x[i - n]) / x[i - n] * 100;
}

void stochastic(const std::vector<StockRecord>& bars, std::size_t n, Series& k) {
    k.assign(bars.size(), 0.0);
    for (std::size_t i = n - 1; i < bars.size(); ++i) {
        double low = bars[i].Low;
        double high = bars[i].High;
        for (std::size_t j = i + 1 - n; j < i; ++j) {
            low = std::min(low, bars[j].Low);
            high = std::max(high, bars[j].High);
        }
        k[i] = high == low ? 0 : (bars[i].Close - low) / (high - low) * 100;
    }
}

volatile double g_sink = 0;

struct Textbook {
    void calculate(const std::vector<StockRecord>& bars, const Series& closes) {
        sma(closes, 21, average);
        ema(closes, 21, exp);
        cci(bars, 13, typical, mean, channel);
        sma(channel, 3, channelAverage);
        sma(channelAverage, 5, channelAverageAverage);
        ema(closes, 13, fast);
        ema(closes, 34, slow);
        macd.resize(closes.size());
        for (std::size_t i = 0; i < closes.size(); ++i) macd[i] = fast[i] - slow[i];
        ema(macd, 9, signal);
        histogram.resize(closes.size());
        for (std::size_t i = 0; i < closes.size(); ++i) histogram[i] = macd[i] - signal[i];
        roc(closes, 12, change);
        rsi(closes, 14, strength);
        stochastic(bars, 14, k);
        sma(k, 3, kSlow);
        sma(kSlow, 3, d);
        g_sink = g_sink + average.back() + exp.back() + channelAverageAverage.back() + histogram.back() +
                 change.back() + strength.back() + d.back();
    }
    Series average, exp, typical, mean, channel, channelAverage, channelAverageAverage, fast, slow, macd, signal,
        histogram, change, strength, k, kSlow, d;
};

// The chart's calculators as the chart keeps them: made once with their settings, calculated
// again at every redraw.
struct Chart {
    Chart() {
        average.AvgLen = 21;
        exp.ExpAvgLen = 21;
        macd.MACDLen1 = 13;
        macd.MACDLen2 = 34;
        macd.MACDLen3 = 9;
        roc.ROCLen = 12;
        rsi.RsiLen = 14;
        stoch.KPeriod = 14;
        stoch.DPeriod = 3;
    }
    void calculate(const std::vector<StockRecord>& bars, const Series& closes) {
        average.Calculate(closes);
        exp.Calculate(closes);
        cci.Calculate(bars);
        macd.Calculate(closes);
        roc.Calculate(closes);
        rsi.Calculate(closes);
        stoch.Calculate(bars);
        g_sink = g_sink + average.RetVal(29999) + exp.RetVal(29999) + cci.RetValAvgAvg(29999) + macd.RetValHist(29999) +
                 roc.RetVal(29999) + rsi.RetVal(29999) + stoch.RetValD(29999);
    }
    ostravel::MovAvg average;
    ostravel::ExpMovAvg exp;
    ostravel::CCI cci;
    ostravel::MACD macd;
    ostravel::ROCPercent roc;
    ostravel::RSI rsi;
    ostravel::Stoch stoch;
};

// The best of the rounds, in nanoseconds per bar: the run least disturbed by the machine.
double nanosecondsPerBar(const std::function<void()>& work) {
    double best = 1e300;
    for (int round = 0; round < kRounds; ++round) {
        const auto start = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double, std::nano> took = std::chrono::steady_clock::now() - start;
        best = std::min(best, took.count() / kBars);
    }
    return best;
}

}  // namespace

int main() {
    const std::vector<StockRecord> bars = walk();
    Series closes;
    for (const StockRecord& bar : bars) closes.push_back(bar.Close);
    // Turns taken in alternation, so that both see the machine alike.
    Textbook textbook;
    Chart chart;
    double ours = 1e300;
    double reference = 1e300;
    for (int turn = 0; turn < 3; ++turn) {
        reference = std::min(reference, nanosecondsPerBar([&] { textbook.calculate(bars, closes); }));
        ours = std::min(ours, nanosecondsPerBar([&] { chart.calculate(bars, closes); }));
    }
    std::printf("seven calculators over %zu bars, best of %d rounds x 3 turns\n", kBars, kRounds);
    std::printf("  the chart's calculators   %8.1f ns per bar\n", ours);
    std::printf("  textbook C++ (reference)  %8.1f ns per bar\n", reference);
    std::printf("  ratio                     %8.2f (target 1.20 or less)\n", ours / reference);
    return 0;
}
