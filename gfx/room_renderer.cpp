#include "gfx/room_renderer.h"

#include "gfx/text_drawing.h"
#include "store/block_lengths.h"

#include <algorithm>
#include <map>

namespace velko {

namespace {

constexpr int kMetatileSize = 16;
constexpr std::uint32_t kBorderColumns = 2;

// A room's caption on its thumbnail.
constexpr int kCaptionTop = 3;
constexpr int kCaptionLeft = 4;
constexpr int kCaptionFontWidth = 10;
constexpr int kCaptionFontHeight = 15;
constexpr std::uint32_t kCaptionColour = 0xFFFFFF;

// Palettes 0-3 of the room: all that a screen can use.
std::array<ColourSet4, 4> screenColours(const GraphicsState& graphics)
{
    return {graphics.metatileColours(0), graphics.metatileColours(1), graphics.metatileColours(2),
            graphics.metatileColours(3)};
}

// Of `count` cells of `size` pixels, the first at `start`, those that meet [0, limit).
struct CellRange {
    std::uint32_t begin = 0;
    std::uint32_t end = 0;
};

CellRange visibleCells(std::int64_t start, std::int64_t size, std::int64_t count,
                       std::int64_t limit)
{
    const std::int64_t begin = start < 0 ? -start / size : 0;
    const std::int64_t end = limit > start ? (limit - start + size - 1) / size : 0;
    return {static_cast<std::uint32_t>(std::min(begin, count)),
            static_cast<std::uint32_t>(std::min(end, count))};
}

// Calls draw(y, x, cell) for each metatile that shows when the screen's corner is at (top, left).
template <typename Draw>
void forVisibleMetatiles(const PixelImage& image, std::int64_t top, std::int64_t left, Draw draw)
{
    const CellRange rows = visibleCells(top, kMetatileSize, kScreenRows, image.height());
    const CellRange columns = visibleCells(left, kMetatileSize, kScreenColumns, image.width());
    for (std::uint32_t row = rows.begin; row < rows.end; ++row) {
        for (std::uint32_t column = columns.begin; column < columns.end; ++column) {
            draw(static_cast<int>(top + kMetatileSize * std::int64_t{row}),
                 static_cast<int>(left + kMetatileSize * std::int64_t{column}),
                 std::size_t{row} * kScreenColumns + column);
        }
    }
}

bool liesInside(const PixelImage& image, int y, int x)
{
    return y >= 0 && x >= 0 && std::int64_t{y} + kMetatileSize <= image.height()
        && std::int64_t{x} + kMetatileSize <= image.width();
}

} // namespace

RoomRenderer::RoomRenderer(const RomImage& rom, const GameConfig& config, RoomDataStore& store,
                           GraphicsState& graphics)
    : m_rom(rom), m_config(config), m_store(store), m_graphics(graphics)
{
}

RoomSize RoomRenderer::roomSize(std::uint32_t room) const
{
    const std::uint32_t width = m_store.pahMapLayout.entryByte(kMapWidthByte, room);
    const std::uint32_t height = m_store.pahMapLayout.entryByte(kMapHeightByte, room);
    return {width > kBorderColumns ? width - kBorderColumns : 1, std::max(height, 1U)};
}

std::uint8_t RoomRenderer::layoutCell(std::uint32_t row, std::uint32_t column) const
{
    // Column 0 of the stored row is a border. A room of stored width 1 or 2 shows one column all
    // the same, counted in its stored width.
    const std::uint32_t storedWidth = m_store.pahMapLayout.entryByte(kMapWidthByte);
    return m_store.pahMapLayout.dataByte(row * storedWidth + column + 1);
}

std::uint16_t RoomRenderer::cellScreenAddress(std::uint32_t row, std::uint32_t column) const
{
    return screenAddress(layoutCell(row, column));
}

void RoomRenderer::drawScreen(PixelImage& image, int top, int left,
                              std::uint16_t screenAddress) const
{
    if (top < 0 || left < 0)
        return;
    ScreenMap16 screen;
    decodeScreen(screenAddress, screen);
    const std::array<ColourSet4, 4> colours = screenColours(m_graphics);
    forVisibleMetatiles(image, top, left, [&](int y, int x, std::size_t cell) {
        m_graphics.drawMetatileWithColours(image, y, x, screen.metatile[cell],
                                           colours[screen.palette[cell]]);
    });
}

void RoomRenderer::drawScreenPart(PixelImage& image, std::int64_t top, std::int64_t left,
                                  std::uint16_t screenAddress) const
{
    ScreenMap16 screen;
    decodeScreen(screenAddress, screen);
    const std::array<ColourSet4, 4> colours = screenColours(m_graphics);
    PixelImage whole(kMetatileSize, kMetatileSize);
    forVisibleMetatiles(image, top, left, [&](int y, int x, std::size_t cell) {
        const ColourSet4& set = colours[screen.palette[cell]];
        if (liesInside(image, y, x)) {
            m_graphics.drawMetatileWithColours(image, y, x, screen.metatile[cell], set);
        } else {
            m_graphics.drawMetatileWithColours(whole, 0, 0, screen.metatile[cell], set);
            blit(image, whole, x, y);
        }
    });
}

void RoomRenderer::renderRoomPicture(std::uint8_t room, PixelImage& image)
{
    m_graphics.selectRoom(room);
    const RoomSize size = roomSize(room);
    // Every pixel is drawn, so an image that has the size already need not be cleared.
    if (image.height() != size.height() || image.width() != size.width())
        image.allocate(size.height(), size.width());
    if (image.empty())
        return;
    for (std::uint32_t row = 0; row < size.rows; ++row) {
        for (std::uint32_t column = 0; column < size.columns; ++column) {
            drawScreen(image, static_cast<int>(row) * kScreenHeight,
                       static_cast<int>(column) * kScreenWidth, cellScreenAddress(row, column));
        }
    }
}

void RoomRenderer::renderRoomRegion(PixelImage& image, std::uint32_t scrollX, std::uint32_t scrollY,
                                    Pixel background) const
{
    const RoomSize size = roomSize(m_store.pahMapLayout.currentRoom());
    const bool covered = std::uint64_t{scrollX} + image.width() <= size.width()
        && std::uint64_t{scrollY} + image.height() <= size.height();
    if (!covered)
        fill(image, background);
    const std::int64_t top = -std::int64_t{scrollY};
    const std::int64_t left = -std::int64_t{scrollX};
    const CellRange rows = visibleCells(top, kScreenHeight, size.rows, image.height());
    const CellRange columns = visibleCells(left, kScreenWidth, size.columns, image.width());
    for (std::uint32_t row = rows.begin; row < rows.end; ++row) {
        for (std::uint32_t column = columns.begin; column < columns.end; ++column) {
            drawScreenPart(image, top + kScreenHeight * std::int64_t{row},
                           left + kScreenWidth * std::int64_t{column},
                           cellScreenAddress(row, column));
        }
    }
}

void RoomRenderer::renderRoomThumbnail(std::uint8_t room, PixelImage& image,
                                       std::string_view caption, Pixel background)
{
    m_graphics.selectRoom(room);
    fill(image, background);
    drawScreenShares(image, roomSize(room));
    drawText(caption, image, kCaptionTop, kCaptionLeft, kCaptionFontWidth, kCaptionFontHeight,
             kCaptionColour, kTextOutline);
}

void RoomRenderer::drawScreenShares(PixelImage& image, RoomSize size) const
{
    const std::uint32_t shareHeight = image.height() / size.rows;
    const std::uint32_t shareWidth = image.width() / size.columns;
    if (shareHeight == 0 || shareWidth == 0)
        return;
    // A cell is one byte: however large the room, it shows at most 256 different screens.
    std::map<std::uint8_t, PixelImage> shares;
    PixelImage screen(kScreenWidth, kScreenHeight);
    for (std::uint32_t row = 0; row < size.rows; ++row) {
        for (std::uint32_t column = 0; column < size.columns; ++column) {
            const std::uint8_t cell = layoutCell(row, column);
            const auto [share, isNew] = shares.try_emplace(cell, shareWidth, shareHeight);
            if (isNew) {
                drawScreen(screen, 0, 0, screenAddress(cell));
                copyScaled(share->second, screen);
            }
            blit(image, share->second, static_cast<int>(column * shareWidth),
                 static_cast<int>(row * shareHeight));
        }
    }
}

} // namespace velko
