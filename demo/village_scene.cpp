#include "demo/village_scene.h"

#include "demo/block_rows.h"
#include "demo/buildings.h"
#include "demo/dice.h"

#include <algorithm>

namespace velko::demo {

namespace {

class StreetPainter {
public:
    StreetPainter(RoomCanvas& canvas, const StreetPlan& plan)
        : m_canvas(canvas)
        , m_plan(plan)
        , m_dice(static_cast<std::uint32_t>(plan.seed))
        , m_ground(canvas.height() - 3)
    {
        const auto columns = static_cast<std::size_t>(canvas.width() / 2);
        if (plan.street.size() != columns || plan.floors.size() != columns)
            throw DemoError("a street plan needs " + std::to_string(columns)
                            + " columns: " + plan.street);
    }

    void paint()
    {
        m_canvas.fill(0, m_ground, m_canvas.width(), 1, "cobbles_top");
        m_canvas.fill(0, m_ground + 1, m_canvas.width(), 1, "cobbles");
        m_canvas.fill(0, m_ground + 2, m_canvas.width(), 1, "stone_wall");
        const std::string& street = m_plan.street;
        for (std::size_t i = 0; i < street.size(); ++i) {
            std::size_t run = 1;
            while (i + run < street.size() && street[i + run] == street[i])
                ++run;
            const int x = 2 * static_cast<int>(i);
            if (std::string_view("HBKSC").find(street[i]) != std::string_view::npos) {
                placeBuilding(street[i], x, 2 * static_cast<int>(run),
                              std::max(1, m_plan.floors[i] - '0'));
                i += run - 1;
            } else {
                placeThing(street[i], x);
            }
        }
        paintSky();
    }

private:
    void placeBuilding(char letter, int x, int cells, int floors)
    {
        switch (letter) {
        case 'S':
            return placeStall(x, cells);
        case 'C':
            return placeClockTower(x, cells);
        default:
            const HouseStyle style = letter == 'H' ? HouseStyle::kTimber
                : letter == 'B'                    ? HouseStyle::kBrick
                                                   : HouseStyle::kShop;
            paintHouse(m_canvas, {x, m_ground, cells, floors, style, m_plan.seed + x});
        }
    }

    void placeStall(int x, int cells)
    {
        for (int i = 0; i < cells; ++i) {
            m_canvas.put(x + i, m_ground - 1, "shop_counter");
            m_canvas.put(x + i, m_ground - 2, i % 2 == 0 ? "goods_bread" : "goods_apples");
            m_canvas.put(x + i, m_ground - 4,
                         i == 0               ? "awning_l"
                             : i == cells - 1 ? "awning_r"
                                              : "awning_m");
        }
        m_canvas.put(x, m_ground - 3, "stall_post");
        m_canvas.put(x + cells - 1, m_ground - 3, "stall_post");
    }

    void placeClockTower(int x, int cells)
    {
        const int top = m_ground - 8;
        paintHouse(m_canvas, {x, m_ground, cells, 4, HouseStyle::kBrick, m_plan.seed});
        const int clock = x + cells / 2 - 1;
        for (int row = top; row < top + 4; ++row)
            for (int cell = x; cell < x + cells; ++cell)
                m_canvas.putBehind(cell, row, "brick");
        m_canvas.stamp(clock, top, {{"clock_tl", "clock_tr"}, {"clock_bl", "clock_br"}});
    }

    void placePair(int x, int y, std::string_view left, std::string_view right)
    {
        m_canvas.put(x, y, left);
        m_canvas.put(x + 1, y, right);
    }

    void placeThing(char letter, int x)
    {
        const int y = m_ground - 1;
        switch (letter) {
        case '.':
            return;
        case 'W':
            return m_canvas.stamp(
                x, y - 2, {{"well_tl", "well_tr"}, {"well_ml", "well_mr"}, {"well_bl", "well_br"}});
        case 'T':
            return m_canvas.stamp(
                x, y - 2,
                {{"tree_tl", "tree_tr"}, {"tree_bl", "tree_br"}, {"tree_trunk_l", "tree_trunk_r"}});
        case 'A':
            placePair(x, y - 2, "stone_wall_top", "stone_wall_top");
            placePair(x, y - 1, "arch_tl", "arch_tr");
            return placePair(x, y, "arch_bl", "arch_br");
        case 'l':
            m_canvas.put(x, y - 1, "street_lamp_top");
            return m_canvas.put(x, y, "street_lamp_post");
        case 't':
            m_canvas.put(x, y - 1, "potted_tree_t");
            return m_canvas.put(x, y, "potted_tree_b");
        case 'y':
            return placePair(x, y - 3, "laundry_l", "laundry_r");
        case '/':
            m_canvas.put(x, y, "stairs_up");
            m_canvas.put(x + 1, y, "stone_wall");
            return m_canvas.put(x + 1, y - 1, "stairs_up");
        case '\\':
            m_canvas.put(x, y, "stone_wall");
            m_canvas.put(x, y - 1, "stairs_down");
            return m_canvas.put(x + 1, y, "stairs_down");
        default:
            return placeSmall(letter, x, y);
        }
    }

    void placeSmall(char letter, int x, int y)
    {
        switch (letter) {
        case 'w':
            placePair(x, y - 1, "stone_wall_top", "stone_wall_top");
            return placePair(x, y, "stone_wall", "stone_wall");
        case 'h':
            return placePair(x, y, "hedge", "hedge");
        case 'b':
            return m_canvas.put(x, y, "bench");
        case 'c':
            m_canvas.put(x, y - 1, "crate");
            return placePair(x, y, "crate", "crate");
        case 'r':
            return placePair(x, y, "barrel", "barrel");
        default:
            throw DemoError(std::string("unknown thing in a street: ") + letter);
        }
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
        for (int row = 0; row < 3; ++row)
            for (int x = 2; x + 4 < m_canvas.width(); x += 2)
                if (m_dice.roll(row * 64 + x, 9) == 0 && clear(x - 2, 2 * row, 6, 3))
                    placePair(x, 2 * row, "village_cloud_l", "village_cloud_r");
    }

    RoomCanvas& m_canvas;
    const StreetPlan& m_plan;
    Dice m_dice;
    int m_ground;
};

} // namespace

void paintStreet(RoomCanvas& canvas, const StreetPlan& plan)
{
    StreetPainter(canvas, plan).paint();
}

} // namespace velko::demo
