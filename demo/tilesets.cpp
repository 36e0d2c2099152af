#include "demo/tilesets.h"

#include <algorithm>
#include <array>
#include <utility>

namespace velko::demo {

namespace {

// All of an art file's metatiles but the ones left out, then some others.
std::vector<std::string> names(const ArtFile& art, const std::vector<std::string>& without,
                               const std::vector<std::string>& with)
{
    std::vector<std::string> result;
    for (const Metatile& metatile : art.metatiles) {
        const std::string& name = metatile.picture.name;
        if (std::find(without.begin(), without.end(), name) == without.end())
            result.push_back(name);
    }
    result.insert(result.end(), with.begin(), with.end());
    return result;
}

} // namespace

Tilesets::Tilesets(const Art& art, RoomBuilder& builder)
    : meadow(builder.addTileset(names(art.meadow, {}, {})))
    , hamlet(builder.addTileset(names(
          art.meadow,
          {"sun_tl", "sun_tr", "sun_bl", "sun_br", "far_hill_l", "far_hill_top_l", "far_hill_top_r",
           "far_hill_r", "far_hill", "waterfall", "waterfall_foot", "bridge_pile", "dirt_shell",
           "reeds"},
          {"house_wall@2", "timber_beam@2", "timber_corner_l@2",
           "timber_corner_r=timber_corner_l@2~", "house_window@2", "house_door_t@2",
           "house_door_b@2", "house_roof_l@2", "house_roof_m@2", "house_roof_r=house_roof_l@2~",
           "ridge_l@2", "ridge_m@2", "ridge_r=ridge_l@2~", "chimney@2"})))
    , village(builder.addTileset(
          names(art.village,
                {"sack", "weather_vane", "bunting", "roof_tiles", "shop_sign", "timber_brace"},
                {"tree_tl@3", "tree_tr@3", "tree_bl@3", "tree_br@3", "tree_trunk_l@1",
                 "tree_trunk_r@1"})))
    , house(builder.addTileset(names(art.village, {}, {})))
    , cave(
          builder.addTileset(names(art.cave, {}, {"crystal_small~", "rubble~", "glow_mushrooms~"})))
    , works(builder.addTileset(names(art.works, {}, {})))
{
}

const Tileset& Tilesets::named(std::string_view name) const
{
    const std::array<std::pair<std::string_view, const Tileset*>, 6> all = {{{"meadow", &meadow},
                                                                             {"hamlet", &hamlet},
                                                                             {"village", &village},
                                                                             {"house", &house},
                                                                             {"cave", &cave},
                                                                             {"works", &works}}};
    for (const auto& [key, tileset] : all)
        if (key == name)
            return *tileset;
    throw DemoError("no tileset named " + std::string(name));
}

} // namespace velko::demo
