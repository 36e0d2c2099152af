#include "store/block_lengths.h"

#include "tests/support/test_rom.h"

#include <gtest/gtest.h>

namespace velko {
namespace {

class BlockLengthsTest : public testing::Test {
protected:
    void load()
    {
        rom.setBytes(game.bytes);
        store.configure(game.config);
    }

    test::TestRom game;
    RomImage rom;
    RoomDataStore store{rom};
};

TEST_F(BlockLengthsTest, EmptyScreenListIsTheTerminatorOnly)
{
    game.setScreenList(1, {});
    load();
    EXPECT_EQ(mapAllocLength(store.pahMapAlloc, 1), 2U);
    EXPECT_EQ(mapAllocWords(store.pahMapAlloc, 1), 0U);
}

TEST_F(BlockLengthsTest, ScreenListCountsItsTerminator)
{
    game.setScreenList(1, {0x8600, 0x8640, 0x8680});
    load();
    EXPECT_EQ(mapAllocLength(store.pahMapAlloc, 1), 8U);
    EXPECT_EQ(mapAllocWords(store.pahMapAlloc, 1), 3U);
}

TEST_F(BlockLengthsTest, TerminatorIsOnlySoughtAtEvenOffsets)
{
    game.setScreenList(1, {0xFF86, 0x86FF}); // 86 FF FF 86 FF FF
    load();
    EXPECT_EQ(mapAllocLength(store.pahMapAlloc, 1), 6U);
}

// Banks full of zeros: no list ends. One search is bounded by the byte offset, the other by the
// number of words.
TEST_F(BlockLengthsTest, EndlessScreenListStopsAtItsBound)
{
    rom.setBytes(test::Bytes(16 + 2 * 0x4000));
    const PointerArrayHandler mapAlloc(rom, {.dBank = {0, 1}});
    EXPECT_EQ(mapAllocLength(mapAlloc, 0), 0x10002U);
    EXPECT_EQ(mapAllocWords(mapAlloc, 0), 0x10000U);
}

TEST_F(BlockLengthsTest, LayoutIsWidthTimesHeight)
{
    game.setLayout(1, 4, 3, test::Bytes(12));
    game.setStoredSize(2, 0, 9);
    game.setStoredSize(3, 255, 255);
    load();
    EXPECT_EQ(mapLayoutLength(store.pahMapLayout, 1), 18U);
    EXPECT_EQ(mapLayoutLength(store.pahMapLayout, 2), 0U);
    EXPECT_EQ(mapLayoutLength(store.pahMapLayout, 3), 65025U);
}

TEST_F(BlockLengthsTest, OtherKindsHaveOneLength)
{
    EXPECT_EQ(kPaletteLength, 32U);
    EXPECT_EQ(kTileLoadLength, 96U);
    EXPECT_EQ(kTile32Length, 1024U);
}

} // namespace
} // namespace velko
