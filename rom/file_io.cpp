#include "rom/file_io.h"

#include <fstream>
#include <new>
#include <system_error>

namespace velko {

namespace {

// Gives `bytes` its size. Memory may really run short here: a file can be over a gigabyte.
template <typename Bytes> bool allocate(Bytes& bytes, std::uint32_t size)
{
    try {
        bytes.resize(size);
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

enum class EmptyFile { kRefused, kTaken };

// Reads a whole file into a container of bytes.
template <typename Bytes>
std::optional<Bytes> readWhole(const std::filesystem::path& path, EmptyFile emptyFile)
{
    // Some platforms open a folder like a file, and a pipe would wait for a writer.
    if (!isRegularFile(path))
        return std::nullopt;
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    if (!file)
        return std::nullopt;
    const std::streamoff size = file.tellg();
    if (size == 0 && emptyFile == EmptyFile::kTaken)
        return Bytes();
    if (!isLoadableSize(size))
        return std::nullopt;
    file.seekg(0);
    Bytes bytes;
    if (!file || !allocate(bytes, static_cast<std::uint32_t>(size)))
        return std::nullopt;
    file.read(reinterpret_cast<char*>(bytes.data()), size);
    if (!file)
        return std::nullopt;
    return bytes;
}

} // namespace

bool isRegularFile(const std::filesystem::path& path)
{
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

std::optional<std::vector<std::uint8_t>> loadFile(const std::filesystem::path& path)
{
    return readWhole<std::vector<std::uint8_t>>(path, EmptyFile::kRefused);
}

std::optional<std::string> loadTextFile(const std::filesystem::path& path)
{
    return readWhole<std::string>(path, EmptyFile::kTaken);
}

void saveFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
}

std::filesystem::path pathFromUtf8(std::string_view text)
{
    // Where paths are no bytes, a text that is not UTF-8 cannot be converted.
    try {
        return std::filesystem::path(std::u8string(text.begin(), text.end()));
    } catch (const std::system_error&) {
        return {};
    }
}

std::string utf8FromPath(const std::filesystem::path& path)
{
    try {
        const std::u8string text = path.u8string();
        return std::string(text.begin(), text.end());
    } catch (const std::system_error&) {
        return {};
    }
}

} // namespace velko
