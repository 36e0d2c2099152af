#pragma once

#include "rom/game_config.h"
#include "rom/yaml_values.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace velko {

// The part of `data.yaml` that was entered last.
enum class YamlSection : std::uint8_t {
    kNone,
    kLevelHandlers,
    kOtherHandlers,
    kMiscData,
    kHandlerBanks,
};

// Where a key is known.
enum class YamlPlace : std::uint8_t {
    kRootMapping,
    kLevelHandlers,
    kOtherHandlers,
    kAnyHandlers,
    kHandlerBanks,
    kMiscData,
};

struct YamlKey {
    std::string_view name;
    YamlPlace place;
    std::uint32_t fields; // how many values it can take; 0 for sections and handlers
};

// How far the reading of `data.yaml` has come. The file is read as a flat stream of scalars, so
// what a key set stays set until another key changes it, wherever the collections end.
struct YamlCursor {
    YamlSection section = YamlSection::kNone;
    PointerArrayDescriptor* handler = nullptr; // filled by the handler field keys
    YamlTarget target;                         // where the next value goes
    // Between a sequence start and the next sequence end, whichever sequence that closes.
    bool inSequence = false;
    int mappingDepth = -1; // the document's root mapping is depth 0
};

// Takes a scalar as a key where the cursor stands: aims the cursor at what it names in `config`.
// Returns false, changing nothing, when it is no key here. Keys are case-sensitive.
bool matchKey(std::string_view scalar, GameConfig& config, YamlCursor& cursor);

// Every key there is, in the order in which matchKey() tries them. Those of `miscData` come last
// and in storage order.
std::vector<YamlKey> yamlKeys();

} // namespace velko
