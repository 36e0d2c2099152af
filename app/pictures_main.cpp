// velko-pictures WORKDIR ROM OUTDIR: opens the editor on every tab and every tool window and writes
// a PNG of each, for machines without a display and for the documentation.

#include "app/editor_app.h"
#include "app/init_instance.h"
#include "app/main_dialog.h"
#include "app/text.h"
#include "tools/area_editor_dialog.h"
#include "tools/main_map_editor_dialog.h"
#include "tools/room_selector_dialog.h"

#include <QApplication>
#include <QRadioButton>
#include <QTabWidget>
#include <cstdlib>
#include <iostream>
#include <set>
#include <system_error>

namespace {

using namespace velko;

// The same on every machine, whatever its screen.
constexpr QSize kWindowSize(1220, 760);
constexpr QSize kRoomSelectorSize(1000, 572);
constexpr QSize kMapEditorSize(1062, 678);

// Whatever the editor would ask or tell goes to standard error; every question is declined.
class PrintingPrompt : public UserPrompt {
public:
    void showMessage(std::string_view text, MessageIcon) override { std::cerr << text << '\n'; }
    bool askYesNo(std::string_view text, MessageIcon icon) override
    {
        showMessage(text, icon);
        return false;
    }
    YesNoCancel askYesNoCancel(std::string_view text, MessageIcon icon) override
    {
        showMessage(text, icon);
        return YesNoCancel::kCancel;
    }

protected:
    bool confirm(std::string_view text, std::string_view caption) override
    {
        std::cerr << caption << ": " << text << '\n';
        return false;
    }
};

// No file is ever chosen.
class NoFileChooser : public FileChooser {
public:
    std::optional<std::filesystem::path> chooseOpenFile(std::string_view, std::string_view) override
    {
        return std::nullopt;
    }
    std::optional<std::filesystem::path> chooseSaveFile(std::string_view, std::string_view,
                                                        const std::filesystem::path&) override
    {
        return std::nullopt;
    }
};

// "Map allocation " of room 2 becomes "map-allocation-room-2.png".
QString pictureName(const QString& tab, std::uint32_t room)
{
    return QString("%1-room-%2.png").arg(tab.trimmed().toLower().replace(' ', '-')).arg(room);
}

bool writePicture(QWidget& window, const std::filesystem::path& file)
{
    // Nested layouts settle from the inside out, one in each round.
    for (int round = 0; round < 4; ++round)
        QApplication::processEvents();
    if (window.grab().save(pathText(file)))
        return true;
    std::cerr << "Cannot write " << file.filename().string() << '\n';
    return false;
}

// Every tab on each of the rooms.
bool writeAllPictures(MainDialog& window, const std::set<std::uint32_t>& rooms,
                      const std::filesystem::path& folder)
{
    bool written = true;
    auto* tabs = window.findChild<QTabWidget*>("pageTabs");
    for (const std::uint32_t room : rooms) {
        window.chooseRoom(room);
        for (int tab = 0; tab < tabs->count(); ++tab) {
            tabs->setCurrentIndex(tab);
            const QString name = pictureName(tabs->tabText(tab), room);
            written = writePicture(window, folder / toPath(name)) && written;
        }
    }
    return written;
}

bool writeTool(QDialog& tool, QSize size, const std::filesystem::path& file)
{
    tool.resize(size.expandedTo(tool.minimumSizeHint()));
    tool.show();
    return writePicture(tool, file);
}

// The tool windows on room 0; the overworld editor once for each thing that it edits.
bool writeToolPictures(EditorState& state, UserPrompt& prompt, const std::filesystem::path& folder)
{
    state.graphics.selectRoom(0);
    RoomSelectorDialog rooms(state, 0);
    bool written = writeTool(rooms, kRoomSelectorSize, folder / "room-selector.png");
    AreaEditorDialog areas(state);
    written = writeTool(areas, areas.sizeHint(), folder / "area-editor.png") && written;
    MainMapEditorDialog overworld(state, prompt);
    for (const char* mode : {"tile", "area", "truck"}) {
        overworld.findChild<QRadioButton*>(QString(mode) + "Radio")->click();
        const std::string name = std::string("main-map-editor-") + mode + ".png";
        written = writeTool(overworld, kMapEditorSize, folder / name) && written;
    }
    return written;
}

std::uint32_t largestRoom(const EditorState& state)
{
    std::uint32_t largest = 0;
    std::uint32_t most = 0;
    for (std::uint32_t room = 0; room < state.config.roomCount(); ++room) {
        const RoomSize size = state.renderer.roomSize(room);
        if (size.columns * size.rows > most) {
            most = size.columns * size.rows;
            largest = room;
        }
    }
    return largest;
}

int writePictures(const std::filesystem::path& workFolder, const std::filesystem::path& rom,
                  const std::filesystem::path& outFolder)
{
    std::error_code failure;
    std::filesystem::create_directories(outFolder, failure);
    std::filesystem::current_path(workFolder, failure);
    if (failure) {
        std::cerr << "Cannot work in " << workFolder.string() << ": " << failure.message() << '\n';
        return EXIT_FAILURE;
    }
    PrintingPrompt prompt;
    NoFileChooser chooser;
    EditorApp app({prompt, chooser, [](int) {}, {}});
    if (!app.initApplication(rom))
        return EXIT_FAILURE;
    MainDialog window(app.state(), prompt);
    connectFileCommands(window, app);
    window.setCaption(kCaptionPrefix + rom.filename().string());
    window.resize(kWindowSize);
    window.show();
    const std::set<std::uint32_t> rooms = {0, largestRoom(app.state())};
    bool written = writeAllPictures(window, rooms, outFolder);
    written = writeToolPictures(app.state(), prompt, outFolder) && written;
    return written ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4) {
        std::cerr << "Usage: velko-pictures WORKDIR ROM OUTDIR\n";
        return 2;
    }
    const auto path = [&](int i) { return std::filesystem::absolute(toPath(arguments[i])); };
    return writePictures(path(1), path(2), path(3));
}
