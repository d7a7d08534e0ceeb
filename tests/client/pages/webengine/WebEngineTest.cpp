#include "WebEngineFixture.h"

#include "pages/PageDialog.h"

#include "frame-data/TabOpenInfo.h"

#include <QtCore/QDir>
#include <QtCore/QEventLoop>
#include <QtCore/QFile>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWebEngineWidgets/QWebEngineView>

#include <gmock/gmock.h>

namespace {

using WebEngineTest = WebEngineFixture;

/// Two sites, so that the tabs share no renderer; the second is in front.
class WebEngineSitesTest : public WebEngineFixture
{
protected:
    void SetUp() override
    {
        for (int i = 0; i < 2; ++i) {
            m_sites[i].SetPage(QStringLiteral("/"), "<title>site</title><body>alive</body>");
            ASSERT_TRUE(OpenAndWait(m_sites[i].GetUrl(QStringLiteral("/"))));
            ASSERT_TRUE(WaitForTitle(i + 1, QStringLiteral("site")));
            m_renderers[i] = GetView()->page()->renderProcessPid();
        }
        ASSERT_NE(m_renderers[0], m_renderers[1]);
    }

    const QString m_body = QStringLiteral("document.body.innerText");
    WebServer m_sites[2];
    qint64 m_renderers[2] = {};
};

} // namespace

TEST_F(WebEngineTest, APageLoadsAndSaysItsTitle)
{
    ASSERT_TRUE(OpenAndWait(m_server.GetUrl(QStringLiteral("/ok"))));
    EXPECT_TRUE(WaitUntil([this] { return GetTitle(1) == QStringLiteral("All well"); }));
    EXPECT_TRUE(GetMessage().isEmpty());
    EXPECT_EQ(m_window->GetTabAddress(1), m_server.GetUrl(QStringLiteral("/ok")).toString());
}

TEST_F(WebEngineTest, ATabInTheBackgroundLoadsToo)
{
    Open(m_server.GetUrl(QStringLiteral("/ok")), false);
    EXPECT_TRUE(WaitUntil([this] { return GetTitle(1) == QStringLiteral("All well"); }));
    EXPECT_EQ(m_window->GetCurrentTab(), 0);
}

TEST_F(WebEngineTest, ARefusedConnectionIsExplainedAndCanBeTriedAgain)
{
    QTcpServer port;
    ASSERT_TRUE(port.listen(QHostAddress::LocalHost));
    const QUrl url(QStringLiteral("http://127.0.0.1:%1/later").arg(port.serverPort()));
    port.close();

    EXPECT_FALSE(OpenAndWait(url));
    EXPECT_EQ(GetMessage().value(0), QStringLiteral("The site refused the connection"));
    EXPECT_EQ(GetMessage().value(2), url.toString());
    EXPECT_EQ(m_window->GetTabAddress(1), url.toString());
    EXPECT_FALSE(m_window->IsLoading());

    m_server.SetPage(QStringLiteral("/later"), "<title>Back again</title>");
    m_server.close();
    ASSERT_TRUE(m_server.listen(QHostAddress::LocalHost, quint16(url.port())));
    PressMessageButton();
    EXPECT_TRUE(WaitUntil([this] { return GetTitle(1) == QStringLiteral("Back again"); }));
    EXPECT_TRUE(WaitUntil([this] { return GetMessage().isEmpty(); }));
}

TEST_F(WebEngineTest, ATabMayBeClosedWhileTheReasonOfAFailureIsAskedFor)
{
    QTcpServer port;
    ASSERT_TRUE(port.listen(QHostAddress::LocalHost));
    const QUrl url(QStringLiteral("http://127.0.0.1:%1/").arg(port.serverPort()));
    port.close();
    Open(url);

    // At once after the end of the load, so that the document has not answered yet. The engine then answers
    // for it while the page ends.
    bool asked = false;
    QEventLoop loop;
    const auto close = [&] {
        asked = m_window->IsLoading();
        m_window.reset();
        loop.quit();
    };
    QObject::connect(GetView()->page(), &QWebEnginePage::loadFinished, &loop, close, Qt::QueuedConnection);
    QTimer::singleShot(Deadline, &loop, &QEventLoop::quit);
    loop.exec();
    EXPECT_TRUE(asked) << "nothing was open any more";
}

