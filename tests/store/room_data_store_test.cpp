#include "store/room_data_store.h"

#include "tests/support/test_rom.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace velko {
namespace {

using test::Bytes;
using test::TestRom;

class RoomDataStoreTest : public testing::Test {
protected:
    void computeFreeSpace()
    {
        rom.setBytes(game.bytes);
        store.configure(game.config);
        store.computeFreeSpace(game.config.value(MiscField::rooms));
    }

    TestRom game{4};
    RomImage rom;
    RoomDataStore store{rom};
};

TEST_F(RoomDataStoreTest, ConfigureHandsEachDescriptionToItsHandler)
{
    GameConfig config;
    config.pahMapAlloc.dEdge = 1;
    config.pahMapLayout.dEdge = 2;
    config.pahPal.dEdge = 3;
    config.pahTileLoad.dEdge = 4;
    config.pahTile32.dEdge = 5;
    config.pahUnit.dEdge = 6;
    config.pahTileLoadType2.dEdge = 7;
    config.pahMapAreaMovement.dEdge = 8;
    store.configure(config);
    EXPECT_EQ(store.pahMapAlloc.descriptor().dEdge, 1);
    EXPECT_EQ(store.pahMapLayout.descriptor().dEdge, 2);
    EXPECT_EQ(store.pahPal.descriptor().dEdge, 3);
    EXPECT_EQ(store.pahTileLoad.descriptor().dEdge, 4);
    EXPECT_EQ(store.pahTile32.descriptor().dEdge, 5);
    EXPECT_EQ(store.pahUnit.descriptor().dEdge, 6);
    EXPECT_EQ(store.pahTileLoadType2.descriptor().dEdge, 7);
    EXPECT_EQ(store.pahMapAreaMovement.descriptor().dEdge, 8);
}

TEST_F(RoomDataStoreTest, SelectRoomMovesTheSevenLevelHandlersOnly)
{
    store.pahMapAreaMovement.selectRoom(9);
    store.selectRoom(3);
    EXPECT_EQ(store.pahMapAlloc.currentRoom(), 3U);
    EXPECT_EQ(store.pahMapLayout.currentRoom(), 3U);
    EXPECT_EQ(store.pahPal.currentRoom(), 3U);
    EXPECT_EQ(store.pahTileLoad.currentRoom(), 3U);
    EXPECT_EQ(store.pahTile32.currentRoom(), 3U);
    EXPECT_EQ(store.pahUnit.currentRoom(), 3U);
    EXPECT_EQ(store.pahTileLoadType2.currentRoom(), 3U);
    EXPECT_EQ(store.pahMapAreaMovement.currentRoom(), 9U);
}

// The block that each handler got from the test ROM lies at the start of its region.
TEST_F(RoomDataStoreTest, FreeSpaceIsWhatTheBlocksLeave)
{
    computeFreeSpace();
    EXPECT_EQ(store.pahMapAlloc.freeSpace(), 0x1000 - 4);
    EXPECT_EQ(store.pahMapLayout.freeSpace(), 0x1000 - 3);
    EXPECT_EQ(store.pahPal.freeSpace(), 0x1000 - 32);
    EXPECT_EQ(store.pahUnit.freeSpace(), 0x800 - 1);
    // The two entries behind those of the rooms are 0 in this ROM.
    EXPECT_EQ(store.pahTileLoadType2.freeSpace(), 0x800 - 1);
    EXPECT_EQ(store.pahTileLoad.freeSpace(), 0x4000 - 96);
    EXPECT_EQ(store.pahTile32.freeSpace(), 0x4000 - 1024);
}

TEST_F(RoomDataStoreTest, AreaMovementIsLeftUncomputed)
{
    computeFreeSpace();
    EXPECT_EQ(store.pahMapAreaMovement.freeSpace(), -1);
}

TEST_F(RoomDataStoreTest, RegionThatEndsAtItsEdgeHasNoFreeSpace)
{
    game.setPointer(&GameConfig::pahPal, 2, 0xBFE0);
    game.config.pahPal.dEdge = 0xC000;
    computeFreeSpace();
    EXPECT_EQ(store.pahPal.freeSpace(), 0);
}

TEST_F(RoomDataStoreTest, BlocksBeyondTheEdgeGiveANegativeFigure)
{
    game.setPointer(&GameConfig::pahTile32, 1, 0xBFF0);
    computeFreeSpace();
    EXPECT_EQ(store.pahTile32.freeSpace(), 0x10 - 1024);
}

TEST_F(RoomDataStoreTest, LayoutsWithoutAShownCellLeaveOneMoreThanTheEdge)
{
    for (std::uint32_t room = 0; room < 4; ++room)
        game.setStoredSize(room, 2, static_cast<std::uint8_t>(room));
    computeFreeSpace();
    EXPECT_EQ(store.pahMapLayout.freeSpace(), 0xA000 + 1);
}

TEST_F(RoomDataStoreTest, MapAllocStaysAtTheLowestRoomOfTheHighestBlock)
{
    game.setScreenList(1, {0x8600, 0x8640});
    game.shareAll(3, 1);
    store.selectRoom(0);
    computeFreeSpace();
    EXPECT_EQ(store.pahMapAlloc.currentRoom(), 1U);
    EXPECT_EQ(store.pahMapAlloc.freeSpace(), 0x1000 - 4 - 6);
    EXPECT_EQ(store.pahMapLayout.currentRoom(), 0U);
    EXPECT_EQ(store.pahUnit.currentRoom(), 0U);
}

TEST_F(RoomDataStoreTest, TileLoadType2IsLookedAtTwoEntriesFurther)
{
    game.setType2Loads(4, {1, 2}); // the first entry behind the four rooms
    game.setType2Loads(5, {3});    // the second
    game.setType2Loads(6, {4, 5, 6, 7});
    computeFreeSpace();
    EXPECT_EQ(store.pahTileLoadType2.freeSpace(), 0x800 - (1 + 3 + 2));
}

TEST_F(RoomDataStoreTest, OtherTablesAreNotLookedAtBehindTheRooms)
{
    game.setPalette(4, Bytes(32));
    game.setUnits(4, {1, 2, 3, 4, 5});
    computeFreeSpace();
    EXPECT_EQ(store.pahPal.freeSpace(), 0x1000 - 32);
    EXPECT_EQ(store.pahUnit.freeSpace(), 0x800 - 1);
}

TEST_F(RoomDataStoreTest, HighestUnitListWithRecordsCountsAsTwoBytes)
{
    game.setUnits(2, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    computeFreeSpace();
    EXPECT_EQ(store.pahUnit.freeSpace(), 0x800 - 1 - 2);
}

// Without rooms the search finds pointer -1 of room 0; the ends follow from that. The units take
// room 0's real pointer, and the type-2 table has its two further entries even now.
TEST_F(RoomDataStoreTest, NoRoomsAtAllGiveTheLiteralFigures)
{
    game.config.setValue(MiscField::rooms, 0);
    store.selectRoom(2);
    computeFreeSpace();
    EXPECT_EQ(store.pahMapAlloc.currentRoom(), 0U);
    EXPECT_EQ(store.pahMapAlloc.freeSpace(), 0x9000 - (-1 + 2 * 1 + 2));
    EXPECT_EQ(store.pahMapLayout.freeSpace(), 0xA001);
    EXPECT_EQ(store.pahPal.freeSpace(), 0xB000 - 31);
    EXPECT_EQ(store.pahUnit.freeSpace(), 0x800 - 1);
    EXPECT_EQ(store.pahTileLoadType2.freeSpace(), 0x800 - 1);
    EXPECT_EQ(store.pahTileLoad.freeSpace(), 0xC000 - 95);
    EXPECT_EQ(store.pahTile32.freeSpace(), 0xC000 - 1023);
}

TEST_F(RoomDataStoreTest, AtMost256RoomsAreLookedAt)
{
    game.config.setValue(MiscField::rooms, 0xFFFFFFFF);
    game.setPointer(&GameConfig::pahPal, 255, 0xA100);
    game.setPointer(&GameConfig::pahPal, 256, 0xA200);
    computeFreeSpace();
    EXPECT_EQ(store.pahPal.freeSpace(), 0xF00 - 32);
}

TEST_F(RoomDataStoreTest, Type2TableIsLookedAtTwoEntriesPast256Rooms)
{
    game.config.setValue(MiscField::rooms, 0xFFFFFFFF);
    game.bytes.at(cpuToFileOffset(game.config.pahTileLoadType2.dBank, 0xB900)) = 0xFF;
    game.bytes.at(cpuToFileOffset(game.config.pahTileLoadType2.dBank, 0xBA00)) = 0xFF;
    game.setPointer(&GameConfig::pahTileLoadType2, 256, 0xB900);
    game.setPointer(&GameConfig::pahTileLoadType2, 258, 0xBB00);
    computeFreeSpace();
    EXPECT_EQ(store.pahTileLoadType2.freeSpace(), 0x700 - 1);

    game.setPointer(&GameConfig::pahTileLoadType2, 257, 0xBA00);
    computeFreeSpace();
    EXPECT_EQ(store.pahTileLoadType2.freeSpace(), 0x600 - 1);
}

TEST_F(RoomDataStoreTest, ImageOfNoBytesIsSurvived)
{
    game.bytes.clear();
    computeFreeSpace();
    // Every pointer reads as $5555, no list ends.
    EXPECT_EQ(store.pahPal.freeSpace(), 0xB000 - 0x5555 - 32);
    EXPECT_EQ(store.pahMapAlloc.freeSpace(), 0x9000 - 0x5555 - 0x20002);
    EXPECT_EQ(store.pahTileLoadType2.freeSpace(), 0xC000 - 0x5555 - 0x1001);
    EXPECT_EQ(store.pahMapLayout.freeSpace(), 0xA000 - 0x5555 - 0x55 * 0x55);
}

} // namespace
} // namespace velko
