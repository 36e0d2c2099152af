#include "pages/data_management_page.h"

#include "app/elided_label.h"
#include "app/hex_edit.h"
#include "app/room_combo.h"
#include "app/ui_common.h"
#include "tests/support/scripted_prompt.h"
#include "tests/support/test_rom.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QHelpEvent>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QToolTip>
#include <array>
#include <memory>
#include <ostream>
#include <stdexcept>

namespace velko {
namespace {

using test::Bytes;
using test::TestRom;
using Answer = test::ScriptedPrompt::Answer;

constexpr const char* kCopySize =
    "Do you want to copy Width and Height bytes as well? (Recommended, specific to Map Layout "
    "data)";
constexpr const char* kNoSpace =
    "Not enough free space. Try \"Delete unused data\" or \"Join identical data\".";
constexpr const char* kNoGap = "No unused data found between normal data.";

// Also notes the mouse cursor under each message.
class CursorNotingPrompt : public test::ScriptedPrompt {
public:
    void showMessage(std::string_view text, MessageIcon icon) override
    {
        const QCursor* cursor = QGuiApplication::overrideCursor();
        cursors.push_back(cursor != nullptr ? cursor->shape() : Qt::ArrowCursor);
        ScriptedPrompt::showMessage(text, icon);
    }
    std::vector<Qt::CursorShape> cursors;
};

// The numbers of a row's controls.
struct RowNumbers {
    const char* caption;
    int pointer, allocate, remove, setPointer, clone, roomB, shared, sharing, freeSpace,
        deleteUnused, join;
};
constexpr RowNumbers kMapAlloc = {
    " Map allocation ", 1120, 1121, 1116, 1113, 1114, 1115, 1148, 1159, 1201, 1070, 1112};
constexpr RowNumbers kMapLayout = {" Map layout", 1126, 1122, 1118, 1123, 1124,
                                   1125,          1149, 1157, 1202, 1071, 1119};
constexpr RowNumbers kTile32 = {
    " 32x32 Tile data", 1133, 1127, 1128, 1130, 1131, 1132, 1150, 1158, 1204, 1072, 1129};
constexpr RowNumbers kTileLoad = {
    " Tile Allocation", 1140, 1134, 1135, 1137, 1138, 1139, 1151, 1156, 1155, 1073, 1136};
constexpr RowNumbers kPalette = {" Palette ", 1147, 1141, 1142, 1144, 1145,
                                 1146,        1152, 1153, 1154, 1074, 1143};

// 28 rooms. Each kind has the same blocks: room 0 one of its own, rooms 2 and 3 one each, and
// all others that of room 1.
class DataManagementPageTest : public testing::Test {
protected:
    DataManagementPageTest()
    {
        game.setBackgroundBlock(0, 1, Bytes(64, 0x11));
        game.setBackgroundBlock(0, 2, Bytes(64, 0x22));
        for (std::uint8_t room = 0; room < 4; ++room)
            setBlocks(room);
        for (std::uint32_t room = 4; room < kRooms; ++room)
            game.shareAll(room, 1);
        state.names.rooms = {"Hill", "Cave", "Tower", "Shore"};
        start();
    }
    // Called for the rooms in order, so that the blocks lie in order too.
    void setBlocks(std::uint8_t room)
    {
        game.setScreenList(room, std::vector<std::uint16_t>(room + 1U, 0x8600));
        game.setLayout(room, static_cast<std::uint8_t>(room + 1), 1, Bytes(room + 1U, room));
        game.setTile32(room, {{room}});
        game.setTileLoad(room, {static_cast<std::uint8_t>(room == 0 ? 1 : 2), room});
        game.setPalette(room, Bytes(32, room));
    }
    void start()
    {
        page.reset();
        game.loadInto(state);
        page = std::make_unique<DataManagementPage>(state, prompt);
        page->setup();
        page->refresh();
        page->resize(1000, 560);
        page->show();
        page->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(page.get()));
    }

