#pragma once

#include "patch/patch_result.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace velko {

// BPS: "BPS1", the sizes of source, target and metadata as numbers, the metadata, actions, and
// three CRC-32 sums (4 bytes, low byte first) of source, target and the patch up to the last sum.
//
// An action is a number: BpsAction in its low two bits, above them the count of bytes less one.
// The two copying actions are followed by a distance from where the previous one of the same kind
// stopped, as a number with the sign in bit 0.
inline constexpr std::string_view kBpsMagic = "BPS1";
inline constexpr std::size_t kBpsFooter = 12; // the three sums

enum class BpsAction : std::uint8_t {
    kSourceRead = 0, // from the source, at the target's offset
    kTargetRead = 1, // from the patch
    kSourceCopy = 2, // from anywhere in the source
    kTargetCopy = 3, // from what was already written, up to what this action itself writes
};

// Applies a patch that starts with kBpsMagic. The metadata is ignored. A result is given only if
// all three sums are right. No more than kLargestPatchedFile bytes are made of any patch.
PatchResult applyBpsPatch(std::span<const std::uint8_t> source,
                          std::span<const std::uint8_t> patch);
// Makes a small patch without metadata; the same files always give the same bytes. Files above
// kLargestPatchedFile are refused.
PatchResult makeBpsPatch(std::span<const std::uint8_t> source,
                         std::span<const std::uint8_t> target);

} // namespace velko
