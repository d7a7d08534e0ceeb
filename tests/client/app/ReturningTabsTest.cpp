#include "KeptTabsExamples.h"
#include "ManualDelay.h"
#include "QuestionAnswer.h"
#include "QueuedEvents.h"
#include "ReopeningTest.h"
#include "WaitUntil.h"

#include "app/tabs/KeptTabsText.h"
#include "app/tabs/ReopenGuard.h"
#include "app/tabs/ReturningTabs.h"
#include "app/tabs/RunningTabs.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using Fate = EarlierTabs::Fate;
using KeptTabsExamples::MakeTabs;

class ReturningTabsTest : public ReopeningTest
{
protected:
    ReturningTabsTest() : m_guard(MakeDelay()) {}

    /// The log-in, in which the module calls `act`.
    void Run(const std::function<void()>& act, bool restarted = false) { m_returning.Run(restarted, act); }
    std::unique_ptr<IDelay> MakeDelay()
    {
        auto delay = std::make_unique<ManualDelay>();
        m_delay = delay.get();
        return delay;
    }
    /// What was said to be missing: how many came back, and of how many. Empty: nothing was said.
    QVariantList GetMissing() const { return m_missing.isEmpty() ? QVariantList() : m_missing.first(); }

    ManualDelay* m_delay = nullptr;
    ReopenGuard m_guard;
    ReturningTabs m_returning{m_window.get(), &m_guard, &m_questions};
    QSignalSpy m_missing{&m_returning, &ReturningTabs::SigMissing};
    QSignalSpy m_care{&m_returning, &ReturningTabs::SigCareTaken};
};

TEST_F(ReturningTabsTest, AfterAnOrderlyEndNothingIsKeptAndNothingSaid)
{
    Run([] {});
    EXPECT_TRUE(EarlierTabs::GetSets().isEmpty());
    EXPECT_TRUE(m_missing.isEmpty());
    EXPECT_TRUE(m_care.isEmpty());
}

TEST_F(ReturningTabsTest, OfferAnsweredNoStandsUnderTheEarlierTabs)
{
    const KeptTabs tabs = MakeTabs(3, 1);
    LeaveBehind(tabs);
    const QuestionAnswer no(QStringLiteral("no_button"));
    Run([&tabs] { Offer(tabs.tabs); });
    EXPECT_EQ(m_window->GetTabCount(), 1);
    EXPECT_EQ(GetFates(), QVector<Fate>{Fate::Declined});
    EXPECT_EQ(EarlierTabs::GetSets().constFirst().tabs, tabs);
    EXPECT_TRUE(m_missing.isEmpty()) << "the user knows that they answered No";
}

TEST_F(ReturningTabsTest, OfferAnsweredYesIsKeptAsReopened)
{
    const KeptTabs tabs = MakeTabs(3, 1);
    LeaveBehind(tabs);
    const QuestionAnswer yes(QStringLiteral("yes_button"));
    Run([&tabs] { Offer(tabs.tabs); });
    EXPECT_EQ(m_window->GetTabCount(), 4);
    EXPECT_EQ(GetFates(), QVector<Fate>{Fate::Reopened});
    EXPECT_TRUE(m_missing.isEmpty());
}

TEST_F(ReturningTabsTest, SetIsKeptBeforeTheUserIsAsked)
{
    const KeptTabs tabs = MakeTabs(3);
    LeaveBehind(tabs);
    QVector<Fate> meanwhile;
    QuestionAnswer no(QStringLiteral("no_button"));
    no.SetBefore([&meanwhile] { meanwhile = GetFates(); });
    Run([&tabs] { Offer(tabs.tabs); });
    EXPECT_EQ(meanwhile, QVector<Fate>{Fate::Dropped}) << "a kill at the question loses them";
}

TEST_F(ReturningTabsTest, QuestionThatTheEndClosesWasNotAnswered)
{
    const KeptTabs tabs = MakeTabs(3);
    LeaveBehind(tabs);
    QuestionAnswer escape(Qt::Key_Escape);
    escape.SetBefore([this] { m_returning.Cancel(); });
    Run([&tabs] { Offer(tabs.tabs); });
    EXPECT_EQ(GetFates(), QVector<Fate>{Fate::Dropped});
    EXPECT_EQ(RunningTabs::GetText(), KeptTabsText::Write(tabs));
    EXPECT_TRUE(m_missing.isEmpty());
    EXPECT_EQ(m_delay->GetPause(), -1);
}

