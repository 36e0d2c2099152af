#include "demo/interior_scene.h"

#include "demo/village_things.h"

namespace velko::demo {

namespace {

// Rows count from the lowest one above the floor.
const ThingSet kFurniture{
    "furniture",
    withVillageThings(
        {{'D', -1, {{"house_door_t"}, {"house_door_b"}}},
         {'o', -3, {{"house_window", "house_window"}}},
         {'f', -3, {{"window_flowers", "window_flowers"}}},
         {'s', -1, {{"goods_bread", "goods_apples"}, {"shop_counter", "shop_counter"}}},
         {'k', 0, {{"sack", "sack"}}}})};

class InteriorPainter {
public:
    InteriorPainter(RoomCanvas& canvas, const InteriorPlan& plan)
        : m_canvas(canvas)
        , m_plan(plan)
        , m_ground(villageGround(canvas))
        , m_beam(plan.brick ? 2 : 4)
    {
        const auto columns = static_cast<std::size_t>(canvas.width() / 2);
        if (plan.furniture.size() != columns)
            throw DemoError("an interior needs " + std::to_string(columns)
                            + " columns: " + plan.furniture);
    }

    void paint()
    {
        const int width = m_canvas.width();
        m_canvas.fill(0, 0, width, m_beam, m_plan.brick ? "brick" : "roof_tiles");
        m_canvas.fill(0, m_beam, width, 1, "timber_beam");
        for (const int x : {0, width - 1})
            m_canvas.fill(x, m_beam, 1, m_ground - m_beam, m_plan.brick ? "brick" : "stone_wall");
        layVillageGround(m_canvas);
        for (std::size_t i = 0; i < m_plan.furniture.size(); ++i)
            place(m_plan.furniture[i], 2 * static_cast<int>(i));
    }

private:
    void place(char letter, int x)
    {
        switch (letter) {
        case 'K':
            return placeFireplace(x);
        case 'u':
            return m_canvas.stamp(x, m_beam + 1, {{"bunting", "bunting"}});
        case 'y':
            return m_canvas.stamp(x, m_beam + 1, {{"laundry_l", "laundry_r"}});
        case 'n':
            return m_canvas.put(x, m_beam + 1, "shop_sign");
        default:
            return placeThing(m_canvas, kFurniture, letter, x, m_ground - 1);
        }
    }

    void placeFireplace(int x)
    {
        m_canvas.fill(x, m_beam, 2, m_ground - m_beam, "brick");
        m_canvas.stamp(x, m_ground - 6, {{"clock_tl", "clock_tr"}, {"clock_bl", "clock_br"}});
        m_canvas.stamp(x, m_ground - 1, {{"brick_window", "brick_window"}});
    }

    RoomCanvas& m_canvas;
    const InteriorPlan& m_plan;
    int m_ground; // first row of the floor
    int m_beam;   // row of the beam under the ceiling
};

} // namespace

void paintInterior(RoomCanvas& canvas, const InteriorPlan& plan)
{
    InteriorPainter(canvas, plan).paint();
}

} // namespace velko::demo
