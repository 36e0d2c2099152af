#include "rom/data_yaml.h"

#include "rom/file_io.h"
#include "rom/yaml_events.h"
#include "rom/yaml_keys.h"

#include <optional>
#include <span>
#include <string>

namespace velko {

namespace {

constexpr std::string_view kNoParser = "Failed to initialize YAML parser.";
constexpr std::string_view kNoFile = "Couldn't load the YAML file!";
constexpr std::string_view kMalformed = "Problem while parsing YAML.";
constexpr std::string_view kUnknownScalar =
    "YAML content recognized as neither key or value. (Check spelling and letter case!). "
    "Press Cancel to quit.";

// The text of a scalar; empty for other events.
std::string_view scalarOf(const yaml_event_t& event)
{
    if (event.type != YAML_SCALAR_EVENT)
        return {};
    return {reinterpret_cast<const char*>(event.data.scalar.value), event.data.scalar.length};
}

// The odd wording is what readers of the trace look for.
std::string_view traceText(yaml_event_type_t type)
{
    switch (type) {
    case YAML_STREAM_START_EVENT:
        return "Now YAML reading starts.";
    case YAML_DOCUMENT_START_EVENT:
        return "Now YAML readins starts also.";
    case YAML_ALIAS_EVENT:
        return "There was an alias.";
    case YAML_SCALAR_EVENT:
        return "There was a SCALAR: ";
    case YAML_SEQUENCE_START_EVENT:
        return "There was a sequence start.";
    case YAML_SEQUENCE_END_EVENT:
        return "There was a sequence end.";
    case YAML_MAPPING_START_EVENT:
        return "There was a mapping start.";
    case YAML_MAPPING_END_EVENT:
        return "There was a mapping end.";
    case YAML_NO_EVENT:
    case YAML_DOCUMENT_END_EVENT:
    case YAML_STREAM_END_EVENT:
        break;
    }
    return "Now YAML reading ends.";
}

YamlMark markOf(const yaml_mark_t& mark)
{
    return {mark.line + 1, mark.column + 1};
}

// Walks the events of one `data.yaml` and fills the configuration.
class Reader {
public:
    Reader(YamlEvents& events, GameConfig& config, UserPrompt& prompt, const TraceSink& trace,
           DataYamlObserver* observer)
        : m_events(events), m_config(config), m_prompt(prompt), m_trace(trace), m_observer(observer)
    {
    }

    DataYamlResult read()
    {
        while (const yaml_event_t* event = m_events.next()) {
            trace(traceText(event->type), scalarOf(*event));
            switch (take(*event)) {
            case Step::kGoOn:
                break;
            case Step::kEnd:
                trace("Now YAML reading ended somehow.");
                return DataYamlResult::kDone;
            case Step::kQuit:
                return DataYamlResult::kQuit;
            }
        }
        if (m_observer != nullptr)
            m_observer->malformed(markOf(m_events.problemMark()), m_events.problem());
        m_prompt.showError(kMalformed);
        return DataYamlResult::kDone;
    }

private:
    enum class Step { kGoOn, kEnd, kQuit };

    Step take(const yaml_event_t& event)
    {
        switch (event.type) {
        case YAML_STREAM_START_EVENT:
        case YAML_DOCUMENT_START_EVENT:
            return Step::kGoOn;
        case YAML_ALIAS_EVENT:
            if (m_observer != nullptr)
                m_observer->alias(markOf(event.start_mark));
            return Step::kGoOn;
        case YAML_SCALAR_EVENT:
            return takeScalar(scalarOf(event), markOf(event.start_mark));
        case YAML_SEQUENCE_START_EVENT:
            m_cursor.inSequence = true;
            return Step::kGoOn;
        case YAML_SEQUENCE_END_EVENT:
            m_cursor.inSequence = false;
            return Step::kGoOn;
        case YAML_MAPPING_START_EVENT:
            ++m_cursor.mappingDepth;
            return Step::kGoOn;
        case YAML_MAPPING_END_EVENT:
            --m_cursor.mappingDepth;
            return Step::kGoOn;
        case YAML_NO_EVENT:
        case YAML_DOCUMENT_END_EVENT: // further documents are not read
        case YAML_STREAM_END_EVENT:
            break;
        }
        return Step::kEnd;
    }

    Step takeScalar(std::string_view scalar, YamlMark mark)
    {
        const YamlScalarUse use = apply(scalar);
        if (m_observer != nullptr)
            m_observer->scalar(scalar, mark, use, m_cursor);
        if (use != YamlScalarUse::kNeither)
            return Step::kGoOn;
        return m_prompt.askOkCancel(kUnknownScalar, scalar) == 0 ? Step::kGoOn : Step::kQuit;
    }

    YamlScalarUse apply(std::string_view scalar)
    {
        // A key is a key even where a value is due.
        if (matchKey(scalar, m_config, m_cursor))
            return YamlScalarUse::kKey;
        if (parseValue(scalar, m_cursor.inSequence, m_cursor.target))
            return YamlScalarUse::kValue;
        return YamlScalarUse::kNeither;
    }

    void trace(std::string_view text, std::string_view scalar = {}) const
    {
        if (m_trace) // the letter behind the line break has always been there
            m_trace(std::string(text).append(scalar).append("\nl"));
    }

    YamlEvents& m_events;
    GameConfig& m_config;
    UserPrompt& m_prompt;
    const TraceSink& m_trace;
    DataYamlObserver* m_observer;
    YamlCursor m_cursor;
};

DataYamlResult stop(UserPrompt& prompt, std::string_view text)
{
    prompt.showError(text);
    return DataYamlResult::kDone;
}

// The text of a file, or nothing when it could not be loaded.
using Text = std::optional<std::span<const std::uint8_t>>;

DataYamlResult readText(Text text, GameConfig& config, UserPrompt& prompt, const TraceSink& trace,
                        DataYamlObserver* observer)
{
    YamlEvents events;
    if (!events.isReady())
        return stop(prompt, kNoParser);
    if (!text)
        return stop(prompt, kNoFile);
    events.setInput(*text);
    return Reader(events, config, prompt, trace, observer).read();
}

} // namespace

DataYamlResult loadDataYaml(const std::filesystem::path& path, GameConfig& config,
                            UserPrompt& prompt, const TraceSink& trace)
{
    const auto bytes = loadFile(path);
    return readText(bytes ? Text(*bytes) : std::nullopt, config, prompt, trace, nullptr);
}

DataYamlResult readDataYaml(std::span<const std::uint8_t> text, GameConfig& config,
                            UserPrompt& prompt, const TraceSink& trace, DataYamlObserver* observer)
{
    return readText(text, config, prompt, trace, observer);
}

} // namespace velko
