#pragma once

#include "cli/atlas/atlas_data.h"

#include <cstddef>
#include <string>

namespace velko {

// The pages of an atlas. All files lie in one folder: index.html, graph.html, overworld.png,
// atlas.css, atlas.js, and for each room a page and a picture, "room_1f.html" and "room_1f.png".

// The overworld with its areas, and all rooms.
std::string indexPage(const AtlasData& atlas);
// All rooms and the ways between them.
std::string graphPage(const AtlasData& atlas);
// `index` is a position in the atlas' list of rooms.
std::string roomPage(const AtlasData& atlas, std::size_t index);

// "room_1f.html" or "room_1f.png".
std::string roomFileName(std::uint32_t room, std::string_view extension);

} // namespace velko
