#include "tests/cli/cli_fixture.h"

#include "cli/module_check.h"
#include "rom/data_yaml.h"
#include "rom/file_io.h"
#include "rom/yaml_keys.h"

#include <fstream>

namespace velko {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

// A whole module's text into which each test puts its fault.
constexpr std::string_view kHandlerFields = "pBank: 1, pMemStart: 2, pMemEdge: 3, dBank: [4, 5], "
                                            "dEdge: 6, pointerPad: 4";

class ModuleVerb : public test::CliTest {
protected:
    // What is found in a file of this text, as "line:column code text" or, for keys that are
    // missing at no place, "code text".
    std::vector<std::string> findingsIn(std::string_view text) const
    {
        const auto document = check(text, 1);
        std::vector<std::string> lines;
        for (const auto& finding : document["findings"]) {
            std::string line;
            if (!finding["line"].is_null())
                line = finding["line"].dump() + ":" + finding["column"].dump() + " ";
            line += finding["code"].get<std::string>() + " " + finding["text"].get<std::string>();
            lines.push_back(line);
        }
        return lines;
    }
    // The same without the keys that are missing.
    std::vector<std::string> faultsIn(std::string_view text) const
    {
        auto lines = findingsIn(text);
        std::erase_if(lines, [](const std::string& line) {
            return line.find("missing-key ") != std::string::npos;
        });
        return lines;
    }
    std::string messageOf(std::string_view text) const
    {
        return check(text, 1)["findings"][0]["message"];
    }

private:
    nlohmann::json check(std::string_view text, int status) const
    {
        const auto folder = fs::path(write("data.yaml", text)).parent_path();
        const auto outcome = run({"module", "--json", utf8FromPath(folder)});
        EXPECT_EQ(outcome.status, status);
        EXPECT_EQ(outcome.err, "");
        return outcome.json();
    }
};

TEST_F(ModuleVerb, TheDemosModuleIsFine)
{
    const auto outcome = run({"module"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(outcome.out, StartsWith("modules/lantern_vale/data.yaml: fine, "));
}

TEST_F(ModuleVerb, FolderMayBeNamed)
{
    const auto outcome = run({"module", "--json", "modules/lantern_vale"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.json()["file"], "modules/lantern_vale/data.yaml");
    EXPECT_THAT(outcome.json()["findings"], IsEmpty());
}

TEST_F(ModuleVerb, FindingsAreWrittenLikeACompilers)
{
    const auto folder = fs::path(write("data.yaml", "miscData:\n  Rooms: 3\n")).parent_path();
    const auto outcome = run({"module", utf8FromPath(folder)});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(outcome.out,
                StartsWith(path("data.yaml")
                           + ":2:3: unknown: \"Rooms\" is neither key nor value; did you mean "
                             "rooms?\n"));
}

TEST_F(ModuleVerb, ScalarThatIsNeither)
{
    EXPECT_THAT(faultsIn("miscData:\n  rooms: x1F\n  areas: -5\n"),
                ElementsAre("2:10 unknown x1F", "3:10 unknown -5"));
}

TEST_F(ModuleVerb, ColumnsCountCharacters)
{
    EXPECT_THAT(faultsIn("miscData: {rooms: [\"\xC3\xA9\", no]}\n"),
                ElementsAre("1:20 unknown \xC3\xA9", "1:25 unknown no"));
}

TEST_F(ModuleVerb, ValueBehindAnUnknownKeyReplacesTheLastOne)
{
    EXPECT_THAT(faultsIn("miscData:\n  rooms: 3\n  Areas: 4\n"),
                ElementsAre("3:3 unknown Areas", "3:10 stray-value 4"));
}

TEST_F(ModuleVerb, KeyOfAnotherSection)
{
    EXPECT_THAT(faultsIn("rooms: 3\n"),
                ElementsAre("1:1 misplaced-key rooms", "1:8 stray-value 3"));
    EXPECT_EQ(messageOf("rooms: 3\n"), "rooms is no key here; it belongs in miscData");
    EXPECT_EQ(messageOf("miscData: {miscData: {}}\n"),
              "miscData is no key here; it belongs at the top level");
}

TEST_F(ModuleVerb, HandlerFieldBeforeAnyHandler)
{
    EXPECT_THAT(faultsIn("levelPointerArrayHandlers: {pBank: 3}\n"),
                ElementsAre("1:29 misplaced-key pBank"));
}

TEST_F(ModuleVerb, HandlerFieldThatChangesAHandlerOfAnotherSection)
{
    constexpr std::string_view kText = "levelPointerArrayHandlers: {pahUnit: {pBank: 3}}\n"
                                       "otherPointerArrayHandlers: {pBank: 4}\n";
    EXPECT_THAT(faultsIn(kText), ElementsAre("2:29 misplaced-key pBank"));
    EXPECT_EQ(messageOf(kText),
              "pBank comes before any handler of its section; it changes pahUnit");
}

TEST_F(ModuleVerb, SequenceLongerThanItsTable)
{
    EXPECT_THAT(faultsIn("levelPointerArrayHandlers: {pahPal: {dBank: [1, 2, 3, 4]}}\n"),
                ElementsAre("1:52 overrun 3"));
    std::string items = "itemInGameSpriteAddress: [0";
    for (int i = 1; i < 26; ++i)
        items += ",0";
    EXPECT_THAT(faultsIn(items + "]\n"), IsEmpty());
    EXPECT_THAT(faultsIn(items + ",7]\n"), ElementsAre("1:79 overrun 7"));
}

TEST_F(ModuleVerb, SequenceThatRunsOnIntoTheNextFields)
{
    constexpr std::string_view kText = "miscData: {rooms: [3, 4, 5]}\n";
    EXPECT_THAT(faultsIn(kText), ElementsAre("1:23 overrun 4"));
    EXPECT_EQ(messageOf(kText),
              "rooms takes 1 value; those from here on fill mapIndexes and what follows it");
    EXPECT_EQ(messageOf("miscData: {bpahTruckMovement_pMemEdge: [1, 2]}\n"),
              "bpahTruckMovement_pMemEdge takes 1 value; those from here on are dropped");
}

TEST_F(ModuleVerb, ValueBehindAFullSequenceHasNoField)
{
    EXPECT_THAT(faultsIn("pointerHandlersBanks:\n  phSprite: [6, 15]\n  7: 8\n"),
                ElementsAre("3:3 overrun 7"));
}

TEST_F(ModuleVerb, ValuesWithoutAKey)
{
    EXPECT_THAT(faultsIn("[1, 2]\n"), ElementsAre("1:2 stray-value 1", "1:5 stray-value 2"));
    EXPECT_THAT(faultsIn("levelPointerArrayHandlers:\n  pahPal: 3\n"),
                ElementsAre("2:11 stray-value 3"));
}

TEST_F(ModuleVerb, SectionWithoutContentsHoldsAnEmptyValue)
{
    EXPECT_THAT(faultsIn("miscData:\n"), ElementsAre("1:10 stray-value "));
}

TEST_F(ModuleVerb, Alias)
{
    EXPECT_THAT(faultsIn("miscData: {rooms: &r 3, areas: *r}\n"), ElementsAre("1:32 alias "));
}

TEST_F(ModuleVerb, MalformedTextEndsTheFindings)
{
    EXPECT_THAT(findingsIn("miscData:\n  Rooms: 3\n  areas: ]\n"),
                ElementsAre("2:3 unknown Rooms", "2:10 stray-value 3", "3:10 malformed "));
}

TEST_F(ModuleVerb, TextThatIsNotUnicode)
{
    EXPECT_THAT(findingsIn("miscData: \xFF\n"), ElementsAre(HasSubstr(" malformed ")));
}

TEST_F(ModuleVerb, TextNestedTooDeeply)
{
    EXPECT_THAT(findingsIn(std::string(2000, '[')), ElementsAre(HasSubstr(" malformed ")));
    EXPECT_EQ(messageOf(std::string(2000, '[')),
              "nested too deeply, or too many tag directives; the rest is not read");
}

TEST_F(ModuleVerb, MissingKeys)
{
    std::string text = "levelPointerArrayHandlers: {";
    for (const char* handler :
         {"pahMapAlloc", "pahTileLoad", "pahPal", "pahMapLayout", "pahTile32", "pahUnit"})
        text += std::string(handler) + ": {" + std::string(kHandlerFields) + "}, ";
    text += "}\notherPointerArrayHandlers: {pahMapAreaMovement: {pBank: 1}}\n"
            "pointerHandlersBanks: {phSprite: 1}\n";
    EXPECT_THAT(
        findingsIn(text),
        ElementsAre(
            "missing-key miscData", "missing-key unitSpriteReg", "missing-key unitSpriteAddress",
            "missing-key gameMapTileChunks", "missing-key itemInGameSpriteAddress",
            "1:1 missing-key pahTileLoadType2", "2:29 missing-key pahMapAreaMovement.pMemStart",
            "2:29 missing-key pahMapAreaMovement.pMemEdge",
            "2:29 missing-key pahMapAreaMovement.dEdge",
            "2:29 missing-key pahMapAreaMovement.dBank", "3:1 missing-key phMapScreenData"));
}

TEST_F(ModuleVerb, MissingKeyOfTheTopLevelHasNoPlace)
{
    const auto folder = fs::path(write("data.yaml", "miscData: {rooms: 3}\n")).parent_path();
    const auto outcome = run({"module", utf8FromPath(folder)});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.out,
                StartsWith(path("data.yaml")
                           + ": missing-key: levelPointerArrayHandlers is never given\n"));
    EXPECT_THAT(
        outcome.out,
        HasSubstr(path("data.yaml") + ":1:1: missing-key: areas is never given in miscData\n"));
}

TEST_F(ModuleVerb, OnlyTheLayoutsTableMustTellItsStride)
{
    constexpr std::string_view kText =
        "levelPointerArrayHandlers: {\n"
        " pahPal: {pBank: 1, pMemStart: 2, pMemEdge: 3, dBank: [4, 5], dEdge: 6},\n"
        " pahMapLayout: {pBank: 1, pMemStart: 2, pMemEdge: 3, dBank: [4, 5], dEdge: 6}}\n";
    EXPECT_THAT(findingsIn(kText), ::testing::Contains("3:2 missing-key pahMapLayout.pointerPad"));
    EXPECT_THAT(findingsIn(kText),
                ::testing::Not(::testing::Contains("2:2 missing-key pahPal.pointerPad")));
}

TEST_F(ModuleVerb, MissingFieldsOfMiscDataAreNamed)
{
    const auto findings = findingsIn("miscData: {rooms: 3}\n");
    EXPECT_THAT(findings, ::testing::Contains("1:1 missing-key areas"));
    EXPECT_THAT(findings, ::testing::Not(::testing::Contains("1:1 missing-key rooms")));
}

TEST_F(ModuleVerb, LongScalarIsCutBetweenCharacters)
{
    std::string scalar;
    for (int i = 0; i < 50; ++i)
        scalar += "x\xC3\xA9"; // byte 60 is the start of an x, 61 and 62 make a character
    EXPECT_THAT(faultsIn("- " + scalar + "\n"),
                ElementsAre("1:3 unknown " + scalar.substr(0, 60) + "..."));
    EXPECT_THAT(faultsIn("- x" + scalar + "\n"),
                ElementsAre("1:3 unknown x" + scalar.substr(0, 58) + "..."));
}

TEST_F(ModuleVerb, NoMoreThanAThousandFindingsAreListed)
{
    std::string text = "-\n";
    for (int i = 0; i < 1500; ++i)
        text += "- x\n";
    EXPECT_EQ(findingsIn(text).size(), 1000U);
    const auto folder = utf8FromPath(fs::path(path("data.yaml")).parent_path());
    EXPECT_THAT(run({"module", folder}).out, HasSubstr(": 509 further findings\n"));
}

TEST_F(ModuleVerb, WithoutModuleConfigTheFolderMustBeNamed)
{
    write("empty", std::string_view());
    const auto folder = utf8FromPath(fs::path(path("empty")).parent_path());
    expectFailure(test::runWords({"-C", folder, "module"}), "module.cfg: cannot be read");
}

TEST_F(ModuleVerb, NoDataYaml)
{
    expectFailure(run({"module", "bitmap"}), "bitmap/data.yaml: cannot be read, or is empty");
    write("empty/data.yaml", std::string_view());
    expectFailure(run({"module", path("empty")}),
                  path("empty/data.yaml") + ": cannot be read, or is empty");
}

// The tool and the editor must not come to differ: looking on changes nothing.
TEST(ModuleCheck, ReadsWhatTheEditorReads)
{
    const auto text = loadFile(fs::path(VELKO_DEMO_DIR) / "modules/lantern_vale/data.yaml");
    class Silent : public UserPrompt {
        void showMessage(std::string_view, MessageIcon) override { ADD_FAILURE(); }
        bool askYesNo(std::string_view, MessageIcon) override { return false; }
        YesNoCancel askYesNoCancel(std::string_view, MessageIcon) override
        {
            return YesNoCancel::kCancel;
        }
        bool confirm(std::string_view, std::string_view) override { return false; }
    } prompt;
    GameConfig plain;
    GameConfig checked;
    ModuleCheck check;
    readDataYaml(text.value(), plain, prompt, {});
    readDataYaml(text.value(), checked, prompt, {}, &check);
    EXPECT_TRUE(plain == checked);
    EXPECT_EQ(checked.value(MiscField::rooms), 111U);
    EXPECT_GT(check.keys(), 0U);
}

// In the editor's own order, as values in brackets run on from one key of miscData into the next.
TEST(ModuleDocumentation, TellsEveryKeyInOrder)
{
    const auto text = loadTextFile(fs::path(VELKO_DOCS_DIR) / "modules.md");
    ASSERT_TRUE(text);
    std::size_t last = 0;
    for (const YamlKey& key : yamlKeys()) {
        const std::string name = "`" + std::string(key.name) + "`";
        EXPECT_THAT(*text, HasSubstr(name));
        if (key.place != YamlPlace::kMiscData)
            continue;
        const std::size_t row = text->find("\n| " + name + " | ");
        ASSERT_NE(row, std::string::npos) << name;
        EXPECT_GT(row, last) << name;
        last = row;
    }
}

} // namespace
} // namespace velko
