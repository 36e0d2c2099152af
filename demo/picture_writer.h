#pragma once

#include "demo/art_library.h"
#include "demo/block_region.h"

#include <filesystem>

namespace velko::demo {

// What the values of a picture look like, 0x00RRGGBB.
using PictureColours = std::array<std::uint32_t, 16>;

// A bitmap file of 8 bits per pixel with a colour table of 16 colours.
Bytes bitmap8(const Picture& picture, const PictureColours& colours);
// The same picture with 24 bits per pixel.
Bytes bitmap24(const Picture& picture, const PictureColours& colours);

// A pictogram in double size in the middle of a plate with the proportions of the cells in which
// the editor shows physics.
Picture physicsPlate(const Picture& pictogram);

// Writes the colours ("fr_nesB.pal"), the sixteen physics pictures and the four door pictures.
// Even numbers become 8-bit files, odd ones 24-bit files, as both kinds are read.
void writePictures(const ArtFile& physics, const ArtFile& doors,
                   const std::filesystem::path& folder);

} // namespace velko::demo
