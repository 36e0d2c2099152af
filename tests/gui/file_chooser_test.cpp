#include "app/file_chooser.h"

#include "tests/gui/modal_helper.h"
#include "tests/support/temporary_folder.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace velko {
namespace {

using test::onceModal;

constexpr const char* kFilter = "NES roms (*.nes)|*.nes|All Files (*.*)|*.*||";

// Fills in a name (typing would open the list of completions) and presses the accepting button.
void enterName(QFileDialog& dialog, const std::filesystem::path& name)
{
    dialog.findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(name.string()));
    auto* buttons = dialog.findChild<QDialogButtonBox*>("buttonBox");
    const bool saving = dialog.acceptMode() == QFileDialog::AcceptSave;
    QTest::mouseClick(buttons->button(saving ? QDialogButtonBox::Save : QDialogButtonBox::Open),
                      Qt::LeftButton);
}

// The names that the dialog lists.
QStringList listed(QFileDialog& dialog)
{
    auto* view = dialog.findChild<QListView*>("listView");
    QStringList names;
    for (int row = 0; row < view->model()->rowCount(view->rootIndex()); ++row)
        names.append(view->model()->index(row, 0, view->rootIndex()).data().toString());
    names.sort();
    return names;
}

class FileDialogsTest : public testing::Test {
protected:
    FileDialogsTest() : rom(folder.write("game.nes", "rom")) { }

    test::TemporaryFolder folder;
    std::filesystem::path rom;
    FileDialogs dialogs;
};

TEST_F(FileDialogsTest, OpenReturnsTheChosenFile)
{
    onceModal<QFileDialog>([this](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Choose a ROM file");
        enterName(dialog, rom);
    });
    EXPECT_EQ(dialogs.chooseOpenFile("Choose a ROM file", kFilter), rom);
}

TEST_F(FileDialogsTest, CancelReturnsNothing)
{
    onceModal<QFileDialog>([](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(dialogs.chooseOpenFile("Choose a ROM file", kFilter), std::nullopt);
    onceModal<QFileDialog>([](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(dialogs.chooseSaveFile("Save", kFilter, rom), std::nullopt);
}

TEST_F(FileDialogsTest, FiltersShowTheirTextsOnly)
{
    onceModal<QFileDialog>([](QFileDialog& dialog) {
        auto* types = dialog.findChild<QComboBox*>("fileTypeCombo");
        EXPECT_EQ(types->itemText(0), "NES roms (*.nes)");
        EXPECT_EQ(types->itemText(1), "All Files (*.*)");
        EXPECT_EQ(types->count(), 2);
        dialog.reject();
    });
    dialogs.chooseOpenFile("Choose a ROM file", kFilter);
}

TEST_F(FileDialogsTest, AllFilesListsNamesWithoutADotToo)
{
    folder.write("README", "text");
    folder.write("notes.txt", "text");
    onceModal<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return listed(dialog) == QStringList{"game.nes"}; }));
        dialog.selectNameFilter(dialog.nameFilters().at(1));
        const QStringList all = {"README", "game.nes", "notes.txt"};
        EXPECT_TRUE(QTest::qWaitFor([&] { return listed(dialog) == all; }))
            << listed(dialog).join(", ").toStdString();
        dialog.reject();
    });
    dialogs.chooseSaveFile("Save", kFilter, rom);
}

TEST_F(FileDialogsTest, SaveBeginsWithTheCurrentFile)
{
    onceModal<QFileDialog>([this](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Input filename to Save to.");
        EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "game.nes");
        EXPECT_EQ(dialog.directory().absolutePath().toStdString(), folder.path().string());
        dialog.reject();
    });
    dialogs.chooseSaveFile("Input filename to Save to.", kFilter, rom);
}

TEST_F(FileDialogsTest, SaveTakesAnExistingFileWithoutAQuestion)
{
    onceModal<QFileDialog>([this](QFileDialog& dialog) { enterName(dialog, rom); });
    EXPECT_EQ(dialogs.chooseSaveFile("Save", kFilter, rom), rom);
}

TEST_F(FileDialogsTest, SaveAddsNoExtension)
{
    const auto name = folder.path() / "plain";
    onceModal<QFileDialog>([&](QFileDialog& dialog) { enterName(dialog, name); });
    EXPECT_EQ(dialogs.chooseSaveFile("Save", kFilter, rom), name);
}

TEST_F(FileDialogsTest, WorkingDirectoryStays)
{
    const auto before = std::filesystem::current_path();
    onceModal<QFileDialog>([this](QFileDialog& dialog) {
        std::filesystem::current_path(folder.path()); // as some platforms' dialogs do
        enterName(dialog, rom);
    });
    EXPECT_EQ(dialogs.chooseSaveFile("Save", kFilter, rom), rom);
    EXPECT_EQ(std::filesystem::current_path(), before);
}

} // namespace
} // namespace velko
