#include "cli/block_sources.h"

#include "gfx/tile32.h"
#include "pages/unit_list.h"
#include "rom/number_text.h"
#include "store/block_lengths.h"

#include <algorithm>

namespace velko {

namespace {

constexpr std::uint32_t kMostEntries = 256;
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

// The fields of whole elements; empty where an element is one value.
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

struct HandlerKind {
    std::string_view name;
    PointerArrayHandler RoomDataStore::*handler;
    DiffOwner owner;
    bool isList;
    Elements (*elements)(const PointerArrayHandler& handler, std::uint32_t entry);
    std::string (*elementName)(std::uint32_t place);
    std::span<const BlockField> fields;
};

constexpr HandlerKind kKinds[] = {
    {"screen list", &RoomDataStore::pahMapAlloc, DiffOwner::kRoom, true, screenListElements,
     screenListName, kWordField},
    {"layout",
     &RoomDataStore::pahMapLayout,
     DiffOwner::kRoom,
     false,
     layoutElements,
     layoutName,
     {}},
    {"Tile32 set", &RoomDataStore::pahTile32, DiffOwner::kRoom, false, tile32Elements, tile32Name,
     kTile32Fields},
    {"tile slots",
     &RoomDataStore::pahTileLoad,
     DiffOwner::kRoom,
     false,
     slotElements,
     slotName,
     {}},
    {"palette", &RoomDataStore::pahPal, DiffOwner::kRoom, false, paletteElements, paletteName, {}},
    {"unit list", &RoomDataStore::pahUnit, DiffOwner::kRoom, true, unitElements, unitName,
     kUnitFields},
    {"sprite loads", &RoomDataStore::pahTileLoadType2, DiffOwner::kRoom, true, loadElements,
     loadName, kLoadField},
    {"movements", &RoomDataStore::pahMapAreaMovement, DiffOwner::kArea, false, movementElements,
     movementName, kMovementFields},
};

// Blocks that a handler describes.
class HandlerBlocks : public BlockSource {
public:
    explicit HandlerBlocks(const HandlerKind& kind) : m_kind(kind) { }

    std::string_view name() const override { return m_kind.name; }
    DiffOwner owner() const override { return m_kind.owner; }
    bool isList() const override { return m_kind.isList; }

    // Tables have entries past the rooms, which follow when blocks are moved.
    std::uint32_t entries(const EditorState& state) const override
    {
        const auto all = static_cast<std::uint32_t>(std::max(handler(state).entryCount(), 0));
        const bool isOfRooms = m_kind.owner == DiffOwner::kRoom;
        return std::min(std::max(all, isOfRooms ? state.config.roomCount() : 0), kMostEntries);
    }
    BlockKey key(const EditorState& state, std::uint32_t entry) const override
    {
        const PointerArrayHandler& blocks = handler(state);
        if (&blocks != &state.store.pahMapLayout)
            return {blocks.pointerOf(entry)};
        return {blocks.pointerOf(entry), blocks.entryByte(kMapWidthByte, entry),
                blocks.entryByte(kMapHeightByte, entry)};
    }
    OffsetRange entryBytes(const EditorState& state, std::uint32_t entry) const override
    {
        const std::uint32_t start = handler(state).entryFileOffset(entry);
        return {start, start + (&handler(state) == &state.store.pahMapLayout ? 4 : 2)};
    }
    std::uint32_t fileOffset(const EditorState& state, std::uint32_t entry,
                             std::uint32_t offset) const override
    {
        return handler(state).dataFileOffset(handler(state).pointerOf(entry, offset));
    }
    Elements elements(const EditorState& state, std::uint32_t entry) const override
    {
        return m_kind.elements(handler(state), entry);
    }
    std::string elementName(const EditorState& state, const BlockElement& element) const override
    {
        if (element.isEnd)
            return std::string(m_kind.name) + " end mark";
        if (&handler(state) != &state.store.pahUnit)
            return m_kind.elementName(element.place);
        const std::uint8_t type = element.bytes[0];
        return m_kind.elementName(element.place)
            + (type < kUnitTypes ? " (" + state.names.units[type] + ")" : "");
    }
    std::vector<BlockField> fields(const BlockElement& element) const override
    {
        const auto& all = m_kind.fields;
        // Elements at a block's start or end are of another shape.
        const bool fits = !element.isEnd && !all.empty()
            && std::ranges::all_of(all, [&](const BlockField& field) {
                   return field.offset + field.length <= element.length;
               });
        if (fits)
            return {all.begin(), all.end()};
        return {{"", 0, element.length}};
    }

private:
    const PointerArrayHandler& handler(const EditorState& state) const
    {
        return state.store.*m_kind.handler;
    }

    const HandlerKind& m_kind;
};

// The trucks' patterns, whose table has one byte for each.
class TruckPatterns : public BlockSource {
public:
    std::string_view name() const override { return "truck pattern"; }
    DiffOwner owner() const override { return DiffOwner::kPattern; }
    bool isList() const override { return true; }

    std::uint32_t entries(const EditorState& state) const override
    {
        const std::uint32_t start = state.config.value(MiscField::bpahTruckMovement_pMemStart);
        const std::uint32_t edge = state.config.value(MiscField::bpahTruckMovement_pMemEdge);
        return edge > start ? std::min(edge - start, kMostEntries) : 0;
    }
    BlockKey key(const EditorState& state, std::uint32_t entry) const override
    {
        return {state.rom.readByte(entryBytes(state, entry).start)};
    }
    OffsetRange entryBytes(const EditorState& state, std::uint32_t entry) const override
    {
        const std::uint32_t start =
            offsetOf(state, state.config.value(MiscField::bpahTruckMovement_pMemStart) + entry);
        return {start, start + 1};
    }
    std::uint32_t fileOffset(const EditorState& state, std::uint32_t entry,
                             std::uint32_t offset) const override
    {
        return offsetOf(state,
                        state.config.value(MiscField::bpahTruckMovement_dMemStart)
                            + static_cast<std::uint32_t>(key(state, entry).address) + offset);
    }
    Elements elements(const EditorState& state, std::uint32_t entry) const override
    {
        Elements phases;
        for (std::uint32_t i = 0; i < kMostEntries; ++i) {
            const std::uint8_t phase = state.rom.readByte(fileOffset(state, entry, i));
            phases.push_back({.place = i, .offset = i, .length = 1, .bytes = {phase}});
            if ((phase & 0x80) != 0)
                break;
        }
        return phases;
    }
    std::string elementName(const EditorState&, const BlockElement& element) const override
    {
        return "phase " + hexText(element.place);
    }
    std::vector<BlockField> fields(const BlockElement& element) const override
    {
        return {{"", 0, element.length}};
    }

private:
    static std::uint32_t offsetOf(const EditorState& state, std::uint32_t cpuAddress)
    {
        return state.config.value(MiscField::bpahTruckMovement_bank) * kBankSize
            + (cpuAddress & 0x7FFF) + kHeaderSize;
    }
};

} // namespace

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

std::vector<std::unique_ptr<BlockSource>> blockSources()
{
    std::vector<std::unique_ptr<BlockSource>> sources;
    for (const HandlerKind& kind : kKinds)
        sources.push_back(std::make_unique<HandlerBlocks>(kind));
    sources.push_back(std::make_unique<TruckPatterns>());
    return sources;
}

} // namespace velko
