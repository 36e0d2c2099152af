#include "cli/verb_atlas.h"

#include "cli/arguments.h"
#include "cli/atlas/atlas_pages.h"
#include "cli/atlas/site_files.h"
#include "cli/game.h"
#include "cli/output_file.h"
#include "cli/png_file.h"
#include "cli/room_picture.h"
#include "cli/room_workers.h"
#include "rom/file_io.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <system_error>

namespace velko {

namespace {

using Reason = std::optional<std::string>;

class AtlasVerb : public Verb {
public:
    void declare(CLI::App& command) override
    {
        addRom(command, m_rom);
        addOutput(command, m_output, "The folder to write, which is made when it is not there");
    }
    ExitStatus run(const Context& context) override;

private:
    std::string m_rom;
    std::string m_output;
};

Reason writePicture(const std::filesystem::path& path, const PixelImage& image)
{
    const auto png = encodePng(image);
    if (!png)
        return utf8FromPath(path) + ": the picture cannot be encoded";
    return writeFile(path, *png);
}

RoomOutcome writeRoomPicture(const std::filesystem::path& folder, EditorState& state,
                             std::uint8_t room)
{
    PixelImage image;
    if (Reason refusal = drawRoom(state, room, true, 1, image))
        return {ExitStatus::kFindings, std::move(*refusal)};
    if (Reason reason = writePicture(folder / roomFileName(room, ".png"), image))
        return {ExitStatus::kWrong, std::move(*reason)};
    return {};
}

Reason writeOverworld(const std::filesystem::path& folder, EditorState& state)
{
    PixelImage image;
    drawOverworld(state, image);
    return writePicture(folder / "overworld.png", image);
}

Reason writePages(const std::filesystem::path& folder, const AtlasData& atlas)
{
    for (std::size_t i = 0; i < atlas.rooms.size(); ++i) {
        const std::string file = roomFileName(atlas.rooms[i].number, ".html");
        if (Reason reason = writeFile(folder / file, roomPage(atlas, i)))
            return reason;
    }
    if (Reason reason = writeFile(folder / "atlas.css", kAtlasStyle))
        return reason;
    if (Reason reason = writeFile(folder / "atlas.js", kAtlasScript))
        return reason;
    if (Reason reason = writeFile(folder / "graph.html", graphPage(atlas)))
        return reason;
    return writeFile(folder / "index.html", indexPage(atlas));
}

ExitStatus AtlasVerb::run(const Context& context)
{
    EditorState state;
    if (const Reason reason = openGame(context, m_rom, state))
        return context.fail(*reason);
    const std::filesystem::path folder = context.path(m_output);
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (!std::filesystem::is_directory(folder, error))
        return context.fail(m_output + ": is no folder, and none can be made");
    const AtlasData atlas = collectAtlas(state, utf8FromPath(context.path(m_rom).stem()));
    if (const Reason reason = writeOverworld(folder, state))
        return context.fail(*reason);
    const ExitStatus pictures =
        forEachRoom(context, m_rom, state, [&folder](EditorState& own, std::uint8_t room) {
            return writeRoomPicture(folder, own, room);
        });
    if (pictures == ExitStatus::kWrong)
        return pictures;
    // Pages last: what they show is there when they appear.
    if (const Reason reason = writePages(folder, atlas))
        return context.fail(*reason);
    return pictures;
}

} // namespace

std::unique_ptr<Verb> makeAtlasVerb()
{
    return std::make_unique<AtlasVerb>();
}

} // namespace velko
