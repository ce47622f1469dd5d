#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vanoka::test {

inline std::string repeated(std::string_view text, std::size_t times) {
    std::string result;
    for (; times > 0; --times)
        result += text;
    return result;
}

} // namespace vanoka::test
