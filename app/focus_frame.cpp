#include "app/focus_frame.h"

#include <QEvent>
#include <QPainter>

namespace velko {

FocusFrame::FocusFrame(QAbstractItemView& list) : QObject(&list), m_list(list)
{
    list.installEventFilter(this);
}

bool FocusFrame::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        m_list.update(); // the list itself sees to its lines only
    if (event->type() != QEvent::Paint || !m_list.hasFocus())
        return false;
    watched->event(event); // the list's own edge lies below
    QPainter painter(&m_list);
    painter.setPen(m_list.palette().color(QPalette::Highlight));
    painter.drawRect(m_list.rect().adjusted(0, 0, -1, -1));
    return true;
}

} // namespace velko
