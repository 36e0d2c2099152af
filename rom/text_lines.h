#pragma once

#include <istream>
#include <string>

namespace velko {

// Reads the next line of a text file that was opened as bytes. LF and CR LF both end a line on
// every platform and are no part of it; nothing else is trimmed, not even a CR at the file's end.
// The stream is no longer good() once the end was met, which a line break before it does not do.
inline std::string readLine(std::istream& file)
{
    std::string line;
    std::getline(file, line);
    if (file.good() && line.ends_with('\r'))
        line.pop_back();
    return line;
}

} // namespace velko
