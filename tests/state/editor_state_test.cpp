#include "state/editor_state.h"

#include "tests/support/test_rom.h"

#include <gtest/gtest.h>

namespace velko {
namespace {

TEST(EditorState, StartsInRoomZeroWithoutARom)
{
    const EditorState state;
    EXPECT_EQ(state.currentRoom(), 0);
    EXPECT_EQ(state.rom.size(), 0U);
    EXPECT_EQ(state.store.pahPal.freeSpace(), -1);
    EXPECT_EQ(state.names.units[0], "");
    EXPECT_TRUE(state.names.rooms.empty());
}

TEST(EditorState, PreparingComputesTheFreeSpaceAndSelectsTheCurrentRoom)
{
    test::TestRom game(4);
    game.setPalette(2, test::Bytes(32, 5));
    EditorState state;
    game.loadInto(state);
    state.graphics.selectRoom(3);
    state.store.pahPal.setFreeSpace(-1);
    state.store.pahPal.selectRoom(0);

    state.prepareRoomData();
    // Two palettes of 32 bytes from $A000 on; the region ends at $B000.
    EXPECT_EQ(state.store.pahPal.freeSpace(), 0x1000 - 64);
    EXPECT_EQ(state.currentRoom(), 3);
    for (const PointerArrayHandler* handler : state.store.levelHandlers())
        EXPECT_EQ(handler->currentRoom(), 3U);
}

TEST(EditorState, PreparingRestoresTheRoomThatTheFreeSpaceMoved)
{
    test::TestRom game(4);
    game.setScreenList(2, {0x8600, 0x8600}); // now the highest list
    EditorState state;
    game.loadInto(state);
    state.prepareRoomData();
    EXPECT_EQ(state.store.pahMapAlloc.currentRoom(), 0U);
}

TEST(EditorState, PreparingPointsAtTheShownRoomsListAndNotAtTheHighest)
{
    test::TestRom game(4);
    const std::uint16_t shown = game.setScreenList(1, {0x8600});
    const std::uint16_t highest = game.setScreenList(3, {0x8600, 0x8600});
    ASSERT_LT(shown, highest);
    EditorState state;
    game.loadInto(state);
    state.graphics.selectRoom(1);
    state.store.computeFreeSpace(4);
    ASSERT_EQ(state.store.pahMapAlloc.currentRoom(), 3U);

    state.prepareRoomData();
    EXPECT_EQ(state.store.pahMapAlloc.currentRoom(), 1U);
    EXPECT_EQ(state.store.pahMapAlloc.pointerOf(), shown);
}

TEST(EditorState, PreparingBuildsThePatternMemory)
{
    test::TestRom game(1);
    game.setBackgroundBlock(0, 0, test::Bytes(64, 0xA7));
    EditorState state;
    game.loadInto(state);
    state.graphics.patternMemory.fill(0);
    state.prepareRoomData();
    EXPECT_EQ(state.graphics.patternMemory[kPatternTable1], 0xA7);
}

TEST(EditorState, PreparingWithoutAConfigurationOrARomIsHarmless)
{
    EditorState state;
    state.prepareRoomData();
    EXPECT_EQ(state.currentRoom(), 0);
    state.rom.setBytes({0});
    state.prepareRoomData();
    EXPECT_EQ(state.currentRoom(), 0);
}

} // namespace
} // namespace velko
