#include "ClientTest.h"
#include "Desktop.h"
#include "TabState.h"

#include "core/TLGlobalData.h"
#include "settings-store/VXSettingManager.h"

#include <QtCore/QDataStream>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QRandomGenerator>
#include <QtTest/QTest>

#include <algorithm>
#include <functional>
#include <optional>

namespace {

constexpr int thousand = 1000;

const QString recoverSection = QStringLiteral("USER_SETTING_RECOVER_SECTION");
const QString recoverField = QStringLiteral("USER_SETTING_RECOVER_FIELD1");
const QString restartSection = QStringLiteral("USER_SETTING_RESTART_SECTION");
const QString restartField = QStringLiteral("USER_SETTING_RESTART_FIELD");
const QString clientSection = QStringLiteral("CLIENT");

struct StoredValue
{
    QString section;
    QString field;
};

QVector<StoredValue> AllValues()
{
    return {{recoverSection, recoverField},
            {restartSection, restartField},
            {clientSection, QStringLiteral("RUNNING_TABS")},
            {clientSection, QStringLiteral("EARLIER_TABS")},
            {clientSection, QStringLiteral("EARLIER_TABS_0")},
            {clientSection, QStringLiteral("REOPEN_DEATHS")}};
}

/// A way to damage a text or the bytes of a file.
struct Damage
{
    const char* name;
    std::function<QByteArray(QByteArray)> apply;
    std::optional<bool> told; ///< whether the user hears of it; open when it depends on what was hit
};

QByteArray FlipBytes(QByteArray bytes)
{
    QRandomGenerator random(20261121);
    for (int i = 0; i < bytes.size(); i += 97) {
        const int place = i + int(random.bounded(97));
        if (place < bytes.size()) {
            bytes[place] = char(bytes.at(place) ^ (1 << random.bounded(7)));
        }
    }
    return bytes;
}

const Damage damages[] = {
    {"CutInHalf", [](const QByteArray& bytes) { return bytes.left(bytes.size() / 2); }, true},
    {"Emptied", [](const QByteArray&) { return QByteArray(); }, false}, // as if nothing had been kept
    {"BytesFlipped", FlipBytes, std::nullopt},
    {"NoiseInstead", [](const QByteArray& bytes) { return FlipBytes(QByteArray(bytes.size() + 100, '7')); },
     true},
    {"Doubled", [](const QByteArray& bytes) { return bytes + bytes; }, true},
    {"HugeCounts",
     [](QByteArray bytes) {
         // In the client's lines, in JSON and, as base64, at the head of a stream.
         bytes.replace("\"count\":", "\"count\":99999999");
         return bytes.startsWith('{') ? bytes : QByteArray::fromHex("7fffffff00000040").toBase64();
     },
     true},
};

/// The record of a restart as the module writes it.
QString MakeRestartRecord(const QStringList& routerUrls, const QString& belongType)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << routerUrls << belongType;
    return QString::fromLatin1(bytes.toBase64());
}

std::string NameOfDamage(const ::testing::TestParamInfo<Damage>& parameter)
{
    return parameter.param.name;
}

} // namespace

/// Between two runs of the client something happens to what it stored.
class DamageTest : public ClientTest, public ::testing::WithParamInterface<Damage>
{
protected:
    QString GetStoreFile() const { return m_folder.filePath(QStringLiteral("profile/settings.sqlite")); }

    /// Works on the stored values of the demo merchant while no client runs.
    void WithStore(const std::function<void(VXSettingManager&)>& work)
    {
        TLGlobalData::Instance()->SetUser(QStringLiteral("demo"), QString());
        ASSERT_TRUE(VXSettingManager::Instance()->Open(GetStoreFile()));
        work(*VXSettingManager::Instance());
        VXSettingManager::Instance()->Close();
        TLGlobalData::Instance()->ClearUser();
    }

    void RunUntilKilled()
    {
        LogInAndOpen();
        ASSERT_TRUE(WaitForKept());
        m_tabs = TabState::After(m_client->GetEvents());
        m_belongType = GetLoginReply().value(QStringLiteral("belongType")).toString();
        ASSERT_FALSE(m_belongType.isEmpty());
        m_client->Kill();
    }

    /// Beside what lies there after a kill: the record of a restart, an earlier set of tabs, and a client
    /// that died after it reopened tabs.
    void FillAllValues()
    {
        WithStore([this](VXSettingManager& store) {
            const QString running = store.GetUserValue(clientSection, QStringLiteral("RUNNING_TABS"));
            const QVector<QPair<StoredValue, QString>> values{
                {{restartSection, restartField}, MakeRestartRecord(m_tabs, m_belongType)},
                {{clientSection, QStringLiteral("EARLIER_TABS")}, QStringLiteral(R"([{"fate":1,"slot":0}])")},
                {{clientSection, QStringLiteral("EARLIER_TABS_0")}, running},
                {{clientSection, QStringLiteral("REOPEN_DEATHS")}, QStringLiteral("1")}};
            for (const auto& [value, text] : values) {
                ASSERT_TRUE(store.SetUserValueSync(value.section, value.field, text));
            }
        });
    }

