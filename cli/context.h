#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>
#include <string_view>

namespace velko {

// What the process ends with.
enum class ExitStatus : int {
    kFine = 0,
    kFindings = 1, // a check found something, or what was asked is refused; nothing was written
    kWrong = 2,    // wrong use, unreadable input, or a failed write; one line of error tells which
};

// What a verb works with: where paths lead, and where its words go.
class Context {
public:
    Context(std::filesystem::path workFolder, std::ostream& out, std::ostream& err)
        : m_workFolder(std::move(workFolder)), m_out(out), m_err(err)
    {
    }

    // The folder that holds `module.cfg`.
    const std::filesystem::path& workFolder() const { return m_workFolder; }
    // A path argument (UTF-8) as a path: a relative one starts at the work folder, as if the
    // program had been started there.
    std::filesystem::path path(std::string_view argument) const;

    // Standard output: what was asked for, and nothing else.
    std::ostream& out() const { return m_out; }
    // Standard error: the reason of a failure, and progress.
    std::ostream& err() const { return m_err; }

    // Writes the reason as one line "velko-cli: ..." to err(), control characters as blanks.
    // Returns kWrong, or the status given.
    ExitStatus fail(std::string_view reason, ExitStatus status = ExitStatus::kWrong) const;

private:
    std::filesystem::path m_workFolder;
    std::ostream& m_out;
    std::ostream& m_err;
};

// A text as part of one line: control characters, which a file name or a damaged file may hold,
// become blanks.
std::string oneLine(std::string_view text);

} // namespace velko
