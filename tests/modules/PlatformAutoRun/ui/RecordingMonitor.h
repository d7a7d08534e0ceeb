#pragma once

#include "core/IMonitorSystem.h"

#include <QtCore/QStringList>

#include <functional>

/// Writes down every event as `<event id>` or `<event id> <parameters>`, parameters with commas between.
class RecordingMonitor final : public IMonitorSystem
{
public:
    QStringList events;
    QStringList pages;           ///< the page of each event
    std::function<void()> watch; ///< called with each event

    void ReportEvent(const QString& eventId, const QString& pageId, const QStringList& parameters) override
    {
        events.append(parameters.isEmpty() ? eventId
                                           : eventId + QLatin1Char(' ') + parameters.join(QLatin1Char(',')));
        pages.append(pageId);
        if (watch) {
            watch();
        }
    }
};
