#include "rom/number_text.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace velko {
namespace {

using namespace std::string_view_literals;

TEST(HexText, LowerCaseWithoutPrefixOrPadding)
{
    EXPECT_EQ(hexText(0), "0");
    EXPECT_EQ(hexText(10), "a");
    EXPECT_EQ(hexText(255), "ff");
    EXPECT_EQ(hexText(4096), "1000");
    EXPECT_EQ(hexText(0xFFFFFFFF), "ffffffff");
}

TEST(DecimalText, WithoutPadding)
{
    EXPECT_EQ(decimalText(0), "0");
    EXPECT_EQ(decimalText(255), "255");
    EXPECT_EQ(decimalText(4294967295), "4294967295");
}

TEST(ParseHex, DigitsOfEitherCase)
{
    EXPECT_EQ(parseHex("1F"), 31U);
    EXPECT_EQ(parseHex("1f"), 31U);
    EXPECT_EQ(parseHex("09AFaf"), 0x09AFAFU);
}

TEST(ParseHex, EmptyTextGivesZero)
{
    EXPECT_EQ(parseHex(""), 0U);
}

TEST(ParseHex, OtherCharactersTakeNoPosition)
{
    EXPECT_EQ(parseHex("0x1F"), 31U);
    EXPECT_EQ(parseHex("zz"), 0U);
    EXPECT_EQ(parseHex("G1"), 1U);
    EXPECT_EQ(parseHex("1 2g3\n"), 0x123U);
    EXPECT_EQ(parseHex("1\0002"sv), 0x12U);
    EXPECT_EQ(parseHex("1\xC3\xA4"), 1U); // no letter of another alphabet counts
}

TEST(ParseHex, MinusNegatesWhatStandsToItsRight)
{
    EXPECT_EQ(parseHex("-10"), 0xFFFFFFF0U);
    EXPECT_EQ(parseHex("-1"), 0xFFFFFFFFU);
    EXPECT_EQ(parseHex("-"), 0U);
}

TEST(ParseHex, MinusTakesAPosition)
{
    // -5 with a 2 at position 2: 0x200 - 5.
    EXPECT_EQ(parseHex("2-5"), 0x1FBU);
    EXPECT_EQ(parseHex("5-"), 0x50U);
    // Twice negated: -(-3 + 0x100 x 1) at positions 0 (3), 1 (-), 2 (1), 3 (-).
    EXPECT_EQ(parseHex("-1-3"), 0xFFFFFF03U);
}

TEST(ParseHex, NinthDigitFoldsBackIntoTheLowestBits)
{
    EXPECT_EQ(parseHex("12345678"), 0x12345678U);
    EXPECT_EQ(parseHex("100000000"), 1U);
    EXPECT_EQ(parseHex("2f00000001"), 0x20U + 0xFU + 1U);
}

TEST(ParseHex, SumWrapsAtThirtyTwoBits)
{
    EXPECT_EQ(parseHex("1ffffffff"), 0U);
}

RC_GTEST_PROP(ParseHex, ReadsBackEveryHexText, (std::uint32_t value))
{
    RC_ASSERT(parseHex(hexText(value)) == value);
    RC_ASSERT(parseHex("0x" + hexText(value)) == value);
}

RC_GTEST_PROP(ParseHex, MinusInFrontNegates, (std::uint32_t value))
{
    RC_ASSERT(parseHex("-" + hexText(value)) == 0 - value);
}

} // namespace
} // namespace velko
