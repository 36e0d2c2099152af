#include "tests/rom/data_yaml_fixture.h"

#include <gtest/gtest.h>
#include <yaml.h>

// This program is linked with --wrap=yaml_parser_initialize: the core's calls of it arrive here.
// libyaml itself fails only where memory runs out.
namespace {
bool initialisationFails = false;
}
extern "C" int __real_yaml_parser_initialize(yaml_parser_t* parser);
extern "C" int __wrap_yaml_parser_initialize(yaml_parser_t* parser);
int __wrap_yaml_parser_initialize(yaml_parser_t* parser)
{
    return initialisationFails ? 0 : __real_yaml_parser_initialize(parser);
}

namespace velko {
namespace {

class YamlParserFailure : public test::DataYamlTest {
protected:
    void SetUp() override { initialisationFails = true; }
    void TearDown() override { initialisationFails = false; }
};

TEST_F(YamlParserFailure, IsTold)
{
    prompt.expectError("Failed to initialize YAML parser.");
    EXPECT_EQ(read("miscData: {rooms: 3}"), DataYamlResult::kDone);
    EXPECT_TRUE(config == GameConfig{});
}

TEST_F(YamlParserFailure, ComesBeforeTheFileIsLookedFor)
{
    prompt.expectError("Failed to initialize YAML parser.");
    EXPECT_EQ(loadDataYaml("no such folder/data.yaml", config, prompt, {}), DataYamlResult::kDone);
}

TEST_F(YamlParserFailure, TheNextFileIsReadAgain)
{
    initialisationFails = false;
    EXPECT_EQ(read("miscData: {rooms: 3}"), DataYamlResult::kDone);
    EXPECT_EQ(misc(MiscField::rooms), 3U);
}

} // namespace
} // namespace velko
