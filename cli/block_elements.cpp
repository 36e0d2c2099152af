#include "cli/block_elements.h"

#include "cli/game_diff.h"
#include "gfx/tile32.h"
#include "pages/unit_list.h"
#include "rom/number_text.h"
#include "store/block_lengths.h"

namespace velko {

namespace {

// A cell tells one of 256 screens, and no list of the game is near this. Longer ones have no end.
constexpr std::uint32_t kLongestList = 512;
constexpr std::uint32_t kSlots = 64;
constexpr std::uint32_t kTile32s = kTile32Length / Tile32::kBytes;
constexpr std::uint32_t kPlacesPerRow = 512; // of a layout: more than it has columns
constexpr std::uint32_t kRightBorder = kPlacesPerRow - 1;
constexpr std::uint8_t kLoadsEnd = 0x80;

using Elements = std::vector<BlockElement>;
using Text = BlockField::Text;

// Reads elements one behind the other.
class ElementReader {
public:
    ElementReader(const PointerArrayHandler& handler, std::uint32_t entry)
        : m_handler(handler), m_entry(entry)
    {
    }

    std::uint8_t peek() const { return m_handler.dataByte(m_offset, m_entry); }
    std::uint16_t peekWord() const { return m_handler.dataWord(m_offset, m_entry); }
    void take(std::uint32_t place, std::uint32_t length, bool isEnd = false)
    {
        BlockElement element{.place = place, .offset = m_offset, .length = length, .isEnd = isEnd};
        for (std::uint32_t i = 0; i < length; ++i)
            element.bytes[i] = m_handler.dataByte(m_offset + i, m_entry);
        m_offset += length;
        m_elements.push_back(element);
    }
    Elements elements() { return std::move(m_elements); }

private:
    const PointerArrayHandler& m_handler;
    std::uint32_t m_entry;
    std::uint32_t m_offset = 0;
    Elements m_elements;
};

Elements plainBytes(const PointerArrayHandler& handler, std::uint32_t entry, std::uint32_t count)
{
    ElementReader reader(handler, entry);
    for (std::uint32_t i = 0; i < count; ++i)
        reader.take(i, 1);
    return reader.elements();
}

Elements paletteElements(const PointerArrayHandler& handler, std::uint32_t entry)
{
    return plainBytes(handler, entry, kPaletteLength);
}

Elements slotElements(const PointerArrayHandler& handler, std::uint32_t entry)
{
    return plainBytes(handler, entry, kTileLoadLength);
}

Elements tile32Elements(const PointerArrayHandler& handler, std::uint32_t entry)
{
    ElementReader reader(handler, entry);
    for (std::uint32_t i = 0; i < kTile32s; ++i)
        reader.take(i, Tile32::kBytes);
    reader.take(kTile32s, kTile32Length % Tile32::kBytes);
    return reader.elements();
}

Elements layoutElements(const PointerArrayHandler& handler, std::uint32_t entry)
{
    const std::uint32_t width = handler.entryByte(kMapWidthByte, entry);
    const std::uint32_t height = handler.entryByte(kMapHeightByte, entry);
    ElementReader reader(handler, entry);
    for (std::uint32_t row = 0; row < height; ++row) {
        for (std::uint32_t column = 0; column < width; ++column) {
            const bool isRight = column > 0 && column + 1 == width;
            reader.take(row * kPlacesPerRow + (isRight ? kRightBorder : column), 1);
        }
    }
    return reader.elements();
}

Elements screenListElements(const PointerArrayHandler& handler, std::uint32_t entry)
{
    ElementReader reader(handler, entry);
    std::uint32_t i = 0;
    for (; i < kLongestList && reader.peekWord() != kScreenListEnd; ++i)
        reader.take(i, 2);
    if (i < kLongestList)
        reader.take(i, 2, true);
    return reader.elements();
}

Elements byteListElements(const PointerArrayHandler& handler, std::uint32_t entry,
                          std::uint8_t lowestEnd, std::uint32_t recordBytes)
{
    ElementReader reader(handler, entry);
    std::uint32_t i = 0;
    for (; i < kLongestList && reader.peek() < lowestEnd; ++i)
        reader.take(i, recordBytes);
    if (i < kLongestList)
        reader.take(i, 1, true);
    return reader.elements();
}

Elements unitElements(const PointerArrayHandler& handler, std::uint32_t entry)
{
    return byteListElements(handler, entry, UnitList::kEnd, UnitRecord::kBytes);
}

Elements loadElements(const PointerArrayHandler& handler, std::uint32_t entry)
{
    return byteListElements(handler, entry, kLoadsEnd, 1);
}

Elements movementElements(const PointerArrayHandler& handler, std::uint32_t entry)
{
    ElementReader reader(handler, entry);
    const std::uint32_t entries = reader.peek() / 2U;
    reader.take(0, 1);
    reader.take(1, 1);
    for (std::uint32_t i = 0; i < entries; ++i)
        reader.take(2 + i, 2);
    return reader.elements();
}

std::string paletteName(std::uint32_t place)
{
    return "palette entry " + hexText(place);
}

std::string slotName(std::uint32_t place)
{
    if (place < kSlots)
        return "slot " + hexText(place) + " block";
    const std::uint32_t first = 2 * (place - kSlots);
    return "slots " + hexText(first) + " and " + hexText(first + 1) + " bank and flags";
}

std::string tile32Name(std::uint32_t place)
{
    return place < kTile32s ? "Tile32 " + hexText(place) : "Tile32 last bytes";
}

std::string layoutName(std::uint32_t place)
{
    const std::string row = hexText(place / kPlacesPerRow);
    const std::uint32_t column = place % kPlacesPerRow;
    if (column == 0 || column == kRightBorder)
        return "layout " + std::string(column == 0 ? "left" : "right") + " border " + row;
    return "layout " + row + "," + hexText(column - 1);
}

std::string screenListName(std::uint32_t place)
{
    return "screen list entry " + hexText(place);
}

std::string unitName(std::uint32_t place)
{
    return "unit " + hexText(place);
}

std::string loadName(std::uint32_t place)
{
    return "sprite load " + hexText(place);
}

std::string movementName(std::uint32_t place)
{
    if (place < 2)
        return place == 0 ? "movement bytes" : "movement byte 1";
    return "movement " + hexText(place - 2);
}

constexpr BlockField kTile32Fields[] = {
    {" top left", 0, 1}, {" bottom left", 1, 1},  {" top right", 2, 1},     {" bottom right", 3, 1},
    {" palettes", 4, 1}, {" left physics", 5, 1}, {" right physics", 6, 1},
};
constexpr BlockField kUnitFields[] = {
    {" type", 0, 1, Text::kUnitType},         {" x", 1, 1},        {" y", 3, 1},
    {" screen x", 2, 1, Text::kScreenColumn}, {" screen y", 4, 1},
};
constexpr BlockField kMovementFields[] = {
    {" chopper and path sprites", 0, 1},
    {" digits", 1, 1},
};
constexpr BlockField kWordField[] = {{"", 0, 2, Text::kWord}};
constexpr BlockField kLoadField[] = {{"", 0, 1, Text::kLoad}};

} // namespace

const BlockShape kScreenListShape{screenListElements, screenListName, kWordField};
const BlockShape kLayoutShape{layoutElements, layoutName, {}};
const BlockShape kTile32Shape{tile32Elements, tile32Name, kTile32Fields};
const BlockShape kTileSlotShape{slotElements, slotName, {}};
const BlockShape kPaletteShape{paletteElements, paletteName, {}};
const BlockShape kUnitShape{unitElements, unitName, kUnitFields};
const BlockShape kLoadShape{loadElements, loadName, kLoadField};
const BlockShape kMovementShape{movementElements, movementName, kMovementFields};

std::string fieldText(const EditorState& state, const BlockField& field,
                      std::span<const std::uint8_t> bytes)
{
    const std::uint8_t first = bytes.front();
    const auto named = [first](const auto& names) {
        return byteText(first) + (first < names.size() ? " (" + names[first] + ")" : "");
    };
    switch (field.text) {
    case Text::kWord:
        return wordText(first | std::uint32_t{bytes[1]} << 8);
    case Text::kUnitType:
        return named(state.names.units);
    case Text::kLoad:
        return named(state.names.vramLoads);
    case Text::kScreenColumn:
        return first == 0 ? "not placed" : byteText(first - 1U);
    case Text::kBytes:
        break;
    }
    std::string text;
    for (const std::uint8_t byte : bytes)
        text += (text.empty() ? "" : " ") + byteText(byte);
    return text;
}

} // namespace velko
