#pragma once

#include "gfx/pixel_image.h"
#include "state/editor_state.h"

#include <cstdint>
#include <string>
#include <vector>

namespace velko {

// What the map pages show of the current room's screen list.

// One line per entry before the terminator (at most 65536): "3: -- 8640 -- (index 1)", all numbers
// in hexadecimal.
std::vector<std::string> screenListLines(const EditorState& state);

// Gives the image the size of a screen and draws the screen at a CPU address.
void drawScreenPreview(const EditorState& state, std::uint16_t screenAddress, PixelImage& image);

} // namespace velko
