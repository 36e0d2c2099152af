#include "tests/cli/data_fixture.h"

#include <algorithm>

namespace velko {
namespace {

namespace fs = std::filesystem;
using test::Bytes;
using test::setWord;
using ::testing::AnyOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;

// Where the demo keeps a kind of data.
struct Table {
    std::size_t table; // file offset
    std::size_t stride;
    std::size_t blocksFrom; // file offset of address $C000 of its blocks
};
constexpr std::array<Table, kRoomDataKinds> kTables = {{
    {0x3D010, 2, 0x3C010},
    {0x3D110, 4, 0x3C010},
    {0x27E10, 2, 0x24010},
    {0x2C110, 2, 0x3C010},
    {0x2C010, 2, 0x3C010},
}};
constexpr std::size_t kEntries = 113;
constexpr std::uint8_t kRoom = 5;
constexpr std::uint8_t kOtherRoom = 0x20;

Bytes withPointers(Bytes bytes, unsigned (*pointerOf)(std::size_t entry))
{
    for (const Table& table : kTables)
        for (std::size_t entry = 0; entry < kEntries; ++entry)
            setWord(bytes, table.table + table.stride * entry, pointerOf(entry));
    return bytes;
}

Bytes withoutSizes(Bytes bytes)
{
    for (std::size_t entry = 0; entry < kEntries; ++entry)
        setWord(bytes, kTables[1].table + 4 * entry + 2, 0);
    return bytes;
}

// Room kRoom's block of a kind stands at $FFF0, and the file ends 8 bytes behind its start.
Bytes cutWithinBlock(Bytes bytes, std::size_t kind)
{
    const Table& table = kTables[kind];
    const std::size_t entry = table.table + table.stride * kRoom;
    setWord(bytes, entry, 0xFFF0);
    if (table.stride == 4)
        setWord(bytes, entry + 2, 0x0406); // 6 x 4 cells
    const std::size_t block = table.blocksFrom + 0x3FF0;
    std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(block), 8, std::uint8_t{0x11});
    bytes.resize(block + 8);
    return bytes;
}

struct Operation {
    std::vector<std::string> words;
    test::Change change;
};

std::vector<Operation> operations()
{
    return {
        {{"allocate", "--room", "5"}, [](auto& m, auto kind) { m.allocateUniqueData(kind); }},
        {{"delete", "--room", "5"}, [](auto& m, auto kind) { m.deleteData(kind); }},
        {{"set-pointer", "--room", "5", "--from", "20"},
         [](auto& m, auto kind) { m.setPointerToRoom(kind, kOtherRoom); }},
        {{"set-pointer", "--room", "5", "--pointer", "8123"},
         [](auto& m, auto kind) { m.setPointer(kind, 0x8123); }},
        {{"clone", "--room", "5", "--from", "20"},
         [](auto& m, auto kind) { m.cloneDataOfRoom(kind, kOtherRoom); }},
        {{"clone", "--room", "20", "--from", "5"}, {}},
        {{"delete-unused"}, [](auto& m, auto kind) { m.deleteUnusedData(kind); }},
        {{"join"}, [](auto& m, auto kind) { m.joinIdenticalData(kind); }},
    };
}

class DamagedDataTest : public test::DataCommandTest {
protected:
    test::CliOutcome runOn(const std::string& rom, const Operation& operation,
                           std::size_t kind) const
    {
        fs::remove(path("out.nes"));
        std::vector<std::string> words = operation.words;
        words.insert(words.end(), {"--kind", test::kKinds[kind], "--answer", "yes"});
        return change(rom, words);
    }

