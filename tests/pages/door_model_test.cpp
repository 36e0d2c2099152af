#include "tests/pages/door_model_fixture.h"

namespace velko {
namespace {

using Position = RoomView::Position;
using test::Bytes;
using test::DoorModelTest;

// Where entrances and exits are stored

TEST_F(DoorModelTest, EntranceIsTwoBytesOfNibbles)
{
    setEntrance(kLarge, 0, 0x21, 0xE3);
    open(kLarge);
    EXPECT_EQ(model.entrance(), (Entrance{2, 1, 14, 3}));
    EXPECT_TRUE(model.entrance().isSet());
    EXPECT_EQ(model.entrance().corner(), (Position{480, 288}));
}

TEST_F(DoorModelTest, EntranceWithoutAScreenColumnIsNotSet)
{
    setEntrance(kLarge, 0, 0x0F, 0xFF);
    open(kLarge);
    EXPECT_EQ(model.entrance(), (Entrance{0, 15, 15, 15}));
    EXPECT_FALSE(model.entrance().isSet());
}

TEST_F(DoorModelTest, EachRoomAndSlotHasItsBytes)
{
    setEntrance(kWide, 2, 0x43, 0x21);
    setExit(kWide, 3, 0x05, 0x02);
    open(kWide);
    model.selectEntrance(2);
    model.selectExit(3);
    EXPECT_EQ(model.entrance(), (Entrance{4, 3, 2, 1}));
    EXPECT_EQ(model.exitRoom(), 5);
    EXPECT_EQ(model.exitEntrance(), 2);
    model.selectEntrance(1);
    model.selectExit(2);
    EXPECT_EQ(model.entrance(), Entrance{});
    EXPECT_EQ(model.exitRoom(), 0);
    EXPECT_EQ(model.exitEntrance(), 0);
}

TEST_F(DoorModelTest, ExitIsWrittenByteByByte)
{
    select(kWide);
    model.selectExit(3);
    model.setExitRoom(0xFE);
    EXPECT_EQ(image(), loadedExcept(0x3A13, 0xFE));
    model.setExitEntrance(2);
    Bytes expected = loadedExcept(0x3A13, 0xFE);
    expected[0x3B13] = 2;
    EXPECT_EQ(image(), expected);
}

TEST_F(DoorModelTest, SlotsPerRoomAreTheModules)
{
    const struct {
        std::uint32_t perRoom;
        std::uint32_t offset; // of room 2, slot 3
    } rows[] = {{0, 3}, {1, 5}, {4, 11}, {255, 513}, {0x80000000, 3}};
    for (const auto& row : rows) {
        game.config.setValue(MiscField::roomEntrances, row.perRoom);
        game.config.setValue(MiscField::roomExits, row.perRoom + 1); // two bytes on, in room 2
        open(kHuge);
        model.selectEntrance(3);
        model.selectExit(3);
        model.placeEntrance(0, 0);
        model.setExitRoom(9);
        model.setExitEntrance(7);
        Bytes expected = game.bytes;
        expected[kScreenTable + row.offset] = 0x10;
        expected[kBlockTable + row.offset] = 0x00;
        expected[kExitRoomTable + row.offset + 2] = 9;
        expected[kExitEntranceTable + row.offset + 2] = 7;
        EXPECT_EQ(image(), expected) << row.perRoom;
        EXPECT_EQ(model.exitRoom(), 9);
    }
}

TEST_F(DoorModelTest, TablesPastTheFileReadAsFillerAndTakeNothing)
{
    for (const MiscField table : {MiscField::ptrEntranceScreen, MiscField::ptrEntranceBlock,
                                  MiscField::ptrExitRoom, MiscField::ptrExitEntrance})
        state.config.setValue(table, 0x7FFFFFFF);
    EXPECT_EQ(model.entrance(), (Entrance{5, 5, 5, 5}));
    EXPECT_EQ(model.exitRoom(), 0x55);
    EXPECT_EQ(model.exitEntrance(), 0x55);
    EXPECT_TRUE(model.placeEntrance(0, 0));
    model.setExitRoom(1);
    model.setExitEntrance(1);
    EXPECT_FALSE(isDrawn(kDoors[0])); // it would stand at (1104, 1280)
    EXPECT_EQ(image(), game.bytes);
}

// Placing

TEST_F(DoorModelTest, BlockUnderThePointIsStored)
{
    // 640 x 480 picture pixels show 384 x 384 of the room.
    const struct {
        int x;
        int y;
        std::uint8_t screen;
        std::uint8_t block;
    } rows[] = {
        {0, 0, 0x10, 0x00},     {500, 313, 0x21, 0x20}, // room pixel (300, 250)
        {26, 19, 0x10, 0x00},                           // (15.6, 15.2)
        {27, 20, 0x10, 0x11},                           // (16.2, 16)
        {426, 299, 0x10, 0xFE},                         // (255.6, 239.2)
        {427, 300, 0x21, 0x00},                         // (256.2, 240)
        {639, 479, 0x21, 0x78},                         // (383.4, 383.2)
    };
    for (const auto& row : rows) {
        EXPECT_TRUE(model.placeEntrance(row.x, row.y));
        EXPECT_EQ(image(), loadedWithEntrance(0, row.screen, row.block)) << row.x << ", " << row.y;
    }
}

TEST_F(DoorModelTest, ScrollPositionIsAdded)
{
    model.selectEntrance(1);
    model.view().scrollTo({640, 336});
    model.placeEntrance(0, 0);
    EXPECT_EQ(image(), loadedWithEntrance(1, 0x31, 0x86));
    model.placeEntrance(639, 479); // room pixel (1023, 719)
    EXPECT_EQ(image(), loadedWithEntrance(1, 0x42, 0xFE));
}

TEST_F(DoorModelTest, SmallerRoomFillsThePicture)
{
    select(kOneScreen); // a picture pixel is 0.4 x 0.5 room pixels
    const struct {
        int x;
        int y;
        std::uint8_t block;
    } rows[] = {{39, 31, 0x00}, {40, 32, 0x11}, {639, 479, 0xFE}};
    for (const auto& row : rows) {
        model.placeEntrance(row.x, row.y);
        EXPECT_EQ(image(), loadedWithEntrance(4, 0x10, row.block)) << row.x;
    }
}

TEST_F(DoorModelTest, RoomWithoutLayoutIsOneScreen)
{
    select(kNoLayout);
    EXPECT_EQ(model.view().region(), (RoomView::Size{256, 240}));
    model.placeEntrance(639, 479);
    EXPECT_EQ(image(), loadedWithEntrance(12, 0x10, 0xFE));
}

TEST_F(DoorModelTest, PointsOutsideThePicturePlaceNothing)
{
    const struct {
        int x;
        int y;
    } rows[] = {{-1, 0}, {0, -1}, {640, 0}, {0, 480}, {-100000, 100000}};
    for (const auto& row : rows)
        EXPECT_FALSE(model.placeEntrance(row.x, row.y)) << row.x << ", " << row.y;
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(DoorModelTest, RoomsTooLargeForAnEntranceRunOver)
{
    select(kHuge);
    const struct {
        Position scroll;
        std::uint8_t screen;
        std::uint8_t block;
    } rows[] = {
        {{14 * 256, 15 * 240}, 0xFF, 0x00}, // the last that can be told
        {{15 * 256, 0}, 0x00, 0x00},        // as if it were not set
        {{15 * 256, 16 * 240}, 0x10, 0x00}, // 0x100 | 0x10
        {{16 * 256, 17 * 240}, 0x11, 0x00}, // 0x110 | 0x11
        {{64384, 60816}, 0xFD, 0x86},       // 0xFC0 | 0xFD
    };
    for (const auto& row : rows) {
        model.view().scrollTo(row.scroll);
        model.placeEntrance(0, 0);
        EXPECT_EQ(image(), loadedWithEntrance(8, row.screen, row.block)) << row.scroll.x;
    }
}

// The mouse

TEST_F(DoorModelTest, MoveWithoutAButtonPlacesNothing)
{
    EXPECT_FALSE(model.moveMouse(100, 100, false));
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(DoorModelTest, DragPlacesAtEachNewPoint)
{
    EXPECT_TRUE(model.moveMouse(500, 313, true));
    EXPECT_EQ(image(), loadedWithEntrance(0, 0x21, 0x20));
    EXPECT_TRUE(model.moveMouse(27, 20, true));
    EXPECT_EQ(image(), loadedWithEntrance(0, 0x10, 0x11));
    EXPECT_FALSE(model.moveMouse(640, 20, true));
    EXPECT_EQ(image(), loadedWithEntrance(0, 0x10, 0x11));
}

TEST_F(DoorModelTest, PointSeenLastPlacesNothing)
{
    model.moveMouse(500, 313, false);
    EXPECT_FALSE(model.moveMouse(500, 313, true));
    EXPECT_EQ(image(), game.bytes);
    EXPECT_TRUE(model.moveMouse(500, 314, true));
    EXPECT_TRUE(model.moveMouse(500, 313, true));
}

TEST_F(DoorModelTest, PointOutsideThePictureIsSeenToo)
{
    model.moveMouse(500, 313, true);
    model.moveMouse(-5, 313, true);
    EXPECT_TRUE(model.moveMouse(500, 313, true));
}

TEST_F(DoorModelTest, PointSeenLastOutlivesThePage)
{
    model.moveMouse(500, 313, false);
    DoorModel later(state);
    later.showRoom();
    EXPECT_FALSE(later.moveMouse(500, 313, true));
    EXPECT_EQ(image(), game.bytes);
    EditorState other;
    DoorModel elsewhere(other);
    elsewhere.showRoom();
    EXPECT_TRUE(elsewhere.moveMouse(500, 313, true));
}

// The keyboard

TEST_F(DoorModelTest, EntranceMovesBlockByBlock)
{
    const struct {
        std::uint8_t screen;
        std::uint8_t block;
        int columns;
        int rows;
        std::uint8_t newScreen;
        std::uint8_t newBlock;
    } rows[] = {
        {0x10, 0x45, 1, 0, 0x10, 0x55},  {0x10, 0x45, -1, 0, 0x10, 0x35},
        {0x10, 0x45, 0, 1, 0x10, 0x46},  {0x10, 0x45, 0, -1, 0x10, 0x44},
        {0x10, 0xFE, 1, 0, 0x20, 0x0E},  {0x10, 0xFE, 0, 1, 0x11, 0xF0}, // the next screens
        {0x21, 0x00, -1, 0, 0x11, 0xF0}, {0x21, 0x00, 0, -1, 0x20, 0x0E},
        {0x10, 0x00, -1, 0, 0x10, 0x00}, {0x10, 0x00, 0, -1, 0x10, 0x00}, // the room's edges
        {0x42, 0xFE, 1, 0, 0x42, 0xFE},  {0x42, 0xFE, 0, 1, 0x42, 0xFE},
        {0xFF, 0xFF, -1, 0, 0x42, 0xFE}, // from far outside
    };
    for (const auto& row : rows) {
        setEntrance(kLarge, 1, row.screen, row.block);
        open(kLarge);
        model.selectEntrance(1);
        model.moveEntrance(row.columns, row.rows);
        EXPECT_EQ(image(), loadedWithEntrance(1, row.newScreen, row.newBlock))
            << int{row.screen} << " " << int{row.block};
    }
}

TEST_F(DoorModelTest, EntranceThatIsNotSetComesToTheMiddle)
{
    setEntrance(kLarge, 0, 0x01, 0x23);
    open(kLarge);
    model.view().scrollTo({16, 32});
    model.moveEntrance(1, 0);
    EXPECT_EQ(image(), loadedWithEntrance(0, 0x10, 0xDE)); // (208, 224)
    EXPECT_EQ(model.view().scroll(), (Position{16, 32}));
    model.moveEntrance(1, 0);
    EXPECT_EQ(image(), loadedWithEntrance(0, 0x10, 0xEE));
}

TEST_F(DoorModelTest, ViewFollowsAMovedEntrance)
{
    setEntrance(kLarge, 0, 0x20, 0x70); // at (368, 0), the last column of the view
    open(kLarge);
    model.moveEntrance(0, 1);
    EXPECT_EQ(model.view().scroll(), (Position{0, 0}));
    model.moveEntrance(1, 0);
    EXPECT_EQ(model.view().scroll(), (Position{192, 0}));
}

TEST_F(DoorModelTest, EntranceStaysOnScreensThatItCanTell)
{
    setEntrance(kHuge, 0, 0xFF, 0xFE);
    open(kHuge);
    model.moveEntrance(1, 0);
    model.moveEntrance(0, 1);
    EXPECT_EQ(image(), game.bytes);
    model.view().scrollTo({64384, 60816});
    model.selectEntrance(1); // not set: it comes to the nearest block that it can tell
    model.moveEntrance(1, 0);
    EXPECT_EQ(image(), loadedWithEntrance(9, 0xFF, 0xFE));
}

} // namespace
} // namespace velko
