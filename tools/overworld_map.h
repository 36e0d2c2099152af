#pragma once

#include "rom/game_config.h"
#include "rom/rom_image.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace velko {

// A tile of the overworld map.
struct OverworldCell {
    int column = 0;
    int row = 0;

    bool operator==(const OverworldCell&) const = default;
};

// Where an area lies, as the game stores it: pixels, counted from a corner that lies outside the
// map. The icon's top left corner is kAreaToIcon pixels up and left of it on the map, the icon's
// centre kAreaToCentre.
struct AreaPosition {
    std::uint8_t x = 0;
    std::uint8_t y = 0;

    bool operator==(const AreaPosition&) const = default;
};
inline constexpr int kAreaToIcon = 32;
inline constexpr int kAreaToCentre = 24;

// The picture of the overworld: a map of 8x8 tiles, a palette number per 16x16 pixels, eight
// palettes, and where the areas lie. All of it is read from the image each time it is asked for.
// What a wild address puts past the end of the image reads as its filler, and writes there are
// dropped.
class OverworldMap {
public:
    static constexpr int kColumns = 26;
    static constexpr int kRows = 18;
    static constexpr int kWidth = 208; // pixels
    static constexpr int kHeight = 144;
    static constexpr std::size_t kPaletteBytes = 32; // 8 sets of 4, the last four for sprites
    // However many the configuration tells.
    static constexpr std::uint32_t kMostAreas = 256;
    static constexpr std::uint32_t kMostPresets = 256;
    static constexpr std::uint32_t kMostTrucks = 256;

    OverworldMap(RomImage& rom, const GameConfig& config);

    static bool contains(OverworldCell cell);

    // Tile numbers; the cell must lie on the map. Setting one elsewhere does nothing.
    std::uint8_t tile(OverworldCell cell) const;
    void setTile(OverworldCell cell, std::uint8_t tileNumber);
    // Writes the four tiles of a preset with its top left one at `cell`. Those beyond the map's
    // right or bottom edge are left out.
    void placePreset(OverworldCell cell, std::uint32_t preset);

    // The palette, 0-3, of the 16x16 pixels that a cell belongs to. The table reaches beyond the
    // map: three tiles to the left and above, three to the right, eleven below. Cells outside of
    // it have the palette of the nearest one inside.
    int palette(OverworldCell cell) const;
    // The low two bits of `palette` count. The other three palettes of the byte stay.
    void setPalette(OverworldCell cell, int palette);

    // File offsets of the byte of a cell's tile and of the one that holds its palette, and of the
    // two bytes of an area's position.
    std::uint32_t tileOffset(OverworldCell cell) const;
    std::uint32_t paletteOffset(OverworldCell cell) const;
    std::uint32_t areaOffset(std::uint32_t area) const;

    // The colour numbers of all palettes.
    std::array<std::uint8_t, kPaletteBytes> paletteBytes() const;

    // Areas 0 to lastArea() have positions: `areas` counts one less than there are. However many
    // the configuration tells, no more than kMostAreas are taken.
    std::uint32_t lastArea() const;
    // Any area number may be asked for: past the last one lies what follows in the image.
    AreaPosition areaPosition(std::uint32_t area) const;
    void setAreaPosition(std::uint32_t area, AreaPosition position);

    // Four tiles: top left, bottom left, top right, bottom right. An area's icon is the preset of
    // the same number. Past the end of the table they are 0.
    using Chunk = std::array<std::uint8_t, 4>;
    Chunk chunk(std::uint32_t preset) const;
    // How many presets the configuration gives, at least 1: up to the last one that is not four
    // times tile 0.
    std::uint32_t presetCount() const;

private:
    RomImage& m_rom;
    const GameConfig& m_config;
};

} // namespace velko
