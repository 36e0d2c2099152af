#include "app/system_menu.h"

#ifndef _WIN32

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QToolButton>

namespace velko {

void addToSystemMenu(QMainWindow& window)
{
    auto* button = new QToolButton(&window);
    button->setObjectName("windowMenuButton");
    button->setIcon(window.windowIcon());
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setToolTip("Window menu (Alt+-)");
    button->setAccessibleName("Window menu");

    auto* menu = new QMenu(button);
    menu->setObjectName("windowMenu");
    menu->addAction("&Close", &window, &QWidget::close);
    menu->addSeparator();
    menu->addAction("&About Velko...")->setObjectName("aboutAction");
    const auto open = [button, menu] {
        menu->popup(button->mapToGlobal(button->rect().bottomLeft()));
        button->setDown(false);
    };
    // Not setMenu(), which would draw an arrow over the icon.
    QObject::connect(button, &QToolButton::pressed, menu, open);
    // The key that opens the window menu of a document window.
    auto* shortcut = new QShortcut(Qt::ALT | Qt::Key_Minus, &window);
    QObject::connect(shortcut, &QShortcut::activated, menu, [open, menu] {
        open();
        menu->setActiveAction(menu->actions().constFirst());
    });
    window.menuBar()->setCornerWidget(button, Qt::TopLeftCorner);
}

} // namespace velko

#endif
