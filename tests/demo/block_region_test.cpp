#include "demo/art_library.h"
#include "demo/block_region.h"

#include <gtest/gtest.h>

namespace velko::demo {
namespace {

// A table of three entries at $8000 of bank 1, data from $BFFC on: its end lies in bank 2.
constexpr RegionPlan kPlan{"pahTest", 1, 0x8000, 3, 4, {1, 2}, 0xBFFC, 0xC080};

TEST(BlockRegion, EqualBlocksAreStoredOnceUnlessACopyIsAskedFor)
{
    BlockRegion region(kPlan);
    region.place(0, {1, 2, 3});
    region.place(1, {1, 2, 3});
    region.placeCopy(2, {1, 2, 3});
    EXPECT_EQ(region.pointerOf(0), 0xBFFC);
    EXPECT_EQ(region.pointerOf(1), 0xBFFC);
    EXPECT_EQ(region.pointerOf(2), 0xBFFF);
}

TEST(BlockRegion, OrphansTakeTheirPlaceBetweenBlocks)
{
    BlockRegion region(kPlan);
    region.place(0, {1});
    region.addOrphan({9, 9});
    region.place(1, {2});
    region.share(2, 0);
    EXPECT_EQ(region.pointerOf(1), 0xBFFF);
    EXPECT_EQ(region.pointerOf(2), 0xBFFC);
}

TEST(BlockRegion, WritesTableAndBlocksAcrossTheBanks)
{
    BlockRegion region(kPlan);
    region.place(0, {1, 2, 3, 4, 5});
    region.place(1, {6});
    region.share(2, 1);
    region.setParameters(1, 7, 8);
    Bytes prg(3 * kBankBytes, 0xFF);
    region.write(prg);
    EXPECT_EQ(Bytes(prg.begin() + 0x4000, prg.begin() + 0x400C),
              (Bytes{0xFC, 0xBF, 0, 0, 0x01, 0xC0, 7, 8, 0x01, 0xC0, 0, 0}));
    EXPECT_EQ(prg[0x7FFF], 4); // the last byte of bank 1
    EXPECT_EQ(prg[0x8000], 5);
    EXPECT_EQ(prg[0x8001], 6);
    EXPECT_EQ(prg[0x8002], 0);    // free
    EXPECT_EQ(prg[0x807F], 0);    // up to the edge
    EXPECT_EQ(prg[0x8080], 0xFF); // not ours
}

TEST(BlockRegion, LeavesAtLeast64BytesFree)
{
    Bytes prg(3 * kBankBytes);
    BlockRegion region(kPlan); // 132 bytes in all
    region.place(0, Bytes(68));
    region.share(1, 0);
    region.share(2, 0);
    EXPECT_NO_THROW(region.write(prg));
    region.addOrphan({1});
    EXPECT_THROW(region.write(prg), DemoError);
}

TEST(BlockRegion, EntryWithoutABlockIsRefused)
{
    BlockRegion region(kPlan);
    region.place(0, {1});
    Bytes prg(3 * kBankBytes);
    EXPECT_THROW(region.write(prg), DemoError);
}

} // namespace
} // namespace velko::demo
