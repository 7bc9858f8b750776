// MovAvg: the simple average of the last AvgLen values, summed in single precision and rounded
// through "#.000"; the price averages of the chart and a building block of CCI and Stoch.
#pragma once

#include "charts/indicators/indicator.h"

namespace ostravel {

class MovAvg : public SingleLineIndicator {
public:
    explicit MovAvg(QString iniFile = {}) : SingleLineIndicator(std::move(iniFile)) {}

    using SingleLineIndicator::Calculate;
    void Calculate(std::span<const double> x) override;
    void GetSavedSettings(std::int16_t sNum = 0) override;
    void SaveCurrentSettings(std::int16_t sNum = 0) override;

    std::int32_t AvgLen = 0;
    std::int32_t AvgColor = 0;
    std::int32_t AvgWidth = 0;
};

}  // namespace ostravel
