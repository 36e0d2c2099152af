#pragma once

#include "check/region_kinds.h"
#include "state/editor_state.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace velko {

// A block as a table entry describes it.
struct SurveyedBlock {
    std::uint32_t entry = 0;
    std::int32_t start = 0; // CPU address
    BlockLength length;

    // One past its last byte. It may exceed 0xFFFF; of a list without an end mark it always does.
    std::int32_t end() const
    {
        constexpr std::int32_t kEndless = 0x10000; // longer than any region
        return start + (length.hasEnd ? static_cast<std::int32_t>(length.bytes) : kEndless);
    }
};

// A table with more entries than this is misdescribed; the rest is left out.
inline constexpr std::uint32_t kMostSurveyedEntries = 1024;

// The blocks of all rooms, or areas, and of what else the table has, in the order of the entries.
// Entries without a block (a map of width or height 0) are left out. Areas without a table have
// none.
std::vector<SurveyedBlock> surveyBlocks(const EditorState& state, const RegionKind& kind);

// A handler of our own with the free space known: of the areas' blocks it is counted only when the
// overworld's window opens.
PointerArrayHandler measuredHandler(const EditorState& state, const RegionKind& kind);

// A region, and the blocks that a table points at.
struct RegionSurvey {
    bool startsInside(const SurveyedBlock& b) const { return b.start >= lowest && b.start < edge; }
    bool endsInside(const SurveyedBlock& b) const { return b.end() <= edge; }

    const char* block = nullptr; // in words
    const char* blocks = nullptr;
    bool isList = false; // blocks run up to an end mark
    BlockOwner owner = BlockOwner::kRoom;
    std::uint32_t owners = 0; // entries from here on belong to nobody
    std::int32_t lowest = 0;  // CPU address that the region starts at
    std::int32_t edge = 0;    // one past its end
    std::int32_t freeSpace = 0;
    std::vector<SurveyedBlock> found;
    std::function<std::uint32_t(std::uint16_t)> fileOffset; // of a CPU address
};

// A module tells where a region ends only; it starts behind whatever else the module describes
// below it in the same bank: another region, a table, the screens.
RegionSurvey surveyRegion(const EditorState& state, const RegionKind& kind);

// The movement patterns of the overworld's trucks.
RegionSurvey surveyTruckPatterns(const EditorState& state);

} // namespace velko
