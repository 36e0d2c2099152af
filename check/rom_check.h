#pragma once

#include "check/finding.h"
#include "state/editor_state.h"

namespace velko {

// Looks through everything that the module tells of and lists what is damaged or suspicious,
// ordered by kind. The state must be prepared, as after each ROM load.
//
// Any bytes can be checked. What is wrong in many places of one block is told once, with the first
// place and the number, so findings are bounded by the number of table entries, door slots, unit
// types per list, and trucks.
Findings checkRom(const EditorState& state);

} // namespace velko
