#include "tests/cli/cli_fixture.h"

namespace velko {
namespace {

using test::CliTest;
using ::testing::HasSubstr;

class PatchTest : public CliTest {
protected:
    PatchTest() : bytes(demoBytes())
    {
        bytes[0x1000] ^= 0xFF;
        bytes.resize(bytes.size() + 0x4000, 0xA5);
        changed = write("changed.nes", bytes);
    }

    std::vector<std::uint8_t> read(const std::string& name) const
    {
        return loadFile(path(name)).value_or(std::vector<std::uint8_t>{});
    }
    void expectRoundTrip(const std::string& name) const
    {
        const auto made = run({"patch", "make", "demo.nes", changed, "-o", path(name)});
        EXPECT_EQ(made.status, 0) << made.err;
        EXPECT_LT(read(name).size(), 100u);
        const auto applied = run({"patch", "apply", "demo.nes", path(name), "-o", path("out.nes")});
        EXPECT_EQ(applied.status, 0) << applied.err;
        EXPECT_EQ(made.out + applied.out, "");
        EXPECT_EQ(read("out.nes"), bytes);
    }

    std::vector<std::uint8_t> bytes;
    std::string changed;
};

TEST_F(PatchTest, IpsThereAndBack)
{
    expectRoundTrip("x.ips");
}

TEST_F(PatchTest, BpsThereAndBack)
{
    expectRoundTrip("x.bps");
}

TEST_F(PatchTest, ExtensionCountsInEitherCase)
{
    expectRoundTrip("X.BPS");
}

TEST_F(PatchTest, FormatIsToldByThePatchItself)
{
    run({"patch", "make", "demo.nes", changed, "-o", path("x.bps")});
    const std::string renamed = write("x.ips", read("x.bps"));
    EXPECT_EQ(run({"patch", "apply", "demo.nes", renamed, "-o", path("out.nes")}).status, 0);
    EXPECT_EQ(read("out.nes"), bytes);
}

TEST_F(PatchTest, PatchingInPlaceIfTheOutputNamesTheRom)
{
    run({"patch", "make", changed, "demo.nes", "-o", path("x.bps")});
    EXPECT_EQ(run({"patch", "apply", changed, path("x.bps"), "-o", changed}).status, 0);
    EXPECT_EQ(read("changed.nes"), demoBytes());
}

TEST_F(PatchTest, PatchForAnotherFileIsRefused)
{
    run({"patch", "make", "demo.nes", changed, "-o", path("x.bps")});
    const std::string other = write("other.nes", std::string_view("NES?"));
    const auto outcome = run({"patch", "apply", other, path("x.bps"), "-o", path("out.nes")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, HasSubstr("x.bps: the patch is for another file: it wants"));
    EXPECT_TRUE(read("out.nes").empty());
}

TEST_F(PatchTest, PatchThatWasAppliedAlreadyIsRefused)
{
    run({"patch", "make", "demo.nes", changed, "-o", path("x.bps")});
    const auto outcome = run({"patch", "apply", changed, path("x.bps"), "-o", path("out.nes")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "velko-cli: " + path("x.bps") + ": the file is patched already\n");
}

TEST_F(PatchTest, FileTooLargeForIpsIsRefused)
{
    const std::string large = write("large.nes", std::vector<std::uint8_t>(0x1000001));
    const auto outcome = run({"patch", "make", "demo.nes", large, "-o", path("x.ips")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "velko-cli: " + large + ": IPS reaches 16 MB only; use BPS\n");
}

TEST_F(PatchTest, DamagedPatch)
{
    run({"patch", "make", "demo.nes", changed, "-o", path("x.bps")});
    auto patch = read("x.bps");
    patch[10] ^= 4;
    const std::string damaged = write("damaged.bps", patch);
    expectFailure(run({"patch", "apply", "demo.nes", damaged, "-o", path("out.nes")}),
                  damaged + ": the patch's own checksum is wrong");
    EXPECT_TRUE(read("out.nes").empty());
}

TEST_F(PatchTest, NoPatchAtAll)
{
    expectFailure(run({"patch", "apply", "demo.nes", changed, "-o", path("out.nes")}),
                  changed + ": neither an IPS nor a BPS patch");
}

TEST_F(PatchTest, UnknownFormat)
{
    expectFailure(run({"patch", "make", "demo.nes", changed, "-o", "x.zip"}),
                  "x.zip: the name of a patch ends in .ips or .bps");
}

TEST_F(PatchTest, FilesThatAreNotThere)
{
    const std::string reason = "no.nes: cannot be read, or is empty";
    expectFailure(run({"patch", "make", "no.nes", changed, "-o", "x.ips"}), reason);
    expectFailure(run({"patch", "make", "demo.nes", "no.nes", "-o", "x.ips"}), reason);
    expectFailure(run({"patch", "apply", "no.nes", "x.ips", "-o", path("out.nes")}), reason);
}

TEST_F(PatchTest, NeitherMakeNorApply)
{
    expectFailure(run({"patch"}), "A subcommand is required (see velko-cli patch --help)");
}

} // namespace
} // namespace velko
