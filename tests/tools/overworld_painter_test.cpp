#include "tools/overworld_painter.h"

#include "tests/tools/overworld_rom.h"

namespace velko {
namespace {

using test::Bytes;
using test::OverworldRom;
using test::solidTile;
namespace overworld = test::overworld;

constexpr Pixel kBlank = 0x123456;
constexpr Pixel kBlack = 0x000000;
constexpr Pixel kWhite = 0xFFFFFF;

// Entry e of the palettes is colour e. Tiles 0 to 3 of table 1 have pixels of one value each; of
// tile 1 of table 0 only the top left pixel has a value, 1.
class OverworldPainterTest : public test::OverworldTest {
protected:
    OverworldPainterTest()
    {
        for (std::uint8_t entry = 0; entry < 32; ++entry)
            game.write(overworld::kPalettes + entry, {entry});
        start();
        for (std::uint8_t value = 0; value < 4; ++value)
            setTile(0x1000, value, solidTile(value));
        setTile(0, 1, {0x80, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
    }
    void setTile(std::size_t table, std::size_t number, const Bytes& tile)
    {
        std::copy(tile.begin(), tile.end(),
                  state.graphics.patternMemory.begin() + static_cast<std::ptrdiff_t>(table)
                      + static_cast<std::ptrdiff_t>(16 * number));
    }
    void setChunk(std::size_t preset, const Bytes& tiles)
    {
        std::copy(tiles.begin(), tiles.end(),
                  state.config.gameMapTileChunks.begin() + static_cast<std::ptrdiff_t>(4 * preset));
    }
    static constexpr Pixel colour(std::uint32_t entry) { return OverworldRom::colour(entry); }
    // The pixels of the blank picture that are not blank any more.
    std::size_t drawnPixels() const
    {
        const auto pixels = picture.pixels();
        return pixels.size()
            - static_cast<std::size_t>(std::count(pixels.begin(), pixels.end(), kBlank));
    }

    OverworldMap map{state.rom, state.config};
    OverworldPainter painter{state.rom, state.config, state.graphics, map};
    PixelImage picture{208, 144, kBlank};
};

// Tiles

TEST_F(OverworldPainterTest, MapIsDrawnInThePalettesOfItsCells)
{
    map.setTile({0, 0}, 2);
    map.setTile({25, 17}, 3);
    map.setPalette({0, 0}, 3);
    map.setPalette({25, 17}, 1);
    painter.drawTiles(picture);
    ASSERT_EQ(picture.width(), 208U);
    ASSERT_EQ(picture.height(), 144U);
    EXPECT_EQ(picture.at(0, 0), colour(4 * 3 + 2));
    EXPECT_EQ(picture.at(7, 7), colour(4 * 3 + 2));
    EXPECT_EQ(picture.at(8, 7), colour(0)); // cell (1, 0): tile 0, palette 0
    EXPECT_EQ(picture.at(207, 143), colour(4 * 1 + 3));
    EXPECT_EQ(picture.at(200, 136), colour(4 * 1 + 3));
    EXPECT_EQ(picture.at(199, 143), colour(4 * 0 + 0));
}

TEST_F(OverworldPainterTest, EachPaletteHasItsOwnFirstColour)
{
    map.setPalette({5, 5}, 2);
    painter.drawTiles(picture);
    EXPECT_EQ(picture.at(40, 40), colour(8));
}

TEST_F(OverworldPainterTest, ColourNumbersHaveSixBits)
{
    game.write(overworld::kPalettes, {0xC5});
    state.rom.setBytes(game.bytes);
    painter.drawTiles(picture);
    EXPECT_EQ(picture.at(100, 100), colour(5));
}

// Icons

TEST_F(OverworldPainterTest, IconIsBlendedAtHalfStrengthColumnByColumn)
{
    setValue(MiscField::areas, 0);
    setChunk(0, {0, 1, 2, 3});
    fill(picture, colour(10)); // 0x4A341E
    painter.drawAreaIcons(picture);
    // Area 0 at (64, 72): its icon's corner is (32, 40). Colours 0 to 3 are 0x402000 and each
    // 0x010203 more.
    EXPECT_EQ(picture.at(32, 40), 0x452A0FU);
    EXPECT_EQ(picture.at(39, 47), 0x452A0FU);
    EXPECT_EQ(picture.at(32, 48), 0x452B10U); // below: tile 1
    EXPECT_EQ(picture.at(40, 40), 0x462C12U); // to the right: tile 2
    EXPECT_EQ(picture.at(47, 55), 0x462D13U);
    for (const auto& [x, y] : {std::pair{31U, 40U}, {48U, 40U}, {32U, 39U}, {32U, 56U}})
        EXPECT_EQ(picture.at(x, y), colour(10));
}

TEST_F(OverworldPainterTest, EveryAreaHasAnIcon)
{
    setChunk(0, {1, 1, 1, 1});
    setChunk(1, {2, 2, 2, 2});
    fill(picture, 0);
    painter.drawAreaIcons(picture);
    EXPECT_EQ(picture.at(32, 40), 0x201101U); // half of 0x412203
    EXPECT_EQ(picture.at(96, 40), 0x211203U); // half of 0x422406
    EXPECT_EQ(picture.at(32, 88), 0x201000U); // area 2, past the given chunks: tile 0
    EXPECT_EQ(picture.at(64, 40), 0U);
}

TEST_F(OverworldPainterTest, IconHasThePaletteOfTheCellUnderItsCorner)
{
    setValue(MiscField::areas, 0);
    state.rom.writeByte(overworld::kAreas, 71); // the corner (39, 40) lies in cell (4, 5)
    map.setPalette({4, 5}, 3);
    fill(picture, colour(12)); // where both are equal, blending shows the colour itself
    painter.drawAreaIcons(picture);
    EXPECT_EQ(picture.at(39, 40), colour(12));
    state.rom.writeByte(overworld::kAreas, 72); // (40, 40): cell (5, 5)
    painter.drawAreaIcons(picture);
    EXPECT_EQ(picture.at(40, 40), 0x462C12U); // of 0x4C3824 and 0x402000
}

TEST_F(OverworldPainterTest, IconsStickOutOnAllSides)
{
    setValue(MiscField::areas, 3);
    game.write(overworld::kAreas, {20, 20, 0, 0, 231, 167, 255, 255});
    state.rom.setBytes(game.bytes);
    setChunk(0, {3, 3, 3, 3});
    map.setPalette({-2, -2}, 2); // of the corner at (-12, -12)
    fill(picture, 0);
    painter.drawAreaIcons(picture);
    EXPECT_EQ(picture.at(3, 3), 0x251B10U); // half of colour 4 x 2 + 3, 0x4B3621
    EXPECT_EQ(picture.at(4, 3), 0U);
    EXPECT_EQ(picture.at(199, 135), 0x201000U);
    EXPECT_EQ(picture.at(207, 143), 0x201000U);
    EXPECT_EQ(picture.at(198, 143), 0U);
}

TEST_F(OverworldPainterTest, FrameLiesAroundTheAreasCentre)
{
    painter.drawAreaFrame(picture, {64, 72}); // centre (40, 48)
    EXPECT_EQ(picture.at(29, 37), kBlack);
    EXPECT_EQ(picture.at(30, 38), kWhite);
    EXPECT_EQ(picture.at(31, 39), kWhite);
    EXPECT_EQ(picture.at(32, 40), kBlank);
    EXPECT_EQ(picture.at(50, 58), kBlack);
    EXPECT_EQ(picture.at(28, 37), kBlank);
    EXPECT_EQ(picture.at(51, 58), kBlank);
    EXPECT_EQ(drawnPixels(), 22U * 22 - 16 * 16);
}

// Sprites

TEST_F(OverworldPainterTest, QuadSpriteHasFourPartsLeftColumnFirst)
{
    state.rom.writeByte(overworld::kQuads + 3, 0x20);
    const Bytes parts = {1, 0x00, 1, 0x40, 1, 0x81, 1, 0xC2};
    for (std::uint32_t i = 0; i < parts.size(); ++i)
        state.rom.writeByte(overworld::kQuads + 0x20 + i, parts[i]);
    painter.drawQuadSprite(picture, 3, 50, 60);
    EXPECT_EQ(picture.at(42, 52), colour(17)); // set 4, value 1
    EXPECT_EQ(picture.at(49, 60), colour(17)); // flipped horizontally
    EXPECT_EQ(picture.at(50, 59), colour(21)); // flipped vertically, set 5
    EXPECT_EQ(picture.at(57, 67), colour(25)); // both, set 6
    EXPECT_EQ(drawnPixels(), 4U);
}

TEST_F(OverworldPainterTest, QuadSpriteOutsideThePictureIsClipped)
{
    painter.drawQuadSprite(picture, 0, -24, -24);
    painter.drawQuadSprite(picture, 0, 231, 231);
    EXPECT_EQ(drawnPixels(), 0U);
}

class PathPreviewTest : public OverworldPainterTest {
protected:
    PathPreviewTest()
    {
        // One piece, 4 pixels right of and 2 below the position, in set 5.
        const std::uint16_t script = game.addSprite({1, 1, 4, 2, 0x01, 30});
        for (std::uint32_t number = 0; number < 16; ++number)
            game.write(
                overworld::kPreviews + 2 * number,
                {static_cast<std::uint8_t>(script & 0xFF), static_cast<std::uint8_t>(script >> 8)});
        // Preview 5 is a frame of its own.
        const std::uint16_t other = game.addSprite({1, 1, 0, 0, 0x03, 30});
        game.write(
            overworld::kPreviews + 10,
            {static_cast<std::uint8_t>(other & 0xFF), static_cast<std::uint8_t>(other >> 8)});
        state.rom.setBytes(game.bytes);
    }
    bool mirrored(std::uint8_t number, std::uint8_t chopperSprite)
    {
        fill(picture, kBlank);
        painter.drawPathPreview(picture, number, chopperSprite, 100, 50);
        EXPECT_EQ(drawnPixels(), 1U);
        const bool plain = picture.at(104, 52) == colour(21);
        const bool mirror = picture.at(95, 52) == colour(21);
        EXPECT_NE(plain, mirror);
        return mirror;
    }
};

TEST_F(PathPreviewTest, PreviewsForSpritesThatFaceLeftAreMirrored)
{
    for (const std::uint8_t chopper : Bytes{0, 1, 6, 7, 8, 9, 14, 15})
        EXPECT_FALSE(mirrored(0, chopper)) << int{chopper};
    for (const std::uint8_t chopper : Bytes{2, 3, 4, 5, 10, 11, 12, 13})
        EXPECT_TRUE(mirrored(0, chopper)) << int{chopper};
}

TEST_F(PathPreviewTest, Preview14IsAlwaysMirrored)
{
    EXPECT_TRUE(mirrored(14, 0));
    EXPECT_TRUE(mirrored(14, 2));
    EXPECT_FALSE(mirrored(15, 0));
    EXPECT_FALSE(mirrored(13, 0));
}

TEST_F(PathPreviewTest, EachPreviewHasItsOwnFrame)
{
    painter.drawPathPreview(picture, 5, 0, 100, 50);
    EXPECT_EQ(picture.at(100, 50), colour(29)); // set 7
}

// Paths

TEST_F(OverworldPainterTest, LevelSegmentIsThreePixelsHigh)
{
    painter.drawPath(picture, std::vector<PathSegment>{{{64, 72}, 0, 0}}, 1);
    for (const std::uint32_t x : {40U, 55U}) {
        EXPECT_EQ(picture.at(x, 47), kWhite);
        EXPECT_EQ(picture.at(x, 48), 0xFF4040U);
        EXPECT_EQ(picture.at(x, 49), kWhite);
    }
    EXPECT_EQ(drawnPixels(), 3U * 16);
}

TEST_F(OverworldPainterTest, UprightSegmentIsThreePixelsWide)
{
    painter.drawPath(picture, std::vector<PathSegment>{{{64, 72}, 6, 0}}, 1);
    for (const std::uint32_t y : {48U, 33U}) {
        EXPECT_EQ(picture.at(39, y), kWhite);
        EXPECT_EQ(picture.at(40, y), 0xFF4040U);
        EXPECT_EQ(picture.at(41, y), kWhite);
    }
    EXPECT_EQ(drawnPixels(), 3U * 16);
}

TEST_F(OverworldPainterTest, SlantingSegmentHasALineOnEachSide)
{
    painter.drawPath(picture, std::vector<PathSegment>{{{64, 72}, 3, 0}}, 0);
    EXPECT_EQ(picture.at(40, 48), 0x4040FFU); // the current phase
    EXPECT_EQ(picture.at(25, 63), 0x4040FFU);
    EXPECT_EQ(picture.at(24, 63), kWhite);
    EXPECT_EQ(picture.at(26, 63), kWhite);
    EXPECT_EQ(drawnPixels(), 3U * 16);
}

TEST_F(OverworldPainterTest, CurrentPhaseLiesOnTop)
{
    // Right in phase 0, back left in phase 1.
    const std::vector<PathSegment> path = {{{64, 72}, 0, 0}, {{80, 72}, 4, 1}};
    painter.drawPath(picture, path, 0);
    EXPECT_EQ(picture.at(40, 48), 0x4040FFU);
    EXPECT_EQ(picture.at(55, 48), 0x4040FFU);
    EXPECT_EQ(picture.at(56, 48), 0xFF4040U);
    painter.drawPath(picture, path, 1);
    EXPECT_EQ(picture.at(40, 48), 0xFF4040U);
    EXPECT_EQ(picture.at(55, 48), 0x4040FFU);
    EXPECT_EQ(picture.at(56, 48), 0x4040FFU);
}

TEST_F(OverworldPainterTest, PathOutsideThePictureIsClipped)
{
    painter.drawPath(
        picture,
        std::vector<PathSegment>{{{0, 0}, 5, 0}, {{-4000, 4000}, 3, 0}, {{255, 255}, 1, 0}}, 0);
    EXPECT_EQ(drawnPixels(), 0U);
}

} // namespace
} // namespace velko
