#pragma once

#include "recovery/TabSet.h"

#include <QtCore/QObject>
#include <QtCore/QString>

#include <optional>

/// The client's own record of the tabs that are open, per user, in the settings store. Beside it stand the
/// records of modules, of which the client knows nothing. Writing the text happens on a thread of the pool;
/// nothing of it waits for the disk. GUI thread.
class OpenTabsRecord final : public QObject
{
    Q_OBJECT

public:
    explicit OpenTabsRecord(QObject* parent = nullptr);
    ~OpenTabsRecord() override;

    /// As the run before, or this one, left it: empty after an orderly end. May be damaged
    /// (`TabSetText::Read`).
    static QString GetText();

    /// Returns at once. Of several that come while one is being written only the last one is; the same tabs
    /// once more are not, so that `TabSet::when` is the time of the last change.
    void Keep(const TabSet& tabs);
    /// Returns with the text handed to the settings store, which still has to bring it to disk.
    void KeepNow(const TabSet& tabs);
    /// Nothing is open any more, in good order.
    void Clear();

private:
    void Write();
    void Drop();

    std::optional<TabSet> m_last; // what came last
    TabSet m_waiting;
    bool m_hasWaiting = false;
    bool m_writing = false;
    int m_round = 0; // what was begun in an earlier round counts no more
};
