#include "cli/field.h"
#include "rom/number_text.h"
#include "tests/cli/cli_fixture.h"

#include <fstream>
#include <iterator>

namespace velko {
namespace {

using ::testing::HasSubstr;

class GetVerbTest : public test::CliTest {
protected:
    std::string get(const std::string& rom, const std::string& field) const
    {
        const auto outcome = run({"get", rom, field});
        EXPECT_EQ(outcome.status, 0) << field << ": " << outcome.err;
        return outcome.out;
    }

    // Sets a field of the demo, reads it back, and returns the offsets of the bytes that changed.
    std::vector<std::size_t> set(const std::string& field, const std::string& value) const
    {
        const std::string output = path("set.nes");
        const auto outcome = run({"set", "demo.nes", field, value, "-o", output});
        EXPECT_EQ(outcome.status, 0) << field << ": " << outcome.err;
        EXPECT_EQ(outcome.out + outcome.err, "");
        EXPECT_EQ(get(output, field), value + "\n");
        const auto before = demoBytes();
        const auto after = loadFile(pathFromUtf8(output)).value();
        std::vector<std::size_t> changed;
        for (std::size_t i = 0; i < before.size(); ++i)
            if (before[i] != after.at(i))
                changed.push_back(i);
        return changed;
    }

    void expectRefused(const std::string& field, const std::string& value,
                       const std::string& reason) const
    {
        const std::string output = path("refused.nes");
        const auto outcome = run({"set", "demo.nes", field, value, "-o", output});
        EXPECT_EQ(outcome.status, 1) << field;
        EXPECT_EQ(outcome.err, "velko-cli: " + reason + "\n");
        EXPECT_FALSE(std::filesystem::exists(pathFromUtf8(output)));
    }

