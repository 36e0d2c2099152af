#include "app/ui_common.h"

#include <QWidget>

namespace velko {

bool hitTest(QPoint point, const QWidget& parent, const QWidget& control, QPoint* relative)
{
    const QPoint inside = control.mapFrom(&parent, point);
    if (relative != nullptr)
        *relative = inside;
    return control.rect().contains(inside);
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
