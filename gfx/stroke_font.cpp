#include "gfx/stroke_font.h"

#include <array>
#include <charconv>
#include <cstddef>

namespace velko {

namespace {

constexpr char32_t kFirst = U'!';
constexpr char32_t kLast = U'~';

constexpr StrokePath kHollowBox = "M1 14 L9 14 L9 0 L1 0 L1 14";

// One line per character from '!' to '~'. Horizontal and vertical lines, and curves that end in
// one of these directions, are put on whole pixels when they are drawn.
// clang-format off
constexpr std::array<StrokePath, kLast - kFirst + 1> kStrokes = {
    /* ! */ "M5 14 L5 4.8 M5 0 L5 0",
    /* " */ "M2.5 14 L2.5 10.5 M7.5 14 L7.5 10.5",
    /* # */ "M3 13.5 L3 0.5 M7 13.5 L7 0.5 M0 9.5 L10 9.5 M0 4.5 L10 4.5",
    /* $ */ "M9.5 10 Q8.5 12 5 12 Q0 12 0 9.5 Q0 7.6 3.6 7.2 L6.4 6.8 Q10 6.4 10 4.5 Q10 2 5 2 "
            "Q1.5 2 0.5 4 M5 14 L5 12 M5 2 L5 0",
    /* % */ "M9.5 13 L0.5 1 M2 14 Q4 14 4 12.2 L4 11.8 Q4 10 2 10 Q0 10 0 11.8 L0 12.2 Q0 14 2 14 "
            "M8 4 Q10 4 10 2.2 L10 1.8 Q10 0 8 0 Q6 0 6 1.8 L6 2.2 Q6 4 8 4",
    /* & */ "M10 0 L2.2 9 Q1 10.4 1 11.4 Q1 14 4 14 Q7 14 7 11.4 Q7 9.6 4 7.8 Q0 5.6 0 3.6 "
            "Q0 0 4.2 0 Q8.4 0 9.6 6",
    /* ' */ "M5 14 L5 10.5",
    /* ( */ "M7 14 Q3 10.5 3 6 L3 4 Q3 -0.5 7 -4",
    /* ) */ "M3 14 Q7 10.5 7 6 L7 4 Q7 -0.5 3 -4",
    /* * */ "M5 13.5 L5 6.5 M1.6 11.8 L8.4 8.2 M8.4 11.8 L1.6 8.2",
    /* + */ "M5 10.5 L5 1.5 M0 6 L10 6",
    /* , */ "M5.2 0.2 L3.8 -3",
    /* - */ "M1.5 5.5 L8.5 5.5",
    /* . */ "M5 0 L5 0",
    /* / */ "M9.5 14 L0.5 -1",
    /* 0 */ "M5 14 Q10 14 10 9 L10 5 Q10 0 5 0 Q0 0 0 5 L0 9 Q0 14 5 14",
    /* 1 */ "M1.2 11 L5 14 L5 0 M1 0 L9 0",
    /* 2 */ "M0 10.6 Q0.4 14 5 14 Q10 14 10 10.4 Q10 8 7 5.4 L0.6 0 L10 0",
    /* 3 */ "M0.3 11.4 Q1.2 14 5 14 Q10 14 10 10.8 Q10 7.6 5.6 7.6 L3.6 7.6 M5.6 7.6 "
            "Q10 7.6 10 3.8 Q10 0 5 0 Q1 0 0 3",
    /* 4 */ "M7.5 0 L7.5 14 L0 3.6 L10 3.6",
    /* 5 */ "M9.4 14 L1 14 L0.5 7.6 Q2 9 5 9 Q10 9 10 4.5 Q10 0 5 0 Q1 0 0 2.8",
    /* 6 */ "M9.2 12.4 Q8 14 5.4 14 Q0 14 0 7 L0 5 Q0 0 5 0 Q10 0 10 4.3 Q10 8.6 5.2 8.6 "
            "Q1.2 8.6 0 5.4",
    /* 7 */ "M0 14 L10 14 Q4.6 8 4 0",
    /* 8 */ "M5 14 Q9.6 14 9.6 10.8 Q9.6 7.6 5 7.6 Q0.4 7.6 0.4 10.8 Q0.4 14 5 14 M5 7.6 "
            "Q10 7.6 10 3.8 Q10 0 5 0 Q0 0 0 3.8 Q0 7.6 5 7.6",
    /* 9 */ "M0.8 1.6 Q2 0 4.6 0 Q10 0 10 7 L10 9 Q10 14 5 14 Q0 14 0 9.7 Q0 5.4 4.8 5.4 "
            "Q8.8 5.4 10 8.6",
    /* : */ "M5 8.5 L5 8.5 M5 0.5 L5 0.5",
    /* ; */ "M5 8.5 L5 8.5 M5.2 0.2 L3.8 -3",
    /* < */ "M9 11 L1 6 L9 1",
    /* = */ "M0.5 8.4 L9.5 8.4 M0.5 3.6 L9.5 3.6",
    /* > */ "M1 11 L9 6 L1 1",
    /* ? */ "M0.4 11 Q1.2 14 5 14 Q9.6 14 9.6 10.8 Q9.6 8.8 7 7.4 Q5 6.4 5 4.6 M5 0 L5 0",
    /* @ */ "M9.5 1.6 Q8 0 5.2 0 Q0 0 0 7 Q0 14 5.2 14 Q10 14 10 8.6 Q10 4 8.6 4 Q7 4 7 6 L7 10 "
            "M7 7 Q7 10 5.2 10 Q3.2 10 3.2 7.4 L3.2 6.6 Q3.2 4 5.2 4 Q7 4 7 7",
    /* A */ "M0 0 L4.7 14 L5.3 14 L10 0 M1.6 4.4 L8.4 4.4",
    /* B */ "M0 0 L0 14 L5.4 14 Q9.5 14 9.5 10.8 Q9.5 7.6 5.4 7.6 L0 7.6 M5.4 7.6 Q10 7.6 10 3.8 "
            "Q10 0 5.4 0 L0 0",
    /* C */ "M10 10.6 Q9.4 14 5.2 14 Q0 14 0 8.5 L0 5.5 Q0 0 5.2 0 Q9.4 0 10 3.4",
    /* D */ "M0 0 L0 14 L4.4 14 Q10 14 10 8.5 L10 5.5 Q10 0 4.4 0 L0 0",
    /* E */ "M10 14 L0 14 L0 0 L10 0 M0 7.4 L8.6 7.4",
    /* F */ "M10 14 L0 14 L0 0 M0 7 L8.6 7",
    /* G */ "M9.8 11 Q9 14 5.2 14 Q0 14 0 8.5 L0 5.5 Q0 0 5.2 0 Q10 0 10 4 L10 6.4 L6 6.4",
    /* H */ "M0 0 L0 14 M10 0 L10 14 M0 7.2 L10 7.2",
    /* I */ "M1.5 14 L8.5 14 M5 14 L5 0 M1.5 0 L8.5 0",
    /* J */ "M3 14 L9 14 L9 4.6 Q9 0 4.6 0 Q0.8 0 0 3.2",
    /* K */ "M0 0 L0 14 M9.6 14 L0 5.2 M3.4 8.2 L10 0",
    /* L */ "M0 14 L0 0 L10 0",
    /* M */ "M0 0 L0 14 L5 7 L10 14 L10 0",
    /* N */ "M0 0 L0 14 L10 0 L10 14",
    /* O */ "M5 14 Q10 14 10 8.4 L10 5.6 Q10 0 5 0 Q0 0 0 5.6 L0 8.4 Q0 14 5 14",
    /* P */ "M0 0 L0 14 L5.6 14 Q10 14 10 10 Q10 6 5.6 6 L0 6",
    /* Q */ "M5 14 Q10 14 10 8.4 L10 5.6 Q10 0 5 0 Q0 0 0 5.6 L0 8.4 Q0 14 5 14 M6.2 3.8 L10 -0.6",
    /* R */ "M0 0 L0 14 L5.6 14 Q10 14 10 10.2 Q10 6.4 5.6 6.4 L0 6.4 M5.4 6.4 L10 0",
    /* S */ "M9.6 11 Q8.8 14 5 14 Q0 14 0 10.6 Q0 8 3.6 7.4 L6.4 6.8 Q10 6.2 10 3.5 Q10 0 5 0 "
            "Q0.9 0 0 3.2",
    /* T */ "M0 14 L10 14 M5 14 L5 0",
    /* U */ "M0 14 L0 5 Q0 0 5 0 Q10 0 10 5 L10 14",
    /* V */ "M0 14 L5 0 L10 14",
    /* W */ "M0 14 L2.2 0 L5 9.4 L7.8 0 L10 14",
    /* X */ "M0 14 L10 0 M10 14 L0 0",
    /* Y */ "M0 14 L5 6.4 L10 14 M5 6.4 L5 0",
    /* Z */ "M0 14 L10 14 L0 0 L10 0",
    /* [ */ "M7.5 14 L3.5 14 L3.5 -4 L7.5 -4",
    /* \ */ "M0.5 14 L9.5 -1",
    /* ] */ "M2.5 14 L6.5 14 L6.5 -4 L2.5 -4",
    /* ^ */ "M1.5 9.5 L5 14 L8.5 9.5",
    /* _ */ "M0 -3 L10 -3",
    /* ` */ "M3.5 14 L6 11.5",
    /* a */ "M1 9.4 Q2.4 10 5 10 Q10 10 10 6.4 L10 0 M10 5.2 L4.2 5.2 Q0 5.2 0 2.6 Q0 0 4.2 0 "
            "Q8.6 0 10 2.6",
    /* b */ "M0 14 L0 0 M0 5 Q0 10 5.2 10 Q10 10 10 5.6 L10 4.4 Q10 0 5.2 0 Q0 0 0 5",
    /* c */ "M9.8 7.2 Q9 10 5.2 10 Q0 10 0 5.6 L0 4.4 Q0 0 5.2 0 Q9 0 9.8 2.8",
    /* d */ "M10 14 L10 0 M10 5 Q10 10 4.8 10 Q0 10 0 5.6 L0 4.4 Q0 0 4.8 0 Q10 0 10 5",
    /* e */ "M0 5 L10 5 Q10 10 5 10 Q0 10 0 5.4 L0 4.6 Q0 0 5.2 0 Q8 0 9.4 0.7",
    /* f */ "M9.6 13.6 Q8.8 14 7.6 14 Q4 14 4 10.6 L4 0 M0.5 9 L9 9",
    /* g */ "M10 10 L10 -0.5 Q10 -4 5 -4 Q1.8 -4 0.6 -3 M10 5 Q10 10 4.8 10 Q0 10 0 5.6 L0 4.4 "
            "Q0 0 4.8 0 Q10 0 10 5",
    /* h */ "M0 14 L0 0 M0 5.5 Q0 10 5.2 10 Q10 10 10 6 L10 0",
    /* i */ "M1.5 10 L5 10 L5 0 M1 0 L9 0 M5 14 L5 14",
    /* j */ "M2.5 10 L7 10 L7 -0.4 Q7 -4 3.6 -4 Q1.4 -4 0.6 -3.4 M7 14 L7 14",
    /* k */ "M0 14 L0 0 M9.4 10 L0 3.6 M3.6 6 L10 0",
    /* l */ "M1.5 14 L5 14 L5 3 Q5 0 7.6 0 L9 0",
    /* m */ "M0 0 L0 10 M0 7 Q0 10 2.6 10 Q5 10 5 7 L5 0 M5 7 Q5 10 7.6 10 Q10 10 10 7 L10 0",
    /* n */ "M0 10 L0 0 M0 5.5 Q0 10 5.2 10 Q10 10 10 6 L10 0",
    /* o */ "M5 10 Q10 10 10 5.6 L10 4.4 Q10 0 5 0 Q0 0 0 4.4 L0 5.6 Q0 10 5 10",
    /* p */ "M0 10 L0 -4 M0 5 Q0 10 5.2 10 Q10 10 10 5.6 L10 4.4 Q10 0 5.2 0 Q0 0 0 5",
    /* q */ "M10 10 L10 -4 M10 5 Q10 10 4.8 10 Q0 10 0 5.6 L0 4.4 Q0 0 4.8 0 Q10 0 10 5",
    /* r */ "M1 10 L1 0 M1 5 Q1.6 10 6.4 10 Q8.4 10 9.8 8.8",
    /* s */ "M9.2 8.4 Q8.2 10 5 10 Q0 10 0 7.6 Q0 5.6 3.6 5.2 L6.4 4.8 Q10 4.4 10 2.4 Q10 0 5 0 "
            "Q1.4 0 0.4 1.8",
    /* t */ "M4 13 L4 3.6 Q4 0 7.4 0 Q8.8 0 9.6 0.5 M0.5 10 L9 10",
    /* u */ "M0 10 L0 4.4 Q0 0 4.8 0 Q10 0 10 4.6 M10 10 L10 0",
    /* v */ "M0 10 L5 0 L10 10",
    /* w */ "M0 10 L2.3 0 L5 7.4 L7.7 0 L10 10",
    /* x */ "M0 10 L10 0 M10 10 L0 0",
    /* y */ "M0 10 L5 0.3 M10 10 L4.5 -1.6 Q3.4 -4 0.8 -4",
    /* z */ "M0.3 10 L9.7 10 L0.3 0 L9.7 0",
    /* { */ "M8 14 Q5 14 5 11.5 L5 8 Q5 5 2 5 Q5 5 5 2 L5 -1.5 Q5 -4 8 -4",
    /* | */ "M5 14 L5 -4",
    /* } */ "M2 14 Q5 14 5 11.5 L5 8 Q5 5 8 5 Q5 5 5 2 L5 -1.5 Q5 -4 2 -4",
    /* ~ */ "M0.3 4.8 Q1 7 3 7 Q4.4 7 5 6 Q5.6 5 7 5 Q9 5 9.7 7.2",
};
// clang-format on

// What the letters from U+00C0 on look like without their accents; '?' marks those that are no
// letter of ours.
constexpr char32_t kFirstAccented = 0xC0;
constexpr std::string_view kBaseLetters =
    "AAAAAA?CEEEEIIIIDNOOOOOxOUUUUY??aaaaaa?ceeeeiiiidnooooo?ouuuuy?y";

class PathReader {
public:
    explicit PathReader(StrokePath path) : m_rest(path) { }

