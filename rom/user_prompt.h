#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace velko {

enum class MessageIcon { kNone, kExclamation, kError, kQuestion };
enum class YesNoCancel { kYes, kNo, kCancel };

// What the editor asks and tells its user. Core code never opens a window: the program
// implements this with message boxes, the tests with a script. Texts are UTF-8.
class UserPrompt {
public:
    virtual ~UserPrompt() = default;

    // A box with an OK button.
    virtual void showMessage(std::string_view text, MessageIcon icon = MessageIcon::kNone) = 0;
    virtual bool askYesNo(std::string_view text, MessageIcon icon = MessageIcon::kQuestion) = 0;
    virtual YesNoCancel askYesNoCancel(std::string_view text,
                                       MessageIcon icon = MessageIcon::kQuestion) = 0;

    // showMessage with the error icon and the platform's own caption.
    void showError(std::string_view text) { showMessage(text, MessageIcon::kError); }
    // A box with OK, Cancel and the exclamation icon. Returns 0 for OK and 1 for Cancel; with
    // `suppressed` nothing is shown and the answer is -1.
    int askOkCancel(std::string_view text, std::string_view caption = "Error",
                    bool suppressed = false)
    {
        if (suppressed)
            return -1;
        return confirm(text, caption) ? 0 : 1;
    }

protected:
    // Shows the box of askOkCancel. Returns true for OK.
    virtual bool confirm(std::string_view text, std::string_view caption) = 0;
};

// The two file dialogs. Both keep the working directory and return nothing on cancel.
class FileChooser {
public:
    virtual ~FileChooser() = default;

    // `filter` lists pairs "text|pattern|" and ends in a further "|".
    virtual std::optional<std::filesystem::path> chooseOpenFile(std::string_view title,
                                                                std::string_view filter) = 0;
    // No default extension is added, and an existing file is taken without a question.
    virtual std::optional<std::filesystem::path>
    chooseSaveFile(std::string_view title, std::string_view filter,
                   const std::filesystem::path& initialName) = 0;
};

} // namespace velko
