#include "cli/block_sources.h"

#include "store/block_lengths.h"

#include <algorithm>

namespace velko {

namespace {

struct HandlerKind {
    std::string_view name;
    PointerArrayHandler RoomDataStore::*handler;
    DiffOwner owner;
    bool isList;
    const BlockShape& shape;
};

const HandlerKind kKinds[] = {
    {"screen list", &RoomDataStore::pahMapAlloc, DiffOwner::kRoom, true, kScreenListShape},
    {"layout", &RoomDataStore::pahMapLayout, DiffOwner::kRoom, false, kLayoutShape},
    {"Tile32 set", &RoomDataStore::pahTile32, DiffOwner::kRoom, false, kTile32Shape},
    {"tile slots", &RoomDataStore::pahTileLoad, DiffOwner::kRoom, false, kTileSlotShape},
    {"palette", &RoomDataStore::pahPal, DiffOwner::kRoom, false, kPaletteShape},
    {"unit list", &RoomDataStore::pahUnit, DiffOwner::kRoom, true, kUnitShape},
    {"sprite loads", &RoomDataStore::pahTileLoadType2, DiffOwner::kRoom, true, kLoadShape},
    {"movements", &RoomDataStore::pahMapAreaMovement, DiffOwner::kArea, false, kMovementShape},
};

// Blocks that a handler describes.
class HandlerBlocks final : public BlockSource {
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
    std::vector<BlockElement> elements(const EditorState& state, std::uint32_t entry) const override
    {
        return m_kind.shape.elements(handler(state), entry);
    }
    std::string elementName(const EditorState& state, const BlockElement& element) const override
    {
        if (element.isEnd)
            return std::string(m_kind.name) + " end mark";
        if (&handler(state) != &state.store.pahUnit)
            return m_kind.shape.elementName(element.place);
        const std::uint8_t type = element.bytes[0];
        return m_kind.shape.elementName(element.place)
            + (type < kUnitTypes ? " (" + state.names.units[type] + ")" : "");
    }
    std::vector<BlockField> fields(const BlockElement& element) const override
    {
        const auto& all = m_kind.shape.fields;
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

} // namespace

std::vector<std::unique_ptr<BlockSource>> blockSources()
{
    std::vector<std::unique_ptr<BlockSource>> sources;
    for (const HandlerKind& kind : kKinds)
        sources.push_back(std::make_unique<HandlerBlocks>(kind));
    sources.push_back(truckPatternSource());
    return sources;
}

} // namespace velko
