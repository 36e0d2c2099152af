#include "pages/tile32_packing.h"

#include "tests/pages/linear_packer.h"
#include "tests/pages/random_screens.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace velko::test {
namespace {

void setCell(ScreenMap16& screen, std::size_t row, std::size_t column, const MetatileCell& cell)
{
    screen.metatile[row * 16 + column] = cell.metatile;
    screen.palette[row * 16 + column] = cell.palette;
    screen.physics[row * 16 + column] = cell.physics;
}

// A screen of zeros but for the four cells at the top left.
ScreenMap16 screenWithGroup(const MetatileCell& topLeft, const MetatileCell& topRight,
                            const MetatileCell& bottomLeft, const MetatileCell& bottomRight)
{
    ScreenMap16 screen;
    setCell(screen, 0, 0, topLeft);
    setCell(screen, 0, 1, topRight);
    setCell(screen, 1, 0, bottomLeft);
    setCell(screen, 1, 1, bottomRight);
    return screen;
}

// A screen of zeros but for two cells at the left of the last row.
ScreenMap16 screenWithLastRow(const MetatileCell& left, const MetatileCell& right)
{
    ScreenMap16 screen;
    setCell(screen, 14, 0, left);
    setCell(screen, 14, 1, right);
    return screen;
}

constexpr MetatileCell kA = {4, 1, 7};
constexpr MetatileCell kB = {8, 2, 9};
constexpr MetatileCell kC = {12, 3, 7}; // the physics of kA
constexpr std::size_t kLastRowStart = 56;

// Groups

TEST(Tile32Group, RecordKeepsMetatilesByColumnsAndPalettesByRows)
{
    const Tile32Group group = Tile32Group::of({1, 0, 5}, {2, 1, 6}, {3, 2, 7}, {4, 3, 8});
    EXPECT_EQ(group.record().bytes,
              (std::array<std::uint8_t, 7>{1, 3, 2, 4, 0b11100100, 0x57, 0x68}));
}

TEST(Tile32Group, CellsComeBack)
{
    const Tile32Group group =
        Tile32Group::of({255, 3, 15}, {254, 2, 14}, {253, 1, 13}, {252, 0, 12});
    EXPECT_EQ(group.cell(0, 1).metatile, 254);
    EXPECT_EQ(group.cell(0, 1).palette, 2);
    EXPECT_EQ(group.cell(0, 1).physics, 14);
    EXPECT_EQ(group.cell(0, 0).metatile, 255);
    EXPECT_EQ(group.cell(1, 0).physics, 13);
    EXPECT_EQ(group.cell(1, 1).metatile, 252);
    EXPECT_EQ(group.cell(1, 1).palette, 0);
}

TEST(Tile32Group, LastRowStandsForBothOfItsRows)
{
    EXPECT_EQ(groupOf(screenWithLastRow(kA, kB), 7, 0), Tile32Group::of(kA, kB, kA, kB));
    EXPECT_EQ(groupsOf(screenWithLastRow(kA, kB))[kLastRowStart], Tile32Group::of(kA, kB, kA, kB));
}

// Packing by hand

TEST(Tile32Packer, OneRepeatedPatternIsOneBlock)
{
    ScreenMap16 screen;
    for (std::size_t row = 0; row < 15; ++row) {
        for (std::size_t column = 0; column < 16; ++column)
            setCell(screen, row, column, row % 2 == 0 ? kA : kC);
    }
    Tile32Packer packer;
    EXPECT_EQ(packer.pack(groupsOf(screen)), Tile32Numbers{});
    EXPECT_EQ(packer.used(), 1U);
    EXPECT_EQ(packer.set()[0], Tile32Group::of(kA, kA, kC, kC));
    EXPECT_FALSE(packer.limitExceeded());
}

TEST(Tile32Packer, BlocksAreNumberedInTheOrderOfTheirFirstUse)
{
    ScreenMap16 screen; // zeros first
    setCell(screen, 0, 4, kB);
    setCell(screen, 2, 0, kA);
    setCell(screen, 3, 15, kC);
    setCell(screen, 4, 6, kB);
    Tile32Packer packer;
    const Tile32Numbers numbers = packer.pack(groupsOf(screen));
    EXPECT_EQ(numbers[0], 0);
    EXPECT_EQ(numbers[2], 1);
    EXPECT_EQ(numbers[8], 2);
    EXPECT_EQ(numbers[15], 3);
    EXPECT_EQ(numbers[19], 1); // kB at the top left again
    EXPECT_EQ(packer.used(), 4U);
    EXPECT_EQ(packer.set()[4], Tile32Group{});
}

TEST(Tile32Packer, GroupsThatDifferInOneValueAreDifferentBlocks)
{
    const std::array<MetatileCell, 3> others = {{{5, 1, 7}, {4, 2, 7}, {4, 1, 8}}};
    for (std::size_t quadrant = 0; quadrant < 4; ++quadrant) {
        for (const MetatileCell& other : others) {
            std::array<MetatileCell, 4> changed = {kA, kA, kA, kA};
            changed[quadrant] = other;
            Tile32Packer packer;
            packer.pack(groupsOf(screenWithGroup(kA, kA, kA, kA)));
            packer.pack(groupsOf(screenWithGroup(changed[0], changed[1], changed[2], changed[3])));
            EXPECT_EQ(packer.used(), 3U) << "quadrant " << quadrant; // zeros are the third
        }
    }
}

TEST(Tile32Packer, SameScreenAgainAddsNothing)
{
    const ScreenGroups screen = groupsOf(randomScreens(1, 1, {}).front());
    Tile32Packer packer;
    const Tile32Numbers first = packer.pack(screen);
    EXPECT_EQ(packer.used(), 64U);
    EXPECT_EQ(packer.pack(screen), first);
    EXPECT_EQ(packer.used(), 64U);
}

// The last row, of which only the upper half shows

TEST(Tile32Packer, LastRowMatchesByUpperHalfAndPhysicsAtItsBottomLeft)
{
    Tile32Packer packer;
    EXPECT_EQ(packer.pack(groupsOf(screenWithGroup(kA, kB, kC, {99, 0, 1})))[0], 0);
    // kC has the physics of kA, which a last row has at its bottom-left.
    EXPECT_EQ(packer.pack(groupsOf(screenWithLastRow(kA, kB)))[kLastRowStart], 0);
    EXPECT_EQ(packer.used(), 2U);
}

TEST(Tile32Packer, LastRowWithOtherPhysicsAtItsBottomLeftIsAnotherBlock)
{
    Tile32Packer packer;
    packer.pack(groupsOf(screenWithGroup(kA, kB, {4, 1, 8}, kB)));
    EXPECT_EQ(packer.pack(groupsOf(screenWithLastRow(kA, kB)))[kLastRowStart], 2);
    EXPECT_EQ(packer.set()[2], Tile32Group::of(kA, kB, kA, kB));
}

TEST(Tile32Packer, LastRowWithAnotherUpperHalfIsAnotherBlock)
{
    for (const MetatileCell& right : {MetatileCell{9, 2, 9}, {8, 1, 9}, {8, 2, 10}}) {
        Tile32Packer packer;
        packer.pack(groupsOf(screenWithGroup(kA, kB, kA, kB)));
        EXPECT_EQ(packer.pack(groupsOf(screenWithLastRow(kA, right)))[kLastRowStart], 2);
    }
}

TEST(Tile32Packer, LastRowTakesTheFirstOfSeveralMatchesEvenBeforeAnEqualBlock)
{
    Tile32Packer packer;
    packer.pack(groupsOf(screenWithGroup(kA, kB, kC, kC)));
    EXPECT_EQ(packer.pack(groupsOf(screenWithGroup(kA, kB, kA, kB)))[0], 2);
    EXPECT_EQ(packer.pack(groupsOf(screenWithLastRow(kA, kB)))[kLastRowStart], 0);
}

TEST(Tile32Packer, BlockOfALastRowServesEqualGroupsOnly)
{
    Tile32Packer packer;
    EXPECT_EQ(packer.pack(groupsOf(screenWithLastRow(kA, kB)))[kLastRowStart], 1);
    EXPECT_EQ(packer.pack(groupsOf(screenWithGroup(kA, kB, kA, kB)))[0], 1);
    EXPECT_EQ(packer.pack(groupsOf(screenWithGroup(kA, kB, kC, kB)))[0], 2);
    EXPECT_EQ(packer.used(), 3U);
}

// The limit

// Screens whose groups above the last row are all different, 56 to a screen; the last row repeats
// the very first group.
ScreenGroups differentGroups(std::uint32_t screen)
{
    ScreenGroups groups{};
    for (std::uint32_t i = 0; i < 56; ++i)
        groups[i].bits = screen * 56 + i + 1;
    for (std::size_t i = 56; i < 64; ++i)
        groups[i].bits = 1;
    return groups;
}

TEST(Tile32Packer, BlocksBeyond146BecomeBlock0)
{
    Tile32Packer packer;
    packer.pack(differentGroups(0));
    packer.pack(differentGroups(1));
    EXPECT_EQ(packer.used(), 112U);
    const Tile32Numbers third = packer.pack(differentGroups(2));
    EXPECT_EQ(third[33], 145); // the 146th
    EXPECT_EQ(third[34], 0);
    EXPECT_EQ(third[55], 0);
    EXPECT_EQ(third[56], 0); // found: the first block
    EXPECT_EQ(packer.used(), 146U);
    EXPECT_TRUE(packer.limitExceeded());
    EXPECT_EQ(packer.set()[145].bits, 146U);
}

TEST(Tile32Packer, Exactly146BlocksAreWithinTheLimit)
{
    Tile32Packer packer;
    packer.pack(differentGroups(0));
    packer.pack(differentGroups(1));
    ScreenGroups third = differentGroups(2);
    std::fill(third.begin() + 34, third.end(), Tile32Group{1});
    packer.pack(third);
    EXPECT_EQ(packer.used(), 146U);
    EXPECT_FALSE(packer.limitExceeded());
}

// Against the linear search

void expectEqualPacking(const std::vector<ScreenMap16>& screens)
{
    Tile32Packer packer;
    LinearPacker reference;
    for (std::size_t i = 0; i < screens.size(); ++i) {
        const Tile32Numbers expected = reference.pack(screens[i]);
        RC_ASSERT(packer.pack(groupsOf(screens[i])) == expected);
    }
    RC_ASSERT(packer.used() == reference.set.size());
    RC_ASSERT(packer.limitExceeded() == reference.limitExceeded);
    for (std::size_t i = 0; i < reference.set.size(); ++i) {
        const auto& quadrants = reference.set[i].quadrants;
        RC_ASSERT(packer.set()[i]
                  == Tile32Group::of(quadrants[0], quadrants[1], quadrants[2], quadrants[3]));
    }
}

RC_GTEST_PROP(Tile32PackerProperty, EqualsTheLinearSearchWhereGroupsAlmostRepeat,
              (std::uint32_t seed))
{
    // Two or three values per cell: blocks that differ in their lower halves only are common.
    const auto few = [](std::uint32_t most) { return *rc::gen::inRange<std::uint32_t>(1, most); };
    const CellVariety variety = {.metatiles = few(3), .palettes = few(3), .physics = few(4)};
    const auto count = *rc::gen::inRange<std::size_t>(1, 6);
    expectEqualPacking(randomScreens(seed, count, variety));
}

RC_GTEST_PROP(Tile32PackerProperty, EqualsTheLinearSearchOnRooms, (std::uint32_t seed))
{
    const auto count = *rc::gen::inRange<std::size_t>(1, 20);
    const auto kinds = *rc::gen::inRange<std::uint32_t>(1, 200); // more than fit, too
    expectEqualPacking(patternedScreens(seed, count, kinds));
}

RC_GTEST_PROP(Tile32PackerProperty, EqualsTheLinearSearchOnNoise, (std::uint32_t seed))
{
    expectEqualPacking(randomScreens(seed, *rc::gen::inRange<std::size_t>(1, 5), {}));
}

} // namespace
} // namespace velko::test
