#pragma once

#include "core/CoreExport.h"

#include <QtCore/QString>
#include <QtCore/QStringList>

/// Takes reports of what the user does, for the client's own statistics. Provided by the client through
/// `Provided<IMonitorSystem>`. GUI thread.
class TL_CORE_EXPORT IMonitorSystem
{
public:
    virtual ~IMonitorSystem();

    /// Records one event; returns at once. `pageId` says where it happened; `parameters` may be empty.
    virtual void ReportEvent(const QString& eventId, const QString& pageId,
                             const QStringList& parameters) = 0;

    /// What is provided now; while nothing is, an object that drops every event. Never null.
    static IMonitorSystem* GetMonitorSystem();

    static IMonitorSystem* Provided() noexcept;
    static void Provide(IMonitorSystem* monitor) noexcept;

protected:
    IMonitorSystem() = default;
    Q_DISABLE_COPY(IMonitorSystem)
};
