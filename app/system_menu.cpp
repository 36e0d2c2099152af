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
    button->setFocusPolicy(Qt::NoFocus);
    button->setToolTip("Window menu");
    button->setAccessibleName("Window menu");

    auto* menu = new QMenu(button);
    menu->setObjectName("windowMenu");
    menu->addAction("&Close", &window, &QWidget::close);
    menu->addSeparator();
    menu->addAction("&About Velko...")->setObjectName("aboutAction");
    // Not setMenu(), which would draw an arrow over the icon.
    QObject::connect(button, &QToolButton::pressed, menu, [button, menu] {
        menu->popup(button->mapToGlobal(button->rect().bottomLeft()));
        button->setDown(false);
    });
    window.menuBar()->setCornerWidget(button, Qt::TopLeftCorner);
}

} // namespace velko

#endif
