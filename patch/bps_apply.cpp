#include "patch/bps_patch.h"

#include "patch/crc32.h"
#include "patch/patch_reader.h"

#include <array>
#include <cstdio>

namespace velko {

namespace {

std::string sizeAndSum(std::size_t size, std::uint32_t sum)
{
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%zu bytes, CRC32 %08x", size, sum);
    return text.data();
}

// Runs the actions. Nothing outside source, patch and the target's announced size is touched.
class BpsActions {
public:
    BpsActions(std::span<const std::uint8_t> source, std::size_t targetSize)
        : m_source(source), m_targetSize(targetSize)
    {
        m_target.reserve(targetSize);
    }

    // Returns false when an action breaks a rule.
    bool run(PatchReader& reader)
    {
        while (!reader.rest().empty()) {
            const std::uint32_t head = reader.number();
            const std::size_t count = std::size_t{head >> 2} + 1;
            if (reader.failed() || count > m_targetSize - m_target.size()
                || !act(static_cast<BpsAction>(head & 3), count, reader))
                return false;
        }
        return m_target.size() == m_targetSize;
    }

    std::vector<std::uint8_t>& target() { return m_target; }

private:
    bool act(BpsAction action, std::size_t count, PatchReader& reader)
    {
        switch (action) {
        case BpsAction::kSourceRead:
            return copySource(m_target.size(), count);
        case BpsAction::kTargetRead: {
            const auto bytes = reader.take(count);
            m_target.insert(m_target.end(), bytes.begin(), bytes.end());
            return !reader.failed();
        }
        case BpsAction::kSourceCopy:
            return move(m_sourceOffset, reader, m_source.size())
                && copySource(advance(m_sourceOffset, count), count);
        default:
            return move(m_targetOffset, reader, m_target.size())
                && copyTarget(advance(m_targetOffset, count), count);
        }
    }

    // Adds the distance to the offset, which must then lie below `end`.
    static bool move(std::size_t& offset, PatchReader& reader, std::size_t end)
    {
        const std::uint32_t number = reader.number();
        const std::size_t distance = number >> 1;
        if (reader.failed() || ((number & 1) != 0 && distance > offset))
            return false;
        offset = (number & 1) != 0 ? offset - distance : offset + distance;
        return offset < end;
    }
    static std::size_t advance(std::size_t& offset, std::size_t count)
    {
        offset += count;
        return offset - count;
    }

    bool copySource(std::size_t from, std::size_t count)
    {
        if (from > m_source.size() || count > m_source.size() - from)
            return false;
        const auto bytes = m_source.subspan(from, count);
        m_target.insert(m_target.end(), bytes.begin(), bytes.end());
        return true;
    }
    // Byte by byte: a copy that overlaps what it writes repeats a pattern.
    bool copyTarget(std::size_t from, std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i)
            m_target.push_back(m_target[from + i]);
        return true;
    }

    std::span<const std::uint8_t> m_source;
    std::size_t m_targetSize;
    std::vector<std::uint8_t> m_target;
    std::size_t m_sourceOffset = 0;
    std::size_t m_targetOffset = 0;
};

// The source is told apart by size and sum, so another file is never taken for it.
std::string wrongSource(std::span<const std::uint8_t> source, std::size_t sourceSize,
                        std::uint32_t sourceSum, std::size_t targetSize, std::uint32_t targetSum)
{
    const std::uint32_t sum = crc32Of(source);
    if (source.size() == sourceSize && sum == sourceSum)
        return {};
    if (source.size() == targetSize && sum == targetSum)
        return "the file is patched already";
    return "the patch is for another file: it wants " + sizeAndSum(sourceSize, sourceSum)
        + ", this one has " + sizeAndSum(source.size(), sum);
}

PatchResult runActions(std::span<const std::uint8_t> source, std::size_t targetSize,
                       std::uint32_t targetSum, PatchReader& reader)
{
    BpsActions actions(source, targetSize);
    if (!actions.run(reader))
        return PatchResult::damaged("an action breaks the rules of BPS");
    if (crc32Of(actions.target()) != targetSum)
        return PatchResult::damaged("the result's checksum is wrong");
    return PatchResult::done(std::move(actions.target()));
}

} // namespace

PatchResult applyBpsPatch(std::span<const std::uint8_t> source, std::span<const std::uint8_t> patch)
{
    if (patch.size() < kBpsMagic.size() + kBpsFooter)
        return PatchResult::damaged("it is cut short");
    PatchReader footer(patch.last(kBpsFooter));
    const std::uint32_t sourceSum = footer.littleEndian();
    const std::uint32_t targetSum = footer.littleEndian();
    if (crc32Of(patch.first(patch.size() - 4)) != footer.littleEndian())
        return PatchResult::damaged("the patch's own checksum is wrong");

    PatchReader reader(patch.first(patch.size() - kBpsFooter).subspan(kBpsMagic.size()));
    const std::size_t sourceSize = reader.number();
    const std::size_t targetSize = reader.number();
    reader.take(reader.number());
    if (reader.failed())
        return PatchResult::damaged("its header is cut short, or a number in it is too large");
    if (targetSize > kLargestPatchedFile || source.size() > kLargestPatchedFile)
        return PatchResult::refused("it makes, or is for, a file larger than 32 MB");
    if (auto reason = wrongSource(source, sourceSize, sourceSum, targetSize, targetSum);
        !reason.empty())
        return PatchResult::refused(std::move(reason));
    return runActions(source, targetSize, targetSum, reader);
}

} // namespace velko
