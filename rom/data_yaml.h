#pragma once

#include "rom/game_config.h"
#include "rom/trace.h"
#include "rom/user_prompt.h"
#include "rom/yaml_observer.h"

#include <cstdint>
#include <filesystem>
#include <span>

namespace velko {

enum class DataYamlResult {
    kDone, // read to the end of the first document, or stopped with an error that was shown
    kQuit, // the user pressed Cancel: the process is to end with kConfigurationQuitStatus
};

inline constexpr int kConfigurationQuitStatus = 0xC0DE;
// Collections nested deeper than this are refused as malformed.
inline constexpr int kDeepestNesting = 1000;

// Reads a whole `data.yaml` into `config`. Errors are shown through `prompt` and leave what was
// read so far; a scalar that is neither key nor value asks whether to go on.
DataYamlResult loadDataYaml(const std::filesystem::path& path, GameConfig& config,
                            UserPrompt& prompt, const TraceSink& trace);
// The same from memory. An `observer` is told of every scalar.
DataYamlResult readDataYaml(std::span<const std::uint8_t> text, GameConfig& config,
                            UserPrompt& prompt, const TraceSink& trace,
                            DataYamlObserver* observer = nullptr);

} // namespace velko
