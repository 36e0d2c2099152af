#include "tools/direction_pad_widget.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace velko {
namespace {

class DirectionPadTest : public testing::Test {
protected:
    DirectionPadTest()
    {
        pad.resize(pad.sizeHint());
        pad.show();
        pad.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&pad));
    }
    // The button's column and row among the three by three.
    QPoint place(int direction) const
    {
        const QPoint centre = pad.button(direction).geometry().center();
        return {centre.x() * 3 / pad.width(), centre.y() * 3 / pad.height()};
    }
    int pixelsOf(int direction, QPalette::ColorRole role) const
    {
        const QImage shown = pad.button(direction).grab().toImage();
        const QRgb wanted = pad.palette().color(role).rgb();
        int count = 0;
        for (int y = 0; y < shown.height(); ++y)
            for (int x = 0; x < shown.width(); ++x)
                count += shown.pixel(x, y) == wanted ? 1 : 0;
        return count;
    }

    DirectionPad pad;
};

TEST_F(DirectionPadTest, DirectionsRunClockwiseFromTheRight)
{
    const QPoint places[] = {{2, 1}, {2, 2}, {1, 2}, {0, 2}, {0, 1}, {0, 0}, {1, 0}, {2, 0}};
    for (int direction = 0; direction < 8; ++direction)
        EXPECT_EQ(place(direction), places[direction]) << direction;
}

TEST_F(DirectionPadTest, PressedButtonIsToldAndLit)
{
    QSignalSpy pressed(&pad, &DirectionPad::directionPressed);
    QTest::mouseClick(&pad.button(3), Qt::LeftButton);
    EXPECT_EQ(pressed.count(), 1);
    EXPECT_EQ(pressed[0][0].toInt(), 3);
    EXPECT_EQ(pad.direction(), 3);
    QTest::mouseClick(&pad.button(3), Qt::LeftButton);
    EXPECT_EQ(pressed.count(), 2) << "the lit one can be pressed, too";
}

TEST_F(DirectionPadTest, ArrowKeysGoFromButtonToButton)
{
    QTest::mouseClick(&pad.button(0), Qt::LeftButton);
    QSignalSpy pressed(&pad, &DirectionPad::directionPressed);
    pad.button(0).setFocus();
    QTest::keyClick(&pad.button(0), Qt::Key_Down);
    EXPECT_EQ(pad.direction(), 1);
    EXPECT_EQ(pressed.count(), 1);
}

TEST_F(DirectionPadTest, LightingByTheProgramIsNotTold)
{
    QSignalSpy pressed(&pad, &DirectionPad::directionPressed);
    pad.setDirection(6);
    pad.setDirection(2);
    EXPECT_EQ(pad.direction(), 2);
    EXPECT_FALSE(pad.button(6).isChecked());
    EXPECT_EQ(pressed.count(), 0);
}

TEST_F(DirectionPadTest, LitButtonStandsOut)
{
    pad.setDirection(2);
    EXPECT_GT(pixelsOf(2, QPalette::Highlight), 100);
    EXPECT_EQ(pixelsOf(6, QPalette::Highlight), 0);
    EXPECT_GT(pixelsOf(6, QPalette::ButtonText), 30);
}

} // namespace
} // namespace velko
