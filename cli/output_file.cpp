#include "cli/output_file.h"

#include "rom/file_io.h"
#include "rom/number_text.h"

#include <fstream>
#include <random>
#include <system_error>

namespace velko {

namespace {

namespace fs = std::filesystem;

// Removed again unless it was renamed.
class TemporaryFile {
public:
    explicit TemporaryFile(const fs::path& besides)
    {
        std::random_device random;
        std::error_code error;
        do {
            m_path = besides;
            m_path += "." + hexText(random()) + ".tmp";
        } while (fs::exists(m_path, error));
    }
    ~TemporaryFile()
    {
        std::error_code ignored;
        if (!m_renamed)
            fs::remove(m_path, ignored);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const fs::path& path() const { return m_path; }
    bool write(std::span<const std::uint8_t> bytes) const
    {
        std::ofstream file(m_path, std::ios::binary | std::ios::trunc);
        file.write(reinterpret_cast<const char*>(bytes.data()),
                   static_cast<std::streamsize>(bytes.size()));
        file.close(); // what was buffered may fail to be written, too
        return !file.fail();
    }
    bool rename(const fs::path& target)
    {
        std::error_code error;
        fs::rename(m_path, target, error);
        m_renamed = !error;
        return m_renamed;
    }

private:
    fs::path m_path;
    bool m_renamed = false;
};

} // namespace

std::optional<std::string> writeFile(const fs::path& path, std::span<const std::uint8_t> bytes)
{
    if (path.filename().empty()) // nothing, or a folder
        return path.empty() ? "no file name given" : utf8FromPath(path) + ": is no regular file";
    const std::string name = utf8FromPath(path);
    std::error_code error;
    fs::path target = fs::canonical(path, error); // fails where nothing is there yet
    if (error)
        target = path;
    const fs::file_status old = fs::status(target, error);
    if (fs::exists(old) && !fs::is_regular_file(old))
        return name + ": is no regular file";
    TemporaryFile temporary(target);
    if (!temporary.write(bytes))
        return name + ": cannot be written";
    if (fs::exists(old))
        fs::permissions(temporary.path(), old.permissions(), error);
    if (!temporary.rename(target))
        return name + ": cannot be written";
    return std::nullopt;
}

std::optional<std::string> writeFile(const fs::path& path, std::string_view text)
{
    return writeFile(path,
                     std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()));
}

} // namespace velko
