#include "tests/tools/overworld_model_fixture.h"

namespace velko {
namespace {

using test::Bytes;
using test::kNoRoomForPhase;
using test::OverworldModelTest;
namespace overworld = test::overworld;

class OverworldTrucksTest : public OverworldModelTest { };

TEST_F(OverworldTrucksTest, RangesOfTheTrucksSliders)
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

TEST_F(OverworldTrucksTest, StartByteHoldsPatternSetAndStartingArea)
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

TEST_F(OverworldTrucksTest, AnotherPatternSetStartsWithItsFirstPhase)
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

TEST_F(OverworldTrucksTest, AnotherTruckOfTheSamePatternSetKeepsThePhase)
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

TEST_F(OverworldTrucksTest, NewWindowStartsWithPhase0OfTheSetShownLast)
{
    openOnTruck(0).selectPhase(2);
    model = std::make_unique<OverworldModel>(state, prompt);
    model->setMode(OverworldMode::kTruck);
    EXPECT_EQ(model->phase(), 0);
}

TEST_F(OverworldTrucksTest, DirectionKeepsTheEndMark)
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

TEST_F(OverworldTrucksTest, DirectionsAbove7AreTakenModulo8)
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

TEST_F(OverworldTrucksTest, NewPhaseIsACopyBehindTheSelectedOne)
{
    OverworldModel& m = openOnTruck(0);
    m.selectPhase(1);
    m.addPhase();
    EXPECT_EQ(pattern(9), (Bytes{0x00, 0x01, 0x01, 0x82, 0x84, 0x06, 0x87, 0x03, 0x85}));
    EXPECT_EQ(bytesAt(overworld::kPatternTable, 4), (Bytes{0, 4, 5, 7}));
    EXPECT_EQ(m.phase(), 1);
    EXPECT_EQ(m.lastPhase(), 3);
}

TEST_F(OverworldTrucksTest, PhaseBehindTheLastOneTakesTheEndMark)
{
    OverworldModel& m = openOnTruck(0);
    m.selectPhase(2);
    m.addPhase();
    EXPECT_EQ(pattern(5), (Bytes{0x00, 0x01, 0x02, 0x82, 0x84}));
    EXPECT_EQ(m.lastPhase(), 3);
    EXPECT_EQ(m.phase(), 2);
}

TEST_F(OverworldTrucksTest, RemovingTheLastPhaseMovesTheEndMarkBack)
{
    OverworldModel& m = openOnTruck(0);
    m.selectPhase(2);
    m.removePhase();
    EXPECT_EQ(pattern(8), (Bytes{0x00, 0x81, 0x84, 0x06, 0x87, 0x03, 0x85, 0}));
    EXPECT_EQ(bytesAt(overworld::kPatternTable, 4), (Bytes{0, 2, 3, 5}));
    EXPECT_EQ(m.phase(), 1);
    EXPECT_EQ(m.lastPhase(), 1);
}

TEST_F(OverworldTrucksTest, RemovingAnotherPhaseLeavesTheEndMark)
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

TEST_F(OverworldTrucksTest, TheOnlyPhaseOfAPatternStaysSilently)
{
    OverworldModel& m = openOnTruck(1);
    m.removePhase();
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(OverworldTrucksTest, FullRegionOfPatternsIsTold)
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

TEST_F(OverworldTrucksTest, WithFreeBytesUnknownPhasesCanNeitherBeAddedNorRemoved)
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

TEST_F(OverworldTrucksTest, PatternSetsBeyondTheTableAreShownButKeepTheirLength)
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

TEST_F(OverworldTrucksTest, PatternWithoutAnEndHas256Phases)
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

TEST_F(OverworldTrucksTest, PathStopsAtTheLastAreaToo)
{
    game.write(overworld::kPatterns, {0x02, 0x80}); // down from area 0 to area 2, then right
    OverworldModel& m = openOnTruck(0);
    const std::vector<PathSegment> path = m.truckPath();
    ASSERT_EQ(path.size(), 3U + 12); // on the right lies nothing up to the border
    EXPECT_EQ(path[2], (PathSegment{{64, 104}, 2, 0}));
    EXPECT_EQ(path[3], (PathSegment{{64, 120}, 0, 1}));
}

TEST_F(OverworldTrucksTest, PhaseStaysInsideAPatternThatTheMapIsStoredOver)
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

} // namespace
} // namespace velko
