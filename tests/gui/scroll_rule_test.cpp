#include "app/scroll_rule.h"

#include <QApplication>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>
#include <vector>

namespace velko {
namespace {

// Range 0-99 with a page of 10: the last position is 90.
constexpr ScrollState at(int position)
{
    return {0, 99, 10, position};
}

TEST(StepScroll, LineUpAtTheTopStays)
{
    EXPECT_EQ(stepScroll(ScrollCode::kLineUp, 0, at(0), 1), 0);
}

TEST(StepScroll, PageDownAtTheUpperLimitStays)
{
    EXPECT_EQ(stepScroll(ScrollCode::kPageDown, 0, at(90), 1), 90);
}

TEST(StepScroll, LastPositionLeavesOnePageInRange)
{
    EXPECT_EQ(stepScroll(ScrollCode::kLineDown, 0, at(89), 16), 90);
    EXPECT_EQ(stepScroll(ScrollCode::kThumbTrack, 99, at(0), 1), 90);
}

TEST(StepScroll, LinesStepByTheGivenStepAndPagesByThePage)
{
    EXPECT_EQ(stepScroll(ScrollCode::kLineUp, 0, at(50), 16), 34);
    EXPECT_EQ(stepScroll(ScrollCode::kLineDown, 0, at(50), 16), 66);
    EXPECT_EQ(stepScroll(ScrollCode::kPageUp, 0, at(50), 16), 40);
    EXPECT_EQ(stepScroll(ScrollCode::kPageDown, 0, at(50), 16), 60);
}

TEST(StepScroll, OnlyTheMovingThumbUsesTheCarriedPosition)
{
    EXPECT_EQ(stepScroll(ScrollCode::kThumbTrack, 23, at(50), 16), 23);
    EXPECT_EQ(stepScroll(ScrollCode::kLineDown, 23, at(50), 16), 66);
    EXPECT_EQ(stepScroll(ScrollCode::kThumbTrack, -5, at(50), 16), 0);
}

TEST(StepScroll, ReleasedThumbEndsAndEndScrollChangeNothing)
{
    for (const ScrollCode code : {ScrollCode::kThumbPosition, ScrollCode::kTop, ScrollCode::kBottom,
                                  ScrollCode::kEndScroll})
        EXPECT_EQ(stepScroll(code, 23, at(50), 16), -1);
}

TEST(StepScroll, LowerLimitIsZeroWhateverTheBarsMinimum)
{
    EXPECT_EQ(stepScroll(ScrollCode::kPageUp, 0, {5, 99, 10, 8}, 1), 0);
    EXPECT_EQ(stepScroll(ScrollCode::kLineUp, 0, {-20, 99, 10, 0}, 1), 0);
}

TEST(StepScroll, PageLargerThanTheRangeLeavesOnlyZero)
{
    EXPECT_EQ(stepScroll(ScrollCode::kPageDown, 0, {0, 99, 500, 0}, 1), 0);
    EXPECT_EQ(stepScroll(ScrollCode::kThumbTrack, 50, {0, 99, 500, 0}, 1), 0);
}

TEST(StepScroll, HugeNumbersDoNotOverflow)
{
    constexpr int kHuge = 0x7FFFFFFF;
    EXPECT_EQ(stepScroll(ScrollCode::kPageDown, 0, {0, kHuge, kHuge, kHuge}, 1), 1);
    EXPECT_EQ(stepScroll(ScrollCode::kLineDown, 0, {0, kHuge, 1, kHuge}, kHuge), kHuge);
}

class ScrollBarTest : public testing::Test {
protected:
    ScrollBarTest()
    {
        bar.resize(20, 200);
        setScrollRange(bar, 99, 10);
        connectScrollBar(bar, 3, [this](int position) { moves.push_back(position); });
        bar.show();
    }

