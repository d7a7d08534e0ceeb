#include "ClientTest.h"
#include "Desktop.h"
#include "KeyStoreDaemon.h"
#include "StoredSettings.h"

#include <QtCore/QDir>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QSet>
#include <QtGui/QImage>
#include <QtTest/QTest>

namespace {

const QString ReadMethod = QStringLiteral("dsm.tl.pc.auto.run.get");
const QString PluginsMethod = QStringLiteral("dsm.tl.pc.plugin.list");
const QString FunctionsMethod = QStringLiteral("dsm.tl.pc.function.list");

int CountNotifications(const QVector<QJsonObject>& events, int id)
{
    int count = 0;
    for (const QJsonObject& event : events) {
        if (EventName(event) == QLatin1String("notification") &&
            event.value(QStringLiteral("id")).toInt() == id) {
            ++count;
        }
    }
    return count;
}

int CountModuleEvents(const QVector<QJsonObject>& events, const QString& name)
{
    int count = 0;
    for (const QJsonObject& event : events) {
        if (EventName(event) == QLatin1String("module.event") &&
            event.value(QStringLiteral("name")).toString() == name) {
            ++count;
        }
    }
    return count;
}

/// A reply to the read: two addresses that the client must not open, a page, and an unknown app.
constexpr char ForbiddenAddresses[] =
    R"json({"code":"0","message":"","requestId":"1","data":{"systemItems":[],"customItems":[
{"activeItem":false,"checked":true,"itemId":"a","name":"","systemItem":false,"type":0,"url":"javascript:alert(1)"},
{"activeItem":false,"checked":true,"itemId":"b","name":"","systemItem":false,"type":0,"url":"file:///etc/passwd"},
{"activeItem":true,"checked":true,"itemId":"c","name":"","systemItem":false,"type":0,"url":"PAGE"}],"pluginItems":[
{"activeItem":false,"checked":true,"itemId":"d","name":"","systemItem":false,"type":1,"url":"no-such-app"}]}})json";

/// Counts the colours in the part of the window that shows the page.
int CountColours(const QImage& picture)
{
    QSet<QRgb> colours;
    for (int y = picture.height() / 3; y < picture.height(); y += 2) {
        for (int x = 0; x < picture.width(); x += 2) {
            colours.insert(picture.pixel(x, y));
        }
    }
    return colours.size();
}

std::string NameOfReply(const ::testing::TestParamInfo<FaultyGateway::Fault>& parameter)
{
    switch (parameter.param) {
    case FaultyGateway::Fault::Garbage:
        return "Garbage";
    case FaultyGateway::Fault::Html:
        return "Html";
    case FaultyGateway::Fault::Huge:
        return "FiveMegabytes";
    default:
        return "NoAnswer";
    }
}

} // namespace

class LoginTest : public ClientTest
{
protected:
    /// One run, which caches the configuration in the profile.
    void LogInOnceAndQuit()
    {
        LogIn();
        ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("tab.opened"), m_expected.urls.size()));
        ASSERT_TRUE(m_client->Quit());
    }

    void ExpectEntriesOpen()
    {
        ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("tab.opened"), m_expected.urls.size()));
        EXPECT_TRUE(WaitForTabInFront(m_expected.openFirst));
        const QVector<QJsonObject> opened = m_client->GetEvents(QStringLiteral("tab.opened"));
        ASSERT_EQ(opened.size(), m_expected.urls.size());
        for (int i = 0; i < opened.size(); ++i) {
            EXPECT_EQ(opened[i].value(QStringLiteral("index")).toInt(), i + 1);
            EXPECT_EQ(opened[i].value(QStringLiteral("url")).toString().toStdString(),
                      m_expected.urls[i].toStdString());
        }
        EXPECT_EQ(
            m_client->GetEvents(QStringLiteral("tab.selected")).last().value(QStringLiteral("index")).toInt(),
            m_expected.openFirst);
    }
};

