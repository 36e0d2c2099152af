#include "pages/data_management_model.h"
#include "tests/check/check_rom.h"
#include "tests/support/scripted_prompt.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>

namespace velko {
namespace {

using test::Bytes;
using test::CheckRom;
using test::linesOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Bank 1 holds screen lists from $8000 on, layouts from $9000, palettes from $A000, unit lists from
// $B000 and load lists from $B800; its first byte is 0x4010 in the file.
class RomCheck : public ::testing::Test {
protected:
    std::vector<std::string> check() const { return linesOf(game.check()); }

    CheckRom game;
};

TEST_F(RomCheck, SoundRom)
{
    EXPECT_THAT(check(), IsEmpty());
}

TEST_F(RomCheck, CodesAreInKebabCaseAndDiffer)
{
    std::set<std::string> codes;
    for (std::size_t i = 0; i < kFindingKinds; ++i) {
        const std::string code(codeOf(static_cast<FindingKind>(i)));
        EXPECT_THAT(code, ::testing::MatchesRegex("[a-z0-9]+(-[a-z0-9]+)*"));
        EXPECT_TRUE(codes.insert(code).second) << code;
    }
}

// --- Regions

TEST_F(RomCheck, PointerIntoTheRegionBelow)
{
    game.setPointer(&GameConfig::pahPal, 2, 0x9FFF);
    EXPECT_THAT(check(),
                ElementsAre("pointer-outside-region 2 600f The pointer to the palette of room 2 is "
                            "$9fff, outside of its region, $a000 to $afff."));
}

TEST_F(RomCheck, PointerPastTheRegion)
{
    game.setPointer(&GameConfig::pahPal, 2, 0xB000);
    EXPECT_THAT(check(),
                ElementsAre("pointer-outside-region 2 7010 The pointer to the palette of room 2 is "
                            "$b000, outside of its region, $a000 to $afff.",
                            "negative-free-space - 7010 The palettes end 32 bytes past the end of "
                            "their region, $b000."));
}

TEST_F(RomCheck, PointerBelowTheCartridge)
{
    game.setPointer(&GameConfig::pahMapAlloc, 3, 0x0000); // maps like $8000
    EXPECT_THAT(check(),
                ElementsAre("pointer-outside-region 3 4010 The pointer to the screen list of room "
                            "3 is $0000, outside of its region, $8000 to $8fff."));
}

TEST_F(RomCheck, RegionStartsBehindATableInItsBank)
{
    // Unit lists in the bank of the tables, of which theirs is at $8D80.
    game.config.pahUnit.dBank = {test::layout::kTableBank, test::layout::kFixedBank};
    game.config.pahUnit.dEdge = 0x9000;
    game.write(kHeaderSize + 0xF00, {0xFF});
    for (std::uint32_t room = 0; room < 4; ++room)
        game.setPointer(&GameConfig::pahUnit, room, 0x8F00);
    EXPECT_THAT(check(), IsEmpty());
    game.setPointer(&GameConfig::pahUnit, 3, 0x8D80 + 7); // its own last byte
    game.write(kHeaderSize + 0xD80 + 7, {0x8D});
    EXPECT_THAT(check().at(0), ::testing::StartsWith("pointer-outside-region 3 d97 "));
    EXPECT_THAT(check().at(0), ::testing::EndsWith("outside of its region, $8d88 to $8fff."));
}

TEST_F(RomCheck, RegionStartsBehindTheScreensInItsBank)
{
    // Palettes above the screens of bank 4, of which four are left.
    game.config.setValue(MiscField::mapIndexes, 4); // $8600 to $86FF
    game.config.pahPal.dBank = game.config.phMapScreenData;
    game.config.pahPal.dEdge = 0x8800;
    for (std::uint32_t room = 0; room < 4; ++room)
        game.setPointer(&GameConfig::pahPal, room, 0x8700);
    EXPECT_THAT(check(), IsEmpty());
    game.setPointer(&GameConfig::pahPal, 1, 0x86E0);
    EXPECT_THAT(check(),
                ElementsAre("pointer-outside-region 1 106f0 The pointer to the palette of room 1 "
                            "is $86e0, outside of its region, $8700 to $87ff."));
}

TEST_F(RomCheck, BlockPastItsRegion)
{
    game.setPointer(&GameConfig::pahPal, 1, 0xAFF0);
    EXPECT_THAT(
        check(),
        ElementsAre("block-past-region 1 7000 The palette of room 1 at $aff0 ends 16 bytes past "
                    "the end of its region, $b000.",
                    "negative-free-space - 7010 The palettes end 16 bytes past the end of their "
                    "region, $b000.",
                    "gap - 6030 No palette holds the 4048 bytes from $a020 to $afef."));
}

TEST_F(RomCheck, BlockUpToTheEndOfItsRegion)
{
    game.setPointer(&GameConfig::pahPal, 1, 0xAFE0);
    EXPECT_THAT(check(),
                ElementsAre("gap - 6030 No palette holds the 4032 bytes from $a020 to $afdf."));
}

TEST_F(RomCheck, ScreenListWithoutEnd)
{
    game.setScreenList(3, {0x8600});  // at $8004
    game.write(0x4016, {0x00, 0x86}); // over the end mark; zeros up to the layout at $9000
    game.write(0x5010, {0x00, 0x00, 0x00, 0x00, 0xFF, 0xFF}); // $9004 ends it by chance
    EXPECT_THAT(check(),
                ElementsAre("unterminated-list 3 4014 The screen list of room 3 at $8004 has no "
                            "end mark before the end of its region, $9000.",
                            "negative-free-space - 5010 The screen lists end 6 bytes past the end "
                            "of their region, $9000."));
}

TEST_F(RomCheck, UnitListWithoutEnd)
{
    game.setUnits(3, {}); // at $B001, and zeros behind it
    game.bytes[0x7011] = 0;
    EXPECT_THAT(check(),
                ElementsAre("unterminated-list 3 7011 The unit list of room 3 at $b001 has no end "
                            "mark before the end of its region, $b800."));
}

TEST_F(RomCheck, BlocksAboveAListWithoutEndAreChecked)
{
    game.write(0x7011, Bytes(16)); // $B001 to $B010, with ends where no record of room 1 starts
    game.setPointer(&GameConfig::pahUnit, 1, 0xB001);
    game.write(0x7018, {0xFF, 0, 0xFF});
    game.setPointer(&GameConfig::pahUnit, 2, 0xB008);
    game.setPointer(&GameConfig::pahUnit, 3, 0xB00A);
    EXPECT_THAT(check(),
                ElementsAre("unterminated-list 1 7011 The unit list of room 1 at $b001 has no end "
                            "mark before the end of its region, $b800.",
                            "gap - 7019 No unit list holds the 1 byte from $b009 to $b009."));
}

TEST_F(RomCheck, LoadListsWithoutEndInALongRegion)
{
    game.config.pahTileLoadType2.dBank = {test::layout::kSpriteBank, test::layout::kFixedBank};
    for (std::uint32_t entry = 0; entry < 6; ++entry)
        game.setPointer(&GameConfig::pahTileLoadType2, entry, 0x8000); // of zeros
    EXPECT_THAT(check(), ::testing::SizeIs(6));
    EXPECT_THAT(check(), ::testing::Each(::testing::StartsWith("unterminated-list ")));
}

TEST_F(RomCheck, LoadListWithoutEnd)
{
    game.setType2Loads(3, {});
    game.bytes[0x7811] = 0;
    EXPECT_THAT(check(),
                ElementsAre("unterminated-list 3 7811 The sprite load list of room 3 at $b801 has "
                            "no end mark before the end of its region, $c000.",
                            "negative-free-space - 8010 The sprite load lists end 2050 bytes past "
                            "the end of their region, $c000."));
}

// The game stops at any byte from $80 on, what is free is counted from the first $FF.
TEST_F(RomCheck, NegativeFreeSpace)
{
    game.setType2Loads(3, {});
    game.bytes[0x7811] = 0x80;
    EXPECT_THAT(check(),
                ElementsAre("negative-free-space - 8010 The sprite load lists end 2050 bytes past "
                            "the end of their region, $c000."));
}

TEST_F(RomCheck, HighestUnitListReachesIntoFreeSpace)
{
    game.setUnits(3, {1, 16, 1, 16, 0}); // counted as 2 bytes
    EXPECT_THAT(check(),
                ElementsAre("block-in-free-space 3 7011 The unit list of room 3, $b001 to $b006, "
                            "reaches into the free space at $b003, which the next insertion "
                            "overwrites."));
}

TEST_F(RomCheck, BlockOfATableEntryBehindTheRooms)
{
    game.config.pahPal.pMemEdge = static_cast<std::uint16_t>(game.config.pahPal.pMemEdge + 2);
    game.setPointer(&GameConfig::pahPal, 4, 0xA020);
    EXPECT_THAT(check(),
                ElementsAre("block-in-free-space 4 6030 The palette of table entry 4, $a020 to "
                            "$a03f, reaches into the free space at $a020, which the next insertion "
                            "overwrites."));
}

TEST_F(RomCheck, OverlappingBlocks)
{
    game.setPointer(&GameConfig::pahPal, 3, 0xA010);
    EXPECT_THAT(check(),
                ElementsAre("overlapping-blocks 3 6020 The palette of room 3 starts at $a010, "
                            "inside the one of room 0, $a000 to $a01f."));
}

TEST_F(RomCheck, BlockInsideTheLongerOfTwoWithOnePointer)
{
    const std::uint16_t layout = game.setLayout(3, 1, 2, {0, 0}); // $9003 to $9008
    game.setPointer(&GameConfig::pahMapLayout, 2, layout);
    game.setStoredSize(2, 3, 1);
    game.setPointer(&GameConfig::pahMapLayout, 1, 0x9006);
    EXPECT_THAT(check(),
                ElementsAre("overlapping-blocks 1 5016 The map layout of room 1 starts at $9006, "
                            "inside the one of room 3, $9003 to $9008.",
                            "sizes-differ 3 49e The map layout is read as 3 x 2 cells, and by room "
                            "2 as 3 x 1."));
}

// What the editor takes for unused behind a block may belong to one that starts inside it.
TEST_F(RomCheck, OverlapIsToldBecauseDeletingUnusedDataCutsIntoIt)
{
    game.setPointer(&GameConfig::pahPal, 2, 0xA010);
    game.setPointer(&GameConfig::pahPal, 3, 0xA040);
    game.write(0x6030, Bytes(16, 0x21)); // the upper half of room 2's
    EXPECT_THAT(check(),
                ElementsAre("overlapping-blocks 2 6020 The palette of room 2 starts at $a010, "
                            "inside the one of room 0, $a000 to $a01f.",
                            "gap - 6040 No palette holds the 16 bytes from $a030 to $a03f."));
    EditorState state;
    game.loadInto(state);
    test::ScriptedPrompt prompt;
    prompt.expect("32 (0x20) bytes removed in 1 chunks."); // not 16
    DataManagementModel(state, prompt).deleteUnusedData(RoomDataKind::kPalette);
    EXPECT_EQ(state.store.pahPal.dataByte(16, 2), 0x00);
}

TEST_F(RomCheck, BlockInsideALongerOneThatEndsBehindTheNext)
{
    // Palettes have one length; lists do not. $8000: three screens, $8002 and $8004 their tails.
    game.setScreenList(0, {0x8600, 0x8600, 0x8600}); // at $8004 to $800B
    for (std::uint32_t room = 1; room < 4; ++room)
        game.setPointer(&GameConfig::pahMapAlloc, room, 0x8004);
    game.setPointer(&GameConfig::pahMapAlloc, 2, 0x8006);
    game.setPointer(&GameConfig::pahMapAlloc, 3, 0x8008);
    EXPECT_THAT(check(),
                ElementsAre("overlapping-blocks 2 4016 The screen list of room 2 starts at $8006, "
                            "inside the one of room 0, $8004 to $800b.",
                            "overlapping-blocks 3 4018 The screen list of room 3 starts at $8008, "
                            "inside the one of room 0, $8004 to $800b."));
}

TEST_F(RomCheck, Gap)
{
    game.setPalette(2, Bytes(32));
    game.setPalette(3, Bytes(32));
    EXPECT_THAT(check(), IsEmpty());
    game.setPointer(&GameConfig::pahPal, 2, 0xA000);
    EXPECT_THAT(check(),
                ElementsAre("gap - 6030 No palette holds the 32 bytes from $a020 to $a03f."));
}

TEST_F(RomCheck, MapWithoutSizeIsNoBlock)
{
    game.setPointer(&GameConfig::pahMapLayout, 3, 0x1234);
    game.setStoredSize(3, 0, 0);
    EXPECT_THAT(check(), IsEmpty());
}

// --- Maps

TEST_F(RomCheck, OneLayoutInTwoSizes)
{
    const std::uint16_t layout = game.setLayout(2, 1, 2, {0, 0}); // 3 x 2
    game.write(0x5010 + layout - 0x9000U, Bytes(6));
    game.setPointer(&GameConfig::pahMapLayout, 3, layout);
    game.setStoredSize(3, 6, 1);
    EXPECT_THAT(check(),
                ElementsAre("sizes-differ 3 49e The map layout is read as 6 x 1 cells, and by room "
                            "2 as 3 x 2."));
}

TEST_F(RomCheck, CellPastTheScreenList)
{
    game.setLayout(3, 2, 2, {0, 0, 1, 0}); // at $9003, rows of four
    EXPECT_THAT(check(),
                ElementsAre("layout-past-screen-list 3 5018 The cell in column 0, row 1 tells "
                            "position 1 of the screen list, which has 1 screen."));
}

TEST_F(RomCheck, CellsPastTheScreenListAreToldOnce)
{
    game.setLayout(3, 2, 2, {0, 0x2F, 1, 0});
    EXPECT_THAT(check(),
                ElementsAre("layout-past-screen-list 3 5015 The cell in column 1, row 0 tells "
                            "position 2f of the screen list, which has 1 screen (2 such cells)."));
}

TEST_F(RomCheck, ScreenBetweenTwoScreens)
{
    game.setScreenList(3, {0x8600, 0x8641});
    EXPECT_THAT(check(),
                ElementsAre("screen-out-of-range 3 4016 Position 1 of the screen list holds $8641, "
                            "which is no screen's address."));
}

TEST_F(RomCheck, ScreensBelowAndPastTheArea)
{
    game.setScreenList(3, {0x85C0, 0x8600, 0xBFC0, 0xC000}); // screens end at $BFFF
    EXPECT_THAT(check(),
                ElementsAre("screen-out-of-range 3 4014 Position 0 of the screen list holds $85c0, "
                            "which is no screen's address (2 such positions)."));
}

TEST_F(RomCheck, ScreenInTheHole)
{
    game.config.setValue(MiscField::mapIndexes, 300);
    game.setScreenList(3, {0xC808});
    EXPECT_THAT(check(), IsEmpty());
    game.setScreenList(3, {0xC800});
    game.setPointer(&GameConfig::pahMapAlloc, 2, 0x8004); // what room 3 had
    EXPECT_THAT(check(),
                ElementsAre("screen-out-of-range 3 4018 Position 0 of the screen list holds $c800, "
                            "which is no screen's address."));
}

TEST_F(RomCheck, Tile32NumberPastTheSet)
{
    const std::uint16_t good = game.addScreen({0x91});
    const std::uint16_t bad = game.addScreen({0x91, 0x92}); // $8680, 0x10690 in the file
    game.setScreenList(3, {good, bad});
    EXPECT_THAT(check(), IsEmpty()); // as no cell shows it
    game.setLayout(3, 2, 1, {0, 1});
    EXPECT_THAT(check(),
                ElementsAre("tile32-out-of-range 3 10691 The screen at position 1 uses Tile32 "
                            "number 92, of which a set has 0 to 91."));
}

// --- Doors

TEST_F(RomCheck, EntranceInAScreenRightOfTheRoom)
{
    game.bytes[CheckRom::kEntranceScreens + 4 * 2] = 0x20;
    EXPECT_THAT(check(),
                ElementsAre("entrance-outside-room 2 3418 Entrance 0 is in screen column 1, row 0, "
                            "block row 0 of a room of 1 x 1 screen."));
}

TEST_F(RomCheck, EntranceBelowTheRoom)
{
    game.bytes[CheckRom::kEntranceScreens + 4 * 2 + 3] = 0x11;
    EXPECT_THAT(check(),
                ElementsAre("entrance-outside-room 2 341b Entrance 3 is in screen column 0, row 1, "
                            "block row 0 of a room of 1 x 1 screen."));
}

TEST_F(RomCheck, EntranceInTheSixteenthRowOfAScreen)
{
    game.bytes[CheckRom::kEntranceBlocks + 4 * 2] = 0xFE;
    EXPECT_THAT(check(), IsEmpty());
    game.bytes[CheckRom::kEntranceBlocks + 4 * 2] = 0xFF;
    EXPECT_THAT(check(),
                ElementsAre("entrance-outside-room 2 3418 Entrance 0 is in screen column 0, row 0, "
                            "block row 15 of a room of 1 x 1 screen."));
}

TEST_F(RomCheck, EntranceThatIsNotSetIsNowhere)
{
    game.bytes[CheckRom::kEntranceScreens + 4 * 2 + 1] = 0x0F;
    game.bytes[CheckRom::kEntranceBlocks + 4 * 2 + 1] = 0xFF;
    EXPECT_THAT(check(), IsEmpty());
}

TEST_F(RomCheck, ExitToAMissingRoom)
{
    game.bytes[CheckRom::kExitRooms + 4 + 2] = 4;
    EXPECT_THAT(check(),
                ElementsAre("exit-to-missing-room 1 3456 Exit 2 leads to room 4; there are rooms 0 "
                            "to 3."));
}

TEST_F(RomCheck, ExitToAnEntranceThatIsNotSet)
{
    game.bytes[CheckRom::kExitEntrances + 4 + 2] = 3;
    EXPECT_THAT(check(),
                ElementsAre("exit-to-unset-entrance 1 3476 Exit 2 leads to entrance 3 of room 0, "
                            "which is not set."));
}

TEST_F(RomCheck, ExitToAnEntranceThatNoRoomHas)
{
    game.bytes[CheckRom::kExitEntrances] = 4; // would be entrance 0 of room 2
    EXPECT_THAT(check(),
                ElementsAre("exit-to-unset-entrance 0 3470 Exit 0 leads to entrance 4 of room 1, "
                            "which is not set.",
                            "unreachable-room 1 3414 No way leads here from another room."));
}

TEST_F(RomCheck, RoomThatOnlyItsOwnExitLeadsTo)
{
    game.bytes[CheckRom::kExitRooms + 4 * 1] = 0;
    game.bytes[CheckRom::kExitRooms + 4 * 2 + 1] = 2;
    EXPECT_THAT(check(),
                ElementsAre("unreachable-room 2 3418 No way leads here from another room."));
}

TEST_F(RomCheck, RoomThatOnlyAnExitToAnUnsetEntranceLeadsTo)
{
    game.bytes[CheckRom::kExitEntrances + 4 * 1] = 3;
    EXPECT_THAT(check(),
                ElementsAre("exit-to-unset-entrance 1 3474 Exit 0 leads to entrance 3 of room 2, "
                            "which is not set.",
                            "unreachable-room 2 3418 No way leads here from another room."));
}

TEST_F(RomCheck, TwoRoomsThatOnlyLeadToOneAnother)
{
    game.bytes[CheckRom::kExitRooms + 4 * 1] = 0;
    game.bytes[CheckRom::kExitRooms + 4 * 3] = 2;
    EXPECT_THAT(check(),
                ElementsAre("unreachable-group 2 3418 This room and room 3 lead to one another, "
                            "and no way leads here from any other room."));
    game.bytes[CheckRom::kExitRooms + 1] = 3; // from room 0
    EXPECT_THAT(check(), IsEmpty());
}

TEST_F(RomCheck, ThreeRoomsThatOnlyLeadToOneAnother)
{
    game.bytes[CheckRom::kExitRooms] = 0;
    game.bytes[CheckRom::kExitRooms + 4 * 3] = 1;
    EXPECT_THAT(check(),
                ElementsAre("unreachable-group 1 3414 This room and rooms 2 and 3 lead to one "
                            "another, and no way leads here from any other room."));
}

TEST_F(RomCheck, RoomsAroundRoomZeroNeedNoWayIn)
{
    game.write(CheckRom::kExitRooms + 4 * 1, {0, 0, 0, 0});
    game.write(CheckRom::kExitRooms + 4 * 2, {3, 3, 3, 3, 2, 2, 2, 2});
    EXPECT_THAT(check(), ElementsAre(::testing::StartsWith("unreachable-group 2 3418 ")));
}

TEST_F(RomCheck, RoomZeroAloneNeedsNoWayIn)
{
    game.write(CheckRom::kExitRooms + 4 * 1, {2, 1, 1, 1, 3, 2, 2, 2, 1, 3, 3, 3});
    EXPECT_THAT(check(), IsEmpty());
}

TEST_F(RomCheck, GameWithoutDoorTables)
{
    game.config.setValue(MiscField::roomEntrances, 0);
    game.config.setValue(MiscField::roomExits, 0);
    EXPECT_THAT(check(), IsEmpty());
}

TEST_F(RomCheck, GameWithoutEntranceTables)
{
    game.config.setValue(MiscField::roomEntrances, 0);
    EXPECT_THAT(check(), IsEmpty());
}

// --- Units

TEST_F(RomCheck, UnitTypesWithoutAName)
{
    game.setUnits(2, {6,    0, 1, 0, 0, 0x90, 0, 1, 0, 0, 7,    0, 1, 0, 0,
                      0x90, 0, 1, 0, 0, 8,    0, 1, 0, 0, 0x8F, 0, 1, 0, 0});
    game.setUnits(3, {}); // so that the list does not reach into free space
    EXPECT_THAT(check(),
                ElementsAre("unnamed-unit-type 2 701b Unit 2 is of type 7, which has no name.",
                            "unnamed-unit-type 2 7025 Unit 4 is of type 8, which has no name.",
                            "unnamed-unit-type 2 7016 Unit 1 is of type 90, which has no name (2 "
                            "such units)."));
}

TEST_F(RomCheck, UnitNumbersAreHexadecimal)
{
    Bytes units(11 * 5);
    for (std::size_t unit = 0; unit < 11; ++unit)
        units[5 * unit] = unit == 10 ? 7 : 6;
    game.setUnits(2, units);
    game.setUnits(3, {}); // so that the list does not reach into free space
    EXPECT_THAT(check(),
                ElementsAre("unnamed-unit-type 2 7043 Unit a is of type 7, which has no name."));
}

TEST_F(RomCheck, LoadRecordPastPatternMemory)
{
    game.setType2Loads(2, {5, 6});
    game.setLoadRecord(5, 0, 0x1FF0, 1);
    game.setLoadRecord(6, 0, 0xFFFF, 0);
    EXPECT_THAT(check(), IsEmpty());
    game.setLoadRecord(5, 0, 0x1FF0, 2);
    game.setLoadRecord(7, 0, 0x1FF0, 2); // in no list
    EXPECT_THAT(check(),
                ElementsAre("load-past-pattern-memory 2 3029 Load record 5 fills $1ff0 to $200f, "
                            "past the end of pattern memory, $2000."));
}

TEST_F(RomCheck, ListThatRoomsShareIsToldOnce)
{
    game.setUnits(1, {7, 0, 1, 0, 0});
    game.setUnits(3, {});
    game.setPointer(&GameConfig::pahUnit, 2, 0xB001);
    EXPECT_THAT(check(),
                ElementsAre("unnamed-unit-type 1 7011 Unit 0 is of type 7, which has no name."));
}

TEST_F(RomCheck, LoadRecordInTwoListsIsToldOnce)
{
    game.setLoadRecord(5, 0, 0x1FF0, 2);
    game.setType2Loads(1, {5, 5});
    game.setType2Loads(2, {5});
    EXPECT_THAT(check(), ElementsAre(::testing::StartsWith("load-past-pattern-memory 1 3029 ")));
}

TEST_F(RomCheck, LoadRecordBehindPatternMemory)
{
    game.setType2Loads(2, {5});
    game.setLoadRecord(5, 0, 0xFFFF, 255);
    EXPECT_THAT(check(),
                ElementsAre("load-past-pattern-memory 2 3029 Load record 5 fills $ffff to $10fee, "
                            "past the end of pattern memory, $2000."));
}

} // namespace
} // namespace velko
