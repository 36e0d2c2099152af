#include "rom/yaml_keys.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <type_traits>
#include <utility>

namespace velko {

namespace {

bool isAt(YamlPlace place, const YamlCursor& cursor)
{
    switch (place) {
    case YamlPlace::kRootMapping:
        return cursor.mappingDepth == 0;
    case YamlPlace::kLevelHandlers:
        return cursor.section == YamlSection::kLevelHandlers;
    case YamlPlace::kOtherHandlers:
        return cursor.section == YamlSection::kOtherHandlers;
    case YamlPlace::kAnyHandlers:
        return cursor.section == YamlSection::kLevelHandlers
            || cursor.section == YamlSection::kOtherHandlers;
    case YamlPlace::kHandlerBanks:
        return cursor.section == YamlSection::kHandlerBanks;
    case YamlPlace::kMiscData:
        return cursor.section == YamlSection::kMiscData;
    }
    return false;
}

// What the keys do. A section or a handler leaves the target alone: an empty value behind it
// is stored where the last value went.

template <YamlSection section> void enterSection(GameConfig&, YamlCursor& cursor)
{
    cursor.section = section;
}

template <auto table> void aimAtTable(GameConfig& config, YamlCursor& cursor)
{
    cursor.section = YamlSection::kNone;
    cursor.target = YamlTarget(std::span(config.*table));
}

template <auto handler> void chooseHandler(GameConfig& config, YamlCursor& cursor)
{
    cursor.handler = &(config.*handler);
}

// Without a handler there is nothing to fill, and the value is dropped.
template <auto field> void aimAtHandlerField(GameConfig&, YamlCursor& cursor)
{
    cursor.target = cursor.handler == nullptr ? YamlTarget()
                                              : YamlTarget(std::span(&(cursor.handler->*field), 1));
}

template <auto pair> void aimAtHandlerPair(GameConfig&, YamlCursor& cursor)
{
    cursor.target =
        cursor.handler == nullptr ? YamlTarget() : YamlTarget(std::span(cursor.handler->*pair));
}

template <auto pair> void aimAtBanks(GameConfig& config, YamlCursor& cursor)
{
    cursor.target = YamlTarget(std::span(config.*pair));
}

// How many fields a table or pair has.
template <auto table>
constexpr auto kFieldsOf = static_cast<std::uint32_t>(
    std::tuple_size_v<std::remove_cvref_t<decltype(std::declval<GameConfig>().*table)>>);

struct Key {
    YamlKey key;
    void (*apply)(GameConfig&, YamlCursor&);
};

using Handler = PointerArrayDescriptor;

// The first row that fits wins.
constexpr Key kKeys[] = {
    {{"levelPointerArrayHandlers", YamlPlace::kRootMapping, 0},
     enterSection<YamlSection::kLevelHandlers>},
    {{"otherPointerArrayHandlers", YamlPlace::kRootMapping, 0},
     enterSection<YamlSection::kOtherHandlers>},
    {{"pointerHandlersBanks", YamlPlace::kRootMapping, 0},
     enterSection<YamlSection::kHandlerBanks>},
    {{"miscData", YamlPlace::kRootMapping, 0}, enterSection<YamlSection::kMiscData>},

    {{"unitSpriteReg", YamlPlace::kRootMapping, kFieldsOf<&GameConfig::unitSpriteReg>},
     aimAtTable<&GameConfig::unitSpriteReg>},
    {{"unitSpriteAddress", YamlPlace::kRootMapping, kFieldsOf<&GameConfig::unitSpriteAddress>},
     aimAtTable<&GameConfig::unitSpriteAddress>},
    {{"gameMapTileChunks", YamlPlace::kRootMapping, kFieldsOf<&GameConfig::gameMapTileChunks>},
     aimAtTable<&GameConfig::gameMapTileChunks>},
    {{"itemInGameSpriteAddress", YamlPlace::kRootMapping,
      kFieldsOf<&GameConfig::itemInGameSpriteAddress>},
     aimAtTable<&GameConfig::itemInGameSpriteAddress>},

    {{"pahMapAlloc", YamlPlace::kLevelHandlers, 0}, chooseHandler<&GameConfig::pahMapAlloc>},
    {{"pahTileLoad", YamlPlace::kLevelHandlers, 0}, chooseHandler<&GameConfig::pahTileLoad>},
    {{"pahPal", YamlPlace::kLevelHandlers, 0}, chooseHandler<&GameConfig::pahPal>},
    {{"pahMapLayout", YamlPlace::kLevelHandlers, 0}, chooseHandler<&GameConfig::pahMapLayout>},
    {{"pahTile32", YamlPlace::kLevelHandlers, 0}, chooseHandler<&GameConfig::pahTile32>},
    {{"pahUnit", YamlPlace::kLevelHandlers, 0}, chooseHandler<&GameConfig::pahUnit>},
    {{"pahTileLoadType2", YamlPlace::kLevelHandlers, 0},
     chooseHandler<&GameConfig::pahTileLoadType2>},
    {{"pahMapAreaMovement", YamlPlace::kOtherHandlers, 0},
     chooseHandler<&GameConfig::pahMapAreaMovement>},

    {{"pBank", YamlPlace::kAnyHandlers, 1}, aimAtHandlerField<&Handler::pBank>},
    {{"pMemStart", YamlPlace::kAnyHandlers, 1}, aimAtHandlerField<&Handler::pMemStart>},
    {{"pMemEdge", YamlPlace::kAnyHandlers, 1}, aimAtHandlerField<&Handler::pMemEdge>},
    {{"dEdge", YamlPlace::kAnyHandlers, 1}, aimAtHandlerField<&Handler::dEdge>},
    {{"dBank", YamlPlace::kAnyHandlers, 2}, aimAtHandlerPair<&Handler::dBank>},
    {{"pointerPad", YamlPlace::kAnyHandlers, 1}, aimAtHandlerField<&Handler::pointerPad>},

    {{"phSprite", YamlPlace::kHandlerBanks, kFieldsOf<&GameConfig::phSprite>},
     aimAtBanks<&GameConfig::phSprite>},
    {{"phMapScreenData", YamlPlace::kHandlerBanks, kFieldsOf<&GameConfig::phMapScreenData>},
     aimAtBanks<&GameConfig::phMapScreenData>},
};

// The keys of `miscData`, in the order of MiscField.
constexpr std::array<std::string_view, kMiscFields> kMiscKeys = {
    "startGfxBg",
    "bgTileBanks",
    "startGfxType2",
    "mapAllocDataStart",
    "rooms",
    "mapIndexes",
    "mapPtrStart",
    "ptrEntranceScreen",
    "ptrEntranceBlock",
    "ptrExitRoom",
    "ptrExitEntrance",
    "roomEntrances",
    "roomExits",
    "ptrTileLoadType2",
    "ptrRoomMusic",
    "areas",
    "firstNeutralArea",
    "ptrAreaEndItem",
    "ptrAreaParachute",
    "areaFirstNAchamber",
    "areaLastNAchamber",
    "ptrNA_ChamberItem",
    "ptrNA_ChItemAddress",
    "ptrMapAreaXY",
    "ptrMapTruckInit",
    "numOfMapTrucks",
    "ptrMapPalette",
    "ptrMapTileMap",
    "ptrMapPathPreviewSpriteAddr",
    "ptrMapQuadSpriteTable",
    "ptrMapAttributeTable",
    "bpahTruckMovement_bank",
    "bpahTruckMovement_dMemStart",
    "bpahTruckMovement_dMemEdge",
    "bpahTruckMovement_pMemStart",
    "bpahTruckMovement_pMemEdge",
};

bool matchMiscKey(std::string_view scalar, GameConfig& config, YamlCursor& cursor)
{
    const auto key = std::ranges::find(kMiscKeys, scalar);
    if (key == kMiscKeys.end())
        return false;
    // To the end of the fields: a sequence runs on from one into the next.
    const auto index = static_cast<std::size_t>(key - kMiscKeys.begin());
    cursor.target = YamlTarget(std::span(config.misc).subspan(index));
    return true;
}

} // namespace

bool matchKey(std::string_view scalar, GameConfig& config, YamlCursor& cursor)
{
    for (const auto& [key, apply] : kKeys) {
        if (key.name == scalar && isAt(key.place, cursor)) {
            apply(config, cursor);
            return true;
        }
    }
    return isAt(YamlPlace::kMiscData, cursor) && matchMiscKey(scalar, config, cursor);
}

std::vector<YamlKey> yamlKeys()
{
    std::vector<YamlKey> keys;
    for (const Key& row : kKeys)
        keys.push_back(row.key);
    for (const std::string_view name : kMiscKeys)
        keys.push_back({name, YamlPlace::kMiscData, 1});
    return keys;
}

} // namespace velko
