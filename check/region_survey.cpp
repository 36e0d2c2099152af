#include "check/region_survey.h"

#include "store/file_offsets.h"
#include "store/screen_area.h"
#include "tools/area_movement.h"
#include "tools/overworld_map.h"
#include "tools/truck_movement_region.h"

#include <algorithm>

namespace velko {

namespace {

constexpr std::uint32_t kWindowStart = 0x8000;

// How many of them there are; entry numbers below are theirs.
std::uint32_t ownersOf(const GameConfig& config, BlockOwner owner)
{
    if (owner == BlockOwner::kRoom)
        return config.roomCount();
    // `areas` counts one less than there are on the map.
    return std::min(config.value(MiscField::areas), OverworldMap::kMostAreas - 1) + 1;
}

// Entries that are read however short the table is.
std::uint32_t neededEntries(const GameConfig& config, const RegionKind& kind)
{
    if (kind.owner == BlockOwner::kRoom)
        return config.roomCount();
    return (config.*kind.descriptor).dEdge != 0 ? config.value(MiscField::areas) : 0;
}

// The numbers of the configuration are wider than the addresses they tell.
std::uint32_t address(const GameConfig& config, MiscField field)
{
    return config.value(field) & 0xFFFF;
}

// File offsets of the last bytes of everything with a place that the module tells.
std::vector<std::uint32_t> lastBytes(const GameConfig& config)
{
    std::vector<std::uint32_t> offsets;
    const auto add = [&offsets](BankPair banks, std::uint32_t end) {
        if (end != 0) // else the module does not tell it
            offsets.push_back(cpuToFileOffset(banks, end - 1));
    };
    for (const RegionKind& kind : kRegionKindTable) {
        const PointerArrayDescriptor& d = config.*kind.descriptor;
        add(d.dBank, d.dEdge);
        // Both halves of a table's window lie one after the other in the file.
        const auto nextBank = static_cast<std::uint8_t>(d.pBank + 1);
        add({d.pBank, nextBank}, d.pMemEdge);
    }
    for (const MiscField field :
         {MiscField::bpahTruckMovement_pMemEdge, MiscField::bpahTruckMovement_dMemEdge}) {
        const std::uint32_t end = address(config, field);
        if (end != 0)
            offsets.push_back(TruckMovementRegion::fileOffset(config, end - 1));
    }
    const ScreenArea screens = ScreenArea::of(config);
    if (screens.count > 0)
        add(config.phMapScreenData,
            screens.addressOf(screens.count - 1) + ScreenArea::kScreenBytes);
    return offsets;
}

std::int32_t lowestAddress(const GameConfig& config, const RegionKind& kind)
{
    const PointerArrayDescriptor& region = config.*kind.descriptor;
    std::uint32_t lowest = kWindowStart;
    for (const std::uint32_t last : lastBytes(config)) {
        for (std::uint32_t slot = 0; slot < 2; ++slot) {
            const std::uint32_t slotStart = kWindowStart + slot * kBankSize;
            const std::uint32_t inBank = last - cpuToFileOffset(region.dBank, slotStart);
            const std::uint32_t behind = slotStart + inBank + 1;
            if (inBank < kBankSize && behind < region.dEdge)
                lowest = std::max(lowest, behind);
        }
    }
    return static_cast<std::int32_t>(lowest);
}

bool hasPhases(const RomImage& rom, const TruckMovementRegion& trucks, const SurveyedBlock& pattern)
{
    for (std::uint32_t phase = 0; phase < pattern.length.bytes; ++phase) {
        if (trucks.phaseOffset(pattern.entry, phase) >= rom.size())
            return false;
    }
    return true;
}

} // namespace

PointerArrayHandler measuredHandler(const EditorState& state, const RegionKind& kind)
{
    PointerArrayHandler handler = state.store.*kind.handler;
    if (kind.owner == BlockOwner::kArea)
        AreaMovement(handler).open();
    return handler;
}

BlockSurvey surveyBlocks(const EditorState& state, const RegionKind& kind)
{
    const PointerArrayHandler& handler = state.store.*kind.handler;
    const auto tableEntries = static_cast<std::uint32_t>(std::max(handler.entryCount(), 0));
    const std::uint32_t entries =
        std::min(std::max(tableEntries, neededEntries(state.config, kind)), kMostSurveyedEntries);
    BlockLengths lengths(handler, kind);
    BlockSurvey survey;
    for (std::uint32_t entry = 0; entry < entries; ++entry) {
        if (!entryLiesInFile(state.rom, handler, entry)) {
            survey.missing.addPointer(entry);
            continue;
        }
        const std::uint16_t pointer = handler.pointerOf(entry);
        const SurveyedBlock block = {entry, pointer, lengths.of(entry, pointer)};
        if (!blockLiesInFile(state.rom, handler, pointer, block.length.bytes))
            survey.missing.addBlock(block);
        else if (block.length.bytes != 0)
            survey.found.push_back(block);
    }
    return survey;
}

RegionSurvey surveyRegion(const EditorState& state, const RegionKind& kind)
{
    const PointerArrayHandler handler = measuredHandler(state, kind);
    RegionSurvey region;
    region.block = kind.block;
    region.blocks = kind.blocks;
    region.isList = kind.isList;
    region.owner = kind.owner;
    region.owners = ownersOf(state.config, kind.owner);
    region.lowest = lowestAddress(state.config, kind);
    region.edge = handler.descriptor().dEdge;
    BlockSurvey survey = surveyBlocks(state, kind);
    region.found = std::move(survey.found);
    region.missing = survey.missing;
    // Without areas there is none whose block could be the one stored last.
    if (region.missing.isNothing() && (kind.owner == BlockOwner::kRoom || !region.found.empty()))
        region.freeSpace = handler.freeSpace();
    region.pointerFileOffset = [handler](std::uint32_t entry) {
        return handler.entryFileOffset(entry);
    };
    region.fileOffset = [handler](std::uint16_t cpuAddress) {
        return handler.dataFileOffset(cpuAddress);
    };
    return region;
}

RegionSurvey surveyTruckPatterns(const EditorState& state)
{
    RomImage image = state.rom; // of our own, as patterns can be edited through their region
    const TruckMovementRegion trucks(image, state.config);
    RegionSurvey region;
    region.block = "movement pattern";
    region.blocks = "movement patterns";
    region.isList = true;
    region.owner = BlockOwner::kPatternSet;
    region.owners = trucks.patternSets();
    const std::uint32_t start = address(state.config, MiscField::bpahTruckMovement_dMemStart);
    region.lowest = static_cast<std::int32_t>(start);
    region.edge =
        static_cast<std::int32_t>(address(state.config, MiscField::bpahTruckMovement_dMemEdge));
    for (std::uint32_t set = 0; set < std::min(region.owners, kMostSurveyedEntries); ++set) {
        if (trucks.pointerOffset(set) >= image.size()) {
            region.missing.addPointer(set);
            continue;
        }
        const std::uint32_t last = trucks.lastPhase(set);
        const bool hasEnd = (trucks.phase(set, last) & TruckMovementRegion::kLastPhaseMark) != 0;
        const SurveyedBlock pattern = {
            set, static_cast<std::int32_t>(start + trucks.pointer(set)), {last + 1, hasEnd}};
        if (hasPhases(image, trucks, pattern))
            region.found.push_back(pattern);
        else
            region.missing.addBlock(pattern);
    }
    // The pattern of the table's last set is taken to be the one stored last.
    if (region.owners > 0 && region.missing.isNothing()) {
        const std::uint32_t last = region.owners - 1;
        const std::uint32_t end = start + trucks.pointer(last) + trucks.lastPhase(last) + 1;
        region.freeSpace = region.edge - static_cast<std::int32_t>(end);
    }
    region.fileOffset = [&config = state.config](std::uint16_t cpuAddress) {
        return TruckMovementRegion::fileOffset(config, cpuAddress);
    };
    region.pointerFileOffset = [&config = state.config](std::uint32_t set) {
        return TruckMovementRegion::fileOffset(
            config, config.value(MiscField::bpahTruckMovement_pMemStart) + set);
    };
    return region;
}

} // namespace velko
