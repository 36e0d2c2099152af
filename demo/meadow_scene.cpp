#include "demo/meadow_scene.h"

#include "demo/block_rows.h"
#include "demo/buildings.h"
#include "demo/dice.h"

#include <algorithm>

namespace velko::demo {

namespace {

int heightOf(char letter)
{
    if (letter >= '0' && letter <= '9')
        return letter - '0';
    if (letter >= 'a' && letter <= 'z')
        return letter - 'a' + 10;
    return -1;
}

class MeadowPainter {
public:
    MeadowPainter(RoomCanvas& canvas, const MeadowPlan& plan)
        : m_canvas(canvas), m_plan(plan), m_dice(static_cast<std::uint32_t>(plan.seed))
    {
        const auto columns = static_cast<std::size_t>(canvas.width() / 2);
        if (plan.ground.size() != columns || plan.things.size() != columns)
            throw DemoError("a meadow plan needs " + std::to_string(columns)
                            + " columns: " + plan.ground);
    }

    void paint()
    {
        layGround();
        placeThings(m_plan.things, 0);
        for (const Island& island : m_plan.islands)
            paintIsland(island);
        dressEarth();
        paintSky();
    }

private:
    int rowAt(int height) const { return cellRowAtHeight(m_canvas.screenRows(), height); }
    int columns() const { return m_canvas.width() / 2; }

    void layGround()
    {
        int height = 1;
        m_tops.assign(static_cast<std::size_t>(columns()), 0);
        for (int column = 0; column < columns(); ++column) {
            const char letter = m_plan.ground[static_cast<std::size_t>(column)];
            if (heightOf(letter) >= 0)
                height = heightOf(letter);
            else if (letter == '\\')
                --height;
            layColumn(column, letter, height);
            if (letter == '/')
                ++height;
        }
    }

    void layColumn(int column, char letter, int height)
    {
        const int x = 2 * column;
        const int top = rowAt(height);
        m_tops[static_cast<std::size_t>(column)] = top;
        if (letter == '~' || letter == '=' || letter == 'V') {
            layWater(column, letter, top);
            return;
        }
        m_canvas.fill(x, top, 2, m_canvas.height() - top, "dirt");
        if (letter == '/') {
            m_canvas.put(x, top - 1, "grass_slope_up");
            m_canvas.put(x + 1, top - 2, "grass_slope_up");
            m_canvas.put(x + 1, top - 1, "dirt");
        } else if (letter == '\\') {
            m_canvas.put(x, top - 2, "grass_slope_down");
            m_canvas.put(x, top - 1, "dirt");
            m_canvas.put(x + 1, top - 1, "grass_slope_down");
        }
    }

    void layWater(int column, char letter, int top)
    {
        const int x = 2 * column;
        int surface = top + 1;
        if (letter == 'V') {
            surface = waterAfter(column);
            m_canvas.fill(x, top, 2, surface - top, "waterfall");
            m_canvas.fill(x, surface, 2, 1, "waterfall_foot");
            m_canvas.fill(x, surface + 1, 2, m_canvas.height() - surface, "water");
            return;
        }
        m_canvas.fill(x, surface, 2, 1, "water_top");
        m_canvas.fill(x, surface + 1, 2, m_canvas.height() - surface, "water");
        if (letter == '=') {
            m_canvas.fill(x, top, 2, 1, "bridge");
            m_canvas.fill(x, top - 1, 2, 1, "bridge_rail");
        }
    }

    // The water's surface to the right of a waterfall: that of the next flat height.
    int waterAfter(int column) const
    {
        for (int next = column + 1; next < columns(); ++next) {
            const int height = heightOf(m_plan.ground[static_cast<std::size_t>(next)]);
            if (height >= 0)
                return rowAt(height) + 1;
        }
        return m_canvas.height() - 2;
    }

    void placeThings(std::string_view things, int firstColumn)
    {
        for (std::size_t i = 0; i < things.size(); ++i) {
            const char letter = things[i];
            const int column = firstColumn + static_cast<int>(i);
            std::size_t run = 1;
            while (i + run < things.size() && things[i + run] == letter)
                ++run;
            const int top = m_tops[static_cast<std::size_t>(column)];
            if (letter == 'M' || letter == 'X' || letter == 'h') {
                placeWide(letter, 2 * column, top, 2 * static_cast<int>(run));
                i += run - 1;
            } else {
                placeThing(letter, 2 * column, top);
            }
        }
    }

