#pragma once

#include "gfx/pixel_image.h"
#include "tests/cli/cli_fixture.h"
#include "tests/cli/png_reader.h"

#include <filesystem>

namespace velko::test {

// Where the demo keeps the sizes of its rooms: width and height at bytes 2 and 3 of four.
inline constexpr std::size_t kLayoutTable = 0x3D110;
inline constexpr std::uint32_t kDemoRooms = 111;

// Draws pictures of the demo and of games made from it.
class RenderTest : public CliTest {
protected:
    // Draws with the options given and returns the picture; a failure fails the test.
    PixelImage render(std::vector<std::string> options, const std::string& rom = "demo.nes") const
    {
        const CliOutcome outcome = tryToRender(std::move(options), rom);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, "");
        return picture("picture.png");
    }
    CliOutcome tryToRender(std::vector<std::string> options,
                           const std::string& rom = "demo.nes") const
    {
        options.insert(options.begin(), {"render", rom});
        options.insert(options.end(), {"-o", path("picture.png")});
        return run(options);
    }
    CliOutcome renderAll(const std::string& rom, std::vector<std::string> options = {}) const
    {
        options.insert(options.begin(), {"render", rom, "--all", "-o", path("all")});
        return run(options);
    }
    PixelImage picture(const std::string& name) const
    {
        const auto file = loadFile(pathFromUtf8(path(name)));
        EXPECT_TRUE(file) << name;
        return file ? readPng(*file) : PixelImage();
    }
    bool exists(const std::string& name) const
    {
        return std::filesystem::exists(pathFromUtf8(path(name)));
    }
    // The demo with a room given another stored size.
    std::string gameWithSize(std::uint32_t room, std::uint8_t width, std::uint8_t height) const
    {
        std::vector<std::uint8_t> bytes = demoBytes();
        bytes[kLayoutTable + 4 * std::size_t{room} + 2] = width;
        bytes[kLayoutTable + 4 * std::size_t{room} + 3] = height;
        return write("sized.nes", bytes);
    }
};

} // namespace velko::test
