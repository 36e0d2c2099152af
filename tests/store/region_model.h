#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <list>
#include <map>
#include <vector>

namespace velko::test {

// A region of blocks as one thinks of it: bytes in a row, and for each room the byte that its
// block starts with. Addresses, pointers and files do not occur. A room holds on to its byte
// whatever moves, so "its block is not lost" is true by construction. Slow, and meant to be
// obviously right.
class RegionModel {
public:
    using Bytes = std::vector<std::uint8_t>;

    using Cell = std::list<std::uint8_t>::iterator;

    struct Room {
        Cell start;
        std::uint8_t width = 0;
        std::uint8_t height = 0;

        std::size_t length() const { return std::size_t{width} * height; }
    };

    std::list<std::uint8_t> used;
    std::map<std::uint32_t, Room> rooms;
    std::int32_t freeSpace = 0;

    RegionModel() = default;
    RegionModel(const RegionModel&) = delete; // rooms hold on to its bytes
    RegionModel& operator=(const RegionModel&) = delete;

    // Position of a room's first byte; used.size() for a room that points at the free space.
    std::size_t position(std::uint32_t room)
    {
        return static_cast<std::size_t>(std::distance(used.begin(), rooms.at(room).start));
    }
    std::size_t end(std::uint32_t room) { return position(room) + rooms.at(room).length(); }
    // The room's block lies in the used part, from its first to its last byte.
    bool isWhole(std::uint32_t room) { return end(room) <= used.size(); }

    Cell cell(std::size_t at) { return std::next(used.begin(), static_cast<std::ptrdiff_t>(at)); }

    // False, changing nothing, without enough free space.
    bool insert(std::uint32_t room, std::size_t offset, const Bytes& bytes)
    {
        const auto count = static_cast<std::int32_t>(bytes.size());
        if (count > freeSpace)
            return false;
        const Cell place = cell(position(room) + offset);
        Cell first = place;
        for (auto value = bytes.rbegin(); value != bytes.rend(); ++value)
            first = used.insert(first, *value);
        // At the head of a block, the new bytes are the block's for all who share it. Elsewhere
        // they belong to what lies before: whoever starts at this place still starts there.
        if (offset == 0) {
            for (auto& [number, other] : rooms) {
                if (other.start == place)
                    other.start = first;
            }
        }
        freeSpace -= count;
        return true;
    }

    // Rooms that start with the first removed byte get what follows the last. Those that start
    // inside are moved down like what lies above, into what lies before.
    void remove(std::size_t at, std::size_t count)
    {
        const Cell first = cell(at);
        const Cell last = cell(at + count);
        for (auto& [number, room] : rooms) {
            const std::size_t start = position(number);
            if (start > at && start < at + count)
                room.start = cell(start - count);
        }
        for (auto& [number, room] : rooms) {
            if (room.start == first)
                room.start = last;
        }
        used.erase(first, last);
        freeSpace += static_cast<std::int32_t>(count);
    }

    // A new block on top. Rooms that pointed at the free space have it too.
    bool allocate(std::uint32_t room, const Bytes& bytes)
    {
        if (static_cast<std::int32_t>(bytes.size()) > freeSpace)
            return false;
        rooms.at(room).start = used.end();
        return insert(room, 0, bytes);
    }

    // The next room, in order of numbers, that starts elsewhere gives its start.
    void leaveFreeSpace(std::uint32_t room)
    {
        const auto own = rooms.find(room);
        for (auto other = next(own); other != own; other = next(other)) {
            if (other->second.start != own->second.start) {
                own->second.start = other->second.start;
                return;
            }
        }
    }

    Bytes contents(std::uint32_t room)
    {
        const Cell start = rooms.at(room).start;
        return {start, cell(end(room))};
    }

    // Every block lies in the used part, and no two have some, but not all, bytes in common.
    bool blocksAreApart()
    {
        for (const auto& [room, data] : rooms) {
            if (!isWhole(room))
                return false;
            for (const auto& [other, otherData] : rooms) {
                const bool same =
                    data.start == otherData.start && data.length() == otherData.length();
                if (!same && data.length() > 0 && otherData.length() > 0
                    && position(room) < end(other) && position(other) < end(room))
                    return false;
            }
        }
        return true;
    }

    // Number of bytes removed behind the room's block: up to the next start of another block,
    // unless one starts right there or a longer one holds this block.
    std::size_t closeGapBehind(std::uint32_t room)
    {
        const std::size_t from = end(room);
        std::size_t next = used.size() + 1;
        if (rooms.at(room).length() == 0)
            return 0;
        for (const auto& [other, data] : rooms) {
            if (other == room)
                continue;
            const std::size_t start = position(other);
            if (start == from || (start <= position(room) && from < end(other)))
                return 0;
            if (start > from)
                next = std::min(next, start);
        }
        if (next > used.size())
            return 0;
        remove(from, next - from);
        return next - from;
    }

    // Number of blocks given up for equal ones of rooms before. Only for blocks that are apart.
    int joinEqualBlocks()
    {
        int joined = 0;
        for (auto& [keeper, kept] : rooms) {
            for (auto& [room, data] : rooms) {
                const std::size_t length = data.length();
                if (room <= keeper || length == 0 || data.start == kept.start
                    || length != kept.length() || contents(room) != contents(keeper))
                    continue;
                const Cell old = data.start;
                for (auto other = rooms.upper_bound(room); other != rooms.end(); ++other) {
                    if (other->second.start == old)
                        other->second.start = kept.start;
                }
                remove(position(room), length);
                data.start = kept.start;
                ++joined;
            }
        }
        return joined;
    }

    void copy(std::uint32_t from, std::uint32_t to, std::size_t count)
    {
        Cell source = rooms.at(from).start;
        Cell destination = rooms.at(to).start;
        for (; count > 0; --count) {
            // Past the used part, the free space reads as zeros.
            *destination = source == used.end() ? std::uint8_t{0} : *source;
            ++destination;
            if (source != used.end())
                ++source;
        }
    }

private:
    std::map<std::uint32_t, Room>::iterator next(std::map<std::uint32_t, Room>::iterator room)
    {
        return ++room == rooms.end() ? rooms.begin() : room;
    }
};

} // namespace velko::test
