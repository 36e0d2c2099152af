#pragma once

#include "rom/user_prompt.h"

namespace velko::test {

// A prompt that nobody sees. Every question is answered with No or Cancel.
class QuietPrompt : public UserPrompt {
public:
    void showMessage(std::string_view, MessageIcon) override { }
    bool askYesNo(std::string_view, MessageIcon) override { return false; }
    YesNoCancel askYesNoCancel(std::string_view, MessageIcon) override
    {
        return YesNoCancel::kCancel;
    }

protected:
    bool confirm(std::string_view, std::string_view) override { return false; }
};

} // namespace velko::test
