#pragma once

#include "cli/context.h"
#include "state/editor_state.h"

#include <optional>
#include <string>
#include <string_view>

namespace velko {

// Reads the configuration of the context's work folder into `state`, as the editor does, but
// nothing is asked: whatever the editor would show a box for is a failure. Returns nothing on
// success, else the reason.
[[nodiscard]] std::optional<std::string> openModule(const Context& context, EditorState& state);

// The same, then the ROM, a path argument; room 0 is selected. `state` must be a fresh one.
[[nodiscard]] std::optional<std::string> openGame(const Context& context, std::string_view rom,
                                                  EditorState& state);

} // namespace velko
