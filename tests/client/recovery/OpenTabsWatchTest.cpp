#include "MainWindowTest.h"
#include "ManualDelay.h"
#include "WaitUntil.h"

#include "recovery/OpenTabsWatch.h"
#include "system/TimerDelay.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtTest/QSignalSpy>

class OpenTabsWatchTest : public MainWindowTest
{
protected:
    OpenTabsWatchTest()
    {
        auto delay = std::make_unique<ManualDelay>();
        m_delay = delay.get();
        m_watch = std::make_unique<OpenTabsWatch>(std::move(delay));
        m_kept = std::make_unique<QSignalSpy>(m_watch.get(), &OpenTabsWatch::SigChanged);
    }
    ~OpenTabsWatchTest() override { m_watch.reset(); }

    void Start()
    {
        m_watch->Start(m_window.get());
        ASSERT_EQ(m_delay->GetPause(), 0);
        m_delay->Fire();
        ASSERT_EQ(TakeKept(), 1);
    }
    /// Lets pauses pass until nothing is on its way.
    void Rest()
    {
        while (m_delay->GetPause() >= 0) {
            m_delay->Fire();
        }
        TakeKept();
    }
    int TakeKept()
    {
        const int count = m_kept->count();
        m_kept->clear();
        return count;
    }
    /// Whether the watch announces what happened since `Rest` once, from the event loop, without a pause.
    ::testing::AssertionResult IsTold()
    {
        if (m_delay->GetPause() != 0) {
            return ::testing::AssertionFailure() << "nothing is on its way";
        }
        m_delay->Fire();
        const int told = TakeKept();
        Rest();
        return told == 1 ? ::testing::AssertionSuccess() : ::testing::AssertionFailure() << told;
    }

    ManualDelay* m_delay = nullptr;
    std::unique_ptr<OpenTabsWatch> m_watch;
    std::unique_ptr<QSignalSpy> m_kept;
};

TEST_F(OpenTabsWatchTest, NothingIsToldBeforeTheStart)
{
    OpenUrl(QStringLiteral("https://a.example/"));
    EXPECT_FALSE(m_watch->IsRunning());
    EXPECT_EQ(m_delay->GetPause(), -1);
}

TEST_F(OpenTabsWatchTest, WhatStandsAlreadyIsToldOnceFromTheEventLoop)
{
    OpenUrl(QStringLiteral("https://a.example/"));
    OpenUrl(QStringLiteral("https://b.example/"));
    m_watch->Start(m_window.get());
    EXPECT_TRUE(m_watch->IsRunning());
    EXPECT_EQ(TakeKept(), 0);
    EXPECT_EQ(m_delay->GetPause(), 0);
    m_delay->Fire();
    EXPECT_EQ(TakeKept(), 1);
}

TEST_F(OpenTabsWatchTest, EveryKindOfChangeIsTold)
{
    Start();
    Rest();
    OpenUrl(QStringLiteral("https://a.example/"));
    EXPECT_TRUE(IsTold()) << "opened";
    OpenDelayed(QStringLiteral("https://b.example/"), QStringLiteral("B"));
    EXPECT_TRUE(IsTold()) << "opened delayed";
    OpenApp(QStringLiteral("orders"));
    EXPECT_TRUE(IsTold()) << "app opened";
    m_window->MoveTab(1, 2);
    EXPECT_TRUE(IsTold()) << "moved";
    m_window->CloseTab(1);
    EXPECT_TRUE(IsTold()) << "closed";
    m_window->SelectTab(1);
    EXPECT_TRUE(IsTold()) << "selected";
    FakePage* const page = m_pages.pages.first();
    page->address = QUrl(QStringLiteral("https://a.example/next"));
    Q_EMIT page->SigUrlChanged(page->address);
    EXPECT_TRUE(IsTold()) << "address";
    Q_EMIT page->SigTitleChanged(QStringLiteral("Another title"));
    EXPECT_TRUE(IsTold()) << "title";
    Q_EMIT page->SigIconChanged(QUrl(QStringLiteral("https://a.example/icon.png")), QIcon());
    EXPECT_TRUE(IsTold()) << "icon";
}

