#pragma once

#include "gfx/graphics_state.h"
#include "gfx/room_renderer.h"
#include "rom/game_config.h"
#include "rom/rom_image.h"
#include "store/block_lengths.h"
#include "store/room_data_store.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <gtest/gtest.h>
#include <initializer_list>
#include <span>
#include <vector>

namespace velko::test {

using Bytes = std::vector<std::uint8_t>;
using Tile32Record = std::array<std::uint8_t, 7>;

// The 16 bytes of a tile whose pixels all have one value, 0-3.
inline Bytes solidTile(unsigned value)
{
    Bytes tile(16);
    std::fill_n(tile.begin(), 8, value & 1 ? 0xFF : 0x00);
    std::fill_n(tile.begin() + 8, 8, value & 2 ? 0xFF : 0x00);
    return tile;
}

// Where TestRom keeps things: 16 KB banks, and CPU addresses within $8000-$BFFF.
namespace layout {
inline constexpr std::uint8_t kTableBank = 0;
inline constexpr std::uint8_t kBlockBank = 1; // screen lists, layouts, palettes, units, loads
inline constexpr std::uint8_t kTileLoadBank = 2;
inline constexpr std::uint8_t kTile32Bank = 3;
inline constexpr std::uint8_t kScreenBank = 4;
inline constexpr std::uint8_t kSpriteBank = 5;
inline constexpr std::uint8_t kType2Bank = 6;
inline constexpr std::uint8_t kBackgroundBank = 7; // and the three that follow
inline constexpr std::uint8_t kFixedBank = 11;
inline constexpr std::uint32_t kBanks = 12;

inline constexpr std::uint16_t kFirstScreen = 0x8600;
inline constexpr std::uint16_t kFirstSprite = 0x8000;
inline constexpr std::uint32_t kLoadRecords = kHeaderSize + 0x3000; // file offset, bank 0
} // namespace layout

// A small game in memory: `bytes` is the ROM file, `config` what data.yaml would say about it.
// Every room starts out with the same blocks: one screen of Tile32 number 0, a layout of 1 x 1
// screens, no units, no loads, everything else 0. The set...() functions append a block to its
// region and point the room at it; nothing is ever released. Change `bytes` and `config` freely.
//
//     TestRom game;
//     const auto screen = game.addScreen(Bytes(64, 1));
//     game.setScreenList(0, {screen, screen});
//     game.setLayout(0, 2, 1, {0, 1});
//     TestCore core(game); // room 0 is selected
class TestRom {
public:
    // A table of room pointers: &GameConfig::pahPal and so on.
    using Table = PointerArrayDescriptor GameConfig::*;

    explicit TestRom(std::uint32_t rooms = 4) : bytes(kHeaderSize + layout::kBanks * kBankSize)
    {
        const std::array<std::uint8_t, 7> header = {
            'N', 'E', 'S', 0x1A, std::uint8_t{layout::kBanks}, 0, 0x20};
        std::copy(header.begin(), header.end(), bytes.begin());
        describeGame(rooms);
        const std::uint16_t screen = addScreen(Bytes(64));
        setScreenList(0, {screen});
        setLayout(0, 1, 1, {0});
        setPalette(0, Bytes(kPaletteLength));
        setTileLoad(0, Bytes(kTileLoadLength));
        setTile32(0, {});
        setUnits(0, {});
        setType2Loads(0, {});
        for (std::uint32_t room = 1; room < rooms; ++room)
            shareAll(room, 0);
    }

    Bytes bytes;
    GameConfig config;

