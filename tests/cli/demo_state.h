#pragma once

#include "cli/game.h"
#include "state/editor_state.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <iostream>
#include <string>

namespace velko::test {

// A game opened as the windows open it, to compare with what a command line makes of it.
struct OpenGame {
    EditorState state;

    // `rom` is relative to the demo's folder.
    explicit OpenGame(const std::string& rom = "demo.nes")
    {
        const Context context(std::filesystem::path(VELKO_DEMO_DIR), std::cout, std::cerr);
        const auto reason = openGame(context, rom, state);
        EXPECT_FALSE(reason) << *reason;
    }
};

} // namespace velko::test
