#include "gfx/palette_page.h"

#include "app/arrow_spin.h"
#include "app/hex_edit.h"
#include "app/main_dialog.h"
#include "app/picture_view.h"
#include "app/ui_common.h"
#include "tests/support/palette_rom.h"
#include "tests/support/scripted_prompt.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTabBar>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>

namespace velko {
namespace {

using test::PaletteRom;

constexpr Pixel kFrameLine = 0x000000;
constexpr Pixel kFrameBand = 0xFFFFFF;

// A page of 900 x 640 on the room of one screen.
class PalettePageTest : public test::PaletteGameTest {
protected:
    PalettePageTest()
    {
        state.backgroundColour = 0x123456;
        page = std::make_unique<PalettePage>(state);
        page->setup();
        page->refresh();
        page->resize(900, 640);
        page->show();
        page->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(page.get()));
    }

    template <typename Control> Control& control(const char* name) const
    {
        auto* found = page->findChild<Control*>(name);
        if (found == nullptr)
            throw std::runtime_error(name);
        return *found;
    }
    PictureView& entries() const { return control<PictureView>("entriesView"); }
    PictureView& grid() const { return control<PictureView>("colourGridView"); }
    PictureView& room() const { return control<PictureView>("roomView"); }
    HexEdit& valueEdit() const { return control<HexEdit>("valueEdit"); }
    QScrollBar& horizontalBar() const { return control<QScrollBar>("roomHorizontalBar"); }
    QScrollBar& verticalBar() const { return control<QScrollBar>("roomVerticalBar"); }

