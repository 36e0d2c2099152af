#include "check/finding.h"
#include "tests/cli/cli_fixture.h"

#include <algorithm>

namespace velko {
namespace {

using test::CliTest;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

using Bytes = std::vector<std::uint8_t>;

// What the demo is worn with, taken away, but for notes.
Bytes mended(Bytes demo)
{
    demo.at(0x3D2CA) = 6; // room 6e reads its layout as room 48 does
    demo.at(0x3D2CB) = 2;
    for (const std::size_t cell : {0x2901DU, 0x29083U, 0x2908BU, 0x2908CU})
        demo.at(cell) = 0;
    return demo;
}

TEST_F(CliTest, CheckFindsTheDemoWorn)
{
    const auto outcome = run({"check", "demo.nes"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(outcome.out,
                StartsWith("demo.nes:0x281ea: note: No screen list holds the 6 bytes from $81da to "
                           "$81df. [gap]\n"));
    EXPECT_THAT(outcome.out,
                HasSubstr("\ndemo.nes:0x2908b: warning: room 39: The cell in column 0, row 0 tells "
                          "position e of the screen list, which has 13 screens (2 such cells). "
                          "[layout-past-screen-list]\n"));
    EXPECT_THAT(outcome.out, EndsWith("\n0 errors, 4 warnings, 21 notes\n"));
    EXPECT_EQ(std::ranges::count(outcome.out, '\n'), 26);
}

TEST_F(CliTest, CheckOfNotesAloneIsFine)
{
    const auto outcome = run({"check", write("mended.nes", mended(demoBytes()))});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(outcome.out, EndsWith("\n0 errors, 0 warnings, 21 notes\n"));
}

TEST_F(CliTest, CheckOfAnErrorFails)
{
    Bytes bytes = mended(demoBytes());
    bytes.at(0x3D692) = 0x6F; // exit 2 of room 0
    const std::string rom = write("error.nes", bytes);
    const auto outcome = run({"check", rom});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.out,
                HasSubstr("\n" + rom
                          + ":0x3d692: error: room 0: Exit 2 leads to room 6f; there "
                            "are rooms 0 to 6e. [exit-to-missing-room]\n"));
    EXPECT_THAT(outcome.out, EndsWith("\n1 error, 0 warnings, 21 notes\n"));
}

TEST_F(CliTest, CheckWritesJson)
{
    const auto outcome = run({"check", "demo.nes", "--json"});
    EXPECT_EQ(outcome.status, 1);
    const auto document = outcome.json();
    EXPECT_EQ(document["errors"], 0);
    EXPECT_EQ(document["warnings"], 4);
    EXPECT_EQ(document["notes"], 21);
    ASSERT_EQ(document["findings"].size(), 25U);
    const auto& gap = document["findings"][0];
    EXPECT_EQ(gap["severity"], "note");
    EXPECT_EQ(gap["code"], "gap");
    EXPECT_TRUE(gap["room"].is_null());
    EXPECT_EQ(gap["offset"], 0x281EA);
    EXPECT_EQ(gap["text"], "No screen list holds the 6 bytes from $81da to $81df.");
    EXPECT_TRUE(gap["area"].is_null());
    EXPECT_EQ(document["findings"][9]["severity"], "warning");
    EXPECT_EQ(document["findings"][9]["room"], 0x6E);
}

TEST_F(CliTest, CheckTellsTheAreaInPlaceOfARoom)
{
    Bytes bytes = demoBytes();
    bytes.at(0x34148 + 2) = 0; // list of area 7, of three entries
    const std::string rom = write("area.nes", bytes);
    EXPECT_THAT(run({"check", rom}).out,
                HasSubstr("\n" + rom
                          + ":0x3414a: warning: area 7: The movement list counts 0 bytes of "
                            "entries; each has 2, and an area has at least one. "
                            "[bad-movement-count]\n"));
    const auto document = run({"check", rom, "--json"}).json();
    const auto& finding = document["findings"].back();
    EXPECT_EQ(finding["code"], "bad-movement-count");
    EXPECT_EQ(finding["area"], 7);
    EXPECT_TRUE(finding["room"].is_null());
}

TEST_F(CliTest, CheckOfACutRomTellsErrors)
{
    Bytes bytes = demoBytes();
    bytes.resize(200'000);
    const auto outcome = run({"check", write("cut.nes", bytes), "--json"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "");
    const auto document = outcome.json();
    EXPECT_EQ(document["errors"], 11);
    EXPECT_EQ(document["findings"][0]["code"], "past-end-of-file");
    EXPECT_EQ(document["findings"][0]["severity"], "error");
    EXPECT_EQ(document["findings"][0]["offset"], 0x3D010);
    EXPECT_EQ(document["findings"][0]["room"], 0);
}

TEST(CheckDocumentation, TellsEveryCode)
{
    const auto text = loadTextFile(std::filesystem::path(VELKO_DOCS_DIR) / "cli.md");
    ASSERT_TRUE(text);
    for (std::size_t i = 0; i < kFindingKinds; ++i) {
        const auto kind = static_cast<FindingKind>(i);
        EXPECT_THAT(*text,
                    HasSubstr("\n| `" + std::string(codeOf(kind)) + "` | "
                              + std::string(severityName(severityOf(kind))) + " | "));
    }
}

TEST_F(CliTest, CheckOfNoRom)
{
    expectFailure(run({"check", "none.nes"}), "none.nes: cannot be read, or is empty");
    expectFailure(run({"check", "."}), ".: cannot be read, or is empty");
}

TEST_F(CliTest, CheckOfAnEmptyRom)
{
    const std::string rom = write("empty.nes", std::string_view());
    expectFailure(run({"check", rom}), rom + ": cannot be read, or is empty");
}

} // namespace
} // namespace velko
