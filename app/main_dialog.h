#pragma once

#include "app/editor_window.h"
#include "app/shared_fonts.h"
#include "app/window_table.h"

#include <QMainWindow>
#include <memory>

class QScrollArea;

namespace Ui {
class MainDialog;
}

namespace velko {

// The main window: the room chooser, the menus, and a tab control that hosts one page at a time.
// A page exists only while its tab is selected. The file commands are signals; everything that
// concerns rooms, pages and tool windows is done here.
class MainDialog final : public QMainWindow, public EditorWindow {
    Q_OBJECT
public:
    MainDialog(EditorState& state, UserPrompt& prompt, WindowTable windows = editorWindows(),
               QWidget* parent = nullptr);
    ~MainDialog() override;

    int selectedTab() const override;
    void destroyPage(bool revert) override;
    void showPage(int index) override;
    void commitEdits() override;
    void setCaption(std::string_view caption) override;

    // The page shown, or null, and its tab.
    Page* currentPage() const { return m_page; }
    int currentPageIndex() const { return m_pageIndex; }

    // The one path by which another room is shown: the page may offer to write what it holds,
    // the room is selected (only the low 8 bits of the number count), the page refreshes.
    void changeRoom(std::uint32_t room);
    // The same, and both room choosers show the room.
    void chooseRoom(std::uint32_t room);

signals:
    void openRomRequested();
    void revertRequested();
    void saveRequested();
    void saveAsRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void openMainWindow();
    void buildTabs();
    void fillRoomChooser();
    void hideButtons();
    void connectControls();
    void connectCommands();
    void connectTools();
    void connectTabKeys();
    void setInitialSize();

    void openRoomSelector();
    void openMainMapEditor();
    WindowContext context() { return {m_state, m_prompt, m_fonts}; }

    EditorState& m_state;
    UserPrompt& m_prompt;
    WindowTable m_windows;
    SharedFonts m_fonts;
    std::unique_ptr<Ui::MainDialog> m_ui;
    QScrollArea* m_pageArea = nullptr; // moves to the tab that is selected
    Page* m_page = nullptr;            // owned by m_pageArea
    int m_pageIndex = 0;
};

} // namespace velko
