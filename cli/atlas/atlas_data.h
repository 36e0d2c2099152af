#pragma once

#include "gfx/room_renderer.h"
#include "state/editor_state.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace velko {

// What an atlas tells of a game, apart from its pictures. Names are the bytes of the name lists; a
// unit or an item without one is called "type 1f" or "item 1f".

// A placed unit, in room pixels; position and number are those of the unit placement page.
struct AtlasUnit {
    std::uint32_t number = 0;
    std::string name;
    int x = 0;
    int y = 0;
};

// An entrance that is set: the corner of its 16x16 block in room pixels. Slots count from 0.
struct AtlasEntrance {
    std::uint32_t slot = 0;
    int x = 0;
    int y = 0;
};

struct AtlasExit {
    std::uint32_t slot = 0;
    std::uint8_t room = 0;
    std::uint8_t entrance = 0;
    // There is such a room, and its entrance is set.
    bool leads = false;
};

struct AtlasRoom {
    // A damaged list may have thousands of units; no room that can be played has as many.
    static constexpr std::size_t kMostUnits = 256;

    std::uint8_t number = 0;
    std::string name; // empty where the module gives none
    RoomSize size;
    bool hasPicture = true; // false for a room too large for one
    std::vector<AtlasUnit> units;
    std::size_t unitsLeftOut = 0; // without a placement, or past kMostUnits
    std::vector<AtlasEntrance> entrances;
    // Without those that were never set: two bytes of 0.
    std::vector<AtlasExit> exits;
};

// An area's centre in pixels of the overworld's map.
struct AtlasArea {
    int x = 0;
    int y = 0;
    std::optional<std::string> clearItem;
    bool parachute = false;
};

struct AtlasData {
    std::string title;
    std::vector<AtlasRoom> rooms; // by number
    std::vector<AtlasArea> areas;
};

// Reads all of it; room 0 is selected afterwards.
AtlasData collectAtlas(EditorState& state, std::string title);

} // namespace velko
