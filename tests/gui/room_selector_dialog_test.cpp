#include "tools/room_selector_dialog.h"

#include "app/main_dialog.h"
#include "app/picture_view.h"
#include "tests/gui/modal_helper.h"
#include "tests/gui/page_support.h"
#include "tests/pages/map_layout_rom.h"
#include "tests/support/scripted_prompt.h"

#include <QAction>
#include <QComboBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>
#include <gtest/gtest.h>
#include <memory>

namespace velko {
namespace {

using test::Bytes;
using test::TestRom;

constexpr Pixel kPaper = 0xD0C0B0;

// A hundred rooms of one screen each, the screen of room r in colour r modulo 4 of the palette,
// where colour 0 is entry 16. Room 1 has 3 x 2 screens.
class RoomSelectorDialogTest : public test::ColouredMapTest {
protected:
    RoomSelectorDialogTest() : ColouredMapTest(100) { prepare(100); }

    void prepare(std::uint32_t rooms)
    {
        for (std::uint32_t room = 0; room < 100; ++room) {
            game.shareAll(room, 0);
            game.setLayout(room, 1, 1, {static_cast<std::uint8_t>(room % 4)});
        }
        game.setLayout(1, 3, 2, {0, 1, 2, 3, 0, 1});
        start();
        state.backgroundColour = kPaper;
        state.config.setValue(MiscField::rooms, rooms);
        state.names.rooms.clear();
        for (std::uint32_t room = 0; room < rooms; ++room)
            state.names.rooms.push_back("Room " + std::to_string(room));
    }

    RoomSelectorDialog& open(std::uint8_t room = 0)
    {
        dialog = std::make_unique<RoomSelectorDialog>(state, room);
        // The screen of the tests is smaller than all thumbnails.
        dialog->resize(1000, 640);
        test::showActive(*dialog);
        return *dialog;
    }

    PictureView& thumbnail(int slot) const
    {
        return *dialog->findChild<PictureView*>(QString("thumbnail%1").arg(slot));
    }
    QScrollBar& bar() const { return *dialog->findChild<QScrollBar*>("pageBar"); }
    QPushButton& back() const { return *dialog->findChild<QPushButton*>("backButton"); }

    // A pixel of a thumbnail below its caption.
    Pixel pixel(int slot, std::uint32_t x = 115, std::uint32_t y = 60) const
    {
        return thumbnail(slot).picture().at(x, y);
    }
    // What stands at a place of the window.
    Pixel shownAt(int x, int y) const
    {
        const QImage shown = dialog->grab().toImage();
        return shown.pixel(QPoint(x, y) * static_cast<int>(shown.devicePixelRatio())) & 0xFFFFFF;
    }
    static Pixel roomColour(std::uint32_t room)
    {
        return TestRom::colour(room % 4 == 0 ? 16 : room % 4);
    }
    void expectPage(std::uint32_t page) const
    {
        for (std::uint32_t slot = 0; slot < 8; ++slot) {
            const std::uint32_t room = 8 * page + slot;
            EXPECT_EQ(thumbnail(static_cast<int>(slot)).accessibleName().toStdString(),
                      "Room " + std::to_string(room));
            if (room != 1) {
                EXPECT_EQ(pixel(static_cast<int>(slot)), roomColour(room)) << "room " << room;
            }
        }
    }
    void click(int x, int y, Qt::MouseButton button = Qt::LeftButton) const
    {
        const QPoint point(x, y);
        QTest::mouseClick(dialog->windowHandle(), button, {}, point);
    }
    void turnWheel(int notches) const
    {
        const QPointF at(100, 100);
        QWheelEvent wheel(at, dialog->mapToGlobal(at), {}, {0, -120 * notches}, {}, {},
                          Qt::NoScrollPhase, false);
        // Only an event of the window system goes on to what lies behind the thumbnail.
        QSpontaneKeyEvent::setSpontaneous(&wheel);
        qApp->notify(&thumbnail(0), &wheel);
    }

