#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

namespace velko::demo {

// Directions run clockwise from east, as in the routes of the mail carts.
enum Direction : std::uint8_t {
    kRight,
    kDownRight,
    kDown,
    kDownLeft,
    kLeft,
    kUpLeft,
    kUp,
    kUpRight
};

// One way that the balloon takes from an area.
struct Flight {
    Direction direction;
    std::uint8_t area; // where it ends, counted from 1
};

struct AreaPlan {
    std::string_view name;
    std::uint8_t place; // which icon of the map's picture marks it
    std::uint8_t firstRoom;
    std::uint8_t clearItem; // an item's number or kNoItem
    bool byBalloon;         // the hero drops in by parachute
    std::vector<Flight> flights;
};

inline constexpr std::uint8_t kNoItem = 0xFF;

// The areas in order, and one place more, which is no area: the great lantern.
const std::vector<AreaPlan>& areaPlans();

// A mail cart's route: it keeps to a direction until it meets an area, then takes the next one.
struct RoutePlan {
    std::vector<Direction> directions;
    int sharedWith = -1;      // an earlier route whose bytes this one uses
    bool orphanAfter = false; // bytes that no route uses follow
};

const std::vector<RoutePlan>& routePlans();

struct CartPlan {
    std::uint8_t route;
    std::uint8_t area; // where it starts, counted from 0
};

inline constexpr std::array<CartPlan, 8> kCarts{
    {{0, 0}, {1, 1}, {2, 10}, {3, 9}, {4, 3}, {5, 6}, {6, 11}, {7, 12}}};

// Pieces of 16x16 pixels to build the map from: top left, bottom left, top right, bottom right.
const std::vector<std::array<std::string_view, 4>>& presetPlans();

} // namespace velko::demo
