#pragma once

#include "rom/game_config.h"
#include "store/pointer_array_handler.h"

#include <array>
#include <cstdint>

namespace velko {

// The eight kinds of room data. All but `pahMapAreaMovement` are level handlers, indexed by the
// room number and moved together when another room is shown.
struct RoomDataStore {
    explicit RoomDataStore(RomImage& rom);

    PointerArrayHandler pahMapAlloc;  // screen list: 16-bit screen addresses up to $FFFF
    PointerArrayHandler pahMapLayout; // one byte per cell; entry bytes 2 and 3: width and height
    PointerArrayHandler pahPal;       // 32 colour numbers
    PointerArrayHandler pahTileLoad;  // 64 background block numbers and 64 attribute nibbles
    PointerArrayHandler pahTile32;    // Tile32 records of 7 bytes
    PointerArrayHandler pahUnit;      // unit records of 5 bytes up to $FF
    PointerArrayHandler pahTileLoadType2;   // load-record numbers up to a byte >= $80
    PointerArrayHandler pahMapAreaMovement; // overworld area movement, indexed by its users

    std::array<PointerArrayHandler*, 7> levelHandlers();

    // Takes over the descriptions that the configuration gives.
    void configure(const GameConfig& config);
    // Points the seven level handlers at `room`.
    void selectRoom(std::uint32_t room);
    // Computes the free space of the seven level handlers over rooms 0 to `rooms` - 1 (at most
    // kMostRooms), as once after every ROM load; free_space.h tells the rule of each. On purpose
    // `pahTileLoadType2` is looked at two entries further, and `pahMapAlloc` stays pointed at the
    // room whose block lies highest. Nothing is clamped: a result below 0 is kept.
    void computeFreeSpace(std::uint32_t rooms);
};

} // namespace velko
