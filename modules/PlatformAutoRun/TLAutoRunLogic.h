#pragma once

#include "AutoRunInfoEntityPtr.h"

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QSharedPointer>

template <class T>
class ProcessWide;

class AutoRunCollectionEntity;
class TLPluginBaseManager;

/// Reads and writes the auto-run configuration, keeps the last good answer in memory and announces every
/// finished call to the rest of the client. Lives until the module is unloaded, so a configuration read
/// once stays known across log-ins. GUI thread.
///
/// The entries handed out are those of the cache: who changes one changes the cache.
class TLAutoRunLogic final : public QObject
{
    Q_OBJECT

public:
    /// Made on first use, which has to be on the GUI thread.
    static TLAutoRunLogic* Instance();
    /// A read that is in flight then ends in silence; a write is announced all the same.
    static void ReleaseInstance();

    /// Starts a read and returns at once. A success replaces the cache; success or not, notification
    /// `ReadFinished` and the event of that name follow. `identity` tags the request; empty: untagged.
    void RequestAutoRun(const QString& identity);

    /// Starts a write of the three lists and returns at once. Success or not, notification
    /// `WriteFinished` and the event of that name follow. The cache stays as it is.
    void SaveAutoRun(const QList<AutoRunInfoEntityPtr>& systemItems,
                     const QList<AutoRunInfoEntityPtr>& customItems,
                     const QList<AutoRunInfoEntityPtr>& pluginItems);

    /// Replaces `entries` by all cached ones: system entries, web addresses, apps. While nothing was read
    /// yet, `entries` stays as it is.
    void GetAutoRunList(QList<AutoRunInfoEntityPtr>& entries) const;
    /// The same as three lists.
    void GetAutoRunCollection(QList<AutoRunInfoEntityPtr>& systemItems,
                              QList<AutoRunInfoEntityPtr>& customItems,
                              QList<AutoRunInfoEntityPtr>& pluginItems) const;

    /// The client's app list, not owned. Null when the client has none.
    TLPluginBaseManager* GetPluginManager() const;

private:
    friend class ProcessWide<TLAutoRunLogic>;

    TLAutoRunLogic();
    ~TLAutoRunLogic() override;

    Q_DISABLE_COPY(TLAutoRunLogic)

    QSharedPointer<AutoRunCollectionEntity> m_collection; // null until the first good read
};
