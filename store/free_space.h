#pragma once

#include "store/pointer_array_handler.h"

#include <cstdint>

namespace velko {

// Blocks carry no length and a table does not say where its region's data ends, so the editor
// looks once, after loading a ROM, for the block that lies highest in each region and for the end
// of that block. Everything from there to `dEdge` is free. From then on each insertion and
// deletion keeps the figure.

// The block whose pointer is the highest of its table.
struct LastBlock {
    std::int32_t pointer = -1; // its CPU address; -1 when no room was looked at or qualified
    std::uint32_t room = 0;    // the lowest room that points at it; 0 when there is none
};

// Looks at rooms 0 to `rooms` - 1. With no rooms at all the result keeps pointer -1 and room 0,
// and the ends below follow from these literally.
LastBlock findLastBlock(const PointerArrayHandler& handler, std::uint32_t rooms);
// The same for the map layout, where a room counts only with a stored width of at least 3 (one
// column between the two borders, as "Allocate unique data" makes it) and a height of at least 1.
LastBlock findLastMapLayoutBlock(const PointerArrayHandler& mapLayout, std::uint32_t rooms);

// One past the last byte of the highest block, as a CPU address that may exceed 0xFFFF.

// Counts the words of the list, at most 0x10000, and the terminator.
std::int32_t mapAllocEnd(const PointerArrayHandler& mapAlloc, LastBlock last);
// Width x height of the room; -1 when no room qualified, so that one byte more than `dEdge` shows
// as free.
std::int32_t mapLayoutEnd(const PointerArrayHandler& mapLayout, LastBlock last);
// Counts the bytes before the first 0xFF, at most 0x1000, and one more. A byte from 0x80 to 0xFE
// ends the list for the game, but not here.
std::int32_t tileLoadType2End(const PointerArrayHandler& tileLoadType2, LastBlock last);
// An empty list (0xFF) is 1 byte, any other list counts as 2 bytes, whatever follows. Intended, do
// not turn it into a scan for the terminator. A highest block that holds records therefore reaches
// into what counts as free: an insertion below it moves its first two bytes only, leaves its tail
// behind and overwrites it. A game whose highest list is empty is counted exactly. The sum wraps
// at 65536, as a pointer does.
std::int32_t unitEnd(const PointerArrayHandler& units, LastBlock last);
// For blocks of one length.
std::int32_t fixedLengthEnd(LastBlock last, std::uint32_t length);

} // namespace velko
