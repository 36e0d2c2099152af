#include "demo/works_scene.h"

#include "demo/gallery_painter.h"

namespace velko::demo {

namespace {

// Things that stand or hang on the wall behind: rows count from the lowest one above the floor.
const ThingSet kStanding{
    "thing in the works",
    {{'B',
      -2,
      {{"boiler_tl", "boiler_tr"}, {"boiler_ml", "boiler_mr"}, {"boiler_bl", "boiler_br"}}},
     {'F', -1, {{"furnace_tl", "furnace_tr"}, {"furnace_bl", "furnace_br"}}},
     {'G', -5, {{"gear_tl", "gear_tr"}, {"gear_bl", "gear_br"}}},
     {'P', -3, {{"panel_tl", "panel_tr"}, {"panel_bl", "panel_br"}}},
     {'W', -5, {{"window_tl", "window_tr"}, {"window_bl", "window_br"}}},
     {'D', -1, {{"works_door_t"}, {"works_door_b"}}},
     {'d', 0, {{"oil_drum", "oil_drum"}}},
     {'p', -1, {{"piston_t"}, {"piston_b"}}},
     {'s', 0, {{"steam_jet"}}},
     {'f', -4, {{"fan"}}},
     {'z', 0, {{"hazard", "hazard"}}},
     {'r', 0, {{"railing", "railing"}}},
     {'R', 0, {{"signal_red"}}}}};

const ThingSet kHanging{"thing hanging in the works",
                        {{'L', 0, {{"works_lamp"}}},
                         {'k', 0, {{"chain"}, {"chain"}, {"chain"}, {"chain_hook"}}},
                         {'-', 0, {{"pipe_h", "pipe_h"}}},
                         {'+', 0, {{"pipe_h", "pipe_h_joint"}}},
                         {'V', 0, {{"pipe_valve", "pipe_h"}}}}};

class WorksPainter final : public GalleryPainter {
public:
    // Pipes go up in front of the lamps.
    WorksPainter(RoomCanvas& canvas, const GalleryPlan& plan)
        : GalleryPainter(canvas, plan, kHanging, Front::kStanding)
    {
    }

private:
    std::string_view blockFor(int x, int y) const override
    {
        switch (grid().at(x, y)) {
        case Fill::kOpen:
            return grid().ladder(x, y) ? "works_ladder" : farWall(x, y);
        case Fill::kSolid:
            return plateFor(x, y);
        case Fill::kSlopeUp:
        case Fill::kSlopeDown:
            throw DemoError("no slopes in the works");
        case Fill::kSurface:
        case Fill::kLiquid:
            return "girder_v";
        case Fill::kBridge:
            return "grating";
        }
        return {};
    }

    bool roofed(int x, int y) const
    {
        return grid().ceilingRow(y / kScreenRows, x / 2) > y / kScreenRows * kScreenRows
            || y >= kScreenRows;
    }

    std::string_view farWall(int x, int y) const
    {
        if (!roofed(x, y))
            return {};
        const int kind = rollForBlock(x, y, 7);
        if (kind == 0)
            return "wall_brick_dim";
        return kind < 3 && x % 2 == 0 && y % kScreenRows % 2 == 0 ? "wall_dim" : std::string_view();
    }

    std::string_view plateFor(int x, int y) const
    {
        if (grid().open(x, y - 1))
            return "plate_top";
        const bool vent = x % 2 == 1 && y % kScreenRows % 2 == 0 && rollForBlock(x, y, 4, 1) == 0;
        return vent ? "plate_vent" : "plate";
    }

    void paintLedge(const Ledge& ledge) override
    {
        canvas().fill(ledge.x, ledge.y, ledge.cells, 1, "girder_h");
        canvas().put(ledge.x, ledge.y, "girder_joint");
        canvas().put(ledge.x + ledge.cells - 1, ledge.y, "girder_joint");
    }

    void placeStanding(const std::string& things, std::size_t column, const Niche& niche) override
    {
        switch (things[column]) {
        case 'b':
            return placeBelt(things, column, niche);
        case 'S':
            return placeStack(niche);
        case '|':
            canvas().fill(niche.x, niche.ceiling, 1, niche.floor - niche.ceiling + 1, "pipe_v");
            return canvas().put(niche.x, niche.floor - 3, "pipe_v_joint");
        default:
            return placeThing(canvas(), kStanding, things[column], niche.x, niche.floor);
        }
    }

    void placeBelt(const std::string& things, std::size_t column, const Niche& niche)
    {
        const bool first = column == 0 || things[column - 1] != 'b';
        const bool last = column + 1 == things.size() || things[column + 1] != 'b';
        canvas().put(niche.x, niche.floor, first ? "belt_l" : "belt_m");
        canvas().put(niche.x + 1, niche.floor, last ? "belt_r" : "belt_m");
    }

    // Up to the ceiling, or some way into the sky.
    void placeStack(const Niche& niche)
    {
        const bool sky = niche.ceiling % kScreenRows == 0;
        const int top = sky ? niche.floor - 5 : niche.ceiling;
        canvas().fill(niche.x, top, 1, niche.floor - top + 1, "stack");
        if (sky)
            canvas().stamp(niche.x, top - 1, {{"smoke_l", "smoke_r"}, {"stack_top"}});
    }
};

} // namespace

void paintWorks(RoomCanvas& canvas, const GalleryPlan& plan)
{
    WorksPainter(canvas, plan).paint();
}

} // namespace velko::demo
