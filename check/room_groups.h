#pragma once

#include "rom/game_config.h"

#include <bitset>
#include <cstdint>
#include <vector>

namespace velko {

using RoomSet = std::bitset<kMostRooms>;
using RoomGroup = std::vector<std::uint32_t>; // of rooms, the lowest first

// The rooms that no other room has a way to, and the groups of rooms that lead to one another but
// that no way from outside leads into; by their lowest room. What can be reached from one of them
// is not told.
//
// `ways` holds for each room which rooms it has a way to, at most kMostRooms sets in all. A set
// must not name other rooms than these.
std::vector<RoomGroup> groupsWithoutWayIn(std::vector<RoomSet> ways);

} // namespace velko
