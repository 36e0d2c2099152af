#include "demo/tileset.h"

#include <algorithm>

namespace velko::demo {

namespace {

constexpr std::size_t kSlots = 64;
constexpr std::size_t kTileLoadBytes = 96;
constexpr std::size_t kPageBlocks = 64;
// What the values of a drawn block become on the other pages.
constexpr std::array<std::uint8_t, 4> kShadeValues = {0, 2, 3, 3};
constexpr std::array<std::uint8_t, 4> kMistValues = {0, 1, 1, 2};
constexpr std::uint8_t kMirrored = 4;

struct SlotName {
    std::string alias;
    std::string metatile;
    int palette = -1; // the metatile's own
    bool mirrored = false;
};

Picture recoloured(Picture picture, const std::array<std::uint8_t, 4>& values)
{
    for (std::uint8_t& pixel : picture.pixels)
        pixel = values[pixel];
    return picture;
}

SlotName readName(std::string text)
{
    SlotName name;
    const std::size_t equals = text.find('=');
    if (equals != std::string::npos) {
        name.alias = text.substr(0, equals);
        text.erase(0, equals + 1);
    }
    name.mirrored = text.ends_with('~');
    if (name.mirrored)
        text.pop_back();
    const std::size_t at = text.find('@');
    if (at != std::string::npos && at + 1 < text.size())
        name.palette = text[at + 1] - '0';
    name.metatile = text.substr(0, at);
    if (name.alias.empty())
        name.alias = name.metatile + (name.mirrored ? "~" : "");
    return name;
}

} // namespace

void BackgroundBanks::addArt(std::uint8_t bank, const ArtFile& art)
{
    std::array<Block, 256>& blocks = m_blocks.at(bank);
    if (art.metatiles.size() > kPageBlocks)
        throw DemoError("too many metatiles for one bank");
    for (std::size_t i = 0; i < art.metatiles.size(); ++i) {
        const Metatile& metatile = art.metatiles[i];
        const Source source{
            bank, static_cast<std::uint8_t>(i), {0, metatile.palette, metatile.physics}};
        if (!m_sources.emplace(metatile.picture.name, source).second)
            throw DemoError("two metatiles are named " + metatile.picture.name);
        blocks[i] = encodeBlock(metatile.picture);
        blocks[i + kPageBlocks] = encodeBlock(recoloured(metatile.picture, kShadeValues));
        blocks[i + 2 * kPageBlocks] = encodeBlock(recoloured(metatile.picture, kMistValues));
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
        const SlotName name = readName(names[slot]);
        const BackgroundBanks::Source& source = banks.find(name.metatile);
        Cell cell = source.cell;
        cell.slot = static_cast<std::uint8_t>(slot);
        if (name.palette >= 0)
            cell.palette = static_cast<std::uint8_t>(name.palette);
        m_cells.emplace(name.alias, cell);
        if (slot == 0)
            m_emptyCell = cell;
        m_loadBlock[slot] = source.block;
        const unsigned attribute = source.bank | (name.mirrored ? kMirrored : 0U);
        m_loadBlock[kSlots + slot / 2] |=
            static_cast<std::uint8_t>(slot % 2 == 0 ? attribute << 4 : attribute);
    }
}

Tileset Tileset::onPage(BlockPage page) const
{
    Tileset other = *this;
    for (std::size_t slot = 0; slot < kSlots; ++slot)
        other.m_loadBlock[slot] = static_cast<std::uint8_t>(
            m_loadBlock[slot] + static_cast<std::size_t>(page) * kPageBlocks);
    return other;
}

Cell Tileset::cell(std::string_view name) const
{
    const auto found = m_cells.find(name);
    if (found == m_cells.end())
        throw DemoError("the tileset has no " + std::string(name));
    return found->second;
}

} // namespace velko::demo
