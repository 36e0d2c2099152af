#include "tests/tools/overworld_model_fixture.h"

namespace velko {
namespace {

using test::Bytes;
using test::OverworldModelTest;
namespace overworld = test::overworld;

class OverworldMouseTest : public OverworldModelTest { };

TEST_F(OverworldMouseTest, CellsAre18DisplayPixelsWide)
{
    EXPECT_EQ(OverworldModel::cellAt(0, 0), (OverworldCell{0, 0}));
    EXPECT_EQ(OverworldModel::cellAt(17, 18), (OverworldCell{0, 1}));
    EXPECT_EQ(OverworldModel::cellAt(467, 323), (OverworldCell{25, 17}));
    EXPECT_EQ(OverworldModel::cellAt(468, 0), std::nullopt);
    EXPECT_EQ(OverworldModel::cellAt(0, 324), std::nullopt);
    EXPECT_EQ(OverworldModel::cellAt(-1, 0), std::nullopt);
    EXPECT_EQ(OverworldModel::cellAt(0, -1), std::nullopt);
}

TEST_F(OverworldMouseTest, NothingHappensOutsideTheMap)
{
    OverworldModel& m = open();
    for (const OverworldMode mode :
         {OverworldMode::kTile, OverworldMode::kPreset, OverworldMode::kPalette,
          OverworldMode::kArea, OverworldMode::kTruck}) {
        m.setMode(mode);
        for (const MapButton button : {MapButton::kLeft, MapButton::kRight}) {
            EXPECT_EQ(m.press(button, -1, 5), OverworldChange::kNothing);
            EXPECT_EQ(m.press(button, 468, 5), OverworldChange::kNothing);
            EXPECT_EQ(m.drag(button, 5, 324), OverworldChange::kNothing);
            EXPECT_EQ(m.drag(button, 5, -1), OverworldChange::kNothing);
        }
    }
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(OverworldMouseTest, LeftButtonWritesTheChosenTile)
{
    OverworldModel& m = open();
    m.selectTile(0x3C);
    EXPECT_EQ(m.press(MapButton::kLeft, 36, 18), OverworldChange::kMap);
    EXPECT_EQ(m.drag(MapButton::kLeft, 54, 18), OverworldChange::kMap);
    EXPECT_EQ(image(), loadedExcept(overworld::kTiles + 28, {0x3C, 0x3C}));
}

TEST_F(OverworldMouseTest, RightButtonPicksTheTileUnderIt)
{
    game.write(overworld::kTiles + 28, {0x3C, 0x4D});
    OverworldModel& m = open();
    EXPECT_EQ(m.press(MapButton::kRight, 36, 18), OverworldChange::kTilePicker);
    EXPECT_EQ(m.tile(), 0x3C);
    EXPECT_EQ(m.drag(MapButton::kRight, 54, 18), OverworldChange::kTilePicker);
    EXPECT_EQ(m.tile(), 0x4D);
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(OverworldMouseTest, LeftButtonWritesTheChosenPreset)
{
    setChunks({1, 2, 3, 4, 5, 6, 7, 8});
    OverworldModel& m = open();
    m.selectPreset(1);
    EXPECT_EQ(m.press(MapButton::kLeft, 0, 0), OverworldChange::kMap);
    EXPECT_EQ(bytesAt(overworld::kTiles, 3), (Bytes{5, 7, 0}));
    EXPECT_EQ(bytesAt(overworld::kTiles + 26, 3), (Bytes{6, 8, 0}));
    EXPECT_EQ(m.drag(MapButton::kLeft, 467, 323), OverworldChange::kMap);
    EXPECT_EQ(bytesAt(overworld::kTiles + 466, 3), (Bytes{0, 5, 0}));
    const Bytes before = image();
    EXPECT_EQ(m.press(MapButton::kRight, 100, 100), OverworldChange::kNothing);
    EXPECT_EQ(image(), before);
}

TEST_F(OverworldMouseTest, ButtonsStepPalettesUpAndDown)
{
    OverworldModel& m = open(OverworldMode::kPalette);
    // Cell (1, 1): byte 9, upper left.
    EXPECT_EQ(m.press(MapButton::kLeft, 18, 18), OverworldChange::kMap);
    EXPECT_EQ(image(), loadedExcept(overworld::kAttributes + 9, {0x01}));
    EXPECT_EQ(m.press(MapButton::kRight, 18, 18), OverworldChange::kMap);
    EXPECT_EQ(m.press(MapButton::kRight, 18, 18), OverworldChange::kMap);
    EXPECT_EQ(image(), loadedExcept(overworld::kAttributes + 9, {0x03}));
}

TEST_F(OverworldMouseTest, DragStepsEachPaletteOnce)
{
    OverworldModel& m = open(OverworldMode::kPalette);
    m.press(MapButton::kLeft, 18, 18);
    EXPECT_EQ(m.drag(MapButton::kLeft, 53, 53), OverworldChange::kNothing);
    EXPECT_EQ(m.drag(MapButton::kLeft, 54, 53), OverworldChange::kMap);
    EXPECT_EQ(m.drag(MapButton::kLeft, 600, 53), OverworldChange::kNothing); // outside
    EXPECT_EQ(m.drag(MapButton::kLeft, 60, 53), OverworldChange::kNothing);
    EXPECT_EQ(image(), loadedExcept(overworld::kAttributes + 9, {0x05}));
}

TEST_F(OverworldMouseTest, LeftButtonMovesTheArea)
{
    OverworldModel& m = open(OverworldMode::kArea);
    m.selectArea(1);
    // 234 and 162 display pixels are 104 and 72 of the map.
    EXPECT_EQ(m.press(MapButton::kLeft, 234, 162), OverworldChange::kMap);
    EXPECT_EQ(image(), loadedExcept(overworld::kAreas + 2, {128, 96}));
    EXPECT_EQ(m.drag(MapButton::kLeft, 0, 0), OverworldChange::kMap);
    EXPECT_EQ(image(), loadedExcept(overworld::kAreas + 2, {24, 24}));
    EXPECT_EQ(m.press(MapButton::kLeft, 467, 323), OverworldChange::kMap);
    EXPECT_EQ(image(), loadedExcept(overworld::kAreas + 2, {232, 168}));
    EXPECT_EQ(m.press(MapButton::kRight, 100, 100), OverworldChange::kNothing);
    EXPECT_EQ(image(), loadedExcept(overworld::kAreas + 2, {232, 168}));
}

TEST_F(OverworldMouseTest, AreaPositionsAreRoundedAsTheyAreToldInFractions)
{
    OverworldModel& m = open(OverworldMode::kArea);
    for (int px = 0; px < 468; ++px) {
        m.press(MapButton::kLeft, px, 0);
        const int x = (static_cast<int>(px / 468.0 * 208.0) + 26) / 8 * 8;
        ASSERT_EQ(state.rom.readByte(overworld::kAreas), x) << px;
    }
    for (int py = 0; py < 324; ++py) {
        m.press(MapButton::kLeft, 0, py);
        const int y = (static_cast<int>(py / 324.0 * 144.0) + 26) / 8 * 8;
        ASSERT_EQ(state.rom.readByte(overworld::kAreas + 1), y) << py;
    }
}

TEST_F(OverworldMouseTest, TrucksAreNotMovedByTheMouse)
{
    OverworldModel& m = open(OverworldMode::kTruck);
    EXPECT_EQ(m.press(MapButton::kLeft, 100, 100), OverworldChange::kNothing);
    EXPECT_EQ(m.press(MapButton::kRight, 100, 100), OverworldChange::kNothing);
    EXPECT_EQ(image(), game.bytes);
}

// Pickers

TEST_F(OverworldMouseTest, ClickInAPickerChoosesAndSwitchesTheMode)
{
    setChunks(Bytes(16, 1));
    OverworldModel& m = open(OverworldMode::kTruck);
    EXPECT_TRUE(m.pickTileAt(17, 33));
    EXPECT_EQ(m.tile(), 0x21);
    EXPECT_EQ(m.mode(), OverworldMode::kTile);
    EXPECT_TRUE(m.pickPresetAt(97, 5));
    EXPECT_EQ(m.preset(), 3);
    EXPECT_EQ(m.mode(), OverworldMode::kPreset);
    EXPECT_FALSE(m.pickPresetAt(129, 5)); // there are four
    EXPECT_FALSE(m.pickTileAt(256, 5));
    EXPECT_EQ(m.preset(), 3);
    EXPECT_EQ(m.mode(), OverworldMode::kPreset);
}

TEST_F(OverworldMouseTest, ChoicesStopAtTheirRanges)
{
    setChunks(Bytes(16, 1));
    OverworldModel& m = open();
    m.selectTile(256);
    EXPECT_EQ(m.tile(), 255);
    m.selectTile(-1);
    EXPECT_EQ(m.tile(), 0);
    m.selectPreset(4);
    EXPECT_EQ(m.lastPreset(), 3);
    EXPECT_EQ(m.preset(), 3);
    m.selectPreset(-1);
    EXPECT_EQ(m.preset(), 0);
}

} // namespace
} // namespace velko
