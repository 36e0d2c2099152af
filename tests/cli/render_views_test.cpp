// Pictures of the command line beside those that the windows show of the same game.

#include "gfx/tile_allocation_pictures.h"
#include "pages/door_model.h"
#include "pages/map_allocation_model.h"
#include "pages/map_edit_pictures.h"
#include "pages/unit_list.h"
#include "pages/unit_placement_model.h"
#include "rom/number_text.h"
#include "tests/cli/demo_state.h"
#include "tests/cli/render_fixture.h"
#include "tests/support/quiet_prompt.h"
#include "tools/overworld_model.h"

#include <algorithm>
#include <random>

namespace velko {
namespace {

using test::kDemoRooms;
using test::OpenGame;

// Where a user may scroll to: the last one is the room's bottom right corner.
constexpr RoomView::Position kScrolls[] = {{0, 0}, {160, 304}, {9999, 9999}};

// The part of a room's picture that a view shows, in the view's size.
PixelImage partShown(const PixelImage& room, const RoomView& view)
{
    PixelImage region(static_cast<std::uint32_t>(view.region().width),
                      static_cast<std::uint32_t>(view.region().height));
    blit(region, room, -view.scroll().x, -view.scroll().y);
    PixelImage shown(static_cast<std::uint32_t>(view.display().width),
                     static_cast<std::uint32_t>(view.display().height));
    copyScaled(shown, region);
    return shown;
}

// The demo as it is, and with damage all over.
class RenderedViews : public test::RenderTest, public ::testing::WithParamInterface<bool> {
protected:
    // One byte in fifty at random; the layout table stays, so that rooms keep their sizes.
    std::string damagedGame() const
    {
        std::vector<std::uint8_t> bytes = demoBytes();
        std::mt19937 random(1);
        for (std::size_t i = 16; i < bytes.size(); ++i) {
            const bool isSize =
                i >= test::kLayoutTable && i < test::kLayoutTable + 4 * std::size_t{kDemoRooms};
            if (random() % 50 == 0 && !isSize)
                bytes[i] = static_cast<std::uint8_t>(random());
        }
        return write("damaged.nes", bytes);
    }
    // Calls `compare` with the picture of every fifth room as a file gives it; all would take long.
    // The room is selected.
    void forEachRoom(const std::vector<std::string>& options, const auto& compare)
    {
        ASSERT_EQ(renderAll(rom, options).status, 0);
        for (std::uint32_t room = 0; room < kDemoRooms; room += 5) {
            game.state.graphics.selectRoom(static_cast<std::uint8_t>(room));
            compare(roomPicture(room));
            ASSERT_FALSE(HasFailure()) << "room " << hexText(room);
        }
    }
    PixelImage roomPicture(std::uint32_t room) const
    {
        return picture("all/room_" + (room < 16 ? "0" + hexText(room) : hexText(room)) + ".png");
    }

    void expectDoorPageShows(const PixelImage& room)
    {
        DoorModel page(game.state);
        page.showRoom();
        for (const RoomView::Position scroll : kScrolls) {
            page.view().scrollTo(scroll);
            PixelImage shown;
            page.draw(shown);
            EXPECT_EQ(partShown(room, page.view()), shown);
        }
    }
    // False, without a comparison, where the page shows no map, or shows cells past the end of the
    // screen list: these look faded there, as they cannot be edited.
    bool expectMapEditingPageShows(const PixelImage& room)
    {
        test::QuietPrompt prompt;
        MapEditModel page(game.state, prompt);
        page.refresh();
        const auto isEditable = [&](std::uint8_t cell) { return cell < page.screens().count(); };
        if (!page.hasMap() || !std::ranges::all_of(page.layout(), isEditable))
            return false;
        for (const RoomView::Position scroll : kScrolls) {
            page.view().scrollToStep(scroll);
            PixelImage shown;
            drawMapView(game.state, page, shown);
            EXPECT_EQ(partShown(room, page.view()), shown);
        }
        return true;
    }
    // The unit page draws no unit whose position lies out of the region, not even what reaches into
    // it; in a whole room that part shows.
    bool hasUnitBeyondBorder(const RoomView& view)
    {
        constexpr int kReach = 144; // of the largest sprite
        const auto liesIn = [&](RoomView::Position at, int margin) {
            return at.x > view.scroll().x - margin && at.y > view.scroll().y - margin
                && at.x < view.scroll().x + view.region().width + margin
                && at.y < view.scroll().y + view.region().height + margin;
        };
        return std::ranges::any_of(UnitList(game.state.store.pahUnit).records(),
                                   [&](const UnitRecord& unit) {
                                       return unit.isPlaced() && liesIn(unit.position(), kReach)
                                           && !liesIn(unit.position(), 0);
                                   });
    }

