#include "cli/verb_module.h"

#include "cli/arguments.h"
#include "cli/json.h"
#include "cli/module_check.h"
#include "rom/data_yaml.h"
#include "rom/file_io.h"
#include "rom/module_config.h"
#include "rom/number_text.h"

#include <CLI/CLI.hpp>

namespace velko {

namespace {

// Goes on after every question, so that the whole file is read. What it is told is told by the
// findings already.
class PatientPrompt : public UserPrompt {
public:
    void showMessage(std::string_view, MessageIcon) override { }
    bool askYesNo(std::string_view, MessageIcon) override { return true; }
    YesNoCancel askYesNoCancel(std::string_view, MessageIcon) override { return YesNoCancel::kYes; }

protected:
    bool confirm(std::string_view, std::string_view) override { return true; }
};

Json jsonOf(const ModuleFinding& finding)
{
    Json object;
    object["line"] = finding.at ? Json(finding.at->line) : Json();
    object["column"] = finding.at ? Json(finding.at->column) : Json();
    object["code"] = flawName(finding.flaw);
    object["text"] = finding.text;
    object["message"] = finding.message;
    return object;
}

// As compilers write it, so that editors jump there.
void writeFinding(std::ostream& out, const std::string& file, const ModuleFinding& finding)
{
    out << oneLine(file) << ':';
    if (finding.at)
        out << finding.at->line << ':' << finding.at->column << ':';
    out << ' ' << flawName(finding.flaw) << ": " << oneLine(finding.message) << '\n';
}

class ModuleVerb : public Verb {
public:
    void declare(CLI::App& command) override
    {
        command
            .add_option("DIR", m_folder,
                        "The module's folder, which holds data.yaml; without it the one that "
                        "module.cfg names")
            ->type_name("");
        addJson(command, m_json);
    }

    ExitStatus run(const Context& context) override
    {
        if (m_folder.empty()) {
            const auto folder = readModuleConfig(context.workFolder());
            if (!folder)
                return context.fail("module.cfg: cannot be read");
            m_folder =
                utf8FromPath(folder->lexically_relative(context.workFolder()).lexically_normal());
        }
        m_file = utf8FromPath((pathFromUtf8(m_folder) / "data.yaml").lexically_normal());
        const auto text = loadFile(context.path(m_file));
        if (!text)
            return context.fail(m_file + ": cannot be read, or is empty");
        ModuleCheck check;
        GameConfig config;
        PatientPrompt prompt;
        readDataYaml(*text, config, prompt, {}, &check);
        check.finish();
        if (m_json)
            writeAsJson(context.out(), check);
        else
            write(context.out(), check);
        return check.findings().empty() ? ExitStatus::kFine : ExitStatus::kFindings;
    }

private:
    void write(std::ostream& out, const ModuleCheck& check) const
    {
        for (const ModuleFinding& finding : check.findings())
            writeFinding(out, m_file, finding);
        if (check.furtherFindings() > 0)
            out << oneLine(m_file) << ": " << check.furtherFindings() << " further findings\n";
        if (check.findings().empty())
            out << oneLine(m_file) << ": fine, " << check.keys() << " keys and " << check.values()
                << " values\n";
    }

    void writeAsJson(std::ostream& out, const ModuleCheck& check) const
    {
        Json findings = Json::array();
        for (const ModuleFinding& finding : check.findings())
            findings.push_back(jsonOf(finding));
        writeJson(out,
                  {{"file", m_file},
                   {"keys", check.keys()},
                   {"values", check.values()},
                   {"findings", findings},
                   {"furtherFindings", check.furtherFindings()}});
    }

    std::string m_folder;
    std::string m_file; // as it is told
    bool m_json = false;
};

} // namespace

std::unique_ptr<Verb> makeModuleVerb()
{
    return std::make_unique<ModuleVerb>();
}

} // namespace velko