    void placeWide(char letter, int x, int top, int cells)
    {
        if (letter == 'M')
            mountain(x, top, cells);
        else if (letter == 'X')
            paintHouse(m_canvas, {x, top, cells, 1, HouseStyle::kCottage, m_plan.seed + x});
        else
            for (int i = 0; i + 4 <= cells; i += 4)
                m_canvas.stamp(x + i, top - 2,
                               {{"hill_tl", "hill_tm", "hill_tn", "hill_tr"},
                                {"hill_bl", "hill_bm", "hill_bm", "hill_br"}});
    }

    void mountain(int x, int top, int cells)
    {
        for (int row = 0; row < cells / 2; ++row) {
            const int left = x + cells / 2 - 1 - row;
            const int right = x + cells / 2 + row;
            const int y = top - cells / 2 + row;
            m_canvas.putIfEmpty(left, y, row == 0 ? "far_hill_top_l" : "far_hill_l");
            m_canvas.putIfEmpty(right, y, row == 0 ? "far_hill_top_r" : "far_hill_r");
            for (int cell = left + 1; cell < right; ++cell)
                m_canvas.putIfEmpty(cell, y, "far_hill");
        }
    }

    void pine(int x, int top, int height)
    {
        m_canvas.put(x, top - 1, "pine_base");
        for (int i = 2; i < height; ++i)
            m_canvas.put(x, top - i, "pine_mid");
        m_canvas.put(x, top - height, "pine_top");
    }

    void placePair(int x, int y, std::string_view left, std::string_view right)
    {
        m_canvas.put(x, y, left);
        m_canvas.put(x + 1, y, right);
    }

    void placeThing(char letter, int x, int top)
    {
        const int y = top - 1;
        switch (letter) {
        case '.':
            return;
        case 'T':
            m_canvas.stamp(
                x, top - 3,
                {{"tree_tl", "tree_tr"}, {"tree_bl", "tree_br"}, {"tree_trunk_l", "tree_trunk_r"}});
            return;
        case 'P':
            return pine(x, top, 3);
        case 'p':
            return pine(x + 1, top, 3);
        case 'Q':
            pine(x, top, 3);
            return pine(x + 1, top, 4);
        case 'l':
            m_canvas.put(x, top - 2, "lamp_top");
            return m_canvas.put(x, y, "lamp_post");
        default:
            return placeSmall(letter, x, y);
        }
    }

    void placeSmall(char letter, int x, int y)
    {
        switch (letter) {
        case 'b':
            return placePair(x, y, "bush_l", "bush_r");
        case 'o':
            return m_canvas.put(x, y, "bush");
        case 'f':
            return placePair(x, y, "flower_tulip", "flower_daisy");
        case 'd':
            return placePair(x, y, "flower_daisy", "flower_daisy");
        case 'g':
            return placePair(x, y, "grass_tall", "grass_tall");
        case 'm':
            return m_canvas.put(x + 1, y, "mushroom");
        case 's':
            return m_canvas.put(x, y, "sign");
        case 'F':
            return placePair(x, y, "fence", "fence");
        case 'w':
            return placePair(x, y, "wheat", "wheat");
        case 'r':
            return m_canvas.put(x, y, "reeds");
        case 'R':
            return m_canvas.put(x, y, "rock");
        case 'S':
            return m_canvas.put(x + 1, y, "stump");
        case 'D':
            return placePair(x, y, "stone_mossy", "stone_mossy");
        default:
            throw DemoError(std::string("unknown thing in a meadow: ") + letter);
        }
    }

    void paintIsland(const Island& island)
    {
        const int top = rowAt(island.height);
        const int width = 2 * static_cast<int>(island.things.size());
        m_canvas.fill(2 * island.column, top, width, 2, "dirt");
        for (std::size_t i = 0; i < island.things.size(); ++i)
            m_tops[static_cast<std::size_t>(island.column) + i] = top;
        placeThings(island.things, island.column);
    }

