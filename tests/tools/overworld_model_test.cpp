#include "tools/overworld_model.h"

#include "tests/support/scripted_prompt.h"
#include "tests/tools/overworld_rom.h"

#include <memory>

namespace velko {
namespace {

using test::Bytes;
using test::OverworldRom;
using test::ScriptedPrompt;
using test::solidTile;
using Entry = AreaMovement::Entry;
namespace overworld = test::overworld;

constexpr const char* kNoRoomForMovement =
    "not enough free space. (remove movements from other areas.)";
constexpr const char* kNoRoomForPhase =
    "not enough free space. (remove one or more movement phase from other truck patterns.)";

class OverworldModelTest : public test::OverworldTest {
protected:
    // Opens the editor on `game` as it stands.
    OverworldModel& open(OverworldMode mode = OverworldMode::kTile)
    {
        model.reset();
        start();
        model = std::make_unique<OverworldModel>(state, prompt);
        model->setMode(mode);
        return *model;
    }
    OverworldModel& openOnTruck(int truck)
    {
        OverworldModel& m = open(OverworldMode::kTruck);
        m.selectTruck(truck);
        return m;
    }
    Bytes pattern(std::uint32_t count) const { return bytesAt(overworld::kPatterns, count); }
    void setChunks(const Bytes& tiles)
    {
        std::copy(tiles.begin(), tiles.end(), game.config.gameMapTileChunks.begin());
    }

