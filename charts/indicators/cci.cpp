#include "charts/indicators/cci.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "charts/indicators/fmt3.h"
#include "runtime/trap.h"

namespace ostravel {

namespace {

constexpr std::int16_t kLen = 13;
constexpr std::int16_t kAvgLen = 3;
constexpr std::int16_t kAvgAvgLen = 5;

}  // namespace

void CciCalculation::calculate(std::span<const StockRecord> bars, std::int16_t& len, std::int16_t& avgLen,
                               std::int16_t& avgAvgLen) {
    len = kLen;
    if (!passedOver([&] { begin(bars.size(), {&m_retVal, &m_retValAvg, &m_retValAvgAvg}, true); }))
        return;
    const auto count = static_cast<std::int64_t>(bars.size());
    double* out = m_retVal.data();
    if (count >= len) {
        // The share of each bar in a window's mean and its typical price, both in single
        // precision, are the same for every window the bar is in. The bars' sums go first into
        // the line the results take later, so that the divisions go several at a time.
        m_share.resize(bars.size());
        m_typical.resize(bars.size());
        for (std::size_t j = 0; j < bars.size(); ++j) out[j] = bars[j].High + bars[j].Low + bars[j].Close;
        for (std::size_t j = 0; j < bars.size(); ++j) {
            m_share[j] = static_cast<float>(out[j] / (len * 3));
            m_typical[j] = static_cast<float>(out[j] / 3);
        }
        std::array<float, kWindowBlock> mean;
        std::array<float, kWindowBlock> dev;
        forWindowBlocks(count, len, [&](std::int64_t start, std::size_t windows) {
            std::fill_n(mean.begin(), windows, 0.0f);
            std::fill_n(dev.begin(), windows, 0.0f);
            for (std::int64_t j = 0; j < len; ++j) {
                const float* s = m_share.data() + start + j;
                for (std::size_t w = 0; w < windows; ++w) mean[w] += s[w];
            }
            for (std::int64_t j = 0; j < len; ++j) {
                const float* tp = m_typical.data() + start + j;
                for (std::size_t w = 0; w < windows; ++w) dev[w] += std::fabs(tp[w] - mean[w]);
            }
            // A deviation of 0 fails the division, and a value beyond a single fails its store:
            // either bar keeps 0 and the loop goes on.
            double* values = out + start + len - 1;
            for (std::size_t w = 0; w < windows; ++w) {
                const double denominator = static_cast<double>(dev[w] / static_cast<float>(len)) * 0.015;
                const double value =
                    static_cast<double>(m_typical[static_cast<std::size_t>(start + len - 1) + w] - mean[w]) /
                    denominator;
                const bool stored = (denominator != 0) & (std::fabs(value) <= std::numeric_limits<float>::max());
                values[w] = static_cast<double>(static_cast<float>(stored ? value : 0.0));
            }
            fmt3Many(values, values, windows);
        });
    }
    std::fill_n(out, std::min<std::int64_t>(len - 1, count), 0.0);
    avgLen = kAvgLen;
    m_average.AvgLen = avgLen;
    m_average.Calculate(m_retVal.values());
    m_average.handOver(m_retValAvg);
    avgAvgLen = kAvgAvgLen;
    m_average.AvgLen = avgAvgLen;
    m_average.Calculate(m_retValAvg.values());
    m_average.handOver(m_retValAvgAvg);
}

// The class goes on past an error at each of its keys.
const std::initializer_list<SettingKey<CCI>> kCciKeys = {
    {"CciColor", &CCI::CciColor},      {"CciAvgColor", &CCI::CciAvgColor},   {"CciLen", &CCI::CciLen},
    {"CciAvgLen", &CCI::CciAvgLen},    {"CciAvgAvgLen", &CCI::CciAvgAvgLen}, {"PlotWidth", &CCI::PlotWidth},
    {"CciUpperTrig", &CCI::UpperTrig}, {"CciLowerTrig", &CCI::LowerTrig}};
const QString kCciSection = QStringLiteral("CciSettings");

void CCI::GetSavedSettings(std::int16_t sNum) {
    readSettings(*this, m_iniFile, kCciSection, keySuffix(sNum), kCciKeys, true);
}

void CCI::SaveCurrentSettings(std::int16_t sNum) {
    writeSettings(*this, m_iniFile, kCciSection, keySuffix(sNum), kCciKeys);
}

const std::initializer_list<SettingKey<Accudist>> kAccdisKeys = {{"ACCDISColor", &Accudist::ACCDISColor},
                                                                 {"ACCDISAvgColor", &Accudist::ACCDISAvgColor},
                                                                 {"ACCDISLen", &Accudist::ACCDISLen},
                                                                 {"ACCDISAvgLen", &Accudist::ACCDISAvgLen},
                                                                 {"ACCDISAvgAvgLen", &Accudist::ACCDISAvgAvgLen},
                                                                 {"PlotWidth", &Accudist::PlotWidth},
                                                                 {"ACCDISUpperTrig", &Accudist::UpperTrig},
                                                                 {"ACCDISLowerTrig", &Accudist::LowerTrig}};
const QString kAccdisSection = QStringLiteral("ACCDISSettings");

void Accudist::GetSavedSettings(std::int16_t sNum) {
    readSettings(*this, m_iniFile, kAccdisSection, keySuffix(sNum), kAccdisKeys, true);
}

void Accudist::SaveCurrentSettings(std::int16_t sNum) {
    writeSettings(*this, m_iniFile, kAccdisSection, keySuffix(sNum), kAccdisKeys);
}

}  // namespace ostravel
