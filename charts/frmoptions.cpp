#include "charts/frmoptions.h"

#include <algorithm>

#include "charts/chart_settings.h"
#include "charts/frmmain.h"
#include "charts/mfunctions.h"
#include "context/program.h"
#include "market/history.h"
#include "runtime/trap.h"
#include "runtime/vbmath.h"

namespace ostravel {

namespace {

constexpr int kEnter = 13;
constexpr int kEscape = 27;
constexpr std::int16_t kCrossHairDefault = 15;
constexpr std::int16_t kScrollIncrementMin = 10;

QString place(const char* procedure) {
    return QStringLiteral("(Form) frmOptions::Sub ") + QString::fromLatin1(procedure);
}

// The limits beside a field, one to a line.
QString limits(const QString& min, const QString& max) {
    return QStringLiteral("Min:") + min + QStringLiteral("\nMax:") + max;
}

}  // namespace

const std::array<QString, FrmOptions::kColours> FrmOptions::kColourCaptions = {
    QStringLiteral("BackColor"),        QStringLiteral("Text/ForeColor"),  QStringLiteral("GridColor"),
    QStringLiteral("CrossHairColor"),   QStringLiteral("DateMarkerColor"), QStringLiteral("TicBodyColor"),
    QStringLiteral("TicOpenColor"),     QStringLiteral("TicCloseColor"),   QStringLiteral("TicCandleUpColor"),
    QStringLiteral("TicCandleDnColor"), QStringLiteral("VolColor"),
};

FrmOptions::FrmOptions(FrmMain& chart) : m_chart(chart), m_program(chart.program()), m_settings(chart.settings()) {}

std::int32_t& FrmOptions::colourSetting(int index) {
    ChartSettings& s = m_settings;
    std::int32_t* const settings[kColours] = {
        &s.BackColor, &s.ForeColor,  &s.GridColor,        &s.CrossHairColor,   &s.DateMarkerColor, &s.TicColor,
        &s.OpenColor, &s.CloseColor, &s.TicCandleUpColor, &s.TicCandleDnColor, &s.VolColor,
    };
    return *settings[std::clamp(index, 0, kColours - 1)];
}

TextBox& FrmOptions::field(Field field) {
    switch (field) {
        case Field::Div1:
            return txtDiv1;
        case Field::Div2:
            return txtDiv2;
        case Field::CrosshairMode:
            return txtCrosshairMode;
        case Field::ScrollIncrement:
            break;
    }
    return txtScrollIncrement;
}

void FrmOptions::Form_Load() {
    for (int i = 0; i < kColours; ++i) lblColor[static_cast<std::size_t>(i)] = colourSetting(i);
    TicType = m_settings.TicType;
    for (Field f : {Field::Div1, Field::Div2, Field::CrosshairMode, Field::ScrollIncrement}) showField(f);
    showLimits();
    showFont();
}

void FrmOptions::showFont() {
    txtFont = m_settings.FontName + QLatin1Char(' ') + QString::number(m_settings.FontSize) + QStringLiteral(" pts ") +
              (m_settings.FontBold ? QStringLiteral("Bold ") : QString()) +
              (m_settings.FontItalic ? QStringLiteral("Italic") : QString());
}

void FrmOptions::showField(Field f) {
    const ChartSettings& s = m_settings;
    switch (f) {
        case Field::Div1:
            txtDiv1.text = settingText(s.WindowSplit1);
            break;
        case Field::Div2:
            txtDiv2.text = settingText(s.WindowSplit2);
            break;
        case Field::CrosshairMode:
            txtCrosshairMode.text = QString::number(s.CrossHairMode);
            break;
        case Field::ScrollIncrement:
            txtScrollIncrement.text = QString::number(s.ScrollIncrement);
            break;
    }
}

std::int32_t FrmOptions::scrollIncrementMax() const {
    return toLongInteger(divide(m_chart.ChartRight, toLongInteger(m_settings.BarSpacing))) - 1;
}

void FrmOptions::showLimits() {
    const ChartSettings& s = m_settings;
    lblDiv1 = limits(numberToText(m_chart.ChartBottom / 2.0), settingText(s.WindowSplit2 - 10));
    lblDiv2 = limits(settingText(s.WindowSplit1 + 10), QString::number(m_chart.ChartBottom - 50));
    // Kept: the label says 15 while the chart's pop-up takes 16.
    lblCHmode = limits(QStringLiteral("1"), QStringLiteral("15"));
    trapped(m_program.reporter(), place("Form_Load"), [&] {
        lblScrollIncrement = limits(QString::number(kScrollIncrementMin), QString::number(scrollIncrementMax()));
    });
}

void FrmOptions::lblColor_Click(int index) {
    std::int32_t& setting = colourSetting(index);
    setting = GetColorDlg(m_program.prompt(), setting, owner);
    lblColor[static_cast<std::size_t>(std::clamp(index, 0, kColours - 1))] = setting;
    m_chart.SetColors();
    m_chart.ChartBoxDraw();
}

void FrmOptions::picType_Click(std::int16_t ticType) {
    m_settings.TicType = ticType;
    TicType = ticType;
    m_chart.ChartBoxDraw();
}

void FrmOptions::txtFont_Click() {
    CenterDlgBox(m_program.prompt(), owner);
    FontChoice font;
    font.name = m_settings.FontName;
    font.size = m_settings.FontSize;
    font.bold = m_settings.FontBold;
    font.italic = m_settings.FontItalic;
    const std::optional<FontChoice> chosen = m_program.prompt().chooseFont(font);
    if (!chosen)
        return;
    trapped(m_program.reporter(), place("txtFont_Click"), [&] {
        m_settings.FontName = chosen->name;
        m_settings.FontSize = toInteger(chosen->size);
        m_settings.FontBold = chosen->bold;
        m_settings.FontItalic = chosen->italic;
    });
    m_chart.SetColors();
    m_chart.SetMargins();
    m_chart.ChartBoxDraw();
    showFont();
}

int FrmOptions::fieldKey(Field field, int keyAscii) {
    if (keyAscii >= '0' && keyAscii <= '9')
        return keyAscii;
    if (keyAscii == '.' && (field == Field::Div1 || field == Field::Div2))
        return keyAscii;
    // Backspace and the other control keys edit; Enter and Esc have procedures of their own.
    if (keyAscii < ' ' && keyAscii != kEnter && keyAscii != kEscape)
        return keyAscii;
    return 0;
}

void FrmOptions::fieldEscape(Field f) {
    showField(f);
}

void FrmOptions::fieldEnter(Field f) {
    const char* const procedures[] = {"txtDiv1_KeyPress", "txtDiv2_KeyPress", "txtCrosshairMode_KeyPress",
                                      "txtScrollIncrement_KeyPress"};
    ChartSettings& s = m_settings;
    trapped(m_program.reporter(), place(procedures[static_cast<int>(f)]), [&] {
        double value = Val(field(f).text);
        switch (f) {
            case Field::Div1:
            case Field::Div2: {
                if (value == 0)
                    break;
                const bool first = f == Field::Div1;
                const double max = first ? s.WindowSplit2 - 10.0 : m_chart.ChartBottom - 50.0;
                const double min = first ? m_chart.ChartBottom / 2.0 : s.WindowSplit1 + 10.0;
                if (value > max)
                    value = max;
                if (value < min)
                    value = min;
                (first ? s.WindowSplit1 : s.WindowSplit2) = toSingleChecked(value);
                m_chart.SetMargins();
                m_chart.ChartBoxDraw();
                break;
            }
            case Field::CrosshairMode:
                // Kept: any mode but 0 is taken, beyond the label's 15 too; 0 is the default 15.
                s.CrossHairMode = value != 0 ? toInteger(value) : kCrossHairDefault;
                break;
            case Field::ScrollIncrement:
                s.ScrollIncrement = toInteger(std::max(std::min(value, static_cast<double>(scrollIncrementMax())),
                                                       static_cast<double>(kScrollIncrementMin)));
                break;
        }
    });
    showField(f);
    showLimits();
}

void FrmOptions::cmdBackup_Click() {
    CenterDlgBox(m_program.prompt(), owner);
    m_chart.backupIniFile();
}

void FrmOptions::cmdDefaults_Click() {
    CenterDlgBox(m_program.prompt(), owner);
    m_chart.resetIniFile();
    Form_Load();
}

void FrmOptions::cmdSaveExit_Click() {
    m_settings.SaveIniSettings(historySymbol(m_program.frame()));
    if (unload)
        unload();
}

void FrmOptions::cmdCancel_Click() {
    // The chart reads the file again when the dialog has gone, which undoes every change.
    if (unload)
        unload();
}

}  // namespace ostravel
