#include "pages/door_model.h"
#include "tests/e2e/console/console_game.h"

namespace velko::test {
namespace {

// Data that the demo does not have, but that an edited game may come to have.
class ConsoleOddDataTest : public ConsoleGame {
protected:
    // Makes the current room's unit list one that goes on and on: 2 KB of placed units, and no end
    // byte among what follows for a long while.
    void removeEndOfUnitList()
    {
        constexpr std::uint32_t kUnusedBytes = 0x800;
        PointerArrayHandler& units = state.store.pahUnit;
        units.setPointer(state.currentRoom(), 0xB800);
        for (std::uint32_t at = 0; at < kUnusedBytes; ++at)
            units.setDataByte(at, 100); // a type without a sprite
    }

    // Makes the current room one row of so many screens: its first two, by turns.
    void stretchLayout(std::uint8_t columns)
    {
        PointerArrayHandler& layout = state.store.pahMapLayout;
        layout.setEntryByte(2, static_cast<std::uint8_t>(columns + 2)); // and two borders
        layout.setEntryByte(3, 1);
        for (std::uint32_t at = 3; at <= columns; ++at)
            layout.setDataByte(at, layout.dataByte(at - 2));
    }
};

TEST_F(ConsoleOddDataTest, UnitListWithoutEndHoldsNothingUp)
{
    constexpr int kFrames = 20;
    constexpr int kStep = 4; // pixels the hero flies in a frame
    state.graphics.selectRoom(1);
    removeEndOfUnitList();
    switchOn();
    goToRoom(1);
    const CameraPosition before = hero();
    console().run(kFrames, kButtonRight);
    console().run(2);
    EXPECT_EQ(hero().x, before.x + kFrames * kStep);
    press(kButtonStart); // looks for an exit among the units
    settle();
    EXPECT_EQ(room(), 1U);
    press(kButtonA);
    settle();
    EXPECT_EQ(room(), 2U);
}

TEST_F(ConsoleOddDataTest, ExitToARoomThatThereIsNotLeadsNowhere)
{
    state.graphics.selectRoom(1);
    DoorModel model(state);
    model.showRoom();
    model.selectExit(0);
    model.setExitRoom(static_cast<std::uint8_t>(kDemoRooms));
    switchOn();
    goToRoom(1);
    for (const DemoUnit& unit : unitsOf(state, 1))
        if (unit.type == 40)
            flyHeroTo({unit.x, unit.y});
    press(kButtonStart);
    settle();
    EXPECT_EQ(room(), 1U);
}

// Room pixels need all of their 16 bits there.
TEST_F(ConsoleOddDataTest, RoomOfMoreThan128ScreensIsShownToItsEnd)
{
    constexpr std::uint8_t kColumns = 130;
    state.graphics.selectRoom(1);
    ASSERT_NE(state.store.pahMapLayout.dataByte(1), state.store.pahMapLayout.dataByte(2));
    stretchLayout(kColumns);
    switchOn();
    show(Shown::kMap);
    goToRoom(1);
    console().run(kColumns * kScreenWidth / 4, kButtonRight);
    settle();
    EXPECT_EQ(camera(), (CameraPosition{(kColumns - 1) * kScreenWidth, 0}));
    expectSamePicture(false);
}

} // namespace
} // namespace velko::test
