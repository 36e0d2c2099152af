#include "app/picture_view.h"

#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace velko {
namespace {

constexpr int kFrame = PictureView::kFrame;

class PictureViewTest : public testing::Test {
protected:
    PictureViewTest()
    {
        view.setPictureSize({40, 30});
        view.picture() = PixelImage(40, 30, 0x102030);
        view.showPicture();
        view.resize(view.sizeHint());
        view.show();
    }
    // A point of the picture as a point of the widget.
    static QPoint at(int x, int y) { return {x + kFrame, y + kFrame}; }

    PictureView view;
};

TEST_F(PictureViewTest, SizeIsThePictureAndItsFrame)
{
    EXPECT_EQ(view.sizeHint(), QSize(40 + 2 * kFrame, 30 + 2 * kFrame));
}

TEST_F(PictureViewTest, ShowsThePicturesPixels)
{
    view.picture().row(4)[7] = 0xF0A000;
    view.showPicture();
    const QImage shown = view.grab().toImage();
    const qreal scale = shown.devicePixelRatio();
    const auto pixel = [&](int x, int y) {
        return shown.pixel((QPointF(at(x, y)) * scale).toPoint()) & 0xFFFFFF;
    };
    EXPECT_EQ(pixel(7, 4), 0xF0A000U);
    EXPECT_EQ(pixel(8, 4), 0x102030U);
    EXPECT_EQ(pixel(0, 0), 0x102030U);
    EXPECT_EQ(pixel(39, 29), 0x102030U);
}

TEST_F(PictureViewTest, SmallerPictureStandsInTheCorner)
{
    view.picture() = PixelImage(10, 10, 0xF0A000);
    view.showPicture();
    EXPECT_EQ(view.sizeHint(), QSize(40 + 2 * kFrame, 30 + 2 * kFrame));
    const QImage shown = view.grab().toImage();
    EXPECT_EQ(shown.pixel(at(9, 9)) & 0xFFFFFF, 0xF0A000U);
    EXPECT_EQ(shown.pixel(at(10, 10)), view.palette().color(QPalette::Window).rgb());
}

TEST_F(PictureViewTest, LargerPictureIsCutOff)
{
    view.picture() = PixelImage(400, 300, 0xF0A000);
    view.showPicture();
    const QImage shown = view.grab().toImage();
    EXPECT_EQ(shown.size(), view.size());
    EXPECT_NE(shown.pixel(at(40, 15)) & 0xFFFFFF, 0xF0A000U); // the frame
}

TEST_F(PictureViewTest, WithoutAFixedSizeItTakesThePictures)
{
    PictureView free;
    EXPECT_EQ(free.sizeHint(), QSize(2 * kFrame, 2 * kFrame));
    free.picture() = PixelImage(12, 8);
    free.showPicture();
    EXPECT_EQ(free.sizeHint(), QSize(12 + 2 * kFrame, 8 + 2 * kFrame));
    free.clearPicture();
    EXPECT_EQ(free.sizeHint(), QSize(2 * kFrame, 2 * kFrame));
    EXPECT_FALSE(free.grab().isNull());
}

TEST_F(PictureViewTest, MouseComesInPicturePixels)
{
    QSignalSpy pressed(&view, &PictureView::mousePressed);
    QSignalSpy moved(&view, &PictureView::mouseMoved);
    QSignalSpy released(&view, &PictureView::mouseReleased);
    QTest::mousePress(&view, Qt::RightButton, {}, at(39, 29));
    QTest::mouseMove(&view, at(5, 6));
    QTest::mouseRelease(&view, Qt::RightButton, {}, at(5, 6));
    ASSERT_EQ(pressed.count(), 1);
    EXPECT_EQ(pressed[0][0].toPoint(), QPoint(39, 29));
    EXPECT_EQ(pressed[0][1].value<Qt::MouseButton>(), Qt::RightButton);
    ASSERT_GE(moved.count(), 1);
    EXPECT_EQ(moved[0][0].toPoint(), QPoint(5, 6));
    ASSERT_EQ(released.count(), 1);
    EXPECT_EQ(released[0][0].toPoint(), QPoint(5, 6));
}

TEST_F(PictureViewTest, PressOnTheFrameIsNoPress)
{
    QSignalSpy pressed(&view, &PictureView::mousePressed);
    QTest::mouseClick(&view, Qt::LeftButton, {}, at(-1, 5));
    QTest::mouseClick(&view, Qt::LeftButton, {}, at(40, 5));
    QTest::mouseClick(&view, Qt::LeftButton, {}, at(5, 30));
    EXPECT_EQ(pressed.count(), 0);
}

TEST_F(PictureViewTest, HeldButtonIsFollowedOutside)
{
    QSignalSpy moved(&view, &PictureView::mouseMoved);
    QTest::mousePress(&view, Qt::LeftButton, {}, at(1, 1));
    QMouseEvent move(QEvent::MouseMove, QPointF(at(-4, 99)), view.mapToGlobal(QPointF(at(-4, 99))),
                     Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(&view, &move);
    ASSERT_EQ(moved.count(), 1);
    EXPECT_EQ(moved[0][0].toPoint(), QPoint(-4, 99));
    EXPECT_EQ(moved[0][1].value<Qt::MouseButtons>(), Qt::LeftButton);
    EXPECT_FALSE(view.containsPicturePoint({-4, 99}));
}

TEST_F(PictureViewTest, FractionsOfAPixelRoundDown)
{
    EXPECT_EQ(view.toPicture({kFrame + 0.9, kFrame - 0.1}), QPoint(0, -1));
}

TEST_F(PictureViewTest, SecondClickOfADoubleClickIsAPress)
{
    QSignalSpy pressed(&view, &PictureView::mousePressed);
    QTest::mouseDClick(&view, Qt::LeftButton, {}, at(3, 3));
    EXPECT_GE(pressed.count(), 1);
    EXPECT_EQ(pressed.last()[0].toPoint(), QPoint(3, 3));
}

TEST_F(PictureViewTest, KeysGoOnUnlessAccepted)
{
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Left, Qt::NoModifier);
    QApplication::sendEvent(&view, &key);
    EXPECT_FALSE(key.isAccepted());
    QObject::connect(&view, &PictureView::keyPressed, [](QKeyEvent* event) { event->accept(); });
    QApplication::sendEvent(&view, &key);
    EXPECT_TRUE(key.isAccepted());
}

TEST_F(PictureViewTest, FocusShowsInTheFrameOnly)
{
    const QImage without = view.grab().toImage();
    view.activateWindow();
    view.setFocus();
    ASSERT_TRUE(QTest::qWaitFor([this] { return view.hasFocus(); }));
    const QImage with = view.grab().toImage();
    const QRect picture(kFrame, kFrame, 40, 30);
    EXPECT_EQ(with.copy(picture), without.copy(picture));
    EXPECT_NE(with, without);
}

} // namespace
} // namespace velko
