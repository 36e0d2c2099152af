#include "app/main_dialog.h"
#include "tests/gui/main_map_editor_fixture.h"
#include "tests/gui/modal_helper.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QRadioButton>
#include <QWindow>
#include <set>

namespace velko::test::main_map_editor {
namespace {

// What is shown

TEST_F(MainMapEditorDialogTest, TextsAreToTheLetter)
{
    open();
    EXPECT_EQ(dialog->windowTitle(), " Main Map Editor");
    EXPECT_EQ(dialog->property(kControlId).toInt(), 147);
    const auto text = [this](int id) {
        return control<QAbstractButton>(id).text().remove('&').toStdString();
    };
    EXPECT_EQ(text(kTileMode), "8x8 tile:");
    EXPECT_EQ(text(kPresetMode), "16x16 tile preset:");
    EXPECT_EQ(text(kPaletteMode),
              "Palette (Left button = Next palette, Right button = Previous palette).");
    EXPECT_EQ(text(kAreaMode), "Area (location and path)");
    EXPECT_EQ(text(kTruckMode), "Trucks");
    EXPECT_EQ(text(kClose), "Close");
    EXPECT_EQ(text(kMovementPlus) + text(kPhasePlus), "++");
    EXPECT_EQ(text(kMovementMinus) + text(kPhaseMinus), "--");
    QStringList labels;
    for (const QLabel* label : dialog->findChildren<QLabel*>())
        labels.append(label->text());
    labels.sort();
    EXPECT_EQ(labels.join("|").toStdString(),
              "Area #:|Chopper Sprite:|Chopper movement directions:|Dest. Area Text Digits:|"
              "Direction:|Hint: Click on Map display to set area's location.|Movement phase:|"
              "Path preview sprite:|Pattern Set:|Starting Area:|Truck #:");
}

TEST_F(MainMapEditorDialogTest, OpensInTileModeWithTheFirstOfEverything)
{
    open();
    EXPECT_TRUE(control<QRadioButton>(kTileMode).isChecked());
    expectEnabled(kAreaControls, false);
    expectEnabled(kTruckControls, false);
    EXPECT_FALSE(control(kMovement).isEnabled());
    EXPECT_EQ(slider(kArea).maximum(), 2);
    EXPECT_EQ(slider(kTruck).maximum(), 2);
    EXPECT_EQ(slider(kStartingArea).maximum(), 15);
    EXPECT_EQ(slider(kPatternSet).maximum(), 3);
    EXPECT_EQ(slider(kPhase).maximum(), 2);
    for (const int id : {kArea, kMovement, kTruck, kStartingArea, kPatternSet, kPhase}) {
        EXPECT_EQ(slider(id).minimum(), 0) << id;
        EXPECT_EQ(slider(id).value(), 0) << id;
    }
    EXPECT_EQ(map().picture().width(), 468U);
    EXPECT_EQ(map().picture().height(), 324U);
}

TEST_F(MainMapEditorDialogTest, OpeningChangesNoByte)
{
    const Bytes before = image();
    open();
    for (const int mode : {kPresetMode, kPaletteMode, kAreaMode, kTruckMode, kTileMode})
        click(mode);
    EXPECT_EQ(image(), before);
}

TEST_F(MainMapEditorDialogTest, ModesEnableTheirControls)
{
    open();
    struct Row {
        int mode;
        bool area;
        bool trucks;
    };
    for (const Row& row :
         {Row{kPresetMode, false, false}, Row{kAreaMode, true, false}, Row{kTruckMode, false, true},
          Row{kPaletteMode, false, false}, Row{kTileMode, false, false}}) {
        click(row.mode);
        EXPECT_TRUE(control<QRadioButton>(row.mode).isChecked());
        expectEnabled(kAreaControls, row.area);
        expectEnabled(kTruckControls, row.trucks);
    }
}

TEST_F(MainMapEditorDialogTest, MapIsDrawnWithTheOverworldsGraphics)
{
    open();
    EXPECT_EQ(mapPixel(cell(5, 5)), TestRom::colour(2));
    EXPECT_EQ(mapPixel({0, 0}), TestRom::colour(2));
}

// Keyboard and wheel

TEST_F(MainMapEditorDialogTest, TabReachesEveryControl)
{
    openIn(kAreaMode);
    std::set<int> reached;
    control(kAreaMode).setFocus();
    for (int i = 0; i < 40; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        reached.insert(QApplication::focusWidget()->property(kControlId).toInt());
    }
    EXPECT_EQ(reached,
              (std::set<int>{kClose, kChopperSpin, kPreviewSpin, kChopper, kPreview, kFirstDigit,
                             kSecondDigit, kMap, kTilePicker, kPresetPicker, kAreaMode, kArea,
                             kMovementPlus, kMovementMinus}));
}

TEST_F(MainMapEditorDialogTest, TabGoesThroughTheTruckControlsInOrder)
{
    openIn(kTruckMode);
    control(kTruckMode).setFocus();
    for (const int id : {int{kTruck}, int{kStartingArea}, int{kPatternSet}, int{kPhase},
                         int{kPhasePlus}, int{kPhaseMinus}, kFirstDirection + 4, int{kClose}}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget()->property(kControlId).toInt(), id);
    }
}

TEST_F(MainMapEditorDialogTest, ArrowKeysMoveTheArea)
{
    openIn(kAreaMode);
    drag(kArea, 1);
    clickMap({234, 162}); // to (128, 96), and gives the map the focus
    ASSERT_TRUE(map().hasFocus());
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Left, Qt::Key_Up})
        QTest::keyClick(&map(), key);
    EXPECT_EQ(image(), loadedExcept(overworld::kAreas + 2, {136, 88}));
    // The frame went along: its white second row lies 10 pixels above the centre, (112, 64).
    EXPECT_EQ(mapPixel({112 * 468 / 208, (64 - 10) * 324 / 144 + 1}), 0xFFFFFFU);
    QTest::keyClick(&map(), Qt::Key_Plus);
    EXPECT_EQ(image(), loadedExcept(overworld::kAreas + 2, {136, 88}));
}

