#include "app/editor_app.h"

#include "rom/file_io.h"
#include "tests/support/game_folder.h"
#include "tests/support/scripted_file_chooser.h"
#include "tests/support/scripted_prompt.h"

#include <QGuiApplication>
#include <QPalette>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace velko {
namespace {

using test::byteOnDisk;
using test::Bytes;
using test::GameFolder;
using test::kSomeByte;
using test::ScriptedFileChooser;
using test::ScriptedPrompt;
using test::TestRom;

constexpr const char* kUnknownScalarText =
    "YAML content recognized as neither key or value. (Check spelling and letter case!). Press "
    "Cancel to quit.";

// A main window that notes what it is told.
class FakeWindow : public EditorWindow {
public:
    int selectedTab() const override { return tab; }
    void destroyPage(bool revert) override { calls.push_back(revert ? "drop" : "leave"); }
    void showPage(int index) override { calls.push_back("show " + std::to_string(index)); }
    void commitEdits() override
    {
        calls.push_back("commit");
        onCommit();
    }
    void setCaption(std::string_view text) override
    {
        calls.push_back("caption");
        caption = text;
    }

    int tab = 4;
    std::vector<std::string> calls;
    std::string caption;
    std::function<void()> onCommit = [] {};
};
using Calls = std::vector<std::string>;

class EditorAppTest : public testing::Test {
protected:
    GameFolder folder;
    ScriptedPrompt prompt;
    ScriptedFileChooser chooser;
    std::vector<int> endings; // the status of every request to end the process
    EditorApp app{{prompt, chooser, [this](int status) { endings.push_back(status); }, {}}};
    FakeWindow window;

    void start()
    {
        ASSERT_TRUE(app.initApplication(folder.rom()));
        app.setWindow(window);
        window.calls.clear();
    }
    // A ROM like the game's own, with one byte changed.
    std::filesystem::path writeOtherRom(const std::string& name, std::uint8_t value) const
    {
        Bytes bytes = TestRom(3).bytes;
        bytes.at(kSomeByte) = value;
        return folder.write(name, bytes);
    }
};

TEST_F(EditorAppTest, StartAsksForARomAndPreparesIt)
{
    chooser.expectOpen("Choose a ROM file", folder.rom());
    EXPECT_TRUE(app.initApplication());
    EXPECT_EQ(chooser.lastFilter(), "NES roms (*.nes)|*.nes|All Files (*.*)|*.*||");
    EXPECT_TRUE(endings.empty());
    EXPECT_EQ(app.state().rom.bytes().size(), 16U + 12 * 16384);
    EXPECT_EQ(app.state().config.roomCount(), 3U);
    EXPECT_EQ(app.state().names.rooms.at(1), "Yard");
    // 32 bytes of palette in a region of 4096.
    EXPECT_EQ(app.state().store.pahPal.freeSpace(), 4096 - 32);
    EXPECT_EQ(app.state().currentRoom(), 0);
}

TEST_F(EditorAppTest, StartWithARomGivenAsksNothing)
{
    EXPECT_TRUE(app.initApplication(folder.rom()));
    EXPECT_EQ(app.state().rom.path(), folder.rom());
    EXPECT_EQ(app.state().graphics.colourTable[1], 0x010203U);
}

TEST_F(EditorAppTest, StartTakesTheWindowsColourForPictureBackgrounds)
{
    const QPalette before = QGuiApplication::palette();
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(0x12, 0x34, 0x56));
    QGuiApplication::setPalette(palette);
    start();
    QGuiApplication::setPalette(before);
    EXPECT_EQ(app.state().backgroundColour, 0x123456U);
}

TEST_F(EditorAppTest, CancellingTheFirstDialogEndsWithoutAnyMessage)
{
    chooser.expectOpen("Choose a ROM file", std::nullopt);
    EXPECT_FALSE(app.initApplication());
    EXPECT_EQ(endings, std::vector{0});
    EXPECT_TRUE(app.state().rom.path().empty());
}

TEST_F(EditorAppTest, UnreadableRomIsToldAndEnds)
{
    chooser.expectOpen("Choose a ROM file", folder.path() / "missing.nes");
    prompt.expect("Failed to load the ROM file. Quitting.");
    EXPECT_FALSE(app.initApplication());
    EXPECT_EQ(endings, std::vector{0});
}

TEST_F(EditorAppTest, EmptyRomAndFolderCannotBeRead)
{
    prompt.expect("Failed to load the ROM file. Quitting.");
    EXPECT_FALSE(app.initApplication(folder.write("empty.nes", "")));
    prompt.expect("Failed to load the ROM file. Quitting.");
    EXPECT_FALSE(app.initApplication(folder.path()));
    EXPECT_EQ(endings, (std::vector{0, 0}));
}

