#include "cli/answering_prompt.h"
#include "cli/field_parts.h"
#include "gfx/room_renderer.h"
#include "gfx/tile32.h"
#include "pages/map_allocation_model.h"
#include "pages/map_edit_model.h"
#include "pages/tile32_packing.h"
#include "rom/number_text.h"
#include "store/block_lengths.h"

#include <algorithm>

namespace velko {

namespace {

constexpr std::uint32_t kLastTile32 = kMostTile32 - 1;
constexpr std::uint32_t kTilesPerBlock = 4; // metatiles that windows offer are blocks' first ones
constexpr std::uint32_t kLastMetatile = 0xFC;

enum class Part { kTile, kPalette, kPhysics };

// Where the record of a block, number `block` of the room's set, tells a part of a quadrant.
BitPlace quadrant(const EditorState& state, std::uint32_t block, std::uint32_t row,
                  std::uint32_t column, Part part)
{
    BitPlace place;
    std::uint32_t byte = 0;
    switch (part) {
    case Part::kTile:
        byte = 2 * column + row;
        break;
    case Part::kPalette:
        byte = 4;
        place.shift = 2 * (column + 2 * row);
        place.mask = 3;
        break;
    case Part::kPhysics:
        byte = 5 + column;
        place.shift = row == 0 ? 4 : 0;
        place.mask = 15;
        break;
    }
    place.offset = blockByte(state.store.pahTile32, Tile32::kBytes * block + byte);
    return place;
}

Field quadrantField(EditorState& state, std::uint32_t block, std::uint32_t row,
                    std::uint32_t column, Part part)
{
    Field field = bitField(state.rom, quadrant(state, block, row, column, part));
    if (part == Part::kTile) {
        field.largest = kLastMetatile;
        field.step = kTilesPerBlock;
    }
    return field;
}

template <Part kPart> FieldResult tile32(EditorState& state, FieldNumbers numbers)
{
    if (numbers[0] > kLastTile32)
        return missing("Tile32 block", numbers[0]);
    if (numbers[1] > 1 || numbers[2] > 1)
        return "a Tile32 block has 2 rows of 2 tiles";
    return quadrantField(state, numbers[0], numbers[1], numbers[2], kPart);
}

// The Tile32 number at a row and column of a screen of the room's list.
FieldResult screenNumber(EditorState& state, std::uint32_t screen, std::uint32_t row,
                         std::uint32_t column)
{
    if (screen >= MapAllocationModel(state).screenCount())
        return missing("screen", screen);
    const Field address = wordField(state.rom, blockByte(state.store.pahMapAlloc, 2 * screen));
    if (const auto pastEnd = fieldPastEnd(state, address.bytes))
        return *pastEnd;
    const std::uint32_t start =
        state.renderer.screenFileOffset(static_cast<std::uint16_t>(address.value));
    return found(bitField(state.rom, {start + row * kTile32Columns + column}), address.bytes);
}

FieldResult screenTile32(EditorState& state, FieldNumbers numbers)
{
    if (numbers[1] >= kTile32Rows || numbers[2] >= kTile32Columns)
        return "a screen has 8 rows of 8 Tile32 blocks";
    FieldResult result = screenNumber(state, numbers[0], numbers[1], numbers[2]);
    if (auto* field = std::get_if<Field>(&result)) {
        field->largest = kLastTile32;
        // No window changes what a room's first screen shows.
        if (numbers[0] == 0)
            field->set = nullptr;
    }
    return result;
}

std::uint32_t highestNumber(const EditorState& state, std::uint32_t screenStart)
{
    std::uint32_t highest = 0;
    for (std::uint32_t i = 0; i < kTile32PerScreen; ++i)
        highest = std::max<std::uint32_t>(highest, state.rom.readByte(screenStart + i));
    return highest;
}

// What converting would take from past the end of the file. All of it reads as filler there: as
// addresses, screens and blocks that the game does not have, and writing those destroys what is at
// such addresses.
Field::Refusal pastEnd(const EditorState& state, const MapEditScreens& screens)
{
    constexpr const char* kPastEnd = " lies past the end of the file";
    std::vector<std::uint32_t> rooms{state.currentRoom()};
    rooms.insert(rooms.end(), screens.sharedRooms().begin(), screens.sharedRooms().end());
    for (const std::uint32_t room : rooms)
        if (!liesInFile(state.rom, screenListBytes(state, room, kLongestScreenList)))
            return "the screen list of room " + hexText(room) + kPastEnd;
    std::uint32_t blocks = kMostTile32;
    for (const MapEditScreen& screen : screens.all()) {
        const std::uint32_t start = state.renderer.screenFileOffset(screen.address);
        if (!liesInFile(state.rom, neighbours(start, kTile32PerScreen)))
            return "screen " + hexText(screen.address) + kPastEnd;
        blocks = std::max(blocks, highestNumber(state, start) + 1);
    }
    if (!liesInFile(
            state.rom,
            blockOffsets(state.store.pahTile32, state.currentRoom(), Tile32::kBytes * blocks)))
        return std::string("a part of the Tile32 set") + kPastEnd;
    return std::nullopt;
}

// Paints a cell and converts the room, as map editing does.
Field::Refusal paint(EditorState& state, std::uint32_t screen, std::size_t index,
                     const MetatileCell& cell)
{
    if (!liesInFile(state.rom, entryOffsets(state.store.pahMapLayout, state.currentRoom())))
        return "the room's size lies past the end of the file";
    AnsweringPrompt prompt({});
    MapEditModel model(state, prompt);
    model.refresh();
    if (!model.hasMap())
        return "the room has no map to edit";
    if (const Field::Refusal refusal = pastEnd(state, model.screens()))
        return refusal;
    if (!model.setCell(screen, index, cell) || model.packing().limitExceeded())
        return std::string(model.statusText());
    model.convertAndWrite();
    return std::nullopt;
}

MetatileCell withPart(MetatileCell cell, Part part, std::uint32_t value)
{
    std::uint8_t& byte = part == Part::kTile ? cell.metatile
        : part == Part::kPalette             ? cell.palette
                                             : cell.physics;
    byte = static_cast<std::uint8_t>(value);
    return cell;
}

template <Part kPart> FieldResult screenCell(EditorState& state, FieldNumbers numbers)
{
    const std::uint32_t screen = numbers[0];
    const std::uint32_t row = numbers[1];
    const std::uint32_t column = numbers[2];
    if (row >= kScreenRows || column >= kScreenColumns)
        return "a screen has " + hexText(kScreenRows) + " rows of " + hexText(kScreenColumns)
            + " cells";
    FieldResult result = screenNumber(state, screen, row / 2, column / 2);
    const auto* number = std::get_if<Field>(&result);
    if (number == nullptr || !liesInFile(state.rom, number->bytes))
        return result;
    Field field =
        found(quadrantField(state, number->value, row % 2, column % 2, kPart), number->bytes);
    field.set = [&state, screen, row, column, old = field.value](std::uint32_t value) {
        if (value == old)
            return Field::Refusal{};
        const MetatileCell cell =
            state.renderer.screenCell(state.renderer.screenAddress(screen), row, column);
        return paint(state, screen, row * kScreenColumns + column, withPart(cell, kPart, value));
    };
    return field;
}

constexpr auto kSets = &RoomDataStore::pahTile32;
constexpr auto kLists = &RoomDataStore::pahMapAlloc;

constexpr FieldRule kRules[] = {
    {"room.R.screen.N.tile.ROW,COLUMN", "0 to fc, multiples of 4",
     "tile of a 16x16 cell of a screen. A change is converted as on the page \"Map editing\": it "
     "writes the room's Tile32 set and all screens of the rooms that share it",
     inRoom<screenCell<Part::kTile>, kSets, kLists>},
    {"room.R.screen.N.palette.ROW,COLUMN", "0 to 3", "the cell's palette, changed alike",
     inRoom<screenCell<Part::kPalette>, kSets, kLists>},
    {"room.R.screen.N.physics.ROW,COLUMN", "0 to f", "the cell's physics, changed alike",
     inRoom<screenCell<Part::kPhysics>, kSets, kLists>},
    {"room.R.screen.N.tile32.ROW,COLUMN", "0 to 91",
     "which block of its Tile32 set fills 2x2 cells of a screen; screen 0 is read only",
     inRoom<screenTile32, kLists>},
    {"room.R.tile32.N.tile.ROW,COLUMN", "0 to fc, multiples of 4",
     "tile of a quarter of a block of the Tile32 set, wherever the block is used",
     inRoom<tile32<Part::kTile>, kSets>},
    {"room.R.tile32.N.palette.ROW,COLUMN", "0 to 3", "the quarter's palette",
     inRoom<tile32<Part::kPalette>, kSets>},
    {"room.R.tile32.N.physics.ROW,COLUMN", "0 to f", "the quarter's physics",
     inRoom<tile32<Part::kPhysics>, kSets>},
};

} // namespace

std::span<const FieldRule> tile32FieldRules()
{
    return kRules;
}

} // namespace velko
