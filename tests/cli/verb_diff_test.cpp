#include "tests/cli/cli_fixture.h"

namespace velko {
namespace {

using ::testing::HasSubstr;

class DiffVerb : public test::CliTest {
protected:
    // A ROM in which fields of the demo were set.
    std::string with(const std::string& field, const std::string& value) const
    {
        const auto outcome = run({"set", "demo.nes", field, value, "-o", path("changed.nes")});
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return path("changed.nes");
    }
    std::string diff(const std::string& after) const
    {
        const auto outcome = run({"diff", "demo.nes", after});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.err, "");
        return outcome.out;
    }
};

TEST_F(DiffVerb, EqualRoms)
{
    const auto outcome = run({"diff", "demo.nes", "demo.nes"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out + outcome.err, "");
    const auto json = run({"diff", "demo.nes", "demo.nes", "--json"});
    EXPECT_EQ(json.status, 0);
    EXPECT_EQ(json.json(),
              (nlohmann::json{{"differences", nlohmann::json::array()},
                              {"unexplained", nlohmann::json::array()}}));
}

struct SetCase {
    const char* field;
    const char* value;
    const char* line;
};

TEST_F(DiffVerb, TellsEveryValueThatCanBeSet)
{
    const SetCase cases[] = {
        {"room.25.item", "5", "room 25 item: "},
        {"room.25.itemaddress", "1234", "room 25 item address: "},
        {"room.20.music", "7", "room 20 music: "},
        {"room.20.layout.0,1", "0", " layout 0,1: "},
        {"room.20.screen.1", "8000", " screen list entry 1: "},
        {"room.20.palette.5", "21", " palette entry 5: "},
        {"room.20.slot.3.block", "7", " slot 3 block: "},
        {"room.20.slot.3.mirror", "1", " slots 2 and 3 bank and flags: "},
        {"room.20.unit.0.type", "11", "room 20 unit 0 "},
        {"room.20.unit.0.x", "11", "room 20 unit 0 "},
        {"room.20.load.0", "7", " sprite load 0: "},
        {"room.20.entrance.0.screenx", "3", "room 20 entrance 0 screen: "},
        {"room.20.entrance.0.x", "3", "room 20 entrance 0 block: "},
        {"room.20.exit.0.room", "3", "room 20 exit 0 room: "},
        {"room.20.exit.0.entrance", "3", "room 20 exit 0 entrance: "},
        {"area.2.item", "7", "area 2 clear item: "},
        {"area.2.parachute", "0", "area 2 parachute: "},
        {"area.2.x", "48", "area 2 position: "},
    };
    for (const SetCase& set : cases) {
        const std::string text = diff(with(set.field, set.value));
        EXPECT_EQ(std::ranges::count(text, '\n'), 1) << set.field << ":\n" << text;
        EXPECT_THAT(text, HasSubstr(set.line)) << set.field;
        EXPECT_THAT(text, HasSubstr(" -> ")) << set.field;
    }
}

TEST_F(DiffVerb, UnknownPlacesAreRanges)
{
    auto bytes = demoBytes();
    const std::size_t end = bytes.size();
    bytes[end - 0x10] ^= 1; // behind the program, before its vectors
    bytes[end - 0xF] ^= 1;
    EXPECT_EQ(diff(write("changed.nes", bytes)), "unexplained: 40000 to 40001, 2 bytes\n");
}

TEST_F(DiffVerb, SizesMayDiffer)
{
    auto bytes = demoBytes();
    bytes.resize(bytes.size() + 0x4000, 0xFF);
    EXPECT_EQ(diff(write("changed.nes", bytes)), "size: 262160 -> 278544 bytes\n");
}

TEST_F(DiffVerb, Json)
{
    auto bytes = demoBytes();
    bytes[4] = 0x20;
    bytes.back() ^= 1;
    const auto outcome = run({"diff", "demo.nes", write("changed.nes", bytes), "--json"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.json(), nlohmann::json::parse(R"({
        "differences": [{"what": "header byte 4", "change": "changed", "from": "10", "to": "20",
                         "bytes": [{"offset": 4, "length": 1}]}],
        "unexplained": [{"offset": 262159, "length": 1}]})"));
}

TEST_F(DiffVerb, FilesThatAreNotThere)
{
    expectFailure(run({"diff", "no.nes", "demo.nes"}), "no.nes: cannot be read, or is empty");
    expectFailure(run({"diff", "demo.nes", "no.nes"}), "no.nes: cannot be read, or is empty");
}

} // namespace
} // namespace velko
