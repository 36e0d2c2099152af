#pragma once

#include "rom/user_prompt.h"

#include <QStringList>
#include <string_view>

namespace velko {

// The pairs "text|pattern|" of a filter, ended by a further "|", as name filters of the toolkit:
// the text, then the pattern in parentheses. The pattern "*.*" means every file, with or without
// a dot.
QStringList nameFilters(std::string_view filter);

// The platform's file dialogs over the active window.
class FileDialogs : public FileChooser {
public:
    std::optional<std::filesystem::path> chooseOpenFile(std::string_view title,
                                                        std::string_view filter) override;
    std::optional<std::filesystem::path>
    chooseSaveFile(std::string_view title, std::string_view filter,
                   const std::filesystem::path& initialName) override;
};

} // namespace velko
