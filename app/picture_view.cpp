#include "app/picture_view.h"

#include "app/ui_common.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <cmath>

namespace velko {

namespace {

// A QImage over the picture's own pixels. They are 0x00RRGGBB, which is what Format_RGB32 holds
// when its unused byte is left alone.
QImage wrap(const PixelImage& picture)
{
    if (picture.empty())
        return {};
    const auto width = static_cast<int>(picture.width());
    return QImage(reinterpret_cast<const uchar*>(picture.pixels().data()), width,
                  static_cast<int>(picture.height()),
                  static_cast<qsizetype>(width) * static_cast<qsizetype>(sizeof(Pixel)),
                  QImage::Format_RGB32);
}

} // namespace

PictureView::PictureView(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void PictureView::setPictureSize(QSize size)
{
    m_fixedSize = size;
    updateGeometry();
    update();
}

QSize PictureView::pictureSize() const
{
    return m_fixedSize.isValid() ? m_fixedSize : m_shown.size();
}

void PictureView::showPicture()
{
    const QSize before = pictureSize();
    m_shown = wrap(m_picture);
    if (pictureSize() != before)
        updateGeometry();
    update();
}

void PictureView::clearPicture()
{
    m_picture.allocate(0, 0);
    showPicture();
}

void PictureView::connectArrowKeys(const std::function<void(QPoint direction)>& act)
{
    connect(this, &PictureView::keyPressed, this, [act](QKeyEvent* key) {
        const QPoint direction = arrowDirection(*key);
        if (direction.isNull())
            return;
        key->accept();
        act(direction);
    });
}

QSize PictureView::sizeHint() const
{
    return pictureSize() + QSize(2 * kFrame, 2 * kFrame);
}

QPoint PictureView::toPicture(QPointF widgetPoint) const
{
    return {static_cast<int>(std::floor(widgetPoint.x())) - kFrame,
            static_cast<int>(std::floor(widgetPoint.y())) - kFrame};
}

bool PictureView::containsPicturePoint(QPoint point) const
{
    return QRect(QPoint(0, 0), pictureSize()).contains(point);
}

void PictureView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect pictureBox(QPoint(kFrame, kFrame), pictureSize());
    if (hasFocus())
        painter.fillRect(pictureBox.adjusted(-2, -2, 2, 2), palette().color(QPalette::Highlight));
    painter.fillRect(pictureBox.adjusted(-1, -1, 1, 1), palette().color(QPalette::Mid));
    painter.fillRect(pictureBox, palette().color(QPalette::Window));
    painter.setClipRect(pictureBox);
    painter.drawImage(pictureBox.topLeft(), m_shown);
}

void PictureView::mousePressEvent(QMouseEvent* event)
{
    const QPoint point = toPicture(event->position());
    if (containsPicturePoint(point))
        emit mousePressed(point, event->button());
}

void PictureView::mouseMoveEvent(QMouseEvent* event)
{
    emit mouseMoved(toPicture(event->position()), event->buttons());
}

void PictureView::mouseReleaseEvent(QMouseEvent* event)
{
    emit mouseReleased(toPicture(event->position()), event->button());
}

void PictureView::keyPressEvent(QKeyEvent* event)
{
    event->ignore();
    emit keyPressed(event);
}

void PictureView::focusInEvent(QFocusEvent*)
{
    update();
}

void PictureView::focusOutEvent(QFocusEvent*)
{
    update();
}

} // namespace velko
