#include "MainWindowTest.h"

#include "AddressBar.h"
#include "FindBar.h"
#include "notices/NoticeBar.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>

class ShortcutTest : public MainWindowTest
{
protected:
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(m_window.get(), key, modifiers);
    }
    FakePage& GetPage(int number) { return *m_pages.pages.at(number); }
    AddressBar* GetAddressBar() { return m_window->findChild<AddressBar*>(); }
    void Type(const QString& address)
    {
        Press(Qt::Key_L, Qt::ControlModifier);
        QTest::keyClicks(GetAddressBar(), address);
        QTest::keyClick(GetAddressBar(), Qt::Key_Return);
    }
};

TEST_F(ShortcutTest, NewCloseAndReopen)
{
    OpenUrl(QStringLiteral("https://a.example/"));
    Press(Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(m_window->GetTabCount(), 3);
    Press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(m_window->GetCurrentTab(), 1);
    Press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(m_window->GetTabCount(), 1);
    Press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(m_window->GetTabCount(), 1) << "home was closed";
    Press(Qt::Key_T, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_EQ(m_window->GetTabCount(), 2);
    EXPECT_EQ(m_window->GetTabAddress(1), QStringLiteral("https://a.example/"));
    EXPECT_EQ(m_window->GetCurrentTab(), 1);
}

TEST_F(ShortcutTest, ControlTabGoesRound)
{
    OpenUrl(QStringLiteral("https://a.example/"));
    OpenUrl(QStringLiteral("https://b.example/"));
    Press(Qt::Key_Tab, Qt::ControlModifier);
    Press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(m_window->GetCurrentTab(), 2);
    Press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(m_window->GetCurrentTab(), 0);
    Press(Qt::Key_Tab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(m_window->GetCurrentTab(), 2);
}

TEST_F(ShortcutTest, ControlShiftPageKeysMoveTheTabButNeverBeforeHome)
{
    OpenUrl(QStringLiteral("https://a.example/"));
    OpenUrl(QStringLiteral("https://b.example/"));
    m_window->SelectTab(1);
    const Qt::KeyboardModifiers both = Qt::ControlModifier | Qt::ShiftModifier;
    Press(Qt::Key_PageDown, both);
    EXPECT_EQ(m_window->GetCurrentTab(), 2);
    EXPECT_EQ(m_window->GetTabAddress(1), QStringLiteral("https://b.example/"));
    Press(Qt::Key_PageDown, both);
    EXPECT_EQ(m_window->GetCurrentTab(), 2) << "there is nothing behind the last one";
    Press(Qt::Key_PageUp, both);
    Press(Qt::Key_PageUp, both);
    EXPECT_EQ(m_window->GetCurrentTab(), 1) << "home stays first";
    EXPECT_EQ(m_window->GetTabAddress(1), QStringLiteral("https://a.example/"));
}

TEST_F(ShortcutTest, FTenOpensTheMenuForTheKeyboard)
{
    Press(Qt::Key_F10);
    auto* const menu = m_window->findChild<QMenu*>(QStringLiteral("main_menu"));
    ASSERT_TRUE(menu->isVisible());
    EXPECT_TRUE(menu->activeAction());
    QTest::keyClick(menu, Qt::Key_Escape);
    EXPECT_FALSE(menu->isVisible());
}

TEST_F(ShortcutTest, NumbersSelectAndNineIsTheLast)
{
    for (int i = 0; i < 11; ++i) {
        OpenDelayed(QStringLiteral("https://a.example/%1").arg(i), QString());
    }
    Press(Qt::Key_3, Qt::ControlModifier);
    EXPECT_EQ(m_window->GetCurrentTab(), 2);
    Press(Qt::Key_9, Qt::ControlModifier);
    EXPECT_EQ(m_window->GetCurrentTab(), 11);
    Press(Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(m_window->GetCurrentTab(), 0);
}

TEST_F(ShortcutTest, ReloadStopBackForward)
{
    OpenUrl(QStringLiteral("https://a.example/"));
    m_window->SelectTab(1);
    EXPECT_TRUE(m_window->IsLoading());
    Press(Qt::Key_Escape);
    EXPECT_EQ(GetPage(0).stops, 1);
    EXPECT_FALSE(m_window->IsLoading());
    Press(Qt::Key_F5);
    Press(Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(GetPage(0).reloads, 2);
    Press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(GetPage(0).backs, 0) << "there is nothing to go back to";
    GetPage(0).canGoBack = true;
    GetPage(0).canGoForward = true;
    Q_EMIT GetPage(0).SigHistoryChanged();
    Press(Qt::Key_Left, Qt::AltModifier);
    Press(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(GetPage(0).backs, 1);
    EXPECT_EQ(GetPage(0).forwards, 1);
}

TEST_F(ShortcutTest, ZoomGoesInStepsAndBack)
{
    OpenUrl(QStringLiteral("https://a.example/"));
    m_window->SelectTab(1);
    Press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(GetPage(0).zoom, 1.1);
    Press(Qt::Key_Minus, Qt::ControlModifier);
    Press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(GetPage(0).zoom, 0.9);
    for (int i = 0; i < 40; ++i) {
        Press(Qt::Key_Minus, Qt::ControlModifier);
    }
    EXPECT_DOUBLE_EQ(GetPage(0).zoom, 0.25);
    Press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(GetPage(0).zoom, 1.0);
}

TEST_F(ShortcutTest, FindOpensSearchesAndCloses)
{
    OpenUrl(QStringLiteral("https://a.example/"));
    m_window->SelectTab(1);
    Press(Qt::Key_F, Qt::ControlModifier);
    QLineEdit* bar = nullptr;
    const auto fields = m_window->findChildren<QLineEdit*>(QStringLiteral("find_edit"));
    for (QLineEdit* field : fields) {
        bar = field->isVisible() ? field : bar;
    }
    ASSERT_NE(bar, nullptr);
    EXPECT_TRUE(bar->hasFocus());
    QTest::keyClicks(bar, QStringLiteral("abc"));
    EXPECT_EQ(GetPage(0).found, QStringLiteral("abc"));
    QTest::keyClick(bar, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_TRUE(GetPage(0).foundBackward);
    QTest::keyClick(bar, Qt::Key_Escape);
    EXPECT_FALSE(bar->isVisible());
    EXPECT_EQ(GetPage(0).found, QString()) << "the search was not ended";
}

TEST_F(ShortcutTest, ATypedHostGetsHttps)
{
    Press(Qt::Key_T, Qt::ControlModifier);
    Type(QStringLiteral("shop.example/x"));
    ASSERT_EQ(m_pages.pages.size(), 1);
    EXPECT_EQ(GetPage(0).loads, QList<QUrl>({QUrl(QStringLiteral("https://shop.example/x"))}));
    EXPECT_EQ(m_window->GetTabCount(), 2);
    EXPECT_EQ(GetRouterUrl(1), QStringLiteral("tl://browser/open?url=https%3A%2F%2Fshop.example%2Fx"));
    EXPECT_TRUE(GetMessage().isEmpty());
}

TEST_F(ShortcutTest, AnAddressTypedAtHomeOrInAnAppOpensATab)
{
    Type(QStringLiteral("a.example"));
    EXPECT_EQ(m_window->GetTabCount(), 2);
    EXPECT_EQ(GetData(0).GetType(), TabType::Home);
    OpenApp(QStringLiteral("orders"));
    m_window->SelectTab(2);
    Type(QStringLiteral("b.example"));
    EXPECT_EQ(m_window->GetTabCount(), 4);
    EXPECT_EQ(m_window->GetTabAddress(2), QStringLiteral("https://orders.example/start"));
    EXPECT_EQ(m_window->GetCurrentTab(), 3);
}

TEST_F(ShortcutTest, ARefusedTypedAddressSaysSoAndLoadsNothing)
{
    OpenUrl(QStringLiteral("https://a.example/"));
    m_window->SelectTab(1);
    Type(QStringLiteral("file:///etc/passwd"));
    EXPECT_EQ(GetPage(0).loads.size(), 1);
    EXPECT_TRUE(m_window->GetNoticeBar()
                    ->GetText(QStringLiteral("refused-address"))
                    .contains(QStringLiteral("file:///etc/passwd")));
    EXPECT_EQ(m_window->GetTabAddress(1), QStringLiteral("https://a.example/"));
    Type(QStringLiteral("b.example"));
    EXPECT_FALSE(m_window->GetNoticeBar()->IsShown(QStringLiteral("refused-address")));
    EXPECT_EQ(GetPage(0).loads.size(), 2);
}

TEST_F(ShortcutTest, WhileTheUserTypesThePageLeavesTheTextAlone)
{
    OpenUrl(QStringLiteral("https://a.example/"));
    m_window->SelectTab(1);
    Press(Qt::Key_L, Qt::ControlModifier);
    QTest::keyClicks(GetAddressBar(), QStringLiteral("half an addr"));
    GetPage(0).Arrive(QUrl(QStringLiteral("https://a.example/redirected")), QStringLiteral("T"));
    EXPECT_EQ(GetAddressBar()->text(), QStringLiteral("half an addr"));
    QTest::keyClick(GetAddressBar(), Qt::Key_Escape);
    EXPECT_EQ(GetAddressBar()->text(), QStringLiteral("https://a.example/redirected"));
}

TEST_F(ShortcutTest, TheHalfTypedAddressDoesNotFollowToAnotherTab)
{
    OpenUrl(QStringLiteral("https://a.example/"));
    OpenUrl(QStringLiteral("https://b.example/"));
    m_window->SelectTab(1);
    Press(Qt::Key_L, Qt::ControlModifier);
    QTest::keyClicks(GetAddressBar(), QStringLiteral("half"));
    Press(Qt::Key_3, Qt::ControlModifier);
    EXPECT_EQ(GetAddressBar()->text(), QStringLiteral("https://b.example/"));
}
