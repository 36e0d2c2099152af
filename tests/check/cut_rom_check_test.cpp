#include "tests/check/check_rom.h"
#include "tests/demo/demo_game.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <set>

namespace velko::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::uint8_t kMissingBank = 60;

// --- Small games with one thing past the end of the file

class CutRomCheck : public ::testing::Test {
protected:
    std::vector<std::string> check() const { return linesOf(game.check()); }

    CheckRom game;
};

TEST_F(CutRomCheck, BlocksOfAMissingBank)
{
    game.config.pahPal.dBank = {kMissingBank, kMissingBank};
    EXPECT_THAT(check(),
                ElementsAre("past-end-of-file 0 f2010 The palette of room 0, at $a000, ends past "
                            "the end of the file (4 such palettes)."));
}

TEST_F(CutRomCheck, BlockWhoseLastByteIsMissing)
{
    game.config.pahPal.dBank = {layout::kFixedBank, layout::kFixedBank};
    game.config.pahPal.dEdge = 0xC000;
    for (std::uint32_t room = 0; room < 4; ++room)
        game.setPointer(&GameConfig::pahPal, room, 0xBFE0);
    EXPECT_THAT(check(), IsEmpty());
    game.bytes.pop_back();
    EXPECT_THAT(check(),
                ElementsAre("past-end-of-file 0 2fff0 The palette of room 0, at $bfe0, ends past "
                            "the end of the file (4 such palettes)."));
}

TEST_F(CutRomCheck, TableOfAMissingBank)
{
    game.config.pahUnit.pBank = kMissingBank;
    EXPECT_THAT(check(),
                ElementsAre("past-end-of-file 0 f0d90 The pointer to the unit list of room 0 lies "
                            "past the end of the file (4 such pointers)."));
}

TEST_F(CutRomCheck, OneBlockMakesTheFreeSpaceAndGapsUnknown)
{
    game.setPointer(&GameConfig::pahPal, 1, 0xAFF0); // past the region
    game.setPointer(&GameConfig::pahPal, 2, 0xC000); // in the other bank
    game.config.pahPal.dBank = {layout::kBlockBank, kMissingBank};
    EXPECT_THAT(check(),
                ElementsAre("past-end-of-file 2 f0010 The palette of room 2, at $c000, ends past "
                            "the end of the file.",
                            "block-past-region 1 7000 The palette of room 1 at $aff0 ends 16 bytes "
                            "past the end of its region, $b000."));
}

TEST_F(CutRomCheck, LayoutsOfAMissingTableHaveNoSize)
{
    game.config.pahMapLayout.pBank = kMissingBank;
    EXPECT_THAT(check(),
                ElementsAre("past-end-of-file 0 f0490 The pointer to the map layout of room 0 lies "
                            "past the end of the file (4 such pointers)."));
}

TEST_F(CutRomCheck, ScreenListsOfAMissingBank)
{
    game.config.pahMapAlloc.dBank = {kMissingBank, kMissingBank};
    EXPECT_THAT(check(),
                ElementsAre("past-end-of-file 0 f0010 The screen list of room 0, at $8000, ends "
                            "past the end of the file (4 such screen lists)."));
}

TEST_F(CutRomCheck, ScreensOfAMissingBank)
{
    game.config.phMapScreenData = {kMissingBank, layout::kFixedBank};
    game.config.setValue(MiscField::mapIndexes, 3);
    EXPECT_THAT(check(),
                ElementsAre("past-end-of-file - f0610 The screen at $8600 ends past the end of the "
                            "file (3 such screens)."));
}

