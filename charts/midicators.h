// MIdicators: the current indicator of the chart and the three price averages, their settings,
// the loading of the indicator's lines into IndArray, and their plotting into the chart's
// hidden picture during a redraw.
#pragma once

#include <QString>
#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "charts/indicators/indicator.h"
#include "charts/indicators/movavg.h"

namespace ostravel {

class CCI;
class FrmMain;
class MACD;
class Program;
class ROCPercent;
class RSI;
class Stoch;
struct ChartSettings;

// The five indicators the chart can show, by the names of [Indicators].
enum class IndicatorKind { CCI, MACD, ROC, RSI, STOCH };
std::optional<IndicatorKind> indicatorKind(const QString& name);
// A new object of the class of the kind, reading and writing Chart.INI at iniFile.
std::unique_ptr<Indicator> makeIndicator(IndicatorKind kind, const QString& iniFile);

// The current indicator's lines by bar index, from RetBoundLo to RetBoundHi.
struct IndicatorLines {
    std::int32_t lo = 0;
    std::int32_t hi = -1;
    std::vector<std::vector<double>> lines;
    // IndArray(index, line); raises 9 outside the array.
    double operator()(std::int32_t index, std::size_t line) const;
};

class MIdicators {
public:
    explicit MIdicators(Program& program);

    // Takes the name and makes a new object of its class with its saved settings; a name that
    // is none of the five is kept, and no indicator is shown, while the old object stays.
    void SetCurrentIndicator(const QString& name);
    const QString& GetCurrentIndicator() const { return CurrentIndicator; }
    void GetIndicatorSettings();
    void SaveIndicatorSettings();
    // The current indicator calculated over the closes, or over whole bars, into IndArray.
    void LoadDblArray();
    void LoadStockDataArray();
    void PlotAvg(FrmMain& chart);
    void PlotIndicator(FrmMain& chart);

    QString CurrentIndicator;
    std::unique_ptr<Indicator> current;  // the object every call by name reaches
    MACD* MACDInd = nullptr;
    CCI* CCIInd = nullptr;
    ROCPercent* ROCInd = nullptr;
    RSI* RSIInd = nullptr;
    Stoch* STOCHInd = nullptr;
    MovAvg AvgObj;
    std::array<std::int16_t, 3> AvgLen{};
    std::array<std::int16_t, 3> AvgWidth{};
    std::array<std::int32_t, 3> AvgColor{};
    IndicatorLines IndArray;

private:
    Program& m_program;
    ChartSettings& m_settings;
};

}  // namespace ostravel
