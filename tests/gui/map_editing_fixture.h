#pragma once

#include "pages/map_editing_page.h"

#include "app/picture_view.h"
#include "gfx/resources.h"
#include "tests/gui/page_support.h"
#include "tests/gui/picture_events.h"
#include "tests/support/map_editing_rom.h"
#include "tests/support/scripted_prompt.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>

namespace velko::test::map_editing {

using Answer = ScriptedPrompt::Answer;

inline const std::string kNoMap =
    "This Room has no Map Layout data. (Height and Width are both 0). If you want to use this Room "
    "Id, please go to Data Management and use the \"Allocate unique data\" function under the "
    "\"Map layout\" category.";
inline const std::string kQuestion = "Convert and Write 16x16 Map Data to ROM first?";
inline const std::string kLimitWarning =
    "Surpassed Tile32 limit while converting. Max is 146. The Room will not look properly in the "
    "ROM until Tile32 usage is lowered to 146 or less. You should try to either make the room "
    "smaller, use a less amount of unique Tiles, or make the room design follow repeated patterns.";

inline constexpr const char* kModes[] = {"combinedMode", "graphicsMode", "paletteMode",
                                         "physicsMode"};

// Room pixels in the middle of cells that show without scrolling. The first screen of the room
// reaches to (255, 239), left of and below it is the second one.
inline constexpr QPoint kOnFirstScreen(8, 8);
inline constexpr QPoint kCell(8, 248); // the second screen's first cell
inline constexpr QPoint kNextCell(24, 248);
inline constexpr QPoint kThirdCell(40, 248);
inline constexpr QPoint kOnNoScreen(264, 248);

inline Pixel colour(std::uint32_t number)
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
        showPage(*page, {1100, 700});
    }

    template <typename Control> Control& control(const char* name) const
    {
        return controlOf<Control>(*page, name);
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
    void press(QPoint region, Qt::MouseButton button = Qt::LeftButton) const
    {
        pressPicture(map(), onMap(region), button);
    }
    void click(QPoint region, Qt::MouseButton button = Qt::LeftButton) const
    {
        clickPicture(map(), onMap(region), button);
    }
    void moveTo(QPoint picturePoint, Qt::MouseButtons held) const
    {
        moveOverPicture(map(), picturePoint, held);
    }
    void clickTile(int block) const { clickSelector(tiles(), block, 8, {35, 35}); }
    void clickPalette(int palette) const { clickSelector(palettes(), palette, 1, {256, 70}); }
    void clickPhysics(int value) const { clickSelector(physics(), value, 2, {141, 40}); }
    static void clickSelector(PictureView& view, int cell, int columns, QSize pitch)
    {
        clickPicture(view,
                     {cell % columns * pitch.width() + pitch.width() / 2,
                      cell / columns * pitch.height() + pitch.height() / 2});
    }
    void chooseMode(int mode) const { clickMark(control<QRadioButton>(kModes[mode])); }
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
    void checkHero() const { clickMark(heroCheck()); }
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

} // namespace velko::test::map_editing
