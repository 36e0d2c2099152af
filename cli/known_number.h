#pragma once

#include "cli/json.h"

#include <optional>
#include <string>

namespace velko {

// Numbers that may not be known, as of a file that was cut short.

template <typename Number> std::string numberText(const std::optional<Number>& number)
{
    return number ? std::to_string(*number) : "-";
}

template <typename Number> Json numberJson(const std::optional<Number>& number)
{
    return number ? Json(*number) : Json(nullptr);
}

} // namespace velko
