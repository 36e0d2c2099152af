#pragma once

#include "rom/file_io.h"
#include "tests/gfx/bmp_builder.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/test_rom.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <utility>

namespace velko::test {

// A file offset that no table of a TestRom uses.
inline constexpr std::uint32_t kSomeByte = 0x1234;

// The byte at kSomeByte of a file; 0xEE when it cannot be read.
inline std::uint8_t byteOnDisk(const std::filesystem::path& file)
{
    const auto bytes = loadFile(file);
    return bytes && bytes->size() > kSomeByte ? (*bytes)[kSomeByte] : std::uint8_t{0xEE};
}

// A working folder as a user has it, around a TestRom: module.cfg, the module "toy", palette,
// bitmaps, and the ROM as game.nes. While it lives it is the working directory.
class GameFolder {
public:
    explicit GameFolder(const TestRom& game = TestRom(3))
        : m_before(std::filesystem::current_path())
    {
        writeResources();
        write("module.cfg", "toy\n");
        write("modules/toy/data.yaml", describe(game.config));
        write("modules/toy/roomlist.txt", "Hall\nYard\nCave\n");
        m_rom = m_folder.write("game.nes", game.bytes);
        std::filesystem::current_path(m_folder.path());
    }
    ~GameFolder() { std::filesystem::current_path(m_before); }
    GameFolder(const GameFolder&) = delete;
    GameFolder& operator=(const GameFolder&) = delete;

    const std::filesystem::path& path() const { return m_folder.path(); }
    const std::filesystem::path& rom() const { return m_rom; }

    std::filesystem::path write(const std::string& name, std::string_view text) const
    {
        return m_folder.write(name, text);
    }
    std::filesystem::path write(const std::string& name, const Bytes& bytes) const
    {
        return m_folder.write(name, bytes);
    }
    void remove(const std::string& name) const { std::filesystem::remove(path() / name); }

private:
    // NES colour n is n, 2 n, 3 n.
    void writeResources() const
    {
        Bytes palette;
        for (std::uint8_t n = 0; n < 64; ++n)
            for (const int factor : {1, 2, 3})
                palette.push_back(static_cast<std::uint8_t>(factor * n));
        write("fr_nesB.pal", palette);
        const Bytes picture = BmpBuilder::flat24(10, 10, 0xFFFFFF);
        for (int i = 0; i < 16; ++i)
            write("bitmap/" + std::to_string(i) + ".bmp", picture);
        for (int i = 1; i <= 4; ++i)
            write("bitmap/door" + std::to_string(i) + ".bmp", picture);
    }

    static std::string describe(const GameConfig& config)
    {
        const std::array<std::pair<const char*, TestRom::Table>, 7> tables = {{
            {"pahMapAlloc", &GameConfig::pahMapAlloc},
            {"pahTileLoad", &GameConfig::pahTileLoad},
            {"pahPal", &GameConfig::pahPal},
            {"pahMapLayout", &GameConfig::pahMapLayout},
            {"pahTile32", &GameConfig::pahTile32},
            {"pahUnit", &GameConfig::pahUnit},
            {"pahTileLoadType2", &GameConfig::pahTileLoadType2},
        }};
        std::string text = "levelPointerArrayHandlers:\n";
        for (const auto& [key, table] : tables)
            text += "  " + std::string(key) + ":\n" + describe(config.*table);
        text += "pointerHandlersBanks:\n"
                "  phSprite: "
            + list(config.phSprite) + "\n  phMapScreenData: " + list(config.phMapScreenData) + "\n";
        text += "miscData:\n  startGfxBg: [";
        for (const std::uint32_t value : config.misc) // in storage order, one after the other
            text += std::to_string(value) + ", ";
        return text + "]\n";
    }
    static std::string describe(const PointerArrayDescriptor& table)
    {
        return "    pBank: " + std::to_string(table.pBank) + "\n    pMemStart: "
            + std::to_string(table.pMemStart) + "\n    pMemEdge: " + std::to_string(table.pMemEdge)
            + "\n    dBank: " + list(table.dBank) + "\n    dEdge: " + std::to_string(table.dEdge)
            + "\n    pointerPad: " + std::to_string(table.pointerPad) + "\n";
    }
    static std::string list(const BankPair& banks)
    {
        return "[" + std::to_string(banks[0]) + ", " + std::to_string(banks[1]) + "]";
    }

    std::filesystem::path m_before;
    TemporaryFolder m_folder;
    std::filesystem::path m_rom;
};

} // namespace velko::test
