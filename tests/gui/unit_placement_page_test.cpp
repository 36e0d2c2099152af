#include "pages/unit_placement_page.h"

#include "app/main_dialog.h"
#include "tests/gui/unit_page_fixture.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QTabBar>
#include <functional>

namespace velko {
namespace {

using namespace test;

constexpr int kControls[] = {kVramSetup, kLoadList, kView,    kHorizontalBar, kVerticalBar,
                             kUnitList,  kType,     kPixelX,  kPixelY,        kScreenX,
                             kScreenY,   kLoadId,   kInsert,  kDelete,        kRemove,
                             kNew,       kPlaced,   kSprites, kAnimate};

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
