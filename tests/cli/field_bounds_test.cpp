#include "cli/answering_prompt.h"
#include "cli/field.h"
#include "pages/door_model.h"
#include "pages/map_edit_model.h"
#include "tests/cli/cli_fixture.h"
#include "tests/cli/demo_state.h"

#include <algorithm>

namespace velko {
namespace {

// Bounds and changes, beside what the windows do.
class FieldBoundsTest : public test::CliTest {
protected:
    EditorState& state() { return m_game.state; }
    Field find(const std::string& name)
    {
        const FieldResult result = findField(state(), name);
        if (const auto* reason = std::get_if<std::string>(&result))
            ADD_FAILURE() << name << ": " << *reason;
        const auto* field = std::get_if<Field>(&result);
        return field == nullptr ? Field{} : *field;
    }

    // The entrance that the door window puts into the lower right corner of a room.
    Entrance placedInCorner(std::uint8_t room)
    {
        state().graphics.selectRoom(room);
        DoorModel doors(state());
        doors.showRoom();
        doors.view().scrollTo({100'000, 100'000});
        EXPECT_TRUE(
            doors.placeEntrance(DoorModel::kDisplay.width - 1, DoorModel::kDisplay.height - 1));
        return doors.entrance();
    }
    void expectEntrancesTo(std::uint8_t room, const std::string& name, const Entrance& corner)
    {
        const std::string entrance = "room." + name + ".entrance.0.";
        EXPECT_EQ(find(entrance + "screenx").largest, corner.screenColumn) << name;
        EXPECT_EQ(find(entrance + "screeny").largest, corner.screenRow) << name;
        EXPECT_EQ(find(entrance + "x").largest, corner.blockColumn) << name;
        EXPECT_EQ(find(entrance + "y").largest, corner.blockRow) << name;
        EXPECT_EQ(find(entrance + "screenx").smallest, 0U) << name;
        EXPECT_EQ(placedInCorner(room), corner) << name;
    }
    void setRoomSize(std::uint32_t room, std::uint8_t width, std::uint8_t height)
    {
        state().store.pahMapLayout.setEntryByte(2, width, room);
        state().store.pahMapLayout.setEntryByte(3, height, room);
    }

