#include "tests/gui/palette_page_fixture.h"

#include <QPushButton>

namespace velko::test::palette_page {
namespace {

// The preview

class PalettePreviewTest : public PalettePageTest {
protected:
    PalettePreviewTest() { changeRoom(PaletteRom::kFourByThree); }

    static void scrollToEnd(QScrollBar& bar)
    {
        for (int page = 0; page < 10; ++page)
            bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
    }
    // The colours of entries 1 and 5: the room's metatiles take turns.
    const Pixel evenMetatile = colour(0x3E);
    const Pixel oddMetatile = colour(0x3A);
    const Pixel screenBelow = colour(0x36); // entry 9, in its even metatiles
};

TEST_F(PalettePreviewTest, PreviewTakesTheSpaceInWholeMetatiles)
{
    const PixelImage& picture = room().picture();
    EXPECT_EQ(picture.width() % 16, 0u);
    EXPECT_EQ(picture.height() % 16, 0u);
    EXPECT_GT(picture.width(), 600u);
    EXPECT_GT(picture.height(), 300u);
    const QSize before(static_cast<int>(picture.width()), static_cast<int>(picture.height()));
    page->resize(900 + 64, 640 + 32);
    EXPECT_EQ(QSize(static_cast<int>(picture.width()), static_cast<int>(picture.height())),
              before + QSize(64, 32));
    EXPECT_EQ(room().size(), before + QSize(64, 32) + QSize(6, 6));
    page->resize(900, 640);
    EXPECT_EQ(room().size(), before + QSize(6, 6));
}

TEST_F(PalettePreviewTest, BarsCoverTheRoomWithPagesOfTheViewsSize)
{
    const auto width = static_cast<int>(room().picture().width());
    const auto height = static_cast<int>(room().picture().height());
    EXPECT_EQ(horizontalBar().pageStep(), width);
    EXPECT_EQ(horizontalBar().maximum() + width, 1024);
    EXPECT_EQ(verticalBar().pageStep(), height);
    EXPECT_EQ(verticalBar().maximum() + height, 720);
}

TEST_F(PalettePreviewTest, PagesAreTheRoomsSizeWhereItIsSmaller)
{
    changeRoom(PaletteRom::kOneScreen);
    EXPECT_EQ(horizontalBar().pageStep(), 256);
    EXPECT_EQ(horizontalBar().maximum(), 0);
    EXPECT_EQ(verticalBar().pageStep(), 240);
    EXPECT_EQ(verticalBar().maximum(), 0);
    EXPECT_EQ(room().picture().at(256, 0), 0x123456u); // beside the room
}

TEST_F(PalettePreviewTest, ArrowsOfTheBarsScrollByOneMetatile)
{
    horizontalBar().triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(horizontalBar().value(), 16);
    EXPECT_EQ(room().picture().at(0, 0), oddMetatile);
    horizontalBar().triggerAction(QAbstractSlider::SliderSingleStepSub);
    EXPECT_EQ(room().picture().at(0, 0), evenMetatile);
    EXPECT_EQ(room().picture().at(0, 224), evenMetatile);
    verticalBar().triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(verticalBar().value(), 16);
    EXPECT_EQ(room().picture().at(0, 223), evenMetatile);
    EXPECT_EQ(room().picture().at(0, 224), screenBelow);
}

TEST_F(PalettePreviewTest, DraggedThumbMovesThePictureInStepsOfSixteen)
{
    horizontalBar().setSliderDown(true);
    horizontalBar().setSliderPosition(15);
    EXPECT_EQ(room().picture().at(0, 0), evenMetatile);
    horizontalBar().setSliderPosition(31);
    EXPECT_EQ(room().picture().at(0, 0), oddMetatile);
    EXPECT_EQ(room().picture().at(15, 0), colour(0x2F)); // still a whole metatile: entry 16 last
    EXPECT_EQ(room().picture().at(16, 0), evenMetatile);
    horizontalBar().setSliderPosition(32);
    EXPECT_EQ(room().picture().at(0, 0), evenMetatile);
    horizontalBar().setSliderDown(false);
    EXPECT_EQ(room().picture().at(0, 0), evenMetatile);
}

TEST_F(PalettePreviewTest, KeysScrollThePreview)
{
    room().setFocus();
    QTest::keyClick(&room(), Qt::Key_Right);
    EXPECT_EQ(room().picture().at(0, 0), oddMetatile);
    QTest::keyClick(&room(), Qt::Key_Down);
    EXPECT_EQ(horizontalBar().value(), 16);
    EXPECT_EQ(verticalBar().value(), 16);
    QTest::keyClick(&room(), Qt::Key_PageDown);
    EXPECT_EQ(verticalBar().value(), verticalBar().maximum());
}

TEST_F(PalettePreviewTest, WheelOverThePreviewScrollsIt)
{
    turnWheel(room(), *page, {0, -120});
    EXPECT_EQ(verticalBar().value() % 16, 0);
    EXPECT_GT(verticalBar().value(), 0);
    turnWheel(room(), *page, {-120, 0});
    EXPECT_GT(horizontalBar().value(), 0);
}

TEST_F(PalettePreviewTest, WheelElsewhereIsNotThePages)
{
    turnWheel(grid(), *page, {0, -120});
    EXPECT_EQ(verticalBar().value(), 0);
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(PalettePreviewTest, LastPixelOfTheRoomCanBeReached)
{
    scrollToEnd(horizontalBar());
    const PixelImage& picture = room().picture();
    EXPECT_EQ(horizontalBar().value() + static_cast<int>(picture.width()), 1024);
    // The room's last 16 pixels, not the background.
    EXPECT_EQ(picture.at(picture.width() - 16, 0), oddMetatile);
    EXPECT_EQ(picture.at(picture.width() - 1, 0), colour(0x2F));
}

TEST_F(PalettePreviewTest, WriteKeepsThePosition)
{
    horizontalBar().triggerAction(QAbstractSlider::SliderSingleStepAdd);
    clickEntry(5);
    click(grid(), 0, 0);
    EXPECT_EQ(horizontalBar().value(), 16);
    EXPECT_EQ(room().picture().at(0, 0), colour(0));
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kFalling + 5, 0x00));
}

TEST_F(PalettePreviewTest, SmallerRoomIsShownWithinItsBounds)
{
    scrollToEnd(verticalBar());
    changeRoom(PaletteRom::kOneScreen);
    EXPECT_EQ(verticalBar().value(), 0);
    EXPECT_EQ(horizontalBar().value(), 0);
    EXPECT_EQ(room().picture().at(0, 0), colour(2));
    EXPECT_EQ(room().picture().at(0, 239), colour(2));
}

TEST_F(PalettePreviewTest, LargerViewAtTheEndShowsTheRoomToItsEdge)
{
    scrollToEnd(verticalBar());
    page->resize(900, 640 + 32);
    const auto height = static_cast<int>(room().picture().height());
    EXPECT_EQ(verticalBar().value() + height, 720);
    EXPECT_NE(room().picture().at(0, static_cast<std::uint32_t>(height - 1)), 0x123456u);
}

// Awkward rooms

TEST_F(PalettePageTest, RoomWithoutLayoutShowsOneScreen)
{
    changeRoom(PaletteRom::kNoLayout);
    EXPECT_EQ(horizontalBar().pageStep(), 256);
    EXPECT_EQ(verticalBar().pageStep(), 240);
    EXPECT_EQ(room().picture().at(256, 0), 0x123456u);
    click(grid(), 0, 0);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x00));
}

