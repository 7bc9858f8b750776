#include "market/scroller/ui/msgscroller_view.h"

#include <QMouseEvent>
#include <QPainter>

#include "market/scroller/msgscroller.h"
#include "widgets/flexgrid.h"

namespace ostravel {

MsgScrollerView::MsgScrollerView(MsgScroller& ring, QWidget* parent) : QWidget(parent), m_ring(ring) {
    setObjectName(QStringLiteral("MsgScroller1"));
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_tmrScroll.setObjectName(QStringLiteral("tmrScroll"));
    connect(&m_tmrScroll, &QTimer::timeout, this, [this] {
        m_ring.tmrScroll_Timer();
        update();
    });
    sync();
}

void MsgScrollerView::sync() {
    const QFontMetrics metrics(font());
    m_ring.measure = [metrics](const QString& text) { return metrics.horizontalAdvance(text); };
    m_ring.textHeight = metrics.height();
    m_ring.setClient(width(), height());
    syncTimer();
    update();
}

void MsgScrollerView::syncTimer() {
    m_tmrScroll.setInterval(m_ring.ScrollInterval);
    const bool run = m_ring.timerEnabled && isVisible();
    if (run && !m_tmrScroll.isActive())
        m_tmrScroll.start();
    else if (!run)
        m_tmrScroll.stop();
    setCursor(m_ring.customCursor ? Qt::ClosedHandCursor : Qt::ArrowCursor);
}

QColor MsgScrollerView::colour(std::uint32_t value) const {
    if (value == kSystemButtonFace)
        return palette().color(QPalette::Button);
    if (value == kSystemButtonText)
        return palette().color(QPalette::ButtonText);
    return toQColor(value);
}

void MsgScrollerView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor back = colour(m_ring.BackColor);
    painter.fillRect(rect(), back);
    painter.setBackgroundMode(Qt::OpaqueMode);
    painter.setBackground(back);
    const int top = m_ring.bandHeight();
    const int band = m_ring.textHeight > 0 && top > 0 ? m_ring.textHeight : height();
    for (const MsgScroller::TextRun& run : m_ring.Redraw()) {
        painter.setPen(colour(run.colour));
        painter.drawText(QRect(run.x, top, m_ring.measure(run.text) + 1, band), Qt::AlignLeft | Qt::AlignVCenter,
                         run.text);
    }
    if (m_ring.BorderStyle == 1) {
        painter.setPen(palette().color(QPalette::Mid));
        painter.setBackgroundMode(Qt::TransparentMode);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void MsgScrollerView::resizeEvent(QResizeEvent*) {
    m_ring.setClient(width(), height());
    syncTimer();
}

void MsgScrollerView::showEvent(QShowEvent*) {
    m_ring.setShown(true);
    syncTimer();
}

void MsgScrollerView::hideEvent(QHideEvent*) {
    m_ring.setShown(false);
    m_tmrScroll.stop();
}

void MsgScrollerView::mousePressEvent(QMouseEvent* event) {
    m_pressed = true;
    m_ring.MouseDown(event->button() == Qt::LeftButton, event->position().toPoint().x());
    syncTimer();
}

void MsgScrollerView::mouseMoveEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    Q_EMIT HotSpotMove(m_ring.MouseMove(at.x(), at.y()));
    if (m_ring.Panning)
        update();
}

void MsgScrollerView::mouseReleaseEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    const bool panned = m_ring.Panning && m_ring.PanStartX != at.x();
    m_ring.MouseUp(at.x(), at.y());
    syncTimer();
    // A press and release in one place is a click; a drag is a pan.
    if (m_pressed && !panned && event->button() == Qt::LeftButton) {
        m_ring.HotIndex = m_ring.HitTest(at.x(), at.y());
        if (const int index = m_ring.Click(); index >= 0)
            Q_EMIT HotSpotClick(index);
    }
    m_pressed = false;
}

QSize MsgScrollerView::sizeHint() const {
    return {400, fontMetrics().height() + 8};
}

}  // namespace ostravel
