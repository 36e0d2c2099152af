#include "app/ui_common.h"
#include "tests/gui/map_allocation_fixture.h"

#include <QGroupBox>
#include <map>

namespace velko::test::map_allocation {
namespace {

// What is shown

TEST_F(MapAllocationPageTest, SecondScreenIsSelectedAndShown)
{
    EXPECT_EQ(lines(),
              (std::vector<std::string>{"0: -- 8600 -- (index 0)", "1: -- 8680 -- (index 2)",
                                        "2: -- c808 -- (index 108)"}));
    expectShown(1, 0x8680, "8680", "2", 2);
}

TEST_F(MapAllocationPageTest, ControlsCarryTheirNumbers)
{
    const std::map<const char*, int> numbers = {{"screenList", 1021},     {"insertButton", 1002},
                                                {"removeButton", 1022},   {"resetButton", 1068},
                                                {"findFreeButton", 1024}, {"screenView", 1026},
                                                {"addressEdit", 1032},    {"indexEdit", 1033},
                                                {"indexBar", 1034},       {"freeSpaceValue", 1035}};
    for (const auto& [name, number] : numbers)
        EXPECT_EQ(control<QWidget>(name).property(kControlId).toInt(), number) << name;
    EXPECT_EQ(page->property(kControlId).toInt(), 129);
}

TEST_F(MapAllocationPageTest, FixedTextsAreToTheLetter)
{
    EXPECT_EQ(control<QGroupBox>("listGroup").title(), " Map Allocation List ");
    EXPECT_EQ(control<QGroupBox>("selectedGroup").title(), " Selected ");
    EXPECT_EQ(control<QPushButton>("insertButton").text(), "Insert (after)");
    EXPECT_EQ(control<QPushButton>("removeButton").text(), "Remove");
    EXPECT_EQ(control<QPushButton>("resetButton").text(), "Reset List");
    EXPECT_EQ(control<QPushButton>("findFreeButton").text(), "Find a free screen");
    EXPECT_EQ(control<QLabel>("addressLabel").text(), "Address:");
    EXPECT_EQ(control<QLabel>("indexLabel").text(), "Index:");
    EXPECT_EQ(control<QLabel>("freeSpaceLabel").text(), "Map Allocation free space:");
}

TEST_F(MapAllocationPageTest, ScrollBarRunsOverAllScreens)
{
    EXPECT_EQ(bar().minimum(), 0);
    EXPECT_EQ(bar().maximum(), 271);
    EXPECT_EQ(bar().pageStep(), 16);
}

TEST_F(MapAllocationPageTest, PreviewIsAsLargeAsAScreen)
{
    EXPECT_EQ(view().size(), QSize(256 + 2 * PictureView::kFrame, 240 + 2 * PictureView::kFrame));
}

TEST_F(MapAllocationPageTest, PreviewIsTheSelectedScreen)
{
    EXPECT_EQ(view().picture(), PixelImage(256, 240, TestRom::colour(11)));
    clickLine(0);
    EXPECT_EQ(view().picture(), PixelImage(256, 240, TestRom::colour(3)));
    type(indexEdit(), "1");
    EXPECT_EQ(view().picture(), PixelImage(256, 240, TestRom::colour(7)));
}

TEST_F(MapAllocationPageTest, LookingWritesNothing)
{
    for (int row = 0; row < 3; ++row)
        clickLine(row);
    for (std::uint8_t room = 0; room < 4; ++room)
        changeRoom(room);
    addressEdit().setFocus();
    indexEdit().setFocus();
    list().setFocus();
    addressEdit().setHex(0x1234);
    indexEdit().setHex(5);
    bar().setValue(77);
    EXPECT_EQ(image(), loaded);
}

TEST_F(MapAllocationPageTest, AnotherRoomIsShownWithItsSelection)
{
    clickLine(2);
    changeRoom(1);
    EXPECT_EQ(lines(), std::vector<std::string>{"0: -- 8640 -- (index 1)"});
    expectShown(0, 0x8640, "8640", "1", 1);
    changeRoom(0);
    expectShown(1, 0x8680, "8680", "2", 2);
}

TEST_F(MapAllocationPageTest, RoomWithoutScreensHasAnEmptyList)
{
    changeRoom(2);
    EXPECT_TRUE(lines().empty());
    EXPECT_EQ(addressEdit().text(), "ffff");
}

TEST_F(MapAllocationPageTest, FreeSpaceIsHexadecimal)
{
    state.store.pahMapAlloc.setFreeSpace(300);
    page->refresh();
    EXPECT_EQ(freeSpace(), "12c");
    state.store.pahMapAlloc.setFreeSpace(-1);
    page->refresh();
    EXPECT_EQ(freeSpace(), "ffffffff");
}

TEST_F(MapAllocationPageTest, ListWithoutAnEndIsShownAndCanBeChanged)
{
    state.rom.setBytes(Bytes(loaded.size(), 0));
    page->refresh();
    EXPECT_EQ(lines().size(), 65536U);
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_End);
    EXPECT_EQ(list().currentIndex().row(), 65535);
    type(addressEdit(), "9");
    EXPECT_EQ(lines()[65535], "ffff: -- 9 -- (index 0)");
}

// The list

TEST_F(MapAllocationPageTest, ClickSelectsAnEntry)
{
    clickLine(2);
    expectShown(2, 0xC808, "c808", "108", 264);
    clickLine(0);
    expectShown(0, 0x8600, "8600", "0", 0);
    EXPECT_EQ(image(), loaded);
}

TEST_F(MapAllocationPageTest, KeysMoveTheSelection)
{
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_Down);
    expectShown(2, 0xC808, "c808", "108", 264);
    QTest::keyClick(&list(), Qt::Key_Down);
    expectShown(2, 0xC808, "c808", "108", 264);
    QTest::keyClick(&list(), Qt::Key_Home);
    expectShown(0, 0x8600, "8600", "0", 0);
    EXPECT_EQ(image(), loaded);
}

