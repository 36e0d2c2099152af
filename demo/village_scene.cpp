#include "demo/village_scene.h"

#include "demo/block_rows.h"
#include "demo/buildings.h"
#include "demo/dice.h"
#include "demo/village_things.h"

#include <algorithm>

namespace velko::demo {

namespace {

// Rows count from the lowest one above the ground.
const ThingSet kStreetThings{
    "thing in a street",
    withVillageThings(
        {{'W', -2, {{"well_tl", "well_tr"}, {"well_ml", "well_mr"}, {"well_bl", "well_br"}}},
         {'T',
          -2,
          {{"tree_tl", "tree_tr"}, {"tree_bl", "tree_br"}, {"tree_trunk_l", "tree_trunk_r"}}},
         {'A',
          -2,
          {{"stone_wall_top", "stone_wall_top"}, {"arch_tl", "arch_tr"}, {"arch_bl", "arch_br"}}},
         {'y', -3, {{"laundry_l", "laundry_r"}}},
         {'/', -1, {{"", "stairs_up"}, {"stairs_up", "stone_wall"}}},
         {'\\', -1, {{"stairs_down", ""}, {"stone_wall", "stairs_down"}}},
         {'w', -1, {{"stone_wall_top", "stone_wall_top"}, {"stone_wall", "stone_wall"}}},
         {'h', 0, {{"hedge", "hedge"}}}})};

class StreetPainter {
public:
    StreetPainter(RoomCanvas& canvas, const StreetPlan& plan)
        : m_canvas(canvas), m_plan(plan), m_dice(plan.seed), m_ground(villageGround(canvas))
    {
        const auto columns = static_cast<std::size_t>(canvas.width() / 2);
        if (plan.street.size() != columns || plan.floors.size() != columns)
            throw DemoError("a street plan needs " + std::to_string(columns)
                            + " columns: " + plan.street);
    }

    void paint()
    {
        layVillageGround(m_canvas);
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
                placeThing(m_canvas, kStreetThings, street[i], x, m_ground - 1);
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

    void paintSky()
    {
        for (int row = 0; row < 3; ++row)
            for (int x = 2; x + 4 < m_canvas.width(); x += 2)
                if (m_dice.roll(row * 64 + x, 9) == 0 && m_canvas.empty(x - 2, 2 * row, 6, 3))
                    m_canvas.stamp(x, 2 * row, {{"village_cloud_l", "village_cloud_r"}});
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
