#include "cli/command_line.h"
#include "cli/completions.h"
#include "cli/manual_page.h"
#include "cli/output_file.h"
#include "rom/file_io.h"

#include <iostream>

// Writes the manual page and the completions into a folder: what the build installs beside the
// program. They are made of the program's own definition of its command line.
int main(int argc, char** argv)
{
    using namespace velko;

    if (argc != 2) {
        std::cerr << "Usage: velko-cli-docs FOLDER\n";
        return 2;
    }
    CommandLine line;
    const CommandText program = describe(line.app());
    const std::filesystem::path folder = pathFromUtf8(argv[1]);
    const std::pair<const char*, std::string> files[] = {
        {"velko-cli.1", manualPage(program)},
        {"velko-cli.bash", bashCompletion(program)},
        {"_velko-cli", zshCompletion(program)},
        {"velko-cli.fish", fishCompletion(program)},
    };
    for (const auto& [name, text] : files) {
        if (const auto reason = writeFile(folder / name, text)) {
            std::cerr << "velko-cli-docs: " << *reason << '\n';
            return 2;
        }
    }
    return 0;
}
