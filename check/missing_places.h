#pragma once

#include "check/finding.h"

#include <utility>

namespace velko {

// What of a table lies past the end of the file, where all reads as filler: told once, with the
// first place and the number.
class MissingPlaces {
public:
    // `noun` is what they are called together: "byte".
    explicit MissingPlaces(std::string_view noun) : m_noun(noun) { }

    bool isEmpty() const { return m_count == 0; }
    // `text` starts the sentence: "The start of truck 5 lies".
    void add(std::optional<std::uint32_t> room, std::uint32_t place, std::string text)
    {
        if (m_count++ == 0)
            m_first = {FindingKind::kPastEndOfFile, room, place, std::move(text)};
    }
    void report(Findings& findings) const
    {
        if (isEmpty())
            return;
        findings.push_back(m_first);
        findings.back().text += " past the end of the file" + suchText(m_count, m_noun) + ".";
    }

private:
    std::string_view m_noun;
    std::uint32_t m_count = 0;
    Finding m_first;
};

} // namespace velko
