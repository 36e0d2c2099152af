#include "rom/yaml_values.h"

#include "rom/number_text.h"

namespace velko {

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::uint32_t leadingDecimal(std::string_view text)
{
    std::uint32_t number = 0;
    for (const char c : text) {
        if (!isDigit(c))
            break;
        number = number * 10 + static_cast<std::uint32_t>(c - '0');
    }
    return number;
}

} // namespace

void YamlTarget::store(std::uint32_t value) const
{
    std::visit(
        [value](auto fields) {
            using Field = typename decltype(fields)::element_type;
            if (!fields.empty())
                fields.front() = static_cast<Field>(value);
        },
        m_fields);
}

void YamlTarget::advance()
{
    std::visit(
        [](auto& fields) {
            if (!fields.empty())
                fields = fields.subspan(1);
        },
        m_fields);
}

std::optional<std::uint32_t> yamlNumber(std::string_view scalar)
{
    if (scalar.starts_with("0x"))
        return parseHex(scalar.substr(2));
    if (scalar.empty())
        return 0;
    if (isDigit(scalar.front()))
        return leadingDecimal(scalar);
    return std::nullopt;
}

bool parseValue(std::string_view scalar, bool inSequence, YamlTarget& target)
{
    const auto number = yamlNumber(scalar);
    if (!number)
        return false;
    target.store(*number);
    if (inSequence)
        target.advance();
    return true;
}

} // namespace velko