    static constexpr std::size_t offset(std::size_t bank, std::size_t address)
    {
        return bank * 0x4000 + (address & 0x3FFF) + 16;
    }
    using Offsets = std::vector<std::size_t>;
};

TEST_F(GetVerbTest, TellsOneValueInHexadecimal)
{
    const auto bytes = demoBytes();
    EXPECT_EQ(get("demo.nes", "room.0.pointer.palette"), "8200\n");
    EXPECT_EQ(get("demo.nes", "room.25.item"), "4\n");
    EXPECT_EQ(get("demo.nes", "room.20.width"), "8\n");
    EXPECT_EQ(get("demo.nes", "room.20.height"), "4\n");
    EXPECT_EQ(get("demo.nes", "room.0.unit.2.type"), "0\n"); // the snail
    EXPECT_EQ(get("demo.nes", "room.0.load.0"), hexText(bytes[offset(12, 0xB000)]) + "\n");
}

TEST_F(GetVerbTest, JsonHoldsTheNumber)
{
    const auto outcome = run({"get", "--json", "demo.nes", "room.0.pointer.palette"});
    EXPECT_EQ(outcome.json()["field"], "room.0.pointer.palette");
    EXPECT_EQ(outcome.json()["value"], 0x8200);
}

TEST_F(GetVerbTest, SetChangesJustItsBytes)
{
    EXPECT_EQ(set("room.0.palette.5", "21"), Offsets{offset(11, 0x8205)});
    EXPECT_EQ(set("room.1f.music", "9"), Offsets{offset(7, 0x831F)});
    EXPECT_EQ(set("room.25.item", "9"), Offsets{offset(7, 0x8380)});
    EXPECT_EQ(set("room.25.itemaddress", "1234"), (Offsets{offset(7, 0x8390), offset(7, 0x8391)}));
    EXPECT_EQ(set("room.2.exit.1.room", "6e"), Offsets{offset(15, 0xD680 + 4 * 2 + 1)});
    EXPECT_EQ(set("room.2.exit.1.entrance", "3"), Offsets{offset(15, 0xD840 + 4 * 2 + 1)});
    EXPECT_EQ(set("room.2.entrance.3.screenx", "2"), Offsets{offset(15, 0xD300 + 4 * 2 + 3)});
    EXPECT_EQ(set("room.2.entrance.3.y", "e"), Offsets{offset(15, 0xD4C0 + 4 * 2 + 3)});
    EXPECT_EQ(set("area.3.item", "2"), Offsets{offset(7, 0x83B3)});
    EXPECT_EQ(set("area.3.x", "40"), Offsets{offset(13, 0x8A66)});
    EXPECT_EQ(set("area.3.y", "48"), Offsets{offset(13, 0x8A67)});
    EXPECT_EQ(set("truck.2.area", "1"), Offsets{offset(13, 0x8A82)});
    EXPECT_EQ(set("truck.2.pattern", "b"), Offsets{offset(13, 0x8A82)});
    EXPECT_EQ(set("map.2,3.tile", "99"), Offsets{offset(13, 0x8800 + 2 * 26 + 3)});
    EXPECT_EQ(set("map.2,3.palette", "3"), Offsets{offset(13, 0x8A00 + 8 * 1 + 1)});
    EXPECT_EQ(set("room.0.slot.5.mirror", "1"), Offsets{offset(11, 0x9000 + 64 + 2)});
    EXPECT_EQ(set("room.0.slot.5.block", "c0"), Offsets{offset(11, 0x9005)});
    EXPECT_EQ(set("room.0.slot.5.bank", "2"), Offsets{offset(11, 0x9000 + 64 + 2)});
    EXPECT_EQ(set("room.0.unit.2.x", "33"), Offsets{offset(12, 0x8200 + 5 * 2 + 1)});
    EXPECT_EQ(set("room.0.unit.2.screenx", "1"), Offsets{offset(12, 0x8200 + 5 * 2 + 2)});
    EXPECT_EQ(set("room.0.layout.0,1", "1"), Offsets{offset(10, 0x9002)});
    EXPECT_EQ(set("room.0.screen.1", "8700"), (Offsets{offset(10, 0x8002), offset(10, 0x8003)}));
    EXPECT_EQ(set("room.0.screen.1.index", "0"), Offsets{offset(10, 0x8002)}); // 8600
}

TEST_F(GetVerbTest, TakingAChambersItemTakesItsAddressToo)
{
    EXPECT_EQ(set("room.25.item", "ff"),
              (Offsets{offset(7, 0x8380), offset(7, 0x8390), offset(7, 0x8391)}));
}

TEST_F(GetVerbTest, PatternKeepsItsEndMark)
{
    const auto changed = set("pattern.3.0", "5");
    EXPECT_EQ(changed.size(), 1U);
    EXPECT_EQ(loadFile(pathFromUtf8(path("set.nes"))).value().at(changed.at(0)) & 0x80,
              demoBytes().at(changed.at(0)) & 0x80);
}

TEST_F(GetVerbTest, ValuesThatNoWindowOffersAreRefused)
{
    expectRefused("room.0.exit.0.room", "6f",
                  "room.0.exit.0.room takes 0 to 6e, not 6f"); // 111 rooms
    expectRefused("room.0.exit.0.entrance", "4", "room.0.exit.0.entrance takes 0 to 3, not 4");
    expectRefused("room.25.item", "1a", "room.25.item takes 0 to 19, or ff, not 1a");
    expectRefused("area.0.x", "41", "area.0.x takes 18 to e8, multiples of 8, not 41");
    expectRefused("truck.0.pattern", "c", "truck.0.pattern takes 0 to b, not c");
    expectRefused("room.0.slot.0.bank", "4", "room.0.slot.0.bank takes 0 to 3, not 4");
    expectRefused("room.0.width", "3", "room.0.width can only be read");
    expectRefused("room.0.layout.0,0", "fe", "room.0.layout.0,0 takes 0 to 4, not fe");
    expectRefused("room.20.entrance.0.screenx", "9",
                  "room.20.entrance.0.screenx takes 0 to 8, not 9"); // 8 x 4 screens
    expectRefused("room.20.entrance.0.screeny", "4",
                  "room.20.entrance.0.screeny takes 0 to 3, not 4");
    expectRefused("room.20.entrance.0.y", "f", "room.20.entrance.0.y takes 0 to e, not f");
    expectRefused("room.20.tile32.0.tile.0,0", "5",
                  "room.20.tile32.0.tile.0,0 takes 0 to fc, multiples of 4, not 5");
    expectRefused("room.20.screen.1.tile32.0,0", "92",
                  "room.20.screen.1.tile32.0,0 takes 0 to 91, not 92");
    expectRefused("room.20.screen.0.tile32.0,0", "1",
                  "room.20.screen.0.tile32.0,0 can only be read");
    expectRefused("room.0.slot.0.pixel.0,0", "4", "room.0.slot.0.pixel.0,0 takes 0 to 3, not 4");
}

TEST_F(GetVerbTest, WhatTheGameDoesNotHaveIsWrongUse)
{
    const std::pair<const char*, const char*> rows[] = {
        {"room.6f.music", "there is no room 6f"},
        {"room.0.palette.20", "there is no palette entry 20"},
        {"room.0.unit.8.x", "there is no unit 8"},
        {"room.0.screen.5", "there is no screen 5"},
        {"room.0.layout.1,0", "the map has 1 rows of 4 cells"},
        {"room.0.item", "the room is no chamber: it holds no item"},
        {"room.0.exit.4.room", "there is no exit 4"},
        {"room.0.slot.40.block", "there is no slot 40"},
        {"area.c.item", "there is no area c"},
        {"area.8.item", "area 8 has no clear item"},
        {"area.d.x", "there is no area d"},
        {"truck.8.area", "there is no truck 8"},
        {"pattern.c.0", "there is no pattern c"},
        {"room.0.screen.0.tile.f,0", "a screen has f rows of 10 cells"},
        {"room.0.screen.0.tile32.8,0", "a screen has 8 rows of 8 Tile32 blocks"},
        {"room.0.screen.5.tile32.0,0", "there is no screen 5"},
        {"room.0.screen.5.index", "there is no screen 5"},
        {"room.0.tile32.92.tile.0,0", "there is no Tile32 block 92"},
        {"room.0.tile32.0.tile.2,0", "a Tile32 block has 2 rows of 2 tiles"},
        {"room.0.slot.0.pixel.10,0", "a slot has 10 rows of 10 pixels"},
        {"map.12,0.tile", "the overworld has 12 rows of 1a cells"},
        {"room.0", "there is no field of the form \"room.0\""},
        {"room.0.layout.1.0", "there is no field of the form \"room.0.layout.1.0\""},
        {"room.x.music", "there is no field of the form \"room.x.music\""},
        {"", "there is no field of the form \"\""},
    };
    for (const auto& [field, reason] : rows)
        expectFailure(run({"get", "demo.nes", field}), std::string(field) + ": " + reason);
}

TEST_F(GetVerbTest, UnitWithoutAPlacementHasNone)
{
    // Room 2 has one such unit.
    std::uint32_t without = 0;
    while (get("demo.nes", "room.2.unit." + hexText(without) + ".placed") == "1\n")
        ++without;
    const std::string unit = "room.2.unit." + hexText(without);
    expectFailure(run({"get", "demo.nes", unit + ".x"}),
                  unit + ".x: unit " + hexText(without) + " has no placement");
    EXPECT_EQ(set(unit + ".placed", "1").size(), 1U);
    EXPECT_EQ(get(path("set.nes"), unit + ".screenx"), "0\n");
}

TEST_F(GetVerbTest, ValuePastTheEndOfTheFileIsRefused)
{
    auto bytes = demoBytes();
    bytes.resize(offset(7, 0x8300)); // without the rooms' music
    const std::string rom = write("cut.nes", bytes);
    const std::vector<std::string> commands[] = {
        {"get", rom, "room.0.music"},
        {"get", "--json", rom, "room.0.music"},
        {"set", rom, "room.0.music", "1", "-o", path("out.nes")}};
    for (const std::vector<std::string>& words : commands) {
        const auto outcome = run(words);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, "velko-cli: room.0.music lies past the end of the file\n");
    }
    EXPECT_FALSE(std::filesystem::exists(pathFromUtf8(path("out.nes"))));
}

TEST_F(GetVerbTest, WhatChangesAlongPastTheEndIsRefused)
{
    auto bytes = demoBytes();
    bytes.resize(offset(7, 0x8390)); // items of the chambers, and no addresses
    const std::string rom = write("cut.nes", bytes);
    EXPECT_EQ(get(rom, "room.25.item"), "4\n");
    EXPECT_EQ(run({"set", rom, "room.25.item", "5", "-o", path("out.nes")}).status, 0);
    const auto outcome = run({"set", rom, "room.25.item", "ff", "-o", path("none.nes")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err,
              "velko-cli: a part of what setting room.25.item changes lies past the end of the "
              "file\n");
    EXPECT_FALSE(std::filesystem::exists(pathFromUtf8(path("none.nes"))));
}

TEST_F(GetVerbTest, AnEmptyChamberGetsAnAddressWithItsItem)
{
    auto bytes = demoBytes();
    for (const std::size_t place : {offset(7, 0x8380), offset(7, 0x8390), offset(7, 0x8391)})
        bytes.at(place) = 0xFF;
    const std::string rom = write("empty.nes", bytes);
    const std::string output = path("item.nes");
    EXPECT_EQ(run({"set", rom, "room.25.item", "9", "-o", output}).status, 0);
    EXPECT_EQ(get(output, "room.25.item"), "9\n");
    EXPECT_EQ(get(output, "room.25.itemaddress"), "ab06\n");
}

TEST_F(GetVerbTest, EveryFieldIsDocumented)
{
    std::ifstream file(std::string(VELKO_DOCS_DIR) + "/cli.md");
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    for (const FieldRule& rule : fieldRules())
        EXPECT_THAT(text,
                    HasSubstr("| `" + std::string(rule.pattern) + "` | " + std::string(rule.bounds)
                              + " | " + std::string(rule.tells) + " |\n"));
}

} // namespace
} // namespace velko
