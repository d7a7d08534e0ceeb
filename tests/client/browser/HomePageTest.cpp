#include "MainWindowTest.h"

#include "AppListModel.h"

#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListView>

class HomePageTest : public MainWindowTest
{
protected:
    HomePageTest()
        : m_grid(m_window->findChild<QListView*>(QStringLiteral("app_grid")))
        , m_search(m_window->findChild<QLineEdit*>(QStringLiteral("home_search")))
    {}

    QStringList GetNames() const
    {
        QStringList names;
        for (int i = 0; i < m_grid->model()->rowCount(); ++i) {
            names << m_grid->model()->index(i, 0).data().toString();
        }
        return names;
    }
    void Click(int row)
    {
        QTest::mouseClick(m_grid->viewport(), Qt::LeftButton, {},
                          m_grid->visualRect(m_grid->model()->index(row, 0)).center());
    }

    QListView* m_grid;
    QLineEdit* m_search;
};

TEST_F(HomePageTest, GreetsTheUser)
{
    EXPECT_EQ(m_window->findChild<QLabel*>(QStringLiteral("home_greeting"))->text(),
              QStringLiteral("Welcome, Anna"));
}

TEST_F(HomePageTest, OffersTheAppsInTheirOrderButNotTheHiddenOnes)
{
    m_apps.SetPlugins(
        {MakeApp(QStringLiteral("z"), QString()), MakeApp(QStringLiteral("hidden"), QString(), 1),
         MakeApp(QStringLiteral("a"), QString()), MakeApp(QStringLiteral("odd"), QString(), 2)});
    EXPECT_EQ(GetNames(), QStringList({QStringLiteral("Z"), QStringLiteral("A"), QStringLiteral("ODD")}));
}

TEST_F(HomePageTest, AClickOpensTheAppAndThenBringsItToTheFront)
{
    Click(0);
    ASSERT_EQ(m_window->GetTabCount(), 2);
    EXPECT_EQ(m_window->GetCurrentTab(), 1);
    EXPECT_EQ(GetRouterUrl(1), QStringLiteral("tl://plugin/open?code=orders"));
    m_window->SelectTab(0);
    Click(0);
    EXPECT_EQ(m_window->GetTabCount(), 2);
    EXPECT_EQ(m_window->GetCurrentTab(), 1);
}

TEST_F(HomePageTest, TheSearchNarrowsAndEnterOpensTheFirst)
{
    QTest::keyClicks(m_search, QStringLiteral("rin"));
    EXPECT_EQ(GetNames(), QStringList({QStringLiteral("PRINT")}));
    QTest::keyClick(m_search, Qt::Key_Return);
    EXPECT_EQ(GetRouterUrl(1), QStringLiteral("tl://plugin/open?code=print"));
}

TEST_F(HomePageTest, TheKeyboardReachesTheApps)
{
    m_search->setFocus();
    QTest::keyClick(m_search, Qt::Key_Down);
    EXPECT_TRUE(m_grid->hasFocus());
    QTest::keyClick(m_grid, Qt::Key_Right);
    QTest::keyClick(m_grid, Qt::Key_Return);
    EXPECT_EQ(GetRouterUrl(1), QStringLiteral("tl://plugin/open?code=print"));
}

TEST_F(HomePageTest, SaysWhyThereIsNothing)
{
    auto* empty = m_window->findChild<QLabel*>(QStringLiteral("home_empty"));
    EXPECT_FALSE(empty->isVisible());
    QTest::keyClicks(m_search, QStringLiteral("no such app"));
    EXPECT_TRUE(empty->isVisible());
    EXPECT_EQ(empty->text(), QStringLiteral("No app has this name."));
    m_search->clear();
    m_apps.SetPlugins({});
    EXPECT_EQ(empty->text(), QStringLiteral("There are no apps in your account yet."));
}

TEST(AppListModelTest, FetchesAnIconOnceAndShowsItWhenItArrives)
{
    TLPluginBaseManager apps;
    auto app = QSharedPointer<TLPluginBaseEntity>::create();
    app->setProperty("serviceCode", QStringLiteral("a"));
    app->setProperty("iconUrl", QStringLiteral("https://icons.example/a.png"));
    apps.SetPlugins({app});
    QStringList asked;
    std::function<void(const QPixmap&)> deliver;
    AppListModel model(&apps,
                       [&](const QString& url, QObject*, const std::function<void(const QPixmap&)>& done) {
                           asked << url;
                           deliver = done;
                       });
    const QModelIndex index = model.index(0);
    const auto before = index.data(Qt::DecorationRole).value<QPixmap>();
    EXPECT_FALSE(before.isNull()) << "no picture while the icon is being fetched";
    index.data(Qt::DecorationRole);
    EXPECT_EQ(asked, QStringList({QStringLiteral("https://icons.example/a.png")}));
    QPixmap icon(10, 10);
    icon.fill(Qt::red);
    deliver(icon);
    EXPECT_EQ(index.data(Qt::DecorationRole).value<QPixmap>().cacheKey(), icon.cacheKey());
}
