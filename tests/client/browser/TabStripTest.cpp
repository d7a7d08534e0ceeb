#include "MainWindowTest.h"

#include "AddressBar.h"
#include "TabButton.h"
#include "TabListPopup.h"
#include "TabStrip.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QToolButton>

class TabStripTest : public MainWindowTest
{
protected:
    TabStripTest() : m_strip(m_window->findChild<TabStrip*>()) {}

    void OpenThree()
    {
        OpenUrl(QStringLiteral("https://a.example/"));
        OpenUrl(QStringLiteral("https://b.example/"));
        OpenUrl(QStringLiteral("https://c.example/"));
    }

    /// Drags the tab by the mouse until its left edge would stand at `x` of the strip.
    void Drag(int index, int x)
    {
        TabButton* button = m_strip->GetButton(index);
        ASSERT_NE(button, nullptr);
        const QPoint grip(20, 18);
        QTest::mousePress(button, Qt::LeftButton, {}, grip);
        const int start = button->mapTo(m_strip, QPoint(0, 0)).x();
        const int step = x < start ? -8 : 8;
        for (int at = start; step < 0 ? at > x : at < x; at += step) {
            const QPoint global = m_strip->mapToGlobal(QPoint(at, 0)) + grip;
            QMouseEvent move(QEvent::MouseMove, button->mapFromGlobal(global), global, Qt::NoButton,
                             Qt::LeftButton, {});
            QApplication::sendEvent(button, &move);
        }
        QTest::mouseRelease(button, Qt::LeftButton, {}, grip);
    }

    /// The page asks for a tab with a page of its own.
    void Offer(int page, ITabPage::NewTabKind kind, const char* host)
    {
        auto offer = std::make_shared<std::unique_ptr<ITabPage>>(m_pages.CreatePage(nullptr));
        Q_EMIT m_pages.pages.at(page)->SigNewTabRequested(offer, kind);
        m_pages.pages.last()->Arrive(QUrl(QStringLiteral("https://%1/").arg(QLatin1String(host))), QString());
    }

    TabStrip* m_strip;
};

TEST_F(TabStripTest, AClickSelects)
{
    OpenThree();
    QSignalSpy selected(m_window.get(), &MainWindow::SigTabSelected);
    QTest::mouseClick(m_strip->GetButton(2), Qt::LeftButton);
    EXPECT_EQ(m_window->GetCurrentTab(), 2);
    EXPECT_EQ(selected.size(), 1);
}

TEST_F(TabStripTest, AMiddleClickClosesButNotHome)
{
    OpenThree();
    QSignalSpy closed(m_window.get(), &MainWindow::SigTabClosed);
    QTest::mouseClick(m_strip->GetButton(2), Qt::MiddleButton);
    EXPECT_EQ(closed.value(0), QVariantList({2}));
    EXPECT_EQ(GetTitles(), QStringList({QStringLiteral("Home"), QStringLiteral("a.example"),
                                        QStringLiteral("c.example")}));
    QTest::mouseClick(m_strip->GetButton(0), Qt::MiddleButton);
    EXPECT_EQ(m_window->GetTabCount(), 3);
}

TEST_F(TabStripTest, TheCloseButtonClosesItsTab)
{
    OpenThree();
    QTest::mouseClick(m_strip->GetButton(1)->findChild<QToolButton*>(), Qt::LeftButton);
    EXPECT_EQ(GetTitles(), QStringList({QStringLiteral("Home"), QStringLiteral("b.example"),
                                        QStringLiteral("c.example")}));
    EXPECT_FALSE(m_strip->GetButton(0)->findChild<QToolButton*>()->isVisible()) << "home offers to be closed";
}

