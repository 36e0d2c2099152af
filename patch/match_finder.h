#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace velko {

// Finds earlier places of a file that begin with the same bytes as a place of another, or of the
// same file. Places are found once they are added; the latest come first.
class MatchFinder {
public:
    static constexpr std::size_t kShortest = 4; // bytes that a place must have in common
    static constexpr int kMostPlaces = 48;      // looked at for one query

    explicit MatchFinder(std::span<const std::uint8_t> file);

    // Makes the places below `end` known, those that are not yet.
    void addUpTo(std::size_t end);

    // Calls `look(place)` with known places that probably begin like `wanted`, until it returns
    // false.
    template <typename Look> void find(std::span<const std::uint8_t> wanted, Look look) const
    {
        if (wanted.size() < kShortest)
            return;
        std::uint32_t next = m_latest[hash(wanted.data())];
        for (int i = 0; i < kMostPlaces && next != 0; ++i) {
            if (!look(std::size_t{next} - 1))
                return;
            next = m_previous[next - 1];
        }
    }

private:
    std::size_t hash(const std::uint8_t* bytes) const;

    std::span<const std::uint8_t> m_file;
    std::uint32_t m_hashShift;
    std::size_t m_added = 0;
    // Places plus one; 0 is none. The latest of each hash, and the one before each place.
    std::vector<std::uint32_t> m_latest;
    std::vector<std::uint32_t> m_previous;
};

} // namespace velko
