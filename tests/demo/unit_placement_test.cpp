#include "demo/unit_placement.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace velko::demo {
namespace {

// Art of two blocks: air, and earth that is solid.
std::string groundArt()
{
    std::string text = "metatile air\n";
    for (int row = 0; row < 16; ++row)
        text += "................\n";
    text += "#@ physics=1\nmetatile earth\n";
    for (int row = 0; row < 16; ++row)
        text += "1111111111111111\n";
    return text;
}

// Two screens side by side with flat ground in the lowest three cell rows.
class UnitPlacement : public ::testing::Test {
protected:
    UnitPlacement()
    {
        world.backgrounds.addArt(0, parseArt(groundArt()));
        tileset.emplace(world.backgrounds, std::vector<std::string>{"air", "earth"});
        canvas.emplace(*tileset, 2, 1);
        canvas->fill(0, 12, 32, 3, "earth");
        room.columns = 2;
        room.rows = 1;
        world.loads = {{"Hero", 0, 0x800, 8}, {"Left", 0, 0, 8}, {"Right", 0, 0x40, 8}};
        world.commonLoads = {0};
        const Frame wide = {{1, -8, -8, 0}, {2, 0, -8, 0}};
        world.unitTypes = {{"Snail", "snail", 1, 0x8300, 1, {wide}},
                           {"Crab", "crab", 2, 0x8310, 2, {wide}},
                           {"Exit 1", "out0", 0, 0, -1, {}}};
    }

    void place(std::string_view text) { placeUnits(world, room, *canvas, text); }

    World world;
    std::optional<Tileset> tileset;
    std::optional<RoomCanvas> canvas;
    Room room;
};

TEST_F(UnitPlacement, UnitStandsInTheMiddleOfACellOnTheGround)
{
    place("snail@3 snail@20^2 snail@9,4");
    ASSERT_EQ(room.units.size(), 3U);
    EXPECT_EQ(room.units[0].x, 3 * 16 + 8);
    EXPECT_EQ(room.units[0].y, 11 * 16 + 8);
    EXPECT_EQ(room.units[1].y, 9 * 16 + 8);
    EXPECT_EQ(room.units[2].y, 4 * 16 + 8);
}

TEST_F(UnitPlacement, UnitsMayHaveNoPlaceOrLieBelowTheMap)
{
    place("snail!none snail!off");
    EXPECT_EQ(room.units[0].x, -1);
    EXPECT_GE(room.units[1].y, 240);
}

TEST_F(UnitPlacement, EntranceAndExitTakeTheirSlots)
{
    place("in2@5 out0@7>6e.3");
    EXPECT_EQ(room.entrances[2].column, 5);
    EXPECT_EQ(room.entrances[2].row, 11);
    EXPECT_EQ(room.exits[0].room, 0x6E);
    EXPECT_EQ(room.exits[0].entrance, 3);
    EXPECT_EQ(room.units.at(0).type, 2);
}

TEST_F(UnitPlacement, RoomLoadsWhatItsUnitsNeed)
{
    place("snail@3 snail@8");
    EXPECT_EQ(room.loads, (Bytes{0, 1}));
}

TEST_F(UnitPlacement, GraphicsThatWantTheSameTilesExcludeEachOther)
{
    EXPECT_THROW(place("snail@3 crab@20"), DemoError); // tiles 0-7 and 4-11
}

TEST_F(UnitPlacement, FourthSpriteOfTwoTilesOnALineIsRefused)
{
    EXPECT_NO_THROW(place("snail@1 snail@2 snail@3"));
    EXPECT_THROW(place("snail@4"), DemoError);
}

TEST_F(UnitPlacement, SpritesAScreenWidthApartDoNotMeet)
{
    EXPECT_NO_THROW(place("snail@0 snail@1 snail@2 snail@17 snail@18 snail@19"));
}

TEST_F(UnitPlacement, UnknownNamesAndPlacesAreRefused)
{
    EXPECT_THROW(place("dragon@3"), DemoError);
    EXPECT_THROW(place("snail"), DemoError);
    EXPECT_THROW(place("out0@3"), DemoError);
    canvas->fill(6, 0, 1, 15, "earth");
    EXPECT_THROW(place("snail@6"), DemoError); // solid from top to bottom
}

} // namespace
} // namespace velko::demo
