#include "tools/main_map_editor_dialog.h"

#include "app/arrow_spin.h"
#include "app/hex_edit.h"
#include "app/main_dialog.h"
#include "app/picture_view.h"
#include "tests/gui/modal_helper.h"
#include "tests/gui/page_support.h"
#include "tests/support/scripted_prompt.h"
#include "tests/tools/overworld_rom.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>
#include <gtest/gtest.h>
#include <memory>
#include <set>

namespace velko {
namespace {

using test::Bytes;
using test::TestRom;
namespace overworld = test::overworld;

// The template's numbers of the controls.
enum Control {
    kMap = 1026,
    kTilePicker = 1180,
    kPresetPicker = 1183,
    kTileMode = 1181,
    kPresetMode = 1182,
    kPaletteMode = 1184,
    kAreaMode = 1185,
    kTruckMode = 1187,
    kArea = 1192,
    kAreaValue = 1126,
    kMovement = 1186,
    kMovementPlus = 1195,
    kMovementMinus = 1196,
    kChopper = 1120,
    kChopperSpin = 1003,
    kPreview = 1121,
    kPreviewSpin = 1004,
    kFirstDigit = 1122,
    kSecondDigit = 1123,
    kTruck = 1188,
    kStartingArea = 1190,
    kStartingAreaValue = 1124,
    kPatternSet = 1191,
    kPatternSetValue = 1125,
    kPhase = 1189,
    kPhasePlus = 1197,
    kPhaseMinus = 1198,
    kClose = 1,
};
constexpr int kFirstDirection = 1199; // to 1206: top left, top, top right, left, right, ...
constexpr int kAreaControls[] = {kArea,       kAreaValue,  kMovementPlus, kMovementMinus,
                                 kChopper,    kPreview,    kChopperSpin,  kPreviewSpin,
                                 kFirstDigit, kSecondDigit};
constexpr int kTruckControls[] = {kTruck,
                                  kStartingArea,
                                  kStartingAreaValue,
                                  kPatternSet,
                                  kPatternSetValue,
                                  kPhase,
                                  kPhasePlus,
                                  kPhaseMinus,
                                  1199,
                                  1200,
                                  1201,
                                  1202,
                                  1203,
                                  1204,
                                  1205,
                                  1206};

constexpr const char* kNoEntrySpace = "not enough free space. (remove movements from other areas.)";
constexpr const char* kNoPhaseSpace =
    "not enough free space. (remove one or more movement phase from other truck patterns.)";

// The room draws its background tiles in pixel value 1, the overworld its tile 0 in value 2 and its
// tile 1 in value 3. Colour number c of map palette p is 4 p + c.
class MainMapEditorDialogTest : public test::OverworldTest {
protected:
    MainMapEditorDialogTest()
    {
        Bytes ones;
        for (int i = 0; i < 4; ++i) {
            const Bytes tile = test::solidTile(1);
            ones.insert(ones.end(), tile.begin(), tile.end());
        }
        game.setBackgroundBlock(0, 0, ones);
        game.setType2Loads(111, {9});
        game.setLoadRecord(9, 0, 0x1000, 2);
        game.setType2Graphics(0, test::solidTile(2));
        game.setType2Graphics(16, test::solidTile(3));
        Bytes colours(32);
        for (std::uint8_t i = 0; i < 32; ++i)
            colours[i] = i;
        game.write(overworld::kPalettes, colours);
        const Bytes chunk = {11, 12, 13, 14};
        std::copy(chunk.begin(), chunk.end(), game.config.gameMapTileChunks.begin() + 4);
        start();
    }

    MainMapEditorDialog& open()
    {
        dialog.reset();
        dialog = std::make_unique<MainMapEditorDialog>(state, prompt);
        dialog->resize(1100, 720); // all of it
        test::showActive(*dialog);
        return *dialog;
    }
    void openIn(int mode)
    {
        open();
        click(mode);
    }

    template <typename Widget = QWidget> Widget& control(int id) const
    {
        return test::controlOf<Widget>(*dialog, id);
    }
    QSlider& slider(int id) const { return control<QSlider>(id); }
    HexEdit& edit(int id) const { return control<HexEdit>(id); }
    QString textOf(int id) const { return control<QLineEdit>(id).text(); }
    QAbstractButton& direction(int place) const
    {
        return control<QAbstractButton>(kFirstDirection + place);
    }
    // The place of the lit direction button; -1 for none or several.
    int litDirection() const
    {
        int lit = -1;
        for (int place = 0; place < 8; ++place) {
            if (direction(place).isChecked())
                lit = lit == -1 ? place : -2;
        }
        return lit;
    }

