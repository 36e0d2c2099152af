#pragma once

#include <QApplication>
#include <QTimer>
#include <functional>

namespace velko::test {

// Runs `act` on the next modal window of type `Window` once it shows. Call it just before what
// opens the window; the test's time limit ends a wait in vain.
template <typename Window> void onceModal(std::function<void(Window&)> act)
{
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, act = std::move(act)] {
        auto* window = dynamic_cast<Window*>(QApplication::activeModalWidget());
        if (window == nullptr || !window->isVisible())
            return;
        timer->stop();
        timer->deleteLater();
        act(*window);
    });
    timer->start(1);
}

} // namespace velko::test
