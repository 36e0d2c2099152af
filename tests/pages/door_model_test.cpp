#include "pages/door_model.h"

#include "tests/pages/door_rom.h"

namespace velko {
namespace {

using test::Bytes;
using Position = RoomView::Position;

class DoorModelTest : public test::DoorTest {
protected:
    DoorModelTest() { model.showRoom(); }

    // Loads `game` again and shows a room of it.
    void open(std::uint8_t room)
    {
        load();
        select(room);
    }
    void select(std::uint8_t room)
    {
        state.graphics.selectRoom(room);
        model.showRoom();
    }
    Pixel drawn(std::uint32_t x, std::uint32_t y)
    {
        PixelImage picture;
        model.draw(picture);
        return picture.at(x, y);
    }
    // Whether any pixel of a colour is drawn.
    bool isDrawn(Pixel colour)
    {
        PixelImage picture;
        model.draw(picture);
        return std::ranges::find(picture.pixels(), colour) != picture.pixels().end();
    }

    DoorModel model{state};
};

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

// The view

TEST_F(DoorModelTest, RegionIsTheRoomUpToItsLimit)
{
    EXPECT_EQ(model.view().region(), (RoomView::Size{384, 384}));
    EXPECT_EQ(model.view().display(), (RoomView::Size{640, 480}));
    select(kWide);
    EXPECT_EQ(model.view().region(), (RoomView::Size{384, 240}));
    select(kOneScreen);
    EXPECT_EQ(model.view().region(), (RoomView::Size{256, 240}));
}

TEST_F(DoorModelTest, SelectedEntranceComesToTheMiddle)
{
    const struct {
        std::uint8_t screen;
        std::uint8_t block;
        Position scroll;
    } rows[] = {
        {0x31, 0x87, {448, 160}}, // (640, 352)
        {0x10, 0xBB, {0, 0}},     // (176, 176): 16 less than the middle
        {0x10, 0xCC, {0, 0}},     // (192, 192)
        {0x10, 0xDD, {16, 16}},   // (208, 208)
        {0x42, 0x31, {624, 304}}, // (816, 496)
        {0x42, 0x43, {640, 336}}, // (832, 528): flush with the edges
        {0x42, 0xFE, {640, 336}}, // the room's last block
        {0xFF, 0xFF, {640, 336}}, // far outside
        {0x1F, 0x00, {0, 336}},
    };
    for (const auto& row : rows) {
        setEntrance(kLarge, 2, row.screen, row.block);
        open(kLarge);
        model.selectEntrance(2);
        EXPECT_EQ(model.view().scroll(), row.scroll) << int{row.screen} << " " << int{row.block};
    }
}

TEST_F(DoorModelTest, RoomSmallerThanTheViewStaysWhereItIs)
{
    setEntrance(kWide, 0, 0x30, 0x8E);
    setEntrance(kOneScreen, 0, 0xFF, 0xFF);
    open(kWide);
    model.selectEntrance(0);
    EXPECT_EQ(model.view().scroll(), (Position{448, 0}));
    select(kOneScreen);
    model.selectEntrance(0);
    EXPECT_EQ(model.view().scroll(), (Position{0, 0}));
}

TEST_F(DoorModelTest, EntranceThatIsNotSetMovesNothing)
{
    setEntrance(kLarge, 1, 0x0F, 0xFF);
    open(kLarge);
    model.view().scrollTo({48, 64});
    model.selectEntrance(1);
    EXPECT_EQ(model.view().scroll(), (Position{48, 64}));
    EXPECT_EQ(model.selectedEntrance(), 1U);
}

TEST_F(DoorModelTest, RoomChangeKeepsTheSlotsAndShowsTheCorner)
{
    setEntrance(kWide, 3, 0x41, 0x23);
    open(kLarge);
    model.view().scrollTo({48, 64});
    model.selectEntrance(3);
    model.selectExit(2);
    select(kWide);
    EXPECT_EQ(model.selectedEntrance(), 3U);
    EXPECT_EQ(model.selectedExit(), 2U);
    EXPECT_EQ(model.entrance(), (Entrance{4, 1, 2, 3}));
    EXPECT_EQ(model.view().scroll(), (Position{0, 0}));
}

// The picture

TEST_F(DoorModelTest, PictureShowsTheScrolledRegion)
{
    PixelImage picture;
    model.draw(picture);
    ASSERT_EQ(picture.width(), 640U);
    ASSERT_EQ(picture.height(), 480U);
    // The second screen begins at 256 / 0.6 = 426.7, the second row at 240 / 0.8 = 300.
    EXPECT_EQ(picture.at(0, 0), kEven);
    EXPECT_EQ(picture.at(424, 298), kEven);
    EXPECT_EQ(picture.at(428, 298), kOdd);
    EXPECT_EQ(picture.at(424, 302), kOdd);
    EXPECT_EQ(picture.at(428, 302), kEven);
    model.view().scrollTo({256, 0});
    EXPECT_EQ(drawn(0, 0), kOdd);
    EXPECT_EQ(drawn(424, 0), kOdd);
    EXPECT_EQ(drawn(428, 0), kEven);
}

TEST_F(DoorModelTest, PictureOfOneScreenIsFilledByIt)
{
    select(kOneScreen);
    EXPECT_EQ(drawn(0, 0), kEven);
    EXPECT_EQ(drawn(630, 470), kEven);
}

TEST_F(DoorModelTest, EachSetEntranceHasItsDoor)
{
    setEntrance(kLarge, 0, 0x10, 0x45); // at (64, 80): from (106.7, 100) to (133.3, 120)
    setEntrance(kLarge, 1, 0x20, 0x00); // at (256, 0): from (426.7, 0) to (453.3, 20)
    setEntrance(kLarge, 2, 0x11, 0x11); // at (16, 256): from (26.7, 320) to (53.3, 340)
    setEntrance(kLarge, 3, 0x21, 0x71); // at (368, 256): from (613.3, 320) to (640, 340)
    open(kLarge);
    EXPECT_EQ(drawn(108, 101), kDoors[0]);
    EXPECT_EQ(drawn(131, 118), kDoors[0]);
    EXPECT_EQ(drawn(104, 110), kEven);
    EXPECT_EQ(drawn(135, 110), kEven);
    EXPECT_EQ(drawn(120, 98), kEven);
    EXPECT_EQ(drawn(120, 121), kEven);
    EXPECT_EQ(drawn(440, 10), kDoors[1]);
    EXPECT_EQ(drawn(40, 330), kDoors[2]);
    EXPECT_EQ(drawn(630, 330), kDoors[3]);
}

TEST_F(DoorModelTest, DoorsMoveWithTheView)
{
    setEntrance(kLarge, 0, 0x10, 0x45);
    open(kLarge);
    model.view().scrollTo({16, 32});
    EXPECT_EQ(drawn(90, 70), kDoors[0]); // from (80, 60) to (106.7, 80)
    EXPECT_EQ(drawn(120, 110), kEven);
}

TEST_F(DoorModelTest, EntranceThatIsNotSetHasNoDoor)
{
    setEntrance(kLarge, 0, 0x01, 0x45);
    open(kLarge);
    for (const Pixel door : kDoors)
        EXPECT_FALSE(isDrawn(door));
}

TEST_F(DoorModelTest, LaterDoorCoversEarlierOne)
{
    setEntrance(kLarge, 1, 0x10, 0x45);
    setEntrance(kLarge, 2, 0x10, 0x45);
    open(kLarge);
    EXPECT_EQ(drawn(120, 110), kDoors[2]);
    EXPECT_FALSE(isDrawn(kDoors[1]));
}

TEST_F(DoorModelTest, OnlyFourPicturesExist)
{
    game.config.setValue(MiscField::roomEntrances, 255);
    for (std::uint32_t slot = 0; slot < 255; ++slot)
        game.bytes[kScreenTable + slot] = slot < 4 ? 0x00 : 0x11;
    open(kLarge);
    for (const Pixel door : kDoors)
        EXPECT_FALSE(isDrawn(door));
    game.bytes[kScreenTable + 3] = 0x10;
    open(kLarge);
    EXPECT_TRUE(isDrawn(kDoors[3]));
}

TEST_F(DoorModelTest, NoMoreDoorsThanTheModuleTells)
{
    setEntrance(kLarge, 0, 0x10, 0x11);
    setEntrance(kLarge, 1, 0x10, 0x44);
    game.config.setValue(MiscField::roomEntrances, 1);
    open(kLarge);
    EXPECT_TRUE(isDrawn(kDoors[0]));
    EXPECT_FALSE(isDrawn(kDoors[1]));
    game.config.setValue(MiscField::roomEntrances, 0);
    open(kLarge);
    EXPECT_FALSE(isDrawn(kDoors[0]));
}

TEST_F(DoorModelTest, DoorIsCulledAsIfItWereOneBlock)
{
    state.resources.doorBitmaps[0] = PixelImage(48, 48, kDoors[0]);
    setEntrance(kLarge, 0, 0x22, 0x82); // at (384, 512)
    open(kLarge);
    const struct {
        Position scroll;
        bool shown;
    } rows[] = {
        {{16, 304}, true},  {{0, 304}, false},   {{1, 304}, true}, // X < scroll X + 384
        {{16, 128}, false}, {{16, 129}, true},                     // Y < scroll Y + 384
        {{399, 304}, true}, {{400, 304}, false},                   // X + 16 > scroll X
    };
    for (const auto& row : rows) {
        model.view().scrollTo(row.scroll);
        // At the edge less than a picture pixel of the door may show, mixed with its neighbour.
        PixelImage picture;
        model.draw(picture);
        const bool shown = std::ranges::any_of(picture.pixels(), [](Pixel pixel) {
            return (pixel >> 16) > 0x60 && (pixel & 0xFFFF) != (kEven & 0xFFFF);
        });
        EXPECT_EQ(shown, row.shown) << row.scroll.x << ", " << row.scroll.y;
    }
}

TEST_F(DoorModelTest, DoorAboveTheRegionIsCulled)
{
    state.resources.doorBitmaps[0] = PixelImage(48, 48, kDoors[0]);
    setEntrance(kLarge, 0, 0x20, 0x8D); // at (384, 208)
    open(kLarge);
    model.view().scrollTo({200, 223});
    EXPECT_TRUE(isDrawn(kDoors[0]));
    model.view().scrollTo({200, 224});
    EXPECT_FALSE(isDrawn(kDoors[0]));
}

TEST_F(DoorModelTest, PictureOfAnySizeIsDrawnWholeAndClipped)
{
    state.resources.doorBitmaps[0] = PixelImage(1000, 1000, kDoors[0]);
    state.resources.doorBitmaps[1] = PixelImage(1, 1, kDoors[1]);
    state.resources.doorBitmaps[2] = PixelImage();
    setEntrance(kLarge, 0, 0x10, 0x11);
    setEntrance(kLarge, 1, 0x10, 0x00);
    setEntrance(kLarge, 2, 0x10, 0x44);
    open(kLarge);
    EXPECT_EQ(drawn(0, 0), kDoors[1]);
    EXPECT_EQ(drawn(10, 10), kEven);
    EXPECT_EQ(drawn(30, 30), kDoors[0]);
    EXPECT_EQ(drawn(600, 450), kDoors[0]);
}

TEST_F(DoorModelTest, DrawingWritesNothing)
{
    for (std::uint8_t room = 0; room < 6; ++room) {
        select(room);
        isDrawn(0);
    }
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(DoorModelTest, WithoutARomThereIsOneScreenOfFiller)
{
    EditorState empty;
    DoorModel other(empty);
    other.showRoom();
    PixelImage picture;
    other.draw(picture);
    EXPECT_EQ(picture.width(), 640U);
    EXPECT_TRUE(other.placeEntrance(0, 0));
    EXPECT_EQ(empty.rom.size(), 0U);
}

} // namespace
} // namespace velko
