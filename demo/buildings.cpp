#include "demo/buildings.h"

#include "demo/dice.h"

namespace velko::demo {

namespace {

class HousePainter {
public:
    HousePainter(RoomCanvas& canvas, const House& house)
        : m_canvas(canvas)
        , m_house(house)
        , m_dice(house.seed)
        , m_wallTop(house.ground - 2 * house.floors)
    {
    }

    void paint()
    {
        for (int floor = 0; floor < m_house.floors; ++floor)
            paintFloor(floor);
        paintRoof();
        paintDoor();
    }

private:
    bool brick() const
    {
        return m_house.style == HouseStyle::kBrick || m_house.style == HouseStyle::kShop;
    }

    // Two rows: a beam or bricks above, windows below.
    void paintFloor(int floor)
    {
        const int y = m_house.ground - 2 * floor - 2;
        const int last = m_house.x + m_house.cells - 1;
        for (int x = m_house.x; x <= last; ++x) {
            if (brick()) {
                m_canvas.putBehind(x, y, "brick");
                m_canvas.putBehind(x, y + 1, windowHere(x, floor) ? "brick_window" : "brick");
                continue;
            }
            m_canvas.put(x, y, "timber_beam");
            const std::string_view wall = x == m_house.x ? "timber_corner_l"
                : x == last                              ? "timber_corner_r"
                                                         : "house_wall";
            m_canvas.put(x, y + 1, windowHere(x, floor) ? windowName(floor) : wall);
        }
    }

    bool windowHere(int x, int floor) const
    {
        const int place = x - m_house.x;
        return place % 2 == 1 && place != m_house.cells - 1
            && !(floor == 0 && place / 2 == doorColumn() / 2);
    }

    std::string_view windowName(int floor) const
    {
        const bool flowers = floor > 0 || m_dice.roll(5, 2) == 0;
        return flowers && m_canvas.tileset().has("window_flowers") ? "window_flowers"
                                                                   : "house_window";
    }

    // Cells from the left wall; even, so that the door stays within one block.
    int doorColumn() const { return m_house.cells / 4 * 2; }

    void paintDoor()
    {
        const int x = m_house.x + doorColumn();
        m_canvas.put(x, m_house.ground - 2, "house_door_t");
        m_canvas.put(x, m_house.ground - 1, "house_door_b");
        if (m_house.style != HouseStyle::kShop)
            return;
        for (int i = 0; i < m_house.cells; ++i) {
            const std::string_view part = i == 0 ? "awning_l"
                : i == m_house.cells - 1         ? "awning_r"
                                                 : "awning_m";
            if (i != doorColumn())
                m_canvas.put(m_house.x + i, m_house.ground - 2, part);
        }
        m_canvas.put(m_house.x + m_house.cells - 1, m_house.ground - 1, "goods_apples");
    }

    // Rows narrowing upwards to the ridge, the lowest one cell wider than the walls.
    void paintRoof()
    {
        const int rows = 2;
        for (int row = 0; row < rows; ++row) {
            const bool ridge = row == rows - 1;
            const int left = m_house.x - 1 + row;
            const int right = m_house.x + m_house.cells - row;
            const int y = m_wallTop - 1 - row;
            for (int x = left + 1; x < right; ++x)
                m_canvas.put(x, y, ridge ? "ridge_m" : "house_roof_m");
            m_canvas.put(left, y, ridge ? "ridge_l" : "house_roof_l");
            m_canvas.put(right, y, ridge ? "ridge_r" : "house_roof_r");
        }
        const int chimney = m_house.x + m_house.cells - 2;
        m_canvas.put(chimney, m_wallTop - rows - 1, "chimney");
        if (m_house.cells >= 6 && m_canvas.tileset().has("roof_dormer"))
            m_canvas.put(m_house.x + 2, m_wallTop - 1, "roof_dormer");
    }

    RoomCanvas& m_canvas;
    const House& m_house;
    Dice m_dice;
    int m_wallTop;
};

} // namespace

void paintHouse(RoomCanvas& canvas, const House& house)
{
    HousePainter(canvas, house).paint();
}

} // namespace velko::demo
