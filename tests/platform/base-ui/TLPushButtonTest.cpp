#include "base-ui/TLPushButton.h"

#include "Painted.h"

#include <QtGui/QAccessible>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QVBoxLayout>

#include <gtest/gtest.h>

namespace {

/// A window with a button between two others, so that it can have the focus or not.
class TLPushButtonTest : public testing::Test
{
protected:
    TLPushButtonTest()
    {
        auto* layout = new QVBoxLayout(&m_window);
        layout->addWidget(&m_before);
        layout->addWidget(&m_button);
        m_window.show();
        m_window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
        m_before.setFocus();
    }
    ~TLPushButtonTest() override { qApp->setStyleSheet(QString()); }

    QWidget m_window;
    QPushButton m_before;
    TLPushButton m_button{QStringLiteral("OK")};
};

void Hover(QWidget* widget, bool on)
{
    widget->setAttribute(Qt::WA_UnderMouse, on);
}

} // namespace

TEST_F(TLPushButtonTest, ItsFirstFieldStandsWhereItsBaseEnds)
{
    const auto* const start = reinterpret_cast<const char*>(&m_button);
    EXPECT_EQ(reinterpret_cast<const char*>(&m_button.m_sizeClass) - start,
              static_cast<ptrdiff_t>(sizeof(QPushButton)));
    EXPECT_EQ(m_button.m_sizeClass, 0);
}

TEST_F(TLPushButtonTest, IsPressedByMouseAndSpace)
{
    QSignalSpy clicked(&m_button, &QPushButton::clicked);
    QTest::mouseClick(&m_button, Qt::LeftButton);
    EXPECT_EQ(clicked.count(), 1);
    m_before.setFocus();
    QTest::keyClick(&m_before, Qt::Key_Tab);
    ASSERT_TRUE(m_button.hasFocus());
    QTest::keyClick(&m_button, Qt::Key_Space);
    EXPECT_EQ(clicked.count(), 2);
    m_button.setDisabled(true);
    QTest::mouseClick(&m_button, Qt::LeftButton);
    EXPECT_EQ(clicked.count(), 2);
}

TEST_F(TLPushButtonTest, EveryTypeAndStateLooksDifferent)
{
    for (int type : {ButtonType::Default, ButtonType::Primary, ButtonType::Plain, ButtonType::Secondary}) {
        m_button.SetButtonType(type);
        EXPECT_EQ(m_button.GetButtonType(), type);
        m_button.setProperty("hoverColor", QColor(Qt::yellow));
        m_button.setProperty("pressedColor", QColor(Qt::green));
        m_button.setProperty("disabledTextColor", QColor(Qt::gray));
        m_before.setFocus();
        const QImage idle = Painted(&m_button);
        Hover(&m_button, true);
        const QImage hovered = Painted(&m_button);
        m_button.setDown(true);
        const QImage pressed = Painted(&m_button);
        m_button.setDown(false);
        Hover(&m_button, false);
        m_button.setFocus();
        const QImage focused = Painted(&m_button);
        m_button.setDisabled(true);
        const QImage disabled = Painted(&m_button);
        m_button.setDisabled(false);
        EXPECT_NE(idle, hovered) << type;
        EXPECT_NE(hovered, pressed) << type;
        EXPECT_NE(idle, focused) << type;
        EXPECT_NE(idle, disabled) << type;
    }
}

TEST_F(TLPushButtonTest, ThePrimaryOneIsFilledWithTheAccent)
{
    m_button.SetButtonType(ButtonType::Primary);
    const QImage image = Painted(&m_button);
    EXPECT_EQ(image.pixelColor(image.width() / 2, 3), m_button.palette().color(QPalette::Highlight));
    m_button.SetButtonType(ButtonType::Secondary);
    EXPECT_EQ(Painted(&m_button).pixelColor(image.width() / 2, 3),
              m_button.palette().color(QPalette::Button));
}

TEST_F(TLPushButtonTest, AnUnknownTypeIsTheDefaultOne)
{
    m_button.SetButtonType(99);
    EXPECT_EQ(m_button.GetButtonType(), ButtonType::Default);
    m_button.SetButtonType(-1);
    EXPECT_EQ(m_button.GetButtonType(), ButtonType::Default);
}

TEST_F(TLPushButtonTest, TheThemeGivesItsColoursByType)
{
    qApp->setStyleSheet(QStringLiteral("TLPushButton { qproperty-fillColor: #010203; }"
                                       "TLPushButton[buttonType=\"1\"] { qproperty-fillColor: #040506; }"));
    EXPECT_EQ(m_button.property("fillColor").value<QColor>(), QColor(1, 2, 3));
    m_button.SetButtonType(ButtonType::Primary);
    EXPECT_EQ(m_button.property("fillColor").value<QColor>(), QColor(4, 5, 6));
    EXPECT_EQ(Painted(&m_button).pixelColor(m_button.width() / 2, 3), QColor(4, 5, 6));
}

TEST_F(TLPushButtonTest, TheSizeClassTakesEffectWithoutACall)
{
    const int compact = m_button.sizeHint().height();
    EXPECT_LT(m_button.sizeHint().width(), 80);
    m_button.m_sizeClass = 1;
    EXPECT_GE(m_button.sizeHint().width(), 80);
    EXPECT_GE(m_button.sizeHint().height(), 32);
    EXPECT_GT(m_button.sizeHint().height(), compact);
    m_button.setText(QStringLiteral("A text that is much wider than eighty pixels"));
    EXPECT_GT(m_button.sizeHint().width(), m_button.fontMetrics().horizontalAdvance(m_button.text()));
}

TEST_F(TLPushButtonTest, HasItsNameAndRole)
{
    QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(&m_button);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::Button);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("OK"));
}
