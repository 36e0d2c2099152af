#include "demo/generator.h"

#include <cstdio>
#include <exception>
#include <string_view>

namespace {

constexpr const char* kUsage = "usage: velko-demo-game SOURCE-FOLDER PROGRAM-FILE OUTPUT-FOLDER\n"
                               "       velko-demo-game --tables SOURCE-FOLDER OUTPUT-FOLDER\n";

} // namespace

// Writes the demo game into a folder, or the tables that its program is assembled with.
int main(int argc, char** argv)
{
    if (argc != 4) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    try {
        if (argv[1] == std::string_view("--tables"))
            velko::demo::generateProgramTables(argv[2], argv[3]);
        else
            velko::demo::generateDemo(argv[1], argv[2], argv[3]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "velko-demo-game: %s\n", error.what());
        return 1;
    }
    return 0;
}
