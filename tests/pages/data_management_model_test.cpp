#include "pages/data_management_model.h"

#include "tests/support/scripted_prompt.h"
#include "tests/support/test_rom.h"

#include <gtest/gtest.h>

namespace velko {
namespace {

using test::Bytes;
using test::TestRom;
using Answer = test::ScriptedPrompt::Answer;

constexpr const char* kCopySize =
    "Do you want to copy Width and Height bytes as well? (Recommended, specific to Map Layout "
    "data)";

class DataManagementModelTest : public testing::Test {
protected:
    DataManagementModelTest()
    {
        game.setPalette(0, Bytes(32, 1));
        game.setPalette(3, Bytes(32, 3));
        game.setPalette(0x1A, Bytes(32, 3));
        start();
    }
    void start()
    {
        game.loadInto(state);
        state.names.rooms = {"Hill", "Cave", "Tower", "Shore"};
        state.names.rooms.resize(0x1C);
    }
    PointerArrayHandler& handler(RoomDataKind kind) { return state.store.*blockKind(kind).handler; }

    TestRom game{0x1C};
    EditorState state;
    test::ScriptedPrompt prompt;
    DataManagementModel model{state, prompt};
};

TEST_F(DataManagementModelTest, RowsAreInThePagesOrder)
{
    const auto& rows = DataManagementModel::kRows;
    EXPECT_STREQ(rows[0].caption, " Map allocation ");
    EXPECT_STREQ(rows[1].caption, " Map layout");
    EXPECT_STREQ(rows[2].caption, " 32x32 Tile data");
    EXPECT_STREQ(rows[3].caption, " Tile Allocation");
    EXPECT_STREQ(rows[4].caption, " Palette ");
    EXPECT_EQ(&handler(rows[0].kind), &state.store.pahMapAlloc);
    EXPECT_EQ(&handler(rows[1].kind), &state.store.pahMapLayout);
    EXPECT_EQ(&handler(rows[2].kind), &state.store.pahTile32);
    EXPECT_EQ(&handler(rows[3].kind), &state.store.pahTileLoad);
    EXPECT_EQ(&handler(rows[4].kind), &state.store.pahPal);
}

TEST_F(DataManagementModelTest, PointerIsHexadecimalWithoutPrefix)
{
    game.setPointer(&GameConfig::pahPal, 0, 0xA3F0);
    game.setPointer(&GameConfig::pahTile32, 0, 0x000B);
    start();
    EXPECT_EQ(model.pointerText(RoomDataKind::kPalette), "a3f0");
    EXPECT_EQ(model.pointerText(RoomDataKind::kTile32), "b");
}

TEST_F(DataManagementModelTest, FreeSpaceIsHexadecimalWithPrefix)
{
    state.store.pahPal.setFreeSpace(300);
    EXPECT_EQ(model.freeSpaceText(RoomDataKind::kPalette), "0x12c");
    state.store.pahPal.setFreeSpace(0);
    EXPECT_EQ(model.freeSpaceText(RoomDataKind::kPalette), "0x0");
    state.store.pahPal.setFreeSpace(-1);
    EXPECT_EQ(model.freeSpaceText(RoomDataKind::kPalette), "0xffffffff");
    state.store.pahPal.setFreeSpace(-256);
    EXPECT_EQ(model.freeSpaceText(RoomDataKind::kPalette), "0xffffff00");
}

TEST_F(DataManagementModelTest, RoomThatSharesWithNobodySaysSo)
{
    const DataManagementModel::Sharing sharing = model.sharing(RoomDataKind::kPalette);
    EXPECT_EQ(sharing.answer, "No");
    EXPECT_EQ(sharing.rooms, "()");
}

TEST_F(DataManagementModelTest, SharingRoomsAreListedInHexadecimal)
{
    game.setPointer(&GameConfig::pahPal, 3, 0x8000);
    game.setPointer(&GameConfig::pahPal, 0x1A, 0x8000);
    game.setPointer(&GameConfig::pahPal, 0, 0x8000);
    start();
    const DataManagementModel::Sharing sharing = model.sharing(RoomDataKind::kPalette);
    EXPECT_EQ(sharing.answer, "Yes");
    EXPECT_EQ(sharing.rooms, "(3, 1a)");
}

TEST_F(DataManagementModelTest, RoomsPastTheirNumberDoNotShare)
{
    game.setPointer(&GameConfig::pahPal, 0x1A, 0x8000);
    game.setPointer(&GameConfig::pahPal, 0, 0x8000);
    game.config.setValue(MiscField::rooms, 0x1A);
    start();
    EXPECT_EQ(model.sharing(RoomDataKind::kPalette).answer, "No");
}

TEST_F(DataManagementModelTest, TypedPointerIsSetAtOnce)
{
    model.setPointer(RoomDataKind::kPalette, 0x8);
    EXPECT_EQ(state.store.pahPal.pointerOf(0), 0x0008);
    model.setPointer(RoomDataKind::kPalette, 0x123A0F0);
    EXPECT_EQ(state.store.pahPal.pointerOf(0), 0xA0F0);
    EXPECT_NE(state.store.pahPal.pointerOf(3), 0xA0F0);
}

TEST_F(DataManagementModelTest, AllocatedBlocksHoldTheirKindsContents)
{
    for (const DataManagementModel::Row& row : DataManagementModel::kRows) {
        PointerArrayHandler& blocks = handler(row.kind);
        const Bytes expected = newBlock(row.kind, 0x8600);
        const std::int32_t freeSpace = blocks.freeSpace();
        const std::uint16_t firstFree = blocks.freeSpaceStart();
        model.allocateUniqueData(row.kind);
        EXPECT_EQ(blocks.pointerOf(), firstFree) << row.caption;
        EXPECT_EQ(blocks.freeSpace(), freeSpace - static_cast<std::int32_t>(expected.size()));
        for (std::uint32_t i = 0; i < expected.size(); ++i)
            EXPECT_EQ(blocks.dataByte(i), expected[i]) << row.caption << i;
    }
    EXPECT_EQ(state.store.pahMapAlloc.dataWord(0), 0x8600);
    EXPECT_EQ(state.store.pahMapLayout.entryByte(2), 3);
    EXPECT_EQ(state.store.pahMapLayout.entryByte(3), 1);
    EXPECT_EQ(state.store.pahTileLoad.dataByte(0), 0);
}

TEST_F(DataManagementModelTest, AllocationWithoutSpaceIsTold)
{
    state.store.pahTile32.setFreeSpace(1023);
    prompt.expect("Not enough free space. Try \"Delete unused data\" or \"Join identical data\".");
    model.allocateUniqueData(RoomDataKind::kTile32);
    EXPECT_EQ(state.store.pahTile32.freeSpace(), 1023);
}

TEST_F(DataManagementModelTest, DeletedMapLayoutLosesItsSize)
{
    game.setLayout(2, 2, 2, {0, 0, 0, 0});
    start();
    state.graphics.selectRoom(2);
    model.deleteData(RoomDataKind::kMapLayout);
    EXPECT_EQ(state.store.pahMapLayout.entryByte(2), 0);
    EXPECT_EQ(state.store.pahMapLayout.entryByte(3), 0);
}

TEST_F(DataManagementModelTest, RoomBIsTheLineChosen)
{
    model.setPointerToRoom(RoomDataKind::kPalette, 3);
    EXPECT_EQ(state.store.pahPal.pointerOf(0), state.store.pahPal.pointerOf(3));
    prompt.expect("Rooms have the same pointer! Copying is pointless!");
    model.cloneDataOfRoom(RoomDataKind::kPalette, 3);
}

TEST_F(DataManagementModelTest, NoRoomBIsTheEntryBeforeTheTable)
{
    // Entry -1 of the palette table: the last bytes of the layout table's space.
    const std::uint32_t entry = game.entryOffset(&GameConfig::pahPal, 0) - 2;
    state.rom.writeByte(entry, 0x34);
    state.rom.writeByte(entry + 1, 0xA2);
    model.setPointerToRoom(RoomDataKind::kPalette, -1);
    EXPECT_EQ(state.store.pahPal.pointerOf(0), 0xA234);
}

TEST_F(DataManagementModelTest, MapLayoutAsksForTheSize)
{
    game.setLayout(2, 1, 2, {0, 0});
    start();
    prompt.expectYesNo(kCopySize, Answer::kYes);
    model.setPointerToRoom(RoomDataKind::kMapLayout, 2);
    EXPECT_EQ(state.store.pahMapLayout.entryByte(3), 2);
}

TEST_F(DataManagementModelTest, JoiningNamesTheRooms)
{
    prompt.expect("Room \"Cave\" and Room \"Tower\" had identical data and has been joined to use "
                  "the same data.");
    game.setPalette(1, Bytes(32, 5));
    game.setPalette(2, Bytes(32, 5));
    game.setPalette(0x1A, Bytes(32, 4));
    start();
    model.joinIdenticalData(RoomDataKind::kPalette);
    EXPECT_EQ(state.store.pahPal.pointerOf(1), state.store.pahPal.pointerOf(2));
}

TEST_F(DataManagementModelTest, UnusedDataIsDeletedPerKind)
{
    prompt.expect("No unused data found between normal data.");
    model.deleteUnusedData(RoomDataKind::kTile32);
}

// The room's tiles follow its tile loading block at once.
class TileLoadRowTest : public DataManagementModelTest {
protected:
    TileLoadRowTest()
    {
        game.setBackgroundBlock(0, 1, Bytes(64, 0x11));
        game.setBackgroundBlock(0, 2, Bytes(64, 0x22));
        game.setTileLoad(0, {1});
        game.setTileLoad(2, {2});
        start();
    }
    int firstTile() const { return state.graphics.patternMemory[kPatternTable1]; }
};

TEST_F(TileLoadRowTest, SettingThePointerRebuildsTheTiles)
{
    EXPECT_EQ(firstTile(), 0x11);
    model.setPointerToRoom(RoomDataKind::kTileLoad, 2);
    EXPECT_EQ(firstTile(), 0x22);
}

TEST_F(TileLoadRowTest, TypingThePointerRebuildsTheTiles)
{
    model.setPointer(RoomDataKind::kTileLoad, state.store.pahTileLoad.pointerOf(2));
    EXPECT_EQ(firstTile(), 0x22);
}

TEST_F(TileLoadRowTest, AllocatingRebuildsTheTiles)
{
    model.allocateUniqueData(RoomDataKind::kTileLoad);
    EXPECT_EQ(firstTile(), 0); // block 0 of the bank
}

TEST_F(TileLoadRowTest, DeletingRebuildsTheTiles)
{
    model.deleteData(RoomDataKind::kTileLoad); // room 2's block followed
    EXPECT_EQ(firstTile(), 0x22);
}

TEST_F(TileLoadRowTest, CloningRebuildsTheTiles)
{
    model.cloneDataOfRoom(RoomDataKind::kTileLoad, 2);
    EXPECT_EQ(firstTile(), 0x22);
    EXPECT_NE(state.store.pahTileLoad.pointerOf(0), state.store.pahTileLoad.pointerOf(2));
}

TEST_F(TileLoadRowTest, OtherKindsLeaveTheTilesAlone)
{
    state.graphics.patternMemory[kPatternTable1] = 0x77;
    model.setPointerToRoom(RoomDataKind::kPalette, 2);
    model.allocateUniqueData(RoomDataKind::kTile32);
    EXPECT_EQ(firstTile(), 0x77);
}

TEST_F(DataManagementModelTest, ImageOfNoBytesIsSurvived)
{
    state.rom.setBytes({});
    state.prepareRoomData();
    EXPECT_EQ(model.pointerText(RoomDataKind::kMapAlloc), "5555");
    for (const DataManagementModel::Row& row : DataManagementModel::kRows) {
        model.setPointer(row.kind, 0x8000);
        EXPECT_EQ(model.sharing(row.kind).answer, "Yes");
        handler(row.kind).setFreeSpace(0);
        prompt.expect(
            "Not enough free space. Try \"Delete unused data\" or \"Join identical data\".");
        model.allocateUniqueData(row.kind);
        model.deleteData(row.kind);
        prompt.expect("Rooms have the same pointer! Copying is pointless!");
        model.cloneDataOfRoom(row.kind, 2);
        prompt.expect("No unused data found between normal data.");
        model.deleteUnusedData(row.kind);
        prompt.expect("Found no identical Rooms with different pointers.");
        model.joinIdenticalData(row.kind);
    }
}

} // namespace
} // namespace velko
