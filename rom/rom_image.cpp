#include "rom/rom_image.h"

#include "rom/file_io.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <utility>

namespace velko {

void RomImage::setPath(std::filesystem::path path)
{
    m_path = std::move(path);
}

void RomImage::setBytes(std::vector<std::uint8_t> bytes)
{
    m_bytes = std::move(bytes);
    m_droppedWrites = 0;
}

void RomImage::readBlock(std::uint32_t offset, std::span<std::uint8_t> block) const
{
    constexpr std::uint64_t kOffsets = 0x100000000;
    while (!block.empty()) {
        // The part before offsets wrap, which for any but a huge block is all of it.
        const auto piece = block.first(
            static_cast<std::size_t>(std::min<std::uint64_t>(block.size(), kOffsets - offset)));
        const std::size_t inside =
            offset < m_bytes.size() ? std::min(piece.size(), m_bytes.size() - offset) : 0;
        if (inside > 0)
            std::copy_n(m_bytes.data() + offset, inside, piece.data());
        std::fill_n(piece.data() + inside, piece.size() - inside, kPastEnd);
        block = block.subspan(piece.size());
        offset = 0;
    }
}

void RomImage::moveBytes(std::uint32_t to, std::uint32_t from, std::uint32_t count)
{
    const std::uint32_t kept = to < size() ? std::min(count, size() - to) : 0;
    m_droppedWrites += count - kept;
    if (kept == 0)
        return;
    const std::uint32_t inside = from < size() ? std::min(kept, size() - from) : 0;
    if (inside != 0)
        std::memmove(&m_bytes[to], &m_bytes[from], inside);
    std::fill_n(m_bytes.begin() + to + inside, kept - inside, kPastEnd);
}

bool RomImage::load()
{
    // Released before the new file is read: a failure must not leave the old game behind.
    setBytes({});
    auto file = loadFile(m_path);
    if (!file)
        return false;
    m_bytes = std::move(*file);
    return true;
}

void RomImage::save() const
{
    saveFile(m_path, m_bytes);
}

} // namespace velko
