// frmMain, the chart window, as state: the hidden picture the chart is drawn into and the shown
// one, the crosshair, dividers and mouse label over it, the caption and pointer, and the
// window's procedures and events. Its widget mirrors this state and forwards the user's acts.
#pragma once

#include <QImage>
#include <QString>
#include <cstdint>
#include <optional>

#include "charts/drawing_tools.h"
#include "charts/picture_box.h"

namespace ostravel {

class Program;
struct ChartSettings;
class MIdicators;
struct HistoryState;

// A line over the shown picture: the crosshair's two and the two dividers during a drag.
struct OverLine {
    bool Visible = false;
    int X1 = 0;
    int Y1 = 0;
    int X2 = 0;
    int Y2 = 0;
};

struct MouseLabelState {
    bool Visible = false;
    QString Caption;
    int Left = 0;
    int Top = 0;
    std::int32_t BackColor = 0;
    std::int32_t ForeColor = 0;
};

// The drawing tools' instruction box over the chart.
struct InstructionBox {
    QString Text;
    bool Visible = false;
};

// Custom: the drawing tools' pointer while a tool runs.
enum class Pointer { Default, Divider, Custom };

// The main frame's "Tecnical Charts": refused with its message when no stock is chosen, or when
// "Simulation" is chosen and no simulation has filled its table. True when the chart may open.
bool StockPriceChart_Click(Program& program);

class FrmMain {
public:
    static inline const QString kSettingsChange = QStringLiteral("Settings Change");

    explicit FrmMain(Program& program);

    // What the widget shows.
    QString Caption;
    Pointer MousePointer = Pointer::Default;
    bool SystemCursorHidden = false;
    PictureBox ChartBox;  // the hidden picture every redraw draws into
    QImage ChartBoxV;     // the shown picture: ChartBox's image after each redraw
    OverLine ChLine1;     // the crosshair's horizontal line
    OverLine ChLine2;     // and its vertical one
    OverLine Divider[2];
    MouseLabelState lblMousePrice;

    // The window's state.
    std::int32_t ScrollOffset = 0;
    std::int32_t VisibleBars = 0;
    bool DataReady = false;
    bool DrawBusy = false;
    bool ZoomLock = false;
    bool ShowBarData = false;
    bool CrossOn = false;
    bool OverDivider = false;
    int DragDivider = 0;
    std::int32_t LastClickTime = 0;
    float ChartRight = 0;
    std::int32_t ChartBottom = 0;
    std::int32_t TextH = 0;
    std::int32_t FirstBar = 0;
    std::int32_t LastBar = 0;
    double HighPrice = 0;
    double LowPrice = 0;
    double PriceRange = 0;
    double MaxVolume = 0;
    float PixPerUnit = 0;
    double VolPaneHeight = 0;
    std::int32_t BarsDrawn = 0;
    std::int32_t ScaleRight = 0;

    // The drawing tools, on the two pictures, and what they show.
    CDrawingToolschart DrawingTools;
    InstructionBox txtDrawInstruct;
    bool DrawLoopBeat = false;  // inverted by each heartbeat of a tool's loop

    // Form_Load up to showing the window: the settings file made when missing and read, the
    // indicator's settings, the colours. The widget then shows itself and calls loadHistory.
    void Form_Load();
    // The history of the stock in work; when it loads, the chart is drawn.
    void loadHistory();
    // The picture's new size, as the window's resize gives it.
    void Form_Resize(int width, int height);
    void DrawingTools_DrawingDone();
    void DrawingTools_DrawingInstructions(const QString& text);
    void DrawingTools_DrawingStarted();
    void DrawingTools_DrawLoopIsRunning();
    void SetColors();
    void SetMargins();
    void ChartBoxDraw();
    void UpdateCaption();
    // After the options dialog, whichever way it closed: the file read again, then colours,
    // margins and a redraw.
    void reloadSettings();
    // The options dialog's "Backup INI" and "Reset to Defaults" (with its question).
    void backupIniFile();
    void resetIniFile();

    // The picture's mouse, in its pixels; `seconds` is the clock's seconds since midnight.
    void MouseMove(bool leftButton, double x, double y);
    void MouseDown(double x, double y, double seconds);
    void MouseUp();

    void mnudec_Click();
    void mnuincrease_Click();
    void mnuredraw_Click();
    void mnefileopen_Click();
    // The wheel's rotation in bars; `keys` when a key went with it.
    void MouseWheel1_WheelRotate(int rotation, bool keys);
    // A key with Ctrl held, through the window's key preview.
    enum class ScrollKey { End, Home, Left, PageUp, Right, PageDown };
    void controlKey(ScrollKey key);
    void mnuPuBarSpacing_Click();
    void mnuPuBlankSpace_Click();
    void mnuPuCrossHairMode_Click();
    // `owner`: the window the colour dialog is centred on.
    void mnuPuCrossHairColor_Click(const QObject* owner = nullptr);
    void mnuPuCancelDrawing_Click();

    // The rule on the chart: off by default, kept in Chart.INI.
    bool ruleOverlay() const;
    void setRuleOverlay(bool on);

    // The crosshair's pen, for the widget that draws it over the picture.
    int crossHairMode() const;
    std::int32_t crossHairColor() const;

    Program& program() { return m_program; }
    ChartSettings& settings() { return m_settings; }
    HistoryState& history() { return m_history; }

private:
    void BeginCrosshair(double x, double y);
    void MoveCrosshair(double x, double y);
    void MouseLabel(double x, double y);
    void ResetPointer();
    void EndCrosshair();
    // The whole-number entry of a pop-up prompt; nothing for an empty or non-numeric answer.
    std::optional<double> askNumber(const QString& text, double current);
    void drawPriceAxis();
    void drawVolumeAxis();
    void drawBars();
    void drawVolumeLabel();
    double priceY(double price) const;

    Program& m_program;
    ChartSettings& m_settings;
    MIdicators& m_indicators;
    HistoryState& m_history;
    bool m_ruleOverlay = false;
    std::int32_t m_volumeLabelBar = 0;  // where the last redraw's bars stopped
};

}  // namespace ostravel
