#include "gfx/tile_allocation_pictures.h"

#include "tests/support/tile_allocation_rom.h"

#include <gtest/gtest.h>

namespace velko {
namespace {

using test::TileAllocationRom;
using BlockPixel = TileAllocationModel::BlockPixel;

// The greys of pixel values 0 to 3.
constexpr Pixel kGrey0 = 0x000000;
constexpr Pixel kGrey1 = 0xF0F0F0;
constexpr Pixel kGrey2 = 0x909090;
constexpr Pixel kGrey3 = 0x404040;

constexpr Pixel kFrameLine = 0x000000;
constexpr Pixel kFrameBand = 0xFFFFFF;

class TileAllocationPicturesTest : public test::TileAllocationGameTest {
protected:
    PixelImage slots() const { return drawn(&TileAllocationPictures::drawSlots); }
    PixelImage blocks() const { return drawn(&TileAllocationPictures::drawBlocks); }
    PixelImage colours() const { return drawn(&TileAllocationPictures::drawColours); }
    PixelImage canvas(std::optional<BlockPixel> cursor = std::nullopt) const
    {
        PixelImage picture;
        pictures.drawCanvas(picture, cursor);
        return picture;
    }

    TileAllocationModel model{state};
    TileAllocationPictures pictures{state, model};

private:
    PixelImage drawn(void (TileAllocationPictures::*draw)(PixelImage&) const) const
    {
        PixelImage picture;
        (pictures.*draw)(picture);
        return picture;
    }
};

TEST_F(TileAllocationPicturesTest, SlotsAreShownEightByEightInDoubleSize)
{
    model.selectSlot(63);
    const PixelImage picture = slots();
    ASSERT_EQ(picture.width(), 256u);
    ASSERT_EQ(picture.height(), 256u);
    // Slot 0: block 1, each pixel 2 x 2.
    EXPECT_EQ(picture.at(0, 0), kGrey1);
    EXPECT_EQ(picture.at(1, 1), kGrey1);
    EXPECT_EQ(picture.at(2, 0), kGrey0);
    EXPECT_EQ(picture.at(0, 2), kGrey0);
    EXPECT_EQ(picture.at(16, 0), kGrey2);
    EXPECT_EQ(picture.at(0, 16), kGrey3);
    EXPECT_EQ(picture.at(17, 17), kGrey0);
    // Slot 2: all 2, from edge to edge.
    EXPECT_EQ(picture.at(63, 31), kGrey0);
    EXPECT_EQ(picture.at(64, 0), kGrey2);
    EXPECT_EQ(picture.at(95, 31), kGrey2);
    EXPECT_EQ(picture.at(64, 32), kGrey0);
}

TEST_F(TileAllocationPicturesTest, MirroredSlotIsShownMirrored)
{
    model.selectSlot(63);
    const PixelImage picture = slots();
    EXPECT_EQ(picture.at(32, 0), kGrey0);
    EXPECT_EQ(picture.at(62, 0), kGrey1); // column 15
    EXPECT_EQ(picture.at(63, 1), kGrey1);
    EXPECT_EQ(picture.at(46, 0), kGrey2);  // column 7
    EXPECT_EQ(picture.at(62, 16), kGrey3); // row 8
}

TEST_F(TileAllocationPicturesTest, SlotNumbersRunAlongTheRows)
{
    state.graphics.selectRoom(TileAllocationRom::kOther); // slot 63 holds block 1
    EXPECT_EQ(slots().at(7 * 32, 7 * 32), kGrey1);
    EXPECT_EQ(slots().at(7 * 32 + 16, 7 * 32), kGrey2);
}

TEST_F(TileAllocationPicturesTest, FrameLiesAroundTheSelectedSlot)
{
    model.selectSlot(10); // row 1, column 2: its cell starts at (64, 32)
    const PixelImage picture = slots();
    // Three pixels up and left, shown doubled: a line, then a band of two.
    EXPECT_EQ(picture.at(58, 26), kFrameLine);
    EXPECT_EQ(picture.at(59, 27), kFrameLine);
    EXPECT_EQ(picture.at(60, 28), kFrameBand);
    EXPECT_EQ(picture.at(63, 31), kFrameBand);
    EXPECT_EQ(picture.at(64, 32), kGrey0);
    EXPECT_EQ(picture.at(95, 63), kGrey0);
    EXPECT_EQ(picture.at(96, 64), kFrameBand);
    EXPECT_EQ(picture.at(99, 67), kFrameBand);
    EXPECT_EQ(picture.at(100, 68), kFrameLine);
    EXPECT_EQ(picture.at(101, 69), kFrameLine);
    EXPECT_EQ(picture.at(64, 25), kGrey2); // slot 2, beyond the frame
}

TEST_F(TileAllocationPicturesTest, FrameIsCutOffAtThePicturesEdge)
{
    model.selectSlot(0);
    const PixelImage picture = slots();
    EXPECT_EQ(picture.at(0, 0), kGrey1);
    EXPECT_EQ(picture.at(32, 0), kFrameBand);
    EXPECT_EQ(picture.at(36, 0), kFrameLine);
    EXPECT_EQ(picture.at(0, 35), kFrameBand);
    EXPECT_EQ(picture.at(0, 37), kFrameLine);
}

TEST_F(TileAllocationPicturesTest, BlocksOfThePageAreShownUnmirroredFromTheRom)
{
    model.selectSlot(1); // block 1, mirrored
    model.selectBlock(63);
    const PixelImage picture = blocks();
    ASSERT_EQ(picture.width(), 256u);
    ASSERT_EQ(picture.height(), 256u);
    EXPECT_EQ(picture.at(0, 0), kGrey0);
    EXPECT_EQ(picture.at(32, 0), kGrey1);
    EXPECT_EQ(picture.at(48, 0), kGrey2);
    EXPECT_EQ(picture.at(32, 16), kGrey3);
    EXPECT_EQ(picture.at(62, 0), kGrey0);
    EXPECT_EQ(picture.at(7 * 32 - 6, 7 * 32 - 6), kFrameLine);
    EXPECT_EQ(picture.at(7 * 32 - 1, 7 * 32 - 1), kFrameBand);
}

TEST_F(TileAllocationPicturesTest, BlocksComeFromTheSlotsBankAndPage)
{
    model.selectSlot(2); // block 0x45 of bank 2: the page's block 5
    PixelImage picture = blocks();
    EXPECT_EQ(picture.at(5 * 32, 0), kGrey2);
    EXPECT_EQ(picture.at(5 * 32 + 31, 31), kGrey2);
    EXPECT_EQ(picture.at(6 * 32, 0), kFrameBand);
    EXPECT_EQ(picture.at(7 * 32, 0), kGrey0);
    model.browseTo(8); // the bank's first page
    picture = blocks();
    EXPECT_EQ(picture.at(5 * 32, 0), kGrey0);
    EXPECT_EQ(picture.at(6 * 32, 0), kFrameBand);
}

TEST_F(TileAllocationPicturesTest, CanvasShowsEachPixelOfTheBlockFourteenWide)
{
    model.selectSlot(1); // mirrored, which the canvas is not
    const PixelImage picture = canvas();
    ASSERT_EQ(picture.width(), 224u);
    ASSERT_EQ(picture.height(), 224u);
    EXPECT_EQ(picture.at(0, 0), kGrey1);
    EXPECT_EQ(picture.at(13, 13), kGrey1);
    EXPECT_EQ(picture.at(14, 0), kGrey0);
    EXPECT_EQ(picture.at(0, 14), kGrey0);
    EXPECT_EQ(picture.at(112, 0), kGrey2);
    EXPECT_EQ(picture.at(125, 13), kGrey2);
    EXPECT_EQ(picture.at(0, 112), kGrey3);
    EXPECT_EQ(picture.at(111, 112), kGrey0);
    EXPECT_EQ(picture.at(223, 223), kGrey0);
}

TEST_F(TileAllocationPicturesTest, CanvasShowsTheLastPixel)
{
    model.setCurrentColour(1);
    model.paint({15, 15});
    EXPECT_EQ(canvas().at(223, 223), kGrey1);
    EXPECT_EQ(canvas().at(210, 210), kGrey1);
    EXPECT_EQ(canvas().at(209, 210), kGrey0);
}

TEST_F(TileAllocationPicturesTest, CursorOutlinesItsPixelOnly)
{
    const PixelImage picture = canvas(BlockPixel{0, 0});
    EXPECT_EQ(picture.at(0, 0), kFrameLine);
    EXPECT_EQ(picture.at(1, 1), kFrameBand);
    EXPECT_EQ(picture.at(7, 7), kGrey1);
    EXPECT_EQ(picture.at(13, 13), kFrameLine);
    EXPECT_EQ(picture.at(14, 14), kGrey0);
    EXPECT_EQ(picture.at(112, 0), kGrey2);
}

TEST_F(TileAllocationPicturesTest, ColoursAreStackedAndTheCurrentOneFramed)
{
    model.setCurrentColour(2);
    const PixelImage picture = colours();
    ASSERT_EQ(picture.width(), 33u);
    ASSERT_EQ(picture.height(), 132u);
    EXPECT_EQ(picture.at(0, 0), kGrey0);
    EXPECT_EQ(picture.at(32, 32), kGrey0);
    EXPECT_EQ(picture.at(0, 33), kGrey1);
    EXPECT_EQ(picture.at(32, 65), kGrey1);
    EXPECT_EQ(picture.at(0, 66), kFrameLine);
    EXPECT_EQ(picture.at(1, 67), kFrameBand);
    EXPECT_EQ(picture.at(16, 82), kGrey2);
    EXPECT_EQ(picture.at(32, 98), kFrameLine);
    EXPECT_EQ(picture.at(0, 99), kGrey3);
    EXPECT_EQ(picture.at(32, 131), kGrey3);
}

TEST_F(TileAllocationPicturesTest, WhatLiesOutsideTheRomIsDrawnAsFiller)
{
    state.graphics.selectRoom(TileAllocationRom::kOutside);
    state.config.setValue(MiscField::startGfxBg, 19);
    state.graphics.buildBackgroundBlocks();
    // The filler's bits alternate: 0, 3, 0, 3 and so on, in mirrored slots the other way round.
    EXPECT_EQ(canvas().at(0, 0), kGrey0);
    EXPECT_EQ(canvas().at(14, 0), kGrey3);
    EXPECT_EQ(blocks().at(0, 0), kGrey0);
    EXPECT_EQ(blocks().at(2, 0), kGrey3);
    EXPECT_EQ(slots().at(254, 254), kGrey0);
    EXPECT_EQ(slots().at(252, 254), kGrey3);
}

// Points

TEST(TileAllocationPoints, CellsAreThirtyTwoPixelsWide)
{
    EXPECT_EQ(TileAllocationPictures::cellAt(0, 0), 0);
    EXPECT_EQ(TileAllocationPictures::cellAt(31, 31), 0);
    EXPECT_EQ(TileAllocationPictures::cellAt(32, 0), 1);
    EXPECT_EQ(TileAllocationPictures::cellAt(0, 32), 8);
    EXPECT_EQ(TileAllocationPictures::cellAt(255, 0), 7);
    EXPECT_EQ(TileAllocationPictures::cellAt(255, 255), 63);
    EXPECT_EQ(TileAllocationPictures::cellAt(256, 0), std::nullopt);
    EXPECT_EQ(TileAllocationPictures::cellAt(0, 256), std::nullopt);
    EXPECT_EQ(TileAllocationPictures::cellAt(-1, 0), std::nullopt);
    EXPECT_EQ(TileAllocationPictures::cellAt(0, -1), std::nullopt);
}

TEST(TileAllocationPoints, CanvasEndsAtPixelFifteen)
{
    using Pictures = TileAllocationPictures;
    EXPECT_EQ(Pictures::canvasPixelAt(0, 0), (BlockPixel{0, 0}));
    EXPECT_EQ(Pictures::canvasPixelAt(13, 14), (BlockPixel{0, 1}));
    EXPECT_EQ(Pictures::canvasPixelAt(209, 210), (BlockPixel{14, 15}));
    EXPECT_EQ(Pictures::canvasPixelAt(223, 223), (BlockPixel{15, 15}));
    EXPECT_EQ(Pictures::canvasPixelAt(224, 0), (BlockPixel{15, 0}));
    EXPECT_EQ(Pictures::canvasPixelAt(0, 226), (BlockPixel{0, 15}));
    EXPECT_EQ(Pictures::canvasPixelAt(-1, 0), std::nullopt);
    EXPECT_EQ(Pictures::canvasPixelAt(0, -1), std::nullopt);
}

TEST(TileAllocationPoints, ColoursAreThirtyThreePixelsHigh)
{
    EXPECT_EQ(TileAllocationPictures::colourAt(0, 0), 0);
    EXPECT_EQ(TileAllocationPictures::colourAt(32, 32), 0);
    EXPECT_EQ(TileAllocationPictures::colourAt(0, 33), 1);
    EXPECT_EQ(TileAllocationPictures::colourAt(0, 98), 2);
    EXPECT_EQ(TileAllocationPictures::colourAt(0, 99), 3);
    EXPECT_EQ(TileAllocationPictures::colourAt(32, 131), 3);
    EXPECT_EQ(TileAllocationPictures::colourAt(0, 132), std::nullopt);
    EXPECT_EQ(TileAllocationPictures::colourAt(33, 0), std::nullopt);
    EXPECT_EQ(TileAllocationPictures::colourAt(-1, 0), std::nullopt);
    EXPECT_EQ(TileAllocationPictures::colourAt(0, -1), std::nullopt);
}

} // namespace
} // namespace velko
