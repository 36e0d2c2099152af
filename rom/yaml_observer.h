#pragma once

#include "rom/yaml_keys.h"

#include <cstddef>
#include <string_view>

namespace velko {

// A place in a YAML text, counted from 1; columns are characters, not bytes.
struct YamlMark {
    std::size_t line = 1;
    std::size_t column = 1;

    bool operator==(const YamlMark&) const = default;
};

// What a scalar was taken for.
enum class YamlScalarUse { kKey, kValue, kNeither };

// Sees how a `data.yaml` is read, for tools that tell more of a file than the editor does. It has
// no say in the reading.
class DataYamlObserver {
public:
    virtual ~DataYamlObserver() = default;

    // A scalar was taken; `cursor` is what it left behind. A value that is one too many for its
    // field is still a value.
    virtual void scalar(std::string_view text, YamlMark at, YamlScalarUse use,
                        const YamlCursor& cursor) = 0;
    // An alias was met, which stores nothing.
    virtual void alias(YamlMark at) = 0;
    // The text is malformed, or refused; the rest is not read.
    virtual void malformed(YamlMark at, std::string_view problem) = 0;
};

} // namespace velko
