#pragma once

#include "demo/room_builder.h"

namespace velko::demo {

// The background blocks that rooms load, by kind of country.
struct Tilesets {
    Tilesets(const Art& art, RoomBuilder& builder);

    const Tileset& meadow;  // the whole meadow
    const Tileset& hamlet;  // meadow with thatched cottages instead of sun and mountains
    const Tileset& village; // streets; the round tree of the meadow at their ends
    const Tileset& house;   // the same blocks on a plain wall, for rooms inside houses
    const Tileset& cave;
    const Tileset& works;

    // By the name of the member. Throws DemoError for another name.
    const Tileset& named(std::string_view name) const;
};

} // namespace velko::demo
