#pragma once

#include <nlohmann/json.hpp>
#include <ostream>

namespace velko {

// Objects keep the order in which their members are added.
using Json = nlohmann::ordered_json;

// Writes a document and a line break. Texts that are not UTF-8, as lines of a name list may be, get
// replacement characters.
inline void writeJson(std::ostream& out, const Json& document)
{
    out << document.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

} // namespace velko
