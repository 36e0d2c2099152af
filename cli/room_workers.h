#pragma once

#include "cli/context.h"
#include "state/editor_state.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace velko {

// What became of one room: kFine, kFindings when it is refused and the others go on, or kWrong when
// going on makes no sense. Unless kFine, `reason` tells why.
struct RoomOutcome {
    ExitStatus status = ExitStatus::kFine;
    std::string reason;
};
using RoomJob = std::function<RoomOutcome(EditorState& state, std::uint8_t room)>;

// Runs `job` for each room of the game, on all cores: several at the same time, in no certain
// order. `state` has the game open and serves one worker; each other opens `rom` in a state of its
// own, so that they share nothing but what the job brings along. Tells the progress as some ten
// lines on err(), then each refused room in order, or only the failure. Returns the worst status.
ExitStatus forEachRoom(const Context& context, std::string_view rom, EditorState& state,
                       const RoomJob& job);

} // namespace velko
