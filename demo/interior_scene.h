#pragma once

#include "demo/room_canvas.h"

#include <string>

namespace velko::demo {

// The inside of a house, one screen row high: floor, walls, ceiling, and furniture by letter, per
// column of 2 cells: D door, o window, f window with flowers, s shop counter, K fireplace with a
// clock, t potted tree, l lamp, c crates, r barrels, k sacks, b bench, u bunting, y laundry, n shop
// sign, '.' bare wall. What is not painted is the wall: the room's backdrop colour.
struct InteriorPlan {
    std::string furniture;
    bool brick = false; // brick walls instead of stone ones under a roof
};

void paintInterior(RoomCanvas& canvas, const InteriorPlan& plan);

} // namespace velko::demo
