#pragma once

#include "gfx/pixel_image.h"
#include "state/editor_state.h"

#include <cstdint>
#include <optional>
#include <string>

namespace velko {

// "room 1f", as every line of the program names a room.
std::string roomLabel(std::uint32_t room);
// The two digits at least that name a room's files: "00" to "ff", so that they sort.
std::string roomFileDigits(std::uint32_t room);

// Draws the whole room, which becomes the selected one, as the windows show it; with `units`, as
// the unit placement page shows them when a room is opened: sprites in their first frame, markers
// for types without one. Returns nothing on success, else why the room, enlarged by `scale`, is
// refused: it has more pixels than a picture may have.
[[nodiscard]] std::optional<std::string> drawRoom(EditorState& state, std::uint8_t room, bool units,
                                                  std::uint32_t scale, PixelImage& image);

// Draws the overworld's tiles, in the map's own pixels, with the graphics that the overworld editor
// sees when it is opened from room 0.
void drawOverworld(EditorState& state, PixelImage& image);

} // namespace velko
