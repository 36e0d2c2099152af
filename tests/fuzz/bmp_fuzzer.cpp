#include "gfx/bmp.h"

#include <cstdlib>

// Any bytes either decode to a whole picture or leave no picture at all.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    velko::PixelImage image(3, 3);
    const velko::BmpResult result = velko::decodeBmp({data, size}, image);
    if (image.empty() != (result != velko::BmpResult::kDone))
        std::abort();
    for (const velko::Pixel pixel : image.pixels()) {
        if (pixel > 0xFFFFFF)
            std::abort();
    }
    return 0;
}
