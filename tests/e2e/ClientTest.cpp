#include "ClientTest.h"

#include "Desktop.h"
#include "StoredSettings.h"
#include "TabState.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtTest/QTest>

QString EventName(const QJsonObject& event)
{
    return event.value(QStringLiteral("event")).toString();
}

void ClientTest::SetUp()
{
    ASSERT_TRUE(m_folder.isValid());
    ASSERT_FALSE(m_screen.GetDisplay().isEmpty()) << "Xvfb did not start";
    m_gateway = std::make_unique<GatewayProcess>(m_folder.path());
    ASSERT_TRUE(m_gateway->Start());
    ASSERT_FALSE(
        m_gateway
            ->Command({QStringLiteral("demo"), QStringLiteral("--pages"), m_gateway->GetAddress().toString()})
            .isNull());
    m_front = std::make_unique<FaultyGateway>(m_gateway->GetAddress());
    m_client = std::make_unique<ClientProcess>(m_screen.GetDisplay(), m_folder.path());
    ReadExpectation();
    ASSERT_GE(m_expected.urls.size(), 3);
    ASSERT_GT(m_expected.openFirst, 0);
}

void ClientTest::LogIn(const QStringList& arguments)
{
    m_client->StartWithLogin(m_front->GetAddress(), QStringLiteral("demo"), "demo\n", arguments);
}

void ClientTest::LogInAndOpen()
{
    LogIn();
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("tab.opened"), m_expected.urls.size()));
    ASSERT_TRUE(WaitForTabInFront(m_expected.openFirst));
}

bool ClientTest::WaitForRecord()
{
    constexpr int patience = 60000; // [ms]
    return QTest::qWaitFor(
        [this] {
            QDateTime start;
            int selected = 0;
            const QVector<QJsonObject> events = m_client->GetEvents();
            for (const QJsonObject& event : events) {
                if (EventName(event) == QLatin1String("start")) {
                    start = QDateTime::fromString(event.value(QStringLiteral("time")).toString(),
                                                  Qt::ISODateWithMs);
                } else if (EventName(event) == QLatin1String("tab.selected")) {
                    selected = event.value(QStringLiteral("index")).toInt();
                }
            }
            const QStringList tabs = TabState::After(events);
            const TabsRecord clients = ReadClientsRecord();
            return clients.when > start && clients.routerUrls == tabs && clients.current == selected - 1 &&
                   ReadModulesRecord().routerUrls == tabs;
        },
        patience);
}

ClientTest::TabsRecord ClientTest::ReadModulesRecord() const
{
    TabsRecord record;
    const QString text =
        StoredSettings(GetProfile())
            .GetUserValue(QStringLiteral("demo"), QStringLiteral("USER_SETTING_RECOVER_SECTION"),
                          QStringLiteral("USER_SETTING_RECOVER_FIELD1"));
    const QJsonArray items =
        QJsonDocument::fromJson(text.toUtf8()).object().value(QStringLiteral("tabRecoverItems")).toArray();
    for (const QJsonValue& item : items) {
        record.routerUrls << item.toObject().value(QStringLiteral("routerUrl")).toString();
    }
    return record;
}

ClientTest::TabsRecord ClientTest::ReadClientsRecord() const
{
    TabsRecord record;
    const QString text =
        StoredSettings(GetProfile())
            .GetUserValue(QStringLiteral("demo"), QStringLiteral("CLIENT"), QStringLiteral("RUNNING_TABS"));
    const QStringList lines = text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString& line : lines) {
        const QJsonObject object = QJsonDocument::fromJson(line.toUtf8()).object();
        if (object.contains(QStringLiteral("url"))) {
            record.routerUrls << object.value(QStringLiteral("url")).toString();
        } else {
            record.current = object.value(QStringLiteral("current")).toInt(-1);
            record.when =
                QDateTime::fromString(object.value(QStringLiteral("when")).toString(), Qt::ISODateWithMs);
        }
    }
    return record;
}

QJsonObject ClientTest::GetLoginReply() const
{
    return QJsonDocument::fromJson(m_front->GetLastReply(QStringLiteral("dsm.tl.pc.user.login")))
        .object()
        .value(QStringLiteral("data"))
        .toObject();
}

bool ClientTest::AnswerQuestion(const QString& key)
{
    constexpr int attempts = 20;
    constexpr int pause = 500; // [ms]
    const Desktop desktop(m_screen.GetDisplay());
    if (!m_client->WaitForEvents(QStringLiteral("question.asked"), 1)) {
        return false;
    }
    // The window behind the question may keep the focus for another moment, but ignores the key.
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (desktop.WaitForWindow(m_client->GetProcessId()) && desktop.Press({key}) &&
            m_client->WaitForEvents(QStringLiteral("question"), 1, pause)) {
            return true;
        }
    }
    return false;
}

bool ClientTest::WaitForTabInFront(int index)
{
    return m_client->WaitFor([index](const QVector<QJsonObject>& events) {
        int selected = 0;
        for (const QJsonObject& event : events) {
            if (EventName(event) == QLatin1String("tab.selected")) {
                selected = event.value(QStringLiteral("index")).toInt();
            }
        }
        return selected == index;
    });
}

bool ClientTest::WaitForNotice(const QString& part)
{
    return m_client->WaitFor([&part](const QVector<QJsonObject>& events) {
        for (const QJsonObject& event : events) {
            if (EventName(event) == QLatin1String("notice") &&
                event.value(QStringLiteral("text")).toString().contains(part, Qt::CaseInsensitive)) {
                return true;
            }
        }
        return false;
    });
}

bool ClientTest::HasNotice(const QString& id) const
{
    for (const QJsonObject& event : m_client->GetEvents(QStringLiteral("notice"))) {
        if (event.value(QStringLiteral("id")).toString() == id) {
            return true;
        }
    }
    return false;
}

void ClientTest::ReadExpectation()
{
    const QJsonObject configuration =
        QJsonDocument::fromJson(
            m_gateway->Command({QStringLiteral("config"), QStringLiteral("show"), QStringLiteral("demo")}))
            .object();
    for (const QString& list :
         {QStringLiteral("systemItems"), QStringLiteral("customItems"), QStringLiteral("pluginItems")}) {
        const QJsonArray entries = configuration.value(list).toArray();
        for (const QJsonValue& value : entries) {
            const QJsonObject entry = value.toObject();
            if (!entry.value(QStringLiteral("checked")).toBool()) {
                continue;
            }
            const QString key = entry.value(QStringLiteral("url")).toString();
            m_expected.urls.append(list == QLatin1String("pluginItems") ? AddressOfApp(key) : key);
            if (entry.value(QStringLiteral("activeItem")).toBool()) {
                m_expected.openFirst = m_expected.urls.size();
            }
        }
    }
}

QString ClientTest::AddressOfApp(const QString& serviceCode) const
{
    const QJsonArray apps =
        QJsonDocument::fromJson(m_gateway->Command({QStringLiteral("app"), QStringLiteral("list")})).array();
    for (const QJsonValue& app : apps) {
        if (app.toObject().value(QStringLiteral("serviceCode")).toString() == serviceCode) {
            return app.toObject().value(QStringLiteral("address")).toString();
        }
    }
    return QString();
}
