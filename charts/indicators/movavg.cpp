#include "charts/indicators/movavg.h"

#include <algorithm>
#include <array>

#include "charts/indicators/fmt3.h"
#include "runtime/vbmath.h"

namespace ostravel {

namespace {

const QString kSection = QStringLiteral("AvgSettings");

}  // namespace

void MovAvg::Calculate(std::span<const double> x) {
    begin(x.size(), {&m_retVal});
    const auto count = static_cast<std::int64_t>(x.size());
    const std::int64_t length = AvgLen;
    if (length < 0 || count - length < 0)
        return;  // no window: every result stays 0
    if (length == 0)
        divide(0.0, 0.0);  // the first empty window's average, 0 / 0
    double* out = m_retVal.data();
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
        for (std::size_t w = 0; w < windows; ++w)
            averages[w] = static_cast<double>(sums[w]) / static_cast<double>(length);
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
