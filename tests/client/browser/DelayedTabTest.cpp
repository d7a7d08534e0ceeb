#include "MainWindowTest.h"

#include "TabButton.h"
#include "TabStrip.h"
#include "look/LanguageManager.h"

#include "base/VXRouterProtocol.h"

#include <QtGui/QContextMenuEvent>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>

#include <algorithm>
#include <ostream>

namespace {

/// What is recorded of a tab.
struct Recorded
{
    QString routerUrl;
    QString title;
    QString iconUrl;
    int type = 0;

    bool operator==(const Recorded& other) const
    {
        return routerUrl == other.routerUrl && title == other.title && iconUrl == other.iconUrl &&
               type == other.type;
    }
};

std::ostream& operator<<(std::ostream& stream, const Recorded& recorded)
{
    return stream << qPrintable(recorded.routerUrl) << " | " << qPrintable(recorded.title) << " | "
                  << qPrintable(recorded.iconUrl) << " | " << recorded.type;
}

std::optional<TabRecord> ClaimAll(const QString& routerUrl)
{
    return TabRecord{routerUrl};
}

class DelayedTabTest : public MainWindowTest
{
protected:
    Recorded GetRecorded(int index) const
    {
        return {GetRouterUrl(index), GetData(index).GetTitle(), GetData(index).GetIconUrl(),
                GetData(index).GetType()};
    }
    /// Reopens a page or app as it was recorded.
    void OpenRecorded(const Recorded& recorded, bool delayed = true)
    {
        const VXRouterProtocol route(recorded.routerUrl);
        if (recorded.type == TabType::WebPage) {
            TabOpenInfo info;
            info.address = route.GetWith(QStringLiteral("url"));
            info.title = recorded.title;
            info.iconUrl = recorded.iconUrl;
            info.isDelay = delayed;
            m_window->OpenUrl(info, -1);
        } else {
            PluginOpenInfo info;
            info.serviceCode = route.GetWith(QStringLiteral("code"));
            info.title = recorded.title;
            info.iconUrl = recorded.iconUrl;
            info.isDelay = delayed;
            m_window->OpenPlugin(info, -1);
        }
    }
    void OpenDelayedApp(const QString& code, const QString& title = QString(),
                        const QString& iconUrl = QString())
    {
        OpenRecorded(
            {VXRouterProtocol(QStringLiteral("tl://plugin/open")).With(QStringLiteral("code"), code).GetUrl(),
             title, iconUrl, TabType::WebApp});
    }
    void OpenMany(int count)
    {
        for (int i = 1; i <= count; ++i) {
            OpenDelayed(QStringLiteral("https://shop-%1.example/").arg(i), QStringLiteral("Shop %1").arg(i),
                        QStringLiteral("https://shop-%1.example/icon.png").arg(i));
        }
    }
    int CountDelayed() const
    {
        int delayed = 0;
        for (int i = 0; i < m_window->GetTabCount(); ++i) {
            delayed += m_window->IsTabDelayed(i) ? 1 : 0;
        }
        return delayed;
    }
    /// Triggers an entry of a tab's own menu.
    void OpenTabMenu(int index)
    {
        TabButton* const button = m_window->findChild<TabStrip*>()->GetButton(index);
        ASSERT_NE(button, nullptr);
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(4, 4), button->mapToGlobal(QPoint(4, 4)));
        QApplication::sendEvent(button, &event);
    }
    void ChooseInMenu(const QString& text)
    {
        const auto menus = m_window->findChildren<QMenu*>();
        for (QMenu* menu : menus) {
            const auto actions = menu->actions();
            for (QAction* action : actions) {
                if (menu->isVisible() && action->text() == text) {
                    action->trigger();
                    menu->close();
                    return;
                }
            }
        }
        FAIL() << "no such entry: " << qPrintable(text);
    }
    void PressReopen()
    {
        QTest::keyClick(m_window.get(), Qt::Key_T, Qt::ControlModifier | Qt::ShiftModifier);
    }
};

class RecordedTabTest : public DelayedTabTest, public ::testing::WithParamInterface<Recorded>
{};

} // namespace

