#include "app/editor_app.h"
#include "app/init_instance.h"
#include "rom/file_io.h"
#include "tests/gui/main_dialog_fixture.h"
#include "tests/support/game_folder.h"
#include "tests/support/scripted_file_chooser.h"

#include <QTimer>

namespace velko {
namespace {

using test::byteOnDisk;
using test::Calls;
using test::GameFolder;
using test::kMapEditingTab;
using test::kSomeByte;
using test::NotingPage;
using test::ScriptedFileChooser;
using test::ScriptedPrompt;

// The whole program as the user has it: menu commands of the real window on the real
// application, with scripted dialogs and noting pages.
class FileCommandsTest : public testing::Test {
protected:
    FileCommandsTest()
    {
        EXPECT_TRUE(app.initApplication(folder.rom()));
        WindowTable windows = editorWindows();
        test::putNotingPages(windows, calls);
        dialog = std::make_unique<MainDialog>(app.state(), prompt, std::move(windows));
        connectFileCommands(*dialog, app);
        dialog->show();
        dialog->findChild<QTabWidget*>("pageTabs")->setCurrentIndex(kMapEditingTab);
        calls.clear();
    }
    void trigger(const char* action) { dialog->findChild<QAction*>(action)->trigger(); }

    GameFolder folder;
    ScriptedPrompt prompt;
    ScriptedFileChooser chooser;
    std::vector<int> endings;
    EditorApp app{{prompt, chooser, [this](int status) { endings.push_back(status); }, {}}};
    Calls calls;
    std::unique_ptr<MainDialog> dialog;
};

TEST_F(FileCommandsTest, WindowShowsTheOpenFile)
{
    EXPECT_EQ(dialog->windowHandle()->title(),
              QString::fromStdString("Olvard - v4 - " + utf8FromPath(folder.rom())));
}

TEST_F(FileCommandsTest, RevertDropsThePagesChangesAndBringsTheTabBack)
{
    app.state().rom.writeByte(kSomeByte, 1);
    trigger("revertAction");
    EXPECT_EQ(calls,
              (Calls{"2 leave(true) room 0", "2 destroy room 0", "2 make room 0", "2 setup room 0",
                     "2 refresh room 0"}));
    EXPECT_EQ(app.state().rom.readByte(kSomeByte), 0);
    EXPECT_EQ(dialog->selectedTab(), kMapEditingTab);
    EXPECT_TRUE(dialog->currentPage()->isVisible());
}

TEST_F(FileCommandsTest, OpenOffersThePagesChangesEvenWhenCancelled)
{
    chooser.expectOpen("Choose a ROM file", std::nullopt);
    trigger("openRomAction");
    EXPECT_EQ(calls,
              (Calls{"2 leave(false) room 0", "2 destroy room 0", "2 make room 0", "2 setup room 0",
                     "2 refresh room 0"}));
    EXPECT_EQ(dialog->currentPageIndex(), kMapEditingTab);
}

TEST_F(FileCommandsTest, SaveLetsThePageWriteItsChangesFirst)
{
    dynamic_cast<NotingPage&>(*dialog->currentPage()).onCommit = [this] {
        app.state().rom.writeByte(kSomeByte, 0x5A);
    };
    trigger("saveAction");
    EXPECT_EQ(calls, Calls{"2 commit room 0"});
    EXPECT_EQ(byteOnDisk(folder.rom()), 0x5A);
}

TEST_F(FileCommandsTest, SaveAsDoesNotAskThePage)
{
    const auto copy = folder.path() / "copy.nes";
    app.state().rom.writeByte(kSomeByte, 0x5A);
    chooser.expectSave("Input filename to Save to.", folder.rom(), copy);
    trigger("saveAsAction");
    EXPECT_EQ(calls, Calls{});
    EXPECT_EQ(byteOnDisk(copy), 0x5A);
    EXPECT_EQ(dialog->windowHandle()->title(),
              QString::fromStdString("Olvard - v4 - " + utf8FromPath(copy)));
}

TEST_F(FileCommandsTest, FailedRevertEndsWithTheMessage)
{
    folder.remove("game.nes");
    prompt.expect("Failed to revert the ROM file. Quitting.");
    trigger("revertAction");
    EXPECT_EQ(endings, std::vector{0});
}

TEST_F(FileCommandsTest, MainWindowRunsUntilItIsClosed)
{
    dialog.reset();
    bool closed = false;
    QTimer::singleShot(0, [&] {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->isVisible() && window->inherits("velko::MainDialog"))
                closed = window->close();
    });
    EXPECT_FALSE(initInstance(app, prompt));
    EXPECT_TRUE(closed);
}

} // namespace
} // namespace velko
