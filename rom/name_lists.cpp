#include "rom/name_lists.h"

#include "rom/file_io.h"
#include "rom/number_text.h"
#include "rom/text_lines.h"

#include <fstream>

namespace velko {

void readNameList(const std::filesystem::path& path, std::span<std::string> names,
                  std::string_view fillerSuffix)
{
    std::ifstream file;
    if (isRegularFile(path))
        file.open(path, std::ios::binary);
    else
        file.setstate(std::ios::failbit);
    readNameList(file, names, fillerSuffix);
}

void readNameList(std::istream& file, std::span<std::string> names, std::string_view fillerSuffix)
{
    for (std::size_t i = 0; i < names.size(); ++i) {
        names[i] = file.good() ? readLine(file)
                               : hexText(static_cast<std::uint32_t>(i)).append(fillerSuffix);
    }
}

void loadNameLists(const std::filesystem::path& moduleFolder, std::uint32_t roomCount,
                   NameLists& names)
{
    // The two suffixes differ by a blank.
    constexpr std::string_view kPaddedFiller = " : ?? ";
    constexpr std::string_view kFiller = " : ??";
    names.rooms.assign(roomCount, {});
    readNameList(moduleFolder / "unit.txt", names.units, kPaddedFiller);
    readNameList(moduleFolder / "VRAMload.txt", names.vramLoads, kPaddedFiller);
    readNameList(moduleFolder / "music.txt", names.music, kFiller);
    readNameList(moduleFolder / "roomlist.txt", names.rooms, kFiller);
    readNameList(moduleFolder / "item.txt", names.items, kFiller);
}

} // namespace velko
