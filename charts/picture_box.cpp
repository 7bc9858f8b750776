#include "charts/picture_box.h"

#include <cmath>

namespace ostravel {

namespace {

// Pictures measure fonts as the program's screens did, 96 dots to the inch.
constexpr int kDotsPerMetre = 3780;
constexpr double kUsualPoints = 8.25;

int pixel(double coordinate) {
    return static_cast<int>(std::nearbyint(coordinate));
}

QRect pixelBox(double x1, double y1, double x2, double y2) {
    return QRect(QPoint(pixel(x1), pixel(y1)), QPoint(pixel(x2), pixel(y2))).normalized();
}

Qt::PenStyle penStyle(int drawStyle, int width) {
    // A wide pen draws solid whatever its style, as the system's pens do.
    constexpr Qt::PenStyle kStyles[] = {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine, Qt::DashDotDotLine};
    if (width > 1 || drawStyle < kSolid || drawStyle > kDashDotDot)
        return Qt::SolidLine;
    return kStyles[drawStyle];
}

Qt::BrushStyle brushStyle(int fillStyle) {
    constexpr Qt::BrushStyle kFills[] = {Qt::SolidPattern, Qt::NoBrush,      Qt::HorPattern,   Qt::VerPattern,
                                         Qt::BDiagPattern, Qt::FDiagPattern, Qt::CrossPattern, Qt::DiagCrossPattern};
    return fillStyle >= kFillSolid && fillStyle <= kFillDiagonalCross ? kFills[fillStyle] : Qt::NoBrush;
}

}  // namespace

QColor programColour(std::int32_t colour) {
    const auto c = static_cast<std::uint32_t>(colour);
    return QColor(static_cast<int>(c & 0xFF), static_cast<int>((c >> 8) & 0xFF), static_cast<int>((c >> 16) & 0xFF));
}

QPainter::CompositionMode rasterMode(int drawMode) {
    switch (drawMode) {
        case 1:
            return QPainter::RasterOp_ClearDestination;  // black
        case 2:
            return QPainter::RasterOp_NotSourceAndNotDestination;  // not (pen or screen)
        case 3:
            return QPainter::RasterOp_NotSourceAndDestination;  // screen and not pen
        case 4:
            return QPainter::RasterOp_NotSource;  // not pen
        case 5:
            return QPainter::RasterOp_SourceAndNotDestination;  // pen and not screen
        case 6:
            return QPainter::RasterOp_NotDestination;  // invert
        case 7:
            return QPainter::RasterOp_SourceXorDestination;
        case 8:
            return QPainter::RasterOp_NotSourceOrNotDestination;  // not (pen and screen)
        case 9:
            return QPainter::RasterOp_SourceAndDestination;
        case 10:
            return QPainter::RasterOp_NotSourceXorDestination;  // not (pen xor screen)
        case 11:
            return QPainter::CompositionMode_Destination;  // no operation
        case 12:
            return QPainter::RasterOp_NotSourceOrDestination;  // screen or not pen
        case 14:
            return QPainter::RasterOp_SourceOrNotDestination;  // pen or not screen
        case 15:
            return QPainter::RasterOp_SourceOrDestination;
        case 16:
            return QPainter::RasterOp_SetDestination;  // white
        default:
            return QPainter::CompositionMode_SourceOver;  // 13, the pen as it is
    }
}

PictureBox::PictureBox() {
    resize(1, 1);
    setFont(QString(), kUsualPoints, false, false);
}

void PictureBox::resize(int width, int height) {
    m_image = QImage(std::max(width, 1), std::max(height, 1), QImage::Format_RGB32);
    m_image.setDotsPerMeterX(kDotsPerMetre);
    m_image.setDotsPerMeterY(kDotsPerMetre);
    m_image.fill(programColour(BackColor));
}

void PictureBox::setFont(const QString& name, double points, bool bold, bool italic) {
    m_font = QFont(name);
    m_font.setPointSizeF(points > 0 ? points : kUsualPoints);
    m_font.setBold(bold);
    m_font.setItalic(italic);
    m_metrics.emplace(m_font, &m_image);
}

double PictureBox::TextWidth(const QString& text) const {
    return m_metrics->horizontalAdvance(text);
}

double PictureBox::TextHeight(const QString&) const {
    return m_metrics->height();
}

void PictureBox::begin() {
    m_painter.emplace(&m_image);
    m_painter->setFont(m_font);
}

void PictureBox::end() {
    m_painter.reset();
}

QPainter& PictureBox::painter() {
    return *m_painter;
}

void PictureBox::Cls() {
    m_painter->setCompositionMode(QPainter::CompositionMode_Source);
    m_painter->fillRect(m_image.rect(), programColour(BackColor));
}

void PictureBox::Print(double x, double y, const QString& text) {
    m_painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
    m_painter->setPen(programColour(ForeColor));
    m_painter->drawText(QPointF(pixel(x), pixel(y) + m_metrics->ascent()), text);
}

void PictureBox::setPen(std::int32_t colour) {
    QPen pen(programColour(colour), DrawWidth, penStyle(DrawStyle, DrawWidth));
    pen.setCapStyle(Qt::FlatCap);
    m_painter->setPen(pen);
    m_painter->setCompositionMode(rasterMode(DrawMode));
}

void PictureBox::setFill() {
    m_painter->setBrush(QBrush(programColour(FillColor), brushStyle(FillStyle)));
}

void PictureBox::Line(double x1, double y1, double x2, double y2, std::int32_t colour) {
    setPen(colour);
    m_painter->drawLine(QPoint(pixel(x1), pixel(y1)), QPoint(pixel(x2), pixel(y2)));
}

void PictureBox::Box(double x1, double y1, double x2, double y2, std::int32_t colour) {
    m_painter->setCompositionMode(rasterMode(DrawMode));
    m_painter->fillRect(pixelBox(x1, y1, x2, y2), programColour(colour));
}

void PictureBox::Rectangle(double x1, double y1, double x2, double y2, std::int32_t colour) {
    setPen(colour);
    setFill();
    m_painter->drawRect(pixelBox(x1, y1, x2, y2));
}

void PictureBox::Ellipse(double x1, double y1, double x2, double y2, std::int32_t colour) {
    setPen(colour);
    setFill();
    m_painter->drawEllipse(QRectF(QPointF(x1, y1), QPointF(x2, y2)).normalized());
}

}  // namespace ostravel
