#include "tests/e2e/console/console_game.h"

#include <algorithm>
#include <set>
#include <vector>

namespace velko::test {
namespace {

constexpr std::uint16_t kHeroScript = 0x8171;

class ConsoleSpritesTest : public ConsoleGame {
protected:
    // Everything, as it stands in the editor's animation.
    ColourNumbers wholePicture() const
    {
        PixelImage image(kPictureWidth, kPictureHeight);
        const CameraPosition corner = camera();
        state.renderer.renderRoomRegion(image, static_cast<std::uint32_t>(corner.x),
                                        static_cast<std::uint32_t>(corner.y), 0xFFFFFF);
        for (const DemoUnit& unit : unitsOf(state, state.currentRoom())) {
            if (unit.column == 0 || unit.type >= kUnitTypes
                || state.config.unitSpriteReg.at(unit.type) == 0)
                continue;
            const UnitAnimation& animation = state.graphics.unitAnimation.at(unit.type);
            state.graphics.drawSpriteFrame(image, unit.y - corner.y, unit.x - corner.x,
                                           animation.scriptAddress, animation.frameOffset, {});
        }
        state.graphics.drawSpriteFrame(image, hero().y + 1 - corner.y, hero().x - corner.x,
                                       kHeroScript, 0, {});
        return numbersOf(image);
    }
};

// How far the console's animation has come when the recording begins is not known, so the editor's
// must hold the recording as a whole.
TEST_F(ConsoleSpritesTest, UnitsMoveAsTheEditorMovesThem)
{
    constexpr int kRecorded = 240; // frames, four seconds
    switchOn();
    for (const std::uint8_t number : {std::uint8_t{0}, std::uint8_t{1}, std::uint8_t{2}}) {
        goToRoom(number);
        std::vector<ColourNumbers> recording;
        for (int frame = 0; frame < kRecorded; ++frame) {
            recording.push_back(console().picture());
            console().run(1);
        }
        EXPECT_GT(std::set(recording.begin(), recording.end()).size(), 1U);
        state.graphics.selectRoom(number);
        std::vector<ColourNumbers> drawn;
        for (int step = 0; step < kRecorded + 120; ++step) {
            drawn.push_back(wholePicture());
            state.graphics.stepUnitAnimation();
        }
        EXPECT_NE(std::search(drawn.begin(), drawn.end(), recording.begin(), recording.end()),
                  drawn.end())
            << "room " << int{number};
    }
}

} // namespace
} // namespace velko::test
