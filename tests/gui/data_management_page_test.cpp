#include "app/ui_common.h"
#include "tests/gui/data_management_fixture.h"

#include <QApplication>
#include <QGroupBox>
#include <QHelpEvent>
#include <QToolTip>

namespace velko::test::data_management {
namespace {

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
} // namespace velko::test::data_management
