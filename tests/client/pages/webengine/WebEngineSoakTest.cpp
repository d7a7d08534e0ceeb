#include "WebEngineFixture.h"

#include "pages/PageDialog.h"

#include "frame-data/TabOpenInfo.h"

#include <QtCore/QEventLoop>
#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWebEngineWidgets/QWebEngineView>
#include <QtWidgets/QApplication>

#include <random>

namespace {

constexpr int Operations = 120; // of one run, about 4 s

/// TL_SOAK_RUNS makes more of them, for a night on a busy machine.
unsigned GetRuns()
{
    return unsigned(qMax(
        1, qEnvironmentVariableIsSet("TL_SOAK_RUNS") ? qEnvironmentVariableIntValue("TL_SOAK_RUNS") : 3));
}

/// A hurried user over pages that do everything pages do: whatever is done at whatever moment, the client
/// lives on. What is done follows from the seed, when it meets the engine's answers does not.
class WebEngineSoakTest : public WebEngineFixture, public ::testing::WithParamInterface<unsigned>
{
protected:
    WebEngineSoakTest() : m_random(GetParam())
    {
        const QByteArray link = "<body style='margin:0'><a style='display:block;height:600px' ";
        m_server.SetPage(QStringLiteral("/empty"), "", "500 Internal Server Error");
        m_server.SetPage(QStringLiteral("/gone"), "<title>gone</title>gone", "404 Not Found");
        m_server.SetPage(QStringLiteral("/mail"), link + "href='mailto:a@b.example'>mail</a>");
        m_server.SetPage(QStringLiteral("/opener"), link + "href='/ok' target=_blank>open</a>");
        m_server.SetPage(
            QStringLiteral("/popup"),
            link + "onclick=\"var w = window.open('/alert'); setTimeout(() => w.close(), 20)\">p</a>");
        m_server.SetPage(QStringLiteral("/alert"),
                         "<title>alert</title><script>alert('one'); alert('two')</script>");
        m_server.SetPage(QStringLiteral("/confirm"),
                         "<script>document.title = confirm('sure?'); location = '/prompt'</script>");
        m_server.SetPage(QStringLiteral("/prompt"),
                         "<script>document.title = prompt('what?', 'that')</script>");
        m_server.SetPage(QStringLiteral("/stay"),
                         "<script>onbeforeunload = () => 'stay'</script>" + link + "href='/ok'>x</a>");
        m_server.SetPage(QStringLiteral("/away"),
                         "<script>setTimeout(() => location = '/refused', 15)</script>");
        m_server.SetPage(QStringLiteral("/refused"), "", "302 Found", "Location: http://127.0.0.1:1/\r\n");
        m_server.SetPage(QStringLiteral("/loop"), "", "302 Found", "Location: /loop\r\n");
        m_server.SetPage(QStringLiteral("/frames"),
                         "<iframe src='/alert'></iframe><iframe src='/ok'></iframe>"
                         "<iframe src='http://nowhere.invalid/'></iframe>");
        m_server.SetPage(QStringLiteral("/busy"),
                         "<script>var end = Date.now() + 300; while (Date.now() < end);</script>");
        m_server.SetPage(QStringLiteral("/history"),
                         "<script>for (var i = 0; i < 9; ++i) history.pushState(i, '', '#' + i)</script>");
        m_server.SetPage(QStringLiteral("/ask"), "<script>navigator.geolocation.getCurrentPosition(() => 0);"
                                                 "Notification.requestPermission()</script>");
        const QByteArray file =
            "HTTP/1.1 200 OK\r\nContent-Type: application/octet-stream\r\nContent-Length: 1000\r\n\r\nstart";
        m_server.SetReply(QStringLiteral("/half"), file);
        m_server.SetReply(QStringLiteral("/slow"), file, WebServer::AfterReply::Wait);
        m_server.SetPage(QStringLiteral("/file"), "all", "200 OK",
                         "Content-Type: application/octet-stream\r\n");
        m_server.SetPage(QStringLiteral("/locked"), "<title>in</title>");
        m_server.Protect(QStringLiteral("/locked"), "ann:secret");
        m_paths = {"/locked", "/half",   "/slow",  "/file",    "/ok",     "/empty", "/gone", "/mail",
                   "/opener", "/popup",  "/alert", "/confirm", "/prompt", "/stay",  "/away", "/refused",
                   "/loop",   "/frames", "/busy",  "/history", "/ask",    "/none"};

        qputenv("HOME", MakeFolder().toUtf8()); // where downloads go
        MakeWindow();

        // Dialogs of pages wait in an event loop of their own; the user answers, or does something else.
        // Not in the timer's own event: what the answer brings up would wait for a timer that waits for it.
        QObject::connect(
            &m_dialogWatch, &QTimer::timeout, &m_dialogWatch, [this] { MeetDialog(); }, Qt::QueuedConnection);
        m_dialogWatch.start(10);
    }

