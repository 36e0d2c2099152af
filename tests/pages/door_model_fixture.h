#pragma once

#include "pages/door_model.h"
#include "tests/pages/door_rom.h"

#include <algorithm>

namespace velko::test {

class DoorModelTest : public DoorTest {
protected:
    DoorModelTest() { model.showRoom(); }

    // Loads `game` again and shows a room of it.
    void open(std::uint8_t room)
    {
        load();
        select(room);
    }
    void select(std::uint8_t room)
    {
        state.graphics.selectRoom(room);
        model.showRoom();
    }
    Pixel drawn(std::uint32_t x, std::uint32_t y)
    {
        PixelImage picture;
        model.draw(picture);
        return picture.at(x, y);
    }
    // Whether any pixel of a colour is drawn.
    bool isDrawn(Pixel colour)
    {
        PixelImage picture;
        model.draw(picture);
        return std::ranges::find(picture.pixels(), colour) != picture.pixels().end();
    }

    DoorModel model{state};
};

} // namespace velko::test
