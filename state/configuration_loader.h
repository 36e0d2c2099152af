#pragma once

#include "rom/trace.h"
#include "rom/user_prompt.h"
#include "state/editor_state.h"

#include <filesystem>

namespace velko {

enum class ConfigurationResult {
    kContinue, // start-up goes on, with whatever was read
    kQuit,     // the user declined a questionable data.yaml: end with kConfigurationQuitStatus
    // A resource is missing, short or odd; its message was shown: end with status 0.
    kFailed,
};

// Reads `module.cfg`, the module's `data.yaml`, the palette, the bitmaps and the name lists, in
// this order. `workFolder` is where `module.cfg` lies. A missing `module.cfg` is told, then
// everything stays at its start values and start-up goes on.
ConfigurationResult loadConfiguration(const std::filesystem::path& workFolder, EditorState& state,
                                      UserPrompt& prompt, const TraceSink& trace);

} // namespace velko
