#include "gfx/text_drawing.h"

#include "gfx/glyph_drawing.h"

#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace velko {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();
constexpr Pixel kGround = 0x204060;

struct CellSize {
    int width;
    int height;
};

// Sizes that views use, and the smallest that must stay legible.
constexpr CellSize kCaption{18, 24};
constexpr CellSize kThumbnail{10, 15};
constexpr CellSize kSmall{8, 12};

PixelImage textOn(PixelImage image, std::string_view text, int top, int left, CellSize cell,
                  std::uint32_t colour = 0xFFFFFF, std::uint32_t flags = kTextPlain)
{
    drawText(text, image, top, left, cell.width, cell.height, colour, flags);
    return image;
}

PixelImage ground(std::uint32_t width = 60, std::uint32_t height = 40)
{
    return PixelImage(width, height, kGround);
}

GlyphMask maskOf(char32_t character, CellSize cell)
{
    return drawGlyph(strokesOf(character), cell.width, cell.height);
}

// How much two characters differ, in fully covered pixels.
double difference(const GlyphMask& a, const GlyphMask& b)
{
    double sum = 0;
    for (std::size_t i = 0; i < a.coverage.size(); ++i)
        sum += std::abs(a.coverage[i] - b.coverage[i]) / 255.0;
    return sum;
}

TEST(DrawText, StemsAndBarsFillWholePixels)
{
    PixelImage image(10, 15);
    drawText("H", image, 0, 0, 10, 15, 0xFFFFFF);
    std::vector<std::string> rows;
    for (std::uint32_t y = 0; y < 15; ++y) {
        std::string row;
        for (std::uint32_t x = 0; x < 10; ++x)
            row += image.at(x, y) == 0 ? '.' : image.at(x, y) == 0xFFFFFF ? '#' : '+';
        rows.push_back(row);
    }
    EXPECT_THAT(rows,
                ElementsAre("..........", ".++....++.", ".##....##.", ".##....##.", ".##....##.",
                            ".##....##.", ".########.", ".########.", ".##....##.", ".##....##.",
                            ".##....##.", ".++....++.", "..........", "..........", ".........."));
}

TEST(DrawText, ColourIsBlueGreenRed)
{
    EXPECT_EQ(textOn(ground(), "H", 0, 0, kThumbnail, 0x3030F0).at(1, 5), 0xF03030U);
    EXPECT_EQ(textOn(ground(), "H", 0, 0, kThumbnail, 0x12345678).at(1, 5), 0x785634U);
}

TEST(DrawText, BackgroundShowsThrough)
{
    const PixelImage image = textOn(ground(10, 15), "H", 0, 0, kThumbnail);
    EXPECT_EQ(image.at(4, 3), kGround);
    EXPECT_EQ(image.at(0, 0), kGround);
    const Pixel corner = image.at(1, 1); // partly covered: between ground and text
    EXPECT_GT(corner & 0xFF, kGround & 0xFF);
    EXPECT_LT(corner & 0xFF, 0xFFU);
}

TEST(DrawText, EveryCharacterAdvancesByOneCell)
{
    PixelImage byHand = ground();
    drawText("W", byHand, 3, 4, 10, 15, 0xFFFFFF);
    drawText("i", byHand, 3, 14, 10, 15, 0xFFFFFF);
    drawText("0", byHand, 3, 34, 10, 15, 0xFFFFFF);
    EXPECT_EQ(textOn(ground(), "Wi 0", 3, 4, kThumbnail), byHand);
}

TEST(DrawText, EmptyAndBlankTextsDrawNothing)
{
    EXPECT_EQ(textOn(ground(), "", 0, 0, kThumbnail), ground());
    EXPECT_EQ(textOn(ground(), " \t\r\n\x7F\xC2\xA0", 0, 0, kThumbnail), ground());
    EXPECT_EQ(textOn(ground(), "  ", 0, 0, kThumbnail, 0xFFFFFF, kTextShadow | kTextOutline),
              ground());
}

