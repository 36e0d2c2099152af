#pragma once

#include <array>
#include <string_view>

namespace velko::demo {

// Sprite graphics that are loaded together: one load record each. Groups that start at the same
// tile exclude each other in a room.
struct SpriteGroupPlan {
    std::string_view name;
    int firstTile;
    int capacity;
};

inline constexpr int kObjectsGroup = 0; // loaded in every room

inline constexpr std::array<SpriteGroupPlan, 6> kSpriteGroups{{
    {"Things: doors, chests, lamps", 192, 56},
    {"Creatures of the fields", 0, 44},
    {"Creatures of the night", 44, 40},
    {"Creatures of the water", 84, 44},
    {"Creatures of the works", 84, 44},
    {"Creatures of rock and ice", 84, 44},
}};

// A unit type with a sprite. Its pictures are NAME_0 to NAME_n, or NAME alone for a still one.
struct SpriteUnitPlan {
    std::string_view picture;
    std::string_view name;
    int frames; // 1: still
    int ticks;  // per frame
    int group;
};

// Unit types 0 to 39, in the order of their numbers; the first twelve move.
inline constexpr std::array<SpriteUnitPlan, 40> kSpriteUnits{{
    {"snail", "Snail, in no hurry", 2, 30, 1},
    {"hedgehog", "Hedgehog", 2, 12, 1},
    {"frog", "Frog", 2, 40, 1},
    {"bat", "Bat", 2, 6, 2},
    {"owl", "Owl", 2, 90, 2},
    {"bee", "Bee", 2, 3, 1},
    {"fish", "Fish", 2, 16, 3},
    {"ghost", "Mist ghost, shy", 2, 24, 2},
    {"moth", "Moth", 2, 8, 2},
    {"sweeper", "Sweeper", 2, 10, 4},
    {"kettle", "Walking kettle", 2, 14, 4},
    {"lamp", "Lantern to light", 4, 9, 0},
    {"beetle", "Beetle", 1, 60, 1},
    {"mole", "Mole", 1, 60, 2},
    {"mushling", "Mushling", 1, 60, 2},
    {"crab", "Crab", 1, 60, 3},
    {"cat", "Cat", 1, 60, 2},
    {"goose", "Goose", 1, 60, 3},
    {"turtle", "Turtle", 1, 60, 3},
    {"caterpillar", "Caterpillar", 1, 60, 1},
    {"ladybird", "Ladybird", 1, 60, 1},
    {"squirrel", "Squirrel", 1, 60, 1},
    {"mouse", "Mouse", 1, 60, 2},
    {"spider", "Spider", 1, 60, 2},
    {"jelly", "Jellyfish", 1, 60, 3},
    {"puffer", "Cloud puffer", 1, 60, 3},
    {"thistle", "Thistle", 1, 60, 2},
    {"snowman", "Snowman", 1, 60, 5},
    {"golem", "Stone giant, asleep", 1, 60, 5},
    {"cog", "Rolling cog", 1, 60, 4},
    {"spring", "Spring board", 1, 60, 0},
    {"door", "Door that shows", 1, 60, 0},
    {"chest", "Chest", 1, 60, 0},
    {"key", "Key", 1, 60, 0},
    {"switch", "Switch", 1, 60, 0},
    {"platform", "Moving platform", 1, 60, 0},
    {"bell", "Bell", 1, 60, 0},
    {"pot", "Pot", 1, 60, 0},
    {"kite", "Kite", 1, 60, 0},
    {"oildrop", "Drop of oil", 1, 60, 4},
}};

// Unit types that show nothing, from number 40 on; later numbers are spare.
struct PlainUnitPlan {
    std::string_view key;
    std::string_view name;
};

inline constexpr std::array<PlainUnitPlan, 18> kPlainUnits{{
    {"out0", "Exit 1"},
    {"out1", "Exit 2"},
    {"out2", "Exit 3"},
    {"out3", "Exit 4"},
    {"talk", "Talk to the person here"},
    {"read", "Read the sign"},
    {"rest", "Rest on the bench"},
    {"shop", "Buy in the shop"},
    {"wind", "Wind blows right"},
    {"windleft", "Wind blows left"},
    {"rise", "Wind blows up"},
    {"dark", "It gets dark here"},
    {"light", "It gets light here"},
    {"splash", "Splash of water"},
    {"echo", "Echo"},
    {"bird", "Birdsong"},
    {"camera", "View stops here"},
    {"save", "Write in the diary"},
}};

} // namespace velko::demo
