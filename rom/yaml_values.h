#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <variant>

namespace velko {

// Where the values of `data.yaml` go: consecutive fields of 8, 16 or 32 bits, the first of them
// next. A default target has no fields; what is stored past the last one is dropped.
class YamlTarget {
public:
    YamlTarget() = default;
    explicit YamlTarget(std::span<std::uint8_t> fields) : m_fields(fields) { }
    explicit YamlTarget(std::span<std::uint16_t> fields) : m_fields(fields) { }
    explicit YamlTarget(std::span<std::uint32_t> fields) : m_fields(fields) { }

    // Stores `value`, truncated to the field's width. The target stays where it is.
    void store(std::uint32_t value) const;
    // Moves on by one field.
    void advance();

private:
    std::variant<std::span<std::uint8_t>, std::span<std::uint16_t>, std::span<std::uint32_t>>
        m_fields;
};

// The number that a scalar means: hexadecimal behind "0x" (by parseHex's rule, so "0x" alone is
// 0), 0 when empty, the leading decimal digits of a text that begins with one (modulo 2^32).
// Returns nothing for any other text; a sign, for instance, is no value.
std::optional<std::uint32_t> yamlNumber(std::string_view scalar);

// Stores the scalar at `target`, which moves on inside a sequence. Returns false, changing
// nothing, when the scalar is no value.
bool parseValue(std::string_view scalar, bool inSequence, YamlTarget& target);

} // namespace velko
