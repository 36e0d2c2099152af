#include "cli/region_use.h"

#include "check/region_survey.h"

#include <algorithm>

namespace velko {

namespace {

// Returns those that are in no block.
std::uint32_t countBytes(RegionUse& use)
{
    std::uint32_t unused = 0;
    std::uint32_t end = use.blocks.empty() ? 0 : use.blocks.begin()->first;
    for (const auto& [start, block] : use.blocks) {
        if (start > end)
            unused += start - end;
        const std::uint32_t blockEnd = start + block.length;
        if (blockEnd > end)
            use.usedBytes += blockEnd - std::max<std::uint32_t>(start, end);
        end = std::max(end, blockEnd);
    }
    return unused;
}

RegionUse useOf(const EditorState& state, const RegionKind& kind)
{
    const PointerArrayHandler handler = measuredHandler(state, kind);
    RegionUse use;
    use.key = kind.key;
    use.tableOffset = handler.entryFileOffset(0);
    use.entries = static_cast<std::uint32_t>(std::max(handler.entryCount(), 0));
    const BlockSurvey survey = surveyBlocks(state, kind);
    for (const SurveyedBlock& found : survey.found) {
        RegionBlock& block = use.blocks[static_cast<std::uint16_t>(found.start)];
        block.length = std::max(block.length, found.length.bytes);
        block.entries.push_back(found.entry);
    }
    const std::uint32_t unused = countBytes(use);
    if (survey.missing.isNothing()) {
        use.unusedBytes = unused;
        use.freeBytes = handler.freeSpace();
    }
    return use;
}

} // namespace

std::uint32_t RegionUse::sharedBlocks() const
{
    return static_cast<std::uint32_t>(std::ranges::count_if(
        blocks, [](const auto& block) { return block.second.entries.size() > 1; }));
}

std::vector<RegionUse> regionUses(const EditorState& state)
{
    std::vector<RegionUse> uses;
    for (const RegionKind& kind : kRegionKindTable)
        uses.push_back(useOf(state, kind));
    return uses;
}

} // namespace velko