TEST_P(RecordedTabTest, IsRecordedAgainAsItWasWithoutEverBeingSelected)
{
    OpenRecorded(GetParam());
    EXPECT_TRUE(m_window->IsTabDelayed(1));
    EXPECT_EQ(GetRecorded(1), GetParam());
    OpenRecorded(GetRecorded(1));
    EXPECT_EQ(GetRecorded(2), GetParam());
    EXPECT_TRUE(m_pages.pages.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, RecordedTabTest,
    ::testing::Values(
        Recorded{QStringLiteral(
                     "tl://browser/open?url=https%3A%2F%2Fa.example%2Fp%3Fx%3D1%26y%3D%25C3%25A4%23top"),
                 QStringLiteral("Saved"), QStringLiteral("https://a.example/i.png?a=1&b=%20"),
                 TabType::WebPage},
        Recorded{QStringLiteral("tl://browser/open?url=https%3A%2F%2Fxn--fiq228c.example%2F"),
                 QStringLiteral("  <b>two  spaces</b> &amp; 中文 \u202e"),
                 QStringLiteral("https://中文.example/图标.png"), TabType::WebPage},
        Recorded{QStringLiteral("tl://browser/open?url=http%3A%2F%2F127.0.0.1%3A8080"), QStringLiteral("127"),
                 QString(), TabType::WebPage},
        Recorded{QStringLiteral("tl://plugin/open?code=orders"), QStringLiteral("My orders (3)"),
                 QStringLiteral("https://cdn.example/orders-3.png"), TabType::WebApp},
        Recorded{QStringLiteral("tl://plugin/open?code=print"), QStringLiteral("Labels"),
                 QStringLiteral("https://cdn.example/labels.png"), TabType::NativeApp},
        Recorded{QStringLiteral("tl://plugin/open?code=taken%20away"), QStringLiteral("An app of last week"),
                 QStringLiteral("https://cdn.example/old.png"), TabType::WebApp}));

TEST_F(DelayedTabTest, HasNoWidgetsWhateverItIs)
{
    OpenMany(40); // the strip is full
    const int before = m_window->findChildren<QWidget*>().size();
    for (int i = 0; i < 20; ++i) {
        OpenDelayed(QStringLiteral("https://a.example/"), QStringLiteral("A page"));
        OpenDelayed(QStringLiteral("file:///etc/passwd"), QStringLiteral("A refused one"));
        OpenDelayedApp(QStringLiteral("orders"));
        OpenDelayedApp(QStringLiteral("print"));
        OpenDelayedApp(QStringLiteral("nobody"));
    }
    EXPECT_EQ(m_window->findChildren<QWidget*>().size(), before);
    EXPECT_TRUE(m_pages.pages.isEmpty());
    EXPECT_EQ(CountDelayed(), 140);
    EXPECT_FALSE(m_window->IsTabDelayed(-1));
    EXPECT_FALSE(m_window->IsTabDelayed(0));
    EXPECT_FALSE(m_window->IsTabDelayed(141));
}

TEST_F(DelayedTabTest, EveryKindBeginsWhenItIsSelected)
{
    OpenDelayed(QStringLiteral("https://a.example/"), QStringLiteral("A page"));
    OpenDelayed(QStringLiteral("file:///etc/passwd"), QStringLiteral("A refused one"));
    OpenDelayedApp(QStringLiteral("orders"));
    OpenDelayedApp(QStringLiteral("print"), QStringLiteral("Labels"));
    OpenDelayedApp(QStringLiteral("nobody"));
    m_window->SelectTab(1);
    ASSERT_EQ(m_pages.pages.size(), 1);
    EXPECT_EQ(GetData(1).GetTitle(), QStringLiteral("A page")) << "the page has not said its title yet";
    m_window->SelectTab(2);
    EXPECT_EQ(GetMessage().value(0), QStringLiteral("This address was not opened"));
    m_window->SelectTab(3);
    EXPECT_EQ(m_pages.pages.size(), 2);
    m_window->SelectTab(4);
    EXPECT_EQ(GetMessage().value(0), QStringLiteral("Labels"));
    m_window->SelectTab(5);
    EXPECT_EQ(GetMessage().value(0), QStringLiteral("Unknown app"));
    EXPECT_EQ(CountDelayed(), 0);
}

TEST_F(DelayedTabTest, KeepsItsTitleThroughAChangeOfLanguage)
{
    OpenDelayed(QStringLiteral("https://a.example/"), QStringLiteral("Home"));
    OpenDelayed(QStringLiteral("https://b.example/"), QString());
    OpenDelayedApp(QStringLiteral("orders"), QStringLiteral("New tab"));
    OpenDelayed(QString(), QString());
    LanguageManager languages(QStringLiteral(TL_TRANSLATIONS_DIR));
    QSignalSpy changed(m_window.get(), &MainWindow::SigTabChanged);
    languages.Apply(QStringLiteral("zh_CN"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return GetTitles().first() == QStringLiteral("首页"); }));
    EXPECT_EQ(GetTitles().mid(1, 3),
              QStringList({QStringLiteral("Home"), QStringLiteral("b.example"), QStringLiteral("New tab")}));
    EXPECT_NE(GetTitles().at(4), QStringLiteral("Address not opened")) << "the client's own words stayed";
    EXPECT_EQ(changed.size(), 2) << "tabs whose title did not change were announced";
}

