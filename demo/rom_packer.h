#pragma once

#include "demo/world.h"

namespace velko::demo {

// Lays the world out in the banks and returns the whole iNES file. `program` is the assembled
// program: kProgramBytes bytes, then the six bytes of the vectors. Throws DemoError when something
// does not fit.
Bytes packRom(const World& world, const Bytes& program);

} // namespace velko::demo
