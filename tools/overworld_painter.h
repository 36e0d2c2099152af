#pragma once

#include "gfx/graphics_state.h"
#include "gfx/pixel_image.h"
#include "rom/game_config.h"
#include "rom/rom_image.h"
#include "tools/overworld_map.h"
#include "tools/truck_path.h"

#include <array>
#include <cstdint>
#include <span>

namespace velko {

// Draws the overworld's things, in pixels of the map. The map's tiles and icons come from pattern
// table 1 with the map's first four palettes, sprites from pattern table 0 with the other four.
// What lies outside a picture is clipped.
class OverworldPainter {
public:
    static constexpr Pixel kPathColour = 0xFF4040;
    static constexpr Pixel kCurrentPhaseColour = 0x4040FF;
    static constexpr Pixel kPathBorder = 0xFFFFFF;

    OverworldPainter(const RomImage& rom, const GameConfig& config, const GraphicsState& graphics,
                     const OverworldMap& map);

    // Gives the picture the map's size and draws all tiles.
    void drawTiles(PixelImage& picture) const;

    // Every area's icon, half transparent, in the palette of the map under its top left corner.
    void drawAreaIcons(PixelImage& picture) const;
    // A frame around an area's centre.
    void drawAreaFrame(PixelImage& picture, AreaPosition position) const;

    // The first frame of a sprite of four tiles, its centre at (x, y).
    void drawQuadSprite(PixelImage& picture, std::uint8_t number, int x, int y) const;
    // Previews 0 to 15 lie among the sprite scripts. Mirrored for every chopper sprite that faces
    // left, and always for preview 14.
    void drawPathPreview(PixelImage& picture, std::uint8_t number, std::uint8_t chopperSprite,
                         int x, int y) const;

    // The way of a truck, shifted from stored coordinates onto the map; the segments of
    // `currentPhase` on top of the others, in a colour of their own.
    void drawPath(PixelImage& picture, std::span<const PathSegment> path,
                  std::uint32_t currentPhase) const;

    // A tile or a preset of four tiles in one of the map's palettes, 0 to 3.
    void drawTile(PixelImage& picture, std::uint8_t tileNumber, int palette, int y, int x) const;
    void drawPreset(PixelImage& picture, std::uint32_t preset, int palette, int y, int x) const;

private:
    // Set 0 to 7 of the map's palettes.
    ColourSet4 colours(std::size_t set) const;

    const RomImage& m_rom;
    const GameConfig& m_config;
    const GraphicsState& m_graphics;
    const OverworldMap& m_map;
};

} // namespace velko
