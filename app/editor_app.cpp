#include "app/editor_app.h"

#include "app/busy_cursor.h"
#include "rom/data_yaml.h"
#include "rom/file_io.h"
#include "state/configuration_loader.h"

#include <QGuiApplication>
#include <QPalette>
#include <utility>

namespace velko {

namespace {

// The colour that windows are painted with, so that a picture's unused parts blend in.
Pixel windowColour()
{
    return QGuiApplication::palette().color(QPalette::Window).rgb() & 0xFFFFFF;
}

} // namespace

EditorApp::EditorApp(EditorServices services) : m_services(std::move(services)) { }

bool EditorApp::initApplication(const std::optional<std::filesystem::path>& rom)
{
    m_state.backgroundColour = windowColour();
    if (!loadConfigurationFiles())
        return false;
    if (rom) {
        m_state.rom.setPath(*rom);
    } else if (!chooseRom()) {
        m_services.endProcess(0);
        return false;
    }
    return loadRom(kLoadFailed);
}

bool EditorApp::loadConfigurationFiles()
{
    const BusyCursor busy;
    switch (loadConfiguration({}, m_state, m_services.prompt, m_services.trace)) {
    case ConfigurationResult::kContinue:
        return true;
    case ConfigurationResult::kQuit:
        m_services.endProcess(kConfigurationQuitStatus);
        return false;
    case ConfigurationResult::kFailed:
        break;
    }
    m_services.endProcess(0);
    return false;
}

bool EditorApp::chooseRom()
{
    const auto path = m_services.chooser.chooseOpenFile(kOpenTitle, kRomFilter);
    if (path)
        m_state.rom.setPath(*path);
    return path.has_value();
}

// Reads the image from its path and prepares the room data, or tells `failure` and ends the
// process.
bool EditorApp::loadRom(const char* failure)
{
    const BusyCursor busy;
    if (!m_state.rom.load()) {
        m_services.prompt.showMessage(failure);
        m_services.endProcess(0);
        return false;
    }
    m_state.prepareRoomData();
    return true;
}

void EditorApp::setWindow(EditorWindow& window)
{
    m_window = &window;
    updateCaption();
}

void EditorApp::openRom()
{
    const int tab = m_window->selectedTab();
    m_window->destroyPage(false);
    if (chooseRom() && !loadRom(kLoadFailed))
        return;
    m_window->showPage(tab);
    updateCaption();
}

void EditorApp::revert()
{
    const int tab = m_window->selectedTab();
    m_window->destroyPage(true);
    if (loadRom(kRevertFailed))
        m_window->showPage(tab);
}

void EditorApp::save()
{
    m_window->commitEdits();
    m_state.rom.save();
}

// Changes that the page has not written yet are not offered here, unlike in save(): a copy saved
// on the way is a copy of the image as it stands.
void EditorApp::saveAs()
{
    const auto path = m_services.chooser.chooseSaveFile(kSaveTitle, kRomFilter, m_state.rom.path());
    if (!path)
        return;
    m_state.rom.setPath(*path);
    m_state.rom.save();
    updateCaption();
}

void EditorApp::updateCaption()
{
    m_window->setCaption(kCaptionPrefix + utf8FromPath(m_state.rom.path()));
}

} // namespace velko