TEST_F(WebEngineTest, ATabMayGoWhileItsPageWaitsForAnAnswer)
{
    m_server.SetPage(QStringLiteral("/alert"), "<title>asks</title><script>alert('sure?')</script>");
    Open(m_server.GetUrl(QStringLiteral("/alert")));
    const QPointer<QWebEnginePage> page(GetView()->page());
    // Inside the dialog's own event loop, as a module or another tab does it.
    bool asked = false;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        asked = m_window->findChild<PageDialog*>() != nullptr;
        if (!asked) {
            return;
        }
        watch.stop();
        m_window->CloseTab(1);
    });
    watch.start(5);
    ASSERT_TRUE(WaitUntil([&] { return !page; })) << "the page stays for ever";
    EXPECT_TRUE(asked);
    EXPECT_EQ(m_window->findChild<PageDialog*>(), nullptr) << "a question that nobody asks any more";
    ASSERT_TRUE(OpenAndWait(m_server.GetUrl(QStringLiteral("/ok"))));
}

TEST_F(WebEngineTest, AnUnknownHostIsExplained)
{
    EXPECT_FALSE(OpenAndWait(QUrl(QStringLiteral("http://nowhere.invalid/"))));
    EXPECT_EQ(GetMessage().value(0), QStringLiteral("The site was not found"));
}

TEST_F(WebEngineTest, AServerThatSpeaksNoTlsIsNotSafe)
{
    QUrl url = m_server.GetUrl(QStringLiteral("/ok"));
    url.setScheme(QStringLiteral("https"));
    EXPECT_FALSE(OpenAndWait(url));
    EXPECT_EQ(GetMessage().value(0), QStringLiteral("The connection is not safe"));
}

TEST_F(WebEngineTest, ACertificateThatNobodyVouchesForIsNotSafeHoweverOftenItIsTried)
{
    WebServer server;
    server.UseTls();
    server.SetPage(QStringLiteral("/login"), "<title>Your password, please</title>");
    EXPECT_FALSE(OpenAndWait(server.GetUrl(QStringLiteral("/login"))));
    EXPECT_EQ(GetMessage().value(0), QStringLiteral("The connection is not safe"));
    EXPECT_EQ(GetMessage().value(2), server.GetUrl(QStringLiteral("/login")).toString());

    QSignalSpy loaded(m_window.get(), &MainWindow::SigPageLoaded);
    PressMessageButton();
    ASSERT_TRUE(!loaded.isEmpty() || loaded.wait(Deadline));
    EXPECT_EQ(GetMessage().value(0), QStringLiteral("The connection is not safe"));
    EXPECT_TRUE(server.GetRequests().isEmpty()) << "something was sent over it";
}

TEST_F(WebEngineTest, APartOfAPageWithoutAValidCertificateIsLeftOutAndThePageStays)
{
    WebServer server;
    server.UseTls();
    server.SetPage(QStringLiteral("/script"), "document.title = 'taken over'");
    m_server.SetPage(QStringLiteral("/page"), "<title>as it is</title><script src='" +
                                                  server.GetUrl(QStringLiteral("/script")).toEncoded() +
                                                  "'></script>");
    EXPECT_TRUE(OpenAndWait(m_server.GetUrl(QStringLiteral("/page"))));
    EXPECT_TRUE(WaitForTitle(1, QStringLiteral("as it is")));
    EXPECT_EQ(Run(QStringLiteral("document.title")).toString(), QStringLiteral("as it is"));
    EXPECT_TRUE(GetMessage().isEmpty());
    EXPECT_TRUE(server.GetRequests().isEmpty());
}

