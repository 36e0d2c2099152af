#include "patch/ips_patch.h"

#include "patch/patch_writer.h"

#include <algorithm>

namespace velko {

namespace {

constexpr std::uint32_t kRecordCost = 5; // offset and size
constexpr std::uint32_t kRunCost = 8;    // the same, count and byte
constexpr std::uint32_t kImpossible = 0x40000000;

// Finds the cheapest records from the end of the file to its front: what a byte is best written
// by depends only on what follows it.
class IpsPlan {
public:
    IpsPlan(std::span<const std::uint8_t> source, std::span<const std::uint8_t> target)
        : m_source(source), m_target(target), m_cost(target.size() + 1), m_step(target.size())
    {
        for (std::size_t i = target.size(); i-- > 0;)
            plan(i);
    }

    void write(PatchWriter& writer) const
    {
        for (std::size_t i = 0; i < m_target.size();) {
            if ((m_step[i] & kStart) == kSkip)
                ++i;
            else if ((m_step[i] & kStart) == kRun)
                i = writeRun(writer, i);
            else
                i = writeLiteral(writer, i);
        }
    }

private:
    // What starts at a byte that no record from the left reaches, and whether a literal record
    // that covers the byte goes on behind it.
    static constexpr std::uint8_t kSkip = 0;
    static constexpr std::uint8_t kLiteral = 1;
    static constexpr std::uint8_t kRun = 2;
    static constexpr std::uint8_t kStart = 3;
    static constexpr std::uint8_t kGoesOn = 4;

    void plan(std::size_t i)
    {
        const bool isRun = i + 1 < m_target.size() && m_target[i] == m_target[i + 1];
        m_run = isRun ? std::min(m_run + 1, kIpsLargestRecord) : 1;
        const bool goesOn = m_literalCost < m_cost[i + 1];
        m_literalCost = 1 + std::min(m_literalCost, m_cost[i + 1]);
        // The longest run is the best: writing less never costs more.
        const std::uint32_t run = kRunCost + m_cost[i + m_run];
        const std::uint32_t literal = kRecordCost + m_literalCost;
        const bool canStart = i != kIpsEndOffset;
        std::uint8_t step = run < literal ? kRun : kLiteral;
        std::uint32_t cost = canStart ? std::min(run, literal) : kImpossible;
        if (i < m_source.size() && m_source[i] == m_target[i] && m_cost[i + 1] <= cost) {
            step = kSkip;
            cost = m_cost[i + 1];
        }
        m_cost[i] = std::min(cost, kImpossible);
        m_step[i] = static_cast<std::uint8_t>(step | (goesOn ? kGoesOn : 0));
    }

    std::size_t writeRun(PatchWriter& writer, std::size_t start) const
    {
        std::size_t end = start + 1;
        while (end < m_target.size() && end - start < kIpsLargestRecord
               && m_target[end] == m_target[start])
            ++end;
        writer.bigEndian(start, 3);
        writer.bigEndian(0, 2);
        writer.bigEndian(end - start, 2);
        writer.byte(m_target[start]);
        return end;
    }

    std::size_t writeLiteral(PatchWriter& writer, std::size_t start) const
    {
        std::size_t end = start + 1;
        while ((m_step[end - 1] & kGoesOn) != 0)
            ++end;
        for (std::size_t i = start; i < end;) {
            std::size_t size = std::min(end - i, kIpsLargestRecord);
            if (i + size == kIpsEndOffset && i + size < end)
                --size;
            writer.bigEndian(i, 3);
            writer.bigEndian(size, 2);
            writer.bytes(m_target.subspan(i, size));
            i += size;
        }
        return end;
    }

    std::span<const std::uint8_t> m_source;
    std::span<const std::uint8_t> m_target;
    std::vector<std::uint32_t> m_cost; // bytes of patch from here to the end, starting afresh
    std::vector<std::uint8_t> m_step;
    std::uint32_t m_literalCost = kImpossible; // the same inside a literal record
    std::size_t m_run = 0;                     // equal bytes from here on, up to a record's limit
};

} // namespace

PatchResult makeIpsPatch(std::span<const std::uint8_t> source, std::span<const std::uint8_t> target)
{
    const bool shrinks = target.size() < source.size();
    // The size to cut to has three bytes, too.
    if (target.size() > kIpsLargestFile || (shrinks && target.size() == kIpsLargestFile))
        return PatchResult::refused("IPS reaches 16 MB only; use BPS");
    PatchWriter writer;
    writer.text(kIpsMagic);
    IpsPlan(source, target).write(writer);
    writer.text(kIpsEnd);
    if (shrinks)
        writer.bigEndian(target.size(), 3);
    return PatchResult::done(writer.patch());
}

} // namespace velko
