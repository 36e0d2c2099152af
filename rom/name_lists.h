#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <istream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velko {

// The names that give numbers a human face. Entries are the bytes of the file's lines; a list
// file that is short or missing is filled up with names made of the hexadecimal index.
struct NameLists {
    std::array<std::string, 144> units;
    std::array<std::string, 255> vramLoads;
    std::array<std::string, 256> music;
    std::vector<std::string> rooms; // GameConfig::roomCount() of them
    std::array<std::string, 26> items;
};

// Fills every entry of `names` with the next line of the file. Once the file could not be
// opened, or a read met its end, entry i is hexText(i) followed by `fillerSuffix`. The read that
// meets the end of a file ending in a line break yields one empty name first.
//
// Line breaks are LF or CR LF on every platform, as lists travel between them; nothing else is
// trimmed.
void readNameList(const std::filesystem::path& path, std::span<std::string> names,
                  std::string_view fillerSuffix);
// The same from a stream that was opened as bytes; one that is not good() holds no names.
void readNameList(std::istream& file, std::span<std::string> names, std::string_view fillerSuffix);

// Reads the five lists of a module folder, in the order unit, VRAM load, music, room, item.
void loadNameLists(const std::filesystem::path& moduleFolder, std::uint32_t roomCount,
                   NameLists& names);

} // namespace velko
