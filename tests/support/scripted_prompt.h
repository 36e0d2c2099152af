#pragma once

#include "rom/user_prompt.h"

#include <deque>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

namespace velko::test {

// A prompt that expects certain boxes in order and gives prepared answers. A box that differs
// from the next expected one fails the test, and so does one that never came.
class ScriptedPrompt : public UserPrompt {
public:
    enum class Answer { kOk, kCancel, kYes, kNo };

    ~ScriptedPrompt() override
    {
        for (const Box& box : m_expected)
            ADD_FAILURE() << "this box was never shown: " << box.text;
    }

    void expect(std::string text, MessageIcon icon = MessageIcon::kNone)
    {
        m_expected.push_back({"message", std::move(text), "", icon, Answer::kOk});
    }
    void expectError(std::string text) { expect(std::move(text), MessageIcon::kError); }
    void expectYesNo(std::string text, Answer answer, MessageIcon icon = MessageIcon::kQuestion)
    {
        m_expected.push_back({"yes/no", std::move(text), "", icon, answer});
    }
    void expectYesNoCancel(std::string text, Answer answer,
                           MessageIcon icon = MessageIcon::kQuestion)
    {
        m_expected.push_back({"yes/no/cancel", std::move(text), "", icon, answer});
    }
    void expectOkCancel(std::string text, std::string caption, Answer answer)
    {
        m_expected.push_back(
            {"ok/cancel", std::move(text), std::move(caption), MessageIcon::kExclamation, answer});
    }
    // True once every expected box has been shown.
    bool done() const { return m_expected.empty(); }

    void showMessage(std::string_view text, MessageIcon icon) override
    {
        next("message", text, "", icon);
    }
    bool askYesNo(std::string_view text, MessageIcon icon) override
    {
        return next("yes/no", text, "", icon) == Answer::kYes;
    }
    YesNoCancel askYesNoCancel(std::string_view text, MessageIcon icon) override
    {
        switch (next("yes/no/cancel", text, "", icon)) {
        case Answer::kYes:
            return YesNoCancel::kYes;
        case Answer::kNo:
            return YesNoCancel::kNo;
        default:
            return YesNoCancel::kCancel;
        }
    }

protected:
    bool confirm(std::string_view text, std::string_view caption) override
    {
        return next("ok/cancel", text, caption, MessageIcon::kExclamation) == Answer::kOk;
    }

private:
    struct Box {
        std::string kind;
        std::string text;
        std::string caption;
        MessageIcon icon;
        Answer answer;
    };

    Answer next(std::string_view kind, std::string_view text, std::string_view caption,
                MessageIcon icon)
    {
        if (m_expected.empty()) {
            ADD_FAILURE() << "unexpected " << kind << " box: " << text;
            return Answer::kCancel;
        }
        const Box box = m_expected.front();
        m_expected.pop_front();
        EXPECT_EQ(box.kind, kind);
        EXPECT_EQ(box.text, text);
        EXPECT_EQ(box.caption, caption);
        EXPECT_EQ(box.icon, icon);
        return box.answer;
    }

    std::deque<Box> m_expected;
};

} // namespace velko::test
