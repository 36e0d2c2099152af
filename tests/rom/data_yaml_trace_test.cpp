#include "tests/rom/data_yaml_fixture.h"

#include <gtest/gtest.h>
#include <string>

namespace velko {
namespace {

using test::ScriptedPrompt;

std::string traceOf(std::string_view text, ScriptedPrompt& prompt)
{
    GameConfig config;
    std::string written;
    readDataYaml(test::bytesOf(text), config, prompt,
                 [&written](std::string_view piece) { written += piece; });
    return written;
}

TEST(DataYamlTrace, EveryEventHasItsLine)
{
    ScriptedPrompt prompt;
    EXPECT_EQ(traceOf("unitSpriteReg: [&a 1, *a]\n---\nmore\n", prompt),
              "Now YAML reading starts.\n"
              "lNow YAML readins starts also.\n"
              "lThere was a mapping start.\n"
              "lThere was a SCALAR: unitSpriteReg\n"
              "lThere was a sequence start.\n"
              "lThere was a SCALAR: 1\n"
              "lThere was an alias.\n"
              "lThere was a sequence end.\n"
              "lThere was a mapping end.\n"
              "lNow YAML reading ends.\n"
              "lNow YAML reading ended somehow.\n"
              "l");
}

TEST(DataYamlTrace, TextWithoutADocument)
{
    ScriptedPrompt prompt;
    EXPECT_EQ(traceOf("", prompt),
              "Now YAML reading starts.\n"
              "lNow YAML reading ends.\n"
              "lNow YAML reading ended somehow.\n"
              "l");
}

TEST(DataYamlTrace, AStopWritesNoEnd)
{
    ScriptedPrompt prompt;
    prompt.expectError("Problem while parsing YAML.");
    EXPECT_EQ(traceOf("5: ]", prompt),
              "Now YAML reading starts.\n"
              "lNow YAML readins starts also.\n"
              "lThere was a mapping start.\n"
              "lThere was a SCALAR: 5\n"
              "l");
}

TEST(DataYamlTrace, CancelEndsTheTraceBehindTheScalar)
{
    ScriptedPrompt prompt;
    prompt.expectOkCancel("YAML content recognized as neither key or value. (Check spelling "
                          "and letter case!). Press Cancel to quit.",
                          "Rooms", ScriptedPrompt::Answer::kCancel);
    EXPECT_EQ(traceOf("Rooms", prompt),
              "Now YAML reading starts.\n"
              "lNow YAML readins starts also.\n"
              "lThere was a SCALAR: Rooms\n"
              "l");
}

} // namespace
} // namespace velko
