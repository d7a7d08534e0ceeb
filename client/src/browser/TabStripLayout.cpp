#include "TabStripLayout.h"

#include "look/Scaled.h"

namespace {

constexpr int TabTop = 6;      // above the tabs [px]
constexpr int TabHeight = 38;  // [px]
constexpr int Gap = 2;         // between tabs [px]
constexpr int Edge = 8;        // at both ends of the strip [px]
constexpr int Narrowest = 148; // [px]
constexpr int Widest = 232;    // [px]
constexpr int ButtonGap = 4;   // around the buttons [px]

} // namespace

TabStripLayout::TabStripLayout(const QSize& strip, int pinnedWidth, int tabs)
    : m_pinned(Scaled(Edge), Scaled(TabTop), pinnedWidth, Scaled(TabHeight)), m_tabs(tabs)
{
    const int button = Scaled(ButtonSize);
    const int buttonTop = Scaled(TabTop) + (Scaled(TabHeight) - button) / 2;
    const int start = Scaled(Edge) + pinnedWidth + Scaled(Gap);
    const int end = strip.width() - Scaled(Edge) - button - Scaled(ButtonGap); // then the list button
    const int room = end - start - button - 2 * Scaled(ButtonGap);             // then the "+"
    const int narrowest = Scaled(Narrowest) + Scaled(Gap);
    const int widest = Scaled(Widest) + Scaled(Gap);
    m_list = QPoint(strip.width() - Scaled(Edge) - button, buttonTop);
    m_scrolls = tabs * narrowest > room;
    if (m_scrolls) {
        m_tabWidth = narrowest;
        m_left = QPoint(start, buttonTop);
        m_add = QPoint(end - button, buttonTop);
        m_right = QPoint(end - 2 * button, buttonTop);
        m_viewport = QRect(start + button + Scaled(Gap), 0, qMax(0, room - 2 * button), strip.height());
    } else {
        m_tabWidth = tabs == 0 ? widest : qMin(widest, room / tabs);
        m_viewport = QRect(start, 0, tabs * m_tabWidth, strip.height());
        m_add = QPoint(start + tabs * m_tabWidth + Scaled(ButtonGap), buttonTop);
    }
}

bool TabStripLayout::IsEmpty() const noexcept
{
    return m_tabWidth == 0;
}

QRect TabStripLayout::GetPinned() const noexcept
{
    return m_pinned;
}

QRect TabStripLayout::GetViewport() const noexcept
{
    return m_viewport;
}

QPoint TabStripLayout::GetAddButton() const noexcept
{
    return m_add;
}

QPoint TabStripLayout::GetListButton() const noexcept
{
    return m_list;
}

QPoint TabStripLayout::GetLeftButton() const noexcept
{
    return m_left;
}

QPoint TabStripLayout::GetRightButton() const noexcept
{
    return m_right;
}

bool TabStripLayout::DoTabsScroll() const noexcept
{
    return m_scrolls;
}

int TabStripLayout::GetTabWidth() const noexcept
{
    return m_tabWidth;
}

int TabStripLayout::GetScrollRange() const
{
    return qMax(0, m_tabs * m_tabWidth - m_viewport.width());
}

int TabStripLayout::GetOffsetFor(int index, int offset) const
{
    const int left = (index - 1) * m_tabWidth;
    if (left < offset) {
        return left;
    }
    return qMax(offset, left + m_tabWidth - m_viewport.width());
}

int TabStripLayout::GetFirstSeen(int offset) const
{
    return qMax(1, 1 + offset / m_tabWidth);
}

int TabStripLayout::GetLastSeen(int offset) const
{
    return qMin(m_tabs, 1 + (offset + m_viewport.width() - 1) / m_tabWidth);
}

QRect TabStripLayout::GetTab(int index, int offset) const
{
    return {(index - 1) * m_tabWidth - offset, Scaled(TabTop), m_tabWidth - Scaled(Gap), Scaled(TabHeight)};
}

QRect TabStripLayout::GetDraggedTab(int x) const
{
    return {qBound(0, x, GetFarthest()), Scaled(TabTop), m_tabWidth - Scaled(Gap), Scaled(TabHeight)};
}

bool TabStripLayout::IsBeyondEdge(int x) const
{
    return GetScrollRange() > 0 && (x < 0 || x > GetFarthest());
}

int TabStripLayout::GetPlaceAt(int x, int offset) const
{
    const int shown = qBound(0, x, GetFarthest());
    return qBound(1, 1 + (shown + offset + m_tabWidth / 2) / m_tabWidth, m_tabs);
}

int TabStripLayout::GetFarthest() const
{
    return qMax(0, m_viewport.width() - (m_tabWidth - Scaled(Gap)));
}
