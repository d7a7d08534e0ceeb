#include "ManualDelay.h"

#include "app/ClientNotices.h"
#include "app/GatewayWatch.h"
#include "app/Notices.h"

#include "browser/NoticeBar.h"

#include "http/HttpCallReport.h"

#include <QtTest/QSignalSpy>

#include <gtest/gtest.h>

class ClientNoticesTest : public ::testing::Test
{
protected:
    HttpCallReport Report(const char* method, bool ok, bool fromCache) const
    {
        HttpCallReport report;
        report.method = method;
        report.ok = ok;
        report.fromCache = fromCache;
        report.code = ok ? QStringLiteral("0") : QStringLiteral("1");
        (fromCache ? report.failure : report.description) = QStringLiteral("connection refused");
        report.failureCode = fromCache ? QStringLiteral("1") : QString();
        return report;
    }
    void Take(const HttpCallReport& report)
    {
        m_watch.Take(report);
        m_clientNotices.Take(report);
    }
    std::string Text(const char* id) const { return m_bar.GetText(QLatin1String(id)).toStdString(); }

    NoticeBar m_bar;
    Notices m_notices;
    GatewayWatch m_watch{std::make_unique<ManualDelay>(), [] {}};
    ClientNotices m_clientNotices{&m_notices, &m_watch};
    QSignalSpy m_shown{&m_notices, &Notices::SigShown};
    QSignalSpy m_gone{&m_notices, &Notices::SigGone};
};

TEST_F(ClientNoticesTest, KeptReplyIsSaidWithTheFailureAndGoesAwayWithTheNextAnswer)
{
    m_notices.SetBar(&m_bar);
    Take(Report("dsm.tl.pc.plugin.list", true, true));
    EXPECT_EQ(Text("gateway"), "The gateway cannot be reached. You see the last known configuration. "
                               "(connection refused)");
    Take(Report("dsm.tl.pc.plugin.list", true, false));
    EXPECT_FALSE(m_bar.IsShown(QStringLiteral("gateway")));
    EXPECT_EQ(m_gone.count(), 1);
}

TEST_F(ClientNoticesTest, NoticeThatCameBeforeTheWindowIsShownInIt)
{
    Take(Report("dsm.tl.pc.plugin.list", true, true));
    m_clientNotices.ShowStoreSetAside(QStringLiteral("/p/settings.damaged"), QStringLiteral("malformed"));
    EXPECT_EQ(m_shown.count(), 2);
    m_notices.SetBar(&m_bar);
    EXPECT_EQ(m_bar.GetCount(), 2);
    EXPECT_NE(Text("store-set-aside").find("settings.damaged"), std::string::npos);
    EXPECT_EQ(m_shown.count(), 2);
}

TEST_F(ClientNoticesTest, DamagedValuesAreCountedInOneNotice)
{
    m_notices.SetBar(&m_bar);
    m_clientNotices.TakeDamagedValue();
    m_clientNotices.TakeDamagedValue();
    EXPECT_EQ(m_bar.GetCount(), 1);
    EXPECT_NE(Text("store-values-damaged").find("(2)"), std::string::npos);
}

TEST_F(ClientNoticesTest, NoticeThatIsOverBeforeTheWindowComesIsNotShown)
{
    Take(Report("dsm.tl.pc.plugin.list", true, true));
    Take(Report("dsm.tl.pc.plugin.list", true, false));
    m_notices.SetBar(&m_bar);
    EXPECT_EQ(m_bar.GetCount(), 0);
}

TEST_F(ClientNoticesTest, FailedReadOfTheStartListSaysWhatHappened)
{
    m_notices.SetBar(&m_bar);
    Take(Report("dsm.tl.pc.auto.run.get", false, false));
    EXPECT_EQ(Text("start-list"),
              "The list of what opens at the start could not be read. (connection refused)");
    Take(Report("dsm.tl.pc.auto.run.get", true, false));
    EXPECT_FALSE(m_bar.IsShown(QStringLiteral("start-list")));
}

TEST_F(ClientNoticesTest, StartListFromAKeptReplyIsNoFailedRead)
{
    m_notices.SetBar(&m_bar);
    Take(Report("dsm.tl.pc.auto.run.get", true, true));
    EXPECT_FALSE(m_bar.IsShown(QStringLiteral("start-list")));
    EXPECT_TRUE(m_bar.IsShown(QStringLiteral("gateway")));
}

TEST_F(ClientNoticesTest, BarThatTheUserClosedIsGoneAndDoesNotComeBackWithTheLanguage)
{
    m_notices.SetBar(&m_bar);
    m_clientNotices.ShowStoreFailed(QStringLiteral("disk full"));
    m_bar.Hide(QStringLiteral("store-failed"));
    EXPECT_EQ(m_gone.count(), 1);
    m_notices.Retranslate();
    EXPECT_EQ(m_bar.GetCount(), 0);
}

TEST_F(ClientNoticesTest, SameNoticeAgainIsReplacedInPlace)
{
    m_notices.SetBar(&m_bar);
    m_clientNotices.ShowStoreFailed(QStringLiteral("disk full"));
    m_clientNotices.ShowStoreFailed(QStringLiteral("read-only"));
    EXPECT_EQ(m_bar.GetCount(), 1);
    EXPECT_NE(Text("store-failed").find("read-only"), std::string::npos);
    EXPECT_EQ(m_gone.count(), 0);
}
