#pragma once

#include "check/region_kinds.h"
#include "state/editor_state.h"

#include <cstdint>
#include <functional>
#include <optional>
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

// What cannot be surveyed: beyond the end of the file all reads as filler.
struct MissingBlocks {
    std::uint32_t pointers = 0;     // entries of the table that are not in the file
    std::uint32_t firstPointer = 0; // the entry
    std::uint32_t blocks = 0;       // that do not end in the file, of entries that are there
    SurveyedBlock firstBlock;       // its length is not to be relied on

    bool isNothing() const { return pointers == 0 && blocks == 0; }
    void addPointer(std::uint32_t entry)
    {
        if (pointers++ == 0)
            firstPointer = entry;
    }
    void addBlock(const SurveyedBlock& block)
    {
        if (blocks++ == 0)
            firstBlock = block;
    }
};

// The blocks of a table, in the order of the entries.
struct BlockSurvey {
    std::vector<SurveyedBlock> found;
    MissingBlocks missing;
};

// A table with more entries than this is misdescribed; the rest is left out.
inline constexpr std::uint32_t kMostSurveyedEntries = 1024;

// The blocks of all rooms, or areas, and of what else the table has. Entries without a block (a map
// of width or height 0) are left out. Areas without a table have none.
BlockSurvey surveyBlocks(const EditorState& state, const RegionKind& kind);

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
    std::uint32_t owners = 0;              // entries from here on belong to nobody
    std::int32_t lowest = 0;               // CPU address that the region starts at
    std::int32_t edge = 0;                 // one past its end
    std::optional<std::int32_t> freeSpace; // nothing when it is not known
    std::vector<SurveyedBlock> found;
    MissingBlocks missing;
    std::function<std::uint32_t(std::uint16_t)> fileOffset;        // of a CPU address
    std::function<std::uint32_t(std::uint32_t)> pointerFileOffset; // of a table entry
};

// A module tells where a region ends only; it starts behind whatever else the module describes
// below it in the same bank: another region, a table, the screens.
RegionSurvey surveyRegion(const EditorState& state, const RegionKind& kind);

// The movement patterns of the overworld's trucks. The state must stay.
RegionSurvey surveyTruckPatterns(const EditorState& state);

} // namespace velko
