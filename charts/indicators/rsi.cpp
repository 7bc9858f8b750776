#include "charts/indicators/rsi.h"

#include <bit>
#include <cstdint>
#include <optional>

#include "charts/indicators/fmt3.h"
#include "runtime/vberror.h"
#include "runtime/vbmath.h"

namespace ostravel {

namespace {

const QString kSection = QStringLiteral("RsiSettings");

}  // namespace

void RSI::Calculate(std::span<const double> x) {
    // The line stays emptied first: an average beyond a double stops the calculation before
    // any value is written.
    begin(x.size(), {&m_retVal});
    const auto hi = static_cast<std::int64_t>(x.size()) - 1;
    const std::int64_t first = RsiLen - 1;
    const double length = RsiLen;
    double up = 0;
    double dn = 0;
    double prevUp = 0;
    double prevDn = 0;
    const auto take = [&](std::int64_t j) {
        if (j < 1 || j > hi)
            raise(err::SubscriptOutOfRange);  // a period below 1 reaches before the first bar
        const double change = x[static_cast<std::size_t>(j)] - x[static_cast<std::size_t>(j - 1)];
        // Without a branch, which the closes' ups and downs would mispredict half the time: the
        // change goes to one sum, 0 to the other, which leaves it as it was (neither is ever -0).
        const std::uint64_t down = 0 - static_cast<std::uint64_t>(change < 0);
        up += std::bit_cast<double>(std::bit_cast<std::uint64_t>(change) & ~down);
        dn += std::bit_cast<double>(std::bit_cast<std::uint64_t>(-change) & down);
    };
    // The smoothed averages go from bar to bar; the values made of them are worked afterwards, a
    // block at a time, with the same arithmetic. A bar whose value would divide by zero ends the
    // calculation there, the bars before it done.
    m_ratio.resize(x.size());
    m_unchanged.resize(x.size());
    std::int64_t last = hi;
    std::optional<std::pair<double, double>> failed;
    for (std::int64_t i = first; i <= hi; ++i) {
        double avgUp = 0;
        double avgDn = 0;
        if (i == first) {
            // Kept: the first window holds one change fewer than RsiLen and is still divided by it.
            for (std::int64_t j = first; j >= 1; --j) take(j);
            avgUp = divided(up, length);
            avgDn = divided(dn, length);
        } else {
            take(i);
            avgUp = divided((length - 1) * prevUp + up, length);
            avgDn = divided((length - 1) * prevDn + dn, length);
        }
        const bool unchanged = up + dn == 0;
        if (!unchanged && !(avgDn != 0 && std::isfinite(avgUp / avgDn))) {
            failed = std::pair(avgUp, avgDn);
            last = i - 1;
            break;
        }
        if (i >= 0) {
            m_ratio[static_cast<std::size_t>(i)] = unchanged ? 0.0 : avgUp / avgDn;
            m_unchanged[static_cast<std::size_t>(i)] = unchanged;
        }
        prevUp = avgUp;
        prevDn = avgDn;
        up = 0;
        dn = 0;
    }
    const std::int64_t from = std::max<std::int64_t>(first, 0);
    if (last >= from) {
        double* out = m_retVal.data() + from;
        const auto count = static_cast<std::size_t>(last - from + 1);
        const double* ratio = m_ratio.data() + from;
        for (std::size_t i = 0; i < count; ++i) out[i] = 100 - 100 / (1 + ratio[i]);
        fmt3Many(out, out, count);
        // An unchanged close takes the value before it, rounded the same way.
        for (std::size_t i = 0; i < count; ++i)
            out[i] = m_unchanged[static_cast<std::size_t>(from) + i]
                         ? single(Fmt3(m_retVal.at(static_cast<int>(from + static_cast<std::int64_t>(i)) - 1)))
                         : single(out[i]);
    }
    if (failed)
        divided(failed->first, failed->second);  // raises the division's error
}

const std::initializer_list<SettingKey<RSI>> kKeys = {{"RsiColor", &RSI::RsiColor},
                                                      {"PlotWidth", &RSI::PlotWidth},
                                                      {"RsiLen", &RSI::RsiLen},
                                                      {"RsiUpperTrig", &RSI::UpperTrig},
                                                      {"RsiLowerTrig", &RSI::LowerTrig}};

void RSI::GetSavedSettings(std::int16_t sNum) {
    readSettings(*this, m_iniFile, kSection, keySuffix(sNum), kKeys);
}

void RSI::SaveCurrentSettings(std::int16_t sNum) {
    writeSettings(*this, m_iniFile, kSection, keySuffix(sNum), kKeys);
}

}  // namespace ostravel
