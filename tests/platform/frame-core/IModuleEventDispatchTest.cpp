#include "frame-core/IModuleEventDispatch.h"
#include "frame-core/ModuleEvent.h"

#include "base/Provided.h"

#include <gtest/gtest.h>

namespace {

class RecordingDispatch final : public IModuleEventDispatch
{
public:
    void DispatchModuleEvent(const QString& sender, const ModuleEvent& event) override
    {
        events.append(sender + QLatin1Char('|') + event.GetName());
    }

    QStringList events;
};

const ModuleEvent SampleEvent(QStringLiteral("module"), QStringLiteral("name"), {1, QStringLiteral("two")});

TEST(ModuleEventTest, CarriesWhatItWasMadeOf)
{
    EXPECT_EQ(SampleEvent.GetSender(), QStringLiteral("module"));
    EXPECT_EQ(SampleEvent.GetName(), QStringLiteral("name"));
    EXPECT_EQ(SampleEvent.GetArguments(), QVariantList({1, QStringLiteral("two")}));
}

TEST(IModuleEventDispatchTest, EventsAreDroppedWhileNothingIsProvided)
{
    EXPECT_EQ(IModuleEventDispatch::Provided(), nullptr);
    ASSERT_NE(IModuleEventDispatch::GetDispatch(), nullptr);
    IModuleEventDispatch::GetDispatch()->DispatchModuleEvent(QStringLiteral("module"), SampleEvent);
}

TEST(IModuleEventDispatchTest, EventsReachTheProvidedOne)
{
    RecordingDispatch dispatch;
    const Provided<IModuleEventDispatch> provided(&dispatch);
    IModuleEventDispatch::GetDispatch()->DispatchModuleEvent(QStringLiteral("module"), SampleEvent);
    EXPECT_EQ(dispatch.events, QStringList(QStringLiteral("module|name")));
}

} // namespace
