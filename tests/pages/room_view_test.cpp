#include "pages/room_view.h"

#include <gtest/gtest.h>

namespace velko {
namespace {

using Position = RoomView::Position;
using Size = RoomView::Size;

RoomView viewOf(std::uint32_t columns, std::uint32_t rows)
{
    RoomView view({320, 320}, {416, 375});
    view.showRoom({columns, rows});
    return view;
}

TEST(RoomViewTest, RegionIsTheLimitOrTheWholeRoom)
{
    EXPECT_EQ(viewOf(4, 3).region(), (Size{320, 320}));
    EXPECT_EQ(viewOf(1, 3).region(), (Size{256, 320}));
    EXPECT_EQ(viewOf(4, 1).region(), (Size{320, 240}));
    EXPECT_EQ(viewOf(4, 3).room(), (Size{1024, 720}));
    EXPECT_EQ(viewOf(4, 3).display(), (Size{416, 375}));
}

TEST(RoomViewTest, ScrollingStopsAtTheRoomsEdges)
{
    RoomView view = viewOf(4, 3);
    view.scrollTo({-1, -240});
    EXPECT_EQ(view.scroll(), (Position{0, 0}));
    view.scrollTo({705, 5000});
    EXPECT_EQ(view.scroll(), (Position{704, 400}));
    view.scrollTo({703, 399});
    EXPECT_EQ(view.scroll(), (Position{703, 399}));
}

TEST(RoomViewTest, StepsAreRoundedDown)
{
    RoomView view = viewOf(4, 3);
    view.scrollToStep({31, 47});
    EXPECT_EQ(view.scroll(), (Position{16, 32}));
    view.scrollToStep({705, 401}); // where a scroll bar's thumb ends
    EXPECT_EQ(view.scroll(), (Position{704, 400}));
}

TEST(RoomViewTest, RoomSmallerThanTheRegionDoesNotScroll)
{
    RoomView view = viewOf(1, 1);
    view.scrollTo({100, 100});
    EXPECT_EQ(view.scroll(), (Position{0, 0}));
}

TEST(RoomViewTest, AnotherRoomIsShownFromItsCorner)
{
    RoomView view = viewOf(4, 3);
    view.scrollTo({100, 100});
    view.showRoom({253, 255});
    EXPECT_EQ(view.scroll(), (Position{0, 0}));
    view.scrollTo({100000, 100000});
    EXPECT_EQ(view.scroll(), (Position{64448, 60880}));
}

} // namespace
} // namespace velko
