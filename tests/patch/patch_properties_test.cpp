#include "patch/bps_patch.h"
#include "patch/ips_patch.h"
#include "tests/patch/patch_bytes.h"

#include <gtest/gtest.h>
#include <map>
#include <rapidcheck/gtest.h>

namespace velko {
namespace {

using test::Bytes;

// Files with what ROMs have: noise, runs, and pieces that come again.
Bytes structuredFile()
{
    Bytes file;
    const int pieces = *rc::gen::inRange(1, 12);
    for (int i = 0; i < pieces; ++i) {
        const auto length = *rc::gen::inRange<std::size_t>(1, 60);
        const int kind = *rc::gen::inRange(0, 3);
        Bytes piece(length, *rc::gen::arbitrary<std::uint8_t>());
        if (kind == 1)
            piece = *rc::gen::container<Bytes>(length, rc::gen::arbitrary<std::uint8_t>());
        if (kind == 2 && !file.empty()) {
            const auto from = *rc::gen::inRange<std::size_t>(0, file.size());
            piece.assign(file.begin() + static_cast<std::ptrdiff_t>(from),
                         file.begin()
                             + static_cast<std::ptrdiff_t>(std::min(from + length, file.size())));
        }
        file.insert(file.end(), piece.begin(), piece.end());
    }
    return file;
}

// The file after some bytes were replaced, put in, taken out or moved.
Bytes edited(Bytes file)
{
    const int edits = *rc::gen::inRange(0, 6);
    for (int i = 0; i < edits && !file.empty(); ++i) {
        const auto at = static_cast<std::ptrdiff_t>(*rc::gen::inRange<std::size_t>(0, file.size()));
        const auto count = std::min<std::ptrdiff_t>(*rc::gen::inRange(1, 40),
                                                    static_cast<std::ptrdiff_t>(file.size()) - at);
        switch (*rc::gen::inRange(0, 4)) {
        case 0:
            std::fill_n(file.begin() + at, count, *rc::gen::arbitrary<std::uint8_t>());
            break;
        case 1:
            file.insert(file.begin() + at, static_cast<std::size_t>(count), 0xEA);
            break;
        case 2:
            if (file.size() > static_cast<std::size_t>(count))
                file.erase(file.begin() + at, file.begin() + at + count);
            break;
        default:
            std::rotate(file.begin() + at, file.begin() + at + count, file.end());
        }
    }
    return file;
}

struct Files {
    Bytes source;
    Bytes target;
};

// Related ones, or two that have nothing to do with each other.
Files twoFiles()
{
    Files files;
    files.source = structuredFile();
    files.target = *rc::gen::inRange(0, 4) == 0 ? structuredFile() : edited(files.source);
    return files;
}

RC_GTEST_PROP(IpsProperties, AppliedPatchGivesTheFileItWasMadeOf, ())
{
    const auto [source, target] = twoFiles();
    const PatchResult patch = makeIpsPatch(source, target);
    RC_ASSERT(patch.ok());
    const PatchResult result = applyIpsPatch(source, patch.bytes);
    RC_ASSERT(result.ok());
    RC_ASSERT(result.bytes == target);
}

// The shortest way to write the bytes from `at` on, tried out in full. `m_open`: whether a
// literal record reaches up to here.
class ShortestIps {
public:
    ShortestIps(const Bytes& source, const Bytes& target) : m_source(source), m_target(target) { }

    std::size_t length()
    {
        return 8 + cost(0, false) + (m_target.size() < m_source.size() ? 3 : 0);
    }

private:
    std::size_t cost(std::size_t at, bool open)
    {
        if (at == m_target.size())
            return 0;
        auto& known = m_known[{at, open}];
        if (known != 0)
            return known - 1;
        std::size_t best = (open ? 1 : 6) + cost(at + 1, true);
        if (at < m_source.size() && m_source[at] == m_target[at])
            best = std::min(best, cost(at + 1, false));
        for (std::size_t end = at + 1; end <= m_target.size() && m_target[end - 1] == m_target[at];
             ++end)
            best = std::min(best, 8 + cost(end, false));
        known = best + 1;
        return best;
    }

    const Bytes& m_source;
    const Bytes& m_target;
    std::map<std::pair<std::size_t, bool>, std::size_t> m_known; // costs plus one
};

RC_GTEST_PROP(IpsProperties, NoPatchIsShorter, ())
{
    const auto [source, target] = twoFiles();
    RC_ASSERT(makeIpsPatch(source, target).bytes.size() == ShortestIps(source, target).length());
}

RC_GTEST_PROP(BpsProperties, AppliedPatchGivesTheFileItWasMadeOf, ())
{
    const auto [source, target] = twoFiles();
    const PatchResult patch = makeBpsPatch(source, target);
    RC_ASSERT(patch.ok());
    const PatchResult result = applyBpsPatch(source, patch.bytes);
    RC_ASSERT(result.ok());
    RC_ASSERT(result.bytes == target);
}

RC_GTEST_PROP(BpsProperties, PatchHasLittleMoreThanTheBytesOfTheFile, ())
{
    const auto [source, target] = twoFiles();
    RC_ASSERT(makeBpsPatch(source, target).bytes.size() <= target.size() + 4 + 9 + 12 + 2);
}

// Cuts the patch, or changes a bit of it.
Bytes damaged(Bytes patch)
{
    const auto at = *rc::gen::inRange<std::size_t>(0, patch.size());
    if (*rc::gen::arbitrary<bool>())
        patch.resize(at);
    else
        patch[at] = static_cast<std::uint8_t>(patch[at] ^ 1 << *rc::gen::inRange(0, 8));
    return patch;
}

RC_GTEST_PROP(BpsProperties, DamagedPatchGivesNoFile, ())
{
    const auto [source, target] = twoFiles();
    const Bytes patch = damaged(makeBpsPatch(source, target).bytes);
    const PatchResult result = applyBpsPatch(source, patch);
    RC_ASSERT(!result.ok());
    RC_ASSERT(result.bytes.empty());
}

RC_GTEST_PROP(IpsProperties, DamagedPatchGivesAFileOrAReason, ())
{
    const auto [source, target] = twoFiles();
    const Bytes patch = damaged(makeIpsPatch(source, target).bytes);
    const PatchResult result = applyIpsPatch(source, patch);
    RC_ASSERT(result.ok() == result.reason.empty());
    RC_ASSERT(result.bytes.size() <= kIpsLargestFile + kIpsLargestRecord);
}

} // namespace
} // namespace velko
