#pragma once

#include "demo/art.h"
#include "demo/room_canvas.h"
#include "demo/world.h"

#include <string>
#include <string_view>

namespace velko::demo {

// Turns painted canvases into rooms: cuts them into screens, finds the screens that a scenery
// has already, and numbers the new ones.
class RoomBuilder {
public:
    RoomBuilder(const Art& art, World& world);

    const Tileset& addTileset(const std::vector<std::string>& names);
    // A group of rooms that share 32x32 blocks. Block 0 is four empty cells, so that the screen
    // of all zeros, which every room lists first, is empty in each scenery.
    Scenery& addScenery(const std::string& name, const Tileset& tileset);

    // The room of that number, which must be new. It shows nothing yet.
    Room& addRoom(std::uint32_t number, const std::string& name, Scenery& scenery,
                  std::string_view look);
    // Gives a room its map.
    void setMap(Room& room, Scenery& scenery, const RoomCanvas& canvas);
    // Both at once.
    Room& addRoom(std::uint32_t number, const std::string& name, Scenery& scenery,
                  std::string_view look, const RoomCanvas& canvas);

    // Screens that no room shows.
    void addSpareScreen(Scenery& scenery, const ScreenGrid& grid);

    // The 32 colours of a look: four palettes named LOOK_0 to LOOK_3 for the background and four
    // named LOOK_sprites_0 to LOOK_sprites_3. "LOOK/37" takes $37 as the backdrop instead.
    Bytes paletteOf(std::string_view look) const;

private:
    std::uint16_t screenNumber(Scenery& scenery, const ScreenBytes& bytes);

    const Art& m_art;
    World& m_world;
    std::vector<bool> m_taken;
};

} // namespace velko::demo
