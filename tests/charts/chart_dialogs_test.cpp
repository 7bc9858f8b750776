// The chart's three dialogs without a display: the options' fields, limits, live colours and
// fonts against Save and Cancel; the indicator list's rows, edits, undo, the question on leaving
// and the way back; the drawing tools' defaults in Chart.INI and the hand-over to the tool.

#include "charts/frmdrawingtools.h"
#include "charts/frmindicators.h"
#include "charts/frmoptions.h"
#include "charts/indicators/macd.h"
#include "charts/indicators/stoch.h"
#include "charts/midicators.h"
#include "safety/whole_file.h"
#include "tests/charts/chart_fixture.h"

namespace ostravel::test {
namespace {

using Field = FrmOptions::Field;

class ChartDialogs : public ChartWindow {
protected:
    QRgb corner() const { return chart.ChartBoxV.pixel(1, 1) & 0xFFFFFF; }
    MIdicators& indicators() { return m_program.module<MIdicators>(); }
    int rowOf(const FrmIndicators& form, const char* parameter) const {
        for (std::size_t i = 0; i < form.lstVwSettings.size(); ++i)
            if (form.lstVwSettings[i].Parameter == QLatin1String(parameter))
                return static_cast<int>(i);
        return -1;
    }
    void edit(FrmIndicators& form, const char* parameter, const char* value) {
        form.lstVwSettings_DblClick(rowOf(form, parameter));
        form.txtEdit_Change(QString::fromLatin1(value));
        form.txtEdit_Accept();
    }
    QObject m_window;  // the dialog's window, which its questions centre on
};

TEST_F(ChartDialogs, OptionsFieldsTakeTheirKeysAndEnterHoldsThemWithinTheLimits) {
    FrmOptions options(chart);
    options.Form_Load();
    const std::int32_t bottom = chart.ChartBottom;
    EXPECT_EQ(options.lblDiv1, QStringLiteral("Min:%1\nMax:470").arg(bottom / 2.0));
    EXPECT_EQ(options.lblDiv2, QStringLiteral("Min:440\nMax:%1").arg(bottom - 50));
    EXPECT_EQ(options.lblScrollIncrement, QStringLiteral("Min:10\nMax:%1").arg(qRound(chart.ChartRight / 5) - 1));
    const std::tuple<Field, const char*, QString> rows[] = {
        {Field::Div1, "900", QStringLiteral("470")},           // cut to its upper limit
        {Field::Div1, "0", QStringLiteral("470")},             // 0 leaves it
        {Field::Div1, "12.5", QString::number(bottom / 2.0)},  // raised to its lower limit
        {Field::Div2, "9999", QString::number(bottom - 50)},
        {Field::CrosshairMode, "0", QStringLiteral("15")},
        {Field::ScrollIncrement, "3", QStringLiteral("10")},
    };
    for (const auto& [field, typed, shown] : rows) {
        options.field(field).text = QString::fromLatin1(typed);
        options.fieldEnter(field);
        EXPECT_EQ(options.field(field).text, shown) << typed;
    }
    EXPECT_EQ(chart.settings().WindowSplit1, bottom / 2.0);
    options.field(Field::Div2).text = QStringLiteral("123");
    options.fieldEscape(Field::Div2);
    EXPECT_EQ(options.txtDiv2.text, QString::number(bottom - 50));
    const std::tuple<Field, char, int> keys[] = {{Field::Div1, '.', '.'},
                                                 {Field::Div2, '7', '7'},
                                                 {Field::CrosshairMode, '.', 0},
                                                 {Field::ScrollIncrement, 'a', 0},
                                                 {Field::ScrollIncrement, '\b', '\b'},
                                                 {Field::Div1, '-', 0}};
    for (const auto& [field, key, passed] : keys) EXPECT_EQ(FrmOptions::fieldKey(field, key), passed) << key;
}

TEST_F(ChartDialogs, KeptCrosshairModeTakesAnyButZeroBeyondTheLabelsFifteen) {
    FrmOptions options(chart);
    options.Form_Load();
    EXPECT_EQ(options.lblCHmode, QStringLiteral("Min:1\nMax:15"));
    options.txtCrosshairMode.text = QStringLiteral("16");
    options.fieldEnter(Field::CrosshairMode);
    EXPECT_EQ(chart.crossHairMode(), 16);
}

TEST_F(ChartDialogs, OptionsShowColoursFontAndBarTypeLiveAndOnlySaveKeepsThem) {
    FrmOptions options(chart);
    options.owner = &m_window;
    options.Form_Load();
    EXPECT_EQ(options.txtFont, QStringLiteral("DejaVu Sans 10 pts Bold "));
    m_prompt.answerColour(255);
    options.lblColor_Click(0);
    EXPECT_EQ(std::pair(options.lblColor[0], corner()), std::pair(255, 0xFF0000u));
    EXPECT_EQ(m_prompt.asked().last().owner, &m_window);
    m_prompt.answerFont(FontChoice{QStringLiteral("DejaVu Serif"), 12, false, true});
    options.txtFont_Click();
    EXPECT_EQ(options.txtFont, QStringLiteral("DejaVu Serif 12 pts Italic"));
    const QImage candles = chart.ChartBoxV;
    options.picType_Click(1);
    EXPECT_NE(chart.ChartBoxV, candles);

    // Cancel: the chart reads the file again, which never heard of the changes.
    options.cmdCancel_Click();
    chart.reloadSettings();
    EXPECT_EQ(std::tuple(ini("BackColor"), corner(), chart.settings().FontName, chart.settings().TicType),
              std::tuple(QStringLiteral("0"), 0u, QStringLiteral("DejaVu Sans"), std::int16_t{3}));

    m_prompt.answerColour(255);
    options.lblColor_Click(10);
    options.cmdSaveExit_Click();
    chart.reloadSettings();
    EXPECT_EQ(std::pair(ini("VolColor"), ini("DataInfo", "Symbol")),
              std::pair(QStringLiteral("255"), QStringLiteral("TATAMOTORS")));
}

TEST_F(ChartDialogs, IndicatorListShowsTheSectionWithColourRowsAndTheAveragesInGroups) {
    FrmIndicators form(m_program);
    form.Form_Load();
    EXPECT_EQ(form.Frame1, QStringLiteral("Current Indicator Settings -> MACD"));
    EXPECT_EQ(form.header, QStringLiteral("Dbl Click to Edit"));
    QStringList names;
    int colours = 0;
    for (const FrmIndicators::Row& row : form.lstVwSettings) {
        names << row.Parameter;
        colours += row.colour;
    }
    EXPECT_EQ(names.join(QLatin1Char(' ')),
              QStringLiteral("MACDColor1 MACDColor2 MACDColor3 PlotWidth MACDLen1 MACDLen2 MACDLen3"));
    EXPECT_EQ(std::pair(colours, form.lstVwSettings[1].Colour), std::pair(3, 16711680));
    form.cmdType_Click();
    EXPECT_EQ(form.cmdType.caption, QStringLiteral("Indicators"));
    ASSERT_EQ(form.lstVwSettings.size(), 11u);
    EXPECT_TRUE(form.lstVwSettings[3].blank && form.lstVwSettings[7].blank);
    EXPECT_EQ(form.lstVwSettings[8].Parameter, QStringLiteral("AvgLen3"));
}

TEST_F(ChartDialogs, AnEditIsWrittenAtOnceReachesTheIndicatorAndUndoTakesItBack) {
    FrmIndicators form(m_program);
    form.owner = &m_window;
    form.Form_Load();
    edit(form, "MACDLen1", "21");
    EXPECT_EQ(std::tuple(ini("MACDSettings", "MACDLen1"), indicators().MACDInd->MACDLen1, form.DirtyFlag),
              std::tuple(QStringLiteral("21"), std::int16_t{21}, true));
    form.cmdUndo_Click();
    EXPECT_EQ(std::tuple(ini("MACDSettings", "MACDLen1"), indicators().MACDInd->MACDLen1, form.cmdUndo.enabled),
              std::tuple(QStringLiteral("13"), std::int16_t{13}, false));
    m_prompt.answerColour(65280);
    form.lstVwSettings_DblClick(0);
    EXPECT_EQ(ini("MACDSettings", "MACDColor1"), QStringLiteral("65280"));
    EXPECT_EQ(m_prompt.asked().last().owner, &m_window);
    form.lstVwSettings_DblClick(static_cast<int>(form.lstVwSettings.size()));  // no row: nothing
    EXPECT_EQ(form.editRow, -1);
}

TEST_F(ChartDialogs, ChangePicksAnIndicatorAndTrueFalseCellsToggleOrMapWhatIsTyped) {
    FrmIndicators form(m_program);
    form.Form_Load();
    form.cmdChangeInd_Click(true);
    EXPECT_EQ(std::pair(form.header, form.cmdChangeInd.caption),
              std::pair(QStringLiteral("Dbl Click to Change"), QStringLiteral("OK  |  Esc")));
    form.cmdChangeInd_MouseMove(FrmIndicators::okSideOf(90, 100));
    EXPECT_EQ(form.cmdChangeIndTip, QStringLiteral("Cancel Change"));
    form.lstVwSettings_DblClick(4);
    EXPECT_EQ(std::tuple(form.Frame1, ini("CurrentIndicator"), form.cmdChangeInd.caption),
              std::tuple(QStringLiteral("Current Indicator Settings -> STOCH"), QStringLiteral("STOCH"),
                         FrmIndicators::kChange));
    const int slow = rowOf(form, "StochSlow");
    form.lstVwSettings_DblClick(slow);
    EXPECT_EQ(ini("StochSettings", "StochSlow"), QStringLiteral("False"));
    EXPECT_FALSE(indicators().STOCHInd->StochSlow);
    const std::pair<const char*, const char*> typed[] = {{"t", "True"},  {"1", "True"},  {"-1", "True"},
                                                         {"F", "False"}, {"0", "False"}, {"-", "-"}};
    form.lstVwSettings_KeyPress(slow, QLatin1Char('x'));
    for (const auto& [text, shown] : typed) {
        form.txtEdit_Change(QString::fromLatin1(text));
        EXPECT_EQ(form.txtEdit.text, QString::fromLatin1(shown)) << text;
    }
    form.lstVwSettings_KeyPress(rowOf(form, "KPeriod"), QLatin1Char('x'));  // a number's row takes no letter
    EXPECT_EQ(form.editRow, -1);
}

TEST_F(ChartDialogs, LeavingUnsavedEditsAsksAndNoOrCancelPutsBackWhatTheDialogOpenedWith) {
    FrmIndicators form(m_program);
    form.Form_Load();
    edit(form, "MACDLen2", "40");
    m_prompt.answer(Answer::No);
    form.cmdType_Click();
    const Asked& asked = m_prompt.asked().last();
    EXPECT_EQ(std::tuple(asked.text, asked.title, asked.buttons),
              std::tuple(QStringLiteral("Editting for the last Indicator has not been saved...\nDo you want to save "
                                        "the changes?"),
                         QStringLiteral("Changes Not Saved"), Buttons::YesNoDefaultNo));
    EXPECT_EQ(std::pair(ini("MACDSettings", "MACDLen2"), form.DirtyFlag), std::pair(QStringLiteral("34"), false));

    edit(form, "AvgLen1", "30");
    m_prompt.answer(Answer::Yes);
    form.cmdType_Click();
    EXPECT_EQ(std::pair(ini("AvgSettings", "AvgLen1"), indicators().AvgLen[0]),
              std::pair(QStringLiteral("30"), std::int16_t{30}));

    form.cmdChangeInd_Click(true);
    form.lstVwSettings_DblClick(3);  // RSI
    edit(form, "RsiLen", "20");
    form.cmdCancel_Click();
    form.Form_Unload();
    EXPECT_EQ(std::tuple(ini("CurrentIndicator"), ini("RsiSettings", "RsiLen"), ini("AvgSettings", "AvgLen1"),
                         indicators().CurrentIndicator),
              std::tuple(QStringLiteral("MACD"), QStringLiteral("14"), QStringLiteral("21"), QStringLiteral("MACD")));
}

TEST_F(ChartDialogs, DrawingDefaultsAreAddedOnceReadBackAndGoneAfterAReset) {
    FrmDrawingTools form(m_program, chart.DrawingTools);
    form.Form_Load();
    form.lblColor = 255;
    form.cboStyle_Click(2);
    form.cboMode = 6;
    form.chkExtend = true;
    form.optCircPt = {false, true};
    form.cmdSetDefault_Click();
    form.cmdSetDefault_Click();
    const QByteArray text = readWholeFile(iniFile(), QStringLiteral("test"));
    EXPECT_EQ(text.count("[DrawingToolDefaults]"), 1);
    EXPECT_TRUE(
        text.endsWith("AvgWidth3=1\r\n\r\n[DrawingToolDefaults]\r\nDrawColor=255\r\nDrawStyle=2\r\nDrawWidth=0\r\n"
                      "DrawMode=6\r\nFillColor=12632256\r\nFillStyle=1\r\nTLExtRight=1\r\nTLExtLeft=0\r\n"
                      "PerfSqr=0\r\nPerfCirc=0\r\nUseOrigin=True\r\n"));
    EXPECT_EQ(m_prompt.messages(), QStringList(2, QStringLiteral("Current Settings have been saved as Defaults...\nIf "
                                                                 "the main program defaults are ever reset,\nthese "
                                                                 "settings will be erased....")));
    FrmDrawingTools again(m_program, chart.DrawingTools);
    again.Form_Load();
    EXPECT_EQ(std::tuple(again.lblColor, again.cboStyle, again.cboWidthEnabled, again.cboMode, again.optCircPt[1]),
              std::tuple(255, 2, false, 6, true));
    MakeIniFile(iniFile());
    FrmDrawingTools reset(m_program, chart.DrawingTools);
    reset.Form_Load();
    EXPECT_EQ(std::tuple(reset.lblColor, reset.cboStyle, reset.cboMode, reset.optCircPt[0]),
              std::tuple(10900825, 0, 12, true));
}

TEST_F(ChartDialogs, AToolButtonHandsTheLookToTheToolHidesTheFormAndStartsTheTool) {
    const std::pair<int, const char*> buttons[] = {{0, ""},
                                                   {1, "Pick 1st Pt."},
                                                   {2, "Pick 1st Pt."},
                                                   {3, "Pick Origin"},
                                                   {4, "Pick 1st Corner Pt."},
                                                   {5, "Pick 1st Extreme."}};
    for (const auto& [index, prompt] : buttons) {
        FrmDrawingTools form(m_program, chart.DrawingTools);
        bool unloaded = false;
        form.unload = [&] { unloaded = true; };
        form.chkExtendLeft = true;
        form.cboWidth = 2;
        form.optCircPt = {false, true};
        form.picButton_MouseUp(index);
        EXPECT_TRUE(unloaded && !form.Visible) << index;
        EXPECT_EQ(chart.txtDrawInstruct.Text, QString::fromLatin1(prompt)) << index;
        const CDrawingToolschart& t = chart.DrawingTools;
        EXPECT_EQ(std::tuple(t.Extend, t.ToolWidth, t.ToolMode, t.UseOrigin), std::tuple(1, 3, 13, true));
        chart.mnuPuCancelDrawing_Click();
    }
}

TEST_F(ChartDialogs, KeptDrawModeRowsFromMergeNotPenOnAreTheModeBeforeTheirName) {
    const std::pair<const char*, int> rows[] = {{"Blackness", 1}, {"XorPen", 7},       {"MergeNotPen", 11},
                                                {"CopyPen", 12},  {"MergePenNot", 13}, {"Whiteness", 15}};
    for (const auto& [name, mode] : rows)
        EXPECT_EQ(FrmDrawingTools::modeOfRow(static_cast<int>(FrmDrawingTools::kModes.indexOf(QLatin1String(name)))),
                  mode)
            << name;
}

}  // namespace
}  // namespace ostravel::test
