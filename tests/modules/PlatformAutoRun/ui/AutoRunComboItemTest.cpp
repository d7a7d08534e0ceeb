#include "ui/AutoRunComboItem.h"

#include <QtWidgets/QLayout>

#include <gtest/gtest.h>

namespace {

TEST(AutoRunComboItemTest, IsAnEmptyWidgetWithANameAndASize)
{
    const AutoRunComboItem item;
    EXPECT_EQ(item.objectName(), QStringLiteral("AutoRunComboItem"));
    EXPECT_EQ(item.windowTitle(), QStringLiteral("AutoRunComboItem"));
    EXPECT_EQ(item.size(), QSize(400, 300));
    EXPECT_EQ(item.layout(), nullptr);
    EXPECT_TRUE(item.children().isEmpty());
    EXPECT_EQ(item.metaObject()->methodCount(), QWidget::staticMetaObject.methodCount());
}

} // namespace