TEST_F(WebEngineTest, AnErrorWithAPageOfItsOwnIsShownAsThatPage)
{
    m_server.SetPage(QStringLiteral("/gone"), "<title>Not here</title>ERR_CONNECTION_REFUSED",
                     "404 Not Found");
    QSignalSpy loaded(m_window.get(), &MainWindow::SigPageLoaded);
    Open(m_server.GetUrl(QStringLiteral("/gone")));
    ASSERT_TRUE(loaded.wait(Deadline));
    EXPECT_TRUE(GetMessage().isEmpty());
    EXPECT_TRUE(WaitForTitle(1, QStringLiteral("Not here")));
}

TEST_F(WebEngineTest, AnErrorWithoutAPageIsExplained)
{
    m_server.SetPage(QStringLiteral("/empty"), "", "500 Internal Server Error");
    EXPECT_FALSE(OpenAndWait(m_server.GetUrl(QStringLiteral("/empty"))));
    EXPECT_EQ(GetMessage().value(0), QStringLiteral("The site reported an error"));
}

TEST_F(WebEngineTest, ADeadRendererIsShownAndReloadBringsThePageBack)
{
    ASSERT_TRUE(OpenAndWait(m_server.GetUrl(QStringLiteral("/ok"))));
    // The crash page cannot be reached by navigating, so the engine is asked below the client's gate.
    GetView()->page()->setUrl(QUrl(QStringLiteral("chrome://crash")));
    ASSERT_TRUE(WaitUntil([this] { return !GetMessage().isEmpty(); }));
    EXPECT_EQ(GetMessage().value(0), QStringLiteral("This page has stopped working"));
    EXPECT_EQ(m_window->GetTabAddress(1), m_server.GetUrl(QStringLiteral("/ok")).toString());

    PressMessageButton();
    EXPECT_TRUE(WaitUntil([this] { return GetMessage().isEmpty() && !m_window->IsLoading(); }));
    EXPECT_EQ(Run(QStringLiteral("document.body.innerText")).toString(), QStringLiteral("fine"));
}

TEST_F(WebEngineSitesTest, ADeadRendererInTheBackgroundDisturbsNoOtherTab)
{
    QSignalSpy changed(m_window.get(), &MainWindow::SigTabChanged);
    EndProcess(m_renderers[0]);
    ASSERT_TRUE(WaitUntil([&changed] { return changed.contains(QVariantList({1})); }));
    EXPECT_TRUE(GetMessage().isEmpty()) << "the tab in front says that it died";
    EXPECT_EQ(Run(m_body).toString(), QStringLiteral("alive"));
}

TEST_F(WebEngineSitesTest, ADeadRendererInFrontDisturbsNoOtherTab)
{
    EndProcess(m_renderers[1]);
    ASSERT_TRUE(WaitUntil([this] { return !GetMessage().isEmpty(); }));
    EXPECT_EQ(GetMessage().value(0), QStringLiteral("This page has stopped working"));
    m_window->SelectTab(1);
    EXPECT_TRUE(GetMessage().isEmpty());
    EXPECT_EQ(Run(m_body).toString(), QStringLiteral("alive"));
}

TEST_F(WebEngineSitesTest, ATabWhoseRendererDiedInTheBackgroundKeepsWhatItIs)
{
    EndProcess(m_renderers[0]);
    m_window->SelectTab(1);
    ASSERT_TRUE(WaitUntil([this] { return !GetMessage().isEmpty(); }));
    EXPECT_EQ(GetMessage().value(0), QStringLiteral("This page has stopped working"));
    EXPECT_EQ(GetTitle(1), QStringLiteral("site"));
    EXPECT_EQ(m_window->GetTabAddress(1), m_sites[0].GetUrl(QStringLiteral("/")).toString());
}

TEST_F(WebEngineSitesTest, ReloadingGivesATabAnotherRenderer)
{
    EndProcess(m_renderers[1]);
    ASSERT_TRUE(WaitUntil([this] { return !GetMessage().isEmpty(); }));
    QTest::keyClick(m_window.get(), Qt::Key_F5);
    ASSERT_TRUE(WaitUntil([this] { return GetMessage().isEmpty() && !m_window->IsLoading(); }));
    EXPECT_EQ(Run(m_body).toString(), QStringLiteral("alive"));
    EXPECT_NE(GetView()->page()->renderProcessPid(), m_renderers[1]);
}

