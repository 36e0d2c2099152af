#pragma once

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

enum class BmpResult : int { kDone = 0, kNoBitmap = -1, kOtherHeader = -2, kOtherDepth = -3 };

// Decodes a whole .bmp file of 8 or 24 bits per pixel, rows bottom-up. On any other file, or one
// whose pixels do not lie inside it, the image is left empty. kNoBitmap: no "BM" (or the file is
// cut short); kOtherHeader: the info header is not 40 bytes long; kOtherDepth: another depth, or
// a width or height that is 0 or negative.
BmpResult decodeBmp(std::span<const std::uint8_t> file, PixelImage& image);

// Turns the first 192 bytes of a palette file into colours. Returns false, changing nothing, when
// there are fewer.
bool decodePalette(std::span<const std::uint8_t> file, std::array<Pixel, 64>& colours);

// The sixteen fixed physics colours and their shades (factors 0.1, 1.0, 0.7 and 0.4).
void setPhysicsColours(GraphicsState& graphics);

// Loads "fr_nesB.pal" and the bitmaps from `workFolder`. Returns nothing on success, else a
// message that names the file at fault, as nothing could be shown rightly without it.
std::optional<std::string> loadResources(const std::filesystem::path& workFolder,
                                         GraphicsState& graphics, Resources& resources);

} // namespace velko