    /// Starts the client as one that restarts itself does, with the session of the log-in before.
    void StartAsAfterRestart()
    {
        const QDateTime now = QDateTime::currentDateTimeUtc();
        const QJsonObject handover{
            {QStringLiteral("version"), 1},
            {QStringLiteral("written"), now.toString(Qt::ISODateWithMs)},
            {QStringLiteral("pin"), QStringLiteral("demo")},
            {QStringLiteral("belongType"), m_belongType},
            {QStringLiteral("accessToken"), GetLoginReply().value(QStringLiteral("accessToken"))},
            {QStringLiteral("expiresAt"), QString()},
            {QStringLiteral("openTabs"), true}};
        m_client->Start(
            {QStringLiteral("--gateway"), m_front->GetAddress(), QStringLiteral("--take-session")},
            QJsonDocument(handover).toJson(QJsonDocument::Compact) + '\n');
    }

    bool WaitForTabs(const QStringList& tabs)
    {
        return m_client->WaitFor(
            [&tabs](const QVector<QJsonObject>& events) { return TabState::After(events) == tabs; });
    }

    /// The client comes up, with or without a question, and goes on to work.
    void ExpectUsable()
    {
        LogIn();
        ASSERT_TRUE(m_client->WaitFor([](const QVector<QJsonObject>& events) {
            return std::any_of(events.begin(), events.end(), [](const QJsonObject& event) {
                return EventName(event) == QLatin1String("question.asked") ||
                       EventName(event) == QLatin1String("ready");
            });
        })) << m_client->GetErrorOutput().toStdString();
        m_asked = !m_client->GetEvents(QStringLiteral("question.asked")).isEmpty();
        if (m_asked) {
            ASSERT_TRUE(AnswerQuestion(QStringLiteral("Return")));
        }
        ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("ready"), 1));
        m_back = TabState::After(m_client->GetEvents());
        ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("tab.opened"), 1));
        ASSERT_TRUE(m_client->Quit());
    }

    QStringList m_tabs; ///< that stood when the client was killed
    QStringList m_back; ///< that stood when the next one was ready
    QString m_belongType;
    bool m_asked = false;
};

TEST_P(DamageTest, ClientStandsDamageToEveryStoredValueAtOnce)
{
    ASSERT_NO_FATAL_FAILURE(RunUntilKilled());
    ASSERT_NO_FATAL_FAILURE(FillAllValues());
    WithStore([](VXSettingManager& store) {
        for (const StoredValue& value : AllValues()) {
            const QByteArray text = store.GetUserValue(value.section, value.field).toUtf8();
            ASSERT_FALSE(text.isEmpty()) << value.field.toStdString();
            const QByteArray damaged = GetParam().apply(text);
            ASSERT_TRUE(store.SetUserValueSync(value.section, value.field, QString::fromUtf8(damaged)));
        }
    });
    const QStringList readable = ReadModulesRecord().routerUrls;
    ASSERT_NO_FATAL_FAILURE(ExpectUsable());
    EXPECT_EQ(m_asked, !readable.isEmpty()) << "what can be read is offered";
    if (readable == m_tabs) {
        EXPECT_EQ(m_back, m_tabs);
    }
    if (GetParam().told) {
        EXPECT_EQ(HasNotice(QStringLiteral("tabs-missing")), *GetParam().told);
    }
}

TEST_P(DamageTest, ClientStandsADamagedRecordOfARestartAndTheTabsAreNotLost)
{
    ASSERT_NO_FATAL_FAILURE(RunUntilKilled());
    const QByteArray whole = MakeRestartRecord(m_tabs, m_belongType).toUtf8();
    WithStore([&whole](VXSettingManager& store) {
        ASSERT_TRUE(
            store.SetUserValueSync(restartSection, restartField, QString::fromUtf8(GetParam().apply(whole))));
    });
    StartAsAfterRestart();
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("ready"), 1))
        << m_client->GetErrorOutput().toStdString();
    const QVector<QJsonObject> logins = m_client->GetEvents(QStringLiteral("login"));
    ASSERT_EQ(logins.size(), 1);
    EXPECT_TRUE(logins.first().value(QStringLiteral("restart")).toBool()) << "the record was not read";
    EXPECT_TRUE(m_client->GetEvents(QStringLiteral("question.asked")).isEmpty());

    const QStringList back = TabState::After(m_client->GetEvents());
    EXPECT_EQ(HasNotice(QStringLiteral("tabs-missing")), back != m_tabs)
        << back.join(QLatin1Char('\n')).toStdString();
    if (back == m_tabs) {
        EXPECT_TRUE(m_client->Quit());
        return;
    }
    // What did not come back is found under the earlier tabs.
    const Desktop desktop(m_screen.GetDisplay());
    ASSERT_TRUE(desktop.WaitForWindow(m_client->GetProcessId()));
    ASSERT_TRUE(desktop.Press({QStringLiteral("F10")}));
    ASSERT_TRUE(desktop.Press({QStringLiteral("e")}));
    ASSERT_TRUE(desktop.WaitForTitle(QStringLiteral("Earlier tabs")));
    ASSERT_TRUE(desktop.Press({QStringLiteral("space")}));
    ASSERT_TRUE(desktop.Press({QStringLiteral("Return")}));
    EXPECT_TRUE(WaitForTabs(back + m_tabs));
    EXPECT_TRUE(m_client->Quit());
}

