#include "demo/overworld_map.h"

#include <algorithm>
#include <sstream>

namespace velko::demo {

namespace {

constexpr std::size_t kPaletteColumns = 14;
constexpr std::size_t kPaletteRows = 10;

void check(const OverworldMap& map)
{
    const auto complete = [](const auto& lists, std::size_t count, std::size_t length) {
        return lists.size() == count
            && std::all_of(lists.begin(), lists.end(),
                           [&](const auto& list) { return list.size() == length; });
    };
    if (!complete(map.rows, kMapRows, kMapColumns))
        throw DemoError("the overworld needs 18 rows of 26 tiles");
    if (!complete(map.palettes, kPaletteRows, kPaletteColumns))
        throw DemoError("the overworld needs 10 lines of 14 palettes");
    if (map.areas.size() != kAreas + 1)
        throw DemoError("the overworld needs a place for each area and one more");
}

} // namespace

OverworldMap parseOverworldMap(std::string_view text)
{
    OverworldMap map;
    std::istringstream lines{std::string(text)};
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string key;
        words >> key;
        if (key == "row") {
            std::vector<std::string>& row = map.rows.emplace_back();
            for (std::string name; words >> name;)
                row.push_back(name);
        } else if (key == "palettes") {
            words >> map.palettes.emplace_back();
        } else if (key == "area") {
            std::size_t number = 0;
            std::array<int, 2> place{};
            words >> number >> place[0] >> place[1];
            if (!words || number != map.areas.size())
                throw DemoError("areas are told in order: " + line);
            map.areas.push_back(place);
        }
    }
    check(map);
    return map;
}

OverworldTiles::OverworldTiles(const ArtFile& art)
{
    for (const Picture& tile : art.tiles)
        add(tile.name, encodeTile(tile, 0, 0));
    for (const Metatile& icon : art.metatiles) {
        const Picture& picture = icon.picture;
        add(picture.name + ".tl", encodeTile(picture, 0, 0));
        add(picture.name + ".bl", encodeTile(picture, 0, 8));
        add(picture.name + ".tr", encodeTile(picture, 8, 0));
        add(picture.name + ".br", encodeTile(picture, 8, 8));
    }
}

void OverworldTiles::add(const std::string& name, const Tile& tile)
{
    if (m_tiles.size() == 255)
        throw DemoError("one load record holds at most 255 overworld tiles");
    m_names.push_back(name);
    m_tiles.push_back(tile);
}

std::uint8_t OverworldTiles::number(std::string_view name) const
{
    const auto found = std::find(m_names.begin(), m_names.end(), name);
    if (found == m_names.end())
        throw DemoError("no overworld tile named " + std::string(name));
    return static_cast<std::uint8_t>(found - m_names.begin());
}

} // namespace velko::demo
