#pragma once

#include "state/editor_state.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velko {

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

// The value of a field's bytes, with the name that the module has for it.
std::string fieldText(const EditorState& state, const BlockField& field,
                      std::span<const std::uint8_t> bytes);

// How the blocks of one kind fall into elements.
struct BlockShape {
    // All of the entry's block, in the order of places. Of a list that has no end only the first
    // part.
    std::vector<BlockElement> (*elements)(const PointerArrayHandler& handler, std::uint32_t entry);
    std::string (*elementName)(std::uint32_t place);
    // Of whole elements; empty where an element is one value.
    std::span<const BlockField> fields;
};

extern const BlockShape kScreenListShape;
extern const BlockShape kLayoutShape;
extern const BlockShape kTile32Shape;
extern const BlockShape kTileSlotShape;
extern const BlockShape kPaletteShape;
extern const BlockShape kUnitShape;
extern const BlockShape kLoadShape;
extern const BlockShape kMovementShape;

} // namespace velko
