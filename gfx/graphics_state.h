#pragma once

#include "gfx/pixel_image.h"
#include "gfx/tile_drawing.h"
#include "rom/game_config.h"
#include "rom/rom_image.h"
#include "store/room_data_store.h"

#include <array>
#include <cstdint>
#include <span>

namespace velko {

inline constexpr std::size_t kNesColours = 64; // a power of two: colour numbers are masked
inline constexpr std::size_t kPatternMemorySize = 8192;
inline constexpr std::size_t kPatternTable1 = 0x1000;

// Where a unit type's sprite animation stands.
struct UnitAnimation {
    std::uint16_t scriptAddress = 0; // CPU address
    std::uint8_t frameOffset = 0;    // of the current frame within the script
    std::uint8_t delay = 0;          // ticks before the next frame
};

// Of a record of the type-2 load table.
inline constexpr std::uint32_t kLoadRecordBytes = 5;

// What one number of a type-2 load list does.
struct LoadRecord {
    std::uint32_t source = 0;      // file offset; it may lead on into the following banks
    std::uint32_t destination = 0; // in pattern memory, 0 to 0xFFFF
    std::uint32_t length = 0;      // bytes, whole tiles
};

// The graphics of the room that is shown: the console's pattern memory, filled as the game fills
// it, the colours, and the position of every animated sprite. selectRoom() must run before a
// room is drawn. Reads past the end of the image give its filler; writes past pattern memory are
// dropped.
class GraphicsState {
public:
    GraphicsState(const RomImage& rom, const GameConfig& config, RoomDataStore& store);

    std::array<Pixel, kNesColours> colourTable{}; // index: NES colour number
    std::array<Pixel, 16> physicsBaseColour{};    // index: physics value
    std::array<ColourSet4, 16> physicsShades{};
    // Bytes 0x0000-0x0FFF: pattern table 0 (sprites), 0x1000-0x1FFF: pattern table 1 (background).
    std::array<std::uint8_t, kPatternMemorySize> patternMemory{};
    std::array<UnitAnimation, kUnitTypes> unitAnimation{};

    std::uint8_t currentRoom() const { return m_currentRoom; }
    // Points the level handlers at `room`, fills pattern memory, restarts the animations.
    void selectRoom(std::uint8_t room);

    void buildPatternMemory();
    // Applies the list that `pahTileLoadType2` points at, without clearing first.
    void applyType2Loads();
    // File offset of a record of the type-2 load table; wraps at 32 bits.
    std::uint32_t loadRecordOffset(std::uint8_t id) const;
    LoadRecord loadRecord(std::uint8_t id) const;
    // Fills background block `slot` (0-63) of pattern table 1.
    void buildBackgroundBlock(std::uint32_t slot);
    // The same for all 64.
    void buildBackgroundBlocks();

    // Back to the start of each type's script. A type without a script (address 0) keeps its
    // delay.
    void resetUnitAnimation();
    // One tick: every type whose sprite register is 1 counts down and moves on at 0. Count and
    // frame offset are bytes: a delay of 0 lasts 256 ticks, and an offset past 255 wraps.
    void stepUnitAnimation();

    // The pixel of a NES colour number; only its low 6 bits count.
    Pixel colour(std::uint8_t nesColour) const
    {
        return colourTable[nesColour & (kNesColours - 1)];
    }
    // Colours of a metatile drawn with palette 0-7 of the room. Colour 0 is always entry 16.
    ColourSet4 metatileColours(std::uint32_t paletteIndex) const;
    // The room's sprite set 0-3: entries 16 + 4 x set to 19 + 4 x set.
    ColourSet4 spriteColours(std::uint32_t set) const;

    // A tile of pattern table 0 or 1.
    TileBytes tile(std::size_t patternTable, std::uint8_t tileNumber) const;

    // 16x16 pixels at row y, column x (neither of them negative) from the four tiles that start at
    // `tileNumber` (0-255) of pattern table 1, in column order. Past tile 255 the number wraps
    // within the table.
    void drawMetatile(PixelImage& image, int y, int x, std::uint8_t tileNumber,
                      std::uint32_t paletteIndex) const;
    void drawMetatileWithColours(PixelImage& image, int y, int x, std::uint8_t tileNumber,
                                 const ColourSet4& colours) const;
    // One tile of pattern table 1, opaque.
    void drawSingleTile(PixelImage& image, int y, int x, std::uint8_t tileNumber,
                        const ColourSet4& colours) const;
    // One tile of pattern table 0, transparent, not flipped.
    void drawSpriteTile(PixelImage& image, int y, int x, std::uint8_t tileNumber,
                        const ColourSet4& colours) const;

    struct SpriteStyle {
        bool mirrored = false;
        bool highlight = false;  // with the room palette: entry 3 becomes an orange
        float brightness = 0.0F; // of that orange, 0 to 1
        bool useRoomPalette = true;
        std::array<Pixel, 16> colours{}; // four sets of four, used without the room palette
    };
    // One frame of a sprite script around the position (x, y). The script's address is mapped to
    // the file once; offsets within it are counted in the file, even past the end of the bank.
    void drawSpriteFrame(PixelImage& image, int y, int x, std::uint16_t scriptAddress,
                         std::uint32_t frameOffset, const SpriteStyle& style) const;

private:
    std::uint8_t scriptByte(std::uint16_t scriptAddress, std::uint32_t offset) const;
    // Offset of the control byte behind the pieces of the frame at `frameOffset`.
    std::uint32_t controlOffset(std::uint16_t scriptAddress, std::uint32_t frameOffset) const;
    std::uint8_t frameDelay(const UnitAnimation& animation) const;
    void advanceToNextFrame(UnitAnimation& animation) const;

    const RomImage& m_rom;
    const GameConfig& m_config;
    RoomDataStore& m_store;
    std::uint8_t m_currentRoom = 0;
};

} // namespace velko
