#include "rom/data_yaml.h"
#include "state/editor_state.h"
#include "tests/support/scripted_prompt.h"
#include "tests/support/test_rom.h"

#include <array>
#include <cstdint>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <span>
#include <string>

namespace velko {
namespace {

using ::testing::Contains;
using ::testing::Each;
using ::testing::Not;

constexpr Pixel kUntouched = 0xABCDEF; // no colour of the game
constexpr Pixel kBackground = 0x123456;

std::string sequence(const std::string& key, int count, const std::string& value)
{
    std::string text = key + ": [";
    for (int i = 0; i < count; ++i)
        text += value + ", ";
    return text + "]\n";
}

// Every count, address and table at its highest.
std::string highestCountsAndAddresses()
{
    return "miscData:\n  " + sequence("startGfxBg", 36, "0xFFFFFFFF")
        + sequence("unitSpriteAddress", 144, "0xFFFF") + sequence("gameMapTileChunks", 1024, "0xFF")
        + sequence("itemInGameSpriteAddress", 26, "0xFFFF")
        + sequence("unitSpriteReg", 256, "1"); // all are animated
}

// Every bank, edge and stride at its highest.
std::string highestHandlers()
{
    const std::string fields = ": {pBank: 0xFF, pMemStart: 0xFFFF, pMemEdge: 0xFFFF, "
                               "dEdge: 0xFFFF, dBank: [0xFF, 0xFF], pointerPad: 0xFFFFFFFF}\n";
    std::string text = "levelPointerArrayHandlers:\n";
    for (const char* key : {"pahMapAlloc", "pahTileLoad", "pahPal", "pahMapLayout", "pahTile32",
                            "pahUnit", "pahTileLoadType2"})
        text += "  " + std::string(key) + fields;
    return text + "otherPointerArrayHandlers:\n  pahMapAreaMovement" + fields
        + "pointerHandlersBanks: {phSprite: [0xFF, 0xFF], phMapScreenData: [0xFF, 0xFF]}\n";
}

// A sane ROM whose data.yaml is absurd: every room can be chosen and drawn all the same.
class AbsurdConfiguration : public ::testing::Test {
protected:
    AbsurdConfiguration() { test::TestRom(4).loadInto(state); }

    void configure(const std::string& yaml)
    {
        test::ScriptedPrompt prompt;
        const std::span bytes(reinterpret_cast<const std::uint8_t*>(yaml.data()), yaml.size());
        ASSERT_EQ(readDataYaml(bytes, state.config, prompt, {}), DataYamlResult::kDone);
        state.store.configure(state.config);
        state.prepareRoomData();
    }

    void drawRoom(std::uint8_t room)
    {
        SCOPED_TRACE(int{room});
        state.graphics.selectRoom(room);
        for (const std::uint32_t scroll : {0U, 250U, 0xFFFFFFFFU}) {
            PixelImage view(40, 40, kUntouched);
            state.renderer.renderRoomRegion(view, scroll, scroll, kBackground);
            EXPECT_THAT(view.pixels(), Not(Contains(kUntouched)));
        }
        PixelImage thumbnail(64, 64, kUntouched);
        state.renderer.renderRoomThumbnail(room, thumbnail, "absurd", kBackground);
        EXPECT_THAT(thumbnail.pixels(), Not(Contains(kUntouched)));
    }

    void drawSpritesForAWhile()
    {
        PixelImage image(32, 32);
        for (int tick = 0; tick < 260; ++tick)
            state.graphics.stepUnitAnimation();
        for (const UnitAnimation& animation : state.graphics.unitAnimation)
            state.graphics.drawSpriteFrame(image, 16, 16, animation.scriptAddress,
                                           animation.frameOffset, {});
    }

    void drawEverything()
    {
        for (const std::uint8_t room : std::array<std::uint8_t, 3>{0, 3, 255})
            drawRoom(room);
        drawSpritesForAWhile();
    }

    EditorState state;
};

TEST_F(AbsurdConfiguration, HighestCountsAndAddresses)
{
    configure(highestCountsAndAddresses());
    EXPECT_THAT(state.config.misc, Each(0xFFFFFFFFU));
    EXPECT_THAT(state.config.unitSpriteAddress, Each(0xFFFF));
    EXPECT_EQ(state.config.roomCount(), 256U);
    drawEverything();
}

TEST_F(AbsurdConfiguration, HighestHandlers)
{
    configure(highestHandlers());
    for (const PointerArrayHandler* handler : state.store.levelHandlers()) {
        EXPECT_EQ(handler->descriptor().pointerPad, 0xFFFFFFFFU);
        EXPECT_EQ(handler->descriptor().dEdge, 0xFFFF);
    }
    EXPECT_EQ(state.config.phSprite, (BankPair{0xFF, 0xFF}));
    drawEverything();
    // All of it lies past the image: a room of filler.
    EXPECT_EQ(state.renderer.roomSize(0).columns, 0x55U - 2);
}

TEST_F(AbsurdConfiguration, Both)
{
    configure(highestCountsAndAddresses() + highestHandlers());
    drawEverything();
}

TEST_F(AbsurdConfiguration, BothWithoutARom)
{
    state.rom.setBytes({});
    configure(highestCountsAndAddresses() + highestHandlers());
    drawEverything();
}

} // namespace
} // namespace velko
