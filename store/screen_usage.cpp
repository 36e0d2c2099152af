#include "store/screen_usage.h"

#include "store/screen_list_scan.h"

#include <algorithm>
#include <array>

namespace velko {

namespace {

// How often the lists of all rooms pass over each word of the region. Lists may run around the
// region without an end, so each is entered as a range instead of word by word.
class WordCoverage {
public:
    // A list of `words` words from an address on.
    void add(std::uint16_t cpuAddress, std::uint32_t words)
    {
        Ring& ring = m_rings[cpuAddress % 2];
        const std::uint32_t first = cpuAddress / 2U % kRing;
        const std::uint32_t end = first + words % kRing;
        ring.rounds += words / kRing;
        ++ring.change[first];
        if (end > kRing) {
            --ring.change[kRing];
            ++ring.change[0];
        }
        --ring.change[end > kRing ? end - kRing : end];
    }

    // Calls visit(address, times) for each word of the region.
    template <typename Visit> void forEachWord(Visit visit) const
    {
        for (std::uint32_t parity = 0; parity < 2; ++parity) {
            std::int32_t open = 0;
            for (std::uint32_t i = 0; i < kRing; ++i) {
                open += m_rings[parity].change[i];
                visit(static_cast<std::uint16_t>(2 * i + parity),
                      m_rings[parity].rounds + static_cast<std::uint32_t>(open));
            }
        }
    }

private:
    static constexpr std::uint32_t kRing = 0x4000; // words of a 32 KB window, even or odd ones

    struct Ring {
        std::uint32_t rounds = 0; // whole passes, over every word
        std::vector<std::int32_t> change = std::vector<std::int32_t>(kRing + 1);
    };
    std::array<Ring, 2> m_rings; // of words at even and at odd addresses
};

} // namespace

void ScreenUsage::compute(const PointerArrayHandler& mapAlloc, ScreenArea area, std::uint32_t rooms)
{
    rooms = std::min(rooms, kMostRooms);
    m_screens = area.count;
    m_references.assign(ScreenArea::kIndexes, 0);
    m_marks.assign(rooms, 0);

    const ScreenListScan scan(mapAlloc);
    WordCoverage coverage;
    for (std::uint32_t room = 0; room < rooms; ++room) {
        const std::uint16_t list = mapAlloc.pointerOf(room);
        coverage.add(list, scan.words(list));
        for (std::uint32_t other = 0; other < rooms; ++other) {
            if (other != room && mapAlloc.pointerOf(other) == list)
                m_marks[room] = other | kShared;
        }
    }
    coverage.forEachWord([&](std::uint16_t address, std::uint32_t times) {
        if (times != 0)
            m_references[area.indexOf(scan.word(address, 0))] += times;
    });
}

std::uint32_t ScreenUsage::references(std::uint32_t index) const
{
    return index < m_references.size() ? m_references[index] : 0;
}

std::uint32_t ScreenUsage::mark(std::uint32_t room) const
{
    return room < m_marks.size() ? m_marks[room] : 0;
}

std::optional<std::uint32_t> ScreenUsage::firstUnused() const
{
    // The index behind the last one that an address can have is never referred to.
    for (std::uint32_t index = 0; index < m_screens; ++index) {
        if (references(index) == 0)
            return index;
    }
    return std::nullopt;
}

} // namespace velko