    static QPoint inWidget(int x, int y)
    {
        return {x + PictureView::kFrame, y + PictureView::kFrame};
    }
    static void click(PictureView& view, int x, int y)
    {
        QTest::mouseClick(&view, Qt::LeftButton, {}, inWidget(x, y));
    }
    // The middle of an entry's swatch.
    void clickEntry(int entry) const
    {
        click(entries(), entry / 16 * 28 + 14, entry % 16 * 28 + 14);
    }
    static void moveHolding(PictureView& view, int x, int y, Qt::MouseButton button)
    {
        const QPoint point = inWidget(x, y);
        QMouseEvent move(QEvent::MouseMove, point, view.mapToGlobal(QPointF(point)), Qt::NoButton,
                         button, {});
        QApplication::sendEvent(&view, &move);
    }
    // Presses an arrow of a spin control.
    void spin(const char* name, bool up) const
    {
        auto& control = this->control<ArrowSpin>(name);
        QTest::mouseClick(&control, Qt::LeftButton, {},
                          QPoint(control.width() / 2, up ? 3 : control.height() - 3));
    }
    void type(const QString& text) const
    {
        valueEdit().setFocus();
        valueEdit().selectAll();
        QTest::keyClicks(&valueEdit(), text);
    }
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

// What is shown

TEST_F(PalettePageTest, FirstEntryIsSelectedAndShown)
{
    expectShown(0, 0x01);
    EXPECT_EQ(valueEdit().text(), "1");
    EXPECT_EQ(control<PictureView>("selectedColourView").picture(), PixelImage(48, 48, colour(1)));
    EXPECT_EQ(room().picture().at(0, 0), colour(2));
    EXPECT_EQ(room().picture().at(4, 0), colour(17));
}

TEST_F(PalettePageTest, FixedTextsAreToTheLetter)
{
    EXPECT_EQ(control<QWidget>("paletteColorGroup").property("title").toString(),
              " Palette color ");
    EXPECT_EQ(control<QLabel>("nesPaletteLabel").text(), "NES Palette:");
    EXPECT_EQ(control<QPushButton>("blackButton").text(), "Black (0xF)");
}

TEST_F(PalettePageTest, TemplateHasItsNumber)
{
    EXPECT_EQ(page->property(kControlId).toInt(), 101);
}

TEST_F(PalettePageTest, PicturesHaveRoomForAllTheirPixels)
{
    const QSize frame(2 * PictureView::kFrame, 2 * PictureView::kFrame);
    EXPECT_EQ(entries().size(), QSize(56, 448) + frame);
    EXPECT_EQ(grid().size(), QSize(320, 112) + frame);
    EXPECT_EQ(control<QWidget>("selectedColourView").size(), QSize(48, 48) + frame);
}

TEST_F(PalettePageTest, ValueIsShownInHexadecimal)
{
    clickEntry(31);
    EXPECT_EQ(valueEdit().text(), "20");
    changeRoom(PaletteRom::kFourByThree);
    clickEntry(1);
    EXPECT_EQ(valueEdit().text(), "3e");
}

TEST_F(PalettePageTest, WholeByteIsShownInTheBox)
{
    state.rom.writeByte(PaletteRom::kRising, 0xC5);
    page->refresh();
    EXPECT_EQ(valueEdit().text(), "c5");
    expectShown(0, 0xC5);
}

TEST_F(PalettePageTest, LookingWritesNothing)
{
    for (int entry = 0; entry < 32; ++entry)
        clickEntry(entry);
    for (std::uint8_t number = 0; number < PaletteRom::kRooms; ++number)
        changeRoom(number);
    page->resize(1000, 800);
    valueEdit().setFocus();
    entries().setFocus();
    EXPECT_EQ(image(), game.bytes);
}

// The room's entries

TEST_F(PalettePageTest, ClickSelectsAnEntry)
{
    click(entries(), 28, 447);
    expectShown(31, 0x20);
    EXPECT_FALSE(entryIsFramed(0));
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(PalettePageTest, DragSelectsWhatItPassesAndIgnoresTheOutside)
{
    QTest::mousePress(&entries(), Qt::LeftButton, {}, inWidget(10, 10));
    moveHolding(entries(), 10, 70, Qt::LeftButton);
    expectShown(2, 0x03);
    moveHolding(entries(), 40, 70, Qt::LeftButton);
    expectShown(18, 0x13);
    for (const QPoint outside :
         {QPoint(-1, 0), QPoint(56, 0), QPoint(0, -1), QPoint(0, 448), QPoint(5000, -5000)}) {
        moveHolding(entries(), outside.x(), outside.y(), Qt::LeftButton);
        expectShown(18, 0x13);
    }
    moveHolding(entries(), 0, 0, Qt::LeftButton);
    expectShown(0, 0x01);
    QTest::mouseRelease(&entries(), Qt::LeftButton, {}, inWidget(0, 0));
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(PalettePageTest, OnlyTheLeftButtonSelects)
{
    QTest::mouseClick(&entries(), Qt::RightButton, {}, inWidget(40, 40));
    moveHolding(entries(), 40, 40, Qt::RightButton);
    moveHolding(entries(), 40, 40, Qt::NoButton);
    expectShown(0, 0x01);
}

TEST_F(PalettePageTest, ArrowKeysMoveTheSelection)
{
    entries().setFocus();
    QTest::keyClick(&entries(), Qt::Key_Down);
    QTest::keyClick(&entries(), Qt::Key_Right);
    expectShown(17, 0x12);
    QTest::keyClick(&entries(), Qt::Key_Up);
    QTest::keyClick(&entries(), Qt::Key_Up);
    expectShown(16, 0x11);
    QTest::keyClick(&entries(), Qt::Key_Left);
    expectShown(0, 0x01);
    EXPECT_EQ(valueEdit().text(), "1");
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(PalettePageTest, AClickOnAPictureGivesItTheKeyboard)
{
    clickEntry(3);
    EXPECT_TRUE(entries().hasFocus());
    click(grid(), 0, 0);
    EXPECT_TRUE(grid().hasFocus());
}

// The console's colours

TEST_F(PalettePageTest, ClickOnTheLastColourWritesIt)
{
    clickEntry(1);
    click(grid(), 319, 111);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising + 1, 0x3F));
    expectShown(1, 0x3F);
    EXPECT_EQ(valueEdit().text(), "3f");
    EXPECT_EQ(room().picture().at(0, 0), colour(0x3F));
    EXPECT_EQ(room().picture().at(16, 0), colour(6));
}

TEST_F(PalettePageTest, DragOverTheColoursWritesWhatItPassesAndIgnoresTheOutside)
{
    QTest::mousePress(&grid(), Qt::LeftButton, {}, inWidget(0, 0));
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x00));
    moveHolding(grid(), 45, 30, Qt::LeftButton);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x12));
    expectShown(0, 0x12);
    for (const QPoint outside :
         {QPoint(-1, 0), QPoint(320, 0), QPoint(0, -1), QPoint(0, 112), QPoint(-5000, 5000)}) {
        moveHolding(grid(), outside.x(), outside.y(), Qt::LeftButton);
        EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x12));
    }
    moveHolding(grid(), 319, 0, Qt::LeftButton);
    QTest::mouseRelease(&grid(), Qt::LeftButton, {}, inWidget(319, 0));
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x0F));
    moveHolding(grid(), 0, 0, Qt::NoButton);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x0F));
}