    // The blocks of a room. `cells` are the shown ones, row by row; the border columns are added
    // with the value 0xEE, which no screen list here is long enough for.
    std::uint16_t setLayout(std::uint32_t room, std::uint8_t columns, std::uint8_t rows,
                            const Bytes& cells)
    {
        Bytes block;
        for (std::size_t row = 0; row < rows; ++row) {
            block.push_back(0xEE);
            for (std::size_t column = 0; column < columns; ++column)
                block.push_back(cells.at(row * columns + column));
            block.push_back(0xEE);
        }
        const std::uint16_t address = setBlock(&GameConfig::pahMapLayout, room, block);
        setStoredSize(room, static_cast<std::uint8_t>(columns + 2), rows);
        return address;
    }
    // Bytes 2 and 3 of the room's layout entry, borders included.
    void setStoredSize(std::uint32_t room, std::uint8_t width, std::uint8_t height)
    {
        const std::uint32_t entry = entryOffset(&GameConfig::pahMapLayout, room);
        bytes.at(entry + kMapWidthByte) = width;
        bytes.at(entry + kMapHeightByte) = height;
    }
    std::uint16_t setScreenList(std::uint32_t room, const std::vector<std::uint16_t>& screens)
    {
        Bytes block;
        for (const std::uint16_t screen : screens) {
            block.push_back(static_cast<std::uint8_t>(screen & 0xFF));
            block.push_back(static_cast<std::uint8_t>(screen >> 8));
        }
        block.push_back(0xFF);
        block.push_back(0xFF);
        return setBlock(&GameConfig::pahMapAlloc, room, block);
    }
    std::uint16_t setPalette(std::uint32_t room, const Bytes& colours)
    {
        return setBlock(&GameConfig::pahPal, room, padded(colours, kPaletteLength));
    }
    std::uint16_t setTileLoad(std::uint32_t room, const Bytes& block)
    {
        return setBlock(&GameConfig::pahTileLoad, room, padded(block, kTileLoadLength));
    }
    std::uint16_t setTile32(std::uint32_t room, const std::vector<Tile32Record>& records)
    {
        Bytes block;
        for (const Tile32Record& record : records)
            block.insert(block.end(), record.begin(), record.end());
        return setBlock(&GameConfig::pahTile32, room, padded(block, kTile32Length));
    }
    // Whole 5-byte records; the end mark is added.
    std::uint16_t setUnits(std::uint32_t room, const Bytes& records)
    {
        return setBlock(&GameConfig::pahUnit, room, ended(records));
    }
    std::uint16_t setType2Loads(std::uint32_t room, const Bytes& records)
    {
        return setBlock(&GameConfig::pahTileLoadType2, room, ended(records));
    }

    // Makes `room` use all blocks (and the size) of `other`.
    void shareAll(std::uint32_t room, std::uint32_t other)
    {
        for (const Region& region : kRegions) {
            for (std::uint32_t i = 0; i < (config.*region.table).pointerPad; ++i)
                bytes.at(entryOffset(region.table, room) + i) =
                    bytes.at(entryOffset(region.table, other) + i);
        }
    }
    // Points the room's entry of a table at an address.
    void setPointer(Table table, std::uint32_t room, std::uint16_t address)
    {
        bytes.at(entryOffset(table, room)) = static_cast<std::uint8_t>(address & 0xFF);
        bytes.at(entryOffset(table, room) + 1) = static_cast<std::uint8_t>(address >> 8);
    }

    // Appends a screen of 64 Tile32 numbers and returns its CPU address.
    std::uint16_t addScreen(const Bytes& tile32Numbers)
    {
        return append(m_nextScreen, config.phMapScreenData, padded(tile32Numbers, 64));
    }
    // Appends a sprite script and returns its CPU address.
    std::uint16_t addSprite(const Bytes& script)
    {
        return append(m_nextSprite, config.phSprite, script);
    }
    // Sets the 64 bytes of block `number` (0-255) in background bank 0-3.
    void setBackgroundBlock(std::uint32_t bank, std::uint32_t number, const Bytes& tiles)
    {
        write(kHeaderSize + (layout::kBackgroundBank + bank) * kBankSize + number * 64, tiles);
    }
    // Type-2 load `id` copies `tiles` tiles from `source` (an offset in the type-2 bank) to
    // `destination` in pattern memory.
    void setLoadRecord(std::uint8_t id, std::uint16_t source, std::uint16_t destination,
                       std::uint8_t tiles)
    {
        write(layout::kLoadRecords + 5U * id,
              {static_cast<std::uint8_t>(source & 0xFF), static_cast<std::uint8_t>(source >> 8),
               static_cast<std::uint8_t>(destination >> 8),
               static_cast<std::uint8_t>(destination & 0xFF), tiles});
    }
    // Writes sprite graphics at an offset of the type-2 bank.
    void setType2Graphics(std::uint32_t source, const Bytes& tiles)
    {
        write(kHeaderSize + layout::kType2Bank * kBankSize + source, tiles);
    }

    void write(std::uint32_t fileOffset, const Bytes& values)
    {
        for (std::size_t i = 0; i < values.size(); ++i)
            bytes.at(fileOffset + i) = values[i];
    }
    // File offset of the room's entry of a table.
    std::uint32_t entryOffset(Table table, std::uint32_t room) const
    {
        const PointerArrayDescriptor& d = config.*table;
        return kHeaderSize + d.pBank * kBankSize + (d.pMemStart & 0x3FFF) + room * d.pointerPad;
    }

