#include "QuestionAnswer.h"
#include "QueuedEvents.h"
#include "ReopeningTest.h"
#include "TabSetExamples.h"
#include "WaitUntil.h"

#include "TabSetText.h"
#include "notices/NoticeBoard.h"
#include "recovery/OpenTabsRecord.h"
#include "recovery/TabKeeper.h"
#include "system/TimerDelay.h"

#include "EarlierTabsDialog.h"
#include "notices/NoticeBar.h"

#include "base/VXRouterProtocol.h"
#include "settings-store/VXSettingManager.h"

#include <QtCore/QTranslator>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAction>
#include <QtWidgets/QMenu>
#include <QtWidgets/QTreeView>

using Fate = EarlierTabStore::Fate;
using TabSetExamples::MakeTabs;

namespace {

const QString UpdateUrl = QStringLiteral("tl://autorun/update");
const QString CleanUrl = QStringLiteral("tl://autorun/clean");
const QString MissingId = QStringLiteral("tabs-missing");
const QString CareId = QStringLiteral("tabs-unloaded");

/// A language in which every text of the class ends with a mark.
class MarkedLanguage final : public QTranslator
{
public:
    QString translate(const char* context, const char* source, const char* /*disambiguation*/,
                      int /*number*/) const override
    {
        return qstrcmp(context, "TabKeeper") == 0 ? QString::fromUtf8(source) + QStringLiteral(" ~")
                                                  : QString();
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class TabKeeperTest : public ReopeningTest
{
protected:
    TabKeeperTest()
    {
        m_notices.SetBar(m_window->GetNoticeBar());
        m_tabs = std::make_unique<TabKeeper>(m_window.get(), &m_questions, &m_notices, PictureLoader(),
                                             [] { return true; });
    }
    ~TabKeeperTest() override { m_tabs.reset(); }

    void Show()
    {
        m_tabs->Show(false, [] {});
    }
    /// Shows the client with the pages "a", "b" and "c", the last in front, and forgets what was told so far.
    void ShowThree()
    {
        Show();
        Reopen(MakeTabs(3).tabs);
        m_window->SelectTab(3);
        RunQueuedEvents();
        m_told.clear();
    }
    void End(EndKind kind, const QString& ignoreUrl = QString())
    {
        m_tabs->BeforeEnd(kind, ignoreUrl);
        m_tabs->AfterMainFrameQuit(kind);
    }
    static TabSet GetKept() { return TabSetText::Read(OpenTabsRecord::GetText()).tabs; }
    static QStringList GetKeptUrls()
    {
        QStringList urls;
        const QVector<TabRecord> tabs = GetKept().tabs;
        for (const TabRecord& tab : tabs) {
            urls.append(tab.routerUrl);
        }
        return urls;
    }
    static QString UrlOf(const char* name) { return TabSetExamples::MakePage(QLatin1String(name)).routerUrl; }
    QString GetNotice(const QString& id) const { return m_window->GetNoticeBar()->GetText(id); }

    QAction* GetEntry() const
    {
        const QList<QAction*> entries = m_window->findChild<QMenu*>(QStringLiteral("main_menu"))->actions();
        for (QAction* entry : entries) {
            if (entry->objectName() == QLatin1String("earlier_tabs_action")) {
                return entry;
            }
        }
        return nullptr;
    }
    QList<EarlierTabsDialog*> GetDialogs() const { return m_window->findChildren<EarlierTabsDialog*>(); }

    NoticeBoard m_notices;
    std::unique_ptr<TabKeeper> m_tabs;
};

TEST_F(TabKeeperTest, BeforeTheWindowIsReadyNothingIsTold)
{
    OpenUrl(QStringLiteral("https://a.example/"));
    RunQueuedEvents();
    EXPECT_TRUE(m_told.isEmpty());
    EXPECT_EQ(OpenTabsRecord::GetText(), QString());
}

TEST_F(TabKeeperTest, RecordOfTheRunBeforeStandsUntilTheDecisionIsMade)
{
    const TabSet tabs = MakeTabs(3);
    LeaveBehind(tabs);
    m_tabs->Show(false, [&] {
        OpenUrl(QStringLiteral("https://start-list.example/"));
        RunQueuedEvents();
        EXPECT_TRUE(m_told.isEmpty());
        EXPECT_EQ(GetKept(), tabs);
    });
    RunQueuedEvents();
    EXPECT_EQ(m_told, QStringList{UpdateUrl});
    ASSERT_TRUE(WaitUntil([] { return GetKept().tabs.size() == 1; }));
}

TEST_F(TabKeeperTest, ChangedTabsAreToldAndKept)
{
    Show();
    RunQueuedEvents();
    EXPECT_EQ(m_told, QStringList{UpdateUrl});
    Reopen(MakeTabs(3).tabs);
    OpenApp(QStringLiteral("orders"));
    m_window->SelectTab(2);
    ASSERT_TRUE(WaitUntil([] { return GetKept().tabs.size() == 4; }));
    EXPECT_EQ(m_told, (QStringList{UpdateUrl, UpdateUrl})) << "several changes are told as one";
    EXPECT_EQ(GetKept().tabs, GetOpen());
    EXPECT_EQ(GetKept().current, 1);
    EXPECT_LT(qAbs(GetKept().when.secsTo(QDateTime::currentDateTimeUtc())), 30);
}

TEST_F(TabKeeperTest, TabsThatCannotBeOpenedAgainAreNotKept)
{
    Show();
    m_window->OpenStartTab();
    OpenUrl(QStringLiteral("https://a.example/"));
    OpenUrl(QStringLiteral("javascript:alert(1)"));
    OpenUrl(QStringLiteral("https://b.example/"));
    m_window->SelectTab(4);
    ASSERT_TRUE(WaitUntil([] { return GetKept().tabs.size() == 2; }));
    EXPECT_EQ(GetKeptUrls(), (QStringList{UrlOf("a"), UrlOf("b")}));
    EXPECT_EQ(GetKept().current, 1);
}

TEST_F(TabKeeperTest, LastTabThatIsClosedLeavesNothingToKeep)
{
    ShowThree();
    m_window->CloseTab(1);
    m_window->CloseTab(1);
    m_window->CloseTab(1);
    ASSERT_TRUE(WaitUntil([] { return OpenTabsRecord::GetText().isEmpty(); }));
}

TEST_F(TabKeeperTest, QuitAndLogOutCleanUpOnceTheModulesAreDone)
{
    for (const EndKind kind : {EndKind::Quit, EndKind::LogOut}) {
        m_tabs = std::make_unique<TabKeeper>(m_window.get(), &m_questions, &m_notices, PictureLoader(),
                                             [] { return true; });
        ShowThree();
        ASSERT_TRUE(WaitUntil([] { return !OpenTabsRecord::GetText().isEmpty(); }));
        m_told.clear();
        m_tabs->BeforeEnd(kind, QString());
        EXPECT_TRUE(m_told.isEmpty());
        m_tabs->AfterMainFrameQuit(kind);
        EXPECT_EQ(m_told, QStringList{CleanUrl});
        EXPECT_EQ(OpenTabsRecord::GetText(), QString());
        m_window->CloseTab(3);
        m_window->CloseTab(2);
        m_window->CloseTab(1);
        RunQueuedEvents();
        m_tabs.reset();
        RunQueuedEvents();
        EXPECT_EQ(m_told, QStringList{CleanUrl}) << "the tabs that close at the end are told";
        EXPECT_EQ(OpenTabsRecord::GetText(), QString());
    }
}

TEST_F(TabKeeperTest, WhatHappensAfterTheEndBeganIsNotTold)
{
    for (const EndKind kind : {EndKind::Quit, EndKind::SystemEnd}) {
        m_tabs = std::make_unique<TabKeeper>(m_window.get(), &m_questions, &m_notices, PictureLoader(),
                                             [] { return true; });
        ShowThree();
        m_tabs->BeforeEnd(kind, QString());
        const QStringList told = m_told;
        const TabSet kept = GetKept();
        // This one does not know of the end, and has to keep the same distance.
        OpenTabsWatch other(std::make_unique<TimerDelay>());
        int changes = 0;
        QObject::connect(&other, &OpenTabsWatch::SigChanged, m_window.get(), [&changes] { ++changes; });
        other.Start(m_window.get());
        ASSERT_TRUE(WaitUntil([&changes] { return changes == 1; }));
        m_window->CloseTab(3);
        m_window->CloseTab(2);
        m_window->CloseTab(1);
        ASSERT_TRUE(WaitUntil([&changes] { return changes == 2; }));
        EXPECT_EQ(m_told, told);
        if (kind == EndKind::SystemEnd) {
            EXPECT_EQ(GetKept(), kept);
        }
    }
}

TEST_F(TabKeeperTest, QuitRightAfterAChangeLeavesNothing)
{
    ShowThree();
    OpenUrl(QStringLiteral("https://late.example/"));
    End(EndKind::Quit);
    m_tabs.reset();
    RunQueuedEvents();
    EXPECT_EQ(OpenTabsRecord::GetText(), QString());
}

TEST_F(TabKeeperTest, SystemEndBringsTheRecordUpToDateAndOnDisk)
{
    ShowThree();
    // Gives the disk work first.
    for (int i = 0; i < 20; ++i) {
        VXSettingManager::Instance()->SetUserValue(QStringLiteral("TEST"), QString::number(i),
                                                   QString(1000000, QChar('a' + i)));
    }
    OpenUrl(QStringLiteral("https://late.example/"));
    m_tabs->BeforeEnd(EndKind::SystemEnd, QString());
    EXPECT_EQ(m_told, QStringList{UpdateUrl});
    ASSERT_TRUE(m_store.KillAndReopen());
    EXPECT_EQ(GetKeptUrls(), (QStringList{UrlOf("a"), UrlOf("b"), UrlOf("c"), UrlOf("late")}));
    EXPECT_EQ(GetKept().current, 2);
    m_tabs->AfterMainFrameQuit(EndKind::SystemEnd);
    m_window->CloseAllTabs();
    m_tabs.reset();
    RunQueuedEvents();
    EXPECT_EQ(m_told, QStringList{UpdateUrl}) << "the tear-down cleans what the next log-in needs";
    EXPECT_EQ(GetKept().tabs.size(), 4);
}

TEST_F(TabKeeperTest, SessionThatTheGatewayRefusesLeavesTheTabsToTheNextLogIn)
{
    ShowThree();
    OpenUrl(QStringLiteral("https://late.example/"));
    End(EndKind::Refused);
    m_window->CloseAllTabs();
    m_tabs.reset();
    RunQueuedEvents();
    EXPECT_EQ(m_told, QStringList{UpdateUrl}) << "nobody chose this end, and what is kept is cleaned";
    EXPECT_EQ(GetKeptUrls(), (QStringList{UrlOf("a"), UrlOf("b"), UrlOf("c"), UrlOf("late")}));
}

TEST_F(TabKeeperTest, WhatIsBroughtToDiskInBetweenIsKeptOnAfterwards)
{
    ShowThree();
    m_tabs->KeepOnDisk();
    EXPECT_EQ(m_told, QStringList{UpdateUrl});
    ASSERT_TRUE(m_store.KillAndReopen());
    EXPECT_EQ(GetKept().tabs.size(), 3);
    OpenUrl(QStringLiteral("https://late.example/"));
    EXPECT_TRUE(WaitUntil([] { return GetKept().tabs.size() == 4; })) << "the session went on after all";
}

TEST_F(TabKeeperTest, BeforeTheWindowIsReadyNothingIsBroughtToDisk)
{
    LeaveBehind(MakeTabs(3));
    m_tabs->KeepOnDisk();
    EXPECT_TRUE(m_told.isEmpty());
    EXPECT_EQ(GetKept(), MakeTabs(3));
}

TEST_F(TabKeeperTest, RestartKeepsTheTabsAndThenCleans)
{
    ShowThree();
    m_tabs->BeforeEnd(EndKind::Restart, QString());
    EXPECT_EQ(m_told, QStringList{QStringLiteral("tl://autorun/restart/update?ignore=")});
    EXPECT_EQ(GetKept().tabs, GetOpen()) << "it does not wait for another thread";
    EXPECT_EQ(GetKept().current, 2);
    m_tabs->AfterMainFrameQuit(EndKind::Restart);
    EXPECT_EQ(m_told.size(), 2);
    EXPECT_EQ(m_told.last(), CleanUrl);
    m_window->CloseAllTabs();
    m_tabs.reset();
    RunQueuedEvents();
    EXPECT_EQ(m_told.size(), 2);
    EXPECT_EQ(GetKept().tabs.size(), 3);
}

TEST_F(TabKeeperTest, RestartLeavesTheIgnoredTabOutWithoutRegardToCase)
{
    ShowThree();
    const QString ignored = UrlOf("b").toUpper();
    m_tabs->BeforeEnd(EndKind::Restart, ignored);
    ASSERT_EQ(m_told.size(), 1);
    EXPECT_EQ(VXRouterProtocol(m_told.first()).GetWith(QStringLiteral("ignore")), ignored);
    EXPECT_EQ(GetKeptUrls(), (QStringList{UrlOf("a"), UrlOf("c")}));
    EXPECT_EQ(GetKept().current, 1) << "the one in front moved up";
}

TEST_F(TabKeeperTest, RestartThatIgnoresTheTabInFrontHasNoneInFront)
{
    ShowThree();
    m_tabs->BeforeEnd(EndKind::Restart, UrlOf("c"));
    EXPECT_EQ(GetKeptUrls(), (QStringList{UrlOf("a"), UrlOf("b")}));
    EXPECT_EQ(GetKept().current, -1);
}

TEST_F(TabKeeperTest, RestartWithTheHomeTabInFrontHasNoneInFront)
{
    ShowThree();
    m_window->SelectTab(0);
    m_tabs->BeforeEnd(EndKind::Restart, UrlOf("a"));
    EXPECT_EQ(GetKept().tabs.size(), 2);
    EXPECT_EQ(GetKept().current, -1);
}

TEST_F(TabKeeperTest, RestartLeavesEveryTabOfTheIgnoredAddressOut)
{
    ShowThree();
    Reopen(MakeTabs(1).tabs);
    m_window->SelectTab(4);
    m_window->SelectTab(2);
    m_tabs->BeforeEnd(EndKind::Restart, UrlOf("a"));
    EXPECT_EQ(GetKeptUrls(), (QStringList{UrlOf("b"), UrlOf("c")}));
    EXPECT_EQ(GetKept().current, 0);
}

TEST_F(TabKeeperTest, EndBeforeTheWindowWasReadyTouchesNothing)
{
    LeaveBehind(MakeTabs(3));
    for (const EndKind kind :
         {EndKind::Quit, EndKind::LogOut, EndKind::Refused, EndKind::Restart, EndKind::SystemEnd}) {
        m_tabs = std::make_unique<TabKeeper>(m_window.get(), &m_questions, &m_notices, PictureLoader(),
                                             [] { return true; });
        m_tabs->PrepareEnd();
        End(kind);
        EXPECT_TRUE(m_told.isEmpty());
        EXPECT_EQ(GetKept(), MakeTabs(3));
    }
}

TEST_F(TabKeeperTest, EndWhileTheUserIsAskedKeepsTheTabs)
{
    for (const EndKind kind :
         {EndKind::Quit, EndKind::LogOut, EndKind::Refused, EndKind::Restart, EndKind::SystemEnd}) {
        LeaveBehind(MakeTabs(3));
        m_tabs = std::make_unique<TabKeeper>(m_window.get(), &m_questions, &m_notices, PictureLoader(),
                                             [] { return true; });
        QuestionAnswer escape(Qt::Key_Escape); // the end closes open dialogs like this
        escape.SetBefore([this] { m_tabs->PrepareEnd(); });
        m_tabs->Show(false, [] { Offer(MakeTabs(3).tabs); });
        End(kind);
        RunQueuedEvents();
        EXPECT_TRUE(m_told.isEmpty());
        EXPECT_EQ(GetKept(), MakeTabs(3));
        EXPECT_EQ(GetFates(), QVector<Fate>{Fate::Dropped});
    }
}

TEST_F(TabKeeperTest, OfferAnsweredNoIsOverAndKeptUnderTheEarlierTabs)
{
    LeaveBehind(MakeTabs(3));
    const QuestionAnswer no(QStringLiteral("no_button"));
    m_tabs->Show(false, [] { Offer(MakeTabs(3).tabs); });
    ASSERT_TRUE(WaitUntil([] { return OpenTabsRecord::GetText().isEmpty(); }));
    EXPECT_EQ(GetFates(), QVector<Fate>{Fate::Declined});
    EXPECT_EQ(m_window->GetNoticeBar()->GetCount(), 0);
}

TEST_F(TabKeeperTest, MissingTabsAreToldWithAWayToThem)
{
    LeaveBehind(MakeTabs(3));
    m_tabs->Show(true, [] { Reopen(MakeTabs(2).tabs); });
    EXPECT_EQ(
        GetNotice(MissingId),
        QStringLiteral("2 of the 3 tabs of your last session came back. “Earlier tabs…” has all of them."));
    QList<QAbstractButton*> buttons = m_window->GetNoticeBar()->findChildren<QAbstractButton*>();
    const auto way = std::find_if(buttons.cbegin(), buttons.cend(), [](const QAbstractButton* button) {
        return button->text() == QStringLiteral("Earlier tabs…");
    });
    ASSERT_NE(way, buttons.cend());
    (*way)->click();
    EXPECT_EQ(GetDialogs().size(), 1);
}

TEST_F(TabKeeperTest, RecordThatWasReadInPartIsToldAlsoWhenAllOfThatCameBack)
{
    const TabSet tabs = MakeTabs(3);
    const QString text = TabSetText::Write(tabs);
    LeaveBehind(text.left(text.size() - text.size() / 6)); // without the last tab
    ASSERT_EQ(TabSetText::Read(OpenTabsRecord::GetText()).tabs.tabs.size(), 2);
    m_tabs->Show(false, [&tabs] { Reopen(tabs.tabs.mid(0, 2)); });
    EXPECT_EQ(GetNotice(MissingId),
              QStringLiteral("Part of the saved tabs of your last session is damaged. The rest is open again "
                             "(tabs: 2)."));
}

TEST_F(TabKeeperTest, RecordThatWasReadInPartIsNotToldWhenMoreCameBack)
{
    const TabSet tabs = MakeTabs(3);
    const QString text = TabSetText::Write(tabs);
    LeaveBehind(text.left(text.size() - text.size() / 6));
    m_tabs->Show(false, [&tabs] { Reopen(tabs.tabs); });
    EXPECT_EQ(m_window->GetNoticeBar()->GetCount(), 0);
}

TEST_F(TabKeeperTest, RecordThatCannotBeReadIsToldAndHasNoWayToIt)
{
    LeaveBehind(QStringLiteral("nothing that can be read"));
    Show();
    EXPECT_EQ(GetNotice(MissingId),
              QStringLiteral("The saved tabs of your last session are damaged and cannot be read."));
    const QList<QAbstractButton*> buttons = m_window->GetNoticeBar()->findChildren<QAbstractButton*>();
    for (const QAbstractButton* button : buttons) {
        EXPECT_NE(button->text(), QStringLiteral("Earlier tabs…"));
    }
}

TEST_F(TabKeeperTest, CareAfterTwoDeathsIsTold)
{
    DieTwice();
    LeaveBehind(MakeTabs(3, 2));
    m_tabs->Show(false, [] { Reopen(MakeTabs(3).tabs); });
    EXPECT_TRUE(GetNotice(CareId).contains(QStringLiteral("crashed twice")));
    EXPECT_TRUE(m_pages.pages.isEmpty());
    EXPECT_EQ(CountDelayed(), 3);
    ASSERT_TRUE(WaitUntil([] { return GetKept().current == -1 && GetKept().tabs.size() == 3; }));
    EXPECT_EQ(GetKept().tabs, MakeTabs(3).tabs) << "unloaded tabs are kept with title and icon";
}

TEST_F(TabKeeperTest, OrderlyEndsAreNoDeaths)
{
    for (const EndKind kind : {EndKind::Quit, EndKind::Restart, EndKind::SystemEnd, EndKind::LogOut}) {
        LeaveBehind(MakeTabs(1));
        m_tabs = std::make_unique<TabKeeper>(m_window.get(), &m_questions, &m_notices, PictureLoader(),
                                             [] { return true; });
        m_tabs->Show(true, [] { Reopen(MakeTabs(1).tabs); });
        End(kind);
    }
    m_tabs = std::make_unique<TabKeeper>(m_window.get(), &m_questions, &m_notices, PictureLoader(),
                                         [] { return true; });
    Show();
    EXPECT_FALSE(m_window->GetNoticeBar()->IsShown(CareId));
}

TEST_F(TabKeeperTest, KilledTwiceAfterReopeningTheNextStartTakesCare)
{
    for (int i = 0; i < 2; ++i) {
        LeaveBehind(MakeTabs(1));
        m_tabs = std::make_unique<TabKeeper>(m_window.get(), &m_questions, &m_notices, PictureLoader(),
                                             [] { return true; });
        m_tabs->Show(true, [] { Reopen(MakeTabs(1).tabs); });
        EXPECT_FALSE(m_window->GetNoticeBar()->IsShown(CareId));
    }
    m_tabs = std::make_unique<TabKeeper>(m_window.get(), &m_questions, &m_notices, PictureLoader(),
                                         [] { return true; });
    Show();
    EXPECT_TRUE(m_window->GetNoticeBar()->IsShown(CareId));
}

TEST_F(TabKeeperTest, EntryStandsInTheMenuAndOpensOneDialog)
{
    ASSERT_NE(GetEntry(), nullptr);
    EXPECT_EQ(GetEntry()->text(), QStringLiteral("&Earlier tabs…"));
    GetEntry()->trigger();
    GetEntry()->trigger();
    ASSERT_EQ(GetDialogs().size(), 1);
    EXPECT_TRUE(GetDialogs().constFirst()->isVisible());
    EXPECT_TRUE(GetDialogs().constFirst()->isModal());
    GetDialogs().constFirst()->close();
    ASSERT_TRUE(WaitUntil([this] { return GetDialogs().isEmpty(); }));
    GetEntry()->trigger();
    EXPECT_EQ(GetDialogs().size(), 1);
}

TEST_F(TabKeeperTest, TickedTabsOpenDelayedWithTheirTitlesAndIcons)
{
    TabSet tabs = MakeTabs(2);
    tabs.tabs.append(TabSetExamples::MakeApp(QStringLiteral("orders")));
    tabs.tabs.last().iconUrl = QStringLiteral("https://icons.example/saved.png");
    tabs.tabs.first().title = QStringLiteral("50 % & more = <b>订单</b>");
    EarlierTabStore::Add(TabSetText::Write(tabs), Fate::Declined);
    GetEntry()->trigger();
    auto* const tree = GetDialogs().constFirst()->findChild<QTreeView*>();
    QTest::keyClick(tree, Qt::Key_Home);
    QTest::keyClick(tree, Qt::Key_Space);
    QTest::keyClick(tree, Qt::Key_Return);
    EXPECT_EQ(GetOpen(), tabs.tabs);
    EXPECT_EQ(CountDelayed(), 3);
    EXPECT_TRUE(m_pages.pages.isEmpty());
    EXPECT_EQ(m_window->GetCurrentTab(), 0);
    m_window->SelectTab(1);
    ASSERT_EQ(m_pages.pages.size(), 1);
    EXPECT_EQ(m_pages.pages.first()->loads, QList<QUrl>{QUrl(QStringLiteral("https://a.example/"))});
}

TEST_F(TabKeeperTest, SetsAreShownWithTheirReasons)
{
    EarlierTabStore::Add(TabSetText::Write(MakeTabs(2)), Fate::Declined);
    EarlierTabStore::Add(TabSetText::Write(MakeTabs(3)).chopped(4), Fate::Dropped);
    GetEntry()->trigger();
    const QAbstractItemModel* const model = GetDialogs().constFirst()->findChild<QTreeView*>()->model();
    ASSERT_EQ(model->rowCount(), 2);
    EXPECT_EQ(model->rowCount(model->index(0, 0)), 2) << "of the damaged one, what could be read";
    EXPECT_EQ(model->rowCount(model->index(1, 0)), 2);
    const QModelIndex page = model->index(0, 0, model->index(1, 0));
    EXPECT_EQ(page.data().toString(), QStringLiteral("Title of a"));
}

TEST_F(TabKeeperTest, AnotherLanguageReachesTheEntryAndTheNotices)
{
    LeaveBehind(MakeTabs(3));
    Show();
    MarkedLanguage language;
    QCoreApplication::installTranslator(&language);
    ASSERT_TRUE(WaitUntil([this] { return GetEntry()->text() == QStringLiteral("&Earlier tabs… ~"); }));
    m_notices.Retranslate();
    EXPECT_TRUE(GetNotice(MissingId).endsWith(QLatin1Char('~')));
    QCoreApplication::removeTranslator(&language);
    ASSERT_TRUE(WaitUntil([this] { return GetEntry()->text() == QStringLiteral("&Earlier tabs…"); }));
}

TEST_F(TabKeeperTest, EndWhileTheDialogIsOpenIsHarmless)
{
    ShowThree();
    GetEntry()->trigger();
    End(EndKind::Quit);
    m_tabs.reset();
    EXPECT_EQ(GetEntry(), nullptr);
    ASSERT_EQ(GetDialogs().size(), 1);
    m_window->CloseAllTabs();
}
