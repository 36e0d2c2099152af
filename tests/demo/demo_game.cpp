#include "tests/demo/demo_game.h"

#include "state/configuration_loader.h"
#include "tests/support/scripted_prompt.h"

#include <algorithm>
#include <set>

namespace velko::test {

std::filesystem::path demoFolder()
{
    return VELKO_DEMO_DIR;
}

DemoGame::DemoGame()
{
    ScriptedPrompt prompt;
    EXPECT_EQ(loadConfiguration(demoFolder(), state, prompt, {}), ConfigurationResult::kContinue);
    state.rom.setPath(demoFolder() / "demo.nes");
    EXPECT_TRUE(state.rom.load());
    state.prepareRoomData();
}

std::vector<DemoUnit> unitsOf(const EditorState& state, std::uint32_t room)
{
    const PointerArrayHandler& handler = state.store.pahUnit;
    std::vector<DemoUnit> units;
    for (std::uint32_t at = 0; handler.dataByte(at, room) != 0xFF && units.size() < 256; at += 5) {
        const auto byte = [&](std::uint32_t k) { return int{handler.dataByte(at + k, room)}; };
        units.push_back({handler.dataByte(at, room), handler.dataByte(at + 2, room),
                         (byte(2) - 1) * 256 + byte(1), byte(4) * 240 + byte(3) + 1});
    }
    return units;
}

RegionUse useOf(const PointerArrayHandler& handler, std::uint32_t entries, const LengthRule& length)
{
    RegionUse use;
    std::map<std::uint32_t, std::uint32_t> blocks; // address -> length
    std::set<Bytes> contents;
    for (std::uint32_t entry = 0; entry < entries; ++entry) {
        const std::uint32_t bytes = length(entry);
        if (bytes == 0)
            continue;
        if (!blocks.emplace(handler.pointerOf(entry), bytes).second) {
            ++use.sharedEntries;
            continue;
        }
        Bytes block;
        for (std::uint32_t i = 0; i < bytes; ++i)
            block.push_back(handler.dataByte(i, entry));
        if (!contents.insert(block).second)
            ++use.repeatedBlocks;
    }
    for (const auto& [address, bytes] : blocks) {
        if (use.end != 0 && address > use.end)
            use.orphanedBytes += address - use.end;
        use.end = std::max(use.end, address + bytes);
    }
    return use;
}

} // namespace velko::test
