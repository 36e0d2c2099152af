// A plugin that the tests have the toolkit load into the built program, on any platform. It
// leaves every window that shows, once: dialogs by Escape, the main window by closing it. What it
// left it tells on standard output: a line with a box's text or a window's title.

#include <QApplication>
#include <QGenericPlugin>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMessageBox>
#include <QTimer>
#include <cstdio>

namespace velko::test {

namespace {

// The window that the user would be at, or null.
QWidget* windowInFront()
{
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal->isVisible() ? modal : nullptr;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && qobject_cast<QMainWindow*>(window) != nullptr)
            return window;
    return nullptr;
}

void leaveWindow()
{
    QWidget* window = windowInFront();
    if (window == nullptr)
        return;
    const auto* box = qobject_cast<QMessageBox*>(window);
    const QString told = box != nullptr ? box->text() : window->windowTitle();
    std::puts(told.toUtf8().constData());
    std::fflush(stdout);
    if (qobject_cast<QDialog*>(window) == nullptr) {
        window->close();
        return;
    }
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(window, &escape);
}

} // namespace

class WindowLeaverPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "window_leaver.json")

public:
    QObject* create(const QString&, const QString&) override
    {
        auto* timer = new QTimer;
        QObject::connect(timer, &QTimer::timeout, timer, leaveWindow);
        timer->start(10);
        return timer;
    }
};

} // namespace velko::test

#include "window_leaver.moc"
