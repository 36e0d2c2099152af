#include "demo/generator.h"

#include <cstdio>
#include <exception>

// Writes the demo game into a folder: velko-demo-game SOURCE-FOLDER OUTPUT-FOLDER
int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: velko-demo-game SOURCE-FOLDER OUTPUT-FOLDER\n");
        return 2;
    }
    try {
        velko::demo::generateDemo(argv[1], argv[2]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "velko-demo-game: %s\n", error.what());
        return 1;
    }
    return 0;
}
