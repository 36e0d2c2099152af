#include "pages/door_placement_page.h"

#include "app/main_dialog.h"
#include "app/picture_view.h"
#include "app/room_combo.h"
#include "tests/gui/page_support.h"
#include "tests/pages/door_rom.h"
#include "tests/support/scripted_prompt.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <QTest>
#include <QWheelEvent>
#include <memory>

namespace velko {
namespace {

using test::Bytes;
using test::ScriptedPrompt;

// The template's numbers of the controls.
constexpr int kEntrances[] = {1092, 1094, 1093, 1095};
constexpr int kExits[] = {1103, 1104, 1105, 1106};
constexpr int kExitEntrances[] = {1099, 1100, 1101, 1102};
constexpr int kFields[] = {1107, 1108, 1096, 1098};

// A page on the large room. Its entrance 1 stands at (64, 80), 2 at (640, 352), 3 is not set, 4
// stands far outside; exit 1 leads to entrance 2 of room 4, exit 4 to what does not exist.
class DoorPlacementPageTest : public test::DoorTest {
protected:
    DoorPlacementPageTest()
    {
        setEntrance(kLarge, 0, 0x10, 0x45);
        setEntrance(kLarge, 1, 0x31, 0x87);
        setEntrance(kLarge, 2, 0x0F, 0x21);
        setEntrance(kLarge, 3, 0xFF, 0xFF);
        setEntrance(kWide, 1, 0x40, 0xAD);
        setExit(kLarge, 0, 4, 1);
        setExit(kLarge, 3, 200, 77);
        setExit(kWide, 1, 2, 3);
        state.names.rooms = {"Gate", "Hut", "Plain", "Void", "Road"}; // the sixth has no name
        load();
        open();
    }
    void open()
    {
        page = std::make_unique<DoorPlacementPage>(state);
        test::showPage(*page, {1000, 620});
    }

    template <typename Widget = QWidget> Widget& control(int id) const
    {
        return test::controlOf<Widget>(*page, id);
    }
    PictureView& map() const { return control<PictureView>(1109); }
    QScrollBar& horizontalBar() const { return control<QScrollBar>(1110); }
    QScrollBar& verticalBar() const { return control<QScrollBar>(1111); }
    QComboBox& room() const { return control<QComboBox>(1097); }
    Pixel pixel(std::uint32_t x, std::uint32_t y) const { return map().picture().at(x, y); }

    void clickRadio(int id) const
    {
        auto& radio = control<QRadioButton>(id);
        QTest::mouseClick(&radio, Qt::LeftButton, {}, QPoint(8, radio.height() / 2));
    }
    static QPoint inWidget(int x, int y)
    {
        return {x + PictureView::kFrame, y + PictureView::kFrame};
    }
    void clickMap(int x, int y, Qt::MouseButton button = Qt::LeftButton) const
    {
        QTest::mouseClick(&map(), button, {}, inWidget(x, y));
    }
    void moveMouse(int x, int y, Qt::MouseButtons buttons) const
    {
        const QPoint point = inWidget(x, y);
        QMouseEvent move(QEvent::MouseMove, point, map().mapToGlobal(QPointF(point)), Qt::NoButton,
                         buttons, {});
        QApplication::sendEvent(&map(), &move);
    }
    // Of the mouse, wherever the button went down.
    void moveInWindow(QPoint point, Qt::MouseButtons buttons) const
    {
        QMouseEvent move(QEvent::MouseMove, point, point, page->mapToGlobal(QPointF(point)),
                         Qt::NoButton, buttons, {});
        QApplication::sendEvent(page->windowHandle(), &move);
    }
    void changeRoom(std::uint8_t number)
    {
        state.graphics.selectRoom(number);
        page->refresh();
    }
    void expectFields(const char* screenX, const char* screenY, const char* x, const char* y) const
    {
        const char* expected[] = {screenX, screenY, x, y};
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ(control<QLineEdit>(kFields[i]).text(), expected[i]) << "field " << i;
    }
    // Which of four radio buttons is checked, from 0; -1 for none.
    int checkedOf(const int (&ids)[4]) const
    {
        int found = -1;
        for (int i = 0; i < 4; ++i) {
            if (!control<QRadioButton>(ids[i]).isChecked())
                continue;
            EXPECT_EQ(found, -1) << "two are checked";
            found = i;
        }
        return found;
    }
    // What both bars and the room's pixels tell.
    void expectScroll(int x, int y)
    {
        EXPECT_EQ(horizontalBar().value(), x);
        EXPECT_EQ(verticalBar().value(), y);
        DoorModel model(state);
        model.showRoom();
        model.view().scrollTo({x, y});
        PixelImage expected;
        model.draw(expected);
        EXPECT_TRUE(map().picture() == expected);
    }