TEST_F(WebEngineTest, TheRendererOfAPageThatIsStillLoadingMayDieToo)
{
    m_server.SetPage(QStringLiteral("/busy"), "<title>busy</title><script>for (;;) {}</script>");
    ASSERT_TRUE(OpenAndWait(m_server.GetUrl(QStringLiteral("/ok"))));
    const qint64 renderer = GetView()->page()->renderProcessPid();
    GetView()->page()->runJavaScript(QStringLiteral("location.href = '/busy'"));
    ASSERT_TRUE(WaitUntil([this] { return m_server.GetRequests().contains(QStringLiteral("/busy")); }));
    EndProcess(renderer);
    ASSERT_TRUE(WaitUntil([this] { return !GetMessage().isEmpty(); }));
    EXPECT_EQ(GetMessage().value(0), QStringLiteral("This page has stopped working"));
    EXPECT_TRUE(WaitUntil([this] { return !m_window->IsLoading(); })) << "the tab seems to load for ever";
    Open(m_server.GetUrl(QStringLiteral("/ok")));
    EXPECT_TRUE(WaitUntil([this] { return GetTitle(2) == QStringLiteral("All well"); }));
}

TEST_F(WebEngineTest, ADelayedTabHasNoRendererUntilItIsSelected)
{
    TabOpenInfo info;
    info.address = m_server.GetUrl(QStringLiteral("/ok")).toString();
    info.title = QStringLiteral("Saved");
    info.isDelay = true;
    m_window->OpenUrl(info, -1);
    m_window->OpenUrl(info, -1);
    EXPECT_TRUE(m_window->findChildren<QWebEngineView*>().isEmpty());
    EXPECT_FALSE(m_window->IsLoading());
    m_window->SelectTab(2);
    EXPECT_EQ(m_window->findChildren<QWebEngineView*>().size(), 1);
    EXPECT_TRUE(WaitUntil([this] { return GetTitle(2) == QStringLiteral("All well"); }));
    EXPECT_EQ(GetTitle(1), QStringLiteral("Saved"));
    EXPECT_EQ(m_server.GetRequests().count(QStringLiteral("/ok")), 1);
}

TEST_F(WebEngineTest, APageReachesNeitherFilesNorOtherSchemes)
{
    m_server.SetPage(
        QStringLiteral("/evil"),
        "<title>evil</title><body style='margin:0'>"
        "<a id=f href='file:///etc/passwd' style='display:block;height:100px;background:red'>f</a>"
        "<img src='file:///etc/hostname' onload=\"document.title='read'\">"
        "<iframe src='file:///etc/hostname'></iframe><iframe src='qrc:/themes/light.qss'></iframe></body>");
    ASSERT_TRUE(OpenAndWait(m_server.GetUrl(QStringLiteral("/evil"))));
    for (const char* script : {"location.href='file:///etc/passwd'", "location.href='chrome://version'",
                               "location.href='qrc:/themes/light.qss'", "location.href='data:text/html,x'"}) {
        Run(QString::fromLatin1(script));
    }
    EXPECT_EQ(Run(QStringLiteral("location.pathname")).toString(), QStringLiteral("/evil"));
    EXPECT_TRUE(WaitForTitle(1, QStringLiteral("evil")));
    EXPECT_EQ(Run(QStringLiteral("document.title")).toString(), QStringLiteral("evil"));
    EXPECT_EQ(m_window->GetTabAddress(1), m_server.GetUrl(QStringLiteral("/evil")).toString());
    EXPECT_EQ(Run(QStringLiteral(
                      "document.querySelectorAll('iframe')[0].contentDocument === null"
                      " || document.querySelectorAll('iframe')[0].contentDocument.body.innerText === ''"))
                  .toBool(),
              true);
}

