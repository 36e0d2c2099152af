#include "demo/room_text.h"

#include <gtest/gtest.h>

namespace velko::demo {
namespace {

std::string errorOf(const std::string& text)
{
    try {
        parseRooms(text);
    } catch (const DemoError& error) {
        return error.what();
    }
    return "";
}

TEST(RoomText, RoomTakesTheSceneryAboveIt)
{
    const auto rooms = parseRooms("# comment\nscenery hills meadow\nroom 1f The long hill\n"
                                  "look meadow_dusk\nsize 2 1\nmusic 7\n"
                                  "ground 1111 1111 2222 2222\nisland 3 5 T.b\nwild 1\nsun\n"
                                  "units snail@3\nunits bee@4^2\n");
    ASSERT_EQ(rooms.size(), 1U);
    EXPECT_EQ(rooms[0].number, 0x1FU);
    EXPECT_EQ(rooms[0].name, "The long hill");
    EXPECT_EQ(rooms[0].scenery, "hills");
    EXPECT_EQ(rooms[0].tileset, "meadow");
    EXPECT_EQ(rooms[0].look, "meadow_dusk");
    EXPECT_EQ(rooms[0].columns, 2);
    EXPECT_EQ(rooms[0].music, 7);
    EXPECT_EQ(rooms[0].meadow.ground, "1111111122222222");
    EXPECT_EQ(rooms[0].meadow.islands.at(0).things, "T.b");
    EXPECT_TRUE(rooms[0].meadow.sun);
    EXPECT_EQ(rooms[0].wildCells, std::vector<int>{1});
    EXPECT_EQ(rooms[0].units, "snail@3 bee@4^2 ");
}

TEST(RoomText, EachCeilingStartsTheNextGallery)
{
    const auto rooms =
        parseRooms("scenery deep cave\nroom 2 Pit\nceiling 1 1\nfloor 22\nthings ..\n"
                   "hanging ..\nceiling 33\nfloor 44\nledge 6 20 4\n");
    const GalleryPlan& plan = rooms.at(0).galleries;
    ASSERT_EQ(plan.galleries.size(), 2U);
    EXPECT_EQ(plan.galleries[0].ceiling, "11");
    EXPECT_EQ(plan.galleries[1].floor, "44");
    EXPECT_EQ(plan.ledges.at(0).y, 20);
}

TEST(RoomText, FaultsAreToldWithTheirLine)
{
    EXPECT_EQ(errorOf("scenery hills\n"), "line 1: a scenery needs a name and a tileset");
    EXPECT_EQ(errorOf("look meadow\n"), "line 1: no room for look");
    EXPECT_EQ(errorOf("\nroom 0 A\ncolour red\n"), "line 3: unknown key colour");
    EXPECT_EQ(errorOf("room 0 A\nmusic 5x\n"), "line 2: no number: 5x");
}

} // namespace
} // namespace velko::demo
