// Every room of the demo, unpacked, packed, written and read again.

#include "pages/map_edit_model.h"
#include "tests/demo/demo_game.h"
#include "tests/support/scripted_prompt.h"

namespace velko::test {
namespace {

class DemoMapEdit : public DemoGame {
protected:
    PixelImage picture(std::uint32_t room)
    {
        PixelImage image;
        state.renderer.renderRoomPicture(static_cast<std::uint8_t>(room), image);
        return image;
    }

    ScriptedPrompt prompt;
    MapEditModel model{state, prompt};
};

TEST_F(DemoMapEdit, EveryRoomAndItsSharersLookTheSameAfterConverting)
{
    int rooms = 0;
    int sharing = 0;
    for (std::uint32_t room = 0; room < kDemoRooms; ++room) {
        state.graphics.selectRoom(static_cast<std::uint8_t>(room));
        model.refresh();
        if (!model.hasMap())
            continue;
        ASSERT_FALSE(model.packing().limitExceeded()) << "room " << room;
        std::vector<ScreenMap16> screens;
        for (const MapEditScreen& screen : model.screens().all())
            screens.push_back(screen.cells);
        std::vector<std::uint32_t> affected(model.screens().sharedRooms().begin(),
                                            model.screens().sharedRooms().end());
        sharing += affected.empty() ? 0 : 1;
        affected.push_back(room);
        std::vector<PixelImage> pictures;
        for (const std::uint32_t other : affected)
            pictures.push_back(picture(other));

        state.graphics.selectRoom(static_cast<std::uint8_t>(room));
        model.convertAndWrite();
        for (std::size_t i = 0; i < affected.size(); ++i)
            ASSERT_EQ(picture(affected[i]), pictures[i]) << room << " changed " << affected[i];
        state.graphics.selectRoom(static_cast<std::uint8_t>(room));
        model.refresh();
        for (std::size_t i = 0; i < screens.size(); ++i)
            ASSERT_EQ(model.screens().all()[i].cells, screens[i]) << room << ", screen " << i;
        ++rooms;
    }
    EXPECT_GT(rooms, 90);
    EXPECT_GT(sharing, 10);
}

} // namespace
} // namespace velko::test