TEST_F(PalettePageTest, HugeRoomIsDrawnInTheViewsSizeOnly)
{
    changeRoom(PaletteRom::kHuge);
    EXPECT_EQ(horizontalBar().maximum() + horizontalBar().pageStep(), 253 * 256);
    EXPECT_EQ(verticalBar().maximum() + verticalBar().pageStep(), 255 * 240);
    horizontalBar().setSliderDown(true);
    horizontalBar().setSliderPosition(horizontalBar().maximum());
    EXPECT_LT(room().picture().pixels().size(), 900u * 640u);
}

TEST_F(PalettePageTest, PaletteOutsideTheRomShowsFillerAndDropsWrites)
{
    changeRoom(PaletteRom::kOutside);
    expectShown(0, 0x55);
    EXPECT_EQ(valueEdit().text(), "55");
    click(grid(), 0, 0);
    spin("brightnessSpin", true);
    spin("hueSpin", false);
    QTest::mouseClick(&control<QPushButton>("blackButton"), Qt::LeftButton);
    type("1f");
    expectPictured(0, 0x55);
    QTest::keyClick(&valueEdit(), Qt::Key_Return);
    EXPECT_EQ(valueEdit().text(), "55");
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(PalettePageTest, PaletteCutOffByTheRomsEndTakesWhatFits)
{
    changeRoom(PaletteRom::kCutOff);
    clickEntry(3);
    expectShown(3, 0x24);
    click(grid(), 0, 0);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kCutOffPalette + 3, 0x00));
    clickEntry(4);
    click(grid(), 0, 0);
    expectShown(4, 0x55);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kCutOffPalette + 3, 0x00));
}

TEST_F(PalettePageTest, PageWithoutARomShowsFiller)
{
    EditorState empty;
    PalettePage other(empty);
    other.setup();
    other.refresh();
    other.show();
    EXPECT_EQ(other.findChild<HexEdit*>("valueEdit")->text(), "55");
}

TEST_F(PalettePageTest, RoomChangeKeepsTheSelectedEntry)
{
    clickEntry(9);
    changeRoom(PaletteRom::kFourByThree);
    expectShown(9, 0x36);
    EXPECT_EQ(valueEdit().text(), "36");
}

} // namespace
} // namespace velko::test::palette_page
