#include "tests/e2e/console/console_game.h"
#include "tests/support/scripted_prompt.h"
#include "tools/overworld_model.h"
#include "tools/truck_path.h"

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

    using Way = std::vector<PathSegment>;

    // The ways of all trucks, from where they start to the end of their patterns.
    std::vector<Way> truckWays()
    {
        std::vector<AreaPosition> areas;
        for (std::uint32_t area = 0; area <= map.lastArea(); ++area)
            areas.push_back(map.areaPosition(area));
        const TruckMovementRegion patterns(state.rom, state.config);
        std::vector<Way> ways;
        for (std::uint32_t truck = 0; truck < value(MiscField::numOfMapTrucks); ++truck) {
            const std::uint8_t start = byteAt(value(MiscField::ptrMapTruckInit) + truck);
            std::vector<std::uint8_t> phases;
            for (std::uint32_t phase = 0; phase <= patterns.lastPhase(start >> 4); ++phase)
                phases.push_back(patterns.phase(start >> 4, phase));
            ways.push_back(walkTruckPath(areas.at(start & 15), phases, areas));
        }
        return ways;
    }

    // Draws a truck as it looks after so many pixels of its way, which it drives again and again.
    static void drawTruck(const OverworldPainter& painter, const Way& way, int pixels,
                          PixelImage& image)
    {
        const auto leg = static_cast<std::size_t>(pixels / kPathStep) % way.size();
        const auto [start, direction, phase] = way.at(leg);
        const PathPoint step = unitStep(direction);
        painter.drawQuadSprite(image, static_cast<std::uint8_t>(8 + direction),
                               start.x + pixels % kPathStep * step.x - kAreaToCentre,
                               start.y + pixels % kPathStep * step.y - kAreaToCentre);
    }

    static constexpr int kPixelsDriven = 160;
    static constexpr int kLongestStand = 70; // frames

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

TEST_F(ConsoleOverworldTest, MapAreasAndTrucksOnTheirWaysLookAsTheEditorShowsThem)
{
    enterOverworld();
    const OverworldModel model(state, prompt); // loads the overworld's graphics
    putIconsIntoTheMap();
    const OverworldPainter painter(state.rom, state.config, state.graphics, map);
    PixelImage image;
    painter.drawTiles(image);
    const PixelImage empty = image;
    const std::vector<Way> ways = truckWays();
    // The trucks stand for a second, then drive a pixel each second frame.
    for (int pixels = 0; pixels < kPixelsDriven; ++pixels) {
        image = empty;
        for (const Way& way : ways)
            drawTruck(painter, way, pixels, image);
        const ColourNumbers expected = numbersOf(image);
        for (int frame = 0; mapPart() != expected && frame < kLongestStand; ++frame)
            console().run(1);
        ASSERT_EQ(mapPart(), expected) << "after " << pixels << " pixels";
    }
}

TEST_F(ConsoleOverworldTest, SelectLeadsBackIntoTheRoom)
{
    enterOverworld();
    press(kButtonSelect);
    settle();
    EXPECT_FALSE(onOverworld());
    EXPECT_EQ(room(), 0U);
}

} // namespace
} // namespace velko::test
