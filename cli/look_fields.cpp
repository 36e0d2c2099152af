#include "cli/field_parts.h"
#include "gfx/background_slot.h"
#include "gfx/palette_model.h"
#include "gfx/tile_allocation_model.h"

namespace velko {

namespace {

// Bits of a slot's attribute nibble.
constexpr unsigned kMirrorShift = 2;
constexpr unsigned kUnusedShift = 3;
constexpr std::uint32_t kBankMask = 3;

constexpr int kPagesPerBank = 4;
constexpr std::uint32_t kPageMask = 0xC0; // of a block number

constexpr std::uint32_t kBlockSide = 16; // pixels

FieldResult paletteEntry(EditorState& state, FieldNumbers numbers)
{
    if (numbers[0] >= PaletteModel::kEntries)
        return missing("palette entry", numbers[0]);
    return bitField(state.rom, {blockByte(state.store.pahPal, numbers[0])});
}

BitPlace attribute(const EditorState& state, std::uint32_t slot, unsigned shift, std::uint32_t mask)
{
    const std::uint32_t byte = kBackgroundSlots + slot / 2;
    const unsigned nibble = slot % 2 == 0 ? 4 : 0;
    return {blockByte(state.store.pahTileLoad, byte), nibble + shift, mask};
}

template <Field (*kFind)(EditorState&, std::uint32_t slot)>
FieldResult inSlot(EditorState& state, FieldNumbers numbers)
{
    if (numbers[0] >= kBackgroundSlots)
        return missing("slot", numbers[0]);
    return kFind(state, numbers[0]);
}

TileAllocationModel slotModel(EditorState& state, std::uint32_t slot)
{
    TileAllocationModel model(state);
    model.selectSlot(static_cast<int>(slot));
    return model;
}

Field slotBlock(EditorState& state, std::uint32_t slot)
{
    Field field = bitField(state.rom, {blockByte(state.store.pahTileLoad, slot)});
    // In a bank past those of the game the window does not leave the page.
    const TileAllocationModel model = slotModel(state, slot);
    const int lastPage = model.slot().bankOffset * kPagesPerBank + kPagesPerBank - 1;
    if (lastPage > model.lastBrowsePosition()) {
        field.smallest = field.value & kPageMask;
        field.largest = field.value | static_cast<std::uint8_t>(~kPageMask);
    }
    field.boundBytes = {attribute(state, slot, 0, kBankMask).offset};
    return field;
}

Field slotBank(EditorState& state, std::uint32_t slot)
{
    const int last = TileAllocationModel(state).lastBrowsePosition() / kPagesPerBank;
    return limited(bitField(state.rom, attribute(state, slot, 0, kBankMask)),
                   static_cast<std::uint32_t>(last));
}

template <unsigned kShift> Field slotBit(EditorState& state, std::uint32_t slot)
{
    return bitField(state.rom, attribute(state, slot, kShift, 1));
}

FieldResult slotPixel(EditorState& state, FieldNumbers numbers)
{
    const std::uint32_t slot = numbers[0];
    const std::uint32_t row = numbers[1];
    const std::uint32_t column = numbers[2];
    if (slot >= kBackgroundSlots)
        return missing("slot", slot);
    if (row >= kBlockSide || column >= kBlockSide)
        return "a slot has 10 rows of 10 pixels";
    const FileOffsets block = {blockByte(state.store.pahTileLoad, slot),
                               attribute(state, slot, 0, kBankMask).offset};
    if (const auto pastEnd = fieldPastEnd(state, block))
        return *pastEnd;
    const TileAllocationModel model = slotModel(state, slot);
    const TileAllocationModel::BlockPixel pixel{static_cast<int>(row), static_cast<int>(column)};
    // The block's four tiles follow one another in column order, each with two planes of bits.
    const std::uint32_t line = model.blockOffset() + 16 * (row / 8) + 32 * (column / 8) + row % 8;
    Field field{.value = static_cast<std::uint32_t>(model.pixel(pixel)),
                .largest = TileAllocationModel::kColours - 1,
                .bytes = {line, line + 8}};
    field.set = [&state, slot, pixel](std::uint32_t value) {
        TileAllocationModel painted = slotModel(state, slot);
        painted.setCurrentColour(static_cast<int>(value));
        painted.paint(pixel);
        return Field::Refusal{};
    };
    return found(field, block);
}

constexpr auto kSlots = &RoomDataStore::pahTileLoad;

constexpr FieldRule kRules[] = {
    {"room.R.palette.N", "0 to ff", "one of 32 colours",
     inRoom<paletteEntry, &RoomDataStore::pahPal>},
    {"room.R.slot.N.block", "0 to ff", "which block of its bank fills a background slot",
     inRoom<inSlot<slotBlock>, kSlots>},
    {"room.R.slot.N.bank", "banks of the game", "the bank of a background slot, from the first one",
     inRoom<inSlot<slotBank>, kSlots>},
    {"room.R.slot.N.mirror", "0, 1", "whether a background slot is mirrored",
     inRoom<inSlot<slotBit<kMirrorShift>>, kSlots>},
    {"room.R.slot.N.unused", "0, 1", "its bit that the game makes nothing of",
     inRoom<inSlot<slotBit<kUnusedShift>>, kSlots>},
    {"room.R.slot.N.pixel.ROW,COLUMN", "0 to 3",
     "a pixel of its block, unmirrored, wherever the block is used", inRoom<slotPixel, kSlots>},
};

} // namespace

std::span<const FieldRule> lookFieldRules()
{
    return kRules;
}

} // namespace velko
