#pragma once

#include "app/arrow_spin.h"
#include "app/main_dialog.h"
#include "app/ui_common.h"
#include "tests/gui/page_support.h"
#include "tests/support/scripted_prompt.h"
#include "tests/support/test_rom.h"

#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace velko::test {

using Calls = std::vector<std::string>;

inline constexpr int kMapEditingTab = 2;

// A page that notes what it is told, together with the room that is current then. It is to be in
// sight when it is refreshed: what it tells the user then is told over it.
class NotingPage : public Page {
public:
    NotingPage(const EditorState& state, int tab, Calls& calls, QWidget* parent)
        : Page(parent), m_state(state), m_tab(tab), m_calls(calls)
    {
        note("make");
    }
    ~NotingPage() override { note("destroy"); }

    void setup() override { note("setup"); }
    void refresh() override { note(isHidden() ? "hidden refresh" : "refresh"); }
    void commitEdits() override
    {
        note("commit");
        if (onCommit)
            onCommit();
    }
    void leave(bool revert) override { note(revert ? "leave(true)" : "leave(false)"); }
    void pause() override { note("pause"); }
    void resume() override { note("resume"); }
    void shiftKey(bool down) override { note(down ? "shift down" : "shift up"); }

    std::function<void()> onCommit;

private:
    void note(const std::string& what)
    {
        m_calls.push_back(std::to_string(m_tab) + " " + what + " room "
                          + std::to_string(m_state.currentRoom()));
    }

    const EditorState& m_state;
    int m_tab;
    Calls& m_calls;
};

// Puts a noting page on every tab. All note in the same `calls`, which must outlive them.
inline void putNotingPages(WindowTable& windows, Calls& calls)
{
    for (std::size_t tab = 0; tab < windows.pages.size(); ++tab)
        windows.pages[tab].make = [&calls, tab](const WindowContext& context, QWidget* parent) {
            return new NotingPage(context.state, static_cast<int>(tab), calls, parent);
        };
}

// The main window over a small game, with noting pages on all tabs.
class MainDialogTest : public testing::Test {
protected:
    explicit MainDialogTest(std::uint32_t rooms = 5)
    {
        TestRom(rooms).loadInto(state);
        for (std::uint32_t room = 0; room < rooms; ++room)
            state.names.rooms.push_back("Room " + std::string(1, static_cast<char>('A' + room)));
    }

    // Opens the window. Tools are added before, checks of what opening does follow on `calls`.
    MainDialog& open()
    {
        putNotingPages(windows, calls);
        dialog = std::make_unique<MainDialog>(state, prompt, windows);
        dialog->show();
        return *dialog;
    }
    // Opens it and forgets the calls that this made.
    MainDialog& openQuietly()
    {
        open();
        calls.clear();
        return *dialog;
    }

    template <typename Control> Control& control(const char* name) const
    {
        return controlOf<Control>(*dialog, name);
    }
    QComboBox& combo() const { return control<QComboBox>("roomCombo"); }
    ArrowSpin& spin() const { return control<ArrowSpin>("roomSpin"); }
    QTabWidget& tabs() const { return control<QTabWidget>("pageTabs"); }
    QAction& action(const char* name) const { return control<QAction>(name); }
    NotingPage& page() const { return dynamic_cast<NotingPage&>(*dialog->currentPage()); }

    void clickTab(int index) const
    {
        QTabBar& bar = *tabs().tabBar();
        QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(index).center());
    }
    QPoint upperArrow() const { return {spin().width() / 2, spin().height() / 4}; }
    QPoint lowerArrow() const { return {spin().width() / 2, spin().height() * 3 / 4}; }

    EditorState state;
    ScriptedPrompt prompt;
    WindowTable windows = editorWindows();
    Calls calls; // of the pages, in order
    std::unique_ptr<MainDialog> dialog;
};

} // namespace velko::test
