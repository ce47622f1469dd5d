#include "Command.h"

#include <iostream>

int main(int count, char** values) {
    using namespace vanoka;
    return SwipeCommand::program.run(count, values, [](const CommandLine& line) {
        return SwipeCommand::run(line, std::cin, std::cout, std::cerr);
    });
}
