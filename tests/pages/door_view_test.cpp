#include "tests/pages/door_model_fixture.h"

namespace velko {
namespace {

using Position = RoomView::Position;
using test::DoorModelTest;

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
