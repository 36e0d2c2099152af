#include "demo/room_canvas.h"

namespace velko::demo {

RoomCanvas::RoomCanvas(const Tileset& tileset, int columns, int rows)
    : m_tileset(&tileset)
    , m_screenColumns(columns)
    , m_screenRows(rows)
    , m_cells(static_cast<std::size_t>(columns * kScreenColumns * rows * kScreenRows),
              tileset.emptyCell())
{
}

const Cell& RoomCanvas::cell(int x, int y) const
{
    return m_cells.at(index(x, y));
}

bool RoomCanvas::shows(int x, int y, std::string_view name) const
{
    return inside(x, y) && m_tileset->has(name) && cell(x, y).slot == m_tileset->cell(name).slot;
}

bool RoomCanvas::empty(int x, int y, int columns, int rows) const
{
    for (int row = y; row < y + rows; ++row)
        for (int column = x; column < x + columns; ++column)
            if (!empty(column, row))
                return false;
    return true;
}

void RoomCanvas::put(int x, int y, const Cell& cell)
{
    if (inside(x, y))
        m_cells[index(x, y)] = cell;
}

void RoomCanvas::put(int x, int y, std::string_view name)
{
    put(x, y, m_tileset->cell(name));
}

void RoomCanvas::putBehind(int x, int y, std::string_view name)
{
    Cell cell = m_tileset->cell(name);
    cell.physics = 0;
    put(x, y, cell);
}

void RoomCanvas::putIfEmpty(int x, int y, std::string_view name)
{
    if (empty(x, y))
        put(x, y, name);
}

void RoomCanvas::fill(int x, int y, int columns, int rows, std::string_view name)
{
    const Cell cell = m_tileset->cell(name);
    for (int row = y; row < y + rows; ++row)
        for (int column = x; column < x + columns; ++column)
            put(column, row, cell);
}

void RoomCanvas::clear(int x, int y, int columns, int rows)
{
    for (int row = y; row < y + rows; ++row)
        for (int column = x; column < x + columns; ++column)
            put(column, row, m_tileset->emptyCell());
}

void RoomCanvas::stamp(int x, int y, const CellNames& names)
{
    for (const auto& row : names) {
        int column = x;
        for (const std::string_view name : row) {
            if (!name.empty())
                put(column, y, name);
            ++column;
        }
        ++y;
    }
}

ScreenGrid RoomCanvas::screen(int column, int row) const
{
    ScreenGrid grid;
    std::size_t out = 0;
    for (int y = 0; y < kScreenRows; ++y)
        for (int x = 0; x < kScreenColumns; ++x)
            grid[out++] = cell(column * kScreenColumns + x, row * kScreenRows + y);
    return grid;
}

} // namespace velko::demo
