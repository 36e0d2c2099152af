#pragma once

#include "demo/block_region.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace velko::demo {

inline constexpr int kScreenColumns = 16; // 16x16 cells
inline constexpr int kScreenRows = 15;
inline constexpr std::size_t kMostTile32 = 146;
inline constexpr std::size_t kTile32Record = 7;
inline constexpr std::size_t kTile32SetBytes = 1024;

// One 16x16 cell of a map.
struct Cell {
    std::uint8_t slot = 0; // background block 0-63 of the room
    std::uint8_t palette = 0;
    std::uint8_t physics = 0;

    bool operator==(const Cell&) const = default;
};

// A screen of 16 x 15 cells, row by row.
using ScreenGrid = std::array<Cell, kScreenColumns * kScreenRows>;
// The same as 8 x 8 numbers of 32x32 blocks.
using ScreenBytes = std::array<std::uint8_t, 64>;

// The 32x32 blocks that a group of rooms shares. Screens are packed in the order in which they
// are added, by the rules that the editor packs by, so that converting an unchanged room there
// needs no more blocks than here.
class Tile32Set {
public:
    // Turns a screen into block numbers, adding the blocks that are missing. Throws DemoError
    // when the set would need more than kMostTile32.
    ScreenBytes pack(const ScreenGrid& screen);

    std::size_t size() const { return m_blocks.size(); }
    // The set as stored: 146 records of 7 bytes and two spare bytes.
    Bytes bytes() const;

private:
    using Quad = std::array<Cell, 4>; // top left, top right, bottom left, bottom right

    std::uint8_t indexOf(const Quad& quad, bool topOnly);

    std::vector<Quad> m_blocks;
};

} // namespace velko::demo
