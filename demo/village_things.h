#pragma once

#include "demo/things.h"

namespace velko::demo {

// What the streets of the village and the insides of its houses have in common.

// First row of the ground, which is three rows of cobbles and stone.
int villageGround(const RoomCanvas& canvas);
void layVillageGround(RoomCanvas& canvas);

// `things`, and those that stand both in streets and in houses: l lamp, t potted tree, b bench, c
// crates, r barrels.
std::vector<Thing> withVillageThings(std::vector<Thing> things);

} // namespace velko::demo