    QScrollBar bar{Qt::Vertical};
    std::vector<int> moves; // what the page was told
};

TEST_F(ScrollBarTest, RangeEndsWhereAPageIsLeft)
{
    EXPECT_EQ(bar.minimum(), 0);
    EXPECT_EQ(bar.maximum(), 90);
    EXPECT_EQ(bar.pageStep(), 10);
}

TEST_F(ScrollBarTest, PageLargerThanTheRangeLeavesNothingToScroll)
{
    setScrollRange(bar, 99, 500);
    EXPECT_EQ(bar.maximum(), 0);
}

TEST_F(ScrollBarTest, KeysStepAndTheBarFollows)
{
    QTest::keyClick(&bar, Qt::Key_Down);
    QTest::keyClick(&bar, Qt::Key_PageDown);
    QTest::keyClick(&bar, Qt::Key_Up);
    EXPECT_EQ(moves, (std::vector{3, 13, 10}));
    EXPECT_EQ(bar.value(), 10);
}

TEST_F(ScrollBarTest, StepsStopAtTheLimitsButAreTold)
{
    bar.setValue(89);
    QTest::keyClick(&bar, Qt::Key_Down);
    QTest::keyClick(&bar, Qt::Key_PageDown);
    EXPECT_EQ(moves, (std::vector{90, 90}));
}

TEST_F(ScrollBarTest, WheelStepsByLines)
{
    const auto turn = [this](int degrees) {
        QWheelEvent wheel({5, 50}, bar.mapToGlobal(QPointF(5, 50)), {}, {0, degrees}, {}, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&bar, &wheel);
    };
    turn(-120);
    turn(-120);
    turn(120);
    EXPECT_EQ(moves, (std::vector{9, 18, 9})); // three lines
}

TEST_F(ScrollBarTest, HomeAndEndChangeNothing)
{
    bar.setValue(50);
    QTest::keyClick(&bar, Qt::Key_End);
    QTest::keyClick(&bar, Qt::Key_Home);
    EXPECT_EQ(moves, std::vector<int>{});
    EXPECT_EQ(bar.value(), 50);
    EXPECT_EQ(bar.sliderPosition(), 50);
}

TEST_F(ScrollBarTest, DraggingTheThumbIsFollowedAndLettingGoAddsNothing)
{
    const QPoint thumb(10, 25); // below the upper arrow, on the thumb at position 0
    QTest::mousePress(&bar, Qt::LeftButton, {}, thumb);
    QTest::mouseMove(&bar, thumb + QPoint(0, 40));
    ASSERT_FALSE(moves.empty());
    EXPECT_GT(bar.value(), 0);
    EXPECT_EQ(moves.back(), bar.value());
    const auto before = moves.size();
    QTest::mouseRelease(&bar, Qt::LeftButton, {}, thumb + QPoint(0, 40));
    EXPECT_EQ(moves.size(), before);
}

TEST_F(ScrollBarTest, PositionsSetByTheProgramAreNotTold)
{
    bar.setValue(42);
    setScrollRange(bar, 20, 10);
    EXPECT_EQ(moves, std::vector<int>{});
    EXPECT_EQ(bar.value(), 11);
}

TEST_F(ScrollBarTest, KeysOnAPictureScrollIt)
{
    QScrollBar across(Qt::Horizontal);
    setScrollRange(across, 99, 20);
    std::vector<int> acrossMoves;
    connectScrollBar(across, 16, [&](int position) { acrossMoves.push_back(position); });
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Left, Qt::Key_Down, Qt::Key_Up,
                              Qt::Key_PageDown, Qt::Key_PageUp}) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        press.ignore();
        scrollByKey(press, across, bar);
        EXPECT_TRUE(press.isAccepted());
    }
    EXPECT_EQ(acrossMoves, (std::vector{16, 32, 16}));
    EXPECT_EQ(moves, (std::vector{3, 0, 10, 0}));
}

TEST_F(ScrollBarTest, OtherKeysOnAPictureGoOn)
{
    QKeyEvent press(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
    press.ignore();
    scrollByKey(press, bar, bar);
    EXPECT_FALSE(press.isAccepted());
    EXPECT_TRUE(moves.empty());
}

} // namespace
} // namespace velko
