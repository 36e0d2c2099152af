#include "check/check_families.h"
#include "check/region_survey.h"
#include "rom/number_text.h"

#include <algorithm>

namespace velko {

namespace {

// The checks of one region.
class RegionCheck {
public:
    RegionCheck(const EditorState& state, const RegionKind& kind, Findings& findings)
        : m_kind(kind)
        , m_handler(state.store.*kind.handler)
        , m_lowest(lowestAddress(state.config, kind))
        , m_edge(m_handler.descriptor().dEdge)
        , m_blocks(surveyBlocks(state.store, kind, state.config.roomCount()))
        , m_rooms(state.config.roomCount())
        , m_findings(findings)
    {
    }

    void run()
    {
        checkFreeSpace();
        for (const SurveyedBlock& block : m_blocks)
            checkPlace(block);
        checkNeighbours();
    }

private:
    bool startsInside(const SurveyedBlock& block) const
    {
        return block.start >= m_lowest && block.start < m_edge;
    }
    bool endsInside(const SurveyedBlock& block) const { return block.end <= m_edge; }

    std::string ownerText(std::uint32_t entry) const
    {
        return (entry < m_rooms ? "room " : "table entry ") + hexText(entry);
    }
    std::string blockText(const SurveyedBlock& block) const
    {
        return std::string(m_kind.block) + " of " + ownerText(block.entry);
    }
    void report(FindingKind kind, std::optional<std::uint32_t> entry, std::int32_t address,
                std::string text) const
    {
        const auto cpuAddress = static_cast<std::uint16_t>(address & 0xFFFF);
        m_findings.push_back({kind, entry, m_handler.dataFileOffset(cpuAddress), std::move(text)});
    }

    void checkFreeSpace() const
    {
        if (m_handler.freeSpace() >= 0)
            return;
        // The edge itself may lie in another bank than the region.
        const std::uint32_t place =
            m_handler.dataFileOffset(static_cast<std::uint16_t>((m_edge - 1) & 0xFFFF)) + 1;
        m_findings.push_back(
            {FindingKind::kNegativeFreeSpace, std::nullopt, place,
             "The " + std::string(m_kind.blocks) + " end "
                 + countText(static_cast<std::uint32_t>(-m_handler.freeSpace()), "byte")
                 + " past the end of their region, " + addressOf(m_edge) + "."});
    }

    void checkPlace(const SurveyedBlock& block) const
    {
        if (!startsInside(block))
            report(FindingKind::kPointerOutsideRegion, block.entry, block.start,
                   "The pointer to the " + blockText(block) + " is " + addressOf(block.start)
                       + ", outside of its region, " + addressOf(m_lowest) + " to "
                       + addressOf(m_edge - 1) + ".");
        else if (!endsInside(block) && m_kind.isList)
            report(FindingKind::kUnterminatedList, block.entry, block.start,
                   "The " + blockText(block) + " at " + addressOf(block.start)
                       + " has no end mark before the end of its region, " + addressOf(m_edge)
                       + ".");
        else if (!endsInside(block))
            report(FindingKind::kBlockPastRegion, block.entry, block.start,
                   "The " + blockText(block) + " at " + addressOf(block.start) + " ends "
                       + countText(static_cast<std::uint32_t>(block.end - m_edge), "byte")
                       + " past the end of its region, " + addressOf(m_edge) + ".");
        else
            checkFreePlace(block);
    }

    // What reaches into the free space is overwritten by the next insertion.
    void checkFreePlace(const SurveyedBlock& block) const
    {
        const std::int32_t usedEnd = m_edge - m_handler.freeSpace();
        if (m_handler.freeSpace() >= 0 && block.end > usedEnd)
            report(FindingKind::kBlockInFreeSpace, block.entry, block.start,
                   "The " + blockText(block) + ", " + addressOf(block.start) + " to "
                       + addressOf(block.end - 1) + ", reaches into the free space at "
                       + addressOf(usedEnd) + ", which the next insertion overwrites.");
    }

    // One pass over the different blocks, from the lowest on.
    void checkNeighbours() const
    {
        std::vector<SurveyedBlock> blocks = m_blocks;
        std::erase_if(blocks, [this](const SurveyedBlock& block) { return !startsInside(block); });
        // Of those with one start the longest stands for all; among equals, the first entry.
        std::ranges::stable_sort(blocks, [](const SurveyedBlock& a, const SurveyedBlock& b) {
            return a.start != b.start ? a.start < b.start : a.end > b.end;
        });
        const auto repeated = std::unique(
            blocks.begin(), blocks.end(),
            [](const SurveyedBlock& a, const SurveyedBlock& b) { return a.start == b.start; });
        blocks.erase(repeated, blocks.end());
        const SurveyedBlock* highest = nullptr; // the one that ends highest so far
        for (const SurveyedBlock& block : blocks) {
            if (highest)
                checkPair(*highest, block);
            // A list without an end mark tells nothing about where the next block should be.
            if (!highest || block.end > highest->end || isOpen(*highest))
                highest = &block;
        }
    }

    bool isOpen(const SurveyedBlock& block) const { return m_kind.isList && !endsInside(block); }

    void checkPair(const SurveyedBlock& lower, const SurveyedBlock& upper) const
    {
        if (isOpen(lower))
            return;
        if (upper.start < lower.end)
            report(FindingKind::kOverlappingBlocks, upper.entry, upper.start,
                   "The " + blockText(upper) + " starts at " + addressOf(upper.start)
                       + ", inside the one of " + ownerText(lower.entry) + ", "
                       + addressOf(lower.start) + " to " + addressOf(lower.end - 1) + ".");
        else if (upper.start > lower.end)
            report(FindingKind::kGap, std::nullopt, lower.end,
                   "No " + std::string(m_kind.block) + " holds the "
                       + countText(static_cast<std::uint32_t>(upper.start - lower.end), "byte")
                       + " from " + addressOf(lower.end) + " to " + addressOf(upper.start - 1)
                       + ".");
    }

    static std::string addressOf(std::int32_t address)
    {
        return addressText(static_cast<std::uint32_t>(address));
    }

    const RegionKind& m_kind;
    const PointerArrayHandler& m_handler;
    std::int32_t m_lowest;
    std::int32_t m_edge;
    std::vector<SurveyedBlock> m_blocks;
    std::uint32_t m_rooms;
    Findings& m_findings;
};

} // namespace

void checkRegions(const EditorState& state, Findings& findings)
{
    for (const RegionKind& kind : kRegionKindTable)
        RegionCheck(state, kind, findings).run();
}

} // namespace velko
