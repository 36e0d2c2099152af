#include "rom/yaml_observer.h"

#include "tests/rom/data_yaml_fixture.h"

#include <map>
#include <set>
#include <vector>

namespace velko {
namespace {

using test::ScriptedPrompt;
using ::testing::ElementsAre;
using ::testing::StartsWith;

// Writes down what it sees, as "line:column what text".
class Recorder : public DataYamlObserver {
public:
    void scalar(std::string_view text, YamlMark at, YamlScalarUse use,
                const YamlCursor& cursor) override
    {
        constexpr const char* kUses[] = {"key", "value", "neither"};
        note(at, kUses[static_cast<std::size_t>(use)], text);
        if (cursor.inSequence)
            seen.back() += " in sequence";
    }
    void alias(YamlMark at) override { note(at, "alias", ""); }
    void malformed(YamlMark at, std::string_view problem) override
    {
        note(at, "malformed", problem);
    }

    std::vector<std::string> seen;

private:
    void note(YamlMark at, std::string_view what, std::string_view text)
    {
        seen.push_back(std::to_string(at.line) + ":" + std::to_string(at.column) + " "
                       + std::string(what) + " " + std::string(text));
    }
};

class DataYamlObserverTest : public test::DataYamlTest {
protected:
    std::vector<std::string> seenIn(std::string_view text)
    {
        Recorder recorder;
        readDataYaml(test::bytesOf(text), config, prompt, {}, &recorder);
        return recorder.seen;
    }
};

TEST_F(DataYamlObserverTest, SeesWhatEachScalarIsTakenFor)
{
    expectUnknown("Rooms");
    EXPECT_THAT(seenIn("miscData:\n  rooms: &r 3\n  areas: *r\n  Rooms: [4]\n"),
                ElementsAre("1:1 key miscData", "2:3 key rooms", "2:10 value 3", "3:3 key areas",
                            "3:10 alias ", "4:3 neither Rooms", "4:11 value 4 in sequence"));
    EXPECT_EQ(misc(MiscField::rooms), 3U);
}

TEST_F(DataYamlObserverTest, SeesTheScalarThatEndsTheReading)
{
    expectUnknown("x", ScriptedPrompt::Answer::kCancel);
    EXPECT_THAT(seenIn("- x\n- y\n"), ElementsAre("1:3 neither x in sequence"));
}

TEST_F(DataYamlObserverTest, SeesWhereTheTextIsMalformed)
{
    prompt.expectError("Problem while parsing YAML.");
    EXPECT_THAT(seenIn("miscData:\n  rooms: ]\n"),
                ElementsAre("1:1 key miscData", "2:3 key rooms", StartsWith("2:10 malformed ")));
}

TEST(YamlKeys, AreListedOnceWithTheNumberOfTheirFields)
{
    std::set<std::string_view> names;
    std::map<std::string_view, std::uint32_t> fields;
    for (const YamlKey& key : yamlKeys()) {
        EXPECT_TRUE(names.insert(key.name).second) << key.name;
        fields[key.name] = key.fields;
    }
    EXPECT_EQ(names.size(), 60U);
    EXPECT_EQ(fields["miscData"], 0U);
    EXPECT_EQ(fields["pahUnit"], 0U);
    EXPECT_EQ(fields["pBank"], 1U);
    EXPECT_EQ(fields["dBank"], 2U);
    EXPECT_EQ(fields["phSprite"], 2U);
    EXPECT_EQ(fields["unitSpriteReg"], 256U);
    EXPECT_EQ(fields["unitSpriteAddress"], 144U);
    EXPECT_EQ(fields["gameMapTileChunks"], 1024U);
    EXPECT_EQ(fields["itemInGameSpriteAddress"], 26U);
    EXPECT_EQ(fields["rooms"], 1U);
}

} // namespace
} // namespace velko
