#include "pages/map_allocation_page.h"

#include "app/hex_edit.h"
#include "app/picture_view.h"
#include "app/ui_common.h"
#include "tests/support/scripted_prompt.h"
#include "tests/support/test_rom.h"

#include <QGroupBox>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>
#include <QStyleOptionSlider>
#include <QTest>
#include <map>
#include <memory>
#include <stdexcept>

namespace velko {
namespace {

using test::Bytes;
using test::TestRom;
using Words = std::vector<std::uint16_t>;

// Room 0 has the screens $8600, $8680 and $C808; room 1 has $8640; room 2 has none; room 3 has
// 256. The area has 272 screens from $8600 on.
class MapAllocationPageTest : public testing::Test {
protected:
    MapAllocationPageTest()
    {
        game.addScreen(Bytes(64, 1)); // $8640
        game.addScreen(Bytes(64, 2)); // $8680
        game.setScreenList(0, {0x8600, 0x8680, 0xC808});
        game.setScreenList(1, {0x8640});
        game.setScreenList(2, {});
        game.setScreenList(3, Words(256, 0x8640));
        game.config.setValue(MiscField::mapIndexes, 272);
        // Each of the first three screens has one colour.
        game.setBackgroundBlock(0, 0, Bytes(64, 0xFF)); // solid tiles of value 3
        game.setTile32(0, {{0, 0, 0, 0, 0x00}, {0, 0, 0, 0, 0x55}, {0, 0, 0, 0, 0xAA}});
        game.setPalette(0, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11});
        game.loadInto(state);
        open();
    }
    void open()
    {
        page = std::make_unique<MapAllocationPage>(state, prompt);
        page->setup();
        page->refresh();
        page->resize(1000, 560);
        page->show();
        page->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(page.get()));
        loaded = image();
    }

    template <typename Control> Control& control(const char* name) const
    {
        auto* found = page->findChild<Control*>(name);
        if (found == nullptr)
            throw std::runtime_error(name);
        return *found;
    }
    QListView& list() const { return control<QListView>("screenList"); }
    HexEdit& addressEdit() const { return control<HexEdit>("addressEdit"); }
    HexEdit& indexEdit() const { return control<HexEdit>("indexEdit"); }
    QScrollBar& bar() const { return control<QScrollBar>("indexBar"); }
    PictureView& view() const { return control<PictureView>("screenView"); }
    std::string freeSpace() const { return control<QLabel>("freeSpaceValue").text().toStdString(); }

    void click(const char* button) const
    {
        QTest::mouseClick(&control<QPushButton>(button), Qt::LeftButton);
    }
    void clickLine(int row) const
    {
        const QRect line = list().visualRect(list().model()->index(row, 0));
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, line.center());
    }
    void clickBar(QStyle::SubControl part) const
    {
        QStyleOptionSlider option;
        option.initFrom(&bar());
        option.orientation = bar().orientation();
        option.minimum = bar().minimum();
        option.maximum = bar().maximum();
        option.pageStep = bar().pageStep();
        option.sliderPosition = option.sliderValue = bar().value();
        option.subControls = QStyle::SC_All;
        option.state |= QStyle::State_Horizontal;
        const QRect box =
            bar().style()->subControlRect(QStyle::CC_ScrollBar, &option, part, &bar());
        QTest::mouseClick(&bar(), Qt::LeftButton, {}, box.center());
    }
    static void type(HexEdit& box, const char* text)
    {
        box.setFocus();
        box.selectAll();
        QTest::keyClicks(&box, text);
    }
    void changeRoom(std::uint8_t room)
    {
        state.graphics.selectRoom(room);
        page->refresh();
        loaded = image();
    }

    Bytes image() const { return {state.rom.bytes().begin(), state.rom.bytes().end()}; }
    // The words of the current room's list and of what follows it.
    Words words(std::uint32_t count) const
    {
        Words all;
        for (std::uint32_t i = 0; i < count; ++i)
            all.push_back(state.store.pahMapAlloc.dataWord(2 * i));
        return all;
    }
    std::vector<std::string> lines() const
    {
        std::vector<std::string> all;
        for (int row = 0; row < list().model()->rowCount(); ++row)
            all.push_back(list().model()->index(row, 0).data().toString().toStdString());
        return all;
    }
    // All that shows the selected entry agrees.
    void expectShown(int row, std::uint16_t address, const char* addressText, const char* indexText,
                     int barPosition) const
    {
        EXPECT_EQ(list().currentIndex().row(), row);
        EXPECT_TRUE(list().selectionModel()->isRowSelected(row, {}));
        EXPECT_EQ(list().selectionModel()->selectedIndexes().size(), 1);
        EXPECT_EQ(addressEdit().text(), addressText);
        EXPECT_EQ(indexEdit().text(), indexText);
        EXPECT_EQ(bar().value(), barPosition);
        expectPreview(address);
    }
    void expectPreview(std::uint16_t address) const
    {
        PixelImage expected(256, 240);
        state.renderer.drawScreen(expected, 0, 0, address);
        EXPECT_EQ(view().picture(), expected);
    }

    TestRom game;
    mutable EditorState state;
    test::ScriptedPrompt prompt;
    std::unique_ptr<MapAllocationPage> page;
    Bytes loaded;
};

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

