#include "pages/vram_load_list.h"

#include "rom/number_text.h"
#include "store/block_lengths.h"

namespace velko {

namespace {

constexpr std::uint8_t kFirstEnd = 0x80; // to the game any byte from here on
constexpr std::uint8_t kListEnd = 0xFF;

constexpr int kTilesPerRow = 16;
constexpr int kTileSize = 8;
constexpr std::uint32_t kUnscaledSize = kTilesPerRow * kTileSize;

} // namespace

template <typename IsEnd> std::uint32_t VramLoadList::bytesBefore(IsEnd isEnd) const
{
    std::uint32_t bytes = 0;
    while (bytes < kLongestTileLoadType2 && !isEnd(m_loads.dataByte(bytes)))
        ++bytes;
    return bytes;
}

std::uint32_t VramLoadList::shownCount() const
{
    return bytesBefore([](std::uint8_t byte) { return byte >= kFirstEnd; });
}

std::uint32_t VramLoadList::count() const
{
    return bytesBefore([](std::uint8_t byte) { return byte == kListEnd; });
}

EditResult VramLoadList::insert(std::uint32_t index, std::uint8_t id)
{
    return m_loads.insertByte(index, id);
}

std::vector<std::string> VramLoadList::lines(const NameLists& names) const
{
    std::vector<std::string> lines(shownCount());
    for (std::uint32_t i = 0; i < lines.size(); ++i)
        lines[i] = decimalText(i) + ": - " + names.vramLoads[id(i)];
    return lines;
}

void drawVramSetup(const GraphicsState& graphics, PixelImage& picture)
{
    const ColourSet4 colours = graphics.spriteColours(0);
    PixelImage tiles(kUnscaledSize, kUnscaledSize, colours[0]);
    for (int number = 0; number < kTilesPerRow * kTilesPerRow; ++number) {
        graphics.drawSpriteTile(tiles, number / kTilesPerRow * kTileSize,
                                number % kTilesPerRow * kTileSize,
                                static_cast<std::uint8_t>(number), colours);
    }
    if (picture.width() != kVramSetupSize || picture.height() != kVramSetupSize)
        picture.allocate(kVramSetupSize, kVramSetupSize);
    copyScaled(picture, tiles);
}

} // namespace velko
