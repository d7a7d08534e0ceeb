#include "WebEngineFixture.h"

#include "WebEnginePage.h"
#include "WebEngineTabPage.h"
#include "pages/PageDialog.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWebEngineWidgets/QWebEnginePage>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>

namespace {

/// What the engine tells of loads that begin, of those that never do, and of those that a page does by
/// itself.
class WebEngineNavigationTest : public WebEngineFixture
{
protected:
    WebEngineNavigationTest()
    {
        m_server.SetPage(QStringLiteral("/page"),
                         "<title>page</title><body style='margin:0'>"
                         "<a href='#there' style='display:block;height:300px'>there</a><p id=there>");
        m_server.SetPage(QStringLiteral("/form"),
                         "<title>form</title><body style='margin:0' onbeforeunload=\"return 'stay'\">"
                         "<input style='display:block;width:300px;height:100px'>"
                         "<a href='/ok' style='display:block;height:300px'>away</a>");
        m_window.reset();
        m_page = m_pages->CreatePage(nullptr);
        m_page->GetWidget()->resize(600, 500);
        m_page->GetWidget()->show();
        QObject::connect(m_page.get(), &ITabPage::SigLoadStarted, &m_context, [this] { ++m_started; });
        QObject::connect(m_page.get(), &ITabPage::SigLoadFinished, &m_context, [this] { ++m_finished; });
        QObject::connect(m_page.get(), &ITabPage::SigUrlChanged, &m_context,
                         [this](const QUrl& url) { m_told = url; });
        // Not in the timer's own event: the next question would wait for a timer that waits for it.
        QObject::connect(
            &m_watch, &QTimer::timeout, &m_watch, [this] { Answer(); }, Qt::QueuedConnection);
        m_watch.start(5);
    }

    QWebEnginePage* GetEngine() const
    {
        return static_cast<WebEngineTabPage*>(m_page.get())->GetEnginePage();
    }
    QVariant RunHere(const QString& script)
    {
        QVariant result;
        bool done = false;
        GetEngine()->runJavaScript(script, [&](const QVariant& value) {
            result = value;
            done = true;
        });
        EXPECT_TRUE(WaitUntil([&done] { return done; }));
        return result;
    }
    bool IsAtRest() const { return !m_page->IsLoading() && m_started == m_finished; }
    bool LoadAndWait(const QString& path)
    {
        const QUrl url = m_server.GetUrl(path);
        m_page->Load(url);
        return WaitUntil([&] { return IsAtRest() && GetEngine()->url() == url; });
    }
    /// Waits until the page is at rest and has told an address with this end.
    bool ArrivesAt(const QString& end)
    {
        return WaitUntil([&] { return IsAtRest() && m_told.toString().endsWith(end); });
    }
    void ClickHere(const QPoint& place)
    {
        QTest::mouseClick(m_page->GetWidget()->focusProxy(), Qt::LeftButton, {}, place);
    }
    /// Loads the form and types something into it: without, the engine does not ask.
    void FillForm()
    {
        ASSERT_TRUE(LoadAndWait(QStringLiteral("/form")));
        ClickHere(QPoint(50, 50));
        QTest::keyClicks(m_page->GetWidget()->focusProxy(), QStringLiteral("abc"));
        ASSERT_TRUE(WaitUntil([this] {
            return RunHere(QStringLiteral("document.querySelector('input').value")) == QStringLiteral("abc");
        }));
    }
    /// What the user says to the dialog of a page.
    void Answer()
    {
        const auto windows = QApplication::topLevelWidgets();
        for (QWidget* window : windows) {
            auto* dialog = qobject_cast<PageDialog*>(window);
            if (!dialog || !dialog->isVisible()) {
                continue;
            }
            if (!m_thinking.isValid()) {
                m_thinking.start();
            }
            if (!m_thinking.hasExpired(m_thinkTime)) {
                return;
            }
            m_thinking.invalidate();
            m_asked << dialog->findChild<QLabel*>(QStringLiteral("page_dialog_text"))->text();
            auto* silence = dialog->findChild<QCheckBox*>();
            m_silenceOffered = silence != nullptr;
            if (silence) {
                silence->setChecked(m_silence);
            }
            dialog->done(m_accept ? QDialog::Accepted : QDialog::Rejected);
            return;
        }
    }
    /// Lets the page say something twice and ticks the box against more of it.
    void Silence()
    {
        m_silence = true;
        RunHere(QStringLiteral("alert('one'); alert('two'); alert('three')"));
        ASSERT_EQ(m_asked, QStringList({QStringLiteral("one"), QStringLiteral("two")}));
        m_asked.clear();
    }

