#include "demo/gallery.h"

#include <algorithm>

namespace velko::demo {

GalleryGrid::GalleryGrid(int screenColumns, const GalleryPlan& plan)
    : m_columns(screenColumns * kScreenColumns / 2)
    , m_height(static_cast<int>(plan.galleries.size()) * kScreenRows)
    , m_cells(static_cast<std::size_t>(2 * m_columns * m_height), Fill::kOpen)
    , m_floors(plan.galleries.size() * static_cast<std::size_t>(m_columns))
    , m_ceilings(m_floors.size())
    , m_ladders(m_cells.size())
    , m_fiery(static_cast<std::size_t>(m_columns))
{
    int number = 0;
    for (const Gallery& gallery : plan.galleries) {
        for (const std::string* text :
             {&gallery.ceiling, &gallery.floor, &gallery.things, &gallery.hanging})
            if (static_cast<int>(text->size()) != m_columns)
                throw DemoError("a gallery needs " + std::to_string(m_columns)
                                + " columns: " + *text);
        layCeiling(number, gallery.ceiling);
        layFloor(number, gallery.floor);
        ++number;
    }
    layLadders(plan);
}

Fill GalleryGrid::at(int x, int y) const
{
    return m_cells[cellIndex(std::clamp(x, 0, width() - 1), std::clamp(y, 0, m_height - 1))];
}

bool GalleryGrid::open(int x, int y) const
{
    const Fill fill = at(x, y);
    return fill == Fill::kOpen || fill == Fill::kBridge;
}

void GalleryGrid::fill(int x, int top, int bottom, Fill what)
{
    for (int y = std::max(top, 0); y < std::min(bottom, m_height); ++y)
        m_cells[cellIndex(x, y)] = m_cells[cellIndex(x + 1, y)] = what;
}

void GalleryGrid::layCeiling(int gallery, const std::string& ceiling)
{
    const int top = gallery * kScreenRows;
    for (int column = 0; column < m_columns; ++column) {
        const char letter = ceiling[static_cast<std::size_t>(column)];
        const bool digit = letter >= '0' && letter <= '7';
        if (!digit && letter != 'H' && letter != 'v')
            throw DemoError(std::string("unknown ceiling ") + letter);
        const int rows = digit ? 2 * (letter - '0') : 0;
        m_ceilings[index(gallery, column)] = top + rows;
        fill(2 * column, top, top + rows, Fill::kSolid);
    }
}

void GalleryGrid::layFloor(int gallery, const std::string& floor)
{
    const int bottom = (gallery + 1) * kScreenRows;
    int height = 1;
    for (int column = 0; column < m_columns; ++column) {
        const char letter = floor[static_cast<std::size_t>(column)];
        if (letter >= '0' && letter <= '7')
            height = letter - '0';
        else if (letter == '\\')
            --height;
        const int top = bottom - 1 - 2 * height;
        m_floors[index(gallery, column)] = letter == 'v' ? bottom : top;
        layFloorColumn(gallery, column, letter, top);
        if (letter == '/')
            ++height;
    }
}

void GalleryGrid::layFloorColumn(int gallery, int column, char letter, int top)
{
    const int bottom = (gallery + 1) * kScreenRows;
    const int x = 2 * column;
    switch (letter) {
    case 'H':
    case 'v':
        return;
    case '~':
    case 'L':
    case '=':
        m_fiery[static_cast<std::size_t>(column)] =
            letter == 'L' || (letter == '=' && column > 0 && fiery(2 * (column - 1)));
        fill(x, top + 1, top + 2, Fill::kSurface);
        fill(x, top + 2, top + 4, Fill::kLiquid);
        fill(x, top + 4, bottom, Fill::kSolid);
        if (letter == '=')
            fill(x, top, top + 1, Fill::kBridge);
        return;
    case '/':
        m_cells[cellIndex(x, top - 1)] = Fill::kSlopeUp;
        m_cells[cellIndex(x + 1, top - 2)] = Fill::kSlopeUp;
        m_cells[cellIndex(x + 1, top - 1)] = Fill::kSolid;
        break;
    case '\\':
        m_cells[cellIndex(x, top - 2)] = Fill::kSlopeDown;
        m_cells[cellIndex(x, top - 1)] = Fill::kSolid;
        m_cells[cellIndex(x + 1, top - 1)] = Fill::kSlopeDown;
        break;
    default:
        if (letter < '0' || letter > '7')
            throw DemoError(std::string("unknown floor ") + letter);
    }
    fill(x, top, bottom, Fill::kSolid);
}

// A ladder starts at the floor of a shaft's gallery and ends on the floor below.
void GalleryGrid::layLadders(const GalleryPlan& plan)
{
    for (std::size_t g = 0; g + 1 < plan.galleries.size(); ++g) {
        for (int column = 0; column < m_columns; ++column) {
            if (plan.galleries[g].floor[static_cast<std::size_t>(column)] != 'H')
                continue;
            if (plan.galleries[g + 1].ceiling[static_cast<std::size_t>(column)] != 'H')
                throw DemoError("a shaft ends above a ceiling in column " + std::to_string(column));
            const int from = floorRow(static_cast<int>(g), column);
            const int to = floorRow(static_cast<int>(g) + 1, column);
            for (int y = from; y < to; ++y)
                m_ladders[cellIndex(2 * column, y)] = true;
        }
    }
}

} // namespace velko::demo
