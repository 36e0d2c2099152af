#include "cli/field.h"

#include "gfx/palette_model.h"
#include "gfx/tile_allocation_model.h"
#include "pages/door_model.h"
#include "pages/map_allocation_model.h"
#include "pages/map_layout_model.h"
#include "pages/room_settings_model.h"
#include "pages/unit_list.h"
#include "pages/vram_load_list.h"
#include "rom/number_text.h"

#include <algorithm>
#include <memory>

namespace velko {

namespace {

constexpr std::uint32_t kWord = 0xFFFF;
constexpr std::uint32_t kLastUnitType = kUnitTypes - 1; // of those that have names
constexpr std::uint32_t kLastLoad = 254;

std::string missing(std::string_view what, std::uint32_t number)
{
    return "there is no " + std::string(what) + " " + hexText(number);
}

using RoomFind = FieldResult (*)(EditorState&, FieldNumbers);

// Selects the room, the name's first number, and finds the field with the other numbers.
template <RoomFind kFind> FieldResult inRoom(EditorState& state, FieldNumbers numbers)
{
    if (numbers.front() >= state.config.roomCount())
        return missing("room", numbers.front());
    state.graphics.selectRoom(static_cast<std::uint8_t>(numbers.front()));
    return kFind(state, numbers.subspan(1));
}

// A value of a model, which the field keeps.
template <typename Model>
Field modelField(const std::shared_ptr<Model>& model, std::uint32_t value, std::uint32_t largest,
                 std::function<void(Model&, std::uint32_t)> set)
{
    return {.value = value,
            .largest = largest,
            .set = [model, set = std::move(set)](std::uint32_t number) { set(*model, number); }};
}

std::uint8_t byteOf(std::uint32_t value)
{
    return static_cast<std::uint8_t>(value);
}

// Settings

FieldResult music(EditorState& state, FieldNumbers)
{
    const auto model = std::make_shared<RoomSettingsModel>(state);
    return modelField<RoomSettingsModel>(
        model, model->music(), 0xFF,
        [](RoomSettingsModel& settings, std::uint32_t value) { settings.setMusic(byteOf(value)); });
}

FieldResult item(EditorState& state, FieldNumbers)
{
    const auto model = std::make_shared<RoomSettingsModel>(state);
    if (!model->isChamber())
        return "the room is no chamber: it holds no item";
    Field field = modelField<RoomSettingsModel>(
        model, model->item(), kItems - 1, [](RoomSettingsModel& settings, std::uint32_t value) {
            if (value == RoomSettingsModel::kNoItem)
                settings.removeItem();
            else
                settings.setItem(byteOf(value));
        });
    field.also = RoomSettingsModel::kNoItem;
    return field;
}

FieldResult itemAddress(EditorState& state, FieldNumbers)
{
    const auto model = std::make_shared<RoomSettingsModel>(state);
    if (!model->isChamber())
        return "the room is no chamber: it holds no item";
    return modelField<RoomSettingsModel>(
        model, model->spriteAddress(), kWord,
        [](RoomSettingsModel& settings, std::uint32_t value) { settings.setSpriteAddress(value); });
}

// Map

FieldResult width(EditorState& state, FieldNumbers)
{
    return Field{.value = MapLayoutModel(state).columns()};
}

FieldResult height(EditorState& state, FieldNumbers)
{
    return Field{.value = MapLayoutModel(state).rows()};
}

FieldResult layoutCell(EditorState& state, FieldNumbers numbers)
{
    const auto model = std::make_shared<MapLayoutModel>(state);
    const MapCell cell{numbers[0], numbers[1]};
    if (cell.row >= model->rows() || cell.column >= model->columns())
        return "the map has " + hexText(model->rows()) + " rows of " + hexText(model->columns())
            + " cells";
    const std::uint32_t screens = std::min(model->screenCount(), MapAllocationModel::kMostScreens);
    // A room without screens has nothing to show in a cell.
    Field field{.value = model->cellValue(cell),
                .smallest = screens == 0 ? 1U : 0U,
                .largest = screens == 0 ? 0U : screens - 1};
    field.set = [model, cell](std::uint32_t value) {
        model->selectCell(cell);
        model->assignScreen(static_cast<int>(value));
    };
    return field;
}

FieldResult screen(EditorState& state, FieldNumbers numbers)
{
    const auto model = std::make_shared<MapAllocationModel>(state);
    if (numbers[0] >= model->screenCount())
        return missing("screen", numbers[0]);
    model->select(static_cast<int>(numbers[0]));
    return modelField<MapAllocationModel>(
        model, model->selectedAddress(), kWord,
        [](MapAllocationModel& list, std::uint32_t value) { list.setAddress(value); });
}

// Look

FieldResult paletteEntry(EditorState& state, FieldNumbers numbers)
{
    if (numbers[0] >= PaletteModel::kEntries)
        return missing("palette entry", numbers[0]);
    const auto model = std::make_shared<PaletteModel>(state);
    model->selectEntry(static_cast<int>(numbers[0]));
    return modelField<PaletteModel>(
        model, model->value(), 0xFF,
        [](PaletteModel& palette, std::uint32_t value) { palette.setValue(byteOf(value)); });
}

using Slots = TileAllocationModel;

std::shared_ptr<Slots> slotModel(EditorState& state, std::uint32_t slot)
{
    if (slot >= static_cast<std::uint32_t>(Slots::kSlots))
        return nullptr;
    auto model = std::make_shared<Slots>(state);
    model->selectSlot(static_cast<int>(slot));
    return model;
}

FieldResult slotBlock(EditorState& state, FieldNumbers numbers)
{
    const std::shared_ptr<Slots> model = slotModel(state, numbers[0]);
    if (!model)
        return missing("slot", numbers[0]);
    return modelField<Slots>(model, model->slot().block, 0xFF,
                             [](Slots& slots, std::uint32_t value) {
                                 const int page = static_cast<int>(value) / Slots::kBlocksPerPage;
                                 slots.browseTo(slots.slot().bankOffset * 4 + page);
                                 slots.selectBlock(static_cast<int>(value) % Slots::kBlocksPerPage);
                             });
}

FieldResult slotBank(EditorState& state, FieldNumbers numbers)
{
    const std::shared_ptr<Slots> model = slotModel(state, numbers[0]);
    if (!model)
        return missing("slot", numbers[0]);
    const auto lastBank = static_cast<std::uint32_t>(model->lastBrowsePosition() / 4);
    return modelField<Slots>(model, model->slot().bankOffset, lastBank,
                             [](Slots& slots, std::uint32_t value) {
                                 const int page = slots.slot().block / Slots::kBlocksPerPage;
                                 slots.browseTo(static_cast<int>(value) * 4 + page);
                             });
}

template <bool BackgroundSlot::*kBit, void (Slots::*kToggle)()>
FieldResult slotBit(EditorState& state, FieldNumbers numbers)
{
    const std::shared_ptr<Slots> model = slotModel(state, numbers[0]);
    if (!model)
        return missing("slot", numbers[0]);
    return modelField<Slots>(model, model->slot().*kBit ? 1 : 0, 1,
                             [](Slots& slots, std::uint32_t value) {
                                 if (slots.slot().*kBit != (value == 1))
                                     (slots.*kToggle)();
                             });
}

// Units

using UnitSetter = void (*)(UnitRecord&, std::uint32_t);

FieldResult unitField(EditorState& state, std::uint32_t index, std::uint32_t largest,
                      std::uint32_t (*read)(const UnitRecord&), UnitSetter write,
                      bool needsPlacement)
{
    const auto list = std::make_shared<UnitList>(state.store.pahUnit);
    if (index >= list->count())
        return missing("unit", index);
    const UnitRecord record = list->record(index);
    if (needsPlacement && !record.isPlaced())
        return "unit " + hexText(index) + " has no placement";
    return modelField<UnitList>(list, read(record), largest,
                                [index, write](UnitList& units, std::uint32_t value) {
                                    UnitRecord changed = units.record(index);
                                    write(changed, value);
                                    units.setRecord(index, changed);
                                });
}

FieldResult unitType(EditorState& state, FieldNumbers numbers)
{
    return unitField(
        state, numbers[0], kLastUnitType,
        [](const UnitRecord& unit) -> std::uint32_t { return unit.type; },
        [](UnitRecord& unit, std::uint32_t value) { unit.type = byteOf(value); }, false);
}

// As the box of the window does: without a placement all but the type is 0.
FieldResult unitPlaced(EditorState& state, FieldNumbers numbers)
{
    return unitField(
        state, numbers[0], 1,
        [](const UnitRecord& unit) -> std::uint32_t { return unit.isPlaced() ? 1 : 0; },
        [](UnitRecord& unit, std::uint32_t value) {
            if (value == 0)
                unit = {.type = unit.type};
            else if (!unit.isPlaced())
                unit.column = 1;
        },
        false);
}

template <std::uint8_t UnitRecord::*kByte>
FieldResult unitByte(EditorState& state, FieldNumbers numbers)
{
    return unitField(
        state, numbers[0], 0xFF,
        [](const UnitRecord& unit) -> std::uint32_t { return unit.*kByte; },
        [](UnitRecord& unit, std::uint32_t value) { unit.*kByte = byteOf(value); }, true);
}

// The window shows the screen's column counted from 0.
FieldResult unitScreenX(EditorState& state, FieldNumbers numbers)
{
    return unitField(
        state, numbers[0], 0xFE,
        [](const UnitRecord& unit) -> std::uint32_t { return unit.column - 1U; },
        [](UnitRecord& unit, std::uint32_t value) { unit.column = byteOf(value + 1); }, true);
}

FieldResult load(EditorState& state, FieldNumbers numbers)
{
    const auto list = std::make_shared<VramLoadList>(state.store.pahTileLoadType2);
    const std::uint32_t index = numbers[0];
    if (index >= list->shownCount())
        return missing("sprite load", index);
    return modelField<VramLoadList>(
        list, list->id(index), kLastLoad,
        [index](VramLoadList& loads, std::uint32_t value) { loads.setId(index, byteOf(value)); });
}

// Doors

FieldResult exitField(EditorState& state, std::uint32_t slot, std::uint32_t largest,
                      std::uint8_t (DoorModel::*read)() const,
                      void (DoorModel::*write)(std::uint8_t))
{
    if (slot >= DoorModel::kSlots)
        return missing("exit", slot);
    const auto model = std::make_shared<DoorModel>(state);
    model->selectExit(slot);
    return modelField<DoorModel>(
        model, ((*model).*read)(), largest,
        [write](DoorModel& doors, std::uint32_t value) { (doors.*write)(byteOf(value)); });
}

FieldResult exitRoom(EditorState& state, FieldNumbers numbers)
{
    const std::uint32_t rooms = state.config.roomCount();
    return exitField(state, numbers[0], rooms - (rooms > 0 ? 1 : 0), &DoorModel::exitRoom,
                     &DoorModel::setExitRoom);
}

FieldResult exitEntrance(EditorState& state, FieldNumbers numbers)
{
    return exitField(state, numbers[0], DoorModel::kSlots - 1, &DoorModel::exitEntrance,
                     &DoorModel::setExitEntrance);
}

template <std::uint8_t Entrance::*kNibble, std::uint32_t kLargest>
FieldResult entranceField(EditorState& state, FieldNumbers numbers)
{
    const std::uint32_t slot = numbers[0];
    if (slot >= DoorModel::kSlots)
        return missing("entrance", slot);
    const auto model = std::make_shared<DoorModel>(state);
    return modelField<DoorModel>(model, model->entranceOf(slot).*kNibble, kLargest,
                                 [slot](DoorModel& doors, std::uint32_t value) {
                                     Entrance entrance = doors.entranceOf(slot);
                                     entrance.*kNibble = byteOf(value);
                                     doors.setEntrance(slot, entrance);
                                 });
}

// Pointers

template <PointerArrayHandler RoomDataStore::*kHandler>
FieldResult pointer(EditorState& state, FieldNumbers)
{
    PointerArrayHandler& handler = state.store.*kHandler;
    return Field{
        .value = handler.pointerOf(), .largest = kWord, .set = [&handler](std::uint32_t value) {
            handler.setPointer(handler.currentRoom(), static_cast<std::uint16_t>(value));
        }};
}

constexpr FieldRule kRules[] = {
    {"room.R.music", "0 to ff", "the room's music", inRoom<music>},
    {"room.R.item", "0 to 19, ff", "a chamber's item; ff for none, which clears its address too",
     inRoom<item>},
    {"room.R.itemaddress", "0 to ffff", "where the frame of a chamber's item lies",
     inRoom<itemAddress>},
    {"room.R.width", "read only", "screens across", inRoom<width>},
    {"room.R.height", "read only", "screens down", inRoom<height>},
    {"room.R.layout.ROW,COLUMN", "screens of the room", "which of its screens a cell shows",
     inRoom<layoutCell>},
    {"room.R.screen.N", "0 to ffff", "address of a screen of the room's list", inRoom<screen>},
    {"room.R.palette.N", "0 to ff", "one of 32 colours", inRoom<paletteEntry>},
    {"room.R.slot.N.block", "0 to ff", "which block of its bank fills a background slot",
     inRoom<slotBlock>},
    {"room.R.slot.N.bank", "banks of the game", "the bank of a background slot, from the first one",
     inRoom<slotBank>},
    {"room.R.slot.N.mirror", "0, 1", "whether a background slot is mirrored",
     inRoom<slotBit<&BackgroundSlot::mirrored, &Slots::toggleMirror>>},
    {"room.R.slot.N.unused", "0, 1", "its bit that the game makes nothing of",
     inRoom<slotBit<&BackgroundSlot::unusedBit, &Slots::toggleUnusedBit>>},
    {"room.R.unit.N.type", "0 to 8f", "a unit's type", inRoom<unitType>},
    {"room.R.unit.N.placed", "0, 1", "whether a unit has a placement; 0 clears all but its type",
     inRoom<unitPlaced>},
    {"room.R.unit.N.screenx", "0 to fe", "screen column of a placed unit", inRoom<unitScreenX>},
    {"room.R.unit.N.screeny", "0 to ff", "screen row of a placed unit",
     inRoom<unitByte<&UnitRecord::screenY>>},
    {"room.R.unit.N.x", "0 to ff", "its column in that screen, in pixels",
     inRoom<unitByte<&UnitRecord::pixelX>>},
    {"room.R.unit.N.y", "0 to ff", "its line in that screen, in pixels",
     inRoom<unitByte<&UnitRecord::pixelY>>},
    {"room.R.load.N", "0 to fe", "an entry of the room's sprite loads", inRoom<load>},
    {"room.R.entrance.N.screenx", "0 to f", "an entrance's screen column, from 1; 0: not set",
     inRoom<entranceField<&Entrance::screenColumn, 15>>},
    {"room.R.entrance.N.screeny", "0 to f", "its screen row",
     inRoom<entranceField<&Entrance::screenRow, 15>>},
    {"room.R.entrance.N.x", "0 to f", "its 16x16 column in that screen",
     inRoom<entranceField<&Entrance::blockColumn, 15>>},
    {"room.R.entrance.N.y", "0 to e", "its 16x16 row in that screen",
     inRoom<entranceField<&Entrance::blockRow, 14>>},
    {"room.R.exit.N.room", "rooms of the game", "where an exit leads", inRoom<exitRoom>},
    {"room.R.exit.N.entrance", "0 to 3", "the entrance there", inRoom<exitEntrance>},
    {"room.R.pointer.alloc", "0 to ffff", "address of the room's screen list",
     inRoom<pointer<&RoomDataStore::pahMapAlloc>>},
    {"room.R.pointer.layout", "0 to ffff", "of its layout",
     inRoom<pointer<&RoomDataStore::pahMapLayout>>},
    {"room.R.pointer.tile32", "0 to ffff", "of its Tile32 set",
     inRoom<pointer<&RoomDataStore::pahTile32>>},
    {"room.R.pointer.tiles", "0 to ffff", "of its background slots",
     inRoom<pointer<&RoomDataStore::pahTileLoad>>},
    {"room.R.pointer.palette", "0 to ffff", "of its palette",
     inRoom<pointer<&RoomDataStore::pahPal>>},
};

} // namespace

std::span<const FieldRule> roomFieldRules()
{
    return kRules;
}

} // namespace velko
