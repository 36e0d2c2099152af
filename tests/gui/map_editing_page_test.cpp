#include "pages/map_editing_page.h"

#include "app/picture_view.h"
#include "app/ui_common.h"
#include "gfx/resources.h"
#include "tests/support/map_editing_rom.h"
#include "tests/support/scripted_prompt.h"

#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>

namespace velko {
namespace {

using test::Bytes;
using test::MapEditingRom;
using test::ScriptedPrompt;
using Answer = ScriptedPrompt::Answer;

const std::string kNoMap =
    "This Room has no Map Layout data. (Height and Width are both 0). If you want to use this Room "
    "Id, please go to Data Management and use the \"Allocate unique data\" function under the "
    "\"Map layout\" category.";
const std::string kQuestion = "Convert and Write 16x16 Map Data to ROM first?";
const std::string kLimitWarning =
    "Surpassed Tile32 limit while converting. Max is 146. The Room will not look properly in the "
    "ROM until Tile32 usage is lowered to 146 or less. You should try to either make the room "
    "smaller, use a less amount of unique Tiles, or make the room design follow repeated patterns.";

constexpr const char* kModes[] = {"combinedMode", "graphicsMode", "paletteMode", "physicsMode"};

// Room pixels in the middle of cells that show without scrolling. The first screen of the room
// reaches to (255, 239), left of and below it is the second one.
constexpr QPoint kOnFirstScreen(8, 8);
constexpr QPoint kCell(8, 248); // the second screen's first cell
constexpr QPoint kNextCell(24, 248);
constexpr QPoint kThirdCell(40, 248);
constexpr QPoint kOnNoScreen(264, 248);

Pixel colour(std::uint32_t number)
{
    return MapEditingRom::colour(number);
}

// A page of 1100 x 700 on kRoom.
class MapEditingPageTest : public testing::Test {
protected:
    MapEditingPageTest()
    {
        game.loadInto(state);
        setPhysicsColours(state.graphics);
        for (std::uint8_t room = 0; room < MapEditingRom::kRooms; ++room)
            state.names.rooms.push_back("Room " + std::to_string(room));
        page = std::make_unique<MapEditingPage>(state, prompt);
        page->setup();
        page->refresh();
        page->resize(1100, 700);
        page->show();
        page->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(page.get()));
    }

    template <typename Control> Control& control(const char* name) const
    {
        auto* found = page->findChild<Control*>(name);
        if (found == nullptr)
            throw std::runtime_error(name);
        return *found;
    }
    PictureView& map() const { return control<PictureView>("mapView"); }
    PictureView& tiles() const { return control<PictureView>("tileSelector"); }
    PictureView& palettes() const { return control<PictureView>("paletteSelector"); }
    PictureView& physics() const { return control<PictureView>("physicsSelector"); }
    QScrollBar& horizontalBar() const { return control<QScrollBar>("mapHorizontalBar"); }
    QScrollBar& verticalBar() const { return control<QScrollBar>("mapVerticalBar"); }
    QCheckBox& heroCheck() const { return control<QCheckBox>("heroCheck"); }
    QString text(const char* label) const { return control<QLabel>(label).text(); }
    QString status() const { return text("statusLabel"); }
    QString used() const { return text("usedBlocksValue"); }

    // Where a pixel of the region that the map view shows, in a room of at least 320 x 320 pixels,
    // stands in its picture of 448 x 420.
    static QPoint onMap(QPoint region) { return {region.x() * 7 / 5, region.y() * 21 / 16}; }
    static QPoint inWidget(QPoint point)
    {
        return point + QPoint(PictureView::kFrame, PictureView::kFrame);
    }
    void press(QPoint region, Qt::MouseButton button = Qt::LeftButton) const
    {
        QTest::mousePress(&map(), button, {}, inWidget(onMap(region)));
    }
    void click(QPoint region, Qt::MouseButton button = Qt::LeftButton) const
    {
        QTest::mouseClick(&map(), button, {}, inWidget(onMap(region)));
    }
    void moveTo(QPoint picturePoint, Qt::MouseButtons held) const
    {
        const QPoint point = inWidget(picturePoint);
        QMouseEvent move(QEvent::MouseMove, point, map().mapToGlobal(QPointF(point)), Qt::NoButton,
                         held, {});
        QApplication::sendEvent(&map(), &move);
    }
    void clickTile(int block) const { clickSelector(tiles(), block, 8, {35, 35}); }
    void clickPalette(int palette) const { clickSelector(palettes(), palette, 1, {256, 70}); }
    void clickPhysics(int value) const { clickSelector(physics(), value, 2, {141, 40}); }
    static void clickSelector(PictureView& view, int cell, int columns, QSize pitch)
    {
        QTest::mouseClick(&view, Qt::LeftButton, {},
                          inWidget({cell % columns * pitch.width() + pitch.width() / 2,
                                    cell / columns * pitch.height() + pitch.height() / 2}));
    }
    void chooseMode(int mode) const
    {
        auto& button = control<QRadioButton>(kModes[mode]);
        QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(8, button.height() / 2));
    }
    // A shortcut presses its button down and lets it go a moment later.
    void pressShortcut(Qt::Key key, const QAbstractButton& button) const
    {
        QTest::keyClick(page.get(), key, Qt::AltModifier);
        EXPECT_TRUE(button.isDown());
        EXPECT_TRUE(QTest::qWaitFor([&button] { return !button.isDown(); }));
    }
    void clickButton() const
    {
        QTest::mouseClick(&control<QPushButton>("convertButton"), Qt::LeftButton);
    }
    void checkHero() const
    {
        QTest::mouseClick(&heroCheck(), Qt::LeftButton, {}, QPoint(8, heroCheck().height() / 2));
    }
    void changeRoom(std::uint8_t room)
    {
        state.graphics.selectRoom(room);
        page->refresh();
    }

