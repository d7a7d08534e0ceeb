#include "ManualDelay.h"

#include "gateway/GatewayWatch.h"

#include "http/HttpCallReport.h"

#include <QtTest/QSignalSpy>

#include <gtest/gtest.h>

namespace {

HttpCallReport Answered(const char* code)
{
    HttpCallReport report;
    report.code = QLatin1String(code);
    report.ok = report.code == QLatin1String("0");
    report.description = report.ok ? QString() : QStringLiteral("refused");
    return report;
}

HttpCallReport Failed(const char* code = "1")
{
    HttpCallReport report;
    report.code = QLatin1String(code);
    report.description = QStringLiteral("connection refused");
    return report;
}

HttpCallReport ServedFromCache()
{
    HttpCallReport report = Answered("0");
    report.fromCache = true;
    report.failureCode = QStringLiteral("1");
    report.failure = QStringLiteral("connection refused");
    return report;
}

} // namespace

class GatewayWatchTest : public ::testing::Test
{
protected:
    GatewayWatchTest()
    {
        auto delay = std::make_unique<ManualDelay>();
        m_delay = delay.get();
        m_watch = std::make_unique<GatewayWatch>(std::move(delay), [this] { ++m_asked; });
        m_lost = std::make_unique<QSignalSpy>(m_watch.get(), &GatewayWatch::SigLost);
        m_found = std::make_unique<QSignalSpy>(m_watch.get(), &GatewayWatch::SigFound);
    }

    int m_asked = 0;
    ManualDelay* m_delay;
    std::unique_ptr<GatewayWatch> m_watch;
    std::unique_ptr<QSignalSpy> m_lost;
    std::unique_ptr<QSignalSpy> m_found;
};

TEST_F(GatewayWatchTest, AsksAgainAfterGrowingPausesUntilAnAnswerComes)
{
    m_watch->HandleReport(Failed());
    int asked = 0;
    for (const int pause : {5000, 10000, 20000, 40000, 60000, 60000, 60000}) {
        EXPECT_EQ(m_delay->GetPause(), pause);
        m_delay->Fire();
        EXPECT_EQ(m_asked, ++asked);
        m_watch->HandleReport(Failed());
    }
    m_watch->HandleReport(Answered("0"));
    EXPECT_EQ(m_found->count(), 1);
    EXPECT_EQ(m_delay->GetPause(), -1);
    EXPECT_FALSE(m_watch->IsLost());
}

TEST_F(GatewayWatchTest, PausesStartAfreshWithTheNextFailure)
{
    m_watch->HandleReport(Failed());
    m_delay->Fire();
    m_watch->HandleReport(Answered("0"));
    m_watch->HandleReport(Failed());
    EXPECT_EQ(m_delay->GetPause(), 5000);
    EXPECT_EQ(m_lost->count(), 2);
}

TEST_F(GatewayWatchTest, CallsThatFailTogetherAreOneFailure)
{
    m_watch->HandleReport(Failed());
    m_watch->HandleReport(Failed());
    m_watch->HandleReport(Failed());
    EXPECT_EQ(m_lost->count(), 1);
    EXPECT_EQ(m_delay->GetPause(), 5000);
    m_delay->Fire();
    m_watch->HandleReport(Failed());
    EXPECT_EQ(m_delay->GetPause(), 10000);
}

TEST_F(GatewayWatchTest, CachedReplyCountsAsAFailureThoughItIsASuccess)
{
    m_watch->HandleReport(ServedFromCache());
    ASSERT_EQ(m_lost->count(), 1);
    EXPECT_EQ(m_lost->at(0).at(0).toString(), QStringLiteral("connection refused"));
    EXPECT_TRUE(m_lost->at(0).at(1).toBool());
}

TEST_F(GatewayWatchTest, CachedReplyAfterAFailureIsSaid)
{
    m_watch->HandleReport(Failed());
    EXPECT_FALSE(m_lost->at(0).at(1).toBool());
    m_watch->HandleReport(ServedFromCache());
    ASSERT_EQ(m_lost->count(), 2);
    EXPECT_TRUE(m_lost->at(1).at(1).toBool());
}

TEST_F(GatewayWatchTest, RefusalIsAnAnswer)
{
    m_watch->HandleReport(Failed("-1"));
    m_watch->HandleReport(Answered("2003"));
    EXPECT_EQ(m_found->count(), 1);
}

TEST_F(GatewayWatchTest, ServerErrorAndUnreadableReplyAreNoAnswers)
{
    for (const char* code : {"5001", "5003", "parse", "-2", "-5"}) {
        m_watch->HandleReport(Answered("0"));
        m_watch->HandleReport(Failed(code));
        EXPECT_TRUE(m_watch->IsLost()) << code;
    }
}

TEST_F(GatewayWatchTest, AskNowDoesNotWaitAndOnlyAsksWhileLost)
{
    m_watch->AskNow();
    EXPECT_EQ(m_asked, 0);
    m_watch->HandleReport(Failed());
    m_watch->AskNow();
    EXPECT_EQ(m_asked, 1);
    EXPECT_EQ(m_delay->GetPause(), -1);
    m_watch->HandleReport(Failed());
    EXPECT_EQ(m_delay->GetPause(), 10000);
}

TEST_F(GatewayWatchTest, SuccessesInARowAreNoNews)
{
    m_watch->HandleReport(Answered("0"));
    m_watch->HandleReport(Answered("1009"));
    EXPECT_EQ(m_found->count(), 0);
    EXPECT_EQ(m_lost->count(), 0);
    EXPECT_EQ(m_delay->GetPause(), -1);
}
