#include "ClientTest.h"
#include "Programs.h"

#include <algorithm>

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
