#pragma once

#include "demo/world.h"

#include <string>

namespace velko::demo {

// The whole text of `data.yaml`, with comments that tell a module's author what each key means.
std::string dataYaml(const World& world);

} // namespace velko::demo
