#pragma once

#include "gfx/graphics_state.h"
#include "tests/support/test_rom.h"

#include <cstdint>

namespace velko::test {

// A game of eight rooms for the tests of map editing.
//
// Background block b, 0 to 3, has pixel value b everywhere. Tile32 records 0 to 2 of the set that
// most rooms share are of block, palette and physics 0, 0, 0; 1, 1, 2; and 2, 2, 3. Of the screens
// kPlain, kFirst and kSecond each is made of the record with its number. Palette entry e is colour
// e.
struct MapEditingRom : TestRom {
    static constexpr std::uint8_t kRoom = 0;     // 3 x 2 screens:  0 1 2   7 is no screen of
                                                 //                 1 7 2   the room
    static constexpr std::uint8_t kNoMap = 1;    // stored size 0 x 0
    static constexpr std::uint8_t kSharer = 2;   // 1 x 1; kRoom's set, screens of its own
    static constexpr std::uint8_t kCorridor = 3; // 4 x 1; all of kRoom's but the layout
    static constexpr std::uint8_t kOther = 4;    // 2 x 1; a set and screens of its own
    static constexpr std::uint8_t kVaried = 5;   // 4 x 1; nearly as many Tile32 blocks as can be
    static constexpr std::uint8_t kHuge = 6;     // stored as 255 x 255
    static constexpr std::uint8_t kNarrow = 7;   // a stored width of 2: only borders
    static constexpr std::uint32_t kRooms = 8;

    // File offsets.
    static constexpr std::uint32_t kScreens =
        kHeaderSize + layout::kScreenBank * kBankSize + (layout::kFirstScreen & 0x3FFF);
    static constexpr std::uint32_t kPlain = kScreens;
    static constexpr std::uint32_t kFirst = kScreens + 64;
    static constexpr std::uint32_t kSecond = kScreens + 128;
    static constexpr std::uint32_t kSharersScreen = kScreens + 192; // like kFirst
    std::uint32_t set = 0;                                          // of kRoom and its sharers

    MapEditingRom() : TestRom(kRooms)
    {
        setBlocks();
        const std::vector<Tile32Record> records = {{0, 0, 0, 0, 0x00, 0x00, 0x00},
                                                   {4, 4, 4, 4, 0x55, 0x22, 0x22},
                                                   {8, 8, 8, 8, 0xAA, 0x33, 0x33}};
        set = cpuToFileOffset(config.pahTile32.dBank, setTile32(kRoom, records));
        const auto plain = layout::kFirstScreen;
        const std::uint16_t first = addScreen(Bytes(64, 1));
        const std::uint16_t second = addScreen(Bytes(64, 2));
        setScreenList(kRoom, {plain, first, second});
        setLayout(kRoom, 3, 2, {0, 1, 2, 1, 7, 2});
        for (std::uint32_t room = 1; room < kRooms; ++room)
            shareAll(room, kRoom);

        setStoredSize(kNoMap, 0, 0);
        setScreenList(kSharer, {addScreen(Bytes(64, 1))});
        setLayout(kSharer, 1, 1, {0});
        setLayout(kCorridor, 4, 1, {1, 1, 2, 2});
        setTile32(kOther, records);
        setScreenList(kOther, {addScreen(Bytes(64, 1)), addScreen(Bytes(64, 2))});
        setLayout(kOther, 2, 1, {1, 1});
        setVariedRoom();
        setStoredSize(kHuge, 255, 255);
        setStoredSize(kNarrow, 2, 2);
    }

private:
    void setBlocks()
    {
        Bytes palette(32);
        for (std::uint8_t entry = 0; entry < 32; ++entry)
            palette[entry] = entry;
        setPalette(kRoom, palette);
        Bytes numbers(96);
        for (std::uint8_t number = 0; number < 4; ++number) {
            numbers[number] = number;
            Bytes block;
            for (int tile = 0; tile < 4; ++tile) {
                const Bytes one = solidTile(number);
                block.insert(block.end(), one.begin(), one.end());
            }
            setBackgroundBlock(0, number, block);
        }
        setTileLoad(kRoom, numbers);
    }

    // 145 records, told apart by their physics, on three screens; screen 0 is all of record 0.
    void setVariedRoom()
    {
        std::vector<Tile32Record> records;
        for (std::uint8_t i = 0; i < 145; ++i)
            records.push_back({0, 0, 0, 0, 0, i, 0});
        setTile32(kVaried, records);
        std::vector<std::uint16_t> screens = {addScreen(Bytes(64))};
        for (const int first : {0, 56, 112}) {
            Bytes numbers(64); // the last row, of which only the top half shows, stays record 0
            for (int i = 0; i < 56 && first + i < 145; ++i)
                numbers[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(first + i);
            screens.push_back(addScreen(numbers));
        }
        setScreenList(kVaried, screens);
        setLayout(kVaried, 4, 1, {0, 1, 2, 3});
    }
};

} // namespace velko::test
