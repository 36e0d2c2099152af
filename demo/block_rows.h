#pragma once

namespace velko::demo {

// Rooms are designed in blocks of 2x2 cells, as the game stores them. A screen is 8 blocks wide
// and has 8 rows of blocks, the lowest of which shows only its top half; so in rooms of several
// screen rows every eighth row of blocks is one cell high.
inline constexpr int kBlocksPerScreen = 8;

// First cell row of block row `row`, counted from the room's top.
constexpr int cellRowOfBlock(int row)
{
    return row / kBlocksPerScreen * 15 + row % kBlocksPerScreen * 2;
}

// First cell row of the block that lies `height` blocks above the lowest row of a room.
constexpr int cellRowAtHeight(int screenRows, int height)
{
    return cellRowOfBlock(screenRows * kBlocksPerScreen - 1 - height);
}

} // namespace velko::demo
