#include "tools/truck_path.h"

#include <array>
#include <bitset>

namespace velko {

namespace {

constexpr std::array<PathPoint, 8> kUnitSteps = {
    {{1, 0}, {1, 1}, {0, 1}, {-1, 1}, {-1, 0}, {-1, -1}, {0, -1}, {1, -1}}};

// The squares of 16x16 pixels at which trucks stop, by the high nibbles of x and y.
class StopSquares {
public:
    explicit StopSquares(std::span<const AreaPosition> areas)
    {
        for (const AreaPosition area : areas)
            m_squares.set(square({area.x, area.y}));
    }
    bool stopsAt(PathPoint point) const
    {
        const bool outside = point.x < 0 || point.x > 0xFF || point.y < 0 || point.y > 0xFF;
        return outside || m_squares.test(square(point));
    }

private:
    static std::size_t square(PathPoint point)
    {
        return static_cast<std::size_t>((point.y & 0xF0) | point.x >> 4);
    }
    std::bitset<256> m_squares;
};

} // namespace

PathPoint unitStep(std::uint8_t direction)
{
    return kUnitSteps[direction % kUnitSteps.size()];
}

std::vector<PathSegment> walkTruckPath(AreaPosition start, std::span<const std::uint8_t> phases,
                                       std::span<const AreaPosition> areas)
{
    const StopSquares stops(areas);
    std::vector<PathSegment> path;
    PathPoint point{start.x, start.y};
    for (std::uint32_t phase = 0; phase < phases.size(); ++phase) {
        const std::uint8_t direction = directionOf(phases[phase]);
        const PathPoint step = unitStep(direction);
        do {
            path.push_back({point, direction, phase});
            point.x += kPathStep * step.x;
            point.y += kPathStep * step.y;
        } while (!stops.stopsAt(point));
    }
    return path;
}

} // namespace velko
