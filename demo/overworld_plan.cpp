#include "demo/overworld_plan.h"

namespace velko::demo {

const std::vector<AreaPlan>& areaPlans()
{
    static const std::vector<AreaPlan> plans = {
        {"Clover Downs", 0, 0x00, 12, true, {{kUp, 6}, {kUpRight, 7}, {kRight, 9}}},
        {"Cobbleton",
         1,
         0x04,
         10,
         false,
         {{kRight, 11}, {kLeft, 6}, {kUp, 4}, {kDownLeft, 13}, {kUpRight, 12}, {kUpLeft, 8}}},
        {"Amberwood", 5, 0x08, 23, true, {{kUp, 11}, {kDown, 5}, {kLeft, 13}}},
        {"Glimmer Caves",
         6,
         0x0C,
         15,
         false,
         {{kLeft, 8}, {kRight, 12}, {kDown, 2}, {kDownRight, 7}}},
        {"Slate Quay", 9, 0x10, 11, false, {{kUp, 3}}},
        {"Duskmoor", 7, 0x14, 14, true, {{kUp, 8}, {kRight, 2}, {kDown, 1}, {kUpRight, 4}}},
        {"Copper Works", 8, 0x18, 19, false, {{kUpLeft, 4}, {kDownLeft, 1}}},
        {"Frostfield", 11, 0x1C, 22, true, {{kRight, 4}, {kDown, 6}, {kDownRight, 2}}},
        {"Crystal Deep", 10, 0x20, 24, false, {{kUp, 10}, {kLeft, 1}}},
        {"Mistmere", 3, 0x2D, kNoItem, false, {{kLeft, 12}, {kDown, 9}}},
        {"Lantern Fair", 2, 0x33, kNoItem, true, {{kDown, 3}, {kLeft, 2}}},
        {"Nightwatch Hill", 4, 0x39, kNoItem, false, {{kLeft, 4}, {kRight, 10}, {kDownLeft, 2}}},
        {"The great lantern", 12, 0x3E, kNoItem, false, {{kRight, 3}, {kUpRight, 2}}},
    };
    return plans;
}

const std::vector<RoutePlan>& routePlans()
{
    static const std::vector<RoutePlan> plans = {
        {{kUp, kRight, kDownLeft, kRight, kUp, kLeft, kLeft, kDown}},
        {{kUp, kRight, kDownLeft}},
        {{kDown, kDown, kUp, kUp}},
        {{kDown, kUp}},
        {{kLeft, kDown, kUpRight}},
        {{kDownLeft, kUp, kUpRight, kDownRight}, -1, true},
        {{kRight, kLeft}},
        {{kUpRight, kRight, kDown, kLeft}},
        {{kRight, kDownRight, kDown, kDownLeft, kLeft, kUpLeft, kUp, kUpRight}},
        {{}, 3},
        {{kRight, kLeft}}, // the same as route 6, stored once more
        {{kLeft}},         // the highest one
    };
    return plans;
}

const std::vector<std::array<std::string_view, 4>>& presetPlans()
{
    static const std::vector<std::array<std::string_view, 4>> plans = {
        {"sea", "sea", "sea", "sea"},
        {"sea_wave_a", "sea", "sea", "sea_wave_b"},
        {"sea_deep", "sea_deep", "sea_deep", "sea_deep"},
        {"shore_tl", "shore_l", "shore_t", "grass"},
        {"shore_t", "grass", "shore_t", "grass"},
        {"shore_t", "grass", "shore_tr", "shore_r"},
        {"shore_l", "shore_l", "grass", "grass"},
        {"grass", "grass", "shore_r", "shore_r"},
        {"shore_l", "shore_bl", "grass", "shore_b"},
        {"grass", "shore_b", "grass", "shore_b"},
        {"grass", "shore_b", "shore_r", "shore_br"},
        {"grass", "grass", "grass", "grass"},
        {"grass_tuft", "grass", "grass", "grass_flowers"},
        {"tree", "grass_tuft", "pine", "bush"},
        {"pine", "pine", "pine", "pine"},
        {"forest_tl", "forest_bl", "forest_tr", "forest_br"},
        {"hill_l", "grass", "hill_r", "grass_flowers"},
        {"field_h", "wheat", "field_h", "wheat"},
        {"orchard", "orchard", "orchard", "orchard"},
        {"marsh", "grass_tuft", "grass", "marsh"},
        {"sand_tl", "sand_bl", "sand_tr", "sand_br"},
        {"sand", "sand_dune", "cactus", "sand"},
        {"mountain_tl", "mountain_bl", "mountain_tr", "mountain_br"},
        {"mountains_tl", "mountains_bl", "mountains_tr", "mountains_br"},
        {"rock", "cliff", "cave_mouth", "rock"},
        {"road_h", "grass", "road_h", "grass"},
        {"road_v", "road_v", "grass", "grass"},
        {"road_tl", "road_v", "road_h", "grass"},
        {"road_h", "grass", "road_tr", "road_v"},
        {"river_v", "river_v", "grass", "grass"},
        {"river_v", "bridge_h", "grass", "road_h"},
        {"hut", "houses", "houses", "hut"},
        {"tower", "grass", "mill", "grass"},
        {"tent", "flag", "grass", "tent"},
        {"rose_tl", "rose_bl", "rose_tr", "rose_br"},
    };
    return plans;
}

} // namespace velko::demo
