#include "core/IMonitorSystem.h"

#include "base/Provided.h"

#include <gtest/gtest.h>

namespace {

class RecordingMonitor final : public IMonitorSystem
{
public:
    void ReportEvent(const QString& eventId, const QString& pageId, const QStringList& parameters) override
    {
        events.append(eventId + QLatin1Char('|') + pageId + QLatin1Char('|') +
                      parameters.join(QLatin1Char(',')));
    }

    QStringList events;
};

TEST(IMonitorSystemTest, EventsAreDroppedWhileNothingIsProvided)
{
    EXPECT_EQ(IMonitorSystem::Provided(), nullptr);
    ASSERT_NE(IMonitorSystem::GetMonitorSystem(), nullptr);
    IMonitorSystem::GetMonitorSystem()->ReportEvent(QStringLiteral("e"), QString(), {});
}

TEST(IMonitorSystemTest, EventsReachTheProvidedOne)
{
    RecordingMonitor monitor;
    {
        const Provided<IMonitorSystem> provided(&monitor);
        IMonitorSystem::GetMonitorSystem()->ReportEvent(QStringLiteral("e"), QStringLiteral("p"),
                                                        {QStringLiteral("1"), QStringLiteral("2")});
    }
    IMonitorSystem::GetMonitorSystem()->ReportEvent(QStringLiteral("late"), QString(), {});
    EXPECT_EQ(monitor.events, QStringList(QStringLiteral("e|p|1,2")));
}

} // namespace
