#include "core/TLGlobalData.h"

#include <QtTest/QSignalSpy>

#include <gtest/gtest.h>

namespace {

class TLGlobalDataTest : public testing::Test
{
protected:
    ~TLGlobalDataTest() override
    {
        TLGlobalData::Instance()->ClearUser();
        TLGlobalData::Instance()->SetUUID(QString());
    }

    TLGlobalData& m_data = *TLGlobalData::Instance();
    QSignalSpy m_changed{&m_data, &TLGlobalData::SigUserChanged};
};

TEST_F(TLGlobalDataTest, NobodyIsSignedInAtFirst)
{
    EXPECT_EQ(TLGlobalData::Instance(), &m_data);
    EXPECT_TRUE(m_data.GetPin().isEmpty());
    EXPECT_TRUE(m_data.GetBelongType().isEmpty());
    EXPECT_TRUE(m_data.GetUUID().isEmpty());
}

TEST_F(TLGlobalDataTest, SigningInAndOutIsAnnounced)
{
    m_data.SetUser(QStringLiteral("pin"), QStringLiteral("shop"));
    EXPECT_EQ(m_data.GetPin(), QStringLiteral("pin"));
    EXPECT_EQ(m_data.GetBelongType(), QStringLiteral("shop"));
    EXPECT_EQ(m_changed.count(), 1);
    m_data.ClearUser();
    EXPECT_TRUE(m_data.GetPin().isEmpty());
    EXPECT_TRUE(m_data.GetBelongType().isEmpty());
    EXPECT_EQ(m_changed.count(), 2);
}

TEST_F(TLGlobalDataTest, SameUserAgainIsNoChange)
{
    m_data.SetUser(QStringLiteral("pin"), QStringLiteral("shop"));
    m_data.SetUser(QStringLiteral("pin"), QStringLiteral("shop"));
    EXPECT_EQ(m_changed.count(), 1);
    m_data.SetUser(QStringLiteral("pin"), QStringLiteral("other"));
    EXPECT_EQ(m_changed.count(), 2);
}

TEST_F(TLGlobalDataTest, DeviceOutlivesTheUser)
{
    m_data.SetUUID(QStringLiteral("device"));
    m_data.SetUser(QStringLiteral("pin"), QString());
    m_data.ClearUser();
    EXPECT_EQ(m_data.GetUUID(), QStringLiteral("device"));
}

} // namespace
