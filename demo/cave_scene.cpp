#include "demo/cave_scene.h"

#include "demo/gallery_painter.h"

namespace velko::demo {

namespace {

// Things that stand: their lowest row lies on the floor.
const ThingSet kStanding{
    "thing in a cave",
    {{'s', -1, {{"stalagmite_t"}, {"stalagmite_b"}}},
     {'X', -1, {{"crystal_tl", "crystal_tr"}, {"crystal_bl", "crystal_br"}}},
     {'M', -1, {{"mushroom_tl", "mushroom_tr"}, {"mushroom_bl", "mushroom_br"}}},
     {'C', -1, {{"cart_load", "cart_load"}, {"mine_cart_l", "mine_cart_r"}}},
     {'D',
      -2,
      {{"mine_joint", "mine_joint"}, {"mine_post", "mine_post"}, {"mine_post", "mine_post"}}},
     {'c', 0, {{"mine_crate"}}},
     {'_', 0, {{"rails", "rails"}}},
     {'n', 0, {{"cave_sign"}}},
     {'t', -2, {{"mine_torch"}}}}};

const ThingSet kHanging{"thing hanging in a cave",
                        {{'s', 0, {{"stalactite_t"}, {"stalactite_b"}}},
                         {'S', 0, {{"stalactites", "stalactites"}}},
                         {'l', 0, {{"hanging_lantern"}}},
                         {'w', 0, {{"web"}}},
                         {'r', 0, {{"rope"}, {"rope"}, {"rope"}, {"rope"}}}}};

class CavePainter final : public GalleryPainter {
public:
    // Lanterns hang on columns.
    CavePainter(RoomCanvas& canvas, const GalleryPlan& plan)
        : GalleryPainter(canvas, plan, kHanging, Front::kHanging)
    {
    }

private:
    std::string_view blockFor(int x, int y) const override
    {
        switch (grid().at(x, y)) {
        case Fill::kOpen:
            return grid().ladder(x, y) ? "cave_ladder" : farWall(x, y);
        case Fill::kSolid:
            return rockFor(x, y);
        case Fill::kSlopeUp:
            return "cave_slope_up";
        case Fill::kSlopeDown:
            return "cave_slope_down";
        case Fill::kSurface:
            return grid().fiery(x) ? "lava_top" : "pool_top";
        case Fill::kLiquid:
            return grid().fiery(x) ? "lava" : "pool";
        case Fill::kBridge:
            return "rope_bridge";
        }
        return {};
    }

    // It shows in a few blocks, always in the same two cells.
    std::string_view farWall(int x, int y) const
    {
        if (rollForBlock(x, y, 5) != 0)
            return {};
        const int row = y % kScreenRows;
        if (x % 2 == 0 && row % 2 == 1)
            return "cave_back";
        return x % 2 == 1 && row % 2 == 0 ? "cave_back_dim" : std::string_view();
    }

    std::string_view rockFor(int x, int y) const
    {
        const bool left = grid().open(x - 1, y);
        const bool right = grid().open(x + 1, y);
        if (grid().open(x, y - 1))
            return left ? "cave_rock_tl" : right ? "cave_rock_tr" : "cave_rock_t";
        if (grid().open(x, y + 1))
            return left ? "cave_rock_bl" : right ? "cave_rock_br" : "cave_rock_b";
        if (left || right)
            return left ? "cave_rock_l" : "cave_rock_r";
        if (grid().open(x - 1, y - 1))
            return "cave_rock_itl";
        if (grid().open(x + 1, y - 1))
            return "cave_rock_itr";
        if (grid().open(x - 1, y + 1))
            return "cave_rock_ibl";
        if (grid().open(x + 1, y + 1))
            return "cave_rock_ibr";
        return innerRock(x, y);
    }

    // Deep in the rock: darker patches and gems, at the same place of a block each time.
    std::string_view innerRock(int x, int y) const
    {
        const int row = y % kScreenRows;
        const int kind = rollForBlock(x, y, 9, 1);
        if (x % 2 == 0 && row % 2 == 0 && kind < 3)
            return "cave_rock_dim";
        if (x % 2 == 1 && row % 2 == 0 && kind == 8)
            return "rock_gems";
        return "cave_rock";
    }

    void paintLedge(const Ledge& ledge) override
    {
        canvas().fill(ledge.x, ledge.y, ledge.cells, 1, "cave_ledge");
    }

    void placeStanding(const std::string& things, std::size_t column, const Niche& niche) override
    {
        const int x = niche.x;
        const int y = niche.floor;
        switch (things[column]) {
        case 'O':
            return canvas().fill(x, niche.ceiling, 1, y - niche.ceiling + 1, "cave_column");
        case 'r':
            return canvas().put(x + 1, y, x % 4 == 0 ? "rubble" : "rubble~");
        case 'x':
            return canvas().put(x, y, x % 4 == 0 ? "crystal_small" : "crystal_small~");
        case 'g':
            return canvas().put(x, y, x % 4 == 0 ? "glow_mushrooms" : "glow_mushrooms~");
        default:
            return placeThing(canvas(), kStanding, things[column], x, y);
        }
    }
};

} // namespace

void paintCave(RoomCanvas& canvas, const GalleryPlan& plan)
{
    CavePainter(canvas, plan).paint();
}

} // namespace velko::demo