TEST_F(DelayedTabTest, AnAppKeepsItsSavedFaceWhenTheAppListChanges)
{
    OpenDelayedApp(QStringLiteral("orders"), QStringLiteral("My orders (3)"),
                   QStringLiteral("https://cdn.example/3.png"));
    OpenDelayedApp(QStringLiteral("orders"));
    const Recorded before = GetRecorded(1);
    auto renamed = MakeApp(QStringLiteral("orders"), QStringLiteral("https://orders.example/new"));
    renamed->setProperty("name", QStringLiteral("Sales"));
    m_apps.SetPlugins({renamed});
    EXPECT_EQ(GetRecorded(1), before);
    EXPECT_EQ(GetData(2).GetTitle(), QStringLiteral("Sales")) << "a name by the list follows the list";
    EXPECT_TRUE(m_pages.pages.isEmpty());
    m_window->SelectTab(1);
    ASSERT_EQ(m_pages.pages.size(), 1);
    EXPECT_EQ(m_pages.pages.first()->loads,
              QList<QUrl>({QUrl(QStringLiteral("https://orders.example/new"))}));
}

TEST_F(DelayedTabTest, AnAppThatIsTakenAwayKeepsItsSavedFaceAndSaysSoWhenSelected)
{
    OpenDelayedApp(QStringLiteral("orders"), QStringLiteral("My orders"),
                   QStringLiteral("https://c.example/i"));
    OpenDelayedApp(QStringLiteral("print"), QStringLiteral("Labels"));
    const Recorded orders = GetRecorded(1);
    const Recorded print = GetRecorded(2);
    m_apps.SetPlugins({});
    EXPECT_EQ(GetRecorded(1), orders);
    EXPECT_EQ(GetRecorded(2), print) << "what kind of app it was is not known any more";
    EXPECT_EQ(CountDelayed(), 2);
    m_window->SelectTab(1);
    EXPECT_EQ(GetMessage().value(0), QStringLiteral("Unknown app"));
    EXPECT_EQ(GetRecorded(1), orders);

    m_apps.SetPlugins({MakeApp(QStringLiteral("orders"), QStringLiteral("https://orders.example/start")),
                       MakeApp(QStringLiteral("print"), QString())});
    EXPECT_EQ(m_pages.pages.size(), 1);
    EXPECT_EQ(GetRecorded(1), orders);
    EXPECT_EQ(GetRecorded(2), print);
    EXPECT_TRUE(m_window->IsTabDelayed(2)) << "the app list woke a tab";
}

TEST_F(DelayedTabTest, AnAppThatTheListDoesNotKnowYetKeepsItsSavedFaceOnceItDoes)
{
    OpenDelayedApp(QStringLiteral("late"), QStringLiteral("Late (1)"), QStringLiteral("https://c.example/l"));
    OpenApp(QStringLiteral("late"));
    EXPECT_EQ(GetData(2).GetTitle(), QStringLiteral("Unknown app"));
    m_apps.SetPlugins({MakeApp(QStringLiteral("late"), QStringLiteral("https://late.example/"))});
    EXPECT_EQ(GetData(1).GetTitle(), QStringLiteral("Late (1)"));
    EXPECT_EQ(GetData(1).GetIconUrl(), QStringLiteral("https://c.example/l"));
    EXPECT_EQ(GetData(2).GetTitle(), QStringLiteral("LATE"));
    EXPECT_EQ(m_pages.pages.size(), 1) << "only the tab that was not to wait loads";
}

