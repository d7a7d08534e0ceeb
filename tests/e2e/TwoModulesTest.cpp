#include "ClientTest.h"
#include "Programs.h"
#include "TabState.h"

#include "core/TLGlobalData.h"
#include "settings-store/VXSettingManager.h"

#include <QtCore/QDir>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include <algorithm>

namespace {

const QString MissingId = QStringLiteral("tabs-missing");
const QString CareId = QStringLiteral("tabs-unloaded");

} // namespace

/// A second module beside the one with the start list; it opens its own page when the main window is shown.
class TwoModulesTest : public ClientTest
{
protected:
    void SetUp() override
    {
        ClientTest::SetUp();
        m_notesPage = m_gateway->GetAddress().toString() + QStringLiteral("/demo/today?notes");
        ASSERT_TRUE(m_client->AddModule(Programs::FixtureModule(QStringLiteral("NotesModule"))));
        m_client->SetEnvironment(QStringLiteral("TL_FIXTURE_PAGE"), m_notesPage);
    }

    /// The entries of the start list, then the page of the second module.
    QStringList GetAllUrls() const { return m_expected.urls + QStringList{m_notesPage}; }

    /// A run that opens everything and dies.
    void RunAndDie()
    {
        LogIn();
        ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("tab.opened"), GetAllUrls().size()));
        ASSERT_TRUE(WaitForRecord());
        m_client->Kill();
    }

    /// Logs in and answers the question about the tabs with No; then everything opens as at any log-in.
    void LogInAndDecline()
    {
        LogIn();
        ASSERT_TRUE(AnswerQuestion(QStringLiteral("Escape")));
        ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("tab.opened"), GetAllUrls().size()))
            << m_client->GetTrace().toStdString();
    }

    /// Takes the last tab out of the record of the module that keeps tabs, while no client runs.
    void LoseATab()
    {
        const QString section = QStringLiteral("USER_SETTING_RECOVER_SECTION");
        const QString field = QStringLiteral("USER_SETTING_RECOVER_FIELD1");
        TLGlobalData::Instance()->SetUser(QStringLiteral("demo"), QString());
        VXSettingManager* const store = VXSettingManager::Instance();
        ASSERT_TRUE(store->Open(QDir(GetProfile()).filePath(QStringLiteral("settings.sqlite"))));
        QJsonObject record = QJsonDocument::fromJson(store->GetUserValue(section, field).toUtf8()).object();
        QJsonArray items = record.value(QStringLiteral("tabRecoverItems")).toArray();
        ASSERT_EQ(items.size(), GetAllUrls().size());
        items.removeLast();
        record.insert(QStringLiteral("tabRecoverItems"), items);
        ASSERT_TRUE(
            store->SetUserValueSync(section, field, QString::fromUtf8(QJsonDocument(record).toJson())));
        store->Close();
        TLGlobalData::Instance()->ClearUser();
    }

    int CountDelayed() const
    {
        const QVector<QJsonObject> opened = m_client->GetEvents(QStringLiteral("tab.opened"));
        return static_cast<int>(std::count_if(opened.cbegin(), opened.cend(), [](const QJsonObject& event) {
            return event.value(QStringLiteral("delayed")).toBool();
        }));
    }

    /// The addresses that this run has opened, in order.
    QStringList GetOpenedUrls() const
    {
        QStringList urls;
        for (const QJsonObject& event : m_client->GetEvents(QStringLiteral("tab.opened"))) {
            urls << event.value(QStringLiteral("url")).toString();
        }
        return urls;
    }

    /// Waits until the tab that opened with this address is in front.
    bool WaitForUrlInFront(const QString& url)
    {
        return m_client->WaitFor([&url](const QVector<QJsonObject>& events) {
            QStringList urls{QString()}; // home
            int selected = 0;
            for (const QJsonObject& event : events) {
                if (EventName(event) == QLatin1String("tab.opened")) {
                    urls.insert(event.value(QStringLiteral("index")).toInt(),
                                event.value(QStringLiteral("url")).toString());
                } else if (EventName(event) == QLatin1String("tab.selected")) {
                    selected = event.value(QStringLiteral("index")).toInt();
                }
            }
            return urls.value(selected) == url;
        });
    }

    QString m_notesPage; ///< that the second module opens
};

TEST_F(TwoModulesTest, PageOfTheOneAndListOfTheOtherOpenOnceEach)
{
    LogIn();
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("page.loaded"), GetAllUrls().size()))
        << m_client->GetTrace().toStdString();
    EXPECT_TRUE(WaitForUrlInFront(m_expected.urls.at(m_expected.openFirst - 1)))
        << "the entry to open first stays in front";
    ASSERT_TRUE(m_client->Quit());

    QStringList opened = GetOpenedUrls();
    EXPECT_EQ(opened.count(m_notesPage), 1);
    opened.removeAll(m_notesPage);
    EXPECT_EQ(opened, m_expected.urls) << opened.join(QLatin1Char('\n')).toStdString();
    EXPECT_EQ(m_client->GetEvents(QStringLiteral("module.loaded")).size(), 2);
    EXPECT_TRUE(m_client->GetEvents(QStringLiteral("question.asked")).isEmpty());
}

TEST_F(TwoModulesTest, AfterANoNoBarSaysThatTabsAreMissing)
{
    RunAndDie();
    LogInAndDecline();
    ASSERT_TRUE(WaitForRecord());
    EXPECT_FALSE(HasNotice(MissingId)) << "the page of the other module was taken for one that came back";
    EXPECT_EQ(CountDelayed(), 0);
    ASSERT_TRUE(m_client->Quit());
}

TEST_F(TwoModulesTest, TwoEarlyDeathsWithANoEachDoNotHoldTheNextStartBack)
{
    RunAndDie();
    for (int death = 0; death < 2; ++death) {
        LogInAndDecline();
        ASSERT_TRUE(WaitForRecord());
        m_client->Kill();
    }
    LogInAndDecline();
    ASSERT_TRUE(WaitForRecord());
    EXPECT_FALSE(HasNotice(CareId)) << "no tab was reopened in any of these runs";
    EXPECT_EQ(CountDelayed(), 0);
    ASSERT_TRUE(m_client->Quit());
}

TEST_F(TwoModulesTest, PageOfTheOtherModuleDoesNotHideATabThatIsLost)
{
    RunAndDie();
    LoseATab();
    LogIn();
    ASSERT_TRUE(AnswerQuestion(QStringLiteral("Return")));
    EXPECT_TRUE(WaitForNotice(
        QStringLiteral("%1 of the %2 tabs").arg(GetAllUrls().size() - 1).arg(GetAllUrls().size())))
        << m_client->GetTrace().toStdString();
    ASSERT_TRUE(m_client->Quit());
}
