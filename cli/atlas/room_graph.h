#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace velko {

// A way from one room to another.
struct GraphWay {
    std::uint32_t from = 0;
    std::uint32_t to = 0;

    bool operator==(const GraphWay&) const = default;
};

// A room's place: cells of a grid that is kGraphColumns wide.
struct GraphPlace {
    std::uint32_t column = 0;
    std::uint32_t row = 0;

    bool operator==(const GraphPlace&) const = default;
};

// A line between two rooms: there and back, or one way from `from` to `to`.
struct GraphLine {
    std::uint32_t from = 0;
    std::uint32_t to = 0;
    bool bothWays = false;

    bool operator==(const GraphLine&) const = default;
};

inline constexpr std::uint32_t kGraphColumns = 6;

// Where rooms stand so that those with a way between them are neighbours. The same ways always
// give the same graph.
//
// What hangs together starts with its lowest room; each room stands one step further than the
// nearest room that has a way to it or from it. Steps go from left to right, then back in the rows
// below, like furrows, so that a long row of rooms does not leave the page. What does not hang
// together stands below one another.
struct RoomGraph {
    std::vector<GraphPlace> places;   // by room; of rooms without ways of no meaning
    std::vector<GraphLine> lines;     // by `from`, then `to`
    std::vector<std::uint32_t> loose; // rooms without ways
    std::uint32_t rows = 0;
};

// Ways from a room to itself do not count. All rooms must be below `rooms`.
RoomGraph layOutGraph(std::uint32_t rooms, std::span<const GraphWay> ways);

} // namespace velko
