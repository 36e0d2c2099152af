#pragma once

#include "demo/room_canvas.h"

#include <string>
#include <vector>

namespace velko::demo {

// One screen row of an underground or indoor room; each string has a letter per column of 2
// cells.
//
// Floor: 0-7 is its height in blocks above the lowest row; '/' and '\' slope up from the last
// height and down to the one below it; '~' is a pool and 'L' a fiery one a little below the last
// height, '=' a bridge over such a pool, 'H' a shaft with a ladder down to the gallery below, 'v'
// nothing at all.
// Ceiling: 0-7 is its thickness in blocks; 'H' the end of a shaft from above, 'v' open.
// What `things` and `hanging` mean depends on the painter.
struct Gallery {
    std::string ceiling;
    std::string floor;
    std::string things;
    std::string hanging;
};

// A platform in the air: cells `x` to `x` + `cells` - 1 of row `y`, room coordinates.
struct Ledge {
    int x = 0;
    int y = 0;
    int cells = 2;
};

struct GalleryPlan {
    std::vector<Gallery> galleries; // one per screen row
    std::vector<Ledge> ledges;
    int seed = 0;
};

enum class Fill : std::uint8_t { kOpen, kSolid, kSlopeUp, kSlopeDown, kSurface, kLiquid, kBridge };

// What fills each cell of a room of galleries, and where floors and ceilings are.
class GalleryGrid {
public:
    // Throws DemoError when a string has the wrong length or an unknown letter.
    GalleryGrid(int screenColumns, const GalleryPlan& plan);

    int columns() const { return m_columns; } // of 2 cells
    int width() const { return 2 * m_columns; }
    int height() const { return m_height; }

    // Outside the room the nearest cell of the room counts.
    Fill at(int x, int y) const;
    bool open(int x, int y) const;
    bool fiery(int x) const { return m_fiery[static_cast<std::size_t>(x / 2)]; }
    // First row of the floor, and first row below the ceiling, of a gallery's column.
    int floorRow(int gallery, int column) const { return m_floors[index(gallery, column)]; }
    int ceilingRow(int gallery, int column) const { return m_ceilings[index(gallery, column)]; }
    // True for the ladder's cell of a shaft.
    bool ladder(int x, int y) const { return m_ladders[cellIndex(x, y)]; }

private:
    std::size_t index(int gallery, int column) const
    {
        return static_cast<std::size_t>(gallery * m_columns + column);
    }
    std::size_t cellIndex(int x, int y) const { return static_cast<std::size_t>(y * width() + x); }
    void fill(int x, int top, int bottom, Fill what);
    void layCeiling(int gallery, const std::string& ceiling);
    void layFloor(int gallery, const std::string& floor);
    void layFloorColumn(int gallery, int column, char letter, int top);
    void layLadders(const GalleryPlan& plan);

    int m_columns;
    int m_height;
    std::vector<Fill> m_cells;
    std::vector<int> m_floors;
    std::vector<int> m_ceilings;
    std::vector<bool> m_ladders;
    std::vector<bool> m_fiery;
};

} // namespace velko::demo
