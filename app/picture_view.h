#pragma once

#include "gfx/pixel_image.h"

#include <QImage>
#include <QWidget>
#include <functional>

namespace velko {

// Shows a picture pixel by pixel, without smoothing, inside a thin frame that turns into a focus
// frame. The view owns the picture; a page draws into it and calls showPicture(). One picture
// pixel is one logical pixel of the screen, so a page that shows something larger or smaller
// scales it with the core's routines first.
class PictureView : public QWidget {
    Q_OBJECT
public:
    static constexpr int kFrame = 3; // logical pixels between the widget's edge and the picture

    explicit PictureView(QWidget* parent = nullptr);

    // The space kept for the picture, in picture pixels. Until it is set the view takes the size
    // of each picture it shows; from then on a smaller picture stands in the top-left corner and
    // a larger one is cut off.
    void setPictureSize(QSize size);

    // To be drawn into, in any size; showPicture() puts it on the screen.
    PixelImage& picture() { return m_picture; }
    const PixelImage& picture() const { return m_picture; }
    void showPicture();
    void clearPicture();

    // A point of this widget in picture pixels; outside the picture it goes on past the edges,
    // and below zero.
    QPoint toPicture(QPointF widgetPoint) const;
    // Whether a point lies in the space kept for the picture.
    bool containsPicturePoint(QPoint point) const;

    // From now on the arrow keys, pressed on the picture, are accepted and call `act` with the way
    // they point, in columns and rows.
    void connectArrowKeys(const std::function<void(QPoint direction)>& act);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    // Mouse events, with points in picture pixels. While a button is held the points go on
    // outside the picture. A fast second click is one more press.
    void mousePressed(QPoint point, Qt::MouseButton button);
    void mouseMoved(QPoint point, Qt::MouseButtons buttons);
    void mouseReleased(QPoint point, Qt::MouseButton button);
    // A key that the view itself has no use for. Unless the receiver accepts the event it goes on
    // to the page.
    void keyPressed(QKeyEvent* event);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QSize pictureSize() const;

    PixelImage m_picture;
    QImage m_shown; // the pixels of m_picture, not a copy
    QSize m_fixedSize;
};

} // namespace velko
