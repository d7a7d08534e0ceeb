#include "base-ui/TLComboBox.h"

#include "Painted.h"

#include <QtGui/QWheelEvent>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QListView>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QToolTip>
#include <QtWidgets/QVBoxLayout>

#include <gtest/gtest.h>

namespace {

class TLComboBoxTest : public testing::Test
{
protected:
    TLComboBoxTest()
    {
        // Otherwise the list of a combo box is a menu in most styles.
        qApp->setStyleSheet(QStringLiteral("TLComboBox { combobox-popup: 0; }"));
        auto* layout = new QVBoxLayout(&m_window);
        layout->addWidget(&m_other);
        layout->addWidget(&m_combo);
        m_combo.SetBusiness(ComboBusiness::Apps);
        m_combo.setIconSize(QSize(16, 16));
        QPixmap picture(16, 16);
        picture.fill(Qt::red);
        for (const char* name : {"Please select app", "Orders", "Stock", "Customer service", "Invoices"}) {
            m_combo.addItem(QIcon(picture), QLatin1String(name));
        }
        m_window.resize(300, 120);
        m_window.show();
        m_window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
        m_other.setFocus();
    }
    ~TLComboBoxTest() override { qApp->setStyleSheet(QString()); }

    void Wheel()
    {
        const QPointF place(10, 10);
        QWheelEvent event(place, m_combo.mapToGlobal(place.toPoint()), QPoint(), QPoint(0, -120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&m_combo, &event);
    }

    QDialog m_window;
    QWidget m_other;
    TLComboBox m_combo;
};

} // namespace

TEST_F(TLComboBoxTest, KnowsTheNumbersOfItsBusiness)
{
    EXPECT_EQ(m_combo.GetBusiness(), 1);
    m_combo.SetBusiness(7);
    EXPECT_EQ(m_combo.GetBusiness(), ComboBusiness::Plain);
}

TEST_F(TLComboBoxTest, TypingAndArrowKeysSelect)
{
    m_combo.setFocus();
    QTest::keyClick(&m_combo, Qt::Key_S);
    EXPECT_EQ(m_combo.currentText(), QStringLiteral("Stock"));
    QTest::keyClick(&m_combo, Qt::Key_Down);
    EXPECT_EQ(m_combo.currentText(), QStringLiteral("Customer service"));
}

TEST_F(TLComboBoxTest, TheWheelSelectsOnlyWithTheFocus)
{
    Wheel();
    EXPECT_EQ(m_combo.currentIndex(), 0);
    m_combo.setFocus();
    Wheel();
    EXPECT_EQ(m_combo.currentIndex(), 1);
}

TEST_F(TLComboBoxTest, ALongListShowsSevenWholeRowsAndScrolls)
{
    for (int i = 0; i < 40; ++i) {
        m_combo.addItem(QStringLiteral("App %1").arg(i));
    }
    m_combo.showPopup();
    const QAbstractItemView* const list = m_combo.view();
    ASSERT_TRUE(list->isVisible());
    EXPECT_EQ(list->visualRect(m_combo.model()->index(0, 0)).height(), 36);
    EXPECT_EQ(list->viewport()->height(), 7 * 36);
    EXPECT_TRUE(list->verticalScrollBar()->isVisible());
    EXPECT_GT(list->verticalScrollBar()->maximum(), 0);
    m_combo.hidePopup();
}

TEST_F(TLComboBoxTest, AShortListShowsAllRowsWithoutScrolling)
{
    m_combo.showPopup();
    EXPECT_EQ(m_combo.view()->viewport()->height(), 5 * 36);
    EXPECT_FALSE(m_combo.view()->verticalScrollBar()->isVisible());
    m_combo.hidePopup();
}

TEST_F(TLComboBoxTest, EscapeClosesTheListAndNotTheDialog)
{
    m_combo.setFocus();
    QTest::keyClick(&m_combo, Qt::Key_F4);
    ASSERT_TRUE(m_combo.view()->isVisible());
    QTest::keyClick(m_combo.view(), Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !m_combo.view()->isVisible(); }));
    EXPECT_TRUE(m_window.isVisible());
}

TEST_F(TLComboBoxTest, AClickInTheListSelects)
{
    m_combo.showPopup();
    QAbstractItemView* const list = m_combo.view();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(list->window()));
    const QPoint place = list->visualRect(m_combo.model()->index(2, 0)).center();
    QTest::mouseMove(list->viewport(), place);
    // A list takes no release that follows its opening too closely for a click of its own.
    ASSERT_TRUE(QTest::qWaitFor([&] {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, place);
        return m_combo.currentIndex() == 2;
    }));
    EXPECT_EQ(m_combo.currentText(), QStringLiteral("Stock"));
}

TEST_F(TLComboBoxTest, ALongNameDoesNotWidenTheForm)
{
    const int before = m_combo.sizeHint().width();
    m_combo.addItem(QStringLiteral("A name that is long ").repeated(20));
    m_combo.setCurrentIndex(m_combo.count() - 1);
    EXPECT_EQ(m_combo.sizeHint().width(), before);
}

TEST_F(TLComboBoxTest, ALongNameIsElidedInTheListAndHasAToolTip)
{
    const QString name = QStringLiteral("A <b>name</b> that is long ").repeated(20);
    m_combo.addItem(name);
    m_combo.showPopup();
    QAbstractItemView* const list = m_combo.view();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(list->window()));
    const QRect row = list->visualRect(m_combo.model()->index(m_combo.count() - 1, 0));
    EXPECT_LE(row.width(), list->viewport()->width());
    QHelpEvent help(QEvent::ToolTip, row.center(), list->viewport()->mapToGlobal(row.center()));
    QCoreApplication::sendEvent(list->viewport(), &help);
    EXPECT_EQ(QToolTip::text(), QStringLiteral("<p>%1</p>").arg(name.toHtmlEscaped()));
    const QRect shortRow = list->visualRect(m_combo.model()->index(1, 0));
    QHelpEvent other(QEvent::ToolTip, shortRow.center(), list->viewport()->mapToGlobal(shortRow.center()));
    QCoreApplication::sendEvent(list->viewport(), &other);
    EXPECT_NE(QToolTip::text(), m_combo.itemText(1));
    m_combo.hidePopup();
}

TEST_F(TLComboBoxTest, ShowsTheIconOfTheCurrentItem)
{
    m_combo.setCurrentIndex(1);
    const QImage image = Painted(&m_combo);
    int red = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            red += image.pixelColor(x, y) == QColor(Qt::red) ? 1 : 0;
        }
    }
    EXPECT_EQ(red, 16 * 16);
}
