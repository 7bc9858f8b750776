// The drawing tools' geometry on the picture's pixels: a trend line carried to the edges, the
// corner that makes a square, the ellipse of two points, the Fibonacci retracement's lines and
// its rubber band's second diagonal, and the band of the pane the pointer is held in.
#pragma once

#include <QLineF>
#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QRectF>
#include <array>
#include <cstdint>

namespace ostravel {

// Extend's bits: 1 carries the line to the left edge (x 0), 2 to the right edge (x width), on
// its own slope, the two points taken in order of x. A vertical line stays as it is.
constexpr std::int16_t kExtendLeft = 1;
constexpr std::int16_t kExtendRight = 2;
QLineF extendedLine(QPointF a, QPointF b, std::int16_t extend, int width);

// The last corner of a perfect square: the height takes the width, in the direction the
// pointer went (down when it stayed level).
QPointF squareCorner(QPointF first, QPointF last);

// The box an ellipse fills. From the origin (the first point the centre) the rim runs through
// the last point, with the ratio of height to width of the two points; from opposite points the
// box is theirs. A perfect circle has the one radius: the distance to the rim point from the
// origin, half the width between opposite points.
QRectF ellipseBox(QPointF first, QPointF last, bool useOrigin, bool circle);

// FibRetrace's five lines: top (the smaller y), then top plus 0.618, 0.5, 0.382 and 1 times the
// height between the points, each factor a 32-bit float, from left (the smaller x, whole) on.
struct FibLevels {
    double left = 0;
    std::array<double, 5> y{};
};
FibLevels fibLevels(QPointF a, QPointF b);

// The slope of the diagonal in degrees, Atn(dy / dx) * 180 / 3.141592654; a vertical one
// raises the division's error.
double fibSlope(QPointF a, QPointF b);
// Kept: the rubber band's second diagonal is shifted at both ends by the sine (x) and the
// cosine (y) of the slope in degrees taken as radians, a pixel or less either way.
QLineF shiftedDiagonal(QPointF a, QPointF b, double slope);

// The band of the pane a click at y fell in, across the picture's width: above the first split
// the price pane, below the second the indicator pane, else the volume pane, each lower band
// beginning 2 pixels below its split.
QRect paneBand(double y, float split1, float split2, int width, int height);
// The point of the band nearest to p.
QPoint confinedPoint(const QRect& band, QPoint p);

}  // namespace ostravel
