#include "tests/gui/map_allocation_fixture.h"

namespace velko::test::map_allocation {
namespace {

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
} // namespace velko::test::map_allocation
