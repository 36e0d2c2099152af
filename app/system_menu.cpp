#include "app/system_menu.h"

#ifndef _WIN32

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolButton>

namespace velko {

void addToSystemMenu(QMainWindow& window)
{
    auto* button = new QToolButton(&window);
    button->setObjectName("windowMenuButton");
    button->setIcon(window.windowIcon());
    button->setAutoRaise(true);
    button->setPopupMode(QToolButton::InstantPopup);
    button->setFocusPolicy(Qt::NoFocus);
    button->setToolTip("Window menu");
    button->setAccessibleName("Window menu");

    auto* menu = new QMenu(button);
    menu->setObjectName("windowMenu");
    menu->addAction("&Close", &window, &QWidget::close);
    menu->addSeparator();
    menu->addAction("&About Velko...")->setObjectName("aboutAction");
    button->setMenu(menu);
    window.menuBar()->setCornerWidget(button, Qt::TopLeftCorner);
}

} // namespace velko

#endif
