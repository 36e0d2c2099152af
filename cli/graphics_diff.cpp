#include "cli/game_diff.h"
#include "rom/number_text.h"
#include "store/screen_area.h"

#include <algorithm>
#include <map>

namespace velko {

namespace {

constexpr std::uint32_t kTileBytes = 16;
constexpr std::uint32_t kBlockBytes = 64; // four tiles
constexpr std::uint32_t kBackgroundBanks = 4;
constexpr std::uint32_t kSlots = 64;
constexpr std::uint32_t kLongestList = 512;
constexpr std::uint32_t kScreenColumns = 8;

using Rooms = std::vector<std::uint32_t>;
// Rooms by what they use.
using Users = std::map<std::uint32_t, Rooms>;

void addUser(Users& users, std::uint32_t thing, std::uint32_t room)
{
    Rooms& rooms = users[thing];
    if (rooms.empty() || rooms.back() != room)
        rooms.push_back(room);
}

// By the screen's address.
Users usersOfScreens(const EditorState& state)
{
    Users users;
    const PointerArrayHandler& lists = state.store.pahMapAlloc;
    for (std::uint32_t room = 0; room < state.config.roomCount(); ++room) {
        for (std::uint32_t i = 0; i < kLongestList; ++i) {
            const std::uint16_t address = lists.dataWord(2 * i, room);
            if (address == 0xFFFF)
                break;
            addUser(users, address, room);
        }
    }
    return users;
}

// By bank and block: bank x 256 + block, banks counted from the first of the background.
Users usersOfBlocks(const EditorState& state)
{
    Users users;
    const PointerArrayHandler& loads = state.store.pahTileLoad;
    for (std::uint32_t room = 0; room < state.config.roomCount(); ++room) {
        for (std::uint32_t slot = 0; slot < kSlots; ++slot) {
            const std::uint32_t both = loads.dataByte(kSlots + slot / 2, room);
            const std::uint32_t bank = (slot % 2 == 0 ? both >> 4 : both) & 3;
            addUser(users, bank * 256 + loads.dataByte(slot, room), room);
        }
    }
    return users;
}

Rooms usersOf(const Users& users, std::uint32_t thing)
{
    const auto found = users.find(thing);
    return found != users.end() ? found->second : Rooms{};
}

void compareScreens(const EditorState& before, const EditorState& after, GameDiff& diff)
{
    const ScreenArea area = ScreenArea::of(after.config);
    const Users users = usersOfScreens(after);
    for (std::uint32_t screen = 0; screen < std::min(area.count, ScreenArea::kIndexes); ++screen) {
        const std::uint16_t address = area.addressOf(screen);
        for (std::uint32_t i = 0; i < ScreenArea::kScreenBytes; ++i) {
            const std::uint32_t offset = cpuToFileOffset(after.config.phMapScreenData, address + i);
            if (!diff.isOpen(offset))
                continue;
            const std::size_t told =
                diff.add({.owner = DiffOwner::kRoom,
                          .owners = usersOf(users, address),
                          .what = "screen " + hexText(address) + " Tile32 "
                              + hexText(i / kScreenColumns) + "," + hexText(i % kScreenColumns),
                          .from = byteText(before.rom.readByte(offset)),
                          .to = byteText(after.rom.readByte(offset))});
            diff.explain(told, offset);
        }
    }
}

// A tile's 16 bytes.
std::string tileText(const EditorState& state, std::uint32_t offset)
{
    std::string text;
    for (std::uint32_t i = 0; i < kTileBytes; ++i)
        text += byteText(state.rom.readByte(offset + i));
    return text;
}

void compareTile(const EditorState& before, const EditorState& after, std::uint32_t offset,
                 Difference difference, GameDiff& diff)
{
    difference.from = tileText(before, offset);
    difference.to = tileText(after, offset);
    const std::size_t told = diff.add(std::move(difference));
    for (std::uint32_t i = 0; i < kTileBytes; ++i)
        diff.explain(told, offset + i);
}

void compareBackground(const EditorState& before, const EditorState& after, GameDiff& diff)
{
    const Users users = usersOfBlocks(after);
    const std::uint32_t start = after.config.value(MiscField::startGfxBg) * kBankSize + kHeaderSize;
    for (std::uint32_t tile = 0; tile < kBackgroundBanks * kBankSize / kTileBytes; ++tile) {
        const std::uint32_t offset = start + tile * kTileBytes;
        const std::uint32_t block = tile * kTileBytes / kBlockBytes;
        // Banks may be other things as well; a tile in nobody's use is none.
        if (diff.isOpen(offset, kTileBytes) && users.contains(block))
            compareTile(before, after, offset,
                        {.owner = DiffOwner::kRoom,
                         .owners = usersOf(users, block),
                         .what = "background block " + hexText(block / 256) + ":"
                             + hexText(block % 256) + " tile " + hexText(tile % 4)},
                        diff);
    }
}

// Sprites' tiles, told by the load records that rooms use.
void compareSprites(const EditorState& before, const EditorState& after, GameDiff& diff)
{
    Users users;
    const PointerArrayHandler& lists = after.store.pahTileLoadType2;
    for (std::uint32_t room = 0; room < after.config.roomCount(); ++room) {
        for (std::uint32_t i = 0; i < kLongestList && lists.dataByte(i, room) < 0x80; ++i)
            addUser(users, lists.dataByte(i, room), room);
    }
    const std::uint32_t bank =
        after.config.value(MiscField::startGfxType2) * kBankSize + kHeaderSize;
    for (const auto& [load, rooms] : users) {
        const std::uint32_t record = after.config.value(MiscField::ptrTileLoadType2) + 5 * load;
        const std::uint32_t source = after.rom.readByte(record)
            | static_cast<std::uint32_t>(after.rom.readByte(record + 1)) << 8;
        for (std::uint32_t tile = 0; tile < after.rom.readByte(record + 4); ++tile) {
            const std::uint32_t offset = bank + source + tile * kTileBytes;
            if (diff.isOpen(offset, kTileBytes))
                compareTile(before, after, offset,
                            {.owner = DiffOwner::kRoom,
                             .owners = rooms,
                             .what = "sprite load " + hexText(load) + " ("
                                 + after.names.vramLoads[load] + ") tile " + hexText(tile)},
                            diff);
        }
    }
}

} // namespace

void compareGraphics(const EditorState& before, const EditorState& after, GameDiff& diff)
{
    compareScreens(before, after, diff);
    compareSprites(before, after, diff);
    compareBackground(before, after, diff);
}

} // namespace velko
