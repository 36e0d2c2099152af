#pragma once

#include "rom/game_config.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velko {

// The names that give numbers a human face. Entries are the bytes of the file's lines; a list
// file that is short or missing is filled up with names made of the hexadecimal index.
struct NameLists {
    std::array<std::string, kUnitTypes> units; // by unit type
    std::array<std::string, 255> vramLoads;    // by load record
    std::array<std::string, 256> music;        // by music number
    std::vector<std::string> rooms;        // GameConfig::roomCount() of them, at most kMostRooms
    std::array<std::string, kItems> items; // by item

    // Whether the module names a unit type: false for types past the list, and for those that an
    // empty line or a filler stands for.
    bool hasUnitName(std::uint8_t type) const;
};

// Fills every entry of `names` with the next line of the file. When the file could not be loaded,
// or once its end was met, entry i is hexText(i) followed by `fillerSuffix`. A file that ends in a
// line break, or is empty, yields one empty name first.
//
// Line breaks are LF or CR LF on every platform, as lists travel between them; nothing else is
// trimmed.
void readNameList(const std::filesystem::path& path, std::span<std::string> names,
                  std::string_view fillerSuffix);
// The same from the text of a file.
void splitNameList(std::string_view text, std::span<std::string> names,
                   std::string_view fillerSuffix);

// Reads the five lists of a module folder, in the order unit, VRAM load, music, room, item.
void loadNameLists(const std::filesystem::path& moduleFolder, std::uint32_t roomCount,
                   NameLists& names);

} // namespace velko
