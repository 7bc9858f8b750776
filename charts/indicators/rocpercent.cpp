#include "charts/indicators/rocpercent.h"

#include <cmath>
#include <limits>

#include "charts/indicators/fmt3.h"
#include "runtime/vberror.h"
#include "runtime/vbmath.h"

namespace ostravel {

namespace {

const QString kSection = QStringLiteral("ROC%Settings");

}  // namespace

void ROCPercent::Calculate(std::span<const double> x) {
    const std::int64_t length = ROCLen;
    begin(x.size(), {&m_retVal}, length >= 0);
    const auto hi = static_cast<std::int64_t>(x.size()) - 1;
    double* out = m_retVal.data();
    if (hi < length) {
        std::fill_n(out, x.size(), 0.0);
        return;
    }
    if (length < 0)
        raise(err::SubscriptOutOfRange);  // a negative period reaches past the newest bar
    std::fill_n(out, length, 0.0);
    // Every change at once, then the walk from the newest bar down finds where it would stop: a
    // zero close in the divisor, or a change beyond a single.
    for (std::int64_t i = length; i <= hi; ++i) {
        const double before = x[static_cast<std::size_t>(i - length)];
        out[i] = (x[static_cast<std::size_t>(i)] - before) / before * 100;
    }
    std::int64_t stop = length - 1;
    for (std::int64_t i = hi; i >= length; --i) {
        if (x[static_cast<std::size_t>(i - length)] == 0 || !(std::fabs(out[i]) <= std::numeric_limits<float>::max())) {
            stop = i;
            break;
        }
    }
    for (std::int64_t i = length; i <= stop; ++i) out[i] = 0;
    for (std::int64_t i = stop + 1; i <= hi; ++i) out[i] = static_cast<double>(static_cast<float>(out[i]));
    fmt3Many(out + stop + 1, out + stop + 1, static_cast<std::size_t>(hi - stop));
    if (stop >= length) {
        const double before = x[static_cast<std::size_t>(stop - length)];
        toSingleChecked(divided(x[static_cast<std::size_t>(stop)] - before, before) * 100);  // raises its error
    }
}

const std::initializer_list<SettingKey<ROCPercent>> kKeys = {{"ROC%Color", &ROCPercent::ROCColor},
                                                             {"PlotWidth", &ROCPercent::PlotWidth},
                                                             {"ROC%Len", &ROCPercent::ROCLen},
                                                             {"ROC%UpperTrig", &ROCPercent::UpperTrig},
                                                             {"ROC%LowerTrig", &ROCPercent::LowerTrig}};

void ROCPercent::GetSavedSettings(std::int16_t sNum) {
    readSettings(*this, m_iniFile, kSection, keySuffix(sNum), kKeys);
}

void ROCPercent::SaveCurrentSettings(std::int16_t sNum) {
    writeSettings(*this, m_iniFile, kSection, keySuffix(sNum), kKeys);
}

}  // namespace ostravel
