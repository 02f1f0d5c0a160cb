// The orrery tool: the command-line entry.
#include <iostream>

#include "tools/cli.h"

int main(int argc, char **argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    return orrery::RunOrreryCli(args, std::cin, std::cout, std::cerr);
}
