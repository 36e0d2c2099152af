#pragma once

#include "state/editor_state.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velko {

// Offsets in the file from `start` up to, not including, `end`.
struct OffsetRange {
    std::uint32_t start = 0;
    std::uint32_t end = 0;

    bool operator==(const OffsetRange&) const = default;
};

// What owners of a difference are. Patterns are those of the overworld's trucks.
enum class DiffOwner : std::uint8_t { kNobody, kRoom, kArea, kPattern };

// "room"; empty for kNobody.
std::string_view ownerName(DiffOwner owner);

enum class DiffChange : std::uint8_t {
    kChanged, // from one value to another
    kAdded,   // only the second game has it
    kRemoved, // only the first game has it
    kMoved,   // the same, at another place
};

// Something in which two games differ, as a person would tell it.
struct Difference {
    DiffOwner owner = DiffOwner::kNobody;
    std::vector<std::uint32_t> owners = {}; // all rooms, or areas, that share it
    std::string what = {};                  // "palette entry 5"
    DiffChange change = DiffChange::kChanged;
    std::string from = {}; // the value in the first game; empty where it has none
    std::string to = {};   // the same in the second; of kMoved, how far
    // Offsets at which the files differ for this reason; each belongs to one difference only.
    std::vector<OffsetRange> offsets = {};
};

// "room 1f palette entry 5: 0f -> 30"
std::string differenceLine(const Difference& difference);

// Collects differences, and keeps the account of which of the differing offsets each explains.
class GameDiff {
public:
    GameDiff(std::span<const std::uint8_t> before, std::span<const std::uint8_t> after);

    // Whether the files differ in any of these bytes, and nothing explains it yet. A byte that only
    // one of the files has differs.
    bool isOpen(std::uint32_t offset, std::uint32_t bytes = 1) const;

    // Adds a difference, and returns its number.
    std::size_t add(Difference difference);
    // The byte is what it is in the second file because of this difference, if it differs at all
    // and was not explained yet.
    void explain(std::size_t difference, std::uint32_t offset);

    // Closes the account. Offsets are ranges in rising order then.
    void finish();

    // In the order in which they were added.
    const std::vector<Difference>& differences() const { return m_differences; }
    // Offsets at which the files differ for no reason that is known.
    const std::vector<OffsetRange>& rest() const { return m_rest; }

private:
    enum class Byte : std::uint8_t { kSame, kDiffers, kExplained };

    std::vector<Byte> m_bytes; // of the longer file
    std::vector<Difference> m_differences;
    std::vector<OffsetRange> m_rest;
};

// Compares two games of one module.
GameDiff compareGames(EditorState& before, EditorState& after);

// The parts of it. What one has explained the later ones leave alone.
void compareSize(const EditorState& before, const EditorState& after, GameDiff& diff);
void compareTables(const EditorState& before, const EditorState& after, GameDiff& diff);
void compareBlocks(const EditorState& before, const EditorState& after, GameDiff& diff);
void compareGraphics(const EditorState& before, const EditorState& after, GameDiff& diff);

// At least two hexadecimal digits, and four: values of bytes and words.
std::string byteText(std::uint32_t value);
std::string wordText(std::uint32_t value);

} // namespace velko
