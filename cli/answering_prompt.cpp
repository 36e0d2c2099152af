#include "cli/answering_prompt.h"

namespace velko {

namespace {

constexpr std::string_view kNoAnswer = "--answer is needed: ";

} // namespace

void AnsweringPrompt::showMessage(std::string_view text, MessageIcon)
{
    m_messages.emplace_back(text);
}

// A Yes/No box cannot be left otherwise.
bool AnsweringPrompt::askYesNo(std::string_view text, MessageIcon)
{
    const auto answer = nextAnswer();
    if (!answer)
        decline(kNoAnswer, text);
    else if (*answer == YesNoCancel::kCancel)
        decline("cancel is no answer to: ", text);
    return answer == YesNoCancel::kYes;
}

YesNoCancel AnsweringPrompt::askYesNoCancel(std::string_view text, MessageIcon)
{
    const auto answer = nextAnswer();
    if (!answer)
        decline(kNoAnswer, text);
    return answer.value_or(YesNoCancel::kCancel);
}

bool AnsweringPrompt::confirm(std::string_view text, std::string_view)
{
    const auto answer = nextAnswer();
    if (!answer)
        decline(kNoAnswer, text);
    return answer == YesNoCancel::kYes;
}

std::optional<YesNoCancel> AnsweringPrompt::nextAnswer()
{
    if (m_answers.empty())
        return std::nullopt;
    const std::string& word = m_answers.front();
    if (m_answers.size() > 1)
        m_answers = m_answers.subspan(1);
    if (word == "yes")
        return YesNoCancel::kYes;
    return word == "no" ? YesNoCancel::kNo : YesNoCancel::kCancel;
}

void AnsweringPrompt::decline(std::string_view reason, std::string_view question)
{
    if (!m_objection)
        m_objection = std::string(reason).append(question);
}

} // namespace velko
