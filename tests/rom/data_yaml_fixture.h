#pragma once

#include "rom/data_yaml.h"
#include "tests/support/scripted_prompt.h"

#include <string_view>

namespace velko::test {

inline std::span<const std::uint8_t> bytesOf(std::string_view text)
{
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

// Reads `data.yaml` texts into a configuration of its own. Boxes must be expected at `prompt`.
class DataYamlTest : public ::testing::Test {
protected:
    DataYamlResult read(std::string_view text)
    {
        return readDataYaml(bytesOf(text), config, prompt, {});
    }
    void expectUnknown(std::string scalar,
                       ScriptedPrompt::Answer answer = ScriptedPrompt::Answer::kOk)
    {
        prompt.expectOkCancel("YAML content recognized as neither key or value. (Check spelling "
                              "and letter case!). Press Cancel to quit.",
                              std::move(scalar), answer);
    }
    std::uint32_t misc(MiscField field) const { return config.value(field); }

    GameConfig config;
    ScriptedPrompt prompt;
};

} // namespace velko::test