    ScriptedPrompt prompt;
    std::unique_ptr<OverworldModel> model;
};

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

// Trucks

TEST_F(OverworldModelTest, RangesOfTheTrucksSliders)
{
    OverworldModel& m = open(OverworldMode::kTruck);
    EXPECT_EQ(m.lastTruck(), 2);
    EXPECT_EQ(m.lastPatternSet(), 3);
    EXPECT_EQ(m.lastPhase(), 2);
    m.selectTruck(7);
    EXPECT_EQ(m.truck(), 2);
    EXPECT_EQ(m.lastPhase(), 1);
    m.selectPhase(5);
    EXPECT_EQ(m.phase(), 1);
    m.selectPhase(-1);
    EXPECT_EQ(m.phase(), 0);
}

TEST_F(OverworldModelTest, StartByteHoldsPatternSetAndStartingArea)
{
    OverworldModel& m = openOnTruck(1);
    EXPECT_EQ(m.patternSet(), 1);
    EXPECT_EQ(m.startingArea(), 1);
    m.setStartingArea(12);
    EXPECT_EQ(image(), loadedExcept(overworld::kTrucks + 1, {0x1C}));
    m.setPatternSet(3);
    EXPECT_EQ(image(), loadedExcept(overworld::kTrucks + 1, {0x3C}));
    m.setStartingArea(16); // past the range
    EXPECT_EQ(image(), loadedExcept(overworld::kTrucks + 1, {0x3F}));
    m.setPatternSet(4);
    EXPECT_EQ(image(), loadedExcept(overworld::kTrucks + 1, {0x3F}));
}

TEST_F(OverworldModelTest, AnotherPatternSetStartsWithItsFirstPhase)
{
    OverworldModel& m = openOnTruck(0);
    m.selectPhase(1);
    m.setPatternSet(2);
    EXPECT_EQ(m.phase(), 0);
    EXPECT_EQ(m.direction(), 6);
    m.selectPhase(1);
    m.selectTruck(1);
    EXPECT_EQ(m.phase(), 0);
    EXPECT_EQ(m.direction(), 4);
}

TEST_F(OverworldModelTest, AnotherTruckOfTheSamePatternSetKeepsThePhase)
{
    game.write(overworld::kTrucks, {0x00, 0x01, 0x22});
    OverworldModel& m = openOnTruck(0);
    m.selectPhase(2);
    m.selectTruck(1);
    EXPECT_EQ(m.phase(), 2);
    m.setMode(OverworldMode::kArea);
    m.setMode(OverworldMode::kTruck);
    EXPECT_EQ(m.phase(), 2);
}

TEST_F(OverworldModelTest, NewWindowStartsWithPhase0OfTheSetShownLast)
{
    openOnTruck(0).selectPhase(2);
    model = std::make_unique<OverworldModel>(state, prompt);
    model->setMode(OverworldMode::kTruck);
    EXPECT_EQ(model->phase(), 0);
}

TEST_F(OverworldModelTest, DirectionKeepsTheEndMark)
{
    OverworldModel& m = openOnTruck(0);
    m.selectPhase(2);
    EXPECT_EQ(m.direction(), 2);
    m.setDirection(7);
    EXPECT_EQ(image(), loadedExcept(overworld::kPatterns + 2, {0x87}));
    m.selectPhase(0);
    m.setDirection(4);
    EXPECT_EQ(image(), loadedExcept(overworld::kPatterns, {0x04, 0x01, 0x87}));
}

TEST_F(OverworldModelTest, DirectionsAbove7AreTakenModulo8)
{
    game.write(overworld::kPatterns, {0x0B, 0x78, 0x82});
    OverworldModel& m = openOnTruck(0);
    EXPECT_EQ(m.direction(), 3);
    m.selectPhase(1);
    EXPECT_EQ(m.direction(), 0);
    m.setDirection(1);
    EXPECT_EQ(image(), loadedExcept(overworld::kPatterns + 1, {0x01}));
}

TEST(OverworldButtons, DirectionsGoFromTheTopLeftButtonRowByRow)
{
    EXPECT_EQ(OverworldModel::kButtonDirections,
              (std::array<std::uint8_t, 8>{5, 6, 7, 4, 0, 3, 2, 1}));
}

// Phases

TEST_F(OverworldModelTest, NewPhaseIsACopyBehindTheSelectedOne)
{
    OverworldModel& m = openOnTruck(0);
    m.selectPhase(1);
    m.addPhase();
    EXPECT_EQ(pattern(9), (Bytes{0x00, 0x01, 0x01, 0x82, 0x84, 0x06, 0x87, 0x03, 0x85}));
    EXPECT_EQ(bytesAt(overworld::kPatternTable, 4), (Bytes{0, 4, 5, 7}));
    EXPECT_EQ(m.phase(), 1);
    EXPECT_EQ(m.lastPhase(), 3);
}

TEST_F(OverworldModelTest, PhaseBehindTheLastOneTakesTheEndMark)
{
    OverworldModel& m = openOnTruck(0);
    m.selectPhase(2);
    m.addPhase();
    EXPECT_EQ(pattern(5), (Bytes{0x00, 0x01, 0x02, 0x82, 0x84}));
    EXPECT_EQ(m.lastPhase(), 3);
    EXPECT_EQ(m.phase(), 2);
}

TEST_F(OverworldModelTest, RemovingTheLastPhaseMovesTheEndMarkBack)
{
    OverworldModel& m = openOnTruck(0);
    m.selectPhase(2);
    m.removePhase();
    EXPECT_EQ(pattern(8), (Bytes{0x00, 0x81, 0x84, 0x06, 0x87, 0x03, 0x85, 0}));
    EXPECT_EQ(bytesAt(overworld::kPatternTable, 4), (Bytes{0, 2, 3, 5}));
    EXPECT_EQ(m.phase(), 1);
    EXPECT_EQ(m.lastPhase(), 1);
}

TEST_F(OverworldModelTest, RemovingAnotherPhaseLeavesTheEndMark)
{
    OverworldModel& m = openOnTruck(0);
    m.selectPhase(0);
    m.removePhase();
    EXPECT_EQ(pattern(7), (Bytes{0x01, 0x82, 0x84, 0x06, 0x87, 0x03, 0x85}));
    EXPECT_EQ(m.phase(), 0);
    EXPECT_EQ(m.direction(), 1);
    m.selectPhase(0);
    m.removePhase();
    EXPECT_EQ(pattern(2), (Bytes{0x82, 0x84}));
}

TEST_F(OverworldModelTest, TheOnlyPhaseOfAPatternStaysSilently)
{
    OverworldModel& m = openOnTruck(1);
    m.removePhase();
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(OverworldModelTest, FullRegionOfPatternsIsTold)
{
    OverworldModel& m = openOnTruck(1);
    for (int i = 0; i < 4; ++i)
        m.addPhase();
    const Bytes full = image();
    EXPECT_EQ(pattern(12),
              (Bytes{0x00, 0x01, 0x82, 0x04, 0x04, 0x04, 0x04, 0x84, 0x06, 0x87, 0x03, 0x85}));
    prompt.expect(kNoRoomForPhase);
    m.addPhase();
    EXPECT_TRUE(prompt.done());
    EXPECT_EQ(image(), full);
}

TEST_F(OverworldModelTest, WithFreeBytesUnknownPhasesCanNeitherBeAddedNorRemoved)
{
    game.config.setValue(MiscField::bpahTruckMovement_pMemEdge, 0x8600); // an empty table
    OverworldModel& m = openOnTruck(0);
    EXPECT_EQ(m.lastPatternSet(), 0);
    EXPECT_EQ(m.lastPhase(), 2); // of what the byte behind the table points at
    m.selectPhase(1);
    prompt.expect(kNoRoomForPhase);
    m.addPhase();
    m.removePhase();
    EXPECT_TRUE(prompt.done());
    EXPECT_EQ(image(), game.bytes);
    EXPECT_EQ(m.phase(), 1);
}

TEST_F(OverworldModelTest, PatternSetsBeyondTheTableAreShownButKeepTheirLength)
{
    game.write(overworld::kTrucks, {0xF0});
    OverworldModel& m = openOnTruck(0);
    EXPECT_EQ(m.patternSet(), 15);
    EXPECT_EQ(m.lastPatternSet(), 3);
    prompt.expect(kNoRoomForPhase);
    m.addPhase();
    m.removePhase();
    EXPECT_EQ(image(), game.bytes);
    m.setPatternSet(3);
    EXPECT_EQ(image(), loadedExcept(overworld::kTrucks, {0x30}));
}

TEST_F(OverworldModelTest, PatternWithoutAnEndHas256Phases)
{
    game.write(overworld::kPatterns, Bytes(600, 0x00));
    OverworldModel& m = openOnTruck(0);
    EXPECT_EQ(m.lastPhase(), 255);
    m.selectPhase(255);
    EXPECT_EQ(m.direction(), 0);
    EXPECT_EQ(m.truckPath().back().phase, 255U);
    PixelImage picture;
    m.drawMap(picture);
    EXPECT_EQ(picture.width(), 468U);
}

TEST_F(OverworldModelTest, PhaseStaysInsideAPatternThatTheMapIsStoredOver)
{
    game.config.setValue(MiscField::ptrMapTileMap, overworld::kPatterns);
    OverworldModel& m = openOnTruck(0);
    m.selectPhase(2);
    m.selectTile(0x85);
    m.press(MapButton::kLeft, 0, 0);
    m.setMode(OverworldMode::kTruck);
    EXPECT_EQ(m.lastPhase(), 0);
    EXPECT_EQ(m.phase(), 0);
    EXPECT_EQ(m.direction(), 5);
}

// The mouse

TEST_F(OverworldModelTest, CellsAre18DisplayPixelsWide)
{
    EXPECT_EQ(OverworldModel::cellAt(0, 0), (OverworldCell{0, 0}));
    EXPECT_EQ(OverworldModel::cellAt(17, 18), (OverworldCell{0, 1}));
    EXPECT_EQ(OverworldModel::cellAt(467, 323), (OverworldCell{25, 17}));
    EXPECT_EQ(OverworldModel::cellAt(468, 0), std::nullopt);
    EXPECT_EQ(OverworldModel::cellAt(0, 324), std::nullopt);
    EXPECT_EQ(OverworldModel::cellAt(-1, 0), std::nullopt);
    EXPECT_EQ(OverworldModel::cellAt(0, -1), std::nullopt);
}

TEST_F(OverworldModelTest, NothingHappensOutsideTheMap)
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

TEST_F(OverworldModelTest, LeftButtonWritesTheChosenTile)
{
    OverworldModel& m = open();
    m.selectTile(0x3C);
    EXPECT_EQ(m.press(MapButton::kLeft, 36, 18), OverworldChange::kMap);
    EXPECT_EQ(m.drag(MapButton::kLeft, 54, 18), OverworldChange::kMap);
    EXPECT_EQ(image(), loadedExcept(overworld::kTiles + 28, {0x3C, 0x3C}));
}

TEST_F(OverworldModelTest, RightButtonPicksTheTileUnderIt)
{
    game.write(overworld::kTiles + 28, {0x3C, 0x4D});
    OverworldModel& m = open();
    EXPECT_EQ(m.press(MapButton::kRight, 36, 18), OverworldChange::kTilePicker);
    EXPECT_EQ(m.tile(), 0x3C);
    EXPECT_EQ(m.drag(MapButton::kRight, 54, 18), OverworldChange::kTilePicker);
    EXPECT_EQ(m.tile(), 0x4D);
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(OverworldModelTest, LeftButtonWritesTheChosenPreset)
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

TEST_F(OverworldModelTest, ButtonsStepPalettesUpAndDown)
{
    OverworldModel& m = open(OverworldMode::kPalette);
    // Cell (1, 1): byte 9, upper left.
    EXPECT_EQ(m.press(MapButton::kLeft, 18, 18), OverworldChange::kMap);
    EXPECT_EQ(image(), loadedExcept(overworld::kAttributes + 9, {0x01}));
    EXPECT_EQ(m.press(MapButton::kRight, 18, 18), OverworldChange::kMap);
    EXPECT_EQ(m.press(MapButton::kRight, 18, 18), OverworldChange::kMap);
    EXPECT_EQ(image(), loadedExcept(overworld::kAttributes + 9, {0x03}));
}

TEST_F(OverworldModelTest, DragStepsEachPaletteOnce)
{
    OverworldModel& m = open(OverworldMode::kPalette);
    m.press(MapButton::kLeft, 18, 18);
    EXPECT_EQ(m.drag(MapButton::kLeft, 53, 53), OverworldChange::kNothing);
    EXPECT_EQ(m.drag(MapButton::kLeft, 54, 53), OverworldChange::kMap);
    EXPECT_EQ(m.drag(MapButton::kLeft, 600, 53), OverworldChange::kNothing); // outside
    EXPECT_EQ(m.drag(MapButton::kLeft, 60, 53), OverworldChange::kNothing);
    EXPECT_EQ(image(), loadedExcept(overworld::kAttributes + 9, {0x05}));
}

TEST_F(OverworldModelTest, LeftButtonMovesTheArea)
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

TEST_F(OverworldModelTest, AreaPositionsAreRoundedAsTheyAreToldInFractions)
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

TEST_F(OverworldModelTest, TrucksAreNotMovedByTheMouse)
{
    OverworldModel& m = open(OverworldMode::kTruck);
    EXPECT_EQ(m.press(MapButton::kLeft, 100, 100), OverworldChange::kNothing);
    EXPECT_EQ(m.press(MapButton::kRight, 100, 100), OverworldChange::kNothing);
    EXPECT_EQ(image(), game.bytes);
}

// Pickers

TEST_F(OverworldModelTest, ClickInAPickerChoosesAndSwitchesTheMode)
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

TEST_F(OverworldModelTest, ChoicesStopAtTheirRanges)
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
