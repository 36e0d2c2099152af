#include "demo/art_library.h"
#include "demo/block_rows.h"
#include "demo/gallery.h"

#include <gtest/gtest.h>

namespace velko::demo {
namespace {

GalleryPlan oneGallery(const std::string& ceiling, const std::string& floor)
{
    return {{{ceiling, floor, "........", "........"}}, {}, 0};
}

TEST(BlockRows, EighthRowOfAScreenIsOneCellHigh)
{
    EXPECT_EQ(cellRowOfBlock(7), 14);
    EXPECT_EQ(cellRowOfBlock(8), 15);
    EXPECT_EQ(cellRowAtHeight(1, 0), 14);
    EXPECT_EQ(cellRowAtHeight(1, 1), 12);
    EXPECT_EQ(cellRowAtHeight(2, 8), 14); // the lowest row of the upper screen
}

TEST(GalleryGrid, FloorAndCeilingHaveTheirHeights)
{
    const GalleryGrid grid(1, oneGallery("21111111", "31111111"));
    EXPECT_EQ(grid.ceilingRow(0, 0), 4);
    EXPECT_EQ(grid.floorRow(0, 0), 8);
    EXPECT_EQ(grid.at(0, 3), Fill::kSolid);
    EXPECT_TRUE(grid.open(0, 4));
    EXPECT_TRUE(grid.open(1, 7));
    EXPECT_EQ(grid.at(1, 8), Fill::kSolid);
}

TEST(GalleryGrid, SlopesClimbTwoRowsPerColumn)
{
    const GalleryGrid grid(1, oneGallery("00000000", "11/22\\11"));
    EXPECT_EQ(grid.at(4, 11), Fill::kSlopeUp);
    EXPECT_EQ(grid.at(5, 10), Fill::kSlopeUp);
    EXPECT_EQ(grid.at(5, 11), Fill::kSolid);
    EXPECT_EQ(grid.at(10, 10), Fill::kSlopeDown);
    EXPECT_EQ(grid.at(11, 11), Fill::kSlopeDown);
}

TEST(GalleryGrid, PoolLiesOneRowBelowItsBank)
{
    const GalleryGrid grid(1, oneGallery("00000000", "2~~=LL22"));
    EXPECT_TRUE(grid.open(2, 10));
    EXPECT_EQ(grid.at(2, 11), Fill::kSurface);
    EXPECT_EQ(grid.at(2, 12), Fill::kLiquid);
    EXPECT_EQ(grid.at(2, 14), Fill::kSolid);
    EXPECT_EQ(grid.at(6, 10), Fill::kBridge);
    EXPECT_FALSE(grid.fiery(6));
    EXPECT_TRUE(grid.fiery(8));
}

TEST(GalleryGrid, LadderRunsFromOneFloorToTheNext)
{
    const GalleryPlan plan{{{"11111111", "111H1111", "........", "........"},
                            {"111H1111", "22222222", "........", "........"}},
                           {},
                           0};
    const GalleryGrid grid(1, plan);
    EXPECT_FALSE(grid.ladder(6, 11));
    EXPECT_TRUE(grid.ladder(6, 12));
    EXPECT_TRUE(grid.ladder(6, 24));
    EXPECT_FALSE(grid.ladder(6, 25)); // the lower floor's first row
    EXPECT_FALSE(grid.ladder(7, 12));
    EXPECT_TRUE(grid.open(7, 16));
}

TEST(GalleryGrid, WrongTextsAreRefused)
{
    EXPECT_THROW(GalleryGrid(1, oneGallery("1111", "11111111")), DemoError);
    EXPECT_THROW(GalleryGrid(1, oneGallery("11111111", "1111x111")), DemoError);
    EXPECT_THROW(GalleryGrid(1, oneGallery("1111?111", "11111111")), DemoError);
}

} // namespace
} // namespace velko::demo
