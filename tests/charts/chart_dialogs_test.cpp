// The chart's dialogs without a display: the drawing tools' defaults in Chart.INI and the
// hand-over to the tool.

#include "charts/frmdrawingtools.h"
#include "safety/whole_file.h"
#include "tests/charts/chart_fixture.h"

namespace ostravel::test {
namespace {

using ChartDialogs = ChartWindow;

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
