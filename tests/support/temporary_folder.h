#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <random>
#include <span>
#include <string>
#include <string_view>

namespace velko::test {

// A folder of its own for one test, removed with everything in it afterwards.
class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::random_device random;
        do {
            m_path = std::filesystem::temp_directory_path()
                / ("velko-test-" + std::to_string(random()) + std::to_string(random()));
        } while (!std::filesystem::create_directory(m_path));
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }

    // Writes a file below the folder, making its parent folders.
    std::filesystem::path write(const std::filesystem::path& name, std::string_view text) const
    {
        const std::filesystem::path file = m_path / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary)
            .write(text.data(), static_cast<std::streamsize>(text.size()));
        return file;
    }
    std::filesystem::path write(const std::filesystem::path& name,
                                std::span<const std::uint8_t> bytes) const
    {
        return write(name,
                     std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
    }

private:
    std::filesystem::path m_path;
};

} // namespace velko::test
