#include "WebEngineFixture.h"

#include "MessagePage.h"
#include "notices/NoticeBar.h"

#include "frame-core/IBrowserTab.h"
#include "frame-data/TabOpenInfo.h"
#include "tab-container/TabData.h"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWebEngineWidgets/QWebEngineView>
#include <QtWidgets/QPushButton>

WebEngineFixture::WebEngineFixture()
    : m_pages(std::make_unique<WebEnginePageFactory>(MakeFolder(), QStringLiteral("en")))
{
    m_server.SetPage(QStringLiteral("/ok"), "<title>All well</title><body>fine</body>");
    MakeWindow();
}

WebEngineFixture::~WebEngineFixture()
{
    m_window.reset();
    m_pages.reset();
}

bool WebEngineFixture::WaitUntil(const std::function<bool()>& condition)
{
    QElapsedTimer clock;
    clock.start();
    QEventLoop loop;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &loop, [&] {
        if (condition() || clock.elapsed() > Deadline) {
            loop.quit();
        }
    });
    poll.start(5);
    if (!condition()) {
        loop.exec();
    }
    return condition();
}

void WebEngineFixture::EndProcess(qint64 pid)
{
    ASSERT_GT(pid, 0);
#ifdef Q_OS_WIN
    const QString program = QStringLiteral("taskkill");
    const QStringList arguments{QStringLiteral("/F"), QStringLiteral("/PID"), QString::number(pid)};
#else
    const QString program = QStringLiteral("kill");
    const QStringList arguments{QStringLiteral("-KILL"), QString::number(pid)};
#endif
    ASSERT_EQ(QProcess::execute(program, arguments), 0);
}

QString WebEngineFixture::MakeFolder()
{
    static const QTemporaryDir folder;
    static int number = 0;
    const QString name = QString::number(++number);
    QDir(folder.path()).mkpath(name);
    return folder.filePath(name);
}

void WebEngineFixture::MakeWindow()
{
    MainWindowServices services;
    services.pages = m_pages.get();
    m_window = std::make_unique<MainWindow>(services);
    m_window->resize(900, 600);
    m_window->show();
}

void WebEngineFixture::Open(const QUrl& url, bool activate)
{
    TabOpenInfo info;
    info.address = url.toString();
    info.activate = activate;
    m_window->OpenUrl(info, -1);
}

bool WebEngineFixture::OpenAndWait(const QUrl& url)
{
    QSignalSpy loaded(m_window.get(), &MainWindow::SigPageLoaded);
    Open(url);
    return (!loaded.isEmpty() || loaded.wait(Deadline)) && loaded.first().at(2).toBool();
}

QString WebEngineFixture::GetTitle(int index) const
{
    return m_window->GetTab(index)->GetTabData()->GetTitle();
}

testing::AssertionResult WebEngineFixture::WaitForTitle(int index, const QString& title) const
{
    if (WaitUntil([this, index, &title] { return GetTitle(index) == title; })) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "the title is " << GetTitle(index).toStdString();
}

QWebEngineView* WebEngineFixture::GetView() const
{
    const auto views = m_window->findChildren<QWebEngineView*>();
    for (QWebEngineView* view : views) {
        if (view->isVisible()) {
            return view;
        }
    }
    return nullptr;
}

QStringList WebEngineFixture::GetMessage() const
{
    const auto messages = m_window->findChildren<MessagePage*>();
    for (const MessagePage* message : messages) {
        if (message->isVisible()) {
            return {message->GetHeadline(), message->GetText(), message->GetAddress()};
        }
    }
    return {};
}

void WebEngineFixture::PressMessageButton()
{
    const auto messages = m_window->findChildren<MessagePage*>();
    for (MessagePage* message : messages) {
        if (message->isVisible()) {
            QTest::mouseClick(message->GetButton(), Qt::LeftButton);
        }
    }
}

QString WebEngineFixture::GetTabNotice(const QString& id) const
{
    const auto bars = m_window->findChildren<NoticeBar*>();
    for (const NoticeBar* bar : bars) {
        if (bar->IsShown(id)) {
            return bar->GetText(id);
        }
    }
    return {};
}

void WebEngineFixture::Click(const QPoint& place)
{
    QWidget* target = GetView()->focusProxy();
    ASSERT_NE(target, nullptr);
    QTest::mouseClick(target, Qt::LeftButton, {}, place);
}

QVariant WebEngineFixture::Run(const QString& script)
{
    QVariant result;
    bool done = false;
    GetView()->page()->runJavaScript(script, [&](const QVariant& value) {
        result = value;
        done = true;
    });
    EXPECT_TRUE(WaitUntil([&done] { return done; }));
    return result;
}
