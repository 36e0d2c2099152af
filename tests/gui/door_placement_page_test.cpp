#include "app/main_dialog.h"
#include "tests/gui/door_placement_fixture.h"
#include "tests/support/scripted_prompt.h"

#include <QGroupBox>
#include <QLabel>
#include <QTabBar>
#include <QTest>

namespace velko::test::door_placement {
namespace {

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
} // namespace velko::test::door_placement
