#include "app/ui_common.h"
#include "tests/gui/map_editing_fixture.h"

#include <QApplication>
#include <QGroupBox>
#include <QListWidget>

namespace velko::test::map_editing {
namespace {

// What is shown

TEST_F(MapEditingPageTest, FixedTextsAreToTheLetter)
{
    EXPECT_EQ(page->property(kControlId).toInt(), 130);
    EXPECT_EQ(control<QGroupBox>("modeGroup").title(), " Mode: ");
    EXPECT_EQ(control<QGroupBox>("usedBlocksGroup").title(), " Used Tile32 blocks:  ");
    EXPECT_EQ(text("sharedRoomsLabel"), "Tile32 set shared with Room Id's:");
    EXPECT_EQ(control<QPushButton>("convertButton").text(), "Convert and Write Map to ROM");
    EXPECT_EQ(heroCheck().text(), "Show Hero at mouse-pointer when Shift is pressed");
    const QList<QRadioButton*> modes =
        control<QGroupBox>("modeGroup").findChildren<QRadioButton*>();
    ASSERT_EQ(modes.size(), 4);
    EXPECT_EQ(modes[0]->text(), "Tile (combined)");
    EXPECT_EQ(modes[1]->text(), "Tile (gfx only)");
    EXPECT_EQ(modes[2]->text(), "Palette");
    EXPECT_EQ(modes[3]->text(), "Physics");
}

TEST_F(MapEditingPageTest, HintsFollowTheMode)
{
    struct Row {
        const char* select;
        const char* modify;
        const char* copy;
    };
    const Row rows[] = {
        {"Left button : Select Tile with associated Palette and Physics.",
         "Left button : Modify Tile, Palette and Physics with selected TSA.",
         "Right button : Copy Tile."},
        {"Left button : Select Tile.", "Left button : Modify Tile.", "Right button : Copy Tile."},
        {"Left button : Select Palette.", "Left button : Modify Palette.",
         "Right button : Copy Palette."},
        {"Left button : Select Physics property.", "Left button : Modify Physics property.",
         "Right button : Copy Physics property."},
    };
    EXPECT_EQ(text("selectHint"), rows[0].select); // without a click
    for (const int mode : {3, 2, 1, 0}) {
        chooseMode(mode);
        EXPECT_EQ(text("selectHint"), rows[mode].select);
        EXPECT_EQ(text("modifyHint"), rows[mode].modify);
        EXPECT_EQ(text("copyHint"), rows[mode].copy);
    }
}

TEST_F(MapEditingPageTest, LongHintsFitInEveryModeAndMoveNothing)
{
    QFont font = page->font();
    font.setPointSizeF(font.pointSizeF() * 1.8); // the longest hint is wider than the map
    page->setFont(font);
    page->resize(1600, 900);
    QApplication::processEvents();
    EXPECT_EQ(text("selectHint"), "Left button : Select Tile with associated Palette and Physics.");
    const QPoint before = tiles().mapTo(page.get(), QPoint());
    for (const int mode : {1, 2, 3, 0}) {
        chooseMode(mode);
        QApplication::processEvents();
        for (const char* name : {"selectHint", "modifyHint", "copyHint"})
            EXPECT_GE(control<QLabel>(name).width(), control<QLabel>(name).sizeHint().width());
        EXPECT_EQ(tiles().mapTo(page.get(), QPoint()), before);
    }
}

TEST_F(MapEditingPageTest, PicturesHaveTheirSizes)
{
    const QSize frame(2 * PictureView::kFrame, 2 * PictureView::kFrame);
    EXPECT_EQ(map().size(), QSize(448, 420) + frame);
    EXPECT_EQ(tiles().size(), QSize(282, 282) + frame);
    EXPECT_EQ(palettes().size(), QSize(256, 282) + frame);
    EXPECT_EQ(physics().size(), QSize(282, 322) + frame);
}

TEST_F(MapEditingPageTest, PageFitsAScreenOf768Rows)
{
    EXPECT_LE(page->minimumSizeHint().width(), 1100);
    EXPECT_LE(page->minimumSizeHint().height(), 612);
}

TEST_F(MapEditingPageTest, RoomIsShownFromItsCorner)
{
    EXPECT_EQ(shownAt(kOnFirstScreen), colour(16));
    EXPECT_EQ(shownAt(kCell), colour(5)); // block 1 in palette 1
    EXPECT_EQ(shownAt({264, 8}), colour(5));
    EXPECT_EQ(used(), "3");
    EXPECT_EQ(status(), "");
}

TEST_F(MapEditingPageTest, SharedRoomsAreListedByName)
{
    const auto& list = control<QListWidget>("sharedRoomsList");
    ASSERT_EQ(list.count(), 1);
    EXPECT_EQ(list.item(0)->text(), "Room 2");
    changeRoom(MapEditingRom::kSharer);
    ASSERT_EQ(list.count(), 5); // all that have kRoom's list
    EXPECT_EQ(list.item(0)->text(), "Room 0");
    EXPECT_EQ(list.item(4)->text(), "Room 7");
    changeRoom(MapEditingRom::kOther);
    EXPECT_EQ(list.count(), 0);
}

TEST_F(MapEditingPageTest, LookingAndPaintingWriteNothing)
{
    for (int block = 0; block < 64; ++block)
        clickTile(block);
    for (int mode = 0; mode < 4; ++mode) {
        chooseMode(mode);
        click(kCell);
        click(kCell, Qt::RightButton);
    }
    EXPECT_EQ(image(), game.bytes);
}

// Keyboard

TEST_F(MapEditingPageTest, ArrowKeysMoveTheSelection)
{
    clickTile(9);
    const PixelImage ninth = tiles().picture();
    clickTile(0);
    EXPECT_NE(tiles().picture(), ninth);
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Left, Qt::Key_Right, Qt::Key_Down})
        QTest::keyClick(&tiles(), key);
    EXPECT_EQ(tiles().picture(), ninth);
}

