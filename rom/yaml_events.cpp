#include "rom/yaml_events.h"

#include "rom/data_yaml.h"

#include <string_view>

namespace velko {

namespace {

// A file of the expected shape adds about 2 per value to the sum; 200 KB of "a," inside 990
// brackets would reach 100,000,000 and take most of a second.
constexpr std::uint64_t kLargestSummedDepth = 10'000'000;
constexpr int kMostTagDirectives = 100;

// Counts what may be tag directives; refusing many of them where they are none is no loss.
bool hasTooManyTagDirectives(std::string_view text)
{
    constexpr std::string_view kDirective = "%TAG";
    int count = 0;
    for (auto at = text.find(kDirective); at != text.npos; at = text.find(kDirective, at + 1)) {
        if (++count > kMostTagDirectives)
            return true;
    }
    return false;
}

} // namespace

YamlEvents::YamlEvents() : m_ready(yaml_parser_initialize(&m_parser) != 0) { }

YamlEvents::~YamlEvents()
{
    yaml_event_delete(&m_event);
    if (m_ready)
        yaml_parser_delete(&m_parser);
}

void YamlEvents::setInput(std::span<const std::uint8_t> text)
{
    static constexpr std::uint8_t kNothing = 0; // libyaml takes no null pointer
    yaml_parser_set_input_string(&m_parser, text.empty() ? &kNothing : text.data(), text.size());
    m_refused = hasTooManyTagDirectives(
        std::string_view(reinterpret_cast<const char*>(text.data()), text.size()));
}

const yaml_event_t* YamlEvents::next()
{
    yaml_event_delete(&m_event);
    if (m_refused || yaml_parser_parse(&m_parser, &m_event) == 0 || !isWithinLimits()) {
        m_refused = true;
        return nullptr;
    }
    return &m_event;
}

const char* YamlEvents::problem() const
{
    if (m_parser.error == YAML_NO_ERROR)
        return "nested too deeply, or too many tag directives";
    return m_parser.problem != nullptr ? m_parser.problem : "not enough memory";
}

yaml_mark_t YamlEvents::problemMark() const
{
    const bool hasOwnMark =
        m_parser.error == YAML_SCANNER_ERROR || m_parser.error == YAML_PARSER_ERROR;
    return hasOwnMark ? m_parser.problem_mark : m_parser.mark;
}

bool YamlEvents::isWithinLimits()
{
    if (m_event.type == YAML_SEQUENCE_START_EVENT || m_event.type == YAML_MAPPING_START_EVENT)
        ++m_depth;
    else if (m_event.type == YAML_SEQUENCE_END_EVENT || m_event.type == YAML_MAPPING_END_EVENT)
        --m_depth;
    m_summedDepth += m_depth;
    return m_depth <= kDeepestNesting && m_summedDepth <= kLargestSummedDepth;
}

} // namespace velko
