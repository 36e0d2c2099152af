#pragma once

#include "gfx/room_renderer.h"
#include "state/editor_state.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <vector>

namespace velko::test {

using Bytes = std::vector<std::uint8_t>;

inline constexpr std::uint32_t kDemoRooms = 111;
inline constexpr std::uint32_t kDemoEntries = 113;

// The folder that the build made the demo game in.
std::filesystem::path demoFolder();

// The demo game as the editor has it after start-up: read from its files by the editor's own
// loaders, room 0 selected. Any box that comes up fails the test.
class DemoGame : public ::testing::Test {
protected:
    DemoGame();

    std::uint32_t value(MiscField field) const { return state.config.value(field); }
    std::uint8_t byteAt(std::uint32_t offset) const { return state.rom.readByte(offset); }

    EditorState state;
};

// One unit of a room as its list tells it.
struct DemoUnit {
    std::uint8_t type = 0;
    std::uint8_t column = 0; // as stored: 0 without a placement
    int x = 0;               // room pixels, as shown
    int y = 0;
};
std::vector<DemoUnit> unitsOf(const EditorState& state, std::uint32_t room);

// How the blocks of one region lie, over all entries of its table.
struct RegionUse {
    int sharedEntries = 0;           // entries whose block an earlier entry points at
    int repeatedBlocks = 0;          // blocks that equal an earlier one
    std::uint32_t orphanedBytes = 0; // between blocks, pointed at by nobody
    std::uint32_t end = 0;           // CPU address after the highest block
};
using LengthRule = std::function<std::uint32_t(std::uint32_t entry)>;
RegionUse useOf(const PointerArrayHandler& handler, std::uint32_t entries,
                const LengthRule& length);

} // namespace velko::test
