#pragma once

#include "recovery/TabSet.h"

#include <QtCore/QObject>
#include <QtCore/QString>

#include <optional>

class QThreadPool;

/// The client's own record of the open tabs, per user, in the settings store. Modules keep records of their
/// own, of which the client knows nothing. Nothing here waits for the disk. GUI thread.
class OpenTabsRecord final : public QObject
{
    Q_OBJECT

public:
    /// Writes on `thread`, which is not owned, runs one task at a time and serves nobody else: the destructor
    /// waits for it.
    explicit OpenTabsRecord(QThreadPool* thread, QObject* parent = nullptr);
    ~OpenTabsRecord() override;

    /// As the last run, or this one, left it: empty after an orderly end. May be damaged
    /// (`TabSetText::Read`).
    static QString GetText();

    /// Returns at once. Of several sets that arrive while one is being written, only the last is written. A
    /// set with the same tabs is not, so that `TabSet::when` is the time of the last change.
    void Keep(const TabSet& tabs);
    /// Returns with the text handed to the settings store, which still has to bring it to disk.
    void KeepNow(const TabSet& tabs);
    /// No tab is open any more, after an orderly end.
    void Clear();

private:
    void Write();
    void Drop();

    QThreadPool* m_thread;
    std::optional<TabSet> m_last; // the set that came last
    TabSet m_waiting;
    bool m_hasWaiting = false;
    bool m_writing = false;
    int m_round = 0; // a text from an earlier round is not stored
};