TEST_F(ReturningTabsTest, TabsThatNobodyAskedAboutAreSaidToBeMissing)
{
    LeaveBehind(MakeTabs(3));
    Run([] {}); // as after another belong type, or without the module
    EXPECT_EQ(GetFates(), QVector<Fate>{Fate::Dropped});
    EXPECT_EQ(GetMissing(), (QVariantList{0, 3}));
}

TEST_F(ReturningTabsTest, SomeThatDidNotComeBackAreSaidToBeMissing)
{
    const KeptTabs tabs = MakeTabs(5);
    LeaveBehind(tabs);
    const QuestionAnswer yes(QStringLiteral("yes_button"));
    Run([&tabs] { Offer(tabs.tabs.mid(1, 3)); });
    EXPECT_EQ(GetFates(), QVector<Fate>{Fate::NotWhole});
    EXPECT_EQ(GetMissing(), (QVariantList{3, 5}));
}

TEST_F(ReturningTabsTest, AfterARestartWithAllTabsNothingIsKept)
{
    const KeptTabs tabs = MakeTabs(30, 7);
    LeaveBehind(tabs);
    Run([&tabs] { Reopen(tabs.tabs); }, true);
    EXPECT_EQ(GetOpen(), tabs.tabs);
    EXPECT_TRUE(EarlierTabs::GetSets().isEmpty());
    EXPECT_TRUE(m_missing.isEmpty());
}

TEST_F(ReturningTabsTest, AfterARestartWithoutSomeTabsTheSetIsKeptAndSaid)
{
    const KeptTabs tabs = MakeTabs(4);
    LeaveBehind(tabs);
    Run([&tabs] { Reopen(tabs.tabs.mid(0, 3)); }, true);
    EXPECT_EQ(GetFates(), QVector<Fate>{Fate::NotWhole});
    EXPECT_EQ(EarlierTabs::GetSets().constFirst().tabs, tabs);
    EXPECT_EQ(GetMissing(), (QVariantList{3, 4}));
}

TEST_F(ReturningTabsTest, AfterARestartWithoutAnyTabTheSetIsKeptAndSaid)
{
    LeaveBehind(MakeTabs(4));
    Run([] {}, true);
    EXPECT_EQ(GetFates(), QVector<Fate>{Fate::Dropped});
    EXPECT_EQ(GetMissing(), (QVariantList{0, 4}));
}

TEST_F(ReturningTabsTest, RecordOfWhichNothingCanBeReadIsTold)
{
    for (const bool restarted : {false, true}) {
        LeaveBehind(QStringLiteral("nothing that can be read"));
        m_missing.clear();
        Run([] {}, restarted);
        EXPECT_EQ(GetMissing(), (QVariantList{0, 0})) << restarted;
    }
}

TEST_F(ReturningTabsTest, DamagedRecordGivesWhatCanBeReadAndIsKeptAsItIs)
{
    const QString text = KeptTabsText::Write(MakeTabs(3, 2)).chopped(5);
    LeaveBehind(text);
    Run([] {});
    EXPECT_EQ(GetMissing(), (QVariantList{0, 2}));
    ASSERT_EQ(EarlierTabs::GetSets().size(), 1);
    EXPECT_FALSE(EarlierTabs::GetSets().constFirst().whole);
    EXPECT_EQ(EarlierTabs::GetSets().constFirst().tabs.tabs, MakeTabs(2).tabs);
    EXPECT_EQ(RunningTabs::GetText(), text);
}

TEST_F(ReturningTabsTest, ReopenedTabsShowTheirSavedTitlesAndIcons)
{
    KeptTabs tabs = MakeTabs(14);
    tabs.tabs.append(KeptTabsExamples::MakeApp(QStringLiteral("orders")));
    tabs.tabs.last().iconUrl = QStringLiteral("https://icons.example/saved.png");
    LeaveBehind(tabs);
    const QuestionAnswer yes(QStringLiteral("yes_button"));
    Run([&tabs] { Offer(tabs.tabs); });
    EXPECT_EQ(GetOpen(), tabs.tabs);
    EXPECT_TRUE(WaitUntil([this] { return m_pages.pages.size() == MainWindow::reopenedAtOnce; }));
    EXPECT_EQ(CountDelayed(), 15 - MainWindow::reopenedAtOnce);
}

