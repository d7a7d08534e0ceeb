#include "frame-data/IGeneralData.h"

#include "frame-data/AsyncInfoManager.h"
#include "frame-data/TLUserData.h"

#include "base/Provided.h"

#include <gtest/gtest.h>

namespace {

class GeneralData final : public IGeneralData
{
public:
    AsyncInfoManager* GetAsyncInfoManager() override { return &asyncInfo; }
    TLUserData* GetUserData() override { return &user; }

    AsyncInfoManager asyncInfo;
    TLUserData user;
};

TEST(IGeneralDataTest, KnowsOfNoUserAndANormalLoginWhileNothingIsProvided)
{
    EXPECT_EQ(IGeneralData::Provided(), nullptr);
    IGeneralData* data = IGeneralData::Instance();
    ASSERT_NE(data, nullptr);
    EXPECT_TRUE(data->GetUserData()->GetPin().isEmpty());
    EXPECT_TRUE(data->GetUserData()->GetBelongType().isEmpty());
    EXPECT_TRUE(data->GetAsyncInfoManager()->IsNormalLogin());
    EXPECT_FALSE(data->GetAsyncInfoManager()->IsOpen());
}

TEST(IGeneralDataTest, WritingToTheStandInIsForgotten)
{
    IGeneralData::Instance()->GetUserData()->Set(QStringLiteral("pin"), QStringLiteral("shop"));
    IGeneralData::Instance()->GetAsyncInfoManager()->SetRestart(true);
    EXPECT_TRUE(IGeneralData::Instance()->GetUserData()->GetPin().isEmpty());
    EXPECT_TRUE(IGeneralData::Instance()->GetAsyncInfoManager()->IsNormalLogin());
}

TEST(IGeneralDataTest, GivesOutTheProvidedOne)
{
    GeneralData data;
    data.user.Set(QStringLiteral("pin"), QStringLiteral("shop"));
    const Provided<IGeneralData> provided(&data);
    EXPECT_EQ(IGeneralData::Instance(), &data);
    EXPECT_EQ(IGeneralData::Instance()->GetUserData()->GetPin(), QStringLiteral("pin"));
    EXPECT_EQ(IGeneralData::Instance()->GetUserData()->GetBelongType(), QStringLiteral("shop"));
}

TEST(AsyncInfoManagerTest, RestartSaysWhetherItAskedForItsTabs)
{
    AsyncInfoManager info;
    EXPECT_TRUE(info.IsNormalLogin());
    info.SetRestart(true);
    EXPECT_FALSE(info.IsNormalLogin());
    EXPECT_TRUE(info.IsOpen());
    info.SetRestart(false);
    EXPECT_FALSE(info.IsNormalLogin());
    EXPECT_FALSE(info.IsOpen());
    info.SetRestart(true);
    info.SetNormalLogin();
    EXPECT_TRUE(info.IsNormalLogin());
    EXPECT_FALSE(info.IsOpen());
}

} // namespace
