#include "cli/field_parts.h"
#include "rom/number_text.h"
#include "tools/area_movement.h"
#include "tools/area_settings.h"
#include "tools/overworld_map.h"

namespace velko {

namespace {

constexpr unsigned kHigh = 4;
constexpr std::uint32_t kNibble = 15;
// Where the map's left and upper edge puts an area, and the steps in which it is placed.
constexpr std::uint32_t kFirstPlace = 24;
constexpr std::uint32_t kLastColumn = 232;
constexpr std::uint32_t kLastRow = 168;
constexpr std::uint32_t kPlaceStep = 8;

FieldResult item(EditorState& state, FieldNumbers numbers)
{
    const std::uint32_t area = numbers[0];
    AreaSettings settings(state);
    if (area > settings.lastArea())
        return missing("area", area);
    settings.selectArea(area);
    if (!settings.hasClearItem())
        return "area " + hexText(area) + " has no clear item";
    return limited(bitField(state.rom, {state.config.value(MiscField::ptrAreaEndItem) + area}),
                   kItems - 1);
}

FieldResult parachute(EditorState& state, FieldNumbers numbers)
{
    const std::uint32_t area = numbers[0];
    AreaSettings settings(state);
    if (area > settings.lastArea())
        return missing("area", area);
    settings.selectArea(area);
    Field field =
        limited(bitField(state.rom, {state.config.value(MiscField::ptrAreaParachute) + area}), 1);
    field.value = settings.parachute() ? 1 : 0; // any byte but 0 is a parachute
    return field;
}

// The area past the last one is on the map, too, but has no settings.
template <std::uint32_t kByte, std::uint32_t kLast>
FieldResult place(EditorState& state, FieldNumbers numbers)
{
    const OverworldMap map(state.rom, state.config);
    if (numbers[0] > map.lastArea())
        return missing("area", numbers[0]);
    Field field = limited(bitField(state.rom, {map.areaOffset(numbers[0]) + kByte}), kLast);
    field.smallest = kFirstPlace;
    field.step = kPlaceStep;
    return field;
}

template <std::uint32_t kByte, unsigned kShift>
FieldResult movement(EditorState& state, FieldNumbers numbers)
{
    const std::uint32_t area = numbers[0];
    if (area > OverworldMap(state.rom, state.config).lastArea())
        return missing("area", area);
    PointerArrayHandler& blocks = state.store.pahMapAreaMovement;
    AreaMovement movements(blocks);
    movements.selectArea(area);
    FileOffsets head = entryOffsets(blocks, area);
    if (const auto pastEnd = fieldPastEnd(state, head))
        return *pastEnd;
    head.push_back(blockByte(blocks, 0));
    if (const auto pastEnd = fieldPastEnd(state, head))
        return *pastEnd;
    if (numbers[1] >= static_cast<std::uint32_t>(movements.entryCount()))
        return missing("movement entry", numbers[1]);
    const std::uint32_t offset = blockByte(blocks, 2 + 2 * numbers[1] + kByte);
    return found(bitField(state.rom, {offset, kShift, kNibble}), head);
}

constexpr FieldRule kRules[] = {
    {"area.A.item", "0 to 19", "the item that clears an area", item},
    {"area.A.parachute", "0, 1", "whether the hero comes down by parachute", parachute},
    {"area.A.x", "18 to e8, multiples of 8", "where an area lies on the overworld",
     place<0, kLastColumn>},
    {"area.A.y", "18 to a8, multiples of 8", "the same, down", place<1, kLastRow>},
    {"area.A.movement.N.chopper", "0 to f", "chopper sprite of a way out of an area",
     movement<0, kHigh>},
    {"area.A.movement.N.preview", "0 to f", "its path preview sprite", movement<0, 0>},
    {"area.A.movement.N.digit1", "0 to f", "first digit of the area that it leads to",
     movement<1, kHigh>},
    {"area.A.movement.N.digit2", "0 to f", "the second digit", movement<1, 0>},
};

} // namespace

std::span<const FieldRule> areaFieldRules()
{
    return kRules;
}

} // namespace velko
