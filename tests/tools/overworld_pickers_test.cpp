#include "tools/overworld_pickers.h"

#include "tests/tools/overworld_rom.h"

namespace velko {
namespace {

using test::OverworldRom;
using test::solidTile;
namespace overworld = test::overworld;

constexpr Pixel kBackground = 0xF0F0F0;

// Entry e of the palettes is colour e. Tile 0 has pixels of value 0, all others of value 1.
class OverworldPickersTest : public test::OverworldTest {
protected:
    OverworldPickersTest()
    {
        for (std::uint8_t entry = 0; entry < 32; ++entry)
            game.write(overworld::kPalettes + entry, {entry});
        start();
        const test::Bytes tile = solidTile(1);
        for (std::size_t number = 1; number < 256; ++number)
            std::copy(tile.begin(), tile.end(),
                      state.graphics.patternMemory.begin()
                          + static_cast<std::ptrdiff_t>(0x1000 + 16 * number));
    }
    void setPresets(std::size_t count)
    {
        state.config.gameMapTileChunks.fill(0);
        std::fill_n(state.config.gameMapTileChunks.begin(), 4 * count, std::uint8_t{9});
    }
    static constexpr Pixel colour(std::uint32_t entry) { return OverworldRom::colour(entry); }

    OverworldMap map{state.rom, state.config};
    OverworldPainter painter{state.rom, state.config, state.graphics, map};
    PixelImage image;
};

TEST(PickerGridTest, CellsAreLargeForUpTo64Things)
{
    EXPECT_EQ(PickerGrid(1).cellSize(), 32);
    EXPECT_EQ(PickerGrid(64).cellSize(), 32);
    EXPECT_EQ(PickerGrid(65).cellSize(), 16);
    EXPECT_EQ(tileGrid().cellSize(), 16);
}

TEST(PickerGridTest, ThingsLieRowByRow)
{
    EXPECT_EQ(tileGrid().at(0, 0), 0);
    EXPECT_EQ(tileGrid().at(255, 0), 15);
    EXPECT_EQ(tileGrid().at(15, 16), 16);
    EXPECT_EQ(tileGrid().at(255, 255), 255);
    EXPECT_EQ(PickerGrid(10).at(63, 32), 9);
}

TEST(PickerGridTest, NothingLiesOutsideAndInCellsLeftOver)
{
    EXPECT_EQ(tileGrid().at(-1, 0), std::nullopt);
    EXPECT_EQ(tileGrid().at(0, -1), std::nullopt);
    EXPECT_EQ(tileGrid().at(256, 0), std::nullopt);
    EXPECT_EQ(tileGrid().at(0, 256), std::nullopt);
    EXPECT_EQ(PickerGrid(10).at(64, 32), std::nullopt);
}

TEST(PickerGridTest, StepsStayAmongTheThings)
{
    EXPECT_EQ(tileGrid().beside(16, 1, 0), 17);
    EXPECT_EQ(tileGrid().beside(16, 0, 1), 32);
    EXPECT_EQ(tileGrid().beside(17, -1, -1), 0);
    // Neither into the next row nor past the picture.
    EXPECT_EQ(tileGrid().beside(15, 1, 0), 15);
    EXPECT_EQ(tileGrid().beside(16, -1, 0), 16);
    EXPECT_EQ(tileGrid().beside(5, 0, -1), 5);
    EXPECT_EQ(tileGrid().beside(250, 0, 1), 250);
    EXPECT_EQ(PickerGrid(10).beside(1, 0, 1), 9);
    EXPECT_EQ(PickerGrid(10).beside(2, 0, 1), 2);
    EXPECT_EQ(PickerGrid(10).beside(9, 1, 0), 9);
}

TEST_F(OverworldPickersTest, TilesHaveThePaletteInWhichTheMapFirstShowsThem)
{
    map.setTile({4, 4}, 0x21);
    map.setPalette({4, 4}, 3);
    map.setTile({9, 9}, 0x21);
    map.setPalette({9, 9}, 1);
    drawTilePicker(image, painter, map, 0x30);
    ASSERT_EQ(image.width(), 256U);
    ASSERT_EQ(image.height(), 256U);
    EXPECT_EQ(image.at(16, 32), colour(13)); // tile 0x21: column 1, row 2, enlarged
    EXPECT_EQ(image.at(31, 47), colour(13));
    EXPECT_EQ(image.at(32, 47), colour(1)); // tile 0x22 is not on the map: palette 0
    EXPECT_EQ(image.at(0, 0), colour(0));   // tile 0
}

TEST_F(OverworldPickersTest, SelectedTileIsFramed)
{
    drawTilePicker(image, painter, map, 0x30);
    EXPECT_EQ(image.at(0, 48), 0x000000U);
    EXPECT_EQ(image.at(15, 63), 0x000000U);
    EXPECT_EQ(image.at(1, 49), 0xFFFFFFU);
    EXPECT_EQ(image.at(3, 51), colour(1));
    EXPECT_EQ(image.at(16, 48), colour(1));
}

TEST_F(OverworldPickersTest, CellsWithoutAPresetAreBackground)
{
    setPresets(10);
    EXPECT_EQ(presetGrid(map).at(63, 32), 9);
    drawPresetPicker(image, painter, map, 9, kBackground);
    ASSERT_EQ(image.width(), 256U);
    ASSERT_EQ(image.height(), 256U);
    EXPECT_EQ(image.at(0, 0), colour(1));
    EXPECT_EQ(image.at(32, 32), 0x000000U); // the frame around preset 9
    EXPECT_EQ(image.at(48, 48), colour(1));
    EXPECT_EQ(image.at(64, 32), kBackground);
    EXPECT_EQ(image.at(255, 255), kBackground);
}

TEST_F(OverworldPickersTest, PresetHasThePaletteOfItsFirstTileOnTheMap)
{
    setPresets(2);
    std::copy_n(std::array<std::uint8_t, 4>{7, 8, 6, 5}.begin(), 4,
                state.config.gameMapTileChunks.begin());
    map.setTile({5, 5}, 8);
    map.setPalette({5, 5}, 2);
    map.setTile({9, 9}, 6);
    map.setPalette({9, 9}, 3);
    drawPresetPicker(image, painter, map, 1, kBackground);
    EXPECT_EQ(image.at(0, 0), colour(9));
    EXPECT_EQ(image.at(31, 31), colour(9));
    EXPECT_EQ(image.at(48, 16), colour(1)); // preset 1 is not on the map
}

TEST_F(OverworldPickersTest, ManyPresetsFillThePicture)
{
    setPresets(256);
    drawPresetPicker(image, painter, map, 0, kBackground);
    EXPECT_EQ(image.at(255, 255), colour(1));
}

} // namespace
} // namespace velko
