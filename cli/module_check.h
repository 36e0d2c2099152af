#pragma once

#include "rom/yaml_observer.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velko {

enum class ModuleFlaw : std::uint8_t {
    kUnknown,      // a scalar that is neither a key nor a value
    kMisplacedKey, // a key where the editor does not take it, or takes it for something else
    kMissingKey,   // never given, so that its field keeps its start value
    kOverrun,      // more values than the key has fields
    kStrayValue,   // a value where no key asks for one, or a second one
    kAlias,        // an alias, which stores nothing
    kMalformed,    // no YAML; nothing behind it is read
};

// The name of a flaw, as "misplaced-key".
std::string_view flawName(ModuleFlaw flaw);

struct ModuleFinding {
    ModuleFlaw flaw;
    std::optional<YamlMark> at; // for a missing key the key that it should stand under, if any
    std::string text;           // the scalar or key; a long one is cut short
    std::string message;        // one sentence
};

// Looks over the shoulder of the reading of one `data.yaml` and notes what the editor would pass
// over in silence, or ask about without telling where.
class ModuleCheck : public DataYamlObserver {
public:
    // What is found beyond these is only counted.
    static constexpr std::size_t kMostFindings = 1000;

    void scalar(std::string_view text, YamlMark at, YamlScalarUse use,
                const YamlCursor& cursor) override;
    void alias(YamlMark at) override;
    void malformed(YamlMark at, std::string_view problem) override;
    // Notes what is missing, after the last event. Where the text is malformed nothing is, as
    // the rest was not read.
    void finish();

    // In the order of the file; missing keys last, in the order of the editor's key table.
    const std::vector<ModuleFinding>& findings() const { return m_findings; }
    std::size_t furtherFindings() const { return m_further; }
    std::size_t keys() const { return m_keyCount; }
    std::size_t values() const { return m_valueCount; }

private:
    void takeKey(std::string_view text, YamlMark at, const YamlCursor& cursor);
    void takeHandlerField(YamlMark at, const YamlCursor& cursor);
    void takeValue(std::string_view text, YamlMark at, const YamlCursor& cursor);
    void takeNeither(std::string_view text, YamlMark at);
    void noteOverrun(std::string_view text, YamlMark at);
    void noteMissing(const YamlKey& key);
    void noteMissingField(std::string_view handler, const YamlKey& key);
    void note(ModuleFlaw flaw, std::optional<YamlMark> at, std::string_view text,
              std::string message);
    const YamlKey* find(std::string_view name) const;

    std::vector<YamlKey> m_keys = yamlKeys();
    std::vector<ModuleFinding> m_findings;
    std::size_t m_further = 0;
    std::size_t m_keyCount = 0;
    std::size_t m_valueCount = 0;
    bool m_isMalformed = false;

    // Where keys were first given: by name, fields of handlers as "handler.field".
    std::map<std::string, YamlMark, std::less<>> m_given;
    const YamlKey* m_key = nullptr; // the last one
    std::string_view m_handler;     // the last handler key; empty before
    bool m_handlerIsOfSection = false;

    // Since the last key: fields that a sequence has gone past, and values outside of one.
    std::uint32_t m_position = 0;
    std::uint32_t m_plainValues = 0;
    bool m_overrunNoted = false;
};

} // namespace velko
