#include "check/check_families.h"
#include "check/region_survey.h"
#include "rom/number_text.h"

#include <algorithm>
#include <utility>

namespace velko {

namespace {

// The checks of one region.
class RegionCheck {
public:
    RegionCheck(RegionSurvey region, Findings& findings)
        : m_region(std::move(region)), m_findings(findings)
    {
    }

    void run()
    {
        checkFile();
        checkFreeSpace();
        for (const SurveyedBlock& block : m_region.found)
            checkPlace(block);
        checkNeighbours();
    }

private:
    std::string ownerText(std::uint32_t entry) const
    {
        const std::string number = " " + hexText(entry);
        if (entry >= m_region.owners)
            return "table entry" + number;
        switch (m_region.owner) {
        case BlockOwner::kRoom:
            return "room" + number;
        case BlockOwner::kArea:
            return "area" + number;
        case BlockOwner::kPatternSet:
            break;
        }
        return "pattern set" + number;
    }
    std::string blockText(const SurveyedBlock& block) const
    {
        return std::string(m_region.block) + " of " + ownerText(block.entry);
    }
    std::uint32_t fileOffset(std::int32_t address) const
    {
        return m_region.fileOffset(static_cast<std::uint16_t>(address & 0xFFFF));
    }
    void report(FindingKind kind, std::optional<std::uint32_t> entry, std::int32_t address,
                std::string text) const
    {
        reportAt(kind, entry, fileOffset(address), std::move(text));
    }
    void reportAt(FindingKind kind, std::optional<std::uint32_t> entry, std::uint32_t place,
                  std::string text) const
    {
        Finding finding{kind, std::nullopt, place, std::move(text)};
        if (m_region.owner == BlockOwner::kRoom)
            finding.room = entry;
        else if (m_region.owner == BlockOwner::kArea)
            finding.area = entry;
        m_findings.push_back(std::move(finding));
    }

    void checkFile() const
    {
        const MissingBlocks& missing = m_region.missing;
        if (missing.pointers > 0)
            reportAt(FindingKind::kPastEndOfFile, missing.firstPointer,
                     m_region.pointerFileOffset(missing.firstPointer),
                     "The pointer to the " + std::string(m_region.block) + " of "
                         + ownerText(missing.firstPointer) + " lies past the end of the file"
                         + suchText(missing.pointers, "pointer") + ".");
        if (missing.blocks > 0)
            report(FindingKind::kPastEndOfFile, missing.firstBlock.entry, missing.firstBlock.start,
                   "The " + blockText(missing.firstBlock) + ", at "
                       + addressOf(missing.firstBlock.start) + ", ends past the end of the file"
                       + suchText(missing.blocks, m_region.block) + ".");
    }

    void checkFreeSpace() const
    {
        if (m_region.freeSpace.value_or(0) >= 0)
            return;
        m_findings.push_back(
            {FindingKind::kNegativeFreeSpace, std::nullopt,
             // The edge itself may lie in another bank than the region.
             fileOffset(m_region.edge - 1) + 1,
             "The " + std::string(m_region.blocks) + " end "
                 + countText(static_cast<std::uint32_t>(-*m_region.freeSpace), "byte")
                 + " past the end of their region, " + addressOf(m_region.edge) + "."});
    }

    void checkPlace(const SurveyedBlock& block) const
    {
        if (!m_region.startsInside(block))
            report(FindingKind::kPointerOutsideRegion, block.entry, block.start,
                   "The pointer to the " + blockText(block) + " is " + addressOf(block.start)
                       + ", outside of its region, " + addressOf(m_region.lowest) + " to "
                       + addressOf(m_region.edge - 1) + ".");
        else if (!m_region.endsInside(block) && m_region.isList)
            report(FindingKind::kUnterminatedList, block.entry, block.start,
                   "The " + blockText(block) + " at " + addressOf(block.start)
                       + " has no end mark before the end of its region, "
                       + addressOf(m_region.edge) + ".");
        else if (!m_region.endsInside(block))
            report(FindingKind::kBlockPastRegion, block.entry, block.start,
                   "The " + blockText(block) + " at " + addressOf(block.start) + " ends "
                       + countText(static_cast<std::uint32_t>(block.end() - m_region.edge), "byte")
                       + " past the end of its region, " + addressOf(m_region.edge) + ".");
        else
            checkFreePlace(block);
    }

    // What reaches into the free space is overwritten by the next insertion.
    void checkFreePlace(const SurveyedBlock& block) const
    {
        const std::int32_t usedEnd = m_region.edge - m_region.freeSpace.value_or(0);
        if (m_region.freeSpace.value_or(-1) >= 0 && block.end() > usedEnd)
            report(FindingKind::kBlockInFreeSpace, block.entry, block.start,
                   "The " + blockText(block) + ", " + addressOf(block.start) + " to "
                       + addressOf(block.end() - 1) + ", reaches into the free space at "
                       + addressOf(usedEnd) + ", which the next insertion overwrites.");
    }

    // One pass over the different blocks, from the lowest on.
    void checkNeighbours() const
    {
        std::vector<SurveyedBlock> blocks = m_region.found;
        std::erase_if(blocks,
                      [this](const SurveyedBlock& block) { return !m_region.startsInside(block); });
        // Of those with one start the longest stands for all; among equals, the first entry.
        std::ranges::stable_sort(blocks, [](const SurveyedBlock& a, const SurveyedBlock& b) {
            return a.start != b.start ? a.start < b.start : a.end() > b.end();
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
            if (!highest || block.end() > highest->end() || isOpen(*highest))
                highest = &block;
        }
    }

    bool isOpen(const SurveyedBlock& block) const
    {
        return m_region.isList && !m_region.endsInside(block);
    }

    void checkPair(const SurveyedBlock& lower, const SurveyedBlock& upper) const
    {
        if (isOpen(lower))
            return;
        if (upper.start < lower.end())
            report(FindingKind::kOverlappingBlocks, upper.entry, upper.start,
                   "The " + blockText(upper) + " starts at " + addressOf(upper.start)
                       + ", inside the one of " + ownerText(lower.entry) + ", "
                       + addressOf(lower.start) + " to " + addressOf(lower.end() - 1) + ".");
        // What is not in the file may lie between them.
        else if (upper.start > lower.end() && m_region.missing.isNothing())
            report(FindingKind::kGap, std::nullopt, lower.end(),
                   "No " + std::string(m_region.block) + " holds the "
                       + countText(static_cast<std::uint32_t>(upper.start - lower.end()), "byte")
                       + " from " + addressOf(lower.end()) + " to " + addressOf(upper.start - 1)
                       + ".");
    }

    static std::string addressOf(std::int32_t address)
    {
        return addressText(static_cast<std::uint32_t>(address));
    }

    RegionSurvey m_region;
    Findings& m_findings;
};

} // namespace

void checkRegions(const EditorState& state, Findings& findings)
{
    for (const RegionKind& kind : kRegionKindTable)
        RegionCheck(surveyRegion(state, kind), findings).run();
    RegionCheck(surveyTruckPatterns(state), findings).run();
}

} // namespace velko