TEST(DrawText, StaysInsideItsRectangle)
{
    for (const CellSize cell : {kCaption, kThumbnail, kSmall}) {
        const PixelImage image = textOn(ground(), "g|_Q@", 7, 9, cell);
        for (std::uint32_t y = 0; y < image.height(); ++y) {
            for (std::uint32_t x = 0; x < image.width(); ++x) {
                const bool inside = y >= 7 && static_cast<int>(y) < 7 + cell.height && x >= 9;
                EXPECT_TRUE(inside || image.at(x, y) == kGround) << x << ", " << y;
            }
        }
    }
}

TEST(DrawText, IsCutOffAtTheImagesEdges)
{
    // A part of the larger picture, whichever edge cuts it.
    const PixelImage whole = textOn(ground(100, 80), "Room 1f", 20, 20, kThumbnail, 0, 3);
    for (const auto& [x, y] : {std::pair(25, 10), std::pair(5, 27), std::pair(30, 30)}) {
        PixelImage part = ground(40, 20);
        drawText("Room 1f", part, 20 - y, 20 - x, 10, 15, 0, 3);
        PixelImage expected(40, 20);
        blit(expected, whole, -x, -y);
        EXPECT_EQ(part, expected) << x << ", " << y;
    }
}

TEST(DrawText, TakesAnyPosition)
{
    for (const int position : {kLowest, kLowest + 1, -1000000, kHighest - 1, kHighest}) {
        EXPECT_EQ(textOn(ground(), "Room", position, 0, kCaption, 0, 3), ground());
        EXPECT_EQ(textOn(ground(), "Room", 0, position, kCaption, 0, 3), ground());
        EXPECT_EQ(textOn(ground(), "Room", position, position, kCaption, 0, 3), ground());
    }
    PixelImage empty;
    drawText("Room", empty, 0, 0, 10, 15, 0);
    EXPECT_TRUE(empty.empty());
}

TEST(DrawText, ImpossibleSizesDrawNothing)
{
    for (const int size : {kLowest, -1, 0, 129, kHighest}) {
        EXPECT_EQ(textOn(ground(), "Room", 0, 0, {size, 15}, 0, 3), ground());
        EXPECT_EQ(textOn(ground(), "Room", 0, 0, {10, size}, 0, 3), ground());
    }
}

TEST(DrawText, EverySizeShowsEveryCharacter)
{
    for (const CellSize cell : {CellSize{1, 1}, CellSize{1, 40}, CellSize{40, 1}, CellSize{2, 3},
                                CellSize{5, 7}, CellSize{16, 16}, CellSize{32, 32}}) {
        for (char32_t character = U'!'; character <= U'~'; ++character)
            EXPECT_GT(std::ranges::max(maskOf(character, cell).coverage), 0)
                << static_cast<unsigned>(character) << " at " << cell.width << " x " << cell.height;
    }
}

TEST(DrawText, ShadowIsBlackThreePixelsRightAndDown)
{
    PixelImage byHand = ground();
    drawText("1f", byHand, 3 + 3, 4 + 3, 10, 15, 0x000000);
    drawText("1f", byHand, 3, 4, 10, 15, 0xFFFFFF);
    EXPECT_EQ(textOn(ground(), "1f", 3, 4, kThumbnail, 0xFFFFFF, kTextShadow), byHand);
}

