#pragma once

#include "patch/patch_result.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace velko {

// IPS: "PATCH", then records, then "EOF". A record is an offset (3 bytes, high byte first), a size
// (2 bytes) and that many bytes; size 0 is followed by a count (2 bytes) and one byte to repeat.
// Behind "EOF" may stand the size (3 bytes) to cut the result to. Nothing tells which file a
// patch is for, nor whether it is whole.
inline constexpr std::string_view kIpsMagic = "PATCH";
inline constexpr std::string_view kIpsEnd = "EOF";
// A record at this offset would read as kIpsEnd.
inline constexpr std::size_t kIpsEndOffset = 0x454F46;
inline constexpr std::size_t kIpsLargestFile = 0x1000000; // what offsets of 3 bytes reach
inline constexpr std::size_t kIpsLargestRecord = 0xFFFF;

// Applies a patch that starts with kIpsMagic. Records past the end make the file longer, with
// zeros between; a size to cut to that is no smaller than the result does nothing.
PatchResult applyIpsPatch(std::span<const std::uint8_t> source,
                          std::span<const std::uint8_t> patch);
// The shortest patch there is, but for records that reach the format's limits: it takes time in
// proportion to `target`. Files above kIpsLargestFile are refused.
PatchResult makeIpsPatch(std::span<const std::uint8_t> source,
                         std::span<const std::uint8_t> target);

} // namespace velko
