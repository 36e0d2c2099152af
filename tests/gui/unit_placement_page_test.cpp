#include "pages/unit_placement_page.h"

#include "app/main_dialog.h"
#include "tests/gui/unit_page_fixture.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <functional>

namespace velko {
namespace {

using namespace test;

constexpr int kControls[] = {kVramSetup, kLoadList, kView,    kHorizontalBar, kVerticalBar,
                             kUnitList,  kType,     kPixelX,  kPixelY,        kScreenX,
                             kScreenY,   kLoadId,   kInsert,  kDelete,        kRemove,
                             kNew,       kPlaced,   kSprites, kAnimate};

const std::string kNoSpaceForUnit =
    "No free space. You must first remove one or more unit from any room.";
const std::string kNoSpaceForLoad = "Not enough free space. You must first remove entries of "
                                    "loaded Id's in the data of any room.";

using UnitPlacementPageTest = UnitPageTest;

// What is shown

TEST_F(UnitPlacementPageTest, FixedTextsAreToTheLetter)
{
    const auto label = [this](const char* name) { return page->findChild<QLabel*>(name)->text(); };
    EXPECT_EQ(label("vramSetupLabel"), "VRAM setup:");
    EXPECT_EQ(label("loadListLabel"), "VRAM load list:");
    EXPECT_EQ(label("unitListHint"), "(double-click entry to activate moving.)");
    EXPECT_EQ(label("movingHint"),
              "Moving enemies: Hover mouse over a sprite, click Left, then: Move enemy with mouse, "
              "press Left to drop enemy, press Right to revert to original location.");
    EXPECT_EQ(label("scrollingHint"),
              "If you move the mousepointer to (or outside of) the border of the screen while "
              "moving an enemy, the map will be scrolled in the direction you move the pointer.");
    EXPECT_EQ(page->findChild<QGroupBox*>("statsGroup")->title(), " Unit stats ");
    const std::pair<int, const char*> buttons[] = {
        {kNew, "New"},
        {kRemove, "Remove"},
        {kInsert, "Insert"},
        {kDelete, "Delete"},
        {kPlaced, "Enemy has placement"},
        {kSprites, "Enable NES sprite"},
        {kAnimate, "Animate Sprites"},
    };
    for (const auto& [id, text] : buttons)
        EXPECT_EQ(control<QAbstractButton>(id).text(), text);
    EXPECT_EQ(page->property(kControlId).toInt(), 105);
}

TEST_F(UnitPlacementPageTest, ListsAndCombosAreFilled)
{
    EXPECT_EQ(lines(units()), (QStringList{"0 : Unit 3", "1 : Unit 10", "2 : Unit 4"}));
    EXPECT_EQ(lines(loads()), (QStringList{"0: - Load 0", "1: - Load 1", "2: - Load 2"}));
    EXPECT_EQ(type().count(), 144);
    EXPECT_EQ(type().itemText(143), "Unit 143");
    EXPECT_EQ(loadId().count(), 255);
    EXPECT_EQ(loadId().itemText(254), "Load 254");
    EXPECT_TRUE(control<QCheckBox>(kSprites).isChecked());
    EXPECT_TRUE(control<QCheckBox>(kAnimate).isChecked());
}

TEST_F(UnitPlacementPageTest, AbsentNamesAreEmpty)
{
    state.names.units[143].clear();
    state.names.vramLoads[254].clear();
    UnitPlacementPage other(state, prompt);
    other.setup();
    const auto* types = other.findChild<QComboBox*>("typeCombo");
    EXPECT_EQ(types->count(), 144);
    EXPECT_EQ(types->itemText(143), "");
    const auto* ids = other.findChild<QComboBox*>("loadIdCombo");
    EXPECT_EQ(ids->count(), 255);
    EXPECT_EQ(ids->itemText(254), "");
}

TEST_F(UnitPlacementPageTest, FirstUnitAndFirstLoadAreSelected)
{
    expectStats(0, 3, true, {"0", "0", "64", "32"});
    EXPECT_EQ(chosen(loads()), 0);
    EXPECT_EQ(loadId().currentIndex(), 0);
    EXPECT_TRUE(loadId().isEnabled());
}

TEST_F(UnitPlacementPageTest, RoomAndSpriteTilesAreDrawn)
{
    EXPECT_EQ(view().picture().width(), 416U);
    EXPECT_EQ(view().picture().height(), 375U);
    EXPECT_EQ(at(132, 62), colour(17));
    EXPECT_EQ(at(260, 118), 0x008040U);
    EXPECT_EQ(at(350, 10), colour(1));
    const PixelImage& tiles = control<PictureView>(kVramSetup).picture();
    EXPECT_EQ(tiles.width(), 204U);
    EXPECT_EQ(tiles.at(18, 6), colour(17));
    EXPECT_EQ(tiles.at(44, 6), colour(19));
}

TEST_F(UnitPlacementPageTest, SelectedUnitIsShown)
{
    choose(units(), 1);
    expectStats(1, 10, true, {"0", "0", "c8", "64"});
    choose(units(), 2);
    expectStats(2, 4, false, {"", "", "", ""});
    EXPECT_TRUE(placed().isEnabled());
    EXPECT_TRUE(type().isEnabled());
    units().setFocus();
    QTest::keyClick(&units(), Qt::Key_Home);
    expectStats(0, 3, true, {"0", "0", "64", "32"});
    QTest::mouseClick(units().viewport(), Qt::LeftButton, Qt::ControlModifier,
                      lineCentre(units(), 0));
    EXPECT_EQ(chosen(units()), 0); // always one
}

TEST_F(UnitPlacementPageTest, TypesWithoutANameAreNoneOfTheCombo)
{
    setUnits({200, 100, 1, 50, 0});
    page->refresh();
    expectStats(0, -1, true, {"0", "0", "64", "32"});
    EXPECT_EQ(lines(units()), QStringList{"0 : c8 : ?? "});
}

TEST_F(UnitPlacementPageTest, RoomWithoutUnitsShowsNone)
{
    changeRoom(1);
    expectStats(-1, -1, false, {"", "", "", ""});
    EXPECT_EQ(units().model()->rowCount(), 0);
    EXPECT_FALSE(type().isEnabled());
    EXPECT_FALSE(placed().isEnabled());
    EXPECT_EQ(loads().model()->rowCount(), 0);
    EXPECT_FALSE(loadId().isEnabled());
    EXPECT_EQ(loadId().currentIndex(), -1);
    EXPECT_EQ(control<PictureView>(kVramSetup).picture().at(18, 6), colour(16));
    for (std::uint32_t x = 0; x < 412; ++x)
        ASSERT_EQ(at(x, 100), colour(16));
    const Bytes before = image();
    click(kRemove);
    click(kDelete);
    EXPECT_EQ(image(), before);
}

TEST_F(UnitPlacementPageTest, AnotherRoomIsShownFromItsCornerWithItsFirstUnit)
{
    choose(units(), 2);
    choose(loads(), 2);
    scrollTo(160, 80);
    changeRoom(0);
    EXPECT_EQ(scroll(), QPoint(0, 0));
    expectStats(0, 3, true, {"0", "0", "64", "32"});
    EXPECT_EQ(chosen(loads()), 0);
    // Also where the lists become shorter around the selected lines.
    choose(units(), 2);
    game.setUnits(1, {10, 1, 1, 1, 1, 10, 2, 2, 2, 2});
    game.loadInto(state);
    changeRoom(1);
    expectStats(0, 10, true, {"0", "1", "1", "1"});
}

// Changing units

TEST_F(UnitPlacementPageTest, TypeIsWrittenIntoByte0)
{
    choose(units(), 1);
    const Bytes expected = imageExcept(unitData(), 5, 143);
    pick(type(), 143);
    EXPECT_EQ(image(), expected);
    EXPECT_EQ(lines(units()), (QStringList{"0 : Unit 3", "1 : Unit 143", "2 : Unit 4"}));
    EXPECT_EQ(chosen(units()), 1);
    EXPECT_EQ(at(260, 118), markerColour(143));
}

TEST_F(UnitPlacementPageTest, NumbersAreWrittenIntoTheirBytes)
{
    choose(units(), 1);
    const struct {
        int box;
        const char* keys;
        std::uint32_t offset;
        std::uint8_t byte;
    } numbers[] = {
        {kPixelX, "1c", 6, 0x1C},
        {kScreenX, "1", 7, 2},
        {kPixelY, "0x2D", 8, 0x2D},
        {kScreenY, "1", 9, 1},
    };
    for (const auto& number : numbers) {
        const Bytes expected = imageExcept(unitData(), number.offset, number.byte);
        typeInto(number.box, number.keys);
        EXPECT_EQ(image(), expected) << number.box;
    }
}

TEST_F(UnitPlacementPageTest, OfNumbersTheLowBitsAreWrittenAndShownAfterwards)
{
    const Bytes expected = imageExcept(unitData(), 1, 0x34);
    typeInto(kPixelX, "1234");
    EXPECT_EQ(image(), expected);
    EXPECT_EQ(text(kPixelX), "1234");
    QTest::keyClick(&control(kPixelX), Qt::Key_Return);
    EXPECT_EQ(text(kPixelX), "34");
}

TEST_F(UnitPlacementPageTest, ScreenXFFTakesThePlacementAway)
{
    const Bytes expected = imageExcept(unitData(), 2, 0);
    typeInto(kScreenX, "ff");
    EXPECT_EQ(image(), expected);
    EXPECT_TRUE(control(kScreenX).isEnabled()); // the user may go on typing
    EXPECT_EQ(at(132, 62), colour(16));
    QTest::keyClick(&control(kScreenX), Qt::Key_Return);
    expectStats(0, 3, false, {"", "", "", ""});
}

TEST_F(UnitPlacementPageTest, NumbersMoveTheUnitInTheView)
{
    typeInto(kPixelX, "c8");
    typeInto(kPixelY, "c8");
    EXPECT_EQ(at(132, 62), colour(16));
    EXPECT_EQ(at(263, 240), colour(17)); // (202, 204)
}

TEST_F(UnitPlacementPageTest, TextsThatThePageSetsWriteNothing)
{
    const Bytes before = image();
    for (const int line : {1, 2, 0, 1}) {
        choose(units(), line);
        choose(loads(), line);
    }
    page->refresh();
    tick(3);
    EXPECT_EQ(image(), before);
}

TEST_F(UnitPlacementPageTest, PlacementIsTakenAwayAndGiven)
{
    click(kPlaced);
    EXPECT_EQ(unitBytes(15), (Bytes{3, 0, 0, 0, 0, 10, 200, 1, 100, 0, 4, 7, 0, 8, 1}));
    expectStats(0, 3, false, {"", "", "", ""});
    EXPECT_EQ(at(132, 62), colour(16));
    choose(units(), 2);
    click(kPlaced);
    EXPECT_EQ(unitBytes(15), (Bytes{3, 0, 0, 0, 0, 10, 200, 1, 100, 0, 4, 7, 1, 8, 1}));
    expectStats(2, 4, true, {"0", "1", "7", "8"});
    EXPECT_EQ(at(13, 293), colour(22)); // (10, 250): the unit is at (7, 249)
}

TEST_F(UnitPlacementPageTest, NewUnitComesBeforeTheSelectedOneInTheMiddleOfTheView)
{
    choose(units(), 1);
    scrollTo(160, 144);
    click(kNew);
    // (160 + 160, 144 + 160)
    EXPECT_EQ(unitBytes(20),
              (Bytes{3, 100, 1, 50, 0, 0, 64, 2, 64, 1, 10, 200, 1, 100, 0, 4, 7, 0, 8, 1}));
    expectStats(1, 0, true, {"1", "1", "40", "40"});
    EXPECT_EQ(lines(units()),
              (QStringList{"0 : Unit 3", "1 : Unit 0", "2 : Unit 10", "3 : Unit 4"}));
    EXPECT_EQ(at(208, 188), 0x000000U); // its marker
}

TEST_F(UnitPlacementPageTest, FullRegionIsToldAndNothingChanges)
{
    unitData().setFreeSpace(4);
    const Bytes before = image();
    prompt.expect(kNoSpaceForUnit, MessageIcon::kExclamation);
    click(kNew);
    EXPECT_TRUE(prompt.done());
    EXPECT_EQ(image(), before);
    EXPECT_EQ(units().model()->rowCount(), 3);
    loadData().setFreeSpace(0);
    prompt.expect(kNoSpaceForLoad, MessageIcon::kExclamation);
    click(kInsert);
    EXPECT_TRUE(prompt.done());
    EXPECT_EQ(image(), before);
    EXPECT_EQ(loads().model()->rowCount(), 3);
}

TEST_F(UnitPlacementPageTest, UnknownFreeSpaceIsToldAsNone)
{
    unitData().setFreeSpace(PointerArrayHandler::kFreeSpaceUnknown);
    loadData().setFreeSpace(PointerArrayHandler::kFreeSpaceUnknown);
    const Bytes before = image();
    prompt.expect(kNoSpaceForUnit, MessageIcon::kExclamation);
    click(kNew);
    prompt.expect(kNoSpaceForLoad, MessageIcon::kExclamation);
    click(kInsert);
    EXPECT_TRUE(prompt.done());
    EXPECT_EQ(image(), before);
}

TEST_F(UnitPlacementPageTest, RegionIsFilledToItsLastByte)
{
    unitData().setFreeSpace(12);
    click(kNew);
    click(kNew);
    EXPECT_EQ(unitData().freeSpace(), 2);
    prompt.expect(kNoSpaceForUnit, MessageIcon::kExclamation);
    click(kNew);
    EXPECT_EQ(units().model()->rowCount(), 5);
}

TEST_F(UnitPlacementPageTest, UnitsAreRemovedUntilThereIsNone)
{
    choose(units(), 2);
    click(kRemove);
    expectStats(1, 10, true, {"0", "0", "c8", "64"});
    choose(units(), 0);
    click(kRemove);
    EXPECT_EQ(unitBytes(6), (Bytes{10, 200, 1, 100, 0, 0xFF}));
    expectStats(0, 10, true, {"0", "0", "c8", "64"});
    click(kRemove);
    EXPECT_EQ(unitBytes(1), (Bytes{0xFF}));
    expectStats(-1, -1, false, {"", "", "", ""});
    EXPECT_FALSE(type().isEnabled());
    click(kRemove);
    click(kNew);
    EXPECT_EQ(unitBytes(6), (Bytes{0, 160, 1, 160, 0, 0xFF}));
    expectStats(0, 0, true, {"0", "0", "a0", "a0"});
}

// Sprite graphics

TEST_F(UnitPlacementPageTest, LoadsIdIsWrittenAndItsTilesShown)
{
    choose(loads(), 1);
    EXPECT_EQ(loadId().currentIndex(), 1);
    const Bytes expected = imageExcept(loadData(), 1, 2);
    pick(loadId(), 2);
    EXPECT_EQ(image(), expected);
    EXPECT_EQ(lines(loads()), (QStringList{"0: - Load 0", "1: - Load 2", "2: - Load 2"}));
    EXPECT_EQ(chosen(loads()), 1);
    const PixelImage& tiles = control<PictureView>(kVramSetup).picture();
    EXPECT_EQ(tiles.at(31, 6), colour(16)); // tile 2 is loaded no more
}

TEST_F(UnitPlacementPageTest, LoadsAreInsertedAndDeleted)
{
    choose(loads(), 2);
    click(kInsert);
    EXPECT_EQ(loadBytes(5), (Bytes{0, 1, 0, 2, 0xFF}));
    EXPECT_EQ(chosen(loads()), 2);
    EXPECT_EQ(loadId().currentIndex(), 0);
    choose(loads(), 3);
    click(kDelete);
    EXPECT_EQ(loadBytes(4), (Bytes{0, 1, 0, 0xFF}));
    EXPECT_EQ(chosen(loads()), 2);
    EXPECT_EQ(control<PictureView>(kVramSetup).picture().at(44, 6), colour(16));
    for (int i = 0; i < 3; ++i)
        click(kDelete);
    EXPECT_EQ(loadBytes(1), (Bytes{0xFF}));
    EXPECT_FALSE(loadId().isEnabled());
    EXPECT_EQ(at(132, 62), colour(16)); // the unit has no tiles
    click(kInsert);
    EXPECT_EQ(loadBytes(2), (Bytes{0, 0xFF}));
    EXPECT_TRUE(loadId().isEnabled());
    EXPECT_EQ(chosen(loads()), 0);
    EXPECT_EQ(at(132, 62), colour(17));
}

TEST_F(UnitPlacementPageTest, IdFrom80OnEndsTheShownList)
{
    choose(loads(), 1);
    pick(loadId(), 128);
    EXPECT_EQ(loadBytes(4), (Bytes{0, 128, 2, 0xFF}));
    EXPECT_EQ(lines(loads()), QStringList{"0: - Load 0"});
    EXPECT_EQ(chosen(loads()), -1);
    EXPECT_EQ(loadId().currentIndex(), 128);
    EXPECT_TRUE(loadId().isEnabled());
    click(kDelete);
    EXPECT_EQ(loadBytes(3), (Bytes{0, 2, 0xFF}));
    EXPECT_EQ(chosen(loads()), 1);
}

TEST_F(UnitPlacementPageTest, ListThatBeginsWith80HasNothingToSet)
{
    setLoads({0x80, 1});
    page->refresh();
    EXPECT_EQ(loads().model()->rowCount(), 0);
    EXPECT_FALSE(loadId().isEnabled());
    click(kInsert);
    EXPECT_EQ(loadBytes(4), (Bytes{0, 0x80, 1, 0xFF}));
    EXPECT_TRUE(loadId().isEnabled());
}

// The view

TEST_F(UnitPlacementPageTest, SpritesCanBeTurnedOff)
{
    click(kSprites);
    EXPECT_EQ(at(132, 62), 0x008080U);
    click(kSprites);
    EXPECT_EQ(at(132, 62), colour(17));
}

TEST_F(UnitPlacementPageTest, TicksAnimateUntilTurnedOff)
{
    tick(2);
    EXPECT_EQ(at(132, 62), colour(19));
    click(kAnimate); // back to the first frame
    EXPECT_EQ(at(132, 62), colour(17));
    tick(10);
    EXPECT_EQ(at(132, 62), colour(17));
    click(kAnimate);
    tick(2);
    EXPECT_EQ(at(132, 62), colour(19));
}

TEST_F(UnitPlacementPageTest, ChecksStayInOtherRooms)
{
    click(kSprites);
    click(kAnimate);
    changeRoom(1);
    changeRoom(0);
    EXPECT_FALSE(control<QCheckBox>(kSprites).isChecked());
    EXPECT_FALSE(control<QCheckBox>(kAnimate).isChecked());
    EXPECT_EQ(at(132, 62), 0x008080U);
    tick(10);
    click(kSprites);
    EXPECT_EQ(at(132, 62), colour(17)); // still the first frame
}

TEST_F(UnitPlacementPageTest, BarsScrollInStepsOf16)
{
    auto& horizontal = control<QScrollBar>(kHorizontalBar);
    EXPECT_EQ(horizontal.pageStep(), 320);
    EXPECT_TRUE(horizontal.isEnabled());
    horizontal.triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(scroll(), QPoint(16, 0));
    EXPECT_EQ(at(111, 62), colour(17)); // (85.4 + 16, 52.9)
    scrollTo(79, 100);
    EXPECT_EQ(scroll(), QPoint(64, 96));
    scrollTo(10000, 10000);
    EXPECT_EQ(scroll(), QPoint(448, 160));
    EXPECT_EQ(at(100, 0), colour(2)); // 525
    changeRoom(1);
    EXPECT_TRUE(horizontal.isEnabled());
    EXPECT_EQ(horizontal.pageStep(), 256);
}

// The timer

TEST_F(UnitPlacementPageTest, TimerRunsFromSetupUntilThePageIsLeft)
{
    UnitPlacementPage other(state, prompt);
    auto* clock = other.findChildren<QTimer*>(Qt::FindDirectChildrenOnly).value(0);
    ASSERT_NE(clock, nullptr);
    EXPECT_FALSE(clock->isActive());
    other.setup();
    EXPECT_TRUE(clock->isActive());
    EXPECT_EQ(clock->interval(), 16);
    other.refresh();
    for (int i = 0; i < 2; ++i) {
        QTimerEvent due(clock->timerId());
        QApplication::sendEvent(clock, &due);
    }
    const PixelImage& picture = other.findChild<PictureView*>("unitView")->picture();
    EXPECT_EQ(picture.at(132, 62), colour(19));
    other.leave(false);
    EXPECT_FALSE(clock->isActive());
}

TEST_F(UnitPlacementPageTest, PausedPageDrawsNothingUntilItIsRefreshed)
{
    page->pause();
    tick(2);
    EXPECT_EQ(at(132, 62), colour(17));
    page->refresh();
    tick(2);
    EXPECT_EQ(at(132, 62), colour(19));
}

TEST_F(UnitPlacementPageTest, PausedPageGoesOnWhereItWas)
{
    page->pause();
    tick(2);
    page->resume();
    EXPECT_EQ(at(132, 62), colour(17));
    tick(2);
    EXPECT_EQ(at(132, 62), colour(19));
}

TEST_F(UnitPlacementPageTest, TicksBeforeTheFirstRefreshDoNothing)
{
    UnitPlacementPage other(state, prompt);
    other.setup();
    other.leave(false);
    other.tick();
    EXPECT_TRUE(other.findChild<PictureView*>("unitView")->picture().empty());
}

// The keyboard reaches everything

TEST_F(UnitPlacementPageTest, TabGoesThroughTheControlsInTheirOrder)
{
    view().setFocus();
    for (const int id : {kSprites, kAnimate, kUnitList, kNew, kRemove, kType, kPlaced, kScreenX,
                         kScreenY, kPixelX, kPixelY, kLoadList, kLoadId, kInsert, kDelete, kView}) {
        QTest::keyClick(page->focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(page->focusWidget()->property(kControlId).toInt(), id);
    }
}

// A button stays pressed for a moment before it acts.
TEST_F(UnitPlacementPageTest, ShortcutsPressTheButtons)
{
    const auto alt = [this](Qt::Key key) { QTest::keyClick(page.get(), key, Qt::AltModifier); };
    const auto leadsTo = [&alt](Qt::Key key, const std::function<bool()>& outcome) {
        alt(key);
        return QTest::qWaitFor(outcome);
    };
    const auto hasLines = [](const QListView& list, int count) {
        return [&list, count] { return list.model()->rowCount() == count; };
    };
    const auto isUnchecked = [this](int id) {
        return [&box = control<QCheckBox>(id)] { return !box.isChecked(); };
    };
    EXPECT_TRUE(leadsTo(Qt::Key_N, hasLines(units(), 4)));
    EXPECT_TRUE(leadsTo(Qt::Key_R, hasLines(units(), 3)));
    EXPECT_TRUE(leadsTo(Qt::Key_I, hasLines(loads(), 4)));
    EXPECT_TRUE(leadsTo(Qt::Key_D, hasLines(loads(), 3)));
    EXPECT_TRUE(leadsTo(Qt::Key_P, isUnchecked(kPlaced)));
    EXPECT_TRUE(leadsTo(Qt::Key_S, isUnchecked(kSprites)));
    EXPECT_TRUE(leadsTo(Qt::Key_A, isUnchecked(kAnimate)));
    alt(Qt::Key_U);
    EXPECT_EQ(page->focusWidget(), &units());
    alt(Qt::Key_Y);
    EXPECT_EQ(page->focusWidget(), &type());
    alt(Qt::Key_L);
    EXPECT_EQ(page->focusWidget(), &loadId());
}

TEST_F(UnitPlacementPageTest, EveryControlTellsWhatItIsFor)
{
    for (const int id : kControls) {
        const bool isBar = id == kHorizontalBar || id == kVerticalBar;
        EXPECT_NE(control(id).toolTip().isEmpty(), !isBar) << id;
    }
}

// Damaged games, and the main window

TEST_F(UnitPlacementPageTest, PageWithoutARomShowsSomething)
{
    EditorState empty;
    UnitPlacementPage other(empty, prompt);
    other.setup();
    other.leave(false);
    other.refresh();
    other.show();
    other.tick();
    EXPECT_EQ(other.findChild<QListView*>("unitList")->model()->rowCount(), 6553);
    EXPECT_EQ(other.findChild<QListView*>("loadList")->model()->rowCount(), 4096);
}

TEST_F(UnitPlacementPageTest, TabOfTheMainWindowShowsThePage)
{
    MainDialog window(state, prompt);
    window.show();
    window.findChild<QTabBar*>()->setCurrentIndex(4);
    auto* list = window.findChild<QListView*>("unitList");
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->model()->rowCount(), 3);
    window.changeRoom(1);
    EXPECT_EQ(list->model()->rowCount(), 0);
}

} // namespace
} // namespace velko
