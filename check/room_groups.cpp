#include "check/room_groups.h"

namespace velko {

namespace {

// From ways to whatever can be reached along them.
void followWays(std::vector<RoomSet>& ways)
{
    for (std::size_t between = 0; between < ways.size(); ++between) {
        for (RoomSet& reached : ways) {
            if (reached.test(between))
                reached |= ways[between];
        }
    }
}

} // namespace

std::vector<RoomGroup> groupsWithoutWayIn(std::vector<RoomSet> ways)
{
    followWays(ways);
    std::vector<RoomGroup> groups;
    for (std::uint32_t room = 0; room < ways.size(); ++room) {
        RoomGroup group;
        bool hasWayIn = false;
        for (std::uint32_t other = 0; other < ways.size(); ++other) {
            const bool leadsHere = ways[other].test(room);
            if (other == room || (leadsHere && ways[room].test(other)))
                group.push_back(other);
            else
                hasWayIn = hasWayIn || leadsHere;
        }
        if (!hasWayIn && group.front() == room)
            groups.push_back(std::move(group));
    }
    return groups;
}

} // namespace velko
