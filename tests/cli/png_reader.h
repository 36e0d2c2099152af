#pragma once

#include "gfx/pixel_image.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <png.h>
#include <span>
#include <vector>

namespace velko::test {

// Decodes a whole PNG file; what is none fails the test and gives an empty picture.
inline PixelImage readPng(std::span<const std::uint8_t> file)
{
    png_image header{};
    header.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_memory(&header, file.data(), file.size()) == 0) {
        ADD_FAILURE() << header.message;
        return {};
    }
    header.format = PNG_FORMAT_RGB;
    std::vector<std::uint8_t> bytes(PNG_IMAGE_SIZE(header));
    if (png_image_finish_read(&header, nullptr, bytes.data(), 0, nullptr) == 0) {
        ADD_FAILURE() << header.message;
        return {};
    }
    PixelImage image(header.width, header.height);
    for (std::size_t i = 0; i < image.pixels().size(); ++i)
        image.pixels()[i] =
            static_cast<Pixel>(bytes[3 * i] << 16 | bytes[3 * i + 1] << 8 | bytes[3 * i + 2]);
    return image;
}

// Each pixel as scale x scale pixels.
inline PixelImage enlarged(const PixelImage& image, std::uint32_t scale)
{
    PixelImage large(image.width() * scale, image.height() * scale);
    for (std::uint32_t y = 0; y < large.height(); ++y)
        for (std::uint32_t x = 0; x < large.width(); ++x)
            large.row(y)[x] = image.at(x / scale, y / scale);
    return large;
}

} // namespace velko::test
