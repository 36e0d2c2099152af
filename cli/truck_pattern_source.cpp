#include "cli/block_sources.h"

#include "rom/number_text.h"
#include "tools/truck_movement_region.h"

#include <algorithm>

namespace velko {

namespace {

class TruckPatterns final : public BlockSource {
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
    std::vector<BlockElement> elements(const EditorState& state, std::uint32_t entry) const override
    {
        std::vector<BlockElement> phases;
        for (std::uint32_t i = 0; i < TruckMovementRegion::kMostPhases; ++i) {
            const std::uint8_t phase = state.rom.readByte(fileOffset(state, entry, i));
            phases.push_back({.place = i, .offset = i, .length = 1, .bytes = {phase}});
            if ((phase & TruckMovementRegion::kLastPhaseMark) != 0)
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
        return TruckMovementRegion::fileOffset(state.config, cpuAddress);
    }
};

} // namespace

std::unique_ptr<BlockSource> truckPatternSource()
{
    return std::make_unique<TruckPatterns>();
}

} // namespace velko