TEST_F(MainMapEditorDialogTest, MapTakesKeysInAreaModeOnly)
{
    open();
    for (const int mode : {kTileMode, kPresetMode, kPaletteMode, kTruckMode}) {
        click(mode);
        clickPicture(map(), cell(3, 3), Qt::MiddleButton);
        EXPECT_FALSE(map().hasFocus()) << mode;
        QTest::keyClick(&map(), Qt::Key_Right);
        EXPECT_EQ(image(), game.bytes) << mode;
    }
}

TEST_F(MainMapEditorDialogTest, KeysStepASlider)
{
    openIn(kTruckMode);
    slider(kStartingArea).setFocus();
    QTest::keyClick(&slider(kStartingArea), Qt::Key_Right);
    EXPECT_EQ(image(), loadedExcept(overworld::kTrucks, {0x01}));
    QTest::keyClick(&slider(kStartingArea), Qt::Key_End);
    EXPECT_EQ(image(), loadedExcept(overworld::kTrucks, {0x0F}));
}

TEST_F(MainMapEditorDialogTest, WheelTurnsOnlyTheSliderThatHasTheFocus)
{
    openIn(kTruckMode);
    const auto turn = [this](int id) { turnWheel(slider(id), slider(id), {0, 120}); };
    turn(kStartingArea);
    EXPECT_EQ(image(), game.bytes);
    slider(kStartingArea).setFocus();
    turn(kStartingArea);
    EXPECT_NE(image(), game.bytes);
}

// Leaving

TEST_F(MainMapEditorDialogTest, RoomsGraphicsAreBackHoweverItIsLeft)
{
    const auto patternMemory = state.graphics.patternMemory;
    const std::function<void()> ways[] = {
        [this] { click(kClose); },
        [this] { QTest::keyClick(dialog.get(), Qt::Key_Escape); },
        [this] { dialog->windowHandle()->close(); },
    };
    state.graphics.selectRoom(1);
    for (const auto& leave : ways) {
        open();
        EXPECT_EQ(state.store.pahTileLoadType2.currentRoom(), 111U);
        EXPECT_NE(state.graphics.patternMemory, patternMemory);
        leave();
        EXPECT_FALSE(dialog->isVisible());
        dialog.reset();
        EXPECT_EQ(state.store.pahTileLoadType2.currentRoom(), 1U);
        EXPECT_EQ(state.graphics.patternMemory, patternMemory);
        EXPECT_EQ(state.currentRoom(), 1);
    }
}

TEST_F(MainMapEditorDialogTest, BoxThatIsTypedInMayGoWithTheWindow)
{
    openIn(kAreaMode);
    type(kChopper, "02");
    QTest::keyClick(&edit(kChopper), Qt::Key_Escape);
    dialog.reset();
    EXPECT_EQ(bytesAt(overworld::kMovement + 12, 1), (Bytes{0x2E}));
}

TEST_F(MainMapEditorDialogTest, MenuOpensIt)
{
    MainDialog window(state, prompt);
    window.show();
    bool opened = false;
    onceModal<MainMapEditorDialog>([&](MainMapEditorDialog& editor) {
        opened = true;
        EXPECT_EQ(editor.parent(), &window);
        EXPECT_EQ(state.store.pahTileLoadType2.currentRoom(), 111U);
        QTest::keyClick(&editor, Qt::Key_Escape);
    });
    auto* command = window.findChild<QAction*>("mainMapEditorAction");
    EXPECT_TRUE(command->isEnabled());
    command->trigger();
    EXPECT_TRUE(opened);
    EXPECT_EQ(state.store.pahTileLoadType2.currentRoom(), 0U);
}

// Damaged games