TEST_F(LoginTest, TickedEntriesOpenInOrderAndTheOneToOpenFirstIsInFront)
{
    LogIn();
    ExpectEntriesOpen();
    EXPECT_TRUE(m_client->WaitForEvents(QStringLiteral("page.loaded"), m_expected.urls.size()));
    for (const QJsonObject& page : m_client->GetEvents(QStringLiteral("page.loaded"))) {
        EXPECT_TRUE(page.value(QStringLiteral("ok")).toBool())
            << page.value(QStringLiteral("url")).toString().toStdString();
    }
    EXPECT_TRUE(m_client->Stop());
    const QVector<QJsonObject> exits = m_client->GetEvents(QStringLiteral("exit"));
    EXPECT_EQ(exits.size(), 1);
}

TEST_F(LoginTest, ListOpensOnceAndTheReadIsAnnouncedOnce)
{
    LogIn();
    ExpectEntriesOpen();
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("page.loaded"), m_expected.urls.size()));
    ASSERT_TRUE(m_client->Stop());
    const QVector<QJsonObject> events = m_client->GetEvents();
    EXPECT_EQ(CountNotifications(events, 10400), 1);
    EXPECT_EQ(CountModuleEvents(events, QStringLiteral("GetAutoRun")), 1);
    EXPECT_EQ(m_front->GetCallCount(ReadMethod), 1);
    EXPECT_EQ(m_client->GetEvents(QStringLiteral("tab.opened")).size(), m_expected.urls.size());
}

TEST_F(LoginTest, TraceNamesTheModuleAndHoldsNoSecrets)
{
    LogIn();
    ExpectEntriesOpen();
    ASSERT_TRUE(m_client->Stop());
    const QVector<QJsonObject> modules = m_client->GetEvents(QStringLiteral("module.loaded"));
    ASSERT_EQ(modules.size(), 1);
    EXPECT_EQ(modules[0].value(QStringLiteral("key")).toString(), QStringLiteral("PlatformAutoRun"));
    for (const QJsonObject& event : m_client->GetEvents()) {
        const QByteArray line = QJsonDocument(event).toJson(QJsonDocument::Compact);
        EXPECT_FALSE(line.contains("accessToken") || line.contains("development-secret") ||
                     line.contains("\"password\""))
            << line.toStdString();
    }
}

TEST_F(LoginTest, ScreenshotShowsTheWindowWithThePageInFront)
{
    const QString file = m_folder.filePath(QStringLiteral("screenshot.png"));
    LogIn({QStringLiteral("--screenshot"), file});
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("page.loaded"), m_expected.urls.size()));
    // Without a painted page the window is one flat area; a painted page has many colours.
    EXPECT_TRUE(QTest::qWaitFor([&file] { return CountColours(QImage(file)) > 20; }, 60000))
        << CountColours(QImage(file)) << " colours";
    EXPECT_GE(QImage(file).width(), 800);
    EXPECT_TRUE(m_client->Quit());
    EXPECT_EQ(m_client->GetExitCode(), 0);
}

TEST_F(LoginTest, QuitAfterATimeEndsInGoodOrderAndLeavesAPicture)
{
    const QString file = m_folder.filePath(QStringLiteral("screenshot.png"));
    LogIn({QStringLiteral("--screenshot"), file, QStringLiteral("--quit-after"), QStringLiteral("30000")});
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("ready"), 1));
    ASSERT_TRUE(m_client->WaitForEnd(120000));
    EXPECT_EQ(m_client->GetExitCode(), 0);
    const QVector<QJsonObject> exits = m_client->GetEvents(QStringLiteral("exit"));
    ASSERT_EQ(exits.size(), 1);
    EXPECT_TRUE(exits[0].value(QStringLiteral("orderly")).toBool());
    EXPECT_FALSE(QImage(file).isNull());
}

