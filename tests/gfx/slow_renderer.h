#pragma once

#include "rom/game_config.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace velko::test {

// What a room looks like, told pixel by pixel from the description of the game's data. It knows
// nothing of the code under test: no handlers, no images, no shared helpers, only the bytes of
// the file and the configuration's numbers. Every pixel is looked up from scratch, so there is
// nothing to get out of step.
class SlowRenderer {
public:
    struct Settings {
        std::vector<std::uint8_t> file;
        GameConfig config;
        std::array<std::uint32_t, 64> colours{};
        std::uint32_t room = 0;
    };
    explicit SlowRenderer(Settings settings);

    const std::array<std::uint8_t, 8192>& patternMemory() const { return m_patterns; }

    int roomWidth() const;  // pixels
    int roomHeight() const; // pixels
    std::uint32_t roomPixel(int y, int x) const;
    // Pixel of a screen, y 0-239, x 0-255.
    std::uint32_t screenPixel(std::uint16_t screenAddress, int y, int x) const;
    int screenPhysics(std::uint16_t screenAddress, int row, int column) const;
    // Pixel of a metatile, y and x 0-15, with palette 0-7.
    std::uint32_t metatilePixel(int metatile, int palette, int y, int x) const;

    struct Frame {
        std::uint16_t script = 0;
        std::uint32_t offset = 0;
        int y = 0;
        int x = 0;
        bool mirrored = false;
    };
    // What a sprite frame shows at an image's pixel, if anything.
    std::optional<std::uint32_t> spritePixel(const Frame& frame, int y, int x) const;

private:
    std::uint8_t fileByte(std::uint64_t offset) const;
    std::uint8_t tableByte(const PointerArrayDescriptor& table, std::uint32_t index) const;
    std::uint8_t blockByte(const PointerArrayDescriptor& table, std::uint32_t offset) const;
    std::uint32_t colourOfEntry(int paletteEntry) const;
    int tilePixel(int tableStart, int tile, int y, int x) const;
    int tile32Byte(std::uint16_t screenAddress, int row, int column, int byte) const;
    void loadPatterns();

    Settings m_settings;
    std::array<std::uint8_t, 8192> m_patterns{};
};

} // namespace velko::test
