#pragma once

#include "demo/room_canvas.h"

#include <string>
#include <string_view>
#include <vector>

namespace velko::demo {

// A piece of ground in the air: columns of 2 cells from `column` on, its top `height` blocks above
// the room's lowest row, with things on it.
struct Island {
    int column = 0;
    int height = 0;
    std::string things; // one letter per column; its length is the island's width
};

// An outdoor room, one letter per column of 2 cells.
//
// Ground: 0-9 and a-z is the height in blocks of a flat piece; '/' and '\' slope up to the next
// and down from the last height; '~' is water a little below the last height, '=' a bridge over
// it, 'V' a waterfall from the last height down to the next one.
//
// Things that stand on it: T tree, P and p pine (left or right cell), Q two pines, b bush, o small
// bush, f flowers, d daisies, g tall grass, m mushroom, s sign, l lamp, F fence, w wheat, r reeds,
// R rock, S stump, D mossy stone, hh near hill, MM.. mountain as wide as the run of letters, XX..
// cottage likewise, '.' nothing.
struct MeadowPlan {
    std::string ground;
    std::string things;
    std::vector<Island> islands;
    int seed = 0;
    bool sun = false;
};

void paintMeadow(RoomCanvas& canvas, const MeadowPlan& plan);

} // namespace velko::demo
