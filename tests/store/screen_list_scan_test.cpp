#include "store/screen_list_scan.h"

#include "store/block_lengths.h"
#include "tests/store/random_source.h"
#include "tests/store/small_region.h"

#include <gtest/gtest.h>

namespace velko {
namespace {

using test::SmallRegion;

TEST(ScreenListScan, ListIsMeasuredFromAnyOfItsWords)
{
    SmallRegion region(1, 2, 0x8100);
    region.setBytes(0x8010, {0x00, 0x86, 0x40, 0x86, 0xFF, 0xFF});
    const ScreenListScan scan(region.handler);
    EXPECT_EQ(scan.words(0x8010), 2U);
    EXPECT_EQ(scan.length(0x8010), 6U);
    EXPECT_EQ(scan.words(0x8014), 0U);
    EXPECT_EQ(scan.length(0x8014), 2U);
    EXPECT_EQ(scan.word(0x8010, 1), 0x8640);
    EXPECT_EQ(scan.words(0x0010), 2U); // the lower half of the addresses maps like the upper
}

TEST(ScreenListScan, ListMayRunOnFromTheEndOfTheWindow)
{
    SmallRegion region(1, 2, 0x8100);
    region.setBytes(0x8004, {0xFF, 0xFF});
    const ScreenListScan scan(region.handler);
    EXPECT_EQ(scan.words(0xFFFE), 3U);
    EXPECT_EQ(scan.words(0x8006), 0x3FFFU); // all the way around, to the word before it
}

TEST(ScreenListScan, EndlessListsStopAtTheirBounds)
{
    SmallRegion region(1, 2, 0x8100);
    region.setBytes(0x8004, {0xFF, 0xFF});
    const ScreenListScan scan(region.handler);
    EXPECT_EQ(scan.words(0x8001), 0x10000U);
    EXPECT_EQ(scan.length(0x8001), 0x10002U);
}

TEST(ScreenListScan, RefreshReadsTheImageAgain)
{
    SmallRegion region(1, 2, 0x8100);
    ScreenListScan scan(region.handler);
    region.setBytes(0x8004, {0xFF, 0xFF});
    EXPECT_EQ(scan.words(0x8000), 0x10000U);
    scan.refresh();
    EXPECT_EQ(scan.words(0x8000), 2U);
}

TEST(ScreenListScan, AgreesWithWalkingTheListFromEveryAddress)
{
    test::RandomSource random(7);
    SmallRegion region(1, 2, 0x8100);
    region.handler.setDescriptor({.dBank = {2, 1}, .pMemStart = 0x8000, .pMemEdge = 0x8002});
    for (int i = 0; i < 300; ++i)
        region.setBytes(static_cast<std::uint16_t>(random.below(0x10000)), {0xFF, 0xFF});
    const ScreenListScan scan(region.handler);
    for (std::uint32_t address = 0; address < 0x10000; address += 7) {
        region.handler.setPointer(0, static_cast<std::uint16_t>(address));
        ASSERT_EQ(scan.words(static_cast<std::uint16_t>(address)),
                  mapAllocWords(region.handler, 0));
        ASSERT_EQ(scan.length(static_cast<std::uint16_t>(address)),
                  mapAllocLength(region.handler, 0));
    }
}

} // namespace
} // namespace velko
