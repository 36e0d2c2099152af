#include "tests/gui/map_editing_fixture.h"

namespace velko::test::map_editing {
namespace {

// Painting

TEST_F(MapEditingPageTest, CombinedModePaintsTileWithItsPaletteAndPhysics)
{
    clickTile(2);
    click(kCell);
    EXPECT_EQ(shownAt(kCell), colour(10)); // block 2 in palette 2
    EXPECT_EQ(shownAt(kNextCell), colour(5));
    EXPECT_EQ(used(), "4");
    clickButton();
    EXPECT_EQ(record(0), Bytes(7));
    EXPECT_EQ(record(1), (Bytes{8, 4, 4, 4, 0x56, 0x32, 0x22}));
    EXPECT_EQ(record(2), (Bytes{4, 4, 4, 4, 0x55, 0x22, 0x22}));
    EXPECT_EQ(record(3), (Bytes{8, 8, 8, 8, 0xAA, 0x33, 0x33}));
    EXPECT_EQ(record(4), Bytes(7));
    EXPECT_EQ(bytesAt(MapEditingRom::kPlain, 64), Bytes(64));
    EXPECT_EQ(bytesAt(MapEditingRom::kFirst, 64), screen(1, 2));
    EXPECT_EQ(bytesAt(MapEditingRom::kSecond, 64), Bytes(64, 3));
    EXPECT_EQ(bytesAt(MapEditingRom::kSharersScreen, 64), Bytes(64, 2));
}

TEST_F(MapEditingPageTest, GraphicsModePaintsTheTileOnly)
{
    chooseMode(1);
    clickTile(2);
    click(kCell);
    EXPECT_EQ(shownAt(kCell), colour(6)); // block 2 in palette 1
    clickButton();
    EXPECT_EQ(record(1), (Bytes{8, 4, 4, 4, 0x55, 0x22, 0x22}));
}

TEST_F(MapEditingPageTest, PaletteModePaintsThePaletteOnly)
{
    chooseMode(2);
    clickPalette(3);
    click(kCell);
    EXPECT_EQ(shownAt(kCell), colour(13)); // block 1 in palette 3
    clickButton();
    EXPECT_EQ(record(1), (Bytes{4, 4, 4, 4, 0x57, 0x22, 0x22}));
}

TEST_F(MapEditingPageTest, PhysicsModePaintsThePhysicsOnly)
{
    chooseMode(3);
    EXPECT_EQ(shownAt(kCell), state.graphics.physicsShades[2][1]);
    clickPhysics(9);
    click(kCell);
    EXPECT_EQ(shownAt(kCell), state.graphics.physicsShades[9][1]);
    clickButton();
    EXPECT_EQ(record(1), (Bytes{4, 4, 4, 4, 0x55, 0x92, 0x22}));
}

TEST_F(MapEditingPageTest, PhysicsIsSelectedInItsOwnModeOnly)
{
    clickPhysics(9);
    chooseMode(3);
    click(kCell);
    clickButton();
    EXPECT_EQ(record(1), (Bytes{4, 4, 4, 4, 0x55, 0x02, 0x22}));
}

TEST_F(MapEditingPageTest, TileBringsItsPaletteAndPhysicsInEveryMode)
{
    chooseMode(3);
    clickTile(2);
    click(kCell);
    clickButton();
    EXPECT_EQ(record(1), (Bytes{4, 4, 4, 4, 0x55, 0x32, 0x22}));
}

TEST_F(MapEditingPageTest, ScreenIsPaintedWhereverItShows)
{
    clickTile(2);
    click(kCell);
    EXPECT_EQ(shownAt({264, 8}), colour(10));
}

TEST_F(MapEditingPageTest, FirstScreenIsProtected)
{
    clickTile(2);
    click(kOnFirstScreen);
    EXPECT_EQ(status(), "Restricted from editing Screen 0.");
    EXPECT_EQ(shownAt(kOnFirstScreen), colour(16));
    page->commitEdits(); // nothing to ask
    click(kCell);
    EXPECT_EQ(status(), "");
    prompt.expectYesNo(kQuestion, Answer::kNo);
    page->commitEdits();
}

TEST_F(MapEditingPageTest, PositionPastTheListCannotBePaintedOrPicked)
{
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
        const Pixel before = shownAt(kOnNoScreen);
        clickTile(2);
        click(kOnNoScreen, button);
        EXPECT_EQ(status(), "Bad Map Allocation index.");
        EXPECT_EQ(shownAt(kOnNoScreen), before);
        page->refresh();
        EXPECT_EQ(status(), "");
    }
    page->commitEdits();
}

TEST_F(MapEditingPageTest, SelectionStartsAtZero)
{
    click(kCell);
    EXPECT_EQ(shownAt(kCell), colour(16));
    clickButton();
    EXPECT_EQ(record(1), (Bytes{0, 4, 4, 4, 0x54, 0x02, 0x22}));
}

TEST_F(MapEditingPageTest, SelectionAndModeSurviveARefresh)
{
    clickTile(2);
    chooseMode(1);
    changeRoom(MapEditingRom::kOther);
    EXPECT_EQ(text("selectHint"), "Left button : Select Tile.");
    changeRoom(MapEditingRom::kRoom);
    click(kCell);
    EXPECT_EQ(shownAt(kCell), colour(6));
}

TEST_F(MapEditingPageTest, NewModeIsShownWithoutAnEdit)
{
    const PixelImage combined = tiles().picture();
    chooseMode(1);
    EXPECT_NE(tiles().picture(), combined); // in greys
    chooseMode(3);
    EXPECT_EQ(shownAt(kCell), state.graphics.physicsShades[2][1]);
    chooseMode(0);
    EXPECT_EQ(tiles().picture(), combined);
    EXPECT_EQ(shownAt(kCell), colour(5));
}

// Picking. What is picked is painted over another cell, which then is as in the ROM.

TEST_F(MapEditingPageTest, PickedCellIsPaintedBack)
{
    clickTile(3);
    click(kCell);
    click(kNextCell, Qt::RightButton);
    EXPECT_EQ(shownAt(kCell), colour(16 - 13)); // block 3, which the room has not, in palette 0
    click(kCell);
    clickButton();
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(MapEditingPageTest, FirstScreenMayBePickedFrom)
{
    clickTile(2);
    click(kOnFirstScreen, Qt::RightButton);
    EXPECT_EQ(status(), "");
    click(kCell);
    clickButton();
    EXPECT_EQ(record(1), (Bytes{0, 4, 4, 4, 0x54, 0x02, 0x22}));
}

TEST_F(MapEditingPageTest, EachModePicksWhatItPaints)
{
    struct Row {
        int mode;
        Bytes record;
    };
    // From block 2, palette 2, physics 3 selected, to what mode 0 then paints.
    const Row rows[] = {{1, {4, 4, 4, 4, 0x56, 0x32, 0x22}},
                        {2, {8, 4, 4, 4, 0x55, 0x32, 0x22}},
                        {3, {8, 4, 4, 4, 0x56, 0x22, 0x22}}};
    for (const Row& row : rows) {
        game.loadInto(state);
        page->refresh();
        clickTile(2);
        chooseMode(row.mode);
        click(kNextCell, Qt::RightButton);
        chooseMode(0);
        click(kCell);
        clickButton();
        EXPECT_EQ(record(1), row.record) << "mode " << row.mode;
    }
}

TEST_F(MapEditingPageTest, PickShowsInTheSelectors)
{
    clickTile(1);
    const PixelImage tilesOfOne = tiles().picture();
    const PixelImage palettesOfOne = palettes().picture();
    clickTile(2);
    EXPECT_NE(tiles().picture(), tilesOfOne);
    EXPECT_NE(palettes().picture(), palettesOfOne);
    click(kCell, Qt::RightButton);
    EXPECT_EQ(tiles().picture(), tilesOfOne);
    EXPECT_EQ(palettes().picture(), palettesOfOne);
}

// Dragging

TEST_F(MapEditingPageTest, DragPaintsEveryCellOnItsWay)
{
    clickTile(2);
    press(kCell);
    moveTo(onMap(kNextCell), Qt::LeftButton);
    EXPECT_EQ(shownAt(kNextCell), colour(10));
    moveTo(onMap({-20, 248}), Qt::LeftButton);
    moveTo(onMap({40, 400}), Qt::LeftButton); // outside the view
    EXPECT_EQ(shownAt(kThirdCell), colour(5));
    moveTo(onMap(kThirdCell), Qt::LeftButton);
    EXPECT_EQ(shownAt(kThirdCell), colour(10));
}

TEST_F(MapEditingPageTest, MoveWithoutAButtonPaintsNothing)
{
    clickTile(2);
    moveTo(onMap(kCell), Qt::NoButton);
    moveTo(onMap(kNextCell), Qt::MiddleButton);
    EXPECT_EQ(shownAt(kCell), colour(5));
    EXPECT_EQ(shownAt(kNextCell), colour(5));
}

TEST_F(MapEditingPageTest, DragWithTheRightButtonPicks)
{
    clickTile(2);
    press(kOnFirstScreen, Qt::RightButton);
    moveTo(onMap(kNextCell), Qt::RightButton);
    EXPECT_EQ(shownAt(kNextCell), colour(5));
    click({264, 8});
    EXPECT_EQ(shownAt({264, 8}), colour(5)); // painted with what it is
    EXPECT_EQ(used(), "3");
}

TEST_F(MapEditingPageTest, MoveThatChangesNoPositionDoesNothing)
{
    clickTile(2);
    press(kCell);
    QTest::keyClick(&map(), Qt::Key_Down); // another row of cells comes under the mouse
    moveTo(onMap(kCell), Qt::LeftButton);
    EXPECT_EQ(shownAt(kCell), colour(5));
    moveTo(onMap(kCell) + QPoint(1, 0), Qt::LeftButton);
    EXPECT_EQ(shownAt(kCell), colour(10));
}

TEST_F(MapEditingPageTest, DragOverASelectorSelectsAndStaysOnIt)
{
    pressPicture(palettes(), {10, 10});
    moveOverPicture(palettes(), {10, 230}, Qt::LeftButton); // palette 3
    moveOverPicture(palettes(), {10, 400}, Qt::LeftButton);
    chooseMode(2);
    click(kCell);
    EXPECT_EQ(shownAt(kCell), colour(13));
}

// The limit

class VariedRoomTest : public MapEditingPageTest {
protected:
    // The second screen's last row, of equal blocks, shows at the right edge of the view.
    static constexpr QPoint kLastRow{264, 232};
    static constexpr QPoint kLastRowToo{296, 232};

    // The room is only 240 pixels high, so that its rows are stretched more.
    void clickInRoom(QPoint room) const
    {
        clickPicture(map(), {room.x() * 7 / 5, room.y() * 7 / 4});
    }
    void exceedLimit() const
    {
        clickTile(1);
        clickInRoom(kLastRow);
        EXPECT_EQ(used(), "146");
        EXPECT_EQ(status(), "");
        clickTile(2);
        clickInRoom(kLastRowToo);
    }
};

TEST_F(VariedRoomTest, StatusTellsWhenTheLimitIsPassed)
{
    changeRoom(MapEditingRom::kVaried);
    EXPECT_EQ(used(), "145");
    exceedLimit();
    EXPECT_EQ(used(), "146");
    EXPECT_EQ(status(), "Tile32 LIMIT EXCEEDED!");
    clickButton();
    EXPECT_EQ(status(), "Tile32 LIMIT EXCEEDED!");
    clickTile(0);
    clickInRoom(kLastRowToo);
    EXPECT_EQ(status(), "");
}

TEST_F(VariedRoomTest, BlockPastTheLimitIsWrittenAsTheFirst)
{
    changeRoom(MapEditingRom::kVaried);
    const auto lastScreen = state.renderer.screenFileOffset(state.renderer.screenAddress(3));
    EXPECT_EQ(bytesAt(lastScreen + 31, 2), (Bytes{143, 144}));
    exceedLimit();
    clickButton();
    EXPECT_EQ(bytesAt(lastScreen + 31, 2), (Bytes{145, 0}));
}

TEST_F(VariedRoomTest, WarningComesOnceWhereItIsSwitchedOn)
{
    state.warnsOfTile32Limit = true;
    changeRoom(MapEditingRom::kVaried);
    prompt.expect(kLimitWarning);
    exceedLimit();
    EXPECT_TRUE(prompt.done());
    clickInRoom({280, 232});
    EXPECT_EQ(status(), "Tile32 LIMIT EXCEEDED!");
}

// Unwritten changes

TEST_F(MapEditingPageTest, YesWritesTheChanges)
{
    clickTile(2);
    click(kCell);
    prompt.expectYesNo(kQuestion, Answer::kYes);
    page->commitEdits();
    EXPECT_EQ(bytesAt(MapEditingRom::kFirst, 64), screen(1, 2));
    EXPECT_EQ(shownAt(kCell), colour(10));
    page->commitEdits(); // asks once
}

TEST_F(MapEditingPageTest, WhatDependsOnTheRomIsShownAnewAfterAWrite)
{
    // Position 7 leads to a screen of record 2. That was block 2 in palette 2; with one more
    // record before it, it becomes the second screen's block 1 in palette 1.
    EXPECT_EQ(shownAt(kOnNoScreen), faded(colour(10)));
    clickTile(2);
    click(kCell);
    clickButton();
    EXPECT_EQ(shownAt(kOnNoScreen), faded(colour(5)));
    clickTile(3);
    click(kNextCell); // the first record of the room but one is another now
    click(kOnFirstScreen);
    EXPECT_EQ(status(), "Restricted from editing Screen 0.");
    prompt.expectYesNo(kQuestion, Answer::kYes);
    page->commitEdits();
    EXPECT_EQ(status(), "");
    clickTile(1);
    click(kCell);
    click(kNextCell);
    prompt.expectYesNo(kQuestion, Answer::kYes);
    page->commitEdits();
    EXPECT_EQ(shownAt(kOnNoScreen), faded(colour(10)));
}

TEST_F(MapEditingPageTest, NoGivesThemUpAndShowsTheRomAgain)
{
    QTest::keyClick(&map(), Qt::Key_Down);
    clickTile(2);
    click({8, 232});
    EXPECT_EQ(shownAt({8, 232}), colour(10));
    prompt.expectYesNo(kQuestion, Answer::kNo);
    page->commitEdits();
    EXPECT_EQ(image(), game.bytes);
    EXPECT_EQ(shownAt({8, 232}), colour(5));
    EXPECT_EQ(verticalBar().value(), 16); // stays scrolled
    EXPECT_EQ(used(), "3");
    page->commitEdits();
    clickButton();
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(MapEditingPageTest, LeavingAsksAndRevertingDoesNot)
{
    clickTile(2);
    click(kCell);
    page->leave(true);
    EXPECT_EQ(image(), game.bytes);
    prompt.expectYesNo(kQuestion, Answer::kYes);
    page->leave(false);
    EXPECT_EQ(bytesAt(MapEditingRom::kFirst, 64), screen(1, 2));
}

TEST_F(MapEditingPageTest, WrittenChangesAreNotAskedAbout)
{
    clickTile(2);
    click(kCell);
    clickButton();
    page->commitEdits();
    page->leave(false);
}

TEST_F(MapEditingPageTest, SharersShowTheirPictureAfterAWrite)
{
    clickTile(2);
    click(kCell);
    clickButton();
    changeRoom(MapEditingRom::kSharer);
    EXPECT_EQ(map().picture().at(100, 100), colour(5));
    changeRoom(MapEditingRom::kRoom);
    EXPECT_EQ(shownAt(kCell), colour(10));
    EXPECT_EQ(shownAt(kNextCell), colour(5));
}

} // namespace
} // namespace velko::test::map_editing
