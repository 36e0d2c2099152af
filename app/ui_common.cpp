#include "app/ui_common.h"

#include <QKeyEvent>
#include <QLayout>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QWidget>

namespace velko {

bool hitTest(QPoint point, const QWidget& parent, const QWidget& control, QPoint* relative)
{
    const QPoint inside = control.mapFrom(&parent, point);
    if (relative != nullptr)
        *relative = inside;
    return control.rect().contains(inside);
}

QPoint arrowDirection(const QKeyEvent& key)
{
    switch (key.key()) {
    case Qt::Key_Left:
        return {-1, 0};
    case Qt::Key_Right:
        return {1, 0};
    case Qt::Key_Up:
        return {0, -1};
    case Qt::Key_Down:
        return {0, 1};
    default:
        return {};
    }
}

namespace {

// Before a window is shown a change of size below a widget does not reach all layouts by itself.
void activateLayouts(QWidget& widget)
{
    for (QWidget* child : widget.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        activateLayouts(*child);
    if (widget.layout() != nullptr)
        widget.layout()->activate();
}

} // namespace

void resizeToContents(QWidget& window, QScrollArea& scroll)
{
    QWidget& contents = *scroll.widget();
    activateLayouts(contents);
    const QSize frame(2 * scroll.frameWidth(), 2 * scroll.frameWidth());
    scroll.setMinimumSize(contents.sizeHint().expandedTo(contents.minimumSize()) + frame);
    QSize whole = window.sizeHint();
    scroll.setMinimumSize(0, 0);
    const QSize most = window.screen()->availableSize() * 0.95;
    // A scroll bar takes its space from the contents.
    if (whole.height() > most.height())
        whole.rwidth() += scroll.verticalScrollBar()->sizeHint().width();
    if (whole.width() > most.width())
        whole.rheight() += scroll.horizontalScrollBar()->sizeHint().height();
    window.resize(whole.boundedTo(most));
}

namespace {

// How far a window's content lies inside its outer frame; (0, 0) for a widget in a window.
QPoint frameOffset(const QWidget& widget)
{
    if (!widget.isWindow())
        return {};
    return widget.geometry().topLeft() - widget.frameGeometry().topLeft();
}

} // namespace

void placeControl(QWidget& control, const QWidget& anchor, int x, int y, int width, int height)
{
    QPoint corner = anchor.pos();
    if (const QWidget* parent = anchor.parentWidget())
        corner += frameOffset(*parent);
    const QSize current = control.contentsRect().size();
    control.setGeometry(corner.x() + x, corner.y() + y, width < 0 ? current.width() : width,
                        height < 0 ? current.height() : height);
    control.update();
}

} // namespace velko