    std::unique_ptr<RoomSelectorDialog> dialog;
};

// What is shown

TEST_F(RoomSelectorDialogTest, TextsAreToTheLetter)
{
    open();
    EXPECT_EQ(dialog->windowTitle(), "Room Selector");
    EXPECT_EQ(back().text().remove('&'), "Back");
    const auto* ok = dialog->findChild<QPushButton*>("okButton");
    EXPECT_EQ(ok->text(), "OK");
    EXPECT_FALSE(ok->isVisible());
}

TEST_F(RoomSelectorDialogTest, ThumbnailsStandInTwoRowsOfFour)
{
    open();
    for (int slot = 0; slot < 8; ++slot) {
        const QPoint corner = thumbnail(slot).mapTo(dialog.get(), QPoint(3, 3));
        EXPECT_EQ(corner, QPoint(10 + 250 * (slot % 4), 20 + 250 * (slot / 4))) << slot;
        EXPECT_EQ(thumbnail(slot).picture().width(), 230U);
        EXPECT_EQ(thumbnail(slot).picture().height(), 230U);
        EXPECT_EQ(thumbnail(slot).size(), QSize(236, 236));
    }
    EXPECT_EQ(bar().width(), dialog->width());
    EXPECT_GE(bar().mapTo(dialog.get(), QPoint()).y(), 500);
}

TEST_F(RoomSelectorDialogTest, OpensOnThePageOfTheRoom)
{
    open(19);
    expectPage(2);
    EXPECT_EQ(bar().value(), 2);
    EXPECT_EQ(dialog->room(), 19);
    EXPECT_TRUE(thumbnail(3).hasFocus());
}

TEST_F(RoomSelectorDialogTest, ThumbnailIsTheWholeRoomScreenByScreen)
{
    open();
    // Shares of 76 x 115 pixels; two columns are left over.
    const Pixel second[] = {roomColour(0), roomColour(1), roomColour(2),
                            roomColour(3), roomColour(0), roomColour(1)};
    for (std::uint32_t cell = 0; cell < 6; ++cell)
        EXPECT_EQ(pixel(1, cell % 3 * 76 + 38, cell / 3 * 115 + 60), second[cell]) << cell;
    EXPECT_EQ(pixel(1, 228, 60), kPaper);
    EXPECT_EQ(pixel(1, 229, 229), kPaper);
}

TEST_F(RoomSelectorDialogTest, CaptionIsTheRoomsNameInOutlinedWhite)
{
    open();
    const PixelImage& picture = thumbnail(2).picture();
    PixelImage expected(230, 230);
    state.renderer.renderRoomThumbnail(2, expected, "Room 2", kPaper);
    EXPECT_EQ(picture, expected);
    int white = 0;
    int black = 0;
    for (std::uint32_t y = 3; y < 18; ++y) {
        for (std::uint32_t x = 4; x < 64; ++x) {
            white += picture.at(x, y) == 0xFFFFFF ? 1 : 0;
            black += picture.at(x, y) == 0x000000 ? 1 : 0;
        }
    }
    EXPECT_GT(white, 50);
    EXPECT_GT(black, 50);
}

TEST_F(RoomSelectorDialogTest, RoomWithoutAMapIsOneScreen)
{
    game.setLayout(0, 1, 1, {2});
    game.setStoredSize(0, 0, 0);
    start();
    open();
    // With a stored width of 0 the cell read is the one behind the border.
    EXPECT_EQ(pixel(0, 5, 60), roomColour(2));
    EXPECT_EQ(pixel(0, 225, 225), roomColour(2));
}

TEST_F(RoomSelectorDialogTest, NameListMayBeShort)
{
    state.names.rooms.resize(3);
    open();
    EXPECT_EQ(thumbnail(3).accessibleName(), "");
    EXPECT_EQ(pixel(3), roomColour(3));
}

// Paging

TEST_F(RoomSelectorDialogTest, LastRoomsThatFillNoPageCannotBeReachedByTheBar)
{
    open();
    EXPECT_EQ(bar().minimum(), 0);
    EXPECT_EQ(bar().maximum(), 11);
    EXPECT_EQ(bar().pageStep(), 1);
    for (int i = 0; i < 20; ++i)
        bar().triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(bar().value(), 11);
    expectPage(11);
}

TEST_F(RoomSelectorDialogTest, RoomBehindTheLastPageIsShownOnOpeningAllTheSame)
{
    open(97);
    EXPECT_EQ(bar().value(), 11);
    EXPECT_EQ(thumbnail(1).accessibleName(), "Room 97");
    EXPECT_TRUE(thumbnail(3).isVisible());
    EXPECT_FALSE(thumbnail(4).isVisible());
    click(20, 280); // where slot 4 would be
    EXPECT_TRUE(dialog->isVisible());
    bar().triggerAction(QAbstractSlider::SliderPageStepAdd);
    expectPage(11);
    EXPECT_TRUE(thumbnail(4).isVisible());
}

TEST_F(RoomSelectorDialogTest, PagesFollowTheThumbKeysAndWheel)
{
    open();
    bar().setSliderDown(true);
    bar().setSliderPosition(5);
    expectPage(5);
    bar().setSliderDown(false);
    expectPage(5);
    QTest::keyClick(&thumbnail(0), Qt::Key_PageDown);
    expectPage(6);
    QTest::keyClick(&thumbnail(0), Qt::Key_PageUp);
    QTest::keyClick(&thumbnail(0), Qt::Key_PageUp);
    expectPage(4);
    back().setFocus();
    QTest::keyClick(&back(), Qt::Key_PageDown);
    expectPage(5);
    QTest::keyClick(&back(), Qt::Key_PageUp);
    expectPage(4);
    turnWheel(1);
    expectPage(5);
    turnWheel(-1);
    expectPage(4);
    EXPECT_EQ(bar().value(), 4);
}

TEST_F(RoomSelectorDialogTest, ArrowsOfTheBarTurnOnePage)
{
    open();
    QTest::mouseClick(&bar(), Qt::LeftButton, {}, QPoint(bar().width() - 4, bar().height() / 2));
    expectPage(1);
    QTest::mouseClick(&bar(), Qt::LeftButton, {}, QPoint(4, bar().height() / 2));
    expectPage(0);
}

TEST_F(RoomSelectorDialogTest, PageIsDrawnFromTheImageAsItStands)
{
    open();
    EXPECT_EQ(pixel(3), roomColour(3));
    state.store.pahMapLayout.selectRoom(3);
    state.store.pahMapLayout.setDataByte(1, 2);
    bar().triggerAction(QAbstractSlider::SliderSingleStepAdd);
    bar().triggerAction(QAbstractSlider::SliderSingleStepSub);
    EXPECT_EQ(pixel(3), roomColour(2));
}

TEST_F(RoomSelectorDialogTest, LastRoomOfThePageStaysSelected)
{
    open(12);
    EXPECT_EQ(state.currentRoom(), 15);
    EXPECT_EQ(state.store.pahPal.currentRoom(), 15U);
}

// Choosing

TEST_F(RoomSelectorDialogTest, ClickChoosesTheRoom)
{
    open(12);
    click(10 + 250 + 229, 20 + 250 + 229); // the last pixel of slot 5
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(dialog->room(), 13);
    EXPECT_FALSE(dialog->closedByCaption());
}

TEST_F(RoomSelectorDialogTest, ReleaseOutsideEverySlotDoesNothing)
{
    open(12);
    for (const QPoint& point : {QPoint(2, 2), QPoint(250, 100), QPoint(100, 260), QPoint(995, 100),
                                QPoint(9, 20), QPoint(10, 19), QPoint(240, 249), QPoint(239, 250)})
        click(point.x(), point.y());
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(dialog->room(), 12);
}

TEST_F(RoomSelectorDialogTest, OtherButtonsDoNothing)
{
    open(12);
    click(100, 100, Qt::RightButton);
    click(100, 100, Qt::MiddleButton);
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(RoomSelectorDialogTest, ButtonCountsWhereItIsReleased)
{
    for (const QPoint& pressed : {QPoint(100, 100), QPoint(250, 260)}) { // slot 0, between slots
        open(0);
        QTest::mousePress(dialog->windowHandle(), Qt::LeftButton, {}, pressed);
        EXPECT_TRUE(dialog->isVisible());
        QTest::mouseRelease(dialog->windowHandle(), Qt::LeftButton, {}, QPoint(800, 400));
        EXPECT_FALSE(dialog->isVisible());
        EXPECT_EQ(dialog->room(), 7);
    }
}

TEST_F(RoomSelectorDialogTest, KeysChooseTheThumbnailThatHasTheFocus)
{
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        open(16);
        QTest::keyClick(&thumbnail(0), Qt::Key_Right);
        QTest::keyClick(&thumbnail(1), Qt::Key_Down);
        ASSERT_TRUE(thumbnail(5).hasFocus());
        QTest::keyClick(&thumbnail(5), key);
        EXPECT_FALSE(dialog->isVisible());
        EXPECT_EQ(dialog->room(), 21);
    }
}

TEST_F(RoomSelectorDialogTest, TabGoesThroughTheThumbnailsToBack)
{
    open();
    for (int slot = 1; slot < 8; ++slot) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_TRUE(thumbnail(slot).hasFocus()) << slot;
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(back().hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(thumbnail(0).hasFocus());
}

// Leaving

TEST_F(RoomSelectorDialogTest, BackChoosesNothing)
{
    open(12);
    bar().triggerAction(QAbstractSlider::SliderSingleStepAdd);
    QTest::mouseClick(&back(), Qt::LeftButton);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(dialog->room(), 12);
    EXPECT_FALSE(dialog->closedByCaption());
}

TEST_F(RoomSelectorDialogTest, EscapeIsNotTheCaption)
{
    open(12);
    QTest::keyClick(&thumbnail(4), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(dialog->room(), 12);
    EXPECT_FALSE(dialog->closedByCaption());
}

TEST_F(RoomSelectorDialogTest, CloseBoxOfTheCaptionIsNoted)
{
    open(12);
    dialog->windowHandle()->close();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(dialog->room(), 12);
    EXPECT_TRUE(dialog->closedByCaption());
}

// Few rooms

TEST_F(RoomSelectorDialogTest, FewerRoomsThanAPageStandAlone)
{
    prepare(3);
    open(1);
    EXPECT_EQ(bar().minimum(), 0);
    EXPECT_EQ(bar().maximum(), 0);
    EXPECT_TRUE(thumbnail(2).isVisible());
    for (int slot = 3; slot < 8; ++slot)
        EXPECT_FALSE(thumbnail(slot).isVisible()) << slot;
    const Pixel background = dialog->palette().color(QPalette::Window).rgb() & 0xFFFFFF;
    EXPECT_EQ(shownAt(760 + 115, 20 + 115), background);
    EXPECT_EQ(shownAt(10 + 115, 270 + 115), background);
    click(760 + 115, 20 + 115);
    click(10 + 115, 270 + 115);
    EXPECT_TRUE(dialog->isVisible());
    QTest::keyClick(&thumbnail(1), Qt::Key_PageDown);
    EXPECT_EQ(thumbnail(0).accessibleName(), "Room 0");
    QTest::keyClick(&thumbnail(1), Qt::Key_Down);
    EXPECT_TRUE(thumbnail(1).hasFocus());
}

TEST_F(RoomSelectorDialogTest, AbsurdNumbersOfRooms)
{
    state.config.setValue(MiscField::rooms, 0);
    open(0);
    for (int slot = 0; slot < 8; ++slot)
        EXPECT_FALSE(thumbnail(slot).isVisible()) << slot;
    click(100, 100);
    QTest::keyClick(&thumbnail(0), Qt::Key_Return);
    EXPECT_EQ(dialog->room(), 0);

    state.config.setValue(MiscField::rooms, 0xFFFFFFFF);
    open(255);
    EXPECT_EQ(bar().maximum(), 31);
    EXPECT_EQ(bar().value(), 31);
    QTest::keyClick(&thumbnail(7), Qt::Key_Return);
    EXPECT_EQ(dialog->room(), 255);
}

// On small screens

TEST_F(RoomSelectorDialogTest, ThumbnailsScrollInASmallWindow)
{
    open();
    dialog->resize(600, 400);
    QTest::qWait(0);
    click(20, 390); // below the bars, where slot 4 would go on
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(dialog->size(), QSize(600, 400));
    auto* scroll = dialog->findChild<QScrollArea*>("thumbnailScroll");
    scroll->horizontalScrollBar()->setValue(400);
    click(200, 100); // 600 pixels from the left: slot 2
    EXPECT_EQ(dialog->room(), 2);
}

// From the main window

class RoomSelectorCommandTest : public RoomSelectorDialogTest {
protected:
    void trigger(std::function<void(RoomSelectorDialog&)> act)
    {
        window.show();
        auto* command = window.findChild<QAction*>("roomSelectorAction");
        EXPECT_TRUE(command->isEnabled());
        test::onceModal<RoomSelectorDialog>(std::move(act));
        command->trigger();
    }

    test::ScriptedPrompt prompt;
    MainDialog window{state, prompt};
};

TEST_F(RoomSelectorCommandTest, ChosenRoomIsShown)
{
    trigger([](RoomSelectorDialog& selector) {
        QTest::mouseClick(selector.findChild<PictureView*>("thumbnail6"), Qt::LeftButton);
    });
    EXPECT_EQ(state.currentRoom(), 6);
    EXPECT_EQ(window.findChild<QComboBox*>("roomCombo")->currentIndex(), 6);
}

TEST_F(RoomSelectorCommandTest, BackReturnsToTheRoomThatWasShown)
{
    window.chooseRoom(3);
    trigger([](RoomSelectorDialog& selector) {
        QTest::mouseClick(selector.findChild<QPushButton*>("backButton"), Qt::LeftButton);
    });
    EXPECT_EQ(state.currentRoom(), 3);
    EXPECT_EQ(state.store.pahPal.currentRoom(), 3U);
}

} // namespace
} // namespace velko
