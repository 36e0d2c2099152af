#include "gfx/graphics_state.h"

#include "gfx/background_slot.h"
#include "store/block_lengths.h"

#include <algorithm>

namespace velko {

namespace {

// Entries of a room's palette block.
constexpr std::uint32_t kFirstSpriteEntry = 16;
constexpr std::uint32_t kEntriesPerSet = 4;

constexpr std::uint8_t kLoadListEnd = 0x80; // this byte and any above it

constexpr std::uint8_t reversedBits(std::uint8_t byte)
{
    unsigned b = byte;
    b = ((b & 0xF0) >> 4) | ((b & 0x0F) << 4);
    b = ((b & 0xCC) >> 2) | ((b & 0x33) << 2);
    b = ((b & 0xAA) >> 1) | ((b & 0x55) << 1);
    return static_cast<std::uint8_t>(b);
}

// Mirrors a 16x16 block left to right: exchanges its two columns of tiles and mirrors each tile.
void mirrorBlock(std::span<std::uint8_t, kBackgroundBlockBytes> block)
{
    std::rotate(block.begin(), block.begin() + kBackgroundBlockBytes / 2, block.end());
    std::transform(block.begin(), block.end(), block.begin(), reversedBits);
}

} // namespace

GraphicsState::GraphicsState(const RomImage& rom, const GameConfig& config, RoomDataStore& store)
    : m_rom(rom), m_config(config), m_store(store)
{
}

void GraphicsState::selectRoom(std::uint8_t room)
{
    m_currentRoom = room;
    m_store.selectRoom(room);
    buildPatternMemory();
    resetUnitAnimation();
}

void GraphicsState::buildPatternMemory()
{
    patternMemory.fill(0);
    applyType2Loads();
    buildBackgroundBlocks();
}

void GraphicsState::buildBackgroundBlocks()
{
    for (std::uint32_t slot = 0; slot < kBackgroundSlots; ++slot)
        buildBackgroundBlock(slot);
}

void GraphicsState::applyType2Loads()
{
    for (std::uint32_t i = 0; i < kLongestTileLoadType2; ++i) {
        const std::uint8_t id = m_store.pahTileLoadType2.dataByte(i);
        if (id >= kLoadListEnd)
            return;
        const LoadRecord record = loadRecord(id);
        if (record.destination >= kPatternMemorySize)
            continue;
        const std::size_t space = kPatternMemorySize - record.destination;
        m_rom.readBlock(
            record.source,
            std::span(patternMemory)
                .subspan(record.destination, std::min<std::size_t>(record.length, space)));
    }
}

std::uint32_t GraphicsState::loadRecordOffset(std::uint8_t id) const
{
    return m_config.value(MiscField::ptrTileLoadType2) + kLoadRecordBytes * id;
}

LoadRecord GraphicsState::loadRecord(std::uint8_t id) const
{
    std::array<std::uint8_t, kLoadRecordBytes> bytes{};
    m_rom.readBlock(loadRecordOffset(id), bytes);
    const std::uint32_t bankStart =
        m_config.value(MiscField::startGfxType2) * kBankSize + kHeaderSize;
    // The destination is big-endian.
    return {bankStart + bytes[0] + (std::uint32_t{bytes[1]} << 8),
            (std::uint32_t{bytes[2]} << 8) + bytes[3],
            static_cast<std::uint32_t>(bytes[4] * kTileBytes)};
}

void GraphicsState::buildBackgroundBlock(std::uint32_t slot)
{
    if (slot >= kBackgroundSlots)
        return;
    const BackgroundSlot source = readBackgroundSlot(m_store.pahTileLoad, slot);
    const auto block = std::span(patternMemory)
                           .subspan(kPatternTable1 + slot * kBackgroundBlockBytes)
                           .first<kBackgroundBlockBytes>();
    m_rom.readBlock(backgroundBlockOffset(m_config, source.bankOffset, source.block), block);
    if (source.mirrored)
        mirrorBlock(block);
}

ColourSet4 GraphicsState::metatileColours(std::uint32_t paletteIndex) const
{
    const PointerArrayHandler& palette = m_store.pahPal;
    const std::uint32_t set = kEntriesPerSet * (paletteIndex & 7);
    // The console's backdrop is one colour for all sets; the game keeps it in the first sprite
    // entry, not in entry 0 of the set.
    return {colour(palette.dataByte(kFirstSpriteEntry)), colour(palette.dataByte(set + 1)),
            colour(palette.dataByte(set + 2)), colour(palette.dataByte(set + 3))};
}

ColourSet4 GraphicsState::spriteColours(std::uint32_t set) const
{
    const PointerArrayHandler& palette = m_store.pahPal;
    const std::uint32_t first = kFirstSpriteEntry + kEntriesPerSet * (set & 3);
    return {colour(palette.dataByte(first)), colour(palette.dataByte(first + 1)),
            colour(palette.dataByte(first + 2)), colour(palette.dataByte(first + 3))};
}

TileBytes GraphicsState::tile(std::size_t patternTable, std::uint8_t tileNumber) const
{
    const std::size_t offset = (patternTable & 1) * kPatternTable1 + tileNumber * kTileBytes;
    return std::span(patternMemory).subspan(offset).first<kTileBytes>();
}

void GraphicsState::drawMetatile(PixelImage& image, int y, int x, std::uint8_t tileNumber,
                                 std::uint32_t paletteIndex) const
{
    drawMetatileWithColours(image, y, x, tileNumber, metatileColours(paletteIndex));
}

void GraphicsState::drawMetatileWithColours(PixelImage& image, int y, int x,
                                            std::uint8_t tileNumber,
                                            const ColourSet4& colours) const
{
    const bool cornerInside = y >= 0 && static_cast<std::uint32_t>(y) < image.height() && x >= 0
        && static_cast<std::uint32_t>(x) < image.width();
    if (!cornerInside)
        return;
    // Column order. The order counts at an image's right edge, where opaque tiles overlap.
    drawSingleTile(image, y, x, tileNumber, colours);
    drawSingleTile(image, y + 8, x, static_cast<std::uint8_t>(tileNumber + 1), colours);
    drawSingleTile(image, y, x + 8, static_cast<std::uint8_t>(tileNumber + 2), colours);
    drawSingleTile(image, y + 8, x + 8, static_cast<std::uint8_t>(tileNumber + 3), colours);
}

void GraphicsState::drawSingleTile(PixelImage& image, int y, int x, std::uint8_t tileNumber,
                                   const ColourSet4& colours) const
{
    drawTileOpaque(image, y, x, tile(1, tileNumber), colours);
}

} // namespace velko
