#include "demo/sprite_bank.h"
#include "demo/sprite_graphics.h"

#include <gtest/gtest.h>

namespace velko::demo {
namespace {

// Two tiles wide: the right half is the mirror image of the left.
Picture arch()
{
    Picture picture{"arch", 16, 8, std::vector<std::uint8_t>(128)};
    for (int y = 0; y < 8; ++y) {
        picture.pixels[static_cast<std::size_t>(16 * y + y)] = 1;
        picture.pixels[static_cast<std::size_t>(16 * y + 15 - y)] = 1;
    }
    return picture;
}

TEST(SpriteGraphics, MirrorImagesShareATile)
{
    TileGroup group("arch", 40, 8);
    const Frame frame = group.addPicture(arch(), 8, 4, 2);
    ASSERT_EQ(frame.size(), 2U);
    EXPECT_EQ(group.tiles().size(), 1U);
    EXPECT_EQ(frame[0].tile, 40);
    EXPECT_EQ(frame[0].attributes, 2);
    EXPECT_EQ(frame[0].x, -8);
    EXPECT_EQ(frame[0].y, -4);
    EXPECT_EQ(frame[1].tile, 40);
    EXPECT_EQ(frame[1].attributes, 0x42);
    EXPECT_EQ(frame[1].x, 0);
}

TEST(SpriteGraphics, EmptyTilesMakeNoPiece)
{
    TileGroup group("nothing", 0, 8);
    EXPECT_TRUE(
        group.addPicture({"nothing", 8, 8, std::vector<std::uint8_t>(64)}, 0, 0, 0).empty());
}

TEST(SpriteGraphics, GroupIsRefusedPastItsCapacity)
{
    TileGroup group("one", 0, 1);
    group.addTile(Tile{1});
    EXPECT_THROW(group.addTile(Tile{2}), DemoError);
}

TEST(SpriteGraphics, MirroredFrameTurnsAroundItsPosition)
{
    const Frame frame = mirrored({{7, -8, 3, 0x01}, {8, 4, 3, 0x40}});
    EXPECT_EQ(frame[0].x, 0);
    EXPECT_EQ(frame[0].attributes, 0x41);
    EXPECT_EQ(frame[1].x, -12);
    EXPECT_EQ(frame[1].attributes, 0);
}

TEST(SpriteGraphics, RecordNamesSourceAndDestination)
{
    World world;
    world.graphics.resize(32);
    TileGroup group("map", 256, 8); // the background's pattern table
    group.addTile(Tile{1});
    group.addTile(Tile{2});
    EXPECT_EQ(storeGroup(world, group), 0);
    EXPECT_EQ(world.loads[0].source, 32);
    EXPECT_EQ(world.loads[0].destination, 0x1000);
    EXPECT_EQ(world.loads[0].tiles, 2);
    EXPECT_EQ(world.graphics.size(), 64U);
}

TEST(SpriteBank, ScriptEndsInAJumpToItsStart)
{
    Bytes bank(kBankBytes, 0xFF);
    SpriteBank scripts(bank, 0x8010);
    EXPECT_EQ(scripts.addScript({{{{5, -8, 2, 1}}, 20}, {{}, 9}}), 0x8010);
    EXPECT_EQ(Bytes(bank.begin() + 0x10, bank.begin() + 0x1A),
              (Bytes{1, 5, 0xF8, 2, 1, 20, 0, 0x80 | 9, 0x10, 0x80}));
    EXPECT_EQ(scripts.position(), 0x801A);
}

TEST(SpriteBank, OverlappingScriptsAreRefused)
{
    Bytes bank(kBankBytes, 0xFF);
    SpriteBank scripts(bank, 0x8000);
    scripts.addFrame({}, 4);
    scripts.moveTo(0x8001);
    EXPECT_THROW(scripts.addFrame({}, 4), DemoError);
}

} // namespace
} // namespace velko::demo
