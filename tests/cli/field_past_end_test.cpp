#include "cli/field.h"
#include "tests/cli/cli_fixture.h"
#include "tests/cli/demo_state.h"

#include <filesystem>

namespace velko {
namespace {

// Files that end before what a change depends on, though the value itself is there.
class FieldPastEndTest : public test::CliTest {
protected:
    static void putWord(std::vector<std::uint8_t>& bytes, std::size_t place, std::uint16_t word)
    {
        bytes.at(place) = static_cast<std::uint8_t>(word & 0xFF);
        bytes.at(place + 1) = static_cast<std::uint8_t>(word >> 8);
    }

    // The demo without what lies behind the tables of the doors, and with a screen list elsewhere.
    static std::vector<std::uint8_t> cutWithList(std::uint32_t room, std::uint16_t list)
    {
        auto bytes = demoBytes();
        putWord(bytes, kListPointers + kEntryBytes * room, list);
        bytes.resize(kEnd);
        return bytes;
    }

    // The field can be told, but not be set.
    void expectRefused(const std::vector<std::uint8_t>& bytes, const std::string& field,
                       const std::string& value, const std::string& reason) const
    {
        const std::string rom = write("cut.nes", bytes);
        EXPECT_EQ(run({"get", rom, field}).status, 0);
        const auto outcome = run({"set", rom, field, value, "-o", path("out.nes")});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.err, "velko-cli: " + reason + "\n");
        EXPECT_FALSE(std::filesystem::exists(pathFromUtf8(path("out.nes"))));
    }
    void expectSet(const std::vector<std::uint8_t>& bytes, const std::string& field,
                   const std::string& value) const
    {
        const std::string rom = write("cut.nes", bytes);
        const auto outcome = run({"set", rom, field, value, "-o", path("out.nes")});
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        std::filesystem::remove(pathFromUtf8(path("out.nes")));
    }

    static constexpr std::size_t kListPointers = 0x3D010;
    static constexpr std::size_t kEntryBytes = 2;
    static constexpr std::size_t kLayoutTable = 0x3D110; // four bytes per entry
    static constexpr std::size_t kEnd = 0x3D900;
    static constexpr std::uint16_t kEndAddress = 0xD8F0; // of kEnd, for lists and screens
    static constexpr const char* kCell = "room.0.screen.1.physics.3,7";
};

// Rooms 0 and 3c have one Tile32 set.
TEST_F(FieldPastEndTest, ACellIsNotPaintedWhereAListOfItsSetIsNotThere)
{
    const std::string refusal = std::string(kCell) + ": the screen list of room ";
    const std::string pastEnd = " lies past the end of the file";
    expectRefused(cutWithList(0x3C, 0xF000), kCell, "5", refusal + "3c" + pastEnd);

    auto withoutEnd = cutWithList(0x3C, kEndAddress - 2);
    putWord(withoutEnd, kEnd - 2, 0x8600);
    expectRefused(withoutEnd, kCell, "5", refusal + "3c" + pastEnd);
    putWord(withoutEnd, kEnd - 2, 0xFFFF);
    expectSet(withoutEnd, kCell, "5");

    auto ownList = cutWithList(0, kEndAddress - 4);
    putWord(ownList, kEnd - 4, 0x8600);
    putWord(ownList, kEnd - 2, 0x8640);
    expectRefused(ownList, kCell, "5", refusal + "0" + pastEnd);
}

TEST_F(FieldPastEndTest, ACellIsNotPaintedWhereAScreenOfItsSetIsNotThere)
{
    auto bytes = cutWithList(0x3C, kEndAddress - 4);
    putWord(bytes, kEnd - 4, kEndAddress - 63);
    putWord(bytes, kEnd - 2, 0xFFFF);
    expectRefused(bytes, kCell, "5",
                  std::string(kCell) + ": screen d8b1 lies past the end of the file");
}

TEST_F(FieldPastEndTest, ACellIsNotPaintedWhereABlockOfItsSetIsNotThere)
{
    test::OpenGame game;
    EditorState& state = game.state;
    auto bytes = demoBytes();
    bytes.resize(kEnd);
    state.rom.setBytes(bytes);
    state.prepareRoomData();
    // The set lies at the end of the file.
    PointerArrayHandler& sets = state.store.pahTile32;
    PointerArrayDescriptor descriptor = sets.descriptor();
    descriptor.dBank[1] = 15;
    sets.setDescriptor(descriptor);
    const auto set = [&](std::uint16_t address) {
        sets.setPointer(0, address);
        const FieldResult result = findField(state, kCell);
        const Field& field = std::get<Field>(result);
        return field.set(field.value ^ 1);
    };
    constexpr const char* kReason = "a part of the Tile32 set lies past the end of the file";
    constexpr std::uint16_t kSetAddress = kEndAddress - 7 * 146;
    EXPECT_EQ(set(kSetAddress), std::nullopt);
    EXPECT_EQ(set(kSetAddress + 1), kReason);
    // A block behind the set.
    state.rom.writeByte(state.renderer.screenFileOffset(state.renderer.screenAddress(2)), 146);
    EXPECT_EQ(set(kSetAddress), kReason);
}

TEST_F(FieldPastEndTest, ACellIsNotPaintedWhereTheRoomsSizeIsNotThere)
{
    auto bytes = demoBytes();
    bytes.resize(kLayoutTable + 4);
    expectSet(bytes, kCell, "5");
    bytes.resize(kLayoutTable + 3);
    expectRefused(bytes, kCell, "5",
                  std::string(kCell) + ": the room's size lies past the end of the file");
}

// A list that goes on past the end would seem to have 256 screens.
TEST_F(FieldPastEndTest, ALayoutIsNotSetWhereTheScreenListIsNotThere)
{
    expectRefused(cutWithList(0x20, 0xF000), "room.20.layout.0,0", "40",
                  "what bounds room.20.layout.0,0 lies past the end of the file");
}

TEST_F(FieldPastEndTest, ASlotsBlockIsNotSetWhereItsBankIsNotThere)
{
    auto bytes = demoBytes();
    constexpr std::size_t kSlots = 0x2D010; // of room 0: 64 blocks, then the attributes of pairs
    bytes.resize(kSlots + 64 + 3);
    expectRefused(bytes, "room.0.slot.6.block", "c0",
                  "what bounds room.0.slot.6.block lies past the end of the file");
    expectSet(bytes, "room.0.slot.5.block", "c0");
}

TEST_F(FieldPastEndTest, AnEntranceIsBoundedByTheRoomsSizeInTheFile)
{
    test::OpenGame game;
    EditorState& state = game.state;
    const auto bounds = [&](const char* name) {
        const FieldResult result = findField(state, name);
        return std::get<Field>(result).boundBytes;
    };
    const std::uint32_t size = kLayoutTable + 4 * 0x20 + 2; // width and height
    EXPECT_EQ(bounds("room.20.entrance.0.screenx"), (FileOffsets{size, size + 1}));
    EXPECT_EQ(bounds("room.20.entrance.0.screeny"), (FileOffsets{size, size + 1}));
    EXPECT_EQ(bounds("room.20.entrance.0.x"), FileOffsets{});
    EXPECT_EQ(bounds("room.20.entrance.0.y"), FileOffsets{});
}

} // namespace
} // namespace velko
