#include "tests/cli/data_fixture.h"

namespace velko {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

using test::Bytes;
using test::kLayoutTable;
using test::kPaletteTable;
using test::setWord;

class DataVerbTest : public test::DataCommandTest { };

// --- Telling

TEST_F(DataVerbTest, ListTellsEachRoomsBlock)
{
    const auto outcome = data({"demo.nes", "list", "--kind", "palette"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(outcome.out,
                StartsWith("room  pointer  length  shared with\n"
                           "   0     8200      32  1, 2, 3, 6f, 70\n"));
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
    EXPECT_EQ(document["blocks"][0]["sharedWith"], nlohmann::json({1, 2, 3, 0x6F, 0x70}));
}

TEST_F(DataVerbTest, ShowAsJsonHasOneBlock)
{
    const auto outcome = data({"demo.nes", "show", "--kind", "layout", "--room", "6e", "--json"});
    EXPECT_EQ(outcome.status, 0);
    const auto list = data({"demo.nes", "list", "--kind", "layout", "--json"}).json();
    EXPECT_EQ(outcome.json()["free"], list["free"]);
    ASSERT_EQ(outcome.json()["blocks"].size(), 1U);
    EXPECT_EQ(outcome.json()["blocks"][0], list["blocks"][0x6E]);
    EXPECT_EQ(outcome.json()["blocks"][0]["room"], 0x6E);
    EXPECT_EQ(outcome.json()["blocks"][0]["length"], 12);
    EXPECT_EQ(outcome.json()["blocks"][0]["sharedWith"], nlohmann::json({0x48}));
}

TEST_F(DataVerbTest, EntriesBehindThoseOfTheRoomsShareBlocksToo)
{
    Bytes bytes = demoBytes();
    setWord(bytes, kPaletteTable + 2 * 0x70, 0x8360); // the second entry behind 111 rooms
    const std::string rom = write("shared.nes", bytes);
    EXPECT_THAT(data({rom, "show", "--kind", "palette", "--room", "17"}).out,
                HasSubstr("  17     8360      32  39, 3a, 3b, 3c, 3d, 3e, 70\n"));
    const auto document = data({rom, "list", "--kind", "palette", "--json"}).json();
    EXPECT_EQ(document["blocks"].size(), 111U);
    EXPECT_EQ(document["blocks"][0x17]["sharedWith"].back(), 0x70);
}

TEST_F(DataVerbTest, PointersPastTheEndOfTheFileAreTold)
{
    Bytes bytes = demoBytes();
    bytes.resize(kPaletteTable + 2 * 5 + 1); // half of room 5's
    const std::string rom = write("cut.nes", bytes);
    const auto list = data({rom, "list", "--kind", "palette"});
    EXPECT_EQ(list.status, 0);
    EXPECT_THAT(list.out, HasSubstr("\n   4     8220       -\n   5  past the end of the file\n"));
    EXPECT_THAT(list.out, EndsWith("\nfree: -\n"));
    const auto document = data({rom, "list", "--kind", "palette", "--json"}).json();
    EXPECT_EQ(document["free"], nullptr);
    const auto& blocks = document["blocks"];
    EXPECT_EQ(blocks[4]["pointer"], 0x8220);
    EXPECT_EQ(blocks[4]["length"], nullptr);
    EXPECT_EQ(blocks[5]["pointer"], nullptr);
    EXPECT_EQ(blocks[5]["length"], nullptr);
    EXPECT_EQ(blocks[5]["sharedWith"], nlohmann::json::array());
    const auto show = data({rom, "show", "--kind", "palette", "--room", "5"});
    EXPECT_EQ(show.status, 1);
    EXPECT_EQ(show.out, "");
    EXPECT_EQ(show.err, "velko-cli: the pointer of room 5 lies past the end of the file\n");
}

// The free space is that of all rooms, whichever is shown.
TEST_F(DataVerbTest, BlocksPastTheEndOfTheFileHaveNoLength)
{
    Bytes bytes = demoBytes();
    const std::uint32_t end = 0x2C010 + 0x220; // of room 0's palette; room 4's follows
    bytes.resize(end);
    const std::string rom = write("cut.nes", bytes);
    EXPECT_EQ(data({rom, "show", "--kind", "palette", "--room", "4"}).out,
              "room  pointer  length  shared with\n   4     8220       -  6\nfree: -\n");
    const auto document = data({rom, "show", "--kind", "palette", "--room", "0", "--json"}).json();
    EXPECT_EQ(document["blocks"][0]["length"], 32);
    EXPECT_EQ(document["free"], nullptr);
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
    const std::string question = "Do you want to copy Width and Height bytes as well? "
                                 "(Recommended, specific to Map Layout data)\n";
    const std::vector<std::string> words = {"set-pointer", "--kind", "layout", "--room",
                                            "0",           "--from", "20"};
    expectRefusal(change("demo.nes", words), "velko-cli: --answer is needed: " + question);
    std::vector<std::string> cancelled = words;
    cancelled.insert(cancelled.end(), {"--answer", "cancel"}); // no button of a Yes/No box
    expectRefusal(change("demo.nes", cancelled), "velko-cli: cancel is no answer to: " + question);
}

TEST_F(DataVerbTest, CancelIsAnAnswerToTheFirstOfTwoQuestionsOnly)
{
    expectRefusal(change("demo.nes",
                         {"clone", "--kind", "layout", "--room", "0", "--from", "20", "--answer",
                          "yes", "--answer", "cancel"}),
                  "velko-cli: cancel is no answer to: Do you want to copy Width and Height bytes "
                  "as well? (Recommended, specific to Map Layout data)\n");
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

// --- Files

TEST_F(DataVerbTest, OutputMayBeTheInput)
{
    const std::string rom = write("game.nes", demoBytes());
    const auto outcome = data({rom, "delete-unused", "--kind", "palette", "-o", rom});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    const Bytes expected =
        windowsResult(demoBytes(), 0, RoomDataKind::kPalette, {}, [](auto& model, auto kind) {
            model.deleteUnusedData(kind);
        }).bytes;
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
