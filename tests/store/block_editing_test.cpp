#include "store/pointer_array_handler.h"

#include <gtest/gtest.h>
#include <vector>

namespace velko {
namespace {

using Bytes = std::vector<std::uint8_t>;

// Three rooms with two-byte entries at $8000 of bank 0. The data region is the first 16 bytes of
// bank 1:
//
//     $8000 10 11 12 | $8003 20 21 22 23 | $8007 30 31 | $8009 free .. $800F
//     room 0           room 1              room 2
class BlockEditingTest : public testing::Test {
protected:
    BlockEditingTest()
    {
        rom.setBytes(Bytes(16 + 3 * 0x4000, 0xEE));
        handler.setDescriptor(descriptor);
        setPointers({0x8000, 0x8003, 0x8007});
        setRegion({0x10, 0x11, 0x12, 0x20, 0x21, 0x22, 0x23, 0x30, 0x31, 0, 0, 0, 0, 0, 0, 0});
        handler.setFreeSpace(7);
        handler.selectRoom(1);
    }
    void setPointers(const std::vector<std::uint16_t>& pointers)
    {
        for (std::uint32_t room = 0; room < pointers.size(); ++room)
            handler.setPointer(room, pointers[room]);
    }
    std::vector<std::uint16_t> pointers(std::uint32_t count = 3) const
    {
        std::vector<std::uint16_t> all;
        for (std::uint32_t room = 0; room < count; ++room)
            all.push_back(handler.pointerOf(room));
        return all;
    }
    void setBytes(std::uint16_t cpuAddress, const Bytes& values)
    {
        for (std::uint32_t i = 0; i < values.size(); ++i)
            rom.writeByte(handler.dataFileOffset(cpuAddress) + i, values[i]);
    }
    void setRegion(const Bytes& values) { setBytes(0x8000, values); }
    Bytes bytesAt(std::uint16_t cpuAddress, std::uint32_t count) const
    {
        Bytes values;
        for (std::uint32_t i = 0; i < count; ++i)
            values.push_back(rom.readByte(handler.dataFileOffset(cpuAddress) + i));
        return values;
    }
    Bytes region() const { return bytesAt(0x8000, 16); }
    Bytes image() const { return Bytes(rom.bytes().begin(), rom.bytes().end()); }

