#include "tests/gfx/random_game.h"
#include "tests/support/quiet_prompt.h"
#include "tests/tools/overworld_rom.h"
#include "tools/overworld_model.h"

#include <rapidcheck/gtest.h>

// Random bytes under a random description, and a user who tries everything: selections stay in
// range, pictures keep their sizes, and the image its length.

namespace velko {
namespace {

// Most addresses lie in the image, or around its end.
void describeOverworld(test::TestRom& game)
{
    const auto size = static_cast<std::uint32_t>(game.bytes.size());
    for (const MiscField field :
         {MiscField::ptrMapAreaXY, MiscField::ptrMapTruckInit, MiscField::ptrMapPalette,
          MiscField::ptrMapTileMap, MiscField::ptrMapPathPreviewSpriteAddr,
          MiscField::ptrMapQuadSpriteTable, MiscField::ptrMapAttributeTable}) {
        if (*rc::gen::inRange(0, 4) != 0)
            game.config.setValue(field, *rc::gen::inRange<std::uint32_t>(0, size + 40));
    }
    if (*rc::gen::inRange(0, 4) != 0)
        game.config.setValue(MiscField::bpahTruckMovement_bank,
                             *rc::gen::inRange<std::uint32_t>(0, 12));
    PointerArrayDescriptor& movements = game.config.pahMapAreaMovement;
    movements.dBank = {*rc::gen::inRange<std::uint8_t>(0, 14), *rc::gen::arbitrary<std::uint8_t>()};
    movements.pBank = *rc::gen::inRange<std::uint8_t>(0, 14);
    movements.pMemStart = *rc::gen::arbitrary<std::uint16_t>();
    movements.pMemEdge = *rc::gen::arbitrary<std::uint16_t>();
    movements.dEdge = *rc::gen::arbitrary<std::uint16_t>();
    movements.pointerPad = *rc::gen::inRange<std::uint32_t>(0, 5);
    for (std::uint8_t& tile : game.config.gameMapTileChunks)
        tile = static_cast<std::uint8_t>(&tile - game.config.gameMapTileChunks.data());
}

void actAtRandom(OverworldModel& model)
{
    const int value = *rc::gen::inRange(-2, 300);
    const int px = *rc::gen::inRange(-20, 490);
    const int py = *rc::gen::inRange(-20, 340);
    const auto button = *rc::gen::element(MapButton::kLeft, MapButton::kRight);
    switch (*rc::gen::inRange(0, 20)) {
    case 0:
        return model.setMode(*rc::gen::element(OverworldMode::kTile, OverworldMode::kPreset,
                                               OverworldMode::kPalette, OverworldMode::kArea,
                                               OverworldMode::kTruck));
    case 1:
        return model.selectArea(value);
    case 2:
        return model.selectEntry(value);
    case 3:
        return model.setChopperSprite(value);
    case 4:
        return model.setPathPreviewSprite(value);
    case 5:
        return model.setFirstDigit(value);
    case 6:
        return model.setSecondDigit(value);
    case 7:
        return model.addEntry();
    case 8:
        return model.removeEntry();
    case 9:
        return model.selectTruck(value);
    case 10:
        return model.setStartingArea(value);
    case 11:
        return model.setPatternSet(value);
    case 12:
        return model.selectPhase(value);
    case 13:
        return model.setDirection(value);
    case 14:
        return model.addPhase();
    case 15:
        return model.removePhase();
    case 16:
        return (void)model.press(button, px, py);
    case 17:
        return (void)model.drag(button, px, py);
    case 18:
        return (void)model.pickTileAt(px, py);
    default:
        return (void)model.pickPresetAt(px, py);
    }
}

void checkRanges(const OverworldModel& model)
{
    const auto within = [](int value, int last, int most) {
        return value >= 0 && value <= last && last <= most;
    };
    RC_ASSERT(within(model.area(), model.lastArea(), 255));
    RC_ASSERT(within(model.entry(), model.lastEntry(), 126));
    RC_ASSERT(within(model.truck(), model.lastTruck(), 255));
    RC_ASSERT(within(model.startingArea(), OverworldModel::kLastStartingArea, 15));
    RC_ASSERT(within(model.patternSet(), 15, 15));
    RC_ASSERT(within(model.lastPatternSet(), 15, 15));
    RC_ASSERT(within(model.lastPhase(), 255, 255));
    RC_ASSERT(within(model.phase(), 255, 255));
    RC_ASSERT(within(model.direction(), 7, 7));
    RC_ASSERT(within(model.tile(), 255, 255));
    RC_ASSERT(within(model.preset(), model.lastPreset(), 255));
}

RC_GTEST_PROP(OverworldGarbage, AnythingCanBeOpenedEditedAndDrawn, (std::uint32_t seed))
{
    test::TestRom game = test::randomGarbage(seed);
    describeOverworld(game);
    EditorState state;
    game.loadInto(state);
    const auto roomMemory = state.graphics.patternMemory;
    test::QuietPrompt prompt;
    {
        OverworldModel model(state, prompt);
        const auto actions = *rc::gen::inRange(0, 40);
        for (int i = 0; i < actions; ++i) {
            actAtRandom(model);
            checkRanges(model);
        }
        PixelImage picture;
        for (const OverworldMode mode :
             {OverworldMode::kTile, OverworldMode::kArea, OverworldMode::kTruck}) {
            model.setMode(mode);
            model.drawMap(picture);
            RC_ASSERT(picture.width() == 468 && picture.height() == 324);
        }
        model.drawTilePicker(picture);
        model.drawPresetPicker(picture);
        RC_ASSERT(picture.width() == 256 && picture.height() == 256);
        RC_ASSERT(state.rom.size() == game.bytes.size());
        state.rom.setBytes(game.bytes); // without the edits, which may be anywhere
    }
    RC_ASSERT(state.graphics.patternMemory == roomMemory);
}

} // namespace
} // namespace velko
