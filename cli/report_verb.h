#pragma once

#include "cli/verb.h"
#include "state/editor_state.h"

#include <string>

namespace velko {

// A verb that tells facts of a ROM, in words or as JSON, and takes no other arguments.
class ReportVerb : public Verb {
public:
    void declare(CLI::App& command) override;
    // Opens the ROM, then report()s; a ROM that cannot be opened is a failure.
    ExitStatus run(const Context& context) override;

protected:
    virtual ExitStatus report(const Context& context, const EditorState& state) const = 0;

    // The ROM's name as it was given.
    const std::string& rom() const { return m_rom; }
    bool asJson() const { return m_json; }

private:
    std::string m_rom;
    bool m_json = false;
};

} // namespace velko
