#pragma once

#include <array>
#include <cstdint>

namespace velko {

// A 32x32 block of a room: four 16x16 metatiles with their palettes and physics. The parts of the
// 7-byte record are in different orders: metatiles and physics go down the columns, palettes
// along the rows like a console attribute byte.
struct Tile32 {
    static constexpr std::uint32_t kBytes = 7;

    // 0-3: metatiles top-left, bottom-left, top-right, bottom-right. 4: palettes, 2 bits each
    // from bit 0: top-left, top-right, bottom-left, bottom-right. 5, 6: physics of the left and
    // the right column, the top in the high nibble.
    std::array<std::uint8_t, kBytes> bytes{};

    // Of the quadrant that a metatile row and column fall into; only their lowest bits count.
    std::uint8_t metatile(std::uint32_t row, std::uint32_t column) const
    {
        return bytes[(column & 1) * 2 + (row & 1)];
    }
    std::uint8_t palette(std::uint32_t row, std::uint32_t column) const // 0-3
    {
        return (bytes[4] >> (((column & 1) + (row & 1) * 2) * 2)) & 3;
    }
    std::uint8_t physics(std::uint32_t row, std::uint32_t column) const // 0-15
    {
        return (bytes[5 + (column & 1)] >> ((row & 1) == 0 ? 4 : 0)) & 15;
    }

    // Enters a quadrant that is still zero.
    void enter(std::uint32_t row, std::uint32_t column, std::uint8_t metatile, std::uint8_t palette,
               std::uint8_t physics)
    {
        const std::uint32_t r = row & 1;
        const std::uint32_t c = column & 1;
        bytes[c * 2 + r] = metatile;
        bytes[4] = static_cast<std::uint8_t>(bytes[4] | (palette & 3U) << (c + r * 2) * 2);
        bytes[5 + c] =
            static_cast<std::uint8_t>(bytes[5 + c] | (physics & 15U) << (r == 0 ? 4 : 0));
    }
};

} // namespace velko