TEST_F(DelayedTabTest, StaysUnloadedWhenItIsMovedClosedAndReopened)
{
    OpenMany(5);
    const Recorded third = GetRecorded(3);
    m_window->MoveTab(3, 1);
    EXPECT_EQ(GetRecorded(1), third);
    m_window->CloseTab(1);
    EXPECT_EQ(m_window->GetTabCount(), 5);
    m_window->SelectTab(4);
    ASSERT_EQ(m_pages.pages.size(), 1);

    PressReopen();
    ASSERT_EQ(m_window->GetTabCount(), 6);
    EXPECT_EQ(GetRecorded(1), third);
    EXPECT_TRUE(m_window->IsTabDelayed(1));
    EXPECT_EQ(m_window->GetTabAddress(m_window->GetCurrentTab()), QStringLiteral("https://shop-5.example/"))
        << "it came to the front, where it would have to load";
    EXPECT_EQ(m_pages.pages.size(), 1);
    m_window->SelectTab(1);
    EXPECT_EQ(m_pages.pages.size(), 2);
    EXPECT_EQ(GetRecorded(1), third);
}

TEST_F(DelayedTabTest, WhereItIsReopenedIsScrolledIntoSight)
{
    OpenMany(100);
    m_window->CloseTab(70);
    PressReopen();
    EXPECT_TRUE(m_window->IsTabDelayed(70));
    EXPECT_NE(m_window->findChild<TabStrip*>()->GetButton(70), nullptr);
}

TEST_F(DelayedTabTest, ATabThatWasLoadedComesBackToTheFrontAndLoads)
{
    OpenMany(2);
    m_window->SelectTab(1);
    m_pages.pages.first()->Arrive(QUrl(QStringLiteral("https://shop-1.example/next")),
                                  QStringLiteral("Next"));
    m_window->CloseTab(1);
    PressReopen();
    EXPECT_EQ(m_window->GetCurrentTab(), 1);
    EXPECT_EQ(GetData(1).GetTitle(), QStringLiteral("Next"));
    EXPECT_EQ(m_window->GetTabAddress(1), QStringLiteral("https://shop-1.example/next"));
    EXPECT_FALSE(m_window->IsTabDelayed(1));
}

TEST_F(DelayedTabTest, ClosingTheOthersLoadsNoneOfThem)
{
    OpenMany(12);
    m_window->SelectTab(6);
    m_window->SelectTab(1);
    ASSERT_EQ(m_pages.pages.size(), 2);
    m_window->SelectTab(6);
    OpenTabMenu(1);
    ChooseInMenu(QStringLiteral("Close other tabs"));
    EXPECT_EQ(GetTitles(), QStringList({QStringLiteral("Home"), QStringLiteral("Shop 1")}));
    EXPECT_EQ(m_pages.pages.size(), 2);
}

TEST_F(DelayedTabTest, TheMenuOfATabThatIsGoneClosesNoOthers)
{
    OpenMany(3);
    OpenTabMenu(2);
    m_window->CloseTab(2); // as its page may do
    const QStringList left = GetTitles();
    ChooseInMenu(QStringLiteral("Close other tabs"));
    EXPECT_EQ(GetTitles(), left);
}

TEST_F(DelayedTabTest, WhileAllIsOpenedDelayedNothingLoadsOrComesToTheFront)
{
    m_window->SetOpenDelayed(true);
    TabOpenInfo page;
    page.address = QStringLiteral("https://a.example/");
    page.activate = true;
    m_window->OpenUrl(page, -1);
    PluginOpenInfo app;
    app.serviceCode = QStringLiteral("orders");
    app.activation = QStringLiteral("1");
    m_window->OpenPlugin(app, -1);
    m_window->OpenPlugin(app, 1);
    EXPECT_TRUE(m_pages.pages.isEmpty());
    EXPECT_EQ(m_window->GetCurrentTab(), 0);
    EXPECT_EQ(CountDelayed(), 3);

    m_window->OpenStartTab();
    EXPECT_EQ(m_window->GetCurrentTab(), 4) << "what the user opens is shown";
    m_window->SelectTab(1);
    EXPECT_EQ(m_pages.pages.size(), 1);

    m_window->SetOpenDelayed(false);
    m_window->OpenUrl(page, -1);
    EXPECT_EQ(m_window->GetCurrentTab(), 5);
    EXPECT_EQ(m_pages.pages.size(), 2);
}