    const QString m_leave = QStringLiteral("Changes you made there may not be saved.");
    std::unique_ptr<ITabPage> m_page;
    int m_started = 0;
    int m_finished = 0;
    QUrl m_told;
    QStringList m_asked;
    bool m_accept = true;
    bool m_silence = false;
    bool m_silenceOffered = false;
    int m_thinkTime = 0; // of the user over a dialog [ms]
    QElapsedTimer m_thinking;
    QTimer m_watch;
    QObject m_context; // goes before what its receivers look at
};

} // namespace

TEST_F(WebEngineNavigationTest, AnotherPlaceInTheSamePageIsThereAtOnce)
{
    ASSERT_TRUE(LoadAndWait(QStringLiteral("/page")));
    const QUrl place = m_server.GetUrl(QStringLiteral("/page#typed"));
    m_page->Load(place);
    EXPECT_TRUE(ArrivesAt(QStringLiteral("#typed"))) << "the tab seems to load for ever";
    EXPECT_EQ(m_page->GetUrl(), place);
    EXPECT_EQ(m_page->GetTitle(), QStringLiteral("page"));
    EXPECT_EQ(m_server.GetRequests().count(QStringLiteral("/page")), 1);
    EXPECT_TRUE(LoadAndWait(QStringLiteral("/ok"))) << "what comes next is a load like any other";
    EXPECT_EQ(m_page->GetTitle(), QStringLiteral("All well"));
}

TEST_F(WebEngineNavigationTest, APlaceThatTheEngineSpellsInAnotherWayIsThereAtOnce)
{
    ASSERT_TRUE(LoadAndWait(QStringLiteral("/page")));
    m_page->Load(m_server.GetUrl(QStringLiteral("/page#typed {twice} ü")));
    EXPECT_TRUE(ArrivesAt(QStringLiteral("ü")));
}

TEST_F(WebEngineNavigationTest, APlaceThatTheUserClicksForIsToldAndCanBeLeft)
{
    ASSERT_TRUE(LoadAndWait(QStringLiteral("/page")));
    ClickHere(QPoint(50, 50));
    EXPECT_TRUE(ArrivesAt(QStringLiteral("#there")));
    m_page->Back();
    EXPECT_TRUE(ArrivesAt(QStringLiteral("/page")));
}

TEST_F(WebEngineNavigationTest, AnAddressThatThePageGivesItselfIsTold)
{
    ASSERT_TRUE(LoadAndWait(QStringLiteral("/page")));
    RunHere(QStringLiteral("history.pushState(1, '', '#pushed')"));
    EXPECT_TRUE(ArrivesAt(QStringLiteral("#pushed")));
    RunHere(QStringLiteral("history.replaceState(1, '', '#replaced')"));
    EXPECT_TRUE(ArrivesAt(QStringLiteral("#replaced")));
}

TEST_F(WebEngineNavigationTest, WhoStaysKeepsThePageWithItsAddressAndTitle)
{
    FillForm();
    const QUrl form = m_server.GetUrl(QStringLiteral("/form"));
    m_accept = false;
    QSignalSpy titles(m_page.get(), &ITabPage::SigTitleChanged);
    m_page->Load(m_server.GetUrl(QStringLiteral("/ok")));
    ASSERT_TRUE(WaitUntil([this] { return !m_asked.isEmpty(); }));
    EXPECT_TRUE(WaitUntil([this] { return IsAtRest(); })) << "the tab seems to load for ever";
    EXPECT_EQ(m_asked, QStringList{m_leave});
    EXPECT_EQ(m_told, form);
    EXPECT_EQ(m_page->GetUrl(), form);
    EXPECT_EQ(titles.value(0), QVariantList{QStringLiteral("form")});
}

TEST_F(WebEngineNavigationTest, WhoStaysMayLoadAgainBeforeThePageKnowsTheAnswer)
{
    FillForm();
    m_accept = false;
    m_page->Load(m_server.GetUrl(QStringLiteral("/ok")));
    ASSERT_TRUE(WaitUntil([this] { return !m_asked.isEmpty(); }));
    m_accept = true;
    EXPECT_TRUE(LoadAndWait(QStringLiteral("/ok")));
    EXPECT_EQ(m_asked.size(), 2) << "the page is asked as often as the user wants to leave it";
    EXPECT_EQ(m_page->GetTitle(), QStringLiteral("All well"));
}

TEST_F(WebEngineNavigationTest, ATabMayGoBeforeItsPageKnowsThatItStays)
{
    FillForm();
    m_accept = false;
    QObject::connect(
        static_cast<WebEnginePage*>(GetEngine()), &WebEnginePage::SigStays, &m_context,
        [this] { m_page.reset(); }, Qt::QueuedConnection);
    m_page->Load(m_server.GetUrl(QStringLiteral("/ok")));
    EXPECT_TRUE(WaitUntil([this] { return !m_page; }));
}

