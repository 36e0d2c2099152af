#pragma once

#include "demo/room_canvas.h"

#include <string>

namespace velko::demo {

// A street, one letter per column of 2 cells. `street` holds what stands on it: HH.. timber
// house, BB.. brick house, KK.. shop (all as wide as the run of letters), SS market stall, W well,
// CC clock tower, A archway, w wall, h hedge, l lamp, b bench, t potted tree, T tree, c crates,
// r barrels, '/' and '\' steps up to a raised piece and down again,
// 'y' laundry, '.' nothing. `floors` gives the floors of the building over the same column.
struct StreetPlan {
    std::string street;
    std::string floors;
    int seed = 0;
};

void paintStreet(RoomCanvas& canvas, const StreetPlan& plan);

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