    template <typename Control> Control& control(int number) const
    {
        for (Control* found : page->findChildren<Control*>()) {
            if (found->property(kControlId) == QVariant(number))
                return *found;
        }
        throw std::runtime_error("no control " + std::to_string(number));
    }
    std::string label(int number) const { return control<QLabel>(number).text().toStdString(); }
    HexEdit& pointerEdit(const RowNumbers& row) const { return control<HexEdit>(row.pointer); }
    void click(int number) const
    {
        QTest::mouseClick(&control<QPushButton>(number), Qt::LeftButton);
    }
    // By keys: down from the room chosen, or from none.
    void chooseRoom(const RowNumbers& row, int room) const
    {
        auto& combo = control<RoomCombo>(row.roomB);
        combo.setFocus();
        QTest::keyClick(&combo, Qt::Key_Home);
        for (int i = 0; i < room; ++i)
            QTest::keyClick(&combo, Qt::Key_Down);
        EXPECT_EQ(combo.currentIndex(), room);
    }
    void enableEditing() const
    {
        auto& check = control<QCheckBox>(1206);
        QTest::mouseClick(&check, Qt::LeftButton, {}, QPoint(8, check.height() / 2));
    }
    void type(const RowNumbers& row, const char* text) const
    {
        pointerEdit(row).setFocus();
        pointerEdit(row).selectAll();
        QTest::keyClicks(&pointerEdit(row), text);
    }
    void changeRoom(std::uint8_t room) const
    {
        state.graphics.selectRoom(room);
        page->refresh();
    }

    Bytes image() const { return {state.rom.bytes().begin(), state.rom.bytes().end()}; }
    int firstTile() const { return state.graphics.patternMemory[kPatternTable1]; }