    std::unique_ptr<DoorPlacementPage> page;
};

// What is there

TEST_F(DoorPlacementPageTest, ControlsAreThereWithTheirTexts)
{
    EXPECT_EQ(page->property(kControlId).toInt(), 104);
    for (const auto* ids : {&kEntrances, &kExits, &kExitEntrances}) {
        for (int i = 0; i < 4; ++i) {
            EXPECT_EQ(control<QRadioButton>((*ids)[i]).text(), QString::number(i + 1));
            EXPECT_TRUE(control((*ids)[i]).isVisible());
        }
    }
    const struct {
        const char* name;
        const char* title;
    } groups[] = {{"entranceGroup", " Entrances "},
                  {"entranceSelectionGroup", " Selection "},
                  {"exitGroup", " Exits"},
                  {"exitSelectionGroup", " Selection "}};
    for (const auto& row : groups)
        EXPECT_EQ(page->findChild<QGroupBox*>(row.name)->title(), row.title);
    const struct {
        const char* name;
        const char* text;
    } labels[] = {{"screenXLabel", "Screen X:"},
                  {"screenYLabel", "Screen Y:"},
                  {"blockXLabel", "X:"},
                  {"blockYLabel", "Y:"},
                  {"exitRoomLabel", "Teleport to Room Id:"},
                  {"exitEntranceLabel", "Teleport to Entrance:"},
                  {"hintLabel", "Hint: Use Unit editor to place Exit doors!"}};
    for (const auto& row : labels) {
        const auto* label = page->findChild<QLabel*>(row.name);
        ASSERT_NE(label, nullptr) << row.name;
        EXPECT_EQ(label->text(), row.text);
        EXPECT_TRUE(label->isVisible());
    }
}

TEST_F(DoorPlacementPageTest, RoomsAreListedByName)
{
    ASSERT_EQ(room().count(), 6);
    EXPECT_EQ(room().itemText(0), "Gate");
    EXPECT_EQ(room().itemText(4), "Road");
    EXPECT_EQ(room().itemText(5), "");
}

TEST_F(DoorPlacementPageTest, FirstSlotsAreSelectedAndTheRoomsCornerIsShown)
{
    EXPECT_EQ(checkedOf(kEntrances), 0);
    EXPECT_EQ(checkedOf(kExits), 0);
    expectFields("1", "0", "4", "5");
    EXPECT_EQ(room().currentText(), "Road");
    EXPECT_EQ(checkedOf(kExitEntrances), 1);
    expectScroll(0, 0);
    EXPECT_EQ(map().size(), QSize(640, 480) + 2 * QSize(PictureView::kFrame, PictureView::kFrame));
}

TEST_F(DoorPlacementPageTest, FieldsAreReadOnly)
{
    for (const int id : kFields) {
        auto& field = control<QLineEdit>(id);
        const QString before = field.text();
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, "9");
        QTest::keyClick(&field, Qt::Key_Delete);
        EXPECT_EQ(field.text(), before);
        field.setCursorPosition(0);
        field.setSelection(0, 2);
    }
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(DoorPlacementPageTest, LookingWritesNothing)
{
    for (const std::uint8_t number : {kLarge, kHuge, kNoLayout, std::uint8_t{255}}) {
        changeRoom(number);
        for (int i = 0; i < 4; ++i) {
            clickRadio(kEntrances[i]);
            clickRadio(kExits[i]);
        }
    }
    EXPECT_EQ(image(), game.bytes);
}

// Selecting

TEST_F(DoorPlacementPageTest, SelectedEntranceIsShownInTheMiddle)
{
    clickRadio(kEntrances[1]);
    EXPECT_EQ(checkedOf(kEntrances), 1);
    expectFields("3", "1", "8", "7");
    expectScroll(448, 160);                // not a multiple of the view's size
    EXPECT_EQ(pixel(330, 250), kDoors[1]); // from (320, 240) to (346.7, 260)
}

TEST_F(DoorPlacementPageTest, EntranceThatIsNotSetLeavesTheView)
{
    clickRadio(kEntrances[1]);
    clickRadio(kEntrances[2]);
    expectFields("0", "15", "2", "1");
    expectScroll(448, 160);
}

TEST_F(DoorPlacementPageTest, EntranceFarOutsideLeavesTheViewFlushWithTheEdges)
{
    clickRadio(kEntrances[3]);
    expectFields("15", "15", "15", "15");
    expectScroll(640, 336);
}

TEST_F(DoorPlacementPageTest, ClickOnTheSelectedEntranceFindsItAgain)
{
    clickRadio(kEntrances[1]);
    horizontalBar().triggerAction(QScrollBar::SliderPageStepSub);
    expectScroll(64, 160);
    clickRadio(kEntrances[1]);
    expectScroll(448, 160);
}

TEST_F(DoorPlacementPageTest, SelectedExitIsShown)
{
    clickRadio(kExits[1]);
    EXPECT_EQ(checkedOf(kExits), 1);
    EXPECT_EQ(room().currentText(), "Gate");
    EXPECT_EQ(checkedOf(kExitEntrances), 0);
    EXPECT_EQ(checkedOf(kEntrances), 0);
}

TEST_F(DoorPlacementPageTest, ExitToNowhereShowsNothingChosen)
{
    clickRadio(kExits[3]);
    EXPECT_EQ(room().currentIndex(), -1);
    EXPECT_EQ(checkedOf(kExitEntrances), -1);
    clickRadio(kExitEntrances[2]);
    EXPECT_EQ(image(), loadedExcept(0x3B03, 2));
    EXPECT_EQ(checkedOf(kExitEntrances), 2);
    clickRadio(kExits[0]);
    EXPECT_EQ(checkedOf(kExitEntrances), 1);
    clickRadio(kExitEntrances[3]);
    EXPECT_EQ(checkedOf(kExitEntrances), 3);
}

TEST_F(DoorPlacementPageTest, ArrowKeysGoThroughTheEntrances)
{
    clickRadio(kEntrances[0]);
    QTest::keyClick(&control(kEntrances[0]), Qt::Key_Right);
    EXPECT_EQ(checkedOf(kEntrances), 1);
    expectFields("3", "1", "8", "7");
    expectScroll(448, 160);
}

// Exits

TEST_F(DoorPlacementPageTest, ChosenRoomIsWritten)
{
    clickRadio(kExits[2]);
    room().setFocus();
    QTest::keyClicks(&room(), "plain");
    EXPECT_EQ(image(), loadedExcept(0x3A02, 2));
    EXPECT_EQ(room().currentText(), "Plain");
}

TEST_F(DoorPlacementPageTest, ChosenEntranceOfTheExitIsWritten)
{
    for (int i = 0; i < 4; ++i) {
        clickRadio(kExitEntrances[i]);
        EXPECT_EQ(image(), loadedExcept(0x3B00, static_cast<std::uint8_t>(i)));
        EXPECT_EQ(checkedOf(kExitEntrances), i);
    }
    QTest::keyClick(&control(kExitEntrances[3]), Qt::Key_Left);
    EXPECT_EQ(image(), loadedExcept(0x3B00, 2));
}

TEST_F(DoorPlacementPageTest, ExitThatCannotBeStoredIsNotShownAsChosen)
{
    state.config.setValue(MiscField::ptrExitRoom, 0x7FFFFFFF);
    state.config.setValue(MiscField::ptrExitEntrance, 0x7FFFFFFF);
    page->refresh();
    clickRadio(kExitEntrances[2]);
    EXPECT_EQ(checkedOf(kExitEntrances), -1);
    room().setFocus();
    QTest::keyClicks(&room(), "plain");
    EXPECT_EQ(room().currentIndex(), -1);
    EXPECT_EQ(image(), game.bytes);
}

// Placing

TEST_F(DoorPlacementPageTest, ClickPlacesTheSelectedEntrance)
{
    clickRadio(kEntrances[2]);
    clickMap(500, 313); // room pixel (300, 250)
    EXPECT_EQ(image(), loadedWithEntrance(2, 0x21, 0x20));
    expectFields("2", "1", "2", "0");
    expectScroll(0, 0);
    EXPECT_EQ(pixel(490, 310), kDoors[2]); // (288, 240): from (480, 300) to (506.7, 320)
    EXPECT_EQ(pixel(120, 110), kDoors[0]);
}

TEST_F(DoorPlacementPageTest, ScrolledClickAddsThePosition)
{
    clickRadio(kEntrances[1]);
    clickMap(0, 0); // at (448, 160)
    EXPECT_EQ(image(), loadedWithEntrance(1, 0x20, 0xCA));
    expectFields("2", "0", "12", "10");
    expectScroll(448, 160);
}

TEST_F(DoorPlacementPageTest, OtherButtonsPlaceNothing)
{
    clickMap(500, 313, Qt::RightButton);
    clickMap(500, 313, Qt::MiddleButton);
    moveMouse(510, 313, Qt::RightButton);
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(DoorPlacementPageTest, MoveWithoutAButtonPlacesNothing)
{
    EXPECT_TRUE(map().hasMouseTracking());
    QTest::mouseMove(&map(), inWidget(300, 200));
    moveMouse(500, 313, Qt::NoButton);
    EXPECT_EQ(image(), game.bytes);
    expectFields("1", "0", "4", "5");
}

TEST_F(DoorPlacementPageTest, DragMovesTheEntranceWithTheMouse)
{
    QTest::mousePress(&map(), Qt::LeftButton, {}, inWidget(0, 0));
    EXPECT_EQ(image(), loadedWithEntrance(0, 0x10, 0x00));
    moveMouse(500, 313, Qt::LeftButton);
    EXPECT_EQ(image(), loadedWithEntrance(0, 0x21, 0x20));
    EXPECT_EQ(pixel(490, 310), kDoors[0]);
    moveMouse(27, 20, Qt::LeftButton);
    EXPECT_EQ(image(), loadedWithEntrance(0, 0x10, 0x11));
    EXPECT_EQ(pixel(490, 310), kEven);
    expectFields("1", "0", "1", "1");
    moveMouse(640, 20, Qt::LeftButton);
    moveMouse(27, -1, Qt::LeftButton);
    EXPECT_EQ(image(), loadedWithEntrance(0, 0x10, 0x11));
    QTest::mouseRelease(&map(), Qt::LeftButton, {}, inWidget(27, 20));
    moveMouse(300, 300, Qt::NoButton);
    EXPECT_EQ(image(), loadedWithEntrance(0, 0x10, 0x11));
}

TEST_F(DoorPlacementPageTest, ButtonHeldPlacesWhereverItWentDown)
{
    const auto inPage = [this](int x, int y) { return map().mapTo(page.get(), inWidget(x, y)); };
    const QPoint beside(page->width() - 3, page->height() - 3);
    ASSERT_EQ(page->childAt(beside), nullptr);
    const QPoint onHint = page->findChild<QLabel*>("hintLabel")->geometry().center();
    for (const QPoint start : {beside, onHint}) {
        load();
        QTest::mousePress(page->windowHandle(), Qt::LeftButton, {}, start);
        moveInWindow(inPage(-20, 313), Qt::LeftButton);
        moveInWindow(inPage(500, 500), Qt::LeftButton);
        EXPECT_EQ(image(), game.bytes);
        moveInWindow(inPage(500, 313), Qt::LeftButton); // room pixel (300, 250)
        EXPECT_EQ(image(), loadedWithEntrance(0, 0x21, 0x20));
        expectFields("2", "1", "2", "0");
        EXPECT_EQ(pixel(490, 310), kDoors[0]);
        moveInWindow(inPage(510, 500), Qt::LeftButton);
        QTest::mouseRelease(page->windowHandle(), Qt::LeftButton, {}, start);
        moveInWindow(inPage(27, 20), Qt::NoButton);
        EXPECT_EQ(image(), loadedWithEntrance(0, 0x21, 0x20));
    }
}

TEST_F(DoorPlacementPageTest, MapThatIsScrolledOutOfSightTakesNoDrag)
{
    QScrollArea area;
    area.setWidget(page.get());
    area.resize(600, 500);
    test::showActive(area);
    const auto dragTo = [this](int x) {
        const QPoint point = map().mapTo(page.get(), inWidget(x, 313));
        QMouseEvent move(QEvent::MouseMove, point, page->mapToGlobal(QPointF(point)), Qt::NoButton,
                         Qt::LeftButton, {});
        QApplication::sendEvent(page.get(), &move);
    };
    dragTo(500);
    EXPECT_EQ(image(), game.bytes);
    dragTo(27);
    EXPECT_EQ(image(), loadedWithEntrance(0, 0x11, 0x10)); // room pixel (16, 250)
    area.takeWidget();
}

TEST_F(DoorPlacementPageTest, MoveToThePointSeenLastPlacesNothing)
{
    moveMouse(500, 313, Qt::NoButton);
    moveMouse(500, 313, Qt::LeftButton);
    EXPECT_EQ(image(), game.bytes);
    page.reset();
    open();
    moveMouse(500, 313, Qt::LeftButton);
    EXPECT_EQ(image(), game.bytes);
    moveMouse(501, 313, Qt::LeftButton);
    EXPECT_EQ(image(), loadedWithEntrance(0, 0x21, 0x20));
}

TEST_F(DoorPlacementPageTest, FrameOfThePictureIsNotThePicture)
{
    QTest::mouseClick(&map(), Qt::LeftButton, {}, QPoint(1, 1));
    QTest::mouseClick(&map(), Qt::LeftButton, {}, inWidget(640, 479));
    EXPECT_EQ(image(), game.bytes);
    clickMap(639, 479);
    EXPECT_EQ(image(), loadedWithEntrance(0, 0x21, 0x78));
}

TEST_F(DoorPlacementPageTest, RoomTooLargeForAnEntranceRunsOver)
{
    changeRoom(kHuge);
    horizontalBar().setSliderDown(true);
    horizontalBar().setSliderPosition(15 * 256);
    clickMap(0, 0);
    EXPECT_EQ(image(), game.bytes); // both bytes are 0
    clickMap(27, 300);              // room pixel (3856, 240)
    EXPECT_EQ(image(), loadedWithEntrance(8, 0x01, 0x10));
    expectFields("0", "1", "1", "0");
}

// Scrolling

TEST_F(DoorPlacementPageTest, BarsCoverTheRoom)
{
    EXPECT_EQ(horizontalBar().pageStep(), 384);
    EXPECT_EQ(verticalBar().pageStep(), 384);
    EXPECT_EQ(horizontalBar().maximum() + horizontalBar().pageStep() - 1, 1024);
    EXPECT_EQ(verticalBar().maximum() + verticalBar().pageStep() - 1, 720);
    changeRoom(kOneScreen);
    EXPECT_EQ(horizontalBar().pageStep(), 256);
    EXPECT_EQ(verticalBar().pageStep(), 240);
    EXPECT_TRUE(horizontalBar().isEnabled());
    EXPECT_TRUE(verticalBar().isEnabled());
}

TEST_F(DoorPlacementPageTest, BarsScrollInSteps)
{
    horizontalBar().triggerAction(QScrollBar::SliderSingleStepAdd);
    expectScroll(16, 0);
    verticalBar().triggerAction(QScrollBar::SliderPageStepAdd);
    expectScroll(16, 336);
    horizontalBar().setSliderDown(true);
    horizontalBar().setSliderPosition(319);
    expectScroll(304, 336);
    horizontalBar().setSliderDown(false);
    expectScroll(304, 336);
    verticalBar().triggerAction(QScrollBar::SliderSingleStepSub);
    expectScroll(304, 320);
}

TEST_F(DoorPlacementPageTest, KeysAndWheelScrollTheMap)
{
    map().setFocus();
    QTest::keyClick(&map(), Qt::Key_Right);
    QTest::keyClick(&map(), Qt::Key_Down);
    expectScroll(16, 16);
    QTest::keyClick(&map(), Qt::Key_PageDown);
    expectScroll(16, 336);
    QWheelEvent wheel({50, 50}, map().mapToGlobal(QPointF(50, 50)), {}, {0, 120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&map(), &wheel);
    EXPECT_LT(verticalBar().value(), 336);
    expectScroll(16, verticalBar().value());
}

TEST_F(DoorPlacementPageTest, ShiftAndArrowKeysMoveTheEntrance)
{
    map().setFocus();
    QTest::keyClick(&map(), Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(image(), loadedWithEntrance(0, 0x10, 0x55));
    expectFields("1", "0", "5", "5");
    expectScroll(0, 0);
    QTest::keyClick(&map(), Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(image(), loadedWithEntrance(0, 0x10, 0x54));
    QTest::keyClick(&map(), Qt::Key_A, Qt::ShiftModifier);
    EXPECT_EQ(image(), loadedWithEntrance(0, 0x10, 0x54));
}

TEST_F(DoorPlacementPageTest, ViewFollowsTheEntranceThatKeysMove)
{
    clickMap(620, 10); // (368, 0)
    map().setFocus();
    QTest::keyClick(&map(), Qt::Key_Right, Qt::ShiftModifier);
    expectFields("2", "0", "8", "0");
    expectScroll(192, 0);
}

TEST_F(DoorPlacementPageTest, RoomOfOneScreenDoesNotScroll)
{
    changeRoom(kOneScreen);
    for (QScrollBar* bar : {&horizontalBar(), &verticalBar()})
        bar->triggerAction(QScrollBar::SliderPageStepAdd);
    expectScroll(0, 0);
}

// Changing rooms

TEST_F(DoorPlacementPageTest, RoomChangeKeepsTheSlotsAndShowsTheRoomsValues)
{
    clickRadio(kEntrances[1]);
    clickRadio(kExits[1]);
    changeRoom(kWide);
    EXPECT_EQ(checkedOf(kEntrances), 1);
    EXPECT_EQ(checkedOf(kExits), 1);
    expectFields("4", "0", "10", "13");
    EXPECT_EQ(room().currentText(), "Plain");
    EXPECT_EQ(checkedOf(kExitEntrances), 3);
    expectScroll(0, 0);
    clickMap(0, 0);
    clickRadio(kExitEntrances[0]);
    Bytes expected = loadedWithEntrance(17, 0x10, 0x00);
    expected[0x3B11] = 0;
    EXPECT_EQ(image(), expected);
}

TEST_F(DoorPlacementPageTest, TabsOfTheMainWindowKeepNoSlots)
{
    page.reset();
    ScriptedPrompt prompt;
    MainDialog window(state, prompt);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    auto* tabs = window.findChild<QTabBar*>();
    tabs->setCurrentIndex(3);
    auto* second = window.findChild<QRadioButton*>("entranceRadio2");
    ASSERT_NE(second, nullptr);
    QTest::mouseClick(second, Qt::LeftButton, {}, QPoint(8, second->height() / 2));
    window.chooseRoom(kWide);
    EXPECT_EQ(window.findChild<QLineEdit*>("screenXEdit")->text(), "4");
    EXPECT_EQ(window.findChild<QScrollBar*>("mapHorizontalBar")->value(), 0);
    tabs->setCurrentIndex(0);
    tabs->setCurrentIndex(3);
    EXPECT_TRUE(window.findChild<QRadioButton*>("entranceRadio1")->isChecked());
    EXPECT_EQ(window.findChild<QLineEdit*>("screenXEdit")->text(), "0");
    EXPECT_EQ(image(), game.bytes);
}

// The window

TEST_F(DoorPlacementPageTest, TabGoesThroughTheControlsInTheirOrder)
{
    control(kEntrances[0]).setFocus();
    // Of radio buttons the checked one, or the first.
    for (const int id : {1107, 1108, 1096, 1098, 1103, 1097, 1100, 1109, 1092}) {
        QTest::keyClick(page->focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(page->focusWidget()->property(kControlId).toInt(), id);
    }
}

TEST_F(DoorPlacementPageTest, TabLeadsToTheCheckedEntranceOfTheExit)
{
    const struct {
        int exit;
        int next;
    } rows[] = {{1103, 1100}, {1104, 1099}, {1106, 1099}, {1103, 1100}};
    for (const auto& row : rows) {
        clickRadio(row.exit);
        room().setFocus();
        QTest::keyClick(&room(), Qt::Key_Tab);
        EXPECT_EQ(page->focusWidget()->property(kControlId).toInt(), row.next) << row.exit;
    }
}

TEST_F(DoorPlacementPageTest, EveryControlTellsWhatItIsFor)
{
    for (const auto* ids : {&kEntrances, &kExits, &kExitEntrances, &kFields}) {
        for (const int id : *ids) {
            EXPECT_FALSE(control(id).toolTip().isEmpty()) << id;
            EXPECT_FALSE(control(id).accessibleName().isEmpty()) << id;
        }
    }
    for (const int id : {1097, 1109})
        EXPECT_FALSE(control(id).toolTip().isEmpty()) << id;
}

TEST_F(DoorPlacementPageTest, LabelsLeadToTheirControls)
{
    const struct {
        const char* label;
        int buddy;
    } rows[] = {{"screenXLabel", 1107},
                {"screenYLabel", 1108},
                {"blockXLabel", 1096},
                {"blockYLabel", 1098},
                {"exitRoomLabel", 1097}};
    for (const auto& row : rows)
        EXPECT_EQ(page->findChild<QLabel*>(row.label)->buddy(), &control(row.buddy));
}

TEST_F(DoorPlacementPageTest, PageWithoutARomShowsFiller)
{
    EditorState empty;
    DoorPlacementPage other(empty);
    other.setup();
    other.refresh();
    other.show();
    EXPECT_EQ(other.findChild<QLineEdit*>("screenXEdit")->text(), "5");
    auto& view = *other.findChild<PictureView*>("mapView");
    QTest::mouseClick(&view, Qt::LeftButton, {}, QPoint(50, 50));
    EXPECT_EQ(other.findChild<QLineEdit*>("screenXEdit")->text(), "5");
}

} // namespace
} // namespace velko
