// RSI: the relative strength index with Wilder's smoothing after a first window of one change
// short, rounded through "##.000" and kept in single precision.
#pragma once

#include "charts/indicators/indicator.h"

namespace ostravel {

class RSI : public SingleLineIndicator {
public:
    explicit RSI(QString iniFile = {}) : SingleLineIndicator(std::move(iniFile)) {}

    using SingleLineIndicator::Calculate;
    // A day that rises while no day has fallen divides by zero and ends it with a run-time
    // error, the earlier bars already done.
    void Calculate(std::span<const double> x) override;
    void GetSavedSettings(std::int16_t sNum = 0) override;
    void SaveCurrentSettings(std::int16_t sNum = 0) override;

    std::int32_t RsiColor = 0;
    std::int32_t RsiLen = 0;
    std::int32_t PlotWidth = 0;
    float UpperTrig = 0;
    float LowerTrig = 0;

private:
    // Kept from one calculation to the next, so that a redraw allocates nothing.
    std::vector<double> m_ratio;
    std::vector<char> m_unchanged;
};

}  // namespace ostravel
