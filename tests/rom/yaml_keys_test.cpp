#include "tests/rom/data_yaml_fixture.h"

#include <functional>
#include <rapidcheck/gtest.h>
#include <string>
#include <vector>

namespace velko {
namespace {

// One text that names a key, and what it must do to a fresh configuration. The value
// 0x89ABCDEF shows the width of the field: EF in 8 bits, CDEF in 16.
struct KeyCase {
    std::string key;
    std::string text;
    std::function<void(GameConfig&)> effect;
};

void PrintTo(const KeyCase& keyCase, std::ostream* stream)
{
    *stream << keyCase.key;
}

std::string nameOf(const ::testing::TestParamInfo<KeyCase>& info)
{
    return info.param.key;
}

class KnownKey : public test::DataYamlTest, public ::testing::WithParamInterface<KeyCase> { };

TEST_P(KnownKey, FillsItsFieldAndNothingElse)
{
    GameConfig expected;
    GetParam().effect(expected);
    EXPECT_EQ(read(GetParam().text), DataYamlResult::kDone);
    EXPECT_TRUE(config == expected) << GetParam().text;
    EXPECT_FALSE(config == GameConfig{}) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(
    Table, KnownKey,
    ::testing::Values(KeyCase{"unitSpriteReg", "unitSpriteReg: [0x89ABCDEF, 2]",
                              [](GameConfig& c) {
                                  c.unitSpriteReg[0] = 0xEF;
                                  c.unitSpriteReg[1] = 2;
                              }},
                      KeyCase{"unitSpriteAddress", "unitSpriteAddress: [0x89ABCDEF, 2]",
                              [](GameConfig& c) {
                                  c.unitSpriteAddress[0] = 0xCDEF;
                                  c.unitSpriteAddress[1] = 2;
                              }},
                      KeyCase{"gameMapTileChunks", "gameMapTileChunks: [0x89ABCDEF, 2]",
                              [](GameConfig& c) {
                                  c.gameMapTileChunks[0] = 0xEF;
                                  c.gameMapTileChunks[1] = 2;
                              }},
                      KeyCase{"itemInGameSpriteAddress", "itemInGameSpriteAddress: [0x89ABCDEF, 2]",
                              [](GameConfig& c) {
                                  c.itemInGameSpriteAddress[0] = 0xCDEF;
                                  c.itemInGameSpriteAddress[1] = 2;
                              }}),
    nameOf);

std::string handlerText(const std::string& section, const std::string& handler,
                        const std::string& fields)
{
    return section + ": {" + handler + ": {" + fields + "}}";
}

std::string handlerFieldText(const std::string& field)
{
    return handlerText("levelPointerArrayHandlers", "pahUnit", field + ": 0x89ABCDEF");
}

INSTANTIATE_TEST_SUITE_P(
    HandlerField, KnownKey,
    ::testing::Values(KeyCase{"pBank", handlerFieldText("pBank"),
                              [](GameConfig& c) { c.pahUnit.pBank = 0xEF; }},
                      KeyCase{"pMemStart", handlerFieldText("pMemStart"),
                              [](GameConfig& c) { c.pahUnit.pMemStart = 0xCDEF; }},
                      KeyCase{"pMemEdge", handlerFieldText("pMemEdge"),
                              [](GameConfig& c) { c.pahUnit.pMemEdge = 0xCDEF; }},
                      KeyCase{"dEdge", handlerFieldText("dEdge"),
                              [](GameConfig& c) { c.pahUnit.dEdge = 0xCDEF; }},
                      KeyCase{"dBank", handlerFieldText("dBank"),
                              [](GameConfig& c) { c.pahUnit.dBank[0] = 0xEF; }},
                      KeyCase{"pointerPad", handlerFieldText("pointerPad"),
                              [](GameConfig& c) { c.pahUnit.pointerPad = 0x89ABCDEF; }}),
    nameOf);

constexpr PointerArrayDescriptor kDescriptor{
    .dBank = {5, 7}, .pBank = 1, .pMemStart = 0x8002, .pMemEdge = 3, .dEdge = 4, .pointerPad = 6};
const std::string kDescriptorText = "pBank: 1, pMemStart: 0x8002, pMemEdge: 3, dEdge: 4, "
                                    "dBank: [5, 7], pointerPad: 6";

KeyCase handlerCase(const std::string& section, const std::string& key,
                    PointerArrayDescriptor GameConfig::*handler)
{
    return {key, handlerText(section, key, kDescriptorText),
            [handler](GameConfig& c) { c.*handler = kDescriptor; }};
}

KeyCase levelHandlerCase(const std::string& key, PointerArrayDescriptor GameConfig::*handler)
{
    return handlerCase("levelPointerArrayHandlers", key, handler);
}

INSTANTIATE_TEST_SUITE_P(
    HandlerKey, KnownKey,
    ::testing::Values(levelHandlerCase("pahMapAlloc", &GameConfig::pahMapAlloc),
                      levelHandlerCase("pahTileLoad", &GameConfig::pahTileLoad),
                      levelHandlerCase("pahPal", &GameConfig::pahPal),
                      levelHandlerCase("pahMapLayout", &GameConfig::pahMapLayout),
                      levelHandlerCase("pahTile32", &GameConfig::pahTile32),
                      levelHandlerCase("pahUnit", &GameConfig::pahUnit),
                      levelHandlerCase("pahTileLoadType2", &GameConfig::pahTileLoadType2),
                      handlerCase("otherPointerArrayHandlers", "pahMapAreaMovement",
                                  &GameConfig::pahMapAreaMovement)),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    HandlerBank, KnownKey,
    ::testing::Values(KeyCase{"phSprite", "pointerHandlersBanks: {phSprite: [0x1EF, 7, 9]}",
                              [](GameConfig& c) {
                                  c.phSprite = {0xEF, 7};
                              }},
                      KeyCase{"phMapScreenData",
                              "pointerHandlersBanks: {phMapScreenData: [0x1EF, 7, 9]}",
                              [](GameConfig& c) {
                                  c.phMapScreenData = {0xEF, 7};
                              }},
                      KeyCase{"phSpriteAsSingleNumber", "pointerHandlersBanks: {phSprite: 9}",
                              [](GameConfig& c) {
                                  c.phSprite = {9, 0};
                              }}),
    nameOf);

// The misc keys and their fields, in storage order.
struct MiscKey {
    std::string name;
    MiscField field;
};
const std::vector<MiscKey> kMiscKeys = {
    {"startGfxBg", MiscField::startGfxBg},
    {"bgTileBanks", MiscField::bgTileBanks},
    {"startGfxType2", MiscField::startGfxType2},
    {"mapAllocDataStart", MiscField::mapAllocDataStart},
    {"rooms", MiscField::rooms},
    {"mapIndexes", MiscField::mapIndexes},
    {"mapPtrStart", MiscField::mapPtrStart},
    {"ptrEntranceScreen", MiscField::ptrEntranceScreen},
    {"ptrEntranceBlock", MiscField::ptrEntranceBlock},
    {"ptrExitRoom", MiscField::ptrExitRoom},
    {"ptrExitEntrance", MiscField::ptrExitEntrance},
    {"roomEntrances", MiscField::roomEntrances},
    {"roomExits", MiscField::roomExits},
    {"ptrTileLoadType2", MiscField::ptrTileLoadType2},
    {"ptrRoomMusic", MiscField::ptrRoomMusic},
    {"areas", MiscField::areas},
    {"firstNeutralArea", MiscField::firstNeutralArea},
    {"ptrAreaEndItem", MiscField::ptrAreaEndItem},
    {"ptrAreaParachute", MiscField::ptrAreaParachute},
    {"areaFirstNAchamber", MiscField::areaFirstNAchamber},
    {"areaLastNAchamber", MiscField::areaLastNAchamber},
    {"ptrNA_ChamberItem", MiscField::ptrNA_ChamberItem},
    {"ptrNA_ChItemAddress", MiscField::ptrNA_ChItemAddress},
    {"ptrMapAreaXY", MiscField::ptrMapAreaXY},
    {"ptrMapTruckInit", MiscField::ptrMapTruckInit},
    {"numOfMapTrucks", MiscField::numOfMapTrucks},
    {"ptrMapPalette", MiscField::ptrMapPalette},
    {"ptrMapTileMap", MiscField::ptrMapTileMap},
    {"ptrMapPathPreviewSpriteAddr", MiscField::ptrMapPathPreviewSpriteAddr},
    {"ptrMapQuadSpriteTable", MiscField::ptrMapQuadSpriteTable},
    {"ptrMapAttributeTable", MiscField::ptrMapAttributeTable},
    {"bpahTruckMovement_bank", MiscField::bpahTruckMovement_bank},
    {"bpahTruckMovement_dMemStart", MiscField::bpahTruckMovement_dMemStart},
    {"bpahTruckMovement_dMemEdge", MiscField::bpahTruckMovement_dMemEdge},
    {"bpahTruckMovement_pMemStart", MiscField::bpahTruckMovement_pMemStart},
    {"bpahTruckMovement_pMemEdge", MiscField::bpahTruckMovement_pMemEdge},
};

std::vector<KeyCase> miscCases()
{
    std::vector<KeyCase> cases;
    for (const MiscKey& key : kMiscKeys)
        cases.push_back({key.name, "miscData: {" + key.name + ": 0x89ABCDEF}",
                         [field = key.field](GameConfig& c) { c.setValue(field, 0x89ABCDEF); }});
    return cases;
}

INSTANTIATE_TEST_SUITE_P(Misc, KnownKey, ::testing::ValuesIn(miscCases()), nameOf);

using MiscKeys = test::DataYamlTest;

TEST_F(MiscKeys, LieInStorageOrder)
{
    ASSERT_EQ(kMiscKeys.size(), 36U);
    for (std::size_t i = 0; i < 36; ++i)
        EXPECT_EQ(static_cast<std::size_t>(kMiscKeys[i].field), i) << kMiscKeys[i].name;
}

TEST_F(MiscKeys, SequenceFromTheFirstFieldFillsAllInStorageOrder)
{
    std::string text = "miscData: {startGfxBg: [";
    for (int i = 0; i < 36; ++i)
        text += std::to_string(100 + i) + ",";
    read(text + "]}");
    for (std::size_t i = 0; i < 36; ++i)
        EXPECT_EQ(config.misc[i], 100 + i) << kMiscKeys[i].name;
}

RC_GTEST_FIXTURE_PROP(MiscKeys, SequenceRunsOnIntoTheFollowingFields, ())
{
    const auto first = *rc::gen::inRange<std::size_t>(0, 36);
    const auto values =
        *rc::gen::container<std::vector<std::uint32_t>>(rc::gen::arbitrary<std::uint32_t>());
    std::string text = "miscData: {" + kMiscKeys[first].name + ": [";
    GameConfig expected;
    for (std::size_t i = 0; i < values.size(); ++i) {
        text += std::to_string(values[i]) + ", ";
        if (first + i < 36)
            expected.misc[first + i] = values[i];
    }
    RC_ASSERT(read(text + "]}") == DataYamlResult::kDone);
    RC_ASSERT(config == expected);
}

// A key where it is none, within a text that is otherwise fine.
struct MisplacedCase {
    std::string name;
    std::string key;
    std::string text;
};

void PrintTo(const MisplacedCase& misplaced, std::ostream* stream)
{
    *stream << misplaced.text;
}

std::vector<MisplacedCase> misplacedCases()
{
    std::vector<MisplacedCase> cases;
    const auto add = [&cases](const std::string& where, const std::string& key,
                              const std::string& before, const std::string& after) {
        cases.push_back({key + "_" + where, key, before + key + ": 1" + after});
    };
    for (const auto key : {"levelPointerArrayHandlers", "otherPointerArrayHandlers",
                           "pointerHandlersBanks", "miscData", "unitSpriteReg", "unitSpriteAddress",
                           "gameMapTileChunks", "itemInGameSpriteAddress"}) {
        add("nested", key, "miscData: {", "}");
        add("deeper", key, "levelPointerArrayHandlers: {pahPal: {", "}}");
    }
    for (const auto key : {"pahMapAlloc", "pahTileLoad", "pahPal", "pahMapLayout", "pahTile32",
                           "pahUnit", "pahTileLoadType2"}) {
        add("atRoot", key, "", "");
        add("amongOthers", key, "otherPointerArrayHandlers: {", "}");
        add("amongMisc", key, "miscData: {", "}");
        add("amongBanks", key, "pointerHandlersBanks: {", "}");
    }
    add("atRoot", "pahMapAreaMovement", "", "");
    add("amongLevelHandlers", "pahMapAreaMovement", "levelPointerArrayHandlers: {", "}");
    for (const auto key : {"pBank", "pMemStart", "pMemEdge", "dEdge", "dBank", "pointerPad"}) {
        add("atRoot", key, "", "");
        add("amongMisc", key, "miscData: {", "}");
        add("amongBanks", key, "pointerHandlersBanks: {", "}");
    }
    for (const auto key : {"phSprite", "phMapScreenData"}) {
        add("atRoot", key, "", "");
        add("amongMisc", key, "miscData: {", "}");
        add("amongLevelHandlers", key, "levelPointerArrayHandlers: {", "}");
        add("amongOthers", key, "otherPointerArrayHandlers: {", "}");
    }
    for (const MiscKey& key : kMiscKeys) {
        add("atRoot", key.name, "", "");
        add("amongBanks", key.name, "pointerHandlersBanks: {", "}");
        add("amongLevelHandlers", key.name, "levelPointerArrayHandlers: {", "}");
        add("amongOthers", key.name, "otherPointerArrayHandlers: {", "}");
    }
    return cases;
}

class MisplacedKey : public test::DataYamlTest,
                     public ::testing::WithParamInterface<MisplacedCase> { };

TEST_P(MisplacedKey, IsAskedAboutAndChangesNothing)
{
    expectUnknown(GetParam().key);
    EXPECT_EQ(read(GetParam().text), DataYamlResult::kDone);
    EXPECT_TRUE(config == GameConfig{});
}

INSTANTIATE_TEST_SUITE_P(Keys, MisplacedKey, ::testing::ValuesIn(misplacedCases()),
                         [](const auto& test) { return test.param.name; });

} // namespace
} // namespace velko
