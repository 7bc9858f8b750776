// The MsgScroller control: paints what the ring's redraw gives, runs tmrScroll, and hands the
// mouse to the ring, raising HotSpotClick for a click on an item.
#pragma once

#include <QTimer>
#include <QWidget>

namespace ostravel {

class MsgScroller;

class MsgScrollerView : public QWidget {
    Q_OBJECT
public:
    explicit MsgScrollerView(MsgScroller& ring, QWidget* parent = nullptr);

    // Shows the ring's state again: measure, client size, timer and a repaint.
    void sync();

Q_SIGNALS:
    void HotSpotClick(int index);
    void HotSpotMove(int index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    QSize sizeHint() const override;

private:
    QColor colour(std::uint32_t value) const;
    void syncTimer();

    MsgScroller& m_ring;
    QTimer m_tmrScroll;
    bool m_pressed = false;
};

}  // namespace ostravel
