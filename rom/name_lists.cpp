#include "rom/name_lists.h"

#include "rom/file_io.h"
#include "rom/number_text.h"
#include "rom/text_lines.h"

#include <cstddef>

namespace velko {

namespace {

// The two suffixes differ by a blank.
constexpr std::string_view kPaddedFiller = " : ?? ";
constexpr std::string_view kFiller = " : ??";

void takeNames(TextLines lines, std::span<std::string> names, std::string_view fillerSuffix)
{
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (const auto line = lines.next())
            names[i] = *line;
        else
            names[i] = hexText(static_cast<std::uint32_t>(i)).append(fillerSuffix);
    }
}

} // namespace

bool NameLists::hasUnitName(std::uint8_t type) const
{
    return type < units.size() && !units[type].empty()
        && units[type] != hexText(type).append(kPaddedFiller);
}

void readNameList(const std::filesystem::path& path, std::span<std::string> names,
                  std::string_view fillerSuffix)
{
    if (const auto text = loadTextFile(path))
        splitNameList(*text, names, fillerSuffix);
    else
        takeNames(TextLines(), names, fillerSuffix);
}

void splitNameList(std::string_view text, std::span<std::string> names,
                   std::string_view fillerSuffix)
{
    takeNames(TextLines(text), names, fillerSuffix);
}

void loadNameLists(const std::filesystem::path& moduleFolder, std::uint32_t roomCount,
                   NameLists& names)
{
    names.rooms.assign(roomCount, {});
    readNameList(moduleFolder / "unit.txt", names.units, kPaddedFiller);
    readNameList(moduleFolder / "VRAMload.txt", names.vramLoads, kPaddedFiller);
    readNameList(moduleFolder / "music.txt", names.music, kFiller);
    readNameList(moduleFolder / "roomlist.txt", names.rooms, kFiller);
    readNameList(moduleFolder / "item.txt", names.items, kFiller);
}

} // namespace velko
