#include "cli/arguments.h"

#include <gtest/gtest.h>

namespace velko {
namespace {

TEST(StrictHex, ReadsDigitsOfEitherCase)
{
    EXPECT_EQ(strictHex("0"), 0U);
    EXPECT_EQ(strictHex("1f"), 0x1FU);
    EXPECT_EQ(strictHex("1F"), 0x1FU);
    EXPECT_EQ(strictHex("ffffffff"), 0xFFFFFFFFU);
    EXPECT_EQ(strictHex("0010"), 0x10U);
}

TEST(StrictHex, TakesThePrefixOfModules)
{
    EXPECT_EQ(strictHex("0x8600"), 0x8600U);
}

TEST(StrictHex, RefusesEverythingElse)
{
    for (const char* text :
         {"", "0x", "g", "1g", " 1", "1 ", "-1", "+1", "0x-1", "123456789", "1.0", "0x0x1", "$10"})
        EXPECT_EQ(strictHex(text), std::nullopt) << '"' << text << '"';
}

} // namespace
} // namespace velko
