#include "app/system_menu.h"

#ifdef _WIN32

#include <QMainWindow>
#include <windows.h>

namespace velko {

namespace {

// Below 0xF000, where the system's own commands begin, and a multiple of 16 as these must be.
constexpr UINT kAboutCommand = 16;

} // namespace

void addToSystemMenu(QMainWindow& window)
{
    // The command needs no handler: the default one does nothing with a number it does not know.
    if (HMENU menu = GetSystemMenu(reinterpret_cast<HWND>(window.winId()), FALSE)) {
        AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
        AppendMenuW(menu, MF_STRING, kAboutCommand, L"&About Velko...");
    }
}

} // namespace velko

#endif