TEST_F(WebEngineTest, AMailAddressIsOfferedToAnotherProgramOnlyAfterAsking)
{
    m_server.SetPage(
        QStringLiteral("/mail"),
        "<body style='margin:0'><a href='mailto:a@b.example' style='display:block;height:200px'>m</a>");
    ASSERT_TRUE(OpenAndWait(m_server.GetUrl(QStringLiteral("/mail"))));
    Click(QPoint(50, 50));
    EXPECT_TRUE(WaitUntil([this] { return !GetTabNotice(QStringLiteral("external")).isEmpty(); }));
    EXPECT_TRUE(GetTabNotice(QStringLiteral("external")).contains(QStringLiteral("mailto:a@b.example")));
}

TEST_F(WebEngineTest, APopUpThatTheUserAskedForBecomesATab)
{
    m_server.SetPage(QStringLiteral("/opener"),
                     "<title>opener</title><body style='margin:0'>"
                     "<a href='/ok' target=_blank style='display:block;height:400px'>open</a>");
    ASSERT_TRUE(OpenAndWait(m_server.GetUrl(QStringLiteral("/opener"))));
    Click(QPoint(50, 50));
    ASSERT_TRUE(WaitUntil([this] { return m_window->GetTabCount() == 3; }));
    EXPECT_TRUE(WaitUntil([this] { return GetTitle(2) == QStringLiteral("All well"); }));
    EXPECT_EQ(m_window->GetCurrentTab(), 2);
    EXPECT_EQ(m_window->GetTabAddress(2), m_server.GetUrl(QStringLiteral("/ok")).toString());
}

TEST_F(WebEngineTest, APopUpThatNobodyAskedForIsNotOpened)
{
    m_server.SetPage(
        QStringLiteral("/pushy"),
        "<title>start</title><script>document.title = window.open('/ok') ? 'opened' : 'blocked'</script>");
    ASSERT_TRUE(OpenAndWait(m_server.GetUrl(QStringLiteral("/pushy"))));
    EXPECT_TRUE(WaitUntil([this] { return GetTitle(1) == QStringLiteral("blocked"); }));
    EXPECT_EQ(m_window->GetTabCount(), 2);
}

TEST_F(WebEngineTest, ClearedCookiesAreGoneAtOnce)
{
    m_server.SetPage(QStringLiteral("/keep"),
                     "<script>document.title = document.cookie + '/' + (localStorage.kept || '');"
                     "document.cookie = 'a=1; max-age=3600'; localStorage.kept = 'yes';</script>");
    const QUrl page = m_server.GetUrl(QStringLiteral("/keep"));
    ASSERT_TRUE(OpenAndWait(page));
    ASSERT_TRUE(OpenAndWait(page));
    ASSERT_TRUE(WaitForTitle(2, QStringLiteral("a=1/yes"))) << "pages do keep things";

    ASSERT_TRUE(m_pages->ClearData());
    ASSERT_TRUE(OpenAndWait(page));
    EXPECT_TRUE(WaitForTitle(3, QStringLiteral("/yes"))) << "the rest is in use";
}

TEST_F(WebEngineTest, ClearedStorageIsGoneFromTheDiskAtTheNextStart)
{
    const QString folder = MakeFolder();
    const QString kept = QDir(folder).filePath(QStringLiteral("storage/kept"));
    QDir(folder).mkpath(QStringLiteral("storage"));
    QFile file(kept);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    {
        WebEnginePageFactory before(folder, QStringLiteral("en"));
        ASSERT_TRUE(QFile::exists(kept));
        ASSERT_TRUE(before.ClearData());
    }
    const WebEnginePageFactory after(folder, QStringLiteral("en"));
    EXPECT_FALSE(QFile::exists(kept));
}

TEST_F(WebEngineTest, TenTabsOpenedAtOnceAllLoad)
{
    for (int i = 0; i < 10; ++i) {
        Open(m_server.GetUrl(QStringLiteral("/ok")), false);
    }
    ASSERT_EQ(m_window->GetTabCount(), 11);
    ASSERT_TRUE(WaitUntil([this] { return !m_window->IsLoading(); }));
    for (int i = 1; i < m_window->GetTabCount(); ++i) {
        EXPECT_TRUE(WaitForTitle(i, QStringLiteral("All well")));
    }
}
