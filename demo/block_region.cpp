#include "demo/block_region.h"

#include "demo/art_library.h"

#include <algorithm>
#include <string>

namespace velko::demo {

namespace {

// Offset in the program banks of a CPU address seen through a pair of banks.
std::uint32_t bankedOffset(const std::array<std::uint8_t, 2>& banks, std::uint32_t cpuAddress)
{
    return banks[(cpuAddress & 0x7FFF) >> 14] * kBankBytes + (cpuAddress & 0x3FFF);
}

} // namespace

BlockRegion::BlockRegion(const RegionPlan& plan) : m_plan(plan), m_entries(plan.tableEntries) { }

void BlockRegion::place(std::uint32_t entry, const Bytes& block)
{
    const auto found = std::find(m_blocks.begin(), m_blocks.end(), block);
    if (found == m_blocks.end())
        placeCopy(entry, block);
    else
        m_entries.at(entry).block = static_cast<int>(found - m_blocks.begin());
}

void BlockRegion::placeCopy(std::uint32_t entry, const Bytes& block)
{
    m_entries.at(entry).block = static_cast<int>(m_blocks.size());
    m_blocks.push_back(block);
}

void BlockRegion::share(std::uint32_t entry, std::uint32_t other)
{
    m_entries.at(entry).block = m_entries.at(other).block;
}

void BlockRegion::addOrphan(const Bytes& block)
{
    m_blocks.push_back(block);
}

void BlockRegion::setParameters(std::uint32_t entry, std::uint8_t first, std::uint8_t second)
{
    m_entries.at(entry).first = first;
    m_entries.at(entry).second = second;
}

const Bytes& BlockRegion::blockOf(std::uint32_t entry) const
{
    return m_blocks.at(static_cast<std::size_t>(m_entries.at(entry).block));
}

std::uint32_t BlockRegion::addressOf(int block) const
{
    std::uint32_t address = m_plan.dataStart;
    for (int i = 0; i < block; ++i)
        address += static_cast<std::uint32_t>(m_blocks[static_cast<std::size_t>(i)].size());
    return address;
}

std::uint16_t BlockRegion::pointerOf(std::uint32_t entry) const
{
    return static_cast<std::uint16_t>(addressOf(m_entries.at(entry).block));
}

void BlockRegion::write(Bytes& prg) const
{
    const std::string name = m_plan.key;
    std::uint32_t address = m_plan.dataStart;
    if (addressOf(static_cast<int>(m_blocks.size())) + kLeastFreeBytes > m_plan.dataEdge)
        throw DemoError(name + ": the region is full");
    for (const Bytes& block : m_blocks)
        for (const std::uint8_t byte : block)
            prg.at(bankedOffset(m_plan.dataBanks, address++)) = byte;
    while (address < m_plan.dataEdge)
        prg.at(bankedOffset(m_plan.dataBanks, address++)) = 0;

    for (std::uint32_t i = 0; i < m_plan.tableEntries; ++i) {
        if (m_entries[i].block < 0)
            throw DemoError(name + ": nothing placed for entry " + std::to_string(i));
        const std::uint16_t pointer = pointerOf(i);
        const std::uint32_t cpuAddress = m_plan.tableStart + i * m_plan.stride;
        const std::uint32_t at = m_plan.tableBank * kBankBytes + (cpuAddress & 0x7FFF);
        prg.at(at) = static_cast<std::uint8_t>(pointer & 0xFF);
        prg.at(at + 1) = static_cast<std::uint8_t>(pointer >> 8);
        if (m_plan.stride == 4) {
            prg.at(at + 2) = m_entries[i].first;
            prg.at(at + 3) = m_entries[i].second;
        }
    }
}

} // namespace velko::demo
