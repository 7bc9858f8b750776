// CCI: the commodity channel index on periods fixed at 13, 3 and 5, with its average and the
// average of that. Accudist, which no code makes yet, is the same calculation under its own keys.
#pragma once

#include "charts/indicators/indicator.h"
#include "charts/indicators/movavg.h"

namespace ostravel {

// The calculation and results CCI and Accudist share.
class CciCalculation : public Indicator {
public:
    using Indicator::Calculate;
    double RetVal(int index) const { return m_retVal.at(index); }
    double RetValAvgAvg(int index) const { return m_retValAvgAvg.at(index); }
    double RetValAvg(int index) const { return m_retValAvg.at(index); }

protected:
    using Indicator::Indicator;
    // Kept: the three periods are set to 13, 3 and 5 whatever the settings said. The class goes
    // on past its own errors: a window whose deviation is 0 keeps 0, and an input too long for
    // 16-bit indexes leaves every result 0.
    void calculate(std::span<const StockRecord> bars, std::int16_t& len, std::int16_t& avgLen, std::int16_t& avgAvgLen);

private:
    ResultLine m_retVal;
    ResultLine m_retValAvgAvg;
    ResultLine m_retValAvg;
    // Kept from one calculation to the next, so that a redraw allocates nothing.
    std::vector<float> m_share;
    std::vector<float> m_typical;
    MovAvg m_average;
};

class CCI : public CciCalculation {
public:
    explicit CCI(QString iniFile = {}) : CciCalculation(std::move(iniFile)) {}

    using CciCalculation::Calculate;
    void Calculate(std::span<const StockRecord> bars) override { calculate(bars, CciLen, CciAvgLen, CciAvgAvgLen); }
    void GetSavedSettings(std::int16_t sNum = 0) override;
    void SaveCurrentSettings(std::int16_t sNum = 0) override;

    std::int32_t CciColor = 0;
    std::int32_t CciAvgAvgColor = 0;  // no key reads or writes it
    std::int32_t CciAvgColor = 0;
    std::int16_t CciLen = 0;
    std::int16_t CciAvgLen = 0;
    std::int16_t CciAvgAvgLen = 0;
    std::int32_t PlotWidth = 0;
    std::int32_t UpperTrig = 0;
    std::int32_t LowerTrig = 0;
};

class Accudist : public CciCalculation {
public:
    explicit Accudist(QString iniFile = {}) : CciCalculation(std::move(iniFile)) {}

    using CciCalculation::Calculate;
    void Calculate(std::span<const StockRecord> bars) override {
        calculate(bars, ACCDISLen, ACCDISAvgLen, ACCDISAvgAvgLen);
    }
    void GetSavedSettings(std::int16_t sNum = 0) override;
    void SaveCurrentSettings(std::int16_t sNum = 0) override;

    std::int32_t ACCDISColor = 0;
    std::int32_t ACCDISAvgAvgColor = 0;  // no key reads or writes it
    std::int32_t ACCDISAvgColor = 0;
    std::int16_t ACCDISLen = 0;
    std::int16_t ACCDISAvgLen = 0;
    std::int16_t ACCDISAvgAvgLen = 0;
    std::int32_t PlotWidth = 0;
    std::int32_t UpperTrig = 0;
    std::int32_t LowerTrig = 0;
};

}  // namespace ostravel
