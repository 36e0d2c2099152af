#pragma once

#include "gfx/palette_page.h"

#include "app/arrow_spin.h"
#include "app/hex_edit.h"
#include "app/picture_view.h"
#include "tests/gui/page_support.h"
#include "tests/gui/picture_events.h"
#include "tests/support/palette_rom.h"

#include <QScrollBar>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>

namespace velko::test::palette_page {

inline constexpr Pixel kFrameLine = 0x000000;
inline constexpr Pixel kFrameBand = 0xFFFFFF;

// A page of 900 x 640 on the room of one screen.
class PalettePageTest : public PaletteGameTest {
protected:
    PalettePageTest()
    {
        state.backgroundColour = 0x123456;
        page = std::make_unique<PalettePage>(state);
        showPage(*page, {900, 640});
    }

    template <typename Control> Control& control(const char* name) const
    {
        return controlOf<Control>(*page, name);
    }
    PictureView& entries() const { return control<PictureView>("entriesView"); }
    PictureView& grid() const { return control<PictureView>("colourGridView"); }
    PictureView& room() const { return control<PictureView>("roomView"); }
    HexEdit& valueEdit() const { return control<HexEdit>("valueEdit"); }
    QScrollBar& horizontalBar() const { return control<QScrollBar>("roomHorizontalBar"); }
    QScrollBar& verticalBar() const { return control<QScrollBar>("roomVerticalBar"); }

    static void click(PictureView& view, int x, int y) { clickPicture(view, {x, y}); }
    // The middle of an entry's swatch.
    void clickEntry(int entry) const
    {
        click(entries(), entry / 16 * 28 + 14, entry % 16 * 28 + 14);
    }
    static void moveHolding(PictureView& view, int x, int y, Qt::MouseButton button)
    {
        moveOverPicture(view, {x, y}, button);
    }
    // Presses an arrow of a spin control.
    void spin(const char* name, bool up) const
    {
        auto& control = this->control<ArrowSpin>(name);
        QTest::mouseClick(&control, Qt::LeftButton, {},
                          QPoint(control.width() / 2, up ? 3 : control.height() - 3));
    }
    void type(const QString& text) const { typeInto(valueEdit(), text); }
    void changeRoom(std::uint8_t number)
    {
        state.graphics.selectRoom(number);
        page->refresh();
    }
    Pixel entryPixel(int entry) const
    {
        return entries().picture().at(static_cast<std::uint32_t>(entry / 16 * 28 + 14),
                                      static_cast<std::uint32_t>(entry % 16 * 28 + 14));
    }
    bool entryIsFramed(int entry) const
    {
        const auto x = static_cast<std::uint32_t>(entry / 16 * 28);
        const auto y = static_cast<std::uint32_t>(entry % 16 * 28);
        const PixelImage& picture = entries().picture();
        return picture.at(x, y) == kFrameLine && picture.at(x + 1, y + 1) == kFrameBand
            && picture.at(x + 27, y + 27) == kFrameLine;
    }
    bool colourIsFramed(std::uint32_t number) const
    {
        const std::uint32_t x = number % 16 * 20;
        const std::uint32_t y = number / 16 * 28;
        const PixelImage& picture = grid().picture();
        return picture.at(x, y) == kFrameLine && picture.at(x + 1, y + 1) == kFrameBand
            && picture.at(x + 19, y + 27) == kFrameLine;
    }
    Pixel selectedPixel() const
    {
        return control<PictureView>("selectedColourView").picture().at(24, 24);
    }
    // The pictures agree on the selected entry: its swatch, the large swatch, the grid.
    void expectPictured(int entry, std::uint8_t value) const
    {
        EXPECT_TRUE(entryIsFramed(entry));
        EXPECT_EQ(entryPixel(entry), colour(value & 63));
        EXPECT_EQ(selectedPixel(), colour(value & 63));
        EXPECT_TRUE(colourIsFramed(value & 63));
    }
    // The pictures agree, and the box holds the byte.
    void expectShown(int entry, std::uint8_t value) const
    {
        expectPictured(entry, value);
        EXPECT_EQ(valueEdit().text(), QString::number(value, 16));
    }

    std::unique_ptr<PalettePage> page;
};

} // namespace velko::test::palette_page
