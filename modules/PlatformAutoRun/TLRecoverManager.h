#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

class TabRecoverItem;

template <class T>
class ProcessWide;

/// Keeps the open tabs on record while the client runs, and offers them at the log-in that follows a run
/// which did not come to an orderly end. The record stands among the signed-in user's settings. Lives until
/// the module is unloaded. GUI thread.
class TLRecoverManager final : public QObject
{
    Q_OBJECT

public:
    /// Made on first use, which has to be on the GUI thread.
    static TLRecoverManager* Instance();
    static void ReleaseInstance();

    /// Records the open tabs, in their order: not the home tab, and no tab without data or without a router
    /// URL. Returns before the record is on disk. No tab left: the record is emptied if a user is signed
    /// in. Without a browser nothing is known, and the record stays as it is.
    void SaveTabs();
    /// Asked once after a log-in by hand. Empties the record, and asks the user whether its tabs shall be
    /// reopened, in a modal dialog that runs an event loop of its own; asks nothing when the record has no
    /// tabs, cannot be read or belongs to another belong type. True: the tabs were reopened, and nothing
    /// else is to open by itself.
    [[nodiscard]] bool Recover();
    /// Empties the record, if a user is signed in. Returns before that is on disk.
    void Clear();
    /// Empties the record, whoever is signed in. Returns when that is on disk.
    void ClearSync();
    /// Reopens one tab. An app's tab gets its saved title and icon and loads when it is first selected.
    void OpenItem(const TabRecoverItem& item);
    /// Stores `text` as the record, as it is.
    void SetValue(const QString& text);

private:
    friend class ProcessWide<TLRecoverManager>;

    TLRecoverManager() = default;
    ~TLRecoverManager() override = default;

    Q_DISABLE_COPY(TLRecoverManager)
};
