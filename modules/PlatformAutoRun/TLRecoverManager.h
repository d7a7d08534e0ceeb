#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

class TabRecoverItem;

template <class T>
class ProcessWide;

/// Records the open tabs while the client runs, and offers them at the log-in after a run that did not end in
/// order. The record is one of the signed-in user's settings. Lives until the module is unloaded. GUI thread.
class TLRecoverManager final : public QObject
{
    Q_OBJECT

public:
    /// Made on first use, on the GUI thread.
    static TLRecoverManager* Instance();
    static void ReleaseInstance();

    /// Records the open tabs in their order, without the home tab and tabs that have no data or no router
    /// URL. Returns before the record is on disk. Empties the record when no tab is left and a user is signed
    /// in. Without a browser it knows nothing, and leaves the record as it is.
    void SaveTabs();
    /// Called once after a log-in by hand. Empties the record and asks the user whether to reopen its tabs,
    /// in a modal dialog with an event loop of its own. Does not ask when the record has no tabs, is
    /// unreadable or belongs to another belong type. True: the tabs were reopened, and nothing else is to
    /// open by itself.
    [[nodiscard]] bool Recover();
    /// Empties the record if a user is signed in. Returns before that is on disk.
    void Clear();
    /// Empties the record, even if nobody is signed in. Returns when that is on disk.
    void ClearSync();
    /// Reopens one tab. An app's tab gets its saved title and icon and loads when the user first selects it.
    void OpenItem(const TabRecoverItem& item);
    /// Stores `text` as the record, unchanged.
    void SetValue(const QString& text);

private:
    friend class ProcessWide<TLRecoverManager>;

    TLRecoverManager() = default;
    ~TLRecoverManager() override = default;

    Q_DISABLE_COPY(TLRecoverManager)
};
