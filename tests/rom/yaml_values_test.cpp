#include "rom/yaml_values.h"

#include "rom/number_text.h"

#include <array>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace velko {
namespace {

using namespace std::string_view_literals;

TEST(YamlNumber, HexadecimalBehindItsPrefix)
{
    EXPECT_EQ(yamlNumber("0x1F"), 31U);
    EXPECT_EQ(yamlNumber("0x1f"), 31U);
    EXPECT_EQ(yamlNumber("0xFFFFFFFF"), 0xFFFFFFFFU);
    EXPECT_EQ(yamlNumber("0x"), 0U);
}

TEST(YamlNumber, HexadecimalFollowsTheRuleOfParseHex)
{
    EXPECT_EQ(yamlNumber("0x-10"), 0xFFFFFFF0U);
    EXPECT_EQ(yamlNumber("0xG1"), 1U);
    EXPECT_EQ(yamlNumber("0xzz"), 0U);
    EXPECT_EQ(yamlNumber("0x1 2"), 0x12U);
    EXPECT_EQ(yamlNumber("0x100000002"), 3U);
}

TEST(YamlNumber, DecimalFromTheLeadingDigits)
{
    EXPECT_EQ(yamlNumber("31"), 31U);
    EXPECT_EQ(yamlNumber("31abc"), 31U);
    EXPECT_EQ(yamlNumber("007"), 7U);
    EXPECT_EQ(yamlNumber("8-1"), 8U);
    EXPECT_EQ(yamlNumber("1.5"), 1U);
    EXPECT_EQ(yamlNumber("12\00034"sv), 12U);
}

TEST(YamlNumber, CapitalXIsNoPrefix)
{
    EXPECT_EQ(yamlNumber("0X1F"), 0U); // the decimal 0 and trailing characters
}

TEST(YamlNumber, DecimalWrapsAtThirtyTwoBits)
{
    EXPECT_EQ(yamlNumber("4294967295"), 4294967295U);
    EXPECT_EQ(yamlNumber("4294967296"), 0U);
    EXPECT_EQ(yamlNumber("99999999999"), 1215752191U);
    EXPECT_EQ(yamlNumber(std::string(10000, '9')).has_value(), true);
}

TEST(YamlNumber, EmptyTextIsZero)
{
    EXPECT_EQ(yamlNumber(""), 0U);
}

TEST(YamlNumber, OtherTextsAreNoValues)
{
    for (const auto text : {"-5"sv, "x1F"sv, "true"sv, "+5"sv, " 5"sv, "$1F"sv, "~"sv, ".5"sv,
                            "rooms"sv, "\0"sv, "\xFF"sv, "-0x10"sv})
        EXPECT_EQ(yamlNumber(text), std::nullopt) << text;
}

RC_GTEST_PROP(YamlNumber, ReadsBackDecimalAndHexadecimal, (std::uint32_t value))
{
    RC_ASSERT(yamlNumber(decimalText(value)) == value);
    RC_ASSERT(yamlNumber("0x" + hexText(value)) == value);
}

TEST(ParseValue, TruncatesToTheWidthOfTheField)
{
    std::array<std::uint8_t, 1> bytes{};
    std::array<std::uint16_t, 1> words{};
    std::array<std::uint32_t, 1> doubleWords{};
    YamlTarget byteTarget{std::span(bytes)};
    YamlTarget wordTarget{std::span(words)};
    YamlTarget doubleWordTarget{std::span(doubleWords)};
    EXPECT_TRUE(parseValue("0x89ABCDEF", false, byteTarget));
    EXPECT_TRUE(parseValue("0x89ABCDEF", false, wordTarget));
    EXPECT_TRUE(parseValue("0x89ABCDEF", false, doubleWordTarget));
    EXPECT_EQ(bytes[0], 0xEF);
    EXPECT_EQ(words[0], 0xCDEF);
    EXPECT_EQ(doubleWords[0], 0x89ABCDEF);
}

TEST(ParseValue, MovesOnInsideASequenceOnly)
{
    std::array<std::uint16_t, 4> fields{};
    YamlTarget target{std::span(fields)};
    parseValue("1", false, target);
    parseValue("2", true, target);
    parseValue("3", true, target);
    parseValue("4", false, target);
    parseValue("5", false, target);
    EXPECT_EQ(fields, (std::array<std::uint16_t, 4>{2, 3, 5, 0}));
}

TEST(ParseValue, FieldsPastTheLastAreDropped)
{
    std::array<std::uint8_t, 3> memory{0xA1, 0xA2, 0xA3};
    YamlTarget target{std::span(memory).first(2)};
    for (const auto text : {"1", "2", "3", "4"})
        EXPECT_TRUE(parseValue(text, true, target));
    EXPECT_EQ(memory, (std::array<std::uint8_t, 3>{1, 2, 0xA3}));
}

TEST(ParseValue, ValueWithoutATargetIsAcceptedAndDropped)
{
    YamlTarget target;
    EXPECT_TRUE(parseValue("0x1F", true, target));
    EXPECT_TRUE(parseValue("", false, target));
}

TEST(ParseValue, NoValueLeavesFieldAndTarget)
{
    std::array<std::uint8_t, 2> fields{7, 8};
    YamlTarget target{std::span(fields)};
    EXPECT_FALSE(parseValue("true", true, target));
    EXPECT_EQ(fields, (std::array<std::uint8_t, 2>{7, 8}));
    EXPECT_TRUE(parseValue("1", true, target));
    EXPECT_EQ(fields, (std::array<std::uint8_t, 2>{1, 8}));
}

} // namespace
} // namespace velko
