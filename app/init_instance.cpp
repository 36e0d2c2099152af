#include "app/init_instance.h"

#include <QApplication>

namespace velko {

void connectFileCommands(MainDialog& window, EditorApp& app)
{
    app.setWindow(window);
    QObject::connect(&window, &MainDialog::openRomRequested, &window, [&app] { app.openRom(); });
    QObject::connect(&window, &MainDialog::revertRequested, &window, [&app] { app.revert(); });
    QObject::connect(&window, &MainDialog::saveRequested, &window, [&app] { app.save(); });
    QObject::connect(&window, &MainDialog::saveAsRequested, &window, [&app] { app.saveAs(); });
}

bool initInstance(EditorApp& app, UserPrompt& prompt)
{
    MainDialog window(app.state(), prompt);
    connectFileCommands(window, app);
    window.show();
    QApplication::exec();
    return false;
}

} // namespace velko
