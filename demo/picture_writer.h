#pragma once

#include "demo/art_library.h"
#include "demo/block_region.h"

#include <filesystem>

namespace velko::demo {

// A bitmap file of 8 bits per pixel with a palette of 16 greys.
Bytes greyBitmap8(const Picture& picture);
// The same picture with 24 bits per pixel.
Bytes greyBitmap24(const Picture& picture);

// Writes the colours ("fr_nesB.pal"), the sixteen physics pictures and the four door pictures.
// Even numbers become 8-bit files, odd ones 24-bit files, as both kinds are read.
void writePictures(const ArtFile& physics, const ArtFile& doors,
                   const std::filesystem::path& folder);

} // namespace velko::demo
