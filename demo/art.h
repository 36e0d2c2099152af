#pragma once

#include "demo/art_library.h"

namespace velko::demo {

// All drawings of the demo, one file each.
struct Art {
    ArtFile meadow; // the four background banks
    ArtFile village;
    ArtFile cave;
    ArtFile works;
    ArtFile hero;
    ArtFile creatures;
    ArtFile items;
    ArtFile overworld;
    std::string overworldMap; // text, see overworld_map.h
    ArtFile physics;
    ArtFile doors;
};

Art loadAllArt(const std::filesystem::path& folder);

} // namespace velko::demo
