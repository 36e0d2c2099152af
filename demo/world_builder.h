#pragma once

#include "demo/art.h"
#include "demo/room_text.h"
#include "demo/world.h"

namespace velko::demo {

// Makes the whole game from its drawings and the texts about its rooms.
void buildWorld(const Art& art, const std::vector<RoomText>& rooms, World& world);

// The steps, in this order.
void buildSprites(const Art& art, World& world);
void buildRooms(const Art& art, const std::vector<RoomText>& rooms, World& world);
void buildOverworld(const Art& art, World& world);

} // namespace velko::demo