TEST_F(PalettePageTest, OnlyTheLeftButtonWrites)
{
    QTest::mouseClick(&grid(), Qt::RightButton, {}, inWidget(100, 100));
    moveHolding(grid(), 100, 100, Qt::MiddleButton);
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(PalettePageTest, ArrowKeysChangeTheColourAndStopAtTheEdge)
{
    clickEntry(1);
    grid().setFocus();
    QTest::keyClick(&grid(), Qt::Key_Down);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising + 1, 0x12));
    expectShown(1, 0x12);
    EXPECT_EQ(valueEdit().text(), "12");
    EXPECT_EQ(room().picture().at(0, 0), colour(0x12));
    QTest::keyClick(&grid(), Qt::Key_Right);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising + 1, 0x13));
    QTest::keyClick(&grid(), Qt::Key_Up);
    QTest::keyClick(&grid(), Qt::Key_Up);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising + 1, 0x03));
    for (int i = 0; i < 4; ++i)
        QTest::keyClick(&grid(), Qt::Key_Left);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising + 1, 0x00));
}

TEST_F(PalettePageTest, EntrySixteenIsTheGroundOfTheWholeRoom)
{
    clickEntry(16);
    click(grid(), 10, 90); // row 3, column 0
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising + 16, 0x30));
    const PixelImage& picture = room().picture();
    for (std::uint32_t x = 4; x < 256; x += 8) {
        ASSERT_EQ(picture.at(x, 0), colour(0x30)) << x;
        ASSERT_EQ(picture.at(x, 239), colour(0x30)) << x;
    }
    EXPECT_EQ(picture.at(0, 0), colour(2));
}

// The edit box

TEST_F(PalettePageTest, TypedTextIsReadAsHexadecimalAndItsLowByteWritten)
{
    const struct {
        const char* text;
        std::uint8_t value;
    } rows[] = {{"1F", 0x1F},  {"0x1F", 0x1F}, {"2a", 0x2A}, {"zz", 0x00},
                {"123", 0x23}, {"C5", 0xC5},   {"-1", 0xFF}, {"fffffff3", 0xF3}};
    clickEntry(1);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        type(row.text);
        EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising + 1, row.value));
        expectPictured(1, row.value);
        EXPECT_EQ(room().picture().at(0, 0), colour(row.value & 63));
        EXPECT_EQ(valueEdit().text(), row.text); // the user's own text stays while typing
    }
}

TEST_F(PalettePageTest, EveryKeyInTheBoxWritesAtOnce)
{
    type("1");
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x01));
    QTest::keyClicks(&valueEdit(), "2");
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x12));
    QTest::keyClicks(&valueEdit(), "3");
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x23));
    QTest::keyClick(&valueEdit(), Qt::Key_Backspace);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x12));
}

TEST_F(PalettePageTest, EmptyBoxWritesZero)
{
    clickEntry(1);
    valueEdit().setFocus();
    valueEdit().selectAll();
    QTest::keyClick(&valueEdit(), Qt::Key_Delete);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising + 1, 0x00));
    expectPictured(1, 0x00);
}

TEST_F(PalettePageTest, LeavingTheBoxShowsTheByteAndWritesNothing)
{
    type("123");
    QTest::keyClick(&valueEdit(), Qt::Key_Tab);
    EXPECT_FALSE(valueEdit().hasFocus());
    EXPECT_EQ(valueEdit().text(), "23");
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x23));
}

TEST_F(PalettePageTest, EnterShowsTheByteToo)
{
    type("0x1F");
    QTest::keyClick(&valueEdit(), Qt::Key_Return);
    EXPECT_EQ(valueEdit().text(), "1f");
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x1F));
}

