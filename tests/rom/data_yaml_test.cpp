#include "rom/data_yaml.h"

#include "tests/rom/data_yaml_fixture.h"
#include "tests/support/temporary_folder.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace velko {
namespace {

using namespace std::string_view_literals;
using Answer = test::ScriptedPrompt::Answer;
using DataYaml = test::DataYamlTest;

TEST_F(DataYaml, FileOfTheExpectedShapeFillsTheConfiguration)
{
    EXPECT_EQ(read("# a game\n"
                   "levelPointerArrayHandlers:\n"
                   "  pahMapLayout:\n"
                   "    pBank: 3\n"
                   "    pMemStart: 0x8100\n"
                   "    pMemEdge: 0x82BC\n"
                   "    dBank: [3, 15]\n"
                   "    dEdge: 0x9F00\n"
                   "    pointerPad: 4\n"
                   "  pahPal:\n"
                   "    pBank: 0x0E\n"
                   "otherPointerArrayHandlers:\n"
                   "  pahMapAreaMovement:\n"
                   "    dBank:\n"
                   "      - 2\n"
                   "      - 15\n"
                   "pointerHandlersBanks:\n"
                   "  phSprite: [6, 15]\n"
                   "  phMapScreenData: 9\n"
                   "miscData:\n"
                   "  rooms: 111\n"
                   "  areas: 12\n"
                   "unitSpriteReg: [1, 2]\n"
                   "unitSpriteAddress: [0x8171, 0x81A0]\n"),
              DataYamlResult::kDone);
    GameConfig expected;
    expected.pahMapLayout = {.dBank = {3, 15},
                             .pBank = 3,
                             .pMemStart = 0x8100,
                             .pMemEdge = 0x82BC,
                             .dEdge = 0x9F00,
                             .pointerPad = 4};
    expected.pahPal.pBank = 14;
    expected.pahMapAreaMovement.dBank = {2, 15};
    expected.phSprite = {6, 15};
    expected.phMapScreenData = {9, 0};
    expected.setValue(MiscField::rooms, 111);
    expected.setValue(MiscField::areas, 12);
    expected.unitSpriteReg[0] = 1;
    expected.unitSpriteReg[1] = 2;
    expected.unitSpriteAddress[0] = 0x8171;
    expected.unitSpriteAddress[1] = 0x81A0;
    EXPECT_TRUE(config == expected);
}

TEST_F(DataYaml, SpellingsOfOneNumber)
{
    read("miscData: {startGfxBg: 0x1F, bgTileBanks: 0x1f, startGfxType2: 31, rooms: 31abc,"
         " areas: 0x-10, mapIndexes: 0xG1}");
    EXPECT_EQ(misc(MiscField::startGfxBg), 31U);
    EXPECT_EQ(misc(MiscField::bgTileBanks), 31U);
    EXPECT_EQ(misc(MiscField::startGfxType2), 31U);
    EXPECT_EQ(misc(MiscField::rooms), 31U);
    EXPECT_EQ(misc(MiscField::areas), 0xFFFFFFF0U);
    EXPECT_EQ(misc(MiscField::mapIndexes), 1U);
}

TEST_F(DataYaml, QuotesMakeNoDifference)
{
    read("'miscData': {\"rooms\": '0x1F', \"ar\\x65as\": \"12\"}");
    EXPECT_EQ(misc(MiscField::rooms), 31U);
    EXPECT_EQ(misc(MiscField::areas), 12U);
}

// Keys and values are told apart by their text alone.

TEST_F(DataYaml, UnknownScalarIsShownAsTheCaptionAndSkipped)
{
    expectUnknown("Rooms");
    expectUnknown("x1F");
    EXPECT_EQ(read("miscData: {areas: 3, Rooms: x1F, rooms: 5}"), DataYamlResult::kDone);
    EXPECT_EQ(misc(MiscField::areas), 3U);
    EXPECT_EQ(misc(MiscField::rooms), 5U);
}

TEST_F(DataYaml, CancelQuitsAtOnce)
{
    expectUnknown("Rooms", Answer::kCancel);
    EXPECT_EQ(read("miscData: {areas: 3, Rooms: x1F, rooms: 5}"), DataYamlResult::kQuit);
    EXPECT_EQ(misc(MiscField::areas), 3U);
    EXPECT_EQ(misc(MiscField::rooms), 0U);
    EXPECT_EQ(kConfigurationQuitStatus, 49374);
}

TEST_F(DataYaml, ValueBehindASkippedKeyGoesWhereTheLastOneWent)
{
    expectUnknown("Rooms");
    read("miscData: {areas: 3, Rooms: 5}");
    EXPECT_EQ(misc(MiscField::areas), 5U);
}

TEST_F(DataYaml, KeyIsAKeyEvenWhereAValueIsDue)
{
    read("miscData: {areas: rooms, 7: 8}");
    EXPECT_EQ(misc(MiscField::areas), 0U);
    EXPECT_EQ(misc(MiscField::rooms), 8U);
}

TEST_F(DataYaml, KeyInsideASequenceIsAKey)
{
    read("unitSpriteReg: [1, 2, gameMapTileChunks, 3, 4]");
    EXPECT_EQ(config.unitSpriteReg[0], 1);
    EXPECT_EQ(config.unitSpriteReg[1], 2);
    EXPECT_EQ(config.unitSpriteReg[2], 0);
    EXPECT_EQ(config.gameMapTileChunks[0], 3);
    EXPECT_EQ(config.gameMapTileChunks[1], 4);
}

TEST_F(DataYaml, SecondValueOverwritesTheFirst)
{
    read("miscData: {rooms: 5, 6: 7}");
    EXPECT_EQ(misc(MiscField::rooms), 7U);
    EXPECT_EQ(misc(MiscField::mapIndexes), 0U);
}

TEST_F(DataYaml, RepeatedKeyOverwrites)
{
    read("miscData: {rooms: 5, rooms: 6}");
    EXPECT_EQ(misc(MiscField::rooms), 6U);
}

TEST_F(DataYaml, ValueBeforeAnyTargetIsDropped)
{
    EXPECT_EQ(read("5: 6"), DataYamlResult::kDone);
    EXPECT_EQ(read("[1, 2, 3]"), DataYamlResult::kDone);
    EXPECT_EQ(read("0x1F"), DataYamlResult::kDone);
    EXPECT_TRUE(config == GameConfig{});
}

TEST_F(DataYaml, EmptyValueStoresZero)
{
    config.setValue(MiscField::rooms, 9);
    read("miscData: {rooms: }");
    EXPECT_EQ(misc(MiscField::rooms), 0U);
}

TEST_F(DataYaml, EmptyValueBehindASectionGoesWhereTheLastValueWent)
{
    config.unitSpriteReg = {1, 2, 3, 4};
    read("unitSpriteReg: [5, 6]\nmiscData:\n");
    EXPECT_EQ(config.unitSpriteReg[1], 6);
    EXPECT_EQ(config.unitSpriteReg[2], 0); // the sequence had moved on to here
    EXPECT_EQ(config.unitSpriteReg[3], 4);
}

TEST_F(DataYaml, ValueBehindAHandlerGoesWhereTheLastOneWent)
{
    read("miscData: {rooms: 5}\nlevelPointerArrayHandlers: {pahPal: 7}");
    EXPECT_EQ(misc(MiscField::rooms), 7U);
    EXPECT_EQ(config.pahPal, PointerArrayDescriptor{});
}

// Sections and handlers.

TEST_F(DataYaml, TableKeyLeavesTheSection)
{
    expectUnknown("rooms");
    read("{miscData: 0, unitSpriteReg: 1, rooms: 2}");
    EXPECT_EQ(misc(MiscField::rooms), 0U);
    EXPECT_EQ(config.unitSpriteReg[0], 2); // a value without a key of its own
}

TEST_F(DataYaml, SectionLastsBeyondItsMapping)
{
    read("{miscData: {}, rooms: 2}");
    EXPECT_EQ(misc(MiscField::rooms), 2U);
}

TEST_F(DataYaml, HandlerFieldBeforeAnyHandlerIsAKeyWhoseValueIsDropped)
{
    EXPECT_EQ(read("miscData: {rooms: 5}\n"
                   "levelPointerArrayHandlers: {pBank: 1, dBank: [2, 3], dEdge: 0xA000}\n"),
              DataYamlResult::kDone);
    GameConfig expected;
    expected.setValue(MiscField::rooms, 5);
    EXPECT_TRUE(config == expected);
}

TEST_F(DataYaml, HandlerStaysChosenAcrossSections)
{
    read("levelPointerArrayHandlers: {pahUnit: {pBank: 1}}\n"
         "otherPointerArrayHandlers: {pMemStart: 0x8000}\n");
    EXPECT_EQ(config.pahUnit.pMemStart, 0x8000);
    EXPECT_EQ(config.pahMapAreaMovement, PointerArrayDescriptor{});
}

TEST_F(DataYaml, HandlerWithoutFieldsKeepsItsStride)
{
    read("levelPointerArrayHandlers: {pahUnit: {}}");
    EXPECT_EQ(config.pahUnit, (PointerArrayDescriptor{.pointerPad = 2}));
}

TEST_F(DataYaml, SectionKeyIsKnownInTheRootMappingOnly)
{
    expectUnknown("game");
    expectUnknown("levelPointerArrayHandlers");
    expectUnknown("pahPal");
    expectUnknown("pBank");
    read("game: {levelPointerArrayHandlers: {pahPal: {pBank: 3}}}");
    EXPECT_TRUE(config == GameConfig{});
}

TEST_F(DataYaml, RootSequenceHasNoRootKeys)
{
    expectUnknown("miscData");
    read("[miscData]");
}

TEST_F(DataYaml, MappingInsideARootSequenceIsARootMapping)
{
    read("- miscData: {rooms: 3}\n- unitSpriteReg: 4");
    EXPECT_EQ(misc(MiscField::rooms), 3U);
    EXPECT_EQ(config.unitSpriteReg[0], 4);
}

// Sequences.

TEST_F(DataYaml, SequenceFillsConsecutiveWords)
{
    read("unitSpriteAddress: [0x8171, 0x18200, 33]");
    EXPECT_EQ(config.unitSpriteAddress[0], 0x8171);
    EXPECT_EQ(config.unitSpriteAddress[1], 0x8200);
    EXPECT_EQ(config.unitSpriteAddress[2], 33);
    EXPECT_EQ(config.unitSpriteAddress[3], 0);
}

TEST_F(DataYaml, EmptyElementsAreZeros)
{
    config.unitSpriteReg = {9, 9, 9, 9};
    read("unitSpriteReg:\n  - 1\n  -\n  - ''\n  - 4\n");
    EXPECT_EQ(config.unitSpriteReg[0], 1);
    EXPECT_EQ(config.unitSpriteReg[1], 0);
    EXPECT_EQ(config.unitSpriteReg[2], 0);
    EXPECT_EQ(config.unitSpriteReg[3], 4);
}

TEST_F(DataYaml, UnknownElementTakesNoPlace)
{
    expectUnknown("-5");
    read("unitSpriteReg: [1, -5, 3]");
    EXPECT_EQ(config.unitSpriteReg[1], 3);
}

TEST_F(DataYaml, AliasTakesNoPlace)
{
    read("unitSpriteReg: [&a 1, *a, 3]");
    EXPECT_EQ(config.unitSpriteReg[0], 1);
    EXPECT_EQ(config.unitSpriteReg[1], 3);
}

TEST_F(DataYaml, EndOfAnInnerSequenceEndsTheFilling)
{
    read("unitSpriteReg: [1, [2, 3], 4, 5]");
    EXPECT_EQ(config.unitSpriteReg[0], 1);
    EXPECT_EQ(config.unitSpriteReg[1], 2);
    EXPECT_EQ(config.unitSpriteReg[2], 3);
    EXPECT_EQ(config.unitSpriteReg[3], 5); // 4, then 5 in the same place
    EXPECT_EQ(config.unitSpriteReg[4], 0);
}

TEST_F(DataYaml, MappingInsideASequenceDoesNotEndTheFilling)
{
    read("unitSpriteReg: [1, {2: 3}, 4]");
    EXPECT_EQ(config.unitSpriteReg[1], 2);
    EXPECT_EQ(config.unitSpriteReg[2], 3);
    EXPECT_EQ(config.unitSpriteReg[3], 4);
}

TEST_F(DataYaml, MiscSequenceRunsOnIntoTheFollowingFields)
{
    read("miscData: {rooms: [1, 2, 3], areas: 9}");
    EXPECT_EQ(misc(MiscField::rooms), 1U);
    EXPECT_EQ(misc(MiscField::mapIndexes), 2U);
    EXPECT_EQ(misc(MiscField::mapPtrStart), 3U);
    EXPECT_EQ(misc(MiscField::ptrEntranceScreen), 0U);
    EXPECT_EQ(misc(MiscField::areas), 9U);
}

// A sequence of `count` ones below `key`, in braces after `before`.
std::string onesBelow(std::string_view before, std::string_view key, int count)
{
    std::string text(before);
    text.append(key).append(": [");
    for (int i = 0; i < count; ++i)
        text += "1,";
    return text + "]" + std::string(static_cast<std::size_t>(std::ranges::count(before, '{')), '}');
}

TEST_F(DataYaml, ElementsPastTheEndOfATableAreDropped)
{
    read(onesBelow("", "unitSpriteReg", 300));
    read(onesBelow("", "unitSpriteAddress", 200));
    read(onesBelow("", "gameMapTileChunks", 2000));
    read(onesBelow("", "itemInGameSpriteAddress", 40));
    GameConfig expected;
    expected.unitSpriteReg.fill(1);
    expected.unitSpriteAddress.fill(1);
    expected.gameMapTileChunks.fill(1);
    expected.itemInGameSpriteAddress.fill(1);
    EXPECT_TRUE(config == expected);
}

TEST_F(DataYaml, ElementsPastTheLastMiscFieldAreDropped)
{
    read(onesBelow("miscData: {", "bpahTruckMovement_pMemStart", 9));
    GameConfig expected;
    expected.setValue(MiscField::bpahTruckMovement_pMemStart, 1);
    expected.setValue(MiscField::bpahTruckMovement_pMemEdge, 1);
    EXPECT_TRUE(config == expected);
}

TEST_F(DataYaml, ElementsPastASingleFieldOrAPairAreDropped)
{
    const auto before = "levelPointerArrayHandlers: {pahTile32: {"sv;
    for (const auto key :
         {"pBank"sv, "pMemStart"sv, "pMemEdge"sv, "dEdge"sv, "dBank"sv, "pointerPad"sv})
        read(onesBelow(before, key, 9));
    GameConfig expected;
    expected.pahTile32 = {
        .dBank = {1, 1}, .pBank = 1, .pMemStart = 1, .pMemEdge = 1, .dEdge = 1, .pointerPad = 1};
    EXPECT_TRUE(config == expected);
}

TEST_F(DataYaml, ValueBehindAFullTableIsDropped)
{
    read(onesBelow("", "itemInGameSpriteAddress", 26) + "\nmiscData: 7");
    EXPECT_EQ(config.itemInGameSpriteAddress[25], 1);
    EXPECT_TRUE(config.misc == GameConfig{}.misc);
}

// What ends the reading.

TEST_F(DataYaml, SecondDocumentIsIgnored)
{
    EXPECT_EQ(read("miscData: {rooms: 3}\n---\nmiscData: {rooms: 4}\nnonsense: true\n"),
              DataYamlResult::kDone);
    EXPECT_EQ(misc(MiscField::rooms), 3U);
}

TEST_F(DataYaml, MalformedRestAfterTheFirstDocumentIsNotRead)
{
    EXPECT_EQ(read("miscData: {rooms: 3}\n...\n]]]\n"), DataYamlResult::kDone);
    EXPECT_EQ(misc(MiscField::rooms), 3U);
}

TEST_F(DataYaml, TextWithoutADocumentIsReadToItsEnd)
{
    EXPECT_EQ(read(""), DataYamlResult::kDone);
    EXPECT_EQ(read("# only a comment\n"), DataYamlResult::kDone);
    EXPECT_TRUE(config == GameConfig{});
}

TEST_F(DataYaml, MalformedTextIsToldAndKeepsWhatWasRead)
{
    prompt.expectError("Problem while parsing YAML.");
    EXPECT_EQ(read("miscData: {rooms: 3, areas: 4]\n"), DataYamlResult::kDone);
    EXPECT_EQ(misc(MiscField::rooms), 3U);
    EXPECT_EQ(misc(MiscField::areas), 4U);
}

TEST_F(DataYaml, InvalidUtf8IsMalformed)
{
    prompt.expectError("Problem while parsing YAML.");
    EXPECT_EQ(read("miscData: \xFF\xC0\x80"), DataYamlResult::kDone);
}

TEST_F(DataYaml, BareNulIsMalformed)
{
    prompt.expectError("Problem while parsing YAML.");
    EXPECT_EQ(read("miscData: {rooms: \0}"sv), DataYamlResult::kDone);
}

TEST_F(DataYaml, EscapedNulIsPartOfTheScalar)
{
    expectUnknown(std::string("rooms\0"sv));
    read("miscData: {areas: 1, \"rooms\\0\": 2}");
    EXPECT_EQ(misc(MiscField::rooms), 0U);
    EXPECT_EQ(misc(MiscField::areas), 2U);
}

TEST_F(DataYaml, Utf16IsReadToo)
{
    std::string text = "\xFF\xFE";
    for (const char c : "miscData: {rooms: 5}"sv)
        text.append({c, '\0'});
    EXPECT_EQ(read(text), DataYamlResult::kDone);
    EXPECT_EQ(misc(MiscField::rooms), 5U);
}

// The file.

TEST_F(DataYaml, FileIsRead)
{
    const test::TemporaryFolder folder;
    const auto path = folder.write("data.yaml", "miscData:\r\n  rooms: 3\r\n"sv);
    EXPECT_EQ(loadDataYaml(path, config, prompt, {}), DataYamlResult::kDone);
    EXPECT_EQ(misc(MiscField::rooms), 3U);
}

TEST_F(DataYaml, CancelOnAFileQuits)
{
    const test::TemporaryFolder folder;
    expectUnknown("nonsense", Answer::kCancel);
    EXPECT_EQ(loadDataYaml(folder.write("data.yaml", "nonsense"sv), config, prompt, {}),
              DataYamlResult::kQuit);
}

TEST_F(DataYaml, MissingFileIsTold)
{
    const test::TemporaryFolder folder;
    prompt.expectError("Couldn't load the YAML file!");
    EXPECT_EQ(loadDataYaml(folder.path() / "data.yaml", config, prompt, {}), DataYamlResult::kDone);
}

TEST_F(DataYaml, EmptyFileCannotBeLoaded)
{
    const test::TemporaryFolder folder;
    prompt.expectError("Couldn't load the YAML file!");
    EXPECT_EQ(loadDataYaml(folder.write("data.yaml", ""sv), config, prompt, {}),
              DataYamlResult::kDone);
}

} // namespace
} // namespace velko
