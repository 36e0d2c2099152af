#include "demo/interior_scene.h"

namespace velko::demo {

namespace {

class InteriorPainter {
public:
    InteriorPainter(RoomCanvas& canvas, const InteriorPlan& plan)
        : m_canvas(canvas), m_plan(plan), m_ground(canvas.height() - 3)
    {
        const auto columns = static_cast<std::size_t>(canvas.width() / 2);
        if (plan.furniture.size() != columns)
            throw DemoError("an interior needs " + std::to_string(columns)
                            + " columns: " + plan.furniture);
    }

    void paint()
    {
        const int width = m_canvas.width();
        const int ceiling = m_plan.brick ? 2 : 4;
        m_canvas.fill(0, 0, width, ceiling, m_plan.brick ? "brick" : "roof_tiles");
        m_canvas.fill(0, ceiling, width, 1, "timber_beam");
        for (const int x : {0, width - 1})
            m_canvas.fill(x, ceiling, 1, m_ground - ceiling, m_plan.brick ? "brick" : "stone_wall");
        m_canvas.fill(0, m_ground, width, 1, "cobbles_top");
        m_canvas.fill(0, m_ground + 1, width, 1, "cobbles");
        m_canvas.fill(0, m_ground + 2, width, 1, "stone_wall");
        for (std::size_t i = 0; i < m_plan.furniture.size(); ++i)
            place(m_plan.furniture[i], 2 * static_cast<int>(i), m_ground - 1, ceiling);
    }

private:
    void placePair(int x, int y, std::string_view left, std::string_view right)
    {
        m_canvas.put(x, y, left);
        m_canvas.put(x + 1, y, right);
    }

    void place(char letter, int x, int y, int ceiling)
    {
        switch (letter) {
        case '.':
            return;
        case 'D':
            m_canvas.put(x, y - 1, "house_door_t");
            return m_canvas.put(x, y, "house_door_b");
        case 'o':
            return placePair(x, y - 3, "house_window", "house_window");
        case 'f':
            return placePair(x, y - 3, "window_flowers", "window_flowers");
        case 's':
            placePair(x, y, "shop_counter", "shop_counter");
            return placePair(x, y - 1, "goods_bread", "goods_apples");
        case 'K':
            m_canvas.fill(x, ceiling, 2, y - ceiling + 1, "brick");
            placePair(x, y - 5, "clock_tl", "clock_tr");
            placePair(x, y - 4, "clock_bl", "clock_br");
            return placePair(x, y, "brick_window", "brick_window");
        case 't':
            m_canvas.put(x, y - 1, "potted_tree_t");
            return m_canvas.put(x, y, "potted_tree_b");
        case 'l':
            m_canvas.put(x, y - 1, "street_lamp_top");
            return m_canvas.put(x, y, "street_lamp_post");
        case 'c':
            m_canvas.put(x, y - 1, "crate");
            return placePair(x, y, "crate", "crate");
        default:
            return placeSmall(letter, x, y, ceiling);
        }
    }

    void placeSmall(char letter, int x, int y, int ceiling)
    {
        switch (letter) {
        case 'r':
            return placePair(x, y, "barrel", "barrel");
        case 'b':
            return m_canvas.put(x, y, "bench");
        case 'k':
            return placePair(x, y, "sack", "sack");
        case 'u':
            return placePair(x, ceiling + 1, "bunting", "bunting");
        case 'y':
            return placePair(x, ceiling + 1, "laundry_l", "laundry_r");
        case 'n':
            return m_canvas.put(x, ceiling + 1, "shop_sign");
        default:
            throw DemoError(std::string("unknown furniture: ") + letter);
        }
    }

    RoomCanvas& m_canvas;
    const InteriorPlan& m_plan;
    int m_ground;
};

} // namespace

void paintInterior(RoomCanvas& canvas, const InteriorPlan& plan)
{
    InteriorPainter(canvas, plan).paint();
}

} // namespace velko::demo
