#import "MacPlatform.h"

#include <iostream>
#include <vector>

int main(int count, char** values) {
    @autoreleasepool {
        const std::vector<std::string_view> arguments(values, values + count);
        // Kept until the process ends: the input method lives as long as its server.
        static vanoka::mac::MacPlatform platform;
        return vanoka::startUp(arguments, platform, std::cout);
    }
}