TEST_F(WebEngineNavigationTest, ALoadStoppedAtOnceLeavesThePageWithItsAddress)
{
    ASSERT_TRUE(LoadAndWait(QStringLiteral("/page")));
    m_server.SetReply(QStringLiteral("/never"), "", WebServer::AfterReply::Wait);
    m_page->Load(m_server.GetUrl(QStringLiteral("/never")));
    m_page->Stop();
    EXPECT_TRUE(ArrivesAt(QStringLiteral("/page")));
    EXPECT_EQ(m_page->GetUrl(), m_server.GetUrl(QStringLiteral("/page")));
    EXPECT_TRUE(LoadAndWait(QStringLiteral("/ok")));
}

TEST_F(WebEngineNavigationTest, ALoadStoppedWhileTheServerIsAskedLeavesThePageWithItsAddress)
{
    ASSERT_TRUE(LoadAndWait(QStringLiteral("/page")));
    m_server.SetReply(QStringLiteral("/never"), "", WebServer::AfterReply::Wait);
    m_page->Load(m_server.GetUrl(QStringLiteral("/never")));
    ASSERT_TRUE(WaitUntil([this] { return m_server.GetRequests().contains(QStringLiteral("/never")); }));
    m_page->Stop();
    EXPECT_TRUE(ArrivesAt(QStringLiteral("/page")));
    EXPECT_EQ(m_page->GetUrl(), m_server.GetUrl(QStringLiteral("/page")));
    EXPECT_TRUE(LoadAndWait(QStringLiteral("/ok")));
}

TEST_F(WebEngineNavigationTest, ALoadThatIsStoppedAsSoonAsItIsToldNeverStarts)
{
    ASSERT_TRUE(LoadAndWait(QStringLiteral("/page")));
    const auto stop =
        QObject::connect(m_page.get(), &ITabPage::SigLoadStarted, &m_context, [this] { m_page->Stop(); });
    m_page->Load(m_server.GetUrl(QStringLiteral("/form")));
    EXPECT_TRUE(IsAtRest());
    EXPECT_EQ(m_page->GetUrl().path(), QStringLiteral("/page"));
    QObject::disconnect(stop);
    EXPECT_TRUE(LoadAndWait(QStringLiteral("/ok")));
    EXPECT_FALSE(m_server.GetRequests().contains(QStringLiteral("/form")));
}

TEST_F(WebEngineNavigationTest, AStepBackTakesThePlaceOfALoadThatHasNotBegun)
{
    FillForm(); // whose page is asked first, so that the load has not begun
    RunHere(QStringLiteral("history.pushState(1, '', '#more')"));
    ASSERT_TRUE(WaitUntil([this] { return m_told.hasFragment(); }));
    m_page->Load(m_server.GetUrl(QStringLiteral("/ok")));
    m_page->Back();
    EXPECT_TRUE(WaitUntil([this] { return IsAtRest() && m_told == GetEngine()->url(); }));
    EXPECT_TRUE(LoadAndWait(QStringLiteral("/ok")));
}

TEST_F(WebEngineNavigationTest, APageThatMaySayNoMoreStillAsksBeforeItIsLeft)
{
    FillForm();
    Silence();
    m_accept = false;
    ClickHere(QPoint(50, 200)); // the link
    EXPECT_TRUE(WaitUntil([this] { return m_asked == QStringList{m_leave}; })) << "stays without a question";
    EXPECT_FALSE(m_silenceOffered);
    m_accept = true;
    ClickHere(QPoint(50, 200));
    EXPECT_TRUE(WaitUntil([this] { return m_page->GetTitle() == QStringLiteral("All well"); }))
        << "the user is held in the page";
}

TEST_F(WebEngineNavigationTest, APageThatMaySayNoMoreCannotAskWithTheQuestionAboutLeaving)
{
    ASSERT_TRUE(LoadAndWait(QStringLiteral("/page")));
    Silence();
    RunHere(QStringLiteral("for (var i = 0; i < 9; ++i) confirm('Are you sure you want to leave this page? "
                           "Changes that you made may not be saved.')"));
    EXPECT_LE(m_asked.size(), 1);
}

TEST_F(WebEngineNavigationTest, APageThatMaySayNoMoreMayStillBeLoggedInto)
{
    m_server.SetPage(QStringLiteral("/orders"), "<title>Your orders</title>");
    m_server.Protect(QStringLiteral("/orders"), "ann:secret");
    ASSERT_TRUE(LoadAndWait(QStringLiteral("/page")));
    Silence();
    m_accept = false;
    RunHere(QStringLiteral("location = '/orders'"));
    EXPECT_TRUE(WaitUntil([this] { return m_asked == QStringList{QStringLiteral("Orders")}; }));
}

