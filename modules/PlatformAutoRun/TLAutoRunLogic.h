#pragma once

#include "AutoRunInfoEntityPtr.h"

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QSharedPointer>

template <class T>
class ProcessWide;

class AutoRunCollectionEntity;
class TLPluginBaseManager;

/// Reads and writes the auto-run configuration, keeps the last successful answer in memory and announces
/// every finished call to the rest of the client. Lives until the module is unloaded, so a configuration
/// stays known across log-ins. GUI thread.
///
/// It hands out the cache's own entries: changing one changes the cache.
class TLAutoRunLogic final : public QObject
{
    Q_OBJECT

public:
    /// Made on first use, on the GUI thread.
    static TLAutoRunLogic* Instance();
    /// Ends a read in flight silently; a write is still announced.
    static void ReleaseInstance();

    /// Starts a read and returns at once. A success replaces the cache. Success or not, notification
    /// `ReadFinished` and the event of that name follow. `identity` tags the request; empty: untagged.
    void RequestAutoRun(const QString& identity);

    /// Starts a write of the three lists and returns at once. Success or not, notification
    /// `WriteFinished` and the event of that name follow. The cache stays as it is.
    void SaveAutoRun(const QList<AutoRunInfoEntityPtr>& systemItems,
                     const QList<AutoRunInfoEntityPtr>& customItems,
                     const QList<AutoRunInfoEntityPtr>& pluginItems);

    /// Replaces `entries` with all cached ones: system entries, web addresses, apps. Leaves it alone while
    /// nothing has been read.
    void GetAutoRunList(QList<AutoRunInfoEntityPtr>& entries) const;
    /// The same in three lists.
    void GetAutoRunCollection(QList<AutoRunInfoEntityPtr>& systemItems,
                              QList<AutoRunInfoEntityPtr>& customItems,
                              QList<AutoRunInfoEntityPtr>& pluginItems) const;

    /// The client's app list, owned by the client. Null when it has none.
    TLPluginBaseManager* GetPluginManager() const;

private:
    friend class ProcessWide<TLAutoRunLogic>;

    TLAutoRunLogic();
    ~TLAutoRunLogic() override;

    Q_DISABLE_COPY(TLAutoRunLogic)

    QSharedPointer<AutoRunCollectionEntity> m_collection; // null until the first successful read
};
