#include "cli/verb_render.h"

#include "cli/arguments.h"
#include "cli/game.h"
#include "cli/output_file.h"
#include "cli/png_file.h"
#include "cli/room_picture.h"
#include "cli/room_workers.h"
#include "gfx/tile_allocation_pictures.h"
#include "pages/screen_list.h"
#include "rom/file_io.h"
#include "rom/number_text.h"

#include <CLI/CLI.hpp>
#include <system_error>

namespace velko {

namespace {

constexpr std::uint32_t kLargestScale = 16;
constexpr std::uint32_t kLargestRoom = kMostRooms - 1;

class RenderVerb : public Verb {
public:
    void declare(CLI::App& command) override;
    ExitStatus run(const Context& context) override;

private:
    // Why the options do not go together, if they do not.
    std::optional<std::string> misuse() const;
    // Draws the one picture that was asked for. Returns a refusal, or nothing on success.
    std::optional<std::string> draw(EditorState& state, PixelImage& image) const;
    ExitStatus renderOne(const Context& context, EditorState& state) const;
    ExitStatus renderAll(const Context& context, EditorState& state) const;

    std::string m_rom;
    std::string m_output;
    std::optional<std::uint32_t> m_room;
    std::optional<std::uint32_t> m_screen;
    std::optional<std::uint32_t> m_tiles;
    bool m_all = false;
    bool m_overworld = false;
    bool m_units = false;
    std::uint32_t m_scale = 1;
};

void RenderVerb::declare(CLI::App& command)
{
    addRom(command, m_rom);
    addHex(command, "--room", m_room, "The whole room; with --screen, whose graphics it gets",
           kLargestRoom);
    command.add_flag("--all", m_all, "Every room: room_00.png and so on in the folder PATH");
    addHex(command, "--screen", m_screen, "The screen at this CPU address", 0xFFFF);
    command.add_flag("--overworld", m_overworld, "The map of the overworld, in its own pixels");
    addHex(command, "--tiles", m_tiles, "The 64 background blocks of this room, in greys",
           kLargestRoom);
    command.add_flag("--units", m_units, "With --room or --all: draw the units, too");
    command.add_option("--scale", m_scale, "How many pixels, each way, a pixel becomes (1 to 16)")
        ->check(CLI::Range(1U, kLargestScale))
        ->type_name("N");
    addOutput(command, m_output, "The PNG file, or with --all the folder, to write");
}

std::optional<std::string> RenderVerb::misuse() const
{
    // A room beside a screen tells whose graphics the screen gets.
    const int pictures = (m_room && !m_screen ? 1 : 0) + (m_screen ? 1 : 0) + (m_tiles ? 1 : 0)
        + (m_all ? 1 : 0) + (m_overworld ? 1 : 0);
    if (pictures == 0)
        return "what to draw is missing: --room, --all, --screen, --overworld or --tiles";
    if (pictures > 1)
        return "only one of --room, --all, --screen, --overworld and --tiles can be drawn";
    if (m_units && (m_screen || m_tiles || m_overworld))
        return "--units needs --room or --all";
    return std::nullopt;
}

std::optional<std::string> RenderVerb::draw(EditorState& state, PixelImage& image) const
{
    if (m_overworld) {
        drawOverworld(state, image);
        return std::nullopt;
    }
    const auto room = static_cast<std::uint8_t>(m_tiles ? *m_tiles : m_room.value_or(0));
    if (m_room && !m_screen)
        return drawRoom(state, room, m_units, m_scale, image);
    state.graphics.selectRoom(room);
    if (m_screen)
        drawScreenPreview(state, static_cast<std::uint16_t>(*m_screen), image);
    else
        drawBackgroundSlots(state.graphics, image);
    return std::nullopt;
}

ExitStatus RenderVerb::renderOne(const Context& context, EditorState& state) const
{
    const std::uint32_t rooms = state.config.roomCount();
    for (const auto& room : {m_room, m_tiles}) {
        if (room && *room >= rooms)
            return context.fail("there is no " + roomLabel(*room) + ": the game has "
                                + decimalText(rooms) + " rooms, counted from 0 in hexadecimal");
    }
    PixelImage image;
    if (const auto refusal = draw(state, image))
        return context.fail(*refusal, ExitStatus::kFindings);
    const auto png = encodePng(image, m_scale);
    if (!png)
        return context.fail("the picture cannot be encoded");
    if (const auto reason = writeFile(context.path(m_output), *png))
        return context.fail(*reason);
    return ExitStatus::kFine;
}

ExitStatus RenderVerb::renderAll(const Context& context, EditorState& state) const
{
    const std::filesystem::path folder = context.path(m_output);
    std::error_code error;
    const auto render = [&](EditorState& own, std::uint8_t room) -> RoomOutcome {
        PixelImage image;
        if (auto refusal = drawRoom(own, room, m_units, m_scale, image))
            return {ExitStatus::kFindings, std::move(*refusal)};
        const auto png = encodePng(image, m_scale);
        if (!png)
            return {ExitStatus::kWrong, roomLabel(room) + ": the picture cannot be encoded"};
        if (auto reason = writeFile(folder / ("room_" + roomFileDigits(room) + ".png"), *png))
            return {ExitStatus::kWrong, std::move(*reason)};
        return {};
    };
    std::filesystem::create_directories(folder, error);
    if (!std::filesystem::is_directory(folder, error))
        return context.fail(m_output + ": is no folder, and none can be made");
    return forEachRoom(context, m_rom, state, render);
}

ExitStatus RenderVerb::run(const Context& context)
{
    if (const auto reason = misuse())
        return context.fail(*reason + " (see velko-cli render --help)");
    EditorState state;
    if (const auto reason = openGame(context, m_rom, state))
        return context.fail(*reason);
    return m_all ? renderAll(context, state) : renderOne(context, state);
}

} // namespace

std::unique_ptr<Verb> makeRenderVerb()
{
    return std::make_unique<RenderVerb>();
}

} // namespace velko
