#include "cli/cli.h"
#include "rom/file_io.h"

#include <iostream>
#include <string>
#include <vector>

int main(int argc, char** argv)
{
    velko::failWritesOfTooLargeFiles();
    const std::vector<std::string> args(argv + (argc > 0 ? 1 : 0), argv + argc);
    return velko::runCli(args, std::cout, std::cerr);
}
