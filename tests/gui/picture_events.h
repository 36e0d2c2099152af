#pragma once

#include "app/picture_view.h"

#include <QApplication>
#include <QTest>
#include <QWheelEvent>

// The mouse over pictures. Points are pixels of a view's picture, which may lie outside of it.
namespace velko::test {

// The same point, counted from the widget's corner.
inline QPoint inWidget(QPoint point)
{
    return point + QPoint(PictureView::kFrame, PictureView::kFrame);
}

inline void clickPicture(PictureView& view, QPoint point, Qt::MouseButton button = Qt::LeftButton)
{
    QTest::mouseClick(&view, button, {}, inWidget(point));
}

inline void pressPicture(PictureView& view, QPoint point, Qt::MouseButton button = Qt::LeftButton)
{
    QTest::mousePress(&view, button, {}, inWidget(point));
}

inline void releasePicture(PictureView& view, QPoint point, Qt::MouseButton button = Qt::LeftButton)
{
    QTest::mouseRelease(&view, button, {}, inWidget(point));
}

// The mouse comes to a point with these buttons held.
inline void moveOverPicture(PictureView& view, QPoint point, Qt::MouseButtons held)
{
    const QPointF at = inWidget(point);
    QMouseEvent move(QEvent::MouseMove, at, view.mapToGlobal(at), Qt::NoButton, held, {});
    QApplication::sendEvent(&view, &move);
}

// Turns the wheel with the mouse over one widget. Of its parents, `receiver` is the one that the
// event reaches.
inline void turnWheel(QWidget& over, QWidget& receiver, QPoint turn)
{
    const QPointF global = over.mapToGlobal(QPointF(20, 20));
    QWheelEvent event(receiver.mapFromGlobal(global), global, {}, turn, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&receiver, &event);
}

} // namespace velko::test