TEST_F(CutRomCheck, DoorTables)
{
    const auto end = static_cast<std::uint32_t>(game.bytes.size());
    game.config.setValue(MiscField::ptrEntranceBlock, end - 15);
    EXPECT_THAT(check(),
                ElementsAre("past-end-of-file 3 30010 The block of entrance 3 lies past the end of "
                            "the file."));
    game.config.setValue(MiscField::ptrEntranceBlock, CheckRom::kEntranceBlocks);
    game.config.setValue(MiscField::ptrEntranceScreen, end + 1);
    EXPECT_THAT(check(),
                ElementsAre("past-end-of-file 0 30011 The screen of entrance 0 lies past the end "
                            "of the file (16 such bytes)."));
    game.config.setValue(MiscField::ptrEntranceScreen, CheckRom::kEntranceScreens);
    game.config.setValue(MiscField::ptrExitRoom, end - 2); // two exits to room 0 are left
    EXPECT_THAT(check(),
                ElementsAre("past-end-of-file 0 30010 The room of exit 2 lies past the end of the "
                            "file (14 such bytes)."));
    game.config.setValue(MiscField::ptrExitRoom, CheckRom::kExitRooms);
    game.config.setValue(MiscField::ptrExitEntrance, end);
    EXPECT_THAT(check(),
                ElementsAre("past-end-of-file 0 30010 The entrance of exit 0 lies past the end of "
                            "the file (16 such bytes)."));
}

TEST_F(CutRomCheck, UnitListsOfAMissingBank)
{
    game.config.pahUnit.dBank = {kMissingBank, kMissingBank};
    EXPECT_THAT(check(),
                ElementsAre("past-end-of-file 0 f3010 The unit list of room 0, at $b000, ends past "
                            "the end of the file (4 such unit lists)."));
}

TEST_F(CutRomCheck, LoadRecords)
{
    game.setType2Loads(2, {4, 5, 6});
    const auto end = static_cast<std::uint32_t>(game.bytes.size());
    game.config.setValue(MiscField::ptrTileLoadType2, end - 5 * 5 - 4); // four bytes of record 5
    EXPECT_THAT(check(),
                ElementsAre("past-end-of-file 2 3000c Load record 5 ends past the end of the file "
                            "(2 such records)."));
}

TEST_F(CutRomCheck, TruckStarts)
{
    const auto end = static_cast<std::uint32_t>(game.bytes.size());
    game.config.setValue(MiscField::ptrMapTruckInit, end - 1);
    EXPECT_THAT(check(),
                ElementsAre("past-end-of-file - 30010 The start of truck 1 lies past the end of "
                            "the file."));
}

TEST_F(CutRomCheck, TruckPatterns)
{
    game.config.setValue(MiscField::bpahTruckMovement_bank, layout::kFixedBank);
    // The bank behind it, which the file does not have.
    game.config.setValue(MiscField::bpahTruckMovement_dMemStart, 0xBFFF);
    game.config.setValue(MiscField::bpahTruckMovement_dMemEdge, 0xC010);
    game.write(kHeaderSize + layout::kFixedBank * kBankSize + 0x2200, {0, 0, 1});
    game.bytes.back() = 0x82;
    EXPECT_THAT(check(),
                ElementsAre("past-end-of-file - 30010 The movement pattern of pattern set 2, at "
                            "$c000, ends past the end of the file."));
    game.config.setValue(MiscField::bpahTruckMovement_bank, kMissingBank);
    EXPECT_THAT(check(),
                ElementsAre("past-end-of-file - f2210 The pointer to the movement pattern of "
                            "pattern set 0 lies past the end of the file (3 such pointers)."));
}

// --- The demo, cut anywhere

class CutDemoCheck : public DemoGame {
protected:
    CutDemoCheck() : whole(state.rom.bytes().begin(), state.rom.bytes().end()) { }