    bool earth(int x, int y) const
    {
        if (x < 0 || x >= m_canvas.width() || y >= m_canvas.height())
            return true;
        return m_canvas.shows(x, y, "dirt")
            || m_earth[static_cast<std::size_t>(y * m_canvas.width() + x)];
    }

    // Gives plain earth its edges, and stones where nothing else is.
    void dressEarth()
    {
        m_earth.assign(static_cast<std::size_t>(m_canvas.width() * m_canvas.height()), false);
        for (int y = 0; y < m_canvas.height(); ++y)
            for (int x = 0; x < m_canvas.width(); ++x)
                m_earth[static_cast<std::size_t>(y * m_canvas.width() + x)] =
                    m_canvas.shows(x, y, "dirt") || m_canvas.shows(x, y, "grass_slope_up")
                    || m_canvas.shows(x, y, "grass_slope_down");
        for (int y = 0; y < m_canvas.height(); ++y)
            for (int x = 0; x < m_canvas.width(); ++x)
                if (m_canvas.shows(x, y, "dirt"))
                    m_canvas.put(x, y, earthFor(x, y));
    }

    std::string_view earthFor(int x, int y) const
    {
        const bool left = earth(x - 1, y);
        const bool right = earth(x + 1, y);
        if (y > 0 && !earth(x, y - 1))
            return !left ? "grass_edge_l" : !right ? "grass_edge_r" : "grass_top";
        if (!earth(x, y + 1))
            return "dirt_bottom";
        if (!left || !right)
            return !left ? "dirt_edge_l" : "dirt_edge_r";
        // Stones only at fixed places of a block: few different blocks, still no even pattern.
        const int place = y / 2 * 64 + x / 2;
        if (x % 2 == 0 && m_dice.roll(place, 4) == 0)
            return "dirt_stones";
        if (x % 2 == 1 && m_dice.roll(place, 23) == 1 && m_canvas.tileset().has("dirt_shell"))
            return "dirt_shell";
        return "dirt";
    }

    bool clear(int x, int y, int columns, int rows) const
    {
        for (int row = y; row < y + rows; ++row)
            for (int column = x; column < x + columns; ++column)
                if (!m_canvas.empty(column, row))
                    return false;
        return true;
    }

    void paintSky()
    {
        if (m_plan.sun && m_canvas.tileset().has("sun_tl")) {
            const int x = 2 * (2 + m_dice.roll(1, std::min(columns() - 4, 10)));
            if (clear(x, 2, 2, 2))
                m_canvas.stamp(x, 2, {{"sun_tl", "sun_tr"}, {"sun_bl", "sun_br"}});
        }
        const int skyRows = m_canvas.screenRows() * kBlocksPerScreen;
        for (int row = 0; row < skyRows; ++row)
            for (int column = 0; column < columns(); ++column)
                if (m_dice.roll(1000 + row * 64 + column, 11) == 0 && row % kBlocksPerScreen < 5)
                    cloud(2 * column, cellRowOfBlock(row), m_dice.roll(row + 7 * column, 3));
    }

    void cloud(int x, int y, int kind)
    {
        const int cells = kind == 0 ? 2 : 4;
        if (!clear(x - 2, y - 2, cells + 4, 5) || x % 16 + cells > 16)
            return;
        if (kind == 0) {
            m_canvas.put(x, y, "cloud_small");
            return;
        }
        m_canvas.stamp(x, y, {{"cloud_l", "cloud_m", kind == 1 ? "cloud_r" : "cloud_m", ""}});
        if (kind == 2)
            m_canvas.put(x + 3, y, "cloud_r");
    }

    RoomCanvas& m_canvas;
    const MeadowPlan& m_plan;
    Dice m_dice;
    std::vector<int> m_tops; // cell row of the ground, per column of blocks
    std::vector<bool> m_earth;
};

} // namespace

void paintMeadow(RoomCanvas& canvas, const MeadowPlan& plan)
{
    MeadowPainter(canvas, plan).paint();
}

} // namespace velko::demo
