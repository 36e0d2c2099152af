#pragma once

#include "check/finding.h"
#include "state/editor_state.h"

namespace velko {

// The families of checks; each appends what it finds.

// Tables of pointers, and how the blocks behind them lie in their regions.
void checkRegions(const EditorState& state, Findings& findings);
// From a room's layout to its screens and their Tile32 numbers.
void checkMaps(const EditorState& state, Findings& findings);
// Entrances, exits, and rooms that there is no way to.
void checkDoors(const EditorState& state, Findings& findings);
// Unit lists and the sprite graphics that are loaded for them.
void checkUnits(const EditorState& state, Findings& findings);
// What an area's movement list counts, where trucks start, and the directions of their patterns.
void checkOverworld(const EditorState& state, Findings& findings);

} // namespace velko
