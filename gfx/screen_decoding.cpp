// From a screen's address to its metatiles.

#include "gfx/room_renderer.h"
#include "gfx/tile32.h"
#include "store/block_lengths.h"
#include "store/screen_area.h"

namespace velko {

namespace {

constexpr std::uint32_t kTile32PerRow = 8;

constexpr std::uint32_t tile32Position(std::uint32_t row, std::uint32_t column)
{
    return row / 2 * kTile32PerRow + column / 2;
}

// Record `number` of the current room's set.
Tile32 readTile32(const RomImage& rom, const PointerArrayHandler& handler, std::uint16_t setAddress,
                  std::uint8_t number)
{
    Tile32 record;
    for (std::uint32_t i = 0; i < Tile32::kBytes; ++i) {
        const auto address = static_cast<std::uint16_t>(setAddress + number * Tile32::kBytes + i);
        record.bytes[i] = rom.readByte(handler.dataFileOffset(address));
    }
    return record;
}

void recordFirstOccurrences(const ScreenMap16& screen, TsaTable& table)
{
    for (std::size_t cell = 0; cell < kScreenCells; ++cell) {
        TsaEntry& entry = table[screen.metatile[cell] / 4];
        if (!entry.seen)
            entry = {screen.palette[cell], screen.physics[cell], true};
    }
}

} // namespace

std::uint32_t RoomRenderer::screenCount(std::uint32_t room) const
{
    return mapAllocWords(m_store.pahMapAlloc, room);
}

std::uint32_t RoomRenderer::screenIndex(std::uint16_t screenAddress) const
{
    return ScreenArea::of(m_config).indexOf(screenAddress);
}

std::uint16_t RoomRenderer::screenAddress(std::uint32_t index) const
{
    return m_store.pahMapAlloc.dataWord(2 * index);
}

std::uint32_t RoomRenderer::screenFileOffset(std::uint16_t screenAddress) const
{
    return cpuToFileOffset(m_config.phMapScreenData, screenAddress);
}

MetatileCell RoomRenderer::screenCell(std::uint16_t screenAddress, std::uint32_t row,
                                      std::uint32_t column) const
{
    const PointerArrayHandler& tile32 = m_store.pahTile32;
    const std::uint8_t number =
        m_rom.readByte(screenFileOffset(screenAddress) + tile32Position(row, column));
    const Tile32 record = readTile32(m_rom, tile32, tile32.pointerOf(), number);
    return {record.metatile(row, column), record.palette(row, column), record.physics(row, column)};
}

void RoomRenderer::decodeScreen(std::uint16_t screenAddress, ScreenMap16& screen,
                                TsaTable* tsaTable) const
{
    const std::uint32_t screenStart = screenFileOffset(screenAddress);
    const std::uint16_t setAddress = m_store.pahTile32.pointerOf();
    // Row by row of metatiles; row 14 is the upper half of the last Tile32 row.
    std::array<Tile32, kTile32PerRow> records;
    for (std::uint32_t row = 0, cell = 0; row < kScreenRows; ++row) {
        for (std::uint32_t column = 0; column < kScreenColumns; ++column, ++cell) {
            Tile32& record = records[column / 2];
            if (row % 2 == 0 && column % 2 == 0) {
                const std::uint32_t position = tile32Position(row, column);
                record = readTile32(m_rom, m_store.pahTile32, setAddress,
                                    m_rom.readByte(screenStart + position));
            }
            screen.metatile[cell] = record.metatile(row, column);
            screen.palette[cell] = record.palette(row, column);
            screen.physics[cell] = record.physics(row, column);
        }
    }
    if (tsaTable)
        recordFirstOccurrences(screen, *tsaTable);
}

} // namespace velko
