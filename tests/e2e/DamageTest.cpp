#include "ClientTest.h"
#include "Desktop.h"
#include "TabState.h"

#include "core/TLGlobalData.h"
#include "settings-store/VXSettingManager.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QRandomGenerator>
#include <QtTest/QTest>

#include <algorithm>
#include <functional>

namespace {

constexpr int promise = 1000; // [ms] after which a kill costs nothing
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
    {"CutInHalf", [](const QByteArray& bytes) { return bytes.left(bytes.size() / 2); }},
    {"Emptied", [](const QByteArray&) { return QByteArray(); }},
    {"BytesFlipped", FlipBytes},
    {"NoiseInstead", [](const QByteArray& bytes) { return FlipBytes(QByteArray(bytes.size() + 100, '7')); }},
    {"Doubled", [](const QByteArray& bytes) { return bytes + bytes; }},
    {"HugeCounts",
     [](QByteArray bytes) {
         // In the client's lines, in JSON and, as base64, at the head of a stream.
         bytes.replace("\"count\":", "\"count\":99999999");
         return bytes.startsWith('{') ? bytes : QByteArray::fromHex("7fffffff00000040").toBase64();
     }},
};

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
        QTest::qWait(promise);
        m_client->Kill();
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
        ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("tab.opened"), 1));
        ASSERT_TRUE(m_client->Quit());
    }

    bool m_asked = false;
};

TEST_P(DamageTest, ClientStandsDamageToEveryStoredValueAtOnce)
{
    RunUntilKilled();
    LogIn(); // once more, so that there are earlier tabs, too
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("question.asked"), 1));
    m_client->Kill();
    WithStore([](VXSettingManager& store) {
        for (const StoredValue& value : AllValues()) {
            const QByteArray text = store.GetUserValue(value.section, value.field).toUtf8();
            const QByteArray damaged = GetParam().apply(text.isEmpty() ? QByteArray("1") : text);
            ASSERT_TRUE(store.SetUserValueSync(value.section, value.field, QString::fromUtf8(damaged)));
        }
    });
    ExpectUsable();
}

TEST_P(DamageTest, ClientStandsDamageToTheStoreFileAndKeepsTheOriginal)
{
    RunUntilKilled();
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
    RunUntilKilled();
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
    QTest::qWait(promise);
    EXPECT_LT(m_client->GetEvents(QStringLiteral("page.loaded")).size(), 20) << "most of them never loaded";
    m_client->Kill();

    LogIn();
    ASSERT_TRUE(AnswerQuestion(QStringLiteral("Return")));
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("ready"), 1));
    EXPECT_EQ(TabState::After(m_client->GetEvents()), tabs);
    EXPECT_TRUE(m_client->Quit());
}
