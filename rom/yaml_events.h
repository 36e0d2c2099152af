#pragma once

#include <cstdint>
#include <span>
#include <yaml.h>

namespace velko {

// The events of a YAML text, one after the other, as libyaml finds them. Texts made to keep the
// parser busy are refused like malformed ones: the time that libyaml takes grows with the nesting
// at every token, and with the square of the number of tag directives.
class YamlEvents {
public:
    YamlEvents();
    ~YamlEvents();
    YamlEvents(const YamlEvents&) = delete;
    YamlEvents& operator=(const YamlEvents&) = delete;

    // Whether the parser could be made; nothing else may be called otherwise.
    bool isReady() const { return m_ready; }
    // Sets the text, once. It must stay where it is as long as next() is called.
    void setInput(std::span<const std::uint8_t> text);
    // Moves on. Returns the event, valid until the next call, or null when the text is malformed
    // or refused.
    const yaml_event_t* next();

    // Why and where next() returned null.
    const char* problem() const;
    yaml_mark_t problemMark() const;

private:
    bool isWithinLimits();

    yaml_parser_t m_parser{};
    yaml_event_t m_event{};
    bool m_ready = false;
    bool m_refused = false;
    std::uint32_t m_depth = 0;       // open sequences and mappings
    std::uint64_t m_summedDepth = 0; // over all events so far
};

} // namespace velko
