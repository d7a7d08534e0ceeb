#include "ManualDelay.h"
#include "QuestionAnswer.h"
#include "QueuedEvents.h"
#include "ReopeningTest.h"
#include "TabSetExamples.h"
#include "WaitUntil.h"

#include "TabSetText.h"
#include "recovery/OpenTabsRecord.h"
#include "recovery/ReopenGuard.h"
#include "recovery/TabReopening.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using Fate = EarlierTabStore::Fate;
using TabSetExamples::MakeTabs;

class TabReopeningTest : public ReopeningTest
{
protected:
    TabReopeningTest() : m_guard(MakeDelay()) {}

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
    TabReopening m_returning{m_window.get(), &m_guard, &m_questions};
    QSignalSpy m_missing{&m_returning, &TabReopening::SigMissing};
    QSignalSpy m_care{&m_returning, &TabReopening::SigCareTaken};
};

TEST_F(TabReopeningTest, AfterAnOrderlyEndNothingIsKeptAndNothingSaid)
{
    Run([] {});
    EXPECT_TRUE(EarlierTabStore::GetSets().isEmpty());
    EXPECT_TRUE(m_missing.isEmpty());
    EXPECT_TRUE(m_care.isEmpty());
}

TEST_F(TabReopeningTest, OfferAnsweredNoStandsUnderTheEarlierTabs)
{
    const TabSet tabs = MakeTabs(3, 1);
    LeaveBehind(tabs);
    const QuestionAnswer no(QStringLiteral("no_button"));
    Run([&tabs] { Offer(tabs.tabs); });
    EXPECT_EQ(m_window->GetTabCount(), 1);
    EXPECT_EQ(GetFates(), QVector<Fate>{Fate::Declined});
    EXPECT_EQ(EarlierTabStore::GetSets().constFirst().tabs, tabs);
    EXPECT_TRUE(m_missing.isEmpty()) << "the user knows that they answered No";
}

TEST_F(TabReopeningTest, OfferAnsweredYesIsKeptAsReopened)
{
    const TabSet tabs = MakeTabs(3, 1);
    LeaveBehind(tabs);
    const QuestionAnswer yes(QStringLiteral("yes_button"));
    Run([&tabs] { Offer(tabs.tabs); });
    EXPECT_EQ(m_window->GetTabCount(), 4);
    EXPECT_EQ(GetFates(), QVector<Fate>{Fate::Reopened});
    EXPECT_TRUE(m_missing.isEmpty());
}

TEST_F(TabReopeningTest, SetIsKeptBeforeTheUserIsAsked)
{
    const TabSet tabs = MakeTabs(3);
    LeaveBehind(tabs);
    QVector<Fate> meanwhile;
    QuestionAnswer no(QStringLiteral("no_button"));
    no.SetBefore([&meanwhile] { meanwhile = GetFates(); });
    Run([&tabs] { Offer(tabs.tabs); });
    EXPECT_EQ(meanwhile, QVector<Fate>{Fate::Dropped}) << "a kill at the question loses them";
}

TEST_F(TabReopeningTest, QuestionThatTheEndClosesWasNotAnswered)
{
    const TabSet tabs = MakeTabs(3);
    LeaveBehind(tabs);
    QuestionAnswer escape(Qt::Key_Escape);
    escape.SetBefore([this] { m_returning.Cancel(); });
    Run([&tabs] { Offer(tabs.tabs); });
    EXPECT_EQ(GetFates(), QVector<Fate>{Fate::Dropped});
    EXPECT_EQ(OpenTabsRecord::GetText(), TabSetText::Write(tabs));
    EXPECT_TRUE(m_missing.isEmpty());
    EXPECT_EQ(m_delay->GetPause(), -1);
}

TEST_F(TabReopeningTest, TabsThatNobodyAskedAboutAreSaidToBeMissing)
{
    LeaveBehind(MakeTabs(3));
    Run([] {}); // as after another belong type, or without the module
    EXPECT_EQ(GetFates(), QVector<Fate>{Fate::Dropped});
    EXPECT_EQ(GetMissing(), (QVariantList{0, 3}));
}

TEST_F(TabReopeningTest, SomeThatDidNotComeBackAreSaidToBeMissing)
{
    const TabSet tabs = MakeTabs(5);
    LeaveBehind(tabs);
    const QuestionAnswer yes(QStringLiteral("yes_button"));
    Run([&tabs] { Offer(tabs.tabs.mid(1, 3)); });
    EXPECT_EQ(GetFates(), QVector<Fate>{Fate::NotWhole});
    EXPECT_EQ(GetMissing(), (QVariantList{3, 5}));
}

