#include "cli/png_file.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <png.h>
#include <span>

namespace velko {

namespace {

using Bytes = std::vector<std::uint8_t>;

// The colours of a picture in the order in which they are met, as long as there are few.
class ColourIndex {
public:
    static constexpr std::size_t kMost = 256;

    ColourIndex() { m_slots.fill(kFree); }

    std::span<const Pixel> colours() const { return std::span(m_colours).first(m_count); }
    // The number of a colour, which is added when it is new; nothing when there is no room for it.
    std::optional<std::uint8_t> numberOf(Pixel colour)
    {
        std::size_t slot = (colour * kHashFactor) >> kHashShift;
        while (m_slots[slot] != kFree && m_colours[m_slots[slot]] != colour)
            slot = (slot + 1) % kSlots;
        if (m_slots[slot] == kFree && !add(colour, slot))
            return std::nullopt;
        return static_cast<std::uint8_t>(m_slots[slot]);
    }

private:
    // A hash table four times as large as what it holds.
    static constexpr std::size_t kSlots = 4 * kMost;
    static constexpr std::uint32_t kHashFactor = 2654435769U;
    static constexpr unsigned kHashShift = 22; // leaves the 10 bits that count kSlots
    static constexpr std::uint16_t kFree = 0xFFFF;

    bool add(Pixel colour, std::size_t slot)
    {
        if (m_count == kMost)
            return false;
        m_slots[slot] = static_cast<std::uint16_t>(m_count);
        m_colours[m_count] = colour;
        ++m_count;
        return true;
    }

    std::array<std::uint16_t, kSlots> m_slots{};
    std::array<Pixel, kMost> m_colours{};
    std::size_t m_count = 0;
};

// Gives each row of `rowBytes` bytes `scale` times, in place: from the last row up, so that none
// is overwritten before it was copied.
void repeatRows(Bytes& bytes, std::size_t rowBytes, std::uint32_t rows, std::uint32_t scale)
{
    for (std::size_t row = rows; row-- > 0;) {
        for (std::size_t copy = scale; copy-- > 0;) {
            const std::size_t target = row * scale + copy;
            if (target != row)
                std::memcpy(bytes.data() + target * rowBytes, bytes.data() + row * rowBytes,
                            rowBytes);
        }
    }
}

std::size_t outputPixels(const PixelImage& image, std::uint32_t scale)
{
    return image.pixels().size() * scale * scale;
}

// The picture as colour numbers, one byte each, enlarged; nothing when it has too many colours.
std::optional<Bytes> indexedPixels(const PixelImage& image, std::uint32_t scale,
                                   ColourIndex& colours)
{
    Bytes bytes(outputPixels(image, scale));
    auto to = bytes.begin();
    Pixel last = image.at(0, 0);
    std::optional<std::uint8_t> number = colours.numberOf(last);
    for (const Pixel pixel : image.pixels()) {
        if (pixel != last) {
            last = pixel;
            number = colours.numberOf(pixel);
            if (!number)
                return std::nullopt;
        }
        to = std::fill_n(to, scale, *number);
    }
    repeatRows(bytes, std::size_t{image.width()} * scale, image.height(), scale);
    return bytes;
}

void appendColour(Bytes& bytes, Pixel pixel)
{
    for (const unsigned shift : {16U, 8U, 0U})
        bytes.push_back(static_cast<std::uint8_t>(pixel >> shift & 0xFF));
}

// Three bytes a pixel, enlarged.
Bytes colourPixels(const PixelImage& image, std::uint32_t scale)
{
    Bytes bytes;
    bytes.reserve(3 * outputPixels(image, scale));
    for (const Pixel pixel : image.pixels()) {
        for (std::uint32_t copy = 0; copy < scale; ++copy)
            appendColour(bytes, pixel);
    }
    bytes.resize(3 * outputPixels(image, scale));
    repeatRows(bytes, 3 * std::size_t{image.width()} * scale, image.height(), scale);
    return bytes;
}

std::optional<Bytes> encode(png_image& header, const Bytes& pixels, const Bytes& colourMap)
{
    Bytes file(PNG_IMAGE_PNG_SIZE_MAX(header));
    png_alloc_size_t size = file.size();
    const void* const map = colourMap.empty() ? nullptr : colourMap.data();
    if (png_image_write_to_memory(&header, file.data(), &size, 0, pixels.data(), 0, map) == 0)
        return std::nullopt;
    file.resize(size);
    file.shrink_to_fit();
    return file;
}

} // namespace

bool fitsPng(std::uint64_t width, std::uint64_t height, std::uint32_t scale)
{
    // Each factor alone must not exceed the limit, so that their product fits in 64 bits.
    const std::uint64_t columns = std::min<std::uint64_t>(width, kLargestImage + 1) * scale;
    const std::uint64_t rows = std::min<std::uint64_t>(height, kLargestImage + 1) * scale;
    return columns > 0 && rows > 0 && columns <= kLargestImage && rows <= kLargestImage
        && columns * rows <= kLargestImage;
}

std::optional<std::vector<std::uint8_t>> encodePng(const PixelImage& image, std::uint32_t scale)
{
    if (!fitsPng(image.width(), image.height(), scale))
        return std::nullopt;
    png_image header{};
    header.version = PNG_IMAGE_VERSION;
    header.width = image.width() * scale;
    header.height = image.height() * scale;
    ColourIndex colours;
    if (const std::optional<Bytes> indexes = indexedPixels(image, scale, colours)) {
        Bytes colourMap;
        for (const Pixel colour : colours.colours())
            appendColour(colourMap, colour);
        header.format = PNG_FORMAT_RGB_COLORMAP;
        header.colormap_entries = static_cast<std::uint32_t>(colours.colours().size());
        return encode(header, *indexes, colourMap);
    }
    header.format = PNG_FORMAT_RGB;
    return encode(header, colourPixels(image, scale), {});
}

} // namespace velko