    void click(int id) const
    {
        auto& button = control<QAbstractButton>(id);
        QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(8, button.height() / 2));
    }
    void drag(int id, int value) const
    {
        slider(id).setSliderDown(true);
        slider(id).setSliderPosition(value);
        slider(id).setSliderDown(false);
    }
    void type(int id, const char* text) const
    {
        edit(id).setFocus();
        edit(id).selectAll();
        QTest::keyClicks(&edit(id), text);
    }
    void pressArrow(int spinId, bool up) const
    {
        auto& spin = control<ArrowSpin>(spinId);
        QTest::mouseClick(&spin, Qt::LeftButton, {},
                          QPoint(spin.width() / 2, spin.height() * (up ? 1 : 3) / 4));
    }

    PictureView& map() const { return control<PictureView>(kMap); }
    static QPoint inWidget(QPoint point)
    {
        return point + QPoint(PictureView::kFrame, PictureView::kFrame);
    }
    // The middle of a tile of the shown map.
    static QPoint cell(int column, int row) { return {18 * column + 9, 18 * row + 9}; }
    void clickMap(QPoint point, Qt::MouseButton button = Qt::LeftButton) const
    {
        QTest::mouseClick(&map(), button, {}, inWidget(point));
    }
    void moveOnMap(QPoint point, Qt::MouseButtons buttons) const
    {
        const QPointF at = inWidget(point);
        QMouseEvent move(QEvent::MouseMove, at, map().mapToGlobal(at), Qt::NoButton, buttons, {});
        QApplication::sendEvent(&map(), &move);
    }
    Pixel mapPixel(QPoint point) const
    {
        return map().picture().at(static_cast<std::uint32_t>(point.x()),
                                  static_cast<std::uint32_t>(point.y()));
    }
    // Where the tile of a cell is stored.
    static std::uint32_t tileOffset(std::uint32_t column, std::uint32_t row)
    {
        return overworld::kTiles + row * 26 + column;
    }
    void expectEnabled(std::span<const int> controls, bool enabled) const
    {
        for (const int id : controls)
            EXPECT_EQ(control(id).isEnabled(), enabled) << id;
    }

