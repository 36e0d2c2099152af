#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velko {

// The largest file that loadFile reads, in bytes. An odd bound, kept as it is.
inline constexpr std::uint32_t kLargestFile = 0x4EEFFFBC;

// Whether a file of `size` bytes is neither empty (nor of unknown size, -1) nor too large.
constexpr bool isLoadableSize(std::int64_t size)
{
    return size > 0 && size <= kLargestFile;
}

// Whether there is a file of bytes at `path`: no folder, pipe or device, and not nothing.
bool isRegularFile(const std::filesystem::path& path);

// Reads a whole file. Returns nothing when it cannot be opened or read, is empty, is no regular
// file, or is larger than kLargestFile.
std::optional<std::vector<std::uint8_t>> loadFile(const std::filesystem::path& path);

// Reads a whole text file, bytes as they are. Returns nothing where loadFile() does, but an empty
// file is an empty text.
std::optional<std::string> loadTextFile(const std::filesystem::path& path);

// Makes `bytes` the file's whole content. An old file is written over where it lies, and stays as
// it was when the new one does not fit on the disk. What is there and is no regular file is left
// alone. A failure is not reported.
void saveFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);

// For the start of a program: a file that may not become as large as it should is a failed write
// from then on, where some platforms end the program at once.
void failWritesOfTooLargeFiles();

// Paths and texts are UTF-8 at the program's edges, on every platform. What cannot be converted
// (a file name that is no text) becomes empty.
std::filesystem::path pathFromUtf8(std::string_view text);
std::string utf8FromPath(const std::filesystem::path& path);

} // namespace velko