class DamagedOverworldTest : public MainMapEditorDialogTest {
protected:
    // Uses everything once, and expects whatever is refused to be told.
    void useAll()
    {
        openIn(kAreaMode);
        drag(kArea, slider(kArea).maximum());
        drag(kMovement, slider(kMovement).maximum());
        type(kChopper, "7");
        type(kSecondDigit, "7");
        pressArrow(kPreviewSpin, true);
        clickMap({467, 323});
        click(kMovementMinus);
        click(kTruckMode);
        drag(kTruck, slider(kTruck).maximum());
        drag(kStartingArea, 15);
        drag(kPatternSet, slider(kPatternSet).maximum());
        drag(kPhase, slider(kPhase).maximum());
        QTest::mouseClick(&direction(2), Qt::LeftButton);
        click(kPhaseMinus);
        clickPicture(control<PictureView>(kPresetPicker), {255, 255});
        clickMap({0, 0});
        click(kPaletteMode);
        clickMap({467, 323}, Qt::RightButton);
        EXPECT_EQ(image().size(), game.bytes.size());
    }
};

TEST_F(DamagedOverworldTest, NoAreasOrTrucks)
{
    for (const std::uint32_t number : {0U, 0xFFFFFFFFU}) {
        for (const MiscField field : {MiscField::areas, MiscField::numOfMapTrucks}) {
            start();
            setValue(field, number);
            useAll();
        }
    }
}

TEST_F(DamagedOverworldTest, RangesOfAbsurdNumbers)
{
    setValue(MiscField::areas, 0);
    setValue(MiscField::numOfMapTrucks, 0);
    open();
    EXPECT_EQ(slider(kArea).maximum(), 0);
    EXPECT_EQ(slider(kTruck).maximum(), 0);
    setValue(MiscField::areas, 0xFFFFFFFF);
    setValue(MiscField::numOfMapTrucks, 0xFFFFFFFF);
    open();
    EXPECT_EQ(slider(kArea).maximum(), 255);
    EXPECT_EQ(slider(kTruck).maximum(), 255);
}

TEST_F(DamagedOverworldTest, NoTrucksCannotBeChanged)
{
    setValue(MiscField::numOfMapTrucks, 0);
    openIn(kTruckMode);
    drag(kStartingArea, 5);
    drag(kPatternSet, 2);
    QTest::mouseClick(&direction(2), Qt::LeftButton);
    click(kPhasePlus);
    click(kPhaseMinus);
    EXPECT_EQ(image(), game.bytes);
    EXPECT_EQ(textOf(kStartingAreaValue) + textOf(kPatternSetValue), "00");
    EXPECT_EQ(slider(kStartingArea).value(), 0) << "it springs back";
    EXPECT_EQ(litDirection(), 4) << "nor does the pad show what was not written";
}

TEST_F(DamagedOverworldTest, TruckMayNameASetPastTheTable)
{
    state.rom.writeByte(overworld::kTrucks, 0xF0);
    openIn(kTruckMode);
    EXPECT_EQ(textOf(kPatternSetValue), "f");
    EXPECT_EQ(slider(kPatternSet).maximum(), 3);
    EXPECT_EQ(image(), loadedExcept(overworld::kTrucks, {0xF0}));
}

TEST_F(DamagedOverworldTest, PatternWithoutAnEndHas256Phases)
{
    Bytes endless(0x200);
    game.write(overworld::kPatterns, endless);
    start();
    openIn(kTruckMode);
    EXPECT_EQ(slider(kPhase).maximum(), 255);
    useAll();
}

TEST_F(DamagedOverworldTest, MovementBlocksOfOddLength)
{
    for (const std::uint8_t count :
         {std::uint8_t{0}, std::uint8_t{1}, std::uint8_t{3}, std::uint8_t{255}}) {
        start();
        state.rom.writeByte(overworld::kMovement, count);
        state.rom.writeByte(overworld::kMovement + 10, count);
        useAll();
    }
}

TEST_F(DamagedOverworldTest, TablesPastTheFile)
{
    for (const std::uint32_t value : {0U, 0x7FFFFFFFU, 0xFFFFFFF0U}) {
        start();
        for (const MiscField field :
             {MiscField::ptrMapAreaXY, MiscField::ptrMapTruckInit, MiscField::ptrMapPalette,
              MiscField::ptrMapTileMap, MiscField::ptrMapPathPreviewSpriteAddr,
              MiscField::ptrMapQuadSpriteTable, MiscField::ptrMapAttributeTable})
            setValue(field, value);
        useAll();
    }
}

TEST_F(DamagedOverworldTest, PatternsAnywhere)
{
    for (const MiscField field :
         {MiscField::bpahTruckMovement_bank, MiscField::bpahTruckMovement_dMemStart,
          MiscField::bpahTruckMovement_dMemEdge, MiscField::bpahTruckMovement_pMemStart,
          MiscField::bpahTruckMovement_pMemEdge}) {
        for (const std::uint32_t value : {0U, 0xFFFFFFF0U}) {
            start();
            setValue(field, value);
            useAll();
        }
    }
}

} // namespace
} // namespace velko::test::main_map_editor
