#include "tests/gui/data_management_fixture.h"

#include <QGroupBox>
#include <array>

namespace velko::test::data_management {
namespace {

// What every row has

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

} // namespace
} // namespace velko::test::data_management
