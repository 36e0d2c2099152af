// The renderer against the slow one, which shares no code with it, on random games.

#include "tests/gfx/random_game.h"
#include "tests/gfx/slow_renderer.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace velko::test {
namespace {

constexpr Pixel kPaper = 0xABCDEF;

SlowRenderer slowRenderer(const TestRom& game, const TestCore& core, std::uint32_t room)
{
    return SlowRenderer({.file = game.bytes,
                         .config = game.config,
                         .colours = core.graphics.colourTable,
                         .room = room});
}

// The first pixel where an image differs from what `expected(y, x)` tells, as text; "" if none.
template <typename Expected> std::string firstDifference(const PixelImage& image, Expected expected)
{
    for (std::uint32_t y = 0; y < image.height(); ++y) {
        for (std::uint32_t x = 0; x < image.width(); ++x) {
            if (image.at(x, y) != expected(static_cast<int>(y), static_cast<int>(x)))
                return "row " + std::to_string(y) + ", column " + std::to_string(x);
        }
    }
    return "";
}

// A whole game, a game whose file is cut off somewhere, or garbage.
TestRom anyGame(std::uint32_t seed)
{
    if (seed % 3 == 2)
        return randomGarbage(seed);
    TestRom game = randomGame(seed);
    if (seed % 3 == 1)
        game.bytes.resize(seed / 3 % game.bytes.size());
    return game;
}

PixelImage randomImage(int most)
{
    const auto size = [=] { return static_cast<std::uint32_t>(*rc::gen::inRange(0, most)); };
    const std::uint32_t width = size();
    return PixelImage(width, size());
}

RC_GTEST_PROP(RenderingProperty, PatternMemoryIsFilledAsTheSlowRendererDoes, (std::uint32_t seed))
{
    const TestRom game = anyGame(seed);
    TestCore core(game);
    const std::uint8_t room = *rc::gen::inRange<std::uint8_t>(0, 3);
    core.graphics.selectRoom(room);
    RC_ASSERT(core.graphics.patternMemory == slowRenderer(game, core, room).patternMemory());
}

RC_GTEST_PROP(RenderingProperty, RegionShowsTheRoomsPixels, (std::uint32_t seed))
{
    const TestRom game = anyGame(seed);
    TestCore core(game);
    const std::uint8_t room = *rc::gen::inRange<std::uint8_t>(0, 3);
    core.graphics.selectRoom(room);
    const SlowRenderer slow = slowRenderer(game, core, room);
    const int width = slow.roomWidth();
    const int height = slow.roomHeight();
    const int scrollX = *rc::gen::inRange(0, width + 20);
    const int scrollY = *rc::gen::inRange(0, height + 20);

    PixelImage image = randomImage(50);
    core.renderer.renderRoomRegion(image, static_cast<std::uint32_t>(scrollX),
                                   static_cast<std::uint32_t>(scrollY), kPaper);
    const std::string difference = firstDifference(image, [&](int y, int x) {
        const bool inside = scrollY + y < height && scrollX + x < width;
        return inside ? slow.roomPixel(scrollY + y, scrollX + x) : kPaper;
    });
    RC_ASSERT(difference == "");
}

RC_GTEST_PROP(RenderingProperty, RegionIsThePictureCropped, (std::uint32_t seed))
{
    const TestRom game = randomGame(seed % 64);
    TestCore core(game);
    PixelImage picture;
    core.renderer.renderRoomPicture(*rc::gen::inRange<std::uint8_t>(0, 3), picture);
    const int width = static_cast<int>(picture.width());
    const int height = static_cast<int>(picture.height());
    const int scrollX = *rc::gen::inRange(0, width + 20);
    const int scrollY = *rc::gen::inRange(0, height + 20);

    PixelImage image = randomImage(400);
    core.renderer.renderRoomRegion(image, static_cast<std::uint32_t>(scrollX),
                                   static_cast<std::uint32_t>(scrollY), kPaper);
    PixelImage cropped(image.width(), image.height(), kPaper);
    blit(cropped, picture, -scrollX, -scrollY);
    RC_ASSERT(image == cropped);
}

RC_GTEST_PROP(RenderingProperty, MetatilesShowTheirPixels,
              (std::uint32_t seed, std::uint8_t number))
{
    const TestRom game = randomGame(seed);
    const TestCore core(game);
    const SlowRenderer slow = slowRenderer(game, core, 0);
    const int palette = *rc::gen::inRange(0, 8);
    PixelImage image(16, 16);
    core.graphics.drawMetatile(image, 0, 0, number, static_cast<std::uint32_t>(palette));
    RC_ASSERT(firstDifference(
                  image, [&](int y, int x) { return slow.metatilePixel(number, palette, y, x); })
              == "");
}

RC_GTEST_PROP(RenderingProperty, PhysicsIsDecodedAsTheSlowRendererDoes,
              (std::uint32_t seed, std::uint16_t address))
{
    const TestRom game = anyGame(seed);
    const TestCore core(game);
    const SlowRenderer slow = slowRenderer(game, core, 0);
    ScreenMap16 screen;
    core.renderer.decodeScreen(address, screen);
    for (int cell = 0; cell < 240; ++cell)
        RC_ASSERT(screen.physics[static_cast<std::size_t>(cell)]
                  == slow.screenPhysics(address, cell / 16, cell % 16));
}

RC_GTEST_PROP(RenderingProperty, SpriteFramesShowTheirPieces,
              (std::uint32_t seed, std::uint16_t script, std::uint8_t offset, bool mirrored))
{
    TestRom game = anyGame(seed);
    if (seed % 3 == 0) { // sprite tiles as scripts: any bytes are one
        game.config.phSprite = {test::layout::kType2Bank, test::layout::kBackgroundBank};
        game.setType2Loads(0, {5, 6, 7});
    }
    const TestCore core(game);
    const SlowRenderer slow = slowRenderer(game, core, 0);
    const SlowRenderer::Frame frame{.script = script,
                                    .offset = offset,
                                    .y = *rc::gen::inRange(-20, 60),
                                    .x = *rc::gen::inRange(-20, 60),
                                    .mirrored = mirrored};
    PixelImage image = randomImage(50);
    fill(image, kPaper);
    core.graphics.drawSpriteFrame(image, frame.y, frame.x, script, offset, {.mirrored = mirrored});
    RC_ASSERT(
        firstDifference(
            image, [&](int y, int x) { return slow.spritePixel(frame, y, x).value_or(kPaper); })
        == "");
}

// Whole pictures of a few games.
class WholePictureTest : public testing::TestWithParam<std::uint32_t> { };

TEST_P(WholePictureTest, EveryPixelOfTheRoomIsRight)
{
    const TestRom game = randomGame(GetParam());
    TestCore core(game);
    const auto room = static_cast<std::uint8_t>(GetParam() % 3);
    PixelImage image;
    core.renderer.renderRoomPicture(room, image);
    const SlowRenderer slow = slowRenderer(game, core, room);
    ASSERT_EQ(static_cast<int>(image.width()), slow.roomWidth());
    ASSERT_EQ(static_cast<int>(image.height()), slow.roomHeight());
    EXPECT_EQ(firstDifference(image, [&](int y, int x) { return slow.roomPixel(y, x); }), "");
}

TEST_P(WholePictureTest, EveryPixelOfAScreenIsRight)
{
    const TestRom game = randomGame(GetParam());
    const TestCore core(game);
    const SlowRenderer slow = slowRenderer(game, core, 0);
    PixelImage image(256, 240);
    const std::uint16_t address = core.renderer.screenAddress(0);
    core.renderer.drawScreen(image, 0, 0, address);
    EXPECT_EQ(firstDifference(image, [&](int y, int x) { return slow.screenPixel(address, y, x); }),
              "");
}

INSTANTIATE_TEST_SUITE_P(Seeds, WholePictureTest, testing::Range(0U, 6U));

// Nothing to compare: whatever the bytes and the description say, every operation comes to an end
// and stays inside its memory, which the sanitizers watch.
RC_GTEST_PROP(RenderingProperty, GarbageIsSurvived,
              (std::uint32_t seed, std::uint8_t room, std::uint16_t address))
{
    TestCore core(anyGame(seed));
    core.store.computeFreeSpace(core.config.roomCount());
    core.graphics.selectRoom(room);
    for (int tick = 0; tick < 300; ++tick)
        core.graphics.stepUnitAnimation();

    const auto anywhere = [] { return *rc::gen::inRange(-100, 100); };
    PixelImage image = randomImage(60);
    for (const UnitAnimation& animation : core.graphics.unitAnimation)
        core.graphics.drawSpriteFrame(image, anywhere(), anywhere(), animation.scriptAddress,
                                      animation.frameOffset, {.highlight = true});
    core.graphics.drawMetatile(image, anywhere(), anywhere(), room, seed);
    core.renderer.drawScreen(image, anywhere(), anywhere(), address);
    core.renderer.renderRoomThumbnail(room, image, "?", kPaper);
    RC_ASSERT(core.renderer.screenCount(room) <= 0x10000U);
    RC_ASSERT(core.renderer.screenIndex(address) <= 1024U);
}

} // namespace
} // namespace velko::test
