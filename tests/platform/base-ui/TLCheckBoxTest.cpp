#include "base-ui/TLCheckBox.h"

#include "Painted.h"

#include <QtGui/QAccessible>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

#include <gtest/gtest.h>

TEST(TLCheckBoxTest, ItsFirstFieldStandsWhereItsBaseEnds)
{
    const TLCheckBox box;
    const auto* const start = reinterpret_cast<const char*>(&box);
    EXPECT_EQ(reinterpret_cast<const char*>(&box.m_sizeClass) - start,
              static_cast<ptrdiff_t>(sizeof(QCheckBox)));
    EXPECT_EQ(box.m_sizeClass, 0);
}

TEST(TLCheckBoxTest, IsToggledByMouseAndSpaceButNotBySettingIt)
{
    TLCheckBox box(QStringLiteral("Open at the start"));
    box.show();
    QSignalSpy clicked(&box, &QCheckBox::clicked);
    QTest::mouseClick(&box, Qt::LeftButton, Qt::NoModifier, QPoint(6, box.height() / 2));
    EXPECT_TRUE(box.isChecked());
    QTest::mouseClick(&box, Qt::LeftButton, Qt::NoModifier, QPoint(box.width() - 4, box.height() / 2));
    EXPECT_FALSE(box.isChecked());
    QTest::keyClick(&box, Qt::Key_Space);
    EXPECT_TRUE(box.isChecked());
    EXPECT_EQ(clicked.count(), 3);
    box.setChecked(false);
    EXPECT_EQ(clicked.count(), 3);
    box.setDisabled(true);
    QTest::mouseClick(&box, Qt::LeftButton);
    EXPECT_FALSE(box.isChecked());
}

TEST(TLCheckBoxTest, EveryStateLooksDifferent)
{
    QWidget window;
    TLCheckBox box(&window);
    box.resize(box.sizeHint());
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    box.clearFocus();
    box.setTristate();
    const QImage clear = Painted(&box);
    box.setFocus();
    const QImage focused = Painted(&box);
    box.clearFocus();
    box.setAttribute(Qt::WA_UnderMouse, true);
    const QImage hovered = Painted(&box);
    box.setAttribute(Qt::WA_UnderMouse, false);
    box.setCheckState(Qt::PartiallyChecked);
    const QImage partial = Painted(&box);
    box.setCheckState(Qt::Checked);
    const QImage checked = Painted(&box);
    box.setDisabled(true);
    const QImage disabled = Painted(&box);
    EXPECT_NE(clear, focused);
    EXPECT_NE(clear, hovered);
    EXPECT_NE(clear, partial);
    EXPECT_NE(partial, checked);
    EXPECT_NE(checked, disabled);
}

TEST(TLCheckBoxTest, InARowItKeepsAGapAndTakesClicksOverTheWholeHeight)
{
    QWidget row;
    auto* layout = new QHBoxLayout(&row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto* box = new TLCheckBox(&row);
    const int bare = box->sizeHint().width();
    box->m_sizeClass = 1;
    auto* text = new QLabel(QStringLiteral("Text"), &row);
    layout->addWidget(box);
    layout->addWidget(text);
    row.setFixedHeight(32);
    row.show();
    EXPECT_EQ(box->height(), 32);
    EXPECT_GT(box->width(), bare);
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(4, 1));
    EXPECT_TRUE(box->isChecked());
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(4, 31));
    EXPECT_FALSE(box->isChecked());
}

TEST(TLCheckBoxTest, HasItsNameRoleAndState)
{
    TLCheckBox box(QStringLiteral("Open at the start"));
    box.setChecked(true);
    QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(&box);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::CheckBox);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Open at the start"));
    EXPECT_TRUE(accessible->state().checked);
}
