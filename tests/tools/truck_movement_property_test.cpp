#include "tools/truck_movement_region.h"

#include "tests/tools/overworld_rom.h"

#include <algorithm>
#include <rapidcheck/gtest.h>

// Random patterns, some of them shared by several sets, edited in random order beside a plain
// model: no other pattern's phases may ever change.

namespace velko {
namespace {

using test::Bytes;
using test::OverworldRom;
namespace overworld = test::overworld;

constexpr std::uint16_t kDataStart = 0x8610;
constexpr std::size_t kRegionBytes = 200; // below 256, so that no pointer wraps

Bytes somePattern()
{
    Bytes phases = *rc::gen::resize(
        8, rc::gen::nonEmpty(rc::gen::container<Bytes>(rc::gen::inRange<std::uint8_t>(0, 128))));
    phases.back() |= 0x80;
    return phases;
}

// Patterns in the order in which they are stored, and which of them each set uses. The last set
// uses the highest one, as the free bytes are counted from there.
struct Patterns {
    std::vector<Bytes> phases;
    std::vector<std::size_t> ofSet;

    Patterns()
    {
        const auto count = *rc::gen::inRange<std::size_t>(1, 7);
        for (std::size_t i = 0; i < count; ++i)
            phases.push_back(somePattern());
        ofSet = *rc::gen::resize(
            12,
            rc::gen::container<std::vector<std::size_t>>(rc::gen::inRange<std::size_t>(0, count)));
        ofSet.push_back(count - 1);
    }
    std::size_t bytes() const
    {
        std::size_t sum = 0;
        for (const Bytes& pattern : phases)
            sum += pattern.size();
        return sum;
    }
    OverworldRom stored() const
    {
        OverworldRom game;
        std::vector<std::uint8_t> starts;
        Bytes data;
        for (const Bytes& pattern : phases) {
            starts.push_back(static_cast<std::uint8_t>(data.size()));
            data.insert(data.end(), pattern.begin(), pattern.end());
        }
        data.resize(kRegionBytes);
        data.push_back(0xEE); // of somebody else
        game.write(overworld::kPatterns, data);
        for (std::uint32_t set = 0; set < ofSet.size(); ++set)
            game.bytes[overworld::kPatternTable + set] = starts[ofSet[set]];
        game.config.setValue(MiscField::bpahTruckMovement_pMemEdge,
                             0x8600 + static_cast<std::uint32_t>(ofSet.size()));
        game.config.setValue(MiscField::bpahTruckMovement_dMemEdge, kDataStart + kRegionBytes);
        return game;
    }
};

class Rehearsal {
public:
    void insertPhase()
    {
        Bytes& pattern = chosenPattern();
        const auto place = *rc::gen::inRange<std::size_t>(0, pattern.size() + 1);
        const Bytes phase{*rc::gen::inRange<std::uint8_t>(0, 128)};
        const bool fits = m_patterns.bytes() < kRegionBytes;
        RC_ASSERT(m_region.insertBytes(static_cast<std::uint32_t>(place), phase).ok() == fits);
        if (!fits)
            return;
        if (place == pattern.size()) { // behind the last phase: the mark moves to the new one
            const auto old = static_cast<std::uint32_t>(place - 1);
            m_region.setPhase(old, m_region.phase(old) & 0x7F);
            m_region.setPhase(old + 1, phase[0] | 0x80);
        }
        pattern.back() &= 0x7F;
        pattern.insert(pattern.begin() + static_cast<std::ptrdiff_t>(place), phase[0]);
        pattern.back() |= 0x80;
    }

    void deletePhase()
    {
        Bytes& pattern = chosenPattern();
        if (pattern.size() == 1)
            return;
        const auto place = *rc::gen::inRange<std::size_t>(0, pattern.size());
        RC_ASSERT(m_region.deleteBytes(static_cast<std::uint32_t>(place), 1).ok());
        if (place == pattern.size() - 1) {
            const auto last = static_cast<std::uint32_t>(place - 1);
            m_region.setPhase(last, m_region.phase(last) | 0x80);
        }
        pattern.erase(pattern.begin() + static_cast<std::ptrdiff_t>(place));
        pattern.back() |= 0x80;
    }