TEST_F(DelayedTabTest, OfASetBeingReopenedOnlyTheFirstLoad)
{
    m_window->BeginReopening(&ClaimAll);
    OpenDelayed(QStringLiteral("https://later.example/"), QStringLiteral("Later"));
    for (int i = 0; i < 1000; ++i) {
        OpenUrl(QStringLiteral("https://shop-%1.example/").arg(i));
    }
    OpenApp(QStringLiteral("orders"));
    EXPECT_TRUE(m_pages.pages.isEmpty()) << "not before it is known which one is in front";
    m_window->EndReopening();
    EXPECT_TRUE(m_window->IsLoading()) << "more is to come";
    EXPECT_TRUE(QTest::qWaitFor([this] { return CountDelayed() == 1002 - MainWindow::ReopenedAtOnce; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(m_pages.pages.size(), MainWindow::ReopenedAtOnce);
    EXPECT_TRUE(m_window->IsTabDelayed(1));
    EXPECT_FALSE(m_window->IsTabDelayed(2));
    EXPECT_FALSE(m_window->IsTabDelayed(2 + MainWindow::ReopenedAtOnce - 1));
    EXPECT_TRUE(m_window->IsTabDelayed(2 + MainWindow::ReopenedAtOnce));
    EXPECT_EQ(m_window->GetCurrentTab(), 0);

    OpenUrl(QStringLiteral("https://after.example/"));
    EXPECT_EQ(m_pages.pages.size(), MainWindow::ReopenedAtOnce + 1);
    m_window->BeginReopening(&ClaimAll);
    OpenUrl(QStringLiteral("https://another-set.example/"));
    m_window->EndReopening();
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_pages.pages.size() == MainWindow::ReopenedAtOnce + 2; }));
}

TEST_F(DelayedTabTest, OfASetBeingReopenedThePageInFrontLoadsFirst)
{
    m_window->BeginReopening(&ClaimAll);
    for (int i = 0; i < 4; ++i) {
        OpenUrl(QStringLiteral("https://shop-%1.example/").arg(i));
    }
    m_window->EndReopening();
    m_window->SelectTab(3);
    QCoreApplication::processEvents();
    ASSERT_EQ(m_pages.pages.size(), 1);
    EXPECT_EQ(m_pages.pages[0]->loads, QList<QUrl>{QUrl(QStringLiteral("https://shop-2.example/"))});
    const QSignalSpy idle(m_window.get(), &MainWindow::SigIdle);

    m_pages.pages[0]->Finish(true);
    ASSERT_TRUE(QTest::qWaitFor([this] { return m_pages.pages.size() == 4; }));
    EXPECT_EQ(m_pages.pages[1]->loads, QList<QUrl>{QUrl(QStringLiteral("https://shop-0.example/"))});
    EXPECT_TRUE(idle.isEmpty());
    for (int i = 1; i < 4; ++i) {
        m_pages.pages[i]->Finish(true);
    }
    EXPECT_EQ(idle.count(), 1);
    EXPECT_EQ(m_window->GetCurrentTab(), 3);
}

TEST_F(DelayedTabTest, APageInFrontThatFailsHoldsNobodyUp)
{
    m_window->BeginReopening(&ClaimAll);
    for (int i = 0; i < 3; ++i) {
        OpenUrl(QStringLiteral("https://shop-%1.example/").arg(i));
    }
    m_window->EndReopening();
    m_window->SelectTab(1);
    QCoreApplication::processEvents();
    m_pages.pages[0]->Fail(PageFailure::Kind::NoNetwork, QUrl(QStringLiteral("https://shop-0.example/")));
    EXPECT_TRUE(
        QTest::qWaitFor([this] { return m_pages.pages.size() == 3; }, MainWindow::FrontGoesFirst / 2));
}

