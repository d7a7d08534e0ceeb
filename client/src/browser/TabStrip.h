#pragma once

#include "TabDrag.h"
#include "TabStripItem.h"
#include "TabStripLayout.h"

#include "base/IDpiAdapter.h"

#include <QtCore/QBasicTimer>
#include <QtCore/QVector>
#include <QtWidgets/QWidget>

class QToolButton;
class TabButton;

/// The row of tabs. Tab 0 is pinned at the left, outside of what scrolls: it cannot be closed, moved or
/// overtaken. The others share the room, and scroll once they are as narrow as they may get. Only the
/// tabs in sight have widgets, so a thousand cost no more than a screenful.
///
/// Shows what it is told and decides nothing: what the user does comes out as signals.
class TabStrip final : public QWidget, public IDpiAdapter
{
    Q_OBJECT

public:
    explicit TabStrip(QWidget* parent = nullptr);
    ~TabStrip() override;

    int GetCount() const noexcept;
    int GetCurrent() const noexcept;
    const TabStripItem& GetItem(int index) const;
    /// The widget that shows the tab now; null while it is scrolled out of sight.
    TabButton* GetButton(int index) const;

    /// The first tab inserted is the pinned one. The current tab stays the current one.
    void Insert(int index, const TabStripItem& item);
    void Remove(int index);
    void Move(int from, int to);
    void SetItem(int index, const TabStripItem& item);
    /// Makes the tab current and scrolls it into sight.
    void SetCurrent(int index);
    /// Scrolls the tab into sight.
    void Reveal(int index);
    /// The tabs in sight beside the pinned one; the last is below the first when there are none.
    int GetFirstSeen() const noexcept;
    int GetLastSeen() const noexcept;

    void AdjustForDpi() override;

Q_SIGNALS:
    void SigSelectRequested(int index);
    void SigCloseRequested(int index);
    /// Neither `from` nor `to` is 0.
    void SigMoveRequested(int from, int to);
    void SigNewTabRequested();
    /// Other tabs may have come into sight. Announced from the event loop.
    void SigSeenChanged();
    /// The user wants the list of all tabs, below `anchor`.
    void SigListRequested(QWidget* anchor);
    void SigContextMenuRequested(int index, const QPoint& globalPosition);

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    struct Entry
    {
        TabStripItem item;
        TabButton* button = nullptr; // while in sight
    };

    /// A spare one, or a new one.
    TabButton* ObtainButton();
    void ReleaseButton(Entry& entry);
    int IndexOf(const QObject* button) const;
    void ScrollTo(int offset);
    void Arrange();
    void ArrangeScrolled();
    bool IsLoadingSeen() const;
    void UpdateTicking();
    void Retranslate();
    bool HandleKey(int index, int key);
    void ConnectDrag();
    void DragTo(int x);

    QVector<Entry> m_entries;
    QVector<TabButton*> m_spare;
    TabStripLayout m_layout;
    int m_current = 0;
    int m_offset = 0; // how far the tabs are scrolled [px]
    int m_firstSeen = 1;
    int m_lastSeen = 0;
    int m_tick = 0;
    QBasicTimer m_ticking;
    QBasicTimer m_seenChange;

    QWidget* m_viewport;
    QToolButton* m_left;
    QToolButton* m_right;
    QToolButton* m_add;
    QToolButton* m_list;

    TabDrag m_drag;
    int m_dragX = 0; // left edge of the dragged tab in the viewport [px]
    QBasicTimer m_edgeScroll;
};
