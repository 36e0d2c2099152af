#include "app/elided_label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace velko {

QSize ElidedLabel::minimumSizeHint() const
{
    return {fontMetrics().horizontalAdvance("(...)"), fontMetrics().height()};
}

QString ElidedLabel::shownText() const
{
    return fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
}

bool ElidedLabel::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || shownText() == text())
        return QLabel::event(event);
    // As markup a tool tip breaks its lines.
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       "<p>" + text().toHtmlEscaped() + "</p>", this);
    return true;
}

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    style()->drawItemText(&painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, palette(),
                          isEnabled(), shownText(), foregroundRole());
}

} // namespace velko