    const std::string rom = GetParam() ? damagedGame() : "demo.nes";
    OpenGame game{rom};
};

INSTANTIATE_TEST_SUITE_P(Games, RenderedViews, ::testing::Bool(),
                         [](const auto& kind) { return kind.param ? "Damaged" : "Demo"; });

TEST_P(RenderedViews, RoomsAsMapEditingAndDoorPageShowThem)
{
    game.state.resources.doorBitmaps = {}; // what shows behind them
    int mapsCompared = 0;
    forEachRoom({}, [&](const PixelImage& room) {
        expectDoorPageShows(room);
        mapsCompared += expectMapEditingPageShows(room) ? 1 : 0;
    });
    EXPECT_GE(mapsCompared, 3);
}

TEST_P(RenderedViews, RoomsWithUnitsAsTheUnitPageShowsThem)
{
    int compared = 0;
    int withUnits = 0;
    forEachRoom({"--units"}, [&](const PixelImage& room) {
        UnitPlacementModel page(game.state);
        page.refresh();
        for (const RoomView::Position scroll : kScrolls) {
            page.view().scrollTo(scroll);
            if (hasUnitBeyondBorder(page.view()))
                continue;
            PixelImage shown;
            page.draw(shown);
            EXPECT_EQ(partShown(room, page.view()), shown);
            ++compared;
        }
        PixelImage bare;
        game.state.renderer.renderRoomPicture(game.state.currentRoom(), bare);
        withUnits += room != bare ? 1 : 0;
    });
    EXPECT_GE(compared, 5);
    EXPECT_GE(withUnits, 3);
}

TEST_P(RenderedViews, ScreensAsTheMapAllocationPageShowsThem)
{
    for (const std::uint8_t room : {std::uint8_t{0x00}, std::uint8_t{0x12}, std::uint8_t{0x6E}}) {
        game.state.graphics.selectRoom(room);
        MapAllocationModel page(game.state);
        for (int position = 0; position < 4; ++position) {
            page.select(position);
            PixelImage shown;
            page.drawSelectedScreen(shown);
            const std::string address = hexText(page.selectedAddress());
            EXPECT_EQ(render({"--screen", address, "--room", hexText(room)}, rom), shown)
                << address << " in room " << hexText(room);
            if (room == 0) {
                EXPECT_EQ(render({"--screen", address}, rom), shown) << address;
            }
        }
    }
}

TEST_P(RenderedViews, OverworldAsItsEditorShowsIt)
{
    const PixelImage map = render({"--overworld"}, rom);
    EXPECT_EQ(map.width(), 208U);
    EXPECT_EQ(map.height(), 144U);
    test::QuietPrompt prompt;
    PixelImage shown;
    OverworldModel(game.state, prompt).drawMap(shown);
    PixelImage scaled(shown.width(), shown.height());
    copyScaled(scaled, map);
    EXPECT_EQ(scaled, shown);
}

TEST_P(RenderedViews, TilesAsTheirPageShowsThem)
{
    for (const std::uint8_t room : {std::uint8_t{0x00}, std::uint8_t{0x12}, std::uint8_t{0x6E}}) {
        PixelImage tiles = render({"--tiles", hexText(room)}, rom);
        game.state.graphics.selectRoom(room);
        TileAllocationModel model(game.state);
        PixelImage shown;
        TileAllocationPictures(game.state, model).drawSlots(shown);
        drawSelectionFrame(tiles, -3, -3, 22, 22); // the page's mark of slot 0
        EXPECT_EQ(test::enlarged(tiles, 2), shown) << hexText(room);
    }
}

} // namespace
} // namespace velko
