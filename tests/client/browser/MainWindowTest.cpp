#include "MainWindowTest.h"

#include "MessagePage.h"

#include <QtTest/QTest>

MainWindowTest::MainWindowTest()
{
    m_apps.SetPlugins({MakeApp(QStringLiteral("orders"), QStringLiteral("https://orders.example/start")),
                       MakeApp(QStringLiteral("print"), QString()),
                       MakeApp(QStringLiteral("odd"), QStringLiteral("file:///etc/passwd"))});
    MainWindowServices services;
    services.pages = &m_pages;
    services.apps = &m_apps;
    services.userName = QStringLiteral("Anna");
    services.loadPicture = [this](const QString& url, QObject* context,
                                  const std::function<void(const QPixmap&)>& done) {
        m_pictures.append({url, context, done});
    };
    m_window = std::make_unique<MainWindow>(services);
    m_window->resize(1000, 700);
    m_window->show();
    m_window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
}

MainWindowTest::~MainWindowTest()
{
    m_window.reset();
    EXPECT_EQ(m_pages.CountAlive(), 0) << "pages outlived the window";
}

QSharedPointer<TLPluginBaseEntity> MainWindowTest::MakeApp(const QString& code, const QString& address,
                                                           int availability)
{
    auto app = QSharedPointer<TLPluginBaseEntity>::create();
    app->setProperty("serviceCode", code);
    app->setProperty("name", code.toUpper());
    app->setProperty("iconUrl", QStringLiteral("https://icons.example/%1.png").arg(code));
    app->setProperty("address", address);
    app->setProperty("availability", availability);
    return app;
}

void MainWindowTest::OpenUrl(const QString& address, int index)
{
    TabOpenInfo info;
    info.address = address;
    m_window->OpenUrl(info, index);
}

void MainWindowTest::OpenDelayed(const QString& address, const QString& title, const QString& iconUrl)
{
    TabOpenInfo info;
    info.address = address;
    info.title = title;
    info.iconUrl = iconUrl;
    info.isDelay = true;
    m_window->OpenUrl(info, -1);
}

void MainWindowTest::OpenApp(const QString& code, int index)
{
    PluginOpenInfo info;
    info.serviceCode = code;
    m_window->OpenPlugin(info, index);
}

QStringList MainWindowTest::GetTitles() const
{
    QStringList titles;
    for (int i = 0; i < m_window->GetTabCount(); ++i) {
        titles << GetData(i).GetTitle();
    }
    return titles;
}

TabData& MainWindowTest::GetData(int index) const
{
    return *m_window->GetTab(index)->GetTabData();
}

QString MainWindowTest::GetRouterUrl(int index) const
{
    return m_window->GetTab(index)->GetRouterUrl();
}

bool MainWindowTest::DeliverPicture(const QString& url, const QPixmap& picture)
{
    bool asked = false;
    for (const PictureRequest& request : qAsConst(m_pictures)) {
        if (request.url != url || !request.context) {
            continue;
        }
        asked = true;
        request.done(picture);
    }
    return asked;
}

QStringList MainWindowTest::GetMessage() const
{
    const auto messages = m_window->findChildren<MessagePage*>();
    for (const MessagePage* message : messages) {
        if (message->isVisible()) {
            return {message->GetHeadline(), message->GetText(), message->GetAddress()};
        }
    }
    return {};
}
