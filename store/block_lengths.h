#pragma once

#include "store/pointer_array_handler.h"

#include <cstdint>

namespace velko {

// How long a block is, in bytes. Blocks carry no length of their own: each kind of data has its
// rule. Length 0 means that the room has no block.

inline constexpr std::uint32_t kPaletteLength = 32;
inline constexpr std::uint32_t kTileLoadLength = 96;
inline constexpr std::uint32_t kTile32Length = 1024;
// The smallest layout that a room can have: one cell between two border columns.
inline constexpr std::uint8_t kNewLayoutWidth = 3;
inline constexpr std::uint8_t kNewLayoutHeight = 1;
// Type-2 load lists without an end mark are read to this many bytes.
inline constexpr std::uint32_t kLongestTileLoadType2 = 0x1000;

// The word that ends a screen list. Lists without one are read to this many words, or bytes: the
// count of words and the length of the block are bounded differently.
inline constexpr std::uint16_t kScreenListEnd = 0xFFFF;
inline constexpr std::uint32_t kLongestScreenList = 0x10000;
inline constexpr std::uint32_t kLongestScreenListBytes = 0x10000;

// Bytes of a map layout's table entry that hold the room's stored width and height.
inline constexpr std::uint32_t kMapWidthByte = 2;
inline constexpr std::uint32_t kMapHeightByte = 3;

// The screen list of a room, terminator word included: the byte offset of the first $FFFF word
// (or 0x10000 when there is none at a smaller offset) plus 2.
std::uint32_t mapAllocLength(const PointerArrayHandler& mapAlloc, std::uint32_t room);
// Stored width times stored height of the room.
std::uint32_t mapLayoutLength(const PointerArrayHandler& mapLayout, std::uint32_t room);
// Number of words before the first $FFFF, at most 0x10000.
std::uint32_t mapAllocWords(const PointerArrayHandler& mapAlloc, std::uint32_t room);

} // namespace velko
