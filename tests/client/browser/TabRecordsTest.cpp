#include "MainWindowTest.h"

#include <QtTest/QSignalSpy>

namespace {

class TabRecordsTest : public MainWindowTest
{
protected:
    /// Each record says what the tab itself says.
    void ExpectToMatch() const
    {
        const QVector<TabRecord> records = m_window->GetTabRecords();
        ASSERT_EQ(records.size(), m_window->GetTabCount());
        for (int i = 0; i < records.size(); ++i) {
            SCOPED_TRACE(i);
            const TabRecord& record = records.at(i);
            EXPECT_EQ(record.title, GetData(i).GetTitle());
            EXPECT_EQ(record.iconUrl, GetData(i).GetIconUrl());
            EXPECT_EQ(record.type, GetData(i).GetType());
            EXPECT_EQ(record.routerUrl, GetRouterUrl(i));
            EXPECT_EQ(record.delayed, m_window->IsTabDelayed(i));
        }
    }
};

} // namespace

TEST_F(TabRecordsTest, AreThoseOfAllTabsWithTheHomeTabFirst)
{
    OpenUrl(QStringLiteral("https://a.example/"));
    OpenApp(QStringLiteral("orders"));
    OpenApp(QStringLiteral("nobody"));
    OpenDelayed(QStringLiteral("https://b.example/"), QStringLiteral("B"),
                QStringLiteral("https://b.example/i.png"));
    TabOpenInfo shown;
    shown.address = QStringLiteral("https://help.example/");
    shown.remember = false;
    m_window->OpenUrl(shown, -1);
    m_window->OpenStartTab();

    ExpectToMatch();
    const QVector<TabRecord> records = m_window->GetTabRecords();
    ASSERT_EQ(records.size(), 7);
    EXPECT_EQ(records.at(0).type, TabType::Home);
    EXPECT_EQ(records.at(0).title, QStringLiteral("Home"));
    EXPECT_FALSE(records.at(0).remember);
    EXPECT_EQ(records.at(1).routerUrl, QStringLiteral("tl://browser/open?url=https%3A%2F%2Fa.example%2F"));
    EXPECT_EQ(records.at(2).title, QStringLiteral("ORDERS"));
    EXPECT_EQ(records.at(2).iconUrl, QStringLiteral("https://icons.example/orders.png"));
    EXPECT_EQ(records.at(3).trouble, TabRecord::Trouble::UnknownApp);
    EXPECT_TRUE(records.at(4).delayed);
    EXPECT_FALSE(records.at(5).remember);
    EXPECT_EQ(records.at(6).routerUrl, QString());
}

TEST_F(TabRecordsTest, FollowEveryChange)
{
    OpenUrl(QStringLiteral("https://a.example/"));
    OpenDelayed(QStringLiteral("https://b.example/"), QString());
    OpenApp(QStringLiteral("orders"));
    m_pages.pages.first()->Arrive(QUrl(QStringLiteral("https://a.example/next")), QStringLiteral("Next"));
    Q_EMIT m_pages.pages.first()->SigIconChanged(QUrl(QStringLiteral("https://a.example/i.png")), QIcon());
    ExpectToMatch();
    EXPECT_EQ(m_window->GetTabRecords().at(1).title, QStringLiteral("Next"));

    m_window->SelectTab(2);
    ExpectToMatch();
    m_window->MoveTab(1, 3);
    ExpectToMatch();
    m_apps.SetPlugins({});
    ExpectToMatch();
    m_window->CloseTab(2);
    ExpectToMatch();
    m_pages.pages.first()->Fail(PageFailure::Kind::TimedOut, QUrl(QStringLiteral("https://slow.example/")));
    ExpectToMatch();
    EXPECT_EQ(m_window->GetTabRecords().last().address, QUrl(QStringLiteral("https://slow.example/")));
    m_window->CloseAllTabs();
    ExpectToMatch();
}

TEST_F(TabRecordsTest, AnIconThatOnlyLooksDifferentIsAChangeOfTheTab)
{
    OpenUrl(QStringLiteral("https://a.example/"));
    OpenUrl(QStringLiteral("https://b.example/"));
    const QSignalSpy changed(m_window.get(), &MainWindow::SigTabChanged);
    Q_EMIT m_pages.pages.first()->SigRendererDied(); // the tab shows a warning sign
    EXPECT_TRUE(changed.contains(QVariantList({1})));
    EXPECT_FALSE(changed.contains(QVariantList({2})));
}

TEST_F(TabRecordsTest, AreUpToDateWhenAChangeIsAnnounced)
{
    QStringList titles;
    QObject::connect(m_window.get(), &MainWindow::SigTabOpened, m_window.get(),
                     [&](int index) { titles << m_window->GetTabRecords().at(index).title; });
    QObject::connect(m_window.get(), &MainWindow::SigTabChanged, m_window.get(),
                     [&](int index) { titles << m_window->GetTabRecords().at(index).title; });
    OpenUrl(QStringLiteral("https://a.example/"));
    Q_EMIT m_pages.pages.first()->SigTitleChanged(QStringLiteral("Orders"));
    Q_EMIT m_pages.pages.first()->SigProgress(50);
    EXPECT_EQ(titles, QStringList({QStringLiteral("a.example"), QStringLiteral("Orders")}))
        << "progress is no change of the tab";
}
