#include "app/room_view_scroller.h"

#include "app/picture_view.h"

#include <QApplication>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace velko {
namespace {

using Position = RoomView::Position;

class RoomViewScrollerTest : public testing::Test {
protected:
    RoomViewScrollerTest()
    {
        view.showRoom({4, 3}); // 1024 x 720 pixels
        scroller.connectMoved([this] { ++moves; });
        scroller.showBars();
    }

    void turnWheel(QPoint turn, Qt::KeyboardModifiers held = Qt::NoModifier)
    {
        QWheelEvent wheel({10, 10}, picture.mapToGlobal(QPointF(10, 10)), {}, turn, Qt::NoButton,
                          held, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&picture, &wheel);
    }

    RoomView view{{320, 320}, {416, 375}};
    PictureView picture;
    QScrollBar horizontal{Qt::Horizontal};
    QScrollBar vertical{Qt::Vertical};
    RoomViewScroller scroller{view, picture, horizontal, vertical};
    int moves = 0;
};

TEST_F(RoomViewScrollerTest, BarsTakeTheRoomAndTheRegion)
{
    EXPECT_EQ(horizontal.maximum(), 705); // the room's size - the thumb + 1
    EXPECT_EQ(horizontal.pageStep(), 320);
    EXPECT_EQ(vertical.maximum(), 401);
    view.scrollTo({50, 60});
    scroller.showBars();
    EXPECT_EQ(horizontal.value(), 50);
    EXPECT_EQ(vertical.value(), 60);
    EXPECT_EQ(moves, 0);
}

TEST_F(RoomViewScrollerTest, ArrowsOfTheBarsScrollByAStep)
{
    horizontal.triggerAction(QScrollBar::SliderSingleStepAdd);
    vertical.triggerAction(QScrollBar::SliderSingleStepAdd);
    vertical.triggerAction(QScrollBar::SliderSingleStepAdd);
    EXPECT_EQ(view.scroll(), (Position{16, 32}));
    EXPECT_EQ(moves, 3);
}

TEST_F(RoomViewScrollerTest, ThumbIsRoundedDownAndTheBarWithIt)
{
    horizontal.setSliderPosition(31);
    horizontal.triggerAction(QScrollBar::SliderMove);
    EXPECT_EQ(view.scroll(), (Position{16, 0}));
    EXPECT_EQ(horizontal.value(), 16);
}

TEST_F(RoomViewScrollerTest, KeysAndWheelOverThePictureScroll)
{
    QTest::keyClick(&picture, Qt::Key_Right);
    EXPECT_EQ(view.scroll(), (Position{16, 0}));
    QTest::keyClick(&picture, Qt::Key_PageDown);
    EXPECT_EQ(view.scroll(), (Position{16, 320}));
    turnWheel({0, 120});
    EXPECT_LT(view.scroll().y, 320);
    EXPECT_EQ(view.scroll().x, 16);
    const int before = view.scroll().y;
    turnWheel({0, -120});
    EXPECT_GT(view.scroll().y, before);
}

TEST_F(RoomViewScrollerTest, WheelWithShiftScrollsSideways)
{
    turnWheel({0, -120}, Qt::ShiftModifier);
    const int step = view.scroll().x;
    EXPECT_GT(step, 0);
    EXPECT_LT(step, 320); // no whole page
    EXPECT_EQ(view.scroll().y, 0);
    turnWheel({0, 120}, Qt::ShiftModifier);
    EXPECT_EQ(view.scroll(), (Position{0, 0}));
}

} // namespace
} // namespace velko
