#pragma once

#include "demo/dice.h"
#include "demo/gallery.h"
#include "demo/things.h"

#include <string>
#include <string_view>

namespace velko::demo {

// One column of 2 cells of a gallery, between its floor and its ceiling.
struct Niche {
    int x = 0;       // its left cell
    int floor = 0;   // lowest row above the floor
    int ceiling = 0; // highest row below the ceiling
};

// Paints a room of galleries; a kind of room derives from it and says what things look like.
class GalleryPainter {
public:
    // What shows where a thing that hangs and one that stands meet.
    enum class Front { kStanding, kHanging };

    // `hanging` is what can hang from the ceilings. It must outlive the painter. Throws DemoError
    // when the plan does not fit a room of the canvas's width.
    GalleryPainter(RoomCanvas& canvas, const GalleryPlan& plan, const ThingSet& hanging,
                   Front front);
    virtual ~GalleryPainter() = default;

    // Throws DemoError when the plan asks for what this kind of room does not have.
    void paint();

protected:
    // The block's name, or nothing to leave the cell empty.
    virtual std::string_view blockFor(int x, int y) const = 0;
    virtual void paintLedge(const Ledge& ledge) = 0;
    // Called only where the niche is open above its floor.
    virtual void placeStanding(const std::string& things, std::size_t column,
                               const Niche& niche) = 0;

    RoomCanvas& canvas() { return m_canvas; }
    const GalleryGrid& grid() const { return m_grid; }
    // 0 to sides - 1, the same for all four cells of a block. Blocks have one such number per
    // `series`.
    int rollForBlock(int x, int y, int sides, int series = 0) const;

private:
    void paintCells();
    void placeThings(int gallery);
    void placeStandingIfOpen(const Gallery& texts, std::size_t column, const Niche& niche);

    RoomCanvas& m_canvas;
    const GalleryPlan& m_plan;
    GalleryGrid m_grid;
    Dice m_dice;
    const ThingSet& m_hanging;
    Front m_front;
};

} // namespace velko::demo
