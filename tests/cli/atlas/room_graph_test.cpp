#include "cli/atlas/room_graph.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <set>
#include <utility>

namespace velko {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Ways = std::vector<GraphWay>;

TEST(RoomGraph, NoRooms)
{
    const RoomGraph graph = layOutGraph(0, {});
    EXPECT_THAT(graph.places, IsEmpty());
    EXPECT_EQ(graph.rows, 0U);
}

TEST(RoomGraph, RoomsWithoutWaysAreLoose)
{
    const RoomGraph graph = layOutGraph(4, Ways{{1, 3}, {2, 2}});
    EXPECT_THAT(graph.loose, ElementsAre(0, 2));
    EXPECT_EQ(graph.rows, 1U);
}

TEST(RoomGraph, WaysThereAndBackAreOneLine)
{
    const RoomGraph graph = layOutGraph(3, Ways{{1, 0}, {0, 1}, {2, 1}, {2, 1}});
    EXPECT_THAT(graph.lines, ElementsAre(GraphLine{0, 1, true}, GraphLine{2, 1, false}));
}

TEST(RoomGraph, StepsGoFromLeftToRight)
{
    const RoomGraph graph = layOutGraph(4, Ways{{0, 2}, {0, 1}, {3, 2}});
    EXPECT_THAT(
        graph.places,
        ElementsAre(GraphPlace{0, 0}, GraphPlace{1, 0}, GraphPlace{1, 1}, GraphPlace{2, 0}));
    EXPECT_EQ(graph.rows, 2U);
}

TEST(RoomGraph, LongWaysTurnBackBelow)
{
    Ways ways;
    for (std::uint32_t room = 0; room < 13; ++room)
        ways.push_back({room, room + 1});
    const RoomGraph graph = layOutGraph(14, ways);
    EXPECT_EQ(graph.places[5], (GraphPlace{5, 0}));
    EXPECT_EQ(graph.places[6], (GraphPlace{5, 1}));
    EXPECT_EQ(graph.places[11], (GraphPlace{0, 1}));
    EXPECT_EQ(graph.places[12], (GraphPlace{0, 2}));
    EXPECT_EQ(graph.places[13], (GraphPlace{1, 2}));
}

TEST(RoomGraph, WhatDoesNotHangTogetherStandsBelow)
{
    const RoomGraph graph = layOutGraph(4, Ways{{0, 2}, {1, 3}});
    EXPECT_THAT(
        graph.places,
        ElementsAre(GraphPlace{0, 0}, GraphPlace{0, 1}, GraphPlace{1, 0}, GraphPlace{1, 1}));
}

RC_GTEST_PROP(RoomGraph, EveryRoomHasAPlaceOfItsOwn, ())
{
    const auto rooms = *rc::gen::inRange<std::uint32_t>(1, 60);
    Ways ways(*rc::gen::inRange<std::size_t>(0, 90));
    for (GraphWay& way : ways)
        way = {*rc::gen::inRange<std::uint32_t>(0, rooms),
               *rc::gen::inRange<std::uint32_t>(0, rooms)};
    const RoomGraph graph = layOutGraph(rooms, ways);
    const std::set<std::uint32_t> loose(graph.loose.begin(), graph.loose.end());
    std::set<std::pair<std::uint32_t, std::uint32_t>> taken;
    for (std::uint32_t i = 0; i < rooms; ++i) {
        const GraphPlace place = graph.places[i];
        if (loose.contains(i))
            continue;
        RC_ASSERT(place.column < kGraphColumns);
        RC_ASSERT(place.row < graph.rows);
        RC_ASSERT(taken.emplace(place.column, place.row).second);
    }
    RC_ASSERT(loose.size() + taken.size() == rooms);
}

} // namespace
} // namespace velko
