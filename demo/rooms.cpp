#include "demo/cave_scene.h"
#include "demo/interior_scene.h"
#include "demo/meadow_scene.h"
#include "demo/room_text.h"
#include "demo/tilesets.h"
#include "demo/unit_placement.h"
#include "demo/village_scene.h"
#include "demo/works_scene.h"
#include "demo/world_builder.h"

#include <map>
#include <optional>

namespace velko::demo {

namespace {

// A layout cell past the list names what follows the list's end mark: the next room's first
// screen.
constexpr std::uint8_t kPastTheEnd = 1;

void paint(RoomCanvas& canvas, const RoomText& text)
{
    if (text.tileset == "meadow" || text.tileset == "hamlet")
        paintMeadow(canvas, text.meadow);
    else if (text.tileset == "village")
        paintStreet(canvas, text.street);
    else if (text.tileset == "house")
        paintInterior(canvas, text.interior);
    else if (text.tileset == "cave")
        paintCave(canvas, text.galleries);
    else
        paintWorks(canvas, text.galleries);
}

// Makes the rooms of the texts one by one, in the order of the texts.
class RoomMaker {
public:
    RoomMaker(const Art& art, World& world)
        : m_world(world), m_builder(art, world), m_tilesets(art, m_builder), m_canvases(kRooms)
    {
    }

    void make(const RoomText& text)
    {
        Room& room = m_builder.addRoom(text.number, text.name, sceneryOf(text), text.look);
        room.music = static_cast<std::uint8_t>(text.music);
        room.loads = m_world.commonLoads;
        if (text.like >= 0)
            takeMap(room, static_cast<std::size_t>(text.like), text.number);
        else if (text.columns > 0)
            paintMap(room, text);
        if (text.like >= 0 && text.columns > 0) {
            // The same layout bytes in another width: what it shows is nobody's design.
            room.columns = text.columns;
            room.rows = text.rows;
            m_canvases[text.number].reset();
        }
        if (text.page != BlockPage::kDrawn)
            room.tileset = &m_world.tilesets.emplace_back(room.tileset->onPage(text.page));
        for (const int cell : text.wildCells)
            room.layout.at(static_cast<std::size_t>(cell)) =
                static_cast<std::uint8_t>(room.screens.size() + kPastTheEnd);
        if (const auto& canvas = m_canvases[text.number])
            placeUnits(m_world, room, *canvas, text.units);
    }

private:
    Scenery& sceneryOf(const RoomText& text)
    {
        Scenery*& scenery = m_sceneries[text.scenery];
        if (!scenery)
            scenery = &m_builder.addScenery(text.scenery, m_tilesets.named(text.tileset));
        return *scenery;
    }

    void paintMap(Room& room, const RoomText& text)
    {
        Scenery& scenery = sceneryOf(text);
        RoomCanvas& canvas =
            m_canvases[text.number].emplace(*scenery.tileset, text.columns, text.rows);
        paint(canvas, text);
        m_builder.setMap(room, scenery, canvas);
        if (text.spare) {
            RoomCanvas draft = canvas;
            draft.clear(0, 0, kScreenColumns, kScreenRows / 2);
            m_builder.addSpareScreen(scenery, draft.screen(0, 0));
        }
    }

    void takeMap(Room& room, std::size_t from, std::size_t to)
    {
        const Room& other = m_world.rooms.at(from);
        if (!m_canvases[from])
            throw DemoError("the room to be like has no map");
        room.scenery = other.scenery;
        room.tileset = other.tileset;
        room.columns = other.columns;
        room.rows = other.rows;
        room.screens = other.screens;
        room.layout = other.layout;
        m_canvases[to].emplace(*m_canvases[from]);
    }

    World& m_world;
    RoomBuilder m_builder;
    Tilesets m_tilesets;
    std::map<std::string, Scenery*> m_sceneries;
    std::vector<std::optional<RoomCanvas>> m_canvases; // by room number
};

// Every exit that a room has must lead to an entrance that is set.
std::string exitsToNowhere(const World& world)
{
    std::string problems;
    for (const Room& room : world.rooms) {
        for (const Unit& unit : room.units) {
            const std::string& key = world.unitTypes[unit.type].key;
            if (!key.starts_with("out"))
                continue;
            const Exit& exit = room.exits.at(static_cast<std::size_t>(key.back() - '0'));
            if (world.rooms.at(exit.room).entrances.at(exit.entrance).column < 0)
                problems += "\n" + room.name + ": " + key + " leads to no entrance";
        }
    }
    return problems;
}

} // namespace

void buildRooms(const Art& art, const std::vector<RoomText>& rooms, World& world)
{
    RoomMaker maker(art, world);
    std::string problems;
    for (const RoomText& room : rooms) {
        try {
            maker.make(room);
        } catch (const std::exception& error) {
            problems +=
                "\nroom " + std::to_string(room.number) + ", " + room.name + ": " + error.what();
        }
    }
    problems += exitsToNowhere(world);
    if (!problems.empty())
        throw DemoError(problems);
}

} // namespace velko::demo
