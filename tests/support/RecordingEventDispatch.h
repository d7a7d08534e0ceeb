#pragma once

#include "frame-core/IModuleEventDispatch.h"
#include "frame-core/ModuleEvent.h"

#include <QtCore/QStringList>

#include <vector>

/// Writes down every module event. With a journal, also `event <name>` at its end, so that a test sees
/// the order among several recorders.
class RecordingEventDispatch final : public IModuleEventDispatch
{
public:
    struct Dispatched
    {
        QString sender;
        ModuleEvent event;
    };

    explicit RecordingEventDispatch(QStringList* journal = nullptr);
    ~RecordingEventDispatch() override;

    const std::vector<Dispatched>& GetEvents() const noexcept { return m_events; }

    void DispatchModuleEvent(const QString& sender, const ModuleEvent& event) override;

private:
    std::vector<Dispatched> m_events;
    QStringList* m_journal;
};
