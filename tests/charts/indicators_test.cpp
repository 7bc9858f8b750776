// The calculators on small hand-made series, their errors, and on a real history against the
// program's arithmetic done one window at a time.
#include <gtest/gtest.h>

#include <QFile>
#include <random>

#include "charts/indicators/cci.h"
#include "charts/indicators/exact_quotient.h"
#include "charts/indicators/expmovavg.h"
#include "charts/indicators/fmt3.h"
#include "charts/indicators/macd.h"
#include "charts/indicators/movavg.h"
#include "charts/indicators/rocpercent.h"
#include "charts/indicators/rsi.h"
#include "charts/indicators/stoch.h"
#include "runtime/vberror.h"
#include "runtime/vbformat.h"
#include "tests/support/raised.h"

namespace ostravel::test {
namespace {

using Series = std::vector<double>;

template <class T, class Of>
Series results(const T& calc, double (Of::*getter)(int) const, std::size_t count) {
    Series out;
    for (std::size_t i = 0; i < count; ++i) out.push_back((calc.*getter)(static_cast<int>(i)));
    return out;
}

std::vector<StockRecord> barsOf(const Series& highs, const Series& lows, const Series& closes) {
    std::vector<StockRecord> bars(closes.size());
    for (std::size_t i = 0; i < closes.size(); ++i) {
        bars[i].High = highs[i];
        bars[i].Low = lows[i];
        bars[i].Close = closes[i];
    }
    return bars;
}

TEST(Fmt3, GivesTheTextsNumberBitForBitOnTiesAndOnRandomValuesOneOrSeveralAtATime) {
    Series values = {0.0005,         -0.0005, 1.0005,  2.675, 10.0015,        425.4375,       1e-20,           -1e-17,
                     123456789.0125, 5e11,    0,       -0.0,  999999999.9995, 999999999.9985, -999999999.9994, 1e9,
                     4e9 + 0.0625,   0.0625,  -6.0625, 1e300};
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> any(-20000, 20000);
    std::uniform_real_distribution<double> digits(-9, 9);
    for (int i = 0; i < 20000; ++i) values.push_back(any(random));
    for (int i = 0; i < 20000; ++i) values.push_back(static_cast<float>(std::pow(10.0, digits(random))));
    for (int i = 0; i < 2000; ++i) {
        const double tie = std::round(any(random) * 1000) / 1000 + 0.0005;
        values.insert(values.end(), {tie, std::nextafter(tie, 1e300), std::nextafter(tie, -1e300)});
    }
    Series many = values;
    fmt3Many(many.data(), many.data(), many.size());  // in place, a tie among every few
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto text = std::bit_cast<std::uint64_t>(Val(formatNumber(values[i], QStringLiteral("#.000"))));
        EXPECT_EQ(std::bit_cast<std::uint64_t>(Fmt3(values[i])), text) << values[i];
        EXPECT_EQ(std::bit_cast<std::uint64_t>(many[i]), text) << values[i];
    }
    // A sum beyond a single's range, or of such sums, is no number the text could show.
    for (const double value : {HUGE_VAL, -HUGE_VAL, std::nan("")})
        EXPECT_EQ(std::bit_cast<std::uint64_t>(Fmt3(value)), std::bit_cast<std::uint64_t>(value));
}

TEST(ExactQuotient, IsTheDivisionBitForBitWithinItsBounds) {
    std::mt19937_64 random(11);
    // Whole thousandths below 2^40, and sums of singles over periods up to 2^15 bars.
    for (const auto& [divisor, headBits, edge] : {std::tuple(1000.0, 13, 0x1p40 - 1),
                                                  {3.0, 29, 0x1.fffffep127},
                                                  {21.0, 29, 0x1p-149},
                                                  {4.0, 29, HUGE_VAL},
                                                  {32767.0, 29, 1.0}}) {
        const ExactQuotient quotient(divisor, headBits);
        Series dividends = {0.0, -0.0, edge, -edge, std::nan("")};
        for (int i = 0; i < 100000; ++i)
            dividends.push_back(headBits == 13
                                    ? static_cast<double>(random() >> 24) - 0x1p39
                                    : std::bit_cast<float>(static_cast<std::uint32_t>(random()) & 0xff7fffffU));
        for (const double dividend : dividends)
            ASSERT_EQ(std::bit_cast<std::uint64_t>(quotient.of(dividend)),
                      std::bit_cast<std::uint64_t>(dividend / divisor))
                << dividend << " / " << divisor;
    }
}

TEST(MovAvg, AveragesInSinglePrecisionAndRoundsThroughText) {
    struct Row {
        Series x;
        int len;
        Series expected;
    };
    const Row rows[] = {
        {{1, 2, 3, 4}, 2, {0, 1.5, 2.5, 3.5}},
        {{1, 2, 3}, 3, {0, 0, 2}},        // a period of the bar count: one value at the last bar
        {{1, 2, 3}, 4, {0, 0, 0}},        // one more: none
        {{1.0005, 1.0005}, 2, {0, 1.0}},  // the single-precision sum lies below the tie
        {{1, 2, 3}, -2, {0, 0, 0}},
    };
    for (const Row& row : rows) {
        MovAvg average;
        average.AvgLen = row.len;
        average.Calculate(row.x);
        EXPECT_EQ(results(average, &MovAvg::RetVal, row.x.size()), row.expected) << row.len;
    }
    MovAvg empty;
    EXPECT_EQ(errorOf([&] { empty.Calculate(Series{1, 2}); }), err::Overflow);  // 0 / 0
}

TEST(ExpMovAvg, StartsFromTheFirstValueWithSingleWeights) {
    const std::tuple<Series, int, Series> rows[] = {
        {{5, 5, 5}, 3, {5, 5, 5}},
        {{0, 10, 10}, 3, {0, 5, 7.5}},
        {{0, 1}, 4, {0, static_cast<double>(0.4f)}},
    };
    for (const auto& [x, len, expected] : rows) {
        ExpMovAvg average;
        average.ExpAvgLen = len;
        average.Calculate(x);
        EXPECT_EQ(results(average, &ExpMovAvg::RetVal, x.size()), expected) << len;
    }
}

TEST(RSI, KeptFirstWindowOneChangeShortAndFlatOrRisingClosesAsTheProgramHasThem) {
    struct Row {
        Series x;
        int len;
        Series expected;
        int error;
    };
    const Row rows[] = {
        {{10, 11, 10.5, 11.5, 11}, 3, {0, 0, 66.66699981689453, 83.33300018310547, 60.60599899291992}, 0},
        {{5, 5, 5, 5}, 3, {0, 0, 0, 0}, 0},                    // no division at all
        {{1, 2, 3, 4}, 3, {0, 0, 0, 0}, err::DivisionByZero},  // stops at the first value
        {{1, 1, 2}, 1, {0, 0, 0}, err::DivisionByZero},        // a period of 1 has no first window
    };
    for (const Row& row : rows) {
        RSI rsi;
        rsi.RsiLen = row.len;
        EXPECT_EQ(errorOf([&] { rsi.Calculate(row.x); }), row.error);
        EXPECT_EQ(results(rsi, &RSI::RetVal, row.x.size()), row.expected);
    }
}

TEST(ROCPercent, WalksDownAndStopsAtAZeroClose) {
    ROCPercent roc;
    roc.ROCLen = 1;
    roc.Calculate(Series{10, 11, 12.1});
    EXPECT_EQ(results(roc, &ROCPercent::RetVal, 3), (Series{0, 10, 10}));
    EXPECT_EQ(errorOf([&] { roc.Calculate(Series{4, 0, 5, 6}); }), err::DivisionByZero);
    EXPECT_EQ(results(roc, &ROCPercent::RetVal, 4), (Series{0, 0, 0, 20}));
}

TEST(CCI, KeptPeriodsFixedAt13And3And5) {
    CCI cci;
    cci.CciLen = 5;
    cci.CciAvgLen = 9;
    const Series twelve(12, 10.0);
    cci.Calculate(barsOf(twelve, twelve, twelve));
    EXPECT_EQ(results(cci, &CCI::RetVal, 12), Series(12, 0.0));
    EXPECT_EQ(std::tuple(cci.CciLen, cci.CciAvgLen, cci.CciAvgAvgLen), std::tuple(13, 3, 5));

    // 14 bars: the first window is flat (deviation 0, its bar keeps 0, no error), the second not.
    Series closes(14, 10.0);
    closes[13] = 11.3;
    cci.Calculate(barsOf(closes, closes, closes));
    Series expected(14, 0.0);
    expected[13] = 433.332;
    EXPECT_EQ(results(cci, &CCI::RetVal, 14), expected);
}

TEST(Stoch, KeptDSmoothsTheAverageOfFastKByThirdsAndAFlatWindowIsZero) {
    Stoch stoch;
    stoch.KPeriod = 2;
    stoch.DPeriod = 2;
    stoch.Calculate(barsOf({5, 5, 8, 9}, {5, 5, 4, 6}, {5, 5, 6, 8}));
    EXPECT_EQ(results(stoch, &Stoch::RetValK, 4), (Series{0, 0, 50, 80}));
    EXPECT_EQ(results(stoch, &Stoch::RetValKSlow, 4), (Series{0, 0, 16.667, 43.333}));
    // %D from the 2-bar average of %K (0, 0, 25, 65), smoothed by thirds from 0.
    EXPECT_EQ(results(stoch, &Stoch::RetValD, 4), (Series{0, 0, 8.333, 27.222}));
}

TEST(Indicators, ResultsBelowIndexZeroReadZeroAndPastTheEndRaise) {
    const Series closes(40, 10.0);
    const std::vector<StockRecord> bars = barsOf(closes, closes, closes);
    MovAvg average;
    average.AvgLen = 3;
    ExpMovAvg exp;
    MACD macd;
    ROCPercent roc;
    RSI rsi;
    rsi.RsiLen = 3;
    CCI cci;
    Accudist accudist;
    Stoch stoch;
    stoch.KPeriod = 3;
    stoch.DPeriod = 3;
    const std::vector<std::pair<Indicator*, std::function<double(int)>>> all = {
        {&average, [&](int i) { return average.RetVal(i); }},   {&exp, [&](int i) { return exp.RetVal(i); }},
        {&macd, [&](int i) { return macd.RetValHist(i); }},     {&roc, [&](int i) { return roc.RetVal(i); }},
        {&rsi, [&](int i) { return rsi.RetVal(i); }},           {&cci, [&](int i) { return cci.RetValAvg(i); }},
        {&accudist, [&](int i) { return accudist.RetVal(i); }}, {&stoch, [&](int i) { return stoch.RetValD(i); }}};
    for (const auto& [indicator, get] : all) {
        if (dynamic_cast<CciCalculation*>(indicator) || dynamic_cast<Stoch*>(indicator))
            indicator->Calculate(bars);
        else
            indicator->Calculate(closes);
        EXPECT_EQ(get(-1), 0);
        EXPECT_EQ(errorOf([&] { get(40); }), err::SubscriptOutOfRange);
        EXPECT_EQ(indicator->RetBoundLo(), 0);
        EXPECT_EQ(indicator->RetBoundHi(), 39);
    }
    // Indexes are 16-bit: one bar more than they reach fails before anything is computed; CCI
    // passes its errors over.
    const Series tooLong(32769, 1.0);
    average.AvgLen = 2;
    EXPECT_EQ(errorOf([&] { average.Calculate(tooLong); }), err::Overflow);
    EXPECT_EQ(errorOf([&] { cci.Calculate(std::vector<StockRecord>(32769)); }), 0);
    EXPECT_EQ(errorOf([&] { average.Calculate(Series(32768, 1.0)); }), 0);
}

// A long series under one period, then a shorter one that rises at first (RSI fails at its first
// value) under another, or one that fails or finds no window: nothing of the first may show.
template <class T>
void expectNothingLeft(void (*set)(T&, int), std::initializer_list<double (T::*)(int) const> lines) {
    Series longer, shorter;
    for (int i = 0; i < 60; ++i) longer.push_back(100 + i * 37 % 11 - i % 4 * 0.4375);
    for (int i = 0; i < 30; ++i) shorter.push_back(i < 12 ? 50 + i : 62 - i % 3 * 1.5);
    const auto run = [](T& calc, const Series& x) {
        if constexpr (std::is_same_v<T, CCI> || std::is_same_v<T, Stoch>)
            return errorOf([&] { calc.Calculate(barsOf(x, Series(x.size(), 40.0), x)); });
        else
            return errorOf([&] { calc.Calculate(x); });
    };
    for (int period : {3, 7, 40, 0, -1}) {
        T reused, fresh;
        set(reused, 2);
        run(reused, longer);
        set(reused, period);
        set(fresh, period);
        EXPECT_EQ(run(reused, shorter), run(fresh, shorter)) << period;
        for (auto line : lines) EXPECT_EQ(results(reused, line, 30), results(fresh, line, 30)) << period;
    }
}

TEST(Indicators, ACalculationLeavesNothingOfTheOneBefore) {
    expectNothingLeft<MovAvg>([](MovAvg& c, int n) { c.AvgLen = n; }, {&MovAvg::RetVal});
    expectNothingLeft<ExpMovAvg>([](ExpMovAvg& c, int n) { c.ExpAvgLen = n; }, {&ExpMovAvg::RetVal});
    expectNothingLeft<MACD>([](MACD& c, int n) { c.MACDLen1 = c.MACDLen2 = c.MACDLen3 = static_cast<std::int16_t>(n); },
                            {&MACD::RetVal, &MACD::RetValSig, &MACD::RetValHist});
    expectNothingLeft<ROCPercent>([](ROCPercent& c, int n) { c.ROCLen = n; }, {&ROCPercent::RetVal});
    expectNothingLeft<RSI>([](RSI& c, int n) { c.RsiLen = n; }, {&RSI::RetVal});
    expectNothingLeft<Stoch>([](Stoch& c, int n) { c.KPeriod = c.DPeriod = static_cast<std::int16_t>(n); },
                             {&Stoch::RetValK, &Stoch::RetValKSlow, &Stoch::RetValD});
    expectNothingLeft<CCI>([](CCI&, int) {}, {&CCI::RetVal, &CCI::RetValAvg, &CCI::RetValAvgAvg});
}

// --- a real history against the program's arithmetic, one window at a time ---

std::vector<StockRecord> reliance() {
    QFile file(qEnvironmentVariable("OSTRAVEL_TEST_DATA") + QStringLiteral("/history/RELIANCE.csv"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    std::vector<StockRecord> bars;
    file.readLine();
    while (!file.atEnd()) {
        const QList<QByteArray> f = file.readLine().trimmed().split(',');
        if (f.size() < 7 || f.at(4) == "null")
            continue;
        StockRecord bar;
        bar.Open = Round(f.at(1).toDouble(), 3);
        bar.High = Round(f.at(2).toDouble(), 3);
        bar.Low = Round(f.at(3).toDouble(), 3);
        bar.Close = Round(f.at(4).toDouble(), 3);
        bars.push_back(bar);
    }
    return bars;
}

Series literalAverage(const Series& x, int len) {
    Series out(x.size());
    for (std::size_t i = 0; i + len <= x.size(); ++i) {
        float sum = 0;
        for (std::size_t j = i; j < i + len; ++j) sum = static_cast<float>(static_cast<double>(sum) + x[j]);
        out[i + len - 1] = roundHalfAway(static_cast<double>(sum) / len, 3);
    }
    return out;
}

Series literalCci(const std::vector<StockRecord>& bars) {
    const int len = 13;
    Series out(bars.size());
    const auto tp = [&](std::size_t j) { return static_cast<float>((bars[j].High + bars[j].Low + bars[j].Close) / 3); };
    for (std::size_t i = 0; i + len <= bars.size(); ++i) {
        const std::size_t e = i + len - 1;
        float mean = 0;
        float dev = 0;
        for (std::size_t j = i; j <= e; ++j)
            mean += static_cast<float>((bars[j].High + bars[j].Low + bars[j].Close) / (len * 3));
        for (std::size_t j = i; j <= e; ++j) dev += std::fabs(tp(j) - mean);
        dev /= len;
        if (dev != 0)
            out[e] = roundHalfAway(static_cast<float>((tp(e) - mean) / (dev * 0.015)), 3);
    }
    return out;
}

Series literalFastK(const std::vector<StockRecord>& bars, int period) {
    Series out(bars.size());
    for (std::size_t i = 0; i + period <= bars.size(); ++i) {
        float low = 999999;
        float high = 0;
        for (std::size_t j = i; j < i + period; ++j) {
            low = std::min(low, static_cast<float>(bars[j].Low));
            high = std::max(high, static_cast<float>(bars[j].High));
        }
        const auto close = static_cast<float>(bars[i + period - 1].Close);
        out[i + period - 1] =
            static_cast<float>(roundHalfAway(high - low <= 0 ? 0.0f : (close - low) / (high - low) * 100, 3));
    }
    return out;
}

TEST(Indicators, ARealHistoryGivesTheProgramsArithmeticWindowByWindow) {
    const std::vector<StockRecord> bars = reliance();
    ASSERT_GT(bars.size(), 6000u);
    Series closes;
    for (const StockRecord& bar : bars) closes.push_back(bar.Close);

    for (int len : {21, 200}) {
        MovAvg average;
        average.AvgLen = len;
        average.Calculate(closes);
        EXPECT_EQ(average.values(), literalAverage(closes, len)) << len;
    }
    CCI cci;
    cci.Calculate(bars);
    const Series cciLine = literalCci(bars);
    EXPECT_EQ(results(cci, &CCI::RetVal, bars.size()), cciLine);
    EXPECT_EQ(results(cci, &CCI::RetValAvgAvg, bars.size()), literalAverage(literalAverage(cciLine, 3), 5));

    Stoch stoch;
    stoch.KPeriod = 14;
    stoch.DPeriod = 3;
    stoch.Calculate(bars);
    const Series k = literalFastK(bars, 14);
    EXPECT_EQ(results(stoch, &Stoch::RetValK, bars.size()), k);
    EXPECT_EQ(results(stoch, &Stoch::RetValKSlow, bars.size()), literalAverage(k, 3));
    Series d(bars.size());
    const Series kAverage = literalAverage(k, 3);
    for (std::size_t i = 1; i < d.size(); ++i) d[i] = roundHalfAway((d[i - 1] + d[i - 1] + kAverage[i]) / 3, 3);
    EXPECT_EQ(results(stoch, &Stoch::RetValD, bars.size()), d);

    MACD macd;
    macd.MACDLen1 = 13;
    macd.MACDLen2 = 34;
    macd.MACDLen3 = 9;
    macd.Calculate(closes);
    for (std::size_t i = 0; i < closes.size(); ++i)
        ASSERT_EQ(macd.RetValHist(static_cast<int>(i)),
                  macd.RetVal(static_cast<int>(i)) - macd.RetValSig(static_cast<int>(i)));
}

}  // namespace
}  // namespace ostravel::test
