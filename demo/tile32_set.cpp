#include "demo/tile32_set.h"

#include "demo/art_library.h"

namespace velko::demo {

namespace {

// The lowest row of a screen shows only the top half of its blocks; of the bottom half just the
// left physics counts.
bool matches(const std::array<Cell, 4>& block, const std::array<Cell, 4>& quad, bool topOnly)
{
    if (!(block[0] == quad[0]) || !(block[1] == quad[1]))
        return false;
    if (topOnly)
        return block[2].physics == quad[2].physics;
    return block[2] == quad[2] && block[3] == quad[3];
}

} // namespace

std::uint8_t Tile32Set::indexOf(const Quad& quad, bool topOnly)
{
    for (std::size_t i = 0; i < m_blocks.size(); ++i)
        if (matches(m_blocks[i], quad, topOnly))
            return static_cast<std::uint8_t>(i);
    if (m_blocks.size() == kMostTile32)
        throw DemoError("more than 146 different 32x32 blocks");
    m_blocks.push_back(quad);
    return static_cast<std::uint8_t>(m_blocks.size() - 1);
}

ScreenBytes Tile32Set::pack(const ScreenGrid& screen)
{
    const auto cell = [&](int row, int column) -> const Cell& {
        return screen[static_cast<std::size_t>(row * kScreenColumns + column)];
    };
    ScreenBytes bytes{};
    for (int row = 0; row < 8; ++row) {
        const int bottom = row == 7 ? 14 : 2 * row + 1;
        for (int column = 0; column < 8; ++column) {
            const int left = 2 * column;
            const Quad quad = {cell(2 * row, left), cell(2 * row, left + 1), cell(bottom, left),
                               cell(bottom, left + 1)};
            bytes[static_cast<std::size_t>(8 * row + column)] = indexOf(quad, row == 7);
        }
    }
    return bytes;
}

Bytes Tile32Set::bytes() const
{
    Bytes bytes;
    for (const Quad& quad : m_blocks) {
        const auto& [tl, tr, bl, br] = quad;
        for (const Cell* cell : {&tl, &bl, &tr, &br})
            bytes.push_back(static_cast<std::uint8_t>(cell->slot * 4));
        bytes.push_back(static_cast<std::uint8_t>(tl.palette | tr.palette << 2 | bl.palette << 4
                                                  | br.palette << 6));
        bytes.push_back(static_cast<std::uint8_t>(tl.physics << 4 | bl.physics));
        bytes.push_back(static_cast<std::uint8_t>(tr.physics << 4 | br.physics));
    }
    bytes.resize(kTile32SetBytes);
    return bytes;
}

} // namespace velko::demo
