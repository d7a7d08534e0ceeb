#include "base-ui/PackagedMsgBox.h"
#include "base-ui/RequestStatusBaseWidget.h"
#include "base-ui/TLBaseDialog.h"
#include "base-ui/TLBubbleLabel.h"
#include "base-ui/TLCheckBox.h"
#include "base-ui/TLComboBox.h"
#include "base-ui/TLLineEdit.h"
#include "base-ui/TLPushButton.h"
#include "base-ui/TLToast.h"

#include "base/DpiTool.h"

#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QVBoxLayout>

#include <gtest/gtest.h>

namespace {

/// Widgets in a window that is open while the user chooses another scale.
class ScaleTest : public testing::Test
{
protected:
    ScaleTest()
    {
        m_layout->setSizeConstraint(QLayout::SetFixedSize);
        m_window.show();
        m_window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
    }
    ~ScaleTest() override { DpiTool::SetScale(1); }

    /// Sizes that follow the scale must be laid out again without anyone asking for it.
    static void SetScale(double scale)
    {
        DpiTool::SetScale(scale);
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }

    template <class Widget>
    Widget* Add()
    {
        auto* widget = new Widget(&m_window);
        m_layout->addWidget(widget);
        return widget;
    }

    QWidget m_window;
    QVBoxLayout* m_layout = new QVBoxLayout(&m_window);
};

} // namespace

TEST_F(ScaleTest, ButtonsFieldsAndListsGrowAndShrink)
{
    auto* button = Add<TLPushButton>();
    button->m_sizeClass = 1;
    auto* field = Add<TLLineEdit>();
    field->m_sizeClass = 1;
    auto* combo = Add<TLComboBox>();
    for (const double scale : {1.0, 1.25, 1.5, 2.0, 1.0}) {
        SetScale(scale);
        EXPECT_EQ(button->height(), qRound(32 * scale)) << scale;
        EXPECT_GE(button->width(), qRound(80 * scale)) << scale;
        EXPECT_EQ(field->height(), qRound(32 * scale)) << scale;
        EXPECT_EQ(combo->height(), qRound(32 * scale)) << scale;
    }
}

TEST_F(ScaleTest, TheRowsOfAListGrow)
{
    auto* combo = Add<TLComboBox>();
    combo->SetBusiness(ComboBusiness::Apps);
    combo->addItem(QStringLiteral("Orders"));
    combo->showPopup();
    EXPECT_EQ(combo->view()->visualRect(combo->model()->index(0, 0)).height(), 36);
    combo->hidePopup();
    SetScale(2);
    combo->showPopup();
    EXPECT_EQ(combo->view()->visualRect(combo->model()->index(0, 0)).height(), 72);
    combo->hidePopup();
}

TEST_F(ScaleTest, ACheckBoxGrowsAndFitsARowThatDoesNot)
{
    auto* box = Add<TLCheckBox>();
    box->m_sizeClass = 1;
    SetScale(1);
    const int width = box->width();
    SetScale(2);
    EXPECT_EQ(box->width(), 2 * width);
    EXPECT_LE(box->minimumSizeHint().height(), 32);
}

TEST_F(ScaleTest, TheTitleBarOfADialogGrows)
{
    TLBaseDialog dialog(&m_window);
    dialog.resize(400, 300);
    dialog.show();
    SetScale(1.5);
    const auto* const bar = dialog.findChild<QWidget*>(QStringLiteral("title_bar"));
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->height(), 60);
    EXPECT_EQ(dialog.GetContentWidget()->y(), bar->geometry().bottom() + 1);
}

TEST_F(ScaleTest, AnOpenQuestionGrowsAndShrinks)
{
    QTimer::singleShot(0, &m_window, [] {
        QWidget* const dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        const int width = dialog->width();
        DpiTool::SetScale(2);
        EXPECT_TRUE(QTest::qWaitFor([&] { return dialog->width() == 2 * width; }))
            << width << " " << dialog->width();
        DpiTool::SetScale(1);
        EXPECT_TRUE(QTest::qWaitFor([&] { return dialog->width() == width; }))
            << width << " " << dialog->width();
        dialog->close();
    });
    EXPECT_EQ(PackagedMsgBox::question(QStringLiteral("?")), QMessageBox::No);
}

TEST_F(ScaleTest, BubbleAndToastGrow)
{
    QWidget window;
    window.resize(1000, 600);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    TLBubbleLabel bubble(&window);
    bubble.setText(QStringLiteral("URL cannot be empty"));
    bubble.SetBubbleParam(BubbleDirection::Up, 40);
    bubble.show();
    TLToast::Show(QStringLiteral("Custom URL cannot exceed 5"), ToastType::Warning);
    const auto* const toast = window.findChild<TLToast*>();
    ASSERT_NE(toast, nullptr);
    const QSize bubbleSize = bubble.size();
    const QSize toastSize = toast->size();
    SetScale(2);
    EXPECT_GT(bubble.width(), bubbleSize.width());
    EXPECT_GT(bubble.height(), bubbleSize.height());
    EXPECT_GT(toast->width(), toastSize.width());
    EXPECT_GT(toast->height(), toastSize.height());
    EXPECT_NEAR(toast->geometry().center().x(), 500, 1);
}

TEST_F(ScaleTest, AWaitingAreaKeepsRoomForItsButton)
{
    auto* area = Add<RequestStatusBaseWidget>();
    area->SetStatus(RequestStatus::Failed);
    SetScale(2);
    const auto* const button = area->findChild<QWidget*>(QStringLiteral("refresh_button"));
    EXPECT_EQ(button->height(), 64);
    EXPECT_GE(area->height(), 360);
    EXPECT_TRUE(area->rect().contains(QRect(button->mapTo(area, QPoint()), button->size())));
}

TEST_F(ScaleTest, WidgetsThatAreGoneAreNotAdjusted)
{
    delete Add<TLPushButton>();
    delete Add<TLBubbleLabel>();
    SetScale(2);
    SetScale(1);
}