TEST_F(TabStripTest, ATabThatIsNotClosableStays)
{
    TabOpenInfo info;
    info.address = QStringLiteral("https://a.example/");
    info.closable = false;
    info.activate = true;
    m_window->OpenUrl(info, -1);
    QTest::mouseClick(m_strip->GetButton(1), Qt::MiddleButton);
    QTest::keyClick(m_window.get(), Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(m_window->GetTabCount(), 2);
}

TEST_F(TabStripTest, HomeCannotBeClosedMovedOrOvertaken)
{
    OpenThree();
    QSignalSpy moved(m_window.get(), &MainWindow::SigTabMoved);
    m_window->CloseTab(0);
    m_window->MoveTab(0, 2);
    m_window->MoveTab(2, 0);
    m_window->MoveTab(1, 4);
    EXPECT_TRUE(moved.isEmpty());
    EXPECT_EQ(m_window->GetTabCount(), 4);

    Drag(0, 500);
    EXPECT_EQ(GetData(0).GetType(), TabType::Home);
    EXPECT_TRUE(moved.isEmpty());
    Drag(3, -400);
    EXPECT_EQ(GetTitles(), QStringList({QStringLiteral("Home"), QStringLiteral("c.example"),
                                        QStringLiteral("a.example"), QStringLiteral("b.example")}));
}

TEST_F(TabStripTest, DraggingReordersAndAnnouncesIt)
{
    OpenThree();
    QSignalSpy moved(m_window.get(), &MainWindow::SigTabMoved);
    Drag(1, 2000);
    EXPECT_EQ(GetTitles(), QStringList({QStringLiteral("Home"), QStringLiteral("b.example"),
                                        QStringLiteral("c.example"), QStringLiteral("a.example")}));
    EXPECT_EQ(m_window->GetCurrentTab(), 3) << "the dragged tab is the current one";
    EXPECT_EQ(moved.size(), 2);
    EXPECT_LT(m_strip->GetButton(1)->x(), m_strip->GetButton(2)->x());
    EXPECT_LT(m_strip->GetButton(2)->x(), m_strip->GetButton(3)->x());
}

TEST_F(TabStripTest, ATabThatGoesWhileAnotherIsPressedEndsTheDrag)
{
    OpenThree();
    TabButton* const button = m_strip->GetButton(3);
    QTest::mousePress(button, Qt::LeftButton, {}, QPoint(20, 18));
    m_window->CloseTab(1);
    const QStringList titles = GetTitles();
    QMouseEvent move(QEvent::MouseMove, QPoint(-200, 18), button->mapToGlobal(QPoint(-200, 18)), Qt::NoButton,
                     Qt::LeftButton, {});
    QApplication::sendEvent(button, &move);
    EXPECT_EQ(GetTitles(), titles);
    QTest::mouseRelease(button, Qt::LeftButton, {}, QPoint(-200, 18));
}

TEST_F(TabStripTest, TabsThatAPageOpensAsideStandInTheirOrder)
{
    OpenThree();
    m_window->SelectTab(1);
    Offer(0, ITabPage::NewTabKind::Background, "first.example");
    Offer(0, ITabPage::NewTabKind::Background, "second.example");
    EXPECT_EQ(GetTitles().mid(1, 3),
              (QStringList{QStringLiteral("a.example"), QStringLiteral("first.example"),
                           QStringLiteral("second.example")}));
    m_window->SelectTab(3);
    m_window->SelectTab(1);
    Offer(0, ITabPage::NewTabKind::Background, "third.example");
    EXPECT_EQ(GetTitles().at(2), QStringLiteral("third.example")) << "the user was elsewhere meanwhile";
}

TEST_F(TabStripTest, APopUpThatClosesBringsItsOpenerBack)
{
    OpenThree();
    m_window->SelectTab(1);
    Offer(0, ITabPage::NewTabKind::Foreground, "pay.example");
    ASSERT_EQ(m_window->GetCurrentTab(), 2);
    Q_EMIT m_pages.pages.last()->SigCloseRequested();
    EXPECT_EQ(m_window->GetCurrentTab(), 1);

    Offer(0, ITabPage::NewTabKind::Foreground, "pay.example");
    m_window->SelectTab(4);
    m_window->SelectTab(2);
    m_window->CloseTab(2);
    EXPECT_EQ(m_window->GetCurrentTab(), 2) << "the user had gone elsewhere, and the next one follows";

    m_window->SelectTab(1);
    Offer(0, ITabPage::NewTabKind::Foreground, "pay.example");
    m_window->CloseTab(1);
    ASSERT_EQ(m_window->GetCurrentTab(), 1);
    m_window->CloseTab(1);
    EXPECT_EQ(m_window->GetCurrentTab(), 1) << "its opener is gone";
}

TEST_F(TabStripTest, AfterATabIsClosedTheKeyboardStaysWhereItWas)
{
    OpenThree();
    m_window->SelectTab(3);
    m_window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    m_pages.pages.at(2)->GetWidget()->setFocus();
    QTest::keyClick(m_window.get(), Qt::Key_W, Qt::ControlModifier);
    ASSERT_EQ(m_window->GetCurrentTab(), 2);
    EXPECT_EQ(QApplication::focusWidget(), m_pages.pages.at(1)->GetWidget()) << "in the page";

    m_strip->GetButton(2)->setFocus();
    QTest::keyClick(m_window.get(), Qt::Key_W, Qt::ControlModifier);
    ASSERT_EQ(m_window->GetCurrentTab(), 1);
    EXPECT_EQ(QApplication::focusWidget(), m_strip->GetButton(1)) << "among the tabs";
}

TEST_F(TabStripTest, ASmallMoveOfTheHandIsAClickAndNoDrag)
{
    OpenThree();
    TabButton* button = m_strip->GetButton(1);
    const int before = button->x();
    QTest::mousePress(button, Qt::LeftButton, {}, QPoint(20, 18));
    QTest::mouseMove(button, QPoint(22, 18));
    EXPECT_EQ(button->x(), before);
    QTest::mouseRelease(button, Qt::LeftButton, {}, QPoint(22, 18));
    EXPECT_EQ(m_window->GetCurrentTab(), 1);
}

TEST_F(TabStripTest, ClosingTheCurrentTabSelectsItsNeighbour)
{
    OpenThree();
    QSignalSpy selected(m_window.get(), &MainWindow::SigTabSelected);
    m_window->SelectTab(2);
    m_window->CloseTab(2);
    EXPECT_EQ(m_window->GetCurrentTab(), 2);
    EXPECT_EQ(m_window->GetTabAddress(2), QStringLiteral("https://c.example/"));
    m_window->CloseTab(2);
    EXPECT_EQ(m_window->GetCurrentTab(), 1);
    EXPECT_EQ(m_strip->GetCurrent(), 1);
    EXPECT_EQ(selected.size(), 3);
}

TEST_F(TabStripTest, OnlyTabsInSightHaveWidgets)
{
    for (int i = 1; i <= 300; ++i) {
        OpenDelayed(QStringLiteral("https://shop-%1.example/").arg(i), QStringLiteral("Shop %1").arg(i));
    }
    EXPECT_LT(m_strip->findChildren<TabButton*>().size(), 20);
    EXPECT_EQ(m_strip->GetButton(300), nullptr);
    m_window->SelectTab(300);
    ASSERT_NE(m_strip->GetButton(300), nullptr);
    EXPECT_TRUE(m_strip->GetButton(300)->isVisible());
    EXPECT_TRUE(m_strip->GetButton(300)->isChecked());
    EXPECT_EQ(m_strip->GetButton(1), nullptr);
    EXPECT_NE(m_strip->GetButton(0), nullptr) << "home scrolled away";
    EXPECT_LT(m_strip->findChildren<TabButton*>().size(), 30);
}

TEST_F(TabStripTest, TheScrollButtonsReachBothEnds)
{
    for (int i = 1; i <= 30; ++i) {
        OpenDelayed(QStringLiteral("https://shop-%1.example/").arg(i), QStringLiteral("Shop %1").arg(i));
    }
    auto* right = m_strip->findChild<QToolButton*>(QStringLiteral("strip_right"));
    auto* left = m_strip->findChild<QToolButton*>(QStringLiteral("strip_left"));
    EXPECT_FALSE(left->isEnabled());
    for (int i = 0; i < 30 && right->isEnabled(); ++i) {
        QTest::mouseClick(right, Qt::LeftButton);
    }
    EXPECT_NE(m_strip->GetButton(30), nullptr);
    for (int i = 0; i < 30 && left->isEnabled(); ++i) {
        QTest::mouseClick(left, Qt::LeftButton);
    }
    EXPECT_NE(m_strip->GetButton(1), nullptr);
}

TEST_F(TabStripTest, TheListOfAllTabsIsSearchable)
{
    for (int i = 1; i <= 50; ++i) {
        OpenDelayed(QStringLiteral("https://shop-%1.example/").arg(i), QStringLiteral("Shop %1").arg(i));
    }
    QTest::mouseClick(m_strip->findChild<QToolButton*>(QStringLiteral("strip_list")), Qt::LeftButton);
    auto* popup = m_window->findChild<TabListPopup*>();
    ASSERT_NE(popup, nullptr);
    EXPECT_EQ(popup->findChild<QListWidget*>()->count(), 51);
    auto* search = popup->findChild<QLineEdit*>();
    QTest::keyClicks(search, QStringLiteral("shop 42"));
    QTest::keyClick(search, Qt::Key_Return);
    EXPECT_EQ(m_window->GetCurrentTab(), 42);
}

TEST_F(TabStripTest, ThePlusButtonOpensAStartTabReadyForTyping)
{
    QTest::mouseClick(m_strip->findChild<QToolButton*>(QStringLiteral("strip_add")), Qt::LeftButton);
    ASSERT_EQ(m_window->GetTabCount(), 2);
    EXPECT_EQ(m_window->GetCurrentTab(), 1);
    EXPECT_TRUE(m_window->findChild<AddressBar*>()->hasFocus());
    EXPECT_TRUE(m_pages.pages.isEmpty());
    EXPECT_EQ(GetMessage().value(0), QStringLiteral("New tab"));
}

TEST_F(TabStripTest, ArrowKeysWalkThroughTheTabs)
{
    OpenThree();
    m_strip->GetButton(0)->setFocus(Qt::TabFocusReason);
    QTest::keyClick(m_strip->GetButton(0), Qt::Key_Right);
    EXPECT_EQ(m_window->GetCurrentTab(), 1);
    EXPECT_TRUE(m_strip->GetButton(1)->hasFocus());
    QTest::keyClick(m_strip->GetButton(1), Qt::Key_End);
    EXPECT_EQ(m_window->GetCurrentTab(), 3);
    QTest::keyClick(m_strip->GetButton(3), Qt::Key_Space);
    EXPECT_TRUE(m_strip->GetButton(3)->isChecked()) << "the space bar took the mark away";
    QTest::keyClick(m_strip->GetButton(3), Qt::Key_Home);
    EXPECT_EQ(m_window->GetCurrentTab(), 0);
}

TEST_F(TabStripTest, ATitleIsNeverReadAsMarkup)
{
    OpenUrl(QStringLiteral("https://a.example/"));
    const QString title =
        QStringLiteral("<img src='https://evil.example/x.png'> & a title that is much longer than the tab");
    m_pages.pages.first()->Arrive(QUrl(QStringLiteral("https://a.example/")), title);
    EXPECT_EQ(m_strip->GetButton(1)->accessibleName(), title);
    EXPECT_FALSE(m_strip->GetButton(1)->toolTip().contains(QStringLiteral("<img")));
    EXPECT_TRUE(m_strip->GetButton(1)->toolTip().contains(title.toHtmlEscaped()));
}

TEST_F(TabStripTest, EveryButtonHasAnAccessibleName)
{
    OpenThree();
    m_window->SelectTab(1);
    const auto buttons = m_window->findChildren<QAbstractButton*>();
    for (const QAbstractButton* button : buttons) {
        if (!button->isVisible()) {
            continue;
        }
        EXPECT_FALSE(button->accessibleName().isEmpty() && button->text().isEmpty())
            << qPrintable(button->objectName());
    }
    const auto fields = m_window->findChildren<QLineEdit*>();
    for (const QLineEdit* field : fields) {
        // The fake page is a field without a name.
        const bool ours = field->isVisible() && !field->objectName().isEmpty();
        EXPECT_FALSE(ours && field->accessibleName().isEmpty()) << qPrintable(field->objectName());
    }
}