TEST_F(DelayedTabTest, APageInFrontThatNeverEndsHoldsNobodyUpForLong)
{
    m_window->BeginReopening(&ClaimAll);
    for (int i = 0; i < 3; ++i) {
        OpenUrl(QStringLiteral("https://shop-%1.example/").arg(i));
    }
    m_window->EndReopening();
    m_window->SelectTab(1);
    EXPECT_TRUE(
        QTest::qWaitFor([this] { return m_pages.pages.size() == 3; }, MainWindow::FrontGoesFirst * 3));
}

TEST_F(DelayedTabTest, TabsOfASetThatWereClosedOrSelectedMeanwhileDoNotLoadAgain)
{
    m_window->BeginReopening(&ClaimAll);
    for (int i = 0; i < 4; ++i) {
        OpenUrl(QStringLiteral("https://shop-%1.example/").arg(i));
    }
    m_window->EndReopening();
    m_window->SelectTab(1);
    QCoreApplication::processEvents();
    m_window->CloseTab(2);
    m_window->SelectTab(2);
    ASSERT_EQ(m_pages.pages.size(), 2);
    m_pages.pages[1]->Finish(true);
    ASSERT_TRUE(QTest::qWaitFor([this] { return CountDelayed() == 0; }));
    EXPECT_EQ(m_pages.pages.size(), 3);
    for (const QPointer<FakePage>& page : qAsConst(m_pages.pages)) {
        EXPECT_EQ(page->loads.size(), 1);
    }
}

TEST_F(DelayedTabTest, OfASetBeingReopenedOneThatIsToComeToTheFrontLoadsAtOnce)
{
    m_window->BeginReopening(&ClaimAll);
    OpenUrl(QStringLiteral("https://shop.example/"));
    TabOpenInfo front;
    front.address = QStringLiteral("https://front.example/");
    front.activate = true;
    m_window->OpenUrl(front, -1);
    EXPECT_EQ(m_window->GetCurrentTab(), 2);
    EXPECT_EQ(m_pages.pages.size(), 1);
    EXPECT_FALSE(m_window->IsTabDelayed(2));
    m_window->EndReopening();
}

TEST_F(DelayedTabTest, WhileASetIsReopenedATabOutsideItLoadsAtOnce)
{
    m_window->BeginReopening([](const QString& routerUrl) -> std::optional<TabRecord> {
        if (routerUrl.contains(QStringLiteral("foreign"))) {
            return std::nullopt;
        }
        return TabRecord{routerUrl};
    });
    OpenUrl(QStringLiteral("https://shop.example/"));
    OpenUrl(QStringLiteral("https://foreign.example/"));
    EXPECT_TRUE(m_window->IsTabDelayed(1));
    EXPECT_FALSE(m_window->IsTabDelayed(2));
    EXPECT_EQ(m_pages.pages.size(), 1);
    m_window->EndReopening();
}

TEST_F(DelayedTabTest, AnOpeningWithoutATitleGetsTheSavedFace)
{
    QStringList lookedUp;
    m_window->BeginReopening([&lookedUp](const QString& routerUrl) -> std::optional<TabRecord> {
        lookedUp << routerUrl;
        if (routerUrl.contains(QStringLiteral("nothing"))) {
            return std::nullopt;
        }
        return TabRecord{routerUrl, QStringLiteral("Saved"), QStringLiteral("https://c.example/saved.png")};
    });
    OpenUrl(QStringLiteral("https://a.example/"));
    OpenApp(QStringLiteral("orders"));
    OpenUrl(QStringLiteral("https://nothing.example/"));
    OpenDelayed(QStringLiteral("https://b.example/"), QStringLiteral("Given"));
    m_window->OpenStartTab();
    EXPECT_EQ(lookedUp, QStringList({QStringLiteral("tl://browser/open?url=https%3A%2F%2Fa.example%2F"),
                                     QStringLiteral("tl://plugin/open?code=orders"),
                                     QStringLiteral("tl://browser/open?url=https%3A%2F%2Fnothing.example%2F"),
                                     QStringLiteral("tl://browser/open?url=https%3A%2F%2Fb.example%2F")}));
    EXPECT_EQ(GetTitles().mid(1, 4),
              QStringList({QStringLiteral("Saved"), QStringLiteral("Saved"),
                           QStringLiteral("nothing.example"), QStringLiteral("Given")}));
    EXPECT_EQ(GetData(1).GetIconUrl(), QStringLiteral("https://c.example/saved.png"));
    EXPECT_EQ(GetData(2).GetIconUrl(), QStringLiteral("https://c.example/saved.png"));

    m_window->EndReopening();
    m_window->SelectTab(1);
    m_pages.pages.last()->Arrive(QUrl(QStringLiteral("https://a.example/")),
                                 QStringLiteral("The page's own"));
    EXPECT_EQ(GetData(1).GetTitle(), QStringLiteral("The page's own"));
    OpenUrl(QStringLiteral("https://a.example/"));
    EXPECT_EQ(GetData(6).GetTitle(), QStringLiteral("a.example"));
    EXPECT_EQ(lookedUp.size(), 4);
}

