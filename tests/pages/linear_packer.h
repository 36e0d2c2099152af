#pragma once

#include "pages/tile32_packing.h"

#include <array>
#include <cstdint>
#include <vector>

namespace velko::test {

// Packs as the rules are told: cell by cell, searching the whole set for each group. Slow and
// plain; what the editor's packer must equal. It shares no code with it.
class LinearPacker {
public:
    struct Block {
        std::array<MetatileCell, 4> quadrants; // top-left, top-right, bottom-left, bottom-right
    };

    std::vector<Block> set;
    bool limitExceeded = false;

    Tile32Numbers pack(const ScreenMap16& screen)
    {
        Tile32Numbers numbers{};
        for (std::size_t row = 0; row < 8; ++row) {
            for (std::size_t column = 0; column < 8; ++column)
                numbers[row * 8 + column] = numberOf(blockAt(screen, row, column), row == 7);
        }
        return numbers;
    }

private:
    static MetatileCell cellAt(const ScreenMap16& screen, std::size_t row, std::size_t column)
    {
        const std::size_t cell = row * 16 + column;
        return {screen.metatile[cell], screen.palette[cell], screen.physics[cell]};
    }

    static Block blockAt(const ScreenMap16& screen, std::size_t row, std::size_t column)
    {
        const std::size_t top = 2 * row;
        const std::size_t bottom = row == 7 ? 14 : top + 1;
        const std::size_t left = 2 * column;
        return {{cellAt(screen, top, left), cellAt(screen, top, left + 1),
                 cellAt(screen, bottom, left), cellAt(screen, bottom, left + 1)}};
    }

    static bool equal(const MetatileCell& a, const MetatileCell& b)
    {
        return a.physics == b.physics && a.palette == b.palette && a.metatile == b.metatile;
    }

    static bool matches(const Block& block, const Block& wanted, bool lastRow)
    {
        if (!equal(block.quadrants[0], wanted.quadrants[0])
            || !equal(block.quadrants[1], wanted.quadrants[1]))
            return false;
        if (lastRow)
            return block.quadrants[2].physics == wanted.quadrants[2].physics;
        return equal(block.quadrants[2], wanted.quadrants[2])
            && equal(block.quadrants[3], wanted.quadrants[3]);
    }

    std::uint8_t numberOf(const Block& wanted, bool lastRow)
    {
        for (std::size_t i = 0; i < set.size(); ++i) {
            if (matches(set[i], wanted, lastRow))
                return static_cast<std::uint8_t>(i);
        }
        if (set.size() == 146) {
            limitExceeded = true;
            return 0;
        }
        set.push_back(wanted);
        return static_cast<std::uint8_t>(set.size() - 1);
    }
};

} // namespace velko::test
