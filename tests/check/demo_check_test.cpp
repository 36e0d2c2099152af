#include "tests/check/check_rom.h"
#include "tests/demo/demo_game.h"
#include "tests/support/scripted_prompt.h"

#include "pages/data_management_model.h"

#include <gmock/gmock.h>

namespace velko::test {
namespace {

class DemoCheck : public DemoGame {
protected:
    std::vector<std::string> check() const { return linesOf(checkRom(state)); }
};

// The demo is worn on purpose; a gap in each region, a layout in two sizes, cells past their screen
// list, and rooms that nothing leads to, three of them in a ring.
TEST_F(DemoCheck, FindsWhatTheDemoIsMadeWith)
{
    EXPECT_THAT(
        check(),
        ::testing::ElementsAre(
            "gap - 281ea No screen list holds the 6 bytes from $81da to $81df.",
            "gap - 2907f No map layout holds the 3 bytes from $906f to $9071.",
            "gap - 22c10 No Tile32 set holds the 1024 bytes from $ac00 to $afff.",
            "gap - 2d2b0 No tile allocation holds the 96 bytes from $92a0 to $92ff.",
            "gap - 2c4d0 No palette holds the 32 bytes from $84c0 to $84df.",
            "gap - 30707 No unit list holds the 11 bytes from $86f7 to $8701.",
            "gap - 3305e No sprite load list holds the 3 bytes from $b04e to $b050.",
            "gap - 34144 No movement list holds the 6 bytes from $8134 to $8139.",
            "gap - 34c38 No movement pattern holds the 3 bytes from $8c28 to $8c2a.",
            "sizes-differ 6e 3d2ca The map layout is read as 4 x 3 cells, and by room 48 as 6 x 2.",
            "layout-past-screen-list 2 2901d The cell in column 1, row 0 tells position 8 of the "
            "screen list, which has 7 screens.",
            "layout-past-screen-list 2f 29083 The cell in column 0, row 0 tells position 6 of the "
            "screen list, which has 5 screens.",
            "layout-past-screen-list 39 2908b The cell in column 0, row 0 tells position e of the "
            "screen list, which has 13 screens (2 such cells).",
            "unreachable-room 3e 3d408 No way leads here from another room.",
            "unreachable-room 42 3d418 No way leads here from another room.",
            "unreachable-room 47 3d42c No way leads here from another room.",
            "unreachable-room 4f 3d44c No way leads here from another room.",
            "unreachable-room 54 3d460 No way leads here from another room.",
            "unreachable-room 56 3d468 No way leads here from another room.",
            "unreachable-room 59 3d474 No way leads here from another room.",
            "unreachable-room 61 3d494 No way leads here from another room.",
            "unreachable-room 65 3d4a4 No way leads here from another room.",
            "unreachable-room 6c 3d4c0 No way leads here from another room.",
            "unreachable-room 6e 3d4c8 No way leads here from another room.",
            "unreachable-group 4c 3d440 This room and rooms 4d and 4e lead to one another, and no "
            "way leads here from any other room."));
}

TEST_F(DemoCheck, DeletingUnusedDataClosesTheGapsItFinds)
{
    ScriptedPrompt prompt;
    DataManagementModel model(state, prompt);
    prompt.expect("6 (0x6) bytes removed in 1 chunks.");
    model.deleteUnusedData(RoomDataKind::kMapAlloc);
    prompt.expect("3 (0x3) bytes removed in 1 chunks.");
    model.deleteUnusedData(RoomDataKind::kMapLayout);
    prompt.expect("1024 (0x400) bytes removed in 1 chunks.");
    model.deleteUnusedData(RoomDataKind::kTile32);
    prompt.expect("96 (0x60) bytes removed in 1 chunks.");
    model.deleteUnusedData(RoomDataKind::kTileLoad);
    prompt.expect("32 (0x20) bytes removed in 1 chunks.");
    model.deleteUnusedData(RoomDataKind::kPalette);
    EXPECT_THAT(std::vector(check()).size(), 20U);
    EXPECT_THAT(check().at(0), ::testing::StartsWith("gap - 30707 No unit list"));
}

TEST_F(DemoCheck, ImageStaysAsItIs)
{
    const Bytes before(state.rom.bytes().begin(), state.rom.bytes().end());
    static_cast<void>(checkRom(state));
    EXPECT_EQ(Bytes(state.rom.bytes().begin(), state.rom.bytes().end()), before);
    EXPECT_EQ(state.store.pahUnit.currentRoom(), 0U);
    EXPECT_EQ(state.store.pahMapAreaMovement.freeSpace(), PointerArrayHandler::kFreeSpaceUnknown);
}

} // namespace
} // namespace velko::test
