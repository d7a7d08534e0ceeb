#include "base-ui/TLLineEdit.h"

#include "Painted.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>

#include <gtest/gtest.h>

namespace {

QAbstractButton* ClearButton(const TLLineEdit& field)
{
    auto* const button = field.findChild<QAbstractButton*>(QStringLiteral("clear_button"));
    EXPECT_NE(button, nullptr);
    return button;
}

} // namespace

TEST(TLLineEditTest, ItsFirstFieldStandsWhereItsBaseEnds)
{
    const TLLineEdit field;
    const auto* const start = reinterpret_cast<const char*>(&field);
    EXPECT_EQ(reinterpret_cast<const char*>(&field.m_sizeClass) - start,
              static_cast<ptrdiff_t>(sizeof(QLineEdit)));
    EXPECT_EQ(field.m_sizeClass, 0);
}

TEST(TLLineEditTest, TheClearButtonIsThereWhileThereIsTextToClear)
{
    TLLineEdit field;
    field.show();
    EXPECT_FALSE(ClearButton(field)->isVisible());
    QTest::keyClicks(&field, QStringLiteral("a"));
    EXPECT_TRUE(ClearButton(field)->isVisible());
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_FALSE(ClearButton(field)->isVisible());
    field.setText(QStringLiteral("abc"));
    EXPECT_TRUE(ClearButton(field)->isVisible());
    field.setReadOnly(true);
    EXPECT_FALSE(ClearButton(field)->isVisible());
    field.setReadOnly(false);
    field.setDisabled(true);
    EXPECT_FALSE(ClearButton(field)->isVisible());
    field.setDisabled(false);
    EXPECT_TRUE(ClearButton(field)->isVisible());
}

TEST(TLLineEditTest, ClearingEmptiesTheFieldKeepsTheFocusAndCanBeUndone)
{
    TLLineEdit field(QStringLiteral("https://shop.example/"));
    field.resize(300, 32);
    field.show();
    field.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&field));
    QSignalSpy changed(&field, &QLineEdit::textChanged);
    QTest::mouseClick(ClearButton(field), Qt::LeftButton);
    EXPECT_TRUE(field.text().isEmpty());
    EXPECT_EQ(changed.count(), 1);
    EXPECT_TRUE(field.hasFocus());
    field.undo();
    EXPECT_EQ(field.text(), QStringLiteral("https://shop.example/"));
}

TEST(TLLineEditTest, TheTextDoesNotRunUnderTheClearButton)
{
    TLLineEdit field(QStringLiteral("long ").repeated(60));
    field.resize(300, 32);
    field.show();
    field.end(false);
    (void)Painted(&field); // scrolls to the cursor
    EXPECT_LE(field.inputMethodQuery(Qt::ImCursorRectangle).toRect().center().x(), ClearButton(field)->x());
    EXPECT_GE(ClearButton(field)->geometry().left(), 0);
    EXPECT_LE(ClearButton(field)->geometry().right(), field.width());
}

TEST(TLLineEditTest, TheClearButtonStandsAtTheEndInRightToLeftLanguages)
{
    TLLineEdit field(QStringLiteral("abc"));
    field.setLayoutDirection(Qt::RightToLeft);
    field.resize(300, 32);
    field.show();
    EXPECT_LT(ClearButton(field)->geometry().right(), 60);
}

TEST(TLLineEditTest, TheSizeClassTakesEffectWithoutACall)
{
    TLLineEdit field;
    const int compact = field.sizeHint().height();
    field.m_sizeClass = 1;
    EXPECT_GE(field.sizeHint().height(), 32);
    EXPECT_GT(field.sizeHint().height(), compact);
    EXPECT_EQ(field.minimumSizeHint().height(), field.sizeHint().height());
}
