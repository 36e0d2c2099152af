#include "tests/e2e/console/console_game.h"

#include "rom/file_io.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>

namespace velko::test {

namespace {

constexpr int kPatience = 3000; // frames; the longest flight takes a tenth of that

std::uint32_t buttonToward(int from, int to, std::uint32_t backward, std::uint32_t forward)
{
    if (from == to)
        return 0;
    return to < from ? backward : forward;
}

} // namespace

ColourNumbers numbersOf(const PixelImage& image)
{
    ColourNumbers numbers;
    numbers.reserve(image.pixels().size());
    for (const Pixel pixel : image.pixels())
        numbers.push_back(static_cast<std::uint8_t>(pixel));
    return numbers;
}

ConsoleGame::ConsoleGame()
{
    for (std::uint32_t number = 0; number < kNesColours; ++number)
        state.graphics.colourTable.at(number) = number;
}

void ConsoleGame::switchOn(PowerOnMemory memory)
{
    const std::filesystem::path saved = m_folder.path() / "saved.nes";
    state.rom.setPath(saved);
    state.rom.save();
    const auto file = loadFile(saved);
    ASSERT_TRUE(file);
    m_console.reset();
    m_console = std::make_unique<Console>(VELKO_CONSOLE_CORE, *file, m_folder.path(), memory);
    console().run(30);
    settle();
}

void ConsoleGame::press(std::uint32_t button, int frames)
{
    console().run(frames, button);
    console().run(2);
}

void ConsoleGame::settle()
{
    for (int frame = 0; console().memory(0x1B) == 0; ++frame) {
        ASSERT_LT(frame, kPatience);
        console().run(1);
    }
    console().run(3); // the picture comes after the state
}

void ConsoleGame::goToRoom(std::uint32_t target)
{
    const std::uint32_t ahead = (target + kDemoRooms - room()) % kDemoRooms;
    for (int turn = 0; room() != target; ++turn) {
        ASSERT_LT(turn, 111);
        press(ahead <= kDemoRooms / 2 ? kButtonA : kButtonB);
        settle();
    }
}

void ConsoleGame::show(Shown shown)
{
    for (int turn = 0; console().memory(0x1A) != static_cast<std::uint8_t>(shown); ++turn) {
        ASSERT_LT(turn, 3);
        console().run(2, kButtonStart);
        console().run(2, kButtonStart | kButtonB);
        console().run(2, kButtonStart);
        console().run(2);
    }
    settle();
}

void ConsoleGame::flyTo(CameraPosition target)
{
    for (int frame = 0; camera() != target; ++frame) {
        ASSERT_LT(frame, kPatience) << "on the way to " << target.x << ", " << target.y;
        const CameraPosition now = camera();
        console().run(1,
                      buttonToward(now.x, target.x, kButtonLeft, kButtonRight)
                          | buttonToward(now.y, target.y, kButtonUp, kButtonDown));
    }
    settle();
    ASSERT_EQ(camera(), target);
}

void ConsoleGame::flyHeroTo(CameraPosition place)
{
    constexpr int kNear = 4; // pixels the hero flies in a frame
    const auto near = [](int from, int to) { return std::abs(to - from) < kNear ? from : to; };
    for (int frame = 0; frame < kPatience; ++frame) {
        const CameraPosition now = hero();
        const std::uint32_t buttons =
            buttonToward(now.x, near(now.x, place.x), kButtonLeft, kButtonRight)
            | buttonToward(now.y, near(now.y, place.y), kButtonUp, kButtonDown);
        if (buttons == 0)
            return;
        console().run(1, buttons);
    }
    FAIL() << "the hero does not come to " << place.x << ", " << place.y;
}

std::vector<CameraPosition> ConsoleGame::screensOf(std::uint32_t room) const
{
    const RoomSize size = state.renderer.roomSize(room);
    std::vector<CameraPosition> screens;
    for (std::uint32_t row = 0; row < size.rows; ++row)
        for (std::uint32_t i = 0; i < size.columns; ++i) {
            const std::uint32_t column = row % 2 == 0 ? i : size.columns - 1 - i;
            screens.push_back(
                {static_cast<int>(column) * kScreenWidth, static_cast<int>(row) * kScreenHeight});
        }
    return screens;
}

ColourNumbers ConsoleGame::editorPicture(CameraPosition corner, bool withUnits) const
{
    PixelImage image(kPictureWidth, kPictureHeight);
    state.renderer.renderRoomRegion(image, static_cast<std::uint32_t>(corner.x),
                                    static_cast<std::uint32_t>(corner.y), 0xFFFFFF);
    if (withUnits) {
        for (const DemoUnit& unit : unitsOf(state, state.currentRoom())) {
            if (unit.column == 0 || unit.type >= kUnitTypes
                || state.config.unitSpriteReg.at(unit.type) == 0)
                continue;
            state.graphics.drawSpriteFrame(image, unit.y - corner.y, unit.x - corner.x,
                                           state.config.unitSpriteAddress.at(unit.type), 0, {});
        }
    }
    return numbersOf(image);
}

void ConsoleGame::expectSamePicture(bool withUnits) const
{
    ASSERT_EQ(room(), state.currentRoom());
    expectSamePicture(editorPicture(camera(), withUnits));
}

void ConsoleGame::expectSamePicture(const ColourNumbers& expected) const
{
    const ColourNumbers shown = console().picture();
    ASSERT_EQ(shown.size(), expected.size());
    const auto [seen, wanted] = std::mismatch(shown.begin(), shown.end(), expected.begin());
    if (seen == shown.end())
        return;
    const auto place = seen - shown.begin();
    std::ptrdiff_t different = 0;
    for (std::size_t i = 0; i < shown.size(); ++i)
        different += shown[i] != expected[i] ? 1 : 0;
    ADD_FAILURE() << "room " << room() << " at " << camera().x << ", " << camera().y << ": "
                  << different << " pixels differ, first at column " << place % kPictureWidth
                  << ", line " << place / kPictureWidth << ": console " << int{*seen} << ", editor "
                  << int{*wanted};
}

} // namespace velko::test
