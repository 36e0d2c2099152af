#include "patch/ips_patch.h"
#include "tests/patch/patch_bytes.h"

#include <gtest/gtest.h>
#include <numeric>

namespace velko {
namespace {

using test::Bytes;
using test::join;
using test::text;

const Bytes kMagic = text("PATCH");
const Bytes kEnd = text("EOF");

Bytes applied(const Bytes& source, const Bytes& records)
{
    const PatchResult result = applyIpsPatch(source, join({kMagic, records}));
    EXPECT_TRUE(result.ok()) << result.reason;
    return result.bytes;
}

Bytes made(const Bytes& source, const Bytes& target)
{
    const PatchResult result = makeIpsPatch(source, target);
    EXPECT_TRUE(result.ok()) << result.reason;
    EXPECT_EQ(applyIpsPatch(source, result.bytes).bytes, target);
    return result.bytes;
}

// Bytes that no run record suits.
Bytes counting(std::size_t count)
{
    Bytes bytes(count);
    std::iota(bytes.begin(), bytes.end(), std::uint8_t{1});
    return bytes;
}

TEST(IpsApply, RecordReplacesBytes)
{
    EXPECT_EQ(applied(text("abcdef"), join({{0, 0, 2, 0, 3}, text("XYZ"), kEnd})), text("abXYZf"));
}

TEST(IpsApply, SizeZeroRepeatsAByte)
{
    EXPECT_EQ(applied(text("abcdef"), join({{0, 0, 1, 0, 0, 0, 4, 'x'}, kEnd})), text("axxxxf"));
}

TEST(IpsApply, RunOfNoBytesDoesNothing)
{
    EXPECT_EQ(applied(text("abc"), join({{0, 1, 0, 0, 0, 0, 0, 'x'}, kEnd})), text("abc"));
}

TEST(IpsApply, RecordPastTheEndMakesTheFileLongerWithZerosBetween)
{
    EXPECT_EQ(applied(text("ab"), join({{0, 0, 4, 0, 1}, text("X"), kEnd})), text({"ab\0\0X", 5}));
}

TEST(IpsApply, LaterRecordsWin)
{
    EXPECT_EQ(
        applied(text("abc"), join({{0, 0, 0, 0, 2}, text("XX"), {0, 0, 1, 0, 1}, text("Y"), kEnd})),
        text("XYc"));
}

TEST(IpsApply, SizeBehindTheEndCutsTheFile)
{
    EXPECT_EQ(applied(text("abcdef"), join({kEnd, {0, 0, 3}})), text("abc"));
}

TEST(IpsApply, SizeBehindTheEndThatIsLargerDoesNothing)
{
    EXPECT_EQ(applied(text("abc"), join({kEnd, {0, 0, 9}})), text("abc"));
}

// Some makers do not avoid the offset that reads as the end mark.
TEST(IpsApply, RecordAtTheOffsetOfTheEndMarkIsARecord)
{
    Bytes expected(kIpsEndOffset + 2);
    expected[kIpsEndOffset] = 'X';
    expected[kIpsEndOffset + 1] = 'Y';
    EXPECT_EQ(applied(text({"\0", 1}), join({kEnd, {0, 2}, text("XY"), kEnd})), expected);
}

struct DamagedCase {
    const char* name;
    Bytes records;
};

TEST(IpsApply, DamagedPatches)
{
    const DamagedCase cases[] = {
        {"no end", {}},
        {"no end behind a record", join({{0, 0, 0, 0, 1}, text("X")})},
        {"offset cut short", {0, 0}},
        {"size cut short", {0, 0, 0, 0}},
        {"bytes cut short", join({{0, 0, 0, 0, 3}, text("XY")})},
        {"run cut short", {0, 0, 0, 0, 0, 0}},
        {"run without its byte", {0, 0, 0, 0, 0, 0, 4}},
        {"end mark cut short", text("EO")},
        {"cut size cut short", join({kEnd, {0, 0}})},
        {"too much behind the end", join({kEnd, {0, 0, 3, 0}})},
    };
    for (const DamagedCase& damaged : cases) {
        const PatchResult result = applyIpsPatch(text("abcdef"), join({kMagic, damaged.records}));
        EXPECT_EQ(result.status, PatchStatus::kDamaged) << damaged.name;
        EXPECT_TRUE(result.bytes.empty()) << damaged.name;
        EXPECT_EQ(result.reason, "a record is cut short, or the end mark is missing");
    }
}

TEST(IpsApply, FileAboveTheLimitIsRefused)
{
    const PatchResult result = applyIpsPatch(Bytes(kLargestPatchedFile + 1), join({kMagic, kEnd}));
    EXPECT_EQ(result.status, PatchStatus::kRefused);
}

TEST(IpsMake, EqualFiles)
{
    EXPECT_EQ(made(text("abc"), text("abc")), join({kMagic, kEnd}));
}

TEST(IpsMake, OneByte)
{
    EXPECT_EQ(made(text("abcdef"), text("abXdef")),
              join({kMagic, {0, 0, 2, 0, 1}, text("X"), kEnd}));
}

TEST(IpsMake, GapOfUpToFiveBytesIsWritten)
{
    EXPECT_EQ(made(text("abcdef"), text("AbcdeF")),
              join({kMagic, {0, 0, 0, 0, 6}, text("AbcdeF"), kEnd}));
}

TEST(IpsMake, GapOfSixBytesIsNot)
{
    EXPECT_EQ(made(text("abcdefgh"), text("AbcdefgH")),
              join({kMagic, {0, 0, 0, 0, 1}, text("A"), {0, 0, 7, 0, 1}, text("H"), kEnd}));
}

TEST(IpsMake, LongRunIsRepeated)
{
    EXPECT_EQ(made(Bytes(12, 'a'), Bytes(12, 'b')),
              join({kMagic, {0, 0, 0, 0, 0, 0, 12, 'b'}, kEnd}));
}

TEST(IpsMake, RunInsideOtherBytesIsRepeatedOnlyIfThatIsShorter)
{
    // A record each before and behind the run costs 10 + 4 bytes, the run 8; in one 5 + 4 + run.
    const auto around = [](std::size_t run) {
        return join({text("xy"), Bytes(run, 'b'), text("zw")});
    };
    EXPECT_EQ(made(Bytes(17, 'a'), around(13)).size(), 8u + 5 + 17);
    EXPECT_EQ(made(Bytes(18, 'a'), around(14)).size(), 8u + 5 + 2 + 8 + 5 + 2);
}

TEST(IpsMake, ShorterFileIsCut)
{
    EXPECT_EQ(made(text("abcdef"), text("abc")), join({kMagic, kEnd, {0, 0, 3}}));
}

TEST(IpsMake, LongerFileGetsItsZerosToo)
{
    EXPECT_EQ(made(text("ab"), text({"ab\0\0", 4})), join({kMagic, {0, 0, 2, 0, 2, 0, 0}, kEnd}));
}

TEST(IpsMake, RecordsThatAreTooLongAreSplit)
{
    const Bytes patch = made({1}, counting(0x10001));
    EXPECT_EQ(patch.size(), 8u + 5 + 0xFFFF + 5 + 1);
    EXPECT_EQ(Bytes(patch.begin() + 5, patch.begin() + 10), (Bytes{0, 0, 1, 0xFF, 0xFF}));
}

TEST(IpsMake, RunsThatAreTooLongAreSplit)
{
    EXPECT_EQ(made({1}, Bytes(0x1FFFF, 1)),
              join({kMagic, {0, 0, 1, 0, 0, 0xFF, 0xFF, 1}, {1, 0, 0, 0, 0, 0xFF, 0xFF, 1}, kEnd}));
}

// Two files that differ from `begin` to `end` only.
std::pair<Bytes, Bytes> filesThatDiffer(std::size_t begin, std::size_t end, bool run)
{
    const Bytes source(kIpsEndOffset + 0x20000);
    Bytes target = source;
    for (std::size_t i = begin; i < end; ++i)
        target[i] = run ? std::uint8_t{9} : static_cast<std::uint8_t>(1 + i % 200);
    return {source, target};
}

TEST(IpsMake, RecordNeverStartsAtTheOffsetOfTheEndMark)
{
    const auto [source, target] = filesThatDiffer(kIpsEndOffset, kIpsEndOffset + 1, false);
    EXPECT_EQ(made(source, target),
              join({kMagic, {0x45, 0x4F, 0x45, 0, 2, 0, target[kIpsEndOffset]}, kEnd}));
}

TEST(IpsMake, SplitRecordsAvoidTheOffsetOfTheEndMark)
{
    const std::size_t begin = kIpsEndOffset - kIpsLargestRecord;
    const auto [source, target] = filesThatDiffer(begin, kIpsEndOffset + 10, false);
    const Bytes patch = made(source, target);
    EXPECT_EQ(patch.size(), 8u + 5 + 0xFFFE + 5 + 11);
    EXPECT_EQ(Bytes(patch.begin() + 8, patch.begin() + 10), (Bytes{0xFF, 0xFE}));
}

TEST(IpsMake, RunsAvoidTheOffsetOfTheEndMark)
{
    const std::size_t begin = kIpsEndOffset - kIpsLargestRecord;
    const auto [source, target] = filesThatDiffer(begin, kIpsEndOffset + 100, true);
    made(source, target); // reads back as what it was made of
    const auto [other, later] = filesThatDiffer(kIpsEndOffset, kIpsEndOffset + 100, true);
    EXPECT_LT(made(other, later).size(), 8u + 20);
}

TEST(IpsMake, SixteenMegabytesAreTheMost)
{
    const Bytes largest(kIpsLargestFile, 7);
    EXPECT_EQ(made({7}, largest).size(), 8u + 8 * 257); // runs of 65535 bytes
    const PatchResult result = makeIpsPatch({}, Bytes(kIpsLargestFile + 1, 7));
    EXPECT_EQ(result.status, PatchStatus::kRefused);
    EXPECT_EQ(result.reason, "IPS reaches 16 MB only; use BPS");
}

TEST(IpsMake, FileIsCutToLessThanSixteenMegabytesOnly)
{
    const Bytes larger(kIpsLargestFile + 1);
    EXPECT_TRUE(makeIpsPatch(larger, Bytes(kIpsLargestFile - 1)).ok());
    EXPECT_EQ(makeIpsPatch(larger, Bytes(kIpsLargestFile)).status, PatchStatus::kRefused);
}

} // namespace
} // namespace velko