TEST_F(ReturningTabsTest, OfAnAddressThatIsOpenTwiceEachTabShowsItsOwnTitle)
{
    KeptTabs tabs = MakeTabs(2);
    tabs.tabs.append(tabs.tabs.first());
    tabs.tabs.last().title = QStringLiteral("The other view of it");
    tabs.tabs.last().iconUrl = QStringLiteral("https://icons.example/other.png");
    tabs.current = 1;
    LeaveBehind(tabs);
    Run([&tabs] { Reopen(tabs.tabs); }, true);
    EXPECT_EQ(GetOpen(), tabs.tabs);
}

TEST_F(ReturningTabsTest, SavedTitlesAreForTheTabsThatComeBackOnly)
{
    const KeptTabs tabs = MakeTabs(1);
    LeaveBehind(tabs);
    Run([] {});
    Reopen(tabs.tabs);
    EXPECT_EQ(GetTitles().constLast(), QStringLiteral("a.example"));
    for (int i = 0; i < 2 * MainWindow::reopenedAtOnce; ++i) {
        OpenUrl(QStringLiteral("https://later-%1.example/").arg(i));
    }
    EXPECT_EQ(CountDelayed(), 0) << "what the user opens later waits, too";
}

TEST_F(ReturningTabsTest, TabInFrontIsInFrontAgain)
{
    const KeptTabs tabs = MakeTabs(20, 16);
    LeaveBehind(tabs);
    Run([&tabs] { Reopen(tabs.tabs); }, true);
    EXPECT_EQ(m_window->GetCurrentTab(), 17);
    EXPECT_FALSE(m_window->IsTabDelayed(17));
}

TEST_F(ReturningTabsTest, HomeTabInFrontStaysInFront)
{
    const KeptTabs tabs = MakeTabs(3, -1);
    LeaveBehind(tabs);
    Run([&tabs] { Reopen(tabs.tabs); }, true);
    EXPECT_EQ(m_window->GetCurrentTab(), 0);
}

TEST_F(ReturningTabsTest, OfAnAddressThatIsOpenTwiceTheRightOneIsInFront)
{
    KeptTabs tabs = MakeTabs(3);
    tabs.tabs.append(tabs.tabs.first());
    tabs.tabs.append(tabs.tabs.first());
    tabs.current = 3;
    LeaveBehind(tabs);
    Run([&tabs] { Reopen(tabs.tabs); }, true);
    EXPECT_EQ(m_window->GetCurrentTab(), 4);
}

TEST_F(ReturningTabsTest, TabInFrontIsFoundWhereItCameBack)
{
    const KeptTabs tabs = MakeTabs(4, 2);
    LeaveBehind(tabs);
    OpenUrl(QStringLiteral("https://already-open.example/"));
    Run([&tabs] { Reopen(tabs.tabs.mid(1)); }, true);
    EXPECT_EQ(GetRouterUrl(m_window->GetCurrentTab()), tabs.tabs.at(2).routerUrl);
    EXPECT_EQ(m_window->GetCurrentTab(), 3);
}

TEST_F(ReturningTabsTest, TabInFrontThatDidNotComeBackLeavesTheHomeTabThere)
{
    const KeptTabs tabs = MakeTabs(4, 3);
    LeaveBehind(tabs);
    OpenUrl(QStringLiteral("https://d.example/")); // the address, but not that tab
    Run([&tabs] { Reopen(tabs.tabs.mid(0, 3)); }, true);
    EXPECT_EQ(m_window->GetCurrentTab(), 0);
}

TEST_F(ReturningTabsTest, AfterTwoDeathsNothingLoadsUntilItIsSelected)
{
    DieTwice();
    const KeptTabs tabs = MakeTabs(3, 1);
    LeaveBehind(tabs);
    const QuestionAnswer yes(QStringLiteral("yes_button")); // a touch that comes before the tabs do
    Run([&tabs] { Offer(tabs.tabs); });
    RunQueuedEvents();
    EXPECT_EQ(m_care.count(), 1);
    EXPECT_EQ(GetOpen(), tabs.tabs);
    EXPECT_EQ(CountDelayed(), 3);
    EXPECT_EQ(m_window->GetCurrentTab(), 0);
    EXPECT_TRUE(m_pages.pages.isEmpty());
    m_window->SelectTab(2);
    EXPECT_EQ(m_pages.pages.size(), 1);
    OpenUrl(QStringLiteral("https://wanted.example/"));
    EXPECT_EQ(m_pages.pages.size(), 2) << "what is opened later loads as ever";
}

