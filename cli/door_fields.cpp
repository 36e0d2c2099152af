#include "cli/field_parts.h"
#include "gfx/room_renderer.h"
#include "pages/door_model.h"
#include "store/block_lengths.h"

#include <algorithm>

namespace velko {

namespace {

constexpr unsigned kHigh = 4;
constexpr std::uint32_t kNibble = 15;
constexpr std::uint32_t kLastBlockRow = 14;

// File offset of a slot's byte in one of the tables of doors.
std::uint32_t slotOffset(const EditorState& state, MiscField table, MiscField slotsPerRoom,
                         std::uint32_t slot)
{
    return state.config.value(table) + state.currentRoom() * state.config.value(slotsPerRoom)
        + slot;
}

template <MiscField kTable> FieldResult exitByte(EditorState& state, FieldNumbers numbers)
{
    if (numbers[0] >= DoorModel::kSlots)
        return missing("exit", numbers[0]);
    const std::uint32_t largest = kTable == MiscField::ptrExitRoom
        ? std::max(state.config.roomCount(), 1U) - 1
        : DoorModel::kSlots - 1;
    return limited(
        bitField(state.rom, {slotOffset(state, kTable, MiscField::roomExits, numbers[0])}),
        largest);
}

// Where the room's size stands.
FileOffsets sizeBytes(const EditorState& state)
{
    const std::uint32_t entry = state.store.pahMapLayout.entryFileOffset(state.currentRoom());
    return {entry + kMapWidthByte, entry + kMapHeightByte};
}

// How much of the room an entrance can tell: the window keeps it on these screens.
std::uint32_t screensAcross(const EditorState& state)
{
    return std::min(state.renderer.roomSize(state.currentRoom()).columns, kNibble);
}

std::uint32_t lastScreenRow(const EditorState& state)
{
    return std::min(state.renderer.roomSize(state.currentRoom()).rows - 1, kNibble);
}

std::uint32_t lastBlockColumn(const EditorState&)
{
    return kNibble;
}

std::uint32_t lastBlockRow(const EditorState&)
{
    return kLastBlockRow;
}

template <MiscField kTable, unsigned kShift, std::uint32_t (*kLargest)(const EditorState&)>
FieldResult entrance(EditorState& state, FieldNumbers numbers)
{
    if (numbers[0] >= DoorModel::kSlots)
        return missing("entrance", numbers[0]);
    const std::uint32_t offset = slotOffset(state, kTable, MiscField::roomEntrances, numbers[0]);
    Field field = limited(bitField(state.rom, {offset, kShift, kNibble}), kLargest(state));
    if constexpr (kTable == MiscField::ptrEntranceScreen)
        field.boundBytes = sizeBytes(state);
    return field;
}

constexpr FieldRule kRules[] = {
    {"room.R.entrance.N.screenx", "0 to the room's width, at most f",
     "an entrance's screen column, counted from 1; 0: not set",
     inRoom<entrance<MiscField::ptrEntranceScreen, kHigh, screensAcross>>},
    {"room.R.entrance.N.screeny", "0 to the room's height - 1, at most f", "its screen row",
     inRoom<entrance<MiscField::ptrEntranceScreen, 0, lastScreenRow>>},
    {"room.R.entrance.N.x", "0 to f", "its 16x16 column in that screen",
     inRoom<entrance<MiscField::ptrEntranceBlock, kHigh, lastBlockColumn>>},
    {"room.R.entrance.N.y", "0 to e", "its 16x16 row in that screen",
     inRoom<entrance<MiscField::ptrEntranceBlock, 0, lastBlockRow>>},
    {"room.R.exit.N.room", "rooms of the game", "where an exit leads",
     inRoom<exitByte<MiscField::ptrExitRoom>>},
    {"room.R.exit.N.entrance", "0 to 3", "the entrance there",
     inRoom<exitByte<MiscField::ptrExitEntrance>>},
};

} // namespace

std::span<const FieldRule> doorFieldRules()
{
    return kRules;
}

} // namespace velko
