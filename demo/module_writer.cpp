#include "demo/module_writer.h"

#include "demo/yaml_writer.h"

#include <fstream>

namespace velko::demo {

namespace {

template <typename List> std::string lines(const List& list)
{
    std::string text;
    for (const auto& element : list) {
        // No break after the last line: it would read as one more, empty name.
        if (!text.empty())
            text += '\n';
        text += element.name;
    }
    return text;
}

struct Name {
    std::string name;
};

} // namespace

void writeFile(const std::filesystem::path& path, const Bytes& bytes)
{
    std::error_code ignored;
    std::filesystem::create_directories(path.parent_path(), ignored);
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file)
        throw DemoError("cannot write " + path.string());
}

void writeText(const std::filesystem::path& path, const std::string& text)
{
    writeFile(path, Bytes(text.begin(), text.end()));
}

void writeModule(const World& world, const std::filesystem::path& folder)
{
    writeText(folder / "module.cfg", std::string(kModuleName) + "\n");
    const std::filesystem::path module = folder / "modules" / kModuleName;
    writeText(module / "data.yaml", dataYaml(world));
    writeText(module / "unit.txt", lines(world.unitTypes));
    writeText(module / "VRAMload.txt", lines(world.loads));
    std::vector<Name> music;
    for (const std::string& name : world.music)
        music.push_back({name});
    writeText(module / "music.txt", lines(music));
    writeText(module / "roomlist.txt", lines(world.rooms));
    writeText(module / "item.txt", lines(world.items));
}

} // namespace velko::demo
