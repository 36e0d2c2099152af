// What becomes of painted cells that are not in the ROM image yet, in the whole program: real
// menus, tabs and room choosers around the real page.

#include "app/editor_app.h"
#include "app/init_instance.h"
#include "app/main_dialog.h"
#include "app/picture_view.h"
#include "rom/file_io.h"
#include "tests/gui/main_dialog_fixture.h"
#include "tests/gui/page_support.h"
#include "tests/support/game_folder.h"
#include "tests/support/map_editing_rom.h"
#include "tests/support/scripted_file_chooser.h"

#include <QCheckBox>
#include <QPushButton>
#include <algorithm>

namespace velko {
namespace {

using test::Bytes;
using test::kMapEditingTab;
using test::MapEditingRom;
using test::ScriptedFileChooser;
using test::ScriptedPrompt;
using Answer = ScriptedPrompt::Answer;

const std::string kQuestion = "Convert and Write 16x16 Map Data to ROM first?";
const std::string kNoMap =
    "This Room has no Map Layout data. (Height and Width are both 0). If you want to use this Room "
    "Id, please go to Data Management and use the \"Allocate unique data\" function under the "
    "\"Map layout\" category.";
constexpr std::uint8_t kSelectorsRoom = MapEditingRom::kSharer;

// The first cell of the room's second screen, in pixels of the map's picture.
constexpr QPoint kCell(8 * 7 / 5, 248 * 21 / 16);

// The program on the map editing tab of room 0.
class UnwrittenChangesTest : public testing::Test {
public:
    void chooseAnotherTab() { clickTab(0); }
    void chooseRoomInList()
    {
        prompt.expect(kNoMap); // the next room has none
        control<QComboBox>("roomCombo").setFocus();
        QTest::keyClick(&control<QComboBox>("roomCombo"), Qt::Key_Down);
        EXPECT_EQ(app.state().currentRoom(), 1);
    }
    void chooseRoomBySpin()
    {
        prompt.expect(kNoMap);
        auto& spin = control<ArrowSpin>("roomSpin");
        QTest::mouseClick(&spin, Qt::LeftButton, {}, {spin.width() / 2, spin.height() / 4});
        EXPECT_EQ(app.state().currentRoom(), 1);
    }
    void openRoomSelector()
    {
        trigger("roomSelectorAction");
        EXPECT_EQ(app.state().currentRoom(), kSelectorsRoom);
    }
    void cancelOpening()
    {
        chooser.expectOpen("Choose a ROM file", std::nullopt);
        trigger("openRomAction");
    }
    void save() { trigger("saveAction"); }

protected:
    UnwrittenChangesTest()
    {
        EXPECT_TRUE(app.initApplication(folder.rom()));
        WindowTable windows = editorWindows();
        windows.tools.roomSelector = [](const WindowContext&, QWidget*, std::uint8_t) {
            return kSelectorsRoom;
        };
        dialog = std::make_unique<MainDialog>(app.state(), prompt, std::move(windows));
        connectFileCommands(*dialog, app);
        dialog->show();
        dialog->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
        clickTab(kMapEditingTab);
    }

    template <typename Control> Control& control(const char* name) const
    {
        return test::controlOf<Control>(*dialog, name);
    }
    void trigger(const char* action) const { control<QAction>(action).trigger(); }
    void clickTab(int index) const
    {
        QTabBar& bar = *control<QTabWidget>("pageTabs").tabBar();
        QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(index).center());
    }
    // Selects block 2 and paints one cell with it, which makes a new Tile32 block.
    void paint() const
    {
        clickPicture("tileSelector", {85, 15});
        clickPicture("mapView", kCell);
    }
    void clickPicture(const char* name, QPoint point) const
    {
        QTest::mouseClick(&control<PictureView>(name), Qt::LeftButton, {},
                          point + QPoint(PictureView::kFrame, PictureView::kFrame));
    }
    Pixel shownCell() const
    {
        return control<PictureView>("mapView").picture().at(kCell.x(), kCell.y());
    }
    // The second screen's first Tile32 numbers: 1 1 as loaded, 1 2 once the painted cell is
    // written.
    Bytes numbers() const
    {
        return {app.state().rom.readByte(MapEditingRom::kFirst),
                app.state().rom.readByte(MapEditingRom::kFirst + 1)};
    }
    static Bytes numbersOnDisk(const std::filesystem::path& file)
    {
        const Bytes bytes = loadFile(file).value_or(Bytes(game().bytes.size()));
        return {bytes.at(MapEditingRom::kFirst), bytes.at(MapEditingRom::kFirst + 1)};
    }
    void expectQuestion(bool yes)
    {
        prompt.expectYesNo(kQuestion, yes ? Answer::kYes : Answer::kNo);
    }
    static MapEditingRom game() { return {}; }

    static inline const Bytes kLoaded{1, 1};
    static inline const Bytes kWritten{1, 2};

