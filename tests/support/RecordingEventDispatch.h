#pragma once

#include "frame-core/IModuleEventDispatch.h"
#include "frame-core/ModuleEvent.h"

#include <QtCore/QStringList>

#include <vector>

/// Records every module event. Also appends `event <name>` to the journal, if there is one, so that a test
/// sees the order across several recorders.
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
