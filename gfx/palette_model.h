#pragma once

#include "gfx/pixel_image.h"
#include "gfx/view_scroll.h"
#include "state/editor_state.h"

#include <cstdint>
#include <optional>

namespace velko {

// The room's 32 palette bytes, the one that is being changed, and the pictures that show them.
// Entries 0-15 are the four background sets, 16-31 the four sprite sets, four bytes each. A byte
// is a NES colour number of which the game uses the low 6 bits; the upper two are kept as they
// are until the entry is written.
//
// Every change goes straight into the ROM image, and every query reads it again. Where the room's
// block lies past the end of the image, entries read as its filler and writes are dropped.
class PaletteModel {
public:
    static constexpr int kEntries = 32;
    static constexpr std::uint8_t kBlack = 0x0F; // unlike 0x0D, a black that televisions bear

    // The picture of the entries: one column of background sets, one of sprite sets.
    static constexpr int kSwatchSize = 28; // pixels
    static constexpr int kSwatchColumns = 2;
    static constexpr int kSwatchRows = 16;
    // The picture of all colours, a row per brightness, in the console's usual order.
    static constexpr int kCellWidth = 20;
    static constexpr int kCellHeight = 28;
    static constexpr int kGridColumns = 16;
    static constexpr int kGridRows = 4;
    // The swatch of the selected entry.
    static constexpr int kSelectedColourSize = 48;
    // The preview moves from metatile to metatile.
    static constexpr int kPreviewStep = 16;

    explicit PaletteModel(EditorState& state);

    // The entry that the commands below change, 0 to 31. Another room keeps it.
    int selectedEntry() const { return m_selectedEntry; }
    // Numbers outside 0 to 31 change nothing.
    void selectEntry(int entry);
    // Moves the selection on the picture of the entries, stopping at its edges.
    void moveSelection(int columns, int rows);

    // The whole byte of an entry of the current room.
    std::uint8_t entryValue(int entry) const;
    std::uint8_t value() const { return entryValue(m_selectedEntry); }
    // The colour number that the game makes of the selected entry, 0 to 63.
    int colourNumber() const { return value() & 63; }

    void setValue(std::uint8_t value);
    void setBlack() { setValue(kBlack); }
    // Adds 16 or 1 per step, modulo 64: past the brightest row comes the darkest, past a row's
    // last hue the next row's first.
    void stepBrightness(int steps);
    void stepHue(int steps);
    // Moves the colour on the picture of all colours, stopping at its edges, where nothing is
    // written.
    void moveColour(int columns, int rows);

    // What lies at a point of a picture, in pixels from its corner. Outside the picture there is
    // nothing: a drag that leaves it does nothing until it comes back.
    static std::optional<int> entryAt(int x, int y);
    static std::optional<int> colourAt(int x, int y);

    // Each gives the image its size and draws it whole.
    void drawEntries(PixelImage& image) const;        // 56 x 448, the selected entry framed
    void drawSelectedColour(PixelImage& image) const; // 48 x 48
    void drawColourGrid(PixelImage& image) const;     // 320 x 112, the selected colour framed
    void drawPreview(PixelImage& image) const;        // the size of the preview

    // The largest extent of a view within `available` pixels that can be scrolled to the room's
    // last pixel in whole steps. At least one step.
    static int previewExtent(int available);
    // The size of the view, in pixels. Negative sizes count as 0.
    void setPreviewSize(int width, int height);
    // Scrolls, rounding down to whole steps and stopping at the room's edges.
    void scrollPreviewTo(int x, int y);
    ViewScroll horizontalScroll() const;
    ViewScroll verticalScroll() const;

private:
    EditorState& m_state;
    int m_selectedEntry = 0;
    int m_previewWidth = 0;
    int m_previewHeight = 0;
    // Where the user scrolled to. A smaller room, or a larger view, shows as near to it as it can.
    int m_scrollX = 0;
    int m_scrollY = 0;
};

} // namespace velko
