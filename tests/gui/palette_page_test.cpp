#include "app/main_dialog.h"
#include "app/ui_common.h"
#include "tests/gui/palette_page_fixture.h"
#include "tests/support/scripted_prompt.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>

namespace velko::test::palette_page {
namespace {

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
    pressPicture(entries(), {10, 10});
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
    releasePicture(entries(), {0, 0});
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(PalettePageTest, OnlyTheLeftButtonSelects)
{
    clickPicture(entries(), {40, 40}, Qt::RightButton);
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
    pressPicture(grid(), {0, 0});
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
    releasePicture(grid(), {319, 0});
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x0F));
    moveHolding(grid(), 0, 0, Qt::NoButton);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x0F));
}

TEST_F(PalettePageTest, OnlyTheLeftButtonWrites)
{
    clickPicture(grid(), {100, 100}, Qt::RightButton);
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

class PaletteTabTest : public PaletteGameTest {
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

    ScriptedPrompt prompt;
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
    typeInto(*box, "123");
    chooseTab(0);
    EXPECT_EQ(control<HexEdit>("valueEdit"), nullptr);
    EXPECT_EQ(image(), loadedExcept(PaletteRom::kRising, 0x23));
    chooseTab(kPaletteTab);
    EXPECT_EQ(control<HexEdit>("valueEdit")->text(), "23");
}

TEST_F(PaletteTabTest, WindowMayCloseWhileTypingIntoTheBox)
{
    auto* box = control<HexEdit>("valueEdit");
    typeInto(*box, "7");
    window.reset();
    EXPECT_EQ(state.rom.readByte(PaletteRom::kRising), 0x07);
}

} // namespace
} // namespace velko::test::palette_page
