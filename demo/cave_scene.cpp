#include "demo/cave_scene.h"

#include "demo/dice.h"

namespace velko::demo {

namespace {

class CavePainter {
public:
    CavePainter(RoomCanvas& canvas, const GalleryPlan& plan)
        : m_canvas(canvas)
        , m_plan(plan)
        , m_grid(canvas.screenColumns(), plan)
        , m_dice(static_cast<std::uint32_t>(plan.seed))
    {
    }

    void paint()
    {
        for (int y = 0; y < m_grid.height(); ++y)
            for (int x = 0; x < m_grid.width(); ++x)
                paintCell(x, y);
        for (const Ledge& ledge : m_plan.ledges)
            m_canvas.fill(ledge.x, ledge.y, ledge.cells, 1, "cave_ledge");
        for (std::size_t g = 0; g < m_plan.galleries.size(); ++g)
            placeAll(static_cast<int>(g));
    }

private:
    void paintCell(int x, int y)
    {
        switch (m_grid.at(x, y)) {
        case Fill::kOpen:
            return paintOpen(x, y);
        case Fill::kSolid:
            return m_canvas.put(x, y, rockFor(x, y));
        case Fill::kSlopeUp:
            return m_canvas.put(x, y, "cave_slope_up");
        case Fill::kSlopeDown:
            return m_canvas.put(x, y, "cave_slope_down");
        case Fill::kSurface:
            return m_canvas.put(x, y, m_grid.fiery(x) ? "lava_top" : "pool_top");
        case Fill::kLiquid:
            return m_canvas.put(x, y, m_grid.fiery(x) ? "lava" : "pool");
        case Fill::kBridge:
            return m_canvas.put(x, y, "rope_bridge");
        }
    }

    // The far wall shows in a few blocks, always in the same two cells.
    void paintOpen(int x, int y)
    {
        if (m_grid.ladder(x, y))
            return m_canvas.put(x, y, "cave_ladder");
        const int row = y % kScreenRows;
        if (m_dice.roll(row / 2 * 512 + y / kScreenRows * 4096 + x / 2, 5) != 0)
            return;
        if (x % 2 == 0 && row % 2 == 1)
            m_canvas.put(x, y, "cave_back");
        else if (x % 2 == 1 && row % 2 == 0)
            m_canvas.put(x, y, "cave_back_dim");
    }

    std::string_view rockFor(int x, int y) const
    {
        const bool left = m_grid.open(x - 1, y);
        const bool right = m_grid.open(x + 1, y);
        if (m_grid.open(x, y - 1))
            return left ? "cave_rock_tl" : right ? "cave_rock_tr" : "cave_rock_t";
        if (m_grid.open(x, y + 1))
            return left ? "cave_rock_bl" : right ? "cave_rock_br" : "cave_rock_b";
        if (left || right)
            return left ? "cave_rock_l" : "cave_rock_r";
        if (m_grid.open(x - 1, y - 1))
            return "cave_rock_itl";
        if (m_grid.open(x + 1, y - 1))
            return "cave_rock_itr";
        if (m_grid.open(x - 1, y + 1))
            return "cave_rock_ibl";
        if (m_grid.open(x + 1, y + 1))
            return "cave_rock_ibr";
        return innerRock(x, y);
    }

    // Deep in the rock: darker patches and gems, at the same place of a block each time.
    std::string_view innerRock(int x, int y) const
    {
        const int row = y % kScreenRows;
        const int kind = m_dice.roll(8192 + row / 2 * 512 + y / kScreenRows * 4096 + x / 2, 9);
        if (x % 2 == 0 && row % 2 == 0 && kind < 3)
            return "cave_rock_dim";
        if (x % 2 == 1 && row % 2 == 0 && kind == 8)
            return "rock_gems";
        return "cave_rock";
    }

    void placeAll(int gallery)
    {
        const Gallery& texts = m_plan.galleries[static_cast<std::size_t>(gallery)];
        for (int column = 0; column < m_grid.columns(); ++column) {
            const auto i = static_cast<std::size_t>(column);
            placeThing(texts.things[i], 2 * column, m_grid.floorRow(gallery, column) - 1,
                       m_grid.ceilingRow(gallery, column));
            placeHanging(texts.hanging[i], 2 * column, m_grid.ceilingRow(gallery, column));
        }
    }

    void placePair(int x, int y, std::string_view left, std::string_view right)
    {
        m_canvas.put(x, y, left);
        m_canvas.put(x + 1, y, right);
    }

    void placeThing(char letter, int x, int y, int ceiling)
    {
        if (!m_grid.open(x, y)) // nothing stands where floor and ceiling meet
            return;
        switch (letter) {
        case '.':
            return;
        case 's':
            m_canvas.put(x, y - 1, "stalagmite_t");
            return m_canvas.put(x, y, "stalagmite_b");
        case 'O':
            return m_canvas.fill(x, ceiling, 1, y - ceiling + 1, "cave_column");
        case 'X':
            placePair(x, y - 1, "crystal_tl", "crystal_tr");
            return placePair(x, y, "crystal_bl", "crystal_br");
        case 'M':
            placePair(x, y - 1, "mushroom_tl", "mushroom_tr");
            return placePair(x, y, "mushroom_bl", "mushroom_br");
        case 'C':
            placePair(x, y - 1, "cart_load", "cart_load");
            return placePair(x, y, "mine_cart_l", "mine_cart_r");
        case 'D':
            placePair(x, y - 2, "mine_joint", "mine_joint");
            placePair(x, y - 1, "mine_post", "mine_post");
            return placePair(x, y, "mine_post", "mine_post");
        default:
            return placeSmall(letter, x, y);
        }
    }

    void placeSmall(char letter, int x, int y)
    {
        switch (letter) {
        case 'r':
            return m_canvas.put(x + 1, y, x % 4 == 0 ? "rubble" : "rubble~");
        case 'x':
            return m_canvas.put(x, y, x % 4 == 0 ? "crystal_small" : "crystal_small~");
        case 'g':
            return m_canvas.put(x, y, x % 4 == 0 ? "glow_mushrooms" : "glow_mushrooms~");
        case 'c':
            return m_canvas.put(x, y, "mine_crate");
        case '_':
            return placePair(x, y, "rails", "rails");
        case 'n':
            return m_canvas.put(x, y, "cave_sign");
        case 't':
            return m_canvas.put(x, y - 2, "mine_torch");
        default:
            throw DemoError(std::string("unknown thing in a cave: ") + letter);
        }
    }

    void placeHanging(char letter, int x, int y)
    {
        if (!m_grid.open(x, y))
            return;
        switch (letter) {
        case '.':
            return;
        case 's':
            m_canvas.put(x, y, "stalactite_t");
            return m_canvas.put(x, y + 1, "stalactite_b");
        case 'S':
            return placePair(x, y, "stalactites", "stalactites");
        case 'l':
            return m_canvas.put(x, y, "hanging_lantern");
        case 'w':
            return m_canvas.put(x, y, "web");
        case 'r':
            return m_canvas.fill(x, y, 1, 4, "rope");
        default:
            throw DemoError(std::string("unknown thing hanging in a cave: ") + letter);
        }
    }

    RoomCanvas& m_canvas;
    const GalleryPlan& m_plan;
    GalleryGrid m_grid;
    Dice m_dice;
};

} // namespace

void paintCave(RoomCanvas& canvas, const GalleryPlan& plan)
{
    CavePainter(canvas, plan).paint();
}

} // namespace velko::demo