    Findings checkCutAt(std::ptrdiff_t size)
    {
        state.rom.setBytes(Bytes(whole.begin(), whole.begin() + size));
        state.prepareRoomData();
        return checkRom(state);
    }
    // What is told of a file that was cut short is told of the whole file too, but for what is
    // missing; that is told once per table, or twice: of its entries and of its blocks.
    void expectNothingMadeUp(std::ptrdiff_t size)
    {
        SCOPED_TRACE(size);
        const Findings findings = checkCutAt(size);
        const auto isMissing = [](const Finding& finding) {
            return finding.kind == FindingKind::kPastEndOfFile;
        };
        EXPECT_LE(std::ranges::count_if(findings, isMissing), 20);
        for (const Finding& finding : findings) {
            if (!isMissing(finding)) {
                EXPECT_LT(finding.fileOffset, size);
                EXPECT_TRUE(told.contains(lineOf(finding))) << lineOf(finding);
            }
        }
    }

    Bytes whole;
    std::set<std::string> told; // of the whole file
};

TEST_F(CutDemoCheck, TellsWhatIsThereAndWhatIsMissing)
{
    EXPECT_THAT(
        linesOf(checkCutAt(0x28100)), // within the screen lists, below all other tables but one
        ElementsAre(
            "past-end-of-file 0 3d010 The pointer to the screen list of room 0 lies past the end "
            "of the file (113 such pointers).",
            "past-end-of-file 0 3d110 The pointer to the map layout of room 0 lies past the end of "
            "the file (113 such pointers).",
            "past-end-of-file 0 2c110 The pointer to the tile allocation of room 0 lies past the "
            "end of the file (113 such pointers).",
            "past-end-of-file 0 2c010 The pointer to the palette of room 0 lies past the end of "
            "the file (113 such pointers).",
            "past-end-of-file 0 30010 The pointer to the unit list of room 0 lies past the end of "
            "the file (113 such pointers).",
            "past-end-of-file 0 30110 The pointer to the sprite load list of room 0 lies past the "
            "end of the file (113 such pointers).",
            "past-end-of-file area:0 34010 The pointer to the movement list of area 0 lies past "
            "the end of the file (15 such pointers).",
            "past-end-of-file - 34c10 The pointer to the movement pattern of pattern set 0 lies "
            "past the end of the file (12 such pointers).",
            "past-end-of-file - 3c010 The screen at $c000 ends past the end of the file (56 such "
            "screens).",
            "past-end-of-file 0 3d310 The screen of entrance 0 lies past the end of the file (444 "
            "such bytes).",
            "past-end-of-file 0 3d4d0 The block of entrance 0 lies past the end of the file (444 "
            "such bytes).",
            "past-end-of-file 0 3d690 The room of exit 0 lies past the end of the file (444 such "
            "bytes).",
            "past-end-of-file 0 3d850 The entrance of exit 0 lies past the end of the file (444 "
            "such bytes).",
            "past-end-of-file - 34a90 The start of truck 0 lies past the end of the file (8 such "
            "bytes).",
            "gap - 22c10 No Tile32 set holds the 1024 bytes from $ac00 to $afff."));
}

TEST_F(CutDemoCheck, TableCutThroughAnEntry)
{
    EXPECT_THAT(linesOf(checkCutAt(0x3D013)),
                Contains("past-end-of-file 1 3d012 The pointer to the screen list of room 1 lies "
                         "past the end of the file (112 such pointers)."));
}

TEST_F(CutDemoCheck, NothingIsMadeUpOfWhatIsMissing)
{
    for (const std::string& line : linesOf(checkRom(state)))
        told.insert(line);
    ASSERT_FALSE(told.empty());
    const auto size = static_cast<std::ptrdiff_t>(whole.size());
    for (std::ptrdiff_t cut = 1; cut < size; cut += 9973)
        expectNothingMadeUp(cut);
    for (std::ptrdiff_t cut = 0x28010; cut < 0x29100; cut += 211) // screen lists and layouts
        expectNothingMadeUp(cut);
    for (std::ptrdiff_t cut = 0x3D010; cut < 0x3DA20; cut += 67) // tables of rooms, and of doors
        expectNothingMadeUp(cut);
}

} // namespace
} // namespace velko::test
