#include "tests/gfx/slow_renderer.h"

namespace velko::test {

namespace {

std::uint64_t mapAddress(BankPair banks, std::uint32_t cpuAddress)
{
    const std::uint32_t address = cpuAddress % 0x10000;
    const bool upperWindow = (address / 0x4000) % 2 == 1; // $C000-$FFFF, $4000-$7FFF
    return banks[upperWindow ? 1 : 0] * 16384ULL + address % 0x4000 + 16;
}

int bitOf(std::uint8_t byte, int bit)
{
    return (byte >> bit) & 1;
}

} // namespace

SlowRenderer::SlowRenderer(Settings settings) : m_settings(std::move(settings))
{
    loadPatterns();
}

std::uint8_t SlowRenderer::fileByte(std::uint64_t offset) const
{
    const std::uint64_t wrapped = offset % 0x100000000; // offsets are 32 bits wide
    return wrapped < m_settings.file.size() ? m_settings.file[wrapped] : 0x55;
}

std::uint8_t SlowRenderer::tableByte(const PointerArrayDescriptor& table, std::uint32_t index) const
{
    const std::uint64_t address =
        table.pMemStart + std::uint64_t{m_settings.room} * table.pointerPad;
    return fileByte(table.pBank * 16384ULL + address % 0x8000 + 16 + index);
}

std::uint8_t SlowRenderer::blockByte(const PointerArrayDescriptor& table,
                                     std::uint32_t offset) const
{
    const std::uint32_t pointer = tableByte(table, 0) + tableByte(table, 1) * 256U;
    return fileByte(mapAddress(table.dBank, pointer + offset));
}

void SlowRenderer::loadPatterns()
{
    const GameConfig& config = m_settings.config;
    for (std::uint32_t i = 0; i < 4096; ++i) {
        const std::uint8_t id = blockByte(config.pahTileLoadType2, i);
        if (id >= 128)
            break;
        const std::uint64_t record =
            std::uint64_t{config.value(MiscField::ptrTileLoadType2)} + 5 * id;
        const std::uint64_t source = config.value(MiscField::startGfxType2) * std::uint64_t{16384}
            + 16 + fileByte(record) + 256U * fileByte(record + 1);
        const std::uint32_t target = 256U * fileByte(record + 2) + fileByte(record + 3);
        for (std::uint32_t k = 0; k < 16U * fileByte(record + 4); ++k) {
            if (target + k < 8192)
                m_patterns[target + k] = fileByte(source + k);
        }
    }
    for (std::uint32_t block = 0; block < 64; ++block) {
        const std::uint8_t number = blockByte(config.pahTileLoad, block);
        const std::uint8_t pair = blockByte(config.pahTileLoad, 64 + block / 2);
        const unsigned attribute = block % 2 == 0 ? pair / 16U : pair % 16U;
        const std::uint64_t bank =
            std::uint64_t{config.value(MiscField::startGfxBg)} + attribute % 4;
        const bool mirrored = bitOf(static_cast<std::uint8_t>(attribute), 2) == 1;
        for (std::uint32_t k = 0; k < 64; ++k) {
            const std::uint8_t byte = fileByte(bank * 16384 + number * 64U + 16 + k);
            if (!mirrored) {
                m_patterns[0x1000 + 64 * block + k] = byte;
                continue;
            }
            std::uint8_t turned = 0;
            for (int bit = 0; bit < 8; ++bit)
                turned = static_cast<std::uint8_t>(turned | (bitOf(byte, bit) << (7 - bit)));
            m_patterns[0x1000 + 64 * block + (k + 32) % 64] = turned;
        }
    }
}

int SlowRenderer::roomWidth() const
{
    const int stored = tableByte(m_settings.config.pahMapLayout, 2);
    return 256 * (stored < 3 ? 1 : stored - 2);
}

int SlowRenderer::roomHeight() const
{
    const int stored = tableByte(m_settings.config.pahMapLayout, 3);
    return 240 * (stored == 0 ? 1 : stored);
}

std::uint32_t SlowRenderer::roomPixel(int y, int x) const
{
    const GameConfig& config = m_settings.config;
    const std::uint32_t storedWidth = tableByte(config.pahMapLayout, 2);
    const auto row = static_cast<std::uint32_t>(y / 240);
    const auto column = static_cast<std::uint32_t>(x / 256);
    const std::uint32_t entry = blockByte(config.pahMapLayout, row * storedWidth + column + 1);
    // A word's second byte is the file's next one.
    const std::uint32_t list =
        tableByte(config.pahMapAlloc, 0) + tableByte(config.pahMapAlloc, 1) * 256U;
    const std::uint64_t word = mapAddress(config.pahMapAlloc.dBank, list + 2 * entry);
    const auto address = static_cast<std::uint16_t>(fileByte(word) + 256 * fileByte(word + 1));
    return screenPixel(address, y % 240, x % 256);
}

int SlowRenderer::tile32Byte(std::uint16_t screenAddress, int row, int column, int byte) const
{
    const std::uint64_t screen = mapAddress(m_settings.config.phMapScreenData, screenAddress);
    const int number = fileByte(screen + static_cast<std::uint64_t>(8 * (row / 2) + column / 2));
    return blockByte(m_settings.config.pahTile32, static_cast<std::uint32_t>(7 * number + byte));
}

std::uint32_t SlowRenderer::screenPixel(std::uint16_t screenAddress, int y, int x) const
{
    const int row = y / 16;
    const int column = x / 16;
    const bool bottom = row % 2 == 1;
    const bool right = column % 2 == 1;
    const int metatile =
        tile32Byte(screenAddress, row, column, right ? (bottom ? 3 : 2) : (bottom ? 1 : 0));
    const int palettes = tile32Byte(screenAddress, row, column, 4);
    const int palette = palettes >> (bottom ? (right ? 6 : 4) : (right ? 2 : 0)) & 3;
    return metatilePixel(metatile, palette, y % 16, x % 16);
}

int SlowRenderer::screenPhysics(std::uint16_t screenAddress, int row, int column) const
{
    const int pair = tile32Byte(screenAddress, row, column, column % 2 == 0 ? 5 : 6);
    return row % 2 == 0 ? pair / 16 : pair % 16;
}

std::uint32_t SlowRenderer::metatilePixel(int metatile, int palette, int y, int x) const
{
    const int tile = (metatile + (x / 8) * 2 + y / 8) % 256; // down the columns
    const int value = tilePixel(0x1000, tile, y % 8, x % 8);
    return colourOfEntry(value == 0 ? 16 : 4 * palette + value);
}

std::uint32_t SlowRenderer::colourOfEntry(int paletteEntry) const
{
    const auto entry = static_cast<std::uint32_t>(paletteEntry);
    return m_settings.colours[blockByte(m_settings.config.pahPal, entry) % 64];
}

int SlowRenderer::tilePixel(int tableStart, int tile, int y, int x) const
{
    const auto first = static_cast<std::size_t>(tableStart + 16 * tile + y);
    return bitOf(m_patterns[first], 7 - x) + 2 * bitOf(m_patterns[first + 8], 7 - x);
}

std::optional<std::uint32_t> SlowRenderer::spritePixel(const Frame& frame, int y, int x) const
{
    const std::uint64_t start = mapAddress(m_settings.config.phSprite, frame.script) + frame.offset;
    std::optional<std::uint32_t> shown; // a later piece covers an earlier one
    for (int piece = 0; piece < fileByte(start); ++piece) {
        const std::uint64_t at = start + 1 + 4 * static_cast<std::uint64_t>(piece);
        int xOffset = static_cast<std::int8_t>(fileByte(at + 1));
        if (frame.mirrored)
            xOffset = static_cast<std::int8_t>(-xOffset - 8);
        int column = x - (frame.x + xOffset);
        int row = y - (frame.y + static_cast<std::int8_t>(fileByte(at + 2)));
        if (column < 0 || column > 7 || row < 0 || row > 7)
            continue;
        const std::uint8_t attributes = fileByte(at + 3);
        if ((bitOf(attributes, 6) == 1) != frame.mirrored)
            column = 7 - column;
        if (bitOf(attributes, 7) == 1)
            row = 7 - row;
        const int value = tilePixel(0, fileByte(at), row, column);
        if (value != 0)
            shown = colourOfEntry(16 + 4 * (attributes % 4) + value);
    }
    return shown;
}

} // namespace velko::test
