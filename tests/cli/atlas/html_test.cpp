#include "cli/atlas/html.h"

#include <gtest/gtest.h>

namespace velko {
namespace {

TEST(EscapeHtml, PlainTextStays)
{
    EXPECT_EQ(escapeHtml("Clover Downs, the gate~"), "Clover Downs, the gate~");
}

TEST(EscapeHtml, MarkupBecomesReferences)
{
    EXPECT_EQ(escapeHtml("<b a=\"1\" c='2'>&"),
              "&#x3c;b a=&#x22;1&#x22; c=&#x27;2&#x27;&#x3e;&#x26;");
}

TEST(EscapeHtml, CharactersBeyondAsciiBecomeReferences)
{
    EXPECT_EQ(escapeHtml("caf\xC3\xA9 \xF0\x9F\x8F\xAE"), "caf&#xe9; &#x1f3ee;");
}

TEST(EscapeHtml, BytesThatAreNoUtf8CountAsLatin1)
{
    EXPECT_EQ(escapeHtml("caf\xE9"), "caf&#xe9;");
}

TEST(EscapeHtml, ControlCharactersBecomeBlanks)
{
    EXPECT_EQ(escapeHtml(std::string_view("a\0b\nc\x7F\xC2\x85", 8)), "a b c  ");
}

} // namespace
} // namespace velko
