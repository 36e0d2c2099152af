#include "rom/file_io.h"

#include <algorithm>
#include <csignal>
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

// Writes over a file of `oldSize` bytes where it lies. Its end comes first: when the disk is full
// or the file may not be that long, that fails before anything is lost.
void overwrite(std::fstream& file, const std::filesystem::path& path, std::uintmax_t oldSize,
               std::span<const std::uint8_t> bytes)
{
    const auto write = [&file](std::uintmax_t offset, std::span<const std::uint8_t> piece) {
        file.seekp(static_cast<std::streamoff>(offset));
        file.write(reinterpret_cast<const char*>(piece.data()),
                   static_cast<std::streamsize>(piece.size()));
        return static_cast<bool>(file.flush());
    };
    const auto start = static_cast<std::size_t>(
        std::min<std::uintmax_t>(oldSize, bytes.empty() ? 0 : bytes.size() - 1));
    const bool fits = write(start, bytes.subspan(start));
    if (fits)
        write(0, bytes.first(start));
    file.close();
    std::error_code ignored;
    std::filesystem::resize_file(path, fits ? bytes.size() : oldSize, ignored);
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
    std::error_code error;
    const auto old = std::filesystem::status(path, error);
    const bool exists = std::filesystem::exists(old);
    if (exists && !std::filesystem::is_regular_file(old))
        return; // a pipe would wait for a reader
    if (exists) {
        std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
        const std::uintmax_t size = std::filesystem::file_size(path, error);
        if (file && !error)
            return overwrite(file, path, size, bytes);
    }
    // A new file, or one that may be written but not read.
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
}

void failWritesOfTooLargeFiles()
{
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN);
#endif
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