TEST_F(ReturningTabsTest, AfterTwoDeathsAndNoTheStartListIsNotLoadedEither)
{
    DieTwice();
    LeaveBehind(MakeTabs(3));
    const QuestionAnswer no(QStringLiteral("no_button"));
    Run([] { Offer({}); });
    RunQueuedEvents();
    OpenUrl(QStringLiteral("https://start-list.example/"));
    EXPECT_EQ(CountDelayed(), 1);
    EXPECT_TRUE(m_pages.pages.isEmpty());

    QTest::mouseClick(m_window.get(), Qt::LeftButton);
    OpenUrl(QStringLiteral("https://wanted.example/"));
    EXPECT_EQ(CountDelayed(), 1);
    EXPECT_EQ(m_pages.pages.size(), 1) << "from the first touch on the user opens things";
}

TEST_F(ReturningTabsTest, KeyEndsTheCareAsAClickDoes)
{
    DieTwice();
    Run([] {});
    OpenUrl(QStringLiteral("https://start-list.example/"));
    EXPECT_EQ(CountDelayed(), 1);
    QTest::keyClick(m_window.get(), Qt::Key_Shift);
    OpenUrl(QStringLiteral("https://wanted.example/"));
    EXPECT_EQ(CountDelayed(), 1);
}

TEST_F(ReturningTabsTest, WithoutDeathsNoCareIsTaken)
{
    const KeptTabs tabs = MakeTabs(3);
    LeaveBehind(tabs);
    Run([&tabs] { Reopen(tabs.tabs); }, true);
    EXPECT_TRUE(m_care.isEmpty());
    EXPECT_TRUE(WaitUntil([this] { return CountDelayed() == 0; }));
}

TEST_F(ReturningTabsTest, OnlyAStartThatReopenedCountsTowardsTheDeaths)
{
    LeaveBehind(MakeTabs(1));
    for (int i = 0; i < 3; ++i) {
        ReopenGuard guard(MakeDelay());
        ReturningTabs returning(m_window.get(), &guard, &m_questions);
        returning.Run(true, [] {});
    }
    EXPECT_FALSE(m_guard.IsCareNeeded());
    for (int i = 0; i < 2; ++i) {
        ReopenGuard guard(MakeDelay());
        ReturningTabs returning(m_window.get(), &guard, &m_questions);
        returning.Run(true, [] { Reopen(MakeTabs(1).tabs); });
    }
    EXPECT_TRUE(m_guard.IsCareNeeded());
}

TEST_F(ReturningTabsTest, AddressThatIsNoPageIsNotLoaded)
{
    KeptTabs tabs = MakeTabs(1);
    tabs.tabs.append({QStringLiteral("tl://browser/open?url=javascript%3Aalert%281%29"),
                      QStringLiteral("Script"), QString(), TabType::WebPage});
    tabs.tabs.append({QStringLiteral("tl://browser/open?url=file%3A%2F%2F%2Fetc%2Fpasswd"),
                      QStringLiteral("File"), QString(), TabType::WebPage});
    LeaveBehind(tabs);
    Run([&tabs] { Reopen(tabs.tabs); }, true);
    EXPECT_EQ(m_window->GetTabCount(), 4) << "each opening appends a tab, which says why it is empty";
    ASSERT_TRUE(WaitUntil([this] { return CountDelayed() == 0; }));
    ASSERT_EQ(m_pages.pages.size(), 1);
    EXPECT_EQ(m_pages.pages.first()->loads, QList<QUrl>{QUrl(QStringLiteral("https://a.example/"))});
}

TEST_F(ReturningTabsTest, ThousandTabsComeBack)
{
    const KeptTabs tabs = MakeTabs(1000, 500);
    LeaveBehind(tabs);
    Run([&tabs] { Reopen(tabs.tabs); }, true);
    EXPECT_EQ(GetOpen(), tabs.tabs);
    EXPECT_EQ(m_window->GetCurrentTab(), 501);
    ASSERT_EQ(m_pages.pages.size(), 1) << "the one in front goes first";
    m_pages.pages.first()->Finish(true);
    EXPECT_TRUE(WaitUntil([this] { return m_pages.pages.size() == MainWindow::reopenedAtOnce + 1; }));
}
