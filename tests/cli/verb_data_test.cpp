#include "pages/data_management_model.h"
#include "tests/cli/cli_fixture.h"
#include "tests/cli/demo_state.h"

#include <functional>

namespace velko {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

using Bytes = std::vector<std::uint8_t>;
using Change = std::function<void(DataManagementModel& model, RoomDataKind kind)>;

constexpr std::array<const char*, kRoomDataKinds> kKinds = {"alloc", "layout", "tile32", "tiles",
                                                            "palette"};

// File offsets of the demo's tables.
constexpr std::size_t kPaletteTable = 0x2C010;
constexpr std::size_t kLayoutTable = 0x3D110; // four bytes per entry

// Somebody who clicks these buttons, the last one until the end.
class ClickingPrompt : public UserPrompt {
public:
    explicit ClickingPrompt(std::vector<std::string> buttons) : m_buttons(std::move(buttons)) { }

    void showMessage(std::string_view, MessageIcon) override { }
    bool askYesNo(std::string_view, MessageIcon) override { return next() == "yes"; }
    YesNoCancel askYesNoCancel(std::string_view, MessageIcon) override
    {
        return next() == "yes" ? YesNoCancel::kYes : YesNoCancel::kNo;
    }

protected:
    bool confirm(std::string_view, std::string_view) override { return false; }

private:
    std::string next()
    {
        const std::string button = m_buttons.at(0);
        if (m_buttons.size() > 1)
            m_buttons.erase(m_buttons.begin());
        return button;
    }

    std::vector<std::string> m_buttons;
};

class DataVerbTest : public test::CliTest {
protected:
    test::CliOutcome data(std::vector<std::string> words) const
    {
        words.insert(words.begin(), "data");
        return run(std::move(words));
    }
    // Runs an operation on a ROM; its output file is output().
    test::CliOutcome change(const std::string& rom, std::vector<std::string> words) const
    {
        words.insert(words.begin(), rom);
        words.insert(words.end(), {"-o", path("out.nes")});
        return data(std::move(words));
    }
    std::optional<Bytes> output() const { return loadFile(fs::path(path("out.nes"))); }

    // What the window's operation makes of a ROM while a room is shown. Two answers at most.
    static Bytes windowsResult(const Bytes& rom, std::uint8_t room, RoomDataKind kind,
                               const std::vector<std::string>& answers, const Change& change)
    {
        test::OpenGame game;
        EditorState& state = game.state;
        state.rom.setBytes(rom);
        state.prepareRoomData();
        state.graphics.selectRoom(room);
        ClickingPrompt prompt(answers);
        DataManagementModel model(state, prompt);
        change(model, kind);
        return {state.rom.bytes().begin(), state.rom.bytes().end()};
    }

    // Runs the operation both ways, for each kind of data.
    void expectAsInTheWindow(const std::vector<std::string>& words, std::uint8_t room,
                             const std::vector<std::string>& answers, const Change& change)
    {
        for (std::size_t i = 0; i < kKinds.size(); ++i) {
            std::vector<std::string> all = words;
            all.insert(all.end(), {"--kind", kKinds[i]});
            for (const std::string& answer : answers)
                all.insert(all.end(), {"--answer", answer});
            const auto outcome = this->change("demo.nes", all);
            EXPECT_EQ(outcome.status, 0) << kKinds[i] << ": " << outcome.err;
            const Bytes expected =
                windowsResult(demoBytes(), room, static_cast<RoomDataKind>(i), answers, change);
            EXPECT_NE(expected, demoBytes()) << kKinds[i] << ": the operation does nothing";
            EXPECT_TRUE(output() == expected) << kKinds[i];
            fs::remove(path("out.nes"));
        }
    }
    // Refused: the reason stands on standard error, and no file is there.
    void expectRefusal(const test::CliOutcome& outcome, const std::string& reason) const
    {
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, reason);
        EXPECT_FALSE(fs::exists(path("out.nes")));
    }
};

void setWord(Bytes& bytes, std::size_t offset, unsigned value)
{
    bytes.at(offset) = static_cast<std::uint8_t>(value & 0xFF);
    bytes.at(offset + 1) = static_cast<std::uint8_t>(value >> 8);
}

// --- Telling