TEST_F(EditorAppTest, RomOfOneByteIsOpened)
{
    EXPECT_TRUE(app.initApplication(folder.write("tiny.nes", "N")));
    EXPECT_EQ(app.state().rom.size(), 1U);
    EXPECT_TRUE(endings.empty());
}

TEST_F(EditorAppTest, MissingModuleCfgIsToldAndStartGoesOn)
{
    folder.remove("module.cfg");
    prompt.expect("Can't open \"module.cfg\"!");
    chooser.expectOpen("Choose a ROM file", folder.rom());
    EXPECT_TRUE(app.initApplication());
    EXPECT_EQ(app.state().config.roomCount(), 0U);
    EXPECT_TRUE(endings.empty());
}

TEST_F(EditorAppTest, DecliningAQuestionableScalarEndsBeforeARomIsAskedFor)
{
    folder.write("modules/toy/data.yaml", "miscData:\n  Rooms: 3\n");
    prompt.expectOkCancel(kUnknownScalarText, "Rooms", ScriptedPrompt::Answer::kCancel);
    EXPECT_FALSE(app.initApplication());
    EXPECT_EQ(endings, std::vector{49374});
}

TEST_F(EditorAppTest, AcceptingAQuestionableScalarGoesOn)
{
    folder.write("modules/toy/data.yaml", "miscData:\n  Rooms: 3\n  rooms: 2\n");
    prompt.expectOkCancel(kUnknownScalarText, "Rooms", ScriptedPrompt::Answer::kOk);
    EXPECT_TRUE(app.initApplication(folder.rom()));
    EXPECT_EQ(app.state().config.roomCount(), 2U);
}

TEST_F(EditorAppTest, MissingResourcesAreToldAndEndBeforeARomIsAskedFor)
{
    folder.remove("fr_nesB.pal");
    class AnyError : public ScriptedPrompt {
    public:
        void showMessage(std::string_view text, MessageIcon icon) override
        {
            errors.emplace_back(text);
            EXPECT_EQ(icon, MessageIcon::kError);
        }
        Calls errors;
    } errors;
    EditorApp other{{errors, chooser, [this](int status) { endings.push_back(status); }, {}}};
    EXPECT_FALSE(other.initApplication());
    ASSERT_EQ(errors.errors.size(), 1U);
    EXPECT_NE(errors.errors[0].find("fr_nesB.pal"), std::string::npos) << errors.errors[0];
    EXPECT_EQ(endings, std::vector{0});
}

TEST_F(EditorAppTest, TraceOfTheLoaderGoesToItsSink)
{
    std::string trace;
    EditorApp other{{prompt, chooser, [](int) {}, [&](std::string_view piece) { trace += piece; }}};
    EXPECT_TRUE(other.initApplication(folder.rom()));
    EXPECT_EQ(trace.substr(0, 26), "Now YAML reading starts.\nl");
}

TEST_F(EditorAppTest, CaptionNamesTheFile)
{
    start();
    EXPECT_EQ(window.caption, "Olvard - v4 - " + utf8FromPath(folder.rom()));
}

TEST_F(EditorAppTest, OpenReadsTheNewRomBetweenTheOldPageAndTheNew)
{
    start();
    const auto other = writeOtherRom("other.nes", 0x42);
    chooser.expectOpen("Choose a ROM file", other);
    app.openRom();
    EXPECT_EQ(window.calls, (Calls{"leave", "show 4", "caption"}));
    EXPECT_EQ(window.caption, "Olvard - v4 - " + utf8FromPath(other));
    EXPECT_EQ(app.state().rom.readByte(kSomeByte), 0x42);
}

TEST_F(EditorAppTest, OpenComputesTheFreeSpaceAgainAndKeepsTheRoom)
{
    start();
    app.state().graphics.selectRoom(2);
    app.state().store.pahPal.setFreeSpace(5);
    chooser.expectOpen("Choose a ROM file", folder.rom());
    app.openRom();
    EXPECT_EQ(app.state().store.pahPal.freeSpace(), 4096 - 32);
    EXPECT_EQ(app.state().currentRoom(), 2);
    EXPECT_EQ(app.state().store.pahPal.currentRoom(), 2U);
}

TEST_F(EditorAppTest, OpenDoesNotReadTheConfigurationAgain)
{
    start();
    folder.write("modules/toy/data.yaml", "miscData:\n  rooms: 1\n");
    chooser.expectOpen("Choose a ROM file", folder.rom());
    app.openRom();
    EXPECT_EQ(app.state().config.roomCount(), 3U);
}

