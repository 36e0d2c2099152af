#include "gfx/pixel_image.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace velko {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();

// The picture as text: a letter per pixel value, 0 as '.', 1 as 'a', black and white of frames
// as 'B' and 'W'.
std::vector<std::string> drawn(const PixelImage& image)
{
    std::vector<std::string> rows;
    for (std::uint32_t y = 0; y < image.height(); ++y) {
        std::string row;
        for (std::uint32_t x = 0; x < image.width(); ++x) {
            const Pixel pixel = image.at(x, y);
            row += pixel == 0xFFFFFF ? 'W' : pixel == 0 ? '.' : static_cast<char>('a' + pixel - 1);
        }
        rows.push_back(row);
    }
    return rows;
}

TEST(PixelImage, StartsEmpty)
{
    const PixelImage image;
    EXPECT_EQ(image.width(), 0U);
    EXPECT_EQ(image.height(), 0U);
    EXPECT_TRUE(image.empty());
}

TEST(PixelImage, RowsLieOneAfterTheOther)
{
    PixelImage image(3, 2, 0xABCDEF);
    EXPECT_THAT(image.pixels(), Each(0xABCDEFU));
    image.row(1)[2] = 0x123456;
    EXPECT_EQ(image.at(2, 1), 0x123456U);
    EXPECT_EQ(image.pixels()[5], 0x123456U);
    EXPECT_EQ(image.pixels().size(), 6U);
}

TEST(PixelImage, AllocateTakesHeightThenWidthAndClears)
{
    PixelImage image(5, 5, 0xFFFFFF);
    image.allocate(2, 4);
    EXPECT_EQ(image.height(), 2U);
    EXPECT_EQ(image.width(), 4U);
    EXPECT_EQ(image.pixels().size(), 8U);
    EXPECT_THAT(image.pixels(), Each(0U));
}

TEST(PixelImage, AllocateOfOneZeroSideHasNoPixels)
{
    PixelImage image(2, 2);
    image.allocate(0, 7);
    EXPECT_TRUE(image.empty());
    EXPECT_EQ(image.width(), 7U);
    image.allocate(7, 0);
    EXPECT_TRUE(image.empty());
    EXPECT_EQ(image.height(), 7U);
}

TEST(PixelImage, SizeAboveTheLimitGivesNoImage)
{
    struct Size {
        std::uint32_t height;
        std::uint32_t width;
    };
    // The second multiplies to 2^32, which is 0 in 32 bits; the last to 2^62 bytes.
    for (const Size size : {Size{8193, 8192}, Size{65536, 65536}, Size{1, kLargestImage + 1},
                            Size{0xFFFFFFFF, 0xFFFFFFFF}, Size{0x80000000, 0x80000000}}) {
        PixelImage image(2, 2);
        image.allocate(size.height, size.width);
        EXPECT_TRUE(image.empty());
        EXPECT_EQ(image.width(), 0U);
        EXPECT_EQ(image.height(), 0U);
    }
}

TEST(Fill, SetsEveryPixel)
{
    PixelImage image(3, 2, 1);
    fill(image, 2);
    EXPECT_THAT(drawn(image), ElementsAre("bbb", "bbb"));
    PixelImage empty;
    fill(empty, 2);
    EXPECT_TRUE(empty.empty());
}

TEST(FillRectangle, SetsExactlyTheBlock)
{
    PixelImage image(5, 4);
    fillRectangle(image, 1, 2, 2, 3, 1);
    EXPECT_THAT(drawn(image), ElementsAre(".....", "..aaa", "..aaa", "....."));
}

TEST(FillRectangle, IsClippedOnEverySide)
{
    PixelImage image(5, 4);
    fillRectangle(image, -1, -2, 2, 4, 1);
    fillRectangle(image, 3, 4, 9, 9, 2);
    EXPECT_THAT(drawn(image), ElementsAre("aa...", ".....", ".....", "....b"));
}

TEST(FillRectangle, OutsideOrWithoutExtentDrawsNothing)
{
    PixelImage image(3, 3);
    fillRectangle(image, 3, 0, 2, 2, 1);
    fillRectangle(image, 0, 3, 2, 2, 1);
    fillRectangle(image, -2, 0, 2, 2, 1);
    fillRectangle(image, 0, 0, 0, 3, 1);
    fillRectangle(image, 2, 2, -2, -2, 1);
    fillRectangle(image, kHighest, kHighest, kHighest, kHighest, 1);
    fillRectangle(image, kLowest, kLowest, kHighest, kHighest, 1);
    EXPECT_THAT(image.pixels(), Each(0U));
}

TEST(FillRectangle, AnyExtentCoversTheImageAtMost)
{
    PixelImage image(3, 2);
    fillRectangle(image, -1, -1, kHighest, kHighest, 1);
    EXPECT_THAT(image.pixels(), Each(1U));
}

