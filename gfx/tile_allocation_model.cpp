#include "gfx/tile_allocation_model.h"

#include "rom/number_text.h"

#include <algorithm>

namespace velko {

namespace {

// The tiles of a block follow one another in column order.
constexpr std::uint32_t kLowerTile = 16; // bytes from the upper tile to the one below it
constexpr std::uint32_t kRightTile = 32;
constexpr std::uint32_t kHighPlane = 8; // from the bit plane of the low bits to that of the high

constexpr int kPagesPerBank = 4;
constexpr std::uint8_t kPageBits = 0xC0; // of a block number
constexpr std::uint8_t kBlockInPageBits = 0x3F;

// The neighbour of a cell of an 8 x 8 grid, or the cell at the edge.
int movedInGrid(int cell, int columns, int rows)
{
    constexpr int kColumns = TileAllocationModel::kColumns;
    const int column = std::clamp(cell % kColumns + columns, 0, kColumns - 1);
    const int row = std::clamp(cell / kColumns + rows, 0, kColumns - 1);
    return row * kColumns + column;
}

constexpr unsigned bitOf(TileAllocationModel::BlockPixel place)
{
    return 1U << (7 - (place.column & 7));
}

constexpr std::uint8_t withBit(std::uint8_t byte, unsigned bit, bool set)
{
    return static_cast<std::uint8_t>(set ? byte | bit : byte & ~bit);
}

} // namespace

TileAllocationModel::TileAllocationModel(EditorState& state) : m_state(state) { }

void TileAllocationModel::selectSlot(int slot)
{
    if (slot >= 0 && slot < kSlots)
        m_selectedSlot = slot;
}

void TileAllocationModel::moveSlot(int columns, int rows)
{
    m_selectedSlot = movedInGrid(m_selectedSlot, columns, rows);
}

BackgroundSlot TileAllocationModel::slot() const
{
    return readBackgroundSlot(m_state.store.pahTileLoad, slotNumber());
}

void TileAllocationModel::toggleMirror()
{
    BackgroundSlot value = slot();
    value.mirrored = !value.mirrored;
    writeSlot(value);
}

void TileAllocationModel::toggleUnusedBit()
{
    BackgroundSlot value = slot();
    value.unusedBit = !value.unusedBit;
    writeSlot(value);
}

int TileAllocationModel::blockInPage() const
{
    return slot().block & kBlockInPageBits;
}

void TileAllocationModel::selectBlock(int blockInPage)
{
    if (blockInPage < 0 || blockInPage >= kBlocksPerPage)
        return;
    BackgroundSlot value = slot();
    value.block = static_cast<std::uint8_t>((value.block & kPageBits) | blockInPage);
    writeSlot(value);
}

void TileAllocationModel::moveBlock(int columns, int rows)
{
    const int moved = movedInGrid(blockInPage(), columns, rows);
    if (moved != blockInPage())
        selectBlock(moved);
}

int TileAllocationModel::lastBrowsePosition() const
{
    const std::uint32_t banks =
        std::min(m_state.config.value(MiscField::bgTileBanks), kBackgroundBanks);
    return std::max(static_cast<int>(banks) * kPagesPerBank - 1, 0);
}

int TileAllocationModel::browsePosition() const
{
    const BackgroundSlot value = slot();
    return std::min(value.bankOffset * kPagesPerBank + (value.block >> 6), lastBrowsePosition());
}

void TileAllocationModel::browseTo(int position)
{
    if (position < 0 || position > lastBrowsePosition() || position == browsePosition())
        return;
    BackgroundSlot value = slot();
    const int page = position % kPagesPerBank;
    value.block = static_cast<std::uint8_t>((value.block & kBlockInPageBits) | page << 6);
    value.bankOffset = static_cast<std::uint8_t>(position / kPagesPerBank);
    writeSlot(value);
}

std::uint32_t TileAllocationModel::blockOffset() const
{
    const BackgroundSlot value = slot();
    return backgroundBlockOffset(m_state.config, value.bankOffset, value.block);
}

std::uint32_t TileAllocationModel::pageOffset() const
{
    const BackgroundSlot value = slot();
    return backgroundBlockOffset(m_state.config, value.bankOffset, value.block & kPageBits);
}

std::string TileAllocationModel::indexText() const
{
    return hexText(slotNumber());
}

std::string TileAllocationModel::bankText() const
{
    return decimalText(slot().bankOffset);
}

std::string TileAllocationModel::tileNumberText() const
{
    return hexText(slot().block);
}

std::string TileAllocationModel::romAddressText() const
{
    return "$" + hexText(blockOffset());
}

void TileAllocationModel::setCurrentColour(int colour)
{
    if (colour >= 0 && colour < kColours)
        m_currentColour = colour;
}

int TileAllocationModel::pixel(BlockPixel place) const
{
    const std::uint32_t offset = rowOffset(place);
    const bool low = (m_state.rom.readByte(offset) & bitOf(place)) != 0;
    const bool high = (m_state.rom.readByte(offset + kHighPlane) & bitOf(place)) != 0;
    return (low ? 1 : 0) + (high ? 2 : 0);
}

bool TileAllocationModel::paint(BlockPixel place)
{
    if (pixel(place) == m_currentColour)
        return false;
    RomImage& rom = m_state.rom;
    const unsigned bit = bitOf(place);
    const std::uint32_t low = rowOffset(place);
    const std::uint32_t high = low + kHighPlane;
    rom.writeByte(low, withBit(rom.readByte(low), bit, (m_currentColour & 1) != 0));
    rom.writeByte(high, withBit(rom.readByte(high), bit, (m_currentColour & 2) != 0));
    // Any other slot may hold the same block.
    m_state.graphics.buildBackgroundBlocks();
    return true;
}

void TileAllocationModel::pickColour(BlockPixel place)
{
    m_currentColour = pixel(place);
}

void TileAllocationModel::writeSlot(const BackgroundSlot& value)
{
    writeBackgroundSlot(m_state.store.pahTileLoad, slotNumber(), value);
    m_state.graphics.buildBackgroundBlock(slotNumber());
}

std::uint32_t TileAllocationModel::rowOffset(BlockPixel place) const
{
    return blockOffset() + (place.row >= 8 ? kLowerTile : 0) + (place.column >= 8 ? kRightTile : 0)
        + (static_cast<std::uint32_t>(place.row) & 7);
}

} // namespace velko
