#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace velko {

// A pixel is 0x00RRGGBB.
using Pixel = std::uint32_t;
// Four colours, indexed by the value of a tile's pixel.
using ColourSet4 = std::array<Pixel, 4>;

// The most pixels an image may have (256 MB): far above any view, far below what a wild size in
// a file could ask for.
inline constexpr std::uint32_t kLargestImage = 1U << 26;

// A picture in memory: row-major, top row first, width x height pixels.
class PixelImage {
public:
    PixelImage() = default;
    PixelImage(std::uint32_t width, std::uint32_t height, Pixel fillPixel = 0);

    std::uint32_t width() const { return m_width; }
    std::uint32_t height() const { return m_height; }
    bool empty() const { return m_pixels.empty(); }
    std::span<Pixel> pixels() { return m_pixels; }
    std::span<const Pixel> pixels() const { return m_pixels; }
    Pixel* row(std::uint32_t y) { return m_pixels.data() + std::size_t{y} * m_width; }
    const Pixel* row(std::uint32_t y) const { return m_pixels.data() + std::size_t{y} * m_width; }
    // The pixel at column x, row y; both must lie inside.
    Pixel at(std::uint32_t x, std::uint32_t y) const { return row(y)[x]; }

    // Gives the image a new size; every pixel becomes 0. Memory is kept where it suffices. A size
    // of more than kLargestImage pixels gives an image of 0 x 0.
    void allocate(std::uint32_t height, std::uint32_t width);

    bool operator==(const PixelImage&) const = default;

private:
    std::uint32_t m_width = 0;
    std::uint32_t m_height = 0;
    std::vector<Pixel> m_pixels;
};

// Sets every pixel.
void fill(PixelImage& image, Pixel pixel);
// Sets every pixel of a block whose corner is at row `top`, column `left`, clipped to the image.
void fillRectangle(PixelImage& image, int top, int left, int height, int width, Pixel pixel);
// Draws the rows `top` and `top` + height and the columns `left` and `left` + width, corners
// included (so the outline is one pixel larger than height x width), clipped to the image. A
// negative height or width draws nothing.
void drawOutline(PixelImage& image, int top, int left, int height, int width, Pixel pixel);
// A black line around a two-pixel white band, height x width pixels over all. Of a frame too
// small for the band only the lines that fit are drawn.
void drawSelectionFrame(PixelImage& image, int top, int left, int height, int width);

// Scales `source` to the size of `destination`. Equal sizes copy. Otherwise bilinear: source
// position = index x (source size / destination size) in single precision, the four neighbours
// mixed first horizontally, then vertically, each channel truncated; a neighbour beyond the right
// or bottom edge counts as black, so edges darken. Areas of one colour keep it exactly. An empty
// source gives black.
void copyScaled(PixelImage& destination, const PixelImage& source);
// The same without mixing: the pixel at the truncated position.
void copyScaledNearest(PixelImage& destination, const PixelImage& source);

// Draws `source` with its corner at column x, row y, clipped on all sides. `transparency` 1 (or
// more) draws nothing, 0 (or less) copies, in between each channel is
// source x (1 - t) + destination x t, truncated. The images must not be the same one.
void blit(PixelImage& destination, const PixelImage& source, int x, int y,
          float transparency = 0.0F);

// Multiplies every pixel, channel by channel, by `colour` / 255, truncated.
void tintImage(PixelImage& image, Pixel colour);

// Exchanges red and blue: turns a text colour 0x00BBGGRR into a pixel and back.
constexpr Pixel swapRedAndBlue(Pixel pixel)
{
    return (pixel & 0xFF00) | ((pixel & 0xFF) << 16) | ((pixel >> 16) & 0xFF);
}

} // namespace velko