// The boxes and the scroll bar

TEST_F(MapAllocationPageTest, EveryDigitOfAnAddressIsWrittenAtOnce)
{
    type(addressEdit(), "8");
    EXPECT_EQ(words(3), (Words{0x8600, 0x0008, 0xC808}));
    EXPECT_EQ(lines()[1], "1: -- 8 -- (index 0)");
    QTest::keyClicks(&addressEdit(), "6");
    EXPECT_EQ(words(3), (Words{0x8600, 0x0086, 0xC808}));
    QTest::keyClicks(&addressEdit(), "40");
    EXPECT_EQ(words(3), (Words{0x8600, 0x8640, 0xC808}));
    expectShown(1, 0x8640, "8640", "1", 1);
}

TEST_F(MapAllocationPageTest, AddressIsReadAsHexadecimalUnchecked)
{
    const struct {
        const char* text;
        std::uint16_t written;
    } rows[] = {
        {"0x86C0", 0x86C0}, {"zz", 0}, {"fffe", 0xFFFE}, {"128640", 0x8640}, {"-1", 0xFFFF}};
    for (const auto& row : rows) {
        type(addressEdit(), row.text);
        EXPECT_EQ(words(3), (Words{0x8600, row.written, 0xC808})) << row.text;
        EXPECT_EQ(addressEdit().text(), row.text);
    }
}

TEST_F(MapAllocationPageTest, AddressThatEndsTheListCanBeTypedOn)
{
    type(addressEdit(), "ffff");
    EXPECT_EQ(lines().size(), 1U);
    EXPECT_FALSE(list().selectionModel()->hasSelection());
    QTest::keyClick(&addressEdit(), Qt::Key_Backspace);
    EXPECT_EQ(words(4), (Words{0x8600, 0x0FFF, 0xC808, 0xFFFF}));
    EXPECT_EQ(list().currentIndex().row(), 1);
}

TEST_F(MapAllocationPageTest, LeavingABoxShowsWhatWasMadeOfItsText)
{
    type(addressEdit(), "0x128640");
    QTest::keyClick(&addressEdit(), Qt::Key_Tab);
    EXPECT_EQ(addressEdit().text(), "8640");
    type(indexEdit(), "fff");
    QTest::keyClick(&indexEdit(), Qt::Key_Return);
    EXPECT_EQ(indexEdit().text(), "10f");
}

TEST_F(MapAllocationPageTest, IndexIsLimitedToTheArea)
{
    const struct {
        const char* text;
        std::uint16_t written;
    } rows[] = {{"3", 0x86C0},   {"107", 0xC7C0}, {"108", 0xC808}, {"10f", 0xC9C8},
                {"110", 0xC9C8}, {"fff", 0xC9C8}, {"-1", 0x8600},  {"zz", 0x8600}};
    for (const auto& row : rows) {
        type(indexEdit(), row.text);
        EXPECT_EQ(words(3), (Words{0x8600, row.written, 0xC808})) << row.text;
        EXPECT_EQ(indexEdit().text(), row.text);
        expectPreview(row.written);
    }
    EXPECT_EQ(addressEdit().text(), "8600");
}

TEST_F(MapAllocationPageTest, ScrollBarGoesThroughTheScreens)
{
    clickBar(QStyle::SC_ScrollBarAddLine);
    EXPECT_EQ(words(3), (Words{0x8600, 0x86C0, 0xC808}));
    expectShown(1, 0x86C0, "86c0", "3", 3);
    clickBar(QStyle::SC_ScrollBarSubLine);
    clickBar(QStyle::SC_ScrollBarSubLine);
    expectShown(1, 0x8640, "8640", "1", 1);
    clickBar(QStyle::SC_ScrollBarAddPage);
    expectShown(1, 0x8A40, "8a40", "11", 17);
    clickBar(QStyle::SC_ScrollBarSubPage);
    clickBar(QStyle::SC_ScrollBarSubPage);
    expectShown(1, 0x8600, "8600", "0", 0);
    clickBar(QStyle::SC_ScrollBarSubLine);
    EXPECT_EQ(words(4), (Words{0x8600, 0x8600, 0xC808, 0xFFFF}));
}

TEST_F(MapAllocationPageTest, ThumbIsFollowedWhileItMoves)
{
    bar().setSliderDown(true);
    bar().setSliderPosition(264);
    EXPECT_EQ(words(3), (Words{0x8600, 0xC808, 0xC808}));
    bar().setSliderDown(false);
    expectShown(1, 0xC808, "c808", "108", 264);
}

TEST_F(MapAllocationPageTest, TabGoesThroughTheControlsInOrder)
{
    list().setFocus();
    for (const char* name : {"insertButton", "removeButton", "resetButton", "findFreeButton",
                             "addressEdit", "indexEdit", "screenList"}) {
        QTest::keyClick(page->focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(page->focusWidget()->objectName(), name);
    }
}

TEST_F(MapAllocationPageTest, PageFitsItsWindow)
{
    EXPECT_LE(page->minimumSizeHint().width(), 1000);
    EXPECT_LE(page->minimumSizeHint().height(), 560);
}

} // namespace
} // namespace velko
