// Moving units with the mouse, on the unit placement page.

#include "tests/gui/unit_page_fixture.h"

#include <QApplication>
#include <QHelpEvent>
#include <QLayout>

namespace velko {
namespace {

using namespace test;

using UnitMovingTest = UnitPageTest;

TEST_F(UnitMovingTest, UnitIsPickedDraggedAndDropped)
{
    choose(units(), 2);
    press(130, 60); // (100, 51)
    expectStats(0, 3, true, {"0", "0", "64", "32"});
    EXPECT_EQ(unitBytes(15), kUnits);
    move(260, 150); // (200, 128)
    EXPECT_EQ(unitBytes(5), (Bytes{3, 200, 1, 128, 0}));
    expectStats(0, 3, true, {"0", "0", "c8", "80"});
    EXPECT_EQ(at(132, 62), colour(16));
    EXPECT_EQ(at(263, 155), colour(17)); // (202.3, 132.3)
    move(338, 337);                      // (260, 287)
    expectStats(0, 3, true, {"1", "1", "4", "2f"});
    press(338, 337);
    EXPECT_EQ(unitBytes(15), (Bytes{3, 4, 2, 47, 1, 10, 200, 1, 100, 0, 4, 7, 0, 8, 1}));
    const Bytes dropped = image();
    move(100, 100);
    press(20, 20, Qt::RightButton);
    EXPECT_EQ(image(), dropped);
}

TEST_F(UnitMovingTest, UnitIsDraggedWithAHeldButtonToo)
{
    QTest::mousePress(page->windowHandle(), Qt::LeftButton, {}, inWindow(130, 60));
    move(260, 150);
    QTest::mouseRelease(page->windowHandle(), Qt::LeftButton, {}, inWindow(260, 150));
    move(208, 188); // still moving: the next press drops it
    EXPECT_EQ(unitBytes(5), (Bytes{3, 160, 1, 160, 0}));
}

TEST_F(UnitMovingTest, PickedAndDroppedInPlaceItIsOnePixelLower)
{
    press(130, 60);
    press(130, 60);
    EXPECT_EQ(unitBytes(5), (Bytes{3, 100, 1, 51, 0}));
    expectStats(0, 3, true, {"0", "0", "64", "33"});
}

TEST_F(UnitMovingTest, FastClicksPickAndDrop)
{
    QTest::mouseClick(&view(), Qt::LeftButton, {}, QPoint(133, 63));
    QTest::mouseDClick(&view(), Qt::LeftButton, {}, QPoint(133, 63));
    move(260, 150);
    EXPECT_EQ(unitBytes(5), (Bytes{3, 100, 1, 51, 0}));
}

TEST_F(UnitMovingTest, RightButtonAndEscapePutTheUnitBack)
{
    const Bytes before = image();
    press(130, 60);
    move(260, 150);
    press(10, 10, Qt::RightButton);
    EXPECT_EQ(image(), before);
    expectStats(0, 3, true, {"0", "0", "64", "32"});
    EXPECT_EQ(at(132, 62), colour(17));
    move(200, 200);
    EXPECT_EQ(image(), before);

    press(130, 60);
    move(260, 150);
    ASSERT_NE(image(), before);
    QTest::keyClick(page->focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(image(), before);
    expectStats(0, 3, true, {"0", "0", "64", "32"});
}

TEST_F(UnitMovingTest, ButtonsOutsideTheViewAreIgnored)
{
    const QPoint margin(2, page->height() - 2);
    press(130, 60);
    move(260, 150);
    const Bytes moved = image();
    QTest::mouseClick(page->windowHandle(), Qt::LeftButton, {}, margin);
    QTest::mouseClick(page->windowHandle(), Qt::RightButton, {}, margin);
    QTest::mouseClick(control<QListView>(kLoadList).viewport(), Qt::RightButton);
    EXPECT_EQ(image(), moved);
    move(130, 150); // still moving
    EXPECT_EQ(unitBytes(5), (Bytes{3, 100, 1, 128, 0}));
}

TEST_F(UnitMovingTest, PressesBesideAllUnitsDoNothing)
{
    const Bytes before = image();
    press(300, 300);
    press(10, 300, Qt::RightButton);
    press(13, 293); // on the unit that has no placement
    move(200, 200);
    EXPECT_EQ(image(), before);
    expectStats(0, 3, true, {"0", "0", "64", "32"});
}

TEST_F(UnitMovingTest, UnitFromTheListComesUnderThePointer)
{
    const Bytes before = image();
    doubleClickUnit(2);
    EXPECT_EQ(image(), before);
    move(260, 150); // (200, 128)
    EXPECT_EQ(unitBytes(15), (Bytes{3, 100, 1, 50, 0, 10, 200, 1, 100, 0, 4, 200, 1, 128, 0}));
    expectStats(2, 4, true, {"0", "0", "c8", "80"});
    press(260, 150, Qt::RightButton);
    EXPECT_EQ(image(), before);
    expectStats(2, 4, false, {"", "", "", ""});
}

TEST_F(UnitMovingTest, AnotherLineLeavesTheMovedUnit)
{
    press(130, 60);
    move(260, 150);
    const Bytes moved = image();
    choose(units(), 1);
    move(100, 100);
    press(10, 10, Qt::RightButton);
    EXPECT_EQ(image(), moved);
    expectStats(1, 10, true, {"0", "0", "c8", "64"});
}

TEST_F(UnitMovingTest, AnotherRoomEndsTheMove)
{
    press(130, 60);
    move(410, 150);
    const Bytes moved = image();
    changeRoom(1);
    move(200, 200);
    tick(10);
    press(200, 200, Qt::RightButton);
    EXPECT_EQ(image(), moved);
    EXPECT_EQ(scroll(), QPoint(0, 0));
}

TEST_F(UnitMovingTest, MovedSpriteGlows)
{
    click(kAnimate);
    state.graphics.unitAnimation[UnitRom::kAnimated].frameOffset = 6; // its second frame
    press(130, 60);
    EXPECT_EQ(at(132, 62), 0x000000U);
    tick(10);
    EXPECT_EQ(at(132, 62), 0x652519U);
    press(130, 60);
    EXPECT_EQ(at(132, 64), colour(19));
}

// Notes the requests for a tip that reach a control. No tip is opened: it is a window of its own,
// which whatever else goes on at that moment may close again.
class TipRequests : public QObject {
public:
    explicit TipRequests(QWidget& control) { control.installEventFilter(this); }

    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::ToolTip)
            return false;
        ++count;
        return true;
    }
};

TEST_F(UnitMovingTest, NoTipCoversTheViewMeanwhile)
{
    ASSERT_FALSE(view().toolTip().isEmpty());
    TipRequests requests(view());
    const auto rest = [this] {
        const QPoint centre = view().rect().center();
        QHelpEvent help(QEvent::ToolTip, centre, view().mapToGlobal(centre));
        QApplication::sendEvent(&view(), &help);
    };
    press(130, 60);
    rest();
    EXPECT_EQ(requests.count, 0);
    press(130, 60);
    rest();
    EXPECT_EQ(requests.count, 1);
}

// Scrolling at the border

class BorderScrollingTest : public UnitPageTest {
protected:
    // Where five ticks lead from the middle, (224, 80), while a unit is moved.
    QPoint scrolled(int x, int y)
    {
        move(208, 188);
        scrollTo(224, 80);
        move(x, y);
        tick(5);
        return scroll();
    }
};

TEST_F(BorderScrollingTest, BorderInsideTheViewScrollsToAllFourSides)
{
    press(130, 60);
    EXPECT_EQ(scrolled(208, 188), QPoint(224, 80));
    EXPECT_EQ(scrolled(15, 188), QPoint(176, 80));
    EXPECT_EQ(scrolled(402, 188), QPoint(272, 80));
    EXPECT_EQ(scrolled(208, 14), QPoint(224, 32));
    EXPECT_EQ(scrolled(208, 363), QPoint(224, 128));
    EXPECT_EQ(scrolled(16, 15), QPoint(224, 80));
    EXPECT_EQ(scrolled(401, 362), QPoint(224, 80));
}

TEST_F(BorderScrollingTest, OutsideTheViewScrollsToAllFourSides)
{
    page->layout()->setContentsMargins(40, 40, 40, 40);
    QApplication::processEvents();
    press(130, 60);
    move(208, 188);
    const Bytes before = image();
    EXPECT_EQ(scrolled(-20, 188), QPoint(176, 80));
    EXPECT_EQ(scrolled(460, 188), QPoint(272, 80));
    EXPECT_EQ(scrolled(208, -20), QPoint(224, 32));
    EXPECT_EQ(scrolled(208, 450), QPoint(224, 128));
    EXPECT_EQ(scrolled(-20, -20), QPoint(176, 32));
    // Only the move back to the middle of the view counts for the unit.
    move(208, 188);
    scrollTo(0, 0);
    move(209, 188);
    move(208, 188);
    EXPECT_EQ(image(), before);
}

TEST_F(BorderScrollingTest, ViewScrollsOnAndStopsAtTheRoomsEdge)
{
    press(130, 60);
    move(410, 370); // (315, 315)
    tick(5);
    EXPECT_EQ(scroll(), QPoint(48, 48));
    EXPECT_EQ(unitBytes(5), (Bytes{3, 59, 2, 75, 1})); // not moved by the scrolling
    tick(100);
    EXPECT_EQ(scroll(), QPoint(448, 160));
    EXPECT_EQ(at(100, 0), colour(2));
    move(411, 371);
    EXPECT_EQ(unitBytes(5), (Bytes{3, 252, 3, 236, 1})); // (764, 476)
    move(5, 5);
    tick(100);
    EXPECT_EQ(scroll(), QPoint(0, 0));
}

TEST_F(BorderScrollingTest, PointerAwayFromTheBorderEndsTheScrolling)
{
    press(130, 60);
    move(410, 188);
    tick(5);
    move(300, 188);
    tick(20);
    EXPECT_EQ(scroll(), QPoint(48, 0));
    press(300, 188);
    move(410, 188);
    tick(20);
    EXPECT_EQ(scroll(), QPoint(48, 0));
}

TEST_F(BorderScrollingTest, OnItsWayFromTheListThePointerScrollsNothing)
{
    const auto moveOverList = [this] {
        QTest::mouseMove(page->windowHandle(), units().mapTo(page.get(), QPoint(20, 20)));
    };
    doubleClickUnit(0);
    moveOverList();
    tick(10);
    EXPECT_EQ(scroll(), QPoint(0, 0));
    move(208, 188);
    moveOverList();
    tick(5);
    EXPECT_EQ(scroll().x(), 48); // the list lies right of the view
    press(208, 188);
    doubleClickUnit(1); // the next one has its own way
    moveOverList();
    tick(10);
    EXPECT_EQ(scroll().x(), 48);
}

// Beside the page's other controls the pointer is the page's at once.
TEST_F(BorderScrollingTest, PageItselfIsOutsideTheViewFromTheStart)
{
    doubleClickUnit(0);
    QTest::mouseMove(page->windowHandle(), QPoint(inWindow(208, 0).x(), page->height() - 2));
    tick(5);
    EXPECT_EQ(scroll(), QPoint(0, 48));
}

} // namespace
} // namespace velko