TEST_F(DelayedTabTest, IconsAreFetchedOnceAndOnlyForTabsInSight)
{
    const auto countAsked = [this](int number) {
        const QString url = QStringLiteral("https://shop-%1.example/icon.png").arg(number);
        return std::count_if(m_pictures.cbegin(), m_pictures.cend(),
                             [&url](const PictureRequest& request) { return request.url == url; });
    };
    OpenMany(200);
    ASSERT_TRUE(QTest::qWaitFor([&] { return countAsked(1) > 0; }));
    EXPECT_EQ(countAsked(200), 0);
    EXPECT_LT(m_pictures.size(), 30);

    m_window->SelectTab(200);
    ASSERT_TRUE(QTest::qWaitFor([&] { return countAsked(200) > 0; }));
    m_window->SelectTab(1);
    m_window->SelectTab(200);
    QCoreApplication::processEvents();
    EXPECT_EQ(countAsked(1), 1);
    EXPECT_EQ(countAsked(200), 1);
    EXPECT_EQ(countAsked(100), 0);
}

TEST_F(DelayedTabTest, AnIconThatArrivesIsShownAndIsNoChangeOfTheTab)
{
    const QString url = QStringLiteral("https://a.example/i.png");
    OpenDelayed(QStringLiteral("https://a.example/"), QStringLiteral("A"), url);
    QPixmap red(16, 16);
    red.fill(Qt::red);
    ASSERT_TRUE(QTest::qWaitFor([&] {
        return std::any_of(m_pictures.cbegin(), m_pictures.cend(),
                           [&url](const PictureRequest& request) { return request.url == url; });
    }));
    QSignalSpy changed(m_window.get(), &MainWindow::SigTabChanged);
    ASSERT_TRUE(DeliverPicture(url, red));
    const auto shown = [this] {
        return m_window->findChild<TabStrip*>()->GetItem(1).icon.pixmap(16, 16).toImage().pixelColor(8, 8);
    };
    EXPECT_EQ(shown(), QColor(Qt::red));
    EXPECT_TRUE(changed.isEmpty()) << "the tabs would be saved again for nothing";
    m_window->SelectTab(1);
    EXPECT_EQ(shown(), QColor(Qt::red)) << "the saved icon is shown until the page says its own";
    m_window->CloseTab(1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(DeliverPicture(url, red)) << "the tab waits for its icon although it is gone";
}

TEST_F(DelayedTabTest, AnIconThatStandsInItsOwnAddressIsShownButNotRecorded)
{
    OpenUrl(QStringLiteral("https://a.example/"));
    Q_EMIT m_pages.pages.first()->SigIconChanged(QUrl(QStringLiteral("data:image/png;base64,AAAA")), QIcon());
    EXPECT_EQ(GetData(1).GetIconUrl(), QString());
    Q_EMIT m_pages.pages.first()->SigIconChanged(
        QUrl(QStringLiteral("https://a.example/") + QString(5000, QLatin1Char('x'))), QIcon());
    EXPECT_EQ(GetData(1).GetIconUrl(), QString());
    Q_EMIT m_pages.pages.first()->SigIconChanged(QUrl(QStringLiteral("https://a.example/i.png")), QIcon());
    EXPECT_EQ(GetData(1).GetIconUrl(), QStringLiteral("https://a.example/i.png"));
}
