#pragma once

#include "demo/art.h"
#include "demo/world.h"

namespace velko::demo {

// Makes the whole game from its drawings.
void buildWorld(const Art& art, World& world);

// The steps, in this order.
void buildSprites(const Art& art, World& world);
void buildRooms(const Art& art, World& world);
void buildOverworld(const Art& art, World& world);

} // namespace velko::demo
