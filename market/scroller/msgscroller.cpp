#include "market/scroller/msgscroller.h"

#include <algorithm>

namespace ostravel {

namespace {

// The period that ScrollPos runs round: into (0, period] from above, into [0, period) from below.
std::int32_t intoPeriod(std::int64_t pos, std::int64_t period) {
    if (period <= 0)
        return 0;
    if (pos > period)
        pos -= ((pos - 1) / period) * period;
    if (pos < 0)
        pos += ((-pos + period - 1) / period) * period;
    return std::int32_t(pos);
}

}  // namespace

void MsgScroller::setClient(int width, int height) {
    m_width = width;
    m_height = height;
    changed();
}

void MsgScroller::setShown(bool shown) {
    m_shown = shown;
    changed();
}

void MsgScroller::setScrollSpeed(int pixels) {
    if (pixels >= 1)
        m_scrollSpeed = pixels;
}

void MsgScroller::setSeperator(const QString& text) {
    m_seperator = text;
    Layout();
    Redraw();
}

void MsgScroller::setAutoScroll(bool on) {
    m_autoScroll = on;
    changed();
}

void MsgScroller::setScroll(bool on) {
    m_scroll = on;
    if (!on)
        timerEnabled = false;
    changed();
}

void MsgScroller::tmrScroll_Timer() {
    ScrollPos += m_scrollSpeed;
    Redraw();
}

bool MsgScroller::ToggleScroll() {
    if (!m_scroll && Scrolling)
        timerEnabled = !timerEnabled;
    return timerEnabled;
}

bool MsgScroller::AddItem(const QString& text, const QString& key, int index) {
    if (text.trimmed().isEmpty())
        return true;
    cMessageData item;
    item.Text = text;
    if (!key.trimmed().isEmpty()) {
        if (FindKey(key) != 0)
            return false;
        item.Key = key;
    }
    const auto at = valid(index) ? m_items.begin() + (index - 1) : m_items.end();
    m_items.insert(at, std::move(item));
    changed();
    return true;
}

int MsgScroller::FindItem(const QString& text, int from) const {
    const QString wanted = text.toUpper();
    for (int i = std::max(from, 1); i <= ListCount(); ++i)
        if (m_items[std::size_t(i - 1)].Text.toUpper() == wanted)
            return i;
    return 0;
}

int MsgScroller::FindKey(const QString& key) const {
    const QString wanted = key.toUpper();
    for (int i = 1; i <= ListCount(); ++i)
        if (!m_items[std::size_t(i - 1)].Key.isEmpty() && m_items[std::size_t(i - 1)].Key.toUpper() == wanted)
            return i;
    return 0;
}

void MsgScroller::RemoveItem(int index) {
    if (!valid(index))
        return;
    m_items.erase(m_items.begin() + (index - 1));
    changed();
}

void MsgScroller::Clear() {
    m_items.clear();
    changed();
}

QVariant MsgScroller::ItemData(int index) const {
    return valid(index) ? item(index).ItemData : QVariant();
}

void MsgScroller::setItemData(int index, const QVariant& value) {
    if (valid(index))
        m_items[std::size_t(index - 1)].ItemData = value;
}

std::int64_t MsgScroller::ItemColor(int index) const {
    return valid(index) ? item(index).Colour : -1;
}

void MsgScroller::setItemColor(int index, std::int64_t colour) {
    if (!valid(index))
        return;
    m_items[std::size_t(index - 1)].Colour = colour;
    Redraw();
}

QString MsgScroller::List(int index) const {
    return valid(index) ? item(index).Text : QString();
}

void MsgScroller::setList(int index, const QString& text) {
    if (!valid(index))
        return;
    m_items[std::size_t(index - 1)].Text = text;
    changed();
}

void MsgScroller::changed() {
    Layout();
    ScrollTest();
}

void MsgScroller::Layout() {
    if (m_seperator.isEmpty())
        SeparatorText = QStringLiteral(" ");
    else if (!m_seperator.trimmed().isEmpty())
        SeparatorText = QLatin1Char(' ') + m_seperator + QLatin1Char(' ');
    else
        SeparatorText = m_seperator;
    SeparatorWidth = width(SeparatorText);
    TotalWidth = 0;
    if (m_items.empty()) {
        TotalWidth = width(kPlaceholder);
        return;
    }
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        cMessageData& item = m_items[i];
        item.Width = width(item.Text);
        item.Left = TotalWidth;
        TotalWidth += item.Width + (i + 1 < m_items.size() ? SeparatorWidth : 0);
        item.Right = TotalWidth;
    }
}

