#pragma once

#include "rom/game_config.h"
#include "store/pointer_array_handler.h"

#include <cstdint>

namespace velko {

// A room's background has 64 slots of 16x16 pixels. Each is filled with a block of 64 bytes from
// one of four banks: four 8x8 tiles in column order (top left, bottom left, top right, bottom
// right).
inline constexpr std::uint32_t kBackgroundSlots = 64;
inline constexpr std::uint32_t kBackgroundBlockBytes = 64;
inline constexpr std::uint32_t kBackgroundBanks = 4;

// What a room's tile-load block tells of one slot. The block holds the 64 block numbers, then 32
// bytes of attributes, two slots in each: an even slot's in the high nibble.
struct BackgroundSlot {
    std::uint8_t block = 0;      // within its bank
    std::uint8_t bankOffset = 0; // 0 to 3, counted from the first bank of background graphics
    bool mirrored = false;       // left to right
    bool unusedBit = false;      // the game keeps it and makes nothing of it

    bool operator==(const BackgroundSlot&) const = default;
};

// `slot` is 0 to 63, of the handler's current room.
BackgroundSlot readBackgroundSlot(const PointerArrayHandler& tileLoad, std::uint32_t slot);
// The attribute of the slot that shares a byte with this one is kept.
void writeBackgroundSlot(PointerArrayHandler& tileLoad, std::uint32_t slot,
                         const BackgroundSlot& value);

// File offset of a block. Absurd bank numbers wrap at 32 bits.
std::uint32_t backgroundBlockOffset(const GameConfig& config, std::uint32_t bankOffset,
                                    std::uint32_t block);

} // namespace velko
