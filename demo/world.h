#pragma once

#include "demo/block_region.h"
#include "demo/tile32_set.h"
#include "demo/tileset.h"

#include <array>
#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <vector>

// The demo game's contents, before they are laid out in banks.
namespace velko::demo {

// A unit where it is seen: its position in room pixels. Units without a placement have x -1.
struct Unit {
    std::uint8_t type = 0;
    int x = -1;
    int y = 0;
};

// Where the hero comes in: a 16x16 cell of the room, or none (column -1).
struct Entrance {
    int column = -1;
    int row = 0;
};

struct Exit {
    std::uint8_t room = 0;
    std::uint8_t entrance = 0; // 0-3
};

// Rooms drawn with the same 32x32 blocks.
struct Scenery {
    std::string name;
    const Tileset* tileset = nullptr;
    Tile32Set blocks;
    // Numbers, in the screen area, of the screens packed so far.
    std::map<ScreenBytes, std::uint16_t> screens;
};

struct Room {
    std::string name;
    const Scenery* scenery = nullptr;
    const Tileset* tileset = nullptr; // the scenery's, or one with the same slots in other art
    Bytes palette;                    // 32 colour numbers
    int columns = 0;                  // screens; 0 x 0 for a room without a map
    int rows = 0;
    std::vector<std::uint16_t> screens; // the room's screen list
    Bytes layout;                       // positions in that list, without border columns
    std::vector<Unit> units;
    std::array<Entrance, kDoorSlots> entrances{};
    std::array<Exit, kDoorSlots> exits{};
    std::uint8_t music = 0;
    Bytes loads; // numbers of the sprite graphics to load
};

// Sprite or overworld graphics that a room can load.
struct LoadRecord {
    std::string name;
    std::uint16_t source = 0;      // from the start of the graphics banks
    std::uint16_t destination = 0; // in pattern memory
    std::uint8_t tiles = 0;
};

// One 8x8 piece of a sprite frame, as stored.
struct Piece {
    std::uint8_t tile = 0;
    int x = 0; // from the sprite's position
    int y = 0;
    std::uint8_t attributes = 0; // colour set, $40 mirrored, $80 upside down
};
using Frame = std::vector<Piece>;

struct UnitType {
    std::string name;
    std::string key;                 // what the room texts call it
    std::uint8_t spriteRegister = 0; // 0 none, 1 animated, 2 still
    std::uint16_t script = 0;        // CPU address in the sprite bank
    int load = -1;                   // the load record with its graphics
    std::vector<Frame> frames;       // as in the script
};

struct Item {
    std::string name;
    std::uint16_t frame = 0; // CPU address in the sprite bank
};

struct Area {
    std::string name;
    std::uint8_t x = 0; // as stored: the icon's centre lies at (x - 24, y - 24) of the map
    std::uint8_t y = 0;
    std::array<std::uint8_t, 4> icon{}; // overworld tiles in column order
    Bytes movement;                     // the whole movement block
    std::uint8_t clearItem = 0;
    bool parachute = false;
};

struct Overworld {
    std::array<std::uint8_t, kMapColumns * kMapRows> tiles{};
    std::array<std::uint8_t, 64> attributes{};
    std::array<std::uint8_t, 32> palettes{};
    std::vector<Area> areas;                          // kAreas + 1
    std::vector<std::array<std::uint8_t, 4>> presets; // further 16x16 pieces after the icons
    Bytes quadSprites;
    std::array<std::uint16_t, 16> previewFrames{};
    std::array<std::uint8_t, kTrucks> truckStarts{};
    std::array<std::uint8_t, kTruckPatterns> truckPointers{};
    Bytes truckPatterns;
};

struct World {
    BackgroundBanks backgrounds;
    std::deque<Tileset> tilesets; // referred to by address
    std::deque<Scenery> sceneries;
    std::vector<ScreenBytes> screens;
    std::vector<Room> rooms;
    Bytes graphics; // the graphics banks
    std::vector<LoadRecord> loads;
    Bytes commonLoads; // what every room loads
    Bytes overworldLoads;
    Bytes titleLoads;
    Bytes spriteBank; // 16 KB
    std::vector<UnitType> unitTypes;
    std::vector<Item> items;
    std::vector<std::string> music;
    std::array<std::uint8_t, kLastChamber - kFirstChamber + 1> chamberItems{}; // $FF: none
    Overworld overworld;
};

} // namespace velko::demo
