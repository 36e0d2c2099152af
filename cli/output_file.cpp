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

// Where a path leads once links are followed, whether or not anything is there yet; nothing when
// they lead in a circle.
std::optional<fs::path> behindLinks(fs::path path)
{
    constexpr int kMostLinks = 40; // as many as Linux follows
    std::error_code error;
    for (int links = 0; links <= kMostLinks; ++links) {
        if (!fs::is_symlink(fs::symlink_status(path, error)))
            return path;
        path = path.parent_path() / fs::read_symlink(path, error);
    }
    return std::nullopt;
}

// A new file takes the place of the old one, for which the folder alone would have to be writable.
// But a file without write permission is one that its owner wants to keep: also root is refused.
bool isWriteProtected(const fs::path& path, fs::perms permissions)
{
    constexpr fs::perms kWrite =
        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    return (permissions & kWrite) == fs::perms::none
        || !std::ofstream(path, std::ios::binary | std::ios::app);
}

} // namespace

std::optional<std::string> writeFile(const fs::path& path, std::span<const std::uint8_t> bytes)
{
    if (path.filename().empty()) // nothing, or a folder
        return path.empty() ? "no file name given" : utf8FromPath(path) + ": is no regular file";
    const std::string name = utf8FromPath(path);
    const std::optional<fs::path> target = behindLinks(path);
    if (!target)
        return name + ": is a link that leads in a circle";
    std::error_code error;
    const fs::file_status old = fs::status(*target, error);
    if (fs::exists(old) && !fs::is_regular_file(old))
        return name + ": is no regular file";
    if (fs::exists(old) && isWriteProtected(*target, old.permissions()))
        return name + ": is write-protected";
    TemporaryFile temporary(*target);
    if (!temporary.write(bytes))
        return name + ": cannot be written";
    if (fs::exists(old))
        fs::permissions(temporary.path(), old.permissions(), error);
    if (!temporary.rename(*target))
        return name + ": cannot be written";
    return std::nullopt;
}

std::optional<std::string> writeFile(const fs::path& path, std::string_view text)
{
    return writeFile(path,
                     std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()));
}

} // namespace velko
