#include "tests/check/check_rom.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velko {
namespace {

using test::CheckRom;
using test::linesOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr auto kMovement = &GameConfig::pahMapAreaMovement;

class OverworldCheck : public ::testing::Test {
protected:
    std::vector<std::string> check() const { return linesOf(game.check()); }

    CheckRom game;
};

// --- Areas

TEST_F(OverworldCheck, PointerIntoTheTableOfAreas)
{
    game.setPointer(kMovement, 1, 0xA005);
    EXPECT_THAT(check(),
                ElementsAre("pointer-outside-region area:1 2015 The pointer to the movement list "
                            "of area 1 is $a005, outside of its region, $a006 to $a11f."));
}

TEST_F(OverworldCheck, MovementListPastItsRegion)
{
    game.bytes[CheckRom::kMovementLists + 10] = 0x80; // area 0 at $A10A
    EXPECT_THAT(check(),
                ElementsAre("block-past-region area:0 211a The movement list of area 0 at $a10a "
                            "ends 108 bytes past the end of its region, $a120.",
                            "negative-free-space - 2130 The movement lists end 108 bytes past the "
                            "end of their region, $a120."));
}

// What is free is counted from the end of area 0's list.
TEST_F(OverworldCheck, MovementListsAboveTheOneOfAreaZero)
{
    game.setPointer(kMovement, 0, 0xA100);
    game.setPointer(kMovement, 1, 0xA10A);
    EXPECT_THAT(check(),
                ElementsAre("block-in-free-space area:1 211a The movement list of area 1, $a10a to "
                            "$a10d, reaches into the free space at $a104, which the next insertion "
                            "overwrites.",
                            "block-in-free-space area:2 2114 The movement list of area 2, $a104 to "
                            "$a109, reaches into the free space at $a104, which the next insertion "
                            "overwrites."));
}

TEST_F(OverworldCheck, MovementListOfATableEntryBehindTheAreas)
{
    game.config.pahMapAreaMovement.pMemEdge = 0xA008;
    game.setPointer(kMovement, 3, 0xA10E);
    game.bytes[CheckRom::kMovementLists + 14] = 2;
    EXPECT_THAT(check(),
                ElementsAre("block-in-free-space area:3 211e The movement list of table entry 3, "
                            "$a10e to $a111, reaches into the free space at $a10e, which the next "
                            "insertion overwrites."));
}

// What it counts is no area's business.
TEST_F(OverworldCheck, TableEntryBehindTheAreasWithHalfAMovement)
{
    game.config.pahMapAreaMovement.pMemEdge = 0xA008;
    game.setPointer(kMovement, 3, 0xA10E);
    game.bytes[CheckRom::kMovementLists + 14] = 3;
    EXPECT_THAT(check(),
                ElementsAre("block-in-free-space area:3 211e The movement list of table entry 3, "
                            "$a10e to $a112, reaches into the free space at $a10e, which the next "
                            "insertion overwrites."));
}

TEST_F(OverworldCheck, OverlappingMovementLists)
{
    game.setPointer(kMovement, 1, 0xA106); // where area 2 has its first entry
    game.write(CheckRom::kMovementLists + 6, {2, 1});
    EXPECT_THAT(check(),
                ElementsAre("overlapping-blocks area:1 2116 The movement list of area 1 starts at "
                            "$a106, inside the one of area 2, $a104 to $a109."));
}

TEST_F(OverworldCheck, HalfAMovement)
{
    game.bytes[CheckRom::kMovementLists + 4] = 3; // area 2
    EXPECT_THAT(check(),
                ElementsAre("gap - 2119 No movement list holds the 1 byte from $a109 to $a109.",
                            "bad-movement-count area:2 2114 The movement list counts 3 bytes of "
                            "entries; each has 2, and an area has at least one."));
}

TEST_F(OverworldCheck, EmptyMovementListThatAreasShareIsToldOnce)
{
    game.bytes[CheckRom::kMovementLists] = 0;
    game.setPointer(kMovement, 2, 0xA100);
    EXPECT_THAT(check(),
                ElementsAre("gap - 2112 No movement list holds the 8 bytes from $a102 to $a109.",
                            "bad-movement-count area:1 2110 The movement list counts 0 bytes of "
                            "entries; each has 2, and an area has at least one."));
}

TEST_F(OverworldCheck, AreasBehindAShortTableAreRead)
{
    game.config.pahMapAreaMovement.pMemEdge = 0xA002; // area 0 alone
    game.setPointer(kMovement, 1, 0xA120);
    EXPECT_THAT(check(),
                ElementsAre("pointer-outside-region area:1 2130 The pointer to the movement list "
                            "of area 1 is $a120, outside of its region, $a002 to $a11f."));
}

TEST_F(OverworldCheck, ModuleWithoutAnOverworld)
{
    game.config.pahMapAreaMovement = {};
    for (const MiscField field :
         {MiscField::numOfMapTrucks, MiscField::bpahTruckMovement_pMemStart,
          MiscField::bpahTruckMovement_pMemEdge, MiscField::bpahTruckMovement_dMemStart,
          MiscField::bpahTruckMovement_dMemEdge})
        game.config.setValue(field, 0);
    EXPECT_THAT(check(), IsEmpty());
}

// --- Trucks

TEST_F(OverworldCheck, PatternPastItsRegion)
{
    game.bytes[CheckRom::kPatternPointers + 1] = 0x10;
    EXPECT_THAT(check(),
                ElementsAre("pointer-outside-region - 2230 The pointer to the movement pattern of "
                            "pattern set 1 is $a220, outside of its region, $a210 to $a21f.",
                            "gap - 2222 No movement pattern holds the 2 bytes from $a212 to "
                            "$a213."));
}

// The editor reads 256 phases of it, up to $A313.
TEST_F(OverworldCheck, PatternWithoutEnd)
{
    game.bytes[CheckRom::kPatterns + 4] = 0x07;
    EXPECT_THAT(check(),
                ElementsAre("unterminated-list - 2224 The movement pattern of pattern set 2 at "
                            "$a214 has no end mark before the end of its region, $a220.",
                            "negative-free-space - 2230 The movement patterns end 244 bytes past "
                            "the end of their region, $a220."));
}

// What is free is counted from the end of the last set's pattern.
TEST_F(OverworldCheck, PatternAboveTheOneOfTheLastSet)
{
    game.bytes[CheckRom::kPatternPointers] = 6;
    game.bytes[CheckRom::kPatterns + 6] = 0x82;
    game.bytes[CheckRom::kPatternPointers + 1] = 5;
    game.bytes[CheckRom::kPatterns + 5] = 0x82;
    EXPECT_THAT(check(),
                ElementsAre("block-in-free-space - 2226 The movement pattern of pattern set 0, "
                            "$a216 to $a216, reaches into the free space at $a215, which the next "
                            "insertion overwrites.",
                            "block-in-free-space - 2225 The movement pattern of pattern set 1, "
                            "$a215 to $a215, reaches into the free space at $a215, which the next "
                            "insertion overwrites."));
}

TEST_F(OverworldCheck, OverlappingPatterns)
{
    game.bytes[CheckRom::kPatternPointers + 1] = 1;
    EXPECT_THAT(check(),
                ElementsAre("overlapping-blocks - 2221 The movement pattern of pattern set 1 "
                            "starts at $a211, inside the one of pattern set 0, $a210 to $a211.",
                            "gap - 2222 No movement pattern holds the 2 bytes from $a212 to "
                            "$a213."));
}

TEST_F(OverworldCheck, DirectionsThatThereAreNot)
{
    game.write(CheckRom::kPatterns + 2, {0x08, 0xFF});
    EXPECT_THAT(check(),
                ElementsAre("truck-direction-out-of-range - 2222 Phase 0 of pattern set 1 has "
                            "direction 8, of which there are 0 to 7 (2 such phases)."));
    game.bytes[CheckRom::kPatterns + 2] = 0x07;
    EXPECT_THAT(check(),
                ElementsAre("truck-direction-out-of-range - 2223 Phase 1 of pattern set 1 has "
                            "direction 7f, of which there are 0 to 7."));
}

TEST_F(OverworldCheck, PatternThatSetsShareIsToldOnce)
{
    game.bytes[CheckRom::kPatterns + 1] = 0x89;
    game.write(CheckRom::kPatternPointers, {0, 0, 2});
    game.bytes[CheckRom::kPatterns + 2] = 0x83; // set 2
    EXPECT_THAT(check(),
                ElementsAre("truck-direction-out-of-range - 2221 Phase 1 of pattern set 0 "
                            "has direction 9, of which there are 0 to 7."));
}

TEST_F(OverworldCheck, TruckInAnAreaThatThereIsNot)
{
    game.bytes[CheckRom::kTruckStarts + 1] = 0x13;
    EXPECT_THAT(check(),
                ElementsAre("truck-in-missing-area - 2311 Truck 1 starts in area 3; there "
                            "are areas 0 to 2."));
}

TEST_F(OverworldCheck, TruckOfAPatternThatThereIsNot)
{
    game.bytes[CheckRom::kTruckStarts + 1] = 0x32;
    EXPECT_THAT(check(),
                ElementsAre("truck-of-missing-pattern - 2311 Truck 1 follows pattern set "
                            "3; there are sets 0 to 2."));
}

TEST_F(OverworldCheck, RegionOfRoomsStartsBehindThePatternsInItsBank)
{
    game.config.pahPal.dBank = {test::layout::kTableBank, test::layout::kFixedBank};
    game.config.pahPal.dEdge = 0xA300;
    for (std::uint32_t room = 0; room < 4; ++room)
        game.setPointer(&GameConfig::pahPal, room, 0xA220);
    EXPECT_THAT(check(), IsEmpty());
    game.setPointer(&GameConfig::pahPal, 3, 0xA21F);
    EXPECT_THAT(check(),
                ElementsAre("pointer-outside-region 3 222f The pointer to the palette of room 3 is "
                            "$a21f, outside of its region, $a220 to $a2ff."));
}

} // namespace
} // namespace velko
