#pragma once

#include "rom/user_prompt.h"

#include <optional>
#include <ostream>
#include <span>
#include <string>
#include <vector>

namespace velko {

// Answers the questions of an operation with words of the command line: "yes", "no" or "cancel",
// one after the other; the last one holds for all further questions. A question that no word
// answers, or one that it cannot be answered with, is declined, and the operation is not to be
// taken for done.
class AnsweringPrompt : public UserPrompt {
public:
    explicit AnsweringPrompt(std::span<const std::string> answers) : m_answers(answers) { }

    // What was told, in order.
    const std::vector<std::string>& messages() const { return m_messages; }
    // What is wrong with the answer to the first question that was declined, if one was.
    const std::optional<std::string>& objection() const { return m_objection; }

    void showMessage(std::string_view text, MessageIcon icon) override;
    bool askYesNo(std::string_view text, MessageIcon icon) override;
    YesNoCancel askYesNoCancel(std::string_view text, MessageIcon icon) override;

protected:
    bool confirm(std::string_view text, std::string_view caption) override;

private:
    std::optional<YesNoCancel> nextAnswer();
    void decline(std::string_view reason, std::string_view question);

    std::span<const std::string> m_answers; // those still to give
    std::vector<std::string> m_messages;
    std::optional<std::string> m_objection;
};

} // namespace velko
