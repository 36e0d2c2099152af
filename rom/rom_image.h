#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

namespace velko {

// Which 16 KB bank of the file sits in each half of the cartridge window: element 0 in
// $8000-$BFFF, element 1 in $C000-$FFFF.
using BankPair = std::array<std::uint8_t, 2>;

inline constexpr std::uint32_t kHeaderSize = 16; // the iNES header before the program data
inline constexpr std::uint32_t kBankSize = 0x4000;

// Returns the file offset of a CPU address. Only the low 16 bits of `cpuAddress` count; bit 14
// chooses the slot, so $0000-$7FFF map like $8000-$FFFF. No trainer is allowed for.
constexpr std::uint32_t cpuToFileOffset(BankPair banks, std::uint32_t cpuAddress)
{
    const std::uint32_t slot = (cpuAddress & 0x7FFF) >> 14;
    return banks[slot] * kBankSize + (cpuAddress & 0x3FFF) + kHeaderSize;
}

// The whole ROM file in memory. Every byte the editor shows or changes passes through here.
// Offset 0 is the first byte of the 16-byte iNES header, which is kept and never interpreted.
// The image keeps its size while it is open. Nothing throws or reports: a wild pointer in a ROM
// must read as filler, never stop a page.
class RomImage {
public:
    static constexpr std::uint8_t kPastEnd = 0x55;

    // Returns the byte at `offset`, or kPastEnd when `offset` >= size().
    std::uint8_t readByte(std::uint32_t offset) const
    {
        return offset < m_bytes.size() ? m_bytes[offset] : kPastEnd;
    }
    // Fills `block` with what readByte() gives for `offset` and the offsets after it, which wrap at
    // 32 bits.
    void readBlock(std::uint32_t offset, std::span<std::uint8_t> block) const;
    // Stores `value` at `offset`. A write at or past size() is dropped.
    void writeByte(std::uint32_t offset, std::uint8_t value)
    {
        if (offset < m_bytes.size())
            m_bytes[offset] = value;
        else
            ++m_droppedWrites;
    }

    // Copies `count` bytes from `from` to `to`, as if through a buffer, so the two ranges may
    // overlap. Bytes past the end read as kPastEnd; those that would land there are dropped.
    void moveBytes(std::uint32_t to, std::uint32_t from, std::uint32_t count);

    // How many bytes were dropped since the image was last replaced: other than 0, what was asked
    // for is done in part or not at all. Windows go on all the same; what runs unattended asks.
    std::uint64_t droppedWrites() const { return m_droppedWrites; }

    // The file that was opened or last saved as; empty before the first file dialog.
    const std::filesystem::path& path() const { return m_path; }
    void setPath(std::filesystem::path path);

    std::span<const std::uint8_t> bytes() const { return m_bytes; }
    std::uint32_t size() const { return static_cast<std::uint32_t>(m_bytes.size()); }

    // Replaces the whole image, header included.
    void setBytes(std::vector<std::uint8_t> bytes);
    // Releases the image, then reads path(). On failure returns false and the image is empty.
    [[nodiscard]] bool load();
    // Writes the image to path(), creating or truncating it. A failed write is not reported.
    void save() const;

private:
    std::filesystem::path m_path;
    std::vector<std::uint8_t> m_bytes;
    std::uint64_t m_droppedWrites = 0;
};

} // namespace velko
