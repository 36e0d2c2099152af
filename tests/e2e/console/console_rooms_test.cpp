#include "tests/e2e/console/console_game.h"

#include <algorithm>

namespace velko::test {
namespace {

class ConsoleRoomsTest : public ConsoleGame {
protected:
    bool hasMap(std::uint32_t number) const
    {
        const PointerArrayHandler& layout = state.store.pahMapLayout;
        return layout.entryByte(2, number) != 0 && layout.entryByte(3, number) != 0;
    }

    void compareScreens(std::uint32_t number, bool withUnits)
    {
        for (const CameraPosition& screen : screensOf(number)) {
            flyTo(screen);
            if (HasFatalFailure())
                return;
            expectSamePicture(withUnits);
            ++screens;
        }
    }

    void compareAllRooms(Shown shown)
    {
        switchOn();
        show(shown);
        for (std::uint32_t number = 0; number < kDemoRooms && !HasFatalFailure(); ++number) {
            goToRoom(number);
            state.graphics.selectRoom(static_cast<std::uint8_t>(number));
            if (hasMap(number))
                compareScreens(number, shown != Shown::kMap);
            else
                expectNothing();
        }
        EXPECT_EQ(screens, kScreensInAll);
    }

    // Of a room without a map the console shows its backdrop.
    void expectNothing() const
    {
        const ColourNumbers picture = console().picture();
        EXPECT_EQ(std::count(picture.begin(), picture.end(), state.store.pahPal.dataByte(16)),
                  kPictureWidth * kPictureHeight);
    }

    static constexpr int kScreensInAll = 336; // shown cells of all layouts
    int screens = 0;
};

TEST_F(ConsoleRoomsTest, EveryScreenOfEveryRoomLooksAsTheEditorDrawsIt)
{
    compareAllRooms(Shown::kMap);
}

TEST_F(ConsoleRoomsTest, EveryUnitInItsFirstFrameLooksAsTheEditorDrawsIt)
{
    compareAllRooms(Shown::kStillUnits);
}

TEST_F(ConsoleRoomsTest, MapStaysWholeWhileTheCameraMovesOverIt)
{
    constexpr std::uint32_t kLargestRoom = 0x20; // 8 x 4 screens
    switchOn();
    show(Shown::kMap);
    goToRoom(kLargestRoom);
    state.graphics.selectRoom(kLargestRoom);
    for (const CameraPosition& place :
         {CameraPosition{100, 60}, CameraPosition{904, 520}, CameraPosition{364, 8},
          CameraPosition{1792, 720}, CameraPosition{1532, 236}, CameraPosition{4, 716}}) {
        flyTo(place);
        ASSERT_FALSE(HasFatalFailure());
        expectSamePicture(false);
    }
}

// The picture is that of the camera one frame ago.
TEST_F(ConsoleRoomsTest, EachFrameOfAFlightIsWhole)
{
    constexpr std::uint32_t kLargestRoom = 0x20; // 8 x 4 screens
    switchOn();
    show(Shown::kMap);
    goToRoom(kLargestRoom);
    state.graphics.selectRoom(kLargestRoom);
    flyTo({100, 60});
    for (const std::uint32_t buttons : {kButtonRight | kButtonDown, kButtonRight | kButtonUp,
                                        kButtonLeft | kButtonDown, kButtonLeft | kButtonUp}) {
        for (int frame = 0; frame < 120; ++frame) {
            const CameraPosition shown = camera();
            console().run(1, buttons);
            expectSamePicture(editorPicture(shown, false));
            ASSERT_FALSE(HasFailure()) << "frame " << frame << ", buttons " << buttons;
        }
    }
}

// A real console's memory is not clear when it is switched on.
TEST_F(ConsoleRoomsTest, GameStartsWhateverTheMemoryHolds)
{
    for (const PowerOnMemory memory : {PowerOnMemory::kFilled, PowerOnMemory::kRandom}) {
        switchOn(memory);
        show(Shown::kStillUnits);
        ASSERT_FALSE(HasFatalFailure());
        state.graphics.selectRoom(0);
        expectSamePicture(true);
    }
}

} // namespace
} // namespace velko::test
