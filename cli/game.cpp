#include "cli/game.h"

#include "rom/file_io.h"
#include "state/configuration_loader.h"

namespace velko {

namespace {

// Keeps the first box as the reason of a failure. There is nobody to ask, so the answer is
// always the one that stops.
class RefusingPrompt : public UserPrompt {
public:
    void showMessage(std::string_view text, MessageIcon) override { keep(text); }
    bool askYesNo(std::string_view text, MessageIcon) override
    {
        keep(text);
        return false;
    }
    YesNoCancel askYesNoCancel(std::string_view text, MessageIcon) override
    {
        keep(text);
        return YesNoCancel::kCancel;
    }

    const std::optional<std::string>& reason() const { return m_reason; }

protected:
    // The one such box is about a scalar of data.yaml, which is its caption.
    bool confirm(std::string_view, std::string_view caption) override
    {
        keep("data.yaml: \"" + std::string(caption)
             + "\" is neither a key nor a value here (velko-cli module tells where)");
        return false;
    }

private:
    void keep(std::string_view text)
    {
        if (!m_reason)
            m_reason = std::string(text);
    }

    std::optional<std::string> m_reason;
};

} // namespace

std::optional<std::string> openModule(const Context& context, EditorState& state)
{
    RefusingPrompt prompt;
    loadConfiguration(context.workFolder(), state, prompt, {});
    if (prompt.reason())
        return utf8FromPath(context.workFolder()) + ": " + *prompt.reason();
    return std::nullopt;
}

std::optional<std::string> openGame(const Context& context, std::string_view rom,
                                    EditorState& state)
{
    if (auto reason = openModule(context, state))
        return reason;
    state.rom.setPath(context.path(rom));
    if (!state.rom.load())
        return std::string(rom) + ": cannot be read, or is empty";
    state.prepareRoomData();
    return std::nullopt;
}

} // namespace velko
