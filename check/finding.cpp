#include "check/finding.h"

#include "rom/number_text.h"

#include <array>

namespace velko {

namespace {

struct Rule {
    std::string_view code;
    Severity severity;
};

// In the order of FindingKind.
constexpr std::array<Rule, kFindingKinds> kRules = {{
    {"past-end-of-file", Severity::kError},
    {"pointer-outside-region", Severity::kError},
    {"block-past-region", Severity::kError},
    {"unterminated-list", Severity::kError},
    {"negative-free-space", Severity::kError},
    {"block-in-free-space", Severity::kWarning},
    {"overlapping-blocks", Severity::kWarning},
    {"gap", Severity::kNote},
    {"sizes-differ", Severity::kWarning},
    {"layout-past-screen-list", Severity::kWarning},
    {"screen-out-of-range", Severity::kError},
    {"tile32-out-of-range", Severity::kWarning},
    {"entrance-outside-room", Severity::kError},
    {"exit-to-missing-room", Severity::kError},
    {"exit-to-unset-entrance", Severity::kWarning},
    {"unreachable-room", Severity::kNote},
    {"unreachable-group", Severity::kNote},
    {"unnamed-unit-type", Severity::kWarning},
    {"load-past-pattern-memory", Severity::kWarning},
    {"bad-movement-count", Severity::kWarning},
    {"truck-in-missing-area", Severity::kError},
    {"truck-of-missing-pattern", Severity::kError},
    {"truck-direction-out-of-range", Severity::kWarning},
}};

} // namespace

std::string_view codeOf(FindingKind kind)
{
    return kRules[static_cast<std::size_t>(kind)].code;
}

Severity severityOf(FindingKind kind)
{
    return kRules[static_cast<std::size_t>(kind)].severity;
}

std::string_view severityName(Severity severity)
{
    constexpr std::array<std::string_view, 3> kNames = {"error", "warning", "note"};
    return kNames[static_cast<std::size_t>(severity)];
}

std::string addressText(std::uint32_t cpuAddress)
{
    const std::string digits = hexText(cpuAddress);
    return "$" + std::string(digits.size() < 4 ? 4 - digits.size() : 0, '0') + digits;
}

std::string countText(std::uint32_t count, std::string_view noun)
{
    return decimalText(count).append(" ").append(noun) + (count == 1 ? "" : "s");
}

std::string suchText(std::uint32_t count, std::string_view noun)
{
    return count == 1 ? "" : " (" + countText(count, "such " + std::string(noun)) + ")";
}

} // namespace velko
