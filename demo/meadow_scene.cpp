#include "demo/meadow_scene.h"

#include "demo/block_rows.h"
#include "demo/dice.h"
#include "demo/meadow_things.h"

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
        : m_canvas(canvas), m_plan(plan), m_dice(plan.seed)
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
        for (std::size_t i = 0; i < things.size();) {
            std::size_t run = 1;
            while (i + run < things.size() && things[i + run] == things[i])
                ++run;
            const std::size_t used = isWideMeadowThing(things[i]) ? run : 1;
            const int column = firstColumn + static_cast<int>(i);
            placeMeadowThing(m_canvas,
                             {things[i], 2 * column, m_tops[static_cast<std::size_t>(column)],
                              2 * static_cast<int>(used), m_plan.seed});
            i += used;
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

    void paintSky()
    {
        if (m_plan.sun && m_canvas.tileset().has("sun_tl")) {
            const int x = 2 * (2 + m_dice.roll(1, std::min(columns() - 4, 10)));
            if (m_canvas.empty(x, 2, 2, 2))
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
        if (!m_canvas.empty(x - 2, y - 2, cells + 4, 5) || x % 16 + cells > 16)
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
