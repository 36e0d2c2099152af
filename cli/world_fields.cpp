#include "cli/field.h"

#include "rom/number_text.h"
#include "tools/area_movement.h"
#include "tools/area_settings.h"
#include "tools/overworld_map.h"
#include "tools/truck_movement_region.h"

#include <memory>

namespace velko {

namespace {

constexpr std::uint32_t kNibble = 15;
constexpr std::uint32_t kPhaseDirection = 7;
// Where the map's left and upper edge puts an area, and the steps in which it is placed.
constexpr std::uint32_t kFirstPlace = 24;
constexpr std::uint32_t kLastColumn = 232;
constexpr std::uint32_t kLastRow = 168;
constexpr std::uint32_t kPlaceStep = 8;

std::string missing(std::string_view what, std::uint32_t number)
{
    return "there is no " + std::string(what) + " " + hexText(number);
}

std::uint8_t byteOf(std::uint32_t value)
{
    return static_cast<std::uint8_t>(value);
}

// Areas

// The one past the last is on the map, too, but has no settings.
std::shared_ptr<AreaSettings> settingsOf(EditorState& state, std::uint32_t area)
{
    if (area >= state.config.value(MiscField::areas))
        return nullptr;
    auto settings = std::make_shared<AreaSettings>(state);
    settings->selectArea(area);
    return settings;
}

FieldResult areaItem(EditorState& state, FieldNumbers numbers)
{
    const std::shared_ptr<AreaSettings> settings = settingsOf(state, numbers[0]);
    if (!settings)
        return missing("area", numbers[0]);
    if (!settings->hasClearItem())
        return "area " + hexText(numbers[0]) + " has no clear item";
    return Field{.value =
                     state.rom.readByte(state.config.value(MiscField::ptrAreaEndItem) + numbers[0]),
                 .largest = kItems - 1,
                 .set = [settings](std::uint32_t item) { settings->setClearItem(byteOf(item)); }};
}

FieldResult areaParachute(EditorState& state, FieldNumbers numbers)
{
    const std::shared_ptr<AreaSettings> settings = settingsOf(state, numbers[0]);
    if (!settings)
        return missing("area", numbers[0]);
    return Field{.value = settings->parachute() ? 1U : 0U,
                 .largest = 1,
                 .set = [settings](std::uint32_t on) { settings->setParachute(on == 1); }};
}

template <std::uint8_t AreaPosition::*kCoordinate, std::uint32_t kLast>
FieldResult areaPlace(EditorState& state, FieldNumbers numbers)
{
    const auto map = std::make_shared<OverworldMap>(state.rom, state.config);
    const std::uint32_t area = numbers[0];
    if (area > map->lastArea())
        return missing("area", area);
    return Field{.value = map->areaPosition(area).*kCoordinate,
                 .smallest = kFirstPlace,
                 .largest = kLast,
                 .step = kPlaceStep,
                 .set = [map, area](std::uint32_t value) {
                     AreaPosition position = map->areaPosition(area);
                     position.*kCoordinate = byteOf(value);
                     map->setAreaPosition(area, position);
                 }};
}

template <std::uint8_t AreaMovement::Entry::*kValue, void (AreaMovement::*kSet)(int, int)>
FieldResult movement(EditorState& state, FieldNumbers numbers)
{
    const OverworldMap map(state.rom, state.config);
    if (numbers[0] > map.lastArea())
        return missing("area", numbers[0]);
    const auto movements = std::make_shared<AreaMovement>(state.store.pahMapAreaMovement);
    movements->selectArea(numbers[0]);
    if (numbers[1] >= static_cast<std::uint32_t>(movements->entryCount()))
        return missing("movement entry", numbers[1]);
    const int index = static_cast<int>(numbers[1]);
    return Field{.value = movements->entry(index).*kValue,
                 .largest = kNibble,
                 .set = [movements, index](std::uint32_t value) {
                     ((*movements).*kSet)(index, static_cast<int>(value));
                 }};
}

// Trucks

// Where a truck's start byte lies: pattern set (high nibble), starting area (low nibble).
std::optional<std::uint32_t> truckOffset(const EditorState& state, std::uint32_t truck)
{
    if (truck >= state.config.value(MiscField::numOfMapTrucks))
        return std::nullopt;
    return state.config.value(MiscField::ptrMapTruckInit) + truck;
}

template <unsigned kShift> FieldResult truckNibble(EditorState& state, FieldNumbers numbers)
{
    const std::optional<std::uint32_t> offset = truckOffset(state, numbers[0]);
    if (!offset)
        return missing("truck", numbers[0]);
    std::uint32_t largest = kNibble;
    if constexpr (kShift != 0) {
        const std::uint32_t sets = TruckMovementRegion(state.rom, state.config).patternSets();
        largest = sets == 0 ? 0 : std::min(sets - 1, kNibble);
    }
    const auto read = [&state, at = *offset] { return std::uint32_t{state.rom.readByte(at)}; };
    return Field{.value = read() >> kShift & kNibble,
                 .largest = largest,
                 .set = [&state, at = *offset, read](std::uint32_t value) {
                     const std::uint32_t kept = read() & ~(kNibble << kShift);
                     state.rom.writeByte(at, byteOf(kept | value << kShift));
                 }};
}

FieldResult phase(EditorState& state, FieldNumbers numbers)
{
    const auto region = std::make_shared<TruckMovementRegion>(state.rom, state.config);
    if (numbers[0] >= region->patternSets())
        return missing("pattern", numbers[0]);
    region->selectSet(numbers[0]);
    const std::uint32_t index = numbers[1];
    if (index > region->lastPhase())
        return missing("phase", index);
    return Field{.value = region->phase(index) & kPhaseDirection,
                 .largest = kPhaseDirection,
                 .set = [region, index](std::uint32_t value) {
                     const std::uint32_t mark =
                         region->phase(index) & TruckMovementRegion::kLastPhaseMark;
                     region->setPhase(index, byteOf(mark | value));
                 }};
}

// Map

std::optional<OverworldCell> cellOf(FieldNumbers numbers)
{
    if (numbers[0] >= OverworldMap::kRows || numbers[1] >= OverworldMap::kColumns)
        return std::nullopt;
    return OverworldCell{.column = static_cast<int>(numbers[1]),
                         .row = static_cast<int>(numbers[0])};
}

const std::string kNoCell = "the overworld has 12 rows of 1a cells";

FieldResult mapTile(EditorState& state, FieldNumbers numbers)
{
    const std::optional<OverworldCell> cell = cellOf(numbers);
    if (!cell)
        return kNoCell;
    const auto map = std::make_shared<OverworldMap>(state.rom, state.config);
    return Field{.value = map->tile(*cell), .set = [map, at = *cell](std::uint32_t value) {
                     map->setTile(at, byteOf(value));
                 }};
}

FieldResult mapPalette(EditorState& state, FieldNumbers numbers)
{
    const std::optional<OverworldCell> cell = cellOf(numbers);
    if (!cell)
        return kNoCell;
    const auto map = std::make_shared<OverworldMap>(state.rom, state.config);
    return Field{.value = static_cast<std::uint32_t>(map->palette(*cell)),
                 .largest = 3,
                 .set = [map, at = *cell](std::uint32_t value) {
                     map->setPalette(at, static_cast<int>(value));
                 }};
}

using Entry = AreaMovement::Entry;

constexpr FieldRule kRules[] = {
    {"area.A.item", "0 to 19", "the item that clears an area", areaItem},
    {"area.A.parachute", "0, 1", "whether the hero comes down by parachute", areaParachute},
    {"area.A.x", "18 to e8, multiples of 8", "where an area lies on the overworld",
     areaPlace<&AreaPosition::x, kLastColumn>},
    {"area.A.y", "18 to a8, multiples of 8", "the same, down",
     areaPlace<&AreaPosition::y, kLastRow>},
    {"area.A.movement.N.chopper", "0 to f", "chopper sprite of a way out of an area",
     movement<&Entry::chopperSprite, &AreaMovement::setChopperSprite>},
    {"area.A.movement.N.preview", "0 to f", "its path preview sprite",
     movement<&Entry::pathPreviewSprite, &AreaMovement::setPathPreviewSprite>},
    {"area.A.movement.N.digit1", "0 to f", "first digit of the area that it leads to",
     movement<&Entry::firstDigit, &AreaMovement::setFirstDigit>},
    {"area.A.movement.N.digit2", "0 to f", "the second digit",
     movement<&Entry::secondDigit, &AreaMovement::setSecondDigit>},
    {"truck.T.area", "0 to f", "the area where a truck starts", truckNibble<0>},
    {"truck.T.pattern", "patterns of the game", "its movement pattern", truckNibble<4>},
    {"pattern.P.N", "0 to 7", "direction of a phase, clockwise from the right", phase},
    {"map.ROW,COLUMN.tile", "0 to ff", "a tile of the overworld", mapTile},
    {"map.ROW,COLUMN.palette", "0 to 3", "palette of the four tiles around it", mapPalette},
};

} // namespace

std::span<const FieldRule> worldFieldRules()
{
    return kRules;
}

} // namespace velko
