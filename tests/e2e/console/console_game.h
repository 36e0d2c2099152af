#pragma once

#include "gfx/pixel_image.h"
#include "tests/demo/demo_game.h"
#include "tests/e2e/console/console.h"
#include "tests/support/temporary_folder.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace velko::test {

// What the game shows, in the order in which its switch goes through them.
enum class Shown : std::uint8_t { kAll, kMap, kStillUnits };

// A place in a room: the room pixel in the upper left corner of the picture.
struct CameraPosition {
    int x = 0;
    int y = 0;

    bool operator==(const CameraPosition&) const = default;
};

// The pixels of a picture that was drawn with colour numbers for colours.
ColourNumbers numbersOf(const PixelImage& image);

// The demo game in the editor and on the console, side by side. Colours are colour numbers on both
// sides: the editor's colour table gives each number its own value as pixel.
class ConsoleGame : public DemoGame {
protected:
    ConsoleGame();

    // Saves the editor's ROM and switches a console on with the file.
    void switchOn(PowerOnMemory memory = PowerOnMemory::kCleared);

    // The pad, as a player uses it.
    void goToRoom(std::uint32_t room);
    void show(Shown shown);
    // Flies until the camera is there. Fails the test when it does not arrive.
    void flyTo(CameraPosition target);
    void press(std::uint32_t button, int frames = 2);
    // Lets frames pass until the picture shows all of what the camera sees.
    void settle();

    std::uint32_t room() const { return console().memory(0x10); }
    bool onOverworld() const { return console().memory(0x11) != 0; }
    CameraPosition camera() const { return {word(0x12), word(0x14)}; }
    CameraPosition hero() const { return {word(0x16), word(0x18)}; }
    Console& console() const { return *m_console; }

    // The screens of a room, row by row, each second row backwards: the shortest flight.
    std::vector<CameraPosition> screensOf(std::uint32_t room) const;
    // Flies until the hero is at most a step away from a place in the room.
    void flyHeroTo(CameraPosition place);
    // The editor's picture of what the console shows of the selected room.
    ColourNumbers editorPicture(CameraPosition corner, bool withUnits) const;
    // Compares the console's picture with the editor's where the camera is; one failure tells how
    // many pixels differ and the first of them.
    void expectSamePicture(bool withUnits) const;
    void expectSamePicture(const ColourNumbers& expected) const;

private:
    int word(std::uint16_t address) const
    {
        return console().memory(address)
            | console().memory(static_cast<std::uint16_t>(address + 1)) << 8;
    }

    TemporaryFolder m_folder;
    std::unique_ptr<Console> m_console;
};

} // namespace velko::test
