#pragma once

#include "demo/world.h"

#include <string>

// What the game's program is assembled with: include files in the assembler's language. The module
// tells the editor the same numbers.
namespace velko::demo {

// Banks, addresses and counts.
std::string programLayout();
// Sprite register and script address of each unit type that has a sprite.
std::string programUnits(const World& world);
// The tiles of the areas' icons.
std::string programIcons(const World& world);

} // namespace velko::demo
