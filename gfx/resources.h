#pragma once

#include "gfx/bmp.h"
#include "gfx/graphics_state.h"
#include "gfx/pixel_image.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>

namespace velko {

// The pictures and colours beside the program. Everything is read once, at start-up.
struct Resources {
    std::array<PixelImage, 16> physicsBitmaps; // by physics value, scaled and tinted
    std::array<PixelImage, 4> doorBitmaps;     // by entrance slot
    std::array<Pixel, 8> editorColours{};
};

inline constexpr std::array<Pixel, 8> kEditorColours = {0x000000, 0xF0F0F0, 0x909090, 0x404040,
                                                        0x700040, 0xF0F0F0, 0x686868, 0x000000};

// Turns the first 192 bytes of a palette file into colours. Returns false, changing nothing, when
// there are fewer.
bool decodePalette(std::span<const std::uint8_t> file, std::array<Pixel, kNesColours>& colours);

// The sixteen fixed physics colours and their shades (factors 0.1, 1.0, 0.7 and 0.4).
void setPhysicsColours(GraphicsState& graphics);

// Loads "fr_nesB.pal" and, from its folder "bitmap", "0.bmp" to "15.bmp" and "door1.bmp" to
// "door4.bmp" in `workFolder`; sets the fixed colours. Physics bitmaps are scaled to 57 % and
// tinted with their physics colour. Returns nothing on success, else a message that names the
// file at fault: nothing could be shown rightly without it, and what follows it is not loaded.
std::optional<std::string> loadResources(const std::filesystem::path& workFolder,
                                         GraphicsState& graphics, Resources& resources);

} // namespace velko
