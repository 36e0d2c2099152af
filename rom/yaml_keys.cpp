#include "rom/yaml_keys.h"

#include <algorithm>
#include <array>

namespace velko {

namespace {

// Where a key is known.
enum class Place : std::uint8_t {
    kRootMapping,
    kLevelHandlers,
    kOtherHandlers,
    kAnyHandlers,
    kHandlerBanks,
};

bool isAt(Place place, const YamlCursor& cursor)
{
    switch (place) {
    case Place::kRootMapping:
        return cursor.mappingDepth == 0;
    case Place::kLevelHandlers:
        return cursor.section == YamlSection::kLevelHandlers;
    case Place::kOtherHandlers:
        return cursor.section == YamlSection::kOtherHandlers;
    case Place::kAnyHandlers:
        return cursor.section == YamlSection::kLevelHandlers
            || cursor.section == YamlSection::kOtherHandlers;
    case Place::kHandlerBanks:
        return cursor.section == YamlSection::kHandlerBanks;
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

struct Key {
    std::string_view name;
    Place place;
    void (*apply)(GameConfig&, YamlCursor&);
};

using Handler = PointerArrayDescriptor;

// The first row that fits wins.
constexpr Key kKeys[] = {
    {"levelPointerArrayHandlers", Place::kRootMapping, enterSection<YamlSection::kLevelHandlers>},
    {"otherPointerArrayHandlers", Place::kRootMapping, enterSection<YamlSection::kOtherHandlers>},
    {"pointerHandlersBanks", Place::kRootMapping, enterSection<YamlSection::kHandlerBanks>},
    {"miscData", Place::kRootMapping, enterSection<YamlSection::kMiscData>},

    {"unitSpriteReg", Place::kRootMapping, aimAtTable<&GameConfig::unitSpriteReg>},
    {"unitSpriteAddress", Place::kRootMapping, aimAtTable<&GameConfig::unitSpriteAddress>},
    {"gameMapTileChunks", Place::kRootMapping, aimAtTable<&GameConfig::gameMapTileChunks>},
    {"itemInGameSpriteAddress", Place::kRootMapping,
     aimAtTable<&GameConfig::itemInGameSpriteAddress>},

    {"pahMapAlloc", Place::kLevelHandlers, chooseHandler<&GameConfig::pahMapAlloc>},
    {"pahTileLoad", Place::kLevelHandlers, chooseHandler<&GameConfig::pahTileLoad>},
    {"pahPal", Place::kLevelHandlers, chooseHandler<&GameConfig::pahPal>},
    {"pahMapLayout", Place::kLevelHandlers, chooseHandler<&GameConfig::pahMapLayout>},
    {"pahTile32", Place::kLevelHandlers, chooseHandler<&GameConfig::pahTile32>},
    {"pahUnit", Place::kLevelHandlers, chooseHandler<&GameConfig::pahUnit>},
    {"pahTileLoadType2", Place::kLevelHandlers, chooseHandler<&GameConfig::pahTileLoadType2>},
    {"pahMapAreaMovement", Place::kOtherHandlers, chooseHandler<&GameConfig::pahMapAreaMovement>},

    {"pBank", Place::kAnyHandlers, aimAtHandlerField<&Handler::pBank>},
    {"pMemStart", Place::kAnyHandlers, aimAtHandlerField<&Handler::pMemStart>},
    {"pMemEdge", Place::kAnyHandlers, aimAtHandlerField<&Handler::pMemEdge>},
    {"dEdge", Place::kAnyHandlers, aimAtHandlerField<&Handler::dEdge>},
    {"dBank", Place::kAnyHandlers, aimAtHandlerPair<&Handler::dBank>},
    {"pointerPad", Place::kAnyHandlers, aimAtHandlerField<&Handler::pointerPad>},

    {"phSprite", Place::kHandlerBanks, aimAtBanks<&GameConfig::phSprite>},
    {"phMapScreenData", Place::kHandlerBanks, aimAtBanks<&GameConfig::phMapScreenData>},
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
    for (const Key& key : kKeys) {
        if (key.name == scalar && isAt(key.place, cursor)) {
            key.apply(config, cursor);
            return true;
        }
    }
    return cursor.section == YamlSection::kMiscData && matchMiscKey(scalar, config, cursor);
}

} // namespace velko
