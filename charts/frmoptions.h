// frmOptions, "Chart Options": the chart's colours, bar type, pane dividers, crosshair mode,
// scroll increment and font, each shown live on the chart; Save & Exit keeps them in Chart.INI,
// Cancel & Exit leaves the file as it was, and the chart reads it again either way.
#pragma once

#include <QString>
#include <array>
#include <cstdint>
#include <functional>

#include "context/controls.h"

class QObject;

namespace ostravel {

class FrmMain;
class Program;
struct ChartSettings;

class FrmOptions {
public:
    static constexpr int kColours = 11;
    // The colour squares' captions, by index.
    static const std::array<QString, kColours> kColourCaptions;
    enum class Field { Div1, Div2, CrosshairMode, ScrollIncrement };

    explicit FrmOptions(FrmMain& chart);

    // What the dialog shows.
    std::array<std::int32_t, kColours> lblColor{};
    std::int16_t TicType = 0;  // the bar type pressed: Line 1, HLOC 2, Candle 3
    TextBox txtDiv1;
    TextBox txtDiv2;
    TextBox txtCrosshairMode;
    TextBox txtScrollIncrement;
    QString lblDiv1;
    QString lblDiv2;
    QString lblCHmode;
    QString lblScrollIncrement;
    QString txtFont;

    const QObject* owner = nullptr;  // the dialog's window, which its own dialogs centre on
    std::function<void()> unload;    // the widget closes itself

    // Every control from the chart's settings and its state, the limits beside the fields.
    void Form_Load();
    // The colour dialog on the square's setting; the chart shows the answer at once.
    void lblColor_Click(int index);
    void picType_Click(std::int16_t ticType);
    void txtFont_Click();

    // A character typed into a field: its code, or 0 when it is swallowed. Digits pass, "." in
    // the dividers' fields, and the editing keys; Enter and Esc go to their own procedures.
    static int fieldKey(Field field, int keyAscii);
    // Esc: the stored value back in the field.
    void fieldEscape(Field field);
    // Enter, and leaving the field: the value checked against its limits and taken.
    void fieldEnter(Field field);
    TextBox& field(Field field);

    void cmdBackup_Click();
    void cmdDefaults_Click();
    void cmdSaveExit_Click();
    void cmdCancel_Click();

private:
    std::int32_t& colourSetting(int index);
    std::int32_t scrollIncrementMax() const;
    void showField(Field field);
    void showLimits();
    void showFont();

    FrmMain& m_chart;
    Program& m_program;
    ChartSettings& m_settings;
};

}  // namespace ostravel
