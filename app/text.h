#pragma once

#include <QString>
#include <filesystem>
#include <string>
#include <string_view>

namespace velko {

// The texts of the core as the window system's. Name lists come in whatever encoding their
// author used: valid UTF-8 is taken as such, anything else as Latin-1.
QString toQString(std::string_view bytes);
QString pathText(const std::filesystem::path& path);
std::filesystem::path toPath(const QString& text);

// A text as a window title: the toolkit takes "[*]" for its mark of a changed document.
QString titleText(std::string_view bytes);

} // namespace velko
