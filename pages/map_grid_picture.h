#pragma once

#include "gfx/pixel_image.h"
#include "gfx/view_scroll.h"
#include "pages/map_layout_model.h"
#include "state/editor_state.h"

#include <cstdint>
#include <map>

namespace velko {

// The map as a grid of reduced screens, each with its position in the screen list written on it.
// Cells are as large as lets the whole map be seen, down to the size at which the number still
// fits; a larger map is scrolled, and only what shows is drawn.
//
// Each distinct screen is drawn once after refresh(), however many cells show it and however often
// the picture is drawn. Whatever changes screens, the screen list or the palette needs a
// refresh(); a change of cells or of the selection does not.
class MapGridPicture {
public:
    // Pixels from one cell to the next. A cell keeps the shape of a screen, 16 to 15.
    struct Pitch {
        int width = 0;
        int height = 0;

        bool operator==(const Pitch&) const = default;
    };
    static constexpr Pitch kSmallestPitch{48, 45};
    static constexpr Pitch kLargestPitch{128, 120};

    MapGridPicture(const EditorState& state, const MapLayoutModel& model);

    // The pixels that the window keeps for the grid. Negative sizes count as 0.
    void setViewSize(int width, int height);
    // Forgets the screens that were drawn.
    void refresh();

    // The largest pitch that shows the whole map, else the smallest.
    Pitch pitch() const;
    ViewScroll horizontalScroll() const;
    ViewScroll verticalScroll() const;
    // Stops at the map's edges. A map that became smaller shows as near to it as it can.
    void scrollTo(int x, int y);
    // Scrolls as little as shows the whole selected cell, if the view is that large.
    void scrollToSelectedCell();

    // Gives the image the size of what shows, and draws it with a frame around the selected cell.
    // Without a map the image becomes 0 x 0.
    void draw(PixelImage& image);

    // The cell at a point of the drawn picture; outside the map the nearest one.
    MapCell cellAt(int x, int y) const;

private:
    void drawCells(PixelImage& image);
    const PixelImage& cellPicture(std::uint8_t value);
    PixelImage renderCell(std::uint8_t value, Pitch size) const;

    const EditorState& m_state;
    const MapLayoutModel& m_model;
    int m_viewWidth = 0;
    int m_viewHeight = 0;
    int m_scrollX = 0; // where the user scrolled to
    int m_scrollY = 0;
    std::uint32_t m_screenCount = 0;
    std::map<std::uint8_t, PixelImage> m_cells; // by cell value, of the pitch m_cellPitch
    Pitch m_cellPitch;
};

} // namespace velko
