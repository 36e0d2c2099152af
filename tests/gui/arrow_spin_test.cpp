#include "app/arrow_spin.h"

#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>
#include <vector>

namespace velko {
namespace {

class ArrowSpinTest : public testing::Test {
protected:
    ArrowSpinTest()
    {
        spin.resize(20, 40);
        spin.setRange(0, 5);
        QObject::connect(&spin, &ArrowSpin::positionChanged, &spin,
                         [this](int position) { steps.push_back(position); });
        QObject::connect(&spin, &ArrowSpin::changeEnded, &spin,
                         [this](int position) { ends.push_back(position); });
        spin.show();
    }

    ArrowSpin spin;
    std::vector<int> steps; // positionChanged
    std::vector<int> ends;  // changeEnded
    const QPoint up{10, 5};
    const QPoint down{10, 35};
};

TEST_F(ArrowSpinTest, ClickStepsOnceAndEndsOnRelease)
{
    QTest::mousePress(&spin, Qt::LeftButton, {}, up);
    EXPECT_EQ(steps, std::vector{1});
    EXPECT_TRUE(ends.empty());
    QTest::mouseRelease(&spin, Qt::LeftButton, {}, up);
    EXPECT_EQ(ends, std::vector{1});
    QTest::mouseClick(&spin, Qt::LeftButton, {}, down);
    EXPECT_EQ(spin.position(), 0);
    EXPECT_EQ(ends, (std::vector{1, 0}));
}

TEST_F(ArrowSpinTest, AtTheLimitNothingStepsButTheChangeEnds)
{
    QTest::mouseClick(&spin, Qt::LeftButton, {}, down);
    EXPECT_TRUE(steps.empty());
    EXPECT_EQ(ends, std::vector{0});
}

TEST_F(ArrowSpinTest, HeldArrowRepeatsToTheLimitAndEndsOnce)
{
    QTest::mousePress(&spin, Qt::LeftButton, {}, up);
    EXPECT_TRUE(QTest::qWaitFor([this] { return spin.position() == 5; }));
    EXPECT_EQ(steps, (std::vector{1, 2, 3, 4, 5}));
    QTest::mouseRelease(&spin, Qt::LeftButton, {}, up);
    EXPECT_EQ(ends, std::vector{5});
}

TEST_F(ArrowSpinTest, SlidingOffTheHeldArrowPausesAndReleaseStillEnds)
{
    QTest::mousePress(&spin, Qt::LeftButton, {}, up);
    QMouseEvent move(QEvent::MouseMove, QPointF(10, 100), spin.mapToGlobal(QPointF(10, 100)),
                     Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(&spin, &move);
    QTest::qWait(700); // longer than the first delay and several repeats
    QTest::mouseRelease(&spin, Qt::LeftButton, {}, QPoint(10, 100));
    EXPECT_EQ(steps, std::vector{1});
    EXPECT_EQ(ends, std::vector{1});
}

TEST_F(ArrowSpinTest, OtherButtonsDoNothing)
{
    QTest::mouseClick(&spin, Qt::RightButton, {}, up);
    EXPECT_TRUE(steps.empty());
    EXPECT_TRUE(ends.empty());
}

TEST_F(ArrowSpinTest, SecondClickOfADoubleClickSteps)
{
    QTest::mouseClick(&spin, Qt::LeftButton, {}, up);
    QTest::mouseDClick(&spin, Qt::LeftButton, {}, up);
    EXPECT_EQ(spin.position(), static_cast<int>(steps.size()));
    EXPECT_GE(spin.position(), 2);
}

TEST_F(ArrowSpinTest, KeysStepAndEndOnRelease)
{
    QTest::keyPress(&spin, Qt::Key_Up);
    EXPECT_EQ(steps, std::vector{1});
    EXPECT_TRUE(ends.empty());
    QTest::keyRelease(&spin, Qt::Key_Up);
    EXPECT_EQ(ends, std::vector{1});
    QTest::keyClick(&spin, Qt::Key_Down);
    EXPECT_EQ(ends, (std::vector{1, 0}));
}

TEST_F(ArrowSpinTest, KeyRepeatIsOneChange)
{
    for (const bool repeat : {false, true, true}) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Up, Qt::NoModifier, QString(), repeat);
        QApplication::sendEvent(&spin, &press);
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_Up, Qt::NoModifier, QString(), true);
        QApplication::sendEvent(&spin, &release);
    }
    EXPECT_EQ(steps, (std::vector{1, 2, 3}));
    EXPECT_TRUE(ends.empty());
    QTest::keyRelease(&spin, Qt::Key_Up);
    EXPECT_EQ(ends, std::vector{3});
}

TEST_F(ArrowSpinTest, OtherKeysGoOn)
{
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(&spin, &press);
    EXPECT_FALSE(press.isAccepted());
    EXPECT_TRUE(steps.empty());
}

TEST_F(ArrowSpinTest, WheelIsLeftToWhatLiesBehind)
{
    QWheelEvent wheel({10, 5}, spin.mapToGlobal(QPointF(10, 5)), {}, {0, 120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&spin, &wheel);
    EXPECT_FALSE(wheel.isAccepted());
    EXPECT_EQ(spin.position(), 0);
}

TEST_F(ArrowSpinTest, HidingOrDisablingEndsAHeldChange)
{
    QTest::mousePress(&spin, Qt::LeftButton, {}, up);
    spin.hide();
    EXPECT_EQ(ends, std::vector{1});
    spin.show();
    QTest::mousePress(&spin, Qt::LeftButton, {}, up);
    spin.setEnabled(false);
    EXPECT_EQ(ends, (std::vector{1, 2}));
}

TEST_F(ArrowSpinTest, ProgramsChangesAreNotTold)
{
    spin.setPosition(3);
    spin.setRange(0, 2);
    EXPECT_EQ(spin.position(), 2);
    EXPECT_TRUE(steps.empty());
    EXPECT_TRUE(ends.empty());
}

TEST_F(ArrowSpinTest, PositionsOutOfRangeGoToTheNearest)
{
    spin.setPosition(99);
    EXPECT_EQ(spin.position(), 5);
    spin.setPosition(-99);
    EXPECT_EQ(spin.position(), 0);
}

TEST_F(ArrowSpinTest, RangeEndingBelowItsStartHoldsItsStartOnly)
{
    spin.setRange(0, -1);
    EXPECT_EQ(spin.maximum(), 0);
    QTest::mouseClick(&spin, Qt::LeftButton, {}, up);
    EXPECT_EQ(spin.position(), 0);
}

// The spins of the colour boxes spring back to the middle at every step.
TEST_F(ArrowSpinTest, PositionMayBeSetBackWhileAnArrowIsHeld)
{
    QObject::connect(&spin, &ArrowSpin::positionChanged, &spin, [this] { spin.setPosition(2); });
    spin.setPosition(2);
    QTest::mousePress(&spin, Qt::LeftButton, {}, up);
    EXPECT_TRUE(QTest::qWaitFor([this] { return steps.size() >= 3; }));
    QTest::mouseRelease(&spin, Qt::LeftButton, {}, up);
    EXPECT_EQ(steps[0], 3);
    EXPECT_EQ(steps[2], 3);
    EXPECT_EQ(spin.position(), 2);
}

} // namespace
} // namespace velko
