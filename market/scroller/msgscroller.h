// MsgScroller without a window: a ring of coloured text items laid out along an unwound strip,
// the scroll test, the redraw as text runs with the hot spots of what it drew, the hit test and
// the panning. The widget measures, paints and forwards the mouse; every rule stands here.
#pragma once

#include <QHash>
#include <QString>
#include <QVariant>
#include <cstdint>
#include <functional>
#include <vector>

namespace ostravel {

// Colours with the high bit set are the system's: the widget translates them when it paints.
constexpr std::uint32_t kSystemButtonFace = 0x8000000F;
constexpr std::uint32_t kSystemButtonText = 0x80000012;

// One item of the ring.
struct cMessageData {
    QString Text;
    QString Key;
    std::int64_t Colour = -1;  // -1: the control's ForeColor
    QVariant ItemData;
    int Width = 0;
    int Left = 0;
    int Right = 0;  // Left + Width, and a separator's width unless it is the last item
};

class MsgScroller {
public:
    static constexpr int kMaxHotSpots = 1024;
    static inline const QString kPlaceholder = QStringLiteral("Message Scroller");

    struct HotSpot {
        int item;  // from 1
        int left;
        int right;
    };
    // One piece of text the redraw puts on the strip, at x, in the text band.
    struct TextRun {
        int x;
        QString text;
        std::uint32_t colour;
    };

    // The text measure of the control's font: width of a text, and height of "X".
    std::function<int(const QString&)> measure;
    int textHeight = 0;

    // The client area and whether the control is shown.
    void setClient(int width, int height);
    int clientWidth() const { return m_width; }
    int clientHeight() const { return m_height; }
    void setShown(bool shown);

    // Properties, with their defaults.
    int BorderStyle = 1;
    std::uint32_t BackColor = kSystemButtonFace;
    std::uint32_t ForeColor = kSystemButtonText;
    int ScrollInterval = 120;  // milliseconds of tmrScroll
    bool Enabled = false;
    bool AllowPan = true;
    int ScrollSpeed() const { return m_scrollSpeed; }
    void setScrollSpeed(int pixels);  // below 1 is ignored
    const QString& Seperator() const { return m_seperator; }
    void setSeperator(const QString& text);
    bool AutoScroll() const { return m_autoScroll; }
    void setAutoScroll(bool on);
    bool Scroll() const { return m_scroll; }
    void setScroll(bool on);

    // The timer tmrScroll: the widget runs it while this is on.
    bool timerEnabled = false;
    void tmrScroll_Timer();

    void Refresh() { Redraw(); }
    // Only while scrolling by itself and not forced: the timer stops or goes on; its new state.
    bool ToggleScroll();
    // Indexes run from 1. An empty text is passed over; index above 0 puts the item before it.
    // A key that another item has is refused, as the collection refuses it: false.
    bool AddItem(const QString& text, const QString& key = {}, int index = 0);
    int FindItem(const QString& text, int from = 1) const;
    int FindKey(const QString& key) const;
    void RemoveItem(int index);
    int ListCount() const { return int(m_items.size()); }
    void Clear();
    QVariant ItemData(int index) const;
    void setItemData(int index, const QVariant& value);
    std::int64_t ItemColor(int index) const;
    void setItemColor(int index, std::int64_t colour);
    QString List(int index) const;
    void setList(int index, const QString& text);
    const cMessageData& item(int index) const { return m_items.at(std::size_t(index - 1)); }

    // The redraw: ScrollPos brought into the period, the runs of text to draw and the hot spots.
    const std::vector<TextRun>& Redraw();
    const std::vector<TextRun>& runs() const { return m_runs; }
    // The rows above and below the text band, filled with BackColor; 0 when there is no band.
    int bandHeight() const { return m_band; }

    // The item under a point, from 1, or -1.
    int HitTest(int x, int y) const;
    // Mouse events; MouseMove returns the item under the mouse, Click the item to raise
    // HotSpotClick with, or -1.
    void MouseDown(bool leftButton, int x);
    int MouseMove(int x, int y);
    void MouseUp(int x, int y);
    int Click() const { return HotIndex >= 0 ? HotIndex : -1; }

    // Working state, open for the widget and the tests.
    std::int32_t ScrollPos = 0;
    int TotalWidth = 0;
    int SeparatorWidth = 0;
    QString SeparatorText;
    bool Scrolling = false;
    bool Panning = false;
    int PanStartX = 0;
    int PanStartPos = 0;
    bool TimerWasOn = false;
    int HotIndex = -1;
    int TextTop = 0;
    int TextBottom = 0;
    std::vector<HotSpot> HotSpots;
    bool customCursor = false;

private:
    void Layout();
    void ScrollTest();
    int width(const QString& text) const { return measure ? measure(text) : 0; }
    bool valid(int index) const { return index >= 1 && index <= ListCount(); }
    void changed();

    std::vector<cMessageData> m_items;
    std::vector<TextRun> m_runs;
    int m_width = 0;
    int m_height = 0;
    int m_band = 0;
    bool m_shown = true;
    int m_scrollSpeed = 3;
    QString m_seperator = QStringLiteral("·");
    bool m_autoScroll = false;
    bool m_scroll = false;
};

}  // namespace ostravel
