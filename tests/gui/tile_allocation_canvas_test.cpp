#include "tests/gui/tile_allocation_fixture.h"

#include <QTest>

namespace velko::test::tile_allocation {
namespace {

// The canvas

TEST_F(TileAllocationPageTest, ClickPaintsAPixel)
{
    chooseColour(3);
    clickPixel(2, 3);
    EXPECT_EQ(image(), loadedExcept({{kBlock1 + 3, 0x20}, {kBlock1 + 11, 0x20}}));
    EXPECT_EQ(canvasPixel(2, 3), kGrey3);
    EXPECT_EQ(cellPixel(blockView(), 1, 2, 3), kGrey3);
    EXPECT_EQ(cellPixel(slotView(), 0, 2, 3), kGrey3);
    EXPECT_EQ(cellPixel(slotView(), 1, 13, 3), kGrey3); // mirrored
    EXPECT_EQ(cellPixel(slotView(), 1, 2, 3), kGrey0);
    EXPECT_EQ(cellPixel(slotView(), 3, 2, 3), kGrey3);
    EXPECT_EQ(patternByte(3, 3), 0x20);
    chooseColour(0);
    clickPixel(2, 3);
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(TileAllocationPageTest, PaintInAMirroredSlotEditsTheUnmirroredBlock)
{
    clickSlot(1);
    chooseColour(1);
    clickPixel(2, 3);
    EXPECT_EQ(image(), loadedExcept({{kBlock1 + 3, 0x20}}));
    EXPECT_EQ(canvasPixel(2, 3), kGrey1);
    EXPECT_EQ(cellPixel(slotView(), 1, 13, 3), kGrey1);
    EXPECT_EQ(cellPixel(slotView(), 0, 2, 3), kGrey1);
}

TEST_F(TileAllocationPageTest, PaintIsSeenInEveryRoomThatUsesTheBlock)
{
    chooseColour(1);
    clickPixel(2, 3);
    state.graphics.selectRoom(TileAllocationRom::kOther);
    page->refresh();
    EXPECT_EQ(cellPixel(slotView(), 63, 2, 3), kGrey1);
}

TEST_F(TileAllocationPageTest, LastRowAndColumnOfTheCanvasArePixelFifteen)
{
    chooseColour(1);
    click(canvas(), 223, 223);
    EXPECT_EQ(image(), loadedExcept({{kBlock1 + 55, 0x01}}));
    EXPECT_EQ(canvas().picture().at(223, 223), kGrey1);
}

TEST_F(TileAllocationPageTest, DragPaintsThePixelsItPasses)
{
    chooseColour(1);
    press(canvas(), middle(4), middle(4));
    EXPECT_EQ(image(), loadedExcept({{kBlock1 + 4, 0x08}}));
    moveHolding(canvas(), middle(5), middle(4), Qt::LeftButton);
    moveHolding(canvas(), middle(8), middle(9), Qt::LeftButton);
    release(canvas(), middle(8), middle(9));
    moveHolding(canvas(), middle(12), middle(12), Qt::NoButton);
    EXPECT_EQ(image(), loadedExcept({{kBlock1 + 4, 0x0C}, {kBlock1 + 49, 0x80}}));
    EXPECT_EQ(canvasPixel(5, 4), kGrey1);
    EXPECT_EQ(cellPixel(slotView(), 0, 8, 9), kGrey1);
}

TEST_F(TileAllocationPageTest, DragPaintsNothingOutsideTheCanvas)
{
    chooseColour(1);
    press(canvas(), middle(4), middle(4));
    for (const QPoint outside : {QPoint(-1, 60), QPoint(60, -1), QPoint(-5000, 60), QPoint(60, 227),
                                 QPoint(227, 60), QPoint(5000, 5000)})
        moveHolding(canvas(), outside.x(), outside.y(), Qt::LeftButton);
    EXPECT_EQ(image(), loadedExcept({{kBlock1 + 4, 0x08}}));
    moveHolding(canvas(), middle(5), middle(4), Qt::LeftButton);
    release(canvas(), middle(5), middle(4));
    EXPECT_EQ(image(), loadedExcept({{kBlock1 + 4, 0x0C}}));
}

TEST_F(TileAllocationPageTest, DragOnTheCanvassBorderPaintsTheLastPixels)
{
    chooseColour(1);
    press(canvas(), middle(15), middle(4));
    moveHolding(canvas(), 226, middle(5), Qt::LeftButton);
    moveHolding(canvas(), middle(14), 225, Qt::LeftButton);
    release(canvas(), middle(14), 225);
    EXPECT_EQ(image(),
              loadedExcept({{kBlock1 + 36, 0x01}, {kBlock1 + 37, 0x01}, {kBlock1 + 55, 0x02}}));
}

TEST_F(TileAllocationPageTest, RightClickTakesThePixelsColour)
{
    clickPixel(8, 0, Qt::RightButton);
    EXPECT_TRUE(colourIsFramed(2));
    EXPECT_FALSE(colourIsFramed(0));
    EXPECT_EQ(image(), game.bytes);
    clickPixel(1, 1);
    EXPECT_EQ(image(), loadedExcept({{kBlock1 + 9, 0x40}}));
    EXPECT_EQ(canvasPixel(1, 1), kGrey2);
    clickPixel(15, 15, Qt::RightButton);
    EXPECT_TRUE(colourIsFramed(0));
}

TEST_F(TileAllocationPageTest, OtherButtonsDoNotPaint)
{
    chooseColour(1);
    clickPixel(5, 5, Qt::MiddleButton);
    moveHolding(canvas(), middle(5), middle(5), Qt::RightButton);
    EXPECT_EQ(image(), game.bytes);
    EXPECT_TRUE(colourIsFramed(1));
}

TEST_F(TileAllocationPageTest, ClickChoosesAColour)
{
    for (int colour = 3; colour >= 0; --colour) {
        click(colours(), 32, colour * 33 + 32);
        for (int other = 0; other < 4; ++other)
            EXPECT_EQ(colourIsFramed(static_cast<std::uint32_t>(other)), other == colour);
    }
    click(colours(), 16, 110, Qt::RightButton);
    EXPECT_TRUE(colourIsFramed(0));
}

TEST_F(TileAllocationPageTest, ArrowKeysChooseAColour)
{
    colours().setFocus();
    for (int i = 0; i < 5; ++i)
        QTest::keyClick(&colours(), Qt::Key_Down);
    EXPECT_TRUE(colourIsFramed(3));
    QTest::keyClick(&colours(), Qt::Key_Up);
    EXPECT_TRUE(colourIsFramed(2));
}

TEST_F(TileAllocationPageTest, TheKeyboardPaintsAtItsCursor)
{
    canvas().setFocus(Qt::TabFocusReason);
    EXPECT_EQ(canvas().picture().at(1, 1), kFrameBand); // the cursor, on the first pixel
    QTest::keyClick(&canvas(), Qt::Key_Right);
    QTest::keyClick(&canvas(), Qt::Key_Down);
    EXPECT_EQ(canvas().picture().at(1, 1), kGrey1);
    EXPECT_EQ(canvas().picture().at(15, 15), kFrameBand);
    QTest::keyClick(&canvas(), Qt::Key_3);
    EXPECT_TRUE(colourIsFramed(3));
    QTest::keyClick(&canvas(), Qt::Key_Space);
    EXPECT_EQ(image(), loadedExcept({{kBlock1 + 1, 0x40}, {kBlock1 + 9, 0x40}}));
    QTest::keyClick(&canvas(), Qt::Key_Up);
    QTest::keyClick(&canvas(), Qt::Key_Left);
    QTest::keyClick(&canvas(), Qt::Key_Left); // at the edge
    QTest::keyClick(&canvas(), Qt::Key_Return);
    EXPECT_TRUE(colourIsFramed(1));
    EXPECT_EQ(image(), loadedExcept({{kBlock1 + 1, 0x40}, {kBlock1 + 9, 0x40}}));
}

TEST_F(TileAllocationPageTest, TheCursorIsSeenOnlyWhileTheKeyboardIsUsed)
{
    chooseColour(1);
    clickPixel(5, 5);
    EXPECT_EQ(canvas().picture().at(71, 71), kGrey1);
    QTest::keyClick(&canvas(), Qt::Key_Right); // from where the mouse was
    EXPECT_EQ(canvas().picture().at(85, 71), kFrameBand);
    clickPixel(5, 5, Qt::RightButton);
    EXPECT_EQ(canvas().picture().at(85, 71), kGrey0);
    QTest::keyClick(&canvas(), Qt::Key_Left);
    EXPECT_EQ(canvas().picture().at(57, 71), kFrameBand);
    slotView().setFocus();
    EXPECT_EQ(canvas().picture().at(57, 71), kGrey0);
}

TEST_F(TileAllocationPageTest, TabGoesThroughTheControlsInTheirOrder)
{
    const QWidget* const order[] = {&slotView(),    &blockView(), &mirrorCheck(),
                                    &unusedCheck(), &canvas(),    &colours()};
    slotView().setFocus();
    for (const QWidget* expected : order) {
        EXPECT_EQ(page->focusWidget(), expected) << expected->objectName().toStdString();
        QTest::keyClick(page->focusWidget(), Qt::Key_Tab);
    }
}

} // namespace
} // namespace velko::test::tile_allocation