    int Pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(m_random); }

    void MeetDialog()
    {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog) {
            return;
        }
        if (m_atRest) {
            dialog->reject();
            return;
        }
        const int choice = Pick(6);
        if (choice == 0 && m_window) {
            m_window->CloseTab(1 + Pick(qMax(1, m_window->GetTabCount() - 1)));
        } else if (choice == 1 && qobject_cast<PageDialog*>(dialog)) {
            EndOrReplaceWindow();
        } else if (choice % 2) {
            dialog->accept();
        } else {
            dialog->reject();
        }
    }

    void EndOrReplaceWindow()
    {
        if (Pick(2) && m_window) {
            m_window->CloseAllTabs();
        }
        m_window.reset();
        MakeWindow();
    }

    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(m_window.get(), key, modifiers);
    }

    void OpenSomething()
    {
        TabOpenInfo info;
        info.address =
            m_server.GetUrl(QString::fromLatin1(m_paths[std::size_t(Pick(int(m_paths.size())))])).toString();
        info.activate = Pick(2) == 0;
        info.isDelay = Pick(8) == 0;
        m_window->OpenUrl(info, Pick(3) ? -1 : Pick(m_window->GetTabCount() + 1));
    }

    void DoSomething()
    {
        const int tab = Pick(m_window->GetTabCount());
        switch (Pick(20)) {
        case 0:
        case 1:
        case 2:
        case 3:
        case 4:
            return OpenSomething();
        case 5:
        case 6:
        case 7:
            return m_window->CloseTab(tab);
        case 8:
        case 9:
            return m_window->SelectTab(tab);
        case 10:
            return m_window->MoveTab(tab, Pick(m_window->GetTabCount()));
        case 11:
            return Press(Qt::Key_F5);
        case 12:
            return Press(Qt::Key_Left, Qt::AltModifier);
        case 13:
            return Press(Qt::Key_Escape);
        case 14:
            return Press(Qt::Key_T, Qt::ControlModifier | Qt::ShiftModifier);
        case 15:
            Press(Qt::Key_F, Qt::ControlModifier);
            if (m_window->focusWidget()) {
                QTest::keyClicks(m_window->focusWidget(), QStringLiteral("fi"));
            }
            return;
        case 16:
            return Press(Qt::Key_Plus, Qt::ControlModifier);
        case 17:
        case 18:
            if (GetView() && GetView()->focusProxy()) {
                Click(QPoint(50, 50));
            }
            return;
        default:
            if (GetView() && GetView()->page()->renderProcessPid() > 0 && Pick(3) == 0) {
                EndProcess(GetView()->page()->renderProcessPid());
            } else if (Pick(8) == 0) {
                EndOrReplaceWindow();
            }
        }
    }

    /// The user's own pace: nothing is expected to have happened after it.
    static void Wait(int milliseconds)
    {
        QEventLoop loop;
        QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
        loop.exec();
    }

    std::mt19937 m_random;
    std::vector<const char*> m_paths;
    QTimer m_dialogWatch;
    bool m_atRest = false;
};

} // namespace

TEST_P(WebEngineSoakTest, TheClientOutlivesAHurriedUserOfBadPages)
{
    for (int i = 0; i < Operations; ++i) {
        DoSomething();
        Wait(Pick(30));
    }
    // What still comes up from before must not take this window, too.
    m_atRest = true;
    MakeWindow();
    ASSERT_TRUE(OpenAndWait(m_server.GetUrl(QStringLiteral("/ok"))));
    EXPECT_TRUE(WaitUntil([this] { return GetTitle(1) == QStringLiteral("All well"); }));
}

INSTANTIATE_TEST_SUITE_P(Seeds, WebEngineSoakTest, ::testing::Range(1U, 1U + GetRuns()));
