#pragma once

#include "cli/game_diff.h"
#include "state/editor_state.h"

#include <array>
#include <compare>
#include <cstdint>
#include <memory>
#include <span>
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

// A piece of a block that a person knows by a name.
struct BlockElement {
    std::uint32_t place = 0;  // tells which piece it is; rises through a block
    std::uint32_t offset = 0; // from the block's start
    std::uint32_t length = 0; // bytes
    std::array<std::uint8_t, 8> bytes{};
    bool isEnd = false; // the mark at a list's end

    bool sameBytes(const BlockElement& other) const
    {
        return length == other.length && bytes == other.bytes;
    }
};

// A value inside an element.
struct BlockField {
    enum class Text : std::uint8_t { kBytes, kWord, kUnitType, kLoad, kScreenColumn };

    std::string_view name; // behind the element's; starts with a blank, or is empty
    std::uint32_t offset = 0;
    std::uint32_t length = 0;
    Text text = Text::kBytes;
};

// One kind of data that is kept in blocks to which a table points, as a comparison sees it. It
// keeps nothing of a game.
class BlockSource {
public:
    virtual ~BlockSource() = default;

    virtual std::string_view name() const = 0;
    virtual DiffOwner owner() const = 0;
    // Whether elements that come or go move those behind them.
    virtual bool isList() const = 0;

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

// The value of a field's bytes, with the name that the module has for it.
std::string fieldText(const EditorState& state, const BlockField& field,
                      std::span<const std::uint8_t> bytes);

// All kinds: those of rooms, the areas' movements, the trucks' patterns.
std::vector<std::unique_ptr<BlockSource>> blockSources();

} // namespace velko