    // Puts the game into anything that has an image, a configuration, a store and graphics (an
    // EditorState, a TestCore), sets made-up colours, computes the free space and selects room 0.
    template <typename State> void loadInto(State& state) const
    {
        state.rom.setBytes(bytes);
        state.config = config;
        state.store.configure(config);
        for (std::uint32_t n = 0; n < 64; ++n)
            state.graphics.colourTable[n] = colour(n);
        state.store.computeFreeSpace(config.roomCount());
        state.graphics.selectRoom(0);
    }
    // The pixel of NES colour `number` (0-63): distinct, with three distinct channels.
    static constexpr Pixel colour(std::uint32_t number) { return 0x402000 + number * 0x010203; }

private:
    struct Region {
        Table table;
        std::uint8_t bank;
        std::uint16_t start;
        std::uint16_t edge;
        std::uint32_t moreEntries; // of the table, beyond those of the rooms
    };
    static constexpr std::array<Region, 7> kRegions = {{
        {&GameConfig::pahMapAlloc, layout::kBlockBank, 0x8000, 0x9000, 0},
        {&GameConfig::pahMapLayout, layout::kBlockBank, 0x9000, 0xA000, 0},
        {&GameConfig::pahPal, layout::kBlockBank, 0xA000, 0xB000, 0},
        {&GameConfig::pahUnit, layout::kBlockBank, 0xB000, 0xB800, 0},
        {&GameConfig::pahTileLoadType2, layout::kBlockBank, 0xB800, 0xC000, 2},
        {&GameConfig::pahTileLoad, layout::kTileLoadBank, 0x8000, 0xC000, 0},
        {&GameConfig::pahTile32, layout::kTile32Bank, 0x8000, 0xC000, 0},
    }};
    static constexpr std::uint16_t kBytesPerTable = 0x480; // 258 entries of up to 4 bytes

    void describeGame(std::uint32_t rooms)
    {
        config.pahMapLayout.pointerPad = 4;
        for (std::size_t i = 0; i < kRegions.size(); ++i) {
            PointerArrayDescriptor& table = config.*kRegions[i].table;
            table.dBank = {kRegions[i].bank, layout::kFixedBank};
            table.pBank = layout::kTableBank;
            table.pMemStart = static_cast<std::uint16_t>(0x8000 + i * kBytesPerTable);
            table.pMemEdge = static_cast<std::uint16_t>(
                table.pMemStart + (rooms + kRegions[i].moreEntries) * table.pointerPad);
            table.dEdge = kRegions[i].edge;
            m_nextBlock[i] = kRegions[i].start;
        }
        config.phSprite = {layout::kSpriteBank, layout::kFixedBank};
        config.phMapScreenData = {layout::kScreenBank, layout::kFixedBank};
        config.setValue(MiscField::startGfxBg, layout::kBackgroundBank);
        config.setValue(MiscField::bgTileBanks, 4);
        config.setValue(MiscField::startGfxType2, layout::kType2Bank);
        config.setValue(MiscField::ptrTileLoadType2, layout::kLoadRecords);
        config.setValue(MiscField::mapAllocDataStart, layout::kFirstScreen);
        config.setValue(MiscField::mapIndexes, (0xC000 - layout::kFirstScreen) / 64);
        config.setValue(MiscField::rooms, rooms);
    }

    // Appends the block to the table's region and points the room at it.
    std::uint16_t setBlock(Table table, std::uint32_t room, const Bytes& block)
    {
        const auto region = std::find_if(kRegions.begin(), kRegions.end(),
                                         [table](const Region& r) { return r.table == table; });
        std::uint16_t& next = m_nextBlock.at(static_cast<std::size_t>(region - kRegions.begin()));
        EXPECT_LE(next + block.size(), region->edge) << "the test ROM's region is full";
        const std::uint16_t address = append(next, (config.*table).dBank, block);
        setPointer(table, room, address);
        return address;
    }
    std::uint16_t append(std::uint16_t& next, BankPair banks, const Bytes& block)
    {
        const std::uint16_t address = next;
        write(cpuToFileOffset(banks, address), block);
        next = static_cast<std::uint16_t>(next + block.size());
        return address;
    }

    static Bytes padded(Bytes block, std::size_t size)
    {
        EXPECT_LE(block.size(), size) << "too long for this kind of block";
        block.resize(size);
        return block;
    }
    static Bytes ended(Bytes block)
    {
        block.push_back(0xFF);
        return block;
    }

    std::array<std::uint16_t, kRegions.size()> m_nextBlock{};
    std::uint16_t m_nextScreen = layout::kFirstScreen;
    std::uint16_t m_nextSprite = layout::kFirstSprite;
};

// The core around a TestRom, ready to draw.
struct TestCore {
    TestCore() = default;
    explicit TestCore(const TestRom& game) { game.loadInto(*this); }
    TestCore(const TestCore&) = delete; // its parts refer to one another
    TestCore& operator=(const TestCore&) = delete;

    RomImage rom;
    GameConfig config;
    RoomDataStore store{rom};
    GraphicsState graphics{rom, config, store};
    RoomRenderer renderer{rom, config, store, graphics};
};

} // namespace velko::test
