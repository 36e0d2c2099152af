#include "demo/tileset.h"

#include <algorithm>

namespace velko::demo {

namespace {

constexpr std::size_t kSlots = 64;
constexpr std::size_t kTileLoadBytes = 96;
constexpr std::size_t kBlocksPerBank = 256;
constexpr std::uint8_t kMirrored = 4;

} // namespace

void BackgroundBanks::addArt(std::uint8_t bank, const ArtFile& art)
{
    std::vector<Block>& blocks = m_blocks.at(bank);
    for (const Metatile& metatile : art.metatiles) {
        if (blocks.size() == kBlocksPerBank)
            throw DemoError("too many metatiles for one bank");
        const Source source{bank,
                            static_cast<std::uint8_t>(blocks.size()),
                            {0, metatile.palette, metatile.physics}};
        if (!m_sources.emplace(metatile.picture.name, source).second)
            throw DemoError("two metatiles are named " + metatile.picture.name);
        blocks.push_back(encodeBlock(metatile.picture));
    }
}

const BackgroundBanks::Source& BackgroundBanks::find(std::string_view name) const
{
    const auto found = m_sources.find(name);
    if (found == m_sources.end())
        throw DemoError("no metatile named " + std::string(name));
    return found->second;
}

void BackgroundBanks::write(Bytes& prg) const
{
    for (std::size_t bank = 0; bank < m_blocks.size(); ++bank) {
        auto out = prg.begin() + static_cast<std::ptrdiff_t>((kBackgroundBank + bank) * kBankBytes);
        for (const Block& block : m_blocks[bank])
            out = std::copy(block.begin(), block.end(), out);
    }
}

Tileset::Tileset(const BackgroundBanks& banks, const std::vector<std::string>& names)
    : m_loadBlock(kTileLoadBytes)
{
    if (names.size() > kSlots)
        throw DemoError("a tileset has 64 slots");
    for (std::size_t slot = 0; slot < names.size(); ++slot) {
        std::string_view name = names[slot];
        const bool mirrored = name.ends_with('~');
        if (mirrored)
            name.remove_suffix(1);
        const BackgroundBanks::Source& source = banks.find(name);
        Cell cell = source.cell;
        cell.slot = static_cast<std::uint8_t>(slot);
        m_cells.emplace(names[slot], cell);
        if (slot == 0)
            m_emptyCell = cell;
        m_loadBlock[slot] = source.block;
        const unsigned attribute = source.bank | (mirrored ? kMirrored : 0U);
        m_loadBlock[kSlots + slot / 2] |=
            static_cast<std::uint8_t>(slot % 2 == 0 ? attribute << 4 : attribute);
    }
}

Cell Tileset::cell(std::string_view name) const
{
    const auto found = m_cells.find(name);
    if (found == m_cells.end())
        throw DemoError("the tileset has no " + std::string(name));
    return found->second;
}

} // namespace velko::demo
