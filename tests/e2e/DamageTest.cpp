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

constexpr int Thousand = 1000;

const QString RecoverSection = QStringLiteral("USER_SETTING_RECOVER_SECTION");
const QString RecoverField = QStringLiteral("USER_SETTING_RECOVER_FIELD1");
const QString RestartSection = QStringLiteral("USER_SETTING_RESTART_SECTION");
const QString RestartField = QStringLiteral("USER_SETTING_RESTART_FIELD");
const QString ClientSection = QStringLiteral("CLIENT");

struct StoredValue
{
    QString section;
    QString field;
};

QVector<StoredValue> AllValues()
{
    return {{RecoverSection, RecoverField},
            {RestartSection, RestartField},
            {ClientSection, QStringLiteral("RUNNING_TABS")},
            {ClientSection, QStringLiteral("EARLIER_TABS")},
            {ClientSection, QStringLiteral("EARLIER_TABS_0")},
            {ClientSection, QStringLiteral("REOPEN_DEATHS")}};
}

/// A way to damage a text or a file.
struct Damage
{
    const char* name;
    std::function<QByteArray(QByteArray)> apply;
    std::optional<bool> told; ///< whether the client tells the user; empty when it depends on the place
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

const Damage Damages[] = {
    {"CutInHalf", [](const QByteArray& bytes) { return bytes.left(bytes.size() / 2); }, true},
    {"Emptied", [](const QByteArray&) { return QByteArray(); }, false}, // as if there were no record
    {"BytesFlipped", FlipBytes, std::nullopt},
    {"NoiseInstead", [](const QByteArray& bytes) { return FlipBytes(QByteArray(bytes.size() + 100, '7')); },
     true},
    {"Doubled", [](const QByteArray& bytes) { return bytes + bytes; }, true},
    {"HugeCounts",
     [](QByteArray bytes) {
         // In the client's lines, in JSON, and at the head of a stream, in base64.
         bytes.replace("\"count\":", "\"count\":99999999");
         return bytes.startsWith('{') ? bytes : QByteArray::fromHex("7fffffff00000040").toBase64();
     },
     true},
};

/// A restart record as the module writes it.
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

/// Damages what the client stored between two runs.
class DamageTest : public ClientTest, public ::testing::WithParamInterface<Damage>
{
protected:
    QString GetStoreFile() const { return m_folder.filePath(QStringLiteral("profile/settings.sqlite")); }

    /// Calls `work` with the stored values of the demo merchant while no client runs.
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
        ASSERT_TRUE(WaitForRecord());
        m_tabs = TabState::After(m_client->GetEvents());
        m_belongType = GetLoginReply().value(QStringLiteral("belongType")).toString();
        ASSERT_FALSE(m_belongType.isEmpty());
        m_client->Kill();
    }

    /// Adds to the values that a kill leaves: a restart record, an earlier set of tabs, and the count of
    /// crashes after reopening.
    void FillAllValues()
    {
        WithStore([this](VXSettingManager& store) {
            const QString running = store.GetUserValue(ClientSection, QStringLiteral("RUNNING_TABS"));
            const QVector<QPair<StoredValue, QString>> values{
                {{RestartSection, RestartField}, MakeRestartRecord(m_tabs, m_belongType)},
                {{ClientSection, QStringLiteral("EARLIER_TABS")}, QStringLiteral(R"([{"fate":1,"slot":0}])")},
                {{ClientSection, QStringLiteral("EARLIER_TABS_0")}, running},
                {{ClientSection, QStringLiteral("REOPEN_DEATHS")}, QStringLiteral("1")}};
            for (const auto& [value, text] : values) {
                ASSERT_TRUE(store.SetUserValueSync(value.section, value.field, text));
            }
        });
    }

    /// Starts the client as a restart does, with the session of the previous log-in.
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

    /// Expects the client to start, with or without a question, and to work.
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

    QStringList m_tabs; ///< open when the client was killed
    QStringList m_back; ///< open when the next one was ready
    QString m_belongType;
    bool m_asked = false;
};

TEST_P(DamageTest, ClientSurvivesDamageToEveryStoredValue)
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
    EXPECT_EQ(m_asked, !readable.isEmpty()) << "the client offers what it can read";
    if (readable == m_tabs) {
        EXPECT_EQ(m_back, m_tabs);
    }
    if (GetParam().told) {
        EXPECT_EQ(HasNotice(QStringLiteral("tabs-missing")), *GetParam().told);
    }
}

TEST_P(DamageTest, ClientSurvivesADamagedRestartRecordAndLosesNoTabs)
{
    ASSERT_NO_FATAL_FAILURE(RunUntilKilled());
    const QByteArray whole = MakeRestartRecord(m_tabs, m_belongType).toUtf8();
    WithStore([&whole](VXSettingManager& store) {
        ASSERT_TRUE(
            store.SetUserValueSync(RestartSection, RestartField, QString::fromUtf8(GetParam().apply(whole))));
    });
    StartAsAfterRestart();
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("ready"), 1))
        << m_client->GetErrorOutput().toStdString();
    const QVector<QJsonObject> logins = m_client->GetEvents(QStringLiteral("login"));
    ASSERT_EQ(logins.size(), 1);
    EXPECT_TRUE(logins.first().value(QStringLiteral("restart")).toBool())
        << "the client did not use the session";
    EXPECT_TRUE(m_client->GetEvents(QStringLiteral("question.asked")).isEmpty());

    const QStringList back = TabState::After(m_client->GetEvents());
    EXPECT_EQ(HasNotice(QStringLiteral("tabs-missing")), back != m_tabs)
        << back.join(QLatin1Char('\n')).toStdString();
    if (back == m_tabs) {
        EXPECT_TRUE(m_client->Quit());
        return;
    }
    // Tabs that did not come back are among the earlier ones.
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

