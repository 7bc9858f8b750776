// MACD: the difference of two exponential averages of the closes (13 and 34 by default), its
// signal average and the histogram between them.
#pragma once

#include "charts/indicators/expmovavg.h"
#include "charts/indicators/indicator.h"

namespace ostravel {

class MACD : public Indicator {
public:
    explicit MACD(QString iniFile = {}) : Indicator(std::move(iniFile)) {}

    using Indicator::Calculate;
    void Calculate(std::span<const double> x) override;
    void GetSavedSettings(std::int16_t sNum = 0) override;
    void SaveCurrentSettings(std::int16_t sNum = 0) override;

    double RetVal(int index) const { return m_retVal.at(index); }
    double RetValSig(int index) const { return m_retValSig.at(index); }
    double RetValHist(int index) const { return m_retValHist.at(index); }

    std::int32_t MACDColor1 = 0;
    std::int32_t MACDColor2 = 0;
    std::int32_t MACDColor3 = 0;
    std::int32_t PlotWidth = 0;
    std::int16_t MACDLen1 = 0;
    std::int16_t MACDLen2 = 0;
    std::int16_t MACDLen3 = 0;

private:
    ResultLine m_retVal;
    ResultLine m_retValSig;
    ResultLine m_retValHist;
    ExpMovAvg m_fast;
    ExpMovAvg m_slow;
    ExpMovAvg m_signal;
};

}  // namespace ostravel