TEST_F(LoginTest, WrongPasswordIsRefusedAndNothingOpens)
{
    // A run with a time to quit is a scripted one, whose exit code reports the failure.
    m_client->StartWithLogin(m_front->GetAddress(), QStringLiteral("demo"), "wrong\n",
                             {QStringLiteral("--quit-after"), QStringLiteral("600000")});
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("login"), 1));
    EXPECT_FALSE(m_client->GetEvents(QStringLiteral("login"))[0].value(QStringLiteral("ok")).toBool());
    const Desktop desktop(m_screen.GetDisplay());
    ASSERT_TRUE(desktop.WaitForTitle(QStringLiteral("Log in")));
    ASSERT_TRUE(desktop.Press({QStringLiteral("Escape")}));
    ASSERT_TRUE(m_client->WaitForEnd(60000));
    EXPECT_EQ(m_client->GetExitCode(), 3);
    EXPECT_TRUE(m_client->GetEvents(QStringLiteral("tab.opened")).isEmpty());
}

TEST_F(LoginTest, GatewayGoneAfterTheLogInOpensTheLastKnownConfiguration)
{
    LogInOnceAndQuit();
    for (const QString& method : {ReadMethod, PluginsMethod, FunctionsMethod}) {
        m_front->SetFault(method, FaultyGateway::Fault::Close);
    }
    LogIn();
    ExpectEntriesOpen();
    EXPECT_TRUE(WaitForNotice(QStringLiteral("last known configuration")));
}

TEST_F(LoginTest, BarOfTheLastKnownConfigurationGoesWhenTheGatewayAnswers)
{
    LogInOnceAndQuit();
    for (const QString& method : {ReadMethod, PluginsMethod, FunctionsMethod}) {
        m_front->SetFault(method, FaultyGateway::Fault::Close);
    }
    LogIn();
    ASSERT_TRUE(WaitForNotice(QStringLiteral("last known configuration")));
    m_front->SetFault(PluginsMethod, FaultyGateway::Fault::None);
    EXPECT_TRUE(m_client->WaitForEvents(QStringLiteral("notice.gone"), 1));
    EXPECT_TRUE(m_client->IsRunning());
}

TEST_F(LoginTest, SavedSessionOpensTheLastKnownConfigurationWithoutAGateway)
{
    const QString home = m_folder.filePath(QStringLiteral("keys"));
    ASSERT_TRUE(QDir().mkpath(home));
    KeyStoreDaemon keys(home);
    ASSERT_FALSE(keys.GetBusAddress().isEmpty()) << "no session bus with a key store";
    m_client->SetEnvironment(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), keys.GetBusAddress());
    m_client->SetEnvironment(QStringLiteral("XDG_RUNTIME_DIR"), home);

    // Once by hand: the command line gives the pin, so the dialog opens with the focus on the password.
    m_client->Start({QStringLiteral("--gateway"), m_front->GetAddress(), QStringLiteral("--pin"),
                     QStringLiteral("demo")});
    const Desktop desktop(m_screen.GetDisplay());
    ASSERT_TRUE(desktop.WaitForWindow(m_client->GetProcessId()));
    ASSERT_TRUE(keys.WaitForAnswers()) << "the dialog did not ask for the key store";
    ASSERT_TRUE(desktop.Type(QStringLiteral("demo")));
    ASSERT_TRUE(desktop.Press(
        {QStringLiteral("Tab"), QStringLiteral("Tab"), QStringLiteral("space")})); // "Stay signed in"
    ASSERT_TRUE(desktop.Press({QStringLiteral("Return")}));
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("tab.opened"), m_expected.urls.size()));
    const StoredSettings stored(GetProfile());
    ASSERT_TRUE(QTest::qWaitFor(
        [&stored] {
            return stored.GetGlobalValue(QStringLiteral("CLIENT_KEPT_SESSION"), QStringLiteral("PIN")) ==
                   QStringLiteral("demo");
        },
        60000))
        << "the session was not saved";
    ASSERT_TRUE(m_client->Quit());

    m_front->Shut();
    m_client->Start({QStringLiteral("--gateway"), m_front->GetAddress()});
    ExpectEntriesOpen();
    EXPECT_TRUE(WaitForNotice(QStringLiteral("last known configuration")));
    const QVector<QJsonObject> logins = m_client->GetEvents(QStringLiteral("login"));
    ASSERT_EQ(logins.size(), 1);
    EXPECT_TRUE(logins[0].value(QStringLiteral("kept")).toBool());
}

