#pragma once

#include "core/CoreExport.h"

#include <QtCore/QString>
#include <QtCore/QStringList>

/// Records what the user does, for the client's own statistics. The client provides it through
/// `Provided<IMonitorSystem>`. GUI thread.
class TL_CORE_EXPORT IMonitorSystem
{
public:
    virtual ~IMonitorSystem();

    /// Records one event and returns at once. `pageId` says where it happened; `parameters` may be empty.
    virtual void ReportEvent(const QString& eventId, const QString& pageId,
                             const QStringList& parameters) = 0;

    /// The provided object, or one that drops every event while none is provided. Never null.
    static IMonitorSystem* GetMonitorSystem();

    static IMonitorSystem* Provided() noexcept;
    static void Provide(IMonitorSystem* monitor) noexcept;

protected:
    IMonitorSystem() = default;
    Q_DISABLE_COPY(IMonitorSystem)
};
