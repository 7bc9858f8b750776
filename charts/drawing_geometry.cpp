#include "charts/drawing_geometry.h"

#include <algorithm>
#include <cmath>

#include "runtime/vbmath.h"

namespace ostravel {

QLineF extendedLine(QPointF a, QPointF b, std::int16_t extend, int width) {
    if (b.x() < a.x())
        std::swap(a, b);
    if (a.x() == b.x())
        return QLineF(a, b);
    const double slope = (b.y() - a.y()) / (b.x() - a.x());
    if (extend & kExtendLeft)
        a = QPointF(0, a.y() - slope * a.x());
    if (extend & kExtendRight)
        b = QPointF(width, b.y() + slope * (width - b.x()));
    return QLineF(a, b);
}

QPointF squareCorner(QPointF first, QPointF last) {
    const double side = std::abs(last.x() - first.x());
    return QPointF(last.x(), last.y() < first.y() ? first.y() - side : first.y() + side);
}

QRectF ellipseBox(QPointF first, QPointF last, bool useOrigin, bool circle) {
    const double dx = std::abs(last.x() - first.x());
    const double dy = std::abs(last.y() - first.y());
    if (!useOrigin) {
        const QPointF centre = (first + last) / 2;
        const double rx = dx / 2;
        const double ry = circle ? rx : dy / 2;
        return QRectF(centre.x() - rx, centre.y() - ry, 2 * rx, 2 * ry);
    }
    // Radii in the ratio dy : dx whose rim meets the point: both are the offsets times root 2.
    const double rx = circle ? std::hypot(dx, dy) : dx * std::sqrt(2.0);
    const double ry = circle ? rx : dy * std::sqrt(2.0);
    return QRectF(first.x() - rx, first.y() - ry, 2 * rx, 2 * ry);
}

FibLevels fibLevels(QPointF a, QPointF b) {
    const double top = std::min(a.y(), b.y());
    const double d = std::abs(b.y() - a.y());
    FibLevels levels;
    levels.left = toLongInteger(std::min(a.x(), b.x()));
    const float factors[] = {0.0f, 0.618f, 0.5f, 0.382f, 1.0f};
    for (std::size_t i = 0; i < levels.y.size(); ++i) levels.y[i] = top + static_cast<double>(factors[i]) * d;
    return levels;
}

double fibSlope(QPointF a, QPointF b) {
    return std::atan(divide(b.y() - a.y(), b.x() - a.x())) * 180 / 3.141592654;
}

QLineF shiftedDiagonal(QPointF a, QPointF b, double slope) {
    const QPointF shift(std::sin(slope), std::cos(slope));
    return QLineF(a + shift, b + shift);
}

QRect paneBand(double y, float split1, float split2, int width, int height) {
    const auto row = [](double value) { return static_cast<int>(std::nearbyint(value)); };
    const auto band = [&](int top, int bottom) {
        return QRect(QPoint(0, top), QPoint(width - 1, std::max(top, bottom)));
    };
    if (y < split1)
        return band(0, row(split1));
    if (y > split2)
        return band(row(split2) + 2, height - 1);
    return band(row(split1) + 2, row(split2));
}

QPoint confinedPoint(const QRect& band, QPoint p) {
    return QPoint(std::clamp(p.x(), band.left(), band.right()), std::clamp(p.y(), band.top(), band.bottom()));
}

}  // namespace ostravel
