#include "rom/utf8.h"

#include <cstddef>

namespace velko {

namespace {

bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

struct Utf8Character {
    char32_t character = 0;
    std::size_t bytes = 1;
};

// Reads the UTF-8 sequence of `bytes` (2 to 4) bytes that `text` starts with. Returns 0 when it is
// broken off, longer than its character needs, a surrogate, or past the last character.
char32_t decodeSequence(std::string_view text, std::size_t bytes)
{
    constexpr char32_t kLowest[] = {0x80, 0x800, 0x10000}; // by length: 2, 3, 4 bytes
    constexpr char32_t kHighest = 0x10FFFF;
    if (text.size() < bytes)
        return 0;
    char32_t character = static_cast<unsigned char>(text[0]) & (0x7FU >> bytes);
    for (const char byte : text.substr(1, bytes - 1)) {
        if (!isContinuation(byte))
            return 0;
        character = character << 6 | (static_cast<unsigned char>(byte) & 0x3FU);
    }
    const bool isSurrogate = character >= 0xD800 && character < 0xE000;
    if (character < kLowest[bytes - 2] || character > kHighest || isSurrogate)
        return 0;
    return character;
}

// The character that `text`, which is not empty, starts with. A byte that is no part of UTF-8
// counts as Latin-1, which older name lists are written in.
Utf8Character firstCharacter(std::string_view text)
{
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t bytes = lead >= 0xF0 && lead < 0xF8 ? 4
        : lead >= 0xE0 && lead < 0xF0                     ? 3
        : lead >= 0xC0 && lead < 0xE0                     ? 2
                                                          : 1;
    if (bytes > 1) {
        if (const char32_t character = decodeSequence(text, bytes))
            return {character, bytes};
    }
    return {lead, 1};
}

} // namespace

std::vector<char32_t> charactersOf(std::string_view text)
{
    std::vector<char32_t> characters;
    while (!text.empty()) {
        const Utf8Character first = firstCharacter(text);
        characters.push_back(first.character);
        text.remove_prefix(first.bytes);
    }
    return characters;
}

} // namespace velko
