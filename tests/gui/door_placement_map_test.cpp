#include "tests/gui/door_placement_fixture.h"

#include <QLabel>
#include <QScrollArea>
#include <QTest>
#include <QWindow>

namespace velko::test::door_placement {
namespace {

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
    QTest::mouseMove(&map(), inWidget({300, 200}));
    moveMouse(500, 313, Qt::NoButton);
    EXPECT_EQ(image(), game.bytes);
    expectFields("1", "0", "4", "5");
}

TEST_F(DoorPlacementPageTest, DragMovesTheEntranceWithTheMouse)
{
    pressPicture(map(), {0, 0});
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
    releasePicture(map(), {27, 20});
    moveMouse(300, 300, Qt::NoButton);
    EXPECT_EQ(image(), loadedWithEntrance(0, 0x10, 0x11));
}

TEST_F(DoorPlacementPageTest, ButtonHeldPlacesWhereverItWentDown)
{
    const auto inPage = [this](int x, int y) { return map().mapTo(page.get(), inWidget({x, y})); };
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
    showActive(area);
    const auto dragTo = [this](int x) {
        const QPoint point = map().mapTo(page.get(), inWidget({x, 313}));
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
    clickPicture(map(), {640, 479});
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
    turnWheel(map(), map(), {0, 120});
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

} // namespace
} // namespace velko::test::door_placement
