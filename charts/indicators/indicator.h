// The common shape of the chart's indicator classes: Calculate over closes or over whole bars,
// the settings procedures on Chart.INI, the bounds of the last input and the results by bar
// index; the chart reaches the current indicator through this interface.
#pragma once

#include <QString>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <span>
#include <variant>
#include <vector>

#include "charts/chart_settings.h"
#include "charts/profile_file.h"
#include "market/history.h"
#include "runtime/trap.h"
#include "runtime/vbmath.h"

namespace ostravel {

// One result line of a calculator, indexed by bar: an index below 0 reads 0 and is not written,
// one past the end is error 9.
class ResultLine {
public:
    void reset(std::size_t count) { m_values.assign(count, 0.0); }
    // To `count` values, those kept from before unchanged: for a calculation that writes them all.
    void resize(std::size_t count) { m_values.resize(count); }
    void swap(ResultLine& other) noexcept { m_values.swap(other.m_values); }
    double at(int index) const;
    void set(int index, double value);
    // For the calculators' own loops over indexes they have checked.
    double* data() { return m_values.data(); }
    const std::vector<double>& values() const { return m_values; }

private:
    std::vector<double> m_values;
};

class Indicator {
public:
    virtual ~Indicator() = default;

    // The classes of closes take the first, the classes of bars the second; the other raises
    // 13 (type mismatch), as a call by name with the wrong array does.
    virtual void Calculate(std::span<const double> closes);
    virtual void Calculate(std::span<const StockRecord> bars);

    // Parameters from and to Chart.INI; a non-zero sNum is added to every key name.
    virtual void GetSavedSettings(std::int16_t sNum = 0) = 0;
    virtual void SaveCurrentSettings(std::int16_t sNum = 0) = 0;

    std::int16_t RetBoundHi() const { return m_boundHi; }
    std::int16_t RetBoundLo() const { return m_boundLo; }
    bool PlotTriggerLines() const { return m_plotTriggerLines; }
    void setPlotTriggerLines(bool value) { m_plotTriggerLines = value; }
    bool ZeroLinePlot() const { return true; }

protected:
    explicit Indicator(QString iniFile) : m_iniFile(std::move(iniFile)) {}

    // The first act of every Calculate: the bounds of the input, and each result line emptied
    // to that size. Indexes are 16-bit: a longer input raises 6 before anything is computed.
    // Where no error can stop the calculation before it has written every value of its lines
    // (`inFull`), they are only sized, without a pass to empty them.
    void begin(std::size_t count, std::initializer_list<ResultLine*> lines, bool inFull = false);

    QString m_iniFile;

private:
    std::int16_t m_boundHi = -1;
    std::int16_t m_boundLo = 0;
    bool m_plotTriggerLines = true;
};

// a / b as the run time divides, with the usual quotient worked here and only the failing ones
// handed to the run time's division, which raises them.
inline double divided(double a, double b) {
    const double quotient = a / b;
    return b != 0 && std::isfinite(quotient) ? quotient : divide(a, b);
}

// A class with one result line, RetVal.
class SingleLineIndicator : public Indicator {
public:
    double RetVal(int index) const { return m_retVal.at(index); }
    const std::vector<double>& values() const { return m_retVal.values(); }
    // Hands the results over to a line of a class that is built on this one, and takes that
    // line's memory for its next calculation in return.
    void handOver(ResultLine& line) noexcept { m_retVal.swap(line); }

protected:
    using Indicator::Indicator;
    ResultLine m_retVal;
};

// Windows of `length` bars are worked side by side in blocks of this many, each window summed in
// its own order exactly as one at a time would be.
constexpr std::int64_t kWindowBlock = 1024;

// work(first window, windows in the block) for each block of the windows over `count` bars.
template <class Work>
void forWindowBlocks(std::int64_t count, std::int64_t length, Work work) {
    for (std::int64_t start = 0; start <= count - length; start += kWindowBlock)
        work(start, static_cast<std::size_t>(std::min(kWindowBlock, count - length - start + 1)));
}

// One parameter of a class and the name of its key in Chart.INI.
template <class T>
struct SettingKey {
    const char* key;
    std::variant<std::int16_t T::*, std::int32_t T::*, float T::*, bool T::*> member;
};

// What the settings procedures add to every key name: sNum's digits unless it is 0.
QString keySuffix(std::int16_t sNum);
// Kept: what MovAvg and ExpMovAvg add on saving, the words of the expression that should have
// added sNum.
inline const QString kLiteralSuffix = QStringLiteral(" & sNum");

// The values of a section's keys, read from the file once.
class SectionValues {
public:
    SectionValues(const QString& iniFile, QString section);
    QString text(const QString& key) const;

private:
    ProfileFile m_profile;
    QString m_section;
};

// GetSavedSettings: each key into its member, in order, by the profile's value parse. An error
// goes up, unless the class goes on past its errors (`goOn`): then that member stays as it was.
template <class T>
void readSettings(T& object, const QString& iniFile, const QString& section, const QString& suffix,
                  std::initializer_list<SettingKey<T>> keys, bool goOn = false) {
    const SectionValues values(iniFile, section);
    for (const SettingKey<T>& k : keys) {
        const QString text = values.text(QString::fromLatin1(k.key) + suffix);
        const auto read = [&] {
            std::visit(
                [&](auto member) {
                    auto& value = object.*member;
                    using V = std::decay_t<decltype(value)>;
                    if constexpr (std::is_same_v<V, std::int16_t>)
                        value = wholeSetting(text);
                    else if constexpr (std::is_same_v<V, std::int32_t>)
                        value = longSetting(text);
                    else if constexpr (std::is_same_v<V, float>)
                        value = realSetting(text);
                    else
                        value = flagSetting(text);
                },
                k.member);
        };
        if (!goOn)
            read();
        else
            trapped(read, [](const VbError&) {});
    }
}

// SaveCurrentSettings: each member as the program writes it, key by key, into the file at once.
// A file that can't be written stays as it was, without a message.
void writeSettingTexts(const QString& iniFile, const QString& section,
                       const std::vector<std::pair<QString, QString>>& keyValues);

template <class T>
void writeSettings(const T& object, const QString& iniFile, const QString& section, const QString& suffix,
                   std::initializer_list<SettingKey<T>> keys) {
    std::vector<std::pair<QString, QString>> keyValues;
    for (const SettingKey<T>& k : keys) {
        const QString text = std::visit(
            [&](auto member) {
                const auto& value = object.*member;
                using V = std::decay_t<decltype(value)>;
                if constexpr (std::is_same_v<V, float>)
                    return settingText(value);
                else if constexpr (std::is_same_v<V, bool>)
                    return flagWordText(value);
                else
                    return QString::number(value);
            },
            k.member);
        keyValues.emplace_back(QString::fromLatin1(k.key) + suffix, text);
    }
    writeSettingTexts(iniFile, section, keyValues);
}

}  // namespace ostravel
