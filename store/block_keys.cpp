#include "store/block_keys.h"

#include <algorithm>

namespace velko {

namespace {

// Any large odd number does.
constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15;

} // namespace

BlockKeys::BlockKeys(const PointerArrayHandler& handler, const DataWindow& window,
                     const LengthTable& lengths)
    : m_handler(handler)
    , m_window(window)
    , m_lengths(lengths)
    , m_powers(DataWindow::kSize + 1, 1)
    , m_prefixes(2 * DataWindow::kSize + 1)
    , m_keys(static_cast<std::size_t>(std::max(handler.entryCount(), 0)))
{
    for (std::size_t i = 1; i < m_powers.size(); ++i)
        m_powers[i] = m_powers[i - 1] * kFactor;
    refresh();
}

void BlockKeys::refresh()
{
    const auto window = m_window.bytes(0, DataWindow::kSize);
    std::size_t length = 0;
    for (int turn = 0; turn < 2; ++turn) { // the window's bytes repeat
        for (const std::uint8_t byte : window) {
            m_prefixes[length + 1] = m_prefixes[length] * kFactor + byte + 1;
            ++length;
        }
    }
    m_handler.readPointers(m_pointers);
    for (std::uint32_t room = 0; room < m_keys.size(); ++room)
        m_keys[room] = keyOf(room);
}

std::uint64_t BlockKeys::keyOf(std::uint32_t room) const
{
    // The window tells no more than this of a longer block either.
    const std::uint32_t length = std::min(m_lengths.of(room, m_pointers[room]), DataWindow::kSize);
    const std::size_t first = m_pointers[room] % DataWindow::kSize;
    return m_prefixes[first + length] - m_prefixes[first] * m_powers[length];
}

std::uint32_t BlockKeys::firstFrom(std::uint32_t room, std::uint64_t key) const
{
    const auto from = m_keys.begin() + static_cast<std::ptrdiff_t>(room);
    return static_cast<std::uint32_t>(std::find(from, m_keys.end(), key) - m_keys.begin());
}

} // namespace velko
