#pragma once

#include "gfx/room_renderer.h"
#include "gfx/tile32.h"

#include <array>
#include <cstdint>
#include <span>

namespace velko {

// From 16x16 cells to Tile32 blocks. The game keeps a screen as 8 x 8 numbers of blocks of 2 x 2
// cells, and has room for 146 different blocks per set.

inline constexpr std::uint32_t kMostTile32 = 146;
inline constexpr std::uint32_t kTile32Columns = 8;
inline constexpr std::uint32_t kTile32Rows = 8;
inline constexpr std::size_t kTile32PerScreen = 64;

// Four cells in one number, which makes comparing them cheap. From the lowest bit on: top-left,
// top-right, bottom-left, bottom-right, each with 8 bits of metatile, 2 of palette, 4 of physics.
struct Tile32Group {
    std::uint64_t bits = 0;

    // Rows and columns count from 0; of palette and physics only the bits above are taken.
    static Tile32Group of(const MetatileCell& topLeft, const MetatileCell& topRight,
                          const MetatileCell& bottomLeft, const MetatileCell& bottomRight);
    // The cell at row 0-1, column 0-1.
    MetatileCell cell(std::uint32_t row, std::uint32_t column) const;
    // The 7-byte record that tells the group in the game.
    Tile32 record() const;

    bool operator==(const Tile32Group&) const = default;
};

// A screen's groups, row after row. A screen has 15 rows of cells: row 14 stands for both rows of
// the last groups.
using ScreenGroups = std::array<Tile32Group, kTile32PerScreen>;
using Tile32Numbers = std::array<std::uint8_t, kTile32PerScreen>;

// The group at row 0-7, column 0-7.
Tile32Group groupOf(const ScreenMap16& screen, std::uint32_t row, std::uint32_t column);
ScreenGroups groupsOf(const ScreenMap16& screen);

// Builds a Tile32 set from the groups of screens, in the order in which they are handed over.
// Each group gets the number of the first block of the set that matches it, or else becomes the
// next block. A group of a screen's last row, whose lower half never shows, matches any block
// with the same upper half and the same physics at its bottom-left. Once the set is full a group
// without a match gets number 0.
class Tile32Packer {
public:
    Tile32Packer();

    // The screen's numbers. The same screen handed over again gets the same ones and adds nothing.
    Tile32Numbers pack(const ScreenGroups& screen);

    // The blocks; those from used() on are all zeros.
    std::span<const Tile32Group, kMostTile32> set() const { return m_set; }
    std::uint32_t used() const { return m_used; }
    // Whether a group found neither a match nor a place.
    bool limitExceeded() const { return m_limitExceeded; }

private:
    // Which block is the first with a key; open addressing, always at least half empty.
    class FirstBlocks {
    public:
        FirstBlocks();
        // The slot of the key, or the empty one where it belongs.
        std::size_t slotOf(std::uint64_t key) const;
        bool holds(std::size_t slot) const { return m_keys[slot] != kNoKey; }
        std::uint8_t number(std::size_t slot) const { return m_numbers[slot]; }
        void enter(std::size_t slot, std::uint64_t key, std::uint8_t number);

    private:
        static constexpr unsigned kSlotBits = 9;
        static constexpr std::size_t kSlots = std::size_t{1} << kSlotBits;
        static constexpr std::uint64_t kNoKey = ~std::uint64_t{0}; // groups have 56 bits
        static_assert(kSlots >= 2 * kMostTile32);

        std::array<std::uint64_t, kSlots> m_keys{};
        std::array<std::uint8_t, kSlots> m_numbers{};
    };

    std::uint8_t numberOf(Tile32Group group);
    std::uint8_t numberInLastRow(Tile32Group group);
    std::uint8_t append(Tile32Group group);

    std::array<Tile32Group, kMostTile32> m_set{};
    std::uint32_t m_used = 0;
    bool m_limitExceeded = false;
    FirstBlocks m_byGroup;
    FirstBlocks m_byLastRow; // by what a last row compares
};

} // namespace velko
