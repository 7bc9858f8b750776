// ExpMovAvg: the exponential average, weights in single precision, from the first value on;
// a building block of MACD.
#pragma once

#include <array>

#include "charts/indicators/indicator.h"

namespace ostravel {

class ExpMovAvg : public SingleLineIndicator {
public:
    explicit ExpMovAvg(QString iniFile = {}) : SingleLineIndicator(std::move(iniFile)) {}

    using SingleLineIndicator::Calculate;
    void Calculate(std::span<const double> x) override;
    void GetSavedSettings(std::int16_t sNum = 0) override;
    void SaveCurrentSettings(std::int16_t sNum = 0) override;

    // Calculate of both averages over the same values in one pass, their chains of dependent
    // steps side by side.
    static void CalculateBoth(ExpMovAvg& first, ExpMovAvg& second, std::span<const double> x);

    std::int32_t ExpAvgLen = 0;
    std::int32_t ExpAvgColor = 0;
    std::int32_t PlotWidth = 0;

private:
    template <std::size_t N>
    static void calculate(const std::array<ExpMovAvg*, N>& averages, std::span<const double> x);
};

}  // namespace ostravel
