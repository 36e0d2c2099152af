#include "pages/map_layout_model.h"

#include "tests/pages/map_layout_rom.h"

namespace velko {
namespace {

using test::Bytes;
using test::MapLayoutTest;
using Rooms = std::vector<std::uint32_t>;

class MapLayoutModelTest : public MapLayoutTest { };

TEST_F(MapLayoutModelTest, SizeIsShownWithoutBordersInHexadecimal)
{
    EXPECT_TRUE(model.hasMap());
    EXPECT_EQ(model.columns(), 3U);
    EXPECT_EQ(model.rows(), 2U);
    EXPECT_EQ(model.widthText(), "3");
    EXPECT_EQ(model.heightText(), "2");
    setStoredSize(0, 28, 255);
    EXPECT_EQ(model.widthText(), "1a");
    EXPECT_EQ(model.heightText(), "ff");
}

TEST_F(MapLayoutModelTest, RoomWithoutAMapShowsZeros)
{
    setStoredSize(0, 0, 0);
    EXPECT_FALSE(model.hasMap());
    EXPECT_EQ(model.widthText(), "0");
    EXPECT_EQ(model.heightText(), "0");
    EXPECT_EQ(MapLayoutModel::noMapText(),
              "This Room has no Map Layout data. (Height and Width are both 0). If you want to use "
              "this Room Id, please go to Data Management and use the \"Allocate unique data\" "
              "function under the \"Map layout\" category.");
}

TEST_F(MapLayoutModelTest, NothingCanBeDoneWithoutAMap)
{
    setStoredSize(0, 0, 0);
    const Bytes before = image();
    model.selectCell({1, 1});
    model.assignScreen(2);
    model.moveMap(1, 1);
    EXPECT_EQ(model.growHeight(), MapLayoutModel::ResizeResult::kNothing);
    EXPECT_EQ(model.shrinkHeight(), MapLayoutModel::ResizeResult::kNothing);
    EXPECT_EQ(model.growWidth(), MapLayoutModel::ResizeResult::kNothing);
    EXPECT_EQ(model.shrinkWidth(), MapLayoutModel::ResizeResult::kNothing);
    EXPECT_EQ(model.selectedScreen(), std::nullopt);
    EXPECT_EQ(image(), before);
}

// Cells

TEST_F(MapLayoutModelTest, CellsAreCountedFromBehindTheLeftBorder)
{
    EXPECT_EQ(model.cellValue({0, 0}), 0);
    EXPECT_EQ(model.cellValue({0, 2}), 2);
    EXPECT_EQ(model.cellValue({1, 1}), 4);
}

TEST_F(MapLayoutModelTest, SelectionIsLimitedToTheMap)
{
    model.selectCell({1, 2});
    EXPECT_EQ(model.selectedCell(), (MapCell{1, 2}));
    model.selectCell({9, 9});
    EXPECT_EQ(model.selectedCell(), (MapCell{1, 2}));
    setStoredSize(0, 4, 1);
    EXPECT_EQ(model.selectedCell(), (MapCell{0, 1}));
}

TEST_F(MapLayoutModelTest, SelectedScreenIsAPositionOfTheList)
{
    EXPECT_EQ(model.screenCount(), 5U);
    model.selectCell({1, 1});
    EXPECT_EQ(model.selectedScreen(), 4);
    model.selectCell({1, 2});
    EXPECT_EQ(model.selectedScreen(), std::nullopt); // 5 of 5
}

TEST_F(MapLayoutModelTest, PreviewIsTheSelectedCellsScreen)
{
    model.selectCell({1, 0});
    PixelImage picture;
    model.drawSelectedScreen(picture);
    PixelImage expected(256, 240);
    state.renderer.drawScreen(expected, 0, 0, 0x86C0);
    EXPECT_EQ(picture, expected);
}

TEST_F(MapLayoutModelTest, PreviewOfAnInvalidCellHasItsColour)
{
    model.selectCell({1, 2});
    PixelImage picture;
    model.drawSelectedScreen(picture);
    EXPECT_EQ(picture, PixelImage(256, 240, 0x988898));
}

TEST_F(MapLayoutModelTest, AssignedScreenIsWrittenIntoTheCell)
{
    model.selectCell({1, 0});
    model.assignScreen(2);
    EXPECT_EQ(block(0, 10), (Bytes{0xEE, 0, 1, 2, 0xEE, 0xEE, 2, 4, 5, 0xEE}));
    model.assignScreen(255);
    EXPECT_EQ(model.cellValue({1, 0}), 255);
}

TEST_F(MapLayoutModelTest, PositionsThatACellCannotHoldAreNotAssigned)
{
    const Bytes before = image();
    model.assignScreen(256);
    model.assignScreen(-1);
    EXPECT_EQ(image(), before);
}

TEST_F(MapLayoutModelTest, CellsOutsideTheBlockAreNotWritten)
{
    struct Case {
        std::uint8_t width;
        std::uint8_t height;
        MapCell cell;
    };
    for (const Case& c : {Case{0, 4, {0, 0}}, Case{0, 4, {3, 0}}, Case{1, 1, {0, 0}},
                          Case{1, 4, {3, 0}}, Case{5, 0, {0, 2}}, Case{2, 0, {0, 0}}}) {
        setStoredSize(0, c.width, c.height);
        const Bytes before = image();
        model.selectCell(c.cell);
        EXPECT_EQ(model.selectedCell(), c.cell);
        model.assignScreen(1);
        EXPECT_EQ(image(), before) << int{c.width} << " x " << int{c.height};
    }
}

// Moving the map

TEST_F(MapLayoutModelTest, MoveRightTurnsEachRowAround)
{
    setStoredSize(0, 6, 1);
    for (std::uint32_t i = 0; i < 6; ++i)
        layouts().setDataByte(i, Bytes{0xB0, 1, 2, 3, 4, 0xE0}[i]);
    model.moveMap(0, 1);
    EXPECT_EQ(block(0, 6), (Bytes{0xB0, 4, 1, 2, 3, 0xE0}));
    model.moveMap(0, -1);
    EXPECT_EQ(block(0, 6), (Bytes{0xB0, 1, 2, 3, 4, 0xE0}));
    model.moveMap(0, -1);
    EXPECT_EQ(block(0, 6), (Bytes{0xB0, 2, 3, 4, 1, 0xE0}));
}

TEST_F(MapLayoutModelTest, MoveDownAndUpLeavesBordersInPlace)
{
    layouts().setDataByte(5, 0xA0); // the second row's left border
    model.moveMap(1, 0);
    EXPECT_EQ(block(0, 10), (Bytes{0xEE, 3, 4, 5, 0xEE, 0xA0, 0, 1, 2, 0xEE}));
    model.moveMap(-1, 0);
    EXPECT_EQ(block(0, 10), (Bytes{0xEE, 0, 1, 2, 0xEE, 0xA0, 3, 4, 5, 0xEE}));
}

TEST_F(MapLayoutModelTest, MovesOfAnyDistanceWrap)
{
    const Bytes before = image();
    model.moveMap(2, 3);
    model.moveMap(-4, -6);
    EXPECT_EQ(image(), before);
}

TEST_F(MapLayoutModelTest, MapsWithoutShownCellsAreNotMoved)
{
    for (const auto& [width, height] :
         {std::pair{0, 5}, {1, 5}, {2, 5}, {5, 0}, {2, 0}, {255, 0}}) {
        setStoredSize(0, static_cast<std::uint8_t>(width), static_cast<std::uint8_t>(height));
        const Bytes before = image();
        model.moveMap(1, 1);
        EXPECT_EQ(image(), before) << width << " x " << height;
    }
}

TEST_F(MapLayoutModelTest, LargestMapMovesWithinItsBlock)
{
    setStoredSize(0, 255, 255); // runs through the whole region and on
    const Bytes before = image();
    model.moveMap(1, 1);
    model.moveMap(-1, -1);
    EXPECT_EQ(image().size(), before.size());
}

// Synchronised rooms

TEST_F(MapLayoutModelTest, RoomsOfTheSameBlockAndSizeAreSynchronised)
{
    game.shareAll(2, 0);
    game.shareAll(3, 0);
    start();
    EXPECT_EQ(model.synchronisedRooms(), (Rooms{2, 3}));
    EXPECT_EQ(model.synchronisedRoomsText(), "2, 3");
    setStoredSize(2, 5, 3); // higher
    EXPECT_EQ(model.synchronisedRooms(), (Rooms{3}));
    setStoredSize(3, 10, 1); // wider
    EXPECT_EQ(model.synchronisedRooms(), Rooms{});
    EXPECT_EQ(model.synchronisedRoomsText(), "");
}

TEST_F(MapLayoutModelTest, RoomsOfTheSameSizeElsewhereAreNotSynchronised)
{
    setStoredSize(1, 5, 2);
    EXPECT_EQ(model.synchronisedRooms(), Rooms{});
}

class ManyRoomsTest : public MapLayoutTest {
protected:
    ManyRoomsTest() : MapLayoutTest(0x70) { }
};

TEST_F(ManyRoomsTest, SynchronisedRoomsAreHexadecimal)
{
    game.shareAll(0x1A, 0);
    game.shareAll(0x6F, 0);
    start();
    EXPECT_EQ(model.synchronisedRoomsText(), "1a, 6f");
}

TEST_F(ManyRoomsTest, PartnerRoomsOfOneMapShouldHaveOneSize)
{
    game.shareAll(0x48, 0);
    game.shareAll(0x6E, 0);
    start();
    state.graphics.selectRoom(0x6E);
    EXPECT_FALSE(model.partnerSizeDiffers());
    setStoredSize(0x6E, 5, 1);
    EXPECT_TRUE(model.partnerSizeDiffers());
    setStoredSize(0x6E, 4, 2);
    EXPECT_TRUE(model.partnerSizeDiffers());

    model.takePartnerSize();
    EXPECT_EQ(storedSize(0x6E), (Bytes{5, 2}));
    EXPECT_EQ(storedSize(0x48), (Bytes{5, 2}));
    EXPECT_FALSE(model.partnerSizeDiffers());
}

TEST_F(ManyRoomsTest, OtherRoomsAndOtherMapsHaveNoPartner)
{
    game.shareAll(0x48, 0);
    game.shareAll(0x6E, 0);
    start();
    setStoredSize(0x6E, 5, 1);
    state.graphics.selectRoom(0x48); // only the one room is asked about
    EXPECT_FALSE(model.partnerSizeDiffers());
    state.graphics.selectRoom(0x6E);
    layouts().setPointer(0x6E, 0x9123);
    EXPECT_FALSE(model.partnerSizeDiffers());
}

TEST_F(ManyRoomsTest, PartnerQuestionIsWordedAsTheGamesUsersKnowIt)
{
    EXPECT_EQ(MapLayoutModel::partnerQuestion(),
              "This Room Id points to the same data as \"Id 48: Area 2 Indoor\", but has different "
              "Height and Width, so changing those here will corrupt that Room's layout data. Do "
              "you want to fix the Room size to be synchronized with Id 48? (Once you do, this "
              "message won't appear anymore).");
}

} // namespace
} // namespace velko
