#include "patch/bps_patch.h"

#include "patch/crc32.h"
#include "patch/patch_writer.h"
#include "tests/patch/patch_bytes.h"

#include <gtest/gtest.h>
#include <optional>

namespace velko {
namespace {

using test::Bytes;
using test::join;
using test::text;

// A patch of given actions, with right sums for the two files unless a sum is given.
struct Patch {
    Bytes source;
    Bytes target;
    Bytes actions;
    std::string_view metadata = {};
    std::optional<std::size_t> targetSize = {};
    std::optional<std::uint32_t> targetSum = {};

    Bytes bytes() const
    {
        PatchWriter writer;
        writer.text(kBpsMagic);
        writer.number(source.size());
        writer.number(targetSize.value_or(target.size()));
        writer.number(metadata.size());
        writer.text(metadata);
        writer.bytes(actions);
        writer.littleEndian(crc32Of(source));
        writer.littleEndian(targetSum.value_or(crc32Of(target)));
        writer.littleEndian(crc32Of(writer.patch()));
        return writer.patch();
    }
};

void expectApplies(const Patch& patch)
{
    const PatchResult result = applyBpsPatch(patch.source, patch.bytes());
    EXPECT_TRUE(result.ok()) << result.reason;
    EXPECT_EQ(result.bytes, patch.target);
}

void expectFails(const Patch& patch, PatchStatus status, const std::string& reason)
{
    const PatchResult result = applyBpsPatch(patch.source, patch.bytes());
    EXPECT_EQ(result.status, status);
    EXPECT_EQ(result.reason, reason);
    EXPECT_TRUE(result.bytes.empty());
}

// The head of an action of 1 to 32 bytes.
std::uint8_t head(BpsAction action, std::size_t count)
{
    return static_cast<std::uint8_t>(0x80 | (count - 1) << 2 | static_cast<std::size_t>(action));
}

// A distance of -63 to 63.
std::uint8_t distance(int distance)
{
    return static_cast<std::uint8_t>(0x80 | std::abs(distance) << 1 | (distance < 0 ? 1 : 0));
}

constexpr auto kSourceRead = BpsAction::kSourceRead;
constexpr auto kTargetRead = BpsAction::kTargetRead;
constexpr auto kSourceCopy = BpsAction::kSourceCopy;
constexpr auto kTargetCopy = BpsAction::kTargetCopy;

TEST(BpsApply, WholePatchByteByByte)
{
    // "abcd" becomes "abXd": two of the source, one of the patch, one of the source. The sums:
    // of "abcd", "abXd" and the 12 bytes before.
    const Bytes patch =
        join({text("BPS1"), {0x84, 0x84, 0x80}, {0x84, 0x81, 'X', 0x80}, {0x11, 0xCD, 0x82, 0xED}});
    EXPECT_EQ(crc32Of(text("abcd")), 0xED82CD11u);
    Patch same{text("abcd"), text("abXd"), {0x84, 0x81, 'X', 0x80}};
    const Bytes built = same.bytes();
    EXPECT_EQ(Bytes(built.begin(), built.begin() + 15), patch);
    expectApplies(same);
}

TEST(BpsApply, SourceReadTakesTheSameOffset)
{
    expectApplies(
        {text("abcdef"), text("XXcd"), {head(kTargetRead, 2), 'X', 'X', head(kSourceRead, 2)}});
}

TEST(BpsApply, SourceCopyCountsFromWhereTheLastOneStopped)
{
    expectApplies({text("abcdef"),
                   text("efcd"),
                   {head(kSourceCopy, 2), distance(4), head(kSourceCopy, 2), distance(-4)}});
}

TEST(BpsApply, TargetCopyTakesWhatWasWritten)
{
    expectApplies({text("abcdef"),
                   text("abcbcab"),
                   {head(kSourceRead, 3), head(kTargetCopy, 2), distance(1), head(kTargetCopy, 2),
                    distance(-3)}});
}

TEST(BpsApply, TargetCopyThatOverlapsItselfRepeats)
{
    expectApplies({text("q"),
                   text("ababababa"),
                   {head(kTargetRead, 2), 'a', 'b', head(kTargetCopy, 7), distance(0)}});
}

TEST(BpsApply, OtherActionsLeaveTheCopyingOffsetsAlone)
{
    expectApplies({text("abcd"),
                   text("abXcd"),
                   {head(kSourceCopy, 2), distance(0), head(kTargetRead, 1), 'X',
                    head(kSourceCopy, 2), distance(0)}});
}

TEST(BpsApply, MetadataIsIgnored)
{
    expectApplies({text("ab"), text("ab"), {head(kSourceRead, 2)}, "<by>me</by>"});
}

TEST(BpsApply, EmptyResult)
{
    expectApplies({text("ab"), {}, {}});
}

TEST(BpsApply, AnotherSourceIsRefused)
{
    const Patch patch{text("abcd"), text("ab"), {head(kSourceRead, 2)}};
    const PatchResult result = applyBpsPatch(text("abce"), patch.bytes());
    EXPECT_EQ(result.status, PatchStatus::kRefused);
    EXPECT_EQ(result.reason,
              "the patch is for another file: it wants 4 bytes, CRC32 ed82cd11, this one has "
              "4 bytes, CRC32 9a85fd87");
}

TEST(BpsApply, SourceOfAnotherSizeIsRefused)
{
    const Patch patch{text("abcd"), text("ab"), {head(kSourceRead, 2)}};
    EXPECT_EQ(applyBpsPatch(text("abcde"), patch.bytes()).status, PatchStatus::kRefused);
}

TEST(BpsApply, ResultAsSourceIsRefusedByName)
{
    const Patch patch{text("abcd"), text("ab"), {head(kSourceRead, 2)}};
    const PatchResult result = applyBpsPatch(text("ab"), patch.bytes());
    EXPECT_EQ(result.status, PatchStatus::kRefused);
    EXPECT_EQ(result.reason, "the file is patched already");
}

TEST(BpsApply, ResultAboveTheLimitIsRefused)
{
    Patch patch{text("ab"), text("ab"), {head(kSourceRead, 2)}};
    patch.targetSize = kLargestPatchedFile + 1;
    expectFails(patch, PatchStatus::kRefused, "it makes, or is for, a file larger than 32 MB");
}

TEST(BpsApply, WrongChecksumOfTheResult)
{
    Patch patch{text("ab"), text("ab"), {head(kSourceRead, 2)}};
    patch.targetSum = 0x12345678;
    expectFails(patch, PatchStatus::kDamaged, "the result's checksum is wrong");
}

TEST(BpsApply, WrongChecksumOfThePatch)
{
    Bytes patch = Patch{text("ab"), text("ab"), {head(kSourceRead, 2)}}.bytes();
    patch.back() ^= 1;
    const PatchResult result = applyBpsPatch(text("ab"), patch);
    EXPECT_EQ(result.status, PatchStatus::kDamaged);
    EXPECT_EQ(result.reason, "the patch's own checksum is wrong");
}

TEST(BpsApply, TooShortForItsChecksums)
{
    const PatchResult result = applyBpsPatch(text("ab"), text("BPS1abcdefghijk"));
    EXPECT_EQ(result.status, PatchStatus::kDamaged);
    EXPECT_EQ(result.reason, "it is cut short");
}

// Headers with right sums but wrong numbers.
TEST(BpsApply, DamagedHeaders)
{
    const Bytes headers[] = {
        {},                                         // nothing
        {0x82, 0x82},                               // no metadata size
        {0x82, 0x82, 0x81},                         // metadata past the end
        {0x7F, 0x7F, 0x7F, 0x7F, 0xFF, 0x82, 0x80}, // a size of 35 bits
    };
    for (const Bytes& header : headers) {
        PatchWriter writer;
        writer.text(kBpsMagic);
        writer.bytes(header);
        writer.littleEndian(crc32Of(text("ab")));
        writer.littleEndian(crc32Of(text("ab")));
        writer.littleEndian(crc32Of(writer.patch()));
        const PatchResult result = applyBpsPatch(text("ab"), writer.patch());
        EXPECT_EQ(result.status, PatchStatus::kDamaged);
        EXPECT_EQ(result.reason, "its header is cut short, or a number in it is too large");
    }
}

TEST(BpsApply, ActionsThatBreakTheRules)
{
    const Bytes cases[] = {
        {},                                                         // too few bytes
        {head(kSourceRead, 3)},                                     // too few bytes
        {head(kSourceRead, 4), head(kTargetRead, 1), 'X'},          // too many bytes
        {head(kTargetRead, 4), 'X', 'X', 'X'},                      // past the patch's end
        {head(kTargetRead, 2), 'X', 'X', head(kSourceRead, 2)},     // past the source's end
        {head(kSourceCopy, 2), distance(2), head(kSourceRead, 2)},  // past the source's end
        {head(kSourceCopy, 4), distance(3)},                        // starts past it
        {head(kSourceCopy, 4), distance(-1)},                       // before the source
        {head(kTargetCopy, 4), distance(0)},                        // nothing was written yet
        {head(kSourceRead, 2), head(kTargetCopy, 2), distance(2)},  // from what is not there
        {head(kSourceRead, 2), head(kTargetCopy, 2), distance(-1)}, // before the target
        {head(kSourceCopy, 4)},                                     // no distance
        {head(kTargetCopy, 4), 0x00},                               // distance cut short
        {0x7F, 0x7F, 0x7F, 0x7F, 0xFF},                             // a count of 35 bits
        {0x7F, 0x7E, 0x7E, 0x7E, 0x8E},                             // the largest count
    };
    for (const Bytes& actions : cases)
        expectFails({text("abc"), text("abcd"), actions}, PatchStatus::kDamaged,
                    "an action breaks the rules of BPS");
}

// What the actions of a made patch are; the sums of its frame are the same as those of Patch.
Bytes madeActions(const Bytes& source, const Bytes& target)
{
    const PatchResult result = makeBpsPatch(source, target);
    EXPECT_TRUE(result.ok());
    EXPECT_EQ(applyBpsPatch(source, result.bytes).bytes, target);
    const std::size_t frame = Patch{source, target, {}}.bytes().size();
    const Bytes actions(result.bytes.begin() + static_cast<std::ptrdiff_t>(frame - kBpsFooter),
                        result.bytes.end() - static_cast<std::ptrdiff_t>(kBpsFooter));
    EXPECT_EQ(result.bytes, (Patch{source, target, actions}.bytes()));
    return actions;
}

TEST(BpsMake, EqualFilesAreRead)
{
    EXPECT_EQ(madeActions(text("abcdefgh"), text("abcdefgh")), (Bytes{head(kSourceRead, 8)}));
}

TEST(BpsMake, ReplacedByteIsTheOnlyOneInThePatch)
{
    EXPECT_EQ(madeActions(text("abcdefgh"), text("abcXefgh")),
              (Bytes{head(kSourceRead, 3), head(kTargetRead, 1), 'X', head(kSourceRead, 4)}));
}

TEST(BpsMake, MovedBytesAreCopied)
{
    EXPECT_EQ(madeActions(text("0123456789abcdef"), text("89abcdef01234567")),
              (Bytes{head(kSourceCopy, 8), distance(8), head(kSourceCopy, 8), distance(-16)}));
}

TEST(BpsMake, RepeatedBytesAreCopiedFromTheTarget)
{
    EXPECT_EQ(
        madeActions(text("q"), text("xyzwxyzwxyzwxyzw")),
        (Bytes{head(kTargetRead, 4), 'x', 'y', 'z', 'w', head(kTargetCopy, 12), distance(0)}));
}

TEST(BpsMake, RunsAreCopiesOfTheByteBefore)
{
    EXPECT_EQ(madeActions(text("q"), Bytes(31, 'x')),
              (Bytes{head(kTargetRead, 1), 'x', head(kTargetCopy, 30), distance(0)}));
}

TEST(BpsMake, FileAboveTheLimitIsRefused)
{
    const Bytes large(kLargestPatchedFile + 1);
    EXPECT_EQ(makeBpsPatch(large, text("a")).status, PatchStatus::kRefused);
    EXPECT_EQ(makeBpsPatch(text("a"), large).status, PatchStatus::kRefused);
}

} // namespace
} // namespace velko
