#include "cli/field.h"
#include "rom/number_text.h"
#include "tests/cli/cli_fixture.h"
#include "tests/cli/demo_state.h"

#include <algorithm>

// What holds of each kind of fields, tried on one field of the demo.

namespace velko {
namespace {

using ::testing::IsSupersetOf;

class EveryFieldTest : public test::CliTest {
protected:
    // Reads a ROM in place of the demo.
    void open(std::vector<std::uint8_t> bytes)
    {
        m_game.state.rom.setBytes(std::move(bytes));
        m_game.state.prepareRoomData();
    }
    std::optional<Field> find(const std::string& name)
    {
        const FieldResult result = findField(m_game.state, name);
        const auto* field = std::get_if<Field>(&result);
        return field == nullptr ? std::nullopt : std::optional(*field);
    }
    std::span<const std::uint8_t> bytes() const { return m_game.state.rom.bytes(); }

    // The name of a field of a kind that the demo has.
    std::string nameOf(const FieldRule& rule)
    {
        for (const char* room : {"20", "25"}) { // 25 is a chamber
            for (const char* number : {"1", "0"}) {
                const std::string name = filledIn(rule.pattern, room, number);
                if (find(name))
                    return name;
            }
        }
        ADD_FAILURE() << rule.pattern;
        return {};
    }

    // Whether a change writes more than the value, as documented.
    static bool changesMore(std::string_view pattern)
    {
        return pattern == "room.R.item" || pattern.ends_with(".placed")
            || (pattern.starts_with("room.R.screen.N.") && pattern.ends_with(",COLUMN")
                && !pattern.starts_with("room.R.screen.N.tile32."));
    }

private:
    static std::string filledIn(std::string_view pattern, const std::string& room,
                                const std::string& number)
    {
        std::string name;
        std::string word;
        const auto flush = [&] {
            const bool isNumber = !word.empty() && word.front() >= 'A' && word.front() <= 'Z';
            name += !isNumber ? word : word == "R" ? room : number;
            word.clear();
        };
        for (const char c : pattern) {
            if (c == '.' || c == ',') {
                flush();
                name += c;
            } else {
                word += c;
            }
        }
        flush();
        return name;
    }

    test::OpenGame m_game;
};

// The file ends before the last byte that tells the value, before the first one, or everywhere.
TEST_F(EveryFieldTest, IsRefusedWhereTheFileEndsBeforeIt)
{
    for (const FieldRule& rule : fieldRules()) {
        const std::string name = nameOf(rule);
        SCOPED_TRACE(name);
        const Field field = find(name).value();
        ASSERT_FALSE(field.bytes.empty());
        const auto [first, last] = std::ranges::minmax(field.bytes);
        for (const std::uint32_t size : {last, first, 16U}) {
            auto cut = demoBytes();
            cut.resize(size);
            const std::string rom = write("cut.nes", cut);
            const std::string reason = "velko-cli: " + name + " lies past the end of the file\n";
            const auto get = run({"get", rom, name});
            EXPECT_EQ(get.status, 1);
            EXPECT_EQ(get.out, "");
            EXPECT_EQ(get.err, reason);
            const auto set = run({"set", rom, name, hexText(field.value), "-o", path("out.nes")});
            EXPECT_EQ(set.status, 1);
            EXPECT_EQ(set.err, reason);
            EXPECT_FALSE(std::filesystem::exists(pathFromUtf8(path("out.nes"))));
        }
    }
}

TEST_F(EveryFieldTest, IsWhatItIsWhereTheFileEndsBehindIt)
{
    for (const FieldRule& rule : fieldRules()) {
        const std::string name = nameOf(rule);
        SCOPED_TRACE(name);
        const Field field = find(name).value();
        auto cut = demoBytes();
        cut.resize(std::ranges::max(field.bytes) + 1);
        open(cut);
        const std::optional<Field> again = find(name);
        ASSERT_TRUE(again);
        EXPECT_EQ(again->value, field.value);
        EXPECT_EQ(again->bytes, field.bytes);
        open(demoBytes());
    }
}

TEST_F(EveryFieldTest, TakesEachEndOfItsRangeAndThenHoldsIt)
{
    for (const FieldRule& rule : fieldRules()) {
        const std::string name = nameOf(rule);
        SCOPED_TRACE(name);
        const Field field = find(name).value();
        EXPECT_EQ(!field.set, rule.bounds == "read only");
        if (!field.set)
            continue;
        for (const std::uint32_t value : {field.smallest, field.largest}) {
            ASSERT_TRUE(field.allows(value));
            EXPECT_EQ(find(name)->set(value), std::nullopt);
            // An address may end the list of screens, and a load the list of loads.
            const std::optional<Field> now = find(name);
            if (now) {
                EXPECT_EQ(now->value, value);
            } else {
                EXPECT_TRUE(rule.pattern == "room.R.screen.N" || rule.pattern == "room.R.load.N");
            }
            open(demoBytes());
        }
        EXPECT_FALSE(field.allows(field.largest + 1));
    }
}

TEST_F(EveryFieldTest, ChangesNoOtherByte)
{
    for (const FieldRule& rule : fieldRules()) {
        const std::string name = nameOf(rule);
        SCOPED_TRACE(name);
        const Field field = find(name).value();
        if (!field.set || changesMore(rule.pattern))
            continue;
        const auto before = demoBytes();
        EXPECT_EQ(find(name)->set(field.value == field.largest ? field.smallest : field.largest),
                  std::nullopt);
        FileOffsets changed;
        for (std::uint32_t i = 0; i < before.size(); ++i)
            if (before[i] != bytes()[i])
                changed.push_back(i);
        EXPECT_FALSE(changed.empty());
        EXPECT_THAT(field.bytes, IsSupersetOf(changed));
        open(before);
    }
}

TEST_F(EveryFieldTest, SetToWhatItIsChangesNothing)
{
    for (const FieldRule& rule : fieldRules()) {
        const std::string name = nameOf(rule);
        SCOPED_TRACE(name);
        const Field field = find(name).value();
        if (!field.set)
            continue;
        EXPECT_EQ(field.set(field.value), std::nullopt);
        EXPECT_TRUE(std::ranges::equal(bytes(), demoBytes()));
        open(demoBytes());
    }
}

} // namespace
} // namespace velko
