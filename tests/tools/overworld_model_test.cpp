#include "tests/tools/overworld_model_fixture.h"

namespace velko {
namespace {

using test::Bytes;
using test::kNoRoomForMovement;
using test::OverworldModelTest;
using test::solidTile;
using Entry = AreaMovement::Entry;
namespace overworld = test::overworld;

// Opening and closing

class OverworldGraphicsTest : public OverworldModelTest {
protected:
    // Room 1 has sprite tile 1 and a background; entry 111 loads sprite tile 2 and background
    // tile 4.
    OverworldGraphicsTest()
    {
        game.setType2Graphics(0x10, solidTile(1));
        game.setType2Graphics(0x20, solidTile(2));
        game.setLoadRecord(0, 0x10, 0x0010, 1);
        game.setLoadRecord(1, 0x20, 0x0020, 1);
        game.setLoadRecord(2, 0x20, 0x1040, 1);
        game.setBackgroundBlock(0, 0, Bytes(64, 0x77));
        game.setType2Loads(1, {0});
        game.setType2Loads(111, {1, 2});
        start();
        state.graphics.selectRoom(1);
        roomMemory = state.graphics.patternMemory;
    }
    Bytes tile(std::size_t address) const
    {
        const auto first =
            state.graphics.patternMemory.begin() + static_cast<std::ptrdiff_t>(address);
        return {first, first + 16};
    }

