#pragma once

#include "rom/game_config.h"
#include "rom/rom_image.h"
#include "store/pointer_array_handler.h"

#include <cstdint>
#include <span>

namespace velko {

// The movement patterns of the overworld's trucks. They lie packed in a data region; a table of
// one byte per pattern set tells where in it each pattern starts. Several sets may share one.
//
// A pattern is a row of phases, one byte each: bits 0-6 are a direction, bit 7 marks the last
// phase. A pattern without a last phase is taken to have kMostPhases.
//
// Nothing but the free count and the current set is kept here; all else is read from the image.
// Addresses are 16-bit CPU addresses within one bank and the one behind it. A game may be damaged:
// positions are not checked against the region, and a set past the table has whatever pointer
// follows it; only growing and shrinking such a set is refused.
class TruckMovementRegion {
public:
    static constexpr std::int16_t kFreeBytesUnknown = -1;
    static constexpr std::uint32_t kMostPhases = 256;
    static constexpr std::uint8_t kLastPhaseMark = 0x80;

    // Computes the free count: the pattern of the table's last set is the one stored last. With an
    // empty table it stays unknown.
    TruckMovementRegion(RomImage& rom, const GameConfig& config);

    // File offset of a CPU address in the bank of the patterns and the one behind it, which lie one
    // after the other in the file.
    static std::uint32_t fileOffset(const GameConfig& config, std::uint32_t cpuAddress);

    // The length of the pointer table; 0 when its end lies before its start.
    std::uint32_t patternSets() const;

    std::uint32_t currentSet() const { return m_currentSet; }
    // Any number is accepted.
    void selectSet(std::uint32_t patternSet) { m_currentSet = patternSet; }

    // Unused bytes at the end of the data region. Exactly kFreeBytesUnknown blocks inserting and
    // deleting, even where a region over-full by one byte was computed to be just that.
    std::int16_t freeBytes() const { return m_freeBytes; }
    void setFreeBytes(std::int16_t bytes) { m_freeBytes = bytes; }

    // Where a pattern starts: bytes behind the start of the data region.
    std::uint8_t pointer(std::uint32_t patternSet) const;
    std::uint8_t phase(std::uint32_t patternSet, std::uint32_t index) const;
    std::uint8_t phase(std::uint32_t index) const { return phase(m_currentSet, index); }
    void setPhase(std::uint32_t index, std::uint8_t value);
    // File offsets of a set's byte in the pointer table, and of one of its phases.
    std::uint32_t pointerOffset(std::uint32_t patternSet) const;
    std::uint32_t phaseOffset(std::uint32_t patternSet, std::uint32_t index) const;
    // The first phase with bit 7 set, at most kMostPhases - 1.
    std::uint32_t lastPhase(std::uint32_t patternSet) const;
    std::uint32_t lastPhase() const { return lastPhase(m_currentSet); }

    // Inserts into the current pattern; what lies above moves up. Pointers to what moved follow,
    // modulo 256. A pointer to exactly the place follows only when `offset` >= 1: then it is the
    // start of the pattern behind.
    EditResult insertBytes(std::uint32_t offset, std::span<const std::uint8_t> bytes);
    // Removes bytes of the current pattern; what lies above moves down, and as many bytes at the
    // end of the used part become 0. On purpose unlike inserting: a pointer to exactly the place
    // always stays. Whether `count` bytes are in use is not checked.
    EditResult deleteBytes(std::uint32_t offset, std::uint32_t count);

private:
    std::uint32_t fileOffset(std::uint32_t cpuAddress) const
    {
        return fileOffset(m_config, cpuAddress);
    }
    // File offset of a position in the data region.
    std::uint32_t dataOffset(std::uint32_t position) const;
    // The position behind the last used byte.
    std::uint32_t usedEnd() const;
    bool canEdit() const;
    // Adds `distance` to every pointer that `follows`, modulo 256.
    template <typename Follows> void movePointers(std::uint32_t distance, Follows follows);

    RomImage& m_rom;
    const GameConfig& m_config;
    std::int16_t m_freeBytes = kFreeBytesUnknown;
    std::uint32_t m_currentSet = 0;
};

} // namespace velko
