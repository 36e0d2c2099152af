#pragma once

#include "app/editor_app.h"
#include "app/main_dialog.h"

namespace velko {

// Lets the window's file commands act on the application, and names the open file in its caption.
void connectFileCommands(MainDialog& window, EditorApp& app);

// Opens the main window and runs it until it is closed, which ends the program: returns false, as
// no message loop is to follow.
bool initInstance(EditorApp& app, UserPrompt& prompt);

} // namespace velko
