#pragma once

#include "cli/block_elements.h"
#include "cli/game_diff.h"
#include "state/editor_state.h"

#include <compare>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace velko {

// What tells the blocks of one kind apart: where one starts, and of a layout its stored size.
struct BlockKey {
    std::int32_t address = 0;
    std::uint32_t width = 0;
    std::uint32_t height = 0;

    auto operator<=>(const BlockKey&) const = default;
};

// One kind of data that is kept in blocks to which a table points, as a comparison sees it. It
// keeps nothing of a game.
class BlockSource {
public:
    // Further entries of a table are left out.
    static constexpr std::uint32_t kMostEntries = 256;

    virtual ~BlockSource() = default;

    virtual std::string_view name() const = 0;
    virtual DiffOwner owner() const = 0;
    // Whether elements that come or go move those behind them.
    virtual bool isList() const = 0;

    // How many there are, at most kMostEntries.
    virtual std::uint32_t entries(const EditorState& state) const = 0;
    virtual BlockKey key(const EditorState& state, std::uint32_t entry) const = 0;
    // File offsets of the entry in the table.
    virtual OffsetRange entryBytes(const EditorState& state, std::uint32_t entry) const = 0;
    // File offset of a byte of the entry's block.
    virtual std::uint32_t fileOffset(const EditorState& state, std::uint32_t entry,
                                     std::uint32_t offset) const = 0;
    // All of the block, in the order of places. Of a list that has no end only the first part.
    virtual std::vector<BlockElement> elements(const EditorState& state,
                                               std::uint32_t entry) const = 0;

    virtual std::string elementName(const EditorState& state,
                                    const BlockElement& element) const = 0;
    virtual std::vector<BlockField> fields(const BlockElement& element) const = 0;
};

// The trucks' patterns, whose table has one byte for each.
std::unique_ptr<BlockSource> truckPatternSource();

// All kinds: those of rooms, the areas' movements, the trucks' patterns.
std::vector<std::unique_ptr<BlockSource>> blockSources();

} // namespace velko
