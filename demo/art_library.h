#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace velko::demo {

// Something is wrong with the demo's own sources. It stops the generator with its text; the
// editor itself never meets it.
class DemoError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A drawing: one value per pixel, row by row. Tiles use 0 to 3, grey pictures 0 to 15.
struct Picture {
    std::string name;
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels;

    std::uint8_t at(int x, int y) const { return pixels[static_cast<std::size_t>(y * width + x)]; }
};

// A 16x16 background block with the palette and physics that it is meant to be used with.
struct Metatile {
    Picture picture;
    std::uint8_t palette = 0; // 0-3
    std::uint8_t physics = 0; // 0-15
};

struct ArtPalette {
    std::string name;
    std::array<std::uint8_t, 4> colours{}; // NES colour numbers
};

// A drawing for sprites, with the sprite colour set that it is meant to be used with.
struct SpriteArt {
    Picture picture;
    std::uint8_t colourSet = 0; // 0-3
};

// One art file, its pictures in the order of the file.
struct ArtFile {
    std::vector<Metatile> metatiles;
    std::vector<SpriteArt> sprites;
    std::vector<Picture> tiles;
    std::vector<Picture> pictures;
    std::vector<ArtPalette> palettes;
    // What the values of pictures mean, 0x00RRGGBB: greys unless the file tells otherwise.
    std::array<std::uint32_t, 16> pictureColours{};
};

// Reads art text. Lines are "# comment", "#@ palette=N physics=N" for the next metatile or
// "#@ set=N" for the next sprite, "metatile NAME", "tile NAME", "sprite
// NAME W H", "picture NAME W H", each followed by its rows, "palette NAME c0 c1 c2 c3" in
// hexadecimal and "colour VALUE RRGGBB" for pictures. Throws DemoError with the line number.
ArtFile parseArt(std::string_view text);
// The whole text of a file. Throws DemoError when it cannot be read.
std::string loadText(const std::filesystem::path& path);
// parseArt() of a file; the error names it.
ArtFile loadArt(const std::filesystem::path& path);

// The element with that name. Throws DemoError when there is none.
const Metatile& metatileNamed(const ArtFile& art, std::string_view name);
const SpriteArt& spriteNamed(const ArtFile& art, std::string_view name);
const ArtPalette& paletteNamed(const ArtFile& art, std::string_view name);
// Index of the tile with that name among the file's tiles.
std::uint8_t tileIndex(const ArtFile& art, std::string_view name);

} // namespace velko::demo
