#pragma once

#include "store/room_data_store.h"

#include <array>
#include <cstdint>
#include <vector>

namespace velko {

// The kinds of room data that data management is offered for.
enum class RoomDataKind : std::uint8_t { kMapAlloc, kMapLayout, kTile32, kTileLoad, kPalette };
inline constexpr std::size_t kRoomDataKinds = 5;

// What the operations on whole blocks need to know about one kind.
struct BlockKind {
    // How long a room's block is, in bytes; 0 means that the room has no block.
    using Length = std::uint32_t (*)(const PointerArrayHandler& handler, std::uint32_t room);

    RoomDataKind kind;
    PointerArrayHandler RoomDataStore::*handler;
    Length length;
    bool entryHoldsSize; // bytes 2 and 3 of a table entry are the room's width and height
};

// All kinds, in the order of RoomDataKind.
extern const std::array<BlockKind, kRoomDataKinds> kBlockKinds;

inline const BlockKind& blockKind(RoomDataKind kind)
{
    return kBlockKinds[static_cast<std::size_t>(kind)];
}

// The contents of a block that is allocated afresh. `screenAreaStart` is the CPU address of the
// first screen, which is the one screen of a new screen list.
std::vector<std::uint8_t> newBlock(RoomDataKind kind, std::uint32_t screenAreaStart);

} // namespace velko
