// A picture box as the chart draws on it, in pixels from the top left: an image with a pen
// (colour per call, style, width, raster mode), a fill (style and colour), a font and a fore
// colour for text, and the calls the chart needs: clear, measure text, print, a line, a filled
// box, and the drawing tools' outlined box and ellipse.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QString>
#include <cstdint>
#include <optional>

namespace ostravel {

// The program's colours: red in the low byte, blue in the high one.
QColor programColour(std::int32_t colour);

// The raster modes 1 to 16 of the pens (13 copies the pen) as QPainter's composition modes.
QPainter::CompositionMode rasterMode(int drawMode);

// Pen styles as the program numbers them: solid, dash, dot, dash-dot, dash-dot-dot.
constexpr int kSolid = 0;
constexpr int kDot = 2;
constexpr int kDashDotDot = 4;
constexpr int kCopyPen = 13;
// Fill styles, 0 to 7: solid, transparent, then the six hatches.
constexpr int kFillSolid = 0;
constexpr int kFillTransparent = 1;
constexpr int kFillDiagonalCross = 7;

class PictureBox {
public:
    PictureBox();

    void resize(int width, int height);
    int ScaleWidth() const { return m_image.width(); }
    int ScaleHeight() const { return m_image.height(); }

    std::int32_t BackColor = 0;
    std::int32_t ForeColor = 0;
    int DrawStyle = kSolid;
    int DrawWidth = 1;
    int DrawMode = kCopyPen;
    int FillStyle = kFillTransparent;
    std::int32_t FillColor = 0;

    // A size of 0 or below takes the usual 8 points.
    void setFont(const QString& name, double points, bool bold, bool italic);
    double TextWidth(const QString& text) const;
    double TextHeight(const QString& text) const;

    // Drawing happens between begin() and end(), on one painter.
    void begin();
    void end();
    void Cls();
    // The text with its top left at (x, y), in the fore colour.
    void Print(double x, double y, const QString& text);
    void Line(double x1, double y1, double x2, double y2, std::int32_t colour);
    // A box filled in the colour, both corners included.
    void Box(double x1, double y1, double x2, double y2, std::int32_t colour);
    // A box outlined by the pen in the colour and filled by the fill; the corners in any order.
    void Rectangle(double x1, double y1, double x2, double y2, std::int32_t colour);
    // The ellipse inside the box of the two corners, outlined and filled the same way.
    void Ellipse(double x1, double y1, double x2, double y2, std::int32_t colour);
    // Any drawing of our own (the rule's marks), in the same painter.
    QPainter& painter();

    const QImage& image() const { return m_image; }

private:
    void setPen(std::int32_t colour);
    void setFill();

    QImage m_image;
    QFont m_font;
    std::optional<QFontMetricsF> m_metrics;
    std::optional<QPainter> m_painter;
};

}  // namespace ostravel
