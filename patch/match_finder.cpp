#include "patch/match_finder.h"

#include <algorithm>
#include <bit>

namespace velko {

MatchFinder::MatchFinder(std::span<const std::uint8_t> file) : m_file(file), m_previous(file.size())
{
    // About one place per hash, however large the file is.
    const auto bits = std::clamp(static_cast<std::uint32_t>(std::bit_width(file.size())), 8u, 24u);
    m_hashShift = 32 - bits;
    m_latest.resize(std::size_t{1} << bits);
}

void MatchFinder::addUpTo(std::size_t end)
{
    if (m_file.size() < kShortest)
        return;
    end = std::min(end, m_file.size() - kShortest + 1);
    for (; m_added < end; ++m_added) {
        std::uint32_t& latest = m_latest[hash(&m_file[m_added])];
        m_previous[m_added] = latest;
        latest = static_cast<std::uint32_t>(m_added + 1);
    }
}

std::size_t MatchFinder::hash(const std::uint8_t* bytes) const
{
    std::uint32_t word = 0;
    for (std::size_t i = 0; i < kShortest; ++i)
        word |= std::uint32_t{bytes[i]} << (8 * i);
    return word * 0x9E3779B1u >> m_hashShift; // the golden ratio spreads neighbours
}

} // namespace velko