TEST_F(PalettePageTest, FillingTheBoxWritesNothing)
{
    state.rom.writeByte(PaletteRom::kRising + 1, 0xE9);
    test::Bytes before = image();
    clickEntry(1); // the box goes from "1" to "e9"
    EXPECT_EQ(valueEdit().text(), "e9");
    valueEdit().setHex(0x77);
    valueEdit().setText();
    EXPECT_EQ(image(), before);
}

// Spins and button

TEST_F(PalettePageTest, BrightnessSpinStepsByARowAndWraps)
{
    clickEntry(1);
    click(grid(), 105, 0); // colour 5
    spin("brightnessSpin", false);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising + 1, 0x35));
    expectShown(1, 0x35);
    EXPECT_EQ(valueEdit().text(), "35");
    EXPECT_EQ(room().picture().at(0, 0), colour(0x35));
    spin("brightnessSpin", true);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising + 1, 0x05));
    spin("brightnessSpin", true);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising + 1, 0x15));
}

TEST_F(PalettePageTest, HueSpinStepsByOneAndWraps)
{
    clickEntry(1);
    spin("hueSpin", false);
    spin("hueSpin", false);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising + 1, 0x00));
    spin("hueSpin", false);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising + 1, 0x3F));
    expectShown(1, 0x3F);
    EXPECT_EQ(valueEdit().text(), "3f");
    EXPECT_EQ(room().picture().at(0, 0), colour(0x3F));
    spin("hueSpin", true);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising + 1, 0x00));
}

TEST_F(PalettePageTest, SpinsSpringBackToTheMiddle)
{
    for (const char* name : {"brightnessSpin", "hueSpin"}) {
        auto& control = this->control<ArrowSpin>(name);
        const int middle = (control.minimum() + control.maximum()) / 2;
        for (const bool up : {true, true, true, false, false, false, false}) {
            spin(name, up);
            EXPECT_EQ(control.position(), middle);
            EXPECT_GT(control.maximum(), middle);
            EXPECT_LT(control.minimum(), middle);
        }
    }
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x30)); // 1, one row and one hue down
}

TEST_F(PalettePageTest, HeldSpinArrowGoesOnStepping)
{
    auto& control = this->control<ArrowSpin>("hueSpin");
    const QPoint up(control.width() / 2, 3);
    QTest::mousePress(&control, Qt::LeftButton, {}, up);
    EXPECT_TRUE(QTest::qWaitFor([this] { return state.rom.readByte(PaletteRom::kRising) >= 4; }));
    QTest::mouseRelease(&control, Qt::LeftButton, {}, up);
}

TEST_F(PalettePageTest, SpinsClearTheUpperTwoBits)
{
    type("c5");
    spin("hueSpin", true);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x06));
}

TEST_F(PalettePageTest, SpinsStepByArrowKeys)
{
    auto& control = this->control<ArrowSpin>("brightnessSpin");
    control.setFocus();
    QTest::keyClick(&control, Qt::Key_Up);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x11));
    QTest::keyClick(&control, Qt::Key_Down);
    QTest::keyClick(&control, Qt::Key_Down);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x31));
}

TEST_F(PalettePageTest, BlackButtonWritesColourFifteen)
{
    clickEntry(1);
    QTest::mouseClick(&control<QPushButton>("blackButton"), Qt::LeftButton);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising + 1, 0x0F));
    expectShown(1, 0x0F);
    EXPECT_EQ(valueEdit().text(), "f");
    EXPECT_EQ(room().picture().at(0, 0), colour(0x0F));
}

// The preview

class PalettePreviewTest : public PalettePageTest {
protected:
    PalettePreviewTest() { changeRoom(PaletteRom::kFourByThree); }

