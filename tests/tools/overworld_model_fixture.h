#pragma once

#include "tests/support/scripted_prompt.h"
#include "tests/tools/overworld_rom.h"
#include "tools/overworld_model.h"

#include <memory>

namespace velko::test {

inline constexpr const char* kNoRoomForMovement =
    "not enough free space. (remove movements from other areas.)";
inline constexpr const char* kNoRoomForPhase =
    "not enough free space. (remove one or more movement phase from other truck patterns.)";

class OverworldModelTest : public OverworldTest {
protected:
    // Opens the editor on `game` as it stands.
    OverworldModel& open(OverworldMode mode = OverworldMode::kTile)
    {
        model.reset();
        start();
        model = std::make_unique<OverworldModel>(state, prompt);
        model->setMode(mode);
        return *model;
    }
    OverworldModel& openOnTruck(int truck)
    {
        OverworldModel& m = open(OverworldMode::kTruck);
        m.selectTruck(truck);
        return m;
    }
    Bytes pattern(std::uint32_t count) const { return bytesAt(overworld::kPatterns, count); }
    void setChunks(const Bytes& tiles)
    {
        std::copy(tiles.begin(), tiles.end(), game.config.gameMapTileChunks.begin());
    }

    ScriptedPrompt prompt;
    std::unique_ptr<OverworldModel> model;
};

} // namespace velko::test
