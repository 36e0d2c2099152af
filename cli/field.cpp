#include "cli/field.h"

#include "cli/arguments.h"
#include "cli/field_parts.h"

#include <cctype>

namespace velko {

namespace {

// The words between dots and commas, each with the sign before it.
struct Word {
    char sign = '.';
    std::string_view text;
};

std::vector<Word> wordsOf(std::string_view name)
{
    std::vector<Word> words(1);
    std::size_t start = 0;
    for (std::size_t i = 0; i <= name.size(); ++i) {
        if (i < name.size() && name[i] != '.' && name[i] != ',')
            continue;
        words.back().text = name.substr(start, i - start);
        if (i < name.size())
            words.push_back({name[i], {}});
        start = i + 1;
    }
    return words;
}

bool isNumber(const Word& word)
{
    return !word.text.empty() && std::isupper(static_cast<unsigned char>(word.text.front())) != 0;
}

// The numbers of a name that has the pattern's form.
std::optional<std::vector<std::uint32_t>> match(const std::vector<Word>& pattern,
                                                const std::vector<Word>& name)
{
    if (pattern.size() != name.size())
        return std::nullopt;
    std::vector<std::uint32_t> numbers;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i].sign != name[i].sign)
            return std::nullopt;
        if (!isNumber(pattern[i])) {
            if (pattern[i].text != name[i].text)
                return std::nullopt;
            continue;
        }
        const std::optional<std::uint32_t> number = strictHex(name[i].text);
        if (!number)
            return std::nullopt;
        numbers.push_back(*number);
    }
    return numbers;
}

} // namespace

std::vector<FieldRule> fieldRules()
{
    std::vector<FieldRule> all;
    for (const std::span<const FieldRule> rules :
         {settingsFieldRules(), mapFieldRules(), tile32FieldRules(), lookFieldRules(),
          unitFieldRules(), doorFieldRules(), pointerFieldRules(), areaFieldRules(),
          overworldFieldRules()})
        all.insert(all.end(), rules.begin(), rules.end());
    return all;
}

FieldResult findField(EditorState& state, std::string_view name)
{
    const std::vector<Word> words = wordsOf(name);
    for (const FieldRule& rule : fieldRules())
        if (const auto numbers = match(wordsOf(rule.pattern), words))
            return rule.find(state, *numbers);
    return "there is no field of the form \"" + std::string(name) + "\"";
}

} // namespace velko