    std::array<std::uint8_t, kPatternMemorySize> roomMemory{};
};

TEST_F(OverworldGraphicsTest, OverworldsGraphicsGoOnTopOfTheRooms)
{
    const OverworldModel open(state, prompt);
    EXPECT_EQ(tile(0x0010), solidTile(1)); // the room's
    EXPECT_EQ(tile(0x0020), solidTile(2));
    EXPECT_EQ(tile(0x1030), Bytes(16, 0x77)); // the room's background
    EXPECT_EQ(tile(0x1040), solidTile(2));
    EXPECT_EQ(tile(0x1050), Bytes(16, 0x77));
    EXPECT_EQ(state.store.pahTileLoadType2.currentRoom(), 111U);
    EXPECT_EQ(state.currentRoom(), 1);
}

TEST_F(OverworldGraphicsTest, ClosingGivesTheRoomItsGraphicsBack)
{
    {
        const OverworldModel open(state, prompt);
        EXPECT_NE(state.graphics.patternMemory, roomMemory);
    }
    EXPECT_EQ(state.graphics.patternMemory, roomMemory);
    EXPECT_EQ(state.store.pahTileLoadType2.currentRoom(), 1U);
}

TEST_F(OverworldModelTest, StartsWithTheFirstOfEverything)
{
    const OverworldModel& m = open();
    EXPECT_EQ(m.mode(), OverworldMode::kTile);
    EXPECT_EQ(m.area(), 0);
    EXPECT_EQ(m.entry(), 0);
    EXPECT_EQ(m.truck(), 0);
    EXPECT_EQ(m.phase(), 0);
    EXPECT_EQ(m.patternSet(), 0);
    EXPECT_EQ(m.tile(), 0);
    EXPECT_EQ(m.preset(), 0);
    EXPECT_EQ(m.entryValues(), (Entry{13, 14, 15, 0}));
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(OverworldModelTest, FreeSpaceOfMovementsIsComputedOnEachOpening)
{
    open();
    EXPECT_EQ(state.store.pahMapAreaMovement.freeSpace(), 10);
    state.store.pahMapAreaMovement.setFreeSpace(99);
    state.store.pahMapAreaMovement.selectRoom(2);
    model = std::make_unique<OverworldModel>(state, prompt);
    EXPECT_EQ(state.store.pahMapAreaMovement.freeSpace(), 10);
    EXPECT_EQ(state.store.pahMapAreaMovement.currentRoom(), 0U);
}

TEST_F(OverworldModelTest, PatternSetOfTheFirstTruckIsCurrentAtOnce)
{
    game.write(overworld::kTrucks, {0x30});
    OverworldModel& m = open();
    EXPECT_EQ(m.patternSet(), 3);
    EXPECT_EQ(m.lastPhase(), 1);
    EXPECT_EQ(m.direction(), 3);
}

TEST_F(OverworldModelTest, GroupsOfControlsBelongToTheirModes)
{
    OverworldModel& m = open();
    struct Row {
        OverworldMode mode;
        bool areas;
        bool trucks;
    };
    for (const Row& row :
         {Row{OverworldMode::kTile, false, false}, Row{OverworldMode::kPreset, false, false},
          Row{OverworldMode::kPalette, false, false}, Row{OverworldMode::kArea, true, false},
          Row{OverworldMode::kTruck, false, true}}) {
        m.setMode(row.mode);
        EXPECT_EQ(m.areaControlsEnabled(), row.areas);
        EXPECT_EQ(m.truckControlsEnabled(), row.trucks);
    }
}

// Areas

TEST_F(OverworldModelTest, AreasGoFrom0ToAreas)
{
    OverworldModel& m = open(OverworldMode::kArea);
    EXPECT_EQ(m.lastArea(), 2);
    m.selectArea(9);
    EXPECT_EQ(m.area(), 2);
    m.selectArea(-1);
    EXPECT_EQ(m.area(), 0);
}

TEST_F(OverworldModelTest, SelectedAreaIsCurrentInItsHandler)
{
    OverworldModel& m = open(OverworldMode::kArea);
    m.selectArea(1);
    EXPECT_EQ(state.store.pahMapAreaMovement.currentRoom(), 1U);
    EXPECT_EQ(m.entryValues(), (Entry{1, 2, 3, 4}));
}

TEST_F(OverworldModelTest, AnotherAreaStartsWithItsFirstEntry)
{
    OverworldModel& m = open(OverworldMode::kArea);
    m.selectArea(1);
    EXPECT_EQ(m.lastEntry(), 1);
    m.selectEntry(1);
    EXPECT_EQ(m.entryValues(), (Entry{5, 6, 7, 8}));
    m.selectArea(1);
    EXPECT_EQ(m.entry(), 0);
}

TEST_F(OverworldModelTest, AreaMovesAlongItsGrid)
{
    game.write(overworld::kAreas, {67, 75});
    OverworldModel& m = open(OverworldMode::kArea);
    m.moveArea(1, 0);
    EXPECT_EQ(image(), loadedExcept(overworld::kAreas, {72, 75})) << "the other one stays";
    m.moveArea(0, -1);
    EXPECT_EQ(image(), loadedExcept(overworld::kAreas, {72, 64}));
}

TEST_F(OverworldModelTest, AreaMovesAsFarAsTheMouseCanPlaceIt)
{
    OverworldModel& m = open(OverworldMode::kArea);
    m.selectArea(2);
    for (int i = 0; i < 40; ++i)
        m.moveArea(1, 1);
    EXPECT_EQ(image(), loadedExcept(overworld::kAreas + 4, {232, 168}));
    for (int i = 0; i < 40; ++i)
        m.moveArea(-1, -1);
    EXPECT_EQ(image(), loadedExcept(overworld::kAreas + 4, {24, 24}));
    state.rom.writeByte(overworld::kAreas + 4, 255); // where only a game itself puts it
    m.moveArea(1, 0);
    EXPECT_EQ(image(), loadedExcept(overworld::kAreas + 4, {232, 24}));
}

TEST_F(OverworldModelTest, EntryIsChosenOnlyAmongSeveralAndInAreaMode)
{
    OverworldModel& m = open(OverworldMode::kArea);
    EXPECT_FALSE(m.canChooseEntry()); // area 0 has one entry
    m.selectEntry(1);
    EXPECT_EQ(m.entry(), 0);
    m.selectArea(1);
    EXPECT_TRUE(m.canChooseEntry());
    m.setMode(OverworldMode::kTruck);
    EXPECT_FALSE(m.canChooseEntry());
}

TEST_F(OverworldModelTest, ValuesOfTheSelectedEntryAreSet)
{
    OverworldModel& m = open(OverworldMode::kArea);
    m.selectArea(1);
    m.selectEntry(1);
    m.setChopperSprite(0x1A);
    m.setPathPreviewSprite(0x2B);
    m.setFirstDigit(0x3C);
    m.setSecondDigit(0x4D);
    EXPECT_EQ(image(), loadedExcept(overworld::kMovement + 4, {0xAB, 0xCD}));
}

TEST_F(OverworldModelTest, NewEntryFollowsTheSelectedOne)
{
    OverworldModel& m = open(OverworldMode::kArea);
    m.selectArea(1);
    m.selectEntry(0);
    m.addEntry();
    EXPECT_EQ(bytesAt(overworld::kMovement, 8), (Bytes{6, 0x77, 0x12, 0x34, 0, 0, 0x56, 0x78}));
    EXPECT_EQ(m.entry(), 0);
    EXPECT_EQ(m.lastEntry(), 2);
}

TEST_F(OverworldModelTest, FullRegionOfMovementsIsTold)
{
    game.config.pahMapAreaMovement.dEdge = 0x810E;
    OverworldModel& m = open(OverworldMode::kArea);
    prompt.expect(kNoRoomForMovement);
    m.addEntry();
    EXPECT_TRUE(prompt.done());
    EXPECT_EQ(image(), game.bytes);
    EXPECT_EQ(m.lastEntry(), 0);
}

TEST_F(OverworldModelTest, A128thEntryIsRefusedLikeAFullRegion)
{
    game.config.pahMapAreaMovement.dEdge = 0x9000;
    game.write(overworld::kMovement + 0x0A, {254});
    OverworldModel& m = open(OverworldMode::kArea);
    EXPECT_EQ(m.lastEntry(), 126);
    prompt.expect(kNoRoomForMovement);
    m.addEntry();
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(OverworldModelTest, RemovingAnEntrySelectsTheFirst)
{
    OverworldModel& m = open(OverworldMode::kArea);
    m.selectArea(1);
    m.selectEntry(1);
    m.removeEntry();
    EXPECT_EQ(bytesAt(overworld::kMovement, 4), (Bytes{2, 0x77, 0x12, 0x34}));
    EXPECT_EQ(m.entry(), 0);
    EXPECT_EQ(m.lastEntry(), 0);
}

TEST_F(OverworldModelTest, TheOnlyEntryOfAnAreaStaysSilently)
{
    OverworldModel& m = open(OverworldMode::kArea);
    m.removeEntry();
    EXPECT_EQ(image(), game.bytes);
}

// Damaged games

TEST_F(OverworldModelTest, WithoutTrucksNothingIsDrawnOrWritten)
{
    game.config.setValue(MiscField::numOfMapTrucks, 0);
    game.write(overworld::kTrucks, {0x21});
    OverworldModel& m = open(OverworldMode::kTruck);
    EXPECT_EQ(m.lastTruck(), 0);
    EXPECT_EQ(m.startingArea(), 0);
    EXPECT_EQ(m.patternSet(), 0);
    m.setStartingArea(3);
    m.setPatternSet(3);
    m.setDirection(3);
    m.addPhase();
    m.removePhase();
    EXPECT_EQ(image(), game.bytes);
    PixelImage trucks;
    m.drawMap(trucks);
    PixelImage plain;
    m.setMode(OverworldMode::kTile);
    m.drawMap(plain);
    EXPECT_EQ(trucks, plain);
}

TEST_F(OverworldModelTest, HugeCountsAreCutOff)
{
    game.config.setValue(MiscField::numOfMapTrucks, 0xFFFFFFFF);
    game.config.setValue(MiscField::areas, 0xFFFFFFFF);
    game.config.setValue(MiscField::bpahTruckMovement_pMemEdge, 0xFFFF);
    OverworldModel& m = open(OverworldMode::kArea);
    EXPECT_EQ(m.lastArea(), 255);
    EXPECT_EQ(m.lastTruck(), 255);
    EXPECT_EQ(m.lastPatternSet(), 15);
    m.selectArea(255);
    PixelImage picture;
    m.drawMap(picture);
    m.setMode(OverworldMode::kTruck);
    m.selectTruck(255);
    m.drawMap(picture);
    EXPECT_EQ(picture.height(), 324U);
}

TEST_F(OverworldModelTest, EverythingPastTheImageIsHarmless)
{
    for (const MiscField field :
         {MiscField::ptrMapAreaXY, MiscField::ptrMapTruckInit, MiscField::ptrMapPalette,
          MiscField::ptrMapTileMap, MiscField::ptrMapPathPreviewSpriteAddr,
          MiscField::ptrMapQuadSpriteTable, MiscField::ptrMapAttributeTable})
        game.config.setValue(field, 0xFFFFFFF0);
    game.config.setValue(MiscField::bpahTruckMovement_bank, 0xFFFF);
    OverworldModel& m = open();
    PixelImage picture;
    for (const OverworldMode mode :
         {OverworldMode::kTile, OverworldMode::kPreset, OverworldMode::kPalette,
          OverworldMode::kArea, OverworldMode::kTruck}) {
        m.setMode(mode);
        m.press(MapButton::kLeft, 100, 100);
        m.press(MapButton::kRight, 100, 100);
        m.drawMap(picture);
        m.drawTilePicker(picture);
        m.drawPresetPicker(picture);
    }
    m.setStartingArea(3);
    m.setPatternSet(2);
    m.setDirection(1);
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(OverworldModelTest, EmptyImageIsHarmless)
{
    game.bytes.resize(16);
    OverworldModel& m = open(OverworldMode::kArea);
    PixelImage picture;
    m.selectArea(2);
    m.setChopperSprite(3);
    m.drawMap(picture);
    m.removeEntry();
    m.setMode(OverworldMode::kTruck);
    m.removePhase();
    m.drawMap(picture);
    EXPECT_EQ(image(), game.bytes);
}

} // namespace
} // namespace velko