    // What all rooms with the Tile32 set of the current room show.
    std::vector<ScreenMap16> screensOfSet()
    {
        AnsweringPrompt prompt({});
        MapEditModel model(state(), prompt);
        model.refresh();
        std::vector<ScreenMap16> screens;
        for (const MapEditScreen& screen : model.screens().all())
            screens.push_back(screen.cells);
        return screens;
    }

private:
    test::OpenGame m_game;
};

TEST_F(FieldBoundsTest, EntrancesStayInTheRoomAsInTheWindow)
{
    expectEntrancesTo(0x20, "20", {8, 3, 15, 14}); // 8 x 4 screens
    expectEntrancesTo(0x3E, "3e", {1, 0, 15, 14}); // no map: one screen
    setRoomSize(0x21, 2 + 15, 16);
    expectEntrancesTo(0x21, "21", {15, 15, 15, 14});
}

// The window's numbers would run over into one another.
TEST_F(FieldBoundsTest, EntrancesOfHugeRoomsStayOnTheScreensThatTheyCanTell)
{
    setRoomSize(0x21, 2 + 40, 40);
    EXPECT_EQ(find("room.21.entrance.0.screenx").largest, 15U);
    EXPECT_EQ(find("room.21.entrance.0.screeny").largest, 15U);
}

TEST_F(FieldBoundsTest, ACellThatADamagedRoomShowsOutsideItsBlockCanOnlyBeRead)
{
    setRoomSize(0x20, 8, 0);
    EXPECT_FALSE(find("room.20.layout.0,0").set);
    setRoomSize(0x20, 8, 1);
    EXPECT_TRUE(find("room.20.layout.0,0").set);
}

TEST_F(FieldBoundsTest, ASlotInABankPastThoseOfTheGameKeepsItsPage)
{
    find("room.0.slot.5.bank").set(2);
    find("room.0.slot.5.block").set(0x51);
    EXPECT_TRUE(find("room.0.slot.5.block").allows(0xFF));
    state().config.setValue(MiscField::bgTileBanks, 2);
    const Field block = find("room.0.slot.5.block");
    EXPECT_EQ(block.smallest, 0x40U);
    EXPECT_EQ(block.largest, 0x7FU);
    EXPECT_EQ(find("room.0.slot.5.bank").largest, 1U);
}

TEST_F(FieldBoundsTest, PatternsThatNoTruckCanNameAreNotThere)
{
    const std::uint32_t start = state().config.value(MiscField::bpahTruckMovement_pMemStart);
    state().config.setValue(MiscField::bpahTruckMovement_pMemEdge, start + 20);
    EXPECT_EQ(find("truck.0.pattern").largest, 15U);
    find("pattern.f.0");
    EXPECT_TRUE(std::holds_alternative<std::string>(findField(state(), "pattern.10.0")));
}

TEST_F(FieldBoundsTest, APaintedCellIsAllThatRoomsOfTheSetShowDifferently)
{
    state().graphics.selectRoom(0x20);
    std::vector<ScreenMap16> expected = screensOfSet();
    const std::size_t cell = 3 * 16 + 7;
    const auto physics = static_cast<std::uint8_t>(expected.at(1).physics[cell] ^ 1);
    const Field field = find("room.20.screen.1.physics.3,7");
    EXPECT_EQ(field.value, expected.at(1).physics[cell]);
    EXPECT_EQ(field.set(physics), std::nullopt);
    expected.at(1).physics[cell] = physics;
    EXPECT_EQ(screensOfSet(), expected);
    EXPECT_EQ(find("room.20.screen.1.physics.3,7").value, physics);
    EXPECT_EQ(find("room.20.screen.1.tile.3,7").set(0xFC), std::nullopt);
    expected.at(1).metatile[cell] = 0xFC;
    EXPECT_EQ(screensOfSet(), expected);
}

TEST_F(FieldBoundsTest, TheFirstScreenIsNotPaintedOn)
{
    const Field field = find("room.20.screen.0.palette.0,0");
    EXPECT_EQ(field.set((field.value + 1) & 3), "Restricted from editing Screen 0.");
    EXPECT_TRUE(std::ranges::equal(state().rom.bytes(), demoBytes()));
}

TEST_F(FieldBoundsTest, ARoomWithoutAMapIsNotPaintedOn)
{
    setRoomSize(0x20, 0, 0);
    const Field field = find("room.20.screen.1.palette.0,0");
    EXPECT_EQ(field.set((field.value + 1) & 3), "the room has no map to edit");
}

TEST_F(FieldBoundsTest, NothingIsWrittenOverTheTile32Limit)
{
    state().graphics.selectRoom(0x20);
    {
        AnsweringPrompt prompt({});
        MapEditModel model(state(), prompt);
        model.refresh();
        // The first two blocks of a screen are the same one.
        for (const std::size_t cell : {0U, 1U, 2U, 3U, 16U, 17U, 18U, 19U})
            model.setCell(1, cell, {0x10, 1, 1});
        // Blocks that no screen of the room has, as many as the set can take.
        const std::uint32_t screens = model.screens().count();
        for (std::uint32_t i = 2; model.packing().used() < kMostTile32; ++i) {
            const std::uint32_t position = 1 + i / 56;
            ASSERT_LT(position, screens);
            const std::uint32_t block = i % 56; // of the first seven rows
            const auto tile = static_cast<std::uint8_t>(i + 1);
            model.setCell(position, block / 8 * 32 + block % 8 * 2, {tile, 3, 15});
        }
        ASSERT_FALSE(model.packing().limitExceeded());
        model.convertAndWrite();
    }
    const std::vector<std::uint8_t> full(state().rom.bytes().begin(), state().rom.bytes().end());
    const std::string rom = write("full.nes", full);
    const auto outcome =
        run({"set", rom, "room.20.screen.1.physics.1,1", "e", "-o", path("out.nes")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "velko-cli: room.20.screen.1.physics.1,1: Tile32 LIMIT EXCEEDED!\n");
    EXPECT_FALSE(std::filesystem::exists(pathFromUtf8(path("out.nes"))));
}

} // namespace
} // namespace velko
