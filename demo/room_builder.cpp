#include "demo/room_builder.h"

#include <algorithm>

namespace velko::demo {

RoomBuilder::RoomBuilder(const Art& art, World& world) : m_art(art), m_world(world), m_taken(kRooms)
{
    m_world.rooms.resize(kRooms);
    m_world.screens.assign(1, ScreenBytes{});
}

const Tileset& RoomBuilder::addTileset(const std::vector<std::string>& names)
{
    return m_world.tilesets.emplace_back(m_world.backgrounds, names);
}

Scenery& RoomBuilder::addScenery(const std::string& name, const Tileset& tileset)
{
    Scenery& scenery = m_world.sceneries.emplace_back();
    scenery.name = name;
    scenery.tileset = &tileset;
    scenery.screens.emplace(scenery.blocks.pack(RoomCanvas(tileset, 1, 1).screen(0, 0)), 0);
    return scenery;
}

std::uint16_t RoomBuilder::screenNumber(Scenery& scenery, const ScreenBytes& bytes)
{
    const auto number = static_cast<std::uint16_t>(m_world.screens.size());
    const auto [found, isNew] = scenery.screens.emplace(bytes, number);
    if (isNew)
        m_world.screens.push_back(bytes);
    return found->second;
}

Room& RoomBuilder::addRoom(std::uint32_t number, const std::string& name, Scenery& scenery,
                           std::string_view look)
{
    if (m_taken.at(number))
        throw DemoError("room " + std::to_string(number) + " is made twice");
    m_taken[number] = true;
    Room& room = m_world.rooms[number];
    room.name = name;
    room.scenery = &scenery;
    room.tileset = scenery.tileset;
    room.palette = paletteOf(look);
    room.screens = {0};
    return room;
}

void RoomBuilder::setMap(Room& room, Scenery& scenery, const RoomCanvas& canvas)
{
    room.columns = canvas.screenColumns();
    room.rows = canvas.screenRows();
    for (int row = 0; row < room.rows; ++row) {
        for (int column = 0; column < room.columns; ++column) {
            const std::uint16_t number =
                screenNumber(scenery, scenery.blocks.pack(canvas.screen(column, row)));
            auto found = std::find(room.screens.begin(), room.screens.end(), number);
            if (found == room.screens.end())
                found = room.screens.insert(found, number);
            room.layout.push_back(static_cast<std::uint8_t>(found - room.screens.begin()));
        }
    }
}

Room& RoomBuilder::addRoom(std::uint32_t number, const std::string& name, Scenery& scenery,
                           std::string_view look, const RoomCanvas& canvas)
{
    Room& room = addRoom(number, name, scenery, look);
    try {
        setMap(room, scenery, canvas);
    } catch (const DemoError& error) {
        throw DemoError("room " + std::to_string(number) + ", " + name + ": " + error.what());
    }
    return room;
}

void RoomBuilder::addSpareScreen(Scenery& scenery, const ScreenGrid& grid)
{
    m_world.screens.push_back(scenery.blocks.pack(grid));
}

Bytes RoomBuilder::paletteOf(std::string_view look) const
{
    const std::size_t slash = look.find('/');
    const std::string name(look.substr(0, slash));
    const std::string_view theme = std::string_view(name).substr(0, name.find('_'));
    const ArtFile& file = theme == "meadow" ? m_art.meadow
        : theme == "village"                ? m_art.village
        : theme == "cave"                   ? m_art.cave
                                            : m_art.works;
    std::uint8_t backdrop = 0;
    if (slash != std::string_view::npos)
        backdrop =
            static_cast<std::uint8_t>(std::stoul(std::string(look.substr(slash + 1)), nullptr, 16));
    Bytes bytes;
    for (const std::string part : {"_", "_sprites_"}) {
        for (int set = 0; set < 4; ++set) {
            const ArtPalette& palette = paletteNamed(file, name + part + std::to_string(set));
            bytes.insert(bytes.end(), palette.colours.begin(), palette.colours.end());
            if (slash != std::string_view::npos)
                bytes[bytes.size() - palette.colours.size()] = backdrop;
        }
    }
    return bytes;
}

} // namespace velko::demo
