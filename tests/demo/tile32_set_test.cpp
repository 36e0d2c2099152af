#include "demo/art_library.h"
#include "demo/tile32_set.h"

#include <gtest/gtest.h>

namespace velko::demo {
namespace {

Cell& cellAt(ScreenGrid& grid, int row, int column)
{
    return grid[static_cast<std::size_t>(row * kScreenColumns + column)];
}

TEST(Tile32Set, ScreenOfOneCellNeedsOneBlock)
{
    Tile32Set set;
    EXPECT_EQ(set.pack({}), ScreenBytes{});
    EXPECT_EQ(set.size(), 1U);
}

TEST(Tile32Set, RecordHoldsColumnsOfMetatilesAndPhysicsAndRowsOfPalettes)
{
    Tile32Set set;
    ScreenGrid grid{};
    cellAt(grid, 0, 0) = {1, 1, 1};
    cellAt(grid, 0, 1) = {2, 2, 3};
    cellAt(grid, 1, 0) = {3, 3, 2};
    cellAt(grid, 1, 1) = {4, 0, 4};
    set.pack(grid);
    const Bytes bytes = set.bytes();
    ASSERT_EQ(bytes.size(), 1024U);
    EXPECT_EQ(Bytes(bytes.begin(), bytes.begin() + 7),
              (Bytes{4, 12, 8, 16, 1 | 2 << 2 | 3 << 4, 0x12, 0x34}));
}

TEST(Tile32Set, LowestRowTakesABlockWithTheSameTopHalf)
{
    Tile32Set set;
    ScreenGrid grid{};
    cellAt(grid, 0, 0) = {5, 0, 1};
    cellAt(grid, 1, 0) = {6, 0, 1}; // block 0: slot 5 above slot 6
    cellAt(grid, 14, 0) = {5, 0, 1};
    const ScreenBytes bytes = set.pack(grid);
    EXPECT_EQ(bytes[0], 0);
    EXPECT_EQ(bytes[56], 0);
    EXPECT_EQ(set.size(), 2U); // that block and the empty one
}

TEST(Tile32Set, LowestRowWantsTheSameLeftPhysicsBelow)
{
    Tile32Set set;
    ScreenGrid grid{};
    cellAt(grid, 0, 0) = {5, 0, 1};
    cellAt(grid, 1, 0) = {6, 0, 2};
    cellAt(grid, 14, 0) = {5, 0, 1};
    EXPECT_EQ(set.pack(grid)[56], 2);
    EXPECT_EQ(set.size(), 3U);
}

TEST(Tile32Set, RefusesThe147thBlock)
{
    Tile32Set set;
    ScreenGrid grid{};
    for (int i = 0; i < 145; ++i) {
        cellAt(grid, 0, 0) = {static_cast<std::uint8_t>(i % 64), static_cast<std::uint8_t>(i / 64),
                              7};
        set.pack(grid);
    }
    EXPECT_EQ(set.size(), 146U); // with the empty one
    cellAt(grid, 0, 0) = {63, 3, 7};
    EXPECT_THROW(set.pack(grid), DemoError);
}

} // namespace
} // namespace velko::demo
