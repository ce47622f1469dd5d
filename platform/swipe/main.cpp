#include "Command.h"

#include <iostream>
#include <string_view>
#include <vector>

int main(int count, char** values) {
    std::ios::sync_with_stdio(false);
    const std::vector<std::string_view> arguments(values + 1, values + count);
    const int status = vanoka::runSwipeCommand(arguments, std::cout, std::cerr);
    if (std::cout.flush())
        return status;
    std::cerr << "vanoka-swipe: Cannot write\n";
    return 3;
}
