#pragma once

#include "tools/main_map_editor_dialog.h"

#include "app/arrow_spin.h"
#include "app/hex_edit.h"
#include "app/picture_view.h"
#include "tests/gui/page_support.h"
#include "tests/gui/picture_events.h"
#include "tests/support/scripted_prompt.h"
#include "tests/tools/overworld_rom.h"

#include <QSlider>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>

namespace velko::test::main_map_editor {

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
inline constexpr int kFirstDirection = 1199; // to 1206: top left, top, top right, left, right, ...
inline constexpr int kAreaControls[] = {kArea,       kAreaValue,  kMovementPlus, kMovementMinus,
                                        kChopper,    kPreview,    kChopperSpin,  kPreviewSpin,
                                        kFirstDigit, kSecondDigit};
inline constexpr int kTruckControls[] = {kTruck,
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

inline constexpr const char* kNoEntrySpace =
    "not enough free space. (remove movements from other areas.)";
inline constexpr const char* kNoPhaseSpace =
    "not enough free space. (remove one or more movement phase from other truck patterns.)";

// The room draws its background tiles in pixel value 1, the overworld its tile 0 in value 2 and its
// tile 1 in value 3. Colour number c of map palette p is 4 p + c.
class MainMapEditorDialogTest : public OverworldTest {
protected:
    MainMapEditorDialogTest()
    {
        Bytes ones;
        for (int i = 0; i < 4; ++i) {
            const Bytes tile = solidTile(1);
            ones.insert(ones.end(), tile.begin(), tile.end());
        }
        game.setBackgroundBlock(0, 0, ones);
        game.setType2Loads(111, {9});
        game.setLoadRecord(9, 0, 0x1000, 2);
        game.setType2Graphics(0, solidTile(2));
        game.setType2Graphics(16, solidTile(3));
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
        showActive(*dialog);
        return *dialog;
    }
    void openIn(int mode)
    {
        open();
        click(mode);
    }

    template <typename Widget = QWidget> Widget& control(int id) const
    {
        return controlOf<Widget>(*dialog, id);
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

    void click(int id) const { clickMark(control<QAbstractButton>(id)); }
    void drag(int id, int value) const
    {
        slider(id).setSliderDown(true);
        slider(id).setSliderPosition(value);
        slider(id).setSliderDown(false);
    }
    void type(int id, const char* text) const { typeInto(edit(id), text); }
    void pressArrow(int spinId, bool up) const
    {
        auto& spin = control<ArrowSpin>(spinId);
        QTest::mouseClick(&spin, Qt::LeftButton, {},
                          QPoint(spin.width() / 2, spin.height() * (up ? 1 : 3) / 4));
    }

    PictureView& map() const { return control<PictureView>(kMap); }
    // The middle of a tile of the shown map.
    static QPoint cell(int column, int row) { return {18 * column + 9, 18 * row + 9}; }
    void clickMap(QPoint point, Qt::MouseButton button = Qt::LeftButton) const
    {
        clickPicture(map(), point, button);
    }
    void moveOnMap(QPoint point, Qt::MouseButtons buttons) const
    {
        moveOverPicture(map(), point, buttons);
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

    ScriptedPrompt prompt;
    std::unique_ptr<MainMapEditorDialog> dialog;
};

} // namespace velko::test::main_map_editor
