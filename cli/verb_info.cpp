#include "cli/verb_info.h"

#include "cli/known_number.h"
#include "cli/region_use.h"
#include "cli/report_verb.h"
#include "rom/number_text.h"
#include "store/block_lengths.h"
#include "store/file_offsets.h"

#include <iomanip>

namespace velko {

namespace {

// What the iNES header says; it is told beside the facts, as nothing else looks at it.
struct Header {
    bool isThere = false;
    std::uint32_t programBanks = 0; // of 16 KB
    std::uint32_t tileBanks = 0;    // of 8 KB
    std::uint32_t mapper = 0;
};

Header headerOf(const RomImage& rom)
{
    if (rom.size() < kHeaderSize)
        return {};
    constexpr std::string_view kMagic = "NES\x1A";
    for (std::uint32_t i = 0; i < kMagic.size(); ++i) {
        if (rom.readByte(i) != static_cast<std::uint8_t>(kMagic[i]))
            return {};
    }
    const std::uint32_t mapper = (rom.readByte(6) >> 4) | (rom.readByte(7) & 0xF0U);
    return {true, rom.readByte(4), rom.readByte(5), mapper};
}

// Everything that is told of a ROM.
struct RomFacts {
    std::uint32_t size = 0;        // of the file, in bytes
    std::uint32_t banks = 0;       // whole ones behind the header
    std::uint32_t excessBytes = 0; // behind the last whole bank
    Header header;
    std::uint32_t rooms = 0;
    std::uint32_t roomsWithMap = 0;
    std::uint32_t areas = 0;
    std::vector<RegionUse> regions;
};

std::uint32_t roomsWithMap(const EditorState& state)
{
    const PointerArrayHandler& layout = state.store.pahMapLayout;
    std::uint32_t rooms = 0;
    for (std::uint32_t room = 0; room < state.config.roomCount(); ++room) {
        if (entryLiesInFile(state.rom, layout, room)
            && layout.entryByte(kMapWidthByte, room) >= kNewLayoutWidth
            && layout.entryByte(kMapHeightByte, room) >= kNewLayoutHeight)
            ++rooms;
    }
    return rooms;
}

RomFacts factsOf(const EditorState& state)
{
    const std::uint32_t size = state.rom.size();
    const std::uint32_t data = size - std::min(size, kHeaderSize);
    return {size,
            data / kBankSize,
            data % kBankSize,
            headerOf(state.rom),
            state.config.roomCount(),
            roomsWithMap(state),
            state.config.value(MiscField::areas),
            regionUses(state)};
}

Json jsonOf(const Header& header)
{
    if (!header.isThere)
        return {};
    return {{"programBanks", header.programBanks},
            {"tileBanks", header.tileBanks},
            {"mapper", header.mapper}};
}

Json jsonOf(const RegionUse& region)
{
    Json shared = Json::array();
    for (const auto& [address, block] : region.blocks) {
        if (block.entries.size() > 1)
            shared.push_back(
                {{"address", address}, {"length", block.length}, {"entries", block.entries}});
    }
    return {{"region", region.key},
            {"tableOffset", region.tableOffset},
            {"entries", region.entries},
            {"blocks", region.blocks.size()},
            {"used", region.usedBytes},
            {"unused", numberJson(region.unusedBytes)},
            {"free", numberJson(region.freeBytes)},
            {"shared", shared}};
}

void writeAsJson(std::ostream& out, const RomFacts& facts)
{
    Json regions = Json::array();
    for (const RegionUse& region : facts.regions)
        regions.push_back(jsonOf(region));
    writeJson(out,
              {{"size", facts.size},
               {"banks", facts.banks},
               {"excessBytes", facts.excessBytes},
               {"header", jsonOf(facts.header)},
               {"rooms", facts.rooms},
               {"roomsWithMap", facts.roomsWithMap},
               {"areas", facts.areas},
               {"regions", regions}});
}

void write(std::ostream& out, const RegionUse& region)
{
    out << std::left << std::setw(20) << region.key << std::right << std::setw(7)
        << hexText(region.tableOffset) << std::setw(9) << region.entries << std::setw(8)
        << region.blocks.size() << std::setw(8) << region.sharedBlocks() << std::setw(9)
        << region.usedBytes << std::setw(9) << numberText(region.unusedBytes) << std::setw(9)
        << numberText(region.freeBytes) << '\n';
}

void write(std::ostream& out, const RomFacts& facts)
{
    out << "size: " << facts.size << " bytes, " << facts.banks << " banks of 16 KB";
    if (facts.excessBytes > 0)
        out << " and " << facts.excessBytes << " bytes";
    out << "\nheader: ";
    if (facts.header.isThere)
        out << facts.header.programBanks << " program banks, " << facts.header.tileBanks
            << " tile banks, mapper " << facts.header.mapper << '\n';
    else
        out << "none\n";
    out << "rooms: " << facts.rooms << ", " << facts.roomsWithMap << " of them with a map\n"
        << "areas: " << facts.areas << "\n\n"
        << "region                table  entries  blocks  shared     used   unused     free\n";
    for (const RegionUse& region : facts.regions)
        write(out, region);
}

class InfoVerb : public ReportVerb {
    ExitStatus report(const Context& context, const EditorState& state) const override
    {
        const RomFacts facts = factsOf(state);
        if (asJson())
            writeAsJson(context.out(), facts);
        else
            write(context.out(), facts);
        return ExitStatus::kFine;
    }
};

} // namespace

std::unique_ptr<Verb> makeInfoVerb()
{
    return std::make_unique<InfoVerb>();
}

} // namespace velko