TEST_F(TabReopeningTest, AfterARestartWithAllTabsNothingIsKept)
{
    const TabSet tabs = MakeTabs(30, 7);
    LeaveBehind(tabs);
    Run([&tabs] { Reopen(tabs.tabs); }, true);
    EXPECT_EQ(GetOpen(), tabs.tabs);
    EXPECT_TRUE(EarlierTabStore::GetSets().isEmpty());
    EXPECT_TRUE(m_missing.isEmpty());
}

TEST_F(TabReopeningTest, AfterARestartWithoutSomeTabsTheSetIsKeptAndSaid)
{
    const TabSet tabs = MakeTabs(4);
    LeaveBehind(tabs);
    Run([&tabs] { Reopen(tabs.tabs.mid(0, 3)); }, true);
    EXPECT_EQ(GetFates(), QVector<Fate>{Fate::NotWhole});
    EXPECT_EQ(EarlierTabStore::GetSets().constFirst().tabs, tabs);
    EXPECT_EQ(GetMissing(), (QVariantList{3, 4}));
}

TEST_F(TabReopeningTest, AfterARestartWithoutAnyTabTheSetIsKeptAndSaid)
{
    LeaveBehind(MakeTabs(4));
    Run([] {}, true);
    EXPECT_EQ(GetFates(), QVector<Fate>{Fate::Dropped});
    EXPECT_EQ(GetMissing(), (QVariantList{0, 4}));
}

TEST_F(TabReopeningTest, RecordOfWhichNothingCanBeReadIsTold)
{
    for (const bool restarted : {false, true}) {
        LeaveBehind(QStringLiteral("nothing that can be read"));
        m_missing.clear();
        Run([] {}, restarted);
        EXPECT_EQ(GetMissing(), (QVariantList{0, 0})) << restarted;
    }
}

TEST_F(TabReopeningTest, DamagedRecordGivesWhatCanBeReadAndIsKeptAsItIs)
{
    const QString text = TabSetText::Write(MakeTabs(3, 2)).chopped(5);
    LeaveBehind(text);
    Run([] {});
    EXPECT_EQ(GetMissing(), (QVariantList{0, 2}));
    ASSERT_EQ(EarlierTabStore::GetSets().size(), 1);
    EXPECT_FALSE(EarlierTabStore::GetSets().constFirst().whole);
    EXPECT_EQ(EarlierTabStore::GetSets().constFirst().tabs.tabs, MakeTabs(2).tabs);
    EXPECT_EQ(OpenTabsRecord::GetText(), text);
}

TEST_F(TabReopeningTest, ReopenedTabsShowTheirSavedTitlesAndIcons)
{
    TabSet tabs = MakeTabs(14);
    tabs.tabs.append(TabSetExamples::MakeApp(QStringLiteral("orders")));
    tabs.tabs.last().iconUrl = QStringLiteral("https://icons.example/saved.png");
    LeaveBehind(tabs);
    const QuestionAnswer yes(QStringLiteral("yes_button"));
    Run([&tabs] { Offer(tabs.tabs); });
    EXPECT_EQ(GetOpen(), tabs.tabs);
    EXPECT_TRUE(WaitUntil([this] { return m_pages.pages.size() == MainWindow::ReopenedAtOnce; }));
    EXPECT_EQ(CountDelayed(), 15 - MainWindow::ReopenedAtOnce);
}

TEST_F(TabReopeningTest, OfAnAddressThatIsOpenTwiceEachTabShowsItsOwnTitle)
{
    TabSet tabs = MakeTabs(2);
    tabs.tabs.append(tabs.tabs.first());
    tabs.tabs.last().title = QStringLiteral("The other view of it");
    tabs.tabs.last().iconUrl = QStringLiteral("https://icons.example/other.png");
    tabs.current = 1;
    LeaveBehind(tabs);
    Run([&tabs] { Reopen(tabs.tabs); }, true);
    EXPECT_EQ(GetOpen(), tabs.tabs);
}

TEST_F(TabReopeningTest, SavedTitlesAreForTheTabsThatComeBackOnly)
{
    const TabSet tabs = MakeTabs(1);
    LeaveBehind(tabs);
    Run([] {});
    Reopen(tabs.tabs);
    EXPECT_EQ(GetTitles().constLast(), QStringLiteral("a.example"));
    for (int i = 0; i < 2 * MainWindow::ReopenedAtOnce; ++i) {
        OpenUrl(QStringLiteral("https://later-%1.example/").arg(i));
    }
    EXPECT_EQ(CountDelayed(), 0) << "what the user opens later waits, too";
}

TEST_F(TabReopeningTest, TabInFrontIsInFrontAgain)
{
    const TabSet tabs = MakeTabs(20, 16);
    LeaveBehind(tabs);
    Run([&tabs] { Reopen(tabs.tabs); }, true);
    EXPECT_EQ(m_window->GetCurrentTab(), 17);
    EXPECT_FALSE(m_window->IsTabDelayed(17));
}

