#include "demo/picture_writer.h"

#include "demo/module_writer.h"
#include "demo/nes_palette.h"

namespace velko::demo {

namespace {

constexpr std::uint32_t kFileHeader = 14;
constexpr std::uint32_t kInfoHeader = 40;
constexpr std::uint32_t kGreys = 16;

void append(Bytes& bytes, std::uint32_t value, int count)
{
    for (int i = 0; i < count; ++i)
        bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i) & 0xFF));
}

std::uint8_t grey(std::uint32_t level)
{
    return static_cast<std::uint8_t>(level * 0x11);
}

// Both headers and, for 8 bits, the colour table; `rowBytes` without padding.
Bytes headers(const Picture& picture, std::uint32_t depth, std::uint32_t rowBytes)
{
    const std::uint32_t colours = depth == 8 ? kGreys : 0;
    const std::uint32_t start = kFileHeader + kInfoHeader + 4 * colours;
    const std::uint32_t pixels =
        (rowBytes + 3) / 4 * 4 * static_cast<std::uint32_t>(picture.height);
    Bytes bytes = {'B', 'M'};
    append(bytes, start + pixels, 4);
    append(bytes, 0, 4);
    append(bytes, start, 4);
    append(bytes, kInfoHeader, 4);
    append(bytes, static_cast<std::uint32_t>(picture.width), 4);
    append(bytes, static_cast<std::uint32_t>(picture.height), 4);
    append(bytes, 1, 2);
    append(bytes, depth, 2);
    append(bytes, 0, 4); // no compression
    append(bytes, pixels, 4);
    append(bytes, 2835, 4); // 72 dots per inch
    append(bytes, 2835, 4);
    append(bytes, colours, 4);
    append(bytes, 0, 4);
    for (std::uint32_t i = 0; i < colours; ++i)
        append(bytes, grey(i) * 0x010101U, 4);
    return bytes;
}

// Rows bottom-up, each filled up to a multiple of four bytes.
Bytes bitmap(const Picture& picture, std::uint32_t depth)
{
    const std::uint32_t bytesPerPixel = depth / 8;
    const std::uint32_t rowBytes = static_cast<std::uint32_t>(picture.width) * bytesPerPixel;
    Bytes bytes = headers(picture, depth, rowBytes);
    for (int y = picture.height - 1; y >= 0; --y) {
        for (int x = 0; x < picture.width; ++x) {
            const std::uint32_t level = picture.at(x, y);
            append(bytes, depth == 8 ? level : grey(level) * 0x010101U,
                   static_cast<int>(bytesPerPixel));
        }
        while ((bytes.size() - kFileHeader - kInfoHeader) % 4 != 0)
            bytes.push_back(0);
    }
    return bytes;
}

void writePicture(const std::filesystem::path& path, const Picture& picture, std::size_t number)
{
    writeFile(path, number % 2 == 0 ? greyBitmap8(picture) : greyBitmap24(picture));
}

} // namespace

Bytes greyBitmap8(const Picture& picture)
{
    return bitmap(picture, 8);
}

Bytes greyBitmap24(const Picture& picture)
{
    return bitmap(picture, 24);
}

void writePictures(const ArtFile& physics, const ArtFile& doors,
                   const std::filesystem::path& folder)
{
    if (physics.greyPictures.size() != 16 || doors.greyPictures.size() != 4)
        throw DemoError("there must be 16 physics pictures and 4 door pictures");
    Bytes colours;
    for (const Rgb& colour : nesPalette())
        colours.insert(colours.end(), {colour.red, colour.green, colour.blue});
    writeFile(folder / "fr_nesB.pal", colours);
    for (std::size_t i = 0; i < 16; ++i)
        writePicture(folder / "bitmap" / (std::to_string(i) + ".bmp"), physics.greyPictures[i], i);
    for (std::size_t i = 0; i < 4; ++i)
        writePicture(folder / "bitmap" / ("door" + std::to_string(i + 1) + ".bmp"),
                     doors.greyPictures[i], i);
}

} // namespace velko::demo
