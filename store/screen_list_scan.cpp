#include "store/screen_list_scan.h"

#include "store/block_lengths.h"

#include <algorithm>

namespace velko {

namespace {

constexpr std::uint32_t kWindow = 0x8000;
constexpr std::uint32_t kEndless = 0xFFFFFFFF;

} // namespace

ScreenListScan::ScreenListScan(const PointerArrayHandler& mapAlloc)
    : m_mapAlloc(mapAlloc), m_word(kWindow), m_wordsBeforeEnd(kWindow)
{
    refresh();
}

void ScreenListScan::refresh()
{
    for (std::uint32_t i = 0; i < kWindow; ++i)
        m_word[i] = m_mapAlloc.wordAt(static_cast<std::uint16_t>(i));
    // Backwards, twice around: the second round brings the counts of lists that run on from the
    // end of the window to its start.
    std::ranges::fill(m_wordsBeforeEnd, kEndless);
    for (std::uint32_t step = 2 * kWindow; step-- > 0;) {
        const std::uint32_t i = step % kWindow;
        const std::uint32_t next = m_wordsBeforeEnd[(i + 2) % kWindow];
        if (m_word[i] == kScreenListEnd)
            m_wordsBeforeEnd[i] = 0;
        else if (next != kEndless)
            m_wordsBeforeEnd[i] = next + 1;
    }
}

std::uint32_t ScreenListScan::words(std::uint16_t cpuAddress) const
{
    return std::min(m_wordsBeforeEnd[cpuAddress % kWindow], kLongestScreenList);
}

std::uint32_t ScreenListScan::length(std::uint16_t cpuAddress) const
{
    // The byte offset is bounded here, not the number of words.
    const std::uint32_t found = std::min(words(cpuAddress), kLongestScreenListBytes / 2);
    return 2 * found + 2;
}

std::uint16_t ScreenListScan::word(std::uint16_t cpuAddress, std::uint32_t index) const
{
    return m_word[(cpuAddress + 2 * index) % kWindow];
}

} // namespace velko