TEST_F(OpenTabsWatchTest, WithoutAChangeNothingIsTold)
{
    Start();
    EXPECT_EQ(m_delay->GetPause(), 500);
    m_delay->Fire();
    EXPECT_EQ(TakeKept(), 0);
    EXPECT_EQ(m_delay->GetPause(), -1) << "the processor is woken for nothing";
}

TEST_F(OpenTabsWatchTest, SeveralOpenedInOneGoAreOneChange)
{
    Start();
    Rest();
    for (int i = 0; i < 30; ++i) {
        OpenUrl(QStringLiteral("https://shop-%1.example/").arg(i));
    }
    EXPECT_TRUE(IsTold());
}

TEST_F(OpenTabsWatchTest, ChangesInsideThePauseAreToldTogetherAtItsEnd)
{
    Start();
    OpenUrl(QStringLiteral("https://a.example/"));
    m_window->SelectTab(1);
    m_window->CloseTab(1);
    EXPECT_EQ(TakeKept(), 0);
    EXPECT_EQ(m_delay->GetPause(), 500);
    m_delay->Fire();
    EXPECT_EQ(TakeKept(), 1);
    EXPECT_EQ(m_delay->GetPause(), 500) << "the next one has to keep its distance, too";
}

TEST_F(OpenTabsWatchTest, PageThatNeverStopsChangingItsTitleDoesNotPutItOff)
{
    Start();
    OpenUrl(QStringLiteral("https://a.example/"));
    FakePage* const page = m_pages.pages.first();
    const int starts = m_delay->CountStarts();
    for (int i = 0; i < 100; ++i) {
        Q_EMIT page->SigTitleChanged(QString::number(i));
    }
    EXPECT_EQ(m_delay->CountStarts(), starts) << "the pause started again";
    m_delay->Fire();
    EXPECT_EQ(TakeKept(), 1);
}

TEST_F(OpenTabsWatchTest, AfterTheEndNothingIsTold)
{
    Start();
    OpenUrl(QStringLiteral("https://a.example/"));
    m_watch->Stop();
    EXPECT_FALSE(m_watch->IsRunning());
    EXPECT_EQ(m_delay->GetPause(), -1) << "what was on its way still comes";
    OpenUrl(QStringLiteral("https://b.example/"));
    m_window->MoveTab(1, 2);
    m_window->SelectTab(1);
    m_window->CloseAllTabs();
    EXPECT_EQ(m_delay->GetPause(), -1);
    EXPECT_EQ(TakeKept(), 0);
}

TEST_F(OpenTabsWatchTest, TabThatChangesWhileItIsToldIsToldNextTime)
{
    QObject::connect(m_watch.get(), &OpenTabsWatch::SigChanged, m_window.get(), [this] {
        if (m_window->GetTabCount() == 1) {
            OpenUrl(QStringLiteral("https://a.example/"));
        }
    });
    Start();
    EXPECT_EQ(m_delay->GetPause(), 500);
    m_delay->Fire();
    EXPECT_EQ(TakeKept(), 1);
}

TEST_F(OpenTabsWatchTest, InRealTimeEachKeepsItsDistanceAndNoneIsStarved)
{
    OpenTabsWatch watch(std::make_unique<TimerDelay>());
    OpenUrl(QStringLiteral("https://a.example/"));
    FakePage* const page = m_pages.pages.first();
    int changes = 0;
    QTimer restless;
    QObject::connect(&restless, &QTimer::timeout, page,
                     [&changes, page] { Q_EMIT page->SigTitleChanged(QString::number(++changes)); });
    restless.start(1);
    QElapsedTimer clock;
    clock.start();
    int told = 0;
    QObject::connect(&watch, &OpenTabsWatch::SigChanged, page, [&told] { ++told; });
    watch.Start(m_window.get());
    ASSERT_TRUE(WaitUntil([&told] { return told >= 4; }));
    EXPECT_GE(clock.elapsed(), 3 * 500) << "told " << told << " times";
    EXPECT_GT(changes, told);
    watch.Stop();
}
