#include "app/main_dialog.h"
#include "app/ui_common.h"
#include "tests/gui/tile_allocation_fixture.h"
#include "tests/support/scripted_prompt.h"

#include <QApplication>
#include <QGroupBox>
#include <QTabWidget>
#include <QTest>

namespace velko::test::tile_allocation {
namespace {

// What is shown

TEST_F(TileAllocationPageTest, FirstSlotAndColourAreSelected)
{
    EXPECT_TRUE(isFramed(slotView(), 0));
    EXPECT_TRUE(isFramed(blockView(), 1));
    EXPECT_TRUE(colourIsFramed(0));
    expectShown("0", "0", "1", "$1c050");
    EXPECT_EQ(canvasPixel(0, 0), kGrey1);
    EXPECT_EQ(canvasPixel(8, 0), kGrey2);
    EXPECT_EQ(canvasPixel(0, 8), kGrey3);
}

TEST_F(TileAllocationPageTest, FixedTextsAreToTheLetter)
{
    EXPECT_EQ(control<QGroupBox>("selectedTileGroup").title(), " Selected Tile ");
    EXPECT_EQ(control<QGroupBox>("tileEditingGroup").title(), " Tile Editing ");
    EXPECT_EQ(text("indexLabel"), "Index:");
    EXPECT_EQ(text("bankLabel"), "Bank:");
    EXPECT_EQ(text("tileNumberLabel"), "Tile no.:");
    EXPECT_EQ(text("romAddressLabel"), "ROM Address:");
    EXPECT_EQ(mirrorCheck().text(), "Horizontal Flip");
    EXPECT_EQ(unusedCheck().text(), "Unused bit");
    EXPECT_EQ(text("leftButtonHint"), "Left button: Modify with current color.");
    EXPECT_EQ(text("rightButtonHint"), "Right button: Set as current color.");
}

TEST_F(TileAllocationPageTest, TemplateHasItsNumber)
{
    EXPECT_EQ(page->property(kControlId).toInt(), 133);
}

TEST_F(TileAllocationPageTest, PicturesHaveRoomForAllTheirPixels)
{
    const QSize frame(2 * PictureView::kFrame, 2 * PictureView::kFrame);
    EXPECT_EQ(slotView().size(), QSize(256, 256) + frame);
    EXPECT_EQ(blockView().size(), QSize(256, 256) + frame);
    EXPECT_EQ(canvas().size(), QSize(224, 224) + frame);
    EXPECT_EQ(colours().size(), QSize(33, 132) + frame);
}

TEST_F(TileAllocationPageTest, LookingWritesNothing)
{
    for (int slot = 0; slot < 64; ++slot)
        clickSlot(slot);
    for (int colour = 0; colour < 4; ++colour)
        chooseColour(colour);
    clickPixel(3, 3, Qt::RightButton);
    for (std::uint8_t room = 0; room < TileAllocationRom::kRooms; ++room) {
        state.graphics.selectRoom(room);
        page->refresh();
    }
    page->resize(1100, 800);
    canvas().setFocus();
    slotView().setFocus();
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(TileAllocationPageTest, AnotherRoomIsShownWithTheSameSelection)
{
    clickSlot(63);
    chooseColour(2);
    state.graphics.selectRoom(TileAllocationRom::kOther);
    page->refresh();
    expectShown("3f", "0", "1", "$1c050");
    EXPECT_TRUE(unusedCheck().isChecked());
    EXPECT_TRUE(isFramed(slotView(), 63));
    EXPECT_TRUE(colourIsFramed(2));
    EXPECT_EQ(cellPixel(slotView(), 63, 0, 0), kGrey1);
    EXPECT_EQ(cellPixel(slotView(), 2, 0, 0), kGrey0); // a block of 2s in the room before
}

// Slots

TEST_F(TileAllocationPageTest, ClickSelectsASlot)
{
    click(slotView(), 95, 31); // the last pixel of slot 2
    expectShown("2", "2", "45", "$25150");
    EXPECT_FALSE(mirrorCheck().isChecked());
    EXPECT_TRUE(unusedCheck().isChecked());
    EXPECT_TRUE(isFramed(slotView(), 2));
    EXPECT_TRUE(isFramed(blockView(), 5));
    EXPECT_EQ(bar().value(), 9);
    EXPECT_EQ(cellPixel(blockView(), 5, 15, 15), kGrey2);
    EXPECT_EQ(canvasPixel(15, 15), kGrey2);
    click(slotView(), 255, 255);
    expectShown("3f", "0", "0", "$1c010");
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(TileAllocationPageTest, OnlyTheLeftButtonSelectsASlot)
{
    click(slotView(), 80, 10, Qt::RightButton);
    click(blockView(), 80, 10, Qt::RightButton);
    moveHolding(slotView(), 80, 10, Qt::LeftButton); // a drag is no click
    moveHolding(blockView(), 80, 10, Qt::LeftButton);
    expectShown("0", "0", "1", "$1c050");
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(TileAllocationPageTest, ArrowKeysMoveTheSelectedSlot)
{
    slotView().setFocus();
    QTest::keyClick(&slotView(), Qt::Key_Right);
    QTest::keyClick(&slotView(), Qt::Key_Right);
    expectShown("2", "2", "45", "$25150");
    QTest::keyClick(&slotView(), Qt::Key_Down);
    EXPECT_EQ(text("indexValue"), "a");
    QTest::keyClick(&slotView(), Qt::Key_Left);
    QTest::keyClick(&slotView(), Qt::Key_Up);
    QTest::keyClick(&slotView(), Qt::Key_Up);
    EXPECT_EQ(text("indexValue"), "1");
    EXPECT_TRUE(mirrorCheck().isChecked());
    EXPECT_EQ(image(), game.bytes);
}

// Blocks

TEST_F(TileAllocationPageTest, ClickFillsTheSlotWithABlockOfThePage)
{
    clickSlot(2);
    click(blockView(), 255, 255);
    EXPECT_EQ(image(), loadedExcept({{kAllocation + 2, 0x7F}}));
    expectShown("2", "2", "7f", "$25fd0");
    EXPECT_TRUE(isFramed(blockView(), 63));
    EXPECT_EQ(cellPixel(slotView(), 2, 0, 0), kGrey0);
    EXPECT_EQ(canvasPixel(0, 0), kGrey0);
    EXPECT_EQ(patternByte(2, 8), 0x00);
    click(blockView(), 5 * 32, 31);
    EXPECT_EQ(image(), game.bytes);
    EXPECT_EQ(cellPixel(slotView(), 2, 0, 0), kGrey2);
    EXPECT_EQ(patternByte(2, 8), 0xFF);
}

TEST_F(TileAllocationPageTest, ArrowKeysFillTheSlotWithTheNextBlock)
{
    blockView().setFocus();
    QTest::keyClick(&blockView(), Qt::Key_Down);
    EXPECT_EQ(image(), loadedExcept({{kAllocation, 9}}));
    EXPECT_TRUE(isFramed(blockView(), 9));
    QTest::keyClick(&blockView(), Qt::Key_Left);
    QTest::keyClick(&blockView(), Qt::Key_Left);
    EXPECT_EQ(image(), loadedExcept({{kAllocation, 8}}));
}

TEST_F(TileAllocationPageTest, BlocksAreShownUnmirrored)
{
    clickSlot(1);
    EXPECT_TRUE(mirrorCheck().isChecked());
    EXPECT_EQ(cellPixel(slotView(), 1, 15, 0), kGrey1);
    EXPECT_EQ(cellPixel(blockView(), 1, 0, 0), kGrey1);
    EXPECT_EQ(canvasPixel(0, 0), kGrey1);
}

// Browsing

TEST_F(TileAllocationPageTest, BarRunsOverFourPagesInEachBank)
{
    const struct {
        std::uint32_t banks;
        int last;
    } rows[] = {{0, 0}, {1, 3}, {2, 7}, {255, 15}};
    for (const auto& row : rows) {
        openPageWithBanks(row.banks);
        EXPECT_EQ(bar().minimum(), 0) << row.banks;
        EXPECT_EQ(bar().maximum(), row.last) << row.banks;
        EXPECT_EQ(bar().value(), 0) << row.banks;
    }
}

TEST_F(TileAllocationPageTest, DraggedThumbFillsTheSlotFromThePageItPasses)
{
    openPageWithBanks(2);
    bar().setSliderDown(true);
    bar().setSliderPosition(5);
    EXPECT_EQ(image(), loadedExcept({{kAllocation, 0x41}, {kAllocation + 64, 0x14}}));
    expectShown("0", "1", "41", "$21050");
    bar().setSliderPosition(7);
    EXPECT_EQ(image(), loadedExcept({{kAllocation, 0xC1}, {kAllocation + 64, 0x14}}));
    bar().setSliderDown(false);
    EXPECT_EQ(bar().value(), 7);
    EXPECT_EQ(image(), loadedExcept({{kAllocation, 0xC1}, {kAllocation + 64, 0x14}}));
}

TEST_F(TileAllocationPageTest, ArrowsOfTheBarStepByOnePage)
{
    clickSlot(2); // page 1 of bank 2
    bar().triggerAction(QAbstractSlider::SliderSingleStepSub);
    EXPECT_EQ(image(), loadedExcept({{kAllocation + 2, 0x05}}));
    EXPECT_EQ(cellPixel(slotView(), 2, 0, 0), kGrey0);
    EXPECT_EQ(cellPixel(blockView(), 5, 0, 0), kGrey0);
    bar().triggerAction(QAbstractSlider::SliderSingleStepSub);
    EXPECT_EQ(image(), loadedExcept({{kAllocation + 2, 0xC5}, {kAllocation + 65, 0x90}}));
    bar().triggerAction(QAbstractSlider::SliderPageStepAdd);
    bar().triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(image(), game.bytes);
    EXPECT_EQ(cellPixel(slotView(), 2, 0, 0), kGrey2);
    EXPECT_EQ(patternByte(2, 8), 0xFF);
}

TEST_F(TileAllocationPageTest, BarStopsAtItsEnds)
{
    bar().triggerAction(QAbstractSlider::SliderSingleStepSub);
    EXPECT_EQ(image(), game.bytes);
    for (int step = 0; step < 20; ++step)
        bar().triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(bar().value(), 15);
    EXPECT_EQ(image(), loadedExcept({{kAllocation, 0xC1}, {kAllocation + 64, 0x34}}));
}

TEST_F(TileAllocationPageTest, PageKeysAndTheWheelBrowseTheBlocks)
{
    blockView().setFocus();
    QTest::keyClick(&blockView(), Qt::Key_PageDown);
    EXPECT_EQ(image(), loadedExcept({{kAllocation, 0x41}}));
    QTest::keyClick(&blockView(), Qt::Key_PageUp);
    EXPECT_EQ(image(), game.bytes);
    wheel(blockView(), *page, -120);
    EXPECT_EQ(image(), loadedExcept({{kAllocation, 0x41}}));
    wheel(bar(), bar(), 120);
    EXPECT_EQ(image(), game.bytes);
    wheel(slotView(), *page, -120);
    wheel(canvas(), *page, -120);
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(TileAllocationPageTest, WithoutBanksTheBarDoesNothing)
{
    openPageWithBanks(0);
    clickSlot(2);
    for (const auto action :
         {QAbstractSlider::SliderSingleStepAdd, QAbstractSlider::SliderSingleStepSub,
          QAbstractSlider::SliderPageStepAdd, QAbstractSlider::SliderPageStepSub})
        bar().triggerAction(action);
    expectShown("2", "2", "45", "$25150");
    EXPECT_EQ(image(), game.bytes);
}

// Check boxes

TEST_F(TileAllocationPageTest, FlipTogglesItsBitAndIsSeenAtOnce)
{
    QTest::mouseClick(&mirrorCheck(), Qt::LeftButton, {}, {8, mirrorCheck().height() / 2});
    EXPECT_EQ(image(), loadedExcept({{kAllocation + 64, 0x44}}));
    EXPECT_TRUE(mirrorCheck().isChecked());
    EXPECT_EQ(cellPixel(slotView(), 0, 0, 0), kGrey0);
    EXPECT_EQ(cellPixel(slotView(), 0, 15, 0), kGrey1);
    EXPECT_EQ(cellPixel(slotView(), 3, 0, 0), kGrey1); // the same block, not flipped
    EXPECT_EQ(patternByte(0, 32), 0x01);
    QTest::mouseClick(&mirrorCheck(), Qt::LeftButton, {}, {8, mirrorCheck().height() / 2});
    EXPECT_EQ(image(), game.bytes);
    EXPECT_EQ(cellPixel(slotView(), 0, 0, 0), kGrey1);
}

TEST_F(TileAllocationPageTest, UnusedBitTogglesItsBitAndMovesNothing)
{
    const PixelImage before = slotView().picture();
    QTest::mouseClick(&unusedCheck(), Qt::LeftButton, {}, {8, unusedCheck().height() / 2});
    EXPECT_EQ(image(), loadedExcept({{kAllocation + 64, 0x84}}));
    EXPECT_TRUE(unusedCheck().isChecked());
    EXPECT_EQ(slotView().picture(), before);
}

TEST_F(TileAllocationPageTest, CheckBoxesFollowTheSlot)
{
    clickSlot(1);
    EXPECT_TRUE(mirrorCheck().isChecked());
    EXPECT_FALSE(unusedCheck().isChecked());
    clickSlot(2);
    EXPECT_FALSE(mirrorCheck().isChecked());
    EXPECT_TRUE(unusedCheck().isChecked());
    EXPECT_EQ(image(), game.bytes);
}

// A box that is toggled by its key goes down for a moment first.
TEST_F(TileAllocationPageTest, CheckBoxesHaveKeys)
{
    QTest::keyClick(page.get(), Qt::Key_H, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return mirrorCheck().isChecked(); }));
    EXPECT_EQ(image(), loadedExcept({{kAllocation + 64, 0x44}}));
    QTest::keyClick(page.get(), Qt::Key_U, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return unusedCheck().isChecked(); }));
    EXPECT_EQ(image(), loadedExcept({{kAllocation + 64, 0xC4}}));
}

// Bad data

TEST_F(TileAllocationPageTest, AllocationOutsideTheRomShowsFillerAndDropsChanges)
{
    state.graphics.selectRoom(TileAllocationRom::kOutside);
    page->refresh();
    expectShown("0", "1", "55", "$21550");
    EXPECT_TRUE(mirrorCheck().isChecked());
    QTest::mouseClick(&mirrorCheck(), Qt::LeftButton, {}, {8, mirrorCheck().height() / 2});
    EXPECT_TRUE(mirrorCheck().isChecked());
    QTest::mouseClick(&unusedCheck(), Qt::LeftButton, {}, {8, unusedCheck().height() / 2});
    EXPECT_FALSE(unusedCheck().isChecked());
    click(blockView(), 0, 0);
    bar().triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(bar().value(), 5);
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(TileAllocationPageTest, BlocksOutsideTheRomShowFillerAndDropPaint)
{
    state.config.setValue(MiscField::startGfxBg, 0xFFFFFFFF);
    state.graphics.selectRoom(TileAllocationRom::kPlain);
    page->refresh();
    expectShown("0", "0", "1", "$ffffc050");
    EXPECT_EQ(canvasPixel(0, 0), kGrey0);
    EXPECT_EQ(canvasPixel(1, 0), kGrey3);
    chooseColour(2);
    clickPixel(0, 0);
    EXPECT_EQ(canvasPixel(0, 0), kGrey0);
    EXPECT_EQ(image(), game.bytes);
}

// The page as it opens where the system's font is larger and its colours are dark.
class TileAllocationPageLargeAndDark : public TileAllocationPageTest {
protected:
    TileAllocationPageLargeAndDark()
    {
        QFont large = m_font;
        large.setPointSizeF(m_font.pointSizeF() * 2.5);
        QApplication::setFont(large);
        QApplication::setPalette(QPalette(QColor(40, 40, 40)));
        openPage();
        page->resize(page->sizeHint());
        QApplication::processEvents();
    }
    ~TileAllocationPageLargeAndDark() override
    {
        page.reset();
        QApplication::setPalette(m_palette);
        QApplication::setFont(m_font);
    }

    void expectTextsWhole() const
    {
        for (const QLabel* label : page->findChildren<QLabel*>())
            EXPECT_GE(label->width(), label->sizeHint().width()) << label->text().toStdString();
        for (const QCheckBox* box : page->findChildren<QCheckBox*>())
            EXPECT_GE(box->width(), box->sizeHint().width()) << box->text().toStdString();
    }

private:
    const QFont m_font = QApplication::font();
    const QPalette m_palette = QApplication::palette();
};

TEST_F(TileAllocationPageLargeAndDark, PicturesAndTextsAreWhole)
{
    EXPECT_EQ(slotView().size(), QSize(262, 262));
    EXPECT_EQ(slotView().picture().at(0, 0), kGrey1);
    EXPECT_EQ(colours().picture().at(16, 50), kGrey1);
    expectTextsWhole();
}

TEST_F(TileAllocationPageLargeAndDark, AnotherAddressMovesNothing)
{
    const QRect before = control<QGroupBox>("tileEditingGroup").geometry();
    state.config.setValue(MiscField::startGfxBg, 0xFFFFFFFF);
    page->refresh();
    EXPECT_EQ(text("romAddressValue"), "$ffffc050");
    QApplication::processEvents();
    EXPECT_EQ(control<QGroupBox>("tileEditingGroup").geometry(), before);
    expectTextsWhole();
}

// In the main window

TEST_F(TileAllocationPageTest, PaintIsSeenOnTheOtherPages)
{
    page.reset();
    ScriptedPrompt prompt;
    MainDialog window(state, prompt);
    window.show();
    auto& tabs = *window.findChild<QTabWidget*>("pageTabs");
    const auto roomPicture = [&] {
        tabs.setCurrentIndex(6);
        return window.findChild<PictureView*>("roomView")->picture().at(2, 3);
    };
    const Pixel before = roomPicture();
    tabs.setCurrentIndex(5);
    auto& view = *window.findChild<PictureView*>("canvasView");
    QTest::keyClick(&view, Qt::Key_3);
    click(view, middle(2), middle(3));
    const Pixel after = roomPicture();
    EXPECT_NE(after, before);
    EXPECT_EQ(after, TileAllocationRom::colour(7)); // entry 3 of the room's palette
}

} // namespace
} // namespace velko::test::tile_allocation
