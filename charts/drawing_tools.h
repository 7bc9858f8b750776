// CDrawingToolschart: trend lines, parallel lines, rectangles, ellipses and Fibonacci
// retracements drawn over the chart with the mouse. A tool call starts the tool and returns;
// the chart window's mouse sets the clicks and positions, and each of its events runs one pass
// of the tool's loop, which rubber-bands the figure over the shown picture and at the last click
// draws it into the hidden one.
#pragma once

#include <QImage>
#include <QLineF>
#include <QRect>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace ostravel {

class PictureBox;
struct ChartSettings;

// One stroke of a figure: a line, an outlined box or an ellipse in the box of its two points.
struct Figure {
    enum class Kind { Line, Box, Ellipse } kind = Kind::Line;
    QLineF points;
};

class CDrawingToolschart {
public:
    // The chart's DrawBusy, its settings (for the splits) and the right end of its grid lines,
    // which the Fibonacci lines run to.
    CDrawingToolschart(bool& drawBusy, const ChartSettings& settings, const std::int32_t& scaleRight);

    void TrendLine(bool Parallel = false);
    void RectAndSquareTool(bool Square = false);
    void CircleElipseTool(bool Circle = false);
    void FibRetrace();

    std::int32_t ToolColor = 10900825;
    std::int32_t ToolFillColor = 0;
    int ToolFillStyle = 0;
    int ToolStyle = 0;
    int ToolWidth = 1;
    std::int16_t ToolMode = 0;
    std::int16_t Extend = 0;
    bool UseOrigin = false;
    PictureBox* picBx = nullptr;  // the hidden picture, ChartBox
    QImage* picBxV = nullptr;     // the shown one, ChartBoxV
    bool MouseClickEnabled = true;
    std::int16_t MouseClickNum = 0;
    std::int32_t Xcurr = 0;
    std::int32_t Ycurr = 0;
    std::int32_t YcurrMov = 0;
    std::int32_t XcurrMov = 0;

    // The events, in the order of their numbers.
    std::function<void(const QString&)> DrawingInstructions;
    std::function<void()> DrawLoopIsRunning;
    std::function<void()> DrawingStarted;
    std::function<void()> DrawingDone;

    // Set by "Cancel Drawing": the tool ends at its next pass without a figure.
    bool DrawCancel = false;
    // Seconds of a steady clock, for the heartbeat and the pace of the live picture.
    std::function<double()> Timer;

    // One pass of the loop: the heartbeat once a second, the cancel, the clicks counted since
    // the last pass, the live figure at the pointer, and the figure drawn at the last click.
    void DoLoop();
    // The tool's mark: a tool runs, and the menus that redraw or zoom wait.
    bool Active() const { return m_tool != Tool::None; }
    // What the rubber band shows over the shown picture, in ToolColor.
    const std::vector<Figure>& RubberBand() const { return m_band; }
    // From the first click until the end, the band of the pane the pointer stays in.
    const std::optional<QRect>& CursorClip() const { return m_clip; }

private:
    enum class Tool { None, TrendLine, RectAndSquare, CircleElipse, FibRetrace };
    struct Pen {
        int style, width, mode, fillStyle;
        std::int32_t fillColor;
    };

    // The common start; a tool takes one click for each of its prompts.
    void begin(Tool tool, bool variant, QStringList prompts);
    void end();
    void click(QPointF at);
    // The figure from the first point to `to`; `live` for the rubber band's own extra lines.
    std::vector<Figure> figure(QPointF to, bool live);
    void finish(QPointF at);
    QLineF trend(QLineF line) const;

    bool& m_drawBusy;
    const ChartSettings& m_settings;
    const std::int32_t& m_scaleRight;
    Tool m_tool = Tool::None;
    bool m_variant = false;   // Parallel, Square or Circle, as the tool takes it
    int m_clicks = 0;         // clicks the tool needs
    int m_taken = 0;          // clicks the loop has taken so far
    QStringList m_prompts;    // the prompt after each click, the first at the start
    QPointF m_first;          // the first point
    QLineF m_line;            // a parallel's line, fixed at its second click
    QLineF m_offsets;         // and its ends' offsets from the pointer
    QPointF m_shown{-1, -1};  // the pointer the live picture was made at
    double m_lastChange = 0;
    double m_beat = 0;
    double m_slope = 0;  // the Fibonacci diagonal's, kept when a vertical one can't have one
    std::vector<Figure> m_band;
    std::optional<QRect> m_clip;
    std::optional<QRect> m_keptClip;
    std::optional<Pen> m_keptPen;
};

}  // namespace ostravel
