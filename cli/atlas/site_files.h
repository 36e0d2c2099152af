#pragma once

#include <string_view>

namespace velko {

// Files of an atlas that are the same for every game.
extern const std::string_view kAtlasStyle;  // atlas.css
extern const std::string_view kAtlasScript; // atlas.js

} // namespace velko
