#include "demo/picture_writer.h"

#include "demo/module_writer.h"
#include "demo/nes_palette.h"

#include <algorithm>

namespace velko::demo {

namespace {

constexpr std::uint32_t kFileHeader = 14;
constexpr std::uint32_t kInfoHeader = 40;
constexpr std::uint32_t kColours = 16;

// The editor shows the physics pictures two to a row, at 57 % of their size: 141 x 40 pixels.
constexpr int kPlateWidth = 248;
constexpr int kPlateHeight = 71;
constexpr int kPlateEdge = 2;
constexpr std::uint8_t kPlateColour = 4;
constexpr std::uint8_t kPlateEdgeColour = 1;
constexpr int kPictogramScale = 2;

void append(Bytes& bytes, std::uint32_t value, int count)
{
    for (int i = 0; i < count; ++i)
        bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i) & 0xFF));
}

// Both headers and, for 8 bits, the colour table; `rowBytes` without padding.
Bytes headers(const Picture& picture, const PictureColours& colours, std::uint32_t depth,
              std::uint32_t rowBytes)
{
    const std::uint32_t tableSize = depth == 8 ? kColours : 0;
    const std::uint32_t start = kFileHeader + kInfoHeader + 4 * tableSize;
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
    append(bytes, tableSize, 4);
    append(bytes, 0, 4);
    for (std::uint32_t i = 0; i < tableSize; ++i)
        append(bytes, colours[i], 4);
    return bytes;
}

// Rows bottom-up, each filled up to a multiple of four bytes.
Bytes bitmap(const Picture& picture, const PictureColours& colours, std::uint32_t depth)
{
    const std::uint32_t bytesPerPixel = depth / 8;
    const std::uint32_t rowBytes = static_cast<std::uint32_t>(picture.width) * bytesPerPixel;
    Bytes bytes = headers(picture, colours, depth, rowBytes);
    for (int y = picture.height - 1; y >= 0; --y) {
        for (int x = 0; x < picture.width; ++x) {
            const std::uint8_t value = picture.at(x, y);
            append(bytes, depth == 8 ? value : colours[value], static_cast<int>(bytesPerPixel));
        }
        while ((bytes.size() - kFileHeader - kInfoHeader) % 4 != 0)
            bytes.push_back(0);
    }
    return bytes;
}

void writePicture(const std::filesystem::path& path, const Picture& picture,
                  const PictureColours& colours, std::size_t number)
{
    writeFile(path, number % 2 == 0 ? bitmap8(picture, colours) : bitmap24(picture, colours));
}

bool liesOnEdge(int x, int y)
{
    return std::min(x, kPlateWidth - 1 - x) < kPlateEdge
        || std::min(y, kPlateHeight - 1 - y) < kPlateEdge;
}

} // namespace

Picture physicsPlate(const Picture& pictogram)
{
    const int width = pictogram.width * kPictogramScale;
    const int height = pictogram.height * kPictogramScale;
    const int left = (kPlateWidth - width) / 2;
    const int top = (kPlateHeight - height) / 2;
    Picture plate{pictogram.name, kPlateWidth, kPlateHeight, {}};
    for (int y = 0; y < kPlateHeight; ++y) {
        for (int x = 0; x < kPlateWidth; ++x) {
            const bool onPictogram = x >= left && x < left + width && y >= top && y < top + height;
            if (onPictogram) {
                plate.pixels.push_back(
                    pictogram.at((x - left) / kPictogramScale, (y - top) / kPictogramScale));
            } else {
                plate.pixels.push_back(liesOnEdge(x, y) ? kPlateEdgeColour : kPlateColour);
            }
        }
    }
    return plate;
}

Bytes bitmap8(const Picture& picture, const PictureColours& colours)
{
    return bitmap(picture, colours, 8);
}

Bytes bitmap24(const Picture& picture, const PictureColours& colours)
{
    return bitmap(picture, colours, 24);
}

void writePictures(const ArtFile& physics, const ArtFile& doors,
                   const std::filesystem::path& folder)
{
    if (physics.pictures.size() != 16 || doors.pictures.size() != 4)
        throw DemoError("there must be 16 physics pictures and 4 door pictures");
    Bytes colours;
    for (const Rgb& colour : nesPalette())
        colours.insert(colours.end(), {colour.red, colour.green, colour.blue});
    writeFile(folder / "fr_nesB.pal", colours);
    for (std::size_t i = 0; i < 16; ++i)
        writePicture(folder / "bitmap" / (std::to_string(i) + ".bmp"),
                     physicsPlate(physics.pictures[i]), physics.pictureColours, i);
    for (std::size_t i = 0; i < 4; ++i)
        writePicture(folder / "bitmap" / ("door" + std::to_string(i + 1) + ".bmp"),
                     doors.pictures[i], doors.pictureColours, i);
}

} // namespace velko::demo
