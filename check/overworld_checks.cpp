#include "check/check_families.h"
#include "check/missing_places.h"
#include "check/region_survey.h"
#include "rom/number_text.h"
#include "tools/area_movement.h"
#include "tools/overworld_map.h"
#include "tools/truck_movement_region.h"

#include <algorithm>
#include <unordered_set>

namespace velko {

namespace {

constexpr std::uint32_t kDirections = 8;

// Lists that areas share are told once, for the first of them.
void checkMovementCounts(const EditorState& state, Findings& findings)
{
    const RegionSurvey region = surveyRegion(state, kAreaMovementKind);
    std::unordered_set<std::int32_t> seen;
    for (const SurveyedBlock& block : region.found) {
        if (block.entry >= region.owners)
            break; // the rest of the table are no areas
        if (!region.startsInside(block) || !seen.insert(block.start).second)
            continue;
        const std::uint32_t bytes = block.length.bytes - AreaMovement::kHeadBytes;
        if (bytes != 0 && bytes % 2 == 0)
            continue;
        findings.push_back({FindingKind::kBadMovementCount, std::nullopt,
                            region.fileOffset(static_cast<std::uint16_t>(block.start)),
                            "The movement list counts " + countText(bytes, "byte")
                                + " of entries; each has 2, and an area has at least one.",
                            block.entry});
    }
}

// A truck's byte: the number of its pattern set above that of the area.
void checkTrucks(const EditorState& state, std::uint32_t patternSets, Findings& findings)
{
    const std::uint32_t trucks =
        std::min(state.config.value(MiscField::numOfMapTrucks), OverworldMap::kMostTrucks);
    MissingPlaces missing("byte");
    const std::uint32_t lastArea = state.config.value(MiscField::areas);
    for (std::uint32_t truck = 0; truck < trucks; ++truck) {
        const std::uint32_t place = state.config.value(MiscField::ptrMapTruckInit) + truck;
        if (place >= state.rom.size()) {
            missing.add(std::nullopt, place, "The start of truck " + hexText(truck) + " lies");
            continue;
        }
        const std::uint32_t area = state.rom.readByte(place) & 15U;
        const std::uint32_t set = state.rom.readByte(place) >> 4;
        const std::string name = "Truck " + hexText(truck);
        if (area > lastArea)
            findings.push_back({FindingKind::kTruckInMissingArea, std::nullopt, place,
                                name + " starts in area " + hexText(area)
                                    + "; there are areas 0 to " + hexText(lastArea) + "."});
        if (patternSets != 0 && set >= patternSets)
            findings.push_back({FindingKind::kTruckOfMissingPattern, std::nullopt, place,
                                name + " follows pattern set " + hexText(set)
                                    + "; there are sets 0 to " + hexText(patternSets - 1) + "."});
    }
    missing.report(findings);
}

std::uint32_t phaseOffset(const RegionSurvey& patterns, const SurveyedBlock& pattern,
                          std::uint32_t phase)
{
    const std::uint32_t address = static_cast<std::uint32_t>(pattern.start) + phase;
    return patterns.fileOffset(static_cast<std::uint16_t>(address));
}

void checkDirections(const EditorState& state, const RegionSurvey& patterns,
                     const SurveyedBlock& pattern, Findings& findings)
{
    const auto direction = [&](std::uint32_t phase) {
        return state.rom.readByte(phaseOffset(patterns, pattern, phase))
            & (TruckMovementRegion::kLastPhaseMark - 1U);
    };
    std::uint32_t wrong = 0;
    std::uint32_t first = 0;
    for (std::uint32_t phase = pattern.length.bytes; phase-- > 0;) {
        if (direction(phase) < kDirections)
            continue;
        ++wrong;
        first = phase;
    }
    if (wrong == 0)
        return;
    findings.push_back({FindingKind::kTruckDirectionOutOfRange, std::nullopt,
                        phaseOffset(patterns, pattern, first),
                        "Phase " + hexText(first) + " of pattern set " + hexText(pattern.entry)
                            + " has direction " + hexText(direction(first))
                            + ", of which there are 0 to " + hexText(kDirections - 1)
                            + suchText(wrong, "phase") + "."});
}

// Patterns that sets share are told once, for the first of them. What leaves the region is none.
void checkPatterns(const EditorState& state, const RegionSurvey& patterns, Findings& findings)
{
    std::unordered_set<std::int32_t> seen;
    for (const SurveyedBlock& pattern : patterns.found) {
        if (patterns.startsInside(pattern) && patterns.endsInside(pattern)
            && seen.insert(pattern.start).second)
            checkDirections(state, patterns, pattern, findings);
    }
}

} // namespace

void checkOverworld(const EditorState& state, Findings& findings)
{
    checkMovementCounts(state, findings);
    const RegionSurvey patterns = surveyTruckPatterns(state);
    checkTrucks(state, patterns.owners, findings);
    checkPatterns(state, patterns, findings);
}

} // namespace velko
