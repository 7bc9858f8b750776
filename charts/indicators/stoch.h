// Stoch: the stochastic oscillator, fast %K over KPeriod bars in single precision, its slow
// average, and a %D made from the average of %K and smoothed once more by thirds.
#pragma once

#include "charts/indicators/indicator.h"
#include "charts/indicators/movavg.h"

namespace ostravel {

class Stoch : public Indicator {
public:
    explicit Stoch(QString iniFile = {}) : Indicator(std::move(iniFile)) {}

    using Indicator::Calculate;
    void Calculate(std::span<const StockRecord> bars) override;
    void GetSavedSettings(std::int16_t sNum = 0) override;
    void SaveCurrentSettings(std::int16_t sNum = 0) override;

    double RetValK(int index) const { return m_retValK.at(index); }
    double RetValD(int index) const { return m_retValD.at(index); }
    double RetValKSlow(int index) const { return m_retValKSlow.at(index); }

    std::int16_t KPeriod = 0;
    std::int16_t DPeriod = 0;
    std::int32_t StochKColor = 0;
    std::int32_t StochKSlowColor = 0;
    std::int32_t StochDColor = 0;
    std::int32_t PlotWidth = 0;
    float UpperTrig = 0;
    float LowerTrig = 0;
    bool StochSlow = false;

private:
    static const std::initializer_list<SettingKey<Stoch>>& settingKeys();

    std::int16_t m_slowPeriod = 3;  // KPeriodSlow, with no property of its own
    ResultLine m_retValK;
    ResultLine m_retValD;
    ResultLine m_retValKSlow;
    // Kept from one calculation to the next, so that a redraw allocates nothing.
    std::vector<float> m_lows;
    std::vector<float> m_highs;
    MovAvg m_average;
};

}  // namespace ostravel
