// ExpMovAvg: the exponential average, weights in single precision, from the first value on;
// a building block of MACD.
#pragma once

#include "charts/indicators/indicator.h"

namespace ostravel {

class ExpMovAvg : public SingleLineIndicator {
public:
    explicit ExpMovAvg(QString iniFile = {}) : SingleLineIndicator(std::move(iniFile)) {}

    using SingleLineIndicator::Calculate;
    void Calculate(std::span<const double> x) override;
    void GetSavedSettings(std::int16_t sNum = 0) override;
    void SaveCurrentSettings(std::int16_t sNum = 0) override;

    std::int32_t ExpAvgLen = 0;
    std::int32_t ExpAvgColor = 0;
    std::int32_t PlotWidth = 0;
};

}  // namespace ostravel
