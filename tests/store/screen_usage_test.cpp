#include "store/screen_usage.h"

#include "store/block_lengths.h"
#include "tests/store/random_source.h"
#include "tests/store/small_region.h"

#include <gtest/gtest.h>
#include <map>

namespace velko {
namespace {

using test::SmallRegion;
using Bytes = SmallRegion::Bytes;

class ScreenUsageTest : public testing::Test, protected SmallRegion {
protected:
    ScreenUsageTest() : SmallRegion(4, 2, 0x8100)
    {
        setBytes(0x8000, {0x00, 0x86, 0x40, 0x86, 0x40, 0x86, 0xFF, 0xFF}); // screens 0, 1, 1
        setBytes(0x8008, {0x08, 0xC8, 0xFF, 0xFF});                         // screen 264
        setPointers({0x8000, 0x8008, 0x8000, 0x8006});                      // room 3: no screens
    }

    ScreenUsage usage;
    ScreenArea area{0x8600, 272};
};

TEST_F(ScreenUsageTest, EveryEntryOfEveryRoomIsAReference)
{
    usage.compute(handler, area, 4);
    EXPECT_EQ(usage.references(0), 2U); // rooms 0 and 2 share the list
    EXPECT_EQ(usage.references(1), 4U);
    EXPECT_EQ(usage.references(2), 0U);
    EXPECT_EQ(usage.references(264), 1U);
    EXPECT_EQ(usage.references(0xFFFFFFFF), 0U);
}

TEST_F(ScreenUsageTest, RoomsPastTheirNumberAreNotLookedAt)
{
    usage.compute(handler, area, 2);
    EXPECT_EQ(usage.references(0), 1U);
    EXPECT_EQ(usage.references(1), 2U);
}

TEST_F(ScreenUsageTest, ComputingAgainForgetsTheReferencesBefore)
{
    usage.compute(handler, area, 4);
    usage.compute(handler, area, 1);
    EXPECT_EQ(usage.references(264), 0U);
    EXPECT_EQ(usage.mark(0), 0U);
}

TEST_F(ScreenUsageTest, RoomsWithTheSameListAreMarkedWithOneAnother)
{
    usage.compute(handler, area, 4);
    EXPECT_EQ(usage.mark(0), 0x1002U);
    EXPECT_EQ(usage.mark(1), 0U);
    EXPECT_EQ(usage.mark(2), 0x1000U);
    EXPECT_EQ(usage.mark(3), 0U);
    EXPECT_EQ(usage.mark(400), 0U);
}

TEST_F(ScreenUsageTest, OfSeveralSharersTheHighestIsTheMark)
{
    setPointers({0x8000, 0x8000, 0x8008, 0x8000});
    usage.compute(handler, area, 4);
    EXPECT_EQ(usage.mark(0), 0x1003U);
    EXPECT_EQ(usage.mark(1), 0x1003U);
    EXPECT_EQ(usage.mark(3), 0x1001U);
}

TEST_F(ScreenUsageTest, FirstUnusedIsTheLowestScreenWithoutReferences)
{
    usage.compute(handler, area, 4);
    EXPECT_EQ(usage.firstUnused(), 2U);
}

TEST_F(ScreenUsageTest, NoScreenIsUnusedWhenAllAreReferredTo)
{
    area.count = 2;
    usage.compute(handler, area, 4);
    EXPECT_EQ(usage.firstUnused(), std::nullopt);
    area.count = 0;
    usage.compute(handler, area, 4);
    EXPECT_EQ(usage.firstUnused(), std::nullopt);
}

TEST_F(ScreenUsageTest, AddressesBeyondTheAreaAreCountedAtTheirOwnIndex)
{
    setBytes(0x8008, {0xFE, 0xFF, 0x00, 0x00, 0xFF, 0xFF});
    usage.compute(handler, area, 2);
    EXPECT_EQ(usage.references(487), 1U); // $FFFE
    EXPECT_EQ(usage.references(0), 2U);   // $0000 lies below the area
}

// All 256 rooms have lists without an end, each of 65536 entries. Walked one by one they would be
// 16.7 million.
TEST_F(ScreenUsageTest, EndlessListsOfAllRoomsAreCounted)
{
    rom.setBytes(Bytes(16 + 3 * 0x4000)); // zeros: screen 0
    usage.compute(handler, area, 256);
    EXPECT_EQ(usage.references(0), 256U * 0x10000);
    EXPECT_EQ(usage.firstUnused(), 1U);
    EXPECT_EQ(usage.mark(7), 0x10FFU);
}

TEST_F(ScreenUsageTest, AtMost256RoomsAreLookedAt)
{
    usage.compute(handler, area, 0xFFFFFFFF);
    EXPECT_EQ(usage.mark(256), 0U);
}

TEST_F(ScreenUsageTest, ImageOfNoBytesIsSurvived)
{
    rom.setBytes({});
    usage.compute(handler, area, 256); // every word reads $5555, below the area
    EXPECT_EQ(usage.references(0), 256U * 0x10000);
}

// Lists of every length at every place, also around the end of the window: the same counts as
// walking each.
TEST(ScreenUsageProperty, CountsWhatWalkingTheListsCounts)
{
    for (std::uint32_t seed = 0; seed < 12; ++seed) {
        test::RandomSource random(seed);
        SmallRegion region(12, 2, 0x8100);
        region.handler.setDescriptor({.dBank = {static_cast<std::uint8_t>(1 + seed % 3), 2},
                                      .pMemStart = 0x8000,
                                      .pMemEdge = 0x8018});
        // A terminator here and there; from none at all to one in every few words.
        for (std::uint32_t i = 0; i < seed * seed * 10; ++i) {
            const auto address = static_cast<std::uint16_t>(random.below(0x10000));
            region.setBytes(address, {0xFF, 0xFF});
        }
        for (std::uint32_t room = 0; room < 12; ++room)
            region.handler.setPointer(room, static_cast<std::uint16_t>(random.below(0x10000)));

        const ScreenArea area{0x8600, 272};
        std::map<std::uint32_t, std::uint32_t> expected;
        for (std::uint32_t room = 0; room < 12; ++room) {
            const std::uint32_t words = mapAllocWords(region.handler, room);
            for (std::uint32_t i = 0; i < words; ++i)
                ++expected[area.indexOf(region.handler.dataWord(2 * i, room))];
        }
        ScreenUsage usage;
        usage.compute(region.handler, area, 12);
        for (std::uint32_t index = 0; index < 1024; ++index)
            ASSERT_EQ(usage.references(index), expected[index]) << "seed " << seed;
    }
}

} // namespace
} // namespace velko