    PointerArrayDescriptor descriptor{.dBank = {1, 2},
                                      .pBank = 0,
                                      .pMemStart = 0x8000,
                                      .pMemEdge = 0x8006,
                                      .dEdge = 0x8010,
                                      .pointerPad = 2};
    RomImage rom;
    PointerArrayHandler handler{rom};
};

using Pointers = std::vector<std::uint16_t>;

TEST_F(BlockEditingTest, InsertionInsideABlockMovesWhatLiesAbove)
{
    EXPECT_EQ(handler.insertBytes(2, Bytes{0xA1, 0xA2}).code, 0U);
    EXPECT_EQ(
        region(),
        (Bytes{0x10, 0x11, 0x12, 0x20, 0x21, 0xA1, 0xA2, 0x22, 0x23, 0x30, 0x31, 0, 0, 0, 0, 0}));
    EXPECT_EQ(pointers(), (Pointers{0x8000, 0x8003, 0x8009}));
    EXPECT_EQ(handler.freeSpace(), 5);
}

TEST_F(BlockEditingTest, InsertionWithoutEnoughFreeSpaceTellsTheShortfallAndChangesNothing)
{
    handler.setFreeSpace(3);
    const Bytes before = image();
    const EditResult result = handler.insertBytes(0, Bytes(5));
    EXPECT_EQ(result.code, 0x20002U);
    EXPECT_EQ(result.shortfall(), 2U);
    EXPECT_FALSE(result.ok());
    EXPECT_EQ(handler.insertBlank(0, 5).code, 0x20002U);
    EXPECT_EQ(image(), before);
    EXPECT_EQ(handler.freeSpace(), 3);
}

TEST_F(BlockEditingTest, AllOfTheFreeSpaceCanBeUsed)
{
    EXPECT_TRUE(handler.insertBytes(4, Bytes(7, 0xA0)).ok());
    EXPECT_EQ(region(),
              (Bytes{0x10, 0x11, 0x12, 0x20, 0x21, 0x22, 0x23, 0xA0, 0xA0, 0xA0, 0xA0, 0xA0, 0xA0,
                     0xA0, 0x30, 0x31}));
    EXPECT_EQ(bytesAt(0x8010, 1), Bytes{0xEE});
    EXPECT_EQ(handler.freeSpace(), 0);
    EXPECT_EQ(handler.insertByte(0, 1).code, 0x10002U);
}

TEST_F(BlockEditingTest, UnknownFreeSpaceRefusesEverything)
{
    handler.setFreeSpace(-1);
    const Bytes before = image();
    EXPECT_EQ(handler.insertBytes(0, Bytes(1)).code, 1U);
    EXPECT_EQ(handler.insertBytes(0, {}).code, 1U);
    EXPECT_EQ(handler.insertByte(0, 1).code, 1U);
    EXPECT_EQ(handler.insertWord(0, 1).code, 1U);
    EXPECT_EQ(handler.insertBlank(0, 1).code, 1U);
    EXPECT_EQ(handler.deleteBytes(0, 1).code, 1U);
    EXPECT_EQ(handler.deleteWord(0).code, 1U);
    EXPECT_EQ(handler.deleteBytesAt(0x8000, 1).code, 1U);
    EXPECT_EQ(image(), before);
    EXPECT_EQ(handler.freeSpace(), -1);
}

TEST_F(BlockEditingTest, NegativeFreeSpaceRefusesInsertionsOfAnySize)
{
    handler.setFreeSpace(-5);
    const Bytes before = image();
    EXPECT_EQ(handler.insertBytes(0, Bytes(3)).code, 0x80002U);
    EXPECT_EQ(handler.insertBytes(0, {}).code, 0x50002U);
    EXPECT_EQ(handler.insertBlank(0, 0xFFFFFFFF).code, 0x40002U); // 2^32 + 4, in 16 bits
    EXPECT_EQ(image(), before);
}

TEST_F(BlockEditingTest, AbsurdBlankIsRefusedBeforeMemoryIsTaken)
{
    EXPECT_EQ(handler.insertBlank(0, 0xFFFFFFFF).code & 0xFFFF, 2U);
    EXPECT_EQ(handler.freeSpace(), 7);
}

// The used part reaches 4 bytes beyond the region's end; a deletion may bring it back inside.
TEST_F(BlockEditingTest, OverfullRegionCanBeShrunk)
{
    setRegion({0x10, 0x11, 0x12, 0x20, 0x21, 0x22, 0x23, 0x30, 0x31, 0x32, 0x33, 0x34, 0x35, 0x36,
               0x37, 0x38});
    setBytes(0x8010, {0x39, 0x3A, 0x3B, 0x3C, 0xEE});
    handler.setFreeSpace(-4);
    EXPECT_TRUE(handler.deleteBytes(0, 3).ok());
    EXPECT_EQ(region(),
              (Bytes{0x10, 0x11, 0x12, 0x23, 0x30, 0x31, 0x32, 0x33, 0x34, 0x35, 0x36, 0x37, 0x38,
                     0x39, 0x3A, 0x3B}));
    EXPECT_EQ(bytesAt(0x8010, 5), (Bytes{0x3C, 0, 0, 0, 0xEE}));
    EXPECT_EQ(handler.freeSpace(), -1); // and from now on it counts as unknown
    EXPECT_EQ(handler.deleteBytes(0, 1).code, 1U);
}

TEST_F(BlockEditingTest, InsertionAtTheHeadKeepsSharersTogether)
{
    setPointers({0x8003, 0x8003, 0x8007});
    EXPECT_TRUE(handler.insertBytes(0, Bytes{0xA1, 0xA2}).ok());
    EXPECT_EQ(pointers(), (Pointers{0x8003, 0x8003, 0x8009}));
    EXPECT_EQ(handler.dataByte(0, 0), 0xA1);
    EXPECT_EQ(handler.dataByte(2, 0), 0x20);
}

TEST_F(BlockEditingTest, InsertionAtOffsetOneMovesABlockThatStartsThere)
{
    setPointers({0x8004, 0x8003, 0x8003});
    EXPECT_TRUE(handler.insertBytes(1, Bytes{0xA1, 0xA2}).ok());
    EXPECT_EQ(pointers(), (Pointers{0x8006, 0x8003, 0x8003}));
    EXPECT_EQ(handler.dataByte(0, 0), 0x21);
}

TEST_F(BlockEditingTest, InsertionAtTheEndOfABlockBelongsToIt)
{
    EXPECT_TRUE(handler.insertByte(4, 0xA1).ok());
    EXPECT_EQ(handler.dataByte(4, 1), 0xA1);
    EXPECT_EQ(pointers(), (Pointers{0x8000, 0x8003, 0x8008}));
    EXPECT_EQ(handler.dataByte(0, 2), 0x30);
}

TEST_F(BlockEditingTest, InsertionAtTheFirstFreeByteMovesNothing)
{
    handler.setPointer(1, 0x8009);
    EXPECT_TRUE(handler.insertBytes(0, Bytes{0xA1, 0xA2}).ok());
    EXPECT_EQ(bytesAt(0x8007, 5), (Bytes{0x30, 0x31, 0xA1, 0xA2, 0}));
    EXPECT_EQ(handler.pointerOf(1), 0x8009);
}

TEST_F(BlockEditingTest, EmptyInsertionChangesNothing)
{
    const Bytes before = image();
    EXPECT_TRUE(handler.insertBytes(2, {}).ok());
    EXPECT_EQ(image(), before);
    EXPECT_EQ(handler.freeSpace(), 7);
}

TEST_F(BlockEditingTest, WordIsInsertedLowByteFirst)
{
    EXPECT_TRUE(handler.insertWord(1, 0xBEEF).ok());
    EXPECT_EQ(bytesAt(0x8003, 4), (Bytes{0x20, 0xEF, 0xBE, 0x21}));
}

TEST_F(BlockEditingTest, BlankMakesRoomForItsCaller)
{
    EXPECT_TRUE(handler.insertBlank(1, 3).ok());
    EXPECT_EQ(handler.dataByte(0), 0x20);
    EXPECT_EQ(handler.dataByte(4), 0x21);
    EXPECT_EQ(handler.freeSpace(), 4);
}

TEST_F(BlockEditingTest, DeletionInsideABlockClosesTheGapAndZeroesTheTop)
{
    EXPECT_EQ(handler.deleteBytes(1, 2).code, 0U);
    EXPECT_EQ(region(),
              (Bytes{0x10, 0x11, 0x12, 0x20, 0x23, 0x30, 0x31, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(pointers(), (Pointers{0x8000, 0x8003, 0x8005}));
    EXPECT_EQ(handler.freeSpace(), 9);
}

TEST_F(BlockEditingTest, DeletionLeavesWhatLiesBehindTheRegionAlone)
{
    setRegion(Bytes(16, 0xA0));
    handler.setFreeSpace(0);
    EXPECT_TRUE(handler.deleteBytes(0, 4).ok());
    EXPECT_EQ(bytesAt(0x800B, 6), (Bytes{0xA0, 0, 0, 0, 0, 0xEE}));
}

TEST_F(BlockEditingTest, RoomsThatSharedADeletedBlockKeepTheirPointer)
{
    setPointers({0x8003, 0x8003, 0x8007});
    EXPECT_TRUE(handler.deleteBytes(0, 4).ok());
    EXPECT_EQ(pointers(), (Pointers{0x8003, 0x8003, 0x8003}));
    EXPECT_EQ(handler.dataByte(0, 0), 0x30);
}

TEST_F(BlockEditingTest, DeletionOfAnotherRoomsBytes)
{
    EXPECT_TRUE(handler.deleteBytes(1, 1, 0).ok());
    EXPECT_EQ(bytesAt(0x8000, 4), (Bytes{0x10, 0x12, 0x20, 0x21}));
    EXPECT_EQ(pointers(), (Pointers{0x8000, 0x8002, 0x8006}));
}

TEST_F(BlockEditingTest, WordIsDeletedFromTheCurrentRoom)
{
    EXPECT_TRUE(handler.deleteWord(2).ok());
    EXPECT_EQ(bytesAt(0x8003, 4), (Bytes{0x20, 0x21, 0x30, 0x31}));
}

TEST_F(BlockEditingTest, DeletionAtAnAddressTakesItsLow16Bits)
{
    EXPECT_TRUE(handler.deleteBytesAt(0x18001, 2).ok());
    EXPECT_EQ(bytesAt(0x8000, 3), (Bytes{0x10, 0x20, 0x21}));
    EXPECT_EQ(pointers(), (Pointers{0x8000, 0x8001, 0x8005}));
}

TEST_F(BlockEditingTest, EmptyDeletionChangesNothing)
{
    // The free space starts where bank 2 does, but the banks are told the other way round.
    descriptor.dBank = {2, 1};
    descriptor.dEdge = 0xC010;
    handler.setDescriptor(descriptor);
    handler.setFreeSpace(16);
    const Bytes before = image();
    EXPECT_TRUE(handler.deleteBytes(0, 0).ok());
    EXPECT_TRUE(handler.deleteBytesAt(0x8000, 0).ok());
    EXPECT_EQ(image(), before);
    EXPECT_EQ(handler.freeSpace(), 16);
}

// Nothing checks that the bytes exist: room 1 points at free space, and the four bytes "behind" it
// are taken from the end of the used part.
TEST_F(BlockEditingTest, DeletionInFreeSpaceTakesTheEndOfTheUsedPart)
{
    handler.setPointer(1, 0x8009);
    EXPECT_TRUE(handler.deleteBytes(0, 4).ok());
    EXPECT_EQ(bytesAt(0x8000, 10), (Bytes{0x10, 0x11, 0x12, 0x20, 0x21, 0, 0, 0, 0, 0}));
    EXPECT_EQ(pointers(), (Pointers{0x8000, 0x8009, 0x8007}));
    EXPECT_EQ(handler.freeSpace(), 11);
}

TEST_F(BlockEditingTest, PointersAreRaisedInTheWholeTableAndModulo65536)
{
    descriptor.pMemEdge = 0x8009; // four entries and half of a fifth, which counts
    handler.setDescriptor(descriptor);
    handler.setPointer(3, 0xFFFF);
    handler.setPointer(4, 0x9000);
    EXPECT_TRUE(handler.insertBytes(1, Bytes(2)).ok());
    EXPECT_EQ(pointers(5), (Pointers{0x8000, 0x8003, 0x8009, 0x0001, 0x9002}));
    EXPECT_TRUE(handler.deleteBytes(1, 2).ok());
    EXPECT_EQ(pointers(5), (Pointers{0x8000, 0x8003, 0x8007, 0x0001, 0x9000}));
}

TEST_F(BlockEditingTest, TableEdgeIsExclusive)
{
    descriptor.pMemEdge = 0x8004;
    handler.setDescriptor(descriptor);
    EXPECT_TRUE(handler.insertByte(1, 0).ok());
    EXPECT_EQ(handler.pointerOf(2), 0x8007);
}

TEST_F(BlockEditingTest, StrideZeroMeansNoEntries)
{
    descriptor.pointerPad = 0;
    handler.setDescriptor(descriptor); // every room is entry 0 now
    EXPECT_TRUE(handler.insertByte(1, 0xA1).ok());
    EXPECT_EQ(bytesAt(0x8000, 4), (Bytes{0x10, 0xA1, 0x11, 0x12}));
    descriptor.pointerPad = 2;
    handler.setDescriptor(descriptor);
    EXPECT_EQ(pointers(), (Pointers{0x8000, 0x8003, 0x8007}));
}

TEST_F(BlockEditingTest, HugeStrideVisitsTheFirstEntryOnly)
{
    handler.selectRoom(0);
    descriptor.pointerPad = 0xFFFFFFFF;
    handler.setDescriptor(descriptor);
    handler.setPointer(0, 0x8003);
    rom.writeByte(handler.dataFileOffset(0x8000), 0x42);
    EXPECT_TRUE(handler.deleteBytesAt(0x8000, 1).ok());
    EXPECT_EQ(handler.pointerOf(0), 0x8002);
}

TEST_F(BlockEditingTest, StrideOneOverlapsItsEntries)
{
    descriptor.pointerPad = 1;
    descriptor.pMemEdge = 0x8003; // the bytes 02 80 03 80 are the entries $8002, $0380, $8003
    handler.setDescriptor(descriptor);
    handler.setPointer(0, 0x8002);
    handler.setPointer(2, 0x8003);
    handler.selectRoom(0);
    EXPECT_TRUE(handler.insertByte(1, 0xA1).ok());
    EXPECT_EQ(pointers(), (Pointers{0x8002, 0x0480, 0x8004}));
}

TEST_F(BlockEditingTest, TableUpToTheLastAddressIsWalkedOnce)
{
    descriptor.pBank = 1; // $FFFC maps to the end of bank 2
    descriptor.pMemStart = 0xFFFA;
    descriptor.pMemEdge = 0xFFFF;
    handler.setDescriptor(descriptor);
    setPointers({0x8000, 0x8003, 0x8007});
    EXPECT_TRUE(handler.insertByte(1, 0xA1).ok());
    EXPECT_EQ(pointers(), (Pointers{0x8000, 0x8003, 0x8008}));
}

TEST_F(BlockEditingTest, RegionMayCrossBanksThatAreNeighboursInTheFile)
{
    descriptor.dEdge = 0xC004;
    handler.setDescriptor(descriptor);
    setPointers({0xBFFE, 0xBFFE, 0xC000});
    setBytes(0xBFFE, {0x10, 0x11, 0x20, 0, 0, 0});
    handler.setFreeSpace(3);
    EXPECT_TRUE(handler.insertBytes(1, Bytes{0xA1, 0xA2}).ok());
    EXPECT_EQ(bytesAt(0xBFFE, 6), (Bytes{0x10, 0xA1, 0xA2, 0x11, 0x20, 0}));
    EXPECT_EQ(handler.pointerOf(2), 0xC002);
    EXPECT_TRUE(handler.deleteBytes(1, 2).ok());
    EXPECT_EQ(bytesAt(0xBFFE, 6), (Bytes{0x10, 0x11, 0x20, 0, 0, 0}));
}

// The region's second half lies before its first in the file: no run of bytes leads from one to
// the other, so none moves. Only the inserted bytes are written, in file order.
TEST_F(BlockEditingTest, BanksInReverseOrderMoveNothing)
{
    descriptor.dBank = {2, 1};
    descriptor.dEdge = 0xC004;
    handler.setDescriptor(descriptor);
    handler.setPointer(1, 0xBFFF);
    handler.setFreeSpace(2);
    setBytes(0xC000, {0x20, 0x21, 0x22});
    EXPECT_TRUE(handler.insertBytes(0, Bytes{0xA1, 0xA2}).ok());
    EXPECT_EQ(rom.readByte(16 + 0xBFFF), 0xA1); // the file's last byte; the next is dropped
    EXPECT_EQ(bytesAt(0xC000, 3), (Bytes{0x20, 0x21, 0x22}));
}

TEST_F(BlockEditingTest, RegionUpToTheLastAddressHasItsEdgeAtZero)
{
    descriptor.dEdge = 0; // one past $FFFF, in 16 bits
    handler.setDescriptor(descriptor);
    setPointers({0x8000, 0xFFF0, 0x8000});
    setBytes(0xFFF0, {0x20, 0x21, 0x22, 0x23});
    handler.setFreeSpace(12 - 0x10000);
    EXPECT_EQ(handler.freeSpaceStart(), 0xFFF4);
    EXPECT_TRUE(handler.deleteBytes(0, 2).ok());
    EXPECT_EQ(bytesAt(0xFFF0, 5), (Bytes{0x22, 0x23, 0, 0, 0xEE}));
}

TEST_F(BlockEditingTest, BlockPastTheFileDropsWhatWouldBeWritten)
{
    rom.setBytes(Bytes(16 + 0x4000 + 8, 0xEE)); // ends inside the region
    setPointers({0x8000, 0x8003, 0x8007});
    handler.setFreeSpace(4);
    EXPECT_TRUE(handler.insertBytes(0, Bytes(4, 0xA0)).ok());
    EXPECT_EQ(bytesAt(0x8003, 7), (Bytes{0xA0, 0xA0, 0xA0, 0xA0, 0xEE, 0x55, 0x55}));
    EXPECT_TRUE(handler.deleteBytes(0, 4).ok());
    EXPECT_EQ(bytesAt(0x8003, 5), (Bytes{0xEE, 0x55, 0x55, 0x55, 0x55}));
    EXPECT_EQ(image().size(), 16U + 0x4000 + 8);
}

// The table is part of the region. Each step reads it as the step before left it.
TEST_F(BlockEditingTest, TableInsideItsOwnRegionIsMovedAndReadAgain)
{
    descriptor.pBank = 1;
    handler.setDescriptor(descriptor);
    setRegion({0x08, 0x80, 0x0A, 0x80, 0x0C, 0x80, 6, 7, 8, 9, 10, 11, 12, 13, 0, 0});
    handler.setFreeSpace(2);
    handler.selectRoom(0);
    // Removing the first byte turns the entries into $0A80, $0C80, $0680.
    EXPECT_TRUE(handler.deleteBytesAt(0x8000, 1).ok());
    EXPECT_EQ(pointers(), (Pointers{0x0A80, 0x0C80, 0x0680}));
    EXPECT_EQ(region()[15], 0);

    setRegion({0x00, 0x80, 0x05, 0x80, 0x0C, 0x80, 6, 7, 8, 9, 10, 11, 12, 13, 0, 0});
    handler.setFreeSpace(2);
    // Room 0 starts at the table: the deletion turns its pointer into $0580, above which all lie.
    EXPECT_TRUE(handler.deleteBytes(0, 1, 0).ok());
    EXPECT_EQ(pointers(), (Pointers{0x0580, 0x0C7F, 0x067F}));
}

TEST_F(BlockEditingTest, InsertionThenDeletionGivesTheBytesBack)
{
    const Bytes before = image();
    EXPECT_TRUE(handler.insertBytes(2, Bytes{1, 2, 3}).ok());
    EXPECT_TRUE(handler.deleteBytes(2, 3).ok());
    EXPECT_EQ(image(), before);
    EXPECT_EQ(handler.freeSpace(), 7);
}

} // namespace
} // namespace velko
