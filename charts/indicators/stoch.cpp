#include "charts/indicators/stoch.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "charts/indicators/fmt3.h"
#include "runtime/vbmath.h"

namespace ostravel {

namespace {

const QString kSection = QStringLiteral("StochSettings");

// d(i) = Fmt3((d(i-1) + d(i-1) + k(i)) / 3) from d(0) = 0. Both terms are whole thousandths, and a
// third of a thousandth never ties, so each step is the nearest whole number to (2 D + K) / 3 in
// thousandths: the same values, without a division in the chain from one bar to the next.
void smoothByThirds(const std::vector<double>& k, double* d) {
    constexpr double kExactUpTo = 1e9;  // thousandths stay exact in a double well beyond this
    std::int64_t previous = 0;
    for (std::size_t i = 1; i < k.size(); ++i) {
        if (!(std::fabs(k[i]) < kExactUpTo)) {
            for (std::size_t j = i; j < k.size(); ++j) d[j] = Fmt3((d[j - 1] + d[j - 1] + k[j]) / 3);
            return;
        }
        const double thousandths = (k[i] * 1000 + kRoundingShift) - kRoundingShift;  // a call less than nearbyint
        const auto sum = 2 * previous + static_cast<std::int64_t>(thousandths) + 1;
        previous = sum >= 0 ? sum / 3 : -((-sum + 2) / 3);
        d[i] = kThousandths.of(static_cast<double>(previous));
    }
}

}  // namespace

void Stoch::Calculate(std::span<const StockRecord> bars) {
    // Only an average over no bars fails.
    begin(bars.size(), {&m_retValK, &m_retValD, &m_retValKSlow}, m_slowPeriod != 0 && DPeriod != 0);
    const auto count = static_cast<std::int64_t>(bars.size());
    const std::int64_t period = KPeriod;
    double* k = m_retValK.data();
    const bool anyWindow = period > 0 && count >= period;
    // An empty period gives windows of no bars, whose range is below 0: every %K is 0.
    std::fill_n(k, anyWindow ? period - 1 : count, 0.0);
    if (anyWindow) {
        m_lows.resize(bars.size());
        m_highs.resize(bars.size());
        for (std::size_t j = 0; j < bars.size(); ++j) {
            m_lows[j] = static_cast<float>(bars[j].Low);
            m_highs[j] = static_cast<float>(bars[j].High);
        }
        std::array<float, kWindowBlock> low;
        std::array<float, kWindowBlock> high;
        forWindowBlocks(count, period, [&](std::int64_t start, std::size_t windows) {
            std::fill_n(low.begin(), windows, 999999.0f);
            std::fill_n(high.begin(), windows, 0.0f);
            for (std::int64_t j = 0; j < period; ++j) {
                const float* l = m_lows.data() + start + j;
                const float* h = m_highs.data() + start + j;
                for (std::size_t w = 0; w < windows; ++w) {
                    low[w] = l[w] < low[w] ? l[w] : low[w];
                    high[w] = h[w] > high[w] ? h[w] : high[w];
                }
            }
            double* values = k + start + period - 1;
            for (std::size_t w = 0; w < windows; ++w) {
                const auto close = static_cast<float>(bars[static_cast<std::size_t>(start + period - 1) + w].Close);
                const float range = high[w] - low[w];
                values[w] = static_cast<double>(range <= 0 ? 0.0f : (close - low[w]) / range * 100.0f);
            }
            fmt3Many(values, values, windows);
            for (std::size_t w = 0; w < windows; ++w) values[w] = single(values[w]);
        });
    }
    m_average.AvgLen = m_slowPeriod;
    m_average.Calculate(m_retValK.values());
    // Fmt3 of the average, which Fmt3 has already made, is the average itself.
    m_average.handOver(m_retValKSlow);
    // Kept: %D averages fast %K, not the slow line, then smooths again by thirds from 0. Over the
    // slow period that average is the slow line itself.
    if (DPeriod != m_slowPeriod) {
        m_average.AvgLen = DPeriod;
        m_average.Calculate(m_retValK.values());
    }
    if (count > 0)
        m_retValD.data()[0] = 0;
    smoothByThirds(DPeriod != m_slowPeriod ? m_average.values() : m_retValKSlow.values(), m_retValD.data());
}

const std::initializer_list<SettingKey<Stoch>>& Stoch::settingKeys() {
    static const std::initializer_list<SettingKey<Stoch>> keys = {
        {"StochKColor", &Stoch::StochKColor},  {"StochKSlowColor", &Stoch::StochKSlowColor},
        {"StochDColor", &Stoch::StochDColor},  {"PlotWidth", &Stoch::PlotWidth},
        {"KPeriod", &Stoch::KPeriod},          {"KPeriodSlow", &Stoch::m_slowPeriod},
        {"DPeriod", &Stoch::DPeriod},          {"StochUpperTrig", &Stoch::UpperTrig},
        {"StochLowerTrig", &Stoch::LowerTrig}, {"StochSlow", &Stoch::StochSlow}};
    return keys;
}

void Stoch::GetSavedSettings(std::int16_t sNum) {
    readSettings(*this, m_iniFile, kSection, keySuffix(sNum), settingKeys());
}

void Stoch::SaveCurrentSettings(std::int16_t sNum) {
    writeSettings(*this, m_iniFile, kSection, keySuffix(sNum), settingKeys());
}

}  // namespace ostravel
