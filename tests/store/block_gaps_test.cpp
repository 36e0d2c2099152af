#include "store/block_gaps.h"

#include "store/block_operations.h"
#include "tests/store/small_region.h"
#include "tests/support/scripted_prompt.h"

#include <gtest/gtest.h>

namespace velko {
namespace {

using test::SmallRegion;
using Pointers = SmallRegion::Pointers;

// Layouts in a region from $8000 to $80FF. Sizes are given as width x 1.
class BlockGapsTest : public testing::Test, protected SmallRegion {
protected:
    BlockGapsTest() : SmallRegion(3, 4, 0x8100) { }

    struct Block {
        std::uint16_t pointer;
        std::uint8_t length;
    };
    BlockGap gapBehind(std::uint32_t room, const std::vector<Block>& blocks)
    {
        for (std::uint32_t i = 0; i < blocks.size(); ++i) {
            handler.setPointer(i, blocks[i].pointer);
            setSize(i, blocks[i].length, 1);
        }
        return BlockMap(handler, blockKind(RoomDataKind::kMapLayout)).gapBehind(room);
    }
};

TEST_F(BlockGapsTest, GapReachesFromTheBlocksEndToTheNextBlock)
{
    const BlockGap gap = gapBehind(0, {{0x8000, 4}, {0x8040, 4}, {0x8010, 4}});
    EXPECT_EQ(gap.start, 0x8004);
    EXPECT_EQ(gap.length, 12U);
}

TEST_F(BlockGapsTest, NextBlockIsSoughtInEntriesBeforeAndAfter)
{
    const BlockGap gap = gapBehind(2, {{0x8010, 4}, {0x8020, 4}, {0x8000, 4}});
    EXPECT_EQ(gap.start, 0x8004);
    EXPECT_EQ(gap.length, 12U);
}

TEST_F(BlockGapsTest, NoGapWhereABlockFollowsAtOnce)
{
    EXPECT_EQ(gapBehind(0, {{0x8000, 4}, {0x8004, 4}, {0x8010, 4}}).length, 0U);
}

TEST_F(BlockGapsTest, RoomWithoutABlockStillHoldsItsPlace)
{
    EXPECT_EQ(gapBehind(0, {{0x8000, 4}, {0x8004, 0}, {0x8010, 4}}).length, 0U);
    EXPECT_EQ(gapBehind(0, {{0x8000, 4}, {0x8008, 0}, {0x8010, 4}}).length, 4U);
}

TEST_F(BlockGapsTest, RoomWithoutABlockHasNoGapBehindIt)
{
    EXPECT_EQ(gapBehind(0, {{0x8000, 0}, {0x8008, 4}, {0x8010, 4}}).length, 0U);
}

TEST_F(BlockGapsTest, NoGapAboveTheHighestBlock)
{
    EXPECT_EQ(gapBehind(1, {{0x8000, 4}, {0x8040, 4}, {0x8010, 4}}).length, 0U);
}

TEST_F(BlockGapsTest, NoGapInsideALongerBlock)
{
    EXPECT_EQ(gapBehind(0, {{0x8004, 4}, {0x8000, 9}, {0x8040, 4}}).length, 0U);
    EXPECT_EQ(gapBehind(0, {{0x8004, 4}, {0x8004, 5}, {0x8040, 4}}).length, 0U);
    // Up to the end of the shorter one there is no byte more.
    EXPECT_EQ(gapBehind(0, {{0x8004, 4}, {0x8000, 8}, {0x8040, 4}}).length, 0x38U);
}

// A block that starts inside this one and reaches further is not recognised as holding its end:
// the gap starts inside that block.
TEST_F(BlockGapsTest, BlockThatOnlyOverlapsDoesNotCloseTheGap)
{
    const BlockGap gap = gapBehind(0, {{0x8000, 4}, {0x8002, 9}, {0x8040, 4}});
    EXPECT_EQ(gap.start, 0x8004);
    EXPECT_EQ(gap.length, 0x3CU);
}

TEST_F(BlockGapsTest, NoGapAtOrAboveTheRegionsEdge)
{
    EXPECT_EQ(gapBehind(0, {{0x80FC, 4}, {0x8110, 4}, {0x8110, 4}}).length, 0U);
    EXPECT_EQ(gapBehind(0, {{0x80FB, 4}, {0x8110, 4}, {0x8110, 4}}).length, 0x11U);
}

TEST_F(BlockGapsTest, EndOfABlockWrapsAt65536)
{
    const BlockGap gap = gapBehind(0, {{0xFFFE, 4}, {0xFFFF, 1}, {0xFFFF, 0}});
    EXPECT_EQ(gap.start, 0x0002);
    EXPECT_EQ(gap.length, 0xFFFDU);
    // Its own start, above its end, is no other block's.
    EXPECT_EQ(gapBehind(0, {{0xFFFE, 4}, {0x0001, 0}, {0x0000, 0}}).length, 0U);
    // Any block that starts lower and ends above the wrapped end counts as holding it.
    EXPECT_EQ(gapBehind(0, {{0xFFFE, 4}, {0x8000, 4}, {0xFFFF, 1}}).length, 0U);
    EXPECT_EQ(gapBehind(0, {{0xFFFE, 4}, {0x0003, 0}, {0xFFFF, 1}}).length, 0U);
}

TEST_F(BlockGapsTest, RebuiltMapKnowsTheTableAsItIsNow)
{
    gapBehind(0, {{0x8000, 4}, {0x8040, 4}, {0x8010, 4}});
    BlockMap map(handler, blockKind(RoomDataKind::kMapLayout));
    setPointers({0x8050, 0x8040, 0x8010});
    setSize(2, 7, 1);
    map.rebuild();
    EXPECT_EQ(map.gapBehind(2).start, 0x8017);
    EXPECT_EQ(map.gapBehind(2).length, 0x29U);
    EXPECT_EQ(map.gapBehind(1).length, 12U);
    EXPECT_EQ(map.gapBehind(0).length, 0U);
}

// The gap that is found in overlapping data holds part of a block: room 1 loses its last seven
// bytes, and what it reads there now is room 2's block.
TEST_F(BlockGapsTest, ClosingAGapInOverlappingDataCutsTheOverlappingBlock)
{
    setBytes(0x8000, {0x10, 0x11, 0x12, 0x13, 0x14, 0x15, 0x16, 0x17, 0x18, 0x19, 0x1A});
    setBytes(0x8020, {0x20, 0x21, 0x22, 0x23, 0x24, 0x25, 0x26, 0x27});
    setPointers({0x8000, 0x8002, 0x8020});
    setSize(0, 4, 1);
    setSize(1, 9, 1);
    setSize(2, 8, 1);
    handler.setFreeSpace(0xD8);
    test::ScriptedPrompt prompt;
    prompt.expect("28 (0x1c) bytes removed in 1 chunks.");
    BlockOperations(handler, blockKind(RoomDataKind::kMapLayout), prompt).deleteUnusedData();
    EXPECT_EQ(pointers(), (Pointers{0x8000, 0x8002, 0x8004}));
    EXPECT_EQ(bytes(0x8002, 9), (Bytes{0x12, 0x13, 0x20, 0x21, 0x22, 0x23, 0x24, 0x25, 0x26}));
    EXPECT_EQ(handler.freeSpace(), 0xF4);
}

} // namespace
} // namespace velko
