// The chart window's copy of the [Settings] of Chart.INI, MFunctions' module-level variables,
// with the whole-section reader and writer; and the reads of numbers that every part of the
// chart shares.
#pragma once

#include <QString>
#include <cstdint>

namespace ostravel {

class ProfileFile;

// The profile's value parse: Val of the text, and whole numbers rounded half to even; a number
// beyond the type raises 6.
std::int16_t wholeSetting(const QString& text);
std::int32_t longSetting(const QString& text);
float realSetting(const QString& text);
// -1 and "True" in any case are true.
bool flagSetting(const QString& text);
// Numbers as the program writes them: CStr, so a real with no fraction has no point, and a
// boolean as -1 or 0 (FontBold) or as "True" or "False" (the indicators' flags).
QString settingText(float value);
QString flagNumberText(bool value);
QString flagWordText(bool value);

struct ChartSettings {
    // The path of Chart.INI, set by the chart window's load and kept for the run.
    QString IniFile;

    std::int32_t BackColor = 0;
    std::int32_t ForeColor = 0;
    std::int32_t GridColor = 0;
    std::int32_t MouseLabelColor = 0;
    std::int32_t TicColor = 0;
    std::int32_t OpenColor = 0;
    std::int32_t CloseColor = 0;
    std::int16_t TicType = 0;
    std::int32_t TicCandleUpColor = 0;
    std::int32_t TicCandleDnColor = 0;
    std::int32_t VolColor = 0;
    QString FontName;
    std::int16_t FontSize = 0;
    bool FontBold = false;
    bool FontItalic = false;
    std::int32_t DateMarkerColor = 0;
    std::int16_t CrossHairMode = 0;
    std::int32_t CrossHairColor = 0;
    std::int16_t BlankSpace = 0;
    float BarSpacing = 0;
    std::int16_t ScrollIncrement = 0;
    float WindowSplit1 = 0;
    float WindowSplit2 = 0;
    QString CurrentIndicator;

    // Reads [Settings] in the program's order; a key that is missing or odd leaves that one
    // setting as the parse makes it and the others still load. The caller hands
    // CurrentIndicator on to SetCurrentIndicator.
    void LoadIniSettings();
    // Writes [DataInfo] Symbol, upper-cased, then [Settings] in the program's order, in one
    // replacement of the file. CurrentIndicator is not its business.
    void SaveIniSettings(const QString& symbol) const;
    // One split written at once, as a drag or SetMargins does.
    void writeSplit(int number) const;
    void writeBarSpacing() const;
};

}  // namespace ostravel
