#include "cli/field_parts.h"
#include "pages/unit_list.h"
#include "pages/vram_load_list.h"
#include "rom/number_text.h"

namespace velko {

namespace {

constexpr std::uint32_t kLastUnitType = kUnitTypes - 1; // of those that have names
constexpr std::uint32_t kLastLoad = 254;

// The bytes of a unit.
constexpr std::uint32_t kType = 0;
constexpr std::uint32_t kPixelX = 1;
constexpr std::uint32_t kColumn = 2; // plus 1; 0 without a placement
constexpr std::uint32_t kPixelY = 3;
constexpr std::uint32_t kScreenY = 4;

Field unitByte(EditorState& state, std::uint32_t unit, std::uint32_t byte)
{
    return bitField(state.rom, {blockByte(state.store.pahUnit, UnitRecord::kBytes * unit + byte)});
}

FieldResult unitType(EditorState& state, FieldNumbers numbers)
{
    if (numbers[0] >= UnitList(state.store.pahUnit).count())
        return missing("unit", numbers[0]);
    return limited(unitByte(state, numbers[0], kType), kLastUnitType);
}

// As the box of the window does: without a placement all but the type is 0.
Field::Refusal place(UnitList units, std::uint32_t index, bool isPlaced)
{
    UnitRecord record = units.record(index);
    if (record.isPlaced() == isPlaced)
        return std::nullopt;
    if (isPlaced)
        record.column = 1;
    else
        record = {.type = record.type};
    units.setRecord(index, record);
    return std::nullopt;
}

FieldResult unitPlaced(EditorState& state, FieldNumbers numbers)
{
    const std::uint32_t unit = numbers[0];
    const UnitList units(state.store.pahUnit);
    if (unit >= units.count())
        return missing("unit", unit);
    return Field{
        .value = units.record(unit).isPlaced() ? 1U : 0U,
        .largest = 1,
        .bytes = unitByte(state, unit, kColumn).bytes,
        .set = [units, unit](std::uint32_t value) { return place(units, unit, value == 1); }};
}

template <std::uint32_t kByte> FieldResult placement(EditorState& state, FieldNumbers numbers)
{
    const UnitList units(state.store.pahUnit);
    if (numbers[0] >= units.count())
        return missing("unit", numbers[0]);
    const FileOffsets column = unitByte(state, numbers[0], kColumn).bytes;
    if (const auto pastEnd = fieldPastEnd(state, column))
        return *pastEnd;
    if (!units.record(numbers[0]).isPlaced())
        return "unit " + hexText(numbers[0]) + " has no placement";
    return found(unitByte(state, numbers[0], kByte), column);
}

// The window shows the screen's column counted from 0.
FieldResult screenX(EditorState& state, FieldNumbers numbers)
{
    FieldResult result = placement<kColumn>(state, numbers);
    auto* field = std::get_if<Field>(&result);
    if (field == nullptr || !field->set)
        return result;
    field->value -= 1;
    field->largest = 0xFE;
    field->set = [write = field->set](std::uint32_t value) { return write(value + 1); };
    return result;
}

FieldResult load(EditorState& state, FieldNumbers numbers)
{
    if (numbers[0] >= VramLoadList(state.store.pahTileLoadType2).shownCount())
        return missing("sprite load", numbers[0]);
    return limited(bitField(state.rom, {blockByte(state.store.pahTileLoadType2, numbers[0])}),
                   kLastLoad);
}

constexpr auto kUnits = &RoomDataStore::pahUnit;

constexpr FieldRule kRules[] = {
    {"room.R.unit.N.type", "0 to 8f", "a unit's type", inRoom<unitType, kUnits>},
    {"room.R.unit.N.placed", "0, 1", "whether a unit has a placement; 0 clears all but its type",
     inRoom<unitPlaced, kUnits>},
    {"room.R.unit.N.screenx", "0 to fe", "screen column of a placed unit", inRoom<screenX, kUnits>},
    {"room.R.unit.N.screeny", "0 to ff", "screen row of a placed unit",
     inRoom<placement<kScreenY>, kUnits>},
    {"room.R.unit.N.x", "0 to ff", "its column in that screen, in pixels",
     inRoom<placement<kPixelX>, kUnits>},
    {"room.R.unit.N.y", "0 to ff", "its line in that screen, in pixels",
     inRoom<placement<kPixelY>, kUnits>},
    {"room.R.load.N", "0 to fe", "an entry of the room's sprite loads; 80 and above end the list",
     inRoom<load, &RoomDataStore::pahTileLoadType2>},
};

} // namespace

std::span<const FieldRule> unitFieldRules()
{
    return kRules;
}

} // namespace velko
