#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace velko {

// Builds a patch. The layouts are those that PatchReader reads.
class PatchWriter {
public:
    void byte(std::uint8_t value) { m_bytes.push_back(value); }
    void text(std::string_view text) { m_bytes.insert(m_bytes.end(), text.begin(), text.end()); }
    void bytes(std::span<const std::uint8_t> bytes)
    {
        m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end());
    }
    void bigEndian(std::size_t value, std::size_t count)
    {
        while (count-- > 0)
            byte(static_cast<std::uint8_t>(value >> (8 * count)));
    }
    void littleEndian(std::uint32_t value)
    {
        for (std::uint32_t shift = 0; shift < 32; shift += 8)
            byte(static_cast<std::uint8_t>(value >> shift));
    }
    void number(std::size_t value)
    {
        for (; value >= 0x80; value = (value >> 7) - 1)
            byte(value & 0x7F);
        byte(static_cast<std::uint8_t>(0x80 | value));
    }
    // How many bytes number() takes.
    static std::size_t numberLength(std::size_t value)
    {
        std::size_t length = 1;
        for (; value >= 0x80; value = (value >> 7) - 1)
            ++length;
        return length;
    }

    const std::vector<std::uint8_t>& patch() const { return m_bytes; }

private:
    std::vector<std::uint8_t> m_bytes;
};

} // namespace velko
