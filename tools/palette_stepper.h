#pragma once

#include "tools/overworld_map.h"

#include <array>
#include <optional>

namespace velko {

enum class MapButton { kLeft, kRight };

// Changes palettes of the overworld map as the pointer passes: the left button steps to the next
// palette, the right one to the previous, around 0 to 3. A palette covers 2 x 2 tiles; a drag that
// stays within them steps once.
class PaletteStepper {
public:
    explicit PaletteStepper(OverworldMap& map) : m_map(map) { }

    // A press always steps; the cell must lie on the map.
    void press(MapButton button, OverworldCell cell);
    // A move with the button held steps where it enters other tiles than those that this button
    // stepped last, however long ago that was. Returns whether it did.
    bool drag(MapButton button, OverworldCell cell);

private:
    OverworldMap& m_map;
    std::array<std::optional<OverworldCell>, 2> m_lastCells; // one per button
};

} // namespace velko