    std::vector<Stroke> strokes()
    {
        std::vector<Stroke> result;
        Point pen;
        while (const char command = nextCommand()) {
            const Point first = nextPoint();
            const Point end = command == 'Q' ? nextPoint() : first;
            if (command != 'M')
                result.push_back({pen, first, end});
            pen = end;
        }
        return result;
    }

private:
    void skipBlanks()
    {
        while (m_rest.starts_with(' '))
            m_rest.remove_prefix(1);
    }
    // 0 at the end.
    char nextCommand()
    {
        skipBlanks();
        if (m_rest.empty())
            return 0;
        const char command = m_rest.front();
        m_rest.remove_prefix(1);
        return command;
    }
    float nextNumber()
    {
        skipBlanks();
        float value = 0;
        const auto read = std::from_chars(m_rest.data(), m_rest.data() + m_rest.size(), value);
        m_rest.remove_prefix(static_cast<std::size_t>(read.ptr - m_rest.data()));
        return value;
    }
    Point nextPoint()
    {
        const float x = nextNumber();
        return {x, nextNumber()};
    }

    StrokePath m_rest;
};

} // namespace

StrokePath strokesOf(char32_t character)
{
    constexpr char32_t kNoBreakSpace = 0xA0;
    if (character <= U' ' || (character >= 0x7F && character <= kNoBreakSpace))
        return {};
    if (character >= kFirstAccented && character < kFirstAccented + kBaseLetters.size()) {
        const char base = kBaseLetters[character - kFirstAccented];
        return base == '?' ? kHollowBox : strokesOf(static_cast<char32_t>(base));
    }
    return character <= kLast ? kStrokes[character - kFirst] : kHollowBox;
}

std::vector<Stroke> readStrokes(StrokePath path)
{
    return PathReader(path).strokes();
}

} // namespace velko