TEST_F(LoginTest, EmptyLockFileOfAKilledClientDoesNotStopTheNext)
{
    const QString profile = m_folder.filePath(QStringLiteral("profile"));
    ASSERT_TRUE(QDir().mkpath(profile));
    QFile lock(profile + QStringLiteral("/client.lock"));
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    lock.close();
    LogIn();
    EXPECT_TRUE(m_client->WaitForEvents(QStringLiteral("ready"), 1))
        << m_client->GetErrorOutput().toStdString();
    EXPECT_TRUE(m_client->Quit());
}

TEST_F(LoginTest, SecondClientOnAProfileSaysSoAndEnds)
{
    LogInAndOpen();
    // It has its own files except for the profile: the last --profile counts.
    const QString folder = m_folder.filePath(QStringLiteral("second"));
    ASSERT_TRUE(QDir().mkpath(folder));
    ClientProcess second(m_screen.GetDisplay(), folder);
    second.StartWithLogin(m_front->GetAddress(), QStringLiteral("demo"), "demo\n",
                          {QStringLiteral("--profile"), GetProfile()});
    ASSERT_TRUE(second.WaitForEnd(60000));
    EXPECT_EQ(second.GetExitCode(), 2);
    EXPECT_TRUE(second.GetErrorOutput().contains("another client has it open"))
        << second.GetErrorOutput().toStdString();
}

class UnreadableReplyTest : public LoginTest, public ::testing::WithParamInterface<FaultyGateway::Fault>
{};

TEST_P(UnreadableReplyTest, LastKnownConfigurationOpensAndTheClientStaysUp)
{
    LogInOnceAndQuit();
    m_front->SetFault(ReadMethod, GetParam());
    LogIn();
    ExpectEntriesOpen();
    EXPECT_TRUE(WaitForNotice(QStringLiteral("last known configuration")));
    EXPECT_TRUE(m_client->IsRunning());
    EXPECT_TRUE(m_client->Stop());
}

TEST_P(UnreadableReplyTest, WithoutACachedReplyTheClientSaysWhatHappenedAndStaysUp)
{
    m_front->SetFault(ReadMethod, GetParam());
    LogIn();
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("notice"), 1));
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("notification"), 1));
    EXPECT_TRUE(m_client->GetEvents(QStringLiteral("tab.opened")).isEmpty());
    EXPECT_EQ(CountNotifications(m_client->GetEvents(), 10400), 1);
    EXPECT_TRUE(m_client->IsRunning());
    EXPECT_TRUE(m_client->Stop());
}

INSTANTIATE_TEST_SUITE_P(Replies, UnreadableReplyTest,
                         ::testing::Values(FaultyGateway::Fault::Garbage, FaultyGateway::Fault::Html,
                                           FaultyGateway::Fault::Huge, FaultyGateway::Fault::Silence),
                         NameOfReply);

TEST_F(LoginTest, EntriesWithForbiddenAddressesGetATabThatSaysSoAndTheRestOpens)
{
    const QString page = m_gateway->GetAddress().toString() + QStringLiteral("/demo/orders");
    m_front->SetAnswer(QByteArray(ForbiddenAddresses).replace("PAGE", page.toUtf8()));
    m_front->SetFault(ReadMethod, FaultyGateway::Fault::Answer);
    LogIn();
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("tab.opened"), 4));
    EXPECT_TRUE(WaitForTabInFront(3));
    EXPECT_TRUE(m_client->WaitFor([&page](const QVector<QJsonObject>& events) {
        for (const QJsonObject& event : events) {
            if (EventName(event) == QLatin1String("page.loaded") &&
                event.value(QStringLiteral("url")).toString() == page) {
                return event.value(QStringLiteral("ok")).toBool();
            }
        }
        return false;
    }));
    for (const QJsonObject& event : m_client->GetEvents(QStringLiteral("page.loaded"))) {
        const QString url = event.value(QStringLiteral("url")).toString();
        EXPECT_FALSE(url.startsWith(QLatin1String("file:")) || url.startsWith(QLatin1String("javascript:")));
    }
    EXPECT_TRUE(m_client->Stop());
}
