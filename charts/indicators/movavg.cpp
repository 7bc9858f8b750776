#include "charts/indicators/movavg.h"

#include <algorithm>
#include <array>

#include "charts/indicators/exact_quotient.h"
#include "charts/indicators/fmt3.h"
#include "runtime/vbmath.h"

namespace ostravel {

namespace {

const QString kSection = QStringLiteral("AvgSettings");

}  // namespace

void MovAvg::Calculate(std::span<const double> x) {
    const std::int64_t length = AvgLen;
    begin(x.size(), {&m_retVal}, length != 0);
    const auto count = static_cast<std::int64_t>(x.size());
    double* out = m_retVal.data();
    if (length < 0 || count - length < 0) {
        std::fill_n(out, count, 0.0);  // no window: every result 0
        return;
    }
    if (length == 0)
        divide(0.0, 0.0);  // the first empty window's average, 0 / 0
    std::fill_n(out, length - 1, 0.0);
    // A sum of a single's 24 bits over a period of at most 2^15 bars (a longer input has raised).
    const ExactQuotient average(static_cast<double>(length), 29);
    // Each window's running sum is rounded to single precision at every addition.
    std::array<float, kWindowBlock> sums;
    forWindowBlocks(count, length, [&](std::int64_t start, std::size_t windows) {
        std::fill_n(sums.begin(), windows, 0.0f);
        for (std::int64_t j = 0; j < length; ++j) {
            const double* values = x.data() + start + j;
            for (std::size_t w = 0; w < windows; ++w)
                sums[w] = static_cast<float>(static_cast<double>(sums[w]) + values[w]);
        }
        double* averages = out + start + length - 1;
        for (std::size_t w = 0; w < windows; ++w) averages[w] = average.of(static_cast<double>(sums[w]));
        fmt3Many(averages, averages, windows);
    });
}

const std::initializer_list<SettingKey<MovAvg>> kKeys = {
    {"AvgLen", &MovAvg::AvgLen}, {"AvgColor", &MovAvg::AvgColor}, {"AvgWidth", &MovAvg::AvgWidth}};

void MovAvg::GetSavedSettings(std::int16_t sNum) {
    readSettings(*this, m_iniFile, kSection, keySuffix(sNum), kKeys);
}

void MovAvg::SaveCurrentSettings(std::int16_t) {
    writeSettings(*this, m_iniFile, kSection, kLiteralSuffix, kKeys);
}

}  // namespace ostravel
