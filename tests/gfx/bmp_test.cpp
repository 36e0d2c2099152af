#include "gfx/bmp.h"

#include "tests/gfx/bmp_builder.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace velko {
namespace {

using test::BmpBuilder;
using ::testing::ElementsAre;

constexpr std::uint8_t kPad = 0xEE;

// Decodes into an image that held another picture before.
BmpResult decode(const std::vector<std::uint8_t>& file, PixelImage& image)
{
    image = PixelImage(3, 3, 0x777777);
    return decodeBmp(file, image);
}

void expectRefused(const std::vector<std::uint8_t>& file, BmpResult expected)
{
    PixelImage image;
    EXPECT_EQ(decode(file, image), expected);
    EXPECT_TRUE(image.empty());
    EXPECT_EQ(image.width(), 0U);
    EXPECT_EQ(image.height(), 0U);
}

// 2 x 2 pixels of 24 bits, each row padded from 6 to 8 bytes.
BmpBuilder small24()
{
    BmpBuilder bmp(2, 2, 24);
    bmp.add({0x01, 0x02, 0x03, 0x04, 0x05, 0x06, kPad, kPad}); // bottom row
    bmp.add({0x11, 0x12, 0x13, 0x14, 0x15, 0x16, kPad, kPad}); // top row
    return bmp;
}

// 3 x 2 pixels of 8 bits with a table of three colours, each row padded from 3 to 4 bytes.
BmpBuilder small8()
{
    BmpBuilder bmp(3, 2, 8);
    bmp.setU32(10, 54 + 12);
    bmp.add({0x10, 0x20, 0x30, 0xFF, 0x40, 0x50, 0x60, 0xFF, 0x70, 0x80, 0x90, 0xFF});
    bmp.add({0, 1, 2, kPad}); // bottom row
    bmp.add({2, 1, 0, kPad}); // top row
    return bmp;
}

TEST(DecodeBmp, Reads24BitRowsBottomUp)
{
    PixelImage image;
    EXPECT_EQ(decode(small24().bytes(), image), BmpResult::kDone);
    EXPECT_EQ(image.width(), 2U);
    EXPECT_EQ(image.height(), 2U);
    EXPECT_THAT(image.pixels(), ElementsAre(0x131211U, 0x161514U, 0x030201U, 0x060504U));
}

TEST(DecodeBmp, Reads8BitRowsThroughTheColourTable)
{
    PixelImage image;
    EXPECT_EQ(decode(small8().bytes(), image), BmpResult::kDone);
    EXPECT_EQ(image.width(), 3U);
    EXPECT_EQ(image.height(), 2U);
    EXPECT_THAT(image.pixels(),
                ElementsAre(0x908070U, 0x605040U, 0x302010U, 0x302010U, 0x605040U, 0x908070U));
}

TEST(DecodeBmp, PadsEveryRowToFourBytes)
{
    struct Case {
        std::uint32_t width;
        std::size_t rowBytes;
    };
    for (const Case c : {Case{1, 4}, Case{2, 8}, Case{3, 12}, Case{4, 12}, Case{5, 16}}) {
        BmpBuilder bmp(c.width, 2, 24);
        bmp.add(std::vector<std::uint8_t>(c.rowBytes, 0x22));
        bmp.add(std::vector<std::uint8_t>(c.rowBytes, 0x33));
        PixelImage image;
        ASSERT_EQ(decode(bmp.bytes(), image), BmpResult::kDone) << c.width;
        EXPECT_EQ(image.at(c.width - 1, 0), 0x333333U);
        EXPECT_EQ(image.at(0, 1), 0x222222U);
        // One byte less than the pixels need, the last row's padding aside.
        const std::size_t needed = bmp.bytes().size() - (c.rowBytes - c.width * 3);
        expectRefused(bmp.cutTo(needed - 1).bytes(), BmpResult::kNoBitmap);
    }
}

TEST(DecodeBmp, LastRowsPaddingMayBeMissing)
{
    PixelImage image;
    EXPECT_EQ(decode(small24().cutTo(54 + 14).bytes(), image), BmpResult::kDone);
    EXPECT_EQ(image.at(1, 0), 0x161514U);
}

TEST(DecodeBmp, PixelsStartAtTheStoredOffset)
{
    BmpBuilder bmp(1, 1, 24);
    bmp.setU32(10, 60).add({9, 9, 9, 9, 9, 9, 0xCC, 0xBB, 0xAA, 0});
    PixelImage image;
    EXPECT_EQ(decode(bmp.bytes(), image), BmpResult::kDone);
    EXPECT_EQ(image.at(0, 0), 0xAABBCCU);
}

TEST(DecodeBmp, ColourTableFollowsTheInfoHeaderWhereverThePixelsLie)
{
    BmpBuilder bmp = small8();
    bmp.setU32(10, 54 + 12 + 4); // both rows one row later
    bmp.add({1, 1, 1, kPad});
    PixelImage image;
    EXPECT_EQ(decode(bmp.bytes(), image), BmpResult::kDone);
    EXPECT_THAT(image.pixels(),
                ElementsAre(0x605040U, 0x605040U, 0x605040U, 0x908070U, 0x605040U, 0x302010U));
}

TEST(DecodeBmp, CompressionIsNotExamined)
{
    PixelImage image;
    EXPECT_EQ(decode(small24().setU32(30, 1).bytes(), image), BmpResult::kDone);
    EXPECT_EQ(image.at(0, 0), 0x131211U);
}

TEST(DecodeBmp, ColourPastTheEndOfTheFileIsBlack)
{
    BmpBuilder bmp = small8(); // 74 bytes: entry 5 starts at 74, entry 4 lies in the pixels
    bmp.setByte(66, 5).setByte(67, 255).setByte(68, 4);
    PixelImage image;
    EXPECT_EQ(decode(bmp.bytes(), image), BmpResult::kDone);
    EXPECT_EQ(image.at(0, 1), 0x000000U);
    EXPECT_EQ(image.at(1, 1), 0x000000U);
    EXPECT_EQ(image.at(2, 1), 0x000102U); // the top row's 2, 1, 0 taken as a colour
}

TEST(DecodeBmp, RefusesWhatIsNoBitmap)
{
    expectRefused({}, BmpResult::kNoBitmap);
    expectRefused({'B'}, BmpResult::kNoBitmap);
    expectRefused({'B', 'M'}, BmpResult::kNoBitmap);
    expectRefused(small24().setByte(0, 'b').bytes(), BmpResult::kNoBitmap);
    expectRefused(small24().setByte(1, 'A').bytes(), BmpResult::kNoBitmap);
}

TEST(DecodeBmp, RefusesOtherInfoHeaders)
{
    for (const std::uint32_t size : {0U, 12U, 39U, 41U, 124U, 40U + 0x10000U, 0xFFFFFFFFU})
        expectRefused(small24().setU32(14, size).bytes(), BmpResult::kOtherHeader);
}

TEST(DecodeBmp, RefusesOtherDepths)
{
    for (const std::uint32_t bits : {0U, 1U, 4U, 16U, 23U, 25U, 32U, 0x108U, 0xFFFFU})
        expectRefused(small24().setU16(28, bits).bytes(), BmpResult::kOtherDepth);
}

TEST(DecodeBmp, RefusesTopDownRows)
{
    expectRefused(small24().setU32(22, 0xFFFFFFFE).bytes(), BmpResult::kOtherDepth);
}

TEST(DecodeBmp, RefusesZeroAndNegativeSizes)
{
    for (const std::uint32_t side : {0U, 0x80000000U, 0xFFFFFFFFU}) {
        expectRefused(small24().setU32(18, side).bytes(), BmpResult::kOtherDepth);
        expectRefused(small8().setU32(22, side).bytes(), BmpResult::kOtherDepth);
    }
}

TEST(DecodeBmp, RefusesSizesThatTheFileCannotHold)
{
    for (const std::uint32_t side : {3U, 0x10000U, 0x55555556U, 0x7FFFFFFFU}) {
        expectRefused(small24().setU32(18, side).bytes(), BmpResult::kNoBitmap);
        expectRefused(small24().setU32(22, side).bytes(), BmpResult::kNoBitmap);
        expectRefused(small24().setU32(18, side).setU32(22, side).bytes(), BmpResult::kNoBitmap);
        expectRefused(small8().setU32(22, side).bytes(), BmpResult::kNoBitmap);
    }
}

TEST(DecodeBmp, RefusesPixelsThatStartPastTheFile)
{
    // The file of 70 bytes holds 14 bytes of pixels and two of padding.
    for (const std::uint32_t offset : {57U, 70U, 0x7FFFFFFFU, 0xFFFFFFFFU})
        expectRefused(small24().setU32(10, offset).bytes(), BmpResult::kNoBitmap);
}

TEST(DecodeBmp, RefusesAFileCutAnywhere)
{
    const std::vector<std::uint8_t> whole = small8().bytes();
    for (std::size_t size = 0; size + 1 < whole.size(); ++size) // the last byte is padding
        expectRefused({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)},
                      BmpResult::kNoBitmap);
}

TEST(DecodeBmp, RefusesMorePixelsThanAnImageMayHave)
{
    const std::uint32_t side = 8193; // 8193 x 8193 > 2^26
    BmpBuilder bmp(side, side, 8);
    bmp.cutTo(54 + std::size_t{8196} * side);
    expectRefused(bmp.bytes(), BmpResult::kTooLarge);
}

RC_GTEST_PROP(DecodeBmp, TakesAnyBytes, ())
{
    auto file = *rc::gen::container<std::vector<std::uint8_t>>(rc::gen::arbitrary<std::uint8_t>());
    file.resize(std::max<std::size_t>(file.size(), 54));
    const std::vector<std::uint8_t> start = small8().bytes();
    std::copy_n(start.begin(), *rc::gen::inRange(0, 30), file.begin());
    PixelImage image;
    const BmpResult result = decodeBmp(file, image);
    RC_ASSERT(image.empty() == (result != BmpResult::kDone));
}

} // namespace
} // namespace velko
