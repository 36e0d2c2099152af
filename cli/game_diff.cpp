#include "cli/game_diff.h"

#include "rom/number_text.h"

#include <algorithm>

namespace velko {

namespace {

std::string padded(std::uint32_t value, std::size_t digits)
{
    std::string text = hexText(value);
    return text.size() < digits ? std::string(digits - text.size(), '0') + text : text;
}

// "rooms 3, 1f "
std::string ownersText(const Difference& difference)
{
    if (difference.owners.empty())
        return {};
    std::string text(ownerName(difference.owner));
    text += difference.owners.size() > 1 ? "s" : "";
    const char* separator = " ";
    for (const std::uint32_t owner : difference.owners) {
        text += separator + hexText(owner);
        separator = ", ";
    }
    return text + " ";
}

void addOffset(std::vector<OffsetRange>& ranges, std::uint32_t offset)
{
    if (!ranges.empty() && ranges.back().end == offset)
        ++ranges.back().end;
    else
        ranges.push_back({offset, offset + 1});
}

void joinRanges(std::vector<OffsetRange>& ranges)
{
    std::ranges::sort(ranges, {}, &OffsetRange::start);
    std::vector<OffsetRange> joined;
    for (const OffsetRange& range : ranges) {
        if (!joined.empty() && joined.back().end == range.start)
            joined.back().end = range.end;
        else
            joined.push_back(range);
    }
    ranges = std::move(joined);
}

} // namespace

std::string_view ownerName(DiffOwner owner)
{
    constexpr std::string_view kNames[] = {"", "room", "area", "pattern"};
    return kNames[static_cast<std::size_t>(owner)];
}

std::string byteText(std::uint32_t value)
{
    return padded(value, 2);
}

std::string wordText(std::uint32_t value)
{
    return padded(value, 4);
}

std::string differenceLine(const Difference& difference)
{
    const std::string subject = ownersText(difference) + difference.what + ": ";
    switch (difference.change) {
    case DiffChange::kAdded:
        return subject + "added, " + difference.to;
    case DiffChange::kRemoved:
        return subject + "removed, was " + difference.from;
    case DiffChange::kMoved:
        return subject + "moved " + difference.to;
    case DiffChange::kChanged:
        break;
    }
    return subject + difference.from + " -> " + difference.to;
}

GameDiff::GameDiff(std::span<const std::uint8_t> before, std::span<const std::uint8_t> after)
    : m_bytes(std::max(before.size(), after.size()), Byte::kDiffers)
{
    for (std::size_t i = 0; i < std::min(before.size(), after.size()); ++i) {
        if (before[i] == after[i])
            m_bytes[i] = Byte::kSame;
    }
}

bool GameDiff::isOpen(std::uint32_t offset, std::uint32_t bytes) const
{
    for (std::uint32_t i = 0; i < bytes; ++i) {
        if (offset + i < m_bytes.size() && m_bytes[offset + i] == Byte::kDiffers)
            return true;
    }
    return false;
}

std::size_t GameDiff::add(Difference difference)
{
    m_differences.push_back(std::move(difference));
    return m_differences.size() - 1;
}

void GameDiff::explain(std::size_t difference, std::uint32_t offset)
{
    if (offset >= m_bytes.size() || m_bytes[offset] != Byte::kDiffers)
        return;
    m_bytes[offset] = Byte::kExplained;
    addOffset(m_differences[difference].offsets, offset);
}

void GameDiff::finish()
{
    for (Difference& difference : m_differences)
        joinRanges(difference.offsets);
    for (std::size_t i = 0; i < m_bytes.size(); ++i) {
        if (m_bytes[i] == Byte::kDiffers)
            addOffset(m_rest, static_cast<std::uint32_t>(i));
    }
}

void compareSize(const EditorState& before, const EditorState& after, GameDiff& diff)
{
    const std::uint32_t from = before.rom.size();
    const std::uint32_t to = after.rom.size();
    if (from != to) {
        const std::size_t size =
            diff.add({.what = "size", .from = decimalText(from), .to = decimalText(to) + " bytes"});
        for (std::uint32_t i = std::min(from, to); i < std::max(from, to); ++i)
            diff.explain(size, i);
    }
}

GameDiff compareGames(EditorState& before, EditorState& after)
{
    GameDiff diff(before.rom.bytes(), after.rom.bytes());
    compareSize(before, after, diff);
    compareBlocks(before, after, diff);
    compareTables(before, after, diff);
    compareGraphics(before, after, diff);
    diff.finish();
    return diff;
}

} // namespace velko
