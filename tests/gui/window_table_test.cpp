#include "app/window_table.h"

#include "app/main_dialog.h"
#include "app/ui_common.h"
#include "tests/support/scripted_prompt.h"
#include "tests/support/test_rom.h"

#include <QAction>
#include <QListView>
#include <QScrollArea>
#include <QTabWidget>
#include <QTest>
#include <gtest/gtest.h>

namespace velko {
namespace {

// The main window as the program opens it, over a small game whose room 0 has three screens.
class WindowTableTest : public testing::Test {
protected:
    WindowTableTest()
    {
        test::TestRom game;
        game.setScreenList(0, {0x8600, 0x8600, 0x8600});
        game.loadInto(state);
        window.show();
    }

    QTabWidget& tabs() { return *window.findChild<QTabWidget*>("pageTabs"); }
    QWidget& page() { return *window.findChild<QScrollArea*>("pageArea")->widget(); }

    EditorState state;
    test::ScriptedPrompt prompt;
    MainDialog window{state, prompt};
};

TEST_F(WindowTableTest, TabsHoldTheirPages)
{
    struct Row {
        int tab;
        int templateNumber;
    };
    for (const Row& row : {Row{0, 129}, Row{1, 134}, Row{2, 130}, Row{3, 104}, Row{5, 133},
                           Row{6, 101}, Row{7, 135}, Row{8, 106}}) {
        tabs().setCurrentIndex(row.tab);
        EXPECT_EQ(page().property(kControlId).toInt(), row.templateNumber) << "tab " << row.tab;
    }
}

TEST_F(WindowTableTest, AllToolsAreThere)
{
    for (const char* name : {"roomSelectorAction", "areaEditorAction", "mainMapEditorAction"})
        EXPECT_TRUE(window.findChild<QAction*>(name)->isEnabled()) << name;
}

TEST_F(WindowTableTest, ComingBackToMapAllocationSelectsTheSecondScreenAgain)
{
    const auto selectedLine = [this] {
        return window.findChild<QListView*>("screenList")->currentIndex().row();
    };
    EXPECT_EQ(selectedLine(), 1);
    QTest::keyClick(window.findChild<QListView*>("screenList"), Qt::Key_Down);
    EXPECT_EQ(selectedLine(), 2);
    tabs().setCurrentIndex(6);
    tabs().setCurrentIndex(0);
    EXPECT_EQ(selectedLine(), 1);
}

} // namespace
} // namespace velko
