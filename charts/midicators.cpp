#include "charts/midicators.h"

#include "charts/chart_settings.h"
#include "charts/indicators/cci.h"
#include "charts/indicators/macd.h"
#include "charts/indicators/rocpercent.h"
#include "charts/indicators/rsi.h"
#include "charts/indicators/stoch.h"
#include "charts/mfunctions.h"
#include "context/program.h"
#include "market/history.h"
#include "runtime/trap.h"

namespace ostravel {

namespace {

const QString kAvgSettings = QStringLiteral("AvgSettings");

QString place(const char* procedure) {
    return QStringLiteral("(Module) MIdicators::Sub ") + QString::fromLatin1(procedure);
}

}  // namespace

std::optional<IndicatorKind> indicatorKind(const QString& name) {
    static const std::pair<const char*, IndicatorKind> names[] = {{"CCI", IndicatorKind::CCI},
                                                                  {"MACD", IndicatorKind::MACD},
                                                                  {"ROC%", IndicatorKind::ROC},
                                                                  {"RSI", IndicatorKind::RSI},
                                                                  {"STOCH", IndicatorKind::STOCH}};
    for (const auto& [text, kind] : names)
        if (name == QLatin1String(text))
            return kind;
    return std::nullopt;
}

std::unique_ptr<Indicator> makeIndicator(IndicatorKind kind, const QString& iniFile) {
    switch (kind) {
        case IndicatorKind::CCI:
            return std::make_unique<CCI>(iniFile);
        case IndicatorKind::MACD:
            return std::make_unique<MACD>(iniFile);
        case IndicatorKind::ROC:
            return std::make_unique<ROCPercent>(iniFile);
        case IndicatorKind::RSI:
            return std::make_unique<RSI>(iniFile);
        case IndicatorKind::STOCH:
            break;
    }
    return std::make_unique<Stoch>(iniFile);
}

double IndicatorLines::operator()(std::int32_t index, std::size_t line) const {
    if (index < lo || index > hi || line >= lines.size())
        raise(err::SubscriptOutOfRange);
    return lines[line][static_cast<std::size_t>(index - lo)];
}

MIdicators::MIdicators(Program& program) : m_program(program), m_settings(program.module<ChartSettings>()) {}

void MIdicators::SetCurrentIndicator(const QString& name) {
    MACDInd = nullptr;
    CCIInd = nullptr;
    ROCInd = nullptr;
    RSIInd = nullptr;
    STOCHInd = nullptr;
    CurrentIndicator = name;
    const std::optional<IndicatorKind> kind = indicatorKind(name);
    if (!kind)
        return;  // the object the calls by name reach stays as it was
    current = makeIndicator(*kind, m_settings.IniFile);
    MACDInd = dynamic_cast<MACD*>(current.get());
    CCIInd = dynamic_cast<CCI*>(current.get());
    ROCInd = dynamic_cast<ROCPercent*>(current.get());
    RSIInd = dynamic_cast<RSI*>(current.get());
    STOCHInd = dynamic_cast<Stoch*>(current.get());
    current->GetSavedSettings(0);
}

void MIdicators::GetIndicatorSettings() {
    ErrorReporter& reporter = m_program.reporter();
    const QString where = place("GetIndicatorSettings");
    if (current)
        passedOver([&] { current->GetSavedSettings(0); });
    for (std::size_t k = 0; k < 3; ++k) {
        const QString n = QString::number(k + 1);
        const QString& file = m_settings.IniFile;
        trapped(reporter, where,
                [&] { AvgLen[k] = wholeSetting(GetIni(file, kAvgSettings, QStringLiteral("AvgLen") + n)); });
        trapped(reporter, where,
                [&] { AvgColor[k] = longSetting(GetIni(file, kAvgSettings, QStringLiteral("AvgColor") + n)); });
        trapped(reporter, where,
                [&] { AvgWidth[k] = wholeSetting(GetIni(file, kAvgSettings, QStringLiteral("AvgWidth") + n)); });
    }
}

void MIdicators::SaveIndicatorSettings() {
    trapped(m_program.reporter(), place("SaveIndicatorSettings"), [&] {
        if (!current)
            raise(err::ObjectNotSet);
        current->SaveCurrentSettings(0);
    });
    std::vector<std::pair<QString, QString>> keyValues;
    for (std::size_t k = 0; k < 3; ++k) {
        const QString n = QString::number(k + 1);
        keyValues.emplace_back(QStringLiteral("AvgLen") + n, QString::number(AvgLen[k]));
        keyValues.emplace_back(QStringLiteral("AvgColor") + n, QString::number(AvgColor[k]));
        keyValues.emplace_back(QStringLiteral("AvgWidth") + n, QString::number(AvgWidth[k]));
    }
    writeSettingTexts(m_settings.IniFile, kAvgSettings, keyValues);
}

namespace {

// IndArray sized to the indicator's bounds, with the lines the getters give for each bar.
template <class Getter>
IndicatorLines linesOf(const Indicator& indicator, std::initializer_list<Getter> getters) {
    IndicatorLines out;
    out.lo = indicator.RetBoundLo();
    out.hi = indicator.RetBoundHi();
    for (const Getter& get : getters) {
        std::vector<double>& line = out.lines.emplace_back();
        for (std::int32_t i = out.lo; i <= out.hi; ++i) line.push_back(get(i));
    }
    return out;
}

using Getter = std::function<double(std::int32_t)>;

}  // namespace

void MIdicators::LoadDblArray() {
    const QString where = place("LoadDblArray");
    const std::vector<StockRecord>& bars = m_program.module<HistoryState>().StockData;
    std::vector<double> closes(bars.size());
    for (std::size_t i = 0; i < bars.size(); ++i) closes[i] = bars[i].Close;
    trapped(m_program.reporter(), where, [&] {
        if (!current)
            raise(err::ObjectNotSet);
        current->Calculate(closes);
    });
    trapped(m_program.reporter(), where, [&] {
        if (CurrentIndicator == QLatin1String("MACD"))
            IndArray = linesOf<Getter>(*MACDInd, {[this](std::int32_t i) { return MACDInd->RetVal(i); },
                                                  [this](std::int32_t i) { return MACDInd->RetValSig(i); },
                                                  [this](std::int32_t i) { return MACDInd->RetValHist(i); }});
        else if (CurrentIndicator == QLatin1String("RSI"))
            IndArray = linesOf<Getter>(*RSIInd, {[this](std::int32_t i) { return RSIInd->RetVal(i); }});
        else if (CurrentIndicator == QLatin1String("ROC%"))
            IndArray = linesOf<Getter>(*ROCInd, {[this](std::int32_t i) { return ROCInd->RetVal(i); }});
    });
}

void MIdicators::LoadStockDataArray() {
    const QString where = place("LoadStockDataArray");
    const std::vector<StockRecord>& bars = m_program.module<HistoryState>().StockData;
    ErrorReporter& reporter = m_program.reporter();
    if (CurrentIndicator == QLatin1String("STOCH")) {
        trapped(reporter, where, [&] { STOCHInd->Calculate(bars); });
        trapped(reporter, where, [&] {
            if (STOCHInd->StochSlow)
                IndArray = linesOf<Getter>(*STOCHInd, {[this](std::int32_t i) { return STOCHInd->RetValKSlow(i); },
                                                       [this](std::int32_t i) { return STOCHInd->RetValD(i); }});
            else
                IndArray = linesOf<Getter>(*STOCHInd, {[this](std::int32_t i) { return STOCHInd->RetValK(i); },
                                                       [this](std::int32_t i) { return STOCHInd->RetValKSlow(i); }});
        });
    } else if (CurrentIndicator == QLatin1String("CCI")) {
        trapped(reporter, where, [&] { CCIInd->Calculate(bars); });
        // Kept: the first line is the average of the average, the second CCI itself; the first
        // average never reaches the plot.
        trapped(reporter, where, [&] {
            IndArray = linesOf<Getter>(*CCIInd, {[this](std::int32_t i) { return CCIInd->RetValAvgAvg(i); },
                                                 [this](std::int32_t i) { return CCIInd->RetVal(i); }});
        });
    }
}

}  // namespace ostravel
