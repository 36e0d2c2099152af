#include "gfx/resources.h"

#include "rom/file_io.h"
#include "rom/number_text.h"

#include <string_view>

namespace velko {

namespace {

constexpr std::size_t kPaletteBytes = kNesColours * 3;

constexpr std::string_view kPaletteFile = "fr_nesB.pal";
constexpr std::string_view kBitmapFolder = "bitmap";

// The game's physics values as the editor colours them; unused values are a dark grey.
constexpr std::array<Pixel, 16> kPhysicsColours = {
    0x989898, 0x80F080, 0xF0F080, 0x4860F0, 0xA060F0, 0xF0A000, 0x80E0F0, 0x282828,
    0xF09090, 0x282828, 0xF03018, 0x282828, 0x282828, 0x282828, 0x282828, 0x282828};

// Brightness of the four colours of a tile drawn in a physics colour.
constexpr std::array<double, 4> kShadeFactors = {0.1, 1.0, 0.7, 0.4};

// The pictures come larger than the physics selector shows them.
constexpr double kPhysicsBitmapScale = 0.57;

Pixel shade(Pixel colour, double factor)
{
    const auto channel = [&](unsigned shift) {
        return static_cast<Pixel>(((colour >> shift) & 0xFF) * factor) << shift;
    };
    return channel(16) | channel(8) | channel(0);
}

std::string cannotLoad(const std::string& name, std::string_view reason)
{
    return "Can't load \"" + name + "\": " + std::string(reason) + ". Quitting.";
}

constexpr std::string_view kUnreadable = "the file is missing, empty or unreadable";

std::string_view reasonText(BmpResult result)
{
    switch (result) {
    case BmpResult::kOtherHeader:
        return "not a BMP with an info header of 40 bytes";
    case BmpResult::kOtherDepth:
        return "not a bottom-up BMP of 8 or 24 bits";
    case BmpResult::kTooLarge:
        return "too large";
    default:
        return "not a BMP, or cut short";
    }
}

std::optional<std::string> loadPalette(const std::filesystem::path& workFolder,
                                       std::array<Pixel, kNesColours>& colours)
{
    const auto file = loadFile(workFolder / kPaletteFile);
    if (!file)
        return cannotLoad(std::string(kPaletteFile), kUnreadable);
    if (!decodePalette(*file, colours))
        return cannotLoad(std::string(kPaletteFile), "shorter than 64 colours of 3 bytes");
    return std::nullopt;
}

std::optional<std::string> loadBitmap(const std::filesystem::path& workFolder,
                                      const std::string& name, PixelImage& image)
{
    const std::string shownName = std::string(kBitmapFolder) + "/" + name;
    const auto file = loadFile(workFolder / kBitmapFolder / name);
    if (!file)
        return cannotLoad(shownName, kUnreadable);
    if (const BmpResult result = decodeBmp(*file, image); result != BmpResult::kDone)
        return cannotLoad(shownName, reasonText(result));
    return std::nullopt;
}

PixelImage physicsPicture(const PixelImage& drawn, Pixel colour)
{
    PixelImage picture(static_cast<std::uint32_t>(drawn.width() * kPhysicsBitmapScale),
                       static_cast<std::uint32_t>(drawn.height() * kPhysicsBitmapScale));
    copyScaled(picture, drawn);
    tintImage(picture, colour);
    return picture;
}

} // namespace

bool decodePalette(std::span<const std::uint8_t> file, std::array<Pixel, kNesColours>& colours)
{
    if (file.size() < kPaletteBytes)
        return false;
    for (std::size_t i = 0; i < colours.size(); ++i) {
        const auto rgb = file.subspan(i * 3, 3);
        colours[i] = Pixel{rgb[0]} << 16 | Pixel{rgb[1]} << 8 | rgb[2];
    }
    return true;
}

void setPhysicsColours(GraphicsState& graphics)
{
    for (std::size_t value = 0; value < kPhysicsColours.size(); ++value) {
        graphics.physicsBaseColour[value] = kPhysicsColours[value];
        for (std::size_t i = 0; i < kShadeFactors.size(); ++i)
            graphics.physicsShades[value][i] = shade(kPhysicsColours[value], kShadeFactors[i]);
    }
}

std::optional<std::string> loadResources(const std::filesystem::path& workFolder,
                                         GraphicsState& graphics, Resources& resources)
{
    if (auto error = loadPalette(workFolder, graphics.colourTable))
        return error;
    setPhysicsColours(graphics);
    for (std::size_t value = 0; value < resources.physicsBitmaps.size(); ++value) {
        PixelImage drawn;
        if (auto error = loadBitmap(workFolder,
                                    decimalText(static_cast<std::uint32_t>(value)) + ".bmp", drawn))
            return error;
        resources.physicsBitmaps[value] = physicsPicture(drawn, graphics.physicsBaseColour[value]);
    }
    resources.editorColours = kEditorColours;
    for (std::size_t slot = 0; slot < resources.doorBitmaps.size(); ++slot) {
        const std::string name =
            "door" + decimalText(static_cast<std::uint32_t>(slot + 1)) + ".bmp";
        if (auto error = loadBitmap(workFolder, name, resources.doorBitmaps[slot]))
            return error;
    }
    return std::nullopt;
}

} // namespace velko
