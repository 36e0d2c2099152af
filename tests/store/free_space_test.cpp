#include "store/free_space.h"

#include <gtest/gtest.h>
#include <vector>

namespace velko {
namespace {

// A table of four-byte entries at the start of bank 0 and data in banks 1 ($8000) and 2 ($C000).
class FreeSpaceTest : public testing::Test {
protected:
    FreeSpaceTest()
    {
        rom.setBytes(std::vector<std::uint8_t>(16 + 3 * 0x4000));
        handler.setDescriptor({.dBank = {1, 2}, .pMemStart = 0x8000, .pointerPad = 4});
    }
    void setPointers(const std::vector<std::uint16_t>& pointers)
    {
        for (std::uint32_t room = 0; room < pointers.size(); ++room)
            handler.setPointer(room, pointers[room]);
    }
    void setSize(std::uint32_t room, std::uint8_t width, std::uint8_t height)
    {
        handler.setEntryByte(2, width, room);
        handler.setEntryByte(3, height, room);
    }
    void write(std::uint16_t cpuAddress, const std::vector<std::uint8_t>& values)
    {
        for (std::uint32_t i = 0; i < values.size(); ++i)
            rom.writeByte(handler.dataFileOffset(cpuAddress) + i, values[i]);
    }

    RomImage rom;
    PointerArrayHandler handler{rom};
};

TEST_F(FreeSpaceTest, HighestPointerIsTheLastBlock)
{
    setPointers({0x8100, 0xBFFF, 0x9000});
    const LastBlock last = findLastBlock(handler, 3);
    EXPECT_EQ(last.pointer, 0xBFFF);
    EXPECT_EQ(last.room, 1U);
}

TEST_F(FreeSpaceTest, LowestRoomWinsATie)
{
    setPointers({0x8100, 0x9000, 0x9000});
    EXPECT_EQ(findLastBlock(handler, 3).room, 1U);
}

TEST_F(FreeSpaceTest, PointersAreComparedUnsigned)
{
    setPointers({0x7FFF, 0x8000});
    EXPECT_EQ(findLastBlock(handler, 2).room, 1U);
}

TEST_F(FreeSpaceTest, TableOfZeroPointersPicksRoomZero)
{
    const LastBlock last = findLastBlock(handler, 3);
    EXPECT_EQ(last.pointer, 0);
    EXPECT_EQ(last.room, 0U);
}

TEST_F(FreeSpaceTest, RoomsBeyondTheCountAreNotLookedAt)
{
    setPointers({0x8100, 0x9000, 0xA000});
    EXPECT_EQ(findLastBlock(handler, 2).pointer, 0x9000);
}

TEST_F(FreeSpaceTest, NoRoomsGiveNoBlock)
{
    setPointers({0x9000});
    const LastBlock last = findLastBlock(handler, 0);
    EXPECT_EQ(last.pointer, -1);
    EXPECT_EQ(last.room, 0U);
}

TEST_F(FreeSpaceTest, LayoutThatIsTooSmallIsPassedOver)
{
    setPointers({0x8100, 0x9000, 0xA000, 0xB000});
    setSize(0, 5, 2);
    setSize(1, 3, 1); // the smallest that counts
    setSize(2, 2, 1); // higher, but only borders
    setSize(3, 9, 0); // higher still, but no rows
    const LastBlock last = findLastMapLayoutBlock(handler, 4);
    EXPECT_EQ(last.room, 1U);
    EXPECT_EQ(mapLayoutEnd(handler, last), 0x9003);
}

TEST_F(FreeSpaceTest, PassedOverLayoutDoesNotRaiseTheBest)
{
    setPointers({0xB000, 0x9000});
    setSize(0, 0, 0);
    setSize(1, 6, 4);
    const LastBlock last = findLastMapLayoutBlock(handler, 2);
    EXPECT_EQ(last.room, 1U);
    EXPECT_EQ(mapLayoutEnd(handler, last), 0x9018);
}

TEST_F(FreeSpaceTest, NoQualifyingLayoutEndsBeforeAddressZero)
{
    setPointers({0x9000, 0xA000});
    setSize(0, 2, 8);
    setSize(1, 8, 0);
    EXPECT_EQ(mapLayoutEnd(handler, findLastMapLayoutBlock(handler, 2)), -1);
}

TEST_F(FreeSpaceTest, MapAllocEndsBehindItsTerminator)
{
    write(0x9000, {0x00, 0x86, 0x40, 0x86, 0xFF, 0xFF});
    setPointers({0x9000});
    EXPECT_EQ(mapAllocEnd(handler, findLastBlock(handler, 1)), 0x9006);
}

TEST_F(FreeSpaceTest, EndlessMapAllocCounts65536Words)
{
    setPointers({0x9000});
    EXPECT_EQ(mapAllocEnd(handler, findLastBlock(handler, 1)), 0x9000 + 2 * 0x10000 + 2);
}

TEST_F(FreeSpaceTest, TileLoadType2EndsBehindItsFirstFF)
{
    write(0x9000, {0x10, 0x80, 0xFE, 0x7F, 0xFF, 0x01});
    setPointers({0x9000});
    EXPECT_EQ(tileLoadType2End(handler, findLastBlock(handler, 1)), 0x9005);
}

TEST_F(FreeSpaceTest, TileLoadType2OfOnlyTheEndMarkIsOneByte)
{
    write(0x9000, {0xFF});
    setPointers({0x9000});
    EXPECT_EQ(tileLoadType2End(handler, findLastBlock(handler, 1)), 0x9001);
}

TEST_F(FreeSpaceTest, LongTileLoadType2CountsAs4096And1)
{
    write(0x9000, std::vector<std::uint8_t>(5000, 0x01));
    write(0x9000 + 5000, {0xFF});
    setPointers({0x9000});
    EXPECT_EQ(tileLoadType2End(handler, findLastBlock(handler, 1)), 0x9000 + 4097);
}

TEST_F(FreeSpaceTest, TileLoadType2IsReadThroughTheDataBanks)
{
    write(0xBFFE, {0x01, 0x02}); // bank 1
    write(0xC000, {0x03, 0xFF}); // bank 2
    setPointers({0xBFFE});
    EXPECT_EQ(tileLoadType2End(handler, findLastBlock(handler, 1)), 0xC002);
}

TEST_F(FreeSpaceTest, UnitListCountsAsTwoBytesWhateverFollows)
{
    write(0x9000, {0x03, 0x10, 0x20, 0xFF});
    setPointers({0x9000});
    EXPECT_EQ(unitEnd(handler, findLastBlock(handler, 1)), 0x9002);
}

TEST_F(FreeSpaceTest, EmptyUnitListIsOneByte)
{
    write(0x9000, {0xFF, 0x10});
    setPointers({0x9000});
    EXPECT_EQ(unitEnd(handler, findLastBlock(handler, 1)), 0x9001);
}

TEST_F(FreeSpaceTest, UnitEndWrapsAsAPointerDoes)
{
    write(0xFFFF, {0x03});
    setPointers({0xFFFF});
    EXPECT_EQ(unitEnd(handler, findLastBlock(handler, 1)), 0x0001);
}

TEST_F(FreeSpaceTest, FixedLengthsAreAdded)
{
    setPointers({0xBFE0});
    EXPECT_EQ(fixedLengthEnd(findLastBlock(handler, 1), 32), 0xC000);
    EXPECT_EQ(fixedLengthEnd(LastBlock{0xFFFF, 0}, 1024), 0x103FF);
    EXPECT_EQ(fixedLengthEnd(LastBlock{}, 32), 31);
}

} // namespace
} // namespace velko
