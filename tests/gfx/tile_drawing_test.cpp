#include "gfx/tile_drawing.h"

#include <climits>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <vector>

namespace velko {
namespace {

constexpr ColourSet4 kColours = {0x10, 0x11, 0x12, 0x13};
constexpr Pixel kPaper = 0xABCDEF;

using Tile = std::array<std::uint8_t, 16>;

// Row 0: values 0 1 2 3 0 1 2 3; the other rows: value 3 in column 0 only.
constexpr Tile kTile = {0x55, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80,
                        0x33, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80};

constexpr Tile kSolid3 = {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF,
                          0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF};

std::vector<Pixel> rowOf(const PixelImage& image, std::uint32_t y)
{
    return {image.row(y), image.row(y) + image.width()};
}

// The rules of the opaque draw, one pixel at a time.
void drawOpaqueSlowly(PixelImage& image, int y, int x, const Tile& tile, const ColourSet4& colours)
{
    const int width = static_cast<int>(image.width());
    const int height = static_cast<int>(image.height());
    const int rows = y + 7 >= height ? height - y : 8;
    const int columns = x + 7 >= width ? width - x : 8;
    int destination = y * width + x;
    for (int row = 0; row < rows; ++row) {
        unsigned plane0 = tile[static_cast<std::size_t>(row)];
        unsigned plane1 = tile[static_cast<std::size_t>(row + 8)];
        for (int column = 0; column < columns; ++column) {
            if (destination >= 0)
                image.pixels()[static_cast<std::size_t>(destination)] =
                    colours[(plane0 >> 7) + 2 * (plane1 >> 7)];
            plane0 = (plane0 << 1) & 0xFF;
            plane1 = (plane1 << 1) & 0xFF;
            ++destination;
        }
        destination += width - 8;
    }
}

Pixel valueAt(const Tile& tile, int row, int column)
{
    const auto r = static_cast<std::size_t>(row);
    return ((tile[r] >> (7 - column)) & 1U) + 2 * ((tile[r + 8] >> (7 - column)) & 1U);
}

TEST(TileDrawingTest, PlanesGiveTheValueAndBit7IsLeftmost)
{
    PixelImage image(8, 8, kPaper);
    drawTileOpaque(image, 0, 0, kTile, kColours);
    EXPECT_EQ(rowOf(image, 0),
              (std::vector<Pixel>{0x10, 0x11, 0x12, 0x13, 0x10, 0x11, 0x12, 0x13}));
    for (std::uint32_t y = 1; y < 8; ++y)
        EXPECT_EQ(rowOf(image, y),
                  (std::vector<Pixel>{0x13, 0x10, 0x10, 0x10, 0x10, 0x10, 0x10, 0x10}));
}

TEST(TileDrawingTest, OpaqueDrawTouchesItsEightByEightOnly)
{
    PixelImage image(12, 11, kPaper);
    drawTileOpaque(image, 2, 3, kSolid3, kColours);
    for (std::uint32_t y = 0; y < 11; ++y) {
        for (std::uint32_t x = 0; x < 12; ++x) {
            const bool inside = y >= 2 && y < 10 && x >= 3 && x < 11;
            EXPECT_EQ(image.at(x, y), inside ? 0x13 : kPaper) << y << ' ' << x;
        }
    }
}

TEST(TileDrawingTest, OpaqueTileIsCutAtTheBottom)
{
    PixelImage image(8, 10, kPaper);
    drawTileOpaque(image, 9, 0, kTile, kColours);
    EXPECT_EQ(image.at(1, 9), 0x11U);
    EXPECT_EQ(image.at(0, 8), kPaper);
}

// Two columns are cut off, so each further row starts two pixels further to the left.
TEST(TileDrawingTest, OpaqueTileCutAtTheRightShiftsFurtherRowsLeft)
{
    PixelImage image(8, 6, kPaper);
    drawTileOpaque(image, 0, 2, kTile, kColours);
    const Pixel p = kPaper;
    EXPECT_EQ(rowOf(image, 0), (std::vector<Pixel>{p, p, 0x10, 0x11, 0x12, 0x13, 0x10, 0x11}));
    EXPECT_EQ(rowOf(image, 1),
              (std::vector<Pixel>{0x13, 0x10, 0x10, 0x10, 0x10, 0x10, 0x13, 0x10}));
    EXPECT_EQ(rowOf(image, 2),
              (std::vector<Pixel>{0x10, 0x10, 0x10, 0x10, 0x13, 0x10, 0x10, 0x10}));
    EXPECT_EQ(rowOf(image, 3),
              (std::vector<Pixel>{0x10, 0x10, 0x13, 0x10, 0x10, 0x10, 0x10, 0x10}));
    EXPECT_EQ(rowOf(image, 4), (std::vector<Pixel>{0x13, 0x10, 0x10, 0x10, 0x10, 0x10, p, p}));
    EXPECT_EQ(rowOf(image, 5), (std::vector<Pixel>(8, p)));
}

TEST(TileDrawingTest, OpaqueTilePastTheImageDrawsNothing)
{
    PixelImage image(16, 16, kPaper);
    for (const auto& [y, x] : {std::pair{16, 0}, {0, 16}, {100, 100}, {INT_MAX, 0}, {0, INT_MAX}})
        drawTileOpaque(image, y, x, kSolid3, kColours);
    EXPECT_EQ(image, PixelImage(16, 16, kPaper));
}

TEST(TileDrawingTest, OpaqueTileWithANegativeCornerDrawsNothing)
{
    PixelImage image(16, 16, kPaper);
    for (const auto& [y, x] : {std::pair{-1, 0}, {0, -1}, {INT_MIN, INT_MIN}})
        drawTileOpaque(image, y, x, kSolid3, kColours);
    EXPECT_EQ(image, PixelImage(16, 16, kPaper));
}

TEST(TileDrawingTest, ImagesSmallerThanATileAreDrawnWithoutLeavingThem)
{
    PixelImage empty;
    drawTileOpaque(empty, 0, 0, kSolid3, kColours);
    drawTileTransparent(empty, 0, 0, kSolid3, kColours, false, false);
    EXPECT_TRUE(empty.empty());

    // Each row starts 2 x 3 - 8 = 2 pixels before the one above, before the image from row 1 on.
    PixelImage narrow(3, 4, kPaper);
    drawTileOpaque(narrow, 0, 0, kTile, kColours);
    EXPECT_EQ(rowOf(narrow, 0), (std::vector<Pixel>{0x10, 0x11, 0x12}));
    EXPECT_EQ(rowOf(narrow, 1), (std::vector<Pixel>(3, kPaper)));
}

RC_GTEST_PROP(TileDrawingProperty, OpaqueDrawEqualsThePlainOne, (Tile tile, ColourSet4 colours))
{
    const auto size = [] { return static_cast<std::uint32_t>(*rc::gen::inRange(0, 25)); };
    PixelImage fast(size(), size(), kPaper);
    PixelImage slow = fast;
    const int y = *rc::gen::inRange(0, 30);
    const int x = *rc::gen::inRange(0, 30);
    drawTileOpaque(fast, y, x, tile, colours);
    if (x < static_cast<int>(slow.width()))
        drawOpaqueSlowly(slow, y, x, tile, colours);
    RC_ASSERT(fast == slow);
}

TEST(TileDrawingTest, TransparentDrawLeavesValue0Alone)
{
    PixelImage image(8, 8, kPaper);
    drawTileTransparent(image, 0, 0, kTile, kColours, false, false);
    EXPECT_EQ(rowOf(image, 0),
              (std::vector<Pixel>{kPaper, 0x11, 0x12, 0x13, kPaper, 0x11, 0x12, 0x13}));
    EXPECT_EQ(image.at(0, 7), 0x13U);
    EXPECT_EQ(image.at(1, 7), kPaper);
}

TEST(TileDrawingTest, TransparentDrawFlips)
{
    PixelImage image(8, 8, kPaper);
    drawTileTransparent(image, 0, 0, kTile, kColours, true, false);
    EXPECT_EQ(rowOf(image, 0),
              (std::vector<Pixel>{0x13, 0x12, 0x11, kPaper, 0x13, 0x12, 0x11, kPaper}));
    EXPECT_EQ(image.at(7, 1), 0x13U);

    fill(image, kPaper);
    drawTileTransparent(image, 0, 0, kTile, kColours, false, true);
    EXPECT_EQ(rowOf(image, 7),
              (std::vector<Pixel>{kPaper, 0x11, 0x12, 0x13, kPaper, 0x11, 0x12, 0x13}));
    EXPECT_EQ(image.at(0, 0), 0x13U);
}

TEST(TileDrawingTest, TransparentDrawIsClippedOnAllSides)
{
    PixelImage image(4, 4, kPaper);
    drawTileTransparent(image, -6, -7, kSolid3, kColours, false, false);
    PixelImage expected(4, 4, kPaper);
    expected.row(0)[0] = 0x13;
    expected.row(1)[0] = 0x13;
    EXPECT_EQ(image, expected);

    fill(image, kPaper);
    drawTileTransparent(image, 3, 2, kSolid3, kColours, false, false);
    expected = PixelImage(4, 4, kPaper);
    expected.row(3)[2] = 0x13;
    expected.row(3)[3] = 0x13;
    EXPECT_EQ(image, expected);

    fill(image, kPaper);
    for (const int far : {INT_MIN, -8, 4, INT_MAX}) {
        drawTileTransparent(image, far, 0, kSolid3, kColours, false, false);
        drawTileTransparent(image, 0, far, kSolid3, kColours, true, true);
    }
    EXPECT_EQ(image, PixelImage(4, 4, kPaper));
}

RC_GTEST_PROP(TileDrawingProperty, TransparentPixelIsTheTilesUnlessItIs0,
              (Tile tile, ColourSet4 colours, bool hFlip, bool vFlip))
{
    const auto size = [] { return static_cast<std::uint32_t>(*rc::gen::inRange(0, 20)); };
    PixelImage image(size(), size(), kPaper);
    const int top = *rc::gen::inRange(-10, 25);
    const int left = *rc::gen::inRange(-10, 25);
    drawTileTransparent(image, top, left, tile, colours, hFlip, vFlip);
    for (std::uint32_t y = 0; y < image.height(); ++y) {
        for (std::uint32_t x = 0; x < image.width(); ++x) {
            const int row = static_cast<int>(y) - top;
            const int column = static_cast<int>(x) - left;
            Pixel value = 0;
            if (row >= 0 && row < 8 && column >= 0 && column < 8)
                value = valueAt(tile, vFlip ? 7 - row : row, hFlip ? 7 - column : column);
            RC_ASSERT(image.at(x, y) == (value == 0 ? kPaper : colours[value]));
        }
    }
}

} // namespace
} // namespace velko
