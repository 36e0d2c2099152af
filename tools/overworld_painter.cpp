#include "tools/overworld_painter.h"

#include <algorithm>

namespace velko {

namespace {

constexpr int kTileSize = 8;
constexpr int kIconSize = 16;
constexpr float kIconTransparency = 0.5F;
constexpr int kAreaFrameSize = 22;
constexpr std::size_t kFirstSpriteSet = 4;

constexpr std::uint8_t kAlwaysMirroredPreview = 14;

// Attributes of a sprite's part, as the console has them.
constexpr std::uint8_t kSpriteSetBits = 0x03;
constexpr std::uint8_t kFlipHorizontally = 0x40;
constexpr std::uint8_t kFlipVertically = 0x80;

// Where the parts of 16x16 pixels lie: left column first.
constexpr std::array<PathPoint, 4> kPartCorners = {{{0, 0}, {0, 8}, {8, 0}, {8, 8}}};

void drawSegment(PixelImage& picture, const PathSegment& segment, Pixel colour)
{
    const PathPoint step = unitStep(segment.direction);
    // The lines beside a level one lie above and below it, those beside any other left and right.
    const int besideX = step.y != 0 ? 1 : 0;
    const int besideY = 1 - besideX;
    for (int i = 0; i < kPathStep; ++i) {
        const int x = segment.start.x - kAreaToCentre + i * step.x;
        const int y = segment.start.y - kAreaToCentre + i * step.y;
        fillRectangle(picture, y - besideY, x - besideX, 1, 1, OverworldPainter::kPathBorder);
        fillRectangle(picture, y + besideY, x + besideX, 1, 1, OverworldPainter::kPathBorder);
        fillRectangle(picture, y, x, 1, 1, colour);
    }
}

} // namespace

OverworldPainter::OverworldPainter(const RomImage& rom, const GameConfig& config,
                                   const GraphicsState& graphics, const OverworldMap& map)
    : m_rom(rom), m_config(config), m_graphics(graphics), m_map(map)
{
}

ColourSet4 OverworldPainter::colours(std::size_t set) const
{
    const auto bytes = m_map.paletteBytes();
    const std::size_t first = 4 * set;
    return {m_graphics.colour(bytes[first]), m_graphics.colour(bytes[first + 1]),
            m_graphics.colour(bytes[first + 2]), m_graphics.colour(bytes[first + 3])};
}

void OverworldPainter::drawTiles(PixelImage& picture) const
{
    const std::array<ColourSet4, 4> sets = {colours(0), colours(1), colours(2), colours(3)};
    picture.allocate(OverworldMap::kHeight, OverworldMap::kWidth);
    for (int row = 0; row < OverworldMap::kRows; ++row) {
        for (int column = 0; column < OverworldMap::kColumns; ++column) {
            const OverworldCell cell{column, row};
            m_graphics.drawSingleTile(picture, row * kTileSize, column * kTileSize,
                                      m_map.tile(cell),
                                      sets[static_cast<std::size_t>(m_map.palette(cell))]);
        }
    }
}

void OverworldPainter::drawTile(PixelImage& picture, std::uint8_t tileNumber, int palette, int y,
                                int x) const
{
    m_graphics.drawSingleTile(picture, y, x, tileNumber,
                              colours(static_cast<std::size_t>(palette & 3)));
}

void OverworldPainter::drawPreset(PixelImage& picture, std::uint32_t preset, int palette, int y,
                                  int x) const
{
    const OverworldMap::Chunk tiles = m_map.chunk(preset);
    for (std::size_t part = 0; part < tiles.size(); ++part)
        drawTile(picture, tiles[part], palette, y + kPartCorners[part].y, x + kPartCorners[part].x);
}

void OverworldPainter::drawAreaIcons(PixelImage& picture) const
{
    PixelImage icon(kIconSize, kIconSize);
    for (std::uint32_t area = 0; area <= m_map.lastArea(); ++area) {
        const AreaPosition position = m_map.areaPosition(area);
        const int left = position.x - kAreaToIcon;
        const int top = position.y - kAreaToIcon;
        // An icon may stick out at the left or top: shift right, as a division would round up.
        drawPreset(icon, area, m_map.palette({left >> 3, top >> 3}), 0, 0);
        blit(picture, icon, left, top, kIconTransparency);
    }
}

void OverworldPainter::drawAreaFrame(PixelImage& picture, AreaPosition position) const
{
    constexpr int kToCorner = kAreaToCentre + kAreaFrameSize / 2;
    drawSelectionFrame(picture, position.y - kToCorner, position.x - kToCorner, kAreaFrameSize,
                       kAreaFrameSize);
}

void OverworldPainter::drawQuadSprite(PixelImage& picture, std::uint8_t number, int x, int y) const
{
    const std::uint32_t table = m_config.value(MiscField::ptrMapQuadSpriteTable);
    std::uint32_t part = table + m_rom.readByte(table + number);
    for (const PathPoint corner : kPartCorners) {
        const std::uint8_t tileNumber = m_rom.readByte(part);
        const std::uint8_t attributes = m_rom.readByte(part + 1);
        drawTileTransparent(picture, y - kTileSize + corner.y, x - kTileSize + corner.x,
                            m_graphics.tile(0, tileNumber),
                            colours(kFirstSpriteSet + (attributes & kSpriteSetBits)),
                            (attributes & kFlipHorizontally) != 0,
                            (attributes & kFlipVertically) != 0);
        part += 2;
    }
}

void OverworldPainter::drawPathPreview(PixelImage& picture, std::uint8_t number,
                                       std::uint8_t chopperSprite, int x, int y) const
{
    GraphicsState::SpriteStyle style;
    style.useRoomPalette = false;
    for (std::size_t set = 0; set < 4; ++set) {
        const ColourSet4 four = colours(kFirstSpriteSet + set);
        std::copy(four.begin(), four.end(), style.colours.begin() + 4 * set);
    }
    // Chopper sprites face the eight directions clockwise from east: 2 to 5 do not face right.
    style.mirrored = number == kAlwaysMirroredPreview || ((chopperSprite + 2) & 4) != 0;
    const std::uint32_t entry =
        m_config.value(MiscField::ptrMapPathPreviewSpriteAddr) + 2U * number;
    const auto script =
        static_cast<std::uint16_t>(m_rom.readByte(entry) | m_rom.readByte(entry + 1) << 8);
    m_graphics.drawSpriteFrame(picture, y, x, script, 0, style);
}

void OverworldPainter::drawPath(PixelImage& picture, std::span<const PathSegment> path,
                                std::uint32_t currentPhase) const
{
    for (const PathSegment& segment : path) {
        if (segment.phase != currentPhase)
            drawSegment(picture, segment, kPathColour);
    }
    for (const PathSegment& segment : path) {
        if (segment.phase == currentPhase)
            drawSegment(picture, segment, kCurrentPhaseColour);
    }
}

} // namespace velko