TEST(DrawText, OutlineIsAGridOfBlackCopiesAroundTheText)
{
    struct Case {
        CellSize cell;
        int firstRow, lastRow, firstColumn, lastColumn;
    };
    // 10 x 15 grows to 12 x 18: 4 rows of 3 copies from 1 up and left. 18 x 24 grows to 22 x 30:
    // 7 rows of 5 copies from 3 up and 2 left. 8 x 12 grows to 10 x 15, 3 rows of 2.
    for (const Case c : {Case{kThumbnail, -1, 2, -1, 1}, Case{kCaption, -3, 3, -2, 2},
                         Case{kSmall, -1, 1, -1, 0}}) {
        PixelImage byHand = ground();
        for (int row = c.firstRow; row <= c.lastRow; ++row) {
            for (int column = c.firstColumn; column <= c.lastColumn; ++column)
                drawText("1f", byHand, 8 + row, 9 + column, c.cell.width, c.cell.height, 0);
        }
        drawText("1f", byHand, 8, 9, c.cell.width, c.cell.height, 0x80FF40);
        EXPECT_EQ(textOn(ground(), "1f", 8, 9, c.cell, 0x80FF40, kTextOutline), byHand);
    }
}

TEST(DrawText, ShadowLiesUnderTheOutline)
{
    PixelImage byHand = ground();
    drawText("1f", byHand, 8 + 3, 9 + 3, 18, 24, 0);
    drawText("1f", byHand, 8, 9, 18, 24, 0xFFFFFF, kTextOutline);
    EXPECT_EQ(textOn(ground(), "1f", 8, 9, kCaption, 0xFFFFFF, kTextShadow | kTextOutline), byHand);
}

TEST(DrawText, TinyOutlinesHaveNoCopies)
{
    // 3 x 3 does not grow: a quarter of 3 is no row.
    EXPECT_EQ(textOn(ground(), "1f", 8, 9, {3, 3}, 0xFFFFFF, kTextOutline),
              textOn(ground(), "1f", 8, 9, {3, 3}, 0xFFFFFF));
}

TEST(DrawText, LettersLoseTheirAccents)
{
    struct Case {
        std::string_view accented;
        std::string_view plain;
    };
    for (const Case c :
         {Case{"\u00C0\u00C5\u00C7\u00C9", "AACE"}, Case{"\u00D1\u00D6\u00D8\u00DC\u00DD", "NOOUY"},
          Case{"\u00E0\u00E5\u00E7\u00E9", "aace"}, Case{"\u00F1\u00F6\u00F8\u00FC\u00FF", "noouy"},
          Case{"\u00D0\u00F0\u00D7", "Ddx"}, Case{"\u00CC\u00EF", "Ii"}})
        EXPECT_EQ(textOn(ground(), c.accented, 0, 0, kThumbnail),
                  textOn(ground(), c.plain, 0, 0, kThumbnail));
}

TEST(DrawText, OtherCharactersAreHollowBoxes)
{
    const PixelImage box = textOn(ground(), "\u20AC", 0, 0, kThumbnail);
    EXPECT_NE(box, ground());
    EXPECT_EQ(box.at(4, 6), kGround); // hollow
    for (const std::string_view text :
         {"\u00A9", "\u00C6", "\u00DF", "\u00F7", "\u0141", "\U0001F600"})
        EXPECT_EQ(textOn(ground(), text, 0, 0, kThumbnail), box) << text;
}

TEST(DrawText, BytesThatAreNoUtf8CountAsLatin1)
{
    const PixelImage expected = textOn(ground(), "e2A", 0, 0, kThumbnail);
    EXPECT_EQ(textOn(ground(),
                     "\xE9"
                     "2A",
                     0, 0, kThumbnail),
              expected);
    EXPECT_EQ(textOn(ground(), "e2\xC0", 0, 0, kThumbnail), expected); // cut off at the end
    EXPECT_EQ(textOn(ground(),
                     "\xE9"
                     "2\xC4",
                     0, 0, kThumbnail),
              expected);
    // A continuation byte alone is a Latin-1 control character: blank, one cell wide.
    EXPECT_EQ(textOn(ground(),
                     "\x82"
                     "2A",
                     0, 0, kThumbnail),
              textOn(ground(), " 2A", 0, 0, kThumbnail));
}