    void checkAll() const
    {
        for (std::uint32_t set = 0; set < m_patterns.ofSet.size(); ++set) {
            const Bytes& pattern = m_patterns.phases[m_patterns.ofSet[set]];
            Bytes read;
            for (std::uint32_t i = 0; i <= m_region.lastPhase(set); ++i)
                read.push_back(m_region.phase(set, i));
            RC_ASSERT(read == pattern);
        }
        const std::size_t used = m_patterns.bytes();
        RC_ASSERT(m_region.freeBytes() == static_cast<int>(kRegionBytes - used));
        for (std::size_t i = used; i < kRegionBytes; ++i)
            RC_ASSERT(byteOfRegion(i) == 0);
        RC_ASSERT(byteOfRegion(kRegionBytes) == 0xEE);
    }

private:
    Bytes& chosenPattern()
    {
        const auto set = *rc::gen::inRange<std::size_t>(0, m_patterns.ofSet.size());
        m_region.selectSet(static_cast<std::uint32_t>(set));
        return m_patterns.phases[m_patterns.ofSet[set]];
    }
    std::uint8_t byteOfRegion(std::size_t position) const
    {
        return m_rom.readByte(overworld::kPatterns + static_cast<std::uint32_t>(position));
    }

    Patterns m_patterns;
    OverworldRom m_game = m_patterns.stored();
    RomImage m_rom = [this] {
        RomImage rom;
        rom.setBytes(m_game.bytes);
        return rom;
    }();
    TruckMovementRegion m_region{m_rom, m_game.config};
};

RC_GTEST_PROP(TruckMovementProperty, EveryPatternKeepsItsPhasesThroughAnyEdits, ())
{
    Rehearsal rehearsal;
    rehearsal.checkAll();
    const auto edits = *rc::gen::inRange(0, 60);
    for (int i = 0; i < edits; ++i) {
        if (*rc::gen::weightedElement<bool>({{3, true}, {2, false}}))
            rehearsal.insertPhase();
        else
            rehearsal.deletePhase();
        rehearsal.checkAll();
    }
}

// Bytes and configurations of any kind: nothing outside the bank and the one behind is written.
RC_GTEST_PROP(TruckMovementProperty, WildRegionsStayWithinTheirTwoBanks, ())
{
    OverworldRom game;
    for (const MiscField field :
         {MiscField::bpahTruckMovement_dMemStart, MiscField::bpahTruckMovement_dMemEdge,
          MiscField::bpahTruckMovement_pMemStart, MiscField::bpahTruckMovement_pMemEdge})
        game.config.setValue(field, *rc::gen::arbitrary<std::uint32_t>());
    game.config.setValue(MiscField::bpahTruckMovement_bank, 7);
    const std::uint32_t from = cpuToFileOffset({7, 8}, 0x8000);
    for (std::uint32_t i = 0; i < 2 * kBankSize; ++i)
        game.bytes[from + i] = static_cast<std::uint8_t>(i * 2654435761U >> 24);
    RomImage rom;
    rom.setBytes(game.bytes);

    TruckMovementRegion region(rom, game.config);
    region.setFreeBytes(*rc::gen::arbitrary<std::int16_t>());
    for (int i = 0; i < 4; ++i) {
        region.selectSet(*rc::gen::inRange<std::uint32_t>(0, 20));
        (void)region.insertBytes(
            *rc::gen::inRange<std::uint32_t>(0, 256),
            *rc::gen::resize(20, rc::gen::container<Bytes>(rc::gen::arbitrary<std::uint8_t>())));
        (void)region.deleteBytes(*rc::gen::inRange<std::uint32_t>(0, 256),
                                 *rc::gen::inRange<std::uint32_t>(0, 300));
    }

    const auto after = rom.bytes();
    RC_ASSERT(std::equal(after.begin(), after.begin() + from, game.bytes.begin()));
    RC_ASSERT(std::equal(after.begin() + from + 2 * kBankSize, after.end(),
                         game.bytes.begin() + from + 2 * kBankSize));
}

} // namespace
} // namespace velko
