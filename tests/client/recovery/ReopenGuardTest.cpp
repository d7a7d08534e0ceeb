#include "ManualDelay.h"
#include "UserStore.h"

#include "recovery/ReopenGuard.h"

#include "settings-store/VXSettingManager.h"

#include <gtest/gtest.h>

#include <memory>

class ReopenGuardTest : public ::testing::Test
{
protected:
    /// One start of the client; it is killed unless the test ends it properly.
    struct Start
    {
        explicit Start(bool reopened = true)
        {
            auto owned = std::make_unique<ManualDelay>();
            delay = owned.get();
            guard = std::make_unique<ReopenGuard>(std::move(owned));
            careNeeded = guard->IsCareNeeded();
            guard->HandleStart(reopened);
        }

        ManualDelay* delay;
        std::unique_ptr<ReopenGuard> guard;
        bool careNeeded;
    };

    static bool DiesAfterReopening() { return Start().careNeeded; }
    static void SetStored(const char* value)
    {
        VXSettingManager::Instance()->SetUserValue(QStringLiteral("CLIENT"), QStringLiteral("REOPEN_DEATHS"),
                                                   QLatin1String(value));
    }

    UserStore m_store;
};

TEST_F(ReopenGuardTest, CareIsNeededAfterTwoDeathsInARow)
{
    EXPECT_FALSE(DiesAfterReopening());
    EXPECT_FALSE(DiesAfterReopening());
    EXPECT_TRUE(DiesAfterReopening());
    EXPECT_TRUE(DiesAfterReopening()) << "a death in spite of the care forgets those before";
}

TEST_F(ReopenGuardTest, DeathIsOnDiskBeforeItHappens)
{
    DiesAfterReopening();
    Start second;
    ASSERT_TRUE(VXSettingManager::Instance()->Flush());
    ASSERT_TRUE(m_store.KillAndReopen());
    EXPECT_TRUE(DiesAfterReopening());
}

TEST_F(ReopenGuardTest, WhoLivesHalfAMinuteDidNotDieOfIt)
{
    EXPECT_FALSE(DiesAfterReopening());
    {
        Start second;
        EXPECT_EQ(second.delay->GetPause(), 30000);
        second.delay->Fire();
    }
    EXPECT_FALSE(DiesAfterReopening());
    EXPECT_FALSE(DiesAfterReopening());
    EXPECT_TRUE(DiesAfterReopening());
}

TEST_F(ReopenGuardTest, WithCareAHalfMinuteEndsTheCare)
{
    DiesAfterReopening();
    DiesAfterReopening();
    {
        Start third;
        EXPECT_TRUE(third.careNeeded);
        third.delay->Fire();
    }
    EXPECT_FALSE(DiesAfterReopening());
}

TEST_F(ReopenGuardTest, OrderlyEndIsNoDeath)
{
    for (int i = 0; i < 5; ++i) {
        Start start;
        EXPECT_FALSE(start.careNeeded) << i;
        start.guard->HandleEnd();
        EXPECT_EQ(start.delay->GetPause(), -1);
    }
    DiesAfterReopening();
    Start().guard->HandleEnd();
    EXPECT_FALSE(DiesAfterReopening()) << "the one before is still counted";
    EXPECT_FALSE(DiesAfterReopening());
    EXPECT_TRUE(DiesAfterReopening());
}

TEST_F(ReopenGuardTest, StartThatReopenedNothingIsNotCounted)
{
    for (int i = 0; i < 5; ++i) {
        EXPECT_FALSE(Start(false).careNeeded);
    }
    DiesAfterReopening();
    EXPECT_FALSE(Start(false).careNeeded);
    EXPECT_FALSE(DiesAfterReopening());
    EXPECT_TRUE(DiesAfterReopening());
}

TEST_F(ReopenGuardTest, EndBeforeAnythingWasReopenedKeepsTheCareForTheNextStart)
{
    DiesAfterReopening();
    DiesAfterReopening();
    {
        ReopenGuard guard(std::make_unique<ManualDelay>());
        EXPECT_TRUE(guard.IsCareNeeded());
        guard.HandleEnd(); // while the question is open
    }
    EXPECT_TRUE(DiesAfterReopening());
}

TEST_F(ReopenGuardTest, EndAtTheLoginDialogTouchesNobodysCount)
{
    DiesAfterReopening();
    DiesAfterReopening();
    ReopenGuard(std::make_unique<ManualDelay>()).HandleEnd();
    EXPECT_TRUE(DiesAfterReopening());
}

TEST_F(ReopenGuardTest, DamagedCountIsHarmless)
{
    for (const char* value : {"", "x", "-1", "-2147483648", "1.5", "1e9", "99999999999999999999", "{}"}) {
        SetStored(value);
        EXPECT_FALSE(DiesAfterReopening()) << value;
        EXPECT_FALSE(DiesAfterReopening()) << value;
        EXPECT_TRUE(DiesAfterReopening()) << value;
    }
    SetStored("2147483647");
    EXPECT_TRUE(DiesAfterReopening());
    Start().guard->HandleEnd();
    EXPECT_FALSE(DiesAfterReopening());
}

TEST_F(ReopenGuardTest, EachUserHasTheirOwnCount)
{
    DiesAfterReopening();
    DiesAfterReopening();
    UserStore::SignIn(QStringLiteral("other"));
    EXPECT_FALSE(DiesAfterReopening());
    UserStore::SignIn(QStringLiteral("demo"));
    EXPECT_TRUE(DiesAfterReopening());
}
