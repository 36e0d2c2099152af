#pragma once

#include "demo/world.h"

namespace velko::demo {

// Lays the world out in the banks and returns the whole iNES file. Throws DemoError when
// something does not fit.
Bytes packRom(const World& world);

} // namespace velko::demo
