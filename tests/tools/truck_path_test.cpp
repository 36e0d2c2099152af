#include "tools/truck_path.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <ostream>
#include <rapidcheck/gtest.h>

namespace velko {

std::ostream& operator<<(std::ostream& out, const PathSegment& segment)
{
    return out << "(" << segment.start.x << ", " << segment.start.y << ") to "
               << int{segment.direction} << " in " << segment.phase;
}

namespace {

using Phases = std::vector<std::uint8_t>;
using Areas = std::vector<AreaPosition>;
using Path = std::vector<PathSegment>;

constexpr AreaPosition kHere{64, 72};

TEST(TruckPath, EachDirectionStepsBy16Pixels)
{
    const std::vector<PathPoint> behind = {{80, 72}, {80, 88}, {64, 88}, {48, 88},
                                           {48, 72}, {48, 56}, {64, 56}, {80, 56}};
    for (std::uint8_t direction = 0; direction < 8; ++direction) {
        const Path path = walkTruckPath(kHere, Phases{direction}, {});
        EXPECT_EQ(path.at(0), (PathSegment{{64, 72}, direction, 0}));
        EXPECT_EQ(path.at(1).start, behind[direction]) << int{direction};
    }
}

TEST(TruckPath, PhaseEndsAtTheNextArea)
{
    const Areas areas = {kHere, {128, 72}};
    EXPECT_EQ(walkTruckPath(kHere, Phases{0}, areas),
              (Path{{{64, 72}, 0, 0}, {{80, 72}, 0, 0}, {{96, 72}, 0, 0}, {{112, 72}, 0, 0}}));
}

TEST(TruckPath, AreasCountByTheirSquareOf16Pixels)
{
    // 111 and 112 lie in different squares, 72 and 79 in the same one.
    EXPECT_EQ(walkTruckPath(kHere, Phases{0}, Areas{{111, 79}}).size(), 2U); // stops at 96
    EXPECT_EQ(walkTruckPath(kHere, Phases{0}, Areas{{112, 64}}).size(), 3U);
    EXPECT_EQ(walkTruckPath(kHere, Phases{0}, Areas{{112, 80}}).size(), 12U); // one square too low
}

TEST(TruckPath, NextPhaseStartsWhereTheLastOneStopped)
{
    const Areas areas = {kHere, {96, 72}};
    // Right to the second area, up-right over the border, back down.
    EXPECT_EQ(walkTruckPath(kHere, Phases{0, 7, 0x80 | 2}, Areas{{96, 72}, {176, 24}}),
              (Path{{{64, 72}, 0, 0},
                    {{80, 72}, 0, 0},
                    {{96, 72}, 7, 1},
                    {{112, 56}, 7, 1},
                    {{128, 40}, 7, 1},
                    {{144, 24}, 7, 1},
                    {{160, 8}, 7, 1},
                    {{176, -8}, 2, 2},
                    {{176, 8}, 2, 2}}));
    EXPECT_EQ(walkTruckPath(kHere, Phases{0, 4}, areas).size(), 4U);
}

TEST(TruckPath, PhaseEndsBeyondEachBorder)
{
    struct Row {
        std::uint8_t direction;
        std::size_t steps;
        PathPoint lastStart;
    };
    for (const Row& row : {Row{0, 12, {240, 72}}, Row{2, 12, {64, 248}}, Row{4, 5, {0, 72}},
                           Row{6, 5, {64, 8}}, Row{5, 5, {0, 8}}}) {
        const Path path = walkTruckPath(kHere, Phases{row.direction}, {});
        EXPECT_EQ(path.size(), row.steps) << int{row.direction};
        EXPECT_EQ(path.back().start, row.lastStart) << int{row.direction};
    }
}

TEST(TruckPath, CoordinatesUpTo255AreInside)
{
    // 239 + 16 is 255: one step more leads outside.
    EXPECT_EQ(walkTruckPath({239, 0}, Phases{0}, {}).size(), 2U);
    EXPECT_EQ(walkTruckPath({240, 0}, Phases{0}, {}).size(), 1U);
    EXPECT_EQ(walkTruckPath({16, 0}, Phases{4}, {}).size(), 2U); // 0 is inside
}

TEST(TruckPath, OutsideEachPhaseTakesOneStep)
{
    EXPECT_EQ(walkTruckPath({8, 8}, Phases{6, 6, 4}, {}),
              (Path{{{8, 8}, 6, 0}, {{8, -8}, 6, 1}, {{8, -24}, 4, 2}}));
}

TEST(TruckPath, TruckThatGoesAroundComesBackToItsArea)
{
    const Areas areas = {{64, 64}, {96, 64}, {96, 96}, {64, 96}};
    const Path path = walkTruckPath(areas[0], Phases{0, 2, 4, 6, 0, 2, 4, 0x86}, areas);
    ASSERT_EQ(path.size(), 16U);
    EXPECT_EQ(path[7], (PathSegment{{64, 80}, 6, 3}));
    EXPECT_EQ(path[8], (PathSegment{{64, 64}, 0, 4}));
}

TEST(TruckPath, DirectionIsTheLowThreeBits)
{
    EXPECT_EQ(directionOf(0x85), 5);
    EXPECT_EQ(directionOf(0x0A), 2);
    EXPECT_EQ(directionOf(0x7F), 7);
    EXPECT_EQ(walkTruckPath(kHere, Phases{0x4C}, Areas{{48, 72}}), (Path{{{64, 72}, 4, 0}}));
}

TEST(TruckPath, WithoutPhasesThereIsNoPath)
{
    EXPECT_TRUE(walkTruckPath(kHere, {}, {}).empty());
}

RC_GTEST_PROP(TruckPathProperty, SegmentsAreJoinedAndEveryPhaseHas1To17,
              (const Phases& phases, std::uint8_t x, std::uint8_t y))
{
    Areas areas;
    for (const std::uint8_t seed : *rc::gen::container<Phases>(rc::gen::arbitrary<std::uint8_t>()))
        areas.push_back({seed, static_cast<std::uint8_t>(seed * 37)});
    const Path path = walkTruckPath({x, y}, phases, areas);
    PathPoint point{x, y};
    std::vector<int> steps(phases.size());
    for (const PathSegment& segment : path) {
        RC_ASSERT(segment.start == point);
        RC_ASSERT(segment.direction == phases.at(segment.phase) % 8);
        const PathPoint step = unitStep(segment.direction);
        point = {point.x + 16 * step.x, point.y + 16 * step.y};
        ++steps[segment.phase];
        const bool outside = point.x < 0 || point.x > 255 || point.y < 0 || point.y > 255;
        const bool atArea = std::any_of(areas.begin(), areas.end(), [&](AreaPosition area) {
            return (area.x & 0xF0) == (point.x & 0xF0) && (area.y & 0xF0) == (point.y & 0xF0);
        });
        const bool last = &segment == &path.back() || (&segment)[1].phase != segment.phase;
        RC_ASSERT(last == (outside || atArea));
    }
    for (const int count : steps)
        RC_ASSERT(count >= 1 && count <= 17);
}

} // namespace
} // namespace velko
