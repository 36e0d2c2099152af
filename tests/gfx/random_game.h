#pragma once

#include "tests/support/test_rom.h"

#include <cstdint>

namespace velko::test {

// A game of three rooms whose blocks, screens and graphics are random but hang together: every
// pointer leads to a block of its kind. Equal seeds give equal games.
TestRom randomGame(std::uint32_t seed);

// Random bytes, of any size up to 200 KB, under a random description: banks, addresses, strides
// and numbers that may or may not lie inside the file.
TestRom randomGarbage(std::uint32_t seed);

} // namespace velko::test
