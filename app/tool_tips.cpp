#include "app/tool_tips.h"

#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>
#include <QWidget>

namespace velko {

bool ToolTips::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return false;
    auto* widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr || widget->toolTip().isEmpty() || Qt::mightBeRichText(widget->toolTip()))
        return false;
    // As markup a tool tip breaks its lines.
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       "<p>" + widget->toolTip().toHtmlEscaped() + "</p>", widget);
    return true;
}

} // namespace velko