    static void scrollToEnd(QScrollBar& bar)
    {
        for (int page = 0; page < 10; ++page)
            bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
    }
    static void wheel(QWidget& over, QWidget& receiver, QPoint turn)
    {
        const QPointF global = over.mapToGlobal(QPointF(20, 20));
        QWheelEvent event(receiver.mapFromGlobal(global), global, {}, turn, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&receiver, &event);
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
    wheel(room(), *page, {0, -120});
    EXPECT_EQ(verticalBar().value() % 16, 0);
    EXPECT_GT(verticalBar().value(), 0);
    wheel(room(), *page, {-120, 0});
    EXPECT_GT(horizontalBar().value(), 0);
}

TEST_F(PalettePreviewTest, WheelElsewhereIsNotThePages)
{
    wheel(grid(), *page, {0, -120});
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

// The keyboard reaches everything

TEST_F(PalettePageTest, TabGoesThroughTheControlsInTheirOrder)
{
    entries().setFocus();
    for (const char* name : {"valueEdit", "brightnessSpin", "hueSpin", "blackButton",
                             "colourGridView", "roomView", "entriesView"}) {
        QTest::keyClick(page->focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(page->focusWidget()->objectName(), name);
    }
}

// What a picture leaves over would scroll the tab around the page.
TEST_F(PalettePageTest, PicturesKeepTheArrowKeysAndPassOthersOn)
{
    for (PictureView* view : {&entries(), &grid(), &room()}) {
        for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down}) {
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
            QApplication::sendEvent(view, &press);
            EXPECT_TRUE(press.isAccepted()) << view->objectName().toStdString();
        }
        QKeyEvent other(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
        QApplication::sendEvent(view, &other);
        EXPECT_FALSE(other.isAccepted()) << view->objectName().toStdString();
    }
}

TEST_F(PalettePageTest, LabelsLeadToTheirControls)
{
    const struct {
        const char* label;
        const char* buddy;
    } rows[] = {{"valueLabel", "valueEdit"},
                {"brightnessLabel", "brightnessSpin"},
                {"hueLabel", "hueSpin"},
                {"nesPaletteLabel", "colourGridView"}};
    for (const auto& row : rows)
        EXPECT_EQ(control<QLabel>(row.label).buddy(), &control<QWidget>(row.buddy));
}

TEST_F(PalettePageTest, EveryControlTellsWhatItIsFor)
{
    for (const char* name : {"entriesView", "selectedColourView", "valueEdit", "brightnessSpin",
                             "hueSpin", "blackButton", "colourGridView", "roomView"})
        EXPECT_FALSE(control<QWidget>(name).toolTip().isEmpty()) << name;
}

TEST_F(PalettePageTest, PageMayGoWhileItsBoxIsBeingTypedInto)
{
    type("123");
    page.reset();
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x23));
}

// In the main window

class PaletteTabTest : public test::PaletteGameTest {
protected:
    static constexpr int kPaletteTab = 6;

    PaletteTabTest()
    {
        window = std::make_unique<MainDialog>(state, prompt);
        window->show();
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
        chooseTab(kPaletteTab);
    }

    void chooseTab(int index) const { window->findChild<QTabBar*>()->setCurrentIndex(index); }
    template <typename Control> Control* control(const char* name) const
    {
        return window->findChild<Control*>(name);
    }

    test::ScriptedPrompt prompt;
    std::unique_ptr<MainDialog> window;
};

TEST_F(PaletteTabTest, EditsTheRoomThatTheChooserShows)
{
    QTest::keyClick(control<QComboBox>("roomCombo"), Qt::Key_Down);
    ASSERT_EQ(state.currentRoom(), PaletteRom::kFourByThree);
    EXPECT_EQ(control<HexEdit>("valueEdit")->text(), "3f");
    QTest::mouseClick(control<QPushButton>("blackButton"), Qt::LeftButton);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kFalling, 0x0F));
}

TEST_F(PaletteTabTest, PreviewGrowsWithTheWindow)
{
    const auto* preview = control<PictureView>("roomView");
    QApplication::processEvents(); // the window takes the size that the page needs
    const QSize before = preview->size();
    window->resize(window->size() + QSize(320, 160));
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return preview->size() == before + QSize(320, 160); })); // whole metatiles
}

TEST_F(PaletteTabTest, AnotherTabMayBeChosenWhileTypingIntoTheBox)
{
    auto* box = control<HexEdit>("valueEdit");
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, "123");
    chooseTab(0);
    EXPECT_EQ(control<HexEdit>("valueEdit"), nullptr);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x23));
    chooseTab(kPaletteTab);
    EXPECT_EQ(control<HexEdit>("valueEdit")->text(), "23");
}

TEST_F(PaletteTabTest, WindowMayCloseWhileTypingIntoTheBox)
{
    auto* box = control<HexEdit>("valueEdit");
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, "7");
    window.reset();
    EXPECT_EQ(state.rom.readByte(PaletteRom::kRising), 0x07);
}

} // namespace
} // namespace velko
