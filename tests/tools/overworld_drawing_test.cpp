#include "tests/support/scripted_prompt.h"
#include "tests/tools/overworld_rom.h"
#include "tools/overworld_model.h"

// The picture of the map as the editor shows it, in each mode.

namespace velko {
namespace {

using test::Bytes;
using test::OverworldRom;
using test::solidTile;
namespace overworld = test::overworld;

// A pixel of the map whose column and row are multiples of 4 is exactly one display pixel; those
// around it are mixed.
Pixel mapPixel(const PixelImage& display, std::uint32_t x, std::uint32_t y)
{
    EXPECT_EQ(x % 4, 0U);
    EXPECT_EQ(y % 4, 0U);
    return display.at(x / 4 * 9, y / 4 * 9);
}

// Entry e of the palettes is colour e. All tiles of the map are tile 0, whose pixels have value 0;
// tiles 1 to 3 of both tables have pixels of values 1 to 3. Quad sprite q is four tiles 1 in set
// q modulo 4. All path previews are one piece of tile 2 in set 7, right of and above the position.
class OverworldDrawingTest : public test::OverworldTest {
protected:
    OverworldDrawingTest()
    {
        for (std::uint8_t entry = 0; entry < 32; ++entry)
            game.write(overworld::kPalettes + entry, {entry});
        for (std::uint8_t quad = 0; quad < 16; ++quad) {
            const auto set = static_cast<std::uint8_t>(quad % 4);
            const auto offset = static_cast<std::uint8_t>(16 + 8 * set);
            game.write(overworld::kQuads + quad, {offset});
            game.write(overworld::kQuads + offset, {1, set, 1, set, 1, set, 1, set});
        }
        const std::uint16_t preview = game.addSprite({1, 2, 20, 0xE4, 0x03, 30});
        for (std::uint32_t number = 0; number < 16; ++number)
            game.write(overworld::kPreviews + 2 * number,
                       {static_cast<std::uint8_t>(preview & 0xFF),
                        static_cast<std::uint8_t>(preview >> 8)});
        std::copy_n(Bytes{1, 1, 1, 1, 2, 2, 2, 2}.begin(), 8,
                    game.config.gameMapTileChunks.begin());
    }
    OverworldModel& open(OverworldMode mode)
    {
        model.reset();
        start();
        model = std::make_unique<OverworldModel>(state, prompt);
        model->setMode(mode);
        for (std::uint8_t value = 1; value < 4; ++value) {
            const Bytes tile = solidTile(value);
            for (const std::size_t table : {std::size_t{0}, kPatternTable1})
                std::copy(tile.begin(), tile.end(),
                          state.graphics.patternMemory.begin()
                              + static_cast<std::ptrdiff_t>(table + 16U * value));
        }
        return *model;
    }
    PixelImage drawn(OverworldMode mode)
    {
        PixelImage display;
        open(mode).drawMap(display);
        return display;
    }
    static constexpr Pixel colour(std::uint32_t entry) { return OverworldRom::colour(entry); }

