#include "gfx/pixel_image.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <initializer_list>
#include <rapidcheck/gtest.h>

namespace velko {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;

Pixel grey(Pixel level)
{
    return level << 16 | level << 8 | level;
}

PixelImage greyRow(std::initializer_list<Pixel> levels)
{
    PixelImage image(static_cast<std::uint32_t>(levels.size()), 1);
    std::ranges::transform(levels, image.pixels().begin(), grey);
    return image;
}

PixelImage scaled(const PixelImage& source, std::uint32_t width, std::uint32_t height)
{
    PixelImage image(width, height, 0xEEEEEE);
    copyScaled(image, source);
    return image;
}

// The rule written down pixel by pixel, as the reference for the program's faster scaler.
float channelAt(const PixelImage& source, std::uint32_t x, std::uint32_t y, unsigned shift)
{
    if (x >= source.width() || y >= source.height())
        return 0.0F;
    return static_cast<float>((source.at(x, y) >> shift) & 0xFF);
}

PixelImage plainlyScaled(const PixelImage& source, std::uint32_t width, std::uint32_t height)
{
    PixelImage image(width, height);
    const float stepX = static_cast<float>(source.width()) / static_cast<float>(width);
    const float stepY = static_cast<float>(source.height()) / static_cast<float>(height);
    for (std::uint32_t y = 0; y < height; ++y) {
        for (std::uint32_t x = 0; x < width; ++x) {
            const float sourceX = static_cast<float>(x) * stepX;
            const float sourceY = static_cast<float>(y) * stepY;
            const auto left = static_cast<std::uint32_t>(sourceX);
            const auto top = static_cast<std::uint32_t>(sourceY);
            const float fractionX = sourceX - static_cast<float>(left);
            const float fractionY = sourceY - static_cast<float>(top);
            Pixel pixel = 0;
            for (const unsigned shift : {16U, 8U, 0U}) {
                const float a = channelAt(source, left, top, shift);
                const float b = channelAt(source, left + 1, top, shift);
                const float c = channelAt(source, left, top + 1, shift);
                const float d = channelAt(source, left + 1, top + 1, shift);
                const float upper = a + (b - a) * fractionX;
                const float lower = c + (d - c) * fractionX;
                const float mixed = upper + (lower - upper) * fractionY;
                pixel |= static_cast<Pixel>(mixed) << shift;
            }
            image.row(y)[x] = pixel;
        }
    }
    return image;
}

std::uint32_t anySide(int limit)
{
    return static_cast<std::uint32_t>(*rc::gen::inRange(1, limit));
}

PixelImage anyPicture(int limit)
{
    PixelImage image(anySide(limit), anySide(limit));
    auto seed = *rc::gen::arbitrary<std::uint32_t>();
    for (Pixel& pixel : image.pixels()) {
        seed = seed * 1664525U + 1013904223U;
        pixel = seed >> 8;
    }
    return image;
}

TEST(CopyScaled, EqualSizesCopyUnchanged)
{
    PixelImage source(256, 240);
    for (std::size_t i = 0; i < source.pixels().size(); ++i)
        source.pixels()[i] = static_cast<Pixel>(i * 2654435761U); // the unused byte included
    EXPECT_EQ(scaled(source, 256, 240), source);
}

TEST(CopyScaled, DoublingMixesHalfwayAndDarkensTheRightEdge)
{
    // Positions 0, 0.5, 1, 1.5; the last lies halfway to the black beyond the edge.
    EXPECT_THAT(scaled(greyRow({100, 201}), 4, 1).pixels(),
                ElementsAre(grey(100), grey(150), grey(201), grey(100)));
}

TEST(CopyScaled, DoublingDarkensTheBottomEdge)
{
    PixelImage source(1, 2);
    source.pixels()[0] = 0x64C800;
    source.pixels()[1] = 0x0000FF;
    EXPECT_THAT(scaled(source, 1, 4).pixels(),
                ElementsAre(0x64C800U, 0x32647FU, 0x0000FFU, 0x00007FU));
}

TEST(CopyScaled, MixesHorizontallyThenVertically)
{
    PixelImage source(2, 2);
    source.pixels()[0] = grey(10);
    source.pixels()[1] = grey(21);
    source.pixels()[2] = grey(41);
    source.pixels()[3] = grey(81);
    const PixelImage result = scaled(source, 4, 4);
    EXPECT_EQ(result.at(1, 1), grey(38)); // (15.5 + 61) / 2 = 38.25
    EXPECT_EQ(result.at(3, 1), grey(25)); // (10.5 + 40.5) / 2 = 25.5
    EXPECT_EQ(result.at(1, 3), grey(30)); // 61 / 2 = 30.5
    EXPECT_EQ(result.at(3, 3), grey(20)); // 81 / 4 = 20.25
}

TEST(CopyScaled, TruncatesOnlyOnce)
{
    PixelImage source(2, 2);
    source.pixels()[0] = grey(3);
    source.pixels()[3] = grey(5);
    // 1.5 above and 2.5 below mix to 2; truncated on the way, 1 and 2 would give 1.
    EXPECT_EQ(scaled(source, 4, 4).at(1, 1), grey(2));
}

TEST(CopyScaled, HalvingTakesEverySecondPixel)
{
    EXPECT_THAT(scaled(greyRow({10, 99, 30, 77}), 2, 1).pixels(), ElementsAre(grey(10), grey(30)));
}

TEST(CopyScaled, ScalesOneSideAlone)
{
    EXPECT_THAT(scaled(PixelImage(3, 1, grey(80)), 3, 2).pixels(),
                ElementsAre(grey(80), grey(80), grey(80), grey(40), grey(40), grey(40)));
}

TEST(CopyScaled, FromOnePixelFadesToBlack)
{
    EXPECT_THAT(scaled(greyRow({200}), 4, 1).pixels(),
                ElementsAre(grey(200), grey(150), grey(100), grey(50)));
}

TEST(CopyScaled, IgnoresTheUnusedByte)
{
    EXPECT_EQ(scaled(PixelImage(1, 1, 0xFF123456), 2, 1).at(0, 0), 0x123456U);
}

TEST(CopyScaled, EmptyImagesAreFine)
{
    EXPECT_THAT(scaled(PixelImage(), 2, 2).pixels(), Each(0U));
    EXPECT_THAT(scaled(PixelImage(0, 9), 2, 2).pixels(), Each(0U));
    EXPECT_TRUE(scaled(PixelImage(4, 4, 1), 0, 0).empty());
    EXPECT_TRUE(scaled(PixelImage(4, 4, 1), 3, 0).empty());
    EXPECT_TRUE(scaled(PixelImage(), 0, 0).empty());
}

RC_GTEST_PROP(CopyScaled, EqualsThePlainRuleExactly, ())
{
    const PixelImage source = anyPicture(70);
    const std::uint32_t width = anySide(90);
    const std::uint32_t height = anySide(90);
    if (width != source.width() || height != source.height())
        RC_ASSERT(scaled(source, width, height) == plainlyScaled(source, width, height));
}

TEST(CopyScaled, EqualsThePlainRuleAtTheSizesOfTheViews)
{
    struct Sizes {
        std::uint32_t fromWidth, fromHeight, toWidth, toHeight;
    };
    for (const Sizes s :
         {Sizes{256, 240, 57, 115}, Sizes{256, 240, 230, 230}, Sizes{384, 384, 640, 480},
          Sizes{320, 320, 448, 420}, Sizes{512, 480, 28, 230}, Sizes{128, 128, 282, 282}}) {
        PixelImage source(s.fromWidth, s.fromHeight);
        for (std::size_t i = 0; i < source.pixels().size(); ++i)
            source.pixels()[i] = static_cast<Pixel>(i * 2654435761U) >> 8;
        EXPECT_EQ(scaled(source, s.toWidth, s.toHeight),
                  plainlyScaled(source, s.toWidth, s.toHeight));
    }
}

RC_GTEST_PROP(CopyScaled, FlatAreasKeepTheirColour, ())
{
    const Pixel colour = *rc::gen::inRange<Pixel>(0, 0x1000000);
    const PixelImage source(anySide(300), anySide(300), colour);
    const std::uint32_t width = anySide(300);
    const std::uint32_t height = anySide(300);
    const PixelImage result = scaled(source, width, height);
    // Positions up to the last column and row have no black neighbour.
    bool exact = true;
    const float stepX = static_cast<float>(source.width()) / static_cast<float>(width);
    const float stepY = static_cast<float>(source.height()) / static_cast<float>(height);
    for (std::uint32_t y = 0; y < height; ++y) {
        for (std::uint32_t x = 0; x < width; ++x) {
            if (static_cast<float>(x) * stepX <= static_cast<float>(source.width() - 1)
                && static_cast<float>(y) * stepY <= static_cast<float>(source.height() - 1))
                exact = exact && result.at(x, y) == colour;
        }
    }
    RC_ASSERT(exact);
}

RC_GTEST_PROP(CopyScaled, ChannelsStayBetweenTheirNeighbours, ())
{
    // Black and white only: whatever the sizes, no channel may leave 0 to 255 into another one.
    PixelImage source = anyPicture(40);
    for (Pixel& pixel : source.pixels())
        pixel = (pixel & 1) != 0 ? 0xFFFFFF : 0;
    const PixelImage result = scaled(source, anySide(60), anySide(60));
    for (const Pixel pixel : result.pixels())
        RC_ASSERT(pixel == grey(pixel & 0xFF));
}

TEST(CopyScaledNearest, EqualSizesCopyUnchanged)
{
    const PixelImage source(4, 4, 0xFF123456);
    PixelImage image(4, 4);
    copyScaledNearest(image, source);
    EXPECT_EQ(image, source);
}

TEST(CopyScaledNearest, TakesThePixelAtTheTruncatedPosition)
{
    PixelImage image(5, 1);
    copyScaledNearest(image, greyRow({10, 20, 30})); // positions 0, 0.6, 1.2, 1.8, 2.4
    EXPECT_THAT(image.pixels(), ElementsAre(grey(10), grey(10), grey(20), grey(20), grey(30)));
}

TEST(CopyScaledNearest, PositionsAreComputedInSinglePrecision)
{
    PixelImage source(30, 1);
    for (Pixel i = 0; i < 30; ++i)
        source.pixels()[i] = i;
    PixelImage image(22, 1);
    copyScaledNearest(image, source);
    EXPECT_EQ(image.at(11, 0), 15U); // in double precision 14.999999999999998
    PixelImage few(14, 1);
    std::ranges::copy(source.pixels().first(14), few.pixels().begin());
    image.allocate(1, 46);
    copyScaledNearest(image, few);
    EXPECT_EQ(image.at(23, 0), 6U); // 6.9999995; in double precision 7
}

TEST(CopyScaledNearest, WorksInBothDirections)
{
    PixelImage source(2, 4);
    for (Pixel i = 0; i < 8; ++i)
        source.pixels()[i] = i;
    PixelImage image(4, 2);
    copyScaledNearest(image, source); // columns 0, 0, 1, 1 of rows 0 and 2
    EXPECT_THAT(image.pixels(), ElementsAre(0U, 0U, 1U, 1U, 4U, 4U, 5U, 5U));
}

TEST(CopyScaledNearest, EmptyImagesAreFine)
{
    PixelImage image(2, 2, 7);
    copyScaledNearest(image, PixelImage());
    EXPECT_THAT(image.pixels(), Each(0U));
    PixelImage empty;
    copyScaledNearest(empty, image);
    EXPECT_TRUE(empty.empty());
}

} // namespace
} // namespace velko
