#include "tools/truck_movement_region.h"

#include "tests/tools/overworld_rom.h"

namespace velko {
namespace {

using test::Bytes;
namespace overworld = test::overworld;

class TruckMovementRegionTest : public test::OverworldTest {
protected:
    TruckMovementRegion open() { return {state.rom, state.config}; }
    // The bytes of the game as a new region finds them.
    TruckMovementRegion openWith(const Bytes& pointers, const Bytes& phases)
    {
        game.write(overworld::kPatternTable, pointers);
        game.write(overworld::kPatterns, phases);
        start();
        return open();
    }
    Bytes pointers() const { return bytesAt(overworld::kPatternTable, 4); }
    Bytes data(std::uint32_t count = 12) const { return bytesAt(overworld::kPatterns, count); }
};

// Opening

TEST_F(TruckMovementRegionTest, SetsAreCountedByTheTablesLength)
{
    EXPECT_EQ(open().patternSets(), 4U);
    setValue(MiscField::bpahTruckMovement_pMemEdge, 0x8601);
    EXPECT_EQ(open().patternSets(), 1U);
    setValue(MiscField::bpahTruckMovement_pMemEdge, 0x8600);
    EXPECT_EQ(open().patternSets(), 0U);
    setValue(MiscField::bpahTruckMovement_pMemEdge, 0x8500);
    EXPECT_EQ(open().patternSets(), 0U);
}

TEST_F(TruckMovementRegionTest, FreeBytesStartBehindTheLastSetsLastPhase)
{
    EXPECT_EQ(open().freeBytes(), 4);
    setValue(MiscField::bpahTruckMovement_dMemEdge, 0x8618);
    EXPECT_EQ(open().freeBytes(), 0);
    setValue(MiscField::bpahTruckMovement_dMemEdge, 0x8615);
    EXPECT_EQ(open().freeBytes(), -3);
}

TEST_F(TruckMovementRegionTest, LastSetCountsEvenWhereAnotherIsStoredHigher)
{
    EXPECT_EQ(openWith({0, 3, 6, 4}, {}).freeBytes(), 6);
}

TEST_F(TruckMovementRegionTest, RegionThatEndsAtTheTopOfMemoryHasFreeBytes)
{
    setValue(MiscField::bpahTruckMovement_dMemStart, 0xFF00);
    setValue(MiscField::bpahTruckMovement_dMemEdge, 0x10000);
    setValue(MiscField::bpahTruckMovement_bank, 10);
    const std::uint32_t data = overworld::at(0xBF00) + 0x4000; // the bank behind
    state.rom.writeByte(data + 6, 0x80);
    EXPECT_EQ(open().freeBytes(), 0x100 - 7);
}

TEST_F(TruckMovementRegionTest, EmptyTableLeavesFreeBytesUnknown)
{
    setValue(MiscField::bpahTruckMovement_pMemEdge, 0x8600);
    EXPECT_EQ(open().freeBytes(), -1);
}

TEST_F(TruckMovementRegionTest, LastPhaseIsTheFirstWithBit7)
{
    const TruckMovementRegion region = open();
    EXPECT_EQ(region.lastPhase(0), 2U);
    EXPECT_EQ(region.lastPhase(1), 0U);
    EXPECT_EQ(region.lastPhase(2), 1U);
    EXPECT_EQ(region.phase(2, 1), 0x87);
}

TEST_F(TruckMovementRegionTest, PatternWithoutALastPhaseHas256)
{
    game.write(overworld::kPatterns, Bytes(600, 0x02));
    start();
    EXPECT_EQ(open().lastPhase(0), 255U);
    // The last set's pattern is taken to be that long too: 6 + 255 + 1 bytes of 12.
    EXPECT_EQ(open().freeBytes(), 12 - 262);
}

TEST_F(TruckMovementRegionTest, Phase255MayBeTheLast)
{
    game.write(overworld::kPatterns, Bytes(600, 0x02));
    game.write(overworld::kPatterns + 255, {0x80});
    start();
    EXPECT_EQ(open().lastPhase(0), 255U);
    EXPECT_EQ(open().lastPhase(1), 252U);
}

// Inserting

TEST_F(TruckMovementRegionTest, InsertMovesWhatLiesAboveUp)
{
    TruckMovementRegion region = open();
    region.selectSet(0);
    EXPECT_TRUE(region.insertBytes(1, Bytes{0x44, 0x45}).ok());
    EXPECT_EQ(data(), (Bytes{0x00, 0x44, 0x45, 0x01, 0x82, 0x84, 0x06, 0x87, 0x03, 0x85, 0, 0}));
    EXPECT_EQ(pointers(), (Bytes{0, 5, 6, 8}));
    EXPECT_EQ(region.freeBytes(), 2);
}

TEST_F(TruckMovementRegionTest, AfterAnInsertEveryPatternAboveStartsAtItsOwnFirstPhase)
{
    TruckMovementRegion region = open();
    region.selectSet(1);
    EXPECT_TRUE(region.insertBytes(1, Bytes{0x80}).ok());
    EXPECT_EQ(region.phase(0, 0), 0x00);
    EXPECT_EQ(region.phase(1, 0), 0x84);
    EXPECT_EQ(region.phase(1, 1), 0x80);
    EXPECT_EQ(region.phase(2, 0), 0x06); // it started exactly at the insertion point
    EXPECT_EQ(region.phase(3, 0), 0x03);
}

TEST_F(TruckMovementRegionTest, InsertAtOffset0LeavesPointersToThePlaceAlone)
{
    TruckMovementRegion region = openWith({0, 3, 3, 6}, {});
    region.selectSet(1);
    EXPECT_TRUE(region.insertBytes(0, Bytes{0x05}).ok());
    EXPECT_EQ(pointers(), (Bytes{0, 3, 3, 7}));
    EXPECT_EQ(data(5), (Bytes{0x00, 0x01, 0x82, 0x05, 0x84}));
}

TEST_F(TruckMovementRegionTest, InsertUsesTheLastFreeByteAndNoneBehind)
{
    game.write(overworld::kPatterns + 12, {0xEE});
    TruckMovementRegion region = openWith({}, {});
    region.selectSet(0);
    EXPECT_TRUE(region.insertBytes(0, Bytes{1, 2, 3, 4}).ok());
    EXPECT_EQ(region.freeBytes(), 0);
    EXPECT_EQ(data(13), (Bytes{1, 2, 3, 4, 0x00, 0x01, 0x82, 0x84, 0x06, 0x87, 0x03, 0x85, 0xEE}));
}

TEST_F(TruckMovementRegionTest, ShortfallIsToldAndNothingChanges)
{
    TruckMovementRegion region = open();
    EXPECT_EQ(region.insertBytes(0, Bytes(6)).code, 0x20002U);
    EXPECT_EQ(region.freeBytes(), 4);
    EXPECT_EQ(image(), game.bytes);
    region.setFreeBytes(-3);
    EXPECT_EQ(region.insertBytes(0, Bytes(1)).code, 0x40002U);
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(TruckMovementRegionTest, UnknownFreeBytesBlockBothEdits)
{
    TruckMovementRegion region = open();
    region.setFreeBytes(-1);
    EXPECT_EQ(region.insertBytes(0, Bytes(1)).code, 1U);
    EXPECT_EQ(region.deleteBytes(0, 1).code, 1U);
    EXPECT_EQ(region.freeBytes(), -1);
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(TruckMovementRegionTest, PointersWrapModulo256)
{
    setValue(MiscField::bpahTruckMovement_dMemEdge, 0x8810);
    game.config = state.config;
    game.write(overworld::kPatterns + 254, {0x81, 0x82});
    TruckMovementRegion region = openWith({0, 254, 255, 4}, {});
    region.setFreeBytes(0x200 - 256);
    region.selectSet(0);
    EXPECT_TRUE(region.insertBytes(1, Bytes{9}).ok());
    EXPECT_EQ(pointers(), (Bytes{0, 255, 0, 5}));
    EXPECT_EQ(bytesAt(overworld::kPatterns + 255, 2), (Bytes{0x81, 0x82}));
}

TEST_F(TruckMovementRegionTest, InsertBeyondPosition255MovesNoPointer)
{
    setValue(MiscField::bpahTruckMovement_dMemEdge, 0x8810);
    game.config = state.config;
    TruckMovementRegion region = openWith({0, 200, 255, 4}, {});
    region.setFreeBytes(0x200 - 300);
    region.selectSet(1);
    EXPECT_TRUE(region.insertBytes(56, Bytes{9}).ok());
    EXPECT_EQ(pointers(), (Bytes{0, 200, 255, 4}));
    EXPECT_EQ(bytesAt(overworld::kPatterns + 256, 1), (Bytes{9}));
}

TEST_F(TruckMovementRegionTest, InsertBehindTheUsedPartMovesNothing)
{
    TruckMovementRegion region = openWith({0, 3, 8, 6}, {});
    EXPECT_EQ(region.freeBytes(), 4);
    region.selectSet(2); // starts in the free bytes
    EXPECT_TRUE(region.insertBytes(2, Bytes{0x33}).ok());
    EXPECT_EQ(data(), (Bytes{0x00, 0x01, 0x82, 0x84, 0x06, 0x87, 0x03, 0x85, 0, 0, 0x33, 0}));
    EXPECT_EQ(region.freeBytes(), 3);
}

// Deleting

TEST_F(TruckMovementRegionTest, DeleteMovesWhatLiesAboveDownAndClearsTheEnd)
{
    TruckMovementRegion region = open();
    region.selectSet(0);
    EXPECT_TRUE(region.deleteBytes(0, 2).ok());
    EXPECT_EQ(data(), (Bytes{0x82, 0x84, 0x06, 0x87, 0x03, 0x85, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(pointers(), (Bytes{0, 1, 2, 4}));
    EXPECT_EQ(region.freeBytes(), 6);
}

TEST_F(TruckMovementRegionTest, OnlyWhatBecameFreeIsCleared)
{
    game.write(overworld::kPatterns + 8, {0xA1, 0xA2, 0xA3, 0xA4, 0xEE});
    TruckMovementRegion region = openWith({}, {});
    region.selectSet(2);
    EXPECT_TRUE(region.deleteBytes(0, 1).ok());
    EXPECT_EQ(data(13),
              (Bytes{0x00, 0x01, 0x82, 0x84, 0x87, 0x03, 0x85, 0, 0xA1, 0xA2, 0xA3, 0xA4, 0xEE}));
}

TEST_F(TruckMovementRegionTest, DeleteLeavesPointersToThePlaceAlone)
{
    TruckMovementRegion region = open();
    region.selectSet(0);
    // Pattern 1 starts exactly where the removed byte was: unlike when inserting, it stays.
    EXPECT_TRUE(region.deleteBytes(3, 1).ok());
    EXPECT_EQ(pointers(), (Bytes{0, 3, 3, 5}));
}

TEST_F(TruckMovementRegionTest, DeleteAtTheVeryEndOnlyClears)
{
    TruckMovementRegion region = open();
    region.selectSet(3);
    EXPECT_TRUE(region.deleteBytes(1, 1).ok());
    EXPECT_EQ(data(), (Bytes{0x00, 0x01, 0x82, 0x84, 0x06, 0x87, 0x03, 0, 0, 0, 0, 0}));
    EXPECT_EQ(region.freeBytes(), 5);
}

TEST_F(TruckMovementRegionTest, InsertThenDeleteGivesBackTheBytes)
{
    TruckMovementRegion region = open();
    region.selectSet(2);
    EXPECT_TRUE(region.insertBytes(1, Bytes{1, 2, 3}).ok());
    EXPECT_TRUE(region.deleteBytes(1, 3).ok());
    EXPECT_EQ(image(), game.bytes);
    EXPECT_EQ(region.freeBytes(), 4);
}

// Damaged games

TEST_F(TruckMovementRegionTest, SetPastTheTableCannotGrowOrShrink)
{
    TruckMovementRegion region = open();
    region.selectSet(4);
    EXPECT_EQ(region.insertBytes(0, Bytes(1)).code, 1U);
    EXPECT_EQ(region.deleteBytes(0, 1).code, 1U);
    region.selectSet(0xFFFFFFFF);
    EXPECT_EQ(region.insertBytes(0, Bytes(1)).code, 1U);
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(TruckMovementRegionTest, DeletingMoreThanIsUsedStaysInsideTheRegion)
{
    game.write(overworld::kPatterns - 4, {0xE1, 0xE2, 0xE3, 0xE4});
    TruckMovementRegion region = openWith({}, {});
    EXPECT_TRUE(region.deleteBytes(0, 11).ok());
    EXPECT_EQ(bytesAt(overworld::kPatterns - 4, 12),
              (Bytes{0xE1, 0xE2, 0xE3, 0xE4, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST_F(TruckMovementRegionTest, RegionPastTheImageIsFillerAndIsNotWritten)
{
    setValue(MiscField::bpahTruckMovement_bank, 0xFFFFFFFF);
    TruckMovementRegion region = open();
    EXPECT_EQ(region.phase(0, 0), 0x55);
    EXPECT_EQ(region.lastPhase(0), 255U);
    region.setFreeBytes(10);
    region.setPhase(0, 1);
    EXPECT_TRUE(region.insertBytes(0, Bytes(3)).ok());
    EXPECT_TRUE(region.deleteBytes(0, 2).ok());
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(TruckMovementRegionTest, PhasesAreReplacedInPlace)
{
    TruckMovementRegion region = open();
    region.selectSet(2);
    region.setPhase(1, 0x80);
    EXPECT_EQ(image(), loadedExcept(overworld::kPatterns + 5, {0x80}));
    EXPECT_EQ(region.phase(1), 0x80);
}

} // namespace
} // namespace velko
