#include "ManualDelay.h"

#include "TroubleNotices.h"
#include "gateway/GatewayWatch.h"
#include "notices/NoticeBoard.h"

#include "notices/NoticeBar.h"

#include "http/HttpCallReport.h"

#include <QtTest/QSignalSpy>

#include <gtest/gtest.h>

class TroubleNoticesTest : public ::testing::Test
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
    void Handle(const HttpCallReport& report)
    {
        m_watch.HandleReport(report);
        m_troubleNotices.HandleReport(report);
    }
    std::string Text(const char* id) const { return m_bar.GetText(QLatin1String(id)).toStdString(); }

    NoticeBar m_bar;
    NoticeBoard m_notices;
    GatewayWatch m_watch{std::make_unique<ManualDelay>(), [] {}};
    TroubleNotices m_troubleNotices{&m_notices, &m_watch};
    QSignalSpy m_shown{&m_notices, &NoticeBoard::SigShown};
    QSignalSpy m_gone{&m_notices, &NoticeBoard::SigGone};
};

TEST_F(TroubleNoticesTest, CachedReplyShowsTheFailureUntilTheNextAnswer)
{
    m_notices.SetBar(&m_bar);
    Handle(Report("dsm.tl.pc.plugin.list", true, true));
    EXPECT_EQ(Text("gateway"), "The gateway cannot be reached. You see the last known configuration. "
                               "(connection refused)");
    Handle(Report("dsm.tl.pc.plugin.list", true, false));
    EXPECT_FALSE(m_bar.IsShown(QStringLiteral("gateway")));
    EXPECT_EQ(m_gone.count(), 1);
}

TEST_F(TroubleNoticesTest, NoticeFromBeforeTheWindowIsShownInIt)
{
    Handle(Report("dsm.tl.pc.plugin.list", true, true));
    m_troubleNotices.ShowStoreSetAside(QStringLiteral("/p/settings.damaged"), QStringLiteral("malformed"));
    EXPECT_EQ(m_shown.count(), 2);
    m_notices.SetBar(&m_bar);
    EXPECT_EQ(m_bar.GetCount(), 2);
    EXPECT_NE(Text("store-set-aside").find("settings.damaged"), std::string::npos);
    EXPECT_EQ(m_shown.count(), 2);
}

TEST_F(TroubleNoticesTest, DamagedValuesAreCountedInOneNotice)
{
    m_notices.SetBar(&m_bar);
    m_troubleNotices.HandleDamagedValue();
    m_troubleNotices.HandleDamagedValue();
    EXPECT_EQ(m_bar.GetCount(), 1);
    EXPECT_NE(Text("store-values-damaged").find("(2)"), std::string::npos);
}

TEST_F(TroubleNoticesTest, NoticeThatIsOverBeforeTheWindowIsNotShown)
{
    Handle(Report("dsm.tl.pc.plugin.list", true, true));
    Handle(Report("dsm.tl.pc.plugin.list", true, false));
    m_notices.SetBar(&m_bar);
    EXPECT_EQ(m_bar.GetCount(), 0);
}

TEST_F(TroubleNoticesTest, FailedReadOfTheStartListSaysWhatHappened)
{
    m_notices.SetBar(&m_bar);
    Handle(Report("dsm.tl.pc.auto.run.get", false, false));
    EXPECT_EQ(Text("start-list"),
              "The client could not read which pages and apps to open at start. (connection refused)");
    Handle(Report("dsm.tl.pc.auto.run.get", true, false));
    EXPECT_FALSE(m_bar.IsShown(QStringLiteral("start-list")));
}

TEST_F(TroubleNoticesTest, CachedStartListIsNoFailedRead)
{
    m_notices.SetBar(&m_bar);
    Handle(Report("dsm.tl.pc.auto.run.get", true, true));
    EXPECT_FALSE(m_bar.IsShown(QStringLiteral("start-list")));
    EXPECT_TRUE(m_bar.IsShown(QStringLiteral("gateway")));
}

TEST_F(TroubleNoticesTest, BarThatTheUserClosedDoesNotComeBackWithTheLanguage)
{
    m_notices.SetBar(&m_bar);
    m_troubleNotices.ShowStoreFailed(QStringLiteral("disk full"));
    m_bar.Hide(QStringLiteral("store-failed"));
    EXPECT_EQ(m_gone.count(), 1);
    m_notices.Retranslate();
    EXPECT_EQ(m_bar.GetCount(), 0);
}

TEST_F(TroubleNoticesTest, SameNoticeAgainReplacesTheFirst)
{
    m_notices.SetBar(&m_bar);
    m_troubleNotices.ShowStoreFailed(QStringLiteral("disk full"));
    m_troubleNotices.ShowStoreFailed(QStringLiteral("read-only"));
    EXPECT_EQ(m_bar.GetCount(), 1);
    EXPECT_NE(Text("store-failed").find("read-only"), std::string::npos);
    EXPECT_EQ(m_gone.count(), 0);
}
