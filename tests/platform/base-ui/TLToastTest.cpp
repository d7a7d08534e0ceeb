#include "base-ui/TLToast.h"

#include <QtCore/QPointer>
#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QLineEdit>

#include <gtest/gtest.h>

namespace {

const QString Limit = QStringLiteral("Custom URL cannot exceed 5");

class TLToastTest : public testing::Test
{
protected:
    TLToastTest()
    {
        m_window.resize(600, 400);
        m_window.show();
        m_window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
        m_field.setFocus();
    }

    QList<TLToast*> GetToasts() const { return m_window.findChildren<TLToast*>(); }

    QWidget m_window;
    QLineEdit m_field{&m_window};
};

} // namespace

TEST_F(TLToastTest, StandsAtTheTopOfTheActiveWindow)
{
    TLToast::Show(Limit, 2);
    ASSERT_EQ(GetToasts().size(), 1);
    const TLToast* const toast = GetToasts().constFirst();
    EXPECT_TRUE(toast->isVisible());
    EXPECT_EQ(toast->text(), Limit);
    EXPECT_EQ(toast->GetToastType(), ToastType::Warning);
    EXPECT_EQ(toast->textFormat(), Qt::PlainText);
    EXPECT_NEAR(toast->geometry().center().x(), 300, 1);
    EXPECT_LT(toast->geometry().bottom(), 200);
    EXPECT_GE(toast->width(), toast->fontMetrics().horizontalAdvance(Limit));
}

TEST_F(TLToastTest, TakesNeitherFocusNorClicks)
{
    TLToast::Show(Limit, 2);
    EXPECT_TRUE(m_field.hasFocus());
    const QPoint middle = GetToasts().constFirst()->geometry().center();
    EXPECT_EQ(m_window.childAt(middle), nullptr);
}

TEST_F(TLToastTest, GoesByItself)
{
    TLToast::Show(Limit, 2, 20);
    const QPointer<TLToast> toast(GetToasts().value(0));
    ASSERT_FALSE(toast.isNull());
    EXPECT_TRUE(QTest::qWaitFor([&] { return toast.isNull(); }));
}

TEST_F(TLToastTest, ASecondOneTakesThePlaceOfTheFirst)
{
    TLToast::Show(Limit, 2);
    TLToast::Show(QStringLiteral("Saved"), ToastType::Success);
    ASSERT_EQ(GetToasts().size(), 1);
    EXPECT_EQ(GetToasts().constFirst()->text(), QStringLiteral("Saved"));
    EXPECT_EQ(GetToasts().constFirst()->GetToastType(), ToastType::Success);
}

TEST_F(TLToastTest, AnUnknownTypeIsInformation)
{
    TLToast::Show(Limit, 77);
    ASSERT_EQ(GetToasts().size(), 1);
    EXPECT_EQ(GetToasts().constFirst()->GetToastType(), ToastType::Information);
}

TEST_F(TLToastTest, NothingToSayShowsNothing)
{
    TLToast::Show(QString(), 2);
    EXPECT_TRUE(GetToasts().isEmpty());
}

TEST_F(TLToastTest, StandsOverAModalDialog)
{
    QDialog dialog(&m_window);
    dialog.setModal(true);
    dialog.resize(500, 300);
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    TLToast::Show(Limit, 2);
    EXPECT_EQ(dialog.findChildren<TLToast*>().size(), 1);
}

TEST_F(TLToastTest, FollowsItsWindowAndWrapsInANarrowOne)
{
    TLToast::Show(Limit, 2);
    const TLToast* const toast = GetToasts().constFirst();
    const int height = toast->height();
    m_window.resize(160, 400);
    EXPECT_LE(toast->geometry().right(), 160);
    EXPECT_GE(toast->geometry().left(), 0);
    EXPECT_GT(toast->height(), height);
}

TEST_F(TLToastTest, FollowsItsFont)
{
    TLToast::Show(Limit, 2);
    TLToast* const toast = GetToasts().constFirst();
    const QSize size = toast->size();
    QFont font = toast->font();
    font.setPixelSize(26);
    toast->setFont(font);
    EXPECT_GT(toast->width(), size.width());
    EXPECT_GE(toast->width(), toast->fontMetrics().horizontalAdvance(Limit));
}

TEST_F(TLToastTest, IsAnAlertForScreenReaders)
{
    TLToast::Show(Limit, 2);
    QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(GetToasts().constFirst());
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::AlertMessage);
    EXPECT_EQ(accessible->text(QAccessible::Name), Limit);
}

TEST(TLToastWithoutWindowTest, ShowsNothing)
{
    TLToast::Show(Limit, 2);
    const QWidgetList widgets = QApplication::allWidgets();
    for (const QWidget* widget : widgets) {
        EXPECT_EQ(qobject_cast<const TLToast*>(widget), nullptr);
    }
}
