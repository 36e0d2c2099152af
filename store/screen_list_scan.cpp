#include "store/screen_list_scan.h"

#include "store/block_lengths.h"

#include <algorithm>
#include <array>

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
    // The last word of a bank takes its second byte from the next byte of the file.
    std::array<std::uint8_t, kBankSize + 1> bank{};
    for (std::uint32_t slot = 0; slot < 2; ++slot) {
        m_mapAlloc.readDataBank(slot, bank);
        for (std::uint32_t i = 0; i < kBankSize; ++i)
            m_word[slot * kBankSize + i] = static_cast<std::uint16_t>(bank[i] | bank[i + 1] << 8);
    }
    // Backwards, twice around: the second round brings the counts of lists that run on from the
    // end of the window to its start.
    std::array<std::uint32_t, 2> words = {kEndless, kEndless}; // at even and at odd addresses
    for (int round = 0; round < 2; ++round) {
        for (std::uint32_t i = kWindow; i-- > 0;) {
            std::uint32_t& count = words[i % 2];
            if (m_word[i] == kScreenListEnd)
                count = 0;
            else if (count != kEndless)
                ++count;
            m_wordsBeforeEnd[i] = count;
        }
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
