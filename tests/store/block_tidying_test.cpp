#include "tests/store/block_operations_fixture.h"

namespace velko {
namespace {

using test::LayoutOperationsTest;
using test::PaletteOperationsTest;
using test::SmallRegion;
using Bytes = SmallRegion::Bytes;
using Pointers = SmallRegion::Pointers;

constexpr const char* kNothingUnused = "No unused data found between normal data.";
constexpr const char* kNothingIdentical = "Found no identical Rooms with different pointers.";

// Deleting unused data.

TEST_F(LayoutOperationsTest, NoGapsAreReported)
{
    const Bytes before = image();
    prompt.expect(kNothingUnused);
    operations.deleteUnusedData();
    EXPECT_EQ(image(), before);
    EXPECT_EQ(handler.freeSpace(), 19);
}

TEST_F(LayoutOperationsTest, GapsAreClosedAndReported)
{
    // Room 0's block shrinks to two bytes, room 1's to four.
    setSize(0, 2, 1);
    setSize(1, 2, 2);
    setSize(3, 2, 2);
    prompt.expect("3 (0x3) bytes removed in 2 chunks.");
    operations.deleteUnusedData();
    EXPECT_EQ(bytes(0x8000, 11),
              (Bytes{0x10, 0x11, 0x20, 0x21, 0x22, 0x23, 0x30, 0x31, 0x32, 0x33, 0}));
    EXPECT_EQ(pointers(), (Pointers{0x8000, 0x8002, 0x8006, 0x8002}));
    EXPECT_EQ(handler.freeSpace(), 22);
}

TEST_F(LayoutOperationsTest, BytesBelowTheLowestAndAboveTheHighestBlockStay)
{
    setPointers({0x8003, 0x8003, 0x8003, 0x8003});
    for (std::uint32_t room = 0; room < 4; ++room)
        setSize(room, 3, 2);
    const Bytes before = image();
    prompt.expect(kNothingUnused);
    operations.deleteUnusedData();
    EXPECT_EQ(image(), before);
}

TEST_F(PaletteOperationsTest, TotalIsToldInBothNumberSystems)
{
    SmallRegion large(3, 2, 0x8400);
    large.setPointers({0x8000, 0x8020 + 0x100, 0x8020 + 0x100 + 0x20 + 44});
    large.handler.setFreeSpace(0x400 - 0x20 - 0x100 - 0x20 - 44 - 0x20);
    BlockOperations largeOperations(large.handler, blockKind(RoomDataKind::kPalette), prompt);
    prompt.expect("300 (0x12c) bytes removed in 2 chunks.");
    largeOperations.deleteUnusedData();
    EXPECT_EQ(large.pointers(), (Pointers{0x8000, 0x8020, 0x8040}));
    EXPECT_EQ(large.handler.freeSpace(), 0x3A0);
}

// The report counts what was found, even where nothing could be removed.
TEST_F(LayoutOperationsTest, UnknownFreeSpaceFindsGapsAndKeepsThem)
{
    setSize(0, 2, 1);
    handler.setFreeSpace(-1);
    const Bytes before = image();
    prompt.expect("1 (0x1) bytes removed in 1 chunks.");
    operations.deleteUnusedData();
    EXPECT_EQ(image(), before);
}

// Entries behind the rooms' are blocks like any other.
TEST_F(LayoutOperationsTest, EveryEntryOfTheTableKeepsItsBlock)
{
    setSize(0, 2, 1);
    setPointers({0x8000, 0x8003, 0x8009, 0x8002});
    setSize(3, 1, 1);
    const Bytes before = image();
    prompt.expect(kNothingUnused);
    operations.deleteUnusedData();
    EXPECT_EQ(image(), before);
}

// Joining.

const std::vector<std::string> kNames = {"Hill", "Cave", "Tower"};

TEST_F(PaletteOperationsTest, IdenticalBlocksAreJoined)
{
    setBytes(0x8040, Bytes(32, 0xA0));
    prompt.expect("Room \"Hill\" and Room \"Tower\" had identical data and has been joined to use "
                  "the same data.");
    operations.joinIdenticalData(kNames);
    EXPECT_EQ(pointers(), (Pointers{0x8000, 0x8020, 0x8000}));
    EXPECT_EQ(bytes(0x8040, 32), Bytes(32));
    EXPECT_EQ(handler.freeSpace(), 64);
}

TEST_F(PaletteOperationsTest, NothingIdenticalIsReported)
{
    setBytes(0x805F, {0xC1});
    setBytes(0x8000, Bytes(32, 0xC0)); // all but the last byte
    const Bytes before = image();
    prompt.expect(kNothingIdentical);
    operations.joinIdenticalData(kNames);
    EXPECT_EQ(image(), before);
}

TEST_F(PaletteOperationsTest, SharedBlockIsNotJoinedWithItself)
{
    setPointers({0x8000, 0x8020, 0x8000});
    prompt.expect(kNothingIdentical);
    operations.joinIdenticalData(kNames);
}

// The joined block lies below the one that is kept, which moves down with its pointer.
TEST_F(PaletteOperationsTest, KeptBlockMayMove)
{
    setPointers({0x8040, 0x8020, 0x8000});
    setBytes(0x8000, Bytes(32, 0xC0));
    prompt.expect("Room \"Hill\" and Room \"Tower\" had identical data and has been joined to use "
                  "the same data.");
    operations.joinIdenticalData(kNames);
    EXPECT_EQ(pointers(), (Pointers{0x8020, 0x8000, 0x8020}));
    EXPECT_EQ(bytes(0x8000, 32), Bytes(32, 0xB0));
    EXPECT_EQ(bytes(0x8020, 32), Bytes(32, 0xC0));
    EXPECT_EQ(handler.freeSpace(), 64);
}

TEST_F(PaletteOperationsTest, NamesPastTheListAreEmpty)
{
    setBytes(0x8040, Bytes(32, 0xA0));
    prompt.expect(
        "Room \"\" and Room \"\" had identical data and has been joined to use the same data.");
    operations.joinIdenticalData({});
}

TEST(JoinIdenticalData, RoomsThatSharedTheJoinedBlockFollow)
{
    SmallRegion region(8, 2, 0x8200);
    for (std::uint16_t block = 0; block < 7; ++block)
        region.setBytes(static_cast<std::uint16_t>(0x8000 + 32 * block),
                        Bytes(32, static_cast<std::uint8_t>(block)));
    region.setBytes(0x80A0, Bytes(32, 2)); // room 5's equals room 2's
    region.setPointers({0x8000, 0x8020, 0x8040, 0x8060, 0x8080, 0x80A0, 0x80C0, 0x80A0});
    region.handler.setFreeSpace(0x120);
    const std::vector<std::string> names = {"0", "1", "2", "3", "4", "5", "6", "7"};
    test::ScriptedPrompt prompt;
    prompt.expect(
        "Room \"2\" and Room \"5\" had identical data and has been joined to use the same data.");
    BlockOperations(region.handler, blockKind(RoomDataKind::kPalette), prompt)
        .joinIdenticalData(names);
    EXPECT_EQ(region.pointers(),
              (Pointers{0x8000, 0x8020, 0x8040, 0x8060, 0x8080, 0x8040, 0x80A0, 0x8040}));
    EXPECT_EQ(region.bytes(0x80A0, 32), Bytes(32, 6)); // room 6's, which lay behind
    EXPECT_EQ(region.handler.freeSpace(), 0x140);
}

TEST_F(LayoutOperationsTest, BlocksOfEqualBytesAndOtherLengthAreNotJoined)
{
    setBytes(0x8003, {0x10, 0x11, 0x12});
    prompt.expect(kNothingIdentical);
    operations.joinIdenticalData(kNames);
}

TEST_F(LayoutOperationsTest, RoomsWithoutABlockAreNotJoined)
{
    setSize(0, 0, 0);
    setSize(2, 0, 1);
    prompt.expect(kNothingIdentical);
    operations.joinIdenticalData(kNames);
}

// One message for each pair, in the order of joining; sizes are no part of the data.
TEST_F(LayoutOperationsTest, EachPairIsReported)
{
    setBytes(0x8003, {0x10, 0x11, 0x12});
    setSize(1, 3, 1);
    setSize(3, 3, 1);
    setBytes(0x8009, {0x10, 0x11, 0x12});
    setSize(2, 1, 3);
    prompt.expect("Room \"Hill\" and Room \"Cave\" had identical data and has been joined to use "
                  "the same data.");
    prompt.expect("Room \"Hill\" and Room \"Tower\" had identical data and has been joined to use "
                  "the same data.");
    operations.joinIdenticalData(kNames);
    EXPECT_EQ(pointers(), (Pointers{0x8000, 0x8000, 0x8000, 0x8000}));
    EXPECT_EQ(size(2), (Bytes{1, 3}));
    // What no room's block held stays behind.
    EXPECT_EQ(bytes(0x8000, 7), (Bytes{0x10, 0x11, 0x12, 0x23, 0x24, 0x25, 0x33}));
}

// Lists are measured again after each join: the third one lies elsewhere by then.
TEST(JoinIdenticalData, ListsAreFoundWhereJoiningMovedThem)
{
    SmallRegion region(4, 2, 0x8020);
    region.setBytes(0x8000, {0x00, 0x86, 0x40, 0x86, 0xFF, 0xFF, 0x00, 0x86, 0x40, 0x86,
                             0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x86, 0x40, 0x86, 0xFF, 0xFF});
    region.setPointers({0x8000, 0x8006, 0x800C, 0x800E}); // room 2 has no screens
    region.handler.setFreeSpace(12);
    test::ScriptedPrompt prompt;
    prompt.expect(
        "Room \"a\" and Room \"b\" had identical data and has been joined to use the same data.");
    prompt.expect(
        "Room \"a\" and Room \"d\" had identical data and has been joined to use the same data.");
    const std::vector<std::string> names = {"a", "b", "c", "d"};
    BlockOperations(region.handler, blockKind(RoomDataKind::kMapAlloc), prompt)
        .joinIdenticalData(names);
    EXPECT_EQ(region.pointers(), (Pointers{0x8000, 0x8000, 0x8006, 0x8000}));
    EXPECT_EQ(region.bytes(0x8000, 9), (Bytes{0x00, 0x86, 0x40, 0x86, 0xFF, 0xFF, 0xFF, 0xFF, 0}));
}

// A damaged game: no list of 256 rooms ends, each pair has tens of thousands of bytes in common.
TEST(DamagedScreenLists, TidyingListsWithoutAnEndIsQuick)
{
    SmallRegion region(256, 2, 0xBFFF);
    region.rom.setBytes(Bytes(16 + 3 * 0x4000));
    region.rom.writeByte(region.handler.dataFileOffset(0xB000), 1); // so that no two are identical
    region.rom.writeByte(region.handler.dataFileOffset(0xB001), 1);
    for (std::uint32_t room = 0; room < 256; ++room)
        region.handler.setPointer(room, static_cast<std::uint16_t>(0x8000 + 2 * room));
    region.handler.setFreeSpace(0x1000);
    const Bytes before = region.image();
    test::ScriptedPrompt prompt;
    BlockOperations operations(region.handler, blockKind(RoomDataKind::kMapAlloc), prompt);
    prompt.expect(kNothingIdentical);
    operations.joinIdenticalData({});
    prompt.expect(kNothingUnused); // two bytes behind each start, where its list ends, is the next
    operations.deleteUnusedData();
    EXPECT_EQ(region.image(), before);
}

} // namespace
} // namespace velko