TEST_F(EditorAppTest, CancellingOpenKeepsTheRomAndBringsThePageBack)
{
    start();
    app.state().rom.writeByte(kSomeByte, 0x77);
    chooser.expectOpen("Choose a ROM file", std::nullopt);
    app.openRom();
    EXPECT_EQ(window.calls, (Calls{"leave", "show 4", "caption"}));
    EXPECT_EQ(app.state().rom.readByte(kSomeByte), 0x77);
    EXPECT_EQ(app.state().rom.path(), folder.rom());
}

TEST_F(EditorAppTest, OpeningAnUnreadableRomIsToldAndEnds)
{
    start();
    chooser.expectOpen("Choose a ROM file", folder.path() / "missing.nes");
    prompt.expect("Failed to load the ROM file. Quitting.");
    app.openRom();
    EXPECT_EQ(endings, std::vector{0});
    EXPECT_EQ(window.calls, Calls{"leave"});
}

TEST_F(EditorAppTest, RevertReadsTheFileAgainAndDropsThePagesChanges)
{
    start();
    window.caption.clear();
    app.state().rom.writeByte(kSomeByte, 0x77);
    app.state().store.pahPal.setFreeSpace(5);
    app.revert();
    EXPECT_EQ(window.calls, (Calls{"drop", "show 4"}));
    EXPECT_EQ(app.state().rom.readByte(kSomeByte), 0);
    EXPECT_EQ(app.state().store.pahPal.freeSpace(), 4096 - 32);
}

TEST_F(EditorAppTest, RevertToAFileThatIsGoneIsToldAndEnds)
{
    start();
    folder.remove("game.nes");
    prompt.expect("Failed to revert the ROM file. Quitting.");
    app.revert();
    EXPECT_EQ(endings, std::vector{0});
    EXPECT_EQ(window.calls, Calls{"drop"});
}

TEST_F(EditorAppTest, SaveLetsThePageWriteFirst)
{
    start();
    window.onCommit = [this] { app.state().rom.writeByte(kSomeByte, 0x5A); };
    app.save();
    EXPECT_EQ(window.calls, Calls{"commit"});
    EXPECT_EQ(byteOnDisk(folder.rom()), 0x5A);
}

TEST_F(EditorAppTest, SaveChangesTheEditedByteOnly)
{
    start();
    app.state().rom.writeByte(kSomeByte, 0x5A);
    app.save();
    Bytes expected = TestRom(3).bytes;
    expected.at(kSomeByte) = 0x5A;
    EXPECT_EQ(loadFile(folder.rom()), expected);
}

TEST_F(EditorAppTest, FailingSaveSaysNothing)
{
    start();
    std::filesystem::remove(folder.rom());
    std::filesystem::create_directory(folder.rom());
    app.save();
    EXPECT_TRUE(endings.empty());
}

TEST_F(EditorAppTest, SaveAsWritesTheImageWithoutAskingThePage)
{
    start();
    const auto copy = folder.path() / "copy.nes";
    app.state().rom.writeByte(kSomeByte, 0x5A);
    chooser.expectSave("Input filename to Save to.", folder.rom(), copy);
    app.saveAs();
    EXPECT_EQ(chooser.lastFilter(), "NES roms (*.nes)|*.nes|All Files (*.*)|*.*||");
    EXPECT_EQ(window.calls, Calls{"caption"});
    EXPECT_EQ(window.caption, "Olvard - v4 - " + utf8FromPath(copy));
    EXPECT_EQ(byteOnDisk(copy), 0x5A);
    EXPECT_EQ(byteOnDisk(folder.rom()), 0);
}

TEST_F(EditorAppTest, CancellingSaveAsChangesNothing)
{
    start();
    app.state().rom.writeByte(kSomeByte, 0x5A);
    chooser.expectSave("Input filename to Save to.", folder.rom(), std::nullopt);
    app.saveAs();
    EXPECT_EQ(window.calls, Calls{});
    EXPECT_EQ(byteOnDisk(folder.rom()), 0);
    EXPECT_EQ(app.state().rom.path(), folder.rom());
}

TEST_F(EditorAppTest, AfterSaveAsSaveAndRevertUseTheNewFile)
{
    start();
    const auto copy = folder.path() / "copy.nes";
    chooser.expectSave("Input filename to Save to.", folder.rom(), copy);
    app.saveAs();
    app.state().rom.writeByte(kSomeByte, 0x31);
    app.save();
    EXPECT_EQ(byteOnDisk(copy), 0x31);
    EXPECT_EQ(byteOnDisk(folder.rom()), 0);
    app.state().rom.writeByte(kSomeByte, 0x32);
    app.revert();
    EXPECT_EQ(app.state().rom.readByte(kSomeByte), 0x31);
}

} // namespace
} // namespace velko
