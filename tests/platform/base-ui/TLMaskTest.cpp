#include "base-ui/TLMask.h"
#include "base-ui/TLBaseDialog.h"
#include "base-ui/TLMaskWidget.h"

#include "Painted.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <gtest/gtest.h>
#include <memory>

namespace {

class TLMaskTest : public testing::Test
{
protected:
    TLMaskTest()
    {
        m_window->resize(500, 300);
        m_page = new QWidget(m_window.get());
        m_page->setGeometry(50, 60, 200, 100);
        m_window->show();
    }

    std::unique_ptr<QWidget> m_window = std::make_unique<QWidget>();
    QWidget* m_page;
};

} // namespace

TEST_F(TLMaskTest, CoversItsWindowWhileTheDialogRuns)
{
    TLMaskWidget* const mask = TLMask::Instance()->InitMask(m_window.get(), m_window.get());
    ASSERT_NE(mask, nullptr);
    EXPECT_EQ(mask->window(), m_window.get());
    EXPECT_FALSE(mask->isVisible());

    auto* dialog = new TLBaseDialog(mask);
    TLMask::Instance()->ShowMask(dialog);
    bool dimmed = false;
    QTimer::singleShot(0, dialog, [&] {
        dimmed = mask->isVisible() && mask->geometry() == m_window->rect();
        EXPECT_TRUE(dialog->isVisible());
        dialog->accept();
    });
    EXPECT_EQ(dialog->exec(), QDialog::Accepted);
    EXPECT_TRUE(dimmed);
    EXPECT_FALSE(mask->isVisible());
    delete dialog;
    EXPECT_FALSE(mask->isVisible());
}

TEST_F(TLMaskTest, HidesWhenTheDialogIsDestroyedWithoutHavingBeenShown)
{
    TLMaskWidget* const mask = TLMask::Instance()->InitMask(m_window.get(), m_window.get());
    auto dialog = std::make_unique<TLBaseDialog>(mask);
    TLMask::Instance()->ShowMask(dialog.get());
    EXPECT_TRUE(mask->isVisible());
    dialog.reset();
    EXPECT_FALSE(mask->isVisible());
}

TEST_F(TLMaskTest, StaysUntilTheLastOfTwoDialogsIsClosed)
{
    TLMaskWidget* const mask = TLMask::Instance()->InitMask(m_window.get(), m_window.get());
    TLBaseDialog first(mask);
    TLBaseDialog second(mask);
    TLMask::Instance()->ShowMask(&first);
    first.show();
    TLMask::Instance()->ShowMask(&second);
    second.show();
    second.reject();
    EXPECT_TRUE(mask->isVisible());
    first.reject();
    EXPECT_FALSE(mask->isVisible());
    first.show();
    EXPECT_TRUE(mask->isVisible());
}

TEST_F(TLMaskTest, FollowsItsWindow)
{
    TLMaskWidget* const mask = TLMask::Instance()->InitMask(m_window.get(), m_window.get());
    TLBaseDialog dialog(mask);
    TLMask::Instance()->ShowMask(&dialog);
    m_window->resize(640, 350);
    EXPECT_EQ(mask->geometry(), QRect(0, 0, 640, 350));
}

TEST_F(TLMaskTest, CoversAPartOfAWindowOnly)
{
    TLMaskWidget* const mask = TLMask::Instance()->InitMask(m_window.get(), m_page);
    TLBaseDialog dialog(mask);
    TLMask::Instance()->ShowMask(&dialog);
    EXPECT_EQ(mask->geometry(), m_page->geometry());
    m_page->move(70, 80);
    EXPECT_EQ(mask->geometry(), m_page->geometry());
}

TEST_F(TLMaskTest, DimsWhatIsBehind)
{
    m_window->setStyleSheet(QStringLiteral("background: #ffffff;"));
    TLMaskWidget* const mask = TLMask::Instance()->InitMask(m_window.get(), m_window.get());
    mask->setProperty("maskColor", QColor(0, 0, 0, 128));
    TLBaseDialog dialog(mask);
    TLMask::Instance()->ShowMask(&dialog);
    EXPECT_TRUE(QTest::qWaitFor([&] {
        const int lightness = Painted(m_window.get()).pixelColor(5, 5).lightness();
        return lightness > 120 && lightness < 135;
    }));
}

TEST_F(TLMaskTest, AWindowHasOneMask)
{
    TLMaskWidget* const mask = TLMask::Instance()->InitMask(m_window.get(), m_window.get());
    EXPECT_EQ(TLMask::Instance()->InitMask(m_window.get(), m_window.get()), mask);
    EXPECT_EQ(TLMask::Instance()->InitMask(m_page, m_window.get()), mask);
}

TEST_F(TLMaskTest, GoesWithItsWindow)
{
    const QPointer<TLMaskWidget> mask(TLMask::Instance()->InitMask(m_window.get(), m_window.get()));
    auto* dialog = new TLBaseDialog(mask);
    TLMask::Instance()->ShowMask(dialog);
    dialog->show();
    m_window.reset();
    EXPECT_TRUE(mask.isNull());
}

TEST_F(TLMaskTest, HidesWhenItsAreaGoes)
{
    TLMaskWidget* const mask = TLMask::Instance()->InitMask(m_window.get(), m_page);
    TLBaseDialog dialog(mask);
    TLMask::Instance()->ShowMask(&dialog);
    delete m_page;
    EXPECT_FALSE(mask->isVisible());
    EXPECT_EQ(mask->GetArea(), nullptr);
}

TEST_F(TLMaskTest, WithoutAWindowThereIsNoMask)
{
    QWidget other;
    EXPECT_EQ(TLMask::Instance()->InitMask(nullptr, nullptr), nullptr);
    EXPECT_EQ(TLMask::Instance()->InitMask(m_window.get(), nullptr), nullptr);
    EXPECT_EQ(TLMask::Instance()->InitMask(m_window.get(), &other), nullptr);
    TLMask::Instance()->ShowMask(nullptr);
    TLBaseDialog alone;
    TLMask::Instance()->ShowMask(&alone);
}
