#pragma once

#include <QtCore/QPoint>
#include <QtCore/QRect>
#include <QtCore/QSize>

/// Where the parts of the tab strip stand [px], at the present scale. The pinned tab stands at the left; the
/// others, counted from 1, share the room of the viewport and scroll once they are as narrow as they may get.
class TabStripLayout final
{
public:
    static constexpr int Height = 44;     // of the strip [px, unscaled]
    static constexpr int ButtonSize = 28; // of the buttons beside the tabs [px, unscaled]

    /// Nothing is arranged yet.
    TabStripLayout() = default;
    /// `tabs` does not count the pinned one, which is `pinnedWidth` wide.
    TabStripLayout(const QSize& strip, int pinnedWidth, int tabs);

    bool IsEmpty() const noexcept;
    QRect GetPinned() const noexcept;
    QRect GetViewport() const noexcept;
    QPoint GetAddButton() const noexcept;
    QPoint GetListButton() const noexcept;
    /// The buttons that scroll; seen when the tabs do not fit.
    QPoint GetLeftButton() const noexcept;
    QPoint GetRightButton() const noexcept;
    bool DoTabsScroll() const noexcept;

    /// Of each tab that scrolls, gap included.
    int GetTabWidth() const noexcept;
    /// How far the tabs can be scrolled.
    int GetScrollRange() const;
    /// The offset nearest to this one at which the tab is in sight.
    int GetOffsetFor(int index, int offset) const;
    int GetFirstSeen(int offset) const;
    /// Below the first when there are none.
    int GetLastSeen(int offset) const;
    /// In the viewport.
    QRect GetTab(int index, int offset) const;
    /// In the viewport, for a tab that is dragged there.
    QRect GetDraggedTab(int x) const;
    /// Whether a tab that is dragged there scrolls the others.
    bool IsBeyondEdge(int x) const;
    /// The place whose middle a tab that is dragged there covers.
    int GetPlaceAt(int x, int offset) const;

private:
    int GetFarthest() const;

    QRect m_pinned;
    QRect m_viewport;
    QPoint m_left;
    QPoint m_right;
    QPoint m_add;
    QPoint m_list;
    int m_tabs = 0;
    int m_tabWidth = 0;
    bool m_scrolls = false;
};