TEST_F(MapAllocationPageTest, LinesCannotBeEdited)
{
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_F2);
    QTest::keyClicks(&list(), "x");
    EXPECT_EQ(lines()[1], "1: -- 8680 -- (index 2)");
}

// The buttons

TEST_F(MapAllocationPageTest, InsertPutsTheNextScreenBehindAndSelectsIt)
{
    const std::int32_t before = state.store.pahMapAlloc.freeSpace();
    click("insertButton");
    EXPECT_EQ(words(5), (Words{0x8600, 0x8680, 0x86C0, 0xC808, 0xFFFF}));
    EXPECT_EQ(lines().size(), 4U);
    expectShown(2, 0x86C0, "86c0", "3", 3);
    EXPECT_EQ(state.store.pahMapAlloc.freeSpace(), before - 2);
}

TEST_F(MapAllocationPageTest, InsertBehindTheLastOfTheAreaTakesItsFirst)
{
    state.store.pahMapAlloc.setDataWord(2, 0xC9C8); // index 271
    page->refresh();
    click("insertButton");
    EXPECT_EQ(words(3), (Words{0x8600, 0xC9C8, 0x8600}));
    expectShown(2, 0x8600, "8600", "0", 0);
}

TEST_F(MapAllocationPageTest, ListOf256ScreensTakesNoMore)
{
    changeRoom(3);
    prompt.expect("Insert failed! 256 screens allocated. Any more can't be referred to on the "
                  "room's map.");
    click("insertButton");
    EXPECT_TRUE(prompt.done());
    EXPECT_EQ(image(), loaded);
    EXPECT_EQ(list().currentIndex().row(), 1);
}

TEST_F(MapAllocationPageTest, ListOf255ScreensTakesOneMore)
{
    changeRoom(3);
    click("removeButton");
    EXPECT_EQ(lines().size(), 255U);
    click("insertButton");
    EXPECT_EQ(lines().size(), 256U);
    EXPECT_EQ(lines()[255], "ff: -- 8640 -- (index 1)");
}

TEST_F(MapAllocationPageTest, InsertWithoutSpaceIsTold)
{
    for (const std::int32_t space : {1, 0, -1}) {
        state.store.pahMapAlloc.setFreeSpace(space);
        prompt.expect("Not enough free space in Map Allocation data.");
        click("insertButton");
        EXPECT_TRUE(prompt.done());
    }
    EXPECT_EQ(image(), loaded);
    EXPECT_EQ(list().currentIndex().row(), 1);
}

TEST_F(MapAllocationPageTest, RemoveTakesTheEntryOut)
{
    click("removeButton");
    EXPECT_EQ(words(3), (Words{0x8600, 0xC808, 0xFFFF}));
    expectShown(1, 0xC808, "c808", "108", 264);
}

TEST_F(MapAllocationPageTest, RemoveOfTheLastEntrySelectsTheNewLast)
{
    clickLine(2);
    click("removeButton");
    expectShown(1, 0x8680, "8680", "2", 2);
    click("removeButton");
    expectShown(0, 0x8600, "8600", "0", 0);
    loaded = image();
    click("removeButton"); // the only one stays
    EXPECT_EQ(image(), loaded);
    expectShown(0, 0x8600, "8600", "0", 0);
}

TEST_F(MapAllocationPageTest, RemoveWithoutScreensTakesTheEndMark)
{
    changeRoom(2);
    const std::int32_t before = state.store.pahMapAlloc.freeSpace();
    click("removeButton");
    EXPECT_EQ(state.store.pahMapAlloc.freeSpace(), before + 2);
    EXPECT_EQ(lines().size(), 256U); // room 3's list moved up
}

TEST_F(MapAllocationPageTest, ResetLeavesTheFirstScreenOfTheArea)
{
    clickLine(2);
    click("resetButton");
    EXPECT_EQ(words(2), (Words{0x8600, 0xFFFF}));
    EXPECT_EQ(lines().size(), 1U);
    expectShown(0, 0x8600, "8600", "0", 0);
}

TEST_F(MapAllocationPageTest, FreeScreenIsTheLowestThatNoRoomUses)
{
    click("findFreeButton"); // 0, 1 and 2 are used
    EXPECT_EQ(words(4), (Words{0x8600, 0x86C0, 0xC808, 0xFFFF}));
    EXPECT_EQ(lines()[1], "1: -- 86c0 -- (index 3)");
    expectShown(1, 0x86C0, "86c0", "3", 3);
}

TEST_F(MapAllocationPageTest, WithoutAFreeScreenNothingChanges)
{
    state.config.setValue(MiscField::mapIndexes, 3);
    page->refresh();
    click("findFreeButton");
    EXPECT_EQ(image(), loaded);
}

} // namespace
} // namespace velko::test::map_allocation