    test::ScriptedPrompt prompt;
    std::unique_ptr<OverworldModel> model;
};

TEST_F(OverworldDrawingTest, MapIsShownAt468By324Pixels)
{
    game.write(overworld::kTiles, {1});
    game.write(overworld::kTiles + 467, {3});
    const PixelImage display = drawn(OverworldMode::kTile);
    ASSERT_EQ(display.width(), 468U);
    ASSERT_EQ(display.height(), 324U);
    EXPECT_EQ(display.at(0, 0), colour(1));
    EXPECT_EQ(display.at(15, 15), colour(1));
    EXPECT_EQ(display.at(18, 15), colour(0));
    EXPECT_EQ(display.at(450, 306), colour(3));
    EXPECT_EQ(display.at(449, 306), (display.at(449, 310))); // mixed alike along the edge
    EXPECT_NE(display.at(449, 306), colour(3));
}

TEST_F(OverworldDrawingTest, NeitherAreasNorTrucksShowWhileTheMapIsEdited)
{
    for (const OverworldMode mode :
         {OverworldMode::kTile, OverworldMode::kPreset, OverworldMode::kPalette}) {
        const PixelImage display = drawn(mode);
        EXPECT_EQ(mapPixel(display, 100, 44), colour(0)); // area 1's icon
        EXPECT_EQ(mapPixel(display, 40, 48), colour(0));  // chopper and truck
    }
}

TEST_F(OverworldDrawingTest, AreaModeShowsIconsFrameChopperAndPreview)
{
    OverworldModel& m = open(OverworldMode::kArea);
    m.setChopperSprite(1);
    m.setPathPreviewSprite(3);
    PixelImage display;
    m.drawMap(display);
    // Area 0 has its centre at (40, 48): a frame, and in it the chopper, in set 5.
    EXPECT_EQ(mapPixel(display, 40, 48), colour(21));
    EXPECT_EQ(mapPixel(display, 32, 40), colour(21));
    EXPECT_EQ(mapPixel(display, 44, 52), colour(21));
    EXPECT_EQ(display.at(68, 99), 0xFFFFFFU); // between columns 30 and 31, both white
    // Area 1: its icon alone, half of tile 2 on tile 0.
    EXPECT_EQ(mapPixel(display, 100, 44), 0x412203U);
    // The preview's corner is 20 right of and 28 above (40, 49).
    EXPECT_EQ(mapPixel(display, 64, 24), colour(30));
    EXPECT_EQ(mapPixel(display, 60, 20), colour(0));
    EXPECT_EQ(mapPixel(display, 64, 28), colour(30)); // row 28: one lower than 20 + 7
    EXPECT_EQ(display.at(144, 66), colour(0));        // between rows 29 and 30
    // No trucks.
    EXPECT_EQ(mapPixel(display, 40, 104), 0x402000U);
}

TEST_F(OverworldDrawingTest, PreviewIsMirroredByTheChopperSprite)
{
    OverworldModel& m = open(OverworldMode::kArea);
    m.setPathPreviewSprite(3);
    m.setChopperSprite(2);
    PixelImage display;
    m.drawMap(display);
    EXPECT_EQ(mapPixel(display, 64, 24), colour(0));
    EXPECT_EQ(mapPixel(display, 12, 24), colour(30)); // 40 - 20 - 8
}

TEST_F(OverworldDrawingTest, SelectedEntryIsTheOneThatIsDrawn)
{
    OverworldModel& m = open(OverworldMode::kArea);
    m.selectArea(1); // centre (104, 48); sprites 1 and 5
    PixelImage display;
    m.drawMap(display);
    EXPECT_EQ(mapPixel(display, 104, 48), colour(21));
    m.selectEntry(1);
    m.setChopperSprite(3);
    m.drawMap(display);
    EXPECT_EQ(mapPixel(display, 104, 48), colour(29));
}

TEST_F(OverworldDrawingTest, AreaWithoutEntriesHasAFrameOnly)
{
    game.write(overworld::kMovement + 0x0A, {0});
    const PixelImage display = drawn(OverworldMode::kArea);
    EXPECT_EQ(mapPixel(display, 40, 48), 0x402101U); // the icon: half of tile 1 on tile 0
    EXPECT_EQ(display.at(68, 99), 0xFFFFFFU);
}

TEST_F(OverworldDrawingTest, TruckModeShowsEveryTruckAsItSetsOut)
{
    // Truck 2: set 2, whose first phase leads up: sprite 14, set 6; area 2's centre is (40, 96).
    game.write(overworld::kTrucks, {0x00, 0x11, 0x22});
    const PixelImage display = drawn(OverworldMode::kTruck);
    EXPECT_EQ(mapPixel(display, 40, 96), colour(25));
    EXPECT_EQ(mapPixel(display, 32, 88), colour(25));
    EXPECT_EQ(display.at(69, 216), colour(0)); // between columns 30 and 31, row 96
    EXPECT_EQ(display.at(90, 195), colour(0)); // column 40, between rows 86 and 87
    // Truck 1: set 1 leads left: sprite 12, set 4.
    EXPECT_EQ(mapPixel(display, 108, 44), colour(17));
    // No icons.
    game.write(overworld::kTrucks, {0x33, 0x33, 0x33});
    EXPECT_EQ(mapPixel(drawn(OverworldMode::kTruck), 100, 44), colour(0));
}

TEST_F(OverworldDrawingTest, TruckModeShowsThePathOfTheSelectedTruck)
{
    // Truck 0 goes right to area 1, then down-right, then down.
    OverworldModel& m = open(OverworldMode::kTruck);
    PixelImage display;
    m.drawMap(display);
    EXPECT_EQ(mapPixel(display, 60, 48), 0x4040FFU);
    EXPECT_EQ(mapPixel(display, 112, 56), 0xFF4040U);
    m.selectPhase(1);
    m.drawMap(display);
    EXPECT_EQ(mapPixel(display, 60, 48), 0xFF4040U);
    EXPECT_EQ(mapPixel(display, 112, 56), 0x4040FFU);
    m.selectTruck(2); // up from area 2 to area 0, then up-right
    m.drawMap(display);
    EXPECT_EQ(mapPixel(display, 60, 48), colour(0));
    EXPECT_EQ(mapPixel(display, 40, 64), 0x4040FFU);
    EXPECT_EQ(mapPixel(display, 48, 40), 0xFF4040U);
}

TEST_F(OverworldDrawingTest, FirstDirectionIsTakenModulo8)
{
    game.write(overworld::kPatterns + 4, {0x0E}); // 14 is 6
    const PixelImage display = drawn(OverworldMode::kTruck);
    EXPECT_EQ(mapPixel(display, 40, 96), colour(25));
}

TEST_F(OverworldDrawingTest, PickersFrameWhatIsChosen)
{
    OverworldModel& m = open(OverworldMode::kTile);
    PixelImage picker;
    m.selectTile(0x11);
    m.drawTilePicker(picker);
    EXPECT_EQ(picker.at(16, 16), 0x000000U);
    EXPECT_EQ(picker.at(17, 17), 0xFFFFFFU);
    m.selectPreset(1);
    m.drawPresetPicker(picker);
    EXPECT_EQ(picker.at(32, 0), 0x000000U);
    EXPECT_EQ(picker.at(48, 16), colour(2));
    EXPECT_EQ(picker.at(64, 0), state.backgroundColour);
}

} // namespace
} // namespace velko
