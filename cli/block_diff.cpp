#include "cli/block_changes.h"
#include "cli/block_sources.h"
#include "cli/game_diff.h"
#include "rom/number_text.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace velko {

namespace {

// More changes of one block are told as a number: a damaged block may have thousands.
constexpr std::size_t kMostChanges = 100;

// The block of an entry as the two games have it. Entries with the same of both share all that
// can be told.
struct BlockPair {
    BlockKey before;
    BlockKey after;
    std::vector<std::uint32_t> owners = {};
};

// Compares one kind of blocks.
class BlockComparison {
public:
    BlockComparison(const BlockSource& source, const EditorState& before, const EditorState& after,
                    GameDiff& diff)
        : m_source(source), m_before(before), m_after(after), m_diff(diff)
    {
    }

    void run()
    {
        findPairs();
        for (const auto& [after, pairs] : m_pairs) {
            const BlockPair& origin = originOf(pairs);
            for (const BlockPair& pair : pairs)
                comparePair(pair, pair.before == origin.before);
        }
        tellMoves();
    }

private:
    void findPairs()
    {
        const std::uint32_t entries = m_source.entries(m_after);
        for (std::uint32_t entry = 0; entry < entries; ++entry) {
            const BlockKey before = m_source.key(m_before, entry);
            const BlockKey after = m_source.key(m_after, entry);
            auto& pairs = m_pairs[after];
            auto pair = std::ranges::find(pairs, before, &BlockPair::before);
            if (pair == pairs.end())
                pair = pairs.insert(pairs.end(), BlockPair{before, after});
            pair->owners.push_back(entry);
        }
    }

    std::vector<BlockChange> changes(const std::vector<BlockElement>& before,
                                     const std::vector<BlockElement>& after) const
    {
        return m_source.isList() ? changesOfList(before, after) : changesOfGrid(before, after);
    }

    // Of several blocks that became one, that which changed the least; of equal ones that which
    // did not move.
    const BlockPair& originOf(const std::vector<BlockPair>& pairs) const
    {
        if (pairs.size() == 1)
            return pairs.front();
        const auto after = m_source.elements(m_after, pairs.front().owners.front());
        const auto cost = [&](const BlockPair& pair) {
            const auto before = m_source.elements(m_before, pair.owners.front());
            return std::tuple(changes(before, after).size(), pair.before != pair.after);
        };
        return *std::ranges::min_element(pairs, {}, cost);
    }

    void comparePair(const BlockPair& pair, bool isOrigin)
    {
        if (!isOrigin) {
            tellPointer(pair);
            return;
        }
        if (pair.before.address != pair.after.address)
            m_moves[pair.after.address - pair.before.address].push_back(pair);
        std::optional<std::size_t> structure;
        if (pair.before.width != pair.after.width || pair.before.height != pair.after.height)
            structure = tellSize(pair);
        compareContents(pair, structure);
    }

    void compareContents(const BlockPair& pair, std::optional<std::size_t> structure)
    {
        const std::uint32_t entry = pair.owners.front();
        const auto before = m_source.elements(m_before, entry);
        const auto after = m_source.elements(m_after, entry);
        const auto found = changes(before, after);
        if (found.size() > kMostChanges) {
            const std::size_t many = m_diff.add(
                {.owner = m_source.owner(),
                 .owners = pair.owners,
                 .what = std::string(m_source.name()),
                 .from = decimalText(static_cast<std::uint32_t>(found.size())) + " pieces",
                 .to = "other ones"});
            explainBlock(many, entry, after);
            return;
        }
        for (const BlockChange& change : found) {
            const std::size_t told = tellChange(pair, change);
            if (!structure && (change.before == nullptr || change.after == nullptr))
                structure = told;
        }
        // What moved up or down inside the block, and its end mark.
        if (structure)
            explainBlock(*structure, entry, after);
    }

    // Tells an element that came, went or changed, field by field. Returns the last difference.
    std::size_t tellChange(const BlockPair& pair, const BlockChange& change)
    {
        const EditorState& state = m_after;
        if (change.before == nullptr || change.after == nullptr) {
            const bool added = change.before == nullptr;
            const BlockElement& element = added ? *change.after : *change.before;
            const std::string value = elementText(state, element);
            const std::size_t told =
                m_diff.add({.owner = m_source.owner(),
                            .owners = pair.owners,
                            .what = m_source.elementName(state, element),
                            .change = added ? DiffChange::kAdded : DiffChange::kRemoved,
                            .from = added ? "" : value,
                            .to = added ? value : ""});
            if (added)
                explainBytes(told, pair.owners.front(), element.offset, element.length);
            return told;
        }
        std::size_t told = 0;
        for (const BlockField& field : m_source.fields(*change.after)) {
            const auto from = std::span(change.before->bytes).subspan(field.offset, field.length);
            const auto to = std::span(change.after->bytes).subspan(field.offset, field.length);
            if (std::ranges::equal(from, to))
                continue;
            told = m_diff.add(
                {.owner = m_source.owner(),
                 .owners = pair.owners,
                 .what = m_source.elementName(state, *change.after) + std::string(field.name),
                 .from = fieldText(state, field, from),
                 .to = fieldText(state, field, to)});
            explainBytes(told, pair.owners.front(), change.after->offset + field.offset,
                         field.length);
        }
        return told;
    }

