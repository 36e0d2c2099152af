#pragma once

#include "app/editor_window.h"
#include "rom/trace.h"
#include "rom/user_prompt.h"
#include "state/editor_state.h"

#include <filesystem>
#include <functional>
#include <optional>

namespace velko {

inline constexpr const char* kOpenTitle = "Choose a ROM file";
inline constexpr const char* kSaveTitle = "Input filename to Save to.";
inline constexpr const char* kRomFilter = "NES roms (*.nes)|*.nes|All Files (*.*)|*.*||";
inline constexpr const char* kLoadFailed = "Failed to load the ROM file. Quitting.";
inline constexpr const char* kRevertFailed = "Failed to revert the ROM file. Quitting.";
inline constexpr const char* kCaptionPrefix = "Olvard - v4 - ";

// What the application talks to. The program gives it windows, the tests scripts.
struct EditorServices {
    UserPrompt& prompt;
    FileChooser& chooser;
    // Ends the process at once. A test's version returns; nothing more is done then.
    std::function<void(int status)> endProcess;
    TraceSink trace;
};

// The application: owns the editor's state, starts it up, and carries out the file commands.
class EditorApp {
public:
    explicit EditorApp(EditorServices services);

    EditorState& state() { return m_state; }

    // Start-up before any window: reads the configuration from the working directory, has the
    // user choose a ROM unless `rom` names one, reads it and prepares the room data. Returns
    // false when the process was to end: with status 0 on cancel and on failure (after a
    // message), with kConfigurationQuitStatus when the user declined a questionable data.yaml.
    [[nodiscard]] bool initApplication(const std::optional<std::filesystem::path>& rom = {});

    // The window that the commands act on; it must outlive them. Sets its caption.
    void setWindow(EditorWindow& window);

    // The file commands. Open and revert read the image only: the configuration stays.
    void openRom();
    void revert();
    void save();
    void saveAs();

private:
    bool loadConfigurationFiles();
    bool chooseRom();
    bool loadRom(const char* failure);
    void updateCaption();

    EditorServices m_services;
    EditorState m_state;
    EditorWindow* m_window = nullptr;
};

} // namespace velko
