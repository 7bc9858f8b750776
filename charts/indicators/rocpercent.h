// ROCPercent: the change of the close over ROCLen bars, in per cent, rounded through "#.000".
#pragma once

#include "charts/indicators/indicator.h"

namespace ostravel {

class ROCPercent : public SingleLineIndicator {
public:
    explicit ROCPercent(QString iniFile = {}) : SingleLineIndicator(std::move(iniFile)) {}

    using SingleLineIndicator::Calculate;
    // Walks from the newest bar down; a zero close in the divisor ends it with a run-time
    // error, the newer bars already done.
    void Calculate(std::span<const double> x) override;
    void GetSavedSettings(std::int16_t sNum = 0) override;
    void SaveCurrentSettings(std::int16_t sNum = 0) override;

    std::int32_t ROCColor = 0;
    std::int32_t ROCLen = 0;
    std::int32_t PlotWidth = 0;
    float UpperTrig = 0;
    float LowerTrig = 0;
};

}  // namespace ostravel