    test::ScriptedPrompt prompt;
    std::unique_ptr<MainMapEditorDialog> dialog;
};

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

// Areas

TEST_F(MainMapEditorDialogTest, AreaSliderShowsTheAreasFields)
{
    openIn(kAreaMode);
    EXPECT_EQ(textOf(kAreaValue), "0");
    EXPECT_EQ(textOf(kChopper) + textOf(kPreview) + textOf(kFirstDigit) + textOf(kSecondDigit),
              "def0");
    EXPECT_FALSE(slider(kMovement).isEnabled()) << "one entry only";
    drag(kArea, 1);
    EXPECT_EQ(textOf(kAreaValue), "1");
    EXPECT_TRUE(slider(kMovement).isEnabled());
    EXPECT_EQ(slider(kMovement).maximum(), 1);
    EXPECT_EQ(textOf(kChopper) + textOf(kPreview) + textOf(kFirstDigit) + textOf(kSecondDigit),
              "1234");
    EXPECT_EQ(control<ArrowSpin>(kChopperSpin).position(), 1);
    EXPECT_EQ(control<ArrowSpin>(kPreviewSpin).position(), 2);
    EXPECT_EQ(state.store.pahMapAreaMovement.currentRoom(), 1U);

    drag(kMovement, 1);
    EXPECT_EQ(textOf(kChopper) + textOf(kPreview) + textOf(kFirstDigit) + textOf(kSecondDigit),
              "5678");
    drag(kArea, 2);
    EXPECT_EQ(slider(kMovement).value(), 0) << "another area starts at its first entry";
    EXPECT_EQ(textOf(kChopper), "9");
}

TEST_F(MainMapEditorDialogTest, ManyAreasAreShownInHexadecimal)
{
    state.config.setValue(MiscField::areas, 20);
    openIn(kAreaMode);
    EXPECT_EQ(slider(kArea).maximum(), 20);
    drag(kArea, 18);
    EXPECT_EQ(textOf(kAreaValue), "12");
}

TEST_F(MainMapEditorDialogTest, MovementSliderIsOnlyForAreaMode)
{
    openIn(kAreaMode);
    drag(kArea, 1);
    EXPECT_TRUE(slider(kMovement).isEnabled());
    click(kTruckMode);
    EXPECT_FALSE(slider(kMovement).isEnabled());
    click(kAreaMode);
    EXPECT_TRUE(slider(kMovement).isEnabled());
}

TEST_F(MainMapEditorDialogTest, EditsWriteTheNibblesOfTheEntry)
{
    openIn(kAreaMode);
    drag(kArea, 1);
    drag(kMovement, 1);
    type(kChopper, "c");
    EXPECT_EQ(image(), loadedExcept(overworld::kMovement + 4, {0xC6, 0x78}));
    type(kPreview, "1f"); // the last digit counts
    EXPECT_EQ(image(), loadedExcept(overworld::kMovement + 4, {0xCF, 0x78}));
    type(kFirstDigit, "0xA");
    EXPECT_EQ(image(), loadedExcept(overworld::kMovement + 4, {0xCF, 0xA8}));
    type(kSecondDigit, "9");
    EXPECT_EQ(image(), loadedExcept(overworld::kMovement + 4, {0xCF, 0xA9}));
    EXPECT_EQ(control<ArrowSpin>(kChopperSpin).position(), 12);
    EXPECT_EQ(control<ArrowSpin>(kPreviewSpin).position(), 15);
}

TEST_F(MainMapEditorDialogTest, EmptiedEditIsZero)
{
    openIn(kAreaMode);
    edit(kChopper).setFocus();
    edit(kChopper).selectAll();
    QTest::keyClick(&edit(kChopper), Qt::Key_Delete);
    EXPECT_EQ(bytesAt(overworld::kMovement + 12, 2), (Bytes{0x0E, 0xF0}));
    QTest::keyClick(&edit(kChopper), Qt::Key_7);
    EXPECT_EQ(bytesAt(overworld::kMovement + 12, 2), (Bytes{0x7E, 0xF0}));
}

TEST_F(MainMapEditorDialogTest, SecondDigitTakesThePlaceOfTheFirstAtOnce)
{
    openIn(kAreaMode);
    edit(kChopper).setFocus();
    QTest::keyClick(&edit(kChopper), Qt::Key_End);
    QTest::keyClicks(&edit(kChopper), "5"); // behind the d
    EXPECT_EQ(textOf(kChopper), "5");
    QTest::keyClicks(&edit(kChopper), "A");
    EXPECT_EQ(textOf(kChopper), "a");
    EXPECT_EQ(bytesAt(overworld::kMovement + 12, 2), (Bytes{0xAE, 0xF0}));
    for (const int id : {kPreview, kFirstDigit, kSecondDigit}) {
        type(id, "12");
        EXPECT_EQ(textOf(id), "2") << id;
    }
    EXPECT_EQ(bytesAt(overworld::kMovement + 12, 2), (Bytes{0xA2, 0x22}));
}

TEST_F(MainMapEditorDialogTest, EditEndsUpWithItsDigit)
{
    openIn(kAreaMode);
    type(kPreview, "0x2");
    EXPECT_EQ(textOf(kPreview), "0x2");
    QTest::keyClick(&edit(kPreview), Qt::Key_Tab);
    EXPECT_EQ(textOf(kPreview), "2");
    EXPECT_EQ(bytesAt(overworld::kMovement + 12, 2), (Bytes{0xD2, 0xF0}));
}

TEST_F(MainMapEditorDialogTest, EnterEndsTypingAndNotTheWindow)
{
    openIn(kAreaMode);
    type(kPreview, "02");
    QTest::keyClick(&edit(kPreview), Qt::Key_Return);
    EXPECT_EQ(textOf(kPreview), "2");
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(MainMapEditorDialogTest, SpinsStepTheirSprites)
{
    openIn(kAreaMode);
    pressArrow(kChopperSpin, true);
    EXPECT_EQ(bytesAt(overworld::kMovement + 12, 2), (Bytes{0xEE, 0xF0}));
    EXPECT_EQ(textOf(kChopper), "e");
    pressArrow(kChopperSpin, true);
    pressArrow(kChopperSpin, true); // 15 is the last
    pressArrow(kPreviewSpin, false);
    EXPECT_EQ(bytesAt(overworld::kMovement + 12, 2), (Bytes{0xFD, 0xF0}));
    EXPECT_EQ(textOf(kChopper) + textOf(kPreview), "fd");
}

TEST_F(MainMapEditorDialogTest, EntryIsAddedBehindTheCurrentOne)
{
    openIn(kAreaMode);
    drag(kArea, 1);
    click(kMovementPlus);
    EXPECT_EQ(
        bytesAt(overworld::kMovement, 16),
        (Bytes{6, 0x77, 0x12, 0x34, 0, 0, 0x56, 0x78, 2, 0x88, 0x9A, 0xBC, 2, 0x99, 0xDE, 0xF0}));
    EXPECT_EQ(slider(kMovement).maximum(), 2);
    EXPECT_EQ(slider(kMovement).value(), 0);
    drag(kArea, 2);
    EXPECT_EQ(textOf(kChopper), "9") << "the areas above follow";
}

TEST_F(MainMapEditorDialogTest, FullMovementRegionIsTold)
{
    openIn(kAreaMode);
    for (int i = 0; i < 5; ++i)
        click(kMovementPlus);
    EXPECT_EQ(slider(kMovement).maximum(), 5);
    const Bytes full = image();
    prompt.expect(kNoEntrySpace);
    click(kMovementPlus);
    EXPECT_TRUE(prompt.done());
    EXPECT_EQ(image(), full);
}

TEST_F(MainMapEditorDialogTest, EntryIsRemovedAndTheFirstShown)
{
    openIn(kAreaMode);
    drag(kArea, 1);
    drag(kMovement, 1);
    click(kMovementMinus);
    EXPECT_EQ(bytesAt(overworld::kMovement, 8), (Bytes{2, 0x77, 0x12, 0x34, 2, 0x88, 0x9A, 0xBC}));
    EXPECT_EQ(slider(kMovement).value(), 0);
    EXPECT_FALSE(slider(kMovement).isEnabled());
    EXPECT_EQ(textOf(kChopper), "1");
}

TEST_F(MainMapEditorDialogTest, OnlyEntryOfAnAreaStays)
{
    openIn(kAreaMode);
    click(kMovementMinus);
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(MainMapEditorDialogTest, ClickPlacesTheArea)
{
    openIn(kAreaMode);
    drag(kArea, 2);
    // 100 display pixels are 44 of the map; 44 + 26 is 70, rounded down to 64.
    clickMap({100, 200}); // 88 + 26 is 114: 112
    EXPECT_EQ(image(), loadedExcept(overworld::kAreas + 4, {64, 112}));
    QTest::mousePress(&map(), Qt::LeftButton, {}, inWidget({100, 200}));
    moveOnMap({467, 323}, Qt::LeftButton); // 207 + 26: 232, 143 + 26: 168
    EXPECT_EQ(image(), loadedExcept(overworld::kAreas + 4, {232, 168}));
    moveOnMap({468, 323}, Qt::LeftButton);
    moveOnMap({100, -1}, Qt::LeftButton);
    clickMap({30, 30}, Qt::RightButton);
    EXPECT_EQ(image(), loadedExcept(overworld::kAreas + 4, {232, 168}));
}

TEST_F(MainMapEditorDialogTest, CurrentAreaIsFramed)
{
    openIn(kAreaMode);
    const auto isFramed = [this](int centreX, int centreY) {
        // The frame is 22 map pixels high; its second and third rows are white.
        const QPoint inFrame(centreX * 468 / 208, (centreY - 10) * 324 / 144 + 1);
        return mapPixel(inFrame) == 0xFFFFFF;
    };
    EXPECT_TRUE(isFramed(40, 48));
    EXPECT_FALSE(isFramed(104, 48));
    drag(kArea, 1);
    EXPECT_FALSE(isFramed(40, 48));
    EXPECT_TRUE(isFramed(104, 48));
    click(kTileMode);
    EXPECT_FALSE(isFramed(104, 48));
}

// Trucks

TEST_F(MainMapEditorDialogTest, TruckSliderShowsTheTrucksFields)
{
    openIn(kTruckMode);
    EXPECT_EQ(litDirection(), 4) << "right";
    drag(kTruck, 2);
    EXPECT_EQ(slider(kStartingArea).value(), 2);
    EXPECT_EQ(textOf(kStartingAreaValue), "2");
    EXPECT_EQ(slider(kPatternSet).value(), 2);
    EXPECT_EQ(textOf(kPatternSetValue), "2");
    EXPECT_EQ(slider(kPhase).maximum(), 1);
    EXPECT_EQ(litDirection(), 1) << "up";
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(MainMapEditorDialogTest, EachDirectionLightsItsButton)
{
    // Codes 0 to 7, and 15, which is taken modulo 8.
    const int places[] = {4, 7, 6, 5, 3, 0, 1, 2};
    for (int code = 0; code < 8; ++code) {
        state.rom.writeByte(overworld::kPatterns, static_cast<std::uint8_t>(code));
        openIn(kTruckMode);
        EXPECT_EQ(litDirection(), places[code]) << code;
    }
    state.rom.writeByte(overworld::kPatterns, 0x0F);
    openIn(kTruckMode);
    EXPECT_EQ(litDirection(), 2);
}

TEST_F(MainMapEditorDialogTest, StartingAreaIsTheLowNibble)
{
    openIn(kTruckMode);
    drag(kTruck, 1);
    drag(kStartingArea, 15);
    EXPECT_EQ(image(), loadedExcept(overworld::kTrucks + 1, {0x1F}));
    EXPECT_EQ(textOf(kStartingAreaValue), "f");
    EXPECT_EQ(textOf(kPatternSetValue), "1");
}

TEST_F(MainMapEditorDialogTest, PatternSetIsTheHighNibble)
{
    openIn(kTruckMode);
    drag(kTruck, 2);
    drag(kPhase, 1);
    EXPECT_EQ(litDirection(), 2);
    drag(kPatternSet, 0);
    EXPECT_EQ(image(), loadedExcept(overworld::kTrucks + 2, {0x02}));
    EXPECT_EQ(slider(kPhase).value(), 0) << "another set starts at its first phase";
    EXPECT_EQ(slider(kPhase).maximum(), 2);
    EXPECT_EQ(textOf(kPatternSetValue), "0");
}

TEST_F(MainMapEditorDialogTest, DirectionKeepsTheEndMark)
{
    openIn(kTruckMode);
    QTest::mouseClick(&direction(0), Qt::LeftButton); // top left
    EXPECT_EQ(image(), loadedExcept(overworld::kPatterns, {0x05}));
    EXPECT_EQ(litDirection(), 0);
    drag(kPhase, 2);
    QTest::mouseClick(&direction(7), Qt::LeftButton); // bottom right
    EXPECT_EQ(image(), loadedExcept(overworld::kPatterns, {0x05, 0x01, 0x81}));
}

TEST_F(MainMapEditorDialogTest, PhaseAddedToTheEndBecomesTheLast)
{
    openIn(kTruckMode);
    drag(kPhase, 2);
    click(kPhasePlus);
    EXPECT_EQ(bytesAt(overworld::kPatterns, 9),
              (Bytes{0x00, 0x01, 0x02, 0x82, 0x84, 0x06, 0x87, 0x03, 0x85}));
    EXPECT_EQ(bytesAt(overworld::kPatternTable, 4), (Bytes{0, 4, 5, 7}));
    EXPECT_EQ(slider(kPhase).maximum(), 3);
    EXPECT_EQ(slider(kPhase).value(), 2);

    drag(kPhase, 3);
    click(kPhaseMinus);
    EXPECT_EQ(image(), game.bytes) << "the mark is back where it was";
    EXPECT_EQ(slider(kPhase).maximum(), 2);
    EXPECT_EQ(slider(kPhase).value(), 2);
}

TEST_F(MainMapEditorDialogTest, OtherPatternsKeepTheirPhases)
{
    openIn(kTruckMode);
    click(kPhasePlus);
    drag(kTruck, 1);
    EXPECT_EQ(litDirection(), 3) << "left";
    EXPECT_EQ(slider(kPhase).maximum(), 0);
    drag(kTruck, 2);
    EXPECT_EQ(litDirection(), 1);
    EXPECT_EQ(slider(kPhase).maximum(), 1);
}

TEST_F(MainMapEditorDialogTest, OnlyPhaseOfAPatternStays)
{
    openIn(kTruckMode);
    drag(kTruck, 1);
    click(kPhaseMinus);
    EXPECT_EQ(image(), game.bytes);
}

TEST_F(MainMapEditorDialogTest, FullPatternRegionIsTold)
{
    openIn(kTruckMode);
    for (int i = 0; i < 4; ++i)
        click(kPhasePlus);
    const Bytes full = image();
    prompt.expect(kNoPhaseSpace);
    click(kPhasePlus);
    EXPECT_TRUE(prompt.done());
    EXPECT_EQ(image(), full);
    EXPECT_EQ(slider(kPhase).maximum(), 6);
}

TEST_F(MainMapEditorDialogTest, UnknownFreeSpaceIsTold)
{
    state.config.setValue(MiscField::bpahTruckMovement_pMemEdge, 0x8600); // no pattern sets
    openIn(kTruckMode);
    const Bytes before = image();
    prompt.expect(kNoPhaseSpace);
    click(kPhasePlus);
    click(kPhaseMinus);
    EXPECT_EQ(image(), before);
}

TEST_F(MainMapEditorDialogTest, PathOfTheTruckIsDrawn)
{
    openIn(kTruckMode);
    // From area 0, whose centre is (40, 48), to the right as far as area 1.
    EXPECT_EQ(mapPixel({72 * 468 / 208, 48 * 324 / 144}), 0x4040FFU);
    drag(kPhase, 1);
    EXPECT_EQ(mapPixel({72 * 468 / 208, 48 * 324 / 144}), 0xFF4040U);
}

// The mouse on the map

TEST_F(MainMapEditorDialogTest, LeftButtonPaintsTheTile)
{
    open();
    QTest::mouseClick(&control(kTilePicker), Qt::LeftButton, {}, inWidget({24, 8})); // tile 1
    clickMap(cell(3, 2));
    EXPECT_EQ(image(), loadedExcept(tileOffset(3, 2), {1}));
    EXPECT_EQ(mapPixel(cell(3, 2)), TestRom::colour(3));
    QTest::mousePress(&map(), Qt::LeftButton, {}, inWidget(cell(3, 2)));
    moveOnMap(cell(4, 2), Qt::LeftButton);
    moveOnMap(cell(5, 2), Qt::LeftButton);
    moveOnMap(cell(6, 2), Qt::NoButton);
    EXPECT_EQ(image(), loadedExcept(tileOffset(3, 2), {1, 1, 1}));
}

TEST_F(MainMapEditorDialogTest, EdgesOfTheMapArePaintedAndNothingBeyond)
{
    open();
    QTest::mouseClick(&control(kTilePicker), Qt::LeftButton, {}, inWidget({24, 8}));
    clickMap({467, 323});
    EXPECT_EQ(image(), loadedExcept(tileOffset(25, 17), {1}));
    for (const QPoint& point : {QPoint(468, 323), QPoint(467, 324), QPoint(-1, 0), QPoint(0, -1)}) {
        clickMap(point);
        moveOnMap(point, Qt::LeftButton);
    }
    EXPECT_EQ(image(), loadedExcept(tileOffset(25, 17), {1}));
}

TEST_F(MainMapEditorDialogTest, ButtonHeldActsWhereverItWentDown)
{
    open();
    const auto inWindow = [this](QPoint point) { return map().mapTo(dialog.get(), point); };
    const auto moveInWindow = [&](QPoint point, Qt::MouseButtons buttons) {
        const QPointF at = inWindow(inWidget(point));
        QMouseEvent move(QEvent::MouseMove, at, at, dialog->mapToGlobal(at), Qt::NoButton, buttons,
                         {});
        QApplication::sendEvent(dialog->windowHandle(), &move);
    };
    // From the empty part of the window beside the map.
    const QPoint beside = inWindow({map().width() + 10, 200});
    QTest::mousePress(dialog->windowHandle(), Qt::LeftButton, {}, beside);
    EXPECT_EQ(image(), game.bytes);
    game.write(tileOffset(0, 0), {1});
    start();
    moveInWindow(cell(0, 0), Qt::RightButton); // picks tile 1
    moveInWindow(cell(25, 3), Qt::LeftButton);
    moveInWindow({470, 63}, Qt::LeftButton); // out again
    moveInWindow(cell(24, 3), Qt::NoButton);
    QTest::mouseRelease(dialog->windowHandle(), Qt::LeftButton, {}, beside);
    EXPECT_EQ(image(), loadedExcept(tileOffset(25, 3), {1}));
    // From a picker: the tile is carried onto the map.
    const QPoint picked = control(kTilePicker).mapTo(dialog.get(), inWidget({40, 8})); // tile 2
    QTest::mousePress(dialog->windowHandle(), Qt::LeftButton, {}, picked);
    moveInWindow(cell(24, 3), Qt::LeftButton);
    QTest::mouseRelease(dialog->windowHandle(), Qt::LeftButton, {}, picked);
    EXPECT_EQ(image(), loadedExcept(tileOffset(24, 3), {2, 1}));
}

TEST_F(MainMapEditorDialogTest, MapThatIsScrolledOutOfSightIsNotDrawnOn)
{
    open().resize(400, 300);
    QTest::qWait(0);
    auto* close = &control(kClose);
    const QPointF at = close->mapTo(dialog.get(), QPoint(-20, close->height() / 2));
    ASSERT_TRUE(map().rect().contains(map().mapFrom(dialog.get(), at.toPoint())));
    QMouseEvent move(QEvent::MouseMove, at, dialog->mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                     {});
    state.rom.writeByte(overworld::kTiles, 0x7E);
    clickMap(cell(0, 0), Qt::RightButton);
    const Bytes before = image();
    QApplication::sendEvent(dialog.get(), &move);
    EXPECT_EQ(image(), before);
}

TEST_F(MainMapEditorDialogTest, RightButtonPicksTheTile)
{
    game.bytes[tileOffset(7, 7)] = 0x35;
    start();
    open();
    clickMap(cell(7, 7), Qt::RightButton);
    EXPECT_EQ(image(), game.bytes);
    clickMap(cell(0, 0));
    EXPECT_EQ(image(), loadedExcept(tileOffset(0, 0), {0x35}));
    // Tile $35 is the sixth of the fourth row in the picker.
    EXPECT_EQ(control<PictureView>(kTilePicker).picture().at(5 * 16, 3 * 16), 0x000000U);
}

TEST_F(MainMapEditorDialogTest, PresetIsPlacedAndCutOffAtTheEdges)
{
    openIn(kPresetMode);
    const QPoint second = inWidget({40, 10}); // few presets have large cells
    QTest::mouseClick(&control(kPresetPicker), Qt::LeftButton, {}, second);
    clickMap(cell(3, 4));
    EXPECT_EQ(bytesAt(tileOffset(3, 4), 2), (Bytes{11, 13}));
    EXPECT_EQ(bytesAt(tileOffset(3, 5), 2), (Bytes{12, 14}));
    clickMap(cell(25, 17));
    EXPECT_EQ(bytesAt(tileOffset(25, 17), 2), (Bytes{11, 0}));
    clickMap(cell(8, 8), Qt::RightButton);
    EXPECT_EQ(bytesAt(tileOffset(8, 8), 1), (Bytes{0}));
}

TEST_F(MainMapEditorDialogTest, ButtonsStepThePalette)
{
    openIn(kPaletteMode);
    clickMap(cell(1, 1)); // column 4, row 4 of the table's tiles: the first quarter of byte 9
    EXPECT_EQ(image(), loadedExcept(overworld::kAttributes + 9, {0x01}));
    EXPECT_EQ(mapPixel(cell(1, 1)), TestRom::colour(6));
    EXPECT_EQ(mapPixel(cell(0, 0)), TestRom::colour(2));
    clickMap(cell(1, 1), Qt::RightButton);
    clickMap(cell(1, 1), Qt::RightButton);
    EXPECT_EQ(image(), loadedExcept(overworld::kAttributes + 9, {0x03}));
}

TEST_F(MainMapEditorDialogTest, DragStepsEachPaletteOnce)
{
    openIn(kPaletteMode);
    QTest::mousePress(&map(), Qt::LeftButton, {}, inWidget(cell(1, 1)));
    moveOnMap(cell(2, 1), Qt::LeftButton); // the same 16 x 16 pixels
    moveOnMap(cell(3, 1), Qt::LeftButton); // the next
    moveOnMap(cell(4, 2), Qt::LeftButton);
    EXPECT_EQ(image(), loadedExcept(overworld::kAttributes + 9, {0x05}));
    clickMap(cell(4, 2)); // a press always steps
    EXPECT_EQ(image(), loadedExcept(overworld::kAttributes + 9, {0x09}));
}

TEST_F(MainMapEditorDialogTest, BothButtonsHeldActOneAfterTheOther)
{
    openIn(kPaletteMode);
    moveOnMap(cell(1, 1), Qt::LeftButton | Qt::RightButton);
    EXPECT_EQ(image(), game.bytes) << "one forth, one back";
}

TEST_F(MainMapEditorDialogTest, TruckModeLeavesTheMapAlone)
{
    openIn(kTruckMode);
    clickMap(cell(3, 3));
    clickMap(cell(3, 3), Qt::RightButton);
    moveOnMap(cell(4, 3), Qt::LeftButton);
    EXPECT_EQ(image(), game.bytes);
}

// Pickers

TEST_F(MainMapEditorDialogTest, PickersSwitchToTheirModes)
{
    openIn(kTruckMode);
    QTest::mouseClick(&control(kPresetPicker), Qt::LeftButton, {}, inWidget({40, 10}));
    EXPECT_TRUE(control<QRadioButton>(kPresetMode).isChecked());
    expectEnabled(kTruckControls, false);
    QTest::mouseClick(&control(kTilePicker), Qt::LeftButton, {}, inWidget({24, 8}));
    EXPECT_TRUE(control<QRadioButton>(kTileMode).isChecked());
    clickMap(cell(0, 0));
    EXPECT_EQ(bytesAt(tileOffset(0, 0), 2), (Bytes{1, 0}));
}

TEST_F(MainMapEditorDialogTest, EmptyCellsOfThePresetPickerAndTheRightButtonPickNothing)
{
    openIn(kTruckMode);
    QTest::mouseClick(&control(kPresetPicker), Qt::LeftButton, {}, inWidget({240, 240}));
    QTest::mouseClick(&control(kTilePicker), Qt::RightButton, {}, inWidget({24, 8}));
    EXPECT_TRUE(control<QRadioButton>(kTruckMode).isChecked());
}

TEST_F(MainMapEditorDialogTest, ArrowKeysMoveInThePickers)
{
    open();
    const auto pressInPicker = [this](int picker, std::initializer_list<Qt::Key> keys) {
        for (const Qt::Key key : keys)
            QTest::keyClick(&control(picker), key);
    };
    pressInPicker(kTilePicker, {Qt::Key_Left, Qt::Key_Up}); // there is nothing
    pressInPicker(kTilePicker, {Qt::Key_Down, Qt::Key_Right, Qt::Key_Right, Qt::Key_Left});
    clickMap(cell(0, 0));
    EXPECT_EQ(bytesAt(tileOffset(0, 0), 1), (Bytes{0x11}));
    pressInPicker(kTilePicker, {Qt::Key_Left, Qt::Key_Left}); // not on to the row above
    clickMap(cell(0, 0));
    EXPECT_EQ(bytesAt(tileOffset(0, 0), 1), (Bytes{0x10}));
    pressInPicker(kPresetPicker, {Qt::Key_Right, Qt::Key_Right, Qt::Key_Down});
    EXPECT_TRUE(control<QRadioButton>(kPresetMode).isChecked());
    clickMap(cell(0, 0));
    EXPECT_EQ(bytesAt(tileOffset(0, 0), 2), (Bytes{11, 13}));
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
        QTest::mouseClick(&map(), Qt::MiddleButton, {}, inWidget(cell(3, 3)));
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
    const auto turn = [this](int id) {
        const QPointF at(5, 5);
        QWheelEvent wheel(at, slider(id).mapToGlobal(at), {}, {0, 120}, {}, {}, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(&slider(id), &wheel);
    };
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
    test::onceModal<MainMapEditorDialog>([&](MainMapEditorDialog& editor) {
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
        QTest::mouseClick(&control(kPresetPicker), Qt::LeftButton, {}, inWidget({255, 255}));
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
} // namespace velko