    static constexpr std::uint32_t kRooms = 0x1C;
    TestRom game{kRooms};
    mutable EditorState state;
    CursorNotingPrompt prompt;
    std::unique_ptr<DataManagementPage> page;
};

// What every row has, with the handler and the length of a new block.
struct RowCase {
    RowNumbers numbers;
    PointerArrayHandler RoomDataStore::*handler;
    TestRom::Table table;
    Bytes newBlock;
    std::string gap; // the length of room 2's block, as it is told
};
void PrintTo(const RowCase& row, std::ostream* out)
{
    *out << row.numbers.caption;
}
const std::vector<RowCase>& rowCases()
{
    static const std::vector<RowCase> cases = {
        {kMapAlloc,
         &RoomDataStore::pahMapAlloc,
         &GameConfig::pahMapAlloc,
         {0, 0x86, 0xFF, 0xFF},
         "8 (0x8)"},
        {kMapLayout, &RoomDataStore::pahMapLayout, &GameConfig::pahMapLayout, {0, 0, 0}, "5 (0x5)"},
        {kTile32, &RoomDataStore::pahTile32, &GameConfig::pahTile32, Bytes(1024), "1024 (0x400)"},
        {kTileLoad, &RoomDataStore::pahTileLoad, &GameConfig::pahTileLoad, Bytes(96), "96 (0x60)"},
        {kPalette,
         &RoomDataStore::pahPal,
         &GameConfig::pahPal,
         {0x0F, 0x30, 0x10, 0x00, 0x0F, 0x30, 0x10, 0x00, 0x0F, 0x30, 0x10,
          0x00, 0x0F, 0x30, 0x10, 0x00, 0x0F, 0x36, 0x06, 0x0F, 0x0F, 0x20,
          0x2A, 0x0F, 0x0F, 0x36, 0x15, 0x0F, 0x0F, 0x30, 0x21, 0x0F},
         "32 (0x20)"}};
    return cases;
}

class EachRowTest : public DataManagementPageTest, public testing::WithParamInterface<RowCase> {
protected:
    const RowNumbers& row() const { return GetParam().numbers; }
    PointerArrayHandler& blocks() const { return state.store.*GetParam().handler; }
    bool isLayout() const { return GetParam().table == &GameConfig::pahMapLayout; }
};

TEST_P(EachRowTest, ControlsAreThereWithTheirTexts)
{
    const auto text = [this](int number) {
        return control<QPushButton>(number).text().toStdString();
    };
    EXPECT_EQ(text(row().allocate), "Allocate unique data");
    EXPECT_EQ(text(row().remove), "Delete data");
    EXPECT_EQ(text(row().setPointer), "Set pointer to Room(B)");
    EXPECT_EQ(text(row().clone), "Clone data of Room(B)");
    EXPECT_EQ(text(row().deleteUnused), "Delete unused data");
    EXPECT_EQ(text(row().join), "Join identical data");
    const auto* group = qobject_cast<QGroupBox*>(pointerEdit(row()).parentWidget());
    ASSERT_NE(group, nullptr);
    EXPECT_EQ(group->title(), row().caption);
    const auto named = [group](const char* name) {
        return group->findChild<QLabel*>(name)->text();
    };
    EXPECT_EQ(named("pointerLabel"), "Pointer:");
    EXPECT_EQ(named("sharedLabel"), "Shared Pointer?:");
    EXPECT_EQ(named("roomLabel"), "Room (B):");
    EXPECT_EQ(named("freeSpaceLabel"), "Free space:");
    EXPECT_EQ(group->findChild<QGroupBox*>("globalGroup")->title(), " Global ");
}

TEST_P(EachRowTest, RoomsAreListedByNameAndNoneIsChosen)
{
    const auto& combo = control<RoomCombo>(row().roomB);
    EXPECT_EQ(combo.count(), 0x1C);
    EXPECT_EQ(combo.itemText(0), "Hill");
    EXPECT_EQ(combo.itemText(3), "Shore");
    EXPECT_EQ(combo.itemText(4), "");
    EXPECT_EQ(combo.currentIndex(), -1);
}

TEST_P(EachRowTest, RoomOfItsOwnSharesWithNobody)
{
    EXPECT_EQ(label(row().shared), "No");
    EXPECT_EQ(label(row().sharing), "()");
    EXPECT_EQ(pointerEdit(row()).text().toStdString(),
              QString::number(blocks().pointerOf(0), 16).toStdString());
}

TEST_P(EachRowTest, SharingRoomsAreListedInHexadecimalAfterARoomChange)
{
    blocks().setPointer(0x1A, blocks().pointerOf(0));
    blocks().setPointer(3, blocks().pointerOf(0));
    page->refresh();
    EXPECT_EQ(label(row().shared), "Yes");
    EXPECT_EQ(label(row().sharing), "(3, 1a)");
    changeRoom(2);
    EXPECT_EQ(label(row().shared), "No");
    EXPECT_EQ(label(row().sharing), "()");
    changeRoom(3);
    EXPECT_EQ(label(row().sharing), "(0, 1a)");
}

TEST_P(EachRowTest, FreeSpaceIsShownWithPrefix)
{
    blocks().setFreeSpace(300);
    page->refresh();
    EXPECT_EQ(label(row().freeSpace), "0x12c");
    blocks().setFreeSpace(-1);
    page->refresh();
    EXPECT_EQ(label(row().freeSpace), "0xffffffff");
}

TEST_P(EachRowTest, AllocatedBlockIsTheFirstFreeOne)
{
    const std::uint16_t first = blocks().freeSpaceStart();
    const std::int32_t space = blocks().freeSpace();
    click(row().allocate);
    const Bytes& expected = GetParam().newBlock;
    EXPECT_EQ(blocks().pointerOf(0), first);
    for (std::uint32_t i = 0; i < expected.size(); ++i)
        ASSERT_EQ(blocks().dataByte(i), expected[i]) << i;
    EXPECT_EQ(pointerEdit(row()).text(), QString::number(first, 16));
    EXPECT_EQ(label(row().freeSpace),
              "0x" + QString::number(space - static_cast<int>(expected.size()), 16).toStdString());
}

TEST_P(EachRowTest, AllocationWithoutSpaceIsTold)
{
    blocks().setFreeSpace(static_cast<std::int32_t>(GetParam().newBlock.size()) - 1);
    const Bytes before = image();
    prompt.expect(kNoSpace);
    click(row().allocate);
    EXPECT_TRUE(prompt.done());
    EXPECT_EQ(image(), before);
}

TEST_P(EachRowTest, DeletedBlockGivesWayToTheNextOne)
{
    const std::uint16_t own = blocks().pointerOf(0);
    const std::uint16_t next = blocks().pointerOf(1);
    const std::int32_t space = blocks().freeSpace();
    click(row().remove);
    EXPECT_EQ(blocks().pointerOf(0), own);
    EXPECT_EQ(blocks().pointerOf(1), own);
    EXPECT_EQ(blocks().freeSpace(), space + (next - own));
    EXPECT_EQ(label(row().shared), "Yes");
    EXPECT_EQ(label(row().freeSpace),
              "0x" + QString::number(blocks().freeSpace(), 16).toStdString());
    EXPECT_EQ(label(row().sharing).substr(0, 5), "(1, 4");
}

TEST_P(EachRowTest, PointerIsSetToThatOfRoomB)
{
    chooseRoom(row(), 2);
    if (isLayout())
        prompt.expectYesNo(kCopySize, Answer::kNo);
    click(row().setPointer);
    EXPECT_TRUE(prompt.done());
    EXPECT_EQ(blocks().pointerOf(0), blocks().pointerOf(2));
    EXPECT_EQ(label(row().sharing), "(2)");
    EXPECT_EQ(pointerEdit(row()).text(), QString::number(blocks().pointerOf(2), 16));
}

TEST_P(EachRowTest, CloningTheSamePointerIsPointless)
{
    chooseRoom(row(), 0);
    const Bytes before = image();
    prompt.expect("Rooms have the same pointer! Copying is pointless!");
    click(row().clone);
    EXPECT_TRUE(prompt.done());
    EXPECT_EQ(image(), before);
}

TEST_P(EachRowTest, CloningABlockOfTheSameLengthCopiesIt)
{
    game.shareAll(5, 0);
    start();
    changeRoom(5);
    click(row().allocate); // room 5 has its own block now, of the length of another such block
    const std::uint16_t own = blocks().pointerOf(5);
    changeRoom(0);
    click(row().allocate);
    blocks().setDataByte(0, 0x42);
    changeRoom(5);
    chooseRoom(row(), 0);
    if (isLayout())
        prompt.expectYesNo(kCopySize, Answer::kYes);
    click(row().clone);
    EXPECT_TRUE(prompt.done());
    EXPECT_EQ(blocks().pointerOf(5), own);
    EXPECT_EQ(blocks().dataByte(0, 5), 0x42);
}

TEST_P(EachRowTest, WithoutGapsThatIsTold)
{
    const Bytes before = image();
    prompt.expect(kNoGap);
    click(row().deleteUnused);
    EXPECT_TRUE(prompt.done());
    EXPECT_EQ(image(), before);
    EXPECT_EQ(prompt.cursors, std::vector{Qt::WaitCursor});
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_P(EachRowTest, GapIsClosedAndTold)
{
    const std::uint16_t unused = blocks().pointerOf(2);
    game.shareAll(2, 0);
    start();
    const std::int32_t space = blocks().freeSpace();
    const int gap = blocks().pointerOf(3) - unused;
    prompt.expect(GetParam().gap + " bytes removed in 1 chunks.");
    click(row().deleteUnused);
    EXPECT_TRUE(prompt.done());
    EXPECT_EQ(blocks().pointerOf(3), unused);
    EXPECT_EQ(label(row().freeSpace), "0x" + QString::number(space + gap, 16).toStdString());
}

TEST_P(EachRowTest, IdenticalBlocksAreJoinedAndNamed)
{
    game.setScreenList(3, {0x8600});
    game.setLayout(3, 1, 1, {0});
    game.setTile32(3, {{0}});
    game.setTileLoad(3, {1, 0});
    game.setPalette(3, Bytes(32, 0));
    start();
    prompt.expect("Room \"Hill\" and Room \"Shore\" had identical data and has been joined to "
                  "use the same data.");
    click(row().join);
    EXPECT_TRUE(prompt.done());
    EXPECT_EQ(blocks().pointerOf(3), blocks().pointerOf(0));
    EXPECT_EQ(label(row().sharing), "(3)");
    EXPECT_EQ(prompt.cursors, std::vector{Qt::WaitCursor});

    prompt.expect("Found no identical Rooms with different pointers.");
    click(row().join);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_P(EachRowTest, PointerIsReadOnlyUntilEditingIsEnabled)
{
    const Bytes before = image();
    EXPECT_TRUE(pointerEdit(row()).isReadOnly());
    type(row(), "9");
    EXPECT_EQ(image(), before);
    enableEditing();
    EXPECT_FALSE(pointerEdit(row()).isReadOnly());
    EXPECT_EQ(image(), before);
    enableEditing(); // a second click switches it off
    type(row(), "9");
    EXPECT_TRUE(pointerEdit(row()).isReadOnly());
    EXPECT_EQ(image(), before);
}

TEST_P(EachRowTest, EveryDigitOfAPointerIsWrittenAtOnce)
{
    enableEditing();
    const std::uint16_t shared = blocks().pointerOf(1);
    type(row(), "9");
    EXPECT_EQ(blocks().pointerOf(0), 0x0009);
    EXPECT_EQ(pointerEdit(row()).text(), "9");
    QTest::keyClicks(&pointerEdit(row()), "2");
    EXPECT_EQ(blocks().pointerOf(0), 0x0092);
    QTest::keyClicks(&pointerEdit(row()), "aF");
    EXPECT_EQ(blocks().pointerOf(0), 0x92AF);
    EXPECT_EQ(pointerEdit(row()).text(), "92af");
    EXPECT_EQ(pointerEdit(row()).cursorPosition(), 4);
    QTest::keyClicks(&pointerEdit(row()), "1");
    EXPECT_EQ(blocks().pointerOf(0), 0x2AF1);
    EXPECT_EQ(pointerEdit(row()).text(), "2af1");
    EXPECT_EQ(blocks().pointerOf(1), shared);
    EXPECT_EQ(label(row().sharing), "()");
}

TEST_P(EachRowTest, ADigitInTheMiddleLeavesTheCaretThere)
{
    enableEditing();
    type(row(), "9234");
    pointerEdit(row()).setCursorPosition(1);
    QTest::keyClick(&pointerEdit(row()), Qt::Key_Delete);
    EXPECT_EQ(blocks().pointerOf(0), 0x0934);
    QTest::keyClicks(&pointerEdit(row()), "a");
    EXPECT_EQ(blocks().pointerOf(0), 0x9A34);
    EXPECT_EQ(pointerEdit(row()).cursorPosition(), 2);
}

TEST_P(EachRowTest, AnyTextIsAPointer)
{
    enableEditing();
    type(row(), "z");
    EXPECT_EQ(blocks().pointerOf(0), 0);
    EXPECT_EQ(pointerEdit(row()).text(), "0");
    pointerEdit(row()).selectAll();
    QTest::keyClick(&pointerEdit(row()), Qt::Key_Delete);
    EXPECT_EQ(blocks().pointerOf(0), 0);
}

std::string rowName(const testing::TestParamInfo<RowCase>& parameter)
{
    constexpr std::array kNames = {"MapAllocation", "MapLayout", "Tile32", "TileAllocation",
                                   "Palette"};
    return kNames.at(parameter.index);
}
INSTANTIATE_TEST_SUITE_P(Rows, EachRowTest, testing::ValuesIn(rowCases()), rowName);

// The page and what only some rows do

TEST_F(DataManagementPageTest, OptionsAreThereAndOff)
{
    const auto& check = control<QCheckBox>(1206);
    EXPECT_EQ(check.text(), "Enable direct Pointer editing");
    EXPECT_FALSE(check.isChecked());
    EXPECT_EQ(qobject_cast<QGroupBox*>(check.parentWidget())->title(), " Options ");
    EXPECT_EQ(page->property(kControlId).toInt(), 106);
}

TEST_F(DataManagementPageTest, FreeSpaceIsDashesUntilItIsRead)
{
    page = std::make_unique<DataManagementPage>(state, prompt);
    for (const RowCase& row : rowCases())
        EXPECT_EQ(label(row.numbers.freeSpace), "-----");
}

TEST_F(DataManagementPageTest, LookingWritesNothing)
{
    const Bytes before = image();
    enableEditing();
    for (std::uint8_t room = 0; room < kRooms; ++room)
        changeRoom(room);
    for (const RowCase& row : rowCases()) {
        chooseRoom(row.numbers, 2);
        pointerEdit(row.numbers).setHex(0x1234);
    }
    page->refresh();
    EXPECT_EQ(image(), before);
}

TEST_F(DataManagementPageTest, RoomBStaysChosenThroughCommandsAndRooms)
{
    chooseRoom(kPalette, 2);
    click(kPalette.setPointer);
    changeRoom(3);
    EXPECT_EQ(control<RoomCombo>(kPalette.roomB).currentIndex(), 2);
}

TEST_F(DataManagementPageTest, WithoutRoomBTheEntryBeforeTheTableIsTaken)
{
    const std::uint32_t entry = game.entryOffset(&GameConfig::pahPal, 0) - 2;
    state.rom.writeByte(entry, 0x34);
    state.rom.writeByte(entry + 1, 0xA2);
    click(kPalette.setPointer);
    EXPECT_EQ(state.store.pahPal.pointerOf(0), 0xA234);
    EXPECT_EQ(pointerEdit(kPalette).text(), "a234");
}

TEST_F(DataManagementPageTest, AllocatedMapHasASizeAndADeletedOneHasNone)
{
    const PointerArrayHandler& layouts = state.store.pahMapLayout;
    changeRoom(2);
    click(kMapLayout.allocate);
    EXPECT_EQ(layouts.entryByte(2), 3);
    EXPECT_EQ(layouts.entryByte(3), 1);
    click(kMapLayout.remove);
    EXPECT_EQ(layouts.entryByte(2), 0);
    EXPECT_EQ(layouts.entryByte(3), 0);
}

TEST_F(DataManagementPageTest, SizeIsCopiedWithThePointerIfWanted)
{
    const PointerArrayHandler& layouts = state.store.pahMapLayout;
    chooseRoom(kMapLayout, 2);
    prompt.expectYesNo(kCopySize, Answer::kNo);
    click(kMapLayout.setPointer);
    EXPECT_EQ(layouts.entryByte(2), 3);
    prompt.expectYesNo(kCopySize, Answer::kYes);
    click(kMapLayout.setPointer);
    EXPECT_EQ(layouts.entryByte(2), 5);
}

TEST_F(DataManagementPageTest, CloningAsksWhatToDoAboutLengths)
{
    constexpr const char* kLengths =
        "Source and Destination rooms doesn't have the same data lengths. \n"
        "Do you want to re-adjust Dest. data size by adding/removing bytes? \n"
        "(YES to adjust, NO to copy possible number of bytes without adjusting, CANCEL to not do "
        "anything.)";
    const PointerArrayHandler& lists = state.store.pahMapAlloc;
    chooseRoom(kMapAlloc, 2);
    const Bytes before = image();
    prompt.expectYesNoCancel(kLengths, Answer::kCancel);
    click(kMapAlloc.clone);
    EXPECT_EQ(image(), before);

    state.store.pahMapAlloc.setFreeSpace(3); // four bytes are needed
    prompt.expectYesNoCancel(kLengths, Answer::kYes);
    prompt.expect("Insertion failed. (Likely not enough free space). Copying aborted.");
    click(kMapAlloc.clone);
    EXPECT_EQ(image(), before);

    state.store.pahMapAlloc.setFreeSpace(0x100);
    prompt.expectYesNoCancel(kLengths, Answer::kYes);
    click(kMapAlloc.clone);
    EXPECT_EQ(lists.dataWord(4), 0x8600);
    EXPECT_EQ(lists.dataWord(6), 0xFFFF);
    EXPECT_EQ(label(kMapAlloc.freeSpace), "0xfc");

    changeRoom(3);
    state.store.pahMapAlloc.setFreeSpace(-1);
    prompt.expectYesNoCancel(kLengths, Answer::kYes);
    prompt.expect("Deletion failed. Copying aborted.");
    click(kMapAlloc.clone);
    EXPECT_EQ(lists.dataWord(6), 0x8600);
}

TEST_F(DataManagementPageTest, TilesFollowTheirAllocation)
{
    EXPECT_EQ(firstTile(), 0x11);
    chooseRoom(kTileLoad, 2);
    click(kTileLoad.clone);
    EXPECT_EQ(firstTile(), 0x22);
    click(kTileLoad.allocate);
    EXPECT_EQ(firstTile(), 0x00);
    click(kTileLoad.setPointer);
    EXPECT_EQ(firstTile(), 0x22);
}

TEST_F(DataManagementPageTest, TypedPointerChangesTheTiles)
{
    enableEditing();
    type(kTileLoad, QString::number(state.store.pahTileLoad.pointerOf(2), 16).toUtf8());
    EXPECT_EQ(firstTile(), 0x22);
}

TEST_F(DataManagementPageTest, AllRowsFitTheirWindow)
{
    EXPECT_LE(page->minimumSizeHint().width(), 1000);
    EXPECT_LE(page->minimumSizeHint().height(), 560);
}

TEST_F(DataManagementPageTest, LongListOfRoomsIsCutOffAndShownWholeAsATip)
{
    for (std::uint32_t room = 0; room < kRooms; ++room)
        state.store.pahPal.setPointer(room, 0xA000);
    page->refresh();
    auto& list = control<ElidedLabel>(kPalette.sharing);
    const int line = list.fontMetrics().height();
    EXPECT_LT(list.width(), list.fontMetrics().horizontalAdvance(list.text()));
    EXPECT_EQ(list.sizeHint().height(), line);
    QHelpEvent help(QEvent::ToolTip, QPoint(5, 5), list.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&list, &help);
    EXPECT_EQ(QToolTip::text(), "<p>" + list.text() + "</p>");
    QToolTip::hideText();
}

TEST_F(DataManagementPageTest, TabGoesThroughARowInOrder)
{
    control<QCheckBox>(1206).setFocus();
    const auto next = [this] {
        QTest::keyClick(page->focusWidget(), Qt::Key_Tab);
        return page->focusWidget()->property(kControlId).toInt();
    };
    for (const RowNumbers& row : {kMapAlloc, kMapLayout, kTile32, kTileLoad, kPalette}) {
        for (const int number : {row.pointer, row.allocate, row.remove, row.setPointer, row.clone,
                                 row.roomB, row.deleteUnused, row.join})
            EXPECT_EQ(next(), number);
    }
    EXPECT_EQ(next(), 1206);
}

} // namespace
} // namespace velko