void MsgScroller::ScrollTest() {
    if (Panning)
        return;
    if (m_shown && !m_items.empty()) {
        if (m_scroll)
            Scrolling = true;
        else if (m_autoScroll)
            Scrolling = m_width < TotalWidth;
        else
            Scrolling = false;
    }
    if (Scrolling) {
        timerEnabled = true;
        return;
    }
    timerEnabled = false;
    ScrollPos = 0;
    Redraw();
}

const std::vector<MsgScroller::TextRun>& MsgScroller::Redraw() {
    const int period = TotalWidth + (Scrolling ? SeparatorWidth : 0);
    ScrollPos = intoPeriod(ScrollPos, period);
    HotSpots.clear();
    m_runs.clear();
    TextTop = 0;
    TextBottom = m_height;
    m_band = (m_height - textHeight) / 2;
    if (m_band >= 1) {
        TextTop = m_band + 1;
        TextBottom = m_band + textHeight - 1;
    } else {
        m_band = 0;
    }

    if (m_items.empty()) {
        const QString piece = kPlaceholder + SeparatorText;
        const int step = width(piece);
        for (int x = -ScrollPos; x < m_width && step > 0; x += step) m_runs.push_back({x, piece, ForeColor});
        return m_runs;
    }

    std::size_t i = 0;
    while (i < m_items.size() && m_items[i].Right <= ScrollPos) ++i;
    int x = 0;
    if (i < m_items.size()) {
        x = m_items[i].Left - ScrollPos;
    } else {  // ScrollPos at the period's end is its start
        i = 0;
        x = period - ScrollPos;
    }
    if (period <= 0)
        return m_runs;
    while (x < m_width) {
        const cMessageData& item = m_items[i];
        const std::uint32_t colour = item.Colour == -1 ? ForeColor : std::uint32_t(item.Colour);
        const int right = x + item.Width;
        if (HotSpots.size() < std::size_t(kMaxHotSpots))
            HotSpots.push_back({int(i) + 1, x, right});
        m_runs.push_back({x, item.Text, colour});
        x = right;
        const bool last = i + 1 == m_items.size();
        if (!Panning && !Scrolling && last)
            break;
        m_runs.push_back({x, SeparatorText, ForeColor});
        x += SeparatorWidth;
        i = last ? 0 : i + 1;
    }
    return m_runs;
}

int MsgScroller::HitTest(int x, int y) const {
    if (HotSpots.empty() || y < TextTop || y > TextBottom)
        return -1;
    for (const HotSpot& spot : HotSpots)
        if (x >= spot.left && x <= spot.right)
            return spot.item;
    return -1;
}

void MsgScroller::MouseDown(bool leftButton, int x) {
    if (!leftButton || !AllowPan || !Scrolling)
        return;
    Panning = true;
    PanStartX = x;
    TimerWasOn = timerEnabled;
    timerEnabled = false;
    PanStartPos = ScrollPos;
    customCursor = true;
}

int MsgScroller::MouseMove(int x, int y) {
    if (Panning) {
        ScrollPos = PanStartPos - (x - PanStartX);
        Redraw();
    }
    HotIndex = HitTest(x, y);
    return HotIndex;
}

void MsgScroller::MouseUp(int x, int y) {
    if (Panning) {
        Panning = false;
        timerEnabled = TimerWasOn;
        customCursor = false;
        HotIndex = HitTest(x, y);
    }
}

}  // namespace ostravel
