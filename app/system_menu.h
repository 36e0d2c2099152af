#pragma once

class QMainWindow;

namespace velko {

// Gives the window's system menu a separator and the item "&About Velko...", which does nothing.
// Where the window system lends programs no such menu, a small window menu in the menu bar's
// left corner stands in for it, as document windows have one, with "&Close" above the separator;
// Alt+- opens it.
void addToSystemMenu(QMainWindow& window);

} // namespace velko
