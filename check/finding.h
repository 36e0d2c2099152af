#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velko {

enum class Severity : std::uint8_t {
    kError,   // the game, or the editor, reads what was never meant for it
    kWarning, // it works, but not as somebody who edits the data would expect
    kNote,    // worth knowing
};

// What a check can find, in the order in which findings are listed.
enum class FindingKind : std::uint8_t {
    kPastEndOfFile,
    kPointerOutsideRegion,
    kBlockPastRegion,
    kUnterminatedList,
    kNegativeFreeSpace,
    kBlockInFreeSpace,
    kOverlappingBlocks,
    kGap,
    kSizesDiffer,
    kLayoutPastScreenList,
    kScreenOutOfRange,
    kTile32OutOfRange,
    kEntranceOutsideRoom,
    kExitToMissingRoom,
    kExitToUnsetEntrance,
    kUnreachableRoom,
    kUnreachableGroup,
    kUnnamedUnitType,
    kLoadPastPatternMemory,
    kBadMovementCount,
    kTruckInMissingArea,
    kTruckOfMissingPattern,
    kTruckDirectionOutOfRange,
};
inline constexpr std::size_t kFindingKinds = 23;
static_assert(kFindingKinds
              == static_cast<std::size_t>(FindingKind::kTruckDirectionOutOfRange) + 1);

// Codes are for programs and stay as they are.
std::string_view codeOf(FindingKind kind); // "overlapping-blocks"
Severity severityOf(FindingKind kind);
std::string_view severityName(Severity severity); // "error"

struct Finding {
    FindingKind kind{};
    std::optional<std::uint32_t> room; // or the table entry behind those of the rooms
    std::uint32_t fileOffset = 0;      // the place in the ROM file; it may lie past the file's end
    std::string text;                  // one sentence
    // Or the table entry behind those of the areas. What is wrong with an area has no room. The
    // trucks of the overworld have neither.
    std::optional<std::uint32_t> area = std::nullopt;
};
using Findings = std::vector<Finding>;

// "$a3f0"
std::string addressText(std::uint32_t cpuAddress);
// "1 byte", "12 bytes"
std::string countText(std::uint32_t count, std::string_view noun);
// " (3 such cells)" behind the first of several; empty for one.
std::string suchText(std::uint32_t count, std::string_view noun);

} // namespace velko
