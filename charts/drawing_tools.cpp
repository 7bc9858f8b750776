#include "charts/drawing_tools.h"

#include <QElapsedTimer>

#include "charts/chart_settings.h"
#include "charts/drawing_geometry.h"
#include "charts/picture_box.h"
#include "runtime/trap.h"

namespace ostravel {

namespace {

// The live picture changes no oftener than this, and the heartbeat comes this often.
constexpr double kLivePace = 0.1;
constexpr double kHeartbeat = 1.0;

double steadySeconds() {
    static QElapsedTimer clock;
    if (!clock.isValid())
        clock.start();
    return static_cast<double>(clock.nsecsElapsed()) / 1e9;
}

}  // namespace

CDrawingToolschart::CDrawingToolschart(bool& drawBusy, const ChartSettings& settings, const std::int32_t& scaleRight)
    : Timer(steadySeconds), m_drawBusy(drawBusy), m_settings(settings), m_scaleRight(scaleRight) {}

void CDrawingToolschart::TrendLine(bool Parallel) {
    QStringList prompts{QStringLiteral("Pick 1st Pt."), QStringLiteral("Pick Last Pt.")};
    if (Parallel)
        prompts << QStringLiteral("Place Parallel Line");
    begin(Tool::TrendLine, Parallel, prompts);
}

void CDrawingToolschart::RectAndSquareTool(bool Square) {
    begin(Tool::RectAndSquare, Square, {QStringLiteral("Pick 1st Corner Pt."), QStringLiteral("Pick Last Corner Pt.")});
}

void CDrawingToolschart::CircleElipseTool(bool Circle) {
    begin(Tool::CircleElipse, Circle, {QStringLiteral("Pick Origin"), QStringLiteral("Pick Last Pt.")});
}

void CDrawingToolschart::FibRetrace() {
    begin(Tool::FibRetrace, false, {QStringLiteral("Pick 1st Extreme."), QStringLiteral("Pick Opposite Extreme")});
}

void CDrawingToolschart::begin(Tool tool, bool variant, QStringList prompts) {
    if (Active())
        return;  // one tool at a time
    m_variant = variant;
    if (picBx)
        m_keptPen = Pen{picBx->DrawStyle, picBx->DrawWidth, picBx->DrawMode, picBx->FillStyle, picBx->FillColor};
    m_keptClip = m_clip;
    m_drawBusy = true;
    m_beat = Timer();
    m_tool = tool;
    m_clicks = static_cast<int>(prompts.size());
    m_taken = 0;
    m_prompts = std::move(prompts);
    m_band.clear();
    m_shown = QPointF(-1, -1);
    m_lastChange = m_beat - kLivePace - 1;
    if (DrawingStarted)
        DrawingStarted();
    DrawCancel = false;
    MouseClickNum = 0;
    if (DrawingInstructions)
        DrawingInstructions(m_prompts.front());
}

void CDrawingToolschart::end() {
    if (picBx && m_keptPen) {
        picBx->DrawStyle = m_keptPen->style;
        picBx->DrawWidth = m_keptPen->width;
        picBx->DrawMode = m_keptPen->mode;
        picBx->FillStyle = m_keptPen->fillStyle;
        picBx->FillColor = m_keptPen->fillColor;
    }
    m_band.clear();
    if (DrawingDone)
        DrawingDone();
    m_tool = Tool::None;
    m_drawBusy = false;
    m_clip = m_keptClip;
}

void CDrawingToolschart::DoLoop() {
    if (!Active())
        return;
    const double now = Timer();
    if (now - m_beat >= kHeartbeat) {
        m_beat = now;
        if (DrawLoopIsRunning)
            DrawLoopIsRunning();
    }
    if (DrawCancel) {
        end();
        return;
    }
    // Errors inside the loop go on at the next statement.
    while (m_taken < MouseClickNum) {
        ++m_taken;
        const QPointF at(Xcurr, Ycurr);
        if (m_taken < m_clicks) {
            passedOver([&] { click(at); });
            continue;
        }
        passedOver([&] { finish(at); });
        end();
        return;
    }
    const QPointF pointer(XcurrMov, YcurrMov);
    if (m_taken > 0 && pointer != m_shown && now - m_lastChange > kLivePace) {
        m_shown = pointer;
        m_lastChange = now;
        passedOver([&] { m_band = figure(pointer, true); });
    }
}

void CDrawingToolschart::click(QPointF at) {
    if (m_taken == 1) {
        m_first = at;
        if (picBx)
            m_clip = paneBand(at.y(), m_settings.WindowSplit1, m_settings.WindowSplit2, picBx->ScaleWidth(),
                              picBx->ScaleHeight());
    } else {
        // A parallel's line stands; its copy keeps the ends' offsets from the pointer.
        m_line = QLineF(m_first, at);
        m_offsets = QLineF(m_first - at, QPointF(0, 0));
    }
    if (DrawingInstructions && m_taken < m_prompts.size())
        DrawingInstructions(m_prompts.at(m_taken));
    m_shown = QPointF(-1, -1);
}

QLineF CDrawingToolschart::trend(QLineF line) const {
    return extendedLine(line.p1(), line.p2(), Extend, picBx ? picBx->ScaleWidth() : 0);
}

std::vector<Figure> CDrawingToolschart::figure(QPointF to, bool live) {
    std::vector<Figure> figures;
    switch (m_tool) {
        case Tool::TrendLine:
            if (m_variant && m_taken >= 2) {
                figures.push_back({Figure::Kind::Line, trend(m_line)});
                figures.push_back({Figure::Kind::Line, trend(QLineF(to + m_offsets.p1(), to + m_offsets.p2()))});
            } else {
                figures.push_back({Figure::Kind::Line, trend(QLineF(m_first, to))});
            }
            break;
        case Tool::RectAndSquare:
            figures.push_back({Figure::Kind::Box, QLineF(m_first, m_variant ? squareCorner(m_first, to) : to)});
            break;
        case Tool::CircleElipse: {
            const QRectF box = ellipseBox(m_first, to, UseOrigin, m_variant);
            figures.push_back({Figure::Kind::Ellipse, QLineF(box.topLeft(), box.bottomRight())});
            break;
        }
        case Tool::FibRetrace: {
            figures.push_back({Figure::Kind::Line, QLineF(m_first, to)});
            const FibLevels levels = fibLevels(m_first, to);
            for (const double y : levels.y)
                figures.push_back({Figure::Kind::Line, QLineF(levels.left, y, m_scaleRight, y)});
            if (live) {
                // A vertical diagonal has no slope: the one before stands.
                passedOver([&] { m_slope = fibSlope(m_first, to); });
                figures.push_back({Figure::Kind::Line, shiftedDiagonal(m_first, to, m_slope)});
            }
            break;
        }
        case Tool::None:
            break;
    }
    return figures;
}

void CDrawingToolschart::finish(QPointF at) {
    const std::vector<Figure> figures = figure(at, false);
    if (!picBx)
        return;
    PictureBox& box = *picBx;
    box.DrawStyle = ToolStyle;
    box.DrawWidth = ToolWidth;
    box.DrawMode = ToolMode;
    box.FillStyle = ToolFillStyle;
    box.FillColor = ToolFillColor;
    box.begin();
    for (const Figure& f : figures) {
        const QLineF& p = f.points;
        switch (f.kind) {
            case Figure::Kind::Line:
                box.Line(p.x1(), p.y1(), p.x2(), p.y2(), ToolColor);
                break;
            case Figure::Kind::Box:
                box.Rectangle(p.x1(), p.y1(), p.x2(), p.y2(), ToolColor);
                break;
            case Figure::Kind::Ellipse:
                box.Ellipse(p.x1(), p.y1(), p.x2(), p.y2(), ToolColor);
                break;
        }
    }
    box.end();
    if (picBxV)
        *picBxV = box.image();
}

}  // namespace ostravel
