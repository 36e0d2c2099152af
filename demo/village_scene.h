#pragma once

#include "demo/room_canvas.h"

#include <string>

namespace velko::demo {

// A street, one letter per column of 2 cells. `street` holds what stands on it: HH.. timber
// house, BB.. brick house, KK.. shop (all as wide as the run of letters), SS market stall, W well,
// CC clock tower, A archway, w wall, h hedge, l lamp, b bench, t potted tree, T tree, c crates,
// r barrels, y laundry, '/' and '\' steps up to a raised piece and down again, '.' nothing.
// `floors` gives the floors of the building over the same column.
struct StreetPlan {
    std::string street;
    std::string floors;
    int seed = 0;
};

void paintStreet(RoomCanvas& canvas, const StreetPlan& plan);

} // namespace velko::demo
