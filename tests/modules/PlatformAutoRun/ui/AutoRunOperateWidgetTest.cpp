#include "AutoRunUiTest.h"

#include "ui/AutoRunOperateWidget.h"

#include "base/DpiTool.h"

#include <QtGui/QAccessible>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QPushButton>

namespace {

class AutoRunOperateWidgetTest : public AutoRunUiTest
{
protected:
    QPushButton* Edit() const { return Find<QPushButton>(operate, "edit_button"); }
    QPushButton* Delete() const { return Find<QPushButton>(operate, "delete_button"); }

    AutoRunOperateWidget operate;
    QSignalSpy edits{&operate, &AutoRunOperateWidget::SigEdit};
    QSignalSpy deletes{&operate, &AutoRunOperateWidget::SigDelete};
};

TEST_F(AutoRunOperateWidgetTest, HasTheNamesAndSizesOfItsForm)
{
    EXPECT_EQ(operate.objectName(), QStringLiteral("AutoRunOperateWidget"));
    EXPECT_EQ(operate.windowTitle(), QStringLiteral("AutoRunOperateWidget"));
    EXPECT_EQ(operate.size(), QSize(92, 32));
    auto* const layout = Find<QHBoxLayout>(operate, "horizontalLayout");
    EXPECT_EQ(operate.layout(), layout);
    EXPECT_EQ(layout->spacing(), 10);
    EXPECT_EQ(MarginsOf(layout), QMargins());
    ASSERT_EQ(layout->count(), 2);
    EXPECT_EQ(layout->itemAt(0)->widget(), Edit());
    EXPECT_EQ(layout->itemAt(1)->widget(), Delete());
    for (const QPushButton* button : {Edit(), Delete()}) {
        EXPECT_EQ(button->text(), QString());
        EXPECT_TRUE(button->icon().isNull()) << "the theme brings the pictures";
        EXPECT_STREQ(button->metaObject()->className(), "QPushButton");
    }
}

TEST_F(AutoRunOperateWidgetTest, SpacingFollowsTheScale)
{
    DpiTool::SetScale(2);
    EXPECT_EQ(operate.layout()->spacing(), 20);
    EXPECT_EQ(AutoRunOperateWidget().layout()->spacing(), 20) << "also when it is made at that scale";
    DpiTool::SetScale(1);
    EXPECT_EQ(operate.layout()->spacing(), 10);
}

TEST_F(AutoRunOperateWidgetTest, ClickOnEditEmitsEditOnceAndNothingElse)
{
    Show(&operate);
    Click(Edit());
    EXPECT_EQ(edits.count(), 1);
    EXPECT_EQ(deletes.count(), 0);
}

TEST_F(AutoRunOperateWidgetTest, ClickOnDeleteEmitsDeleteOnceAndNothingElse)
{
    Show(&operate);
    Click(Delete());
    EXPECT_EQ(edits.count(), 0);
    EXPECT_EQ(deletes.count(), 1);
}

TEST_F(AutoRunOperateWidgetTest, SpaceOnAButtonIsAClick)
{
    Show(&operate);
    Delete()->setFocus();
    QTest::keyClick(Delete(), Qt::Key_Space);
    EXPECT_EQ(edits.count(), 0);
    EXPECT_EQ(deletes.count(), 1);
}

TEST_F(AutoRunOperateWidgetTest, OtherMouseButtonsDoNothing)
{
    Show(&operate);
    Click(Edit(), Qt::RightButton);
    Click(Delete(), Qt::MiddleButton);
    EXPECT_EQ(edits.count() + deletes.count(), 0);
}

TEST_F(AutoRunOperateWidgetTest, ButtonsWithoutTextHaveNamesInTheLanguageOfTheMoment)
{
    const auto nameOf = [](QPushButton* button) {
        return QAccessible::queryAccessibleInterface(button)->text(QAccessible::Name);
    };
    EXPECT_EQ(nameOf(Edit()), QStringLiteral("Edit"));
    EXPECT_EQ(nameOf(Delete()), QStringLiteral("Delete"));
    EXPECT_EQ(Edit()->toolTip(), QStringLiteral("Edit"));
    SwitchToChinese();
    EXPECT_EQ(nameOf(Edit()), QString::fromUtf8("编辑"));
    EXPECT_EQ(nameOf(Delete()), QString::fromUtf8("删除"));
    EXPECT_EQ(Delete()->toolTip(), QString::fromUtf8("删除"));
}

} // namespace
