#include "demo/gallery_painter.h"

namespace velko::demo {

GalleryPainter::GalleryPainter(RoomCanvas& canvas, const GalleryPlan& plan, const ThingSet& hanging,
                               Front front)
    : m_canvas(canvas)
    , m_plan(plan)
    , m_grid(canvas.screenColumns(), plan)
    , m_dice(plan.seed)
    , m_hanging(hanging)
    , m_front(front)
{
}

void GalleryPainter::paint()
{
    paintCells();
    for (const Ledge& ledge : m_plan.ledges)
        paintLedge(ledge);
    for (std::size_t g = 0; g < m_plan.galleries.size(); ++g)
        placeThings(static_cast<int>(g));
}

int GalleryPainter::rollForBlock(int x, int y, int sides, int series) const
{
    const int blockRow = y % kScreenRows / 2;
    return m_dice.roll(series * 8192 + y / kScreenRows * 4096 + blockRow * 512 + x / 2, sides);
}

void GalleryPainter::paintCells()
{
    for (int y = 0; y < m_grid.height(); ++y) {
        for (int x = 0; x < m_grid.width(); ++x) {
            const std::string_view block = blockFor(x, y);
            if (!block.empty())
                m_canvas.put(x, y, block);
        }
    }
}

void GalleryPainter::placeThings(int gallery)
{
    const Gallery& texts = m_plan.galleries[static_cast<std::size_t>(gallery)];
    for (int column = 0; column < m_grid.columns(); ++column) {
        const auto i = static_cast<std::size_t>(column);
        const Niche niche{2 * column, m_grid.floorRow(gallery, column) - 1,
                          m_grid.ceilingRow(gallery, column)};
        if (m_front == Front::kHanging)
            placeStandingIfOpen(texts, i, niche);
        if (m_grid.open(niche.x, niche.ceiling))
            placeThing(m_canvas, m_hanging, texts.hanging[i], niche.x, niche.ceiling);
        if (m_front == Front::kStanding)
            placeStandingIfOpen(texts, i, niche);
    }
}

void GalleryPainter::placeStandingIfOpen(const Gallery& texts, std::size_t column,
                                         const Niche& niche)
{
    if (m_grid.open(niche.x, niche.floor)) // nothing stands where floor and ceiling meet
        placeStanding(texts.things, column, niche);
}

} // namespace velko::demo