TEST_F(MapEditingPageTest, ArrowKeysStopAtTheLastCell)
{
    clickPalette(3);
    const PixelImage last = palettes().picture();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Left})
        QTest::keyClick(&palettes(), key);
    EXPECT_EQ(palettes().picture(), last);
    QTest::keyClick(&palettes(), Qt::Key_Up);
    chooseMode(2);
    click(kCell);
    EXPECT_EQ(shownAt(kCell), colour(9)); // palette 2
}

TEST_F(MapEditingPageTest, ArrowKeyAtAnEdgeKeepsTheChosenPalette)
{
    clickTile(1);
    clickPalette(3);
    QTest::keyClick(&tiles(), Qt::Key_Up);
    chooseMode(2);
    click(kCell);
    EXPECT_EQ(shownAt(kCell), colour(13));
}

TEST_F(MapEditingPageTest, ArrowKeysSelectPhysicsInItsMode)
{
    EXPECT_FALSE(physics().isEnabled());
    chooseMode(3);
    EXPECT_TRUE(physics().isEnabled());
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Right})
        QTest::keyClick(&physics(), key);
    click(kCell);
    clickButton();
    EXPECT_EQ(record(1), (Bytes{4, 4, 4, 4, 0x55, 0x52, 0x22}));
}

TEST_F(MapEditingPageTest, TabKeyGoesAround)
{
    chooseMode(3);
    map().setFocus();
    for (const char* name : {"heroCheck", "convertButton", "tileSelector", "paletteSelector",
                             "physicsMode", "physicsSelector", "sharedRoomsList", "mapView"}) {
        QTest::keyClick(page->focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(page->focusWidget()->objectName(), name);
    }
}

TEST_F(MapEditingPageTest, ShortcutsReachModesAndCommands)
{
    const Qt::Key keys[] = {Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4};
    for (const int mode : {3, 2, 1, 0}) {
        pressShortcut(keys[mode], control<QRadioButton>(kModes[mode]));
        EXPECT_TRUE(control<QRadioButton>(kModes[mode]).isChecked());
    }
    pressShortcut(Qt::Key_H, heroCheck());
    EXPECT_TRUE(heroCheck().isChecked());
    clickTile(2);
    click(kCell);
    pressShortcut(Qt::Key_W, control<QPushButton>("convertButton"));
    EXPECT_EQ(bytesAt(MapEditingRom::kFirst, 64), screen(1, 2));
}

TEST_F(MapEditingPageTest, ChosenModeByKeysIsTheOneThatPaints)
{
    pressShortcut(Qt::Key_3, control<QRadioButton>("paletteMode"));
    clickPalette(3);
    click(kCell);
    EXPECT_EQ(shownAt(kCell), colour(13));
    control<QRadioButton>("paletteMode").setFocus();
    QTest::keyClick(&control<QRadioButton>("paletteMode"), Qt::Key_Down);
    EXPECT_EQ(text("selectHint"), "Left button : Select Physics property.");
}

// Scrolling

TEST_F(MapEditingPageTest, BarsTakeTheRoomAndTheView)
{
    EXPECT_EQ(horizontalBar().maximum(), 449); // 768 - 320 + 1
    EXPECT_EQ(horizontalBar().pageStep(), 320);
    EXPECT_EQ(verticalBar().maximum(), 161); // 480 - 320 + 1
    EXPECT_EQ(verticalBar().pageStep(), 320);
}

TEST_F(MapEditingPageTest, BarsScrollByCells)
{
    verticalBar().triggerAction(QScrollBar::SliderSingleStepAdd);
    EXPECT_EQ(verticalBar().value(), 16);
    EXPECT_EQ(shownAt({8, 216}), colour(16));
    EXPECT_EQ(shownAt({8, 232}), colour(5));
    horizontalBar().setSliderPosition(287);
    horizontalBar().triggerAction(QScrollBar::SliderMove);
    EXPECT_EQ(horizontalBar().value(), 272);
    EXPECT_EQ(shownAt({232, 8}), colour(5));
    EXPECT_EQ(shownAt({248, 8}), colour(10));
}

TEST_F(MapEditingPageTest, ScrolledCellIsPainted)
{
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(&map(), Qt::Key_Down);
    clickTile(2);
    click({8, 200}); // 240 - 3 x 16 + 8
    EXPECT_EQ(shownAt({8, 200}), colour(10));
    clickButton();
    EXPECT_EQ(bytesAt(MapEditingRom::kFirst, 64), screen(1, 2));
}

TEST_F(MapEditingPageTest, WheelOverTheMapScrolls)
{
    turnWheel(map(), map(), {0, -120});
    EXPECT_GT(verticalBar().value(), 0);
}

TEST_F(MapEditingPageTest, RefreshShowsTheCornerAgain)
{
    QTest::keyClick(&map(), Qt::Key_PageDown);
    QTest::keyClick(&map(), Qt::Key_Right);
    EXPECT_EQ(verticalBar().value(), 160);
    page->refresh();
    EXPECT_EQ(verticalBar().value(), 0);
    EXPECT_EQ(horizontalBar().value(), 0);
    EXPECT_EQ(shownAt(kOnFirstScreen), colour(16));
}

TEST_F(MapEditingPageTest, LargestRoomCanBeScrolledAndPaintedToItsEnd)
{
    changeRoom(MapEditingRom::kHuge);
    horizontalBar().setSliderPosition(253 * 256);
    horizontalBar().triggerAction(QScrollBar::SliderMove);
    verticalBar().setSliderPosition(255 * 240);
    verticalBar().triggerAction(QScrollBar::SliderMove);
    EXPECT_EQ(horizontalBar().value(), 253 * 256 - 320);
    EXPECT_EQ(verticalBar().value(), 255 * 240 - 320);
    press({0, 0});
    moveTo({447, 419}, Qt::LeftButton);
    page->leave(true);
}

// Rooms without a map

TEST_F(MapEditingPageTest, RoomWithoutAMapSaysSoAndIsEmpty)
{
    for (const std::uint8_t room : {MapEditingRom::kNoMap, MapEditingRom::kNarrow}) {
        prompt.expect(kNoMap);
        changeRoom(room);
        EXPECT_TRUE(prompt.done());
        for (const PictureView* view : {&map(), &tiles(), &palettes(), &physics()})
            EXPECT_TRUE(view->picture().empty());
        EXPECT_EQ(control<QListWidget>("sharedRoomsList").count(), 0);
        EXPECT_EQ(status(), "");
        changeRoom(MapEditingRom::kRoom);
        EXPECT_EQ(shownAt(kCell), colour(5));
        EXPECT_EQ(tiles().picture().width(), 282U);
    }
}

TEST_F(MapEditingPageTest, NothingCanBeDoneWithoutAMap)
{
    clickTile(2);
    checkHero();
    prompt.expect(kNoMap);
    changeRoom(MapEditingRom::kNoMap);
    clickTile(1);
    clickPalette(1);
    click(kCell);
    click(kCell, Qt::RightButton);
    moveTo({5, 5}, Qt::NoButton);
    page->shiftKey(true);
    for (PictureView* view : {&map(), &tiles(), &palettes()})
        QTest::keyClick(view, Qt::Key_Down);
    for (const int mode : {3, 0})
        chooseMode(mode);
    EXPECT_FALSE(control<QPushButton>("convertButton").isEnabled());
    clickButton();
    EXPECT_TRUE(map().picture().empty());
    EXPECT_TRUE(tiles().picture().empty());
    EXPECT_EQ(image(), game.bytes);
    page->shiftKey(false);
    changeRoom(MapEditingRom::kRoom);
    click(kCell);
    EXPECT_EQ(shownAt(kCell), colour(10)); // block 2 is still selected
}

} // namespace
} // namespace velko::test::map_editing
