#include "gfx/palette_model.h"
#include "gfx/tile_allocation_model.h"
#include "pages/door_model.h"
#include "pages/map_edit_model.h"
#include "pages/map_layout_model.h"
#include "pages/unit_placement_model.h"
#include "tests/e2e/console/console_game.h"
#include "tests/support/scripted_prompt.h"

#include <algorithm>

namespace velko::test {
namespace {

constexpr std::uint8_t kRoom = 1;

// Changes made by the editor's own code show in the game as they show in the editor.
class ConsoleEditsTest : public ConsoleGame {
protected:
    ConsoleEditsTest() { state.graphics.selectRoom(kRoom); }

    std::vector<ColourNumbers> editorPictures(std::uint8_t number)
    {
        state.graphics.selectRoom(number);
        std::vector<ColourNumbers> pictures;
        for (const CameraPosition& screen : screensOf(number))
            pictures.push_back(editorPicture(screen, true));
        return pictures;
    }

    void expectSameRoom(std::uint8_t number)
    {
        goToRoom(number);
        state.graphics.selectRoom(number);
        for (const CameraPosition& screen : screensOf(number)) {
            flyTo(screen);
            expectSamePicture(true);
        }
    }

    // After the edit the editor's pictures of the room must differ, and the console's be the same.
    template <typename Edit> void expectEditShows(Edit edit)
    {
        const std::vector<ColourNumbers> before = editorPictures(kRoom);
        edit();
        EXPECT_NE(editorPictures(kRoom), before);
        switchOn();
        show(Shown::kStillUnits);
        expectSameRoom(kRoom);
    }

    ScriptedPrompt prompt;
};

TEST_F(ConsoleEditsTest, PaletteEntry)
{
    expectEditShows([this] {
        PaletteModel model(state);
        for (const int entry : {1, 6, 16, 27}) {
            model.selectEntry(entry);
            model.setValue(static_cast<std::uint8_t>(0x20 + entry));
        }
    });
}

TEST_F(ConsoleEditsTest, Tile32Blocks)
{
    std::vector<std::uint32_t> sharers;
    expectEditShows([&] {
        MapEditModel model(state, prompt);
        model.refresh();
        sharers.assign(model.screens().sharedRooms().begin(), model.screens().sharedRooms().end());
        model.selectBlockAt({100, 100});
        for (const int x : {30, 200, 400})
            for (const int y : {40, 150, 300, 415})
                model.applyLeft({x, y});
        ASSERT_TRUE(model.isModified());
        EXPECT_EQ(model.statusText(), "");
        model.convertAndWrite();
    });
    ASSERT_FALSE(sharers.empty()); // whose screens have been written anew
    for (const std::uint32_t sharer : sharers)
        expectSameRoom(static_cast<std::uint8_t>(sharer));
}

TEST_F(ConsoleEditsTest, PixelsOfTiles)
{
    expectEditShows([this] {
        TileAllocationModel model(state);
        for (int slot = 0; slot < TileAllocationModel::kSlots; ++slot) {
            model.selectSlot(slot);
            model.setCurrentColour(slot % 4);
            for (int pixel = 0; pixel < 16; ++pixel)
                model.paint({pixel, (pixel + slot) % 16});
        }
        model.selectSlot(9);
        model.toggleMirror();
    });
}

TEST_F(ConsoleEditsTest, PlaceOfAUnit)
{
    expectEditShows([this] {
        UnitPlacementModel model(state);
        model.refresh();
        const std::vector<DemoUnit> units = unitsOf(state, kRoom);
        const auto seen = std::find_if(units.begin(), units.end(), [this](const DemoUnit& unit) {
            return state.config.unitSpriteReg.at(unit.type) != 0;
        });
        ASSERT_NE(seen, units.end());
        model.selectUnit(static_cast<int>(seen - units.begin()));
        model.setScreenX(0);
        model.setScreenY(0);
        model.setPixelX(100);
        model.setPixelY(60);
    });
}

TEST_F(ConsoleEditsTest, CellOfTheLayout)
{
    expectEditShows([this] {
        MapLayoutModel model(state);
        const std::uint8_t other = model.cellValue({0, 1});
        model.selectCell({0, 0});
        ASSERT_NE(model.cellValue({0, 0}), other);
        model.assignScreen(other);
        EXPECT_EQ(model.growWidth(), MapLayoutModel::ResizeResult::kDone);
        model.selectCell({0, model.columns() - 1});
        model.assignScreen(other);
    });
}

TEST_F(ConsoleEditsTest, Exit)
{
    constexpr std::uint8_t kTarget = 0x20;
    constexpr std::uint8_t kEntrance = 2;
    DoorModel model(state);
    model.showRoom();
    model.selectExit(0);
    model.setExitRoom(kTarget);
    model.setExitEntrance(kEntrance);
    state.graphics.selectRoom(kTarget);
    model.showRoom();
    model.selectEntrance(kEntrance);
    model.view().scrollTo({256, 240});
    // The view shows 384 x 384 room pixels in 640 x 480: this is room pixel (356, 340).
    ASSERT_TRUE(model.placeEntrance(167, 125));

    switchOn();
    goToRoom(kRoom);
    for (const DemoUnit& unit : unitsOf(state, kRoom))
        if (unit.type == 40)
            flyHeroTo({unit.x, unit.y});
    press(kButtonStart);
    settle();
    EXPECT_EQ(room(), kTarget);
    EXPECT_EQ(hero(), (CameraPosition{352 + 8, 336 + 8})); // the middle of the cell
}

} // namespace
} // namespace velko::test
