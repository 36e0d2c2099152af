#pragma once

#include "tools/overworld_map.h"

#include <cstdint>
#include <span>
#include <vector>

namespace velko {

// Pixels, counted like the positions of areas.
struct PathPoint {
    int x = 0;
    int y = 0;

    bool operator==(const PathPoint&) const = default;
};

// Eight directions, clockwise from east: 0 right, 1 down-right, 2 down, 3 down-left, 4 left, 5
// up-left, 6 up, 7 up-right. Of a phase byte the low three bits tell it.
constexpr std::uint8_t directionOf(std::uint8_t phase)
{
    return phase & 7;
}
// One pixel in that direction, each coordinate -1, 0 or 1.
PathPoint unitStep(std::uint8_t direction);

// A straight piece of a truck's way, kPathStep pixels along x, y or both.
struct PathSegment {
    PathPoint start;
    std::uint8_t direction = 0;
    std::uint32_t phase = 0; // which one of the pattern leads along here

    bool operator==(const PathSegment&) const = default;
};
inline constexpr int kPathStep = 16;

// The way of a truck that starts at `start`: in each phase it keeps to the phase's direction, step
// by step, until it comes to the 16x16 pixels of an area's position or leaves the coordinates 0 to
// 255; there the next phase begins. Each phase takes at least one step, from outside too, and at
// most 17. Segments are in the order of the way.
std::vector<PathSegment> walkTruckPath(AreaPosition start, std::span<const std::uint8_t> phases,
                                       std::span<const AreaPosition> areas);

} // namespace velko
