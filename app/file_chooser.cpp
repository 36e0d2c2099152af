#include "app/file_chooser.h"

#include "app/busy_cursor.h"
#include "app/text.h"

#include <QApplication>
#include <QFileDialog>

namespace velko {

QStringList nameFilters(std::string_view filter)
{
    const QStringList parts = toQString(filter).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size() && !parts[i].isEmpty(); i += 2) {
        const QString pattern = parts[i + 1] == "*.*" ? QString("*") : parts[i + 1];
        filters.append(QString("%1 (%2)").arg(parts[i], pattern));
    }
    return filters;
}

namespace {

// Some platforms' dialogs change the working directory, on which the module and the bitmaps
// depend.
class KeepWorkingDirectory {
public:
    KeepWorkingDirectory() : m_folder(std::filesystem::current_path(m_error)) { }
    ~KeepWorkingDirectory()
    {
        if (!m_error)
            std::filesystem::current_path(m_folder, m_error);
    }
    KeepWorkingDirectory(const KeepWorkingDirectory&) = delete;
    KeepWorkingDirectory& operator=(const KeepWorkingDirectory&) = delete;

private:
    std::error_code m_error;
    std::filesystem::path m_folder;
};

std::optional<std::filesystem::path> choose(QFileDialog& dialog, std::string_view filter)
{
    const KeepWorkingDirectory keep;
    const OrdinaryCursor cursor;
    // The filter's texts name their patterns already.
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(nameFilters(filter));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return toPath(dialog.selectedFiles().constFirst());
}

} // namespace

std::optional<std::filesystem::path> FileDialogs::chooseOpenFile(std::string_view title,
                                                                 std::string_view filter)
{
    QFileDialog dialog(QApplication::activeWindow(), toQString(title));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return choose(dialog, filter);
}

std::optional<std::filesystem::path>
FileDialogs::chooseSaveFile(std::string_view title, std::string_view filter,
                            const std::filesystem::path& initialName)
{
    QFileDialog dialog(QApplication::activeWindow(), toQString(title));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    if (initialName.has_parent_path())
        dialog.setDirectory(pathText(initialName.parent_path()));
    dialog.selectFile(pathText(initialName.filename()));
    return choose(dialog, filter);
}

} // namespace velko
