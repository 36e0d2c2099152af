#include "cli/module_check.h"

#include "rom/number_text.h"

#include <algorithm>
#include <cctype>

namespace velko {

namespace {

constexpr std::size_t kLongestText = 60; // bytes

// The start of a text, cut between characters.
std::string shortened(std::string_view text)
{
    if (text.size() <= kLongestText)
        return std::string(text);
    std::size_t end = kLongestText;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
        --end;
    return std::string(text.substr(0, end)) + "...";
}

std::string quoted(std::string_view text)
{
    return "\"" + shortened(text) + "\"";
}

bool isSameButForCase(std::string_view a, std::string_view b)
{
    return std::ranges::equal(
        a, b, [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

std::string_view placeName(YamlPlace place)
{
    switch (place) {
    case YamlPlace::kRootMapping:
        return "at the top level";
    case YamlPlace::kLevelHandlers:
        return "in levelPointerArrayHandlers";
    case YamlPlace::kOtherHandlers:
        return "in otherPointerArrayHandlers";
    case YamlPlace::kAnyHandlers:
        return "in a handler";
    case YamlPlace::kHandlerBanks:
        return "in pointerHandlersBanks";
    case YamlPlace::kMiscData:
        return "in miscData";
    }
    return "";
}

// The section that a key stands in; empty at the top level.
std::string_view sectionName(YamlPlace place)
{
    constexpr std::string_view kIn = "in ";
    const std::string_view name = placeName(place);
    return name.starts_with(kIn) ? name.substr(kIn.size()) : "";
}

bool isHandler(const YamlKey& key)
{
    return key.place == YamlPlace::kLevelHandlers || key.place == YamlPlace::kOtherHandlers;
}

// Tables of pointers need not tell their stride, but that of the layouts holds each room's size
// beside the pointer.
bool mayBeAbsent(std::string_view handler, std::string_view field)
{
    return field == "pointerPad" && handler != "pahMapLayout";
}

} // namespace

std::string_view flawName(ModuleFlaw flaw)
{
    constexpr std::string_view kNames[] = {"unknown",     "misplaced-key", "missing-key", "overrun",
                                           "stray-value", "alias",         "malformed"};
    return kNames[static_cast<std::size_t>(flaw)];
}

void ModuleCheck::scalar(std::string_view text, YamlMark at, YamlScalarUse use,
                         const YamlCursor& cursor)
{
    switch (use) {
    case YamlScalarUse::kKey:
        return takeKey(text, at, cursor);
    case YamlScalarUse::kValue:
        return takeValue(text, at, cursor);
    case YamlScalarUse::kNeither:
        return takeNeither(text, at);
    }
}

void ModuleCheck::alias(YamlMark at)
{
    note(ModuleFlaw::kAlias, at, "", "an alias stores nothing");
}

void ModuleCheck::malformed(YamlMark at, std::string_view problem)
{
    m_isMalformed = true;
    note(ModuleFlaw::kMalformed, at, "", std::string(problem) + "; the rest is not read");
}

void ModuleCheck::takeKey(std::string_view text, YamlMark at, const YamlCursor& cursor)
{
    ++m_keyCount;
    m_key = find(text);
    m_position = 0;
    m_plainValues = 0;
    m_overrunNoted = false;
    if (m_key->place == YamlPlace::kAnyHandlers)
        return takeHandlerField(at, cursor);
    m_given.try_emplace(std::string(text), at);
    if (isHandler(*m_key))
        m_handler = m_key->name;
    m_handlerIsOfSection = isHandler(*m_key);
}

void ModuleCheck::takeHandlerField(YamlMark at, const YamlCursor& cursor)
{
    const std::string name(m_key->name);
    if (cursor.handler == nullptr)
        return note(ModuleFlaw::kMisplacedKey, at, name,
                    name + " comes before any handler; what it gives is dropped");
    if (!m_handlerIsOfSection)
        note(ModuleFlaw::kMisplacedKey, at, name,
             name + " comes before any handler of its section; it changes "
                 + std::string(m_handler));
    m_given.try_emplace(std::string(m_handler) + "." + name, at);
}

void ModuleCheck::takeValue(std::string_view text, YamlMark at, const YamlCursor& cursor)
{
    ++m_valueCount;
    if (m_key == nullptr)
        return note(ModuleFlaw::kStrayValue, at, text,
                    quoted(text) + " comes before any key and is dropped");
    const std::string key(m_key->name);
    if (m_key->fields == 0)
        return note(ModuleFlaw::kStrayValue, at, text,
                    quoted(text) + " follows " + key + ", which takes no value of its own");
    if (m_position >= m_key->fields)
        noteOverrun(text, at);
    else if (!cursor.inSequence && ++m_plainValues > 1)
        note(ModuleFlaw::kStrayValue, at, text,
             quoted(text) + " is a second value for " + key + " and replaces the first");
    if (cursor.inSequence)
        ++m_position;
}

void ModuleCheck::noteOverrun(std::string_view text, YamlMark at)
{
    if (m_overrunNoted)
        return;
    m_overrunNoted = true;
    // The fields of miscData lie one after the other.
    const bool runsOn = m_key->place == YamlPlace::kMiscData && m_key != &m_keys.back();
    const std::string rest =
        runsOn ? "fill " + std::string(m_key[1].name) + " and what follows it" : "are dropped";
    note(ModuleFlaw::kOverrun, at, text,
         std::string(m_key->name) + " takes " + decimalText(m_key->fields)
             + (m_key->fields == 1 ? " value" : " values") + "; those from here on " + rest);
}

void ModuleCheck::takeNeither(std::string_view text, YamlMark at)
{
    if (const YamlKey* key = find(text))
        return note(ModuleFlaw::kMisplacedKey, at, text,
                    std::string(text) + " is no key here; it belongs "
                        + std::string(placeName(key->place)));
    std::string message = quoted(text) + " is neither key nor value";
    for (const YamlKey& key : m_keys) {
        if (isSameButForCase(key.name, text))
            message += "; did you mean " + std::string(key.name) + "?";
    }
    note(ModuleFlaw::kUnknown, at, text, message);
}

void ModuleCheck::finish()
{
    if (m_isMalformed)
        return;
    for (const YamlKey& key : m_keys) {
        if (key.place != YamlPlace::kAnyHandlers)
            noteMissing(key);
    }
}

void ModuleCheck::noteMissing(const YamlKey& key)
{
    if (m_given.contains(key.name)) {
        for (const YamlKey& field : m_keys) {
            if (isHandler(key) && field.place == YamlPlace::kAnyHandlers)
                noteMissingField(key.name, field);
        }
        return;
    }
    const std::string name(key.name);
    const std::string_view section = sectionName(key.place);
    if (section.empty())
        return note(ModuleFlaw::kMissingKey, std::nullopt, name, name + " is never given");
    // A section that is missing is told once, not with all it would hold.
    if (const auto given = m_given.find(section); given != m_given.end())
        note(ModuleFlaw::kMissingKey, given->second, name,
             name + " is never given in " + std::string(section));
}

void ModuleCheck::noteMissingField(std::string_view handler, const YamlKey& key)
{
    const std::string name = std::string(handler) + "." + std::string(key.name);
    if (!m_given.contains(name) && !mayBeAbsent(handler, key.name))
        note(ModuleFlaw::kMissingKey, m_given.find(handler)->second, name,
             name + " is never given");
}

void ModuleCheck::note(ModuleFlaw flaw, std::optional<YamlMark> at, std::string_view text,
                       std::string message)
{
    if (m_findings.size() < kMostFindings)
        m_findings.push_back({flaw, at, shortened(text), std::move(message)});
    else
        ++m_further;
}

const YamlKey* ModuleCheck::find(std::string_view name) const
{
    const auto key = std::ranges::find(m_keys, name, &YamlKey::name);
    return key == m_keys.end() ? nullptr : &*key;
}

} // namespace velko
