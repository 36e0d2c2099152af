#include "gfx/graphics_state.h"
#include "tests/support/test_rom.h"

#include <climits>
#include <gtest/gtest.h>
#include <limits>

namespace velko {
namespace {

using test::Bytes;
using test::solidTile;
using test::TestCore;
using test::TestRom;

constexpr Pixel kPaper = 0xABCDEF;

constexpr Pixel nes(std::uint32_t number)
{
    return TestRom::colour(number);
}

// Sprite tile 1 has its top-left pixel at value 1 and the pixel right of it at value 3; tile 2 is
// solid, of value 3. The room's palette entries 16 to 31 are the colours 16 to 31.
class SpriteDrawingTest : public testing::Test {
protected:
    SpriteDrawingTest()
    {
        Bytes corner(16);
        corner[0] = 0xC0;
        corner[8] = 0x40;
        game.setType2Graphics(0x00, corner);
        game.setType2Graphics(0x10, solidTile(3));
        game.setLoadRecord(0, 0, 0x0010, 2);
        game.setType2Loads(0, {0});
        Bytes palette;
        for (unsigned n = 0; n < 32; ++n)
            palette.push_back(static_cast<std::uint8_t>(n));
        game.setPalette(0, palette);
    }

    // Draws a script's first frame at (20, 20) of an image of 40 x 40 pixels.
    PixelImage draw(const Bytes& script, const GraphicsState::SpriteStyle& style = {})
    {
        PixelImage image(40, 40, kPaper);
        drawAt(image, 20, 20, script, style);
        return image;
    }
    void drawAt(PixelImage& image, int y, int x, const Bytes& script,
                const GraphicsState::SpriteStyle& style = {})
    {
        const std::uint16_t address = game.addSprite(script);
        const TestCore core(game);
        core.graphics.drawSpriteFrame(image, y, x, address, 0, style);
    }

