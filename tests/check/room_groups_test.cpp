#include "check/room_groups.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <rapidcheck/gtest.h>

namespace velko {
namespace {

using Groups = std::vector<RoomGroup>;

std::vector<RoomSet> waysOf(std::size_t rooms,
                            const std::vector<std::pair<std::size_t, std::size_t>>& pairs)
{
    std::vector<RoomSet> ways(rooms);
    for (const auto& [from, to] : pairs)
        ways.at(from).set(to);
    return ways;
}

TEST(RoomGroups, RoomsWithoutWaysStandAlone)
{
    EXPECT_EQ(groupsWithoutWayIn({}), Groups{});
    EXPECT_EQ(groupsWithoutWayIn(waysOf(2, {{1, 1}})), (Groups{{0}, {1}}));
}

TEST(RoomGroups, WhatIsReachedFromAGroupIsNotTold)
{
    const auto ways = waysOf(6, {{4, 1}, {1, 4}, {4, 2}, {2, 3}, {3, 2}, {5, 2}});
    EXPECT_EQ(groupsWithoutWayIn(ways), (Groups{{0}, {1, 4}, {5}}));
}

TEST(RoomGroups, RingOfAllRooms)
{
    std::vector<RoomSet> ways(kMostRooms);
    for (std::size_t room = 0; room < kMostRooms; ++room)
        ways[(room + 1) % kMostRooms].set(room);
    RoomGroup all(kMostRooms);
    std::iota(all.begin(), all.end(), 0U);
    EXPECT_EQ(groupsWithoutWayIn(ways), (Groups{all}));
}

// Walks along the ways from one room.
RoomSet reachedFrom(std::size_t start, const std::vector<RoomSet>& ways)
{
    RoomSet reached;
    std::vector<std::size_t> next{start};
    reached.set(start);
    while (!next.empty()) {
        const std::size_t room = next.back();
        next.pop_back();
        for (std::size_t to = 0; to < ways.size(); ++to) {
            if (ways[room].test(to) && !reached.test(to)) {
                reached.set(to);
                next.push_back(to);
            }
        }
    }
    return reached;
}

// One door into each group opens all rooms, and no door less would.
RC_GTEST_PROP(RoomGroupsProperty, OneDoorIntoEachGroupOpensAllRooms, ())
{
    const auto rooms = *rc::gen::inRange<std::size_t>(1, 12);
    const auto room = rc::gen::inRange<std::size_t>(0, rooms);
    const auto ways = waysOf(rooms,
                             *rc::gen::container<std::vector<std::pair<std::size_t, std::size_t>>>(
                                 rc::gen::pair(room, room)));
    RoomSet opened;
    for (const RoomGroup& group : groupsWithoutWayIn(ways)) {
        const RoomSet behind = reachedFrom(group.front(), ways);
        for (const std::uint32_t member : group) {
            RC_ASSERT(!opened.test(member));
            RC_ASSERT(reachedFrom(member, ways) == behind);
            for (std::size_t other = 0; other < rooms; ++other) {
                if (ways[other].test(member))
                    RC_ASSERT(std::ranges::count(group, other) == 1);
            }
        }
        opened |= behind;
    }
    RC_ASSERT(opened.count() == rooms);
}

} // namespace
} // namespace velko
