#pragma once

#include "state/editor_state.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

namespace velko {

// A block of a region, and who points at it.
struct RegionBlock {
    std::uint32_t length = 0; // bytes; of entries that disagree, the largest
    std::vector<std::uint32_t> entries;
};

// How the blocks of one kind lie in their region.
struct RegionUse {
    std::string_view key;                        // as in data.yaml
    std::uint32_t tableOffset = 0;               // in the file
    std::uint32_t entries = 0;                   // of the table; rooms come first
    std::map<std::uint16_t, RegionBlock> blocks; // by CPU address; without those of length 0
    std::uint32_t usedBytes = 0; // that belong to a block, counted once where blocks overlap
    // Where a pointer or a block is not in the file, `blocks` has neither, and the next two are
    // not known.
    //
    // Between the lowest block and the end of the highest, in none.
    std::optional<std::uint32_t> unusedBytes;
    // What the editor shows as free, above the highest block: by its rules, which look at the
    // first two bytes of the highest unit list only. May be negative.
    std::optional<std::int32_t> freeBytes;

    // Blocks that several entries point at.
    std::uint32_t sharedBlocks() const;
};

// The use of all eight regions, those of the rooms first. Of a table with more than
// kMostSurveyedEntries entries the rest is passed over. The areas' free space is counted as when
// the overworld's window opens; the state keeps what it has.
std::vector<RegionUse> regionUses(const EditorState& state);

} // namespace velko
