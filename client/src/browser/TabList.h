#pragma once

#include "TabId.h"
#include "browser/TabRecord.h"

#include <QtCore/QObject>
#include <QtCore/QVector>

#include <optional>

/// The open tabs: their records, their order, and which one is current; and what was closed. Knows no
/// widgets. Tab 0 is the home tab: once inserted it stays, and nothing stands before it. GUI thread.
class TabList final : public QObject
{
    Q_OBJECT

public:
    static constexpr int MostClosed = 25; // that can come back

    /// A tab that was closed and can come back, and the place where it was.
    struct ClosedTab
    {
        TabRecord record;
        int index = -1;
    };

    explicit TabList(QObject* parent = nullptr);

    int GetCount() const noexcept;
    /// -1 while the list is empty.
    int GetCurrent() const noexcept;
    /// `NoTab` for an index out of range.
    TabId GetId(int index) const;
    /// -1 for a tab that is not in the list.
    int IndexOf(TabId id) const;
    const TabRecord& GetRecord(int index) const;
    /// All of them, in order. Shares its memory with the list until one of them changes.
    QVector<TabRecord> GetRecords() const;

    /// Inserts a tab before `index`, but never before the home tab; at the end for an index out of range. The
    /// first tab inserted is the home tab and becomes current. `id` is neither `NoTab` nor in the list.
    /// Returns where the tab stands.
    int Insert(TabId id, const TabRecord& record, int index);
    /// Where a tab that `opener` opens is to be inserted: beside it. Behind the others that it opened, so
    /// that they stand in the order of opening, unless the tab comes to the front.
    int FindPlaceBeside(TabId opener, bool inFront) const;
    /// Says which tab opened this one, for `FindPlaceBeside` and `Remove`. Forgotten when the user goes to
    /// another tab.
    void SetOpener(TabId id, TabId opener);

    /// Removes a tab other than the home tab. When it was current, its opener becomes current, or else the
    /// tab that takes its place. `reopenAs` is what `TakeClosed` brings back, unless there is nothing to open
    /// again.
    void Remove(int index, const TabRecord& reopenAs);
    /// Removes all but the home tab, and all that was closed. Announces only the current tab.
    void Clear();
    /// Moves a tab; false where a tab cannot move from or to.
    bool Move(int from, int to);
    /// False when the tab is current already, or there is none.
    bool Select(int index);
    /// Replaces what is known of the tab. Announced even when the record is the same: the picture that goes
    /// with it may be another one.
    void SetRecord(int index, const TabRecord& record);

    bool HasClosed() const noexcept;
    /// Removes the tab that was closed last from those that can come back.
    std::optional<ClosedTab> TakeClosed();

Q_SIGNALS:
    void SigInserted(int index);
    /// `index` is where the tab was.
    void SigRemoved(int index);
    void SigMoved(int from, int to);
    /// Address, title or icon.
    void SigChanged(int index);
    /// Another tab is current. A current tab that only moved is not announced.
    void SigCurrentChanged(int index);

private:
    struct Entry
    {
        TabId id = NoTab;
        TabId opener = NoTab;
    };

    void ForgetOpeners();

    // Apart from one another, so that all records can be given away at once.
    QVector<TabRecord> m_records;
    QVector<Entry> m_entries;
    QVector<ClosedTab> m_closed;
    int m_current = -1;
    bool m_hasOpeners = false;
};