    test::GameFolder folder{game()};
    ScriptedPrompt prompt;
    ScriptedFileChooser chooser;
    std::vector<int> endings;
    mutable EditorApp app{{prompt, chooser, [this](int status) { endings.push_back(status); }, {}}};
    std::unique_ptr<MainDialog> dialog;
};

// Everything that asks, with both answers

struct Way {
    const char* name;
    void (UnwrittenChangesTest::*go)();
};

class AskingTest : public UnwrittenChangesTest, public testing::WithParamInterface<Way> {
protected:
    void go() { (this->*GetParam().go)(); }
};

TEST_P(AskingTest, YesWritesIntoTheImage)
{
    paint();
    expectQuestion(true);
    go();
    EXPECT_TRUE(prompt.done());
    EXPECT_EQ(numbers(), kWritten);
    dialog->commitEdits(); // nothing left to ask about
}

TEST_P(AskingTest, NoLeavesTheImageAlone)
{
    paint();
    expectQuestion(false);
    go();
    EXPECT_TRUE(prompt.done());
    EXPECT_EQ(Bytes(app.state().rom.bytes().begin(), app.state().rom.bytes().end()), game().bytes);
}

TEST_P(AskingTest, NothingIsAskedWithoutChanges)
{
    go();
    EXPECT_TRUE(prompt.done());
}

TEST_P(AskingTest, NothingIsAskedAfterTheButton)
{
    paint();
    QTest::mouseClick(&control<QPushButton>("convertButton"), Qt::LeftButton);
    go();
    EXPECT_TRUE(prompt.done());
    EXPECT_EQ(numbers(), kWritten);
}

INSTANTIATE_TEST_SUITE_P(Ways, AskingTest,
                         testing::Values(Way{"TabChange", &UnwrittenChangesTest::chooseAnotherTab},
                                         Way{"RoomList", &UnwrittenChangesTest::chooseRoomInList},
                                         Way{"RoomSpin", &UnwrittenChangesTest::chooseRoomBySpin},
                                         Way{"RoomSelector",
                                             &UnwrittenChangesTest::openRoomSelector},
                                         Way{"OpenRom", &UnwrittenChangesTest::cancelOpening},
                                         Way{"Save", &UnwrittenChangesTest::save}),
                         [](const auto& way) { return std::string(way.param.name); });

// What follows an answer

TEST_F(UnwrittenChangesTest, SaveWritesWhatWasKept)
{
    paint();
    expectQuestion(true);
    save();
    EXPECT_EQ(numbersOnDisk(folder.rom()), kWritten);
    save(); // asks no more
}

TEST_F(UnwrittenChangesTest, SaveWithoutTheChangesTakesThemFromTheMap)
{
    const Pixel before = shownCell();
    paint();
    EXPECT_NE(shownCell(), before);
    expectQuestion(false);
    save();
    EXPECT_EQ(numbersOnDisk(folder.rom()), kLoaded);
    EXPECT_EQ(shownCell(), before);
    chooseAnotherTab(); // asks no more
}

TEST_F(UnwrittenChangesTest, KeptChangesAreThereWhenTheTabComesBack)
{
    paint();
    const Pixel painted = shownCell();
    expectQuestion(true);
    chooseAnotherTab();
    clickTab(kMapEditingTab);
    EXPECT_EQ(shownCell(), painted);
}

TEST_F(UnwrittenChangesTest, GivenUpChangesAreGoneWhenTheRoomComesBack)
{
    const Pixel before = shownCell();
    paint();
    expectQuestion(false);
    chooseRoomInList();
    QTest::keyClick(&control<QComboBox>("roomCombo"), Qt::Key_Up);
    EXPECT_EQ(shownCell(), before);
}

TEST_F(UnwrittenChangesTest, OpeningAnotherRomAsksFirst)
{
    const auto other = folder.write("other.nes", game().bytes);
    for (const bool yes : {true, false}) {
        paint();
        expectQuestion(yes);
        chooser.expectOpen("Choose a ROM file", other);
        trigger("openRomAction");
        EXPECT_TRUE(prompt.done());
        EXPECT_EQ(numbers(), kLoaded); // the other file's
    }
    EXPECT_EQ(numbersOnDisk(folder.rom()), kLoaded);
}

// What does not ask

TEST_F(UnwrittenChangesTest, RevertDropsThemWithoutAQuestion)
{
    const Pixel before = shownCell();
    paint();
    trigger("revertAction");
    EXPECT_EQ(shownCell(), before);
    EXPECT_EQ(numbers(), kLoaded);
    chooseAnotherTab(); // nothing left to ask about
}

TEST_F(UnwrittenChangesTest, SaveAsNeitherAsksNorWritesNorDropsThem)
{
    const auto copy = folder.path() / "copy.nes";
    paint();
    const Pixel painted = shownCell();
    chooser.expectSave("Input filename to Save to.", folder.rom(), copy);
    trigger("saveAsAction");
    EXPECT_EQ(numbersOnDisk(copy), kLoaded);
    EXPECT_EQ(shownCell(), painted);
    expectQuestion(true);
    save();
    EXPECT_EQ(numbersOnDisk(copy), kWritten);
}

TEST_F(UnwrittenChangesTest, ExitDropsThemWithoutAQuestion)
{
    paint();
    trigger("exitAction");
    EXPECT_FALSE(dialog->isVisible());
    dialog.reset();
    EXPECT_EQ(numbersOnDisk(folder.rom()), kLoaded);
}

// The Shift key

TEST_F(UnwrittenChangesTest, ShiftIsSeenWhereverTheFocusIs)
{
    auto& patterns = app.state().graphics.patternMemory;
    std::fill_n(patterns.begin(), kPatternTable1, 0xFF); // sprite tiles without transparent pixels
    auto& check = control<QCheckBox>("heroCheck");
    QTest::mouseClick(&check, Qt::LeftButton, {}, QPoint(8, check.height() / 2));
    auto& map = control<PictureView>("mapView");
    QMouseEvent move(QEvent::MouseMove, QPointF(200, 200), map.mapToGlobal(QPointF(200, 200)),
                     Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(&map, &move);
    control<QComboBox>("roomCombo").setFocus();
    const PixelImage without = map.picture();
    QTest::keyPress(dialog->windowHandle(), Qt::Key_Shift);
    EXPECT_NE(map.picture(), without);
    QTest::keyRelease(dialog->windowHandle(), Qt::Key_Shift);
    EXPECT_EQ(map.picture(), without);
}

} // namespace
} // namespace velko
