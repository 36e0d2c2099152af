#include "tests/e2e/console/console_game.h"
#include "tests/support/scripted_prompt.h"
#include "tools/overworld_model.h"

#include <array>

namespace velko::test {
namespace {

// The map lies three tiles inside the console's picture.
constexpr int kMapCorner = 24;

class ConsoleOverworldTest : public ConsoleGame {
protected:
    ConsoleOverworldTest() { switchOn(); }

    void enterOverworld()
    {
        press(kButtonSelect);
        settle();
        ASSERT_TRUE(onOverworld());
    }

    // On the console an area's icon is a part of the map.
    void putIconsIntoTheMap()
    {
        for (std::uint32_t area = 0; area <= map.lastArea(); ++area) {
            const AreaPosition position = map.areaPosition(area);
            const OverworldMap::Chunk icon = map.chunk(area);
            for (int part = 0; part < 4; ++part)
                map.setTile({(position.x - kAreaToIcon) / 8 + part / 2,
                             (position.y - kAreaToIcon) / 8 + part % 2},
                            icon.at(static_cast<std::size_t>(part)));
        }
    }

    ColourNumbers mapPart() const
    {
        const ColourNumbers picture = console().picture();
        ColourNumbers part;
        for (int y = 0; y < OverworldMap::kHeight; ++y) {
            const auto row = picture.begin() + (y + kMapCorner) * kPictureWidth + kMapCorner;
            part.insert(part.end(), row, row + OverworldMap::kWidth);
        }
        return part;
    }

    ScriptedPrompt prompt;
    OverworldMap map{state.rom, state.config};
};

TEST_F(ConsoleOverworldTest, MapAreasAndTrucksAreWhereTheEditorShowsThem)
{
    enterOverworld();
    const OverworldModel model(state, prompt); // loads the overworld's graphics
    putIconsIntoTheMap();
    const OverworldPainter painter(state.rom, state.config, state.graphics, map);
    PixelImage image;
    painter.drawTiles(image);
    for (std::uint32_t truck = 0; truck < state.config.value(MiscField::numOfMapTrucks); ++truck) {
        const std::uint8_t start = byteAt(value(MiscField::ptrMapTruckInit) + truck);
        TruckMovementRegion region(state.rom, state.config);
        region.selectSet(start >> 4);
        const AreaPosition area = map.areaPosition(start & 15);
        painter.drawQuadSprite(image, static_cast<std::uint8_t>(8 + (region.phase(0) & 7)),
                               area.x - kAreaToCentre, area.y - kAreaToCentre);
    }
    EXPECT_EQ(mapPart(), numbersOf(image));
}

TEST_F(ConsoleOverworldTest, TrucksDriveAndSelectLeadsBackIntoTheRoom)
{
    enterOverworld();
    const ColourNumbers before = console().picture();
    console().run(200);
    EXPECT_NE(console().picture(), before);
    press(kButtonSelect);
    settle();
    EXPECT_FALSE(onOverworld());
    EXPECT_EQ(room(), 0U);
}

} // namespace
} // namespace velko::test
