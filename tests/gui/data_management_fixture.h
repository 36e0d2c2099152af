#pragma once

#include "pages/data_management_page.h"

#include "app/elided_label.h"
#include "app/hex_edit.h"
#include "app/room_combo.h"
#include "tests/gui/page_support.h"
#include "tests/support/scripted_prompt.h"
#include "tests/support/test_rom.h"

#include <QCheckBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <memory>
#include <ostream>

namespace velko::test::data_management {

using Answer = ScriptedPrompt::Answer;

inline constexpr const char* kCopySize =
    "Do you want to copy Width and Height bytes as well? (Recommended, specific to Map Layout "
    "data)";
inline constexpr const char* kNoSpace =
    "Not enough free space. Try \"Delete unused data\" or \"Join identical data\".";
inline constexpr const char* kNoGap = "No unused data found between normal data.";

// Also notes the mouse cursor under each message.
class CursorNotingPrompt : public ScriptedPrompt {
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
inline constexpr RowNumbers kMapAlloc = {
    " Map allocation ", 1120, 1121, 1116, 1113, 1114, 1115, 1148, 1159, 1201, 1070, 1112};
inline constexpr RowNumbers kMapLayout = {" Map layout", 1126, 1122, 1118, 1123, 1124,
                                          1125,          1149, 1157, 1202, 1071, 1119};
inline constexpr RowNumbers kTile32 = {
    " 32x32 Tile data", 1133, 1127, 1128, 1130, 1131, 1132, 1150, 1158, 1204, 1072, 1129};
inline constexpr RowNumbers kTileLoad = {
    " Tile Allocation", 1140, 1134, 1135, 1137, 1138, 1139, 1151, 1156, 1155, 1073, 1136};
inline constexpr RowNumbers kPalette = {" Palette ", 1147, 1141, 1142, 1144, 1145,
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
        showPage(*page, {1000, 560});
    }

    template <typename Control> Control& control(int number) const
    {
        return controlOf<Control>(*page, number);
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
        clickMark(check);
    }
    void type(const RowNumbers& row, const char* text) const { typeInto(pointerEdit(row), text); }
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

// A row, the handler of its data and the block that is allocated for it.
struct RowCase {
    RowNumbers numbers;
    PointerArrayHandler RoomDataStore::*handler;
    TestRom::Table table;
    Bytes newBlock;
    std::string gap; // the length of room 2's block, as it is told
};
inline void PrintTo(const RowCase& row, std::ostream* out)
{
    *out << row.numbers.caption;
}
inline const std::vector<RowCase>& rowCases()
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

} // namespace velko::test::data_management
