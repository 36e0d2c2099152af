#include "tools/overworld_map.h"

#include "tests/tools/overworld_rom.h"

#include <rapidcheck/gtest.h>

namespace velko {
namespace {

using test::Bytes;
using test::OverworldRom;
namespace overworld = test::overworld;
using Chunk = OverworldMap::Chunk;

class OverworldMapTest : public test::OverworldTest {
protected:
    void setChunks(const Bytes& tiles)
    {
        state.config.gameMapTileChunks = {};
        std::copy(tiles.begin(), tiles.end(), state.config.gameMapTileChunks.begin());
    }

    OverworldMap map{state.rom, state.config};
};

// Tiles

TEST_F(OverworldMapTest, TilesLieRowByRow)
{
    map.setTile({0, 0}, 0x11);
    map.setTile({25, 0}, 0x22);
    map.setTile({0, 1}, 0x33);
    map.setTile({25, 17}, 0x44);
    EXPECT_EQ(state.rom.readByte(overworld::kTiles), 0x11);
    EXPECT_EQ(state.rom.readByte(overworld::kTiles + 25), 0x22);
    EXPECT_EQ(state.rom.readByte(overworld::kTiles + 26), 0x33);
    EXPECT_EQ(state.rom.readByte(overworld::kTiles + 467), 0x44);
    EXPECT_EQ(map.tile({25, 17}), 0x44);
}

TEST_F(OverworldMapTest, TileOutsideTheMapIsNotWritten)
{
    for (const OverworldCell cell : {OverworldCell{-1, 0}, {26, 0}, {0, -1}, {0, 18}}) {
        EXPECT_FALSE(OverworldMap::contains(cell));
        map.setTile(cell, 0x77);
    }
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(OverworldMapTest, PresetIsWrittenColumnByColumn)
{
    setChunks({0, 0, 0, 0, 1, 2, 3, 4});
    map.placePreset({5, 6}, 1);
    EXPECT_EQ(map.tile({5, 6}), 1);
    EXPECT_EQ(map.tile({5, 7}), 2);
    EXPECT_EQ(map.tile({6, 6}), 3);
    EXPECT_EQ(map.tile({6, 7}), 4);
}

TEST_F(OverworldMapTest, PresetAtTheLastColumnLeavesTheNextRowAlone)
{
    setChunks({1, 2, 3, 4});
    map.placePreset({25, 3}, 0);
    EXPECT_EQ(map.tile({25, 3}), 1);
    EXPECT_EQ(map.tile({25, 4}), 2);
    EXPECT_EQ(map.tile({0, 4}), 0); // where column 26 of row 3 would be
    EXPECT_EQ(map.tile({0, 5}), 0);
}

TEST_F(OverworldMapTest, PresetAtTheLastRowWritesItsUpperHalf)
{
    setChunks({1, 2, 3, 4});
    map.placePreset({4, 17}, 0);
    EXPECT_EQ(image(), loadedExcept(overworld::kTiles + 17 * 26 + 4, {1, 3}));
}

TEST_F(OverworldMapTest, PresetInTheCornerWritesOneTile)
{
    setChunks({1, 2, 3, 4});
    map.placePreset({25, 17}, 0);
    EXPECT_EQ(image(), loadedExcept(overworld::kTiles + 467, {1}));
}

// Palettes

TEST_F(OverworldMapTest, PaletteBitsLieThreeTilesRightAndBelowTheTablesStart)
{
    // Cell (0, 0) is attribute tile (3, 3): byte 0, right and lower quadrant.
    game.write(overworld::kAttributes, {0xC0});
    // Cell (1, 0) is (4, 3): byte 1, lower left. Cell (1, 1) is (4, 4): byte 9, upper left.
    game.write(overworld::kAttributes + 1, {0x20});
    game.write(overworld::kAttributes + 9, {0x01});
    // Cell (25, 17) is (28, 20): byte 5 x 8 + 7, upper left. (25, 16) is (28, 19): lower left of
    // the byte above.
    game.write(overworld::kAttributes + 47, {0x03});
    game.write(overworld::kAttributes + 39, {0x10});
    // Cell (3, 1) is (6, 4): byte 9, upper right.
    game.write(overworld::kAttributes + 9, {0x09});
    start();
    EXPECT_EQ(map.palette({0, 0}), 3);
    EXPECT_EQ(map.palette({1, 0}), 2);
    EXPECT_EQ(map.palette({1, 1}), 1);
    EXPECT_EQ(map.palette({3, 1}), 2);
    EXPECT_EQ(map.palette({25, 17}), 3);
    EXPECT_EQ(map.palette({25, 16}), 1);
    EXPECT_EQ(map.palette({0, 1}), 0);
}

TEST_F(OverworldMapTest, SettingAPaletteKeepsTheOtherSixBits)
{
    game.write(overworld::kAttributes + 9, {0xB1}); // quadrants 1, 0, 3, 2
    start();
    map.setPalette({3, 2}, 3); // tile (6, 5): the upper right one
    EXPECT_EQ(image(), loadedExcept(overworld::kAttributes + 9, {0xBD}));
    map.setPalette({3, 4}, 4 + 1); // tile (6, 7): the lower right one; two bits count
    EXPECT_EQ(image(), loadedExcept(overworld::kAttributes + 9, {0x7D}));
    map.setPalette({3, 4}, -1);
    EXPECT_EQ(image(), loadedExcept(overworld::kAttributes + 9, {0xFD}));
}

TEST_F(OverworldMapTest, PalettesAroundTheMapComeFromTheTableToo)
{
    game.write(overworld::kAttributes, {0x1B}); // upper left 3, upper right 2, lower left 1
    game.write(overworld::kAttributes + 63, {0x80});
    start();
    EXPECT_EQ(map.palette({-3, -3}), 3);
    EXPECT_EQ(map.palette({-1, -2}), 2);
    EXPECT_EQ(map.palette({-3, -1}), 1);
    EXPECT_EQ(map.palette({28, 28}), 2);
    // Beyond the table the nearest tile counts.
    EXPECT_EQ(map.palette({-4, -4}), 3);
    EXPECT_EQ(map.palette({99, 99}), 2);
}

TEST_F(OverworldMapTest, PaletteBytesAreReadFromTheImage)
{
    game.write(overworld::kPalettes, {0x0F});
    game.write(overworld::kPalettes + 31, {0xFF});
    start();
    EXPECT_EQ(map.paletteBytes()[0], 0x0F);
    EXPECT_EQ(map.paletteBytes()[31], 0xFF); // whole bytes; two bits of them mean nothing
}

// Areas

TEST_F(OverworldMapTest, AreasHaveTwoBytesEach)
{
    EXPECT_EQ(map.lastArea(), 2U);
    EXPECT_EQ(map.areaPosition(1), (AreaPosition{128, 72}));
    map.setAreaPosition(2, {200, 16});
    EXPECT_EQ(image(), loadedExcept(overworld::kAreas + 4, {200, 16}));
}

TEST_F(OverworldMapTest, AreasAreAtMost256)
{
    setValue(MiscField::areas, 0);
    EXPECT_EQ(map.lastArea(), 0U);
    setValue(MiscField::areas, 0xFFFFFFFF);
    EXPECT_EQ(map.lastArea(), 255U);
}

// Presets

TEST_F(OverworldMapTest, PresetsEndBehindTheLastThatIsNotEmpty)
{
    setChunks({1, 2, 3, 4, 0, 0, 0, 0, 0, 0, 9});
    EXPECT_EQ(map.presetCount(), 3U);
    EXPECT_EQ(map.chunk(0), (Chunk{1, 2, 3, 4}));
    EXPECT_EQ(map.chunk(2), (Chunk{0, 0, 9, 0}));
}

TEST_F(OverworldMapTest, ChunksPastTheTableAreEmpty)
{
    EXPECT_EQ(map.presetCount(), 1U);
    EXPECT_EQ(map.chunk(255), Chunk{});
    EXPECT_EQ(map.chunk(256), Chunk{});
    EXPECT_EQ(map.chunk(0x40000000), Chunk{}); // four times that wraps to 0
    state.config.gameMapTileChunks.fill(7);
    EXPECT_EQ(map.presetCount(), 256U);
    EXPECT_EQ(map.chunk(0x40000000), Chunk{});
}

// Damaged configurations

TEST_F(OverworldMapTest, WhatLiesPastTheImageIsFillerAndIsNotWritten)
{
    for (const MiscField field : {MiscField::ptrMapTileMap, MiscField::ptrMapAttributeTable,
                                  MiscField::ptrMapPalette, MiscField::ptrMapAreaXY})
        setValue(field, 0xFFFFFF00);
    EXPECT_EQ(map.tile({3, 3}), 0x55);
    EXPECT_EQ(map.palette({3, 3}), 1);
    EXPECT_EQ(map.paletteBytes()[8], 0x55);
    EXPECT_EQ(map.areaPosition(0), (AreaPosition{0x55, 0x55}));
    map.setTile({3, 3}, 1);
    map.setPalette({3, 3}, 2);
    map.setAreaPosition(0, {1, 2});
    EXPECT_EQ(image(), game.bytes);
}

RC_GTEST_PROP(OverworldMapPalettes, SettingOneChangesItsFourTilesOnly,
              (const std::array<std::uint8_t, 64>& table))
{
    OverworldRom game;
    game.write(overworld::kAttributes, Bytes(table.begin(), table.end()));
    RomImage rom;
    rom.setBytes(game.bytes);
    OverworldMap map(rom, game.config);
    const auto inColumns = rc::gen::inRange(0, OverworldMap::kColumns);
    const auto inRows = rc::gen::inRange(0, OverworldMap::kRows);
    const OverworldCell changed{*inColumns, *inRows};
    const int palette = *rc::gen::inRange(0, 4);
    RomImage before = rom;
    const OverworldMap old(before, game.config);

    map.setPalette(changed, palette);

    for (int row = 0; row < OverworldMap::kRows; ++row) {
        for (int column = 0; column < OverworldMap::kColumns; ++column) {
            const bool shared = (column + 1) / 2 == (changed.column + 1) / 2
                && (row + 1) / 2 == (changed.row + 1) / 2;
            RC_ASSERT(map.palette({column, row})
                      == (shared ? palette : old.palette({column, row})));
        }
    }
}

} // namespace
} // namespace velko
