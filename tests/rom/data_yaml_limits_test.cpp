#include "tests/rom/data_yaml_fixture.h"

#include <ctime>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace velko {
namespace {

using test::DataYamlTest;

std::string repeated(std::string_view part, std::size_t times)
{
    std::string text;
    for (std::size_t i = 0; i < times; ++i)
        text += part;
    return text;
}

class DataYamlNesting : public DataYamlTest { };

TEST_F(DataYamlNesting, ThousandSequencesAreRead)
{
    EXPECT_EQ(read(repeated("[", 1000) + repeated("]", 1000)), DataYamlResult::kDone);
}

TEST_F(DataYamlNesting, OneMoreIsRefused)
{
    prompt.expectError("Problem while parsing YAML.");
    EXPECT_EQ(read(repeated("[", 1001) + repeated("]", 1001)), DataYamlResult::kDone);
}

TEST_F(DataYamlNesting, MappingsCountToo)
{
    const std::string open = "[{1: ";
    EXPECT_EQ(read(repeated(open, 500) + "2" + repeated("}]", 500)), DataYamlResult::kDone);
    prompt.expectError("Problem while parsing YAML.");
    EXPECT_EQ(read(repeated(open, 500) + "[]" + repeated("}]", 500)), DataYamlResult::kDone);
}

TEST_F(DataYamlNesting, ClosedCollectionsDoNotCount)
{
    EXPECT_EQ(read("[" + repeated("[], {}, ", 5000) + "]"), DataYamlResult::kDone);
}

TEST_F(DataYamlNesting, WhatCameBeforeTheLimitIsKept)
{
    prompt.expectError("Problem while parsing YAML.");
    read("miscData: {rooms: 7, areas: " + repeated("[", 2000));
    EXPECT_EQ(misc(MiscField::rooms), 7U);
}

// Every value inside 990 brackets costs libyaml 990 steps.

TEST_F(DataYamlNesting, ManyValuesDeepInsideAreRefused)
{
    prompt.expectError("Problem while parsing YAML.");
    read(repeated("[", 990) + repeated("1,", 50000) + repeated("]", 990));
}

TEST_F(DataYamlNesting, SomeValuesDeepInsideAreRead)
{
    EXPECT_EQ(read("miscData: {rooms: " + repeated("[", 900) + repeated("1,", 5000)
                   + repeated("]", 900) + ", areas: 7}"),
              DataYamlResult::kDone);
    EXPECT_EQ(misc(MiscField::areas), 7U);
}

TEST_F(DataYamlNesting, ManyTagDirectivesAreRefused)
{
    std::string text;
    for (int i = 0; i < 101; ++i)
        text += "%TAG !" + std::to_string(i) + "! x\n";
    prompt.expectError("Problem while parsing YAML.");
    EXPECT_EQ(read(text + "---\nmiscData: {rooms: 7}\n"), DataYamlResult::kDone);
    EXPECT_EQ(misc(MiscField::rooms), 0U);
}

TEST_F(DataYamlNesting, AFewTagDirectivesAreNot)
{
    EXPECT_EQ(read("%TAG !a! x\n%TAG !b! y\n---\nmiscData: {rooms: !a!n 7}\n"),
              DataYamlResult::kDone);
    EXPECT_EQ(misc(MiscField::rooms), 7U);
}

// Presses OK at every box.
class PatientPrompt : public UserPrompt {
public:
    void showMessage(std::string_view, MessageIcon) override { ++messages; }
    bool askYesNo(std::string_view, MessageIcon) override { return true; }
    YesNoCancel askYesNoCancel(std::string_view, MessageIcon) override { return YesNoCancel::kYes; }
    int messages = 0;

protected:
    bool confirm(std::string_view, std::string_view) override { return true; }
};

struct LargeText {
    const char* name;
    std::string head; // once
    std::string part; // over and over, up to 200 KB
};

void PrintTo(const LargeText& text, std::ostream* stream)
{
    *stream << text.name;
}

class LargeDataYaml : public ::testing::TestWithParam<LargeText> { };

TEST_P(LargeDataYaml, IsReadOrRefusedWithinASecond)
{
    constexpr std::size_t kSize = 200 * 1024;
    const auto& [name, head, part] = GetParam();
    std::string text = head + repeated(part, kSize / part.size());
    text.resize(kSize);

    GameConfig config;
    PatientPrompt prompt;
    const std::clock_t start = std::clock();
    readDataYaml(test::bytesOf(text), config, prompt, {});
    EXPECT_LT(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC, 1.0);
    EXPECT_LE(prompt.messages, 1);
}

// Distinct tag directives, as many as fit.
std::string tagDirectives(int count)
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text += "%TAG !" + std::to_string(i) + "! a\n";
    return text;
}

INSTANTIATE_TEST_SUITE_P(
    Texts, LargeDataYaml,
    ::testing::Values(
        LargeText{"Brackets", "", "["}, LargeText{"Braces", "", "{"},
        LargeText{"BracketsAndBraces", "", "[{"}, LargeText{"BracesWithKeys", "", "{a: "},
        LargeText{"BracesWithQuestionMarks", "", "{? "}, LargeText{"BracketsOnLines", "", "[\n"},
        LargeText{"Dashes", "", "- "}, LargeText{"DashesOnLines", "", "-\n"},
        LargeText{"QuestionMarks", "", "? "}, LargeText{"Colons", "", ": "},
        LargeText{"WideSequence", "[", "1,"}, LargeText{"WideMapping", "{", "a: 1,"},
        LargeText{"WideBlockMapping", "", "a: 1\n"},
        LargeText{"DeepAndWide", repeated("[", 990), "1,"},
        LargeText{"DeepAndWideOnLines", repeated("[\n", 990), "1,\n"},
        LargeText{"DeepSequences", repeated("[\n", 990), "[],"},
        LargeText{"DeepMappings", repeated("{\n", 990), "1,"},
        LargeText{"DeepMappingsWithKeys", repeated("{a: ", 990), "b: 1,"},
        LargeText{"DeepAliases", repeated("[", 990), "*a ,"},
        LargeText{"LongKeys", "[", "[" + repeated("a,", 500) + "]: b\n,"},
        LargeText{"Anchors", "", "- &a x\n"}, LargeText{"Aliases", "", "- *a\n"},
        LargeText{"Documents", "", "---\n"}, LargeText{"EndedDocuments", "", "---\n...\n"},
        LargeText{"Directives", "", "%YAML 1.1\n"},
        LargeText{"TagDirectives", tagDirectives(20000), " "},
        LargeText{"TagsOfManyDirectives", tagDirectives(100) + "---\n[", "!99!a ,"},
        LargeText{"LongScalar", "", "a"}, LargeText{"LongQuotedScalar", "\"", "\\x41"},
        LargeText{"BlockScalar", "|\n", " a\n"}, LargeText{"FoldedScalar", ">\n", " a\n\n"},
        LargeText{"Blanks", "", " "}, LargeText{"LineBreaks", "", "\n"},
        LargeText{"Tabs", "", "\t"}, LargeText{"Comments", "", "#\n"},
        LargeText{"ExclamationMarks", "", "! "}, LargeText{"Zeros", "", std::string(1, '\0')},
        LargeText{"NotUtf8", "", "\xFF"}, LargeText{"Utf16Brackets", "\xFF\xFE", {"[\0", 2}}),
    [](const auto& test) { return test.param.name; });

} // namespace
} // namespace velko
