#include "Command.h"
#include "ExitStatus.h"
#include "VisibleOutput.h"

#include <iostream>
#include <string_view>
#include <unistd.h>
#include <vector>

int main(int count, char** values) {
    std::ios::sync_with_stdio(false);
    const vanoka::VisibleOutput output(std::cout, STDOUT_FILENO);
    const std::vector<std::string_view> arguments(values + 1, values + count);
    const int status = vanoka::runSwipeCommand(arguments, std::cout, std::cerr);
    if (std::cout.flush())
        return status;
    std::cerr << "vanoka-swipe: Cannot write\n";
    return vanoka::ExitStatus::failed;
}
