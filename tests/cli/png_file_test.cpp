#include "cli/png_file.h"

#include "tests/cli/png_reader.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

namespace velko {
namespace {

using test::enlarged;
using test::readPng;

// Of the header: bits per channel, and 2 for colours as they are, 3 for indexed ones.
constexpr std::size_t kBitDepth = 24;
constexpr std::size_t kColourType = 25;

// A picture 32 pixels wide that shows `count` different colours.
PixelImage pictureOf(std::uint32_t count)
{
    PixelImage image(32, (count + 31) / 32);
    for (std::uint32_t i = 0; i < image.pixels().size(); ++i)
        image.pixels()[i] = i % count * 0x0305;
    return image;
}

struct Form {
    std::uint32_t colours;
    int bitDepth;
    int colourType;
};

class PngForm : public ::testing::TestWithParam<Form> { };

TEST_P(PngForm, TakesAsFewBitsAsTheColoursNeed)
{
    const PixelImage image = pictureOf(GetParam().colours);
    const auto file = encodePng(image).value();
    EXPECT_EQ(file[kBitDepth], GetParam().bitDepth);
    EXPECT_EQ(file[kColourType], GetParam().colourType);
    EXPECT_EQ(readPng(file), image);
}

INSTANTIATE_TEST_SUITE_P(Colours, PngForm,
                         ::testing::Values(Form{1, 1, 3}, Form{2, 1, 3}, Form{3, 2, 3},
                                           Form{4, 2, 3}, Form{5, 4, 3}, Form{16, 4, 3},
                                           Form{17, 8, 3}, Form{256, 8, 3}, Form{257, 8, 2}));

TEST(PngFile, ScaleRepeatsPixels)
{
    PixelImage image(2, 1);
    image.row(0)[0] = 0x112233;
    image.row(0)[1] = 0xFFEEDD;
    const PixelImage large = readPng(encodePng(image, 2).value());
    EXPECT_EQ(large.width(), 4U);
    EXPECT_EQ(large.height(), 2U);
    EXPECT_THAT(large.pixels(),
                ::testing::ElementsAre(0x112233, 0x112233, 0xFFEEDD, 0xFFEEDD, 0x112233, 0x112233,
                                       0xFFEEDD, 0xFFEEDD));
}

TEST(PngFile, ScaleOfAPictureWithManyColours)
{
    const PixelImage image = pictureOf(300);
    EXPECT_EQ(readPng(encodePng(image, 3).value()), enlarged(image, 3));
}

RC_GTEST_PROP(PngFile, DecodesToTheSamePicture, ())
{
    const auto width = *rc::gen::inRange<std::uint32_t>(1, 40);
    const auto height = *rc::gen::inRange<std::uint32_t>(1, 40);
    const auto colours = *rc::gen::inRange<Pixel>(1, 0x1000000);
    const auto scale = *rc::gen::inRange<std::uint32_t>(1, 5);
    PixelImage image(width, height);
    for (Pixel& pixel : image.pixels())
        pixel = *rc::gen::inRange<Pixel>(0, colours);
    RC_ASSERT(readPng(encodePng(image, scale).value()) == enlarged(image, scale));
}

TEST(PngFile, NoPixelsMakeNoFile)
{
    EXPECT_FALSE(encodePng(PixelImage()));
}

TEST(PngFile, LimitOfPixels)
{
    EXPECT_TRUE(fitsPng(8192, 8192, 1)); // 2^26 pixels
    EXPECT_FALSE(fitsPng(8192, 8193, 1));
    EXPECT_TRUE(fitsPng(512, 512, 16));
    EXPECT_FALSE(fitsPng(512, 513, 16));
    EXPECT_FALSE(fitsPng(64768, 61200, 1)); // the largest size that a room can be given
    EXPECT_FALSE(fitsPng(0, 5, 1));
    EXPECT_FALSE(fitsPng(5, 5, 0));
    EXPECT_FALSE(fitsPng(0xFFFFFFFFFFFFFFFF, 0xFFFFFFFFFFFFFFFF, 0xFFFFFFFF));
}

} // namespace
} // namespace velko
