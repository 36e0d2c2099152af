#include "tests/store/block_operations_fixture.h"

namespace velko {
namespace {

using test::LayoutOperationsTest;
using test::PaletteOperationsTest;
using test::SmallRegion;
using Bytes = SmallRegion::Bytes;
using Pointers = SmallRegion::Pointers;
using Answer = test::ScriptedPrompt::Answer;

constexpr const char* kNoSpace =
    "Not enough free space. Try \"Delete unused data\" or \"Join identical data\".";
constexpr const char* kCopySize =
    "Do you want to copy Width and Height bytes as well? (Recommended, specific to Map Layout "
    "data)";
constexpr const char* kSamePointer = "Rooms have the same pointer! Copying is pointless!";
constexpr const char* kLengthsDiffer =
    "Source and Destination rooms doesn't have the same data lengths. \nDo you want to re-adjust "
    "Dest. data size by adding/removing bytes? \n(YES to adjust, NO to copy possible number of "
    "bytes without adjusting, CANCEL to not do anything.)";
constexpr const char* kNothingUnused = "No unused data found between normal data.";
constexpr const char* kNothingIdentical = "Found no identical Rooms with different pointers.";

// Setting the pointer.

TEST_F(LayoutOperationsTest, SetPointerCopiesTheSizeOnYes)
{
    handler.selectRoom(0);
    prompt.expectYesNo(kCopySize, Answer::kYes);
    operations.setPointerToRoom(2);
    EXPECT_EQ(pointers(), (Pointers{0x8009, 0x8003, 0x8009, 0x8003}));
    EXPECT_EQ(size(0), (Bytes{4, 1}));
}

TEST_F(LayoutOperationsTest, SetPointerKeepsTheSizeOnNo)
{
    handler.selectRoom(0);
    prompt.expectYesNo(kCopySize, Answer::kNo);
    operations.setPointerToRoom(2);
    EXPECT_EQ(handler.pointerOf(0), 0x8009);
    EXPECT_EQ(size(0), (Bytes{3, 1}));
}

TEST_F(PaletteOperationsTest, SetPointerAsksNothingForOtherKinds)
{
    handler.selectRoom(2);
    operations.setPointerToRoom(0);
    EXPECT_EQ(pointers(), (Pointers{0x8000, 0x8020, 0x8000}));
}

// Nothing was chosen in the list of rooms: the entry before the first. The table starts at $8000,
// below which the 32 KB of the table's window wrap around to their end.
TEST_F(PaletteOperationsTest, NoRoomChosenIsTheEntryBeforeTheTable)
{
    rom.writeByte(16 + 0x7FFE, 0x34);
    rom.writeByte(16 + 0x7FFF, 0x92);
    operations.setPointerToRoom(static_cast<std::uint32_t>(-1));
    EXPECT_EQ(handler.pointerOf(0), 0x9234);
}

// Allocating.

TEST_F(LayoutOperationsTest, AllocatedLayoutIsOneCellBetweenBorders)
{
    handler.selectRoom(1);
    setBytes(0x800D, {7, 7, 7, 7});
    EXPECT_TRUE(operations.allocateUniqueData(newBlock(RoomDataKind::kMapLayout, 0)));
    EXPECT_EQ(pointers(), (Pointers{0x8000, 0x800D, 0x8009, 0x8003}));
    EXPECT_EQ(bytes(0x800D, 4), (Bytes{0, 0, 0, 7}));
    EXPECT_EQ(size(1), (Bytes{3, 1}));
    EXPECT_EQ(size(3), (Bytes{3, 2}));
    EXPECT_EQ(handler.freeSpace(), 16);
}

TEST_F(PaletteOperationsTest, AllocationMayTakeTheLastFreeByte)
{
    handler.selectRoom(1);
    EXPECT_TRUE(operations.allocateUniqueData(newBlock(RoomDataKind::kPalette, 0)));
    EXPECT_EQ(handler.pointerOf(1), 0x8060);
    EXPECT_EQ(handler.freeSpace(), 0);
    EXPECT_EQ(bytes(0x807F, 2), (Bytes{0x0F, 0xEE}));
}

TEST_F(PaletteOperationsTest, AllocationWithoutSpaceSaysSoAndChangesNothing)
{
    handler.setFreeSpace(31);
    const Bytes before = image();
    prompt.expect(kNoSpace);
    EXPECT_FALSE(operations.allocateUniqueData(newBlock(RoomDataKind::kPalette, 0)));
    EXPECT_EQ(image(), before);
    EXPECT_EQ(handler.freeSpace(), 31);
}

TEST_F(LayoutOperationsTest, RefusedAllocationKeepsTheSize)
{
    for (const std::int32_t freeSpace : {2, 0, -1, -40}) {
        handler.setFreeSpace(freeSpace);
        const Bytes before = image();
        prompt.expect(kNoSpace);
        EXPECT_FALSE(operations.allocateUniqueData(Bytes(3)));
        EXPECT_EQ(image(), before);
        EXPECT_EQ(handler.freeSpace(), freeSpace);
    }
}

TEST(NewBlock, HasTheContentsOfItsKind)
{
    EXPECT_EQ(newBlock(RoomDataKind::kMapAlloc, 0x8642), (Bytes{0x42, 0x86, 0xFF, 0xFF}));
    EXPECT_EQ(newBlock(RoomDataKind::kMapLayout, 0x8600), (Bytes{0, 0, 0}));
    EXPECT_EQ(newBlock(RoomDataKind::kTileLoad, 0x8600), Bytes(96));
    EXPECT_EQ(newBlock(RoomDataKind::kTile32, 0x8600), Bytes(1024));
    EXPECT_EQ(newBlock(RoomDataKind::kPalette, 0x8600),
              (Bytes{0x0F, 0x30, 0x10, 0x00, 0x0F, 0x30, 0x10, 0x00, 0x0F, 0x30, 0x10,
                     0x00, 0x0F, 0x30, 0x10, 0x00, 0x0F, 0x36, 0x06, 0x0F, 0x0F, 0x20,
                     0x2A, 0x0F, 0x0F, 0x36, 0x15, 0x0F, 0x0F, 0x30, 0x21, 0x0F}));
}

// Deleting.

TEST_F(LayoutOperationsTest, DeletedBlockGoesAndTheRoomAddressesWhatFollowed)
{
    handler.selectRoom(0);
    operations.deleteData();
    EXPECT_EQ(bytes(0x8000, 11),
              (Bytes{0x20, 0x21, 0x22, 0x23, 0x24, 0x25, 0x30, 0x31, 0x32, 0x33, 0}));
    EXPECT_EQ(pointers(), (Pointers{0x8000, 0x8000, 0x8006, 0x8000}));
    EXPECT_EQ(size(0), (Bytes{0, 0}));
    EXPECT_EQ(size(1), (Bytes{3, 2}));
    EXPECT_EQ(handler.freeSpace(), 22);
}

TEST_F(LayoutOperationsTest, RoomsThatSharedADeletedBlockKeepTheirPointerAndSize)
{
    handler.selectRoom(1);
    operations.deleteData();
    EXPECT_EQ(pointers(), (Pointers{0x8000, 0x8003, 0x8003, 0x8003}));
    EXPECT_EQ(size(1), (Bytes{0, 0}));
    EXPECT_EQ(size(3), (Bytes{3, 2})); // of which four bytes are room 2's and two are free
    EXPECT_EQ(bytes(0x8003, 6), (Bytes{0x30, 0x31, 0x32, 0x33, 0, 0}));
}

TEST_F(LayoutOperationsTest, AfterTheTopBlockTheNextDifferentPointerIsTaken)
{
    setPointers({0x8000, 0x8003, 0x8009, 0x8009});
    handler.selectRoom(2);
    operations.deleteData();
    // Room 3 points at the same free space, room 0 is the next one that does not.
    EXPECT_EQ(pointers(), (Pointers{0x8000, 0x8003, 0x8000, 0x8009}));
    EXPECT_EQ(size(2), (Bytes{0, 0}));
    EXPECT_EQ(handler.freeSpace(), 23);
}

TEST_F(LayoutOperationsTest, NextPointerIsTakenInRoomOrder)
{
    handler.selectRoom(2);
    operations.deleteData();
    EXPECT_EQ(handler.pointerOf(2), 0x8003); // room 3's, not room 0's
}

TEST_F(LayoutOperationsTest, WithoutADifferentPointerTheRoomStaysAtTheFreeSpace)
{
    setPointers({0x8000, 0x8000, 0x8000, 0x8000});
    handler.setFreeSpace(0x20 - 3);
    handler.selectRoom(0);
    operations.deleteData();
    EXPECT_EQ(pointers(), (Pointers{0x8000, 0x8000, 0x8000, 0x8000}));
    EXPECT_EQ(handler.freeSpace(), 0x20);
}

TEST_F(LayoutOperationsTest, DeletingARoomWithoutABlockStillLeavesTheFreeSpace)
{
    handler.setPointer(2, 0x800D);
    setSize(2, 0, 5);
    handler.selectRoom(2);
    operations.deleteData();
    EXPECT_EQ(handler.pointerOf(2), 0x8003);
    EXPECT_EQ(size(2), (Bytes{0, 0}));
    EXPECT_EQ(handler.freeSpace(), 19);
    EXPECT_EQ(bytes(0x8009, 4), (Bytes{0x30, 0x31, 0x32, 0x33}));
}

TEST_F(LayoutOperationsTest, RefusedDeletionStillSetsTheSize)
{
    handler.setFreeSpace(-1);
    handler.setPointer(2, 0x8021); // one past the edge: where the used part would end
    handler.selectRoom(2);
    operations.deleteData();
    EXPECT_EQ(handler.pointerOf(2), 0x8003);
    EXPECT_EQ(size(2), (Bytes{0, 0}));
    EXPECT_EQ(bytes(0x8009, 4), (Bytes{0x30, 0x31, 0x32, 0x33}));
    EXPECT_EQ(handler.freeSpace(), -1);
}

TEST_F(PaletteOperationsTest, RoomPastTheTableLooksAtAllEntries)
{
    // Its entry lies behind the table: the search starts at entry 0.
    handler.setPointer(9, 0x8060);
    handler.setFreeSpace(0);
    handler.selectRoom(9);
    operations.deleteData();
    EXPECT_EQ(handler.pointerOf(9), 0x8000);
}

TEST_F(PaletteOperationsTest, TableWithoutEntriesIsSurvived)
{
    handler.setDescriptor(
        {.dBank = {1, 2}, .pMemStart = 0x8000, .pMemEdge = 0x8000, .dEdge = 0x8080});
    handler.selectRoom(2);
    operations.deleteData();
    EXPECT_EQ(handler.pointerOf(2), 0x8040);
    EXPECT_EQ(handler.freeSpace(), 64);
    prompt.expect(kNothingUnused);
    operations.deleteUnusedData();
    prompt.expect(kNothingIdentical);
    operations.joinIdenticalData({});
}

// Cloning.

TEST_F(LayoutOperationsTest, CloneOfTheSamePointerIsPointless)
{
    handler.selectRoom(1);
    const Bytes before = image();
    prompt.expect(kSamePointer);
    EXPECT_EQ(operations.cloneDataOfRoom(3), CloneResult::kNothing);
    prompt.expect(kSamePointer);
    EXPECT_EQ(operations.cloneDataOfRoom(1), CloneResult::kNothing);
    EXPECT_EQ(image(), before);
}

TEST_F(LayoutOperationsTest, CloneOfOrIntoNoBlockDoesNothingSilently)
{
    setSize(0, 0, 9);
    handler.selectRoom(1);
    const Bytes before = image();
    EXPECT_EQ(operations.cloneDataOfRoom(0), CloneResult::kNothing);
    handler.selectRoom(0);
    EXPECT_EQ(operations.cloneDataOfRoom(1), CloneResult::kNothing);
    EXPECT_EQ(image(), before);
}

TEST_F(PaletteOperationsTest, CloneOfEqualLengthCopiesTheBlock)
{
    handler.selectRoom(2);
    EXPECT_EQ(operations.cloneDataOfRoom(0), CloneResult::kWholeBlock);
    EXPECT_EQ(bytes(0x8040, 32), Bytes(32, 0xA0));
    EXPECT_EQ(bytes(0x8060, 1), Bytes{0});
    EXPECT_EQ(pointers(), (Pointers{0x8000, 0x8020, 0x8040}));
    EXPECT_EQ(handler.freeSpace(), 32);
}

TEST_F(LayoutOperationsTest, CloneOfEqualLengthAsksForTheSize)
{
    setSize(1, 2, 2);
    handler.selectRoom(2);
    prompt.expectYesNo(kCopySize, Answer::kYes);
    EXPECT_EQ(operations.cloneDataOfRoom(1), CloneResult::kWholeBlock);
    EXPECT_EQ(bytes(0x8009, 5), (Bytes{0x20, 0x21, 0x22, 0x23, 0}));
    EXPECT_EQ(size(2), (Bytes{2, 2}));
}

TEST_F(LayoutOperationsTest, CloneCancelledDoesNothing)
{
    handler.selectRoom(0);
    const Bytes before = image();
    prompt.expectYesNoCancel(kLengthsDiffer, Answer::kCancel);
    EXPECT_EQ(operations.cloneDataOfRoom(1), CloneResult::kNothing);
    EXPECT_EQ(image(), before);
    EXPECT_EQ(handler.freeSpace(), 19);
}

TEST_F(LayoutOperationsTest, CloneGrowsAShorterBlock)
{
    handler.selectRoom(0);
    prompt.expectYesNoCancel(kLengthsDiffer, Answer::kYes);
    prompt.expectYesNo(kCopySize, Answer::kYes);
    EXPECT_EQ(operations.cloneDataOfRoom(1), CloneResult::kWholeBlock);
    EXPECT_EQ(bytes(0x8000, 17),
              (Bytes{0x20, 0x21, 0x22, 0x23, 0x24, 0x25, 0x20, 0x21, 0x22, 0x23, 0x24, 0x25, 0x30,
                     0x31, 0x32, 0x33, 0}));
    EXPECT_EQ(pointers(), (Pointers{0x8000, 0x8006, 0x800C, 0x8006}));
    EXPECT_EQ(size(0), (Bytes{3, 2}));
    EXPECT_EQ(handler.freeSpace(), 16);
}

TEST_F(LayoutOperationsTest, CloneShrinksALongerBlock)
{
    handler.selectRoom(1);
    prompt.expectYesNoCancel(kLengthsDiffer, Answer::kYes);
    prompt.expectYesNo(kCopySize, Answer::kNo);
    EXPECT_EQ(operations.cloneDataOfRoom(2), CloneResult::kWholeBlock);
    // Room 2's block moved down by two bytes while its bytes were wanted.
    EXPECT_EQ(bytes(0x8003, 9), (Bytes{0x30, 0x31, 0x32, 0x33, 0x30, 0x31, 0x32, 0x33, 0}));
    EXPECT_EQ(pointers(), (Pointers{0x8000, 0x8003, 0x8007, 0x8003}));
    EXPECT_EQ(size(1), (Bytes{3, 2}));
    EXPECT_EQ(handler.freeSpace(), 21);
}

TEST_F(LayoutOperationsTest, CloneWithoutAdjustingCopiesWhatFits)
{
    handler.selectRoom(0);
    prompt.expectYesNoCancel(kLengthsDiffer, Answer::kNo);
    EXPECT_EQ(operations.cloneDataOfRoom(1), CloneResult::kPartOfLonger); // no further question
    EXPECT_EQ(bytes(0x8000, 4), (Bytes{0x20, 0x21, 0x22, 0x20}));
    EXPECT_EQ(size(0), (Bytes{3, 1}));
}

TEST_F(LayoutOperationsTest, CloneWithoutAdjustingOfAShorterBlockAsksForTheSize)
{
    handler.selectRoom(1);
    prompt.expectYesNoCancel(kLengthsDiffer, Answer::kNo);
    prompt.expectYesNo(kCopySize, Answer::kYes);
    EXPECT_EQ(operations.cloneDataOfRoom(0), CloneResult::kWholeIntoLonger);
    EXPECT_EQ(bytes(0x8003, 6), (Bytes{0x10, 0x11, 0x12, 0x23, 0x24, 0x25}));
    EXPECT_EQ(size(1), (Bytes{3, 1}));
    EXPECT_EQ(handler.freeSpace(), 19);
}

TEST_F(LayoutOperationsTest, CloneThatCannotGrowSaysSoAndCopiesNothing)
{
    handler.setFreeSpace(2);
    handler.selectRoom(0);
    const Bytes before = image();
    prompt.expectYesNoCancel(kLengthsDiffer, Answer::kYes);
    prompt.expect("Insertion failed. (Likely not enough free space). Copying aborted.");
    EXPECT_EQ(operations.cloneDataOfRoom(1), CloneResult::kNothing);
    EXPECT_EQ(image(), before);
    EXPECT_EQ(handler.freeSpace(), 2);
}

TEST_F(LayoutOperationsTest, CloneThatCannotShrinkSaysSoAndCopiesNothing)
{
    handler.setFreeSpace(-1);
    handler.selectRoom(1);
    const Bytes before = image();
    prompt.expectYesNoCancel(kLengthsDiffer, Answer::kYes);
    prompt.expect("Deletion failed. Copying aborted.");
    EXPECT_EQ(operations.cloneDataOfRoom(0), CloneResult::kNothing);
    EXPECT_EQ(image(), before);
}

TEST_F(PaletteOperationsTest, CloneOfOverlappingBlockRunsOverItself)
{
    setPointers({0x8000, 0x8001, 0x8040});
    setBytes(0x8000, {0x11});
    handler.selectRoom(1);
    EXPECT_EQ(operations.cloneDataOfRoom(0), CloneResult::kWholeBlock);
    EXPECT_EQ(bytes(0x8000, 34)[33], 0xB0);
    EXPECT_EQ(bytes(0x8000, 33), Bytes(33, 0x11));
}

} // namespace
} // namespace velko
