#pragma once

#include "gfx/tile_allocation_page.h"

#include "app/picture_view.h"
#include "tests/gui/page_support.h"
#include "tests/gui/picture_events.h"
#include "tests/support/tile_allocation_rom.h"

#include <QCheckBox>
#include <QLabel>
#include <QScrollBar>
#include <gtest/gtest.h>
#include <memory>

namespace velko::test::tile_allocation {

inline constexpr std::uint32_t kAllocation = TileAllocationRom::kAllocation;
inline constexpr std::uint32_t kBlock1 = TileAllocationRom::blockOffset(0, 1);

// The greys of pixel values 0 to 3.
inline constexpr Pixel kGrey0 = 0x000000;
inline constexpr Pixel kGrey1 = 0xF0F0F0;
inline constexpr Pixel kGrey2 = 0x909090;
inline constexpr Pixel kGrey3 = 0x404040;
inline constexpr Pixel kFrameBand = 0xFFFFFF;

inline constexpr int kPaintSize = 14;

class TileAllocationPageTest : public TileAllocationGameTest {
protected:
    TileAllocationPageTest() { openPage(); }

    void openPage()
    {
        page = std::make_unique<TileAllocationPage>(state);
        showPage(*page, {960, 640});
    }
    void openPageWithBanks(std::uint32_t banks)
    {
        page.reset();
        state.config.setValue(MiscField::bgTileBanks, banks);
        openPage();
    }

    template <typename Control> Control& control(const char* name) const
    {
        return controlOf<Control>(*page, name);
    }
    PictureView& slotView() const { return control<PictureView>("slotView"); }
    PictureView& blockView() const { return control<PictureView>("blockView"); }
    PictureView& canvas() const { return control<PictureView>("canvasView"); }
    PictureView& colours() const { return control<PictureView>("colourView"); }
    QScrollBar& bar() const { return control<QScrollBar>("blockBar"); }
    QCheckBox& mirrorCheck() const { return control<QCheckBox>("mirrorCheck"); }
    QCheckBox& unusedCheck() const { return control<QCheckBox>("unusedCheck"); }
    QString text(const char* name) const { return control<QLabel>(name).text(); }

    static void click(PictureView& view, int x, int y, Qt::MouseButton button = Qt::LeftButton)
    {
        clickPicture(view, {x, y}, button);
    }
    static void press(PictureView& view, int x, int y) { pressPicture(view, {x, y}); }
    static void release(PictureView& view, int x, int y) { releasePicture(view, {x, y}); }
    static void moveHolding(PictureView& view, int x, int y, Qt::MouseButton button)
    {
        moveOverPicture(view, {x, y}, button);
    }
    void clickSlot(int slot) const { click(slotView(), slot % 8 * 32 + 9, slot / 8 * 32 + 9); }
    void chooseColour(int colour) const { click(colours(), 16, colour * 33 + 16); }
    // The middle of a pixel of the canvas.
    static int middle(int pixel) { return pixel * kPaintSize + kPaintSize / 2; }
    void clickPixel(int column, int row, Qt::MouseButton button = Qt::LeftButton) const
    {
        click(canvas(), middle(column), middle(row), button);
    }
    Pixel canvasPixel(int column, int row) const
    {
        return canvas().picture().at(static_cast<std::uint32_t>(middle(column)),
                                     static_cast<std::uint32_t>(middle(row)));
    }
    // A pixel of a slot or a block (0-15 each way) as its grid shows it.
    static Pixel cellPixel(const PictureView& view, std::uint32_t cell, std::uint32_t column,
                           std::uint32_t row)
    {
        return view.picture().at(cell % 8 * 32 + 2 * column, cell / 8 * 32 + 2 * row);
    }
    // The line outside of a cell's frame is cut off at the picture's edge; its band never is.
    static bool isFramed(const PictureView& view, std::uint32_t cell)
    {
        const std::uint32_t x = cell % 8 * 32;
        const std::uint32_t y = cell / 8 * 32;
        const PixelImage& picture = view.picture();
        return (x == 0 || picture.at(x - 1, y + 16) == kFrameBand)
            && (x == 224 || picture.at(x + 32, y + 16) == kFrameBand)
            && (y == 0 || picture.at(x + 16, y - 1) == kFrameBand)
            && (y == 224 || picture.at(x + 16, y + 32) == kFrameBand);
    }
    bool colourIsFramed(std::uint32_t colour) const
    {
        return colours().picture().at(1, colour * 33 + 1) == kFrameBand;
    }
    // The slot's pictures, labels and boxes agree.
    void expectShown(const char* index, const char* bank, const char* tileNumber,
                     const char* address) const
    {
        EXPECT_EQ(text("indexValue"), index);
        EXPECT_EQ(text("bankValue"), bank);
        EXPECT_EQ(text("tileNumberValue"), tileNumber);
        EXPECT_EQ(text("romAddressValue"), address);
    }
    static void wheel(QWidget& over, QWidget& receiver, int turn)
    {
        turnWheel(over, receiver, {0, turn});
    }

    std::unique_ptr<TileAllocationPage> page;
};

} // namespace velko::test::tile_allocation
