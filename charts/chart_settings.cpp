#include "charts/chart_settings.h"

#include "charts/mfunctions.h"
#include "charts/profile_file.h"
#include "runtime/trap.h"
#include "runtime/vbmath.h"

namespace ostravel {

namespace {

const QString kSettings = QStringLiteral("Settings");
const QString kSavePlace = QStringLiteral("SaveIniSettings");

}  // namespace

std::int16_t wholeSetting(const QString& text) {
    return toInteger(Val(text));
}

std::int32_t longSetting(const QString& text) {
    return toLongInteger(Val(text));
}

float realSetting(const QString& text) {
    return toSingleChecked(Val(text));
}

bool flagSetting(const QString& text) {
    const QString word = text.trimmed();
    if (word.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0)
        return true;
    return Val(word) != 0;
}

QString settingText(float value) {
    return singleText(value);
}

QString flagNumberText(bool value) {
    return value ? QStringLiteral("-1") : QStringLiteral("0");
}

QString flagWordText(bool value) {
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

void ChartSettings::LoadIniSettings() {
    const ProfileFile profile = ProfileFile::read(IniFile);
    const auto text = [&](const char* key) {
        return profile.value(kSettings, QString::fromLatin1(key)).value_or(QString()).left(2000);
    };
    const auto read = [&](const char* key, auto& setting) {
        passedOver([&] {
            using T = std::decay_t<decltype(setting)>;
            if constexpr (std::is_same_v<T, QString>)
                setting = text(key);
            else if constexpr (std::is_same_v<T, bool>)
                setting = flagSetting(text(key));
            else if constexpr (std::is_same_v<T, float>)
                setting = realSetting(text(key));
            else if constexpr (std::is_same_v<T, std::int16_t>)
                setting = wholeSetting(text(key));
            else
                setting = longSetting(text(key));
        });
    };
    read("BackColor", BackColor);
    read("ForeColor", ForeColor);
    read("GridColor", GridColor);
    read("MouseLabelColor", MouseLabelColor);
    read("TicColor", TicColor);
    read("OpenColor", OpenColor);
    read("CloseColor", CloseColor);
    read("TicType", TicType);
    read("TicCandleUpColor", TicCandleUpColor);
    read("TicCandleDnColor", TicCandleDnColor);
    read("VolColor", VolColor);
    read("FontName", FontName);
    read("FontSize", FontSize);
    read("FontBold", FontBold);
    read("FontItalic", FontItalic);
    read("DateMarkerColor", DateMarkerColor);
    read("CrossHairMode", CrossHairMode);
    read("CrossHairColor", CrossHairColor);
    read("BlankSpace", BlankSpace);
    read("BarSpacing", BarSpacing);
    read("ScrollIncrement", ScrollIncrement);
    read("WindowSplit1", WindowSplit1);
    read("WindowSplit2", WindowSplit2);
    read("CurrentIndicator", CurrentIndicator);
}

void ChartSettings::SaveIniSettings(const QString& symbol) const {
    // The keys go in one by one as the program writes them, and reach the disk together.
    ProfileFile profile = ProfileFile::read(IniFile);
    profile.setValue(QStringLiteral("DataInfo"), QStringLiteral("Symbol"), symbol.toUpper());
    const std::pair<const char*, QString> values[] = {
        {"BackColor", QString::number(BackColor)},
        {"ForeColor", QString::number(ForeColor)},
        {"GridColor", QString::number(GridColor)},
        {"MouseLabelColor", QString::number(MouseLabelColor)},
        {"TicColor", QString::number(TicColor)},
        {"OpenColor", QString::number(OpenColor)},
        {"CloseColor", QString::number(CloseColor)},
        {"TicType", QString::number(TicType)},
        {"TicCandleUpColor", QString::number(TicCandleUpColor)},
        {"TicCandleDnColor", QString::number(TicCandleDnColor)},
        {"VolColor", QString::number(VolColor)},
        {"FontName", FontName},
        {"FontSize", QString::number(FontSize)},
        {"FontBold", flagNumberText(FontBold)},
        {"FontItalic", flagNumberText(FontItalic)},
        {"DateMarkerColor", QString::number(DateMarkerColor)},
        {"CrossHairColor", QString::number(CrossHairColor)},
        {"CrossHairMode", QString::number(CrossHairMode)},
        {"BlankSpace", QString::number(BlankSpace)},
        {"BarSpacing", settingText(BarSpacing)},
        {"ScrollIncrement", QString::number(ScrollIncrement)},
        {"WindowSplit1", settingText(WindowSplit1)},
        {"WindowSplit2", settingText(WindowSplit2)},
    };
    for (const auto& [key, value] : values) profile.setValue(kSettings, QString::fromLatin1(key), value);
    passedOver([&] { profile.write(IniFile, kSavePlace); });
}

void ChartSettings::writeSplit(int number) const {
    WriteIni(IniFile, kSettings, QStringLiteral("WindowSplit%1").arg(number),
             settingText(number == 1 ? WindowSplit1 : WindowSplit2));
}

void ChartSettings::writeBarSpacing() const {
    WriteIni(IniFile, kSettings, QStringLiteral("BarSpacing"), settingText(BarSpacing));
}

}  // namespace ostravel
