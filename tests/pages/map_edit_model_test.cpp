#include "pages/map_edit_model.h"

#include "tests/pages/map_edit_rom.h"

namespace velko {
namespace {

using test::Bytes;
using test::MapEditTest;
using test::TestRom;
using Point = RoomView::Position;
using Strings = std::vector<std::string>;

class MapEditModelTest : public MapEditTest { };

constexpr std::array kAllModes = {MapEditMode::kTileCombined, MapEditMode::kTile,
                                  MapEditMode::kPalette, MapEditMode::kPhysics};

// Decoding

TEST_F(MapEditModelTest, MapIsReadWithoutItsBorders)
{
    EXPECT_TRUE(model.hasMap());
    EXPECT_EQ(model.width(), 3U);
    EXPECT_EQ(model.height(), 2U);
    EXPECT_THAT(model.layout(), testing::ElementsAre(0, 1, 2, 1, 4, 3));
    EXPECT_EQ(model.screens().count(), 3U);
}

TEST_F(MapEditModelTest, ScreensAreUnpackedToCells)
{
    EXPECT_EQ(cell(0, 14, 15), (Bytes{0, 0, 0}));
    EXPECT_EQ(cell(1, 0, 0), (Bytes{4, 0, 1}));
    EXPECT_EQ(cell(1, 0, 1), (Bytes{12, 1, 3}));
    EXPECT_EQ(cell(1, 1, 0), (Bytes{8, 2, 2}));
    EXPECT_EQ(cell(1, 13, 15), (Bytes{16, 3, 4}));
    EXPECT_EQ(cell(1, 14, 15), (Bytes{12, 1, 3}));
    EXPECT_EQ(cell(2, 7, 7), (Bytes{20, 1, 5}));
}

TEST_F(MapEditModelTest, RefreshPacksOnceToCountTheBlocks)
{
    // In the last row of screen 1 the upper cells stand for the lower ones too: another block.
    EXPECT_EQ(model.usedText(), "4");
    EXPECT_EQ(model.statusText(), "");
    EXPECT_FALSE(model.isModified());
}

// Rooms without a map

TEST_F(MapEditModelTest, RoomIsWithoutAMapWhenItHasNoColumnOrNoRow)
{
    for (const auto& [width, height] : {std::pair{0, 0}, {0, 4}, {1, 4}, {2, 4}, {5, 0}}) {
        state.store.pahMapLayout.setEntryByte(2, static_cast<std::uint8_t>(width));
        state.store.pahMapLayout.setEntryByte(3, static_cast<std::uint8_t>(height));
        model.refresh();
        EXPECT_FALSE(model.hasMap()) << width << " x " << height;
        EXPECT_EQ(model.width(), 0U);
        EXPECT_EQ(model.height(), 0U);
        EXPECT_TRUE(model.layout().empty());
        EXPECT_EQ(model.screens().count(), 0U);
        EXPECT_EQ(model.usedText(), "0");
        EXPECT_EQ(model.view().region(), (RoomView::Size{0, 0}));
    }
    EXPECT_EQ(MapEditModel::noMapText(),
              "This Room has no Map Layout data. (Height and Width are both 0). If you want to use "
              "this Room Id, please go to Data Management and use the \"Allocate unique data\" "
              "function under the \"Map layout\" category.");
}

TEST_F(MapEditModelTest, NothingIsEditedWithoutAMap)
{
    state.store.pahMapLayout.setEntryByte(3, 0);
    model.refresh();
    const Bytes before = image();
    model.applyLeft({10, 10});
    model.applyRight({10, 10});
    model.convertAndWrite();
    model.leave();
    EXPECT_EQ(model.statusText(), "");
    EXPECT_EQ(image(), before);
}

// Modes

TEST_F(MapEditModelTest, HintsTellWhatTheButtonsDo)
{
    struct Row {
        MapEditMode mode;
        const char* select;
        const char* modify;
        const char* copy;
    };
    const Row rows[] = {
        {MapEditMode::kTileCombined,
         "Left button : Select Tile with associated Palette and Physics.",
         "Left button : Modify Tile, Palette and Physics with selected TSA.",
         "Right button : Copy Tile."},
        {MapEditMode::kTile, "Left button : Select Tile.", "Left button : Modify Tile.",
         "Right button : Copy Tile."},
        {MapEditMode::kPalette, "Left button : Select Palette.", "Left button : Modify Palette.",
         "Right button : Copy Palette."},
        {MapEditMode::kPhysics, "Left button : Select Physics property.",
         "Left button : Modify Physics property.", "Right button : Copy Physics property."},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(mapEditHints(row.mode).select, row.select);
        EXPECT_EQ(mapEditHints(row.mode).modify, row.modify);
        EXPECT_EQ(mapEditHints(row.mode).copy, row.copy);
    }
    EXPECT_EQ(static_cast<int>(MapEditMode::kTileCombined), 0);
    EXPECT_EQ(static_cast<int>(MapEditMode::kTile), 1);
    EXPECT_EQ(static_cast<int>(MapEditMode::kPalette), 2);
    EXPECT_EQ(static_cast<int>(MapEditMode::kPhysics), 3);
}

// Selectors

TEST_F(MapEditModelTest, SelectorsStartAtZeroAndKeepTheirSelectionAndMode)
{
    EXPECT_EQ(model.selectedBlock(), 0U);
    EXPECT_EQ(model.selectedPalette(), 0);
    EXPECT_EQ(model.selectedPhysics(), 0);
    EXPECT_EQ(model.mode(), MapEditMode::kTileCombined);
    model.setMode(MapEditMode::kPhysics);
    selectBlock(63);
    selectPalette(3);
    selectPhysics(15);
    model.refresh();
    EXPECT_EQ(model.selectedBlock(), 63U);
    EXPECT_EQ(model.selectedPalette(), 3);
    EXPECT_EQ(model.selectedPhysics(), 15);
    EXPECT_EQ(model.mode(), MapEditMode::kPhysics);
}

TEST_F(MapEditModelTest, BlockBringsThePaletteAndPhysicsOfItsFirstCellInEveryMode)
{
    for (const MapEditMode mode : kAllModes) {
        model.setMode(mode);
        selectBlock(5); // metatile 20
        EXPECT_EQ(model.selectedPalette(), 1);
        EXPECT_EQ(model.selectedPhysics(), 5);
        selectBlock(2); // metatile 8
        EXPECT_EQ(model.selectedBlock(), 2U);
        EXPECT_EQ(model.selectedPalette(), 2);
        EXPECT_EQ(model.selectedPhysics(), 2);
        selectBlock(60); // nowhere in the room
        EXPECT_EQ(model.selectedPalette(), 0);
        EXPECT_EQ(model.selectedPhysics(), 0);
    }
}

TEST_F(MapEditModelTest, FirstCellOfABlockCountsInTheOrderOfTheList)
{
    // Block 5 stands on the first screen in other values than on the third.
    game.setTile32(0, {{20, 0, 0, 0, 0x03, 0x90, 0}, {}, {20, 20, 20, 20, 0x55, 0x55, 0x55}});
    start();
    selectBlock(5);
    EXPECT_EQ(model.selectedPalette(), 3);
    EXPECT_EQ(model.selectedPhysics(), 9);
}

TEST_F(MapEditModelTest, PhysicsAreSelectedInTheirModeOnly)
{
    for (const MapEditMode mode :
         {MapEditMode::kTileCombined, MapEditMode::kTile, MapEditMode::kPalette}) {
        model.setMode(mode);
        selectPhysics(9);
        EXPECT_EQ(model.selectedPhysics(), 0);
    }
    model.setMode(MapEditMode::kPhysics);
    selectPhysics(9);
    EXPECT_EQ(model.selectedPhysics(), 9);
}

TEST_F(MapEditModelTest, PaletteIsSelectedInEveryMode)
{
    for (const MapEditMode mode : kAllModes) {
        model.setMode(mode);
        selectPalette(0);
        selectPalette(2);
        EXPECT_EQ(model.selectedPalette(), 2);
    }
}

TEST(SelectorGridTest, CellsAreCountedRowByRow)
{
    EXPECT_EQ(kTileSelector.cellAt({0, 0}), 0U);
    EXPECT_EQ(kTileSelector.cellAt({35, 0}), 0U); // 282 / 8 is 35.25
    EXPECT_EQ(kTileSelector.cellAt({36, 0}), 1U);
    EXPECT_EQ(kTileSelector.cellAt({0, 36}), 8U);
    EXPECT_EQ(kTileSelector.cellAt({281, 281}), 63U);
    EXPECT_EQ(kPaletteSelector.cellAt({255, 70}), 0U);
    EXPECT_EQ(kPaletteSelector.cellAt({0, 71}), 1U); // 282 / 4 is 70.5
    EXPECT_EQ(kPaletteSelector.cellAt({255, 281}), 3U);
    EXPECT_EQ(kPhysicsSelector.cellAt({140, 40}), 0U);
    EXPECT_EQ(kPhysicsSelector.cellAt({141, 40}), 1U);
    EXPECT_EQ(kPhysicsSelector.cellAt({0, 41}), 2U); // 322 / 8 is 40.25
    EXPECT_EQ(kPhysicsSelector.cellAt({281, 321}), 15U);
}

TEST(SelectorGridTest, NothingLiesOutside)
{
    for (const Point point : {Point{-1, 0}, {0, -1}, {282, 0}, {0, 322}})
        EXPECT_EQ(kPhysicsSelector.cellAt(point), std::nullopt);
}

TEST_F(MapEditModelTest, PointsOutsideTheSelectorsSelectNothing)
{
    selectBlock(5);
    model.selectBlockAt({282, 0});
    model.selectPaletteAt({256, 0});
    model.setMode(MapEditMode::kPhysics);
    model.selectPhysicsAt({0, 322});
    EXPECT_EQ(model.selectedBlock(), 5U);
    EXPECT_EQ(model.selectedPalette(), 1);
    EXPECT_EQ(model.selectedPhysics(), 5);
}

// Painting

TEST_F(MapEditModelTest, EachModePaintsItsPartOfTheCell)
{
    struct Row {
        MapEditMode mode;
        Bytes painted;
    };
    const Row rows[] = {{MapEditMode::kTileCombined, {40, 3, 9}},
                        {MapEditMode::kTile, {40, 1, 5}},
                        {MapEditMode::kPalette, {20, 3, 5}},
                        {MapEditMode::kPhysics, {20, 1, 9}}};
    for (const Row& row : rows) {
        model.refresh();
        selectBlock(10);
        selectPalette(3);
        model.setMode(MapEditMode::kPhysics);
        selectPhysics(9);
        model.setMode(row.mode);
        EXPECT_FALSE(model.isModified());
        paint(0, 2, 4, 6);
        EXPECT_EQ(cell(2, 4, 6), row.painted);
        EXPECT_TRUE(model.isModified());
        EXPECT_EQ(model.statusText(), "");
        EXPECT_EQ(model.usedText(), "5"); // the room is packed again
        for (const auto& [r, c] : {std::pair{3, 6}, {5, 6}, {4, 5}, {4, 7}})
            EXPECT_EQ(cell(2, static_cast<std::size_t>(r), static_cast<std::size_t>(c)),
                      (Bytes{20, 1, 5}));
    }
}

TEST_F(MapEditModelTest, PaintingLeavesTheRomAlone)
{
    const Bytes before = image();
    paint(0, 1, 0, 0);
    EXPECT_EQ(image(), before);
}

TEST_F(MapEditModelTest, FirstScreenIsProtectedButCanBeCopiedFrom)
{
    selectBlock(5);
    paint(0, 0, 3, 3);
    EXPECT_EQ(model.statusText(), "Restricted from editing Screen 0.");
    EXPECT_EQ(cell(0, 3, 3), (Bytes{0, 0, 0}));
    EXPECT_FALSE(model.isModified());
    pick(0, 0, 3, 3);
    EXPECT_EQ(model.selectedBlock(), 0U);
    EXPECT_EQ(model.selectedPalette(), 0);
    EXPECT_EQ(model.selectedPhysics(), 0);
}

TEST_F(MapEditModelTest, PositionsPastTheListAreBad)
{
    selectBlock(5);
    const Bytes before = image();
    for (const int column : {1, 2}) { // positions 4 and 3
        model.refresh();
        paint(1, column, 0, 0);
        EXPECT_EQ(model.statusText(), "Bad Map Allocation index.");
        EXPECT_FALSE(model.isModified());
        model.refresh();
        pick(1, column, 0, 0);
        EXPECT_EQ(model.statusText(), "Bad Map Allocation index.");
        EXPECT_EQ(model.selectedBlock(), 5U);
    }
    EXPECT_EQ(image(), before);
}

TEST_F(MapEditModelTest, NextStrokeClearsTheStatus)
{
    paint(0, 0, 0, 0);
    EXPECT_NE(model.statusText(), "");
    paint(0, 1, 0, 0);
    EXPECT_EQ(model.statusText(), "");
}

TEST_F(MapEditModelTest, EachModeCopiesItsPartOfTheCell)
{
    struct Row {
        MapEditMode mode;
        std::uint32_t block;
        Bytes paletteAndPhysics;
    };
    const Row rows[] = {{MapEditMode::kTileCombined, 3, {1, 3}},
                        {MapEditMode::kTile, 3, {0, 0}},
                        {MapEditMode::kPalette, 60, {1, 0}},
                        {MapEditMode::kPhysics, 60, {0, 3}}};
    for (const Row& row : rows) {
        selectBlock(60);
        model.setMode(row.mode);
        pick(0, 1, 6, 9);
        EXPECT_EQ(model.selectedBlock(), row.block);
        EXPECT_EQ((Bytes{model.selectedPalette(), model.selectedPhysics()}), row.paletteAndPhysics);
        EXPECT_FALSE(model.isModified());
    }
}

TEST_F(MapEditModelTest, MetatileBetweenBlocksIsCopiedAsItsBlockAndKeptOtherwise)
{
    game.setTile32(0, {{}, {7, 7, 7, 7, 0, 0, 0}, {}});
    start();
    pick(0, 1, 0, 0);
    EXPECT_EQ(model.selectedBlock(), 1U);
    paint(0, 1, 4, 4);
    EXPECT_EQ(cell(1, 4, 4), (Bytes{4, 0, 0}));
    model.convertAndWrite();
    EXPECT_EQ(cellInRom(0x8640, 4, 4), (Bytes{4, 0, 0}));
    EXPECT_EQ(cellInRom(0x8640, 4, 5), (Bytes{7, 0, 0}));
}

TEST_F(MapEditModelTest, EditShowsWhereverTheListNamesTheScreen)
{
    // $0640 is the same place in the file as $8640.
    game.setScreenList(0, {0x8600, 0x8640, 0x8640, 0x0640});
    start();
    EXPECT_EQ(model.screens().count(), 4U);
    selectBlock(9);
    paint(0, 2, 14, 15);
    for (const std::uint32_t position : {1U, 2U, 3U})
        EXPECT_EQ(cell(position, 14, 15), (Bytes{36, 0, 0}));
}

TEST_F(MapEditModelTest, FirstScreenNamedAgainCanBeEditedThere)
{
    game.setScreenList(0, {0x8600, 0x8600});
    start();
    selectBlock(9);
    paint(0, 1, 0, 0);
    EXPECT_EQ(cell(1, 0, 0), (Bytes{36, 0, 0}));
    EXPECT_EQ(cell(0, 0, 0), (Bytes{36, 0, 0}));
}

// From the mouse to a cell

TEST_F(MapEditModelTest, ViewShowsAtMost320PixelsEachWay)
{
    EXPECT_EQ(model.view().region(), (RoomView::Size{320, 320}));
    EXPECT_EQ(model.view().display(), (RoomView::Size{448, 420}));
    EXPECT_EQ(model.view().room(), (RoomView::Size{768, 480}));
    selectRoom(1);
    EXPECT_EQ(model.view().region(), (RoomView::Size{256, 240}));
}

TEST_F(MapEditModelTest, PointOfTheViewLeadsToTheCell)
{
    selectBlock(9);
    // 359 x 320 / 448 = 256.4, 335 x 320 / 420 = 255.2: column 0 of screen 4, 1 pixel before
    // which lies column 15 of the first column of the map.
    model.applyLeft({359, 20});
    EXPECT_EQ(cell(1, 0, 0), (Bytes{36, 0, 0}));
    model.applyLeft({358, 20}); // 255.7
    EXPECT_EQ(model.statusText(), "Restricted from editing Screen 0.");
    model.applyLeft({0, 315}); // row 0 of the second row of the map: screen 1
    EXPECT_EQ(cell(1, 0, 0), (Bytes{36, 0, 0}));
    model.applyLeft({447, 419}); // 319, 319: row 4, column 3 of position 4
    EXPECT_EQ(model.statusText(), "Bad Map Allocation index.");
    model.applyLeft({447, 314}); // 319, 239
    EXPECT_EQ(cell(1, 14, 3), (Bytes{36, 0, 0}));
}

TEST_F(MapEditModelTest, ScrolledViewMovesTheCells)
{
    selectBlock(9);
    model.view().scrollToStep({448, 0}); // as far as it goes
    model.applyLeft({0, 0});
    EXPECT_EQ(cell(1, 0, 12), (Bytes{36, 0, 0}));
    model.view().scrollToStep({272, 96});
    model.applyLeft({0, 188}); // row 96 + 143 = 239
    EXPECT_EQ(cell(1, 14, 1), (Bytes{36, 0, 0}));
    model.applyLeft({0, 189}); // row 240
    EXPECT_EQ(model.statusText(), "Bad Map Allocation index.");
}

TEST_F(MapEditModelTest, SmallRoomIsStretchedOverTheView)
{
    game.setLayout(0, 1, 1, {2});
    start();
    selectBlock(9);
    model.applyLeft({447, 419}); // 255, 239
    EXPECT_EQ(cell(2, 14, 15), (Bytes{36, 0, 0}));
    model.applyLeft({28, 28}); // 16, 16
    EXPECT_EQ(cell(2, 1, 1), (Bytes{36, 0, 0}));
    model.applyLeft({27, 27}); // 15.4, 15.4
    EXPECT_EQ(cell(2, 0, 0), (Bytes{36, 0, 0}));
}

TEST_F(MapEditModelTest, DragsOutsideTheViewDoNothing)
{
    model.view().scrollToStep({256, 0});
    for (const Point point : {Point{-1, 20}, {20, -1}, {448, 20}, {20, 420}}) {
        model.applyLeft(point);
        model.applyRight(point);
    }
    EXPECT_FALSE(model.isModified());
    EXPECT_EQ(model.statusText(), "");
}

TEST_F(MapEditModelTest, RefreshGoesBackToTheTopLeftCorner)
{
    model.view().scrollToStep({256, 96});
    model.refresh();
    EXPECT_EQ(model.view().scroll(), (Point{0, 0}));
}

// Leaving

constexpr const char* kQuestion = "Convert and Write 16x16 Map Data to ROM first?";

TEST_F(MapEditModelTest, LeavingUnmodifiedAsksNothing)
{
    const Bytes before = image();
    EXPECT_FALSE(model.leave());
    EXPECT_EQ(image(), before);
}

TEST_F(MapEditModelTest, LeavingModifiedWritesAfterYes)
{
    selectBlock(9);
    paint(0, 1, 3, 3);
    prompt.expectYesNo(kQuestion, test::ScriptedPrompt::Answer::kYes, MessageIcon::kQuestion);
    EXPECT_FALSE(model.leave()); // nothing was given up
    EXPECT_EQ(cellInRom(0x8640, 3, 3), (Bytes{36, 0, 0}));
    EXPECT_FALSE(model.isModified());
    EXPECT_FALSE(model.leave()); // without another question
}

TEST_F(MapEditModelTest, LeavingModifiedWritesNothingAfterNo)
{
    const Bytes before = image();
    paint(0, 1, 3, 3);
    prompt.expectYesNo(kQuestion, test::ScriptedPrompt::Answer::kNo, MessageIcon::kQuestion);
    EXPECT_TRUE(model.leave());
    EXPECT_EQ(image(), before);
    EXPECT_FALSE(model.isModified());
    EXPECT_FALSE(model.leave()); // without another question
}

TEST_F(MapEditModelTest, WritingAndRefreshingEndTheModification)
{
    paint(0, 1, 3, 3);
    model.convertAndWrite();
    EXPECT_FALSE(model.isModified());
    paint(0, 1, 3, 3);
    EXPECT_TRUE(model.isModified());
    model.refresh();
    EXPECT_FALSE(model.isModified());
}

} // namespace
} // namespace velko
