#include "base-ui/TLBubbleLabel.h"
#include "base-ui/TLBaseDialog.h"
#include "base-ui/TLLineEdit.h"

#include "Painted.h"

#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

#include <gtest/gtest.h>

namespace {

const QString Message = QStringLiteral("URL cannot be empty");

/// A dialog with a field in a box of its own, and the bubble placed as a form places it.
class TLBubbleLabelTest : public testing::Test
{
protected:
    TLBubbleLabelTest()
    {
        m_dialog.setFixedSize(532, 228);
        m_dialog.GetContentWidget()->setStyleSheet(QStringLiteral("background: #ffffff;"));
        auto* layout = new QVBoxLayout(m_dialog.GetContentWidget());
        layout->setContentsMargins(0, 0, 0, 0);
        auto* content = new QWidget;
        layout->addWidget(content);
        layout->addStretch();
        auto* contentLayout = new QHBoxLayout(content);
        contentLayout->setContentsMargins(40, 20, 40, 30);
        contentLayout->addWidget(new QLabel(QStringLiteral("Add Url")));
        m_field = new TLLineEdit;
        contentLayout->addWidget(m_field);
        m_dialog.show();
        m_dialog.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_dialog));
        m_bubble = new TLBubbleLabel(&m_dialog);
        m_bubble->setProperty("bubbleColor", QColor(Qt::green));
        m_bubble->setProperty("borderColor", QColor(Qt::green));
    }

    void Complain(const QString& text, int direction = BubbleDirection::Up)
    {
        m_bubble->setText(text);
        m_bubble->SetBubbleParam(direction, 40);
        m_bubble->show();
        m_bubble->move(m_field->pos() + QPoint(0, 10));
    }

    /// The part of the dialog that the bubble covers, once it has come in.
    QRect GetPainted()
    {
        QRect painted;
        EXPECT_TRUE(QTest::qWaitFor([&] {
            const QImage image = Painted(&m_dialog);
            painted = QRect();
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    if (image.pixelColor(x, y) == QColor(Qt::green)) {
                        painted |= QRect(x, y, 1, 1);
                    }
                }
            }
            return !painted.isEmpty();
        }));
        return painted;
    }

    QRect GetField() const { return {m_field->mapTo(&m_dialog, QPoint()), m_field->size()}; }

    TLBaseDialog m_dialog;
    TLLineEdit* m_field;
    TLBubbleLabel* m_bubble;
};

} // namespace

TEST_F(TLBubbleLabelTest, IsHiddenUntilItIsShown)
{
    EXPECT_FALSE(m_bubble->isVisible());
    EXPECT_TRUE(m_dialog.isAncestorOf(m_bubble));
}

TEST_F(TLBubbleLabelTest, MovedOntoAFieldItHangsBelowIt)
{
    Complain(Message);
    EXPECT_EQ(m_bubble->pos(), m_field->pos() + QPoint(0, 10));
    const QRect painted = GetPainted();
    EXPECT_GT(painted.top(), GetField().bottom());
    EXPECT_LE(painted.top(), GetField().bottom() + 6);
    EXPECT_GE(painted.left(), GetField().left());
    EXPECT_LT(painted.height(), 50);
}

TEST_F(TLBubbleLabelTest, ThePointerPointsFortyPixelsFromTheLeft)
{
    Complain(Message);
    const QRect painted = GetPainted();
    const QImage image = Painted(&m_dialog);
    QList<int> columns;
    for (int x = painted.left(); x <= painted.right(); ++x) {
        if (image.pixelColor(x, painted.top()) == QColor(Qt::green)) {
            columns.append(x);
        }
    }
    ASSERT_FALSE(columns.isEmpty());
    EXPECT_NEAR((columns.constFirst() + columns.constLast()) / 2.0, GetField().left() + 40, 2);
}

TEST_F(TLBubbleLabelTest, ElsewhereItBeginsWhereItIsMovedTo)
{
    Complain(Message);
    m_bubble->move(20, 110);
    const QRect painted = GetPainted();
    EXPECT_NEAR(painted.top(), m_bubble->mapTo(&m_dialog, QPoint()).y(), 2);
}

TEST_F(TLBubbleLabelTest, PointsDownFromAboveWhenItIsTold)
{
    Complain(Message, BubbleDirection::Down);
    m_bubble->move(20, 60);
    const QRect painted = GetPainted();
    const QImage image = Painted(&m_dialog);
    int lowest = 0;
    for (int x = painted.left(); x <= painted.right(); ++x) {
        lowest += image.pixelColor(x, painted.bottom()) == QColor(Qt::green) ? 1 : 0;
    }
    EXPECT_LT(lowest, 8);
}

TEST_F(TLBubbleLabelTest, HidesAtOnceAndComesBackAsTheSameBubble)
{
    Complain(Message);
    m_bubble->hide();
    EXPECT_FALSE(m_bubble->isVisible());
    Complain(QStringLiteral("Please enter the VX URL"));
    EXPECT_TRUE(m_bubble->isVisible());
    EXPECT_EQ(m_bubble->text(), QStringLiteral("Please enter the VX URL"));
}

TEST_F(TLBubbleLabelTest, StaysWithinTheFormWhenItsTextIsLong)
{
    Complain(QStringLiteral("A message that goes on and on. ").repeated(5));
    EXPECT_LE(m_bubble->geometry().right(), m_bubble->parentWidget()->width());
    const int height = m_bubble->height();
    Complain(Message);
    EXPECT_LT(m_bubble->height(), height);
}

TEST_F(TLBubbleLabelTest, LetsClicksThrough)
{
    Complain(Message);
    EXPECT_EQ(m_bubble->parentWidget()->childAt(m_bubble->pos() + QPoint(5, 5)), m_field);
}

TEST_F(TLBubbleLabelTest, ShowsHtmlAsText)
{
    Complain(QStringLiteral("<b>x</b>"));
    EXPECT_EQ(m_bubble->textFormat(), Qt::PlainText);
}

TEST_F(TLBubbleLabelTest, IsAnAlertForScreenReaders)
{
    Complain(Message);
    QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(m_bubble);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::AlertMessage);
    EXPECT_EQ(accessible->text(QAccessible::Name), Message);
}