    // All fields: "05 (Snail), x 40, y 50, screen x 00, screen y 00".
    std::string elementText(const EditorState& state, const BlockElement& element) const
    {
        std::string text;
        for (const BlockField& field : m_source.fields(element)) {
            text += text.empty() ? "" : "," + std::string(field.name) + " ";
            text += fieldText(state, field,
                              std::span(element.bytes).subspan(field.offset, field.length));
        }
        return text;
    }

    std::size_t tellSize(const BlockPair& pair)
    {
        const auto text = [](const BlockKey& key) {
            return hexText(key.width) + " x " + hexText(key.height);
        };
        const std::size_t size = m_diff.add({.owner = m_source.owner(),
                                             .owners = pair.owners,
                                             .what = std::string(m_source.name()) + " stored size",
                                             .from = text(pair.before),
                                             .to = text(pair.after)});
        explainEntries(size, pair);
        return size;
    }

    void tellPointer(const BlockPair& pair)
    {
        if (pair.before.width != pair.after.width || pair.before.height != pair.after.height)
            tellSize(pair);
        if (pair.before.address == pair.after.address)
            return;
        const std::size_t pointer =
            m_diff.add({.owner = m_source.owner(),
                        .owners = pair.owners,
                        .what = std::string(m_source.name()) + " pointer",
                        .from = wordText(static_cast<std::uint32_t>(pair.before.address)),
                        .to = wordText(static_cast<std::uint32_t>(pair.after.address))});
        explainEntries(pointer, pair);
    }

    // One difference for all blocks that moved the same way.
    void tellMoves()
    {
        for (const auto& [distance, pairs] : m_moves) {
            Difference move{.owner = m_source.owner(),
                            .what = std::string(m_source.name()),
                            .change = DiffChange::kMoved};
            for (const BlockPair& pair : pairs)
                move.owners.insert(move.owners.end(), pair.owners.begin(), pair.owners.end());
            std::ranges::sort(move.owners);
            move.to = hexText(static_cast<std::uint32_t>(std::abs(distance)))
                + (distance > 0 ? " bytes up" : " bytes down");
            const std::size_t told = m_diff.add(std::move(move));
            for (const BlockPair& pair : pairs) {
                explainEntries(told, pair);
                const std::uint32_t entry = pair.owners.front();
                explainBlock(told, entry, m_source.elements(m_after, entry));
            }
            explainBetween(told, pairs);
        }
    }

    // Blocks that nothing points at move together with those around them.
    void explainBetween(std::size_t difference, const std::vector<BlockPair>& pairs)
    {
        const auto [low, high] = std::ranges::minmax(
            pairs, {}, [](const BlockPair& pair) { return pair.after.address; });
        const std::uint32_t entry = low.owners.front();
        const auto bytes = static_cast<std::uint32_t>(high.after.address - low.after.address);
        for (std::uint32_t i = 0; i < bytes; ++i) {
            const std::uint32_t offset = m_source.fileOffset(m_after, entry, i);
            if (m_after.rom.readByte(offset)
                == m_before.rom.readByte(m_source.fileOffset(m_before, entry, i)))
                m_diff.explain(difference, offset);
        }
    }

    void explainEntries(std::size_t difference, const BlockPair& pair)
    {
        for (const std::uint32_t owner : pair.owners) {
            const OffsetRange bytes = m_source.entryBytes(m_after, owner);
            for (std::uint32_t i = bytes.start; i != bytes.end; ++i)
                m_diff.explain(difference, i);
        }
    }
    void explainBlock(std::size_t difference, std::uint32_t entry,
                      const std::vector<BlockElement>& elements)
    {
        if (!elements.empty())
            explainBytes(difference, entry, 0, elements.back().offset + elements.back().length);
    }
    void explainBytes(std::size_t difference, std::uint32_t entry, std::uint32_t offset,
                      std::uint32_t bytes)
    {
        for (std::uint32_t i = 0; i < bytes; ++i)
            m_diff.explain(difference, m_source.fileOffset(m_after, entry, offset + i));
    }

    const BlockSource& m_source;
    const EditorState& m_before;
    const EditorState& m_after;
    GameDiff& m_diff;
    std::map<BlockKey, std::vector<BlockPair>> m_pairs;     // by the second game's block
    std::map<std::int32_t, std::vector<BlockPair>> m_moves; // by the distance
};

} // namespace

void compareBlocks(const EditorState& before, const EditorState& after, GameDiff& diff)
{
    for (const auto& source : blockSources())
        BlockComparison(*source, before, after, diff).run();
}

} // namespace velko