TEST_F(TabReopeningTest, HomeTabInFrontStaysInFront)
{
    const TabSet tabs = MakeTabs(3, -1);
    LeaveBehind(tabs);
    Run([&tabs] { Reopen(tabs.tabs); }, true);
    EXPECT_EQ(m_window->GetCurrentTab(), 0);
}

TEST_F(TabReopeningTest, OfAnAddressThatIsOpenTwiceTheRightOneIsInFront)
{
    TabSet tabs = MakeTabs(3);
    tabs.tabs.append(tabs.tabs.first());
    tabs.tabs.append(tabs.tabs.first());
    tabs.current = 3;
    LeaveBehind(tabs);
    Run([&tabs] { Reopen(tabs.tabs); }, true);
    EXPECT_EQ(m_window->GetCurrentTab(), 4);
}

TEST_F(TabReopeningTest, TabInFrontIsFoundWhereItCameBack)
{
    const TabSet tabs = MakeTabs(4, 2);
    LeaveBehind(tabs);
    OpenUrl(QStringLiteral("https://already-open.example/"));
    Run([&tabs] { Reopen(tabs.tabs.mid(1)); }, true);
    EXPECT_EQ(GetRouterUrl(m_window->GetCurrentTab()), tabs.tabs.at(2).routerUrl);
    EXPECT_EQ(m_window->GetCurrentTab(), 3);
}

TEST_F(TabReopeningTest, TabInFrontThatDidNotComeBackLeavesTheHomeTabThere)
{
    const TabSet tabs = MakeTabs(4, 3);
    LeaveBehind(tabs);
    OpenUrl(QStringLiteral("https://d.example/")); // the address, but not that tab
    Run([&tabs] { Reopen(tabs.tabs.mid(0, 3)); }, true);
    EXPECT_EQ(m_window->GetCurrentTab(), 0);
}

TEST_F(TabReopeningTest, AfterTwoDeathsNothingLoadsUntilItIsSelected)
{
    DieTwice();
    const TabSet tabs = MakeTabs(3, 1);
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

TEST_F(TabReopeningTest, AfterTwoDeathsAndNoTheStartListIsNotLoadedEither)
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

TEST_F(TabReopeningTest, KeyEndsTheCareAsAClickDoes)
{
    DieTwice();
    Run([] {});
    OpenUrl(QStringLiteral("https://start-list.example/"));
    EXPECT_EQ(CountDelayed(), 1);
    QTest::keyClick(m_window.get(), Qt::Key_Shift);
    OpenUrl(QStringLiteral("https://wanted.example/"));
    EXPECT_EQ(CountDelayed(), 1);
}

TEST_F(TabReopeningTest, WithoutDeathsNoCareIsTaken)
{
    const TabSet tabs = MakeTabs(3);
    LeaveBehind(tabs);
    Run([&tabs] { Reopen(tabs.tabs); }, true);
    EXPECT_TRUE(m_care.isEmpty());
    EXPECT_TRUE(WaitUntil([this] { return CountDelayed() == 0; }));
}

TEST_F(TabReopeningTest, OnlyAStartThatReopenedCountsTowardsTheDeaths)
{
    LeaveBehind(MakeTabs(1));
    for (int i = 0; i < 3; ++i) {
        ReopenGuard guard(MakeDelay());
        TabReopening returning(m_window.get(), &guard, &m_questions);
        returning.Run(true, [] {});
    }
    EXPECT_FALSE(m_guard.IsCareNeeded());
    for (int i = 0; i < 2; ++i) {
        ReopenGuard guard(MakeDelay());
        TabReopening returning(m_window.get(), &guard, &m_questions);
        returning.Run(true, [] { Reopen(MakeTabs(1).tabs); });
    }
    EXPECT_TRUE(m_guard.IsCareNeeded());
}

TEST_F(TabReopeningTest, AddressThatIsNoPageIsNotLoaded)
{
    TabSet tabs = MakeTabs(1);
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

TEST_F(TabReopeningTest, ThousandTabsComeBack)
{
    const TabSet tabs = MakeTabs(1000, 500);
    LeaveBehind(tabs);
    Run([&tabs] { Reopen(tabs.tabs); }, true);
    EXPECT_EQ(GetOpen(), tabs.tabs);
    EXPECT_EQ(m_window->GetCurrentTab(), 501);
    ASSERT_EQ(m_pages.pages.size(), 1) << "the one in front goes first";
    m_pages.pages.first()->Finish(true);
    EXPECT_TRUE(WaitUntil([this] { return m_pages.pages.size() == MainWindow::ReopenedAtOnce + 1; }));
}
