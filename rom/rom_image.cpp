#include "rom/rom_image.h"

#include "rom/file_io.h"

#include <utility>

namespace velko {

void RomImage::setPath(std::filesystem::path path)
{
    m_path = std::move(path);
}

void RomImage::setBytes(std::vector<std::uint8_t> bytes)
{
    m_bytes = std::move(bytes);
}

bool RomImage::load()
{
    // Released before the new file is read: a failure must not leave the old game behind.
    m_bytes = {};
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