TEST_P(DamageTest, ClientSurvivesDamageToTheStoreFileAndSetsItAside)
{
    ASSERT_NO_FATAL_FAILURE(RunUntilKilled());
    // The write-ahead log beside the file would repair it: close the store, which removes the log.
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
    // Some changes do not harm the database: bytes after its end, or an empty file.
    EXPECT_EQ(!kept.isEmpty() || m_asked, true) << "neither set aside nor read";
    EXPECT_EQ(kept.isEmpty(), !told) << "the client says when it sets a file aside";
}

INSTANTIATE_TEST_SUITE_P(Damages, DamageTest, ::testing::ValuesIn(Damages), NameOfDamage);

/// A user who never closes a tab.
class ManyTabsTest : public DamageTest
{
protected:
    void SetUp() override
    {
        DamageTest::SetUp();
        ASSERT_NO_FATAL_FAILURE(RunUntilKilled());
        ASSERT_NO_FATAL_FAILURE(StoreManyTabs());
        ASSERT_NO_FATAL_FAILURE(Reopen());
        ASSERT_EQ(m_tabs.size(), Thousand);
    }

    /// Logs in and answers Yes.
    void Reopen()
    {
        LogIn();
        ASSERT_TRUE(AnswerQuestion(QStringLiteral("Return")));
        ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("ready"), 1));
        m_tabs = TabState::After(m_client->GetEvents());
    }

    bool PressInWindow(const QString& key)
    {
        const Desktop desktop(m_screen.GetDisplay());
        return desktop.WaitForWindow(m_client->GetProcessId()) && desktop.Press({key});
    }

private:
    /// Makes both records, the module's and the client's own, those of a client with many tabs.
    void StoreManyTabs()
    {
        QStringList routerUrls;
        for (int i = 0; i < Thousand; ++i) {
            const QString page =
                QStringLiteral("%1/demo/today?%2").arg(m_gateway->GetAddress().toString()).arg(i);
            routerUrls << QStringLiteral("tl://browser/open?url=") +
                              QString::fromLatin1(QUrl::toPercentEncoding(page));
        }
        WithStore([&routerUrls](VXSettingManager& store) {
            const QString text = store.GetUserValue(RecoverSection, RecoverField);
            ASSERT_TRUE(
                store.SetUserValueSync(RecoverSection, RecoverField, MakeModulesRecord(text, routerUrls)));
            const QString running = QStringLiteral("RUNNING_TABS");
            const QString lines = store.GetUserValue(ClientSection, running);
            ASSERT_TRUE(store.SetUserValueSync(ClientSection, running, MakeClientsRecord(lines, routerUrls)));
        });
    }

    static QString MakeModulesRecord(const QString& text, const QStringList& routerUrls)
    {
        const QString list = QStringLiteral("tabRecoverItems");
        QJsonObject record = QJsonDocument::fromJson(text.toUtf8()).object();
        QJsonObject item = record.value(list).toArray().at(0).toObject();
        QJsonArray items;
        for (const QString& routerUrl : routerUrls) {
            item.insert(QStringLiteral("routerUrl"), routerUrl);
            items.append(item);
        }
        record.insert(list, items);
        return QString::fromUtf8(QJsonDocument(record).toJson(QJsonDocument::Compact));
    }

    /// A line for the whole set, then one for each tab.
    static QString MakeClientsRecord(const QString& text, const QStringList& routerUrls)
    {
        const QStringList lines = text.split(QLatin1Char('\n'));
        QJsonObject head = QJsonDocument::fromJson(lines.value(0).toUtf8()).object();
        QJsonObject tab = QJsonDocument::fromJson(lines.value(1).toUtf8()).object();
        head.insert(QStringLiteral("count"), routerUrls.size());
        head.insert(QStringLiteral("current"), 0);
        QByteArray record = QJsonDocument(head).toJson(QJsonDocument::Compact) + '\n';
        for (const QString& routerUrl : routerUrls) {
            tab.insert(QStringLiteral("url"), routerUrl);
            record += QJsonDocument(tab).toJson(QJsonDocument::Compact) + '\n';
        }
        return QString::fromUtf8(record);
    }
};

TEST_F(ManyTabsTest, TabOfAThousandLoadsWhenItIsSelectedAndFewOthersDo)
{
    ASSERT_TRUE(PressInWindow(QStringLiteral("ctrl+9"))); // selects the last one
    const QString last = QStringLiteral("today?%1").arg(Thousand - 1);
    EXPECT_TRUE(m_client->WaitFor([&last](const QVector<QJsonObject>& events) {
        return std::any_of(events.begin(), events.end(), [&last](const QJsonObject& event) {
            return EventName(event) == QLatin1String("page.loaded") &&
                   event.value(QStringLiteral("url")).toString().endsWith(last);
        });
    }));
    EXPECT_LT(m_client->GetEvents(QStringLiteral("page.loaded")).size(), 20);
    EXPECT_TRUE(m_client->Quit());
}

TEST_F(ManyTabsTest, ThousandTabsWithOneClosedComeBackAfterAnotherKill)
{
    QStringList tabs = m_tabs;
    ASSERT_TRUE(PressInWindow(QStringLiteral("ctrl+9")));
    ASSERT_TRUE(WaitForTabInFront(Thousand));
    ASSERT_TRUE(PressInWindow(QStringLiteral("ctrl+w")));
    tabs.removeLast();
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("tab.closed"), 1));
    ASSERT_TRUE(WaitForRecord());
    m_client->Kill();

    ASSERT_NO_FATAL_FAILURE(Reopen());
    EXPECT_EQ(m_tabs, tabs);
    EXPECT_TRUE(m_client->Quit());
}
