#include "cli/room_picture.h"

#include "cli/png_file.h"
#include "pages/unit_view.h"
#include "rom/number_text.h"
#include "tools/overworld_model.h"

namespace velko {

namespace {

void drawWithUnits(EditorState& state, RoomSize size, PixelImage& image)
{
    // A view as large as the room.
    const RoomView::Size whole{static_cast<int>(size.width()), static_cast<int>(size.height())};
    RoomView view(whole, whole);
    view.showRoom(size);
    const UnitList units(state.store.pahUnit);
    UnitView(state, view, units).draw(image, true, std::nullopt);
}

} // namespace

std::string roomLabel(std::uint32_t room)
{
    return "room " + hexText(room);
}

std::string roomFileDigits(std::uint32_t room)
{
    const std::string digits = hexText(room);
    return digits.size() < 2 ? "0" + digits : digits;
}

std::optional<std::string> drawRoom(EditorState& state, std::uint8_t room, bool units,
                                    std::uint32_t scale, PixelImage& image)
{
    const RoomSize size = state.renderer.roomSize(room);
    if (!fitsPng(size.width(), size.height(), scale))
        return roomLabel(room) + ": " + decimalText(size.columns) + " x " + decimalText(size.rows)
            + " screens" + (scale > 1 ? " at scale " + decimalText(scale) : "")
            + " are too large for a picture";
    if (units) {
        state.graphics.selectRoom(room);
        drawWithUnits(state, size, image);
    } else {
        state.renderer.renderRoomPicture(room, image);
    }
    return std::nullopt;
}

void drawOverworld(EditorState& state, PixelImage& image)
{
    state.graphics.selectRoom(0);
    loadOverworldGraphics(state);
    const OverworldMap map(state.rom, state.config);
    OverworldPainter(state.rom, state.config, state.graphics, map).drawTiles(image);
}

} // namespace velko
