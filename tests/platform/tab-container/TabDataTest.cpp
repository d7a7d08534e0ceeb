#include "tab-container/TabData.h"
#include "tab-container/TabType.h"

#include <gtest/gtest.h>

namespace {

TEST(TabDataTest, TitleAndIconChangeAndTheKindDoesNot)
{
    TabData tab(TabType::WebApp, QStringLiteral("title"), QStringLiteral("https://x.test/i.png"));
    EXPECT_EQ(tab.GetType(), 4);
    EXPECT_EQ(tab.GetTitle(), QStringLiteral("title"));
    EXPECT_EQ(tab.GetIconUrl(), QStringLiteral("https://x.test/i.png"));
    tab.SetTitle(QStringLiteral("other"));
    tab.SetIconUrl(QString());
    EXPECT_EQ(tab.GetTitle(), QStringLiteral("other"));
    EXPECT_TRUE(tab.GetIconUrl().isEmpty());
    EXPECT_EQ(tab.GetType(), 4);
}

TEST(TabTypeTest, NumbersAreThoseThatAreStored)
{
    EXPECT_EQ(TabType::Home, 1);
    EXPECT_EQ(TabType::WebPage, 3);
    EXPECT_EQ(TabType::WebApp, 4);
    EXPECT_EQ(TabType::NativeApp, 5);
}

} // namespace
