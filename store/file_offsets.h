#pragma once

#include "rom/rom_image.h"
#include "store/pointer_array_handler.h"

#include <cstdint>
#include <span>
#include <vector>

namespace velko {

// Where bytes stand in the file, and whether it has them: a ROM that was cut short, or a wild
// pointer, leads past its end, where all reads as filler.
using FileOffsets = std::vector<std::uint32_t>;

// The offsets of neighbours in the file.
FileOffsets neighbours(std::uint32_t first, std::uint32_t count);
// Of a room's entry in the table: its pointer, and of longer entries the room's size too.
FileOffsets entryOffsets(const PointerArrayHandler& handler, std::uint32_t room);
// Of the first `count` bytes of a room's block.
FileOffsets blockOffsets(const PointerArrayHandler& handler, std::uint32_t room,
                         std::uint32_t count);

// Whether all of them lie in the file.
bool liesInFile(const RomImage& rom, std::span<const std::uint32_t> offsets);
// The same for a room's entry in the table, and for a block of `length` bytes at a CPU address.
bool entryLiesInFile(const RomImage& rom, const PointerArrayHandler& handler, std::uint32_t room);
bool blockLiesInFile(const RomImage& rom, const PointerArrayHandler& handler,
                     std::uint16_t cpuAddress, std::uint32_t length);

} // namespace velko