    TestRom game;
};

TEST_F(SpriteDrawingTest, PieceLiesAtItsSignedOffsets)
{
    PixelImage image = draw({1, 1, 3, 0xFE, 0x00}); // tile 1 at x + 3, y - 2
    EXPECT_EQ(image.at(23, 18), nes(17));
    EXPECT_EQ(image.at(24, 18), nes(19));
    image.row(18)[23] = kPaper;
    image.row(18)[24] = kPaper;
    EXPECT_EQ(image, PixelImage(40, 40, kPaper)) << "value 0 is transparent";
}

TEST_F(SpriteDrawingTest, OffsetsFrom128OnAreNegative)
{
    PixelImage image(300, 300, kPaper);
    drawAt(image, 140, 140, {1, 2, 0x80, 0x7F, 0}); // x - 128, y + 127
    EXPECT_EQ(image.at(12, 267), nes(19));
    EXPECT_EQ(image.at(11, 267), kPaper);
    EXPECT_EQ(image.at(12, 266), kPaper);
}

TEST_F(SpriteDrawingTest, AttributeBits0And1ChooseTheSet)
{
    const PixelImage image = draw({4, 2, 0, 0, 0x00, 2, 8, 0, 0x01, 2, 0, 8, 0x3E, 2, 8, 8, 0x03});
    EXPECT_EQ(image.at(20, 20), nes(19));
    EXPECT_EQ(image.at(28, 20), nes(23));
    EXPECT_EQ(image.at(20, 28), nes(27)); // bits 2 to 5 do not count
    EXPECT_EQ(image.at(28, 28), nes(31));
}

TEST_F(SpriteDrawingTest, AttributeBits6And7Flip)
{
    EXPECT_EQ(draw({1, 1, 0, 0, 0x40}).at(27, 20), nes(17));
    EXPECT_EQ(draw({1, 1, 0, 0, 0x40}).at(26, 20), nes(19));
    EXPECT_EQ(draw({1, 1, 0, 0, 0x80}).at(20, 27), nes(17));
    EXPECT_EQ(draw({1, 1, 0, 0, 0xC0}).at(27, 27), nes(17));
}

TEST_F(SpriteDrawingTest, MirroredFrameFlipsPiecesAndTheirPlaces)
{
    const GraphicsState::SpriteStyle mirrored{.mirrored = true};
    // x + 3 becomes x - 11; the piece's left corner pixel comes to lie at its right end.
    EXPECT_EQ(draw({1, 1, 3, 0, 0x00}, mirrored).at(16, 20), nes(17));
    // A piece that was flipped already is drawn as stored.
    EXPECT_EQ(draw({1, 1, 3, 0, 0x40}, mirrored).at(9, 20), nes(17));
    // x - 8 becomes x; the vertical flip stays.
    EXPECT_EQ(draw({1, 1, 0xF8, 0, 0x80}, mirrored).at(27, 27), nes(17));
}

TEST_F(SpriteDrawingTest, MirroredOffsetsAreBytes)
{
    PixelImage image(300, 40, kPaper);
    // 0x7C: (0x7C ^ 0xFF) - 7 = 0x7C, so 124 stays 124 instead of becoming -132.
    drawAt(image, 0, 100, {1, 2, 0x7C, 0, 0}, {.mirrored = true});
    EXPECT_EQ(image.at(224, 0), nes(19));
    EXPECT_EQ(image.at(223, 0), kPaper);
}

TEST_F(SpriteDrawingTest, PieceAtTheLeftEdgeIsClipped)
{
    PixelImage image(40, 40, kPaper);
    drawAt(image, 10, 4, {1, 2, 0xF8, 0, 0}); // column 4 - 8 = -4
    EXPECT_EQ(image.at(0, 10), nes(19));
    EXPECT_EQ(image.at(3, 10), nes(19));
    EXPECT_EQ(image.at(4, 10), kPaper);
}

TEST_F(SpriteDrawingTest, PiecesShowWhileAPixelOfThemIsInside)
{
    for (const int last : {-7, 39}) {
        PixelImage image(40, 40, kPaper);
        drawAt(image, last, last, {1, 2, 0, 0, 0});
        EXPECT_EQ(image.at(last < 0 ? 0 : 39, last < 0 ? 0 : 39), nes(19));
    }
    PixelImage image(40, 40, kPaper);
    for (const int gone : {-8, 40}) {
        drawAt(image, gone, 0, {1, 2, 0, 0, 0});
        drawAt(image, 0, gone, {1, 2, 0, 0, 0});
    }
    EXPECT_EQ(image, PixelImage(40, 40, kPaper));
}

TEST_F(SpriteDrawingTest, AnyPositionIsSurvived)
{
    PixelImage image(40, 40, kPaper);
    for (const int far : {INT_MIN, INT_MAX}) {
        drawAt(image, far, 0, {2, 2, 0x80, 0x80, 0, 2, 0x7F, 0x7F, 0});
        drawAt(image, 0, far, {2, 2, 0x80, 0x80, 0, 2, 0x7F, 0x7F, 0});
    }
    EXPECT_EQ(image, PixelImage(40, 40, kPaper));
    PixelImage empty;
    drawAt(empty, 0, 0, {1, 2, 0, 0, 0});
    EXPECT_TRUE(empty.empty());
}

TEST_F(SpriteDrawingTest, LaterPiecesCoverEarlierOnes)
{
    EXPECT_EQ(draw({2, 2, 0, 0, 0, 2, 0, 0, 1}).at(20, 20), nes(23));
    EXPECT_EQ(draw({2, 2, 0, 0, 1, 2, 0, 0, 0}).at(20, 20), nes(19));
}

TEST_F(SpriteDrawingTest, FrameWithoutPiecesDrawsNothing)
{
    EXPECT_EQ(draw({0, 2, 0, 0, 0}), PixelImage(40, 40, kPaper));
}

TEST_F(SpriteDrawingTest, FrameOffsetChoosesTheFrame)
{
    const std::uint16_t address = game.addSprite({0, 5, 1, 2, 0, 0, 1, 5});
    const TestCore core(game);
    PixelImage image(8, 8, kPaper);
    core.graphics.drawSpriteFrame(image, 0, 0, address, 2, {});
    EXPECT_EQ(image, PixelImage(8, 8, nes(23)));
}

TEST_F(SpriteDrawingTest, ScriptRunsOnInTheFilePastItsBank)
{
    // The frame starts in the last byte of the sprite bank; its piece lies in the next bank of
    // the file, not in the one that $C000 would be mapped to.
    game.write(kHeaderSize + test::layout::kSpriteBank * kBankSize + 0x3FFF, {1, 2, 0, 0, 2});
    const TestCore core(game);
    PixelImage image(8, 8, kPaper);
    core.graphics.drawSpriteFrame(image, 0, 0, 0xBFFF, 0, {});
    EXPECT_EQ(image, PixelImage(8, 8, nes(27)));
}

TEST_F(SpriteDrawingTest, UpperAddressesUseTheSecondBank)
{
    game.write(kHeaderSize + test::layout::kFixedBank * kBankSize + 0x123, {1, 2, 0, 0, 2});
    const TestCore core(game);
    PixelImage image(8, 8, kPaper);
    core.graphics.drawSpriteFrame(image, 0, 0, 0xC123, 0, {});
    EXPECT_EQ(image, PixelImage(8, 8, nes(27)));
}

TEST_F(SpriteDrawingTest, HighlightTurnsEntry3OfEverySetOrange)
{
    const auto highlighted = [&](float brightness, std::uint8_t set) {
        return draw({1, 2, 0, 0, set}, {.highlight = true, .brightness = brightness}).at(20, 20);
    };
    EXPECT_EQ(highlighted(0.0F, 0), 0x000000U);
    EXPECT_EQ(highlighted(1.0F, 0), 0xFF5F3FU);
    EXPECT_EQ(highlighted(0.5F, 3), 0x7F2F1FU); // 127.5, 47.5 and 31.5, truncated
}

TEST_F(SpriteDrawingTest, HighlightLeavesEntries0To2)
{
    EXPECT_EQ(draw({1, 1, 0, 0, 0}, {.highlight = true, .brightness = 1.0F}).at(20, 20), nes(17));
}

TEST_F(SpriteDrawingTest, BrightnessOutsideItsRangeIsLimited)
{
    const auto highlighted = [&](float brightness) {
        return draw({1, 2, 0, 0, 0}, {.highlight = true, .brightness = brightness}).at(20, 20);
    };
    EXPECT_EQ(highlighted(-1.0F), 0x000000U);
    EXPECT_EQ(highlighted(1e30F), 0xFF5F3FU);
    EXPECT_EQ(highlighted(std::numeric_limits<float>::quiet_NaN()), 0x000000U);
}

TEST_F(SpriteDrawingTest, GivenColoursReplaceTheRoomsPalette)
{
    GraphicsState::SpriteStyle style{
        .highlight = true, .brightness = 1.0F, .useRoomPalette = false};
    for (std::uint32_t i = 0; i < 16; ++i)
        style.colours[i] = 0x500 + i;
    EXPECT_EQ(draw({1, 2, 0, 0, 0}, style).at(20, 20), 0x503U) << "no highlight without the room";
    EXPECT_EQ(draw({1, 2, 0, 0, 2}, style).at(20, 20), 0x50BU);
    EXPECT_EQ(draw({1, 1, 0, 0, 3}, style).at(20, 20), 0x50DU);
}

} // namespace
} // namespace velko