TEST(DrawText, SequencesThatUtf8ForbidsCountAsLatin1)
{
    struct Case {
        std::string bytes;
        std::string_view shown; // Latin-1 0x80 to 0xA0 are blanks
    };
    for (const Case& c : {
             Case{"\xC1\x81", "A "},           // 'A' in two bytes
             Case{"\xE0\x81\x81", "a  "},      // in three
             Case{"\xF0\x80\x81\x81", "d   "}, // in four
             Case{"\xE0\x9F\x80", "a  "},      // U+07C0 needs two bytes only
             Case{"\xF0\x8F\x80\x80", "d   "}, // U+F000 needs three
             Case{"\xED\xA0\x80", "i  "},      // the first surrogate
             Case{"\xF4\x90\x80\x80", "o   "}, // U+110000
             Case{"\xF5\x80\x80\x80", "o   "},
         })
        EXPECT_EQ(textOn(ground(), c.bytes + "2", 0, 0, kThumbnail),
                  textOn(ground(), std::string(c.shown) + "2", 0, 0, kThumbnail));
}

TEST(DrawText, SequencesAtTheLimitsAreOneCharacter)
{
    const PixelImage box = textOn(ground(), "\u20AC2", 0, 0, kThumbnail);
    for (const std::string_view last : {"\u0800", "\uD7FF", "\uE000", "\U00010000", "\U0010FFFF"})
        EXPECT_EQ(textOn(ground(), std::string(last) + "2", 0, 0, kThumbnail), box);
    EXPECT_EQ(textOn(ground(),
                     "\xC2\x80"
                     "2",
                     0, 0, kThumbnail),
              textOn(ground(), " 2", 0, 0, kThumbnail));
}

TEST(DrawText, CharactersCannotBeTakenForEachOther)
{
    // In fully covered pixels; a stem of the small face has about 18.
    struct Case {
        std::u32string_view characters;
        CellSize cell;
        double least;
    };
    constexpr std::u32string_view kHexDigits = U"0123456789abcdef";
    std::u32string all;
    for (char32_t character = U'!'; character <= U'~'; ++character)
        all += character;
    for (const Case& c : {Case{kHexDigits, kSmall, 6}, Case{kHexDigits, kThumbnail, 8},
                          Case{kHexDigits, kCaption, 20}, Case{all, kThumbnail, 0.5}}) {
        std::vector<GlyphMask> masks;
        for (const char32_t character : c.characters) {
            masks.push_back(maskOf(character, c.cell));
            for (std::size_t i = 0; i + 1 < masks.size(); ++i)
                EXPECT_GE(difference(masks[i], masks.back()), c.least)
                    << static_cast<char>(c.characters[i]) << static_cast<char>(character) << " at "
                    << c.cell.width << " x " << c.cell.height;
        }
    }
}

TEST(DrawText, FaceIsBold)
{
    // Stems at least an eighth of the height of capitals, for all sizes that views use.
    for (const CellSize cell : {kSmall, kThumbnail, kCaption, CellSize{32, 32}}) {
        const GlyphMask mask = maskOf(U'l', cell);
        const auto middleRow = mask.coverage.begin() + (cell.height / 2) * cell.width;
        const auto solid = std::count(middleRow, middleRow + cell.width, 255);
        EXPECT_GE(static_cast<double>(solid), cell.height * 0.72 / 8) << cell.height;
    }
}

RC_GTEST_PROP(DrawText, AnyTextAnywhereLeavesPixelsPixels, ())
{
    const auto text = *rc::gen::container<std::string>(rc::gen::arbitrary<char>());
    PixelImage image = ground(30, 20);
    drawText(text, image, *rc::gen::inRange(-30, 30), *rc::gen::inRange(-200, 40),
             *rc::gen::inRange(-1, 30), *rc::gen::inRange(-1, 30),
             *rc::gen::arbitrary<std::uint32_t>(), *rc::gen::inRange<std::uint32_t>(0, 4));
    RC_ASSERT(std::ranges::all_of(image.pixels(), [](Pixel pixel) { return pixel <= 0xFFFFFF; }));
}

} // namespace
} // namespace velko
