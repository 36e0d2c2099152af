#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace velko {

// Reads a patch from its front to its end. A read that finds too little, or a number that is too
// large, gives nothing and marks the reader as failed(); it stays so.
class PatchReader {
public:
    explicit PatchReader(std::span<const std::uint8_t> bytes) : m_rest(bytes) { }

    bool failed() const { return m_failed; }
    // What was not read yet.
    std::span<const std::uint8_t> rest() const { return m_rest; }

    // The next `count` bytes; empty when there are fewer.
    std::span<const std::uint8_t> take(std::size_t count)
    {
        if (count > m_rest.size()) {
            m_failed = true;
            return {};
        }
        const auto taken = m_rest.first(count);
        m_rest = m_rest.subspan(count);
        return taken;
    }
    // A number of `count` bytes (at most 4), the highest first.
    std::uint32_t bigEndian(std::size_t count)
    {
        std::uint32_t value = 0;
        for (const std::uint8_t byte : take(count))
            value = value << 8 | byte;
        return value;
    }
    // A number of 4 bytes, the lowest first.
    std::uint32_t littleEndian()
    {
        std::uint32_t value = 0;
        std::uint32_t shift = 0;
        for (const std::uint8_t byte : take(4)) {
            value |= std::uint32_t{byte} << shift;
            shift += 8;
        }
        return value;
    }
    // A number in groups of 7 bits, the lowest first; bit 7 marks the last. Each group but the
    // last counts one more than its bits say, so that every number has one spelling only. Numbers
    // of more than 32 bits fail.
    std::uint32_t number()
    {
        std::uint64_t value = 0;
        for (std::uint32_t shift = 0; shift < 35; shift += 7) {
            const auto byte = take(1);
            if (m_failed)
                return 0;
            value += std::uint64_t{byte[0] & 0x7Fu} << shift;
            if ((byte[0] & 0x80) != 0 && value <= 0xFFFFFFFF)
                return static_cast<std::uint32_t>(value);
            value += std::uint64_t{0x80} << shift;
        }
        m_failed = true;
        return 0;
    }

private:
    std::span<const std::uint8_t> m_rest;
    bool m_failed = false;
};

} // namespace velko
