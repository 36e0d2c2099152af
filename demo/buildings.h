#pragma once

#include "demo/room_canvas.h"

namespace velko::demo {

enum class HouseStyle { kCottage, kTimber, kBrick, kShop };

// A house that stands on row `ground`, `cells` wide (an even number) without its eaves.
struct House {
    int x = 0;
    int ground = 0;
    int cells = 4;
    int floors = 1; // two cells each
    HouseStyle style = HouseStyle::kTimber;
    int seed = 0;
};

void paintHouse(RoomCanvas& canvas, const House& house);

} // namespace velko::demo