TEST(DrawOutline, IsOnePixelLargerThanItsExtents)
{
    PixelImage image(6, 5);
    drawOutline(image, 1, 1, 2, 3, 1);
    EXPECT_THAT(drawn(image), ElementsAre("......", ".aaaa.", ".a..a.", ".aaaa.", "......"));
}

TEST(DrawOutline, OfNoExtentIsALineOrAPoint)
{
    PixelImage image(5, 3);
    drawOutline(image, 0, 0, 0, 0, 1);
    drawOutline(image, 2, 1, 0, 3, 2);
    EXPECT_THAT(drawn(image), ElementsAre("a....", ".....", ".bbbb"));
}

TEST(DrawOutline, IsClippedPixelByPixel)
{
    PixelImage image(4, 4);
    drawOutline(image, -1, -1, 3, 3, 1);
    drawOutline(image, 3, 3, 5, 5, 2);
    EXPECT_THAT(drawn(image), ElementsAre("..a.", "..a.", "aaa.", "...b"));
}

TEST(DrawOutline, OfNegativeExtentDrawsNothing)
{
    PixelImage image(4, 4);
    drawOutline(image, 2, 2, -1, 1, 1);
    drawOutline(image, 2, 2, 1, -1, 1);
    EXPECT_THAT(image.pixels(), Each(0U));
}

TEST(DrawOutline, TakesAnyPosition)
{
    PixelImage image(3, 3);
    drawOutline(image, kLowest, 1, kHighest, kHighest, 1); // ends at row -1
    EXPECT_THAT(image.pixels(), Each(0U));
    drawOutline(image, -5, 1, kHighest, kHighest, 1);
    drawOutline(image, kHighest, kHighest, kHighest, kHighest, 2);
    EXPECT_THAT(drawn(image), ElementsAre(".a.", ".a.", ".a."));
}

TEST(DrawSelectionFrame, IsABlackLineAroundATwoPixelWhiteBand)
{
    PixelImage image(10, 9, 3);
    drawSelectionFrame(image, 1, 1, 7, 8);
    EXPECT_THAT(drawn(image),
                ElementsAre("cccccccccc", "c........c", "c.WWWWWW.c", "c.WWWWWW.c", "c.WWccWW.c",
                            "c.WWWWWW.c", "c.WWWWWW.c", "c........c", "cccccccccc"));
}

TEST(DrawSelectionFrame, OfASwatchLeavesItsMiddle)
{
    PixelImage image(28, 28, 5);
    drawSelectionFrame(image, 0, 0, 28, 28);
    for (const std::uint32_t i : {0U, 27U}) {
        EXPECT_EQ(image.at(i, 14), 0x000000U);
        EXPECT_EQ(image.at(14, i), 0x000000U);
    }
    for (const std::uint32_t i : {1U, 2U, 25U, 26U}) {
        EXPECT_EQ(image.at(i, 14), 0xFFFFFFU);
        EXPECT_EQ(image.at(14, i), 0xFFFFFFU);
    }
    for (const std::uint32_t i : {3U, 24U}) {
        EXPECT_EQ(image.at(i, 14), 5U);
        EXPECT_EQ(image.at(14, i), 5U);
    }
}

TEST(DrawSelectionFrame, AroundACellLeavesTheCell)
{
    PixelImage image(30, 30, 5);
    drawSelectionFrame(image, 8 - 3, 8 - 3, 22, 22); // around the 16x16 cell at (8, 8)
    EXPECT_EQ(image.at(8, 8), 5U);
    EXPECT_EQ(image.at(23, 23), 5U);
    EXPECT_EQ(image.at(7, 7), 0xFFFFFFU);
    EXPECT_EQ(image.at(24, 24), 0xFFFFFFU);
    EXPECT_EQ(image.at(5, 5), 0x000000U);
    EXPECT_EQ(image.at(26, 26), 0x000000U);
    EXPECT_EQ(image.at(27, 27), 5U);
}

TEST(DrawSelectionFrame, TooSmallForTheBandDrawsWhatFits)
{
    PixelImage image(5, 5, 3);
    drawSelectionFrame(image, 1, 1, 3, 3);
    EXPECT_THAT(drawn(image), ElementsAre("ccccc", "c...c", "c.W.c", "c...c", "ccccc"));
    drawSelectionFrame(image, 0, 0, 0, 5);
    drawSelectionFrame(image, 0, 0, kLowest, kLowest);
    drawSelectionFrame(image, kHighest, kHighest, kHighest, kHighest);
    EXPECT_EQ(image.at(0, 0), 3U);
}

// Pixel values 1 to 6 in reading order.
PixelImage numbered(std::uint32_t width, std::uint32_t height)
{
    PixelImage image(width, height);
    for (std::size_t i = 0; i < image.pixels().size(); ++i)
        image.pixels()[i] = static_cast<Pixel>(i + 1);
    return image;
}

TEST(Blit, CopiesInside)
{
    PixelImage image(5, 4);
    blit(image, numbered(3, 2), 1, 2);
    EXPECT_THAT(drawn(image), ElementsAre(".....", ".....", ".abc.", ".def."));
}

