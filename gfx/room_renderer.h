#pragma once

#include "gfx/graphics_state.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace velko {

inline constexpr int kScreenWidth = 256; // pixels
inline constexpr int kScreenHeight = 240;
inline constexpr std::uint32_t kScreenColumns = 16; // metatiles
inline constexpr std::uint32_t kScreenRows = 15;
inline constexpr std::size_t kScreenCells = 240;

// A screen decoded to one value per 16x16 cell; cell = row x 16 + column.
struct ScreenMap16 {
    std::array<std::uint8_t, kScreenCells> metatile{};
    std::array<std::uint8_t, kScreenCells> palette{}; // 0-3
    std::array<std::uint8_t, kScreenCells> physics{}; // 0-15

    bool operator==(const ScreenMap16&) const = default;
};

// The palette and physics of a background block's first occurrence.
struct TsaEntry {
    std::uint8_t palette = 0; // 0-3
    std::uint8_t physics = 0; // 0-15
    bool seen = false;
};
using TsaTable = std::array<TsaEntry, 64>; // by background block: metatile / 4

struct MetatileCell {
    std::uint8_t metatile = 0; // first of its four tiles in pattern table 1
    std::uint8_t palette = 0;  // 0-3
    std::uint8_t physics = 0;  // 0-15
};

// A room's size as it is shown, in screens; both at least 1.
struct RoomSize {
    std::uint32_t columns = 1;
    std::uint32_t rows = 1;

    std::uint32_t width() const { return columns * kScreenWidth; } // pixels
    std::uint32_t height() const { return rows * kScreenHeight; }
};

// Draws screens and rooms by walking the game's own tables: layout, screen list, screen,
// Tile32 record, metatile. Everything is read from the ROM image as it stands.
class RoomRenderer {
public:
    RoomRenderer(const RomImage& rom, const GameConfig& config, RoomDataStore& store,
                 GraphicsState& graphics);

    // Number of screens in the room's list (at most 65536).
    std::uint32_t screenCount(std::uint32_t room) const;
    // Which screen of the screen area an address means. The game's area has an 8-byte hole at
    // $C800, so $C800 and $C808 give the same screen; addresses below the area give 0.
    std::uint32_t screenIndex(std::uint16_t screenAddress) const;
    // Entry `index` of the current room's screen list. Nothing tells whether it lies past the end.
    std::uint16_t screenAddress(std::uint32_t index) const;
    // Where the 64 Tile32 numbers of a screen start: 8 rows of 8, row after row. The address is
    // mapped once; the bytes follow in the file.
    std::uint32_t screenFileOffset(std::uint16_t screenAddress) const;

    // The room's stored width - 2 (1 for widths below 3) and height (1 for 0).
    RoomSize roomSize(std::uint32_t room) const;
    // The byte of the current room's layout at row r, shown column c.
    std::uint8_t layoutCell(std::uint32_t row, std::uint32_t column) const;

    // The cell at row 0-14, column 0-15 of a screen, with the current room's Tile32 set.
    MetatileCell screenCell(std::uint16_t screenAddress, std::uint32_t row,
                            std::uint32_t column) const;
    // Tells all cells at once. With a table, each background block (metatile / 4) that is not yet
    // seen there is entered with the values of its first cell, rows first.
    void decodeScreen(std::uint16_t screenAddress, ScreenMap16& screen,
                      TsaTable* tsaTable = nullptr) const;

    // Draws 15 x 16 metatiles with the corner at (top, left), neither of them negative; a
    // metatile whose corner lies past the image is skipped.
    void drawScreen(PixelImage& image, int top, int left, std::uint16_t screenAddress) const;

    // The whole room, which becomes the selected one. The image takes the room's size; of a room
    // with more pixels than kLargestImage nothing is drawn, the image becomes 0 x 0.
    void renderRoomPicture(std::uint8_t room, PixelImage& image);
    // The part of the current room that a view shows: pixel (0, 0) of the image is pixel
    // (scrollX, scrollY) of the room. What lies outside the room becomes `background`.
    void renderRoomRegion(PixelImage& image, std::uint32_t scrollX, std::uint32_t scrollY,
                          Pixel background) const;
    // The room, which becomes the selected one, fitted into the image screen by screen and
    // captioned. Every screen's share of the image has the same, truncated size; `background`
    // shows where the shares leave pixels uncovered, or everywhere when they come to 0 pixels.
    void renderRoomThumbnail(std::uint8_t room, PixelImage& image, std::string_view caption,
                             Pixel background);

private:
    std::uint16_t cellScreenAddress(std::uint32_t row, std::uint32_t column) const;
    void drawScreenPart(PixelImage& image, std::int64_t top, std::int64_t left,
                        std::uint16_t screenAddress) const;
    void drawScreenShares(PixelImage& image, RoomSize size) const;

    const RomImage& m_rom;
    const GameConfig& m_config;
    RoomDataStore& m_store;
    GraphicsState& m_graphics;
};

} // namespace velko
