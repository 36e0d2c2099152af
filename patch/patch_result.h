#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace velko {

// The largest file, in bytes, that patches are made from, made to or applied to. A patch of a few
// bytes can ask for a result of any size; this is far above any ROM and far below trouble.
inline constexpr std::size_t kLargestPatchedFile = std::size_t{32} << 20;

enum class PatchStatus : std::uint8_t {
    kDone,
    kRefused, // the patch is for another file, or a file is too large for it
    kDamaged, // the patch breaks its format's rules or fails its own checksum
};

// What making or applying a patch gave. Unless ok(), `bytes` is empty and `reason` tells why, as a
// part of a sentence.
struct [[nodiscard]] PatchResult {
    PatchStatus status = PatchStatus::kDone;
    std::vector<std::uint8_t> bytes; // the patch, or the patched file
    std::string reason;

    bool ok() const { return status == PatchStatus::kDone; }

    static PatchResult done(std::vector<std::uint8_t> result)
    {
        return {PatchStatus::kDone, std::move(result), {}};
    }
    static PatchResult refused(std::string why)
    {
        return {PatchStatus::kRefused, {}, std::move(why)};
    }
    static PatchResult damaged(std::string why)
    {
        return {PatchStatus::kDamaged, {}, std::move(why)};
    }
};

} // namespace velko