TEST_P(DamageTest, ClientStandsDamageToTheStoreFileAndKeepsTheOriginal)
{
    ASSERT_NO_FATAL_FAILURE(RunUntilKilled());
    // The log beside the file would make good for what happens to it.
    WithStore([](VXSettingManager&) {});
    QFile file(GetStoreFile());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QByteArray whole = file.readAll();
    const QByteArray damaged = GetParam().apply(whole);
    ASSERT_TRUE(file.resize(0) && file.seek(0));
    ASSERT_EQ(file.write(damaged), damaged.size());
    file.close();

    ExpectUsable();
    const QStringList kept =
        QFileInfo(GetStoreFile()).dir().entryList({QStringLiteral("settings.sqlite.damaged-*")}, QDir::Files);
    const bool told =
        HasNotice(QStringLiteral("store-set-aside")) || HasNotice(QStringLiteral("store-values-damaged"));
    // What does no harm to the database is no damage: bytes behind its end, or none at all.
    EXPECT_EQ(!kept.isEmpty() || m_asked, true) << "neither kept aside nor read";
    EXPECT_EQ(kept.isEmpty(), !told) << "whoever sets something aside says so";
}

INSTANTIATE_TEST_SUITE_P(Damages, DamageTest, ::testing::ValuesIn(damages), NameOfDamage);

/// A person who never closes a tab.
class ManyTabsTest : public DamageTest
{};

TEST_F(ManyTabsTest, ThousandTabsComeBackAndCanBeUsedClosedAndKilledAgain)
{
    ASSERT_NO_FATAL_FAILURE(RunUntilKilled());
    QJsonObject record;
    WithStore([this, &record](VXSettingManager& store) {
        record = QJsonDocument::fromJson(store.GetUserValue(recoverSection, recoverField).toUtf8()).object();
        ASSERT_FALSE(record.isEmpty());
        const QString list = QStringLiteral("tabRecoverItems");
        const QJsonArray items = record.value(list).toArray();
        ASSERT_FALSE(items.isEmpty());
        QJsonArray many;
        for (int i = 0; i < thousand; ++i) {
            QJsonObject item = items.at(0).toObject();
            const QString page =
                QStringLiteral("%1/demo/today?%2").arg(m_gateway->GetAddress().toString()).arg(i);
            item.insert(QStringLiteral("routerUrl"), QStringLiteral("tl://browser/open?url=") +
                                                         QString::fromLatin1(QUrl::toPercentEncoding(page)));
            many.append(item);
        }
        record.insert(list, many);
        ASSERT_TRUE(
            store.SetUserValueSync(recoverSection, recoverField,
                                   QString::fromUtf8(QJsonDocument(record).toJson(QJsonDocument::Compact))));
    });

    LogIn();
    ASSERT_TRUE(AnswerQuestion(QStringLiteral("Return")));
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("ready"), 1));
    QStringList tabs = TabState::After(m_client->GetEvents());
    ASSERT_EQ(tabs.size(), thousand);

    const Desktop desktop(m_screen.GetDisplay());
    ASSERT_TRUE(desktop.WaitForWindow(m_client->GetProcessId()));
    ASSERT_TRUE(desktop.Press({QStringLiteral("ctrl+9")})); // the last one loads when it is selected
    const QString last = QStringLiteral("today?%1").arg(thousand - 1);
    EXPECT_TRUE(m_client->WaitFor([&last](const QVector<QJsonObject>& events) {
        return std::any_of(events.begin(), events.end(), [&last](const QJsonObject& event) {
            return EventName(event) == QLatin1String("page.loaded") &&
                   event.value(QStringLiteral("url")).toString().endsWith(last);
        });
    }));
    ASSERT_TRUE(desktop.Press({QStringLiteral("ctrl+w")}));
    tabs.removeLast();
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("tab.closed"), 1));
    ASSERT_TRUE(WaitForKept());
    EXPECT_LT(m_client->GetEvents(QStringLiteral("page.loaded")).size(), 20) << "most of them never loaded";
    m_client->Kill();

    LogIn();
    ASSERT_TRUE(AnswerQuestion(QStringLiteral("Return")));
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("ready"), 1));
    EXPECT_EQ(TabState::After(m_client->GetEvents()), tabs);
    EXPECT_TRUE(m_client->Quit());
}
