#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace velko::test {

// Makes small .bmp files, right ones and wrong ones: a right header first, then whatever a test
// changes.
class BmpBuilder {
public:
    static constexpr std::size_t kHeadersSize = 54;

    BmpBuilder(std::uint32_t width, std::uint32_t height, std::uint16_t bitsPerPixel)
        : m_bytes(kHeadersSize)
    {
        m_bytes[0] = 'B';
        m_bytes[1] = 'M';
        setU32(10, kHeadersSize);
        setU32(14, 40);
        setU32(18, width);
        setU32(22, height);
        setU16(26, 1);
        setU16(28, bitsPerPixel);
    }

    // A file of `width` x `height` pixels of one colour, 24 bits each.
    static std::vector<std::uint8_t> flat24(std::uint32_t width, std::uint32_t height,
                                            std::uint32_t colour)
    {
        BmpBuilder bmp(width, height, 24);
        for (std::uint32_t y = 0; y < height; ++y) {
            for (std::uint32_t x = 0; x < width; ++x)
                bmp.add({static_cast<std::uint8_t>(colour), static_cast<std::uint8_t>(colour >> 8),
                         static_cast<std::uint8_t>(colour >> 16)});
            bmp.add(std::vector<std::uint8_t>(width % 4)); // 3 bytes a pixel, rows of 4 n
        }
        return bmp.bytes();
    }

    BmpBuilder& setByte(std::size_t offset, std::uint8_t value)
    {
        m_bytes[offset] = value;
        return *this;
    }
    BmpBuilder& setU16(std::size_t offset, std::uint32_t value)
    {
        setByte(offset, static_cast<std::uint8_t>(value));
        return setByte(offset + 1, static_cast<std::uint8_t>(value >> 8));
    }
    BmpBuilder& setU32(std::size_t offset, std::uint32_t value)
    {
        setU16(offset, value);
        return setU16(offset + 2, value >> 16);
    }
    BmpBuilder& add(const std::vector<std::uint8_t>& bytes)
    {
        m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end());
        return *this;
    }
    BmpBuilder& cutTo(std::size_t size)
    {
        m_bytes.resize(size);
        return *this;
    }

    const std::vector<std::uint8_t>& bytes() const { return m_bytes; }

private:
    std::vector<std::uint8_t> m_bytes;
};

} // namespace velko::test