TEST_F(DataVerbTest, ListTellsEachRoomsBlock)
{
    const auto outcome = data({"demo.nes", "list", "--kind", "palette"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(outcome.out,
                StartsWith("room  pointer  length  shared with\n"
                           "   0     8200      32  1, 2, 3\n"));
    EXPECT_THAT(outcome.out, HasSubstr("\n  17     8360      32  39, 3a, 3b, 3c, 3d, 3e\n"));
    EXPECT_THAT(outcome.out, EndsWith("\nfree: 2048 bytes\n"));
    EXPECT_EQ(std::ranges::count(outcome.out, '\n'), 113); // 111 rooms
}

TEST_F(DataVerbTest, ShowTellsOneRoomsBlock)
{
    const auto outcome = data({"demo.nes", "show", "--kind", "layout", "--room", "6e"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr("      12  48\nfree: "));
    EXPECT_EQ(std::ranges::count(outcome.out, '\n'), 3);
}

TEST_F(DataVerbTest, ListAsJson)
{
    const auto outcome = data({"demo.nes", "list", "--kind", "palette", "--json"});
    const auto document = outcome.json();
    EXPECT_EQ(document["free"], 2048);
    ASSERT_EQ(document["blocks"].size(), 111U);
    EXPECT_EQ(document["blocks"][0x17]["room"], 0x17);
    EXPECT_EQ(document["blocks"][0x17]["pointer"], 0x8360);
    EXPECT_EQ(document["blocks"][0x17]["length"], 32);
    EXPECT_EQ(document["blocks"][0]["sharedWith"], nlohmann::json({1, 2, 3}));
}

// --- Every operation, beside the window's

TEST_F(DataVerbTest, AllocateIsTheWindows)
{
    expectAsInTheWindow({"allocate", "--room", "17"}, 0x17, {},
                        [](auto& model, auto kind) { model.allocateUniqueData(kind); });
}

TEST_F(DataVerbTest, DeleteIsTheWindows)
{
    expectAsInTheWindow({"delete", "--room", "17"}, 0x17, {},
                        [](auto& model, auto kind) { model.deleteData(kind); });
}

TEST_F(DataVerbTest, SetPointerToARoomIsTheWindows)
{
    for (const char* answer : {"yes", "no"})
        expectAsInTheWindow({"set-pointer", "--room", "17", "--from", "0"}, 0x17, {answer},
                            [](auto& model, auto kind) { model.setPointerToRoom(kind, 0); });
}

TEST_F(DataVerbTest, SetPointerToAnAddressIsTheWindows)
{
    expectAsInTheWindow({"set-pointer", "--room", "17", "--pointer", "8001"}, 0x17, {},
                        [](auto& model, auto kind) { model.setPointer(kind, 0x8001); });
}

TEST_F(DataVerbTest, CloneIsTheWindows)
{
    using Answers = std::vector<std::string>;
    for (const Answers& answers : {Answers{"yes"}, Answers{"no"}, Answers{"yes", "no"}})
        expectAsInTheWindow({"clone", "--room", "0", "--from", "20"}, 0, answers,
                            [](auto& model, auto kind) { model.cloneDataOfRoom(kind, 0x20); });
}

TEST_F(DataVerbTest, DeleteUnusedIsTheWindows)
{
    expectAsInTheWindow({"delete-unused"}, 0, {},
                        [](auto& model, auto kind) { model.deleteUnusedData(kind); });
}

TEST_F(DataVerbTest, JoinIsTheWindows)
{
    expectAsInTheWindow({"join"}, 0, {},
                        [](auto& model, auto kind) { model.joinIdenticalData(kind); });
}

// --- Messages

TEST_F(DataVerbTest, DeleteUnusedTellsHowMuch)
{
    const auto outcome = change("demo.nes", {"delete-unused", "--kind", "tile32"});
    EXPECT_EQ(outcome.out, "1024 (0x400) bytes removed in 1 chunks.\n");
    EXPECT_EQ(outcome.err, "");
    fs::rename(path("out.nes"), path("tidy.nes"));
    const auto again = change(path("tidy.nes"), {"delete-unused", "--kind", "tile32"});
    EXPECT_EQ(again.status, 0);
    EXPECT_EQ(again.out, "No unused data found between normal data.\n");
    EXPECT_TRUE(output() == loadFile(fs::path(path("tidy.nes"))));
}

TEST_F(DataVerbTest, JoinTellsWhichRooms)
{
    const auto outcome = change("demo.nes", {"join", "--kind", "palette"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out,
              "Room \"Area 4: Glimmer Caves, the mine road\" and Room \"Area 4 Indoor: the south "
              "drift\" had identical data and has been joined to use the same data.\n");
    fs::rename(path("out.nes"), path("joined.nes"));
    const auto again = change(path("joined.nes"), {"join", "--kind", "palette"});
    EXPECT_EQ(again.status, 0);
    EXPECT_EQ(again.out, "Found no identical Rooms with different pointers.\n");
}

TEST_F(DataVerbTest, AllocateWithoutFreeSpaceIsRefused)
{
    Bytes bytes = demoBytes();
    setWord(bytes, kPaletteTable + 2 * 0x6E, 0x8E00 - 63); // 31 bytes are free
    const auto outcome =
        change(write("full.nes", bytes), {"allocate", "--kind", "palette", "--room", "0"});
    expectRefusal(outcome,
                  "Not enough free space. Try \"Delete unused data\" or \"Join identical "
                  "data\".\nvelko-cli: nothing was changed\n");
}

TEST_F(DataVerbTest, CloneOfTheSameBlockIsRefused)
{
    expectRefusal(
        change("demo.nes", {"clone", "--kind", "palette", "--room", "0", "--from", "1"}),
        "Rooms have the same pointer! Copying is pointless!\nvelko-cli: nothing was changed\n");
}

TEST_F(DataVerbTest, CloneWithoutAnAnswerIsRefused)
{
    expectRefusal(change("demo.nes", {"clone", "--kind", "layout", "--room", "0", "--from", "20"}),
                  "velko-cli: --answer is needed: Source and Destination rooms doesn't have the "
                  "same data lengths.  Do you want to re-adjust Dest. data size by "
                  "adding/removing bytes?  (YES to adjust, NO to copy possible number of bytes "
                  "without adjusting, CANCEL to not do anything.)\n");
}

TEST_F(DataVerbTest, CancelledCloneIsRefused)
{
    expectRefusal(
        change("demo.nes",
               {"clone", "--kind", "layout", "--room", "0", "--from", "20", "--answer", "cancel"}),
        "velko-cli: nothing was changed\n");
}

TEST_F(DataVerbTest, CloneOfAMapWithoutCellsIsRefused)
{
    expectRefusal(change("demo.nes", {"clone", "--kind", "layout", "--room", "2", "--from", "3e"}),
                  "velko-cli: nothing was changed\n");
}

TEST_F(DataVerbTest, SetPointerOfALayoutAsksForTheSize)
{
    const std::string question = "velko-cli: --answer is needed: Do you want to copy Width and "
                                 "Height bytes as well? (Recommended, specific to Map Layout "
                                 "data)\n";
    const std::vector<std::string> words = {"set-pointer", "--kind", "layout", "--room",
                                            "0",           "--from", "20"};
    expectRefusal(change("demo.nes", words), question);
    std::vector<std::string> cancelled = words;
    cancelled.insert(cancelled.end(), {"--answer", "cancel"}); // no button of a Yes/No box
    expectRefusal(change("demo.nes", cancelled), question);
}

TEST_F(DataVerbTest, CloneThatFindsNoFreeSpaceIsRefused)
{
    Bytes bytes = demoBytes();
    // The highest layout ends where the region does: 3 x 1 cells.
    setWord(bytes, kLayoutTable + 4 * 0x6E, 0xA400 - 3);
    bytes.at(kLayoutTable + 4 * 0x6E + 2) = 3;
    bytes.at(kLayoutTable + 4 * 0x6E + 3) = 1;
    const auto outcome =
        change(write("full.nes", bytes),
               {"clone", "--kind", "layout", "--room", "6e", "--from", "20", "--answer", "yes"});
    expectRefusal(outcome,
                  "Insertion failed. (Likely not enough free space). Copying aborted.\n"
                  "velko-cli: nothing was changed\n");
}

TEST_F(DataVerbTest, CloneThatCannotDeleteIsRefused)
{
    Bytes bytes = demoBytes();
    // The highest layout ends one byte too far, which reads as "not known".
    setWord(bytes, kLayoutTable + 4 * 0x6E, 0xA400 - 2);
    bytes.at(kLayoutTable + 4 * 0x6E + 2) = 3;
    bytes.at(kLayoutTable + 4 * 0x6E + 3) = 1;
    const auto outcome =
        change(write("over.nes", bytes),
               {"clone", "--kind", "layout", "--room", "20", "--from", "6e", "--answer", "yes"});
    expectRefusal(outcome, "Deletion failed. Copying aborted.\nvelko-cli: nothing was changed\n");
}

// --- Files and damaged ROMs

TEST_F(DataVerbTest, OutputMayBeTheInput)
{
    const std::string rom = write("game.nes", demoBytes());
    const auto outcome = data({rom, "delete-unused", "--kind", "palette", "-o", rom});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    const Bytes expected =
        windowsResult(demoBytes(), 0, RoomDataKind::kPalette, {},
                      [](auto& model, auto kind) { model.deleteUnusedData(kind); });
    EXPECT_TRUE(loadFile(fs::path(rom)) == expected);
}

TEST_F(DataVerbTest, RefusedOperationKeepsTheOldOutput)
{
    write("out.nes", std::string_view("old"));
    const auto outcome =
        change("demo.nes", {"clone", "--kind", "palette", "--room", "0", "--from", "1"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(output(), (Bytes{'o', 'l', 'd'}));
}

TEST_F(DataVerbTest, OutputThatCannotBeWritten)
{
    const auto outcome =
        data({"demo.nes", "join", "--kind", "palette", "-o", path("no/such/folder.nes")});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, EndsWith(": cannot be written\n"));
}

// Every operation on ROMs that hold one byte everywhere, or end early: it ends, as the window's.
TEST_F(DataVerbTest, DamagedRoms)
{
    Bytes cut = demoBytes();
    cut.resize(200'000);
    const std::vector<Bytes> roms = {Bytes(262'160, 0x00), Bytes(262'160, 0xFF), cut};
    for (const Bytes& bytes : roms) {
        const std::string rom = write("damaged.nes", bytes);
        for (std::size_t i = 0; i < kKinds.size(); ++i) {
            const auto kind = static_cast<RoomDataKind>(i);
            const auto list = data({rom, "list", "--kind", kKinds[i]});
            EXPECT_EQ(list.status, 0);
            const auto outcome =
                change(rom, {"delete", "--kind", kKinds[i], "--room", "5", "--answer", "no"});
            EXPECT_EQ(outcome.status, 0) << outcome.err;
            EXPECT_TRUE(output()
                        == windowsResult(bytes, 5, kind, {}, [](auto& model, auto deleted) {
                               model.deleteData(deleted);
                           }));
        }
    }
}

// --- Wrong use

TEST_F(DataVerbTest, WrongUse)
{
    const auto expectMisuse = [&](std::vector<std::string> words, const std::string& reason) {
        words.insert(words.begin(), "demo.nes");
        expectFailure(data(std::move(words)), reason + " (see velko-cli data --help)");
    };
    expectMisuse({"paint", "--kind", "palette"},
                 "OPERATION: paint not in "
                 "{list,show,allocate,delete,set-pointer,clone,delete-unused,join}");
    expectMisuse({"list", "--kind", "music"},
                 "--kind: music not in {alloc,layout,tile32,tiles,palette}");
    expectMisuse({"list"}, "--kind is required");
    expectMisuse({"list", "--kind", "tiles", "--room", "1"}, "list takes no --room");
    expectMisuse({"list", "--kind", "tiles", "-o", "x"}, "list takes no -o");
    expectMisuse({"show", "--kind", "tiles"}, "show needs --room");
    expectMisuse({"join", "--kind", "tiles"}, "join needs -o");
    expectMisuse({"join", "--kind", "tiles", "-o", "x", "--json"}, "join takes no --json");
    expectMisuse({"clone", "--kind", "tiles", "--room", "1", "-o", "x"}, "clone needs --from");
    expectMisuse({"delete", "--kind", "tiles", "--room", "1", "--from", "2", "-o", "x"},
                 "delete takes no --from");
    expectMisuse({"set-pointer", "--kind", "tiles", "--room", "1", "-o", "x"},
                 "set-pointer needs --from or --pointer");
    expectMisuse({"set-pointer", "--kind", "tiles", "--room", "1", "--from", "2", "--pointer",
                  "8000", "-o", "x"},
                 "set-pointer takes --from or --pointer, not both");
}

TEST_F(DataVerbTest, RoomsThatAreNotThere)
{
    const std::string reason =
        "there is no room 6f: the game has 111 rooms, counted from 0 in hexadecimal";
    expectFailure(data({"demo.nes", "show", "--kind", "tiles", "--room", "6f"}), reason);
    expectFailure(change("demo.nes", {"clone", "--kind", "tiles", "--room", "0", "--from", "6f"}),
                  reason);
    EXPECT_FALSE(fs::exists(path("out.nes")));
}

TEST_F(DataVerbTest, NoRom)
{
    expectFailure(data({"none.nes", "list", "--kind", "tiles"}),
                  "none.nes: cannot be read, or is empty");
}

} // namespace
} // namespace velko
