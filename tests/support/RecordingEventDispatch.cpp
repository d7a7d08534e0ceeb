#include "RecordingEventDispatch.h"

RecordingEventDispatch::RecordingEventDispatch(QStringList* journal) : m_journal(journal) {}

RecordingEventDispatch::~RecordingEventDispatch() = default;

void RecordingEventDispatch::DispatchModuleEvent(const QString& sender, const ModuleEvent& event)
{
    m_events.push_back({sender, event});
    if (m_journal) {
        m_journal->append(QStringLiteral("event ") + event.GetName());
    }
}