    // Each operation either does what the window does, all of it, or is refused for a reason and
    // writes nothing.
    void expectDoneOrRefused(const Bytes& bytes, std::size_t kind)
    {
        const std::string rom = write("damaged.nes", bytes);
        EXPECT_EQ(data({rom, "list", "--kind", test::kKinds[kind]}).status, 0);
        EXPECT_LE(data({rom, "show", "--kind", test::kKinds[kind], "--room", "5"}).status, 1);
        for (const Operation& operation : operations()) {
            if (!operation.change)
                continue;
            SCOPED_TRACE(std::string(test::kKinds[kind]) + " " + operation.words.front());
            const auto outcome = runOn(rom, operation, kind);
            const auto window = windowsResult(bytes, kRoom, static_cast<RoomDataKind>(kind),
                                              {"yes"}, operation.change);
            if (outcome.status == 0) {
                EXPECT_EQ(outcome.err, "");
                EXPECT_EQ(window.droppedWrites, 0U);
                EXPECT_TRUE(output() == window.bytes);
            } else {
                EXPECT_EQ(outcome.status, 1);
                EXPECT_EQ(outcome.out, "");
                EXPECT_THAT(outcome.err,
                            AnyOf(EndsWith("nothing was changed\n"),
                                  EndsWith(" lies past the end of the file\n")));
                EXPECT_FALSE(fs::exists(path("out.nes")));
            }
        }
    }
    void expectDoneOrRefused(const Bytes& bytes)
    {
        for (std::size_t kind = 0; kind < kRoomDataKinds; ++kind)
            expectDoneOrRefused(bytes, kind);
    }
};

TEST_F(DamagedDataTest, WithoutItsTableNothingOfAKindCanBeChanged)
{
    for (std::size_t kind = 0; kind < kRoomDataKinds; ++kind) {
        Bytes bytes = demoBytes();
        bytes.resize(kTables[kind].table);
        const std::string rom = write("cut.nes", bytes);
        for (const Operation& operation : operations()) {
            SCOPED_TRACE(std::string(test::kKinds[kind]) + " " + operation.words.front());
            const auto outcome = runOn(rom, operation, kind);
            EXPECT_EQ(outcome.status, 1);
            EXPECT_EQ(outcome.out, "");
            EXPECT_THAT(outcome.err, EndsWith(" lies past the end of the file\n"));
            EXPECT_FALSE(fs::exists(path("out.nes")));
        }
        const auto list = data({rom, "list", "--kind", test::kKinds[kind]});
        EXPECT_EQ(list.status, 0);
        EXPECT_THAT(list.out, HasSubstr("\n   5  past the end of the file\n"));
    }
}

TEST_F(DamagedDataTest, BlocksThatTheFileCutsThroughAreNeitherCopiedNorRemoved)
{
    for (std::size_t kind = 0; kind < kRoomDataKinds; ++kind) {
        const std::string rom = write("cut.nes", cutWithinBlock(demoBytes(), kind));
        for (const char* verb : {"delete", "clone"}) {
            for (const Operation& operation : operations()) {
                if (operation.words.front() != verb)
                    continue;
                SCOPED_TRACE(std::string(test::kKinds[kind]) + " " + verb);
                const auto outcome = runOn(rom, operation, kind);
                EXPECT_EQ(outcome.status, 1);
                EXPECT_THAT(outcome.err, EndsWith(" lies past the end of the file\n"));
                EXPECT_FALSE(fs::exists(path("out.nes")));
            }
        }
        // A pointer can lead elsewhere.
        const auto outcome = runOn(rom, operations()[3], kind);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(output().value().at(kTables[kind].table + kTables[kind].stride * kRoom), 0x23);
    }
}

TEST_F(DamagedDataTest, CutWithinABlock)
{
    for (std::size_t kind = 0; kind < kRoomDataKinds; ++kind)
        expectDoneOrRefused(cutWithinBlock(demoBytes(), kind), kind);
}

TEST_F(DamagedDataTest, CutWithinATable)
{
    for (std::size_t kind = 0; kind < kRoomDataKinds; ++kind) {
        Bytes bytes = demoBytes();
        bytes.resize(kTables[kind].table + kTables[kind].stride * kRoom + 1);
        expectDoneOrRefused(bytes, kind);
    }
}

TEST_F(DamagedDataTest, PointersToTheLowestAddress)
{
    expectDoneOrRefused(withPointers(demoBytes(), [](std::size_t) { return 0U; }));
}

TEST_F(DamagedDataTest, PointersToTheHighestAddress)
{
    expectDoneOrRefused(withPointers(demoBytes(), [](std::size_t) { return 0xFFFFU; }));
}

TEST_F(DamagedDataTest, LayoutsOfSizeZero)
{
    expectDoneOrRefused(withoutSizes(demoBytes()), 1);
}

TEST_F(DamagedDataTest, OverlappingBlocks)
{
    expectDoneOrRefused(withPointers(
        demoBytes(), [](std::size_t entry) { return static_cast<unsigned>(0x9000 + 3 * entry); }));
}

TEST_F(DamagedDataTest, RomsOfOneByte)
{
    for (const std::uint8_t byte : {std::uint8_t{0}, std::uint8_t{0xFF}})
        expectDoneOrRefused(Bytes(262'160, byte));
}

TEST_F(DamagedDataTest, RomsCutShort)
{
    for (const std::size_t size : {std::size_t{1}, std::size_t{16}, std::size_t{200'000}}) {
        Bytes bytes = demoBytes();
        bytes.resize(size);
        expectDoneOrRefused(bytes);
    }
}

} // namespace
} // namespace velko
