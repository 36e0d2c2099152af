#include "tests/gui/main_dialog_fixture.h"

#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScrollArea>
#include <QToolButton>
#include <set>

namespace velko {
namespace {

using test::Calls;
using test::MainDialogTest;

QStringList textsOf(const QList<QAction*>& actions)
{
    QStringList texts;
    for (const QAction* action : actions)
        texts.append(action->isSeparator() ? "---" : action->text());
    return texts;
}

TEST_F(MainDialogTest, ControlsCarryTheirNumbers)
{
    open();
    const struct {
        int id;
        const char* name;
        const char* text;
    } rows[] = {
        {1001, "roomCombo", nullptr},
        {1003, "roomSpin", nullptr},
        {1025, "roomSelectorButton", "Room selector"},
        {1069, "areaEditorButton", "Area Editor"},
        {1179, "mainMapEditorButton", "Main Map Editor"},
        {1031, "saveButton", "SAVE"},
        {1, "okButton", "OK"},
        {1004, "pageTabs", nullptr},
    };
    for (const auto& row : rows) {
        const QWidget& found = control<QWidget>(row.name);
        EXPECT_EQ(found.property(kControlId).toInt(), row.id) << row.name;
        if (row.text != nullptr) {
            EXPECT_EQ(found.property("text").toString(), row.text);
        }
    }
    EXPECT_EQ(control<QLabel>("roomLabel").text(), "Room Id:");
    EXPECT_EQ(dialog->windowTitle(), "Olvard - v4");
    EXPECT_EQ(dialog->property(kControlId).toInt(), 102);
}

TEST_F(MainDialogTest, MenusHoldTheirCommands)
{
    open();
    EXPECT_EQ(textsOf(dialog->menuBar()->actions()), (QStringList{"&File", "&Tools", "&Config"}));
    EXPECT_EQ(textsOf(control<QMenu>("fileMenu").actions()),
              (QStringList{"&Open ROM..", "&Revert", "&Save", "Save &As..", "---", "E&xit"}));
    EXPECT_EQ(textsOf(control<QMenu>("toolsMenu").actions()),
              (QStringList{"&Room Selector", "---", "&Area Editor", "Main &Map Editor"}));
    EXPECT_FALSE(action("configAction").isEnabled());
    EXPECT_EQ(action("configAction").menu(), nullptr);
}

TEST_F(MainDialogTest, TabsAreInOrderAndEndInABlank)
{
    open();
    const QStringList expected = {"Map allocation ", "Map layout ",     "Map editing ",
                                  "Door placement ", "Unit placement ", "Tile allocation ",
                                  "Palette ",        "Miscellaneous ",  "Data management "};
    QStringList texts;
    std::set<qint64> icons;
    for (int i = 0; i < tabs().count(); ++i) {
        texts.append(tabs().tabText(i));
        ASSERT_FALSE(tabs().tabIcon(i).isNull());
        icons.insert(tabs().tabIcon(i).cacheKey());
    }
    EXPECT_EQ(texts, expected);
    EXPECT_EQ(icons.size(), 1U);
    EXPECT_EQ(tabs().iconSize(), QSize(12, 12));
    EXPECT_EQ(tabs().tabIcon(0).actualSize({12, 12}), QSize(12, 12));
}

TEST_F(MainDialogTest, OpensOnPageZeroAndShowsTheCurrentRoom)
{
    state.graphics.selectRoom(3);
    open();
    EXPECT_EQ(calls, (Calls{"0 make room 3", "0 setup room 3", "0 refresh room 3"}));
    EXPECT_EQ(dialog->currentPageIndex(), 0);
    EXPECT_EQ(combo().currentIndex(), 3);
    EXPECT_EQ(spin().position(), 0);
    EXPECT_EQ(spin().minimum(), 0);
    EXPECT_EQ(spin().maximum(), 4);
    EXPECT_TRUE(page().isVisible());
    EXPECT_TRUE(dialog->windowIcon().actualSize({48, 48}).isValid());
}

TEST_F(MainDialogTest, ComboHoldsTheRoomNames)
{
    state.names.rooms[1] = "Gl\xF6"
                           "ckner"; // Latin-1
    state.names.rooms[2] = "Gl\xC3\xB6"
                           "ckner & co"; // UTF-8
    open();
    EXPECT_EQ(combo().count(), 5);
    EXPECT_EQ(combo().itemText(0), "Room A");
    EXPECT_EQ(combo().itemText(1), QString::fromUtf16(u"Gl\u00F6ckner"));
    EXPECT_EQ(combo().itemText(2), QString::fromUtf16(u"Gl\u00F6ckner & co"));
}

TEST_F(MainDialogTest, HiddenButtonsNeverShow)
{
    open();
    clickTab(3);
    dialog->resize(1500, 900);
    dialog->hide();
    dialog->show();
    for (const char* name : {"saveButton", "roomSelectorButton", "areaEditorButton",
                             "mainMapEditorButton", "okButton"})
        EXPECT_FALSE(control<QPushButton>(name).isVisible()) << name;
    EXPECT_FALSE(control<QPushButton>("okButton").isEnabled());
}

TEST_F(MainDialogTest, ChoosingATabReplacesThePage)
{
    openQuietly();
    clickTab(6);
    EXPECT_EQ(calls,
              (Calls{"0 leave(false) room 0", "0 destroy room 0", "6 make room 0", "6 setup room 0",
                     "6 refresh room 0"}));
    EXPECT_EQ(dialog->currentPageIndex(), 6);
    EXPECT_EQ(dialog->selectedTab(), 6);
    EXPECT_TRUE(page().isVisible());
}

TEST_F(MainDialogTest, TabsAreReachedByKeyboard)
{
    openQuietly();
    tabs().tabBar()->setFocus();
    QTest::keyClick(tabs().tabBar(), Qt::Key_Right);
    EXPECT_EQ(dialog->currentPageIndex(), 1);
}

TEST_F(MainDialogTest, TabsAreTurnedFromAnywhereByKeyboard)
{
    openQuietly();
    dialog->activateWindow(); // shortcuts are for the active window only
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    QComboBox& rooms = combo();
    rooms.setFocus();
    QTest::keyClick(&rooms, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(dialog->selectedTab(), 1);
    QTest::keyClick(&rooms, Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(dialog->selectedTab(), 2);
    QTest::keyClick(&rooms, Qt::Key_PageUp, Qt::ControlModifier);
    QTest::keyClick(&rooms, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClick(&rooms, Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(dialog->selectedTab(), 8); // round the corner
}

TEST_F(MainDialogTest, PageIndexPastTheTabsLeavesNoPage)
{
    openQuietly();
    dialog->showPage(9);
    EXPECT_EQ(calls, (Calls{"0 leave(false) room 0", "0 destroy room 0"}));
    EXPECT_EQ(dialog->currentPage(), nullptr);
    dialog->commitEdits();
    dialog->changeRoom(1);
    dialog->destroyPage(true);
    EXPECT_EQ(calls.size(), 2U);
    EXPECT_EQ(state.currentRoom(), 1);
}

TEST_F(MainDialogTest, DestroyPagePassesTheRevertFlag)
{
    openQuietly();
    dialog->destroyPage(true);
    EXPECT_EQ(calls, (Calls{"0 leave(true) room 0", "0 destroy room 0"}));
}

TEST_F(MainDialogTest, PageFillsTheTab)
{
    open();
    dialog->resize(1200, 800);
    QApplication::processEvents();
    EXPECT_EQ(page().size(), control<QScrollArea>("pageArea").viewport()->size());
    EXPECT_GT(page().width(), 1100);
}

TEST_F(MainDialogTest, PageTooLargeForTheWindowScrolls)
{
    open();
    page().setMinimumSize(3000, 2000);
    dialog->resize(600, 400);
    QApplication::processEvents();
    EXPECT_EQ(page().size(), QSize(3000, 2000));
    EXPECT_LE(dialog->width(), 1000);
}

TEST_F(MainDialogTest, FileCommandsAreAsked)
{
    open();
    Calls asked;
    QObject::connect(dialog.get(), &MainDialog::openRomRequested, [&] { asked.push_back("open"); });
    QObject::connect(dialog.get(), &MainDialog::revertRequested,
                     [&] { asked.push_back("revert"); });
    QObject::connect(dialog.get(), &MainDialog::saveRequested, [&] { asked.push_back("save"); });
    QObject::connect(dialog.get(), &MainDialog::saveAsRequested,
                     [&] { asked.push_back("save as"); });
    for (const char* name : {"openRomAction", "revertAction", "saveAction", "saveAsAction"})
        action(name).trigger();
    control<QPushButton>("saveButton").click();
    dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    QTest::keyClick(dialog.get(), Qt::Key_O, Qt::ControlModifier);
    QTest::keyClick(dialog.get(), Qt::Key_S, Qt::ControlModifier);
    QTest::keyClick(dialog.get(), Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(asked,
              (Calls{"open", "revert", "save", "save as", "save", "open", "save", "save as"}));
}

TEST_F(MainDialogTest, ExitClosesWithoutAskingAnything)
{
    openQuietly();
    action("exitAction").trigger();
    EXPECT_FALSE(dialog->isVisible());
    dialog.reset();
    EXPECT_EQ(calls, Calls{"0 destroy room 0"});
}

TEST_F(MainDialogTest, WindowThatGoesUnderAHeldArrowChangesNoRoom)
{
    openQuietly();
    QTest::mousePress(&spin(), Qt::LeftButton, {}, upperArrow());
    dialog.reset();
    EXPECT_EQ(calls, Calls{"0 destroy room 0"});
    EXPECT_EQ(state.currentRoom(), 0);
}

TEST_F(MainDialogTest, EscapeDoesNotClose)
{
    openQuietly();
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    QTest::keyClick(&page(), Qt::Key_Escape);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(calls, Calls{});
}

#ifndef _WIN32
TEST_F(MainDialogTest, WindowMenuHoldsCloseAndAbout)
{
    open();
    EXPECT_EQ(dialog->menuBar()->cornerWidget(Qt::TopLeftCorner),
              &control<QToolButton>("windowMenuButton"));
    const QList<QAction*> items = control<QMenu>("windowMenu").actions();
    EXPECT_EQ(textsOf(items), (QStringList{"&Close", "---", "&About Velko..."}));
    items[0]->trigger();
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(MainDialogTest, WindowMenuOpensByItsButton)
{
    open();
    EXPECT_FALSE(control<QMenu>("windowMenu").isVisible());
    QTest::mouseClick(&control<QToolButton>("windowMenuButton"), Qt::LeftButton);
    EXPECT_TRUE(control<QMenu>("windowMenu").isVisible());
    EXPECT_FALSE(control<QToolButton>("windowMenuButton").isDown());
}

TEST_F(MainDialogTest, WindowMenuOpensByKeyboardOnItsFirstItem)
{
    open();
    dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    combo().setFocus();
    QTest::keyClick(&combo(), Qt::Key_Minus, Qt::AltModifier);
    QMenu& menu = control<QMenu>("windowMenu");
    EXPECT_TRUE(menu.isVisible());
    QTest::keyClick(&menu, Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible()); // closed
}

TEST_F(MainDialogTest, AboutDoesNothing)
{
    openQuietly();
    const auto windowsBefore = QApplication::topLevelWidgets().size();
    action("aboutAction").trigger();
    QApplication::processEvents();
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(QApplication::topLevelWidgets().size(), windowsBefore);
    EXPECT_EQ(calls, Calls{});
}
#endif

TEST_F(MainDialogTest, ShiftKeyIsTold)
{
    openQuietly();
    combo().setFocus();
    QTest::keyPress(dialog->windowHandle(), Qt::Key_Shift);
    QTest::keyRelease(dialog->windowHandle(), Qt::Key_Shift);
    QTest::keyClick(dialog->windowHandle(), Qt::Key_Control);
    EXPECT_EQ(calls, (Calls{"0 shift down room 0", "0 shift up room 0"}));
}

TEST_F(MainDialogTest, CaptionIsShownToTheLetter)
{
    open();
    dialog->setCaption("Olvard - v4 - /roms/a[*] b.nes");
    EXPECT_EQ(dialog->windowHandle()->title(), "Olvard - v4 - /roms/a[*] b.nes");
}

TEST_F(MainDialogTest, FontsHaveTheirHeightsAndWeights)
{
    open();
    const SharedFonts fonts;
    EXPECT_LE(QFontMetrics(fonts.font1).height(), 16);
    EXPECT_GE(QFontMetrics(fonts.font1).height(), 14);
    EXPECT_LE(QFontMetrics(fonts.font2).height(), 14);
    EXPECT_LE(QFontMetrics(fonts.font3).height(), 15);
    EXPECT_EQ(fonts.font1.weight(), 350);
    EXPECT_EQ(fonts.font2.weight(), 700);
    EXPECT_EQ(fonts.font3.weight(), 500);
    EXPECT_EQ(combo().font().weight(), 700);
    EXPECT_EQ(combo().font().pixelSize(), fonts.font2.pixelSize());
}

TEST_F(MainDialogTest, TabKeyGoesFromTheRoomToThePages)
{
    open();
    dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    combo().setFocus();
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(dialog->focusWidget(), &spin());
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(dialog->focusWidget(), tabs().tabBar());
}

class ToolsTest : public MainDialogTest {
protected:
    ToolsTest()
    {
        windows.tools.roomSelector = [this](const WindowContext&, QWidget* parent,
                                            std::uint8_t room) {
            calls.push_back("selector of room " + std::to_string(room));
            EXPECT_EQ(parent, dialog.get());
            return std::uint8_t{3};
        };
        windows.tools.areaEditor = [this](const WindowContext&, QWidget*) {
            calls.push_back("area editor");
        };
        windows.tools.mainMapEditor = [this](const WindowContext&, QWidget*) {
            calls.push_back("map editor");
        };
    }
};

TEST_F(ToolsTest, RoomSelectorsRoomIsShown)
{
    openQuietly();
    state.graphics.selectRoom(1);
    action("roomSelectorAction").trigger();
    EXPECT_EQ(calls,
              (Calls{"0 commit room 1", "0 pause room 1", "selector of room 1", "0 commit room 1",
                     "0 refresh room 3"}));
    EXPECT_EQ(combo().currentIndex(), 3);
    EXPECT_EQ(spin().position(), 3);
}

TEST_F(ToolsTest, OtherToolsDoNotRefreshThePage)
{
    openQuietly();
    action("areaEditorAction").trigger();
    action("mainMapEditorAction").trigger();
    // The map editor draws with other graphics than the room's.
    EXPECT_EQ(calls, (Calls{"area editor", "0 pause room 0", "map editor", "0 resume room 0"}));
}

TEST_F(ToolsTest, HiddenButtonsHoldTheSameCommands)
{
    openQuietly();
    control<QPushButton>("areaEditorButton").click();
    control<QPushButton>("mainMapEditorButton").click();
    control<QPushButton>("roomSelectorButton").click();
    EXPECT_EQ(calls.front(), "area editor");
    EXPECT_EQ(calls.at(2), "map editor");
    EXPECT_EQ(state.currentRoom(), 3);
}

TEST_F(MainDialogTest, ToolThatDoesNotExistIsDisabled)
{
    windows.tools = {};
    openQuietly();
    for (const char* name : {"roomSelectorAction", "areaEditorAction", "mainMapEditorAction"}) {
        EXPECT_FALSE(action(name).isEnabled()) << name;
        action(name).trigger();
    }
    EXPECT_EQ(calls, Calls{});
}

} // namespace
} // namespace velko
