#include "patch/bps_patch.h"

#include "patch/crc32.h"
#include "patch/match_finder.h"
#include "patch/patch_writer.h"

#include <algorithm>

namespace velko {

namespace {

// A match of this length is taken without looking for a better one, which bounds the time.
constexpr std::size_t kLongEnough = 256;

std::size_t commonLength(std::span<const std::uint8_t> a, std::span<const std::uint8_t> b)
{
    const std::size_t most = std::min(a.size(), b.size());
    return static_cast<std::size_t>(
        std::mismatch(a.begin(), a.begin() + static_cast<std::ptrdiff_t>(most), b.begin()).first
        - a.begin());
}

std::size_t distanceNumber(std::size_t from, std::size_t to)
{
    return to >= from ? (to - from) << 1 : (from - to) << 1 | 1;
}

// A way to write the next bytes of the target.
struct Match {
    BpsAction action = BpsAction::kTargetRead;
    std::size_t from = 0;
    std::size_t length = 0;
    std::size_t saving = 0; // bytes of the target less bytes of the patch
};

class BpsMaker {
public:
    BpsMaker(std::span<const std::uint8_t> source, std::span<const std::uint8_t> target,
             PatchWriter& writer)
        : m_source(source)
        , m_target(target)
        , m_writer(writer)
        , m_sourceFinder(source)
        , m_targetFinder(target)
    {
        m_sourceFinder.addUpTo(source.size());
    }

    void write()
    {
        while (m_at < m_target.size()) {
            Match match = bestAt(m_at);
            // A match that starts one byte later may be the better one.
            while (isWorthwhile(match) && match.length < kLongEnough) {
                const Match later = bestAt(m_at + 1);
                if (later.saving <= match.saving + 1)
                    break;
                ++m_at;
                match = later;
            }
            if (isWorthwhile(match))
                take(match);
            else
                ++m_at;
        }
        writeLiteral();
    }

private:
    // Inside a literal, a match must also pay for the head of the literal that may follow.
    bool isWorthwhile(const Match& match) const
    {
        return match.saving > (m_literalStart < m_at ? 1 : 0);
    }

    Match bestAt(std::size_t at)
    {
        Match best;
        if (at >= m_target.size())
            return best;
        const auto wanted = m_target.subspan(at);
        consider(best, BpsAction::kSourceRead, m_source, at, wanted);
        consider(best, BpsAction::kSourceCopy, m_source, m_sourceOffset, wanted);
        if (m_targetOffset < at)
            consider(best, BpsAction::kTargetCopy, m_target, m_targetOffset, wanted);
        search(best, BpsAction::kSourceCopy, m_source, m_sourceFinder, wanted);
        m_targetFinder.addUpTo(at);
        search(best, BpsAction::kTargetCopy, m_target, m_targetFinder, wanted);
        return best;
    }

    void search(Match& best, BpsAction action, std::span<const std::uint8_t> file,
                const MatchFinder& finder, std::span<const std::uint8_t> wanted) const
    {
        finder.find(wanted, [&](std::size_t place) {
            if (best.length < kLongEnough)
                consider(best, action, file, place, wanted);
            return best.length < kLongEnough;
        });
    }

    void consider(Match& best, BpsAction action, std::span<const std::uint8_t> file,
                  std::size_t from, std::span<const std::uint8_t> wanted) const
    {
        if (from >= file.size())
            return;
        const std::size_t length = commonLength(file.subspan(from), wanted);
        if (length == 0)
            return;
        const std::size_t cost =
            PatchWriter::numberLength(head(action, length)) + distanceLength(action, from);
        if (length > cost && length - cost > best.saving)
            best = {action, from, length, length - cost};
    }

    static std::size_t head(BpsAction action, std::size_t length)
    {
        return (length - 1) << 2 | static_cast<std::size_t>(action);
    }
    std::size_t distanceLength(BpsAction action, std::size_t from) const
    {
        if (action == BpsAction::kSourceRead)
            return 0;
        const std::size_t last = action == BpsAction::kSourceCopy ? m_sourceOffset : m_targetOffset;
        return PatchWriter::numberLength(distanceNumber(last, from));
    }

    void take(const Match& match)
    {
        writeLiteral();
        m_writer.number(head(match.action, match.length));
        if (match.action != BpsAction::kSourceRead) {
            std::size_t& last =
                match.action == BpsAction::kSourceCopy ? m_sourceOffset : m_targetOffset;
            m_writer.number(distanceNumber(last, match.from));
            last = match.from + match.length;
        }
        m_at += match.length;
        m_literalStart = m_at;
    }

    void writeLiteral()
    {
        if (m_literalStart == m_at)
            return;
        const auto bytes = m_target.subspan(m_literalStart, m_at - m_literalStart);
        m_writer.number(head(BpsAction::kTargetRead, bytes.size()));
        m_writer.bytes(bytes);
    }

    std::span<const std::uint8_t> m_source;
    std::span<const std::uint8_t> m_target;
    PatchWriter& m_writer;
    MatchFinder m_sourceFinder;
    MatchFinder m_targetFinder;
    std::size_t m_at = 0;
    std::size_t m_literalStart = 0; // bytes from here to m_at are not written yet
    std::size_t m_sourceOffset = 0; // where the last copy of each kind stopped
    std::size_t m_targetOffset = 0;
};

} // namespace

PatchResult makeBpsPatch(std::span<const std::uint8_t> source, std::span<const std::uint8_t> target)
{
    if (source.size() > kLargestPatchedFile || target.size() > kLargestPatchedFile)
        return PatchResult::refused("a file is larger than 32 MB");
    PatchWriter writer;
    writer.text(kBpsMagic);
    writer.number(source.size());
    writer.number(target.size());
    writer.number(0); // no metadata
    BpsMaker(source, target, writer).write();
    writer.littleEndian(crc32Of(source));
    writer.littleEndian(crc32Of(target));
    writer.littleEndian(crc32Of(writer.patch()));
    return PatchResult::done(writer.patch());
}

} // namespace velko
