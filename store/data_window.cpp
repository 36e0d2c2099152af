#include "store/data_window.h"

#include <algorithm>

namespace velko {

DataWindow::DataWindow(const PointerArrayHandler& handler) : m_handler(handler), m_bytes(2 * kSize)
{
    refresh();
}

void DataWindow::refresh()
{
    for (std::uint32_t slot = 0; slot < 2; ++slot)
        m_handler.readDataBank(slot, std::span(m_bytes).subspan(slot * kBankSize, kBankSize));
    std::copy_n(m_bytes.begin(), kSize, m_bytes.begin() + kSize);
}

std::span<const std::uint8_t> DataWindow::bytes(std::uint16_t cpuAddress, std::uint32_t count) const
{
    return std::span(m_bytes).subspan(cpuAddress % kSize, std::min(count, kSize));
}

} // namespace velko
