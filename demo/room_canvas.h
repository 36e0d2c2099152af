#pragma once

#include "demo/tileset.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace velko::demo {

// Names of blocks, row by row from the top; an empty name is no block.
using CellNames = std::vector<std::vector<std::string_view>>;

// A whole room as a grid of 16x16 cells, painted by block names. Painting outside is cut off.
class RoomCanvas {
public:
    // The size in screens; every cell shows slot 0.
    RoomCanvas(const Tileset& tileset, int columns, int rows);

    const Tileset& tileset() const { return *m_tileset; }
    int screenColumns() const { return m_screenColumns; }
    int screenRows() const { return m_screenRows; }
    int width() const { return m_screenColumns * kScreenColumns; } // cells
    int height() const { return m_screenRows * kScreenRows; }

    bool inside(int x, int y) const { return x >= 0 && y >= 0 && x < width() && y < height(); }
    const Cell& cell(int x, int y) const;
    bool shows(int x, int y, std::string_view name) const;
    // True where slot 0 shows.
    bool empty(int x, int y) const { return inside(x, y) && cell(x, y).slot == 0; }
    // True where slot 0 shows in all of these cells.
    bool empty(int x, int y, int columns, int rows) const;
    // True where the hero could not pass.
    bool solid(int x, int y) const { return inside(x, y) && cell(x, y).physics == 1; }

    void put(int x, int y, std::string_view name);
    void put(int x, int y, const Cell& cell);
    // The block as mere background: one can walk in front of it.
    void putBehind(int x, int y, std::string_view name);
    void putIfEmpty(int x, int y, std::string_view name);
    void fill(int x, int y, int columns, int rows, std::string_view name);
    // Slot 0 with the palette and physics of empty cells.
    void clear(int x, int y, int columns, int rows);
    // The blocks of `names` from (x, y) on; an empty name leaves the cell as it is.
    void stamp(int x, int y, const CellNames& names);

    // One screen of the room.
    ScreenGrid screen(int column, int row) const;

private:
    std::size_t index(int x, int y) const { return static_cast<std::size_t>(y * width() + x); }

    const Tileset* m_tileset;
    int m_screenColumns;
    int m_screenRows;
    std::vector<Cell> m_cells;
};

} // namespace velko::demo
