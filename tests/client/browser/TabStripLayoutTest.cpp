#include "TabStripLayout.h"
#include "TabOrder.h"

#include <gtest/gtest.h>

namespace {

constexpr int Pinned = 100; // [px]

TabStripLayout MakeLayout(int tabs, int width = 1000)
{
    return {QSize(width, TabStripLayout::Height), Pinned, tabs};
}

} // namespace

TEST(TabStripLayoutTest, TabsShareTheRoomUntilTheyAreTooNarrow)
{
    EXPECT_TRUE(TabStripLayout().IsEmpty());
    const TabStripLayout one = MakeLayout(1);
    const TabStripLayout five = MakeLayout(5);
    const TabStripLayout many = MakeLayout(50);
    EXPECT_GT(one.GetTabWidth(), five.GetTabWidth());
    EXPECT_GT(five.GetTabWidth(), many.GetTabWidth());
    EXPECT_FALSE(five.DoTabsScroll());
    EXPECT_EQ(five.GetScrollRange(), 0);
    EXPECT_TRUE(many.DoTabsScroll());
    EXPECT_EQ(many.GetScrollRange(), 50 * many.GetTabWidth() - many.GetViewport().width());
    EXPECT_FALSE(MakeLayout(0).DoTabsScroll());
}

TEST(TabStripLayoutTest, NothingCoversAnything)
{
    for (const int tabs : {0, 1, 5, 50}) {
        SCOPED_TRACE(tabs);
        const TabStripLayout layout = MakeLayout(tabs);
        const QRect add(layout.GetAddButton(), QSize(TabStripLayout::ButtonSize, TabStripLayout::ButtonSize));
        EXPECT_LT(layout.GetPinned().right(), layout.GetViewport().left());
        EXPECT_LT(layout.GetViewport().right(), add.left());
        EXPECT_LT(add.right(), layout.GetListButton().x());
        if (layout.DoTabsScroll()) {
            EXPECT_LT(layout.GetLeftButton().x() + TabStripLayout::ButtonSize, layout.GetViewport().left());
            EXPECT_LT(layout.GetViewport().right(), layout.GetRightButton().x());
            EXPECT_LE(layout.GetRightButton().x() + TabStripLayout::ButtonSize, add.left());
        }
    }
}

TEST(TabStripLayoutTest, TheTabsInSightAreThoseThatTheViewportShows)
{
    const TabStripLayout layout = MakeLayout(50);
    const int width = layout.GetTabWidth();
    const QRect viewport(QPoint(0, 0), layout.GetViewport().size());
    for (const int offset : {0, 1, width - 1, width, 10 * width + 7, layout.GetScrollRange()}) {
        SCOPED_TRACE(offset);
        for (int index = 1; index <= 50; ++index) {
            // With the gap that belongs to the tab.
            const QRect tab(layout.GetTab(index, offset).topLeft(), QSize(width, 1));
            const bool seen = index >= layout.GetFirstSeen(offset) && index <= layout.GetLastSeen(offset);
            EXPECT_EQ(tab.intersects(viewport), seen) << index;
        }
    }
}

TEST(TabStripLayoutTest, ATabIsRevealedByTheShortestWay)
{
    const TabStripLayout layout = MakeLayout(50);
    const int width = layout.GetTabWidth();
    EXPECT_EQ(layout.GetOffsetFor(1, 500), 0);
    EXPECT_EQ(layout.GetOffsetFor(2, 0), 0) << "it is in sight already";
    const int offset = layout.GetOffsetFor(30, 0);
    EXPECT_EQ(offset + layout.GetViewport().width(), 30 * width) << "at the right edge";
    EXPECT_EQ(layout.GetOffsetFor(30, offset), offset);
    EXPECT_EQ(layout.GetOffsetFor(50, 0), layout.GetScrollRange());
}

TEST(TabStripLayoutTest, ADraggedTabTakesThePlaceWhoseMiddleItCovers)
{
    const TabStripLayout layout = MakeLayout(3);
    const int width = layout.GetTabWidth();
    EXPECT_EQ(layout.GetPlaceAt(0, 0), 1);
    EXPECT_EQ(layout.GetPlaceAt(width / 2 - 1, 0), 1);
    EXPECT_EQ(layout.GetPlaceAt(width / 2 + 1, 0), 2);
    EXPECT_EQ(layout.GetPlaceAt(-500, 0), 1);
    EXPECT_EQ(layout.GetPlaceAt(5000, 0), 3);
    EXPECT_EQ(layout.GetDraggedTab(-500).x(), 0);
    EXPECT_FALSE(layout.IsBeyondEdge(-500)) << "all of them are in sight";

    const TabStripLayout many = MakeLayout(50);
    EXPECT_TRUE(many.IsBeyondEdge(-1));
    EXPECT_FALSE(many.IsBeyondEdge(0));
    EXPECT_TRUE(many.IsBeyondEdge(many.GetViewport().width()));
}

TEST(TabOrderTest, AnIndexFollowsATabThatMoves)
{
    EXPECT_EQ(TabOrder::Follow(2, 2, 5), 5);
    EXPECT_EQ(TabOrder::Follow(3, 2, 5), 2);
    EXPECT_EQ(TabOrder::Follow(5, 2, 5), 4);
    EXPECT_EQ(TabOrder::Follow(6, 2, 5), 6);
    EXPECT_EQ(TabOrder::Follow(5, 5, 2), 2);
    EXPECT_EQ(TabOrder::Follow(2, 5, 2), 3);
    EXPECT_EQ(TabOrder::Follow(1, 5, 2), 1);
    EXPECT_EQ(TabOrder::Follow(-1, 5, 2), -1);
}
