#pragma once

#include "gfx/pixel_image.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace velko {

// Whether a picture of such a size can be encoded at `scale`: it has pixels, and the result has
// no more than kLargestImage, which bounds the memory that encoding takes.
bool fitsPng(std::uint64_t width, std::uint64_t height, std::uint32_t scale);

// The bytes of a PNG file of the picture, each pixel `scale` x `scale` pixels large (at least 1).
// Up to 256 colours are indexed, in as few bits as they need; more are stored as they are. The
// same picture always gives the same bytes. Returns nothing where fitsPng() does not hold, or when
// the encoder fails.
std::optional<std::vector<std::uint8_t>> encodePng(const PixelImage& image,
                                                   std::uint32_t scale = 1);

} // namespace velko
