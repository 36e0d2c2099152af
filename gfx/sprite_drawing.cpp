// Drawing the frames of sprite scripts.
// The control bytes behind them are read in unit_animation.cpp.

#include "gfx/graphics_state.h"
#include "gfx/sprite_script.h"

#include <algorithm>

namespace velko {

namespace {

constexpr std::uint8_t kAttributeSet = 3;
constexpr std::uint8_t kAttributeHFlip = 0x40;
constexpr std::uint8_t kAttributeVFlip = 0x80;

constexpr std::int64_t signedOffset(std::uint8_t byte)
{
    return byte >= 128 ? byte - 256 : byte;
}

// -offset - 8: the piece, 8 pixels wide, on the other side of the position.
constexpr std::uint8_t mirroredOffset(std::uint8_t xOffset)
{
    return static_cast<std::uint8_t>((xOffset ^ 0xFF) - 7);
}

// An orange of the given brightness.
Pixel highlightColour(float brightness)
{
    const float b = brightness > 0.0F ? std::min(brightness, 1.0F) : 0.0F; // NaN becomes 0
    return static_cast<Pixel>(255 * b) << 16 | static_cast<Pixel>(95 * b) << 8
        | static_cast<Pixel>(63 * b);
}

// The four sets of colours that a piece's attributes choose from.
std::array<ColourSet4, 4> frameColours(const GraphicsState& graphics,
                                       const GraphicsState::SpriteStyle& style)
{
    std::array<ColourSet4, 4> sets{};
    for (std::uint32_t set = 0; set < sets.size(); ++set) {
        if (style.useRoomPalette) {
            sets[set] = graphics.spriteColours(set);
            if (style.highlight)
                sets[set][3] = highlightColour(style.brightness);
        } else {
            std::copy_n(style.colours.begin() + 4 * set, 4, sets[set].begin());
        }
    }
    return sets;
}

// Whether a piece whose corner is at `position` shows on an axis of `size` pixels.
bool isVisible(std::int64_t position, std::uint32_t size)
{
    return position > -8 && position < size;
}

} // namespace

std::uint8_t GraphicsState::scriptByte(std::uint16_t scriptAddress, std::uint32_t offset) const
{
    return m_rom.readByte(cpuToFileOffset(m_config.phSprite, scriptAddress) + offset);
}

void GraphicsState::drawSpriteTile(PixelImage& image, int y, int x, std::uint8_t tileNumber,
                                   const ColourSet4& colours) const
{
    drawTileTransparent(image, y, x, tile(0, tileNumber), colours, false, false);
}

void GraphicsState::drawSpriteFrame(PixelImage& image, int y, int x, std::uint16_t scriptAddress,
                                    std::uint32_t frameOffset, const SpriteStyle& style) const
{
    const std::array<ColourSet4, 4> colours = frameColours(*this, style);
    const std::uint32_t pieces = scriptByte(scriptAddress, frameOffset);
    for (std::uint32_t i = 0; i < pieces; ++i) {
        const std::uint32_t piece = frameOffset + 1 + i * kPieceBytes;
        const std::uint8_t tileNumber = scriptByte(scriptAddress, piece);
        const std::uint8_t xOffset = scriptByte(scriptAddress, piece + 1);
        const std::uint8_t yOffset = scriptByte(scriptAddress, piece + 2);
        const std::uint8_t attributes = scriptByte(scriptAddress, piece + 3);

        const std::int64_t left =
            x + signedOffset(style.mirrored ? mirroredOffset(xOffset) : xOffset);
        const std::int64_t top = y + signedOffset(yOffset);
        if (!isVisible(top, image.height()) || !isVisible(left, image.width()))
            continue;
        const bool hFlip = ((attributes & kAttributeHFlip) != 0) != style.mirrored;
        const bool vFlip = (attributes & kAttributeVFlip) != 0;
        drawTileTransparent(image, static_cast<int>(top), static_cast<int>(left),
                            tile(0, tileNumber), colours[attributes & kAttributeSet], hFlip, vFlip);
    }
}

} // namespace velko
