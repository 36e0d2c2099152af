#include "cli/field_parts.h"
#include "pages/map_allocation_model.h"
#include "pages/map_layout_model.h"
#include "rom/number_text.h"
#include "store/block_lengths.h"
#include "store/screen_area.h"

#include <algorithm>

namespace velko {

namespace {

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
    const MapLayoutModel model(state);
    const MapCell cell{numbers[0], numbers[1]};
    if (cell.row >= model.rows() || cell.column >= model.columns())
        return "the map has " + hexText(model.rows()) + " rows of " + hexText(model.columns())
            + " cells";
    const PointerArrayHandler& layouts = state.store.pahMapLayout;
    const std::uint32_t offset = cell.row * layouts.entryByte(kMapWidthByte) + cell.column + 1;
    Field field = bitField(state.rom, {blockByte(layouts, offset)});
    const std::uint32_t screens = std::min(model.screenCount(), MapAllocationModel::kMostScreens);
    // A room without screens has nothing to show in a cell.
    field.smallest = screens == 0 ? 1U : 0U;
    field.largest = screens == 0 ? 0U : screens - 1;
    field.boundBytes =
        screenListBytes(state, state.currentRoom(), MapAllocationModel::kMostScreens);
    // A damaged room shows a cell that lies outside of its block.
    if (offset >= mapLayoutLength(layouts, layouts.currentRoom()))
        field.set = nullptr;
    return field;
}

FieldResult screen(EditorState& state, FieldNumbers numbers)
{
    if (numbers[0] >= MapAllocationModel(state).screenCount())
        return missing("screen", numbers[0]);
    return wordField(state.rom, blockByte(state.store.pahMapAlloc, 2 * numbers[0]));
}

FieldResult screenIndex(EditorState& state, FieldNumbers numbers)
{
    const FieldResult result = screen(state, numbers);
    if (!std::holds_alternative<Field>(result))
        return result;
    const Field& address = std::get<Field>(result);
    const ScreenArea area = ScreenArea::of(state.config);
    return Field{.value = area.indexOf(static_cast<std::uint16_t>(address.value)),
                 .largest = std::max(area.count, 1U) - 1,
                 .bytes = address.bytes,
                 .set = [area, write = address.set](std::uint32_t index) {
                     return write(area.addressOf(index));
                 }};
}

constexpr FieldRule kRules[] = {
    {"room.R.width", "read only", "screens across", inRoom<width, &RoomDataStore::pahMapLayout>},
    {"room.R.height", "read only", "screens down", inRoom<height, &RoomDataStore::pahMapLayout>},
    {"room.R.layout.ROW,COLUMN", "screens of the room", "which of its screens a cell shows",
     inRoom<layoutCell, &RoomDataStore::pahMapLayout>},
    {"room.R.screen.N", "0 to ffff", "address of a screen of the room's list",
     inRoom<screen, &RoomDataStore::pahMapAlloc>},
    {"room.R.screen.N.index", "screens of the game", "the same as a number of all screens",
     inRoom<screenIndex, &RoomDataStore::pahMapAlloc>},
};

} // namespace

std::span<const FieldRule> mapFieldRules()
{
    return kRules;
}

} // namespace velko