TEST(Blit, IsClippedOnEverySide)
{
    struct Case {
        int x;
        int y;
        std::vector<std::string> picture;
    };
    const Case cases[] = {
        {-1, -1, {"ef...", ".....", "....."}}, {4, 2, {".....", ".....", "....a"}},
        {-2, 2, {".....", ".....", "c...."}},  {3, -1, {"...de", ".....", "....."}},
        {-3, 0, {".....", ".....", "....."}},  {5, 0, {".....", ".....", "....."}},
        {0, 3, {".....", ".....", "....."}},   {0, -2, {".....", ".....", "....."}},
    };
    for (const Case& c : cases) {
        PixelImage image(5, 3);
        blit(image, numbered(3, 2), c.x, c.y);
        EXPECT_EQ(drawn(image), c.picture) << "at " << c.x << ", " << c.y;
    }
}

TEST(Blit, SourceLargerThanTheDestinationShowsItsPart)
{
    PixelImage image(2, 1);
    blit(image, numbered(4, 3), -1, -2);
    EXPECT_THAT(drawn(image), ElementsAre("jk"));
}

TEST(Blit, TakesAnyPositionAndAnyImage)
{
    PixelImage image(2, 2);
    for (const int position : {kLowest, -3, 2, kHighest}) {
        blit(image, numbered(2, 2), position, 0);
        blit(image, numbered(2, 2), 0, position);
        blit(image, numbered(2, 2), position, position);
    }
    blit(image, PixelImage(), 0, 0);
    blit(image, PixelImage(0, 5), 0, 0);
    EXPECT_THAT(image.pixels(), Each(0U));
    PixelImage empty;
    blit(empty, image, 0, 0);
    EXPECT_TRUE(empty.empty());
}

TEST(Blit, MixesEachChannelAndTruncates)
{
    PixelImage image(1, 1, 0x0A64FF);
    blit(image, PixelImage(1, 1, 0x0F3201), 0, 0, 0.5F);
    // (15 + 10) / 2 = 12.5, (50 + 100) / 2 = 75, (1 + 255) / 2 = 128
    EXPECT_EQ(image.at(0, 0), 0x0C4B80U);
}

TEST(Blit, TransparencyIsTheShareOfTheDestination)
{
    PixelImage image(1, 1, 0xC80000);
    blit(image, PixelImage(1, 1, 0x000064), 0, 0, 0.25F);
    EXPECT_EQ(image.at(0, 0), 0x32004BU); // 200 / 4 and 100 x 3 / 4
}

TEST(Blit, FullTransparencyDrawsNothingAndNoneCopies)
{
    for (const float t : {1.0F, 1.5F, std::numeric_limits<float>::infinity()}) {
        PixelImage image(1, 1, 0x102030);
        blit(image, PixelImage(1, 1, 0xFFFFFF), 0, 0, t);
        EXPECT_EQ(image.at(0, 0), 0x102030U) << t;
    }
    for (const float t : {0.0F, -0.5F, -std::numeric_limits<float>::infinity(), std::nanf("")}) {
        PixelImage image(1, 1, 0x102030);
        blit(image, PixelImage(1, 1, 0xFFFFFF), 0, 0, t);
        EXPECT_EQ(image.at(0, 0), 0xFFFFFFU) << t;
    }
}

TEST(TintImage, MultipliesChannelByChannelAndTruncates)
{
    PixelImage image(3, 1);
    image.pixels()[0] = 0xFFFFFF;
    image.pixels()[1] = 0x6496C8; // 100, 150, 200
    image.pixels()[2] = 0x000000;
    tintImage(image, 0xF0A000);
    // 100 x 240 / 255 = 94.1, 150 x 160 / 255 = 94.1, 200 x 0
    EXPECT_THAT(image.pixels(), ElementsAre(0xF0A000U, 0x5E5E00U, 0x000000U));
}

TEST(TintImage, WhiteChangesNothingAndExactProductsStayExact)
{
    PixelImage image(1, 1, 0x3366FF); // 51, 102, 255
    tintImage(image, 0xFFFFFF);
    EXPECT_EQ(image.at(0, 0), 0x3366FFU);
    tintImage(image, 0x9B9B33); // 51 x 155 / 255 = 31, 102 x 155 / 255 = 62, 51
    EXPECT_EQ(image.at(0, 0), 0x1F3E33U);
}

TEST(TintImage, IgnoresTheUnusedByte)
{
    PixelImage image(1, 1, 0x80FFFFFF);
    tintImage(image, 0x40102030);
    EXPECT_EQ(image.at(0, 0), 0x102030U);
}

TEST(SwapRedAndBlue, ExchangesTheOuterBytes)
{
    EXPECT_EQ(swapRedAndBlue(0x3030F0), 0xF03030U);
    EXPECT_EQ(swapRedAndBlue(0x123456), 0x563412U);
}

} // namespace
} // namespace velko
