#include "tools/palette_stepper.h"

namespace velko {

namespace {

// One cell for all that share a palette. The quadrants' left and upper edges lie at odd tiles of
// the map, as the attribute table starts three tiles before it.
OverworldCell sharedCell(OverworldCell cell)
{
    return {(cell.column + 1) & ~1, (cell.row + 1) & ~1};
}

} // namespace

void PaletteStepper::press(MapButton button, OverworldCell cell)
{
    m_lastCells[static_cast<std::size_t>(button)] = sharedCell(cell);
    m_map.setPalette(cell, m_map.palette(cell) + (button == MapButton::kLeft ? 1 : -1));
}

bool PaletteStepper::drag(MapButton button, OverworldCell cell)
{
    if (m_lastCells[static_cast<std::size_t>(button)] == sharedCell(cell))
        return false;
    press(button, cell);
    return true;
}

} // namespace velko
