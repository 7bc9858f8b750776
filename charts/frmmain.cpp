#include "charts/frmmain.h"

#include <algorithm>
#include <cmath>

#include "charts/chart_geometry.h"
#include "charts/chart_settings.h"
#include "charts/mfunctions.h"
#include "charts/midicators.h"
#include "context/program.h"
#include "market/history.h"
#include "market/load_history.h"
#include "runtime/trap.h"
#include "runtime/vbmath.h"

namespace ostravel {

namespace {

const QString kOverlaySection = QStringLiteral("RuleOverlay");
const QString kOverlayKey = QStringLiteral("Show");

QString formPlace(const char* procedure) {
    return QStringLiteral("(Form) frmMain::Sub ") + QString::fromLatin1(procedure);
}

}  // namespace

bool StockPriceChart_Click(Program& program) {
    MainFrame& frame = program.frame();
    if (frame.cmbequity == QLatin1String("Enter Symbol")) {
        program.prompt().inform(QStringLiteral("Please Enter The Equity Symbol"));
        if (const auto& focus = program.module<HistoryState>().focusCmbequity)
            focus();
        return false;
    }
    bool empty = true;
    passedOver([&] { empty = program.store().database().rowCount(QStringLiteral("simulation")) == 0; });
    if (frame.cmbportfolio.text == MainFrame::kSimulation && empty) {
        program.prompt().inform(QStringLiteral("Run Simulation Before Running Charts"));
        return false;
    }
    return true;
}

FrmMain::FrmMain(Program& program)
    : DrawingTools(DrawBusy, program.module<ChartSettings>(), ScaleRight),
      m_program(program),
      m_settings(program.module<ChartSettings>()),
      m_indicators(program.module<MIdicators>()),
      m_history(program.module<HistoryState>()) {}

void FrmMain::Form_Load() {
    m_settings.IniFile = chartIniPath();
    if (!ExistFile(m_settings.IniFile))
        trapped(m_program.reporter(), QStringLiteral("(Module) MFunctions::Sub MakeIniFile"),
                [&] { MakeIniFile(m_settings.IniFile); });
    m_settings.LoadIniSettings();
    passedOver([&] { m_indicators.SetCurrentIndicator(m_settings.CurrentIndicator); });
    m_indicators.GetIndicatorSettings();
    m_ruleOverlay = flagSetting(GetIni(m_settings.IniFile, kOverlaySection, kOverlayKey));
    DrawingTools.picBx = &ChartBox;
    DrawingTools.picBxV = &ChartBoxV;
    DrawingTools.DrawingInstructions = [this](const QString& text) { DrawingTools_DrawingInstructions(text); };
    DrawingTools.DrawLoopIsRunning = [this] { DrawingTools_DrawLoopIsRunning(); };
    DrawingTools.DrawingStarted = [this] { DrawingTools_DrawingStarted(); };
    DrawingTools.DrawingDone = [this] { DrawingTools_DrawingDone(); };
    SetColors();
}

void FrmMain::DrawingTools_DrawingDone() {
    txtDrawInstruct.Text.clear();
    txtDrawInstruct.Visible = false;
    MousePointer = Pointer::Default;
}

void FrmMain::DrawingTools_DrawingInstructions(const QString& text) {
    txtDrawInstruct.Text = text;
}

void FrmMain::DrawingTools_DrawingStarted() {
    txtDrawInstruct.Visible = true;
    MousePointer = Pointer::Custom;
}

void FrmMain::DrawingTools_DrawLoopIsRunning() {
    DrawLoopBeat = !DrawLoopBeat;
}

void FrmMain::loadHistory() {
    if (!LoadHistoryFile(m_program))
        return;
    DataReady = true;
    SetMargins();
    ChartBoxDraw();
}

void FrmMain::SetColors() {
    ChartBox.BackColor = m_settings.BackColor;
    ChartBox.ForeColor = m_settings.ForeColor;
    ChartBox.setFont(m_settings.FontName, m_settings.FontSize, m_settings.FontBold, m_settings.FontItalic);
    lblMousePrice.BackColor = m_settings.BackColor;
    lblMousePrice.ForeColor = m_settings.MouseLabelColor;
}

void FrmMain::SetMargins() {
    TextH = toLongInteger(ChartBox.TextHeight(QStringLiteral("X")));
    ChartRight = static_cast<float>(ChartBox.ScaleWidth() - m_settings.BlankSpace * 10);
    ChartBottom = ChartBox.ScaleHeight() - 2 * TextH;
    for (int split : keepSplits(m_settings.WindowSplit1, m_settings.WindowSplit2, ChartBottom))
        m_settings.writeSplit(split);
    const float splits[] = {m_settings.WindowSplit1, m_settings.WindowSplit2};
    for (int d = 0; d < 2; ++d) {
        const int y = toLongInteger(splits[d]);
        Divider[d].X1 = -5;
        Divider[d].X2 = -3;
        Divider[d].Y1 = y;
        Divider[d].Y2 = y;
    }
}

void FrmMain::Form_Resize(int width, int height) {
    // A resize erases the sketches: a tool under way ends first, so that the chart is drawn anew.
    if (DrawingTools.Active())
        mnuPuCancelDrawing_Click();
    ChartBox.resize(width, height);
    lblMousePrice.Left = width - 95;
    ChartBoxV = ChartBox.image();
    SetMargins();
    // Kept: a resize sets the spacing to 5 for the view, whatever the file says, and doesn't
    // write it.
    m_settings.BarSpacing = 5;
    VisibleBars = visibleBarsFor(ChartRight, 5);
    if (DataReady)
        ChartBoxDraw();
}

void FrmMain::reloadSettings() {
    m_settings.LoadIniSettings();
    passedOver([&] { m_indicators.SetCurrentIndicator(m_settings.CurrentIndicator); });
    SetColors();
    SetMargins();
    ChartBoxDraw();
}

void FrmMain::backupIniFile() {
    trapped(m_program.reporter(), QStringLiteral("(Form) frmOptions::Sub cmdBackup_Click"),
            [&] { BackupIniFile(m_program.prompt(), m_settings.IniFile); });
}

void FrmMain::resetIniFile() {
    if (!ConfirmIniReset(m_program.prompt()))
        return;
    trapped(m_program.reporter(), QStringLiteral("(Module) MFunctions::Sub MakeIniFile"),
            [&] { MakeIniFile(m_settings.IniFile); });
    m_settings.LoadIniSettings();
    passedOver([&] { m_indicators.SetCurrentIndicator(m_settings.CurrentIndicator); });
    m_indicators.GetIndicatorSettings();
    m_ruleOverlay = false;
    SetColors();
    SetMargins();
    ChartBoxDraw();
}

int FrmMain::crossHairMode() const {
    return m_settings.CrossHairMode;
}

std::int32_t FrmMain::crossHairColor() const {
    return m_settings.CrossHairColor;
}

bool FrmMain::ruleOverlay() const {
    return m_ruleOverlay;
}

void FrmMain::setRuleOverlay(bool on) {
    m_ruleOverlay = on;
    WriteIni(m_settings.IniFile, kOverlaySection, kOverlayKey, flagNumberText(on));
    ChartBoxDraw();
}

// --- the mouse over the picture ---

void FrmMain::ResetPointer() {
    MousePointer = Pointer::Default;
    OverDivider = false;
    CrossOn = true;
}

void FrmMain::BeginCrosshair(double x, double y) {
    const int snapped = SnapToBar(x, ChartRight, m_settings.BarSpacing);
    const int row = toLongInteger(y);
    ChLine1 = {true, 0, row, ChartBox.ScaleWidth(), row};
    ChLine2 = {true, snapped, ChartBox.ScaleHeight(), snapped, 0};
    SystemCursorHidden = true;
}

void FrmMain::MoveCrosshair(double x, double y) {
    const int snapped = SnapToBar(x, ChartRight, m_settings.BarSpacing);
    const int row = toLongInteger(y);
    ChLine1.Y1 = ChLine1.Y2 = row;
    ChLine2.X1 = ChLine2.X2 = snapped;
}

void FrmMain::MouseLabel(double x, double y) {
    const MouseLabelInput in{&m_history.StockData, m_history.LastIdx, ChartRight, m_settings.BarSpacing,
                             ShowBarData,          HighPrice,         PriceRange, m_settings.WindowSplit1};
    lblMousePrice.Caption = mouseLabelText(in, x, y);
    lblMousePrice.Top = toLongInteger(y);
}

void FrmMain::EndCrosshair() {
    ChLine1.Visible = false;
    ChLine2.Visible = false;
    lblMousePrice.Visible = false;
    ShowBarData = false;
    SystemCursorHidden = false;
}

void FrmMain::MouseMove(bool leftButton, double x, double y) {
    DrawingTools.XcurrMov = toLongInteger(x);
    DrawingTools.YcurrMov = toLongInteger(y);
    if (DrawingTools.Active()) {
        DrawingTools.DoLoop();
        return;
    }
    passedOver([&] {
        if (!leftButton) {
            if (onSplit(y, m_settings.WindowSplit1) || onSplit(y, m_settings.WindowSplit2)) {
                MousePointer = Pointer::Divider;
                OverDivider = true;
                CrossOn = false;
            } else {
                ResetPointer();
            }
            return;
        }
        if (!OverDivider) {
            MoveCrosshair(x, y);
            if (x >= 0 && x < ChartBox.ScaleWidth())
                MouseLabel(x, y);
            return;
        }
        if (DragDivider != 1 && DragDivider != 2)
            return;
        if (!inDragBand(DragDivider, y, m_settings.WindowSplit1, m_settings.WindowSplit2, ChartBottom)) {
            ResetPointer();
            ChartBoxDraw();
            return;
        }
        float& split = DragDivider == 1 ? m_settings.WindowSplit1 : m_settings.WindowSplit2;
        split = static_cast<float>(y);
        OverLine& line = Divider[DragDivider - 1];
        line.Y1 = line.Y2 = toLongInteger(y);
    });
}

void FrmMain::MouseDown(double x, double y, double seconds) {
    DrawingTools.Xcurr = toLongInteger(x);
    DrawingTools.Ycurr = toLongInteger(y);
    // A tool waiting for a click takes the press, wherever it fell.
    if (DrawingTools.Active() && DrawingTools.MouseClickEnabled) {
        LastClickTime = toLongInteger(std::floor(seconds));
        ++DrawingTools.MouseClickNum;
        DrawingTools.DoLoop();
        return;
    }
    passedOver([&] {
        if (CrossOn) {
            BeginCrosshair(x, y);
            if (x >= 0 && x < ChartBox.ScaleWidth()) {
                // A quick second press shows the bar's data too.
                if (seconds - LastClickTime < 1.5 || DrawingTools.Active())
                    ShowBarData = true;
                lblMousePrice.Visible = true;
                MouseLabel(x, y);
            }
        } else {
            const float splits[] = {m_settings.WindowSplit1, m_settings.WindowSplit2};
            for (int d = 0; d < 2; ++d) {
                if (!onSplit(y, splits[d]))
                    continue;
                DragDivider = d + 1;
                Divider[d].X1 = 0;
                Divider[d].X2 = ChartBox.ScaleWidth() + 5;
                Divider[d].Visible = true;
                break;
            }
        }
    });
    LastClickTime = toLongInteger(std::floor(seconds));
}

void FrmMain::MouseUp() {
    if (OverDivider) {
        m_settings.writeSplit(1);
        m_settings.writeSplit(2);
        for (OverLine& line : Divider) {
            line.Visible = false;
            line.X1 = -5;
            line.X2 = -3;
        }
        ChartBoxDraw();
    }
    EndCrosshair();
    OverDivider = false;
}

// --- menus, wheel and keys ---

void FrmMain::mnudec_Click() {
    trapped(m_program.reporter(), formPlace("mnudec_Click"), [&] {
        if (ZoomLock || DrawingTools.Active())
            return;
        ZoomLock = true;
        if (m_settings.BarSpacing > 1)
            m_settings.BarSpacing -= 1;
        VisibleBars = visibleBarsFor(ChartRight, m_settings.BarSpacing);
        m_settings.writeBarSpacing();
        ChartBoxDraw();
    });
}

void FrmMain::mnuincrease_Click() {
    trapped(m_program.reporter(), formPlace("mnuincrease_Click"), [&] {
        if (ZoomLock || DrawingTools.Active())
            return;
        ZoomLock = true;
        if (m_settings.BarSpacing < 30)
            m_settings.BarSpacing += 1;
        VisibleBars = visibleBarsFor(ChartRight, m_settings.BarSpacing);
        m_settings.writeBarSpacing();
        ChartBoxDraw();
    });
}

void FrmMain::mnuredraw_Click() {
    ChartBoxDraw();
}

void FrmMain::mnefileopen_Click() {
    // Only the file and the stock in work change; the chart stays until the next load.
    OpenDataFile(m_program);
}

void FrmMain::MouseWheel1_WheelRotate(int rotation, bool keys) {
    trapped(m_program.reporter(), formPlace("MouseWheel1_WheelRotate"), [&] {
        if (keys || DrawingTools.Active())
            return;
        ScrollOffset += rotation;
        ScrollOffset = std::max(std::min(ScrollOffset, m_history.LastIdx - VisibleBars), 0);
        ChartBoxDraw();
    });
}

void FrmMain::controlKey(ScrollKey key) {
    if (DrawingTools.Active())
        return;
    const std::int32_t oldest = m_history.LastIdx - VisibleBars;
    switch (key) {
        case ScrollKey::End:
            if (ScrollOffset != 0) {
                ScrollOffset = 0;
                ChartBoxDraw();
            }
            break;
        case ScrollKey::Home:
            if (ScrollOffset < oldest) {
                ScrollOffset = oldest;
                ChartBoxDraw();
            }
            break;
        // Kept: these four only redraw; they don't move the chart.
        case ScrollKey::Left:
        case ScrollKey::PageUp:
            if (ScrollOffset < oldest)
                ChartBoxDraw();
            break;
        case ScrollKey::Right:
        case ScrollKey::PageDown:
            if (ScrollOffset > 0)
                ChartBoxDraw();
            break;
    }
}

std::optional<double> FrmMain::askNumber(const QString& text, double current) {
    const std::optional<QString> answer = m_program.prompt().input(text, kSettingsChange, numberToText(current));
    if (!answer)
        return std::nullopt;
    return parseNumber(*answer);
}

void FrmMain::mnuPuBarSpacing_Click() {
    trapped(m_program.reporter(), formPlace("mnuPuBarSpacing_Click"), [&] {
        const QString current = numberToText(m_settings.BarSpacing);
        const std::optional<double> value =
            askNumber(QStringLiteral("Enter Bar Spacing....  \nCurrent Setting: ") + current, m_settings.BarSpacing);
        if (!value || *value < 1)
            return;
        // Kept: the new spacing isn't saved, and the visible bars aren't counted again.
        m_settings.BarSpacing = toInteger(*value);
        ChartBoxDraw();
    });
}

void FrmMain::mnuPuBlankSpace_Click() {
    trapped(m_program.reporter(), formPlace("mnuPuBlankSpace_Click"), [&] {
        const std::optional<double> value =
            askNumber(QStringLiteral("Enter Right side of chart 'Blank Space'....10 Minimum. \nCurrent Setting: ") +
                          QString::number(m_settings.BlankSpace),
                      m_settings.BlankSpace);
        if (!value || *value < 10)
            return;
        m_settings.BlankSpace = toInteger(*value);
        SetMargins();
        ChartBoxDraw();
    });
}

void FrmMain::mnuPuCrossHairMode_Click() {
    trapped(m_program.reporter(), formPlace("mnuPuCrossHairMode_Click"), [&] {
        const std::optional<double> value =
            askNumber(QStringLiteral("Enter new DrawMode for crosshairs....\nAny number from 1 to 16.  \n6,8,15 work "
                                     "best...   15 is default."),
                      m_settings.CrossHairMode);
        if (!value || *value <= 0 || *value > 16)
            return;
        m_settings.CrossHairMode = toInteger(*value);
    });
}

void FrmMain::mnuPuCrossHairColor_Click(const QObject* owner) {
    m_settings.CrossHairColor = GetColorDlg(m_program.prompt(), m_settings.CrossHairColor, owner);
}

void FrmMain::mnuPuCancelDrawing_Click() {
    DrawingTools.DrawCancel = true;
    DrawingTools.DoLoop();
}

}  // namespace ostravel
