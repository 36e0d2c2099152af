#include "tools/area_movement.h"

#include "tests/tools/overworld_rom.h"

namespace velko {
namespace {

using test::Bytes;
namespace overworld = test::overworld;
using Entry = AreaMovement::Entry;

class AreaMovementTest : public test::OverworldTest {
protected:
    void open() { movement.open(); }
    PointerArrayHandler& handler() { return state.store.pahMapAreaMovement; }
    Bytes block(std::uint32_t area)
    {
        Bytes bytes;
        for (std::uint32_t i = 0; i < handler().dataByte(0, area) + 2U; ++i)
            bytes.push_back(handler().dataByte(i, area));
        return bytes;
    }

    AreaMovement movement{state.store.pahMapAreaMovement};
};

// Opening

TEST_F(AreaMovementTest, FreeSpaceIsNotKnownBeforeOpening)
{
    EXPECT_EQ(handler().freeSpace(), -1);
    EXPECT_FALSE(movement.addEntry(0));
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(AreaMovementTest, FreeSpaceStartsBehindTheFirstAreasBlock)
{
    handler().selectRoom(1); // does not matter
    open();
    EXPECT_EQ(handler().freeSpace(), 0x8118 - 0x810E);
    EXPECT_EQ(handler().currentRoom(), 0U);
    EXPECT_EQ(movement.entryCount(), 1);
}

TEST_F(AreaMovementTest, OverfullRegionHasANegativeFreeSpace)
{
    game.config.pahMapAreaMovement.dEdge = 0x810C;
    start();
    open();
    EXPECT_EQ(handler().freeSpace(), -2);
    EXPECT_FALSE(movement.addEntry(0));
    EXPECT_EQ(image(), game.bytes);
}

// Entries

TEST_F(AreaMovementTest, EntriesAreFourNibbles)
{
    open();
    movement.selectArea(1);
    EXPECT_EQ(movement.entryCount(), 2);
    EXPECT_EQ(movement.entry(0), (Entry{1, 2, 3, 4}));
    EXPECT_EQ(movement.entry(1), (Entry{5, 6, 7, 8}));
}

TEST_F(AreaMovementTest, EachNibbleIsWrittenAlone)
{
    open();
    movement.selectArea(1);
    movement.setChopperSprite(1, 0xA);
    EXPECT_EQ(image(), loadedExcept(overworld::kMovement + 4, {0xA6, 0x78}));
    movement.setPathPreviewSprite(1, 0xB);
    EXPECT_EQ(image(), loadedExcept(overworld::kMovement + 4, {0xAB, 0x78}));
    movement.setFirstDigit(1, 0xC);
    EXPECT_EQ(image(), loadedExcept(overworld::kMovement + 4, {0xAB, 0xC8}));
    movement.setSecondDigit(1, 0xD);
    EXPECT_EQ(image(), loadedExcept(overworld::kMovement + 4, {0xAB, 0xCD}));
}

TEST_F(AreaMovementTest, ValuesAreTakenModulo16)
{
    open();
    movement.setChopperSprite(0, 0x1F3);
    movement.setPathPreviewSprite(0, 0x14);
    movement.setFirstDigit(0, -1);
    movement.setSecondDigit(0, 16);
    EXPECT_EQ(movement.entry(0), (Entry{3, 4, 15, 0}));
}

TEST_F(AreaMovementTest, EntriesThatAreNotThereReadAsZerosAndAreNotWritten)
{
    open();
    for (const int index : {-1, 1, 200}) {
        EXPECT_EQ(movement.entry(index), Entry{});
        movement.setChopperSprite(index, 5);
        movement.setSecondDigit(index, 5);
    }
    EXPECT_EQ(image(), game.bytes);
}

// Adding

TEST_F(AreaMovementTest, NewEntryOfZerosFollowsTheGivenOne)
{
    open();
    movement.selectArea(1);
    EXPECT_TRUE(movement.addEntry(0));
    EXPECT_EQ(block(1), (Bytes{6, 0x77, 0x12, 0x34, 0, 0, 0x56, 0x78}));
    EXPECT_EQ(block(2), (Bytes{2, 0x88, 0x9A, 0xBC}));
    EXPECT_EQ(block(0), (Bytes{2, 0x99, 0xDE, 0xF0}));
    EXPECT_EQ(bytesAt(overworld::kMovementTable, 8),
              (Bytes{0x0C, 0x81, 0x00, 0x81, 0x08, 0x81, 0x0C, 0x81}));
    EXPECT_EQ(handler().freeSpace(), 8);
}

TEST_F(AreaMovementTest, NewEntryBehindTheLastOneMovesTheNextBlock)
{
    open();
    movement.selectArea(1);
    EXPECT_TRUE(movement.addEntry(1));
    EXPECT_EQ(block(1), (Bytes{6, 0x77, 0x12, 0x34, 0x56, 0x78, 0, 0}));
    EXPECT_EQ(block(2), (Bytes{2, 0x88, 0x9A, 0xBC}));
    EXPECT_EQ(handler().pointerOf(2), 0x8108);
}

TEST_F(AreaMovementTest, NothingChangesWithoutTwoFreeBytes)
{
    game.config.pahMapAreaMovement.dEdge = 0x810F; // one byte is free
    start();
    open();
    EXPECT_FALSE(movement.addEntry(0));
    EXPECT_EQ(image(), game.bytes);
    EXPECT_EQ(handler().freeSpace(), 1);
}

TEST_F(AreaMovementTest, EntriesFillTheRegionToItsEnd)
{
    open();
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(movement.addEntry(0));
    EXPECT_FALSE(movement.addEntry(0));
    EXPECT_EQ(block(0), (Bytes{12, 0x99, 0xDE, 0xF0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(bytesAt(overworld::kMovement + 0x18, 2), (Bytes{0, 0}));
}

TEST_F(AreaMovementTest, ThereAreAtMost127Entries)
{
    game.config.pahMapAreaMovement.dEdge = 0x8300;
    game.write(overworld::kMovement + 0x0A, {252});
    start();
    open();
    EXPECT_TRUE(movement.addEntry(125));
    EXPECT_EQ(handler().dataByte(0), 254);
    const Bytes full = image();
    EXPECT_FALSE(movement.addEntry(126));
    EXPECT_EQ(image(), full);
    state.rom.writeByte(overworld::kMovement + 0x0A, 253);
    const Bytes odd = image();
    EXPECT_FALSE(movement.addEntry(0));
    EXPECT_EQ(image(), odd);
}

// Removing

TEST_F(AreaMovementTest, RemovedEntryClosesTheGap)
{
    open();
    movement.selectArea(1);
    EXPECT_TRUE(movement.removeEntry(0));
    EXPECT_EQ(bytesAt(overworld::kMovement, 14),
              (Bytes{2, 0x77, 0x56, 0x78, 2, 0x88, 0x9A, 0xBC, 2, 0x99, 0xDE, 0xF0, 0, 0}));
    EXPECT_EQ(bytesAt(overworld::kMovementTable, 8),
              (Bytes{0x08, 0x81, 0x00, 0x81, 0x04, 0x81, 0x08, 0x81}));
    EXPECT_EQ(handler().freeSpace(), 12);
}

TEST_F(AreaMovementTest, TheOnlyEntryStays)
{
    open();
    EXPECT_FALSE(movement.removeEntry(0));
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(AreaMovementTest, NothingIsRemovedWhileFreeSpaceIsNotKnown)
{
    open();
    handler().setFreeSpace(-1);
    movement.selectArea(1);
    EXPECT_FALSE(movement.removeEntry(1));
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(AreaMovementTest, AnEntryThatIsNotThereIsNotRemoved)
{
    open();
    movement.selectArea(1);
    EXPECT_FALSE(movement.removeEntry(2));
    EXPECT_FALSE(movement.removeEntry(-1));
    EXPECT_EQ(image(), game.bytes);
}

// Damaged blocks

TEST_F(AreaMovementTest, OddCountIsRoundedDownAndStaysOdd)
{
    game.write(overworld::kMovement, {5});
    start();
    open();
    movement.selectArea(1);
    EXPECT_EQ(movement.entryCount(), 2);
    EXPECT_TRUE(movement.removeEntry(1));
    EXPECT_EQ(handler().dataByte(0), 3);
    EXPECT_EQ(movement.entryCount(), 1);
    EXPECT_FALSE(movement.removeEntry(0));
}

TEST_F(AreaMovementTest, FirstEntryOfAnEmptyBlockStaysOutOfTheNextOne)
{
    game.write(overworld::kMovementTable + 2, {0x04, 0x81}); // area 1: 00 55, then area 2
    game.write(overworld::kMovement + 4, {0, 0x55});
    start();
    open();
    movement.selectArea(1);
    EXPECT_EQ(movement.entryCount(), 0);
    EXPECT_EQ(movement.entry(0), Entry{});
    movement.setChopperSprite(0, 15);
    EXPECT_EQ(image(), game.bytes);
    EXPECT_FALSE(movement.removeEntry(0));
    EXPECT_TRUE(movement.addEntry(0));
    EXPECT_EQ(block(1), (Bytes{2, 0x55, 0, 0}));
    EXPECT_EQ(block(2), (Bytes{2, 0x88, 0x9A, 0xBC}));
}

TEST_F(AreaMovementTest, BlocksPastTheImageAreFiller)
{
    game.config.pahMapAreaMovement.dBank = {0xFF, 0xFF};
    start();
    open();
    EXPECT_EQ(movement.entryCount(), 0x55 / 2);
    EXPECT_EQ(movement.entry(3), (Entry{5, 5, 5, 5}));
    movement.setChopperSprite(0, 1);
    (void)movement.removeEntry(3);
    (void)movement.addEntry(3);
    // Pointers that lie inside the image may move, data does not appear in it.
    EXPECT_EQ(bytesAt(overworld::kMovement, 14),
              (Bytes{4, 0x77, 0x12, 0x34, 0x56, 0x78, 2, 0x88, 0x9A, 0xBC, 2, 0x99, 0xDE, 0xF0}));
}

} // namespace
} // namespace velko
