#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace velko {

// Takes the lines off a text, one after the other. LF and CR LF both end a line on every platform
// and are no part of it; nothing else is trimmed, not even a CR at the text's end. What follows
// the last line break is a line too, even when it is empty.
class TextLines {
public:
    TextLines() = default; // no lines at all
    // The text must outlive the lines.
    explicit TextLines(std::string_view text) : m_rest(text) { }

    // The next line, or nothing once the end of the text was met.
    std::optional<std::string_view> next()
    {
        if (!m_rest)
            return std::nullopt;
        const std::size_t lineFeed = m_rest->find('\n');
        std::string_view line = m_rest->substr(0, lineFeed);
        if (lineFeed == std::string_view::npos) {
            m_rest.reset();
            return line;
        }
        m_rest->remove_prefix(lineFeed + 1);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        return line;
    }

private:
    std::optional<std::string_view> m_rest;
};

} // namespace velko
