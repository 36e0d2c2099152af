#include "cli/field_parts.h"
#include "rom/number_text.h"
#include "tools/overworld_map.h"
#include "tools/truck_movement_region.h"

#include <algorithm>

namespace velko {

namespace {

constexpr unsigned kHigh = 4;
constexpr std::uint32_t kNibble = 15;
constexpr std::uint32_t kPhaseDirection = 7;

// The patterns that a truck can name with a nibble.
std::uint32_t patternCount(const TruckMovementRegion& region)
{
    return std::min(region.patternSets(), kNibble + 1);
}

// A truck's start byte: pattern set (high nibble), starting area (low nibble).
template <unsigned kShift> FieldResult truckNibble(EditorState& state, FieldNumbers numbers)
{
    if (numbers[0]
        >= std::min(state.config.value(MiscField::numOfMapTrucks), OverworldMap::kMostTrucks))
        return missing("truck", numbers[0]);
    std::uint32_t largest = kNibble;
    if constexpr (kShift == kHigh)
        largest = std::max(patternCount(TruckMovementRegion(state.rom, state.config)), 1U) - 1;
    const std::uint32_t offset = state.config.value(MiscField::ptrMapTruckInit) + numbers[0];
    return limited(bitField(state.rom, {offset, kShift, kNibble}), largest);
}

FieldResult phase(EditorState& state, FieldNumbers numbers)
{
    const std::uint32_t pattern = numbers[0];
    const std::uint32_t index = numbers[1];
    const TruckMovementRegion region(state.rom, state.config);
    if (pattern >= patternCount(region))
        return missing("pattern", pattern);
    const FileOffsets pointer = {region.pointerOffset(pattern)};
    if (const auto pastEnd = fieldPastEnd(state, pointer))
        return *pastEnd;
    if (index > region.lastPhase(pattern))
        return missing("phase", index);
    // Of the seven bits of a direction the window shows three, and clears the others.
    const std::uint32_t offset = region.phaseOffset(pattern, index);
    Field field = limited(bitField(state.rom, {offset, 0, 0x7F}), kPhaseDirection);
    field.value &= kPhaseDirection;
    return found(field, pointer);
}

template <typename Find> FieldResult inCell(EditorState& state, FieldNumbers numbers, Find find)
{
    if (numbers[0] >= OverworldMap::kRows || numbers[1] >= OverworldMap::kColumns)
        return "the overworld has " + hexText(OverworldMap::kRows) + " rows of "
            + hexText(OverworldMap::kColumns) + " cells";
    return find(
        OverworldMap(state.rom, state.config),
        OverworldCell{.column = static_cast<int>(numbers[1]), .row = static_cast<int>(numbers[0])});
}

FieldResult mapTile(EditorState& state, FieldNumbers numbers)
{
    return inCell(state, numbers, [&](const OverworldMap& map, OverworldCell cell) {
        return bitField(state.rom, {map.tileOffset(cell)});
    });
}

FieldResult mapPalette(EditorState& state, FieldNumbers numbers)
{
    return inCell(state, numbers, [&](const OverworldMap& map, OverworldCell cell) {
        return Field{
            .value = static_cast<std::uint32_t>(map.palette(cell)),
            .largest = 3,
            .bytes = {map.paletteOffset(cell)},
            .set = [&state, cell](std::uint32_t value) {
                OverworldMap(state.rom, state.config).setPalette(cell, static_cast<int>(value));
                return std::nullopt;
            }};
    });
}

constexpr FieldRule kRules[] = {
    {"truck.T.area", "0 to f", "the area where a truck starts", truckNibble<0>},
    {"truck.T.pattern", "patterns of the game", "its movement pattern", truckNibble<kHigh>},
    {"pattern.P.N", "0 to 7", "direction of a phase, clockwise from the right", phase},
    {"map.ROW,COLUMN.tile", "0 to ff", "a tile of the overworld", mapTile},
    {"map.ROW,COLUMN.palette", "0 to 3", "palette of the four tiles around it", mapPalette},
};

} // namespace

std::span<const FieldRule> overworldFieldRules()
{
    return kRules;
}

} // namespace velko
