#pragma once

#include "rom/user_prompt.h"

#include <deque>
#include <gtest/gtest.h>
#include <string>

namespace velko::test {

// File dialogs that expect to be opened in a certain order and give prepared answers; nothing
// stands for Cancel. A dialog that was not expected fails the test, and so does one that never
// opened.
class ScriptedFileChooser : public FileChooser {
public:
    using Answer = std::optional<std::filesystem::path>;

    ~ScriptedFileChooser() override
    {
        for (const Dialog& dialog : m_expected)
            ADD_FAILURE() << "this dialog was never opened: " << dialog.title;
    }

    void expectOpen(std::string title, Answer answer)
    {
        m_expected.push_back({std::move(title), {}, std::move(answer)});
    }
    void expectSave(std::string title, std::filesystem::path initialName, Answer answer)
    {
        m_expected.push_back({std::move(title), std::move(initialName), std::move(answer)});
    }
    // True once every expected dialog has been opened.
    bool done() const { return m_expected.empty(); }
    const std::string& lastFilter() const { return m_lastFilter; }

    Answer chooseOpenFile(std::string_view title, std::string_view filter) override
    {
        return next(title, filter, {});
    }
    Answer chooseSaveFile(std::string_view title, std::string_view filter,
                          const std::filesystem::path& initialName) override
    {
        return next(title, filter, initialName);
    }

private:
    struct Dialog {
        std::string title;
        std::filesystem::path initialName;
        Answer answer;
    };

    Answer next(std::string_view title, std::string_view filter,
                const std::filesystem::path& initialName)
    {
        m_lastFilter = filter;
        if (m_expected.empty()) {
            ADD_FAILURE() << "unexpected file dialog: " << title;
            return std::nullopt;
        }
        const Dialog dialog = m_expected.front();
        m_expected.pop_front();
        EXPECT_EQ(dialog.title, title);
        EXPECT_EQ(dialog.initialName, initialName);
        return dialog.answer;
    }

    std::deque<Dialog> m_expected;
    std::string m_lastFilter;
};

} // namespace velko::test
