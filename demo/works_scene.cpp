#include "demo/works_scene.h"

#include "demo/dice.h"

namespace velko::demo {

namespace {

class WorksPainter {
public:
    WorksPainter(RoomCanvas& canvas, const GalleryPlan& plan)
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
            paintLedge(ledge);
        for (std::size_t g = 0; g < m_plan.galleries.size(); ++g)
            placeAll(static_cast<int>(g));
    }

private:
    void paintLedge(const Ledge& ledge)
    {
        m_canvas.fill(ledge.x, ledge.y, ledge.cells, 1, "girder_h");
        m_canvas.put(ledge.x, ledge.y, "girder_joint");
        m_canvas.put(ledge.x + ledge.cells - 1, ledge.y, "girder_joint");
    }

    void paintCell(int x, int y)
    {
        switch (m_grid.at(x, y)) {
        case Fill::kOpen:
            return paintOpen(x, y);
        case Fill::kSolid:
            return m_canvas.put(x, y, plateFor(x, y));
        case Fill::kSlopeUp:
        case Fill::kSlopeDown:
            throw DemoError("no slopes in the works");
        case Fill::kSurface:
        case Fill::kLiquid:
            return m_canvas.put(x, y, "girder_v");
        case Fill::kBridge:
            return m_canvas.put(x, y, "grating");
        }
    }

    bool roofed(int x, int y) const
    {
        return m_grid.ceilingRow(y / kScreenRows, x / 2) > y / kScreenRows * kScreenRows
            || y >= kScreenRows;
    }

    void paintOpen(int x, int y)
    {
        if (m_grid.ladder(x, y))
            return m_canvas.put(x, y, "works_ladder");
        if (!roofed(x, y))
            return;
        const int row = y % kScreenRows;
        const int kind = m_dice.roll(row / 2 * 512 + y / kScreenRows * 4096 + x / 2, 7);
        if (kind == 0)
            m_canvas.put(x, y, "wall_brick_dim");
        else if (kind < 3 && x % 2 == 0 && row % 2 == 0)
            m_canvas.put(x, y, "wall_dim");
    }

    std::string_view plateFor(int x, int y) const
    {
        if (m_grid.open(x, y - 1))
            return "plate_top";
        const int row = y % kScreenRows;
        if (x % 2 == 1 && row % 2 == 0
            && m_dice.roll(8192 + row / 2 * 512 + y / kScreenRows * 4096 + x / 2, 4) == 0)
            return "plate_vent";
        return "plate";
    }

    void placeAll(int gallery)
    {
        const Gallery& texts = m_plan.galleries[static_cast<std::size_t>(gallery)];
        for (int column = 0; column < m_grid.columns(); ++column) {
            const auto i = static_cast<std::size_t>(column);
            const int floor = m_grid.floorRow(gallery, column);
            const int ceiling = m_grid.ceilingRow(gallery, column);
            placeHanging(texts.hanging[i], 2 * column, ceiling);
            if (texts.things[i] == 'b')
                placeBelt(texts.things, column, floor - 1);
            else
                placeThing(texts.things[i], 2 * column, floor - 1, ceiling);
        }
    }

    void placeBelt(const std::string& things, int column, int y)
    {
        const auto i = static_cast<std::size_t>(column);
        const bool first = i == 0 || things[i - 1] != 'b';
        const bool last = i + 1 == things.size() || things[i + 1] != 'b';
        m_canvas.put(2 * column, y, first ? "belt_l" : "belt_m");
        m_canvas.put(2 * column + 1, y, last ? "belt_r" : "belt_m");
    }

    void placePair(int x, int y, std::string_view left, std::string_view right)
    {
        m_canvas.put(x, y, left);
        m_canvas.put(x + 1, y, right);
    }

    // A 2x2 picture whose parts are named NAME_tl to NAME_br.
    void placeQuad(int x, int y, const std::string& name)
    {
        placePair(x, y, name + "_tl", name + "_tr");
        placePair(x, y + 1, name + "_bl", name + "_br");
    }

    void placeThing(char letter, int x, int y, int ceiling)
    {
        if (!m_grid.open(x, y)) // nothing stands where floor and ceiling meet
            return;
        switch (letter) {
        case '.':
            return;
        case 'B':
            placePair(x, y - 2, "boiler_tl", "boiler_tr");
            placePair(x, y - 1, "boiler_ml", "boiler_mr");
            return placePair(x, y, "boiler_bl", "boiler_br");
        case 'F':
            return placeQuad(x, y - 1, "furnace");
        case 'G':
            return placeQuad(x, y - 5, "gear");
        case 'P':
            return placeQuad(x, y - 3, "panel");
        case 'W':
            return placeQuad(x, y - 5, "window");
        case 'D':
            m_canvas.put(x, y - 1, "works_door_t");
            return m_canvas.put(x, y, "works_door_b");
        case 'S':
            return placeStack(x, y, ceiling);
        case '|':
            m_canvas.fill(x, ceiling, 1, y - ceiling + 1, "pipe_v");
            return m_canvas.put(x, y - 3, "pipe_v_joint");
        default:
            return placeSmall(letter, x, y);
        }
    }

    // Up to the ceiling, or some way into the sky.
    void placeStack(int x, int y, int ceiling)
    {
        const bool sky = ceiling % kScreenRows == 0;
        const int top = sky ? y - 5 : ceiling;
        m_canvas.fill(x, top, 1, y - top + 1, "stack");
        if (!sky)
            return;
        m_canvas.put(x, top, "stack_top");
        placePair(x, top - 1, "smoke_l", "smoke_r");
    }

    void placeSmall(char letter, int x, int y)
    {
        switch (letter) {
        case 'd':
            return placePair(x, y, "oil_drum", "oil_drum");
        case 'p':
            m_canvas.put(x, y - 1, "piston_t");
            return m_canvas.put(x, y, "piston_b");
        case 's':
            return m_canvas.put(x, y, "steam_jet");
        case 'f':
            return m_canvas.put(x, y - 4, "fan");
        case 'z':
            return placePair(x, y, "hazard", "hazard");
        case 'r':
            return placePair(x, y, "railing", "railing");
        case 'R':
            return m_canvas.put(x, y, "signal_red");
        default:
            throw DemoError(std::string("unknown thing in the works: ") + letter);
        }
    }

    void placeHanging(char letter, int x, int y)
    {
        if (!m_grid.open(x, y))
            return;
        switch (letter) {
        case '.':
            return;
        case 'L':
            return m_canvas.put(x, y, "works_lamp");
        case 'k':
            m_canvas.fill(x, y, 1, 3, "chain");
            return m_canvas.put(x, y + 3, "chain_hook");
        case '-':
            return placePair(x, y, "pipe_h", "pipe_h");
        case '+':
            return placePair(x, y, "pipe_h", "pipe_h_joint");
        case 'V':
            return placePair(x, y, "pipe_valve", "pipe_h");
        default:
            throw DemoError(std::string("unknown thing hanging in the works: ") + letter);
        }
    }

    RoomCanvas& m_canvas;
    const GalleryPlan& m_plan;
    GalleryGrid m_grid;
    Dice m_dice;
};

} // namespace

void paintWorks(RoomCanvas& canvas, const GalleryPlan& plan)
{
    WorksPainter(canvas, plan).paint();
}

} // namespace velko::demo
