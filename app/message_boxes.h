#pragma once

#include "rom/user_prompt.h"

namespace velko {

// Message boxes over the active window. Texts are shown as they are, never as markup. A box that
// asks Yes or No has no third way out: neither Escape nor the close button answers it, as either
// answer may lose the user's work.
class MessageBoxes : public UserPrompt {
public:
    void showMessage(std::string_view text, MessageIcon icon) override;
    bool askYesNo(std::string_view text, MessageIcon icon) override;
    YesNoCancel askYesNoCancel(std::string_view text, MessageIcon icon) override;

protected:
    bool confirm(std::string_view text, std::string_view caption) override;
};

} // namespace velko
