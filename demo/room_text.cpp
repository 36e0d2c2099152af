#include "demo/room_text.h"

#include <sstream>

namespace velko::demo {

namespace {

class RoomParser {
public:
    std::vector<RoomText> parse(std::string_view text)
    {
        std::istringstream lines{std::string(text)};
        std::string line;
        for (int number = 1; std::getline(lines, line); ++number) {
            try {
                readLine(line);
            } catch (const std::exception& error) {
                throw DemoError("line " + std::to_string(number) + ": " + error.what());
            }
        }
        return std::move(m_rooms);
    }

private:
    void readLine(const std::string& line)
    {
        std::istringstream words(line);
        std::string key;
        if (!(words >> key) || key[0] == '#')
            return;
        if (key == "scenery") {
            if (!(words >> m_scenery >> m_tileset))
                throw DemoError("a scenery needs a name and a tileset");
        } else if (key == "room") {
            startRoom(words);
        } else if (m_rooms.empty()) {
            throw DemoError("no room for " + key);
        } else {
            std::string value;
            std::getline(words >> std::ws, value);
            if (!readSetting(key, value) && !readPlan(key, value))
                throw DemoError("unknown key " + key);
        }
    }

    void startRoom(std::istringstream& words)
    {
        RoomText& room = m_rooms.emplace_back();
        if (!(words >> std::hex >> room.number))
            throw DemoError("a room needs a number");
        std::getline(words >> std::ws, room.name);
        room.scenery = m_scenery;
        room.tileset = m_tileset;
        const int seed = static_cast<int>(room.number);
        room.meadow.seed = room.street.seed = room.galleries.seed = seed;
    }

    static int number(const std::string& text, int base = 10)
    {
        std::size_t used = 0;
        const int value = std::stoi(text, &used, base);
        if (used != text.size())
            throw DemoError("no number: " + text);
        return value;
    }

    // One letter per column; blanks only set screens apart.
    static std::string columns(std::string text)
    {
        std::erase(text, ' ');
        return text;
    }

    bool readSetting(const std::string& key, const std::string& value)
    {
        RoomText& room = m_rooms.back();
        std::istringstream words(value);
        if (key == "look")
            room.look = value;
        else if (key == "size")
            words >> room.columns >> room.rows;
        else if (key == "like")
            room.like = number(value, 16);
        else if (key == "music")
            room.music = number(value);
        else if (key == "seed")
            room.meadow.seed = room.street.seed = room.galleries.seed = number(value);
        else if (key == "shade")
            room.page = BlockPage::kShade;
        else if (key == "mist")
            room.page = BlockPage::kMist;
        else if (key == "spare")
            room.spare = true;
        else if (key == "wild")
            room.wildCells.push_back(number(value));
        else if (key == "units")
            room.units += value + " ";
        else
            return false;
        return true;
    }

    bool readPlan(const std::string& key, const std::string& value)
    {
        RoomText& room = m_rooms.back();
        const bool galleries = room.tileset == "cave" || room.tileset == "works";
        if (galleries && readGallery(key, value, room.galleries))
            return true;
        std::istringstream words(value);
        if (key == "sun") {
            room.meadow.sun = true;
        } else if (key == "brick") {
            room.interior.brick = true;
        } else if (key == "ground") {
            room.meadow.ground = columns(value);
        } else if (key == "things") {
            room.meadow.things = columns(value);
        } else if (key == "island") {
            Island& island = room.meadow.islands.emplace_back();
            words >> island.column >> island.height >> island.things;
        } else if (key == "street") {
            room.street.street = columns(value);
        } else if (key == "floors") {
            room.street.floors = columns(value);
        } else if (key == "furniture") {
            room.interior.furniture = columns(value);
        } else {
            return false;
        }
        return true;
    }

    // Each "ceiling" starts the next gallery.
    static bool readGallery(const std::string& key, const std::string& value, GalleryPlan& plan)
    {
        if (key == "ledge") {
            Ledge& ledge = plan.ledges.emplace_back();
            std::istringstream(value) >> ledge.x >> ledge.y >> ledge.cells;
            return true;
        }
        if (key == "ceiling")
            plan.galleries.emplace_back().ceiling = columns(value);
        else if (plan.galleries.empty())
            return false;
        else if (key == "floor")
            plan.galleries.back().floor = columns(value);
        else if (key == "things")
            plan.galleries.back().things = columns(value);
        else if (key == "hanging")
            plan.galleries.back().hanging = columns(value);
        else
            return false;
        return true;
    }

    std::vector<RoomText> m_rooms;
    std::string m_scenery;
    std::string m_tileset;
};

} // namespace

std::vector<RoomText> parseRooms(std::string_view text)
{
    return RoomParser().parse(text);
}

std::vector<RoomText> loadRooms(const std::filesystem::path& path)
{
    const std::string text = loadText(path);
    try {
        return parseRooms(text);
    } catch (const DemoError& error) {
        throw DemoError(path.filename().string() + ", " + error.what());
    }
}

} // namespace velko::demo
