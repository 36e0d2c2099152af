#include "tools/room_browser.h"

#include <gtest/gtest.h>

namespace velko {
namespace {

TEST(RoomBrowserTest, StartsOnThePageOfTheRoom)
{
    EXPECT_EQ(RoomBrowser(100, 0).page(), 0U);
    EXPECT_EQ(RoomBrowser(100, 7).page(), 0U);
    EXPECT_EQ(RoomBrowser(100, 8).page(), 1U);
    EXPECT_EQ(RoomBrowser(100, 97).page(), 12U);
}

TEST(RoomBrowserTest, RoomsThatFillNoWholePageAreNotOffered)
{
    struct Row {
        std::uint32_t rooms;
        std::uint32_t lastPage;
    };
    for (const Row& row : {Row{0, 0}, Row{1, 0}, Row{7, 0}, Row{8, 0}, Row{15, 0}, Row{16, 1},
                           Row{100, 11}, Row{104, 12}, Row{256, 31}})
        EXPECT_EQ(RoomBrowser(row.rooms, 0).lastPage(), row.lastPage) << row.rooms << " rooms";
}

TEST(RoomBrowserTest, SlotsHoldThePagesRooms)
{
    RoomBrowser browser(100, 0);
    EXPECT_EQ(browser.roomInSlot(0), 0U);
    EXPECT_EQ(browser.roomInSlot(7), 7U);
    browser.turnTo(11);
    EXPECT_EQ(browser.roomInSlot(0), 88U);
    EXPECT_EQ(browser.roomInSlot(7), 95U);
}

TEST(RoomBrowserTest, SlotsPastTheLastRoomAreEmpty)
{
    const RoomBrowser browser(100, 97);
    EXPECT_EQ(browser.roomInSlot(3), 99U);
    EXPECT_EQ(browser.roomInSlot(4), std::nullopt);
    EXPECT_EQ(browser.roomAt({10, 270}), std::nullopt);
    EXPECT_EQ(RoomBrowser(0, 0).roomInSlot(0), std::nullopt);
    EXPECT_EQ(RoomBrowser(3, 200).roomInSlot(0), std::nullopt) << "a page past all rooms";
}

TEST(RoomBrowserTest, ThereIsNoSlotBeforeTheFirstOrAfterTheEighth)
{
    const RoomBrowser browser(100, 0);
    EXPECT_EQ(browser.roomInSlot(-1), std::nullopt);
    EXPECT_EQ(browser.roomInSlot(8), std::nullopt);
}

TEST(RoomBrowserTest, SlotsStandInTwoRowsOfFour)
{
    EXPECT_EQ(RoomBrowser::corner(0), (RoomBrowser::Point{10, 20}));
    EXPECT_EQ(RoomBrowser::corner(3), (RoomBrowser::Point{760, 20}));
    EXPECT_EQ(RoomBrowser::corner(4), (RoomBrowser::Point{10, 270}));
    EXPECT_EQ(RoomBrowser::corner(7), (RoomBrowser::Point{760, 270}));
}

TEST(RoomBrowserTest, APointBelongsToTheThumbnailItLiesOn)
{
    const RoomBrowser browser(100, 8);
    struct Row {
        RoomBrowser::Point point;
        std::optional<std::uint32_t> room;
    };
    for (const Row& row :
         {Row{{10, 20}, 8}, Row{{239, 249}, 8}, Row{{9, 20}, {}}, Row{{10, 19}, {}},
          Row{{240, 20}, {}}, Row{{10, 250}, {}}, Row{{260, 20}, 9}, Row{{989, 499}, 15},
          Row{{990, 499}, {}}, Row{{989, 500}, {}}, Row{{-1000, -1000}, {}}})
        EXPECT_EQ(browser.roomAt(row.point), row.room) << row.point.x << ", " << row.point.y;
}

TEST(RoomBrowserTest, MovingBetweenSlotsStaysOnRooms)
{
    const RoomBrowser browser(6, 0); // slots 0 to 5
    struct Row {
        int slot, columns, rows, beside;
    };
    for (const Row& row : {Row{0, 1, 0, 1}, Row{0, 0, 1, 4}, Row{5, 0, -1, 1}, Row{5, -1, 0, 4},
                           Row{0, -1, 0, 0}, Row{3, 1, 0, 3}, Row{4, -1, 0, 4}, Row{0, 0, -1, 0},
                           Row{4, 0, 1, 4}, Row{5, 1, 0, 5}, Row{2, 0, 1, 2}})
        EXPECT_EQ(browser.slotBeside(row.slot, row.columns, row.rows), row.beside)
            << "from " << row.slot << " by " << row.columns << ", " << row.rows;
}

} // namespace
} // namespace velko