TEST_F(WebEngineNavigationTest, SilenceLastsUntilTheUserLoadsOrAnotherSiteIsThere)
{
    ASSERT_TRUE(LoadAndWait(QStringLiteral("/page")));
    Silence();
    RunHere(QStringLiteral("location.hash = 'more'"));
    ASSERT_TRUE(WaitUntil([this] { return m_told.hasFragment(); }));
    RunHere(QStringLiteral("alert('again')"));
    EXPECT_TRUE(m_asked.isEmpty()) << "the page undid what the user chose";

    const int before = m_finished;
    m_page->Reload();
    ASSERT_TRUE(WaitUntil([&] { return m_finished > before; }));
    Silence();
    WebServer other;
    other.SetPage(QStringLiteral("/"), "<title>other</title>");
    RunHere(QStringLiteral("location = '%1'").arg(other.GetUrl(QStringLiteral("/")).toString()));
    ASSERT_TRUE(WaitUntil([this] { return m_page->GetTitle() == QStringLiteral("other"); }));
    Silence();
}

TEST_F(WebEngineNavigationTest, APageWithSomethingToLoseAsksBeforeItIsClosed)
{
    QSignalSpy closed(m_page.get(), &ITabPage::SigCloseRequested);
    FillForm();
    m_accept = false;
    m_page->RequestClose();
    ASSERT_TRUE(WaitUntil([this] { return !m_asked.isEmpty(); }));
    EXPECT_EQ(m_asked, QStringList{m_leave});
    EXPECT_EQ(RunHere(QStringLiteral("document.querySelector('input').value")), QStringLiteral("abc"));
    EXPECT_TRUE(closed.isEmpty());

    m_accept = true;
    m_page->RequestClose();
    EXPECT_TRUE(WaitUntil([&] { return !closed.isEmpty(); }));
    EXPECT_EQ(m_asked.size(), 2);
}

TEST_F(WebEngineNavigationTest, APageWaitsToAskUntilAnotherHasBeenAnswered)
{
    FillForm();
    const std::unique_ptr<ITabPage> other = std::move(m_page);
    m_page = m_pages->CreatePage(nullptr);
    m_page->GetWidget()->resize(600, 500);
    m_page->GetWidget()->show();
    m_page->Load(m_server.GetUrl(QStringLiteral("/form")));
    ASSERT_TRUE(WaitUntil([this] { return m_page->GetTitle() == QStringLiteral("form"); }));
    ASSERT_TRUE(WaitUntil([this] { return !m_page->IsLoading(); }));
    ClickHere(QPoint(50, 50));
    QTest::keyClicks(m_page->GetWidget()->focusProxy(), QStringLiteral("abc"));
    ASSERT_TRUE(WaitUntil([this] {
        return RunHere(QStringLiteral("document.querySelector('input').value")) == QStringLiteral("abc");
    }));
    QSignalSpy closed(m_page.get(), &ITabPage::SigCloseRequested);
    QSignalSpy otherClosed(other.get(), &ITabPage::SigCloseRequested);
    m_accept = false;
    m_thinkTime = 2500; // longer than a page may take
    other->RequestClose();
    m_page->RequestClose();
    EXPECT_TRUE(WaitUntil([this] { return m_asked.size() == 2; }));
    EXPECT_TRUE(closed.isEmpty()) << "what was typed is lost";
    EXPECT_TRUE(otherClosed.isEmpty());
}

TEST_F(WebEngineNavigationTest, APageWithNothingToLoseIsClosed)
{
    QSignalSpy closed(m_page.get(), &ITabPage::SigCloseRequested);
    ASSERT_TRUE(LoadAndWait(QStringLiteral("/page")));
    m_page->RequestClose();
    EXPECT_TRUE(WaitUntil([&] { return closed.size() == 1; }));
    EXPECT_TRUE(m_asked.isEmpty());
}

TEST_F(WebEngineNavigationTest, APageThatHangsIsClosed)
{
    QSignalSpy closed(m_page.get(), &ITabPage::SigCloseRequested);
    m_server.SetPage(QStringLiteral("/busy"),
                     "<body onbeforeunload=\"return 'stay'\"><script>for (;;) {}</script>");
    m_page->Load(m_server.GetUrl(QStringLiteral("/busy")));
    ASSERT_TRUE(WaitUntil([this] { return GetEngine()->url().path() == QStringLiteral("/busy"); }));
    m_page->RequestClose();
    EXPECT_TRUE(WaitUntil([&] { return !closed.isEmpty(); }));
    EXPECT_TRUE(m_asked.isEmpty());
}
