#include "tests/gfx/random_game.h"

#include <random>

namespace velko::test {

namespace {

class Random {
public:
    explicit Random(std::uint32_t seed) : m_engine(seed) { }

    // A number from 0 to `limit` - 1.
    std::uint32_t below(std::uint32_t limit) { return next() % limit; }
    std::uint8_t byte() { return static_cast<std::uint8_t>(below(256)); }
    std::uint16_t word() { return static_cast<std::uint16_t>(below(0x10000)); }
    Bytes bytes(std::size_t count)
    {
        Bytes values(count);
        std::uint32_t four = 0;
        for (std::size_t i = 0; i < count; ++i, four >>= 8) {
            if (i % 4 == 0)
                four = next();
            values[i] = static_cast<std::uint8_t>(four & 0xFF);
        }
        return values;
    }

private:
    std::uint32_t next() { return static_cast<std::uint32_t>(m_engine()); }

    std::mt19937 m_engine;
};

void addRoom(TestRom& game, Random& random, std::uint32_t room,
             const std::vector<std::uint16_t>& screens)
{
    std::vector<std::uint16_t> list;
    for (std::uint32_t i = 0, count = 1 + random.below(5); i < count; ++i)
        list.push_back(screens[random.below(static_cast<std::uint32_t>(screens.size()))]);
    game.setScreenList(room, list);

    const auto columns = static_cast<std::uint8_t>(1 + random.below(3));
    const auto rows = static_cast<std::uint8_t>(1 + random.below(3));
    Bytes cells;
    for (int i = 0; i < columns * rows; ++i)
        cells.push_back(static_cast<std::uint8_t>(random.below(8))); // some past the list
    game.setLayout(room, columns, rows, cells);
    if (random.below(4) == 0)
        game.setStoredSize(room, static_cast<std::uint8_t>(random.below(3)),
                           static_cast<std::uint8_t>(random.below(3)));

    game.setPalette(room, random.bytes(kPaletteLength));
    game.setTileLoad(room, random.bytes(kTileLoadLength));
    std::vector<Tile32Record> records(146);
    for (Tile32Record& record : records) {
        for (std::uint8_t& value : record)
            value = random.byte();
    }
    game.setTile32(room, records);
    Bytes loads;
    for (std::uint32_t i = 0, count = random.below(6); i < count; ++i)
        loads.push_back(static_cast<std::uint8_t>(random.below(128)));
    game.setType2Loads(room, loads);
}

PointerArrayDescriptor randomDescriptor(Random& random)
{
    const auto bank = [&] { return static_cast<std::uint8_t>(random.below(24)); };
    const std::uint32_t strides[] = {0, 1, 2, 3, 4, 5, 0x1000, 0xFFFFFFFF};
    return {.dBank = {bank(), bank()},
            .pBank = bank(),
            .pMemStart = random.word(),
            .pMemEdge = random.word(),
            .dEdge = random.word(),
            .pointerPad = strides[random.below(8)]};
}

} // namespace

TestRom randomGame(std::uint32_t seed)
{
    constexpr std::uint32_t kRooms = 3;
    Random random(seed);
    TestRom game(kRooms);
    game.write(kHeaderSize + layout::kType2Bank * kBankSize, random.bytes(5 * kBankSize));
    for (unsigned id = 0; id < 128; ++id)
        game.setLoadRecord(static_cast<std::uint8_t>(id),
                           static_cast<std::uint16_t>(random.below(0x5000)),
                           static_cast<std::uint16_t>(random.below(0x2400)), random.byte());
    std::vector<std::uint16_t> screens;
    for (int i = 0; i < 8; ++i)
        screens.push_back(game.addScreen(random.bytes(64)));
    for (std::uint32_t room = 0; room < kRooms; ++room)
        addRoom(game, random, room, screens);
    return game;
}

TestRom randomGarbage(std::uint32_t seed)
{
    Random random(seed);
    TestRom game;
    game.bytes = random.bytes(random.below(2) == 0 ? random.below(100) : random.below(200'000));
    for (PointerArrayDescriptor GameConfig::*table :
         {&GameConfig::pahMapAlloc, &GameConfig::pahTileLoad, &GameConfig::pahPal,
          &GameConfig::pahMapLayout, &GameConfig::pahTile32, &GameConfig::pahUnit,
          &GameConfig::pahTileLoadType2})
        game.config.*table = randomDescriptor(random);
    game.config.phSprite = {random.byte(), random.byte()};
    game.config.phMapScreenData = {static_cast<std::uint8_t>(random.below(24)), random.byte()};
    for (std::uint32_t& value : game.config.misc)
        value = random.below(2) == 0 ? random.below(30) : random.below(0xFFFFFFFF);
    for (std::uint8_t& reg : game.config.unitSpriteReg)
        reg = static_cast<std::uint8_t>(random.below(3));
    for (std::uint16_t& address : game.config.unitSpriteAddress)
        address = random.word();
    return game;
}

} // namespace velko::test