    Pixel shownAt(QPoint region) const
    {
        const QPoint point = onMap(region);
        return map().picture().at(static_cast<std::uint32_t>(point.x()),
                                  static_cast<std::uint32_t>(point.y()));
    }
    // How a cell past the room's list shows a colour.
    Pixel faded(Pixel pixel) const
    {
        PixelImage cell(1, 1, pixel);
        tintImage(cell, state.backgroundColour);
        PixelImage shown(1, 1, 0x404040);
        blit(shown, cell, 0, 0, 0.5F);
        return shown.at(0, 0);
    }
    Bytes image() const { return {state.rom.bytes().begin(), state.rom.bytes().end()}; }
    Bytes bytesAt(std::uint32_t offset, std::uint32_t count) const
    {
        Bytes bytes;
        for (std::uint32_t i = 0; i < count; ++i)
            bytes.push_back(state.rom.readByte(offset + i));
        return bytes;
    }
    Bytes record(std::uint32_t number) const { return bytesAt(game.set + 7 * number, 7); }
    static Bytes screen(std::uint8_t first, std::uint8_t others)
    {
        Bytes numbers(64, others);
        numbers[0] = first;
        return numbers;
    }

    MapEditingRom game;
    EditorState state;
    ScriptedPrompt prompt;
    std::unique_ptr<MapEditingPage> page;
};

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
    QTest::mousePress(&palettes(), Qt::LeftButton, {}, inWidget({10, 10}));
    const auto moveOnPalettes = [this](QPoint picturePoint) {
        const QPoint point = inWidget(picturePoint);
        QMouseEvent move(QEvent::MouseMove, point, palettes().mapToGlobal(QPointF(point)),
                         Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(&palettes(), &move);
    };
    moveOnPalettes({10, 230}); // palette 3
    moveOnPalettes({10, 400});
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
        QTest::mouseClick(&map(), Qt::LeftButton, {},
                          inWidget({room.x() * 7 / 5, room.y() * 7 / 4}));
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
    QWheelEvent wheel({10, 10}, map().mapToGlobal(QPointF(10, 10)), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&map(), &wheel);
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

// The hero

class HeroTest : public MapEditingPageTest {
protected:
    HeroTest()
    {
        // All sprite tiles are of value 1, entry 17.
        for (std::size_t i = 0; i < kPatternTable1; ++i)
            state.graphics.patternMemory[i] = i % 16 < 8 ? 0xFF : 0x00;
    }

    // The line to the hero starts 60 pixels above and left of the mouse.
    static constexpr QPoint kMouse{100, 100};
    static constexpr QPoint kLine{44, 43};
    Pixel linePixel() const { return shownAt(kLine); }
};

TEST_F(HeroTest, HeroStandsAtTheMouseWhileShiftIsHeld)
{
    checkHero();
    moveTo(onMap(kMouse), Qt::NoButton);
    EXPECT_EQ(linePixel(), colour(16));
    page->shiftKey(true);
    EXPECT_EQ(linePixel(), colour(17));
    moveTo(onMap(kMouse + QPoint(40, 0)), Qt::NoButton);
    EXPECT_EQ(linePixel(), colour(16));
    EXPECT_EQ(shownAt(kLine + QPoint(40, 0)), colour(17));
    page->shiftKey(false);
    EXPECT_EQ(shownAt(kLine + QPoint(40, 0)), colour(16));
}

TEST_F(HeroTest, HeroNeedsTheBox)
{
    moveTo(onMap(kMouse), Qt::NoButton);
    page->shiftKey(true);
    EXPECT_EQ(linePixel(), colour(16));
    checkHero();
    EXPECT_EQ(linePixel(), colour(16)); // the key went down before
    page->shiftKey(true);
    EXPECT_EQ(linePixel(), colour(17));
    checkHero();
    EXPECT_EQ(linePixel(), colour(16));
}

TEST_F(HeroTest, NothingIsDrawnWhileAToolShowsOtherRooms)
{
    checkHero();
    moveTo(onMap(kMouse), Qt::NoButton);
    page->pause();
    page->shiftKey(true);
    EXPECT_EQ(linePixel(), colour(16));
    page->resume();
    page->shiftKey(true);
    EXPECT_EQ(linePixel(), colour(17));
    page->pause();
    EXPECT_EQ(linePixel(), colour(16));
    page->refresh();
    std::fill_n(state.graphics.patternMemory.begin(), kPatternTable1, 0xFF);
    page->shiftKey(true);
    EXPECT_EQ(linePixel(), colour(19));
}

TEST_F(HeroTest, HeroIsInNoCellOfTheMap)
{
    checkHero();
    page->shiftKey(true);
    moveTo(onMap(kMouse), Qt::NoButton);
    EXPECT_EQ(image(), game.bytes);
    page->commitEdits(); // nothing to ask
}

TEST_F(HeroTest, HeroGoesWithTheWindowsFocus)
{
    checkHero();
    moveTo(onMap(kMouse), Qt::NoButton);
    page->shiftKey(true);
    QEvent deactivated(QEvent::WindowDeactivate);
    QApplication::sendEvent(page.get(), &deactivated);
    EXPECT_EQ(linePixel(), colour(16));
}

TEST_F(HeroTest, HeroMovesAlongWhilePainting)
{
    checkHero();
    page->shiftKey(true);
    clickTile(2);
    moveTo(onMap(kCell), Qt::NoButton);
    press(kCell);
    moveTo(onMap({100, 248}), Qt::LeftButton);
    EXPECT_EQ(shownAt({44, 191}), colour(17));
    page->shiftKey(false);
    EXPECT_EQ(shownAt({100, 248}), colour(10));
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
} // namespace velko
