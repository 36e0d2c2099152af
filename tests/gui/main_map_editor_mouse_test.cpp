#include "tests/gui/main_map_editor_fixture.h"

#include <QApplication>
#include <QRadioButton>
#include <QWindow>

namespace velko::test::main_map_editor {
namespace {

// The mouse on the map

TEST_F(MainMapEditorDialogTest, LeftButtonPaintsTheTile)
{
    open();
    clickPicture(control<PictureView>(kTilePicker), {24, 8}); // tile 1
    clickMap(cell(3, 2));
    EXPECT_EQ(image(), loadedExcept(tileOffset(3, 2), {1}));
    EXPECT_EQ(mapPixel(cell(3, 2)), TestRom::colour(3));
    pressPicture(map(), cell(3, 2));
    moveOnMap(cell(4, 2), Qt::LeftButton);
    moveOnMap(cell(5, 2), Qt::LeftButton);
    moveOnMap(cell(6, 2), Qt::NoButton);
    EXPECT_EQ(image(), loadedExcept(tileOffset(3, 2), {1, 1, 1}));
}

TEST_F(MainMapEditorDialogTest, EdgesOfTheMapArePaintedAndNothingBeyond)
{
    open();
    clickPicture(control<PictureView>(kTilePicker), {24, 8});
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
    pressPicture(map(), cell(1, 1));
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
    clickPicture(control<PictureView>(kPresetPicker), {40, 10});
    EXPECT_TRUE(control<QRadioButton>(kPresetMode).isChecked());
    expectEnabled(kTruckControls, false);
    clickPicture(control<PictureView>(kTilePicker), {24, 8});
    EXPECT_TRUE(control<QRadioButton>(kTileMode).isChecked());
    clickMap(cell(0, 0));
    EXPECT_EQ(bytesAt(tileOffset(0, 0), 2), (Bytes{1, 0}));
}

TEST_F(MainMapEditorDialogTest, EmptyCellsOfThePresetPickerAndTheRightButtonPickNothing)
{
    openIn(kTruckMode);
    clickPicture(control<PictureView>(kPresetPicker), {240, 240});
    clickPicture(control<PictureView>(kTilePicker), {24, 8}, Qt::RightButton);
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

} // namespace
} // namespace velko::test::main_map_editor
